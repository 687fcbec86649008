#include "plans/plan_table.h"

#include "core/error.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

std::vector<std::vector<std::string>> Rows_Of(std::string_view text)
{
    Plan_Reader plan(Source_Of(text));
    std::vector<std::vector<std::string>> rows;
    for (Plan_Row row; plan.Next(row);)
        rows.push_back(row.Cells);
    return rows;
}

// What is told of the first fault of a plan.
std::string Told_Of(std::string_view text)
try {
    Rows_Of(text);
    return "";
} catch (const File_Error& error) {
    return error.what();
}

constexpr std::string_view Head = "id,mode,pesticide,crop,location";
std::string Plan(std::string_view rows, std::string_view more = "")
{
    return std::string(Head) + std::string(more) + "\n" + std::string(rows);
}

using Cells = std::vector<std::vector<std::string>>;

} // namespace

TEST(Plan_Table, A_Row_Is_Read_By_Comma_Semicolon_And_Tab)
{
    const Cells expected = {{"a", "focus", "d.psm", "Maize", "Hamburg (H)"}};

    EXPECT_EQ(Rows_Of("id,mode,pesticide,crop,location\na,focus,d.psm,Maize,Hamburg (H)\n"), expected);
    EXPECT_EQ(Rows_Of("id;mode;pesticide;crop;location\na;focus;d.psm;Maize;Hamburg (H)\n"), expected);
    EXPECT_EQ(Rows_Of("id\tmode\tpesticide\tcrop\tlocation\na\tfocus\td.psm\tMaize\tHamburg (H)"), expected);
}

TEST(Plan_Table, A_Byte_Order_Mark_Ends_Of_Lines_Blanks_And_Empty_Rows_Change_Nothing)
{
    EXPECT_EQ(Rows_Of("\xEF\xBB\xBFid,mode,pesticide,crop,location,,\r\n\r\n a , focus,d.psm,Maize,X,,\r\n,,,,,,\r\n"),
              (Cells{{"a", "focus", "d.psm", "Maize", "X"}}));
}

TEST(Plan_Table, A_Quoted_Cell_Holds_Separators_Quotes_And_Line_Ends)
{
    EXPECT_EQ(Rows_Of(Plan("a,focus,d.psm,Maize,\"Thiva (T), irrigated\",\"say \"\"so\"\",\ntwice\"\n", ",#why")),
              (Cells{{"a", "focus", "d.psm", "Maize", "Thiva (T), irrigated", "say \"so\",\ntwice"}}));
}

TEST(Plan_Table, A_Line_Behind_A_Cell_Of_Two_Lines_Has_The_Number_That_An_Editor_Shows)
{
    EXPECT_EQ(Told_Of(Plan("a,focus,d.psm,Maize,X,\"one\ntwo\"\nb,focus\n", ",#why")),
              "Line 4, column 3: The row ends before the column 'pesticide'.");
}

TEST(Plan_Table, Columns_Are_Fields_Labels_And_Names)
{
    const std::string text = Plan("a,focus,d.psm,Maize,X,1.5,52,high\n", ",psm.Koc[1],sze.SZE_Latitude,#note");
    Plan_Reader plan(Source_Of(text));
    Plan_Row row;
    ASSERT_TRUE(plan.Next(row));

    EXPECT_EQ(plan.Columns().All[5].Field, "Koc[1]");
    EXPECT_EQ(plan.Columns().All[6].Field, "SZE_Latitude");
    EXPECT_EQ(plan.Columns().All[7].Kind, Plan_Column_Kind::Label);
    EXPECT_EQ(plan.Cell(row, Plan_Column_Kind::Location), "X");
    EXPECT_EQ(row.Line, 2);
    EXPECT_EQ(row.Number, 1U);
}

TEST(Plan_Table, Wrong_Columns_Are_Told_With_Their_Place)
{
    EXPECT_EQ(Told_Of(Plan("", ",colour")),
              "Line 1, column 6: There is no column 'colour': a label begins with #, a field to replace with psm. or "
              "sze.");
    EXPECT_EQ(Told_Of(Plan("", ",crop")), "Line 1, column 6: The column 'crop' is there twice.");
    EXPECT_EQ(Told_Of(Plan("", ",years")), "Line 1, column 6: The column 'years' does not go with 'mode'.");
    EXPECT_EQ(Told_Of(Plan("", ",,#x")), "Line 1, column 6: The column has no name.");
    EXPECT_EQ(Told_Of(Plan("", ",psm.Coc[1]")), "Line 1, column 6: There is no field Coc[1].");
    EXPECT_EQ(Told_Of(Plan("", ",psm.Koc")), "Line 1, column 6: There is no field Koc.");
    EXPECT_EQ(Told_Of(Plan("", ",psm.Koc[10]")), "Line 1, column 6: There is no field Koc[10].");
    EXPECT_EQ(Told_Of(Plan("", ",sze.Horizons[0].SZE_Hor_Koc")),
              "Line 1, column 6: There is no field Horizons[0].SZE_Hor_Koc.");
    EXPECT_EQ(Told_Of(Plan("", ",psm.N_Horizons")),
              "Line 1, column 6: The field N_Horizons follows from others and cannot be replaced.");
    EXPECT_EQ(Told_Of("id,pesticide,scenario,climate\n"),
              "Line 1: The column 'years' is missing: a plan has id, and mode, pesticide, crop, location or pesticide, "
              "scenario, climate, years.");
    EXPECT_EQ(Told_Of(""), "The plan is empty.");
}

TEST(Plan_Table, Wrong_Rows_Are_Told_With_Their_Place)
{
    EXPECT_EQ(Told_Of(Plan("a,focus,d.psm,Maize,X,0,5\n", ",psm.Koc[1]")),
              "Line 2, column 7: There is no column for '5'.");
    EXPECT_EQ(Told_Of(Plan("a,focus,,Maize,X\n")), "Line 2, column 3: The cell of 'pesticide' is empty.");
    EXPECT_EQ(Told_Of(Plan("a,focus,\"d\"psm,Maize,X\n")), "Line 2, column 3: There is text behind a closing quote.");
    EXPECT_EQ(Told_Of(Plan("a,focus,\"d.psm,Maize,X\n")), "Line 2: A quote is opened and never closed.");
    EXPECT_EQ(Told_Of(Plan("a,focus,d\xFC.psm,Maize,X\n")), "Line 2: The text is not UTF-8.");
    EXPECT_EQ(Told_Of("\xFF\xFEi\0d\0"), "Line 1: The text is not UTF-8.");
}

TEST(Plan_Table, Reading_Goes_On_Behind_A_Wrong_Row)
{
    const std::string text = Plan("a,focus\nb,focus,d.psm,Maize,X\n");
    Plan_Reader plan(Source_Of(text));
    Plan_Row row;

    EXPECT_THROW(plan.Next(row), File_Error);
    ASSERT_TRUE(plan.Next(row));
    EXPECT_EQ(row.Number, 2U);
    EXPECT_EQ(row.Line, 3);
    EXPECT_FALSE(plan.Next(row));
}

TEST(Plan_Table, A_Row_Is_Whole_However_The_Bytes_Arrive)
{
    const std::string text = Plan("a,focus,d.psm,Maize,\"T \"\"x\"\"\"\n");
    std::size_t at = 0;
    Plan_Reader plan(
        [&](char* to, std::size_t) { return text.copy(to, 1, at++ < text.size() ? at - 1 : text.size()); });
    Plan_Row row;

    ASSERT_TRUE(plan.Next(row));
    EXPECT_EQ(row.Cells.back(), "T \"x\"");
}

TEST(Plan_Ids_Test, An_Id_Is_There_Once_However_Long)
{
    Plan_Ids ids;
    const std::string very_long(100, 'x');

    EXPECT_TRUE(ids.Add("a"));
    EXPECT_FALSE(ids.Add("a"));
    EXPECT_TRUE(ids.Add(very_long + "1"));
    EXPECT_TRUE(ids.Add(very_long + "2"));
    EXPECT_FALSE(ids.Add(very_long + "1"));
}

} // namespace orvel
