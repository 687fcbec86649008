#include "ui/grid_block.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

const std::vector<Number_Column> Columns = {
    {"Horizon Number", false}, {"Thickness"}, {"pH"}, {"Kind", true, {"sand", "Clay"}}};

Pasted_Block Read(std::string_view text, std::size_t rows = 2, std::size_t first_column = 1,
                  const Grid_Rule& rule = Number_Grid_Rule)
{
    return Read_Block(text, rows, Columns, first_column, rule);
}

TEST(Grid_Block, Is_Read_With_Either_Line_End_And_Blanks_Around_Its_Cells)
{
    const Grid_Block expected = {{"30", "7.5"}, {"", "6"}};

    EXPECT_EQ(Read(" 30\t7.5 \r\n\t6\r\n").Cells, expected);
    EXPECT_EQ(Read("30\t7.5\n\t6").Cells, expected);
}

TEST(Grid_Block, Takes_The_Numbers_Of_A_Spreadsheet_With_Signs_And_Exponents)
{
    EXPECT_EQ(Read("1.2E+05\t-3").Cells, (Grid_Block{{"1.2E+05", "-3"}}));
}

TEST(Grid_Block, A_Comma_Is_A_Point)
{
    EXPECT_EQ(Read("7,5", 1, 1, Climate_Grid_Rule).Cells, (Grid_Block{{"7.5"}}));
    EXPECT_EQ(Read("7,5").Cells, (Grid_Block{{"7.5"}}));
    EXPECT_EQ(Read("1.000,5").Refused->Text, "\"1.000,5\" cannot stand in this column. Nothing was pasted.");
}

TEST(Grid_Cell, That_Is_No_Number_Or_Too_Large_Has_A_Hint)
{
    EXPECT_EQ(Cell_Hint("0.90.85", {"Exponent"}), "\"0.90.85\" is read as 0.9.");
    EXPECT_EQ(Cell_Hint("1E300", {"Thickness"}), "\"1E300\" is too large a number.");
    EXPECT_EQ(Cell_Hint("7.5", {"pH"}), std::nullopt);
    EXPECT_EQ(Cell_Hint(" ", {"pH"}), std::nullopt);
    EXPECT_EQ(Cell_Hint("Horizon 1", {"Horizon", false}), std::nullopt);
}

TEST(Grid_Cell, That_Cannot_Be_Read_Is_Told_With_Its_Row_And_Heading)
{
    EXPECT_EQ(Unread_Cell("Horizon 2", {"Thickness      [cm]"}, "30-1"),
              (Message{"Data Check", "Horizon 2, Thickness [cm]: \"30-1\" cannot be read as a number."}));
}

TEST(Grid_Block, A_Text_That_Is_A_Number_Only_In_Part_Is_Refused_With_The_Whole_Block)
{
    const auto date = Read("30\t2026-11-21");

    EXPECT_EQ(date.Refused, (Message{"Data Check", "\"2026-11-21\" cannot stand in this column. Nothing was pasted."}));
    EXPECT_EQ(date.Cells, Grid_Block{});
}

TEST(Grid_Block, That_Does_Not_Fit_Is_Refused)
{
    const std::string fits_not = "The block does not fit into the grid from this cell on. Nothing was pasted.";

    EXPECT_EQ(Read("1\n2\n3").Refused->Text, fits_not);
    EXPECT_EQ(Read("1\t2\tsand\t3").Refused->Text, fits_not);
    EXPECT_FALSE(Read("1\n2\n").Refused); // the line end of the last row begins no other
}

TEST(Grid_Block, Only_A_Choice_Of_Its_Column_Is_Taken_In_Any_Case)
{
    EXPECT_EQ(Read("clay", 1, 3).Cells, (Grid_Block{{"Clay"}}));
    EXPECT_TRUE(Read("silt", 1, 3).Refused);
}

TEST(Grid_Block, What_Lies_Over_Titles_Is_Not_Looked_At)
{
    EXPECT_EQ(Read("Horizon 1\t30", 1, 0).Cells, (Grid_Block{{"Horizon 1", "30"}}));
}

TEST(Grid_Block, Is_Printed_With_Tabs_And_A_Line_End_Behind_Each_Row)
{
    EXPECT_EQ(Print_Block({{"1", ""}, {"2", "3"}}), "1\t\n2\t3\n");
}

TEST(Grid_Heading, Ends_A_Line_At_Wide_Blanks_And_Before_A_Unit)
{
    EXPECT_EQ(Heading_Lines("Thickness      [cm]"), "Thickness\n[cm]");
    EXPECT_EQ(Heading_Lines("Wilting        Point (m\xB3/m\xB3)"), "Wilting\nPoint\n(m\xB3/m\xB3)");
    EXPECT_EQ(Heading_Lines(" pH-Value          "), "pH-Value");
    EXPECT_EQ(Heading_Lines("Rainfall\n[cm]"), "Rainfall\n[cm]");
}

} // namespace

} // namespace orvel
