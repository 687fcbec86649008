#include "tables/annual_diagram.h"

#include "tables/leachate_text.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// A table as the period file has it: period p has the concentration first + p / 10.
std::string Table(const std::string& name, const std::string& depth, double first, const std::string& percentile)
{
    std::string text = " \r\n \r\n\tResults for " + name + " in the percolate at " + depth +
                       "\r\n \r\n\t     Period \tPesticide Flux\t   Percolate\tPesticide Conc.\r\n\t         \t     "
                       "(g/ha)\t    (L/m\xB2)\t     (\xB5g/L)  "
                       "\r\n\t------------------------------------------------------------\r\n";
    for (int p = 1; p <= 20; ++p)
        text +=
            "\t" + std::to_string(p) + "   \t0.12345     \t234.500     \t" + std::to_string(first + p / 10.0) + "\r\n";
    return text + "\t------------------------------------------------------------\r\n\tTotal    \t1\t2\t3\r\n\t" +
           percentile + "\r\n";
}

Leachate_Tables Tables_Of(const std::string& bytes)
{
    Leachate_Tables tables;
    auto [titles, set] = Parse_Leachate(bytes);
    tables.Titles = titles;
    tables.Period = set;
    return tables;
}

Leachate_Tables Two_Substances()
{
    const std::string bottom = "the bottom of the simulated soil core", top = "1 m soil depth";
    return Tables_Of("ORVEL engine 4.01\r\nHamburg\r\nD mit \x81\r\nSoil concentrations\r\n" +
                     Table("Parent in the percolate at home", top, 1, "80 Perc.(16/17)\t1\t2\t2.65") +
                     Table("A1", top, 10, "80 Perc.(5/20)\t1\t2\t11.5") +
                     Table("Parent in the percolate at home", bottom, 100, "80 Perc.(1/2)\t1\t2\t100.15") +
                     Table("A1", bottom, 0, "80 Perc.(0/0)\t0.00E+00\t0.00E+00\t0.000"));
}

TEST(Annual_Diagram_Rule, Finds_The_Substances_By_The_Titles_Of_Their_Tables)
{
    EXPECT_EQ(Annual_Substances(Two_Substances()), (std::vector<std::string>{"Parent in the percolate at home", "A1"}));
    EXPECT_TRUE(Annual_Substances({}).empty());
}

TEST(Annual_Diagram_Rule, A_Substance_Without_A_Name_Has_That_Of_Its_Column)
{
    Leachate_Tables tables;
    tables.Period[0] = {{.Label = "Pesticide"}, {.Label = " Metab.A1"}};

    EXPECT_EQ(Annual_Substances(tables), (std::vector<std::string>{"Pesticide", "Metab.A1"}));
}

TEST(Annual_Diagram_Rule, Has_The_Table_Of_A_Substance_At_A_Depth)
{
    const auto chart = Annual_Diagram(Two_Substances(), 1, 0);

    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->Legend,
              (std::vector<std::string>{"ORVEL engine 4.01", "Hamburg", "D mit \xFC", "Soil concentrations"}));
    ASSERT_EQ(chart->Boxes.size(), 20U);
    EXPECT_DOUBLE_EQ(chart->Boxes[0].Y, 100.1);
    EXPECT_DOUBLE_EQ(chart->Boxes[19].Y, 102);
    EXPECT_EQ(chart->Boxes[0].Drawn_In, Colour::Marked);
    EXPECT_EQ(chart->Boxes[1].Drawn_In, Colour::Marked);
    EXPECT_EQ(chart->Boxes[2].Drawn_In, Colour::Series);
    EXPECT_EQ(chart->Lines[0].Points.front().Y, 100.15);
}

TEST(Annual_Diagram_Rule, A_Single_Substance_Has_Both_Depths_And_Never_Runs_Past_The_Tables)
{
    const std::string file = "1\r\n2\r\n3\r\n4\r\n" + Table("D", "1 m soil depth", 1, "80 Perc.(3/4)\t1\t2\t1.35") +
                             Table("D", "the bottom of the simulated soil core", 2, "80 Perc.(3/4)\t1\t2\t2.35");
    const auto tables = Tables_Of(file);

    ASSERT_TRUE(Annual_Diagram(tables, 0, 0));
    ASSERT_TRUE(Annual_Diagram(tables, 1, 0));
    EXPECT_DOUBLE_EQ(Annual_Diagram(tables, 1, 0)->Boxes[0].Y, 2.1);
    EXPECT_FALSE(Annual_Diagram(tables, 0, 1));
    EXPECT_FALSE(Annual_Diagram(tables, 2, 0));
    EXPECT_FALSE(Annual_Diagram(Tables_Of(file.substr(0, file.size() / 2)), 1, 0));
}

TEST(Annual_Diagram_Rule, Draws_A_Box_For_Every_Period_And_Marks_Those_Of_The_Percentile)
{
    const auto chart = *Annual_Diagram(Two_Substances(), 0, 0);

    EXPECT_EQ(chart.Title, "Average Parent in the percolate at home concentration in leachate (1m depth) [\xB5g/L]");
    ASSERT_EQ(chart.Boxes.size(), 20U);
    EXPECT_EQ(chart.Boxes[0], (Chart_Box{Colour::Series, 0.8, 1.2, 1.1, "Period 1"}));
    for (int p = 1; p <= 20; ++p)
        EXPECT_EQ(chart.Boxes[static_cast<std::size_t>(p) - 1].Drawn_In,
                  p == 16 || p == 17 ? Colour::Marked : Colour::Series)
            << p;
    ASSERT_EQ(chart.Lines.size(), 1U);
    EXPECT_EQ(chart.Lines[0].Drawn_In, Colour::Marked);
    EXPECT_EQ(chart.Lines[0].Points, (std::vector<Chart_Point>{{0, 2.65}, {20, 2.65}}));
    EXPECT_EQ(chart.X.Ticks.size(), 20U);
    EXPECT_EQ(chart.X.Ticks.back(), (Chart_Tick{20, Tick_Rank::Big, "20"}));
    EXPECT_EQ(chart.X.Title, "Period");
    EXPECT_EQ(chart.Y.High, 3);
    EXPECT_EQ(chart.Frame.Right, 24);
}

TEST(Annual_Diagram_Rule, The_Soil_Bottom_Has_A_Title_Of_Its_Own)
{
    EXPECT_EQ(Annual_Diagram(Two_Substances(), 1, 1)->Title,
              "Average A1 concentration in leachate (soil bottom) [\xB5g/L]");
}

TEST(Annual_Diagram_Rule, A_Period_With_Concentration_0_Has_A_Box_Of_Height_0_And_The_Axis_Goes_To_1)
{
    auto tables = Two_Substances();
    for (auto& row : tables.Period[1][1].Rows)
        row.Conc = 0;

    const auto chart = *Annual_Diagram(tables, 1, 1);

    EXPECT_EQ(chart.Boxes[4].Y, 0);
    EXPECT_EQ(chart.Y.High, 1);
    for (const auto& box : chart.Boxes)
        EXPECT_EQ(box.Drawn_In, Colour::Series); // no period is marked
}

} // namespace

} // namespace orvel
