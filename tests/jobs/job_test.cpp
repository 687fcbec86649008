#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "jobs/job.h"
#include "jobs/job_log.h"
#include "jobs/job_status.h"
#include "jobs/start_batch.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/run_fixture.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Waits until something holds, at most ten seconds.
template <class Condition> bool Soon(Condition condition)
{
    for (int i = 0; i < 1000; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

} // namespace

TEST(Job_Log, Its_Times_Are_Read_Back_And_Foreign_Lines_Passed_Over)
{
    const std::time_t now = 1700000000;
    EXPECT_EQ(Time_Of_Text(Time_Text(now)), now);
    EXPECT_EQ(Time_Text(now).size(), 19u);
    EXPECT_EQ(Time_Of_Text("yesterday"), 0);
    EXPECT_EQ(Time_Of_Text("2E24-01-02 03:04:05"), 0); // the number of a year that no calendar has

    const auto history =
        Parse_Job_Log(Time_Text(now) + "\tbegin\t\t2 runs\nnonsense\n" + Time_Text(now) + "\tstarted\ta/b/c\t\n" +
                      Time_Text(now) + "\tkilled\ta/b/c\tsignal 9\n\tstarted\td\n");
    EXPECT_EQ(history.Begin, now);
    EXPECT_FALSE(history.Ended);
    EXPECT_EQ(history.Runs.at("a/b/c"), Job_Event::Killed);
    EXPECT_EQ(history.Runs.at("d"), Job_Event::Started);
}

// Jobs of a small installation, with shell scripts as engines.
class Job_Test : public Run_Test {
protected:
    fs::path Add_Run(const std::string& name)
    {
        const std::string run = "p.run\\c.run\\" + name + ".run";
        const fs::path path = Run_Path(Home / "focus", run);
        fs::create_directories(path);
        Copy_Whole(Home / "orvel401.exe", path / "orvel401.exe");
        Put(path / "orvel.inp", "002 01 01 31 12 Version "
                                "5\r\n..\\..\\..\\H.sze\r\np.psm\r\n..\\..\\..\\H_01.cli\r\n..\\..\\..\\H_02.cli\r\n"
                                "00000001 00.\r\n");
        for (const auto& input :
             {path / "p.psm", Home / "focus" / "H.sze", Home / "focus" / "H_01.cli", Home / "focus" / "H_02.cli"})
            Put(input, "an input\r\n");
        Job += Format_Job_Run(run, "orvel401.exe", Job.empty());
        Put(Home / "focus" / "orveljob.bat", Format_Job(Job));
        return path;
    }
    Job_Result Run(int jobs = 2, Job_Selection selection = Job_Selection::Fresh)
    {
        return Run_Job(Home / "focus", {.Jobs = jobs, .Selection = selection});
    }
    static std::string Reason(const fs::path& run) { return Read_Run_Record(run).value().Reason; }
    static orvel::Verdict Verdict_Of(const fs::path& run) { return Read_Run_Record(run).value().Verdict; }
    std::string Log() { return Read_Whole(Home / "focus" / "orveljob.log"); }
    std::string Job;
};

TEST_F(Job_Test, Every_Run_Works_In_Its_Directory_And_Loses_Its_Engine_Afterwards)
{
    Good_Engine(2, "pwd > where.txt");
    const auto first = Add_Run("first");
    const auto second = Add_Run("second");
    Put(first / "old.orv", "old"); // of a job that was cut off
    Put(first / "OLD.ORV", "old");

    const auto result = Run();

    EXPECT_EQ(result.Runs, 2);
    EXPECT_EQ(result.Failed, 0);
    EXPECT_EQ(Read_Whole(first / "where.txt"), fs::canonical(first).string() + "\n");
    EXPECT_EQ(Read_Whole(second / "where.txt"), fs::canonical(second).string() + "\n");
    EXPECT_EQ(List_Files(first, "*"), (std::vector<std::string>{"chem.orv", "echo.orv", "orvel.inp", "p.psm",
                                                                "plot.orv", "run.json", "Wasser.orv", "where.txt"}));
    EXPECT_EQ(Verdict_Of(first), Verdict::Complete);
    EXPECT_NE(Log().find("\tfinished\tp.run/c.run/first.run\t"), std::string::npos);
    EXPECT_TRUE(Read_Job_Log(Home / "focus").Ended);
}

TEST_F(Job_Test, A_Run_That_Fails_Does_Not_Stop_The_Others)
{
    Engine("exit 1");
    Add_Run("fails");
    Engine("kill -9 $$");
    Add_Run("dies");
    Engine("echo '*** ERROR 21: SCENARIO FILE NOT FOUND' > echo.orv");
    const auto wrong = Add_Run("wrong");
    Good_Engine(2);
    Add_Run("works");

    EXPECT_EQ(Run(1).Failed, 3);

    const auto history = Read_Job_Log(Home / "focus");
    EXPECT_EQ(history.Runs.at("p.run/c.run/fails.run"), Job_Event::Failed);
    EXPECT_EQ(history.Runs.at("p.run/c.run/dies.run"), Job_Event::Killed);
    EXPECT_EQ(history.Runs.at("p.run/c.run/wrong.run"), Job_Event::Failed);
    EXPECT_EQ(history.Runs.at("p.run/c.run/works.run"), Job_Event::Finished);
    EXPECT_NE(Log().find("exit code 1"), std::string::npos);
    EXPECT_NE(Log().find("signal 9"), std::string::npos);
    EXPECT_FALSE(fs::exists(wrong / "orvel401.exe"));
}

TEST_F(Job_Test, What_A_Failed_Engine_Printed_Stays_For_The_User)
{
    Engine("echo cannot go on >&2; exit 3");
    const auto run = Add_Run("fails");

    Run();

    EXPECT_EQ(Read_Whole(run / "progress.orv"), "cannot go on\n");
}

TEST_F(Job_Test, A_Missing_Directory_A_Missing_Engine_And_One_That_Cannot_Start_Are_Told_In_The_Log)
{
    fs::remove_all(Add_Run("gone"));
    fs::remove(Add_Run("bare") / "orvel401.exe");
    const auto damaged = Add_Run("damaged");
    Put(damaged / "orvel401.exe", "\x7F"
                                  "ELF, but no more");

    EXPECT_EQ(Run().Failed, 3);

    EXPECT_NE(Log().find("gone.run\tThe run directory is missing."), std::string::npos);
    EXPECT_NE(Log().find("bare.run\tThe engine orvel401.exe is missing in the run directory."), std::string::npos);
    EXPECT_NE(Log().find("damaged.run\tCannot start"), std::string::npos);
}

TEST_F(Job_Test, A_Windows_Engine_Is_Refused_Without_Wine_And_Goes_Through_It_Otherwise)
{
    Put(Home / "orvel401.exe", "MZ\x90");
    const auto run = Add_Run("windows");
    const std::string path = std::getenv("PATH");
    fs::create_directory(Home / "bin");
    ::setenv("PATH", (Home / "bin").c_str(), 1);
    Run();
    EXPECT_NE(Log().find("is a Windows program, and wine, which could run it, is not installed."), std::string::npos);

    Good_Engine(2, "echo \"$1\" > what.txt");
    fs::rename(Home / "orvel401.exe", Home / "bin" / "wine");
    Put(Home / "orvel401.exe", "MZ\x90");
    ::setenv("PATH", ((Home / "bin").string() + ":" + path).c_str(), 1); // before one that is installed
    EXPECT_EQ(Run(1, Job_Selection::Failed).Failed, 0);
    ::setenv("PATH", path.c_str(), 1);

    EXPECT_EQ(Read_Whole(run / "what.txt"), (run / "orvel401.exe").string() + "\n");
}

TEST_F(Job_Test, A_Run_Whose_Lock_Another_Engine_Holds_Is_Left_Alone)
{
    const auto run = Add_Run("busy");
    Put(run / "plot.orv", "of the other");
    const auto other = Lock::Take(run);

    EXPECT_EQ(Run().Failed, 1);

    EXPECT_EQ(Read_Whole(run / "plot.orv"), "of the other");
    EXPECT_NE(Log().find("Another engine is at work in the run directory."), std::string::npos);
}

TEST_F(Job_Test, The_Engine_Holds_The_Lock_Of_Its_Run_But_Not_That_Of_The_Job)
{
    // flock gives 1 where the lock is held by another open file.
    Engine("flock -n . true; echo $? > plot.orv; flock -n ../../.. true; echo $? >> plot.orv");
    const auto run = Add_Run("one");
    Run();

    EXPECT_EQ(Read_Whole(run / "plot.orv"), "1\n0\n");
}

TEST_F(Job_Test, With_Closed_Standard_Channels_Both_Locks_Are_Held_All_The_Same)
{
    Good_Engine(2, "flock -n . true; echo $? > held.txt; flock -n ../../.. true; echo $? >> held.txt");
    const auto run = Add_Run("one");

    const int status = std::system(("'" ORVELJOB "' '" + (Home / "focus").string() + "' <&- >&- 2>&-").c_str());
    EXPECT_EQ(WEXITSTATUS(status), 0);

    EXPECT_EQ(Read_Whole(run / "held.txt"), "1\n1\n");
}

TEST_F(Job_Test, As_Many_Runs_Work_At_A_Time_As_Asked_For)
{
    // Each engine notes how many are at work; it leaves when a second one has come or after two seconds.
    Engine("mkdir ../../../at_work_$$; for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do "
           "n=$(ls -d ../../../at_work_* | wc -l); [ $n -gt 1 ] && break; sleep 0.1; done; echo $n > plot.orv; sleep "
           "0.3; rmdir ../../../at_work_$$");
    const auto first = Add_Run("1");
    const auto second = Add_Run("2");

    Run(2);
    EXPECT_EQ(Read_Whole(first / "plot.orv"), "2\n");
    EXPECT_EQ(Read_Whole(second / "plot.orv"), "2\n");
}

TEST_F(Job_Test, Names_With_Every_Kind_Of_Character_Run)
{
    Good_Engine();
    const std::string names[] = {"two words.psm", "a,b.psm",        "\xE4\xF6\xFC\xDF\xE2\xE1.psm",
                                 "it's.psm",      "\"quoted\".psm", "a;b&c%PATH%$HOME`x`|y>z.psm",
                                 "-rf.psm",       "*?[a].psm",      std::string(200, 'n') + ".psm",
                                 "\x81\x83.psm"};
    Scenario(Home / "focus" / "H_maize.sze");
    Climates("H");
    for (const auto& name : names) {
        Pesticide(name);
        ASSERT_EQ(
            Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Chosen(Focus(), Maize, "Hamburg (H)", name)),
            Mark_Result::Marked)
            << name << The_User.Messages.back().Text;
    }

    const auto started = Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 2}, ORVELJOB);
    ASSERT_EQ(started.Result, Start_Result::Started);
    int code = -1;
    ASSERT_TRUE(Soon([&] {
        const auto ended = Job_Exit_Code(started.Process);
        code = ended.value_or(-1);
        return ended.has_value();
    }));

    EXPECT_EQ(code, 0) << Log();
    const auto list = Simulation_List(Home / "focus");
    EXPECT_EQ(list.size(), std::size(names));
    for (const auto& name : names) {
        const auto stem = name.substr(0, name.size() - 4);
        const auto row = std::ranges::find(list, stem, &Simulation::Pesticide);
        ASSERT_NE(row, list.end()) << name;
        EXPECT_EQ(row->Status, Run_Status::Data_Available);
        EXPECT_EQ(row->State.Verdict, Verdict::Complete);
        EXPECT_EQ(row->Location, "Hamburg (H)");
        EXPECT_TRUE(fs::exists(row->Directory / Path_Of(name)));
    }
}

TEST_F(Job_Test, A_Started_Job_Makes_The_Batch_Its_File_Outlives_The_Caller_And_Is_Seen_By_Its_Lock)
{
    Engine("cut -d' ' -f6 /proc/$$/stat > session.txt; echo YEAR 13 OF 26; while [ ! -e ../../../go ]; do sleep 0.02; "
           "done; echo done > echo.orv");
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const auto batch = Read_Whole(Home / "focus" / "batch.bat");
    EXPECT_FALSE(Job_Running(The_Session.Program, Focus()));

    const auto started = Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB);

    ASSERT_EQ(started.Result, Start_Result::Started);
    EXPECT_TRUE(Job_Running(The_Session.Program, Focus())); // at once: the lock was taken before the start
    EXPECT_EQ(Read_Whole(Home / "focus" / "orveljob.bat"), "echo off\r\n" + batch);
    EXPECT_FALSE(fs::exists(Home / "focus" / "batch.bat"));
    EXPECT_EQ(Run_Caption(Home / "focus"), "Run");
    EXPECT_TRUE(Read_Batch(Home / "focus").empty());
    EXPECT_FALSE(Job_Exit_Code(started.Process));

    const auto other = std::make_unique<Session>(); // as a second shell sees it
    other->Program = The_Session.Program;
    const fs::path run = Home / "focus" / "test.run" / "Maize.run" / "Hamburg_-_(H).run";
    ASSERT_TRUE(Soon([&] { return Progress_Of_Job(Home / "focus").Years_Done == 13; }));
    const auto progress = Progress_Of_Job(Home / "focus");
    EXPECT_EQ(progress.Runs, 1);
    EXPECT_EQ(progress.Running, 1);
    EXPECT_EQ(progress.Years, 26);
    EXPECT_EQ(Simulation_List(Home / "focus").at(0).Status, Run_Status::Scheduled);
    EXPECT_EQ(Val(Read_Whole(run / "session.txt")), started.Process); // a session of its own

    Put(Home / "focus" / "go", "");
    ASSERT_TRUE(Soon([&] { return !Job_Running(other->Program, Focus()); }));
    EXPECT_EQ(Progress_Of_Job(Home / "focus").Done, 1);
    EXPECT_TRUE(Soon([&] { return Job_Exit_Code(started.Process).has_value(); }));
    EXPECT_EQ(Simulation_List(Home / "focus").at(0).Status, Run_Status::Data_Available);
}

TEST_F(Job_Test, Run_With_Nothing_Marked_Runs_The_Selected_Combination_Alone)
{
    const auto started =
        Run_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg(), {.Jobs = 1}, ORVELJOB);

    ASSERT_EQ(started.Result, Start_Result::Started);
    EXPECT_TRUE(Soon([&] { return Job_Exit_Code(started.Process).has_value(); }));
    EXPECT_EQ(Read_Whole(Home / "focus" / "orveljob.bat"), "echo off\r\n"
                                                           "cd test.run\\Maize.run\\Hamburg_-_(H).run\r\n"
                                                           "if exist *.orv del *.orv\r\n"
                                                           "orvel401.exe\r\n"
                                                           "if exist orvel401.exe del orvel401.exe\r\n");
}

TEST_F(Job_Test, Run_With_A_Batch_Leaves_The_Selected_Combination_Out)
{
    auto choice = Maize_At_Hamburg();
    Scenario(Home / "focus" / "C_maize.sze");
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    choice = Chosen(Focus(), Maize, "Ch\xE2teaudun (C), irrigated", "test.psm");

    const auto started = Run_Batch(The_Session.Program, The_Session.Ask, Focus(), choice, {.Jobs = 1}, ORVELJOB);

    ASSERT_EQ(started.Result, Start_Result::Started);
    EXPECT_TRUE(Soon([&] { return Job_Exit_Code(started.Process).has_value(); }));
    EXPECT_EQ(Parse_Job(Read_Whole(Home / "focus" / "orveljob.bat")).size(), 1u);
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Job_Test, Run_With_A_Combination_That_Is_Refused_Starts_Nothing)
{
    auto choice = Maize_At_Hamburg();
    std::filesystem::remove(Home / "Haude.dat");

    EXPECT_EQ(Run_Batch(The_Session.Program, The_Session.Ask, Focus(), choice, {.Jobs = 1}, ORVELJOB).Result,
              Start_Result::Nothing_Pending);

    EXPECT_EQ(The_User.Messages.size(), 1u);
    EXPECT_FALSE(fs::exists(Home / "focus" / "orveljob.bat"));
}

TEST_F(Job_Test, An_Engine_That_Outlives_Its_Job_Still_Counts_As_Running)
{
    Engine("echo > echo.orv; while [ ! -e ../../../go ]; do sleep 0.02; done");
    const auto run = Add_Run("orphan");
    const pid_t job = ::fork();
    if (job == 0) {
        Run_Job(Home / "focus", {.Jobs = 1});
        ::_exit(0);
    }
    ASSERT_TRUE(Soon([&] { return Status_Of_Run(run) == Run_Status::Running; }));

    ::kill(job, SIGKILL);
    ::waitpid(job, nullptr, 0);

    EXPECT_FALSE(Is_Locked(Home / "focus"));
    EXPECT_TRUE(Job_Running(The_Session.Program, Focus()));
    EXPECT_EQ(Status_Of_Run(run), Run_Status::Running);
    Put(Home / "focus" / "go", "");
    EXPECT_TRUE(Soon([&] { return !Job_Running(The_Session.Program, Focus()); }));
    EXPECT_EQ(Status_Of_Run(run), Run_Status::Data_Available);
}

TEST_F(Job_Test, The_Program_Refuses_A_Second_Job_A_Damaged_File_And_Wrong_Words)
{
    const auto code_of = [](const std::string& arguments) {
        const int status = std::system((std::string(ORVELJOB) + " " + arguments + " 2>/dev/null").c_str());
        return WEXITSTATUS(status);
    };
    const std::string directory = (Home / "focus").string();
    Good_Engine(2);
    Add_Run("one");
    {
        const auto job = Lock::Take(Home / "focus");
        EXPECT_EQ(code_of(directory), 3);
    }
    EXPECT_EQ(code_of(directory), 0);
    EXPECT_EQ(code_of("--jobs x " + directory), 2);
    EXPECT_EQ(code_of("--jobs"), 2);
    EXPECT_EQ(code_of(directory + " " + directory), 2);
    EXPECT_EQ(code_of((Home / "missing").string()), 2);
    Put(Home / "focus" / "orveljob.bat", "echo off\r\nformat c:\r\n");
    EXPECT_EQ(code_of(directory), 2);
}

TEST_F(Job_Test, A_Batch_Of_500_Runs_Finishes)
{
    Copy_Whole(NOTHING_ENGINE, Home / "orvel401.exe");
    const fs::path crop = Home / "focus" / "p.run" / "c.run";
    for (int i = 1; i <= 500; ++i) {
        const std::string run = "p.run\\c.run\\" + std::to_string(i) + ".run";
        fs::create_directories(crop / (std::to_string(i) + ".run"));
        fs::create_hard_link(Home / "orvel401.exe", crop / (std::to_string(i) + ".run") / "orvel401.exe");
        Put(crop / (std::to_string(i) + ".run") / "orvel.inp", "001 01 01 31 12\r\n");
        Job += Format_Job_Run(run, "orvel401.exe", i == 1);
    }
    Put(Home / "focus" / "orveljob.bat", Format_Job(Job));

    const auto result = Run(4);

    EXPECT_EQ(result.Runs, 500);
    EXPECT_EQ(result.Failed, 500); // an engine that does nothing leaves nothing
    EXPECT_EQ(Reason(crop / "500.run"), "The output echo.orv is missing.");
    EXPECT_EQ(Progress_Of_Job(Home / "focus").Done, 500);
    EXPECT_FALSE(fs::exists(crop / "500.run" / "orvel401.exe"));
}

TEST_F(Job_Test, A_Log_That_Cannot_Be_Written_Ends_The_Job_Before_Its_First_Run)
{
    const auto run = Add_Run("one");
    fs::create_directory(Home / "focus" / "orveljob.log");

    EXPECT_THROW(Run(), File_Error);
    EXPECT_TRUE(fs::exists(run / "orvel401.exe"));
}

} // namespace orvel
