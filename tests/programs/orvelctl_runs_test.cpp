#include "core/system/lock.h"
#include "programs/shell.h"
#include "runs/run_fixture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

// The commands mark, start and status, used as a script would.
class Orvelctl_Runs : public Run_Test {
protected:
    Outcome Do(const std::string& words)
    {
        return Shell(std::string(ORVELCTL) + " -C '" + Home.Path().string() + "' " + words);
    }

    void Three_Locations()
    {
        Pesticide("my test.psm", [](auto& document) {
            document.App_Loc_Count = 3;
            document.App_Location[2] = "Ch\xE2teaudun (C)";
            document.Applications[2] = document.Applications[1];
        });
        for (const auto* name : {"C_maize.sze", "H_maize.sze", "T_maize.sze"})
            Scenario(Home / "focus" / name);
        for (const auto* code : {"C", "H"})
            Climates(code);
    }

    static constexpr auto Mark_Hamburg =
        "mark --mode focus --pesticide 'my test.psm' --crop Maize --location 'Hamburg (H)'";
};

TEST_F(Orvelctl_Runs, A_Batch_Is_Marked_Started_Waited_For_And_Listed)
{
    Three_Locations();
    Good_Engine();

    const auto marked = Do("mark --mode focus --pesticide 'my test.psm' --crop Maize --all --output minimum");
    EXPECT_EQ(marked.Code, 0) << marked.Told;
    EXPECT_EQ(marked.Printed, "focus/my_-_test.run/Maize.run/Ch\u00E2teaudun_-_(C)--_-_irrigated.run\nfocus/"
                              "my_-_test.run/Maize.run/Hamburg_-_(H).run\n");

    const auto started = Do("start --mode focus --jobs 2 --wait");
    EXPECT_EQ(started.Code, 0) << started.Told;
    EXPECT_TRUE(started.Told.ends_with("2 of 2 runs, 100 %\n")) << started.Told;

    const auto listed = Do("status --mode focus");
    EXPECT_EQ(listed.Code, 0);
    EXPECT_TRUE(listed.Printed.starts_with("my test\tMaize\tCh\u00E2teaudun (C), irrigated\t")) << listed.Printed;
    EXPECT_TRUE(listed.Printed.ends_with("\tData available\n")) << listed.Printed;
    EXPECT_EQ(std::ranges::count(listed.Printed, '\n'), 2);
    const auto json = Do("status --mode focus --json");
    EXPECT_NE(json.Printed.find("\"status\": \"Data available\",\n    \"verdict\": \"complete\",\n"
                                "    \"years_expected\": 26,\n    \"years_found\": 26,\n    \"exit\": 0,\n"
                                "    \"changed_inputs\": []\n"),
              std::string::npos)
        << json.Printed;
}

TEST_F(Orvelctl_Runs, A_Location_Is_Given_In_The_Letters_Of_The_Terminal)
{
    Three_Locations();

    const auto marked =
        Do("mark --mode focus --pesticide 'my test.psm' --crop Maize --location 'Ch\u00E2teaudun (C), irrigated'");

    EXPECT_EQ(marked.Code, 0) << marked.Told;
    EXPECT_TRUE(fs::exists(Home / "focus" / "batch.bat"));
}

TEST_F(Orvelctl_Runs, A_Combination_Already_Run_Is_Refused_Unless_It_Shall_Be_Replaced)
{
    Three_Locations();
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    Put(Home / "focus" / "my_-_test.run" / "Maize.run" / "Hamburg_-_(H).run" / "echo.orv", "done");
    fs::remove(Home / "focus" / "batch.bat");

    const auto refused = Do(Mark_Hamburg);
    EXPECT_EQ(refused.Code, 1);
    EXPECT_EQ(refused.Told, "Starting ORVEL Simulations: You already performed a ORVEL-Simulation using this "
                            "combination.If you continue the previous "
                            "simulation will be removed!\n");

    const auto replaced = Do(std::string(Mark_Hamburg) + " --replace");
    EXPECT_EQ(replaced.Code, 0);
    EXPECT_EQ(replaced.Told, "");
}

TEST_F(Orvelctl_Runs, What_The_Form_Warns_Of_Is_Refused_With_Its_Text)
{
    Three_Locations();

    const auto refused =
        Do("mark --mode focus --pesticide 'my test.psm' --crop Maize --location 'Thiva (T), irrigated'");
    EXPECT_EQ(refused.Code, 1);
    EXPECT_EQ(
        refused.Told,
        "Starting ORVEL Simulations: No application pattern for Thiva (T) defined in the selected pesticide file\n");
    EXPECT_EQ(Do("mark --mode focus --pesticide none.psm --crop Maize --all").Code, 1);
    EXPECT_EQ(Do("mark --mode focus --pesticide 'my test.psm' --crop Corn --all").Code, 1);
    EXPECT_EQ(Do("mark --mode focus --pesticide 'my test.psm' --crop Maize --location Nowhere").Code, 1);
    EXPECT_EQ(Do("mark --mode efsa --pesticide 'my test.psm' --crop Maize --all").Told,
              "Data error!: EFSA Tier 2 scenario data not available in this installation!\r\n\n");
    EXPECT_EQ(Do(std::string(Mark_Hamburg) + " --tillage 41").Code, 1);
}

TEST_F(Orvelctl_Runs, The_Tillage_Depth_Reaches_The_Run_Where_The_Scenario_Has_Tillage)
{
    Three_Locations();
    ASSERT_EQ(Do(std::string(Mark_Hamburg) + " --output minimum --tillage 20").Code, 0);
    EXPECT_NE(Read_Whole(Home / "focus" / "orvel.inp").find("\r\n00000001 00.\r\n"), std::string::npos);
    fs::remove(Home / "focus" / "batch.bat");
    Scenario(Home / "focus" / "H_maize.sze", [](auto& document) { document.Crops[0].SZE_Rot_Tillage = 1; });

    ASSERT_EQ(Do(std::string(Mark_Hamburg) + " --output minimum --tillage 20").Code, 0);
    EXPECT_NE(Read_Whole(Home / "focus" / "orvel.inp").find("\r\n00000001 20.\r\n"), std::string::npos);
}

TEST_F(Orvelctl_Runs, The_Scaling_And_The_Kept_Number_Reach_The_Soil_Modes)
{
    Pesticide("test.psm", [](auto& document) { document.App_Location[1] = "Total content - North (T_N)"; });
    for (const auto* file : {"EFSA/T_N_wcerea.sze", "EFSA_T4/T_N_wcerea.sze", "EFSA_T4/C_wcerea.sze"})
        Scenario(Home / file);
    for (const auto* file : {"EFSA/run.bat", "EFSA_T4/run.bat"})
        Put(Home / file, "rem\r\n");
    Put(Home / "EFSA" / "orvel.inp", "026 01 01 31 12 Version 5          SOIL 1.5 \r\n");
    const std::string rest = " --pesticide test.psm --crop 'Winter cereals' --location 'Total content - North (T_N)'";

    EXPECT_EQ(Do("mark --mode efsa" + rest).Code, 0);
    EXPECT_EQ(Do("mark --mode efsa_t4 --scaling -0.5" + rest).Code, 0);
    EXPECT_EQ(Do("mark --mode efsa_t4 --scaling 5.05" + rest).Code, 1);

    EXPECT_TRUE(
        Read_Whole(Home / "EFSA" / "orvel.inp").starts_with("026 01 01 31 12 Version 5          SOIL 1.5 \r\n"));
    EXPECT_TRUE(
        Read_Whole(Home / "EFSA_T4" / "orvel.inp").starts_with("026 01 01 31 12 Version 5          SOIL-0.5\r\n"));
}

TEST_F(Orvelctl_Runs, A_Run_That_Fails_Is_The_Exit_Code_Of_The_Waiting_Start)
{
    Three_Locations();
    Engine("exit 2");
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);

    const auto started = Do("start --mode focus --wait");

    EXPECT_EQ(started.Code, 1);
    EXPECT_NE(started.Told.find("Starting ORVEL Simulations: Not every simulation has finished."), std::string::npos)
        << started.Told;
    EXPECT_TRUE(Do("status --mode focus").Printed.ends_with("\tScheduled\tfailed\n"));
    EXPECT_EQ(Do("start --mode focus").Code, 1); // nothing is pending any more
}

TEST_F(Orvelctl_Runs, Failed_Runs_Are_Run_Again_And_Finished_Ones_Stay_As_They_Are)
{
    Three_Locations();
    Engine("exit 2");
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    ASSERT_EQ(Do("start --mode focus --wait --limit 100").Code, 1);
    Good_Engine();

    EXPECT_EQ(Do("start --mode focus --resume --wait").Told,
              "Starting ORVEL Simulations: There is no such simulation in the last job.\n");
    EXPECT_EQ(Do("start --mode focus --failed --wait").Code, 0);
    EXPECT_EQ(Do("start --mode focus --failed --wait").Code, 0); // nothing is left to do
    EXPECT_EQ(Do("start --mode focus --failed --resume").Code, 2);
    EXPECT_EQ(Do("start --mode focus --limit 0").Code, 2);
    EXPECT_TRUE(Do("status --mode focus").Printed.ends_with("\tData available\n"));
}

TEST_F(Orvelctl_Runs, A_Job_Is_Stopped_And_Resumed)
{
    Three_Locations();
    Engine("echo > echo.orv; while true; do sleep 0.02; done");
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    ASSERT_EQ(Do("start --mode focus").Code, 0);
    const fs::path run = Home / "focus" / "my_-_test.run" / "Maize.run" / "Hamburg_-_(H).run";
    for (int i = 0; i < 1000 && !fs::exists(run / "echo.orv"); ++i)
        ::usleep(10'000);

    EXPECT_EQ(Do("stop --mode focus --wait").Code, 0);

    EXPECT_TRUE(Do("status --mode focus").Printed.ends_with("\tData available\tstopped\n"));
    EXPECT_EQ(Do("stop --mode focus").Code, 1);
    Good_Engine();
    EXPECT_EQ(Do("start --mode focus --resume --wait").Code, 0);
    EXPECT_EQ(Do("verify --mode focus").Code, 0);
}

TEST_F(Orvelctl_Runs, Verify_Prints_A_Line_A_Run_And_Status_Names_The_Inputs_That_Have_Changed)
{
    Three_Locations();
    Good_Engine();
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    ASSERT_EQ(Do("start --mode focus --wait").Code, 0);
    const std::string run = (Home / "focus" / "my_-_test.run" / "Maize.run" / "Hamburg_-_(H).run").string();

    EXPECT_EQ(Do("verify '" + run + "'").Printed, "ok\t" + run + "\t\n");
    EXPECT_EQ(Do("verify").Code, 2);
    Pesticide("my test.psm", [](auto& document) { document.PSM_Title = "Another title"; });
    Put(Home / "focus" / "H_03.cli", "other weather");

    const auto status = Do("status --mode focus --json");
    EXPECT_NE(status.Printed.find("\"changed_inputs\": [\"my test.psm\", \"../../../H_03.cli\"]"), std::string::npos)
        << status.Printed;
    const auto verified = Do("verify --mode focus");
    EXPECT_EQ(verified.Code, 1);
    EXPECT_EQ(verified.Printed, "changed\t" + run + "\t../../../H_03.cli has changed.\n");
}

TEST_F(Orvelctl_Runs, Status_Tells_Which_Input_Cannot_Be_Read_And_Lists_The_Runs_All_The_Same)
{
    Three_Locations();
    Good_Engine();
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    ASSERT_EQ(Do("start --mode focus --wait").Code, 0);
    fs::remove(Home / "focus" / "H_03.cli");
    ASSERT_EQ(::mkfifo((Home / "focus" / "H_03.cli").c_str(), 0600), 0);

    const auto status = Do("status --mode focus --json");

    EXPECT_EQ(status.Code, 1);
    EXPECT_NE(status.Told.find("H_03.cli cannot be read: "), std::string::npos) << status.Told;
    EXPECT_NE(status.Printed.find("\"changed_inputs\": [\"../../../H_03.cli\"]"), std::string::npos) << status.Printed;
    fs::remove(Home / "focus" / "H_03.cli"); // what is not there is another matter
    EXPECT_EQ(Do("status --mode focus --json").Code, 0);
}

TEST_F(Orvelctl_Runs, Tables_Of_A_Run_That_Is_Not_Complete_Name_What_Is_Missing_And_Leave_No_Cache)
{
    Three_Locations();
    Good_Engine(12); // of 26 years
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    ASSERT_EQ(Do("start --mode focus --wait").Code, 1);
    const fs::path run = Home / "focus" / "my_-_test.run" / "Maize.run" / "Hamburg_-_(H).run";

    for (const std::string command : {"tables", "balance"}) {
        const auto shown = Do(command + " '" + run.string() + "'");
        EXPECT_EQ(shown.Code, 1);
        EXPECT_NE(shown.Told.find("12 of 26 years"), std::string::npos) << shown.Told;
        EXPECT_FALSE(shown.Printed.empty());
    }
    EXPECT_TRUE(List_Files(run, "*Balance.orv").empty());
    EXPECT_FALSE(fs::exists(run / "year.orv"));
    const auto report = Do("report --mode focus --pesticide 'my test' --crop Maize");
    EXPECT_EQ(report.Code, 1);
    EXPECT_NE(report.Told.find("Maize, Hamburg (H): The simulation is incomplete: 12 of 26 years."), std::string::npos)
        << report.Told;
}

TEST_F(Orvelctl_Runs, A_Second_Start_Is_Refused_While_A_Job_Is_At_Work)
{
    Three_Locations();
    ASSERT_EQ(Do(Mark_Hamburg).Code, 0);
    const auto job = Lock::Take(Home / "focus");

    EXPECT_EQ(Do("start --mode focus").Told,
              "Starting ORVEL Simulations: The current ORVEL simulation is still running.\n");
}

TEST_F(Orvelctl_Runs, A_Wrong_Command_Line_Has_Exit_Code_2)
{
    EXPECT_EQ(Do("status").Code, 2);
    EXPECT_EQ(Do("status --mode fokus").Code, 2);
    EXPECT_EQ(Do("start --mode focus --jobs 0").Code, 2);
    EXPECT_EQ(Do("mark --mode focus --pesticide a.psm --crop Maize").Code, 2);
    EXPECT_EQ(Do("mark --mode focus --pesticide a.psm --crop Maize --all --location x").Code, 2);
    EXPECT_EQ(Do("mark --mode focus --pesticide '\u4E2D.psm' --crop Maize --all").Code, 2);
    EXPECT_EQ(Do("status --mode focus").Code, 0);
    EXPECT_EQ(Do("status --mode focus").Printed, "");
}

} // namespace orvel
