#include "scenario/climate_grid.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::size_t Day = 0, Month = 1, Year = 2, Hour = 3, Rain = 4, Temp_Mean = 7, Radiation = 10;

Climate_Table Two_Days()
{
    return {"Demo",
            {{.Cli_Day = "01",
              .Cli_Month = "02",
              .Cli_Year = "81",
              .Cli_Rain = 1.256,
              .Cli_Temp_Mean = -0.04,
              .Cli_Radiation = 12345.67,
              .Cli_Hour = "12"},
             {.Cli_Day = "02", .Cli_Month = "02", .Cli_Year = "81"}}};
}

TEST(Climate_Editor, Rain_Shows_Two_Decimals_And_The_Other_Numbers_One)
{
    const Climate_Grid grid(Two_Days());

    EXPECT_EQ(grid.Cell(0, Day), "01");
    EXPECT_EQ(grid.Cell(0, Month), "02");
    EXPECT_EQ(grid.Cell(0, Year), "81");
    EXPECT_EQ(grid.Cell(0, Hour), "12");
    EXPECT_EQ(grid.Cell(0, Rain), "1.26");
    EXPECT_EQ(grid.Cell(0, Rain + 1), "0.00");
    EXPECT_EQ(grid.Cell(0, Temp_Mean), "0.0"); // no negative zero
    EXPECT_EQ(grid.Cell(0, Radiation), "12345.7");
}

TEST(Climate_Editor, The_Columns_Stand_In_The_Order_Of_The_Grid)
{
    EXPECT_EQ(Climate_Grid::Columns, 11U);
    EXPECT_EQ(Climate_Heading(Day), "Day");
    EXPECT_EQ(Climate_Heading(Hour), "hour");
    EXPECT_EQ(Climate_Heading(Rain), "Rainfall\n[cm]");
    EXPECT_EQ(Climate_Heading(Radiation), "Radiation\n[kJ/m\xB2]");
}

TEST(Climate_Editor, A_Row_Without_A_Day_Is_Not_Shown)
{
    auto table = Two_Days();
    table.Rows.insert(table.Rows.begin(), {.Cli_Day = "  "});
    table.Rows.push_back({.Cli_Day = "00"}); // a new row, to be filled in

    const Climate_Grid grid(table);

    ASSERT_EQ(grid.Rows(), 3U);
    EXPECT_EQ(grid.Cell(0, Day), "01");
    EXPECT_EQ(grid.Cell(2, Day), "00");
}

TEST(Climate_Editor, A_Short_Line_And_Text_In_A_Number_Column_Are_Zeros)
{
    const Climate_Grid grid(Parse_CLI("title\r\n 010281\r\n 020281abc       1.5\r\n"));

    ASSERT_EQ(grid.Rows(), 2U);
    EXPECT_EQ(grid.Cell(0, Rain), "0.00");
    EXPECT_EQ(grid.Cell(0, Hour), "");
    EXPECT_EQ(grid.Cell(1, Rain), "0.00");
    EXPECT_EQ(grid.Cell(1, Rain + 1), "1.50");
}

TEST(Climate_Editor, An_Unedited_Number_Is_Saved_As_It_Is_Shown_And_An_Edited_One_As_It_Was_Typed)
{
    Session session;
    Climate_Grid grid(Two_Days());
    grid.Set_Cell(1, Rain, "2.125");

    Take_Over_Climate(session, grid);

    EXPECT_EQ(session.Climate.Cli_Title, "Demo");
    EXPECT_EQ(session.Climate.Rows[0].Cli_Rain, 1.26);
    EXPECT_EQ(session.Climate.Rows[0].Cli_Radiation, 12345.7);
    EXPECT_EQ(session.Climate.Rows[1].Cli_Rain, 2.125);
}

TEST(Climate_Editor, A_Slash_Cuts_The_Number_Where_It_Stands)
{
    Climate_Grid grid(Two_Days());
    grid.Set_Cell(1, Rain, "1/2");

    EXPECT_EQ(grid.Table().Rows[1].Cli_Rain, 1);
}

TEST(Climate_Editor, A_Date_Is_Saved_With_Two_Characters)
{
    Climate_Grid grid(Two_Days());
    grid.Set_Cell(0, Day, "7");
    grid.Set_Cell(0, Month, "123");
    grid.Set_Cell(1, Day, "");

    const auto table = grid.Table();

    EXPECT_EQ(table.Rows[0].Cli_Day, "07");
    EXPECT_EQ(table.Rows[0].Cli_Month, "12");
    EXPECT_EQ(Format_CLI(table),
              "Demo\r\n"
              " 0712811.2600000 0.00E+00  0.00E+00  0.00E+00  0.00E+00  0.00E+00  12345.7         12\r\n"
              "\r\n"); // the row without a day is left out
}

TEST(Climate_Editor, The_Title_Can_Be_Edited)
{
    Climate_Grid grid(Two_Days());

    grid.Set_Title("Hamburg");

    EXPECT_EQ(grid.Table().Cli_Title, "Hamburg");
}

TEST(Climate_Editor, A_Column_Gives_Its_Numbers_As_They_Are_Shown)
{
    Climate_Grid grid(Two_Days());
    grid.Set_Cell(1, Rain, "3.5x");

    EXPECT_EQ(grid.Values(0), (std::vector{1.26, 3.5}));
}

TEST(Climate_Editor, A_Hundred_Thousand_Days_Are_Shown_And_Saved)
{
    Climate_Table table = Two_Days();
    table.Rows.resize(100000, table.Rows[0]);
    Climate_Grid grid(table);
    grid.Set_Cell(99999, Rain, "9");

    const auto saved = grid.Table();

    ASSERT_EQ(saved.Rows.size(), 100000U);
    EXPECT_EQ(grid.Cell(99998, Rain), "1.26");
    EXPECT_EQ(saved.Rows[99999].Cli_Rain, 9);
    EXPECT_EQ(saved.Rows[99998].Cli_Rain, 1.26);
}

} // namespace

} // namespace orvel
