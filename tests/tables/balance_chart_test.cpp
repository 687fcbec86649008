#include "tables/balance_chart.h"

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

TEST(Balance_Charts, Read_The_Water_Table_And_Search_Nothing_In_The_Users_Titles)
{
    const auto tables = Read_Balances(Water);

    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].Label, "Water");
    EXPECT_EQ(tables[0].Terms, (std::vector<std::string>{"Precipitation", "Irrigation", "Runoff", "Evapotransp.",
                                                         "Percolate", "Diff. Storage"}));
    ASSERT_EQ(tables[0].Rows.size(), 2U);
    EXPECT_EQ(tables[0].Rows[1].Year, 2);
    EXPECT_EQ(tables[0].Rows[0].Terms, (std::vector{643.102, 0.0, 12.077, 396.73, 234.188, 0.107}));
}

TEST(Balance_Charts, Read_A_Table_For_Every_Substance_And_Leave_Out_A_Row_That_Is_Cut_Short)
{
    const auto tables = Read_Balances(Substances_File);

    ASSERT_EQ(tables.size(), 2U);
    EXPECT_EQ(tables[0].Label, "Pesticide");
    EXPECT_EQ(tables[0].Terms.front(), "Application");
    EXPECT_EQ(tables[0].Rows.size(), 1U);
    EXPECT_EQ(tables[1].Label, "Metab.A1");
    EXPECT_EQ(tables[1].Terms.front(), "Formation");
    EXPECT_EQ(tables[1].Rows[0].Terms.back(), 198.2);
}

TEST(Balance_Charts, A_Year_Has_A_Box_For_Every_Term_In_The_Colours_Of_The_Key)
{
    const auto chart = Water_Balance_Chart(Read_Balances(Water)[0]);

    EXPECT_EQ(chart.Title, "Annual Water Balance (mm)");
    EXPECT_EQ(chart.X.Title, "Year ");
    EXPECT_EQ(chart.Legend, (std::vector<std::string>{"ORVEL engine 4.01", "Annual Rain Balance (demo)", "1997", "4"}));
    ASSERT_EQ(chart.Boxes.size(), 12U);
    ASSERT_EQ(chart.Key.size(), 6U);
    for (std::size_t b = 0; b < chart.Boxes.size(); ++b)
        EXPECT_EQ(chart.Boxes[b].Drawn_In, chart.Key[b % 6].Drawn_In);
    EXPECT_EQ(chart.Key[0], (Chart_Key{Colour::Term_1, "Precipitation"}));
    EXPECT_DOUBLE_EQ(chart.Boxes[0].Left, 0.1);
    EXPECT_DOUBLE_EQ(chart.Boxes[5].Right, 0.9);
    EXPECT_DOUBLE_EQ(chart.Boxes[6].Left, 1.1);
    EXPECT_EQ(chart.Boxes[11].Y, -142.995);
    EXPECT_EQ(chart.Boxes[11].Name, "2, " + chart.Key[5].Text);
}

TEST(Balance_Charts, A_Single_Year_Has_All_Its_Boxes_On_The_Axis)
{
    const auto chart = Water_Balance_Chart({"Water", {"Precipitation", "Percolate"}, {{1, {700, 200}}}});

    EXPECT_EQ(chart.X.High, 1);
    EXPECT_GE(chart.Boxes.front().Left, 0);
    EXPECT_LE(chart.Boxes.back().Right, chart.X.High);
}

TEST(Balance_Charts, The_Largest_Value_Of_Either_Sign_Scales_The_Axis)
{
    const auto chart = Water_Balance_Chart(Read_Balances(Water)[0]);

    EXPECT_EQ(chart.Y.High, 700);
    EXPECT_EQ(chart.Y.Low, -200);
    EXPECT_DOUBLE_EQ(chart.Frame.Top, 1.2 * 700);
}

TEST(Balance_Charts, A_Substance_Stands_In_The_Title_By_Its_Name)
{
    const auto chart = Substance_Balance_Chart(Read_Balances(Substances_File)[1], "Metabolite M-44");

    EXPECT_EQ(chart.Title, "Annual Metabolite M-44 Balance (g/ha)");
    EXPECT_EQ(chart.Key.size(), 7U);
    EXPECT_EQ(chart.Boxes.back().Drawn_In, Colour::Term_7);
}

TEST(Balance_Charts, Every_Year_Has_Its_Tick_And_66_Years_Have_A_Label_At_Every_Third)
{
    Balance_Table table{"Water", {"Precipitation"}, {}};
    for (int year = 1; year <= 66; ++year)
        table.Rows.push_back({year, {100}});

    const auto chart = Water_Balance_Chart(table);

    ASSERT_EQ(chart.X.Ticks.size(), 66U);
    EXPECT_EQ(chart.X.Ticks[0].Label, "1");
    EXPECT_EQ(chart.X.Ticks[1].Label, "");
    EXPECT_EQ(chart.X.Ticks[3].Label, "4");
}

TEST(Balance_Charts, An_Empty_File_Gives_No_Tables_And_An_Empty_Table_An_Empty_Diagram)
{
    EXPECT_TRUE(Read_Balances("").empty());

    const auto chart = Water_Balance_Chart({"Water", {}, {}});
    EXPECT_TRUE(chart.Boxes.empty());
    EXPECT_EQ(chart.Y.High, 1);
}

} // namespace

} // namespace orvel
