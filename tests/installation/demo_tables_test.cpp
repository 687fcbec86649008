#include "installation/demo_tables.h"

#include "installation/demo_weather.h"
#include "installation/embedded_files.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <set>
#include <stdexcept>

namespace orvel {

namespace {

const Demo_Tables Tables = Load_Demo_Tables();

const Demo_Site& Site(std::string_view code)
{
    return *std::ranges::find(Tables.Sites, code, &Demo_Site::Code);
}

double Depth(const Demo_Site& site)
{
    return std::accumulate(
        site.Horizons.begin(), site.Horizons.end(), 0.0,
        [](double sum, const Scenario_Horizon& horizon) { return sum + horizon.SZE_Hor_Thickness.Number(); });
}

TEST(Demo_Sites, Stand_In_The_Order_Of_The_Locations_With_The_Zones_Behind)
{
    std::string codes;
    for (const auto& site : Tables.Sites)
        codes += site.Code + " ";

    EXPECT_EQ(codes, "C H J K N P O S T T_N T_C T_S P_N P_C P_S ");
    EXPECT_EQ(Site("C").Name, "Ch\xE2teaudun");
    EXPECT_EQ(Site("P_S").Name, "Porewater concentration - South");
}

TEST(Demo_Sites, Four_Locations_Are_Irrigated)
{
    std::string irrigated;
    for (const auto& site : Tables.Sites) {
        if (site.Irrigated)
            irrigated += site.Code;
    }
    EXPECT_EQ(irrigated, "CPOST");
}

TEST(Demo_Sites, Horizons_Reach_Down_To_The_Depth_Of_The_Core)
{
    const std::map<std::string, double> depths = {{"C", 260},   {"H", 200},   {"J", 150},   {"K", 200},   {"N", 150},
                                                  {"P", 170},   {"O", 120},   {"S", 180},   {"T", 200},   {"T_N", 100},
                                                  {"T_C", 100}, {"T_S", 100}, {"P_N", 100}, {"P_C", 100}, {"P_S", 100}};
    for (const auto& site : Tables.Sites)
        EXPECT_EQ(Depth(site), depths.at(site.Code)) << site.Code;
}

TEST(Demo_Sites, Every_Horizon_Holds_Together)
{
    for (const auto& site : Tables.Sites) {
        double bottom = 0;
        for (const auto& horizon : site.Horizons) {
            bottom += horizon.SZE_Hor_Thickness.Number();
            const double porosity = 1 - horizon.SZE_Hor_Bulk_Density.Number() / 2.65;
            EXPECT_EQ(std::fmod(bottom, 5), 0) << site.Code;
            EXPECT_GT(horizon.SZE_Hor_WP.Number(), 0) << site.Code;
            EXPECT_GT(horizon.SZE_Hor_FC.Number(), horizon.SZE_Hor_WP.Number()) << site.Code;
            EXPECT_LT(horizon.SZE_Hor_FC.Number(), porosity) << site.Code;
            EXPECT_EQ(horizon.SZE_Hor_Soil_Water, horizon.SZE_Hor_FC) << site.Code;
            EXPECT_EQ(horizon.SZE_Hor_Biodeg == 0, bottom > 100) << site.Code;
        }
    }
}

TEST(Demo_Sites, Sand_Silt_And_Clay_Of_A_Horizon_Make_A_Hundred)
{
    const auto rows = Table_Rows(Embedded_File("horizons.txt"));

    EXPECT_EQ(rows.size(), 51U);
    for (const auto& row : rows)
        EXPECT_NEAR(Val(row[3]) + Val(row[4]) + Val(row[5]), 100, 1e-9) << row[0] << " " << row[1];
}

TEST(Demo_Table_Text, A_File_That_Was_Not_Compiled_In_Is_A_Fault_Of_The_Program)
{
    EXPECT_THROW(Embedded_File("nothing.txt"), std::logic_error);
}

TEST(Demo_Sites, A_Zone_Has_Three_Horizons_From_The_Data_Of_Its_Top_Layer)
{
    const auto& horizons = Site("T_N").Horizons;

    ASSERT_EQ(horizons.size(), 3U);
    EXPECT_EQ(horizons[0].SZE_Hor_OC.Number(), 12.76); // 22 % organic matter / 1.724
    EXPECT_EQ(horizons[1].SZE_Hor_OC.Number(), 6.38);
    EXPECT_EQ(horizons[2].SZE_Hor_OC.Number(), 3.83);
    EXPECT_EQ(horizons[0].SZE_Hor_Bulk_Density.Number(), 0.707);
    EXPECT_EQ(horizons[1].SZE_Hor_Bulk_Density.Number(), 0.807);
    EXPECT_EQ(horizons[2].SZE_Hor_Bulk_Density.Number(), 0.857);
    EXPECT_EQ(horizons[0].SZE_Hor_FC.Number(), 0.244);
    EXPECT_EQ(horizons[2].SZE_Hor_WP.Number(), 0.0976);
    EXPECT_EQ(horizons[1].SZE_Hor_Biodeg, 0.5);
    EXPECT_EQ(horizons[2].SZE_Hor_Biodeg, 0.3);
    EXPECT_EQ(Site("T_S").Horizons[0].SZE_Hor_pH.Number(), 7.5);
}

TEST(Demo_Climates, Months_Add_Up_To_The_Annual_Rain_Of_The_Location)
{
    for (const auto& site : Tables.Sites) {
        const auto& climate = Tables.Climates.at(site.Climate_As);
        const double sum = std::accumulate(climate.Rain.begin(), climate.Rain.end(), 0.0);
        if (!site.Is_Zone()) {
            EXPECT_NEAR(sum, site.Rain, 15) << site.Code;
        }
    }
}

TEST(Demo_Crops, Are_Twenty_Five_In_125_Combinations_With_A_Location)
{
    std::set<std::pair<std::string, std::string>> pairs;
    for (const auto& crop : Tables.Crops) {
        for (const auto& cropping : crop.Croppings)
            pairs.insert({crop.Data.DB_Crop_Name, cropping.Site});
    }
    EXPECT_EQ(Tables.Crops.size(), 25U);
    EXPECT_EQ(pairs.size(), 125U);
}

TEST(Demo_Crops, Field_And_Vegetable_Beans_Share_A_Stem_And_No_Location)
{
    std::set<std::string> locations;
    std::size_t count = 0;
    for (const auto& crop : Tables.Crops) {
        if (crop.Stem != "_beans")
            continue;
        for (const auto& cropping : crop.Croppings) {
            locations.insert(cropping.Site);
            ++count;
        }
    }
    EXPECT_EQ(locations, (std::set<std::string>{"H", "K", "N", "O", "T"}));
    EXPECT_EQ(count, 5U);
}

TEST(Demo_Crops, Dates_Follow_Each_Other_Through_At_Most_One_Turn_Of_The_Year)
{
    for (const auto& crop : Tables.Crops) {
        for (const auto& cropping : crop.Croppings) {
            for (const auto& date : {cropping.Emergence, cropping.Maturation, cropping.Senescence, cropping.Harvest})
                EXPECT_LE(date.Day, Days_In_Month(date.Month, 1)) << crop.Stem << cropping.Site;
            EXPECT_LT(cropping.Maturation, cropping.Senescence) << crop.Stem << cropping.Site;
            EXPECT_LT(cropping.Senescence, cropping.Harvest) << crop.Stem << cropping.Site;
            if (cropping.Maturation < cropping.Emergence) {
                EXPECT_LT(cropping.Harvest, cropping.Emergence) << crop.Stem << cropping.Site;
            }
        }
    }
}

TEST(Demo_Crops, Winter_Crops_And_Sugar_Beets_At_Sevilla_Emerge_The_Year_Before)
{
    std::set<std::string> winter;
    for (const auto& crop : Tables.Crops) {
        for (const auto& cropping : crop.Croppings) {
            if (cropping.Maturation < cropping.Emergence)
                winter.insert(crop.Stem == "_sbeets" ? cropping.Site + crop.Stem : crop.Stem);
        }
    }
    EXPECT_EQ(winter, (std::set<std::string>{"_wcerea", "_rapewi", "S_sbeets"}));
}

TEST(Demo_Table_Text, Comments_And_Empty_Lines_Are_No_Rows)
{
    const std::vector<std::vector<std::string>> expected = {{"a", "1"}, {"b"}};

    EXPECT_EQ(Table_Rows("# head\n\n a  1 \nb\n"), expected);
}

TEST(Demo_Table_Text, A_Day_Of_The_Year_Is_Day_Point_Month)
{
    EXPECT_EQ(Parse_Day_Of_Year("28.02"), (Day_Of_Year{28, 2}));
    EXPECT_THROW(Parse_Day_Of_Year("28-02"), std::logic_error);
    EXPECT_THROW(Parse_Day_Of_Year("28.13"), std::logic_error);
}

} // namespace

} // namespace orvel
