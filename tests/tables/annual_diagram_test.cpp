#include "tables/annual_diagram.h"

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

std::string Period_File()
{
    const std::string bottom = "the bottom of the simulated soil core", top = "1 m soil depth";
    return "ORVEL engine 4.01\r\nHamburg\r\nD mit \x81\r\nSoil concentrations\r\n" +
           Table("Parent in the percolate at home", top, 1, "80 Perc.(16/17)\t1\t2\t2.65") +
           Table("A1", top, 10, "80 Perc.(5/20)\t1\t2\t11.5") +
           Table("Parent in the percolate at home", bottom, 100, "80 Perc.(1/2)\t1\t2\t100.15") +
           Table("A1", bottom, 0, "80 Perc.(0/0)\t0.00E+00\t0.00E+00\t0.000");
}

TEST(Annual_Diagram_Rule, Finds_The_Substances_By_The_Titles_Of_Their_Tables)
{
    EXPECT_EQ(Period_Substances(Period_File()), (std::vector<std::string>{"Parent in the percolate at home", "A1"}));
    EXPECT_TRUE(Period_Substances("").empty());
}

TEST(Annual_Diagram_Rule, Reads_The_Table_Of_A_Substance_At_A_Depth)
{
    const auto table = Read_Period_Table(Period_File(), 1, 0);

    ASSERT_TRUE(table);
    EXPECT_EQ(table->Head,
              (std::vector<std::string>{"ORVEL engine 4.01", "Hamburg", "D mit \xFC", "Soil concentrations"}));
    ASSERT_EQ(table->Concentrations.size(), 20U);
    EXPECT_DOUBLE_EQ(table->Concentrations[0], 100.1);
    EXPECT_DOUBLE_EQ(table->Concentrations[19], 102);
    EXPECT_EQ(table->Period_A, 1);
    EXPECT_EQ(table->Period_B, 2);
    EXPECT_EQ(table->Percentile, 100.15);
}

TEST(Annual_Diagram_Rule, A_Single_Substance_Has_Both_Depths_And_Never_Runs_Past_The_File)
{
    const std::string file = "1\r\n2\r\n3\r\n4\r\n" + Table("D", "1 m soil depth", 1, "80 Perc.(3/4)\t1\t2\t1.35") +
                             Table("D", "the bottom of the simulated soil core", 2, "80 Perc.(3/4)\t1\t2\t2.35");

    ASSERT_TRUE(Read_Period_Table(file, 0, 0));
    ASSERT_TRUE(Read_Period_Table(file, 1, 0));
    EXPECT_DOUBLE_EQ(Read_Period_Table(file, 1, 0)->Concentrations[0], 2.1);
    EXPECT_FALSE(Read_Period_Table(file, 0, 1));
    EXPECT_FALSE(Read_Period_Table(file, 2, 0));
    EXPECT_FALSE(Read_Period_Table(file.substr(0, file.size() / 2), 0, 0));
}

TEST(Annual_Diagram_Rule, Draws_A_Box_For_Every_Period_And_Marks_Those_Of_The_Percentile)
{
    const auto chart = Annual_Diagram(*Read_Period_Table(Period_File(), 0, 0), 0, "Parent");

    EXPECT_EQ(chart.Title, "Average Parent concentration in leachate (1m depth) [\xB5g/L]");
    ASSERT_EQ(chart.Boxes.size(), 20U);
    EXPECT_EQ(chart.Boxes[0], (Chart_Box{Colour::Series, 0.8, 1.2, 1.1}));
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
    EXPECT_EQ(Annual_Diagram(*Read_Period_Table(Period_File(), 1, 1), 1, "A1").Title,
              "Average A1 concentration in leachate (soil bottom) [\xB5g/L]");
}

TEST(Annual_Diagram_Rule, A_Period_With_Concentration_0_Has_A_Box_Of_Height_0_And_The_Axis_Goes_To_1)
{
    auto table = *Read_Period_Table(Period_File(), 1, 1);
    std::fill(table.Concentrations.begin(), table.Concentrations.end(), 0);

    const auto chart = Annual_Diagram(table, 1, "A1");

    EXPECT_EQ(chart.Boxes[4].Y, 0);
    EXPECT_EQ(chart.Y.High, 1);
    for (const auto& box : chart.Boxes)
        EXPECT_EQ(box.Drawn_In, Colour::Series); // no period is marked
}

} // namespace

} // namespace orvel
