#include "tables/daily_diagram.h"

#include "charts/value_at.h"
#include "core/output_variables.h"
#include "tables/series.h"

#include <gtest/gtest.h>

#include <numeric>

namespace orvel {

namespace {

constexpr int Precipitation = 1, Soil_Moisture = 6, Application_Rate = 8, Volatilisation = 13, Leaching = 20;
constexpr std::array<int, 13> Days_Of_Month = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// Years of 365 days from year 1 on.
std::vector<Run_Day> Calendar(int years)
{
    std::vector<Run_Day> days;
    for (int year = 1; year <= years; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= Days_Of_Month[static_cast<std::size_t>(month)]; ++day)
                days.push_back({static_cast<int>(days.size()) + 1, day, month, year});
        }
    }
    return days;
}

// One line a day, hour 24, with the value of the day's number.
std::vector<Plot_Value> Daily_Lines(int days)
{
    std::vector<Plot_Value> lines;
    for (int day = 1; day <= days; ++day)
        lines.push_back({day, 24, static_cast<double>(day)});
    return lines;
}

Daily_Request Whole(int variable, bool cumulative, int years)
{
    return {variable, cumulative, {1, 1}, {12, years}};
}

TEST(Parse_Month, Reads_A_Year_Of_The_Simulation_And_A_Month)
{
    EXPECT_EQ(Parse_Month("1-1"), (Run_Month{1, 1}));
    EXPECT_EQ(Parse_Month("0026-12"), (Run_Month{12, 26}));
    EXPECT_EQ(Parse_Month("9999-03"), (Run_Month{3, 9999}));
}

TEST(Parse_Month, Gives_Nothing_For_A_Text_That_Is_No_Month)
{
    for (const auto* text : {"", "12", "-", "1-", "-5", "1-0", "1-13", "0-1", "-1-1", "10000-1", "1E300-1", "year-1"})
        EXPECT_EQ(Parse_Month(text), std::nullopt) << text;
}

TEST(Daily_Series, A_Rate_Has_A_Point_At_The_End_Of_Every_Day)
{
    const auto series = Make_Daily_Series(Daily_Lines(365), Calendar(1), Whole(Precipitation, false, 1));

    ASSERT_EQ(series.Points.size(), 365U);
    EXPECT_EQ(series.Points.front(), (Chart_Point{1, 1}));
    EXPECT_EQ(series.Points.back(), (Chart_Point{365, 365}));
    EXPECT_EQ(series.Days, 12 * 30.4375);
}

TEST(Daily_Series, A_Span_Of_Months_Cuts_The_Series_And_Counts_From_Its_First_Day)
{
    const auto series = Make_Daily_Series(Daily_Lines(730), Calendar(2), {Precipitation, false, {12, 1}, {1, 2}});

    ASSERT_EQ(series.Points.size(), 62U);                    // December and January
    EXPECT_EQ(series.Points.front(), (Chart_Point{1, 335})); // 1 December is day 335
    EXPECT_EQ(series.Points.back(), (Chart_Point{62, 365 + 31}));
    EXPECT_EQ(series.Days, 2 * 30.4375);
}

TEST(Daily_Series, A_Sum_Begins_With_The_Span)
{
    const auto series = Make_Daily_Series(Daily_Lines(365), Calendar(1), {Precipitation, true, {2, 1}, {2, 1}});

    ASSERT_EQ(series.Points.size(), 28U);
    EXPECT_EQ(series.Points[0].Y, 32);
    EXPECT_EQ(series.Points[1].Y, 32 + 33);
}

TEST(Daily_Series, An_Hourly_Day_Counts_Each_Line_By_Its_Part_Of_The_Day)
{
    std::vector<Plot_Value> lines = {{1, 24, 2}};
    for (int hour = 1; hour <= 24; ++hour)
        lines.push_back({2, hour, hour == 10 ? 24 : 0.0}); // 1 kg/ha within one hour is a rate of 24 a day
    lines.push_back({3, 24, 5});

    const auto rate = Make_Daily_Series(lines, Calendar(1), Whole(Application_Rate, false, 1));
    const auto sum = Make_Daily_Series(lines, Calendar(1), Whole(Application_Rate, true, 1));

    ASSERT_EQ(rate.Points.size(), 26U);
    EXPECT_EQ(rate.Points[10], (Chart_Point{1 + 10.0 / 24, 24}));
    EXPECT_DOUBLE_EQ(sum.Points[24].Y, 2 + 1);
    EXPECT_DOUBLE_EQ(sum.Points[25].Y, 2 + 1 + 5);
}

TEST(Daily_Series, The_Yearly_Sum_Of_Every_Flow_Is_The_Amount_Of_The_Year)
{
    // A flow of a substance is written in kg/ha and day. Over two years with an hourly day, each year's amounts add up.
    std::vector<Plot_Value> lines;
    std::array<double, 3> amount{};
    for (const auto& day : Calendar(2)) {
        const int lines_of_day = day.Number % 100 == 7 ? 24 : 1;
        for (int l = 1; l <= lines_of_day; ++l) {
            const double mass = 0.001 * (day.Number % 13) / lines_of_day; // kg/ha in the line's interval
            amount[static_cast<std::size_t>(day.Year)] += mass;
            lines.push_back({day.Number, 24 * l / lines_of_day, mass * lines_of_day});
        }
    }

    for (int k = 1; k <= Last_Output_Variable; ++k) {
        if (!Output_Variable_Of(k).Is_Flow())
            continue;
        const auto series = Make_Daily_Series(lines, Calendar(2), {k, true, {1, 2}, {12, 2}});
        EXPECT_NEAR(series.Points.back().Y, amount[2], 1e-12) << k;
    }
}

TEST(Daily_Series, Sixty_Years_Of_Hours_Are_Held_As_They_Are)
{
    const auto calendar = Calendar(60);
    std::vector<Plot_Value> lines;
    for (const auto& day : calendar) {
        for (int hour = 1; hour <= 24; ++hour)
            lines.push_back({day.Number, hour, 1});
    }

    const auto series = Make_Daily_Series(lines, calendar, Whole(Precipitation, true, 60));

    ASSERT_EQ(series.Points.size(), 525600U);
    EXPECT_EQ(series.Points.back().X, 60 * 365);
    EXPECT_NEAR(series.Points.back().Y, 60 * 365, 1e-6);
}

TEST(Daily_Series, A_State_Is_Averaged_Over_The_Lines_Of_A_Day_And_Never_Summed)
{
    const std::vector<Plot_Value> lines = {{1, 12, 0.2}, {1, 24, 0.4}, {2, 24, 0.5}};

    for (const bool cumulative : {false, true}) {
        const auto series = Make_Daily_Series(lines, Calendar(1), Whole(Soil_Moisture, cumulative, 1));
        ASSERT_EQ(series.Points.size(), 2U);
        EXPECT_EQ(series.Points[0].X, 1);
        EXPECT_NEAR(series.Points[0].Y, 0.3, 1e-15);
        EXPECT_EQ(series.Points[1], (Chart_Point{2, 0.5}));
    }
}

TEST(Daily_Series, Flows_Are_1_To_5_8_To_13_And_17_To_22)
{
    std::vector<int> flows;
    for (int k = 0; k <= Last_Output_Variable; ++k) {
        if (Output_Variable_Of(k).Is_Flow())
            flows.push_back(k);
    }
    EXPECT_EQ(flows, (std::vector{1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, 17, 18, 19, 20, 21, 22}));
}

TEST(Daily_Series, A_Missing_Calendar_Gives_No_Points)
{
    EXPECT_TRUE(Make_Daily_Series(Daily_Lines(365), {}, Whole(Precipitation, false, 1)).Points.empty());
}

TEST(Daily_Series, A_File_That_Is_Cut_Short_Gives_What_It_Holds)
{
    EXPECT_EQ(Make_Daily_Series(Daily_Lines(100), Calendar(1), Whole(Precipitation, false, 1)).Points.size(), 100U);
    EXPECT_TRUE(Make_Daily_Series({}, Calendar(1), Whole(Precipitation, false, 1)).Points.empty());
}

TEST(Daily_Series, A_Span_Behind_The_Simulation_Gives_No_Points)
{
    EXPECT_TRUE(
        Make_Daily_Series(Daily_Lines(365), Calendar(1), {Precipitation, false, {1, 2}, {12, 2}}).Points.empty());
}

TEST(Daily_Diagram_Rule, The_Unit_Changes_Positions_Only_And_Resamples_Nothing)
{
    const auto request = Whole(Precipitation, false, 2);
    const auto series = Make_Daily_Series(Daily_Lines(730), Calendar(2), request);

    const auto days = Daily_Diagram(series, request, "Precipitation", X_Unit::Days);
    const auto months = Daily_Diagram(series, request, "Precipitation", X_Unit::Months);
    const auto years = Daily_Diagram(series, request, "Precipitation", X_Unit::Years);

    ASSERT_EQ(years.Lines[0].Points.size(), 730U);
    for (std::size_t i = 0; i < 730; ++i) {
        EXPECT_DOUBLE_EQ(days.Lines[0].Points[i].X, series.Points[i].X);
        EXPECT_DOUBLE_EQ(months.Lines[0].Points[i].X, series.Points[i].X / 30.44);
        EXPECT_DOUBLE_EQ(years.Lines[0].Points[i].X, series.Points[i].X / 365.25);
        EXPECT_EQ(years.Lines[0].Points[i].Y, series.Points[i].Y);
    }
    EXPECT_EQ(days.X.Title, "Day ");
    EXPECT_EQ(months.X.Title, "Month ");
    EXPECT_EQ(years.X.Title, "Year ");
    EXPECT_DOUBLE_EQ(years.X.High, 24 * 30.4375 / 365.25);
}

TEST(Daily_Diagram_Rule, The_Title_Tells_The_Item_And_The_Unit_Of_Rate_Or_Sum)
{
    EXPECT_EQ(
        Daily_Diagram({{}, 30}, Whole(Leaching, false, 1), "Leaching output at 100 cm  for D", X_Unit::Years).Title,
        "Leaching output at 100 cm  for D (kg/ha/d)");
    EXPECT_EQ(Daily_Diagram({{}, 30}, Whole(Volatilisation, true, 1), "Volatilisation for D", X_Unit::Years).Title,
              "Cumulative Volatilisation for D (kg/ha)");
    EXPECT_EQ(Daily_Diagram({{}, 30}, Whole(Soil_Moisture, true, 1), "Soil moisture ", X_Unit::Years).Title,
              "Soil moisture (m\xB3/m\xB3)");
}

TEST(Daily_Diagram_Rule, Without_Points_The_Axis_Goes_To_1)
{
    EXPECT_EQ(Daily_Diagram({{}, 30}, Whole(Leaching, false, 1), "x", X_Unit::Years).Y.High, 1);
}

TEST(Daily_Diagram_Rule, A_Point_Is_Named_By_Its_Date_And_Unit)
{
    const std::vector<Run_Day> calendar = {{1, 30, 4, 2}, {2, 1, 5, 2}};
    const std::vector<Plot_Value> values = {{1, 24, 0.5}, {2, 24, 1.5}};
    const auto series = Make_Daily_Series(values, calendar, {.Variable = Precipitation, .From = {4, 2}, .To = {5, 2}});

    const auto chart =
        Daily_Diagram(series, {.Variable = Precipitation, .From = {4, 2}, .To = {5, 2}}, "x", X_Unit::Days);

    EXPECT_EQ(Value_Text_At(chart, 2.1), "1 May, year 2: 1.5 cm/d");
    EXPECT_EQ(Value_Text_At(Zoomed(chart, 0.5, 2.5), 0.52), "30 April, year 2: 0.5 cm/d");
}

TEST(Daily_Diagram_Rule, An_Axis_Of_Days_Has_No_Tick_Between_Them)
{
    const Daily_Series series{{{1, 5}, {2, 6}, {3, 7}}, 3};

    const auto chart = Daily_Diagram(series, Whole(Precipitation, false, 1), "x", X_Unit::Days);

    for (const auto& tick : Zoomed(chart, 0.5, 3).X.Ticks)
        EXPECT_EQ(tick.At + 0.5, std::round(tick.At + 0.5)) << tick.At;
}

TEST(Daily_Diagram_Rule, Without_Values_It_Says_Why)
{
    EXPECT_EQ(Daily_Diagram(Make_Daily_Series({}, {}, Whole(Leaching, false, 1)), Whole(Leaching, false, 1), "x",
                            X_Unit::Years)
                  .Nothing,
              "The run has no values in this span.");
    EXPECT_NE(Read_Daily_Series("missing/datum.dat", "missing", 1, Whole(Leaching, false, 1)).Nothing.find("datum.dat"),
              std::string::npos);
}

TEST(Daily_Diagram_Rule, Copied_Data_Have_Both_Titles_And_Positions_With_Three_Decimals)
{
    const Daily_Series series{{{365.25 / 3, 0.00012}, {365.25 * 2 / 3, -5}}, 365.25};
    const auto chart = Daily_Diagram(series, Whole(Precipitation, false, 1), "Precipitation", X_Unit::Years);

    EXPECT_EQ(Data_Text(chart), "Year \tPrecipitation (cm/d)\r\n0.333\t0.00012\r\n0.667\t-5\r\n");
}

TEST(Daily_Diagram_Rule, Copied_Data_Of_A_Part_Keep_Their_Positions_In_The_Whole)
{
    const Daily_Series series{{{1, 5}, {20, 6}, {21, 7}}, 30};
    const auto chart = Daily_Diagram(series, Whole(Precipitation, false, 1), "Precipitation", X_Unit::Days);

    EXPECT_EQ(Data_Text(Zoomed(chart, 15.5, 25)), "Day \tPrecipitation (cm/d)\r\n20\t6\r\n21\t7\r\n");
}

} // namespace

} // namespace orvel
