#include "files/climate_file.h"
#include "parsed.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// clang-format off
constexpr std::string_view Example =
    "Demo climate \r\n"
    " 0201811.2500000 0.1500000 18.5000   14.2500   6.0000000 78.5000   15230.0   ""      12\r\n"
    " 0301810.00E+00  0.00E+00  -2.5000000-4.75000000.00E+00  100.000   -99999.9  ""      \r\n"
    "\r\n";
// clang-format on

Climate_Table Example_Table()
{
    return {"Demo climate ",
            {{.Cli_Day = "02",
              .Cli_Month = "01",
              .Cli_Year = "81",
              .Cli_Rain = 1.25,
              .Cli_Evap = 0.15,
              .Cli_Temp_14 = 18.5,
              .Cli_Temp_Mean = 14.25,
              .Cli_Temp_Diff = 6,
              .Cli_Rel_Hum = 78.5,
              .Cli_Radiation = 15230,
              .Cli_Hour = "12"},
             {.Cli_Day = "03",
              .Cli_Month = "01",
              .Cli_Year = "81",
              .Cli_Temp_14 = -2.5,
              .Cli_Temp_Mean = -4.75,
              .Cli_Rel_Hum = 100,
              .Cli_Radiation = -99999.9}}};
}

std::string Days(int count)
{
    std::string text = "Title\r\n";
    for (int i = 0; i < count; ++i)
        text += " 010181\r\n";
    return text;
}

} // namespace

TEST(Climate_File, Writes_The_Example_Byte_For_Byte)
{
    EXPECT_EQ(Format_CLI(Example_Table()), Example);
}

TEST(Climate_File, Reads_Fields_By_Position_Even_Where_They_Abut)
{
    const auto table = Parse_CLI(Example);

    ASSERT_EQ(table.Rows.size(), 3U);
    EXPECT_EQ(table.Cli_Title, "Demo climate ");
    EXPECT_EQ(table.Rows[0].Cli_Radiation, 15230);
    EXPECT_EQ(table.Rows[0].Cli_Hour, "      12");
    EXPECT_EQ(table.Rows[1].Cli_Temp_14, -2.5);
    EXPECT_EQ(table.Rows[1].Cli_Temp_Mean, -4.75);
    EXPECT_EQ(table.Rows[1].Cli_Temp_Diff, 0);
    EXPECT_EQ(table.Rows[1].Cli_Radiation, -99999.9);
}

TEST(Climate_File, Reads_Lines_That_End_In_LF_Alone)
{
    EXPECT_EQ(Parse_CLI(Replace_All(std::string(Example), "\r\n", "\n")), Parse_CLI(Example));
}

TEST(Climate_File, Writes_The_Hour_Behind_Six_Blanks_With_Those_It_Already_Has)
{
    const auto again = Format_CLI(Parse_CLI(Example));

    EXPECT_EQ(Line_Of(again, 2),
              " 0201811.2500000 0.1500000 18.5000   14.2500   6.0000000 78.5000   15230.0               12");
}

TEST(Climate_File, Takes_An_Hour_Only_From_A_Line_Longer_Than_78_Characters)
{
    const std::string row = " 020181" + std::string(70, ' ');
    ASSERT_EQ(row.size(), 77U);

    EXPECT_EQ(Parse_CLI("T\r\n" + row + "x\r\n").Rows.at(0).Cli_Hour, "");
    EXPECT_EQ(Parse_CLI("T\r\n" + row + "xy\r\n").Rows.at(0).Cli_Hour, "xy");
}

TEST(Climate_File, A_File_With_Only_A_Title_Gives_An_Empty_Table)
{
    EXPECT_EQ(Parse_CLI("Only a title\r\n"), (Climate_Table{"Only a title", {}}));
    EXPECT_EQ(Parse_CLI("Only a title"), (Climate_Table{"Only a title", {}}));
    EXPECT_EQ(Format_CLI({"Only a title", {}}), "Only a title\r\n\r\n");
}

TEST(Climate_File, Refuses_An_Empty_File)
{
    EXPECT_THROW(Parse_CLI(""), File_Error);
}

TEST(Climate_File, The_Empty_Last_Line_Reads_As_An_Empty_Row_That_The_Next_Save_Drops)
{
    const auto table = Parse_CLI(Example);

    Climate_Row blank{.Cli_Day = "  ", .Cli_Month = "  ", .Cli_Year = "  "};
    for (const auto& column : Climate_Columns)
        blank.*column.Number = std::nullopt;
    EXPECT_EQ(table.Rows.at(2), blank);
    EXPECT_EQ(Split_Lines(Format_CLI(table)).size(), 4U);
}

TEST(Climate_File, A_Short_Line_Is_No_Error_And_Its_Date_Is_Filled_With_Blanks)
{
    const auto table = Parse_CLI("T\r\n 1\r\n 01018\r\n 0101811.5\r\n");

    EXPECT_EQ(table.Rows[0].Cli_Day, "1 ");
    EXPECT_EQ(table.Rows[0].Cli_Month, "  ");
    EXPECT_EQ(table.Rows[1].Cli_Year, "8 ");
    EXPECT_EQ(table.Rows[2].Cli_Rain, 1.5);
    EXPECT_EQ(table.Rows[2].Cli_Evap, std::nullopt);
}

TEST(Climate_File, A_Column_Of_Blanks_Is_No_Number_And_Is_Shown_And_Written_As_Zero)
{
    auto table = Parse_CLI("T\r\n 0101811.5                 18.5      0.0\r\n");

    EXPECT_EQ(table.Rows[0].Cli_Rain, 1.5);
    EXPECT_EQ(table.Rows[0].Cli_Evap, std::nullopt);
    EXPECT_EQ(table.Rows[0].Cli_Temp_Mean, 0);
    EXPECT_EQ(table.Rows[0].Cli_Radiation, std::nullopt);
    EXPECT_EQ(Cell_Text(table.Rows[0], Climate_Columns[1]), "0.00");
    EXPECT_EQ(Line_Of(Format_CLI(table), 2).substr(7, 20), "1.5000000 0.00E+00  ");
    Round_As_Shown(table);
    EXPECT_EQ(table.Rows[0].Cli_Evap, 0);
}

TEST(Climate_File, Leaves_Out_Rows_Whose_Day_Is_Blank_Or_Zero)
{
    Climate_Table table{"T",
                        {{.Cli_Day = "  "},
                         {.Cli_Day = "0 "},
                         {.Cli_Day = "00"},
                         {.Cli_Day = "01", .Cli_Month = "02", .Cli_Year = "03"},
                         {.Cli_Day = ""}}};

    const auto text = Format_CLI(table);

    EXPECT_EQ(Split_Lines(text).size(), 3U);
    EXPECT_EQ(Line_Of(text, 2).substr(0, 17), " 0102030.00E+00  ");
}

TEST(Climate_File, Fills_A_Date_Of_One_Character_So_That_The_Columns_Stand)
{
    EXPECT_EQ(Line_Of(Format_CLI({"T", {{.Cli_Day = "1", .Cli_Month = "234", .Cli_Year = "", .Cli_Rain = 1}}}), 2)
                  .substr(0, 16),
              " 1 23  1.0000000");
}

TEST(Climate_File, Is_Never_Cut_But_Refused_Beyond_Its_Bound)
{
    EXPECT_EQ(Parse_CLI(Days(Most_Climate_Rows)).Rows.size(), 25000U);
    EXPECT_EQ(Parse_CLI(Days(Most_Climate_Rows) + "\r\n").Rows.size(), 25000U);
    EXPECT_THROW(Parse_CLI(Days(Most_Climate_Rows + 1)), File_Error);
}

TEST(Climate_Grid, Shows_Rain_And_Evaporation_With_Two_Decimals_And_The_Rest_With_One)
{
    const Climate_Row row{.Cli_Rain = 1.255,
                          .Cli_Evap = 0.005,
                          .Cli_Temp_14 = 18.25,
                          .Cli_Temp_Mean = -0.05,
                          .Cli_Temp_Diff = 6,
                          .Cli_Rel_Hum = 99.96};

    EXPECT_EQ(Cell_Text(row, Climate_Columns[0]), "1.26");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[1]), "0.01");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[2]), "18.3");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[3]), "-0.1");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[4]), "6.0");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[5]), "100.0");
    EXPECT_EQ(Cell_Text(row, Climate_Columns[6]), "0.0");
}

TEST(Climate_Grid, Rounds_The_Whole_Table_As_It_Is_Shown)
{
    Climate_Table table{"T", {{.Cli_Rain = 1.255, .Cli_Temp_14 = 18.25, .Cli_Radiation = 15230.04}}};

    Round_As_Shown(table);

    EXPECT_EQ(table, (Climate_Table{"T", {{.Cli_Rain = 1.26, .Cli_Temp_14 = 18.3, .Cli_Radiation = 15230}}}));
}

} // namespace orvel
