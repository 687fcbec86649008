#include "scenario/climate_chart.h"

#include "charts/value_at.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

TEST(Climate_Chart_Rule, Joins_The_Days_In_Order_Under_The_Title_Of_The_Series)
{
    const std::vector<double> rain = {0, 1.2, 0.4};

    const auto chart = Climate_Chart(0, rain);

    EXPECT_EQ(chart.Title, "Precipitation [cm]");
    EXPECT_EQ(chart.X.Title, "Day 1 to 3");
    ASSERT_EQ(chart.Lines.size(), 1U);
    EXPECT_EQ(chart.Lines[0].Points, (std::vector<Chart_Point>{{1, 0}, {2, 1.2}, {3, 0.4}}));
    EXPECT_EQ(chart.X.High, 3);
    EXPECT_EQ(chart.Y.High, 2);
    EXPECT_EQ(chart.Y.Low, 0);
}

TEST(Climate_Chart_Rule, Negative_Temperatures_Draw_Both_Sides_Of_Zero)
{
    const std::vector<double> temperatures = {-12, 3};

    const auto chart = Climate_Chart(3, temperatures);

    EXPECT_EQ(chart.Title, "Mean Temperature [\xB0"
                           "C]");
    EXPECT_EQ(chart.Y.Low, -20);
    EXPECT_EQ(chart.Y.High, 3);
    EXPECT_LT(chart.Frame.Bottom, -20);
    EXPECT_EQ(chart.Y.Ticks.front().Label, ""); // 21 below zero
    EXPECT_EQ(chart.Y.Ticks[2].Label, "-20");   // steps of the larger magnitude: 5, with tiny ticks every 0.5
}

TEST(Climate_Chart_Rule, Zeros_Alone_Are_Drawn_On_An_Axis_To_1)
{
    const std::vector<double> zeros(10);

    EXPECT_EQ(Climate_Chart(1, zeros).Y.High, 1);
}

TEST(Climate_Chart_Rule, Days_Are_Labelled_From_The_First_One_Shown)
{
    const std::vector<double> values(10, 1);

    const auto chart = Climate_Chart(5, values, 101);

    EXPECT_EQ(chart.X.Title, "Day 101 to 110");
    EXPECT_EQ(chart.X.Ticks.front().Label, "100"); // the begin of the first day
    EXPECT_EQ(chart.X.Ticks.back().Label, "110");
}

TEST(Climate_Chart_Rule, Without_Days_The_Diagram_Is_Empty)
{
    const auto chart = Climate_Chart(0, {});

    EXPECT_TRUE(chart.Lines[0].Points.empty());
    EXPECT_EQ(chart.X.Title, "Day 1 to 1");
}

} // namespace

TEST(Climate_Chart_Rule, Names_Its_Points_By_Their_Dates_And_Tells_Of_Missing_Days)
{
    const std::vector<double> rain = {1, 2, 3};

    const auto chart = Climate_Chart(0, rain, {"27.02.81", "28.02.81", "03.03.81"});

    EXPECT_EQ(Value_Text_At(chart, 2), "28.02.81: 2 cm");
    EXPECT_EQ(chart.Legend, std::vector<std::string>{"2 days are missing, the first behind 28.02.81"});
}

TEST(Climate_Chart_Rule, Days_In_A_Row_Have_No_Gap_Over_The_End_Of_A_Century_Either)
{
    EXPECT_EQ(Gap_Text(std::vector<std::string>{"31.12.99", "01.01.00", "02.01.00"}), "");
    EXPECT_EQ(Gap_Text(std::vector<std::string>{"30.12.81", "01.01.82"}),
              "1 day is missing, the first behind 30.12.81");
    EXPECT_EQ(Climate_Chart(0, {}).Nothing, "The file has no days.");
}

} // namespace orvel
