#include "output/run_record.h"

#include "core/text.h"
#include "temporary_directory.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace orvel {

namespace {

const std::string Digest(64, 'a');

Run_Record Example()
{
    return {.Program = "ORVELSUITE",
            .Program_Version = "5.5",
            .Engine = {"orvel401.exe", 12, Digest},
            .Engine_Version = "4.01",
            .Processor = "avx2",
            .Inputs = {{"orvel.inp", 3, Digest}, {"../../../Ch\xE2_01.cli", 1ULL << 40U, Digest}},
            .Start = 1795313663,
            .End = 1795313664,
            .Exit = 0,
            .Years_Expected = 26,
            .Outputs = {{{"echo.orv", 5, Digest}, std::nullopt}, {{"chem.orv", 6, Digest}, 12}},
            .Years_Found = 12,
            .Verdict = Verdict::Incomplete,
            .Reason = "The output chem.orv holds 12 of 26 years."};
}

std::string Refusal_Of(const std::string& text)
{
    try {
        Parse_Run_Record(text);
    } catch (const File_Error& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(Run_Record, What_Is_Written_Is_Read_Back)
{
    EXPECT_EQ(Parse_Run_Record(Format_Run_Record(Example())), Example());
    Run_Record killed = Example();
    killed.Exit.reset();
    killed.Signal = 9;
    killed.Limit = 60;
    killed.Verdict = Verdict::Failed;
    EXPECT_EQ(Parse_Run_Record(Format_Run_Record(killed)), killed);
}

TEST(Run_Record, Its_Fields_Stand_In_A_Stable_Order_In_Utf8_With_Plain_Line_Ends)
{
    const std::string text = Format_Run_Record(Example());

    EXPECT_TRUE(text.starts_with("{\n  \"schema\": 1,\n  \"program\": {\n    \"name\": \"ORVELSUITE\",\n"
                                 "    \"version\": \"5.5\"\n  },\n  \"directory\": \"\",\n  \"engine\": {\n"))
        << text;
    EXPECT_NE(text.find("\"name\": \"../../../Ch\u00E2_01.cli\",\n      \"size\": 1099511627776,\n"), std::string::npos)
        << text;
    EXPECT_NE(text.find("\"start\": \"2026-11-22T02:14:23Z\""), std::string::npos) << text;
    EXPECT_NE(text.find("\"exit\": 0,\n  \"signal\": null,\n  \"limit\": null,\n  \"years_expected\": 26,\n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with("  \"years_found\": 12,\n  \"verdict\": \"incomplete\",\n"
                               "  \"reason\": \"The output chem.orv holds 12 of 26 years.\"\n}\n"));
    EXPECT_EQ(text.find('\r'), std::string::npos);
}

TEST(Run_Record, A_Damaged_One_Is_Refused_With_The_Place_Or_The_Member)
{
    const std::string text = Format_Run_Record(Example());

    EXPECT_EQ(Refusal_Of(text.substr(0, text.size() - 3)), "Line 49, column 55: This is not JSON.");
    EXPECT_EQ(Refusal_Of(Replace_All(text, "\"verdict\": \"incomplete\"", "\"verdict\": \"running\"")),
              "The member \"verdict\" cannot be used: It is no verdict.");
    EXPECT_EQ(Refusal_Of(Replace_All(text, "\"years_found\": 12", "\"years_found\": -1")),
              "The member \"years_found\" cannot be used: It is not a whole number.");
    EXPECT_EQ(Refusal_Of(Replace_All(text, "\"years_found\": 12", "\"years_lost\": 12")),
              "The member \"years_found\" is missing.");
    EXPECT_EQ(Refusal_Of(Replace_All(text, "\"schema\": 1", "\"schema\": 2")),
              "The record has a schema that this program does not know.");
    EXPECT_NE(Refusal_Of(Replace_All(text, Digest, "0")), "");
    EXPECT_NE(Refusal_Of(""), "");
    EXPECT_NE(Refusal_Of("[]"), "");
    EXPECT_NE(Refusal_Of("{\"schema\": 1, \"schema\": 1}"), "");
    EXPECT_NE(Refusal_Of(std::string(100000, '[')), "");
}

TEST(Run_Record, A_Complete_Run_Whose_Exit_Years_Or_Files_Say_Otherwise_Is_Refused)
{
    Run_Record complete = Example();
    complete.Verdict = Verdict::Complete;
    complete.Reason.clear();
    complete.Years_Found = 26;
    complete.Outputs[1].Years = 26;
    complete.Directory = "a.run\\Maize.run\\Hamburg_-_(H).run";
    EXPECT_EQ(Parse_Run_Record(Format_Run_Record(complete)), complete);

    const auto refusal = [&](const std::function<void(Run_Record&)>& change) {
        Run_Record record = complete;
        change(record);
        return Refusal_Of(Format_Run_Record(record));
    };
    const std::string exit = "The record contradicts itself: complete, but the engine did not end with exit code 0.";
    EXPECT_EQ(refusal([](auto& record) { record.Exit = 1; }), exit);
    EXPECT_EQ(refusal([](auto& record) { record.Exit.reset(); }), exit);
    EXPECT_EQ(refusal([](auto& record) { record.Signal = 9; }), exit);
    const std::string years = "The record contradicts itself: complete, but its years differ.";
    EXPECT_EQ(refusal([](auto& record) { record.Years_Found = 1; }), years);
    EXPECT_EQ(refusal([](auto& record) { record.Years_Expected = 5; }), years);
    EXPECT_EQ(refusal([](auto& record) { record.Outputs[1].Years = 11; }), years);
    const std::string files = "The record contradicts itself: complete, but it names no files.";
    EXPECT_EQ(refusal([](auto& record) { record.Inputs.clear(); }), files);
    EXPECT_EQ(refusal([](auto& record) { record.Outputs.clear(); }), files);
}

TEST(Run_Record, A_Directory_Without_One_Has_None_And_One_That_Cannot_Be_Read_Is_Told)
{
    const Temporary_Directory place;
    EXPECT_FALSE(Read_Run_Record(place.Path()));

    std::filesystem::create_directory(place / "run.json");

    EXPECT_THROW(Read_Run_Record(place.Path()), File_Error);
}

TEST(Run_Record, Times_Are_Universal)
{
    EXPECT_EQ(Utc_Text(1795313663), "2026-11-22T02:14:23Z");
    EXPECT_EQ(Time_Of_Utc("2026-11-22T02:14:23Z"), 1795313663);
    EXPECT_EQ(Time_Of_Utc("2026-13-22T02:14:23Z"), 0);
    EXPECT_EQ(Time_Of_Utc("2026-11-22 02:14:23"), 0);
}

} // namespace orvel
