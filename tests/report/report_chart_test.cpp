#include "report/report_chart.h"

#include "report/overview_chart.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Summary_Row Row(std::size_t location, double conc)
{
    Summary_Row row;
    row.Location = location;
    row.P80.Conc = conc;
    return row;
}

Summary Two_Locations(double first, double second, double highest)
{
    Summary report;
    report.Location_Short = {"H", "T"};
    report.Substances = {{"Results for Demoxyl", {Row(0, first), Row(1, second)}, highest}};
    return report;
}

} // namespace

TEST(Report_Chart_Rule, A_Value_Of_The_Limit_Has_The_First_Colour_And_One_Above_It_The_Second)
{
    const Chart chart = Report_Chart(Two_Locations(0.1, 0.101, 0.101), 0);

    EXPECT_EQ(chart.Title, "80th Percentile Conc. of Demoxyl in leachate [\xB5g/L]");
    EXPECT_EQ(chart.X.Title, "Location");
    EXPECT_EQ(chart.Boxes, (std::vector<Chart_Box>{{Colour::Series, 0.8, 1.2, 0.1, "", "0.1"},
                                                   {Colour::Marked, 1.8, 2.2, 0.101, "", "0.101"}}));
    ASSERT_EQ(chart.Lines.size(), 1U);
    EXPECT_EQ(chart.Lines[0].Points[1].Y, 0.1);
    EXPECT_EQ(chart.Lines[0].Name, "limit: 0.1 \xB5g/L");
    EXPECT_EQ(chart.X.Ticks, (std::vector<Chart_Tick>{{1, Tick_Rank::Big, "H"}, {2, Tick_Rank::Big, "T"}}));
    EXPECT_EQ(chart.Y.High, 0.2);
}

TEST(Report_Chart_Rule, The_Window_Is_An_Eighth_Of_The_Axes_Below_And_A_Fifth_Above)
{
    const Chart chart = Report_Chart(Two_Locations(3, 4, 4), 0);

    EXPECT_EQ(chart.X.High, 2);
    EXPECT_EQ(chart.Y.High, 4);
    EXPECT_DOUBLE_EQ(chart.Frame.Left, -0.25);
    EXPECT_DOUBLE_EQ(chart.Frame.Right, 2.4);
    EXPECT_DOUBLE_EQ(chart.Frame.Bottom, -0.5);
    EXPECT_DOUBLE_EQ(chart.Frame.Top, 4.8);
}

TEST(Report_Chart_Rule, The_Limit_Is_Not_Drawn_Far_Above_The_Bars)
{
    EXPECT_TRUE(Report_Chart(Two_Locations(0.001, 0.002, 0.002), 0).Lines.empty());
}

TEST(Report_Chart_Rule, Without_Any_Concentration_The_Diagram_Is_One_High_And_Its_Boxes_Are_Flat)
{
    const Chart chart = Report_Chart(Two_Locations(0, 0, 0), 0);

    EXPECT_EQ(chart.Y.High, 1);
    for (const Chart_Box& box : chart.Boxes)
        EXPECT_EQ(box.Y, 0);
}

TEST(Report_Chart_Rule, A_Substance_That_The_Report_Lacks_Gives_An_Empty_Chart)
{
    EXPECT_TRUE(Report_Chart(Two_Locations(1, 2, 2), 1).Boxes.empty());
    EXPECT_TRUE(Report_Chart({}, 0).Boxes.empty());
}

TEST(Rank_Chart, The_Two_Years_Of_The_Percentile_Have_Its_Ranks_Where_Others_Are_Printed_Alike)
{
    Location_Values values{.Location = "Hamburg (H)"};
    for (int year = 0; year < 20; ++year)
        values.Years.push_back(year < 11 ? 0.001 * year : 0.5); // ranks 12 to 20 are printed alike
    values.Year_A = 6 + 13;
    values.Year_B = 6 + 20;

    const auto chart = Rank_Chart("A", values);

    std::vector<std::pair<double, std::string>> marked;
    for (const auto& dot : chart.Dots) {
        if (dot.Marked)
            marked.emplace_back(dot.X, dot.Name);
    }
    EXPECT_EQ(marked, (std::vector<std::pair<double, std::string>>{{16, "Rank 16, year 26, makes the percentile"},
                                                                   {17, "Rank 17, year 19, makes the percentile"}}));
}

} // namespace orvel
