#include "scenario/erosion.h"
#include "scenario/horizon_grid.h"
#include "scenario/macropores.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

struct Soil_Forms : testing::Test {
    Soil_Forms()
    {
        Reset_SZE(The_Session.Scenario);
        Document.SZE_Core_Depth = 100;
        Document.SZE_Layers = 20;
    }
    Session The_Session;
    Scenario_Document& Document = The_Session.Scenario;
};

TEST_F(Soil_Forms, A_Negative_Threshold_Is_Stored_As_100)
{
    Take_Over_Macropores(The_Session, {"-1", "0.5", "50"});

    EXPECT_EQ(Document.SZE_Macro_Threshold, 100);
}

TEST_F(Soil_Forms, A_Fraction_Above_1_Is_Stored_As_1)
{
    Take_Over_Macropores(The_Session, {"2", "1.5", "50"});

    EXPECT_EQ(Document.SZE_Macro_Fraction, 1);
    EXPECT_EQ(Document.SZE_Macro_Threshold, 2);
}

TEST_F(Soil_Forms, A_Macropore_Depth_Of_200_In_A_Core_Of_100_With_20_Layers_Becomes_95)
{
    Take_Over_Macropores(The_Session, {"2", "0.5", "200"});

    EXPECT_EQ(Document.SZE_Macro_Depth, 95);
}

TEST_F(Soil_Forms, Macropores_Without_Layers_Keep_Their_Depth)
{
    Document.SZE_Layers = 0;

    Take_Over_Macropores(The_Session, {"2", "0.5", "200"});

    EXPECT_EQ(Document.SZE_Macro_Depth, 200);
}

TEST_F(Soil_Forms, Macropores_Mark_The_Pesticide_Document_Changed_Too)
{
    Take_Over_Macropores(The_Session, Default_Macropores());

    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
    EXPECT_EQ(Default_Macropores(), (Macropore_Texts{"100.0", "0.0", "0.0"}));
    EXPECT_EQ(Show_Macropores(Document), (Macropore_Texts{"100", "0", "0"}));
}

TEST_F(Soil_Forms, An_Erosion_Factor_Of_0_Shows_An_Empty_Box_And_Comes_Back_As_0)
{
    Document.SZE_Eros_2 = 0;
    Document.SZE_Eros_5 = 6.5;

    const auto texts = Show_Erosion(Document);
    EXPECT_EQ(texts, (Erosion_Texts{"1", "", "1", "1", "6.5"}));

    Take_Over_Erosion(The_Session, {"0.35", texts[1], "1.", "3", "7"});
    EXPECT_EQ(Document.SZE_Eros_K, Variant(0.35)); // a number, no text
    EXPECT_EQ(Document.SZE_Eros_2, Variant(0));
    EXPECT_EQ(Document.SZE_Eros_3, Variant(1));
    EXPECT_EQ(Document.SZE_Eros_4, Variant(3));
    EXPECT_EQ(Document.SZE_Eros_5, 7);
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Soil_Forms, The_Horizon_Grid_Has_Its_Columns_By_The_Documents_Options)
{
    EXPECT_EQ(Show_Horizons(Document).Headings,
              (std::vector<std::string>{"Horizon Number", "Thickness      [cm]", "Bulk Density     [kg/L]",
                                        "Dispersion coeff.  [cm2/d]", "Initial Soil Water (m\xB3/m\xB3)",
                                        "Field        Capacity (m\xB3/m\xB3)", "Wilting        Point (m\xB3/m\xB3)",
                                        "Organic Carbon [%]", " pH-Value          ", " Biodeg. factor [-]"}));

    Document.SZE_Dispersion_Flag = 1;
    Document.SZE_Hydraulic_Flag = 1;
    Document.SZE_Water_Flag = 3;
    EXPECT_EQ(Show_Horizons(Document).Headings,
              (std::vector<std::string>{"Horizon Number", "Thickness      [cm]", "Bulk Density     [kg/L]",
                                        "Dispersion length  [cm]", "Initial Soil Water (m\xB3/m\xB3)",
                                        "Sand      Fraction [%]", "Clay      Fraction [%]", "Organic Carbon [%]",
                                        " pH-Value          ", " Biodeg. factor [-]", "Drainage Value [1/day]"}));
}

TEST_F(Soil_Forms, Cells_Go_Into_Their_Fields_And_Come_Back)
{
    Document.SZE_Water_Flag = 1;
    Document.SZE_Horizons = 2;
    auto grid = Show_Horizons(Document);
    ASSERT_EQ(grid.Row_Titles, (std::vector<std::string>{"Horizon 1", "Horizon 2"}));
    EXPECT_EQ(grid.Cells[1], std::vector<std::string>(10)); // a horizon that the document does not hold yet

    grid.Cells[1] = {"60", "1.4", "5", "0.2", "0.3", "0.1", "0.7", "6.5", "0.5", "0.01"};
    grid.Cells[0][0] = "40";
    EXPECT_EQ(Take_Over_Horizons(The_Session, grid), std::nullopt);

    const auto& horizon = Document.Horizons[1];
    EXPECT_EQ(horizon.SZE_Hor_Thickness, Variant("60"));
    EXPECT_EQ(horizon.SZE_Hor_Bulk_Density, Variant("1.4"));
    EXPECT_EQ(horizon.SZE_Hor_Dispersion, Variant("5"));
    EXPECT_EQ(horizon.SZE_Hor_Soil_Water, Variant("0.2"));
    EXPECT_EQ(horizon.SZE_Hor_FC, Variant("0.3"));
    EXPECT_EQ(horizon.SZE_Hor_WP, Variant("0.1"));
    EXPECT_EQ(horizon.SZE_Hor_OC, Variant("0.7"));
    EXPECT_EQ(horizon.SZE_Hor_pH, Variant("6.5"));
    EXPECT_EQ(horizon.SZE_Hor_Biodeg, 0.5);
    EXPECT_EQ(horizon.SZE_Hor_Drainage, Variant("0.01"));
    EXPECT_EQ(Show_Horizons(Document), grid);
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Soil_Forms, With_A_Pedotransfer_Function_The_Same_Columns_Are_Sand_And_Clay)
{
    Document.SZE_Hydraulic_Flag = 2;
    Document.Horizons[0].SZE_Hor_FC = 0.3;
    auto grid = Show_Horizons(Document);

    grid.Cells[0][4] = "70";
    grid.Cells[0][5] = "12";
    Take_Over_Horizons(The_Session, grid);

    EXPECT_EQ(Document.Horizons[0].SZE_Hor_Sand, Variant("70"));
    EXPECT_EQ(Document.Horizons[0].SZE_Hor_Clay, 12);
    EXPECT_EQ(Document.Horizons[0].SZE_Hor_FC, Variant(0.3));
}

TEST_F(Soil_Forms, A_Cell_That_Was_Not_Touched_Keeps_The_Documents_Number)
{
    Document.Horizons[0].SZE_Hor_Bulk_Density = 1.5;

    Take_Over_Horizons(The_Session, Show_Horizons(Document));

    EXPECT_EQ(Document.Horizons[0].SZE_Hor_Bulk_Density, Variant(1.5));
}

TEST_F(Soil_Forms, The_Profile_Lays_The_Horizons_Under_Each_Other)
{
    Horizon_Grid grid;
    grid.Cells = {
        {"30", "", "", "", "", "", "1.5"}, {"-5", "", "", "", "", "", ""}, {"70.5", "", "", "", "", "", "0.2"}};

    EXPECT_EQ(Soil_Profile(grid), (std::vector<Profile_Layer>{{0, 30, 1.5}, {30, 30, 0}, {30, 100.5, 0.2}}));
    EXPECT_EQ(Profile_Caption(Document, grid), "Sum of thickness: 95.5 cm, core depth: 100 cm");
    grid.Cells[1][0] = "";
    EXPECT_NE(Profile_Caption(Document, grid).find("\nHorizon 2 has no thickness."), std::string::npos);
}

TEST_F(Soil_Forms, A_Wilting_Point_Above_Field_Capacity_Is_Refused_And_An_Equal_One_Passes)
{
    Document.SZE_Horizons = 2;
    auto grid = Show_Horizons(Document);
    grid.Cells[0][4] = grid.Cells[0][5] = "0.2";
    grid.Cells[1][4] = "0.2";
    grid.Cells[1][5] = "0.2";

    EXPECT_EQ(Check_Horizon_Cells(Document, grid), std::nullopt);

    grid.Cells[1][5] = "0.21";
    const auto refusal = Check_Horizon_Cells(Document, grid);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Text, (Message{"Data Check", "Horizon 2: Wilting point must not exceed field capacity"}));
    EXPECT_EQ(refusal->Control, "Grid_nhor");

    Document.SZE_Hydraulic_Flag = 1; // the same cells are sand and clay
    EXPECT_EQ(Check_Horizon_Cells(Document, grid), std::nullopt);
}

TEST_F(Soil_Forms, A_Sum_Other_Than_The_Core_Depth_Is_Given_Back_To_Be_Shown_And_The_Document_Keeps_Its_Depth)
{
    auto grid = Show_Horizons(Document);
    grid.Cells[0][0] = "90";

    EXPECT_EQ(Take_Over_Horizons(The_Session, grid), 90);
    EXPECT_EQ(Document.SZE_Core_Depth, 100);
}

TEST_F(Soil_Forms, A_Smaller_Grid_Drops_The_Horizons_Behind_It)
{
    Document.Horizons.resize(5);
    Document.SZE_Horizons = 2;

    Take_Over_Horizons(The_Session, Show_Horizons(Document));

    EXPECT_EQ(Document.Horizons.size(), 2U);
    EXPECT_EQ(Document.SZE_Horizons.Number(), 2);
}

} // namespace

} // namespace orvel
