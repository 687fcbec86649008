// A real assessment of the demonstration data, archived, laid out, run again and compared through the command line.
#include "core/csv_reader.h"
#include "core/files.h"
#include "core/sha256.h"
#include "programs/shell.h"

#include <array>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

// One installation and its runs for all tests, which leave it as it is; two simulations of 26 years.
class Orvelctl_Records : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Place = std::make_unique<Temporary_Directory>();
        ASSERT_EQ(Do("init '" + Suite() + "'").Code, 0);
        fs::copy(Suite() + "/demo_D.psm", Suite() + "/gr\u00FCn test.psm");
        for (const std::string location : {"Hamburg (H)", "Kremsm\u00FCnster (K)"})
            ASSERT_EQ(
                In_Suite("mark --mode focus --pesticide 'gr\u00FCn test.psm' --crop 'Winter cereals' --location '" +
                         location + "' --output minimum")
                    .Code,
                0);
        ASSERT_EQ(In_Suite("start --mode focus --wait").Code, 0);
        ASSERT_EQ(In_Suite(Archive + "'" + File("a.zip") + "'").Code, 0);
    }
    static void TearDownTestSuite() { Place.reset(); }

    static Outcome Do(const std::string& words) { return Shell(std::string(ORVELCTL) + " " + words); }
    static Outcome In_Suite(const std::string& words) { return Do("-C '" + Suite() + "' " + words); }

    static std::string File(const std::string& name) { return (Place->Path() / name).string(); }
    static std::string Suite() { return File("suite"); }
    static std::string Run_In(const std::string& place, const std::string& location = "Hamburg_-_(H)")
    {
        return File(place) + "/focus/gr\u00FCn_-_test.run/Winter_-_cereals.run/" + location + ".run";
    }
    static std::string Quoted(const std::string& text) { return "'" + text + "'"; }

    // The archive with the bytes of one place changed.
    static std::string Changed_At(std::uint64_t place)
    {
        std::string bytes = Read_Whole(File("a.zip"));
        bytes[static_cast<std::size_t>(place)] ^= 1;
        Write_Whole(File("changed.zip"), bytes);
        return Quoted(File("changed.zip"));
    }

    static inline std::unique_ptr<Temporary_Directory> Place;
    static inline const std::string Archive = "archive --mode focus --pesticide 'gr\u00FCn test' --to ";
};

TEST_F(Orvelctl_Records, An_Archive_Made_Twice_Has_The_Same_Bytes)
{
    const auto archived = In_Suite(Archive + Quoted(File("b.zip")));

    EXPECT_EQ(archived.Code, 0) << archived.Told;
    EXPECT_EQ(Sha256_Of_File(File("a.zip")), Sha256_Of_File(File("b.zip")));
}

TEST_F(Orvelctl_Records, An_Archive_Comes_Back_Verified_And_Every_Command_Works_On_It)
{
    const auto restored = Do("restore " + Quoted(File("a.zip")) + " " + Quoted(File("back")));

    EXPECT_EQ(restored.Code, 0) << restored.Told;
    EXPECT_EQ(restored.Printed,
              "ok\t" + Run_In("back") + "\t\nok\t" + Run_In("back", "Kremsm\u00FCnster_-_(K)") + "\t\n");
    const std::string in = "-C " + Quoted(File("back")) + " ";
    EXPECT_EQ(Do(in + "verify --mode focus").Code, 0);
    EXPECT_NE(Do(in + "status --mode focus").Printed.find("gr\u00FCn test\tWinter cereals\tHamburg (H)\t"),
              std::string::npos);
    EXPECT_EQ(Do(in + "tables " + Quoted(Run_In("back"))).Code, 0); // builds them anew
    EXPECT_EQ(Do(in + "tables " + Quoted(Run_In("back"))).Printed,
              In_Suite("tables " + Quoted(Run_In("suite"))).Printed);
    const auto report = Do(in + "report --mode focus --pesticide 'gr\u00FCn test' --crop all");
    EXPECT_EQ(report.Code, 0) << report.Told;
    EXPECT_NE(report.Printed.find("Hamburg (H)"), std::string::npos);

    const auto again = Do(in + Archive + Quoted(File("c.zip")));
    EXPECT_EQ(again.Code, 0) << again.Told;
    EXPECT_EQ(Do("compare " + Quoted(File("a.zip")) + " " + Quoted(File("c.zip"))).Printed, "");
    EXPECT_EQ(Do("compare " + Quoted(File("a.zip")) + " " + Quoted(File("back"))).Code, 0);
    EXPECT_EQ(Do("compare " + Quoted(Run_In("suite")) + " " + Quoted(Run_In("back"))).Code, 0);
}

TEST_F(Orvelctl_Records, Reproduced_With_The_Installed_Engine_Its_Outputs_Have_The_Same_Bytes)
{
    const auto reproduced = In_Suite("reproduce " + Quoted(File("a.zip")));

    EXPECT_EQ(reproduced.Code, 0) << reproduced.Told;
    EXPECT_EQ(reproduced.Printed,
              "same\tfocus/gr\u00FCn_-_test.run/Winter_-_cereals.run/Hamburg_-_(H).run\t\n"
              "same\tfocus/gr\u00FCn_-_test.run/Winter_-_cereals.run/Kremsm\u00FCnster_-_(K).run\t\n");
    EXPECT_NE(In_Suite("reproduce --json " + Quoted(File("a.zip"))).Printed.find("\"same_bytes\": true"),
              std::string::npos);
}

// The reader of a report has nothing but its last column, and types it in.
TEST_F(Orvelctl_Records, The_Command_In_A_Report_Makes_Its_Figures_Again)
{
    ASSERT_EQ(In_Suite("report --mode focus --pesticide 'gr\u00FCn test' --crop 'Winter cereals' --to '" +
                       File("told.csv") + "'")
                  .Code,
              0);
    const std::string told = Read_Whole(File("told.csv"));
    Csv_Reader rows(Source_Of(told));
    Csv_Row row;
    ASSERT_TRUE(rows.Next(row) && rows.Next(row)); // the head, then the first location
    const std::string& command = row.Fields.back();
    ASSERT_TRUE(command.starts_with("orvelctl archive --mode focus ")) << command;
    const std::string programs = fs::path(ORVELCTL).parent_path().string();

    const auto again = Shell("cd '" + Suite() + "' && PATH='" + programs + "':$PATH && " + command);

    EXPECT_EQ(again.Code, 0) << again.Told;
    EXPECT_EQ(again.Printed, "same\tfocus/gr\u00FCn_-_test.run/Winter_-_cereals.run/Hamburg_-_(H).run\t\n"
                             "same\tfocus/gr\u00FCn_-_test.run/Winter_-_cereals.run/Kremsm\u00FCnster_-_(K).run\t\n");
}

TEST_F(Orvelctl_Records, Another_Engine_Is_Named_And_Counts_By_The_Tolerance)
{
    const std::string engine = File("other.exe");
    Write_Whole(engine, "#!/bin/sh\n'" + Suite() + "/orvel401.exe' \"$@\" && echo more >another.orv\n");
    fs::permissions(engine, fs::perms::owner_all);
    fs::permissions(Place->Path(), fs::perms::owner_all);

    const auto strict = In_Suite("reproduce " + Quoted(File("a.zip")) + " --engine " + Quoted(engine));
    EXPECT_EQ(strict.Code, 1);
    EXPECT_EQ(strict.Printed.find("differs\tfocus/"), 0U) << strict.Printed << strict.Told;
    EXPECT_NE(strict.Printed.find("\tanother.orv\n"), std::string::npos);
    EXPECT_NE(strict.Printed.find("note\tThe engine other.exe is not the one of the archive"), std::string::npos);
    EXPECT_EQ(In_Suite("reproduce " + Quoted(File("a.zip")) + " --tolerance 1e-9 --engine " + Quoted(engine)).Code, 0);
}

TEST_F(Orvelctl_Records, A_Changed_Byte_Anywhere_Is_Told_And_Nothing_Is_Laid_Out)
{
    const auto size = fs::file_size(File("a.zip"));
    for (std::uint64_t place = 5; place < size; place += size / 23) {
        const auto refused = Do("restore " + Changed_At(place) + " " + Quoted(File("nowhere")));
        // A byte that says nothing (of a time, of the system that packed) changes nothing.
        if (refused.Code == 0) {
            fs::remove_all(File("nowhere"));
            continue;
        }
        EXPECT_EQ(refused.Code, 1) << place;
        EXPECT_TRUE(refused.Told.starts_with("File check: ")) << refused.Told;
        EXPECT_FALSE(fs::exists(File("nowhere"))) << place;
    }
}

TEST_F(Orvelctl_Records, A_Cut_Archive_And_One_That_Is_None_Have_Their_Sentence)
{
    const std::string whole = Read_Whole(File("a.zip"));
    Write_Whole(File("cut.zip"), whole.substr(0, whole.size() / 2));
    Write_Whole(File("none.zip"), "no archive");

    for (const std::string& command :
         {"restore " + Quoted(File("cut.zip")) + " " + Quoted(File("nowhere")), "reproduce " + Quoted(File("cut.zip")),
          "compare " + Quoted(File("cut.zip")) + " " + Quoted(File("a.zip")),
          "restore " + Quoted(File("none.zip")) + " " + Quoted(File("nowhere"))}) {
        const auto refused = In_Suite(command);
        EXPECT_EQ(refused.Code, 1) << command;
        EXPECT_NE(refused.Told.find("is no whole archive"), std::string::npos) << refused.Told;
    }
    EXPECT_EQ(Do("restore /nowhere.zip /tmp/x").Told,
              "File check: Cannot read /nowhere.zip: No such file or directory.\n");
}

TEST_F(Orvelctl_Records, What_Is_There_And_Differs_Is_Not_Replaced)
{
    ASSERT_EQ(Do("restore " + Quoted(File("a.zip")) + " " + Quoted(File("kept"))).Code, 0);
    Write_Whole(Run_In("kept") + "/chem.orv", "mine");

    const auto refused = Do("restore " + Quoted(File("a.zip")) + " " + Quoted(File("kept")));

    EXPECT_EQ(refused.Code, 1);
    EXPECT_EQ(refused.Told,
              "File check: " + Run_In("kept") +
                  "/chem.orv is there already and is not the one of the archive: nothing was laid out.\n");
    EXPECT_EQ(Read_Whole(Run_In("kept") + "/chem.orv"), "mine");
}

TEST_F(Orvelctl_Records, What_Is_Missing_Or_Changed_Is_Archived_And_Told_With_1)
{
    ASSERT_EQ(Do("restore " + Quoted(File("a.zip")) + " " + Quoted(File("worse"))).Code, 0);
    fs::remove(File("worse") + "/focus/H_03.cli");
    const std::string in = "-C " + Quoted(File("worse")) + " ";

    const auto archived = Do(in + Archive + Quoted(File("worse.zip")));

    EXPECT_EQ(archived.Code, 1);
    EXPECT_NE(
        archived.Told.find("Archive: focus/gr\u00FCn_-_test.run/Winter_-_cereals.run/Hamburg_-_(H).run: The input "
                           "../../../H_03.cli is missing, and so it is in the archive.\n"),
        std::string::npos)
        << archived.Told;
    const auto restored = Do("restore " + Quoted(File("worse.zip")) + " " + Quoted(File("again")));
    EXPECT_EQ(restored.Code, 1);
    EXPECT_EQ(restored.Printed.find("changed\t" + Run_In("again") + "\t"), 0U) << restored.Printed;
    const auto reproduced = In_Suite("reproduce " + Quoted(File("worse.zip")));
    EXPECT_EQ(reproduced.Code, 1);
    EXPECT_NE(reproduced.Printed.find("H_03.cli is missing."), std::string::npos);
}

TEST_F(Orvelctl_Records, Wrong_Words_End_With_2_And_Two_Kinds_With_A_Sentence)
{
    EXPECT_EQ(Do("archive --mode focus --to x.zip").Code, 2);
    EXPECT_EQ(Do("restore a.zip").Code, 2);
    EXPECT_EQ(Do("compare a b --tolerance -1").Code, 2);
    const auto mixed = In_Suite("compare " + Quoted(Suite() + "/demo_A.psm") + " " + Quoted(Suite()));
    EXPECT_EQ(mixed.Code, 1);
    EXPECT_NE(mixed.Told.find("only two of a kind can be compared"), std::string::npos);
    EXPECT_NE(In_Suite(Archive + "'" + Suite() + "/focus'").Told.find("Is a directory"), std::string::npos);
}

} // namespace orvel
