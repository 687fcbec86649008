#include "installation/demo_scenario.h"

#include "core/text.h"
#include "files/scenario_file.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace orvel {

namespace {

const Demo_Tables Tables = Load_Demo_Tables();
const std::vector<Demo_Scenario> Leaching = Location_Scenarios(Tables, Demo_Purpose::Leaching);
const std::vector<Demo_Scenario> Content = Location_Scenarios(Tables, Demo_Purpose::Soil_Content);
const std::vector<Demo_Scenario> Zones = Zone_Scenarios(Tables);

const Scenario_Document& Document(const std::vector<Demo_Scenario>& scenarios, std::string_view name)
{
    const auto found = std::ranges::find(scenarios, name, &Demo_Scenario::Name);
    if (found == scenarios.end())
        throw std::runtime_error("no " + std::string(name));
    return found->Document;
}

// What a reader makes of the rows of a file without tillage dates: senescence at harvest, that of the file kept beside
// it, tillage the day before emergence.
void Derive_Dates(Scenario_Document& document)
{
    for (auto& row : document.Rotation) {
        row.SZE_Sen_In_File = Rotation_Date{static_cast<int>(row.SZE_Sen_Day.Number()),
                                            static_cast<int>(row.SZE_Sen_Month.Number()), row.SZE_Sen_Year};
        row.SZE_Sen_Day = row.SZE_Har_Day;
        row.SZE_Sen_Month = row.SZE_Har_Month;
        row.SZE_Sen_Year = row.SZE_Har_Year;
        row.SZE_Til_Year = row.SZE_Eme_Year;
        row.SZE_Til_Month = static_cast<std::int16_t>(row.SZE_Eme_Day > 1 ? row.SZE_Eme_Month : row.SZE_Eme_Month - 1);
        row.SZE_Til_Day = static_cast<std::int16_t>(row.SZE_Eme_Day > 1 ? row.SZE_Eme_Day - 1 : 15);
    }
}

void Expect_Read_Back(const std::vector<Demo_Scenario>& scenarios)
{
    for (const auto& scenario : scenarios) {
        Scenario_Document meant = scenario.Document;
        Scenario_Document read;
        Reset_SZE(read);
        Parse_SZE(Format_SZE(meant), read);
        if (meant.Crops[0].SZE_Rot_Tillage == 0)
            Derive_Dates(meant);

        EXPECT_EQ(read.SZE_Title, meant.SZE_Title) << scenario.Name;
        EXPECT_EQ(read.Crops, meant.Crops) << scenario.Name;
        EXPECT_EQ(read.Rotation, meant.Rotation) << scenario.Name;
        EXPECT_EQ(read.Horizons, meant.Horizons) << scenario.Name;
        EXPECT_TRUE(read == meant) << scenario.Name;
    }
}

TEST(Demo_Scenarios, Are_125_At_The_Locations_And_24_At_Each_Of_Six_Zones)
{
    std::set<std::string> names;
    for (const auto* scenarios : {&Leaching, &Zones}) {
        for (const auto& scenario : *scenarios)
            names.insert(scenario.Name);
    }
    EXPECT_EQ(Leaching.size(), 125U);
    EXPECT_EQ(Content.size(), 125U);
    // Twenty-five crops, of which field and vegetable beans share a file.
    EXPECT_EQ(Zones.size(), 144U);
    EXPECT_EQ(names.size(), 269U);
}

TEST(Demo_Scenarios, Are_Read_Back_As_They_Were_Meant)
{
    Expect_Read_Back(Leaching);
    Expect_Read_Back(Content);
    Expect_Read_Back(Zones);
}

TEST(Demo_Scenarios, Titles_Carry_The_Scenario_Version_And_The_Warning)
{
    EXPECT_EQ(Document(Leaching, "C_apples.sze").SZE_Title,
              "DEM 1 Ch\xE2teaudun - Apples - demonstration data, not for regulatory use");
    EXPECT_EQ(Document(Zones, "T_N_wcerea.sze").SZE_Title,
              "DEM 1 Total content - North - Winter cereals - demonstration data, not for regulatory use");
    for (const auto* scenarios : {&Leaching, &Content, &Zones}) {
        for (const auto& scenario : *scenarios)
            EXPECT_EQ(Columns(scenario.Document.SZE_Title, 4, 2), " 1") << scenario.Name;
    }
}

TEST(Demo_Scenarios, Compartments_Meet_Every_Horizon_Boundary)
{
    for (const auto* scenarios : {&Leaching, &Content, &Zones}) {
        for (const auto& scenario : *scenarios) {
            const auto& document = scenario.Document;
            const double thickness = document.SZE_Core_Depth / document.SZE_Layers;
            double sum = 0;
            EXPECT_EQ(thickness, scenarios == &Leaching ? 2.5 : 1) << scenario.Name;
            for (const auto& horizon : document.Horizons)
                sum += horizon.SZE_Hor_Thickness.Number();
            EXPECT_EQ(sum, document.SZE_Core_Depth) << scenario.Name;
        }
    }
    EXPECT_EQ(Document(Leaching, "C_wcerea.sze").SZE_Layers, 104);
    EXPECT_EQ(Document(Content, "C_wcerea.sze").SZE_Layers, 100);
    EXPECT_EQ(Document(Content, "C_wcerea.sze").Horizons.size(), 4U);
}

TEST(Demo_Scenarios, A_Winter_Crop_Emerges_In_Year_0_Of_The_First_Row)
{
    const auto& document = Document(Leaching, "H_wcerea.sze");

    ASSERT_EQ(document.Rotation.size(), 66U);
    const auto& first = document.Rotation.front();
    EXPECT_EQ(first.SZE_Eme_Day, 1);
    EXPECT_EQ(first.SZE_Eme_Month, 11);
    EXPECT_EQ(first.SZE_Eme_Year, 0);
    EXPECT_EQ(first.SZE_Mat_Year, 1);
    EXPECT_EQ(first.SZE_Har_Year, 1);
    EXPECT_EQ(document.Rotation.back().SZE_Eme_Year, 65);
    EXPECT_EQ(document.Rotation.back().SZE_Har_Year, 66);
}

TEST(Demo_Scenarios, A_Summer_Crop_Stays_Within_Its_Year)
{
    const auto& row = Document(Leaching, "H_maize.sze").Rotation.back();

    EXPECT_EQ(row.SZE_Eme_Year, 66);
    EXPECT_EQ(row.SZE_Har_Year, 66);
}

TEST(Demo_Scenarios, Potatoes_At_Hamburg_And_Chateaudun_Alone_Are_Tilled)
{
    std::string tilled;
    for (const auto& scenario : Leaching) {
        Scenario_Document document = scenario.Document;
        if (Contains(Format_SZE(document), "ORVEL400TILLAGE"))
            tilled += scenario.Name + " ";
    }
    EXPECT_EQ(tilled, "C_potato.sze H_potato.sze ");
    const auto& row = Document(Leaching, "C_potato.sze").Rotation[0];
    EXPECT_EQ(row.SZE_Til_Day, 25); // five days before the 30th of April
    EXPECT_EQ(row.SZE_Til_Month, 4);
}

TEST(Demo_Scenarios, A_Tillage_Date_Goes_Back_Through_The_New_Year)
{
    const auto& row = Document(Leaching, "S_citrus.sze").Rotation[0]; // emergence on 1 January

    EXPECT_EQ(row.SZE_Til_Day, 27);
    EXPECT_EQ(row.SZE_Til_Month, 12);
}

TEST(Demo_Scenarios, Irrigation_Needs_Both_A_Dry_Location_And_An_Irrigated_Crop)
{
    EXPECT_EQ(Document(Leaching, "S_maize.sze").Crops[0].SZE_Rot_Irrigated, 1);
    EXPECT_EQ(Document(Leaching, "S_wcerea.sze").Crops[0].SZE_Rot_Irrigated, 0);
    EXPECT_EQ(Document(Leaching, "H_maize.sze").Crops[0].SZE_Rot_Irrigated, 0);
    EXPECT_EQ(Document(Zones, "P_S_maize.sze").Crops[0].SZE_Rot_Irrigated, 0);
}

TEST(Demo_Scenarios, Maize_At_Okehampton_Is_The_Example_Of_Erosion)
{
    const auto& document = Document(Leaching, "N_maize.sze");

    EXPECT_EQ(document.SZE_Erosion, 1);
    EXPECT_EQ(document.SZE_Eros_K.Number(), 0.35);
    EXPECT_EQ(document.SZE_Eros_2.Number(), 0.6);
    EXPECT_EQ(document.SZE_Eros_5, 6);
    EXPECT_EQ(document.SZE_Runoff_Depth, 2);
    EXPECT_EQ(document.Crops[0].SZE_Rot_USLE2.Number(), 0.4);
    EXPECT_EQ(std::ranges::count_if(Leaching,
                                    [](const Demo_Scenario& scenario) { return scenario.Document.SZE_Erosion != 0; }),
              1);
}

TEST(Demo_Scenarios, A_Zone_Takes_The_Crop_Dates_Of_Its_Location_Or_Else_The_First_Of_The_Crop)
{
    const auto& own = Document(Zones, "T_N_carrot.sze").Rotation[0]; // as Jokioinen
    EXPECT_EQ(own.SZE_Eme_Day, 15);
    EXPECT_EQ(own.SZE_Eme_Month, 5);
    const auto& first = Document(Zones, "T_N_tomato.sze").Rotation[0]; // no tomatoes at Jokioinen
    EXPECT_EQ(first.SZE_Eme_Day, 10);
    EXPECT_EQ(first.SZE_Eme_Month, 5);
}

TEST(Demo_Scenarios, The_File_Of_Field_Beans_Stands_For_Both_Beans_At_The_Zones)
{
    EXPECT_EQ(Document(Zones, "P_S_beans.sze").Crops[0].SZE_Rot_Crop_No, 6);
    EXPECT_EQ(Document(Leaching, "O_beans.sze").Crops[0].SZE_Rot_Crop_No, 7);
}

TEST(Demo_Scenarios, Hamburg_With_Winter_Cereals_Is_Written_In_These_Lines)
{
    Scenario_Document document = Document(Leaching, "H_wcerea.sze");
    const std::string bytes = Format_SZE(document);
    const auto lines = Split_Lines(bytes);

    ASSERT_EQ(lines.size(), 5U + 1 + 66 + 2 + 12 + 4);
    EXPECT_EQ(lines[0], "DEM 1 Hamburg - Winter cereals - demonstration data, not for regulatory use");
    EXPECT_EQ(lines[1], " 0.5    0.46    0    10    5    1    1    1   ORVEL401");
    EXPECT_EQ(lines[2], " 0 ");
    EXPECT_EQ(lines[3], " 1 ");
    EXPECT_EQ(lines[4], " 5    0.15    100    90    3    78    70    74    1    1    1    1.4    0.2    0.2    0.2    "
                        "0.2    0    0    0    1.15    0.35 ");
    EXPECT_EQ(lines[5], "    66 ");
    EXPECT_EQ(lines[6], "  011100  010601  100801      01  150701");
    EXPECT_EQ(lines[72], " 200    1       80      0       0       0 ");
    EXPECT_EQ(lines[73], " 6             1 ");
    EXPECT_EQ(lines[74], "    1   30      1.5     5       0.292   5 "); // 7.2 % clay
    EXPECT_EQ(lines[75], "        0.292   0.064   1.5     6.4     1 ");
    EXPECT_EQ(lines[86], " 1 ");
    EXPECT_EQ(lines[87], "    WATR    YEAR    0001    PEST    YEAR    0001    CONC    YEAR    0001");
    EXPECT_EQ(lines[89], "   53.63 ");
}

} // namespace

} // namespace orvel
