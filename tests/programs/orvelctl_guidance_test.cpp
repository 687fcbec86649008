// The notes and the guidance check by the command line, in an installation as it is laid out.
#include "core/files.h"
#include "core/json_reader.h"
#include "temporary_directory.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

struct Outcome {
    int Exit = 0;
    std::string Printed;
};

Outcome Shell(const std::string& command)
{
    Outcome outcome;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> buffer{};
    while (const auto got = std::fread(buffer.data(), 1, buffer.size(), pipe))
        outcome.Printed.append(buffer.data(), got);
    outcome.Exit = WEXITSTATUS(::pclose(pipe));
    return outcome;
}

class Orvelctl_Guidance : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        ASSERT_EQ(Shell(std::string(ORVELCTL) + " init " + Home().string()).Exit, 0);
    }
    static void TearDownTestSuite() { delete Place; }

    void TearDown() override
    {
        for (const auto* name : {"demo_A.notes.json", "guidance-own.json"})
            fs::remove(Home() / name);
    }

    static fs::path Home() { return Place->Path() / "installation"; }
    static Outcome Orvelctl(const std::string& arguments)
    {
        return Shell(std::string(ORVELCTL) + " -C " + Home().string() + " " + arguments);
    }
    static Outcome Check(const std::string& arguments = "")
    {
        return Orvelctl("check " + (Home() / "demo_A.psm").string() + " " + arguments);
    }
    static bool Says(const Outcome& outcome, std::string_view text)
    {
        return outcome.Printed.find(text) != std::string::npos;
    }
    static void Put_Notes(const std::string& name, const std::string& members)
    {
        Write_Whole(Home() / name, "{\"schema\": \"orvel-notes 1\", " + members + "}");
    }

    static Temporary_Directory* Place;
};
Temporary_Directory* Orvelctl_Guidance::Place = nullptr;

} // namespace

TEST_F(Orvelctl_Guidance, A_Finding_Is_Open_Until_The_Notes_Hold_A_Source_Or_An_Answer)
{
    const auto open = Check();
    EXPECT_EQ(open.Exit, 1);
    EXPECT_TRUE(Says(open, "warning\tS2\tFr_Exp[1] = 0.9\t")) << open.Printed;
    EXPECT_TRUE(Says(open, "(source not confirmed)"));
    EXPECT_TRUE(Says(open, "Guidance check: There are findings without an answer."));

    Put_Notes("demo_A.notes.json", R"("fields": {"Fr_Exp[1]": {"source": "default, no data"}})");
    EXPECT_EQ(Check().Exit, 0);

    Put_Notes(
        "demo_A.notes.json",
        R"("answers": [{"rule": "S2", "field": "Fr_Exp[1]", "value": "0.9", "text": "kept because of study 3"}])");
    const auto answered = Check();
    EXPECT_EQ(answered.Exit, 0);
    EXPECT_TRUE(Says(answered, "\tanswered: kept because of study 3")) << answered.Printed;
}

TEST_F(Orvelctl_Guidance, Rules_Of_The_Users_Own_Are_Checked_By_Line_And_Column)
{
    const auto rules = Home() / "mine.json";
    Write_Whole(rules,
                R"({"schema": "orvel-guidance 1", "stands_alone": true, "rules": [{"id": "OWN", "severity": "warning",
 "text": "t", "source": "s", "confirmed": true, "compare": "Molmass[*]", "most": 100}]})");
    const auto own = Check("--json --rules " + rules.string());
    EXPECT_EQ(own.Exit, 1);
    const auto json = Parse_Json(own.Printed.substr(0, own.Printed.rfind(']') + 1));
    ASSERT_EQ(json.Elements().size(), 1U);
    EXPECT_EQ(json.Elements()[0].At("rule").Text(), "OWN");
    EXPECT_EQ(json.Elements()[0].At("field").Text(), "Molmass[1]");
    EXPECT_EQ(json.Elements()[0].At("value").Text(), "300");

    Write_Whole(rules, "{\"schema\": \"orvel-guidance 1\", \"rules\": [\n  {\"id\": 3}]}");
    const auto damaged = Check("--rules " + rules.string());
    EXPECT_EQ(damaged.Exit, 1);
    EXPECT_EQ(damaged.Printed, "File check: " + rules.string() + ", line 2, column 10: It is not a text.\n");
    EXPECT_EQ(Check("--rules /nowhere/rules.json").Exit, 1);
}

TEST_F(Orvelctl_Guidance, Damaged_Notes_Are_Told_And_Nothing_Is_Concluded)
{
    Write_Whole(Home() / "demo_A.notes.json", "{\n \"schema\": 7}");

    const auto told = Check();

    EXPECT_EQ(told.Exit, 1);
    EXPECT_EQ(told.Printed,
              "File check: " + (Home() / "demo_A.notes.json").string() + ", line 2, column 12: It is not a text.\n");
}

TEST_F(Orvelctl_Guidance, A_Sheet_Has_Values_Units_And_Sources)
{
    Put_Notes("demo_A.notes.json", R"("fields": {"Koc[1]": {"source": "study, 4", "checked_by": "M"}})");
    const auto file = (Home() / "demo_A.psm").string();

    const auto printed = Orvelctl("sheet " + file);
    EXPECT_EQ(printed.Exit, 0);
    EXPECT_TRUE(Says(printed, "\r\nKoc[1],Demo substance A,103,L/kg,\"study, 4\",,M,\r\n")) << printed.Printed;
    EXPECT_EQ(Orvelctl("sheet " + file + " --to " + (Home() / "a.csv").string()).Exit, 0);
    EXPECT_TRUE(printed.Printed.starts_with("Parameter,Substance,")) << "a mark is for files";
    EXPECT_EQ(Read_Whole(Home() / "a.csv"), "\xEF\xBB\xBF" + printed.Printed);
    EXPECT_EQ(Orvelctl("sheet " + file + " --to " + (Home() / "a.xlsx").string()).Exit, 0);
    EXPECT_TRUE(Read_Whole(Home() / "a.xlsx").starts_with("PK"));
    EXPECT_EQ(Orvelctl("sheet " + file + " --to a.pdf").Printed,
              "File check: A sheet is saved as .xlsx or .csv, not as a.pdf.\n");
}

TEST_F(Orvelctl_Guidance, Notes_Go_With_A_Document_Saved_Under_Another_Name_And_Are_Compared)
{
    Put_Notes("demo_A.notes.json", R"("fields": {"Koc[1]": {"source": "study 4"}})");
    const auto file = (Home() / "demo_A.psm").string(), copy = (Home() / "copy.psm").string();

    EXPECT_EQ(Orvelctl("convert " + file + " " + copy).Exit, 0);
    EXPECT_EQ(Orvelctl("compare " + file + " " + copy).Exit, 0);
    Put_Notes("copy.notes.json", R"("fields": {"Koc[1]": {"source": "study 5"}})");

    const auto compared = Orvelctl("compare " + file + " " + copy);
    EXPECT_EQ(compared.Exit, 1);
    EXPECT_TRUE(Says(compared, "Koc[1], source")) << compared.Printed;
    EXPECT_TRUE(Says(compared, "study 4"));
    EXPECT_TRUE(Says(compared, "study 5"));
}

TEST_F(Orvelctl_Guidance, Marking_Tells_What_The_Run_Breaks_And_Is_Done)
{
    Write_Whole(
        Home() / "guidance-own.json",
        R"({"schema": "orvel-guidance 1", "rules": [{"id": "UK", "severity": "warning", "text": "Four locations count.",
 "source": "HSE", "confirmed": true, "compare": "Location", "one_of": ["C", "H", "K", "N"]}]})");
    const std::string mark = "mark --mode focus --pesticide demo_A.psm --crop Maize --location ";

    const auto fits = Orvelctl(mark + "'Hamburg (H)'");
    EXPECT_EQ(fits.Exit, 0);
    EXPECT_FALSE(Says(fits, "Guidance check"));
    const auto breaks = Orvelctl(mark + "'Porto (O), irrigated'");
    EXPECT_EQ(breaks.Exit, 0);
    EXPECT_TRUE(Says(breaks, "Guidance check: Porto (O), irrigated: warning UK: Four locations count. Location = O. "
                             "Source: HSE\n"))
        << breaks.Printed;
    EXPECT_TRUE(Says(breaks, "focus/demo_A.run/Maize.run/Porto"));
}

} // namespace orvel
