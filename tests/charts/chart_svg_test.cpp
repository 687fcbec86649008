#include "charts/chart_svg.h"

#include "charts/scale.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// The plane is 760 wide and 370 high below the row of the key, which takes 30.
Chart Two_Boxes()
{
    Chart chart;
    chart.Title = "A & B";
    chart.Frame = {.Left = 0, .Right = 10, .Bottom = 0, .Top = 10};
    chart.X = {.Title = "Location", .High = 10, .Ticks = {{5, Tick_Rank::Big, "H"}}};
    chart.Y = {.High = 10};
    chart.Boxes = {{Colour::Series, 1, 2, 5}, {Colour::Marked, 3, 4, 10}};
    chart.Key = {{Colour::Marked, "above 0.1 \xB5g/L"}};
    return chart;
}

} // namespace

TEST(Chart_As_Svg, Boxes_Stand_On_The_Axis_In_The_Colours_Of_Their_Roles)
{
    const std::string svg = Chart_Svg(Two_Boxes());

    EXPECT_TRUE(Has(svg, "<rect x=\"76.00\" y=\"215.00\" width=\"76.00\" height=\"185.00\" fill=\"#2f6fb5\"/>")) << svg;
    EXPECT_TRUE(Has(svg, "<rect x=\"228.00\" y=\"30.00\" width=\"76.00\" height=\"370.00\" fill=\"#c23b1e\"/>")) << svg;
}

TEST(Chart_As_Svg, Texts_Have_The_Colour_Of_The_Page_And_Are_No_Markup)
{
    const std::string svg = Chart_Svg(Two_Boxes());

    EXPECT_TRUE(Has(svg, "<title>A &amp; B</title>"));
    EXPECT_TRUE(Has(svg, " text-anchor=\"middle\" fill=\"currentColor\" font-size=\"13\">H</text>"));
    EXPECT_TRUE(Has(svg, ">above 0.1 \xC2\xB5g/L</text>"));
    EXPECT_FALSE(Has(svg, "black"));
}

TEST(Chart_As_Svg, A_Chart_Without_Any_Extent_Has_Its_Title_Alone)
{
    EXPECT_TRUE(
        Chart_Svg({.Title = "T"}).ends_with("<title>T</title>\n<desc>There is nothing to see.</desc>\n</svg>\n"));
}

TEST(Chart_As_Svg, A_Line_Joins_Its_Points)
{
    Chart chart = Two_Boxes();
    chart.Lines = {{Colour::Series, {{0, 0}, {10, 10}}}};

    EXPECT_TRUE(Has(Chart_Svg(chart), "points=\"0.00,400.00 760.00,30.00 \""));
}

} // namespace orvel
