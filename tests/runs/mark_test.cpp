#include "runs/mark.h"

#include "core/system/lock.h"
#include "core/text.h"
#include "mark_fixture.h"
#include "runs/job_file.h"

#include <chrono>
#include <thread>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Title = "Starting ORVEL Simulations";

} // namespace

TEST_F(Mark_Test, A_Marked_Combination_Has_Its_Directory_With_All_Files_And_Five_Lines_In_The_Batch)
{
    auto choice = Maize_At_Hamburg();
    choice.Pattern = 1;

    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    const fs::path run = Home / "focus" / "test.run" / "Maize.run" / "Hamburg_-_(H).run";
    EXPECT_EQ(Names_In(run),
              (std::vector<std::string>{"Haude.dat", "H_maize.sze", "orvel.inp", "orvel401.exe", "test.psm"}));
    EXPECT_EQ(Read_Whole(run / "orvel.inp"), Read_Whole(Home / "focus" / "orvel.inp"));
    EXPECT_TRUE(
        Read_Whole(run / "orvel.inp")
            .starts_with(
                "026 01 01 31 12 Version 5\r\n..\\..\\..\\H_maize.sze\r\ntest.psm\r\n..\\..\\..\\H_01.cli\r\n"));
    EXPECT_EQ(::access((run / "orvel401.exe").c_str(), X_OK), 0);
    EXPECT_EQ(Read_Whole(Home / "focus" / "batch.bat"), "cd test.run\\Maize.run\\Hamburg_-_(H).run\r\n"
                                                        "if exist *.orv del *.orv\r\n"
                                                        "orvel401.exe\r\n"
                                                        "if exist orvel401.exe del orvel401.exe\r\n");
    EXPECT_EQ(Read_Batch(Home / "focus"), std::vector{Hamburg});
    EXPECT_EQ(Run_Caption(Home / "focus"), "Start Batch");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Mark_Test, A_Second_Combination_Climbs_Back_First_And_Its_Path_Is_In_The_Code_Page_Of_The_Job)
{
    auto choice = Maize_At_Hamburg();
    Scenario(Home / "focus" / "C_maize.sze");
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    choice = Chosen(Focus(), Maize, "Ch\xE2teaudun (C), irrigated", "test.psm");

    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_TRUE(Read_Whole(Home / "focus" / "batch.bat")
                    .ends_with("cd ..\\..\\..\\\r\n"
                               "cd test.run\\Maize.run\\Ch\x83teaudun_-_(C)--_-_irrigated.run\r\n"
                               "if exist *.orv del *.orv\r\n"
                               "orvel401.exe\r\n"
                               "if exist orvel401.exe del orvel401.exe\r\n"));
    EXPECT_EQ(Read_Batch(Home / "focus").at(1), "test.run\\Maize.run\\Ch\xE2teaudun_-_(C)--_-_irrigated.run");
    EXPECT_TRUE(
        fs::is_directory(Home / "focus" / "test.run" / "Maize.run" / "Ch\u00E2teaudun_-_(C)--_-_irrigated.run"));
}

TEST_F(Mark_Test, Marking_The_Same_Combination_Twice_Is_Told_And_Keeps_One_Block)
{
    const auto choice = Maize_At_Hamburg();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    const auto batch = Read_Whole(Home / "focus" / "batch.bat");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Already_Selected);

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{std::string(Title), "You already selected this combination in your batch job!"})});
    EXPECT_EQ(Read_Whole(Home / "focus" / "batch.bat"), batch);
}

TEST_F(Mark_Test, An_Earlier_Simulation_Is_Replaced_Only_If_The_User_Agrees)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg));
    Put(Run_Of(Hamburg) / "Echo.orv", "done\r\n");
    Put(Run_Of(Hamburg) / "notes.txt", "mine\r\n");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Cancelled);

    EXPECT_EQ(The_User.Messages, std::vector{(Message{std::string(Title),
                                                      "You already performed a ORVEL-Simulation using this combination."
                                                      "If you continue the previous simulation will be removed!",
                                                      Icon::Warning,
                                                      {Button::Ok, Button::Cancel},
                                                      Button::Cancel})});
    EXPECT_EQ(Names_In(Run_Of(Hamburg)), (std::vector<std::string>{"Echo.orv", "notes.txt"}));
    EXPECT_FALSE(Pending());

    The_User.Answers = {Button::Ok};
    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    EXPECT_FALSE(fs::exists(Run_Of(Hamburg) / "notes.txt"));
    EXPECT_TRUE(fs::exists(Run_Of(Hamburg) / "orvel.inp"));
    EXPECT_EQ(List_Directories(Home / "focus" / "test.run" / "Maize.run", "*").size(), 1u);
}

TEST_F(Mark_Test, A_Directory_Without_An_Echo_Is_Cleared_Without_A_Question)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg));
    Put(Run_Of(Hamburg) / "old.psm", "x");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(fs::exists(Run_Of(Hamburg) / "old.psm"));
}

TEST_F(Mark_Test, A_Run_At_Work_Cannot_Be_Replaced)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg));
    Put(Run_Of(Hamburg) / "plot.orv", "half");
    const auto engine = Lock::Take(Run_Of(Hamburg));

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    ASSERT_EQ(The_User.Messages.size(), 1u);
    EXPECT_EQ(The_User.Messages[0].Title, Title);
    EXPECT_EQ(The_User.Messages[0].Text,
              "An error occured when preparing this simulation (errorcode 1).\r\n"
              "ORVEL could not delete the output files of the following (previous) simulation: \r\n" +
                  Run_Of(Hamburg).string() +
                  ".\r\n\r\nYou are eventually running a ORVEL-Simulation using this combination. Please wait until "
                  "the current simulation has "
                  "finished.\r\nIf you are not running a ORVEL simulation, please check whether you opened any ORVEL "
                  "output files (extension "
                  "ORV.)\r\n\r\n");
    EXPECT_TRUE(fs::exists(Run_Of(Hamburg) / "plot.orv"));
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Run_That_Waits_In_The_Job_At_Work_Cannot_Be_Replaced)
{
    const auto choice = Maize_At_Hamburg();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    fs::rename(Home / "focus" / "batch.bat", Home / "focus" / "orveljob.bat");
    const auto job = Lock::Take(Home / "focus");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);
    EXPECT_NE(The_User.Messages.at(0).Text.find("(errorcode 1)"), std::string::npos);

    fs::remove(Run_Of(Hamburg) / "orvel401.exe"); // as the job does behind the run
    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
}

TEST_F(Mark_Test, A_Single_Run_At_Work_In_The_Installation_Directory_Keeps_No_One_From_Marking)
{
    const auto choice = Maize_At_Hamburg();
    const auto single_run = Lock::Take(Home.Path());

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
}

TEST_F(Mark_Test, Another_Program_That_Marks_Is_Waited_For)
{
    const auto choice = Maize_At_Hamburg();
    auto other = Lock::Take(Home / "Haude.dat");
    bool ended = false;
    std::thread end([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        ended = true;
        other.reset();
    });

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    end.join();
    EXPECT_TRUE(ended);
}

TEST_F(Mark_Test, A_Directory_That_Holds_A_Directory_Is_Not_Replaced)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg) / "kept results");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    EXPECT_EQ(The_User.Messages.at(0).Text,
              "An error occured when preparing this simulation (errorcode 2).\r\n"
              "ORVEL could not delete the following directory (previous simulation): \r\n" +
                  Run_Of(Hamburg).string() +
                  ".\r\n\r\nPlease Check whether there are still files left in the directory. If you are using Windows "
                  "NT or Windows 2000, please check "
                  "whether you have sufficient rights to create or delete directories.");
    EXPECT_TRUE(fs::exists(Run_Of(Hamburg) / "kept results"));
}

TEST_F(Mark_Test, A_Marked_Combination_Whose_Directory_Is_Lost_Can_Be_Marked_Again)
{
    const auto choice = Maize_At_Hamburg();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    const std::string batch = Read_Whole(Home / "focus" / "batch.bat");
    fs::remove_all(Home / "focus" / "test.run");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_TRUE(fs::exists(Home / "focus" / "test.run" / "Maize.run" / "Hamburg_-_(H).run" / "orvel.inp"));
    EXPECT_EQ(Read_Whole(Home / "focus" / "batch.bat"), batch);
}

TEST_F(Mark_Test, A_Name_That_Begins_Or_Ends_With_A_Blank_Is_Refused)
{
    for (const std::string name : {" test.psm", "test.psm "}) {
        Pesticide(name);
        auto choice = Maize_At_Hamburg();
        choice.Pesticide = name;
        EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed) << name;
    }
    EXPECT_FALSE(fs::exists(Home / "focus" / "batch.bat"));
}

TEST_F(Mark_Test, The_Soil_Modes_Copy_Run_Bat_As_Stage_8_And_No_Scenario)
{
    Pesticide("test.psm");
    Scenario(Home / "EFSA" / "T_N_maize.sze");
    const auto choice = Chosen(Tier_2(), Maize, "Total content - North (T_N)", "test.psm");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Tier_2(), choice), Mark_Result::Failed);
    EXPECT_NE(The_User.Messages.at(0).Text.find("(errorcode 8)"), std::string::npos);

    Put(Home / "EFSA" / "run.bat", "rem\r\n");
    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Tier_2(), choice), Mark_Result::Marked);
    const fs::path run = Home / "EFSA" / "test.run" / "Maize.run" / "Total_-_content_-_-_-_North_-_(T_N).run";
    EXPECT_EQ(Names_In(run),
              (std::vector<std::string>{"Haude.dat", "orvel.inp", "orvel401.exe", "run.bat", "test.psm"}));
    EXPECT_TRUE(fs::exists(Home / "EFSA" / "batch.bat"));
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Pending_Batch_Is_Found_Again_By_Another_Program_And_Continued)
{
    auto choice = Maize_At_Hamburg();
    Scenario(Home / "focus" / "C_maize.sze");
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    const Program_State other = The_Session.Program;

    EXPECT_EQ(Read_Batch(Home / "focus"), std::vector{Hamburg});
    choice = Chosen(Focus(), Maize, "Ch\xE2teaudun (C), irrigated", "test.psm");
    EXPECT_EQ(Mark_For_Batch(other, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_EQ(Parse_Job(Read_Whole(Home / "focus" / "batch.bat")).size(), 2u);
    EXPECT_TRUE(Read_Batch(Home / "EFSA").empty());
}

TEST_F(Mark_Test, A_Name_That_A_Job_Could_Not_Tell_From_Another_Is_Refused)
{
    // The job writes the sharp s as the byte that is an a with acute here.
    auto choice = Maize_At_Hamburg();
    const auto mark = [&](const char* name) {
        choice.Pesticide = name;
        Pesticide(name);
        return Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice);
    };
    ASSERT_EQ(mark("\xE1.psm"), Mark_Result::Marked);

    EXPECT_EQ(mark("\xDF.psm"), Mark_Result::Failed);

    EXPECT_NE(The_User.Messages.back().Text.find("A job could not tell this simulation from the one in"),
              std::string::npos);
    EXPECT_EQ(Read_Batch(Home / "focus").size(), 1u);
    EXPECT_FALSE(fs::exists(Home / "focus" / "\u00DF.run"));
}

TEST_F(Mark_Test, The_Directory_Of_A_Marked_Combination_Is_Known_By_Another_Name)
{
    // As on a system that looks at no case, when the batch was written with other letters.
    const auto choice = Maize_At_Hamburg();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    const fs::path batch = Home / "focus" / "batch.bat";
    Write_Whole(batch, Replace_All(Read_Whole(batch), "test.run", "TEST.run"));
    fs::rename(Home / "focus" / "test.run", Home / "focus" / "TEST.run");
    fs::create_directory_symlink("TEST.run", Home / "focus" / "test.run");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Already_Selected);

    EXPECT_EQ(Read_Batch(Home / "focus").size(), 1u);
}

TEST_F(Mark_Test, Two_Directories_That_One_Line_Fits_Are_An_Error_And_Never_Taken_For_Each_Other)
{
    for (const char* name : {"\u00E1.run", "\u00DF.run"})
        fs::create_directories(Home / "focus" / name / "c.run" / "l.run");

    EXPECT_THROW(Resolve_Runs(Home / "focus", {{.Directory = "\xE1.run\\c.run\\l.run", .Engine = "orvel401.exe"}}),
                 File_Error);
}

TEST_F(Mark_Test, Two_Pesticide_Files_That_Share_A_Directory_Do_Not_Take_Each_Others_Place)
{
    auto choice = Maize_At_Hamburg();
    const auto mark = [&](const char* name) {
        choice.Pesticide = name;
        Pesticide(name);
        return Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice);
    };
    ASSERT_EQ(mark("a,b.psm"), Mark_Result::Marked);
    fs::remove(Home / "focus" / "batch.bat");

    EXPECT_EQ(mark("a--b.psm"), Mark_Result::Failed); // its directory is a--b.run, too

    EXPECT_NE(The_User.Messages.back().Text.find("holds one of another pesticide file, a,b.psm"), std::string::npos);
    EXPECT_EQ(mark("a,b.psm"), Mark_Result::Marked);
}

TEST_F(Mark_Test, A_Crop_That_Is_A_Link_Is_Refused)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Home / "elsewhere" / "Hamburg_-_(H).run");
    Put(Home / "elsewhere" / "Hamburg_-_(H).run" / "thesis.txt", "x");
    fs::create_directories(Home / "focus" / "test.run");
    fs::create_directory_symlink(Home / "elsewhere", Home / "focus" / "test.run" / "Maize.run");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    EXPECT_NE(The_User.Messages.back().Text.find("is a link, which leads elsewhere"), std::string::npos);
    EXPECT_TRUE(fs::exists(Home / "elsewhere" / "Hamburg_-_(H).run" / "thesis.txt"));
}

TEST_F(Mark_Test, The_Combination_Behind_The_500th_Is_Refused_With_A_Message)
{
    const auto choice = Maize_At_Hamburg();
    std::string batch;
    for (int i = 1; i <= 500; ++i)
        batch += Format_Job_Run("a.run\\b.run\\" + std::to_string(i) + ".run", "orvel401.exe", i == 1);
    Put(Home / "focus" / "batch.bat", batch);

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{std::string(Title),
                                   "A batch holds at most 500 combinations. Please start it before you select further "
                                   "ones."})});
    EXPECT_EQ(Read_Whole(Home / "focus" / "batch.bat"), batch);
}

TEST_F(Mark_Test, Mark_All_Marks_The_Locations_With_Application_Data_And_Passes_Over_The_Others)
{
    Pesticide("test.psm", [](auto& document) {
        document.App_Loc_Count = 4;
        document.App_Location[2] = "Ch\xE2teaudun (C)";
        document.Applications[2] = document.Applications[1];
        document.App_Location[3] = "Sevilla (S)";
        document.Applications[3] = document.Applications[1];
        document.Applications[3][2].App_Rate = 99; // irregular
    });
    for (const auto* name : {"C_maize.sze", "H_maize.sze", "S_maize.sze", "T_maize.sze"})
        Scenario(Home / "focus" / name);
    std::vector<int> steps;

    const auto result = Mark_All(The_Session.Program, The_Session.Ask, Focus(), "test.psm", Maize, {},
                                 [&](int i, int) { steps.push_back(i); });

    EXPECT_EQ(result.Marked, 2);
    EXPECT_EQ(result.Passed_Over, 2);
    EXPECT_EQ(result.Failed, 0);
    EXPECT_EQ(Read_Batch(Home / "focus"),
              (std::vector<std::string>{"test.run\\Maize.run\\Ch\xE2teaudun_-_(C)--_-_irrigated.run", Hamburg}));
    EXPECT_EQ(steps, (std::vector{0, 1, 2, 3}));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Mark_Test, Mark_All_Of_A_Soil_Mode_Counts_Locations_Without_A_Scenario_Apart)
{
    Pesticide("test.psm", [](auto& document) { document.App_Location[1] = "Total content - North (T_N)"; });
    Put(Home / "EFSA" / "run.bat", "rem\r\n");
    for (const char* name : {"T_N_beans.sze", "T_C_beans.sze"})
        Scenario(Home / "EFSA" / name);

    const auto result = Mark_All(The_Session.Program, The_Session.Ask, Tier_2(), "test.psm",
                                 Crop_Named("Beans (field)"), {.Tillage = "20"});

    EXPECT_EQ(Marked_Text(result), "1 combination marked, 1 without valid application data, 7 without a scenario file");
    EXPECT_TRUE(The_User.Messages.empty());
}

} // namespace orvel
