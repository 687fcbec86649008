#include "records/restore.h"

#include "core/sha256.h"
#include "core/system/lock.h"
#include "jobs/job_status.h"
#include "records/archive_reader.h"
#include "records/archived_run.h"
#include "records/zip_maker.h"

namespace orvel {

namespace fs = std::filesystem;

class Restore_Test : public Archived_Run_Test {
protected:
    Restore_Test() { Archive(Home / "a.zip"); }

    std::string Told_By_Restore(const fs::path& directory)
    {
        return Told([&] { Restore(Home / "a.zip", directory); });
    }

    fs::path Hamburg_In(const fs::path& directory) { return directory / Hamburg().lexically_relative(Home.Path()); }
};

TEST_F(Restore_Test, An_Archive_Is_Laid_Out_In_A_New_Directory_And_Its_Runs_Are_Ok)
{
    const auto restored = Restore(Home / "a.zip", Home / "new" / "place");

    EXPECT_TRUE(restored.Is_Ok()) << restored.Runs[0].Verified.Detail;
    ASSERT_EQ(restored.Runs.size(), 2U);
    EXPECT_EQ(restored.Runs[0].Directory, Hamburg_In(Home / "new" / "place"));
    EXPECT_EQ(restored.Kept, 0U);
    EXPECT_EQ(Sha256_Of_File(Hamburg_In(Home / "new" / "place") / "plot.orv"), Sha256_Of_File(Hamburg() / "plot.orv"));
    const auto listed = Simulation_List(Home / "new" / "place" / "focus");
    ASSERT_EQ(listed.size(), 2U);
    EXPECT_EQ(listed[0].Pesticide, "gr\xFCn test");
    EXPECT_EQ(listed[0].State.Verdict, Verdict::Complete);
}

TEST_F(Restore_Test, The_Engine_Is_Laid_Out_But_Cannot_Be_Run)
{
    Restore(Home / "a.zip", Home / "new");

    const auto rights = fs::status(Home / "new" / "orvel401.exe").permissions();
    EXPECT_EQ(rights & (fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec), fs::perms::none);
}

TEST_F(Restore_Test, A_Restored_Assessment_Gives_The_Same_Archive_Again)
{
    Restore(Home / "a.zip", Home / "new");
    Session other;
    other.Program.App_Path = Home / "new";
    Find_Engine(other.Program);

    Make_Archive(other, Focus(), "gr\xFCn test", "", Home / "b.zip");

    EXPECT_EQ(Sha256_Of_File(Home / "a.zip"), Sha256_Of_File(Home / "b.zip"));
}

TEST_F(Restore_Test, In_An_Installation_The_Same_Files_Are_Kept_And_Lost_Ones_Come_Back)
{
    fs::remove_all(Pesticide_Place());
    fs::remove(Home / "focus" / "H_01.cli");

    const auto restored = Restore(Home / "a.zip", Home.Path());

    EXPECT_TRUE(restored.Is_Ok());
    EXPECT_GE(restored.Kept, 3U); // engine, scenario, version
    EXPECT_EQ(Restore(Home / "a.zip", Home.Path()).Written, 0U);
}

TEST_F(Restore_Test, What_Is_There_And_Differs_Is_Never_Replaced)
{
    fs::remove_all(Pesticide_Place());
    Put(Home / "focus" / "H_01.cli", "another climate\r\n");

    EXPECT_EQ(Told_By_Restore(Home.Path()), (Home / "focus" / "H_01.cli").string() +
                                                " is there already and is not the one of the archive: nothing was "
                                                "laid out.");
    EXPECT_FALSE(fs::exists(Pesticide_Place()));
    EXPECT_EQ(Read_Whole(Home / "focus" / "H_01.cli"), "another climate\r\n");
}

TEST_F(Restore_Test, A_Directory_That_Is_Neither_Empty_Nor_An_Installation_Is_Refused)
{
    fs::create_directory(Home / "papers");
    Put(Home / "papers" / "letter.txt", "Dear");

    EXPECT_NE(Told_By_Restore(Home / "papers").find("is neither empty nor an installation"), std::string::npos);
    EXPECT_NE(Told_By_Restore(Home / "papers" / "letter.txt").find("is no directory"), std::string::npos);
}

TEST_F(Restore_Test, Nothing_Is_Laid_Out_Behind_A_Link)
{
    fs::create_directories(Home / "new");
    fs::create_directory(Home / "elsewhere");
    Put(Home / "new" / "orvel401.exe", Read_Whole(Home / "orvel401.exe"));
    fs::create_directory_symlink(Home / "elsewhere", Home / "new" / "focus");

    EXPECT_NE(Told_By_Restore(Home / "new").find("is a link"), std::string::npos);
    EXPECT_TRUE(fs::is_empty(Home / "elsewhere"));
}

TEST_F(Restore_Test, A_Changed_Byte_Is_Told_Before_Anything_Is_Laid_Out)
{
    const auto manifest = Archive_Reader(Home / "a.zip").Manifest();
    Archive_Manifest small{.Files = {{"focus/a.cli", 5, Sha256("hello")}, {"focus/b.cli", 5, Sha256("hello")}}};
    Put(Home / "a.zip", Made_Zip({{"archive.json", Format_Manifest(small)},
                                  {"files/focus/a.cli", "hello"},
                                  {"files/focus/b.cli", "hallo"}}));

    EXPECT_NE(Told_By_Restore(Home / "new")
                  .find("focus/b.cli of " + (Home / "a.zip").string() + " is not the one that was archived"),
              std::string::npos);
    EXPECT_FALSE(fs::exists(Home / "new"));
}

TEST_F(Restore_Test, What_Was_Laid_Out_Before_A_Failure_Is_Taken_Away_Again)
{
    fs::create_directories(Hamburg_In(Home / "new"));
    const auto lock = Lock::Take(Hamburg_In(Home / "new")); // as if an engine worked there

    EXPECT_NE(Told_By_Restore(Home / "new").find("is at work"), std::string::npos);
    EXPECT_FALSE(fs::exists(Home / "new" / "orvel401.exe"));
    EXPECT_TRUE(fs::is_empty(Hamburg_In(Home / "new")));
}

TEST_F(Restore_Test, A_Restoring_That_Was_Killed_Is_Completed_By_The_Next_One)
{
    Restore(Home / "a.zip", Home / "new");
    fs::remove(Hamburg_In(Home / "new") / "run.json");
    fs::remove(Hamburg_In(Home / "new") / "plot.orv");

    const auto restored = Restore(Home / "a.zip", Home / "new");

    EXPECT_EQ(restored.Written, 2U);
    EXPECT_TRUE(restored.Is_Ok());
}

TEST_F(Restore_Test, A_Stop_Leaves_Nothing)
{
    const auto stop_while_writing = [](const std::string&, double share) { return share < 0.7; };

    EXPECT_THROW(Restore(Home / "a.zip", Home / "new", stop_while_writing), File_Error);
    EXPECT_FALSE(fs::exists(Home / "new"));
}

} // namespace orvel
