#include "plans/plan_charts.h"

#include "plans/plan_grid.h"

#include <cmath>
#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr const char* Leached = "\xB5g/L";

Plan_Column Column(Plan_Column_Kind kind, const std::string& name)
{
    return {kind, name, ""};
}

std::shared_ptr<const Plan_Run> Complete(double figure, const std::string& unit = Leached)
{
    return std::make_shared<const Plan_Run>(
        Plan_Run{.Verdict = Verdict::Complete,
                 .Rows = {{.Substance = "A", .Unit = unit, .Found = Result_Row::Figures{.Percentile = figure}}}});
}

// A plan with an id and labels, and a figure for each row; a negative one is a run that has none yet.
Plan_View View_Of(const std::vector<std::string>& labels, const std::vector<std::vector<std::string>>& cells,
                  const std::vector<double>& figures)
{
    auto rows = std::make_shared<Plan_Rows>();
    rows->Columns.push_back(Column(Plan_Column_Kind::Id, "id"));
    for (const auto& label : labels)
        rows->Columns.push_back(Column(Plan_Column_Kind::Label, label));
    Plan_View view;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        rows->Cells.push_back({std::to_string(i + 1)});
        rows->Cells.back().insert(rows->Cells.back().end(), cells[i].begin(), cells[i].end());
        view.Runs.push_back(figures[i] < 0 ? nullptr : Complete(figures[i]));
    }
    view.Rows = rows;
    view.Substances = Substances_Of(view);
    return view;
}

using Points = std::vector<Chart_Point>;

} // namespace

TEST(Plan_Charts_Test, The_Distribution_Falls_By_A_Runs_Share_At_Its_Figure)
{
    const auto view = View_Of({"#soil"}, {{"x"}, {"y"}, {"x"}, {"x"}, {"x"}, {"y"}}, {3, 0.05, 1, 2, 4, -1});

    const auto one = Distribution_Chart(view, {"A", ""});
    ASSERT_EQ(one.Lines.size(), 2U); // and the limit
    EXPECT_EQ(one.Lines[0].Points, (Points{{0, 100},
                                           {0.05, 100},
                                           {0.05, 80},
                                           {1, 80},
                                           {1, 60},
                                           {2, 60},
                                           {2, 40},
                                           {3, 40},
                                           {3, 20},
                                           {4, 20},
                                           {4, 0},
                                           {4, 0}}));
    EXPECT_EQ(one.Legend, (std::vector<std::string>{"80.0 % of 5 runs are above 0.1 \xB5g/L", "1 run has no result"}));

    const auto two = Distribution_Chart(view, {"A", "#soil"});
    ASSERT_EQ(two.Lines.size(), 3U);
    EXPECT_EQ(two.Key[0].Text, "x");
    EXPECT_EQ(two.Key[1].Text, "y");
    EXPECT_EQ(two.Lines[0].Points[2], (Chart_Point{1, 75}));
    EXPECT_EQ(two.Lines[1].Points[2], (Chart_Point{0.05, 0}));
    EXPECT_NE(two.Lines[0].Drawn_In, two.Lines[1].Drawn_In);
}

TEST(Plan_Charts_Test, Concentrations_Of_Many_Decades_Stand_On_A_Logarithmic_Axis)
{
    const auto view = View_Of({}, {{}, {}, {}, {}}, {100, 0, 0.01, 1});

    const auto chart = Distribution_Chart(view, {"A", ""});

    std::vector<std::string> decades;
    for (const auto& tick : chart.X.Ticks) {
        if (tick.Rank == Tick_Rank::Big)
            decades.push_back(tick.Label);
    }
    EXPECT_EQ(decades, (std::vector<std::string>{"0.01", "0.1", "1", "10", "100"}));
    EXPECT_EQ(chart.Lines[0].Points,
              (Points{{0, 100}, {0, 100}, {0, 75}, {0, 75}, {0, 50}, {2, 50}, {2, 25}, {4, 25}, {4, 0}, {4, 0}}));
    EXPECT_EQ(chart.Lines[0].Names[5], "above 1 \xB5g/L");
    EXPECT_EQ(chart.Lines[1].Points, (Points{{1, 0}, {1, 100}})); // the limit
}

TEST(Plan_Charts_Test, More_Values_Than_Colours_Are_Told_And_Not_Drawn)
{
    const auto view =
        View_Of({"#n"}, {{"1"}, {"2"}, {"3"}, {"4"}, {"5"}, {"6"}, {"7"}, {"8"}}, {1, 2, 3, 4, 5, 6, 7, 8});

    const auto chart = Distribution_Chart(view, {"A", "#n"});

    EXPECT_EQ(chart.Lines.size(), Most_Curves + 1);
    EXPECT_EQ(chart.Legend.back(), "2 more values of #n are not drawn");
}

TEST(Plan_Charts_Test, Runs_Of_Another_Unit_Are_Left_Out)
{
    auto view = View_Of({}, {{}, {}, {}}, {1, 2, 3});
    view.Runs[1] = Complete(7, "mg/kg");

    const auto chart = Distribution_Chart(view, {"A", ""});

    EXPECT_EQ(chart.Lines[0].Points.back(), (Chart_Point{3, 0}));
    EXPECT_EQ(chart.Legend.back(), "1 runs have another unit and are left out");
}

// Each by itself, from the run in which nothing is varied; what is varied together has no part in it.
TEST(Plan_Charts_Test, The_Factor_That_Moves_The_Figure_Farthest_Comes_First)
{
    const auto view = View_Of({"#factor psm.Koc[1]", "#factor psm.Rate", "#shift"},
                              {{"1", "1", "0"},
                               {"0.5", "1", "0"},
                               {"2", "1", "0"},
                               {"1", "0.5", "0"},
                               {"1", "2", "0"},
                               {"2", "2", "0"},
                               {"1", "1", "-14"},
                               {"1", "1", "14"}},
                              {10, 13, 8, 60, 1, 0, 11, 12});

    const auto chart = Effects_Chart(view, {"A", ""});

    std::vector<std::string> names; // from below
    for (const auto& tick : chart.Y.Ticks)
        names.push_back(tick.Label);
    EXPECT_EQ(names, (std::vector<std::string>{"shift of the applications", "psm.Koc[1]", "psm.Rate"}));
    EXPECT_GT(chart.Y.Ticks[2].At, chart.Y.Ticks[1].At);
    ASSERT_EQ(chart.Bars.size(), 5U);
    for (const auto& bar : chart.Bars)
        EXPECT_NEAR(bar.From + chart.X.First, 10, 1e-9) << bar.Name; // the figure in which nothing is varied
    const auto value = [&](std::size_t i) {
        return std::pair(chart.Bars[i].Label, std::round(1e6 * (chart.Bars[i].To + chart.X.First)) / 1e6);
    };
    EXPECT_EQ(value(0), std::pair(std::string("\xD7 0.5"), 60.0));
    EXPECT_EQ(value(1), std::pair(std::string("\xD7 2"), 1.0));
    EXPECT_EQ(value(2), std::pair(std::string("\xD7 0.5"), 13.0));
    EXPECT_EQ(value(3), std::pair(std::string("\xD7 2"), 8.0));
    EXPECT_EQ(value(4), std::pair(std::string("+14 days"), 12.0)); // both are above: the farther one
    EXPECT_NE(chart.Bars[0].Drawn_In, chart.Bars[1].Drawn_In);
    EXPECT_EQ(chart.Bars[0].Low, chart.Bars[1].Low); // of one factor, in one row
    EXPECT_LT(chart.Bars[2].High, chart.Bars[1].Low);
    EXPECT_EQ(chart.Bars[1].Name, "psm.Rate \xD7 2: 1 \xB5g/L, change -9 \xB5g/L");
    ASSERT_EQ(chart.Lines.size(), 1U);
    EXPECT_EQ(chart.Lines[0].Points[0].X, chart.Bars[0].From);
    EXPECT_EQ(chart.Key.back().Text, "nothing is varied: 10 \xB5g/L");
    EXPECT_GT(chart.X.Ticks.front().At + chart.X.First, -1e-9); // no tick at a concentration below 0
}

// What lies close to the axis' begin still has room for its text.
TEST(Plan_Charts_Test, Effects_That_Go_One_Way_Are_Drawn_That_Way)
{
    const auto view = View_Of({"#factor psm.Rate"}, {{"1"}, {"0.5"}, {"2"}}, {5, 7, 7.5});

    const auto chart = Effects_Chart(view, {"A", ""});

    ASSERT_EQ(chart.Bars.size(), 1U);
    EXPECT_EQ(chart.Bars[0].Label, "\xD7 2");
    EXPECT_GT(chart.Bars[0].To, chart.Bars[0].From);
    EXPECT_GT(chart.Bars[0].From, 0);
    EXPECT_LT(chart.Bars[0].To, chart.X.High);
}

TEST(Plan_Charts_Test, Without_What_It_Needs_A_Picture_Says_Why)
{
    EXPECT_EQ(Effects_Chart(View_Of({"#n"}, {{"1"}}, {1}), {"A", ""}).Nothing,
              "The plan is no sweep: it has no label #shift and none that begins with #factor.");
    EXPECT_EQ(Effects_Chart(View_Of({"#shift"}, {{"7"}}, {1}), {"A", ""}).Nothing,
              "The run in which nothing is varied (factor 1, shift 0) has no result.");
    EXPECT_EQ(Effects_Chart(View_Of({"#shift"}, {{"0"}}, {1}), {"A", ""}).Nothing,
              "No run in which one thing alone is varied has a result.");
    EXPECT_EQ(By_Date_Chart(View_Of({"#n"}, {{"1"}}, {1}), {"A", ""}).Nothing,
              "The plan has no window of applications: no label #shift.");
    for (const auto chart : {Distribution_Chart, Effects_Chart, By_Date_Chart})
        EXPECT_EQ(chart(View_Of({"#shift"}, {{"0"}}, {-1}), {"A", ""}).Nothing, "No run has a result yet.");
}

TEST(Plan_Charts_Test, A_Window_Has_Its_Dates_Its_Maximum_And_Its_Median)
{
    auto view = View_Of({"#shift", "psm.Applications[0][1].App_Day", "psm.Applications[0][1].App_Month"},
                        {{"7", "19", "10"}, {"-14", "28", "9"}, {"-7", "5", "10"}, {"0", "12", "10"}}, {3, 1, 8, 4});
    auto rows = std::make_shared<Plan_Rows>(*view.Rows);
    rows->Day_Column = 2;
    rows->Month_Column = 3;
    view.Rows = rows;

    const auto chart = By_Date_Chart(view, {"A", ""});

    EXPECT_EQ(chart.Legend,
              std::vector<std::string>{"maximum 8 \xB5g/L at 05.10. (-7 days), median 3.5 \xB5g/L over 4 days"});
    ASSERT_EQ(chart.Lines.size(), 3U);
    EXPECT_EQ(chart.Lines[0].Points, (Points{{0, 1}, {7, 8}, {14, 4}, {21, 3}})); // in the order of the dates
    EXPECT_EQ(chart.Lines[1].Points[0].Y, 8);
    EXPECT_EQ(chart.Lines[2].Points[0].Y, 3.5);
    std::vector<std::string> dates;
    for (const auto& tick : chart.X.Ticks)
        dates.push_back(tick.Label);
    EXPECT_EQ(dates, (std::vector<std::string>{"28.09.", "05.10.", "12.10.", "19.10."}));
}

// With factors beside it, the window is that of the runs without them.
TEST(Plan_Charts_Test, A_Window_Of_A_Sweep_Is_That_Where_Nothing_Else_Is_Varied)
{
    const auto view =
        View_Of({"#shift", "#factor psm.Koc[1]"}, {{"0", "0.5"}, {"0", "1"}, {"7", "0.5"}, {"7", "1"}}, {9, 2, 8, 3});

    const auto chart = By_Date_Chart(view, {"A", ""});

    EXPECT_EQ(chart.Lines[0].Points, (Points{{0, 2}, {7, 3}}));
    EXPECT_EQ(chart.Legend, std::vector<std::string>{"maximum 3 \xB5g/L at +7 days, median 2.5 \xB5g/L over 2 days"});
    const auto by_factor = By_Date_Chart(view, {"A", "#factor psm.Koc[1]"});
    EXPECT_EQ(by_factor.Lines.size(), 2U);
    EXPECT_EQ(by_factor.Lines[0].Points, (Points{{0, 9}, {7, 8}}));
}

TEST(Plan_Charts_Test, Each_Curve_Of_A_Factor_Has_All_Others_Unvaried)
{
    const auto view =
        View_Of({"#shift", "#factor psm.Koc[1]", "#factor psm.Rate"},
                {{"0", "0.5", "0.5"}, {"0", "0.5", "1"}, {"0", "1", "0.5"}, {"0", "1", "1"}}, {9, 5, 8, 2});

    const auto chart = By_Date_Chart(view, {"A", "#factor psm.Koc[1]"});

    ASSERT_EQ(chart.Lines.size(), 2U);
    EXPECT_EQ(chart.Lines[0].Points, (Points{{0, 5}}));
    EXPECT_EQ(chart.Lines[1].Points, (Points{{0, 2}}));
}

TEST(Plan_Charts_Test, The_Median_Of_An_Even_Number_Is_The_Mean_Of_The_Middle)
{
    EXPECT_EQ(Median({3, 1, 2}), 2);
    EXPECT_EQ(Median({4, 1, 2, 3}), 2.5);
    EXPECT_EQ(Median({}), 0);
}

TEST(Plan_Grid_Test, A_Substance_Of_Several_Units_Has_Them_In_Its_Cells)
{
    auto view = View_Of({}, {{}, {}}, {1, 2});
    view.Runs[1] = Complete(0.5, "mg/kg");
    view.Substances = Substances_Of(view);

    EXPECT_EQ(Grid_Lines(view, Grid_Of(view, std::nullopt)),
              "id\tstate\tA\n1\tcomplete\t1 \xC2\xB5g/L\n2\tcomplete\t0.5 mg/kg\n");
}

TEST(Plan_Grid_Test, The_Grid_Has_A_Column_A_Substance_And_The_State_Of_Each_Run)
{
    auto view = View_Of({"#n"}, {{"a\tb"}, {"<2>"}}, {1.5, -1});
    auto rows = std::make_shared<Plan_Rows>(*view.Rows);
    rows->Columns.insert(rows->Columns.begin() + 1, Column(Plan_Column_Kind::Crop, "crop"));
    for (auto& cells : rows->Cells)
        cells.insert(cells.begin() + 1, "Maize");
    view.Rows = rows;

    const auto all = Grid_Of(view, std::nullopt);
    EXPECT_EQ(Grid_Lines(view, all), "id\t#n\tstate\tA [\xC2\xB5g/L]\tcrop\n1\ta b\tcomplete\t1.5\tMaize\n"
                                     "2\t<2>\tscheduled\t\tMaize\n");
    EXPECT_EQ(Grid_Of(view, Verdict::Scheduled).Rows, std::vector<std::size_t>{1});
    EXPECT_NE(Grid_Page(view, all).find("<td>&lt;2&gt;</td>"), std::string::npos);
}

} // namespace orvel
