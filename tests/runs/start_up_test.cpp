#include "run_fixture.h"
#include "runs/output_selection.h"
#include "runs/start_up.h"

#include "runs/batch.h"
#include "runs/bin.h"

namespace orvel {

using Start_Up_Test = Run_Test;

TEST_F(Start_Up_Test, The_Versions_Come_From_The_Engine_And_The_Scenario_Files)
{
    Put(Home / "focus" / "c_apples.sze", "DEM 3 Demo\r\n");

    ASSERT_TRUE(Start_Up(The_Session));

    EXPECT_EQ(The_Session.Program.Engine_Exe, "orvel401.exe");
    EXPECT_DOUBLE_EQ(The_Session.Program.Engine_Version, 4.01);
    EXPECT_EQ(The_Session.Program.Aktuelle_ORVEL_Version, "ORVEL 4.01");
    EXPECT_EQ(The_Session.Program.Aktuelle_ORVELSUITE_Version, "ORVELSUITE 5.5.3");
    EXPECT_EQ(Read_Whole(Home / "orvel.bat"), "ORVEL401.exe\r\nexit\r\n");
    EXPECT_EQ(Read_Whole(Home / "worvel2.tmp"), "This is ORVEL\r\n");
    EXPECT_EQ(The_Session.Output, Start_Output());
    EXPECT_EQ(The_Session.Editor.App_Loc_Index, 1);
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Start_Up_Test, A_Second_Start_Replaces_A_Leftover_Of_The_Write_Test)
{
    Put(Home / "worvel2.tmp", "leftover of another kind");

    ASSERT_TRUE(Start_Up(The_Session));

    EXPECT_EQ(Read_Whole(Home / "worvel2.tmp"), "This is ORVEL\r\n");
}

TEST_F(Start_Up_Test, Results_That_A_Killed_Mark_Had_In_The_Bin_Are_Back)
{
    const auto mode = Mode_Directory(The_Session.Program, Mode_Of(Mode_Kind::Efsa_T4));
    const auto crop = mode / "test.run" / "Maize.run", place = crop / "Hamburg_-_(H).run";
    std::filesystem::create_directories(place);
    Put(place / "chem.orv", "a result");
    Move_To_Bin(mode, place);
    std::filesystem::create_directories(crop / "Hamburg_-_(H).put"); // killed behind its first move

    ASSERT_TRUE(Start_Up(The_Session));

    EXPECT_EQ(Read_Whole(place / "chem.orv"), "a result");
    EXPECT_FALSE(std::filesystem::exists(crop / "Hamburg_-_(H).put"));
}

TEST_F(Start_Up_Test, A_Directory_That_Cannot_Be_Written_Ends_The_Program_Without_A_Message)
{
    The_Session.Program.App_Path = Home / "not there";

    EXPECT_FALSE(Start_Up(The_Session));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Start_Up_Test, A_Pending_Batch_Stays_While_Another_Shell_Or_A_Job_Is_Alive)
{
    const auto batch = Home / "focus" / "batch.bat";
    Put(batch, "cd x\r\n");
    {
        const auto other_shell = Sign_Of_Shell(The_Session.Program);
        EXPECT_FALSE(Drop_Pending_Batch(The_Session.Program));
        EXPECT_TRUE(std::filesystem::exists(batch));
    }
    {
        const auto job = Lock::Take(Home / "focus");
        EXPECT_FALSE(Drop_Pending_Batch(The_Session.Program));
        EXPECT_TRUE(std::filesystem::exists(batch));
    }
}

TEST_F(Start_Up_Test, A_Pending_Batch_Goes_To_The_Bin_At_Start_And_A_Job_File_Stays)
{
    Put(Home / "focus" / "batch.bat", "cd x\r\n");
    Put(Home / "focus" / "orveljob.bat", "echo off\r\n");

    ASSERT_TRUE(Drop_Pending_Batch(The_Session.Program));

    EXPECT_FALSE(std::filesystem::exists(Home / "focus" / "batch.bat"));
    EXPECT_EQ(Read_Whole(Home / "focus" / "bin" / "0001" / "batch.bat"), "cd x\r\n");
    EXPECT_TRUE(std::filesystem::exists(Home / "focus" / "orveljob.bat"));
}

TEST_F(Start_Up_Test, A_Dropped_Batch_Is_Told_With_Its_Runs_And_Put_Back)
{
    const auto batch = Home / "focus" / "batch.bat";
    EXPECT_FALSE(Drop_Pending_Batch(The_Session.Program)) << "there is none";
    Add_To_Batch(Home / "focus", "a.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true);
    Add_To_Batch(Home / "focus", "a.run\\Maize.run\\Okehampton_-_(N).run", "orvel401.exe", false);
    const auto bytes = Read_Whole(batch);

    const auto dropped = Drop_Pending_Batch(The_Session.Program);
    ASSERT_TRUE(dropped);
    EXPECT_EQ(Dropped_Text(*dropped), "2 simulations that were marked but not started went to the bin when the program "
                                      "opened, from which the batch can be put back.");
    EXPECT_TRUE(Dropped_Text({1, {}}).starts_with("1 simulation that was marked but not started went to the bin "));

    Put(batch, "others");
    EXPECT_FALSE(Put_Back_Batch(The_Session.Program, The_Session.Ask, *dropped));
    EXPECT_EQ(Read_Whole(batch), "others");
    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text,
              "Other simulations have been marked meanwhile. Please start them first, then put these back.");

    std::filesystem::remove(batch);
    EXPECT_TRUE(Put_Back_Batch(The_Session.Program, The_Session.Ask, *dropped));
    EXPECT_EQ(Read_Whole(batch), bytes);
    EXPECT_FALSE(Put_Back_Batch(The_Session.Program, The_Session.Ask, *dropped));
}

TEST_F(Start_Up_Test, The_First_Of_Several_Engines_Is_Taken)
{
    Put(Home / "ORVEL399.EXE", "");
    Put(Home / "orvel500.exe", "");

    Find_Engine(The_Session.Program);

    EXPECT_EQ(The_Session.Program.Engine_Exe, "ORVEL399.EXE");
    EXPECT_DOUBLE_EQ(The_Session.Program.Engine_Version, 3.99);
}

TEST_F(Start_Up_Test, A_Short_Engine_Name_Gives_The_Number_That_Stands_There)
{
    std::filesystem::remove(Home / "orvel401.exe");
    Put(Home / "orvel4.exe", "");

    Find_Engine(The_Session.Program);

    EXPECT_DOUBLE_EQ(The_Session.Program.Engine_Version, 0.04); // "4.e" reads as 4
}

TEST_F(Start_Up_Test, Without_An_Engine_The_Start_Goes_On)
{
    std::filesystem::remove(Home / "orvel401.exe");

    EXPECT_TRUE(Start_Up(The_Session));
    EXPECT_EQ(The_Session.Program.Engine_Exe, "");
    EXPECT_EQ(The_Session.Program.Engine_Version, 0);
    EXPECT_EQ(The_Session.Program.Aktuelle_ORVELSUITE_Version, "ORVELSUITE -396.5.");
}

TEST_F(Start_Up_Test, A_Decimal_Comma_Is_Warned_Of)
{
    Check_Decimal_Separator(The_Session.Ask, "3.5");
    EXPECT_TRUE(The_User.Messages.empty());

    Check_Decimal_Separator(The_Session.Ask, "3,5");
    EXPECT_EQ(
        The_User.Messages,
        std::vector{(Message{
            "System check",
            "ORVEL SUITE noticed that the 'komma' is used for decimal numbers in your system (see your regional "
            "settings).\r\nAs long as you do not select the 'point' as decimal separator you are not able to create "
            "valid input data files."})});
}

TEST_F(Start_Up_Test, A_Soil_Mode_Without_Its_Data_Does_Not_Open)
{
    Scenario(Home / "EFSA" / "T_N_wcerea.sze");

    EXPECT_TRUE(Mode_Available(The_Session.Program, The_Session.Ask, Focus()));
    EXPECT_TRUE(Mode_Available(The_Session.Program, The_Session.Ask, Tier_2()));
    EXPECT_FALSE(Mode_Available(The_Session.Program, The_Session.Ask, Tier_4()));
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Data error!", "EFSA Tier 4 scenario data not available in this installation!\r\n",
                                   Icon::Stop})});
}

TEST_F(Start_Up_Test, Shipped_Files_Become_Read_Only_And_Individual_Crops_Stay_Writable)
{
    for (const auto* name : {"c_apples.sze", "H_indiv.sze", "My_Indiv2.SZE", "C_01.cli", "indiv.cli"})
        Put(Home / "focus" / name, "x\r\n");
    EXPECT_FALSE(Files_Protected(The_Session.Program));
    std::vector<std::pair<int, int>> steps;

    EXPECT_TRUE(
        Protect_Files(The_Session.Program, The_Session.Ask, [&](int done, int all) { steps.emplace_back(done, all); }));

    EXPECT_TRUE(Files_Protected(The_Session.Program));
    EXPECT_TRUE(Is_Read_Only(Home / "focus" / "C_01.cli"));
    EXPECT_TRUE(Is_Read_Only(Home / "focus" / "indiv.cli"));
    EXPECT_FALSE(Is_Read_Only(Home / "focus" / "H_indiv.sze"));
    EXPECT_FALSE(Is_Read_Only(Home / "focus" / "My_Indiv2.SZE"));
    EXPECT_EQ(steps, (std::vector<std::pair<int, int>>{{0, 3}, {1, 3}, {2, 3}}));
}

} // namespace orvel
