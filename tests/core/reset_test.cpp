#include "core/session.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

TEST(Reset_PSM, Gives_The_Active_Substance_And_The_Metabolites_Their_Defaults)
{
    auto document = std::make_unique<Pesticide_Document>();

    Reset_PSM(*document);

    EXPECT_EQ(document->Substance_Name[1], "Active Substance");
    EXPECT_EQ(document->Substance_Name[9], "Metabolite D2");
    EXPECT_EQ(document->Koc[1], Variant(0));
    EXPECT_EQ(document->Koc[2], Variant(0.7));
    EXPECT_EQ(document->Molmass[1], Variant(0));
    EXPECT_EQ(document->Molmass[2], Variant(1));
    EXPECT_EQ(document->Sorp_pH[1], Variant(0));
    EXPECT_EQ(document->Sorp_pH[9], Variant(7));
    EXPECT_TRUE(document->Met_Present[1]);
    EXPECT_FALSE(document->Met_Present[2]);
    EXPECT_EQ(document->Degradation[1][5].Deg_Q10, Variant(2.58));
    EXPECT_EQ(document->Degradation[5][4].Deg_Moist_Rel, Variant(100));
    EXPECT_EQ(document->Volat_Temp, (std::array<double, 2>{20, 30}));
    EXPECT_EQ(document->App_Loc_Count, 9);
}

TEST(Reset_PSM, Dates_26_Applications_On_The_1st_Of_January_Of_Each_Year)
{
    auto document = std::make_unique<Pesticide_Document>();
    document->Applications[3][27].App_Rate = 5;

    Reset_PSM(*document);

    EXPECT_EQ(document->App_Count[9], Variant(26));
    EXPECT_EQ(document->Applications[3][26].App_Year, 26);
    EXPECT_EQ(document->Applications[3][26].App_Day, 1);
    EXPECT_EQ(document->Applications[3][27].App_Rate, 5); // beyond the 26, what was there stays
}

TEST(Reset_SZE, Gives_The_Scenario_Its_Defaults)
{
    Scenario_Document document;
    document.SZE_Crop_Count = 3;

    Reset_SZE(document);

    EXPECT_EQ(document.SZE_Title, "Insert Title");
    EXPECT_EQ(document.SZE_Snow_Factor, Variant(0.46));
    EXPECT_EQ(document.SZE_ET_Method, 3);
    EXPECT_EQ(document.SZE_Crop_Count, 0);
    EXPECT_EQ(document.SZE_Kc[2][400], 1);
    EXPECT_EQ(document.SZE_Freq_Conc, Variant("MNTH"));
    EXPECT_EQ(document.Horizons.at(0).SZE_Hor_Bulk_Density, Variant(1.5));
    EXPECT_EQ(document.SZE_Latitude, 50);
}

TEST(Clear_Climate, Leaves_Rows_Without_A_Date_And_With_Full_Humidity)
{
    Climate_Table table{"Title", {{.Cli_Day = "02", .Cli_Rain = 1}}};

    Clear_Climate(table, 2);

    ASSERT_EQ(table.Rows.size(), 2U);
    EXPECT_EQ(table.Rows[1].Cli_Day, "00");
    EXPECT_EQ(table.Rows[1].Cli_Rain, 0);
    EXPECT_EQ(table.Rows[1].Cli_Rel_Hum, 100);
}

} // namespace orvel
