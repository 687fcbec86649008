#include "charts/value_at.h"

#include "charts/scale.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Chart Line_Chart(std::vector<Chart_Point> points)
{
    Chart chart;
    chart.X = Position_Axis(10);
    chart.Y = Value_Axis(0, 8);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    chart.Lines.push_back({Colour::Series, std::move(points)});
    return chart;
}

} // namespace

TEST(Value_Text_At, Tells_The_Nearest_Point_Of_A_Line)
{
    const Chart chart = Line_Chart({{1, 5}, {2, 0.123456789}});

    EXPECT_EQ(Value_Text_At(chart, 1.05), "1: 5");
    EXPECT_EQ(Value_Text_At(chart, 1.95), "2: 0.123457");
}

TEST(Value_Text_At, Is_Empty_Far_From_Any_Point)
{
    EXPECT_EQ(Value_Text_At(Line_Chart({{1, 5}}), 1.5), "");
    EXPECT_EQ(Value_Text_At(Line_Chart({}), 1), "");
    EXPECT_EQ(Value_Text_At(Chart(), 1), "");
}

TEST(Value_Text_At, Tells_The_Box_That_Covers_The_Place)
{
    Chart chart = Line_Chart({{0, 3}, {10, 3}}); // a line across the boxes is not what is meant
    chart.Boxes = {{Colour::Series, 0.8, 1.2, 4}};

    EXPECT_EQ(Value_Text_At(chart, 1.1), "1: 4");
    EXPECT_EQ(Value_Text_At(chart, 1.5), "");
}

TEST(Value_Text_At, Tells_A_Box_By_Its_Name)
{
    Chart chart = Line_Chart({});
    chart.Boxes = {{Colour::Term_1, 0.8, 1.2, 4, "3, Runoff"}};

    EXPECT_EQ(Value_Text_At(chart, 0.9), "3, Runoff: 4");
}

TEST(Zoomed, Keeps_The_Points_Of_The_Span_And_Fits_The_Axis_To_Them)
{
    const Chart chart = Zoomed(Line_Chart({{1, 8}, {4, 2}, {5, 3}, {9, 1}}), 3, 6);

    ASSERT_EQ(chart.Lines[0].Points.size(), 2U);
    EXPECT_EQ(chart.Lines[0].Points[0], (Chart_Point{1, 2}));
    EXPECT_EQ(chart.X.High, 3);
    EXPECT_EQ(chart.Y.High, 3);
    EXPECT_EQ(chart.X.Ticks.front().Label, "3");
    EXPECT_EQ(Value_Text_At(chart, 1), "4: 2"); // positions count on from the span's begin
}

TEST(Zoomed, Labels_Stand_At_Round_Positions_Wherever_The_Span_Begins)
{
    const Chart chart = Zoomed(Line_Chart({{3.5, 8}, {7, 2}}), 3.4726, 7.9);

    std::vector<std::string> labels;
    for (const Chart_Tick& tick : chart.X.Ticks) {
        if (!tick.Label.empty())
            labels.push_back(tick.Label);
    }
    EXPECT_EQ(labels, (std::vector<std::string>{"4", "5", "6", "7"}));
    EXPECT_GE(chart.X.Ticks.front().At, 0);
    EXPECT_LE(chart.X.Ticks.back().At, chart.X.High);
}

TEST(Zoomed, A_Span_Of_A_Single_Point_Changes_Nothing)
{
    const Chart whole = Line_Chart({{1, 8}, {4, 2}, {9, 1}});

    EXPECT_EQ(Zoomed(whole, 3, 6).Lines[0].Points, whole.Lines[0].Points);
}

TEST(Zoomed, A_Span_Without_Points_Changes_Nothing)
{
    const Chart whole = Line_Chart({{1, 8}, {9, 1}});

    EXPECT_EQ(Zoomed(whole, 3, 6).Lines[0].Points, whole.Lines[0].Points);
    EXPECT_EQ(Zoomed(whole, 6, 3).Lines[0].Points, whole.Lines[0].Points);
    EXPECT_EQ(Zoomed(whole, 20, 30).Lines[0].Points, whole.Lines[0].Points);
}

TEST(Summary_Of, Lists_Bars_With_The_Dots_Over_Them_And_Names_The_Lines)
{
    Chart chart;
    chart.Unit = "ug/L";
    chart.Boxes = {{Colour::Series, 0.6, 1.4, 0.25, "Hamburg"}, {Colour::Series, 1.6, 2.4, 0, "Porto"}};
    chart.Dots = {{Colour::Series, 1, 0.5, "Hamburg, period 1"}};
    chart.Lines = {{.Points = {{0, 0.1}, {3, 0.1}}, .Names = {}, .Name = "limit"}};

    EXPECT_EQ(Summary_Of(chart),
              "Line: limit: 0.1 ug/L. Values: Hamburg: 0.25 ug/L; Hamburg, period 1: 0.5 ug/L; Porto: 0 ug/L.");
}

TEST(Summary_Of, Gives_The_Extremes_Of_Many_Values)
{
    Chart chart = Line_Chart({});
    for (int day = 1; day <= 20; ++day)
        chart.Lines[0].Points.push_back({static_cast<double>(day), static_cast<double>(day == 7 ? 9 : day % 3 + 1)});

    EXPECT_EQ(Summary_Of(chart), "20 values. First 1: 2. Last 20: 3. Lowest 3: 1. Highest 7: 9.");
}

TEST(Summary_Of, Says_Why_There_Is_Nothing)
{
    Chart chart;
    EXPECT_EQ(Summary_Of(chart), "There is nothing to see.");
    chart.Nothing = "No run is marked.";
    EXPECT_EQ(Summary_Of(chart), "No run is marked.");
}

} // namespace orvel
