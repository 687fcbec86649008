#include "core/run_name.h"

#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

TEST(Run_Name, Writes_Blanks_And_Commas_Of_A_Level_In_Other_Characters)
{
    EXPECT_EQ(Encode_Level("my,file 1"), "my--file_-_1.run");
    EXPECT_EQ(Encode_Level("Ch\xE2teaudun (C), no irrigation"), "Ch\xE2teaudun_-_(C)--_-_no_-_irrigation.run");
    EXPECT_EQ(Encode_Level("Total content - North (T_N)"), "Total_-_content_-_-_-_North_-_(T_N).run");
}

TEST(Run_Name, Takes_The_Way_Back)
{
    EXPECT_EQ(Decode_Level("Ch\xE2teaudun_-_(C)--_-_no_-_irrigation.run"), "Ch\xE2teaudun (C), no irrigation");
    EXPECT_EQ(Decode_Level("Total_-_content_-_-_-_North_-_(T_N).RUN"), "Total content - North (T_N)");
}

TEST(Run_Name, Does_Not_Bring_Back_A_Text_That_Truly_Holds_Two_Dashes)
{
    EXPECT_EQ(Decode_Level(Encode_Level("a--b")), "a,b");
}

TEST(Run_Name, A_Run_Has_The_Levels_Of_Its_Pesticide_File_Crop_And_Location)
{
    EXPECT_EQ(Run_Directory("my,file 1.psm", "Winter cereals", "Ch\xE2teaudun (C), no irrigation"),
              "my--file_-_1.run\\Winter_-_cereals.run\\Ch\xE2teaudun_-_(C)--_-_no_-_irrigation.run");
}

TEST(Run_Name, Only_Three_Levels_That_Stay_Below_The_Mode_Directory_Are_A_Run)
{
    EXPECT_TRUE(Is_Run_Directory("a.run\\b.RUN\\c.run"));
    for (const auto* other : {"a.run\\b.run", "a.run\\b.run\\c.run\\d.run", "a.run\\..\\c.run", "a.run\\b.run\\.run",
                              "a.run\\b.run\\x/c.run", "a.run\\b.run\\c\n.run", ""})
        EXPECT_FALSE(Is_Run_Directory(other)) << other;
}

TEST(Run_Name, A_Path_And_The_Name_Of_Its_Run_Lead_To_Each_Other)
{
    const std::string run = "a.run\\Winter_-_cereals.run\\Kremsm\xFCnster_-_(K).run";
    const auto path = Run_Path("focus", run);

    EXPECT_EQ(path, fs::path("focus/a.run/Winter_-_cereals.run/Kremsm\u00FCnster_-_(K).run"));
    EXPECT_EQ(Run_Directory_Of("focus", path), run);
}

TEST(Run_Name, Lists_The_Directories_Of_A_Level_And_Nothing_Else)
{
    const Temporary_Directory place;
    for (const auto* name : {"b.run", "A.RUN", "marked-aB3xYz", "other"})
        fs::create_directory(place / name);

    EXPECT_EQ(List_Run_Levels(place.Path()), (std::vector<std::string>{"A.RUN", "b.run"}));
}

TEST(Run_Name, A_Run_In_The_Bin_Still_Means_The_Files_Of_Its_Mode)
{
    const fs::path run = "/i/focus/p.run/c.run/l.run", binned = "/i/focus/bin/0003/p.run/c.run/l.run";

    EXPECT_EQ(Place_In_Mode(binned), run);
    EXPECT_EQ(Place_In_Mode(run), run);
    EXPECT_EQ(Place_In_Mode("/i/focus/bin/old/p.run/c.run/l.run"), "/i/focus/bin/old/p.run/c.run/l.run");
    EXPECT_EQ(Input_File(binned, "../../../H_01.cli"), "/i/focus/H_01.cli");
    EXPECT_EQ(Input_File(binned, "p.psm"), binned / "p.psm");
    EXPECT_EQ(Input_File(run, "../../../H_01.cli"), run / "../../../H_01.cli");
}

} // namespace orvel
