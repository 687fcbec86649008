#include "charts/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

std::vector<std::string> Labels(const Chart_Axis& axis)
{
    std::vector<std::string> labels;
    for (const auto& tick : axis.Ticks) {
        if (tick.Rank == Tick_Rank::Big)
            labels.push_back(tick.Label);
    }
    return labels;
}

TEST(Value_Axis, Goes_From_0_To_The_Rounded_Maximum_With_A_Label_At_Every_Big_Tick)
{
    const auto axis = Value_Axis(0, 3.2); // to 4, in steps of 1

    EXPECT_EQ(axis.Low, 0);
    EXPECT_EQ(axis.High, 4);
    EXPECT_EQ(Labels(axis), (std::vector<std::string>{"0", "1", "2", "3", "4"}));
}

TEST(Value_Axis, Has_Small_And_Tiny_Ticks_Between_The_Big_Ones_Up_To_A_Twentieth_Beyond_The_End)
{
    const auto axis = Value_Axis(0, 20); // step 5, small ticks every 1, tiny ones every 0.5

    ASSERT_EQ(axis.Ticks.size(), 43U); // 0 to 21
    EXPECT_EQ(axis.Ticks[1].Rank, Tick_Rank::Tiny);
    EXPECT_EQ(axis.Ticks[1].At, 0.5);
    EXPECT_EQ(axis.Ticks[2].Rank, Tick_Rank::Small);
    EXPECT_EQ(axis.Ticks[10].Rank, Tick_Rank::Big);
    EXPECT_EQ(axis.Ticks[10].Label, "5");
    EXPECT_EQ(axis.Ticks.back().At, 21);
    EXPECT_EQ(axis.Ticks.back().Label, "");
}

TEST(Value_Axis, Without_Any_Extent_Goes_To_1)
{
    EXPECT_EQ(Value_Axis(0, 0).High, 1);
    EXPECT_EQ(Value_Axis(0, 1e-300).High, 1);
}

TEST(Value_Axis, A_Negative_Minimum_Extends_It_Downwards_With_Steps_By_The_Larger_Magnitude)
{
    const auto axis = Value_Axis(-12, 6);

    EXPECT_EQ(axis.Low, -20);
    EXPECT_EQ(axis.High, 6);
    EXPECT_EQ(Value_Size(axis), 20);
    EXPECT_EQ(Labels(axis), (std::vector<std::string>{"-20", "-15", "-10", "-5", "0", "5"}));
}

TEST(Value_Axis, A_Plain_One_Ends_At_The_Values_Themselves_With_The_Same_Steps)
{
    const auto axis = Plain_Value_Axis(-12.5, 64.3); // steps of 10

    EXPECT_EQ(axis.Low, -12.5);
    EXPECT_EQ(axis.High, 64.3);
    EXPECT_EQ(axis.Ticks.back().At, 67); // within a twentieth beyond the end
    EXPECT_EQ(Plain_Value_Axis(0, 0).High, 1);
    EXPECT_TRUE(std::isfinite(Plain_Value_Axis(-1e308, 1e308).Ticks.back().At));
}

TEST(Value_Axis, Keeps_Zero_When_All_Values_Are_Positive_Or_All_Negative)
{
    EXPECT_EQ(Value_Axis(5, 6).Low, 0);
    EXPECT_EQ(Value_Axis(-6, -5).High, 0);
}

TEST(Value_Axis, Holds_The_Largest_Numbers_That_A_File_Can_Have)
{
    const auto axis = Value_Axis(-1.7e308, 1.7e308);

    EXPECT_TRUE(std::isfinite(axis.High));
    EXPECT_LT(axis.Ticks.size(), 500U);
}

TEST(Value_Axis, Labels_Tiny_Values_With_An_Exponent)
{
    EXPECT_EQ(Labels(Value_Axis(0, 0.0004)),
              (std::vector<std::string>{"0", "1.0E-04", "2.0E-04", "3.0E-04", "4.0E-04"}));
}

TEST(Position_Axis, Ends_At_Its_Length_And_Labels_Nothing_Beyond)
{
    const auto axis = Position_Axis(26);

    EXPECT_EQ(axis.High, 26);
    EXPECT_EQ(Labels(axis), (std::vector<std::string>{"0", "5", "10", "15", "20", "25"}));
    EXPECT_LE(axis.Ticks.back().At, 26);
}

TEST(Chart_Frame, Lies_An_Eighth_Before_And_A_Fifth_Behind_The_Axes)
{
    const auto frame = Frame_Around(Position_Axis(24), Value_Axis(0, 8));

    EXPECT_EQ(frame.Left, -3);
    EXPECT_DOUBLE_EQ(frame.Right, 28.8);
    EXPECT_DOUBLE_EQ(frame.Top, 9.6);
    EXPECT_EQ(frame.Bottom, -1);
}

TEST(Chart_Frame, Reaches_Below_A_Negative_Minimum)
{
    const auto frame = Frame_Around(Position_Axis(24), Value_Axis(-8, 4));

    EXPECT_EQ(frame.Bottom, -9);
    EXPECT_DOUBLE_EQ(frame.Top, 5.6);
}

} // namespace

TEST(Drawn_Frame_Rule, Ends_Close_Behind_The_Axis_And_Its_Last_Box)
{
    Chart chart;
    chart.X = Position_Axis(20);
    chart.Y = Value_Axis(0, 8);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    EXPECT_DOUBLE_EQ(Drawn_Frame(chart).Right, 20.4);

    chart.Boxes = {{Colour::Series, 19.8, 20.2, 5}};
    EXPECT_DOUBLE_EQ(Drawn_Frame(chart).Right, 20.6);
    EXPECT_EQ(Drawn_Frame(chart).Left, chart.Frame.Left);
}

TEST(X_Labels_Rule, Stand_Below_The_Lowest_Value)
{
    Chart chart;
    chart.Y = Value_Axis(0, 8);
    EXPECT_DOUBLE_EQ(X_Labels_At(chart), -0.4);
    chart.Y = Value_Axis(-5, 8);
    EXPECT_DOUBLE_EQ(X_Labels_At(chart), -5.4);
}

} // namespace orvel
