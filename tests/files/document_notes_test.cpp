#include "files/document_notes.h"

#include "core/error.h"
#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

constexpr std::string_view Example = "{\n"
                                     "  \"schema\": \"orvel-notes 1\",\n"
                                     "  \"fields\": {\n"
                                     "    \"Koc[1]\": {\n"
                                     "      \"source\": \"study 12, p. 4\",\n"
                                     "      \"checked_by\": \"M\u00FCller\",\n"
                                     "      \"date\": \"2026-11-22\",\n"
                                     "      \"page\": 4\n"
                                     "    }\n"
                                     "  },\n"
                                     "  \"answers\": [\n"
                                     "    {\n"
                                     "      \"rule\": \"P1.1\",\n"
                                     "      \"field\": \"Plant_Uptake[1]\",\n"
                                     "      \"value\": \"0.5\",\n"
                                     "      \"text\": \"kept because it was measured\",\n"
                                     "      \"list\": [true, null]\n"
                                     "    }\n"
                                     "  ],\n"
                                     "  \"other \u0107\": {\n"
                                     "    \"a\": \"\u0107\"\n"
                                     "  }\n"
                                     "}\n";

std::string Refusal_Of(std::string_view bytes)
{
    try {
        Parse_Notes(bytes);
        return {};
    } catch (const File_Error& error) {
        return error.what();
    }
}

} // namespace

TEST(Document_Notes, Of_Somebody_Else_Keep_What_One_User_Did_Not_Change)
{
    Document_Notes before;
    for (const char* field : {"Koc[1]", "Molmass[1]", "Henry[0]"})
        Set_Note(before, field, {.Source = "old"});
    Set_Answer(before, {.Rule = "S1", .Field = "Koc[1]", .Value = "1", .Text = "kept"});
    auto mine = before, others = before;
    Set_Note(mine, "Koc[1]", {.Source = "mine"});
    Set_Note(mine, "Henry[0]", {});
    Set_Answer(mine, {.Rule = "S1", .Field = "Koc[1]"});
    Set_Answer(mine, {.Rule = "S2", .Field = "Koc[1]", .Value = "1", .Text = "mine"});
    Set_Note(others, "Koc[1]", {.Source = "theirs"});
    Set_Note(others, "Molmass[1]", {.Source = "theirs"});

    const auto all = With_Changes(others, before, mine);

    EXPECT_EQ(Note_Of(all, "Koc[1]")->Source, "mine");
    EXPECT_EQ(Note_Of(all, "Molmass[1]")->Source, "theirs");
    EXPECT_EQ(Note_Of(all, "Henry[0]"), nullptr);
    EXPECT_EQ(Answer_Of(all, "S1", "Koc[1]"), nullptr);
    EXPECT_EQ(Answer_Of(all, "S2", "Koc[1]")->Text, "mine");
}

TEST(Document_Notes, Are_Read_And_Written_Again_With_The_Members_Of_Others)
{
    const auto notes = Parse_Notes(Example);

    ASSERT_NE(Note_Of(notes, "Koc[1]"), nullptr);
    EXPECT_EQ(Note_Of(notes, "Koc[1]")->Source, "study 12, p. 4");
    EXPECT_EQ(Note_Of(notes, "Koc[1]")->Checked_By, "M\xFCller");
    EXPECT_EQ(Note_Of(notes, "Koc[2]"), nullptr);
    ASSERT_NE(Answer_Of(notes, "P1.1", "Plant_Uptake[1]"), nullptr);
    EXPECT_EQ(Answer_Of(notes, "P1.1", "Plant_Uptake[1]")->Text, "kept because it was measured");
    EXPECT_EQ(Answer_Of(notes, "P1.1", "Plant_Uptake[2]"), nullptr);
    EXPECT_EQ(Format_Notes(notes), Example);
}

TEST(Document_Notes, A_Damaged_File_Is_Told_With_Line_And_Column)
{
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\"}"), "");
    EXPECT_EQ(Refusal_Of(""), "Line 1: This is not JSON.");
    EXPECT_EQ(Refusal_Of("{}"), "Line 1, column 1: The member \"schema\" is missing.");
    EXPECT_EQ(Refusal_Of("{\"schema\":\n \"orvel-notes 2\"}"),
              "Line 2, column 2: The notes are of another version: \"orvel-notes 2\", not \"orvel-notes 1\".");
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\",\n \"fields\": []}"),
              "Line 2, column 12: It is not an object.");
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\", \"fields\": {\"Koc[1]\":\n{\"source\": 3}}}"),
              "Line 2, column 12: It is not a text.");
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\", \"fields\": {\"Koc[1]\":\n{\"source\": \"\u0107\"}}}"),
              "Line 2, column 12: The text holds a character that no document can hold.");
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\", \"answers\": [\n{\"rule\": \"P1\", \"field\": \"Koc[1]\"}]}"),
              "Line 2, column 1: An answer needs the members \"rule\", \"field\" and \"text\".");
    const std::string answer = "{\"rule\": \"P1\", \"field\": \"Koc[1]\", \"text\": \"x\"}";
    EXPECT_EQ(Refusal_Of("{\"schema\": \"orvel-notes 1\", \"answers\": [" + answer + ",\n" + answer + "]}"),
              "Line 2, column 1: The rule P1 is answered twice for Koc[1].");
}

TEST(Document_Notes, An_Empty_Note_Or_Answer_Takes_The_Old_One_Away)
{
    Document_Notes notes;
    Set_Note(notes, "Koc[1]", {.Source = "a"});
    Set_Note(notes, "Koc[1]", {.Source = "b"});
    Set_Answer(notes, {.Rule = "P1", .Field = "Koc[1]", .Text = "old"});
    Set_Answer(notes, {.Rule = "P1", .Field = "Koc[1]", .Text = "new"});
    ASSERT_EQ(notes.Fields.size(), 1U);
    EXPECT_EQ(notes.Fields[0].second.Source, "b");
    ASSERT_EQ(notes.Answers.size(), 1U);
    EXPECT_EQ(notes.Answers[0].Text, "new");

    Set_Note(notes, "Koc[1]", {});
    Set_Answer(notes, {.Rule = "P1", .Field = "Koc[1]"});

    EXPECT_TRUE(notes.Is_Empty());
}

TEST(Document_Notes, Lie_Beside_The_Document_And_Go_When_They_Say_Nothing)
{
    const Temporary_Directory place;
    const auto document = place / "demo.psm";
    EXPECT_TRUE(Read_Notes(document).Is_Empty());

    Write_Notes(document, Parse_Notes(Example));
    EXPECT_EQ(Read_Whole(place / "demo.notes.json"), Example);
    Copy_Notes(document, place / "other.psm");
    EXPECT_EQ(Read_Whole(place / "other.notes.json"), Example);
    Write_Notes(document, {});
    EXPECT_FALSE(std::filesystem::exists(place / "demo.notes.json"));
    Copy_Notes(document, place / "other.psm"); // the other's notes were those of its old values
    EXPECT_FALSE(std::filesystem::exists(place / "other.notes.json"));
}

TEST(Document_Notes, One_That_Cannot_Be_Understood_Is_Told_With_Its_File)
{
    const Temporary_Directory place;
    Write_Whole(place / "demo.notes.json", "{\n\"schema\": 1}");

    try {
        Read_Notes(place / "demo.psm");
        ADD_FAILURE() << "taken";
    } catch (const File_Error& error) {
        EXPECT_EQ(error.what(), (place / "demo.notes.json").string() + ", line 2, column 11: It is not a text.");
    }
}

TEST(Document_Notes, Differences_Name_The_Field_And_What_Is_Said_Of_It)
{
    Document_Notes first, second;
    Set_Note(first, "Koc[1]", {.Source = "a", .Checked_By = "M"});
    Set_Note(second, "Koc[1]", {.Source = "b", .Checked_By = "M"});
    Set_Note(second, "Hv", {.Comment = "new"});
    Set_Answer(first, {.Rule = "P1", .Field = "Koc[1]", .Text = "old"});

    EXPECT_EQ(Differences(first, second),
              (std::vector<Difference>{
                  {"Koc[1], source", "a", "b"}, {"Hv, comment", "", "new"}, {"answer to P1 for Koc[1]", "old", ""}}));
    EXPECT_TRUE(Differences(first, first).empty());
}

} // namespace orvel
