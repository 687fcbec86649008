#include "engine/setup/solute_setup.h"

#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

Pesticide_Document Document()
{
    Pesticide_Document document;
    Reset_PSM(document);
    document.Molmass[1] = 300;
    document.Degradation[1][2].Deg_Rate = 0.01;
    document.Degradation[1][2].Deg_Temp = 0;
    document.Degradation[1][2].Deg_Q10 = 0;
    document.Degradation[5][2].Deg_Rate = 0.02;
    document.Degradation[5][2].Deg_Neq = 0.25;
    document.Photo_Rate[2] = 0.5;
    document.Koc_Change[1] = 0;
    return document;
}

} // namespace

TEST(Solute_Setup, Arrows_Lead_Where_The_Scheme_Says)
{
    const auto substances = Substances_Of(Document(), {1, 3, 5, 9});

    ASSERT_EQ(substances.size(), 4u);
    EXPECT_EQ(substances[0].Arrows[2].Target, 3);
    EXPECT_EQ(substances[0].Arrows[2].Rate, 0.01);
    EXPECT_EQ(substances[0].Arrows[2].Photo_Rate, 0.5);
    EXPECT_EQ(substances[2].Index, 5);
    EXPECT_EQ(substances[2].Arrows[2].Target, 9);
    EXPECT_EQ(substances[2].Arrows[2].Neq, 0.25);
    EXPECT_EQ(substances[2].Arrows[2].Photo_Rate, 0);
    EXPECT_EQ(substances[2].Arrows[4].Target, 0);
    EXPECT_EQ(substances[3].Arrows[1].Target, 0); // a reserved position
}

TEST(Solute_Setup, Open_Values_Are_Filled_In)
{
    const auto substances = Substances_Of(Document(), {1});

    EXPECT_EQ(substances[0].Arrows[2].Temperature, 20);
    EXPECT_EQ(substances[0].Arrows[2].Q10, 1);
    EXPECT_EQ(substances[0].Koc_Change, 1);
}

TEST(Solute_Setup, Horizon_Tables_Have_As_Many_Rows_As_There_Are)
{
    Pesticide_Document document = Document();
    document.N_Horizons = 5;
    document.Horizons.resize(4); // rows 1 to 3
    document.Horizons[3].Hor_Kd[1] = 7;
    document.Horizons[2].Hor_Deg[1][4] = 0.5;

    const auto substances = Substances_Of(document, {1});

    ASSERT_EQ(substances[0].Horizon_Kd.size(), 3u);
    EXPECT_EQ(substances[0].Horizon_Kd[2], 7);
    EXPECT_EQ(substances[0].Arrows[4].Horizon_Factor[1], 0.5);
    document.Horizons.clear();
    EXPECT_TRUE(Substances_Of(document, {1})[0].Horizon_Kd.empty());
}

TEST(Solute_Setup, Takes_Volatilisation_And_Plant_Over)
{
    Pesticide_Document document = Document();
    document.Henry_Flag = 1;
    document.Vap_Press = {1e-4, 4e-4};
    document.Depth_Volat = 0.1;
    document.Plant_Washoff = 0.5;
    document.Plant_Laminar = 0.03;

    EXPECT_TRUE(Volatilisation_Of(document).Henry_Calculated);
    EXPECT_EQ(Volatilisation_Of(document).Vapour_Pressure[1], 4e-4);
    EXPECT_EQ(Volatilisation_Of(document).Boundary_Layer, 0.1);
    EXPECT_EQ(Plant_Of(document).Washoff, 0.5);
    EXPECT_EQ(Plant_Of(document).Laminar_Layer, 0.03);
}

} // namespace orvel::engine
