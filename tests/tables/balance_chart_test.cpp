#include "tables/balance_chart.h"

#include "tables/balance_text.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::string_view Water =
    "ORVEL engine 4.01\r\nAnnual Rain Balance (demo)\r\n1997\r\n4\r\n\r\n\r\n\tAnnual Water Balance (L/m\xB2)\r\n\r\n"
    "\tYear  \tPrecipitation\tIrrigation\t  Runoff\tEvapotransp.\t Percolate\tDiff. Storage\r\n"
    "\t1   \t    643.102   \t0.00E+00 \t12.077   \t396.730  \t234.188  \t0.1070000\r\n"
    "\t2   \t    500.000   \t0.00E+00 \t12.077   \t396.730  \t234.188  \t-142.995\r\n";

constexpr std::string_view Substances_File =
    "1\r\n2\r\n3\r\n4\r\n\r\n\r\n\tAnnual Pesticide Balance (g/ha)\r\n\r\n"
    "\tYear  \tApplication\tVolatilisation\t  Runoff\tPlant uptake\tDegradation\t Percolate\tDiff. Storage\r\n"
    "\t----------------------------------------------------------------------------------------------------------------"
    "-----\r\n"
    "\t1   \t    1000.00\t2.1\t0.9\t12.3\t765.1\t0.00E+00\t219.6\r\n"
    "\t2   \t    1000.00\t2.1\r\n"
    "\r\n\r\n\tAnnual  Metab.A1 Balance (g/ha)\r\n\r\n"
    "\tYear  \tFormation\tVolatilisation\t  Runoff\tPlant uptake\tDegradation\t Percolate\tDiff. Storage\r\n"
    "\t----------------------------------------------------------------------------------------------------------------"
    "-----\r\n"
    "\t1   \t300.0\t0.00E+00\t0.1\t0.2\t100.0\t1.5\t198.2\r\n";

// Both texts read back.
Balance_Tables Tables_Of(std::string_view water, std::string_view pesticides, Balance_View view = Balance_View::Annual)
{
    Balance_Tables tables;
    Parse_Water(water, view, tables);
    Parse_Pesticides(pesticides, view, tables);
    return tables;
}

TEST(Balance_Text, The_Water_Table_Is_Read_And_Nothing_Is_Searched_In_The_Users_Titles)
{
    const auto tables = Tables_Of(Water, "");

    EXPECT_EQ(tables.Titles,
              (std::vector<std::string>{"ORVEL engine 4.01", "Annual Rain Balance (demo)", "1997", "4"}));
    ASSERT_EQ(tables.Water.size(), 2U);
    EXPECT_EQ(tables.Water[0].Precipitation, 643.102);
    EXPECT_EQ(tables.Water[0].Irrigation, 0);
    EXPECT_EQ(tables.Water[0].Runoff, 12.077);
    EXPECT_EQ(tables.Water[0].Evapotranspiration, 396.73);
    EXPECT_EQ(tables.Water[0].Percolate, 234.188);
    EXPECT_EQ(tables.Water[1].Diff_Storage, -142.995);
}

TEST(Balance_Text, A_Table_Is_Read_For_Every_Substance_And_A_Row_That_Is_Cut_Short_Is_Left_Out)
{
    const auto tables = Tables_Of(Water, Substances_File);

    EXPECT_EQ(tables.Substance_Name, (std::vector<std::string>{"Pesticide", "Metab.A1"}));
    ASSERT_EQ(tables.Pesticide.size(), 2U);
    EXPECT_EQ(tables.Pesticide[0].size(), 1U);
    EXPECT_EQ(tables.Pesticide[0][0].Application, 1000);
    EXPECT_EQ(tables.Pesticide[1][0].Diff_Storage, 198.2);
}

TEST(Balance_Text, A_Text_Of_The_Other_View_Has_No_Tables)
{
    EXPECT_TRUE(Tables_Of(Water, Substances_File, Balance_View::Monthly).Water.empty());
    EXPECT_TRUE(Tables_Of(Water, Substances_File, Balance_View::Monthly).Pesticide.empty());
}

TEST(Balance_Charts, A_Year_Has_A_Box_For_Every_Term_In_The_Colours_Of_The_Key)
{
    const auto chart = Water_Balance_Chart(Tables_Of(Water, ""));

    EXPECT_EQ(chart.Title, "Annual Water Balance (mm)");
    EXPECT_EQ(chart.X.Title, "Year ");
    EXPECT_EQ(chart.Legend, (std::vector<std::string>{"ORVEL engine 4.01", "Annual Rain Balance (demo)", "1997", "4"}));
    ASSERT_EQ(chart.Boxes.size(), 12U);
    ASSERT_EQ(chart.Key.size(), 6U);
    for (std::size_t b = 0; b < chart.Boxes.size(); ++b)
        EXPECT_EQ(chart.Boxes[b].Drawn_In, chart.Key[b % 6].Drawn_In);
    EXPECT_EQ(chart.Key[0], (Chart_Key{Colour::Term_1, "Precipitation"}));
    EXPECT_NEAR(chart.Boxes[0].Left, 0.03, 1e-9); // the boxes of a year fill it
    EXPECT_NEAR(chart.Boxes[5].Right, 0.97, 1e-9);
    EXPECT_NEAR(chart.Boxes[6].Left, 1.03, 1e-9);
    EXPECT_EQ(chart.Boxes[11].Y, -142.995);
    EXPECT_EQ(chart.Boxes[11].Name, "Year 2, " + chart.Key[5].Text);
}

// Nothing was irrigated in either year: the other five terms share the year.
TEST(Balance_Charts, A_Term_That_Is_Zero_In_Every_Year_Leaves_No_Gap)
{
    const auto chart = Water_Balance_Chart(Tables_Of(Water, ""));

    ASSERT_EQ(chart.Boxes.size(), 12U);
    EXPECT_NEAR(chart.Boxes[0].Right - chart.Boxes[0].Left, 0.94 / 5, 1e-9);
    EXPECT_EQ(chart.Boxes[1].Left, chart.Boxes[1].Right);
    EXPECT_EQ(chart.Boxes[2].Left, chart.Boxes[0].Right);
    EXPECT_EQ(chart.Key[1].Text, "Irrigation");
}

TEST(Balance_Charts, A_Single_Year_Has_All_Its_Boxes_On_The_Axis)
{
    Balance_Tables tables;
    tables.Water = {{.Precipitation = 700, .Percolate = 200}};

    const auto chart = Water_Balance_Chart(tables);

    EXPECT_EQ(chart.X.High, 1);
    EXPECT_GE(chart.Boxes.front().Left, 0);
    EXPECT_LE(chart.Boxes.back().Right, chart.X.High);
}

TEST(Balance_Charts, The_Plain_Maximum_Scales_The_Axis_And_A_Fifth_More_The_Frame)
{
    const auto chart = Water_Balance_Chart(Tables_Of(Water, ""));

    EXPECT_EQ(chart.Y.High, 643.102);
    EXPECT_EQ(chart.Y.Low, -142.995);
    EXPECT_DOUBLE_EQ(chart.Frame.Top, 1.2 * 643.102);
}

TEST(Balance_Charts, A_Substance_Stands_In_The_Title_By_Its_Name)
{
    auto tables = Tables_Of(Water, Substances_File);
    tables.Substance_Name[1] = "Metabolite M-44";

    const auto chart = Substance_Balance_Chart(tables, 1);

    EXPECT_EQ(chart.Title, "Annual Metabolite M-44 Balance (g/ha)");
    ASSERT_EQ(chart.Key.size(), 7U);
    EXPECT_EQ(chart.Key[0].Text, "Formation");
    EXPECT_EQ(Substance_Balance_Chart(tables, 0).Key[0].Text, "Application");
    EXPECT_EQ(chart.Boxes.back().Drawn_In, Colour::Term_7);
}

TEST(Balance_Charts, Every_Year_Has_Its_Tick_And_66_Years_Have_A_Label_At_Every_Third)
{
    Balance_Tables tables;
    tables.Water.assign(66, {.Precipitation = 100});

    const auto chart = Water_Balance_Chart(tables);

    ASSERT_EQ(chart.X.Ticks.size(), 66U);
    EXPECT_EQ(chart.X.Ticks[0].Label, "1");
    EXPECT_EQ(chart.X.Ticks[1].Label, "");
    EXPECT_EQ(chart.X.Ticks[3].Label, "4");
}

TEST(Balance_Charts, An_Empty_File_Gives_No_Tables_And_An_Empty_Table_An_Empty_Diagram)
{
    EXPECT_TRUE(Tables_Of("", "").Pesticide.empty());

    const auto chart = Water_Balance_Chart({});
    EXPECT_TRUE(chart.Boxes.empty());
    EXPECT_EQ(chart.Y.High, 1);
}

} // namespace

} // namespace orvel
