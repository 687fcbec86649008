#include "tables/leachate_periods.h"

#include "leachate_run.h"
#include "output/plot_file.h"
#include "tables/leachate_text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvel {

namespace {

const Plot_Head Head = {.Titles = {"one", "two", "three", "four"}};

// Years with a percolate of 100 L/m2 and the fluxes 1, 2, 3 ... g/ha.
Leachate_Table Rising_Years(int years)
{
    Leachate_Table table{.Result_Name = "Results for P", .Label = "Pesticide"};
    for (int y = 1; y <= years; ++y)
        table.Rows.push_back({static_cast<double>(y), 100, static_cast<double>(y)});
    return table;
}

// The period tables of those years, one after the other at the depths.
struct Printed_Periods {
    Table_Text Text;
    std::vector<Leachate_Table> Tables;
};
Printed_Periods Printed(int years, std::initializer_list<Depth> depths = {Depth::One_Metre})
{
    Printed_Periods printed;
    printed.Text.Head(Head.Titles);
    for (const auto depth : depths)
        printed.Tables.push_back(Print_Periods(printed.Text, depth, Periods_Of(Rising_Years(years), 0)));
    return printed;
}

const std::string Metre = "\tResults for P in the percolate at 1 m soil depth";
const std::string Bottom = "\tResults for P in the percolate at the bottom of the simulated soil core";

} // namespace

TEST(Leachate_Periods, The_Period_Cache_Is_Laid_Out_To_The_Byte)
{
    const auto periods = Printed(26);

    std::string rows;
    for (const auto* row :
         {"1       \t7.0000000   \t100.000     \t7.000",  "2       \t8.0000000   \t100.000     \t8.000",
          "3       \t9.0000000   \t100.000     \t9.000",  "4       \t10.0000     \t100.000     \t10.000",
          "5       \t11.0000     \t100.000     \t11.000", "6       \t12.0000     \t100.000     \t12.000",
          "7       \t13.0000     \t100.000     \t13.000", "8       \t14.0000     \t100.000     \t14.000",
          "9       \t15.0000     \t100.000     \t15.000", "10      \t16.0000     \t100.000     \t16.000",
          "11      \t17.0000     \t100.000     \t17.000", "12      \t18.0000     \t100.000     \t18.000",
          "13      \t19.0000     \t100.000     \t19.000", "14      \t20.0000     \t100.000     \t20.000",
          "15      \t21.0000     \t100.000     \t21.000", "16      \t22.0000     \t100.000     \t22.000",
          "17      \t23.0000     \t100.000     \t23.000", "18      \t24.0000     \t100.000     \t24.000",
          "19      \t25.0000     \t100.000     \t25.000", "20      \t26.0000     \t100.000     \t26.000"})
        rows += std::string("\t") + row + "\r\n";
    const std::string rule = "\t------------------------------------------------------------\r\n";
    // The fourth and fifth highest are the periods 17 and 16: 23 and 22 ug/L. The total flux is 7 + 8 + ... + 26 = 330.
    EXPECT_EQ(periods.Text.File, "one\r\ntwo\r\nthree\r\nfour\r\n"
                                 " \r\n \r\n\tResults for P in the percolate at 1 m soil depth\r\n \r\n"
                                 "\t     Period \tPesticide Flux\t   Percolate\tPesticide Conc.\r\n"
                                 "\t         \t     (g/ha)\t    (L/m\xB2)\t     (\xB5g/L)  \r\n" +
                                     rule + rows + rule +
                                     "\tTotal    \t330.000     \t2000.00     \t16.500\r\n"
                                     "\t80 Perc.(17/16)\t45.0000     \t200.000     \t22.500\r\n");
}

TEST(Leachate_Periods, The_Window_Has_Ten_Blanks_Before_The_Titles_And_A_Narrow_Period_Head)
{
    const auto periods = Printed(26);

    EXPECT_TRUE(periods.Text.Screen.starts_with(
        "          one\r\n          two\r\n          three\r\n          four\r\n \r\n"));
    EXPECT_EQ(Lines_With(periods.Text.Screen, "Period"),
              std::vector<std::string>{"\t Period \tPesticide Flux\t   Percolate\tPesticide Conc."});
    EXPECT_EQ(Lines_With(periods.Text.Screen, "Perc.("),
              std::vector<std::string>{"\t80 Perc.(17/16)\t45.0000     \t200.000     \t22.500"});
}

TEST(Leachate_Periods, A_Period_Of_Two_Years_Has_Their_Mass_In_Their_Percolate)
{
    Leachate_Table years{std::vector<Leachate_Row>(46, {1, 100, 1}), {}};
    years.Rows[6] = {1, 50, 2};
    years.Rows[7] = {9, 150, 6};

    const auto periods = Periods_Of(years, 1);

    ASSERT_EQ(periods.Rows.size(), 20U);
    EXPECT_EQ(periods.Rows[0], (Leachate_Row{10, 200, 5})); // the mean of 2 and 6 would be 4
    EXPECT_EQ(periods.Rows[19], (Leachate_Row{2, 200, 1}));
}

TEST(Leachate_Periods, A_Period_Of_Three_Years_Begins_Behind_The_Warm_Up)
{
    Leachate_Table years;
    for (int y = 1; y <= 66; ++y)
        years.Rows.push_back({static_cast<double>(y), 100, 0});

    const auto periods = Periods_Of(years, 2);

    EXPECT_EQ(periods.Rows[0], (Leachate_Row{7 + 8 + 9, 300, 8}));
    EXPECT_EQ(periods.Rows[19], (Leachate_Row{64 + 65 + 66, 300, 65}));
}

TEST(Leachate_Periods, Only_The_Rows_Of_20_Periods_Are_Used)
{
    const Leachate_Table years{std::vector<Leachate_Row>(27, {1, 100, 1}), {}};

    EXPECT_EQ(Periods_Of(years, 0).Result.Total, (Leachate_Row{20, 2000, 1}));
}

TEST(Leachate_Periods, A_Run_Of_27_Years_Does_Not_Shift_The_Tables_Behind)
{
    const auto periods = Printed(27, {Depth::One_Metre, Depth::Core_Bottom});

    EXPECT_EQ(periods.Tables[1].Rows, periods.Tables[0].Rows);
    EXPECT_EQ(periods.Tables[1].Rows[0], (Leachate_Row{7, 100, 7}));
    EXPECT_EQ(Lines_With(periods.Text.File, "percolate"), (std::vector<std::string>{Metre, Bottom}));
}

TEST(Leachate_Text, A_Year_Table_Of_27_Years_Does_Not_Shift_The_One_Behind)
{
    Table_Text text;
    text.Head(Head.Titles);
    const auto metre = Print_Years(text, Depth::One_Metre, Rising_Years(27));
    Print_Years(text, Depth::Core_Bottom, Rising_Years(3));

    const auto cached = Parse_Leachate(text.File);

    EXPECT_EQ(cached.Titles, (std::vector<std::string>{"one", "two", "three", "four"}));
    ASSERT_EQ(cached.Set[0].size(), 1U);
    ASSERT_EQ(cached.Set[1].size(), 1U);
    EXPECT_EQ(cached.Set[0][0].Rows, metre.Rows);
    EXPECT_EQ(cached.Set[1][0].Rows.size(), 3U);
}

TEST(Leachate_Periods, Every_Table_Takes_30_Lines)
{
    for (const int years : {3, 6, 8, 26, 27}) {
        const auto bytes = Printed(years, {Depth::One_Metre, Depth::Core_Bottom}).Text.File;
        EXPECT_EQ(std::ranges::count(bytes, '\n'), 4 + 2 * 30) << years;
    }
}

TEST(Leachate_Periods, Periods_Without_Years_Are_0_And_Equal_Ones_Are_Picked_In_Their_Order)
{
    const auto periods = Printed(8);

    EXPECT_EQ(Lines_With(periods.Text.File, "\t3   "),
              std::vector<std::string>{"\t3       \t0.00E+00    \t0.00E+00    \t0.000"});
    // Two periods have values; the third and fourth selections are the periods 3 and 4, the further one is 5.
    EXPECT_EQ(Lines_With(periods.Text.File, "Perc."),
              std::vector<std::string>{"\t80 Perc.(4/5)\t0.00E+00    \t0.00E+00    \t0.000"});
}

TEST(Leachate_Text, What_Is_No_Table_Gives_None)
{
    const std::string titles = "one\r\n  two \r\nthree\r\nfour\r\n";

    EXPECT_TRUE(Parse_Leachate("").Set[0].empty());
    EXPECT_TRUE(Parse_Leachate(titles).Set[0].empty());
    EXPECT_TRUE(Parse_Leachate(titles + " \r\n \r\n").Set[0].empty());
    EXPECT_EQ(Parse_Leachate(titles).Titles[1], "two");
}

TEST(Leachate_Text, Tables_Are_Read_Back_As_They_Were_Printed)
{
    const auto printed = Printed(26, {Depth::One_Metre, Depth::Core_Bottom});

    const auto set = Parse_Leachate(printed.Text.File).Set;

    for (const std::size_t depth : {0, 1}) {
        ASSERT_EQ(set[depth].size(), 1U);
        EXPECT_EQ(set[depth][0].Rows, printed.Tables[depth].Rows);
        EXPECT_EQ(set[depth][0].Result, (Leachate_Result{{330, 2000, 16.5}, {45, 200, 22.5}, 17, 16}));
        EXPECT_EQ(set[depth][0].P80_Text, "(17/16)\t45.0000     \t200.000     \t22.500");
        EXPECT_EQ(printed.Tables[depth].P80_Text, set[depth][0].P80_Text);
        EXPECT_EQ(set[depth][0].Result_Name, "Results for P");
        EXPECT_EQ(set[depth][0].Label, "Pesticide");
    }
}

TEST(Leachate_Text, A_Printed_Table_Holds_The_Figures_That_Were_Printed)
{
    Table_Text text;

    const auto table = Print_Years(text, Depth::One_Metre, {.Rows = {{9.99999999, 123.4567, 0.00049}}}, false);

    EXPECT_EQ(Lines_With(text.File, "\t1  "),
              std::vector<std::string>{"\t1       \t10.0000000  \t123.457     \t0.000"});
    EXPECT_EQ(table.Rows[0], (Leachate_Row{10, 123.457, 0}));
}

} // namespace orvel
