// The doctor finds what would spoil a run: faults are planted one after another in an installation, and taken out
// again.
#include "core/files.h"
#include "temporary_directory.h"

#include <functional>
#include <gtest/gtest.h>
#include <regex>
#include <sys/wait.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Others write and delete meanwhile.
std::string Without_Space(const std::string& findings)
{
    return std::regex_replace(findings, std::regex("[0-9]+ MB are free"), "some MB are free");
}

} // namespace

class Orvelctl_Doctor : public testing::Test {
protected:
    struct Outcome {
        int Code;
        std::string Printed, Told;
    };

    void SetUp() override
    {
        ASSERT_EQ(std::system((std::string(ORVELCTL) + " init '" + Home.string() + "'").c_str()), 0);
    }

    Outcome Doctor(const std::string& before = "", const std::string& program = ORVELCTL, const std::string& more = "")
    {
        const std::string out = (Place / "printed").string(), told = (Place / "told").string();
        const int status = std::system(("env LC_ALL=C.UTF-8 " + before + " '" + program + "' -C '" + Home.string() +
                                        "' doctor " + more + " >" + out + " 2>" + told)
                                           .c_str());
        return {WEXITSTATUS(status), Read_Whole(out), Read_Whole(told)};
    }

    void Expect(int code, const std::string& line, const std::string& before = "",
                const std::string& program = ORVELCTL)
    {
        const auto found = Doctor(before, program);
        EXPECT_EQ(found.Code, code) << found.Printed;
        EXPECT_NE(("\n" + found.Printed).find("\n" + line), std::string::npos) << line << "\n" << found.Printed;
        EXPECT_EQ(found.Told, code == 0 ? "" : "Doctor: A fault was found that would spoil a run.\n");
    }

    // With a file in place of another, or without it if there are no bytes.
    void With(const fs::path& file, const std::optional<std::string>& bytes, const std::function<void()>& look)
    {
        const fs::path kept = Place / "kept";
        const bool is_there = fs::exists(file);
        if (is_there)
            fs::rename(file, kept);
        if (bytes)
            Write_Whole(file, *bytes);
        look();
        fs::remove(file);
        if (is_there)
            fs::rename(kept, file);
    }

    Temporary_Directory Place;
    fs::path Home = Place / "my home";
    const std::string At = Home.string();
    const std::string Poor = "LD_PRELOAD=" POOR_COMPUTER;
};

TEST_F(Orvelctl_Doctor, Finds_Each_Planted_Fault_And_Nothing_In_A_New_Installation)
{
    const std::string fault = "fault\t", warning = "warning\t", directories = "directories\t", engine = "engine\t";
    const fs::path engine_file = Home / "orvel401.exe";
    const auto healthy = Doctor();
    EXPECT_EQ(healthy.Code, 0) << healthy.Printed;
    EXPECT_EQ(healthy.Printed.find(fault), std::string::npos) << healthy.Printed;
    // Nobody has accepted the engine yet: the only thing to say of it.
    EXPECT_EQ(healthy.Printed.find(warning), healthy.Printed.rfind(warning)) << healthy.Printed;
    EXPECT_NE(healthy.Printed.find(" is not accepted here.\n\t\tTry it on the reference substances: orvelctl accept\n"),
              std::string::npos);
    const auto before = List_Files(Home, "*");

    // Rights.
    fs::permissions(Home / "focus", fs::perms::others_write, fs::perm_options::add);
    Expect(1, fault + directories + "Every user of this computer may change " + At + "/focus: ");
    fs::permissions(Home / "focus", fs::perms::others_write, fs::perm_options::remove);
    fs::permissions(engine_file, fs::perms::others_write, fs::perm_options::add);
    Expect(1, fault + engine + "Every user of this computer may change " + At + "/orvel401.exe: ");
    fs::permissions(engine_file, fs::perms::others_write, fs::perm_options::remove);

    // A directory that is missing.
    fs::rename(Home / "focus", Home / "elsewhere");
    Expect(1, fault + directories + At + "/focus is no directory.\n\t\tChoose an installation, or make one");
    fs::rename(Home / "elsewhere", Home / "focus");

    // The engine: missing, no program, for another system, not to be run, one of two.
    With(engine_file, std::nullopt, [&] { Expect(1, fault + engine + "There is no engine (orvel*.exe) in " + At); });
    With(engine_file, "Sorry.", [&] { Expect(1, fault + engine + "orvel401.exe is no program.\n"); });
    With(engine_file, "MZ", [&] {
        Expect(1,
               fault + engine +
                   "The engine orvel401.exe is a Windows program, and wine, which could run it, is not "
                   "installed.\n",
               "PATH=/nowhere");
    });
    With(engine_file, Read_Whole(engine_file), [&] { // without its rights
        Expect(1, fault + engine + "orvel401.exe has no right to be run.\n\t\tGive it: chmod +x ");
    });
    std::string foreign = Read_Whole(engine_file);
    foreign[18] = static_cast<char>(foreign[18] + 1); // the processor in the head of a program
    With(engine_file, foreign, [&] {
        fs::permissions(engine_file, fs::perms::owner_all);
        Expect(1, fault + engine + "orvel401.exe is a program of another kind of processor.\n");
    });
    With(Home / "orvel500.exe", "MZ",
         [&] { Expect(0, warning + engine + "There are 2 engines: orvel401.exe, orvel500.exe. The first one runs."); });
    With(Home / "acceptance.json", "{", [&] { Expect(0, warning + engine + "orvel401.exe with the digest "); });

    // A program that jobs need.
    fs::copy(ORVELCTL, Place / "orvelctl");
    Expect(1, fault + "programs\t" + (Place / "orveljob").string() + " is missing. It runs the jobs.\n", "",
           (Place / "orvelctl").string());

    // Files: missing, empty, cut, changed.
    With(Home / "focus" / "C_apples.sze", std::nullopt,
         [&] { Expect(1, fault + "shipped files\tWithout these no run can be marked: focus/C_apples.sze.\n"); });
    With(Home / "Haude.dat", "", [&] { Expect(1, fault + "shipped files\tThese are empty: Haude.dat.\n"); });
    With(Home / "input.dat", "x",
         [&] { Expect(0, warning + "shipped files\tThese are not as they were laid out: input.dat.\n"); });
    With(Home / "focus" / "orvel.inp", "of the last mark",
         [&] { Expect(0, "good\tshipped files\tAll are there and as they were laid out.\n"); });
    With(Home / "demo_A.psm", Read_Whole(Home / "demo_A.psm").substr(0, 900),
         [&] { Expect(1, fault + "documents\tThese cannot be used in " + At + ": demo_A.psm. demo_A.psm: "); });
    With(Home / "focus" / "H_01.cli", Read_Whole(Home / "focus" / "H_01.cli").substr(0, 9000),
         [&] { Expect(1, fault + "documents\tThese cannot be used in " + At + "/focus: H_01.cli. "); });

    // Copies of unsaved changes.
    const std::string no_copies = warning + "unsaved changes\tNo copy of unsaved changes can be kept";
    Write_Whole(Place / "state", "a file");
    Expect(0,
           no_copies + " in " + (Place / "state/orvelsuite/unsaved").string() + ": Not a directory.\n\t\tGet the right",
           "XDG_STATE_HOME=" + (Place / "state").string());
    EXPECT_EQ(Read_Whole(Place / "state"), "a file");
    Expect(0,
           "good\tunsaved changes\tCopies of unsaved changes can be kept in " +
               (Place / "new/orvelsuite/unsaved").string(),
           "XDG_STATE_HOME=" + (Place / "new").string());
    EXPECT_FALSE(fs::exists(Place / "new"));

    // Names, locale, tables.
    With(Home / "\u043F\u043B\u0430\u043D.psm", "", [&] {
        Expect(1, warning + "file names\tNames with characters that Windows-1252 lacks are left out of all lists: "
                            "????.psm.\n");
    });
    Expect(0, warning + "locale\tThe locale xx_YY.UTF-8 is not installed.\n", "LC_ALL=xx_YY.UTF-8");
    const fs::path run = Home / "focus" / "a.run" / "Maize.run" / "Hamburg_-_(H).run";
    fs::create_directories(run);
    Write_Whole(run / "year.orv", "table");
    fs::permissions(run / "year.orv", fs::perms::owner_read);
    Expect(0, warning + "tables\tThe tables of these runs cannot be kept beside them, and are built whenever they are "
                        "shown: focus/a.run/Maize.run/Hamburg_-_(H).run.\n");
    fs::remove_all(Home / "focus" / "a.run");

#ifndef __SANITIZE_ADDRESS__ // whose library must come first
    Expect(1, fault + "locks\tLocks do not work in " + At + ". Cannot tell whether ", Poor + " POOR_LOCKS=1");
    Expect(1, fault + "free space\t49 MB are free in " + At, Poor + " POOR_SPACE=50000000");
    Expect(0, warning + "free space\t499 MB are free in " + At, Poor + " POOR_SPACE=500000000");
#endif

    EXPECT_EQ(List_Files(Home, "*"), before);
    EXPECT_EQ(Without_Space(Doctor().Printed), Without_Space(healthy.Printed));
    const auto json = Doctor("", ORVELCTL, "--json");
    EXPECT_EQ(json.Code, 0);
    EXPECT_TRUE(json.Printed.starts_with("[\n  {\n    \"what\": \"engine\",\n    \"state\": \"warning\",\n"))
        << json.Printed; // the worst first
    EXPECT_NE(json.Printed.find("  {\n    \"what\": \"locks\",\n    \"state\": \"good\",\n"), std::string::npos);
}

} // namespace orvel
