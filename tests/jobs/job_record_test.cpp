// The record of each run of a job, and which runs a start touches: by the job runner that ships and small engines.
#include "core/run_name.h"
#include "core/sha256.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "jobs/job.h"
#include "jobs/job_log.h"
#include "jobs/run_commands.h"
#include "jobs/simulations.h"
#include "jobs/start_batch.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "runs/batch.h"
#include "runs/bin.h"
#include "runs/job_file.h"
#include "runs/run_fixture.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <map>
#include <numeric>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

template <class Condition> bool Soon(Condition condition)
{
    for (int i = 0; i < 2000; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

} // namespace

class Job_Record_Test : public Run_Test {
protected:
    // A run of two years in the job file, with the present engine.
    fs::path Add_Run(const std::string& name)
    {
        const std::string run = "p.run\\c.run\\" + name + ".run";
        const fs::path path = Run_Path(Focus_Directory(), run);
        fs::create_directories(path);
        Copy_Whole(Home / "orvel401.exe", path / "orvel401.exe");
        Put(path / "orvel.inp", "002 01 01 31 12\r\n..\\..\\..\\h.SZE\r\np.psm\r\n..\\..\\..\\H_01.cli\r\n"
                                "..\\..\\..\\H_01.cli\r\n00000001 00.\r\n");
        for (const auto& input : {path / "p.psm", Focus_Directory() / "H.sze", Focus_Directory() / "H_01.cli"})
            Put(input, "an input\r\n");
        Job += Format_Job_Run(run, "orvel401.exe", Job.empty());
        Put(Focus_Directory() / "orveljob.bat", Format_Job(Job));
        return path;
    }
    fs::path Focus_Directory() const { return Home / "focus"; }

    int Orveljob(const std::string& options = "")
    {
        const std::string command =
            std::string(ORVELJOB) + " " + options + " '" + Focus_Directory().string() + "' 2>/dev/null";
        return WEXITSTATUS(std::system(command.c_str()));
    }
    // Starts it without waiting.
    pid_t Begin_Orveljob()
    {
        std::string program = ORVELJOB, directory = Focus_Directory().string();
        char* arguments[] = {program.data(), directory.data(), nullptr};
        pid_t process = 0;
        EXPECT_EQ(::posix_spawn(&process, ORVELJOB, nullptr, nullptr, arguments, environ), 0);
        return process;
    }
    static Run_Record Record(const fs::path& run) { return Read_Run_Record(run).value(); }
    std::string Journal() { return Read_Whole(Focus_Directory() / "orveljob.log"); }

    // What the record of a run says that an engine of this script leaves.
    std::pair<Verdict, std::string> Verdict_Of(const std::string& script, int years = 2)
    {
        Good_Engine(years);
        Engine(Read_Whole(Home / "orvel401.exe").substr(10) + script);
        const auto run = Add_Run(std::to_string(++Count));
        Orveljob();
        EXPECT_FALSE(fs::exists(run / "orvel401.exe"));
        return {State_Of_Run(run).Verdict, Record(run).Reason};
    }

    std::string Job;
    int Count = 0;
};

using Outcome = std::pair<Verdict, std::string>;

TEST_F(Job_Record_Test, A_Complete_Run_Is_Recorded_With_Its_Engine_Inputs_And_Outputs)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    const std::string engine = Sha256_Of_File(run / "orvel401.exe");

    EXPECT_EQ(Orveljob("--limit 100"), 0);

    const Run_Record record = Record(run);
    EXPECT_EQ(record.Verdict, Verdict::Complete);
    EXPECT_EQ(record.Reason, "");
    EXPECT_EQ(record.Program, "ORVELSUITE");
    EXPECT_EQ(record.Engine.Name, "orvel401.exe");
    EXPECT_EQ(record.Engine.Sha256, engine);
    EXPECT_EQ(record.Exit, 0);
    EXPECT_EQ(record.Limit, 100);
    EXPECT_EQ(record.Years_Expected, 2);
    EXPECT_EQ(record.Years_Found, 2);
    EXPECT_LE(record.Start, record.End);
    std::vector<std::string> inputs, outputs;
    std::ranges::transform(record.Inputs, std::back_inserter(inputs), &Recorded_File::Name);
    for (const auto& output : record.Outputs)
        outputs.push_back(output.File.Name);
    EXPECT_EQ(inputs, (std::vector<std::string>{"orvel.inp", "../../../H.sze", "p.psm", "../../../H_01.cli"}));
    EXPECT_EQ(outputs, (std::vector<std::string>{"chem.orv", "echo.orv", "plot.orv", "Wasser.orv"}));
    EXPECT_EQ(record.Inputs[2].Sha256, Sha256("an input\r\n"));
    EXPECT_EQ(record.Outputs[0].File.Sha256, Sha256_Of_File(run / "chem.orv"));
    EXPECT_EQ(record.Outputs[0].File.Size, fs::file_size(run / "chem.orv"));
}

TEST_F(Job_Record_Test, Exit_0_Alone_Is_Not_Believed)
{
    EXPECT_EQ(Verdict_Of("rm *.orv"), (Outcome{Verdict::Incomplete, "The output echo.orv is missing."}));
    EXPECT_EQ(Verdict_Of("rm plot.orv"), (Outcome{Verdict::Incomplete, "The output plot.orv is missing."}));
    EXPECT_EQ(Verdict_Of("echo ECHO > echo.orv"), (Outcome{Verdict::Incomplete, "The output echo.orv ends early."}));
    EXPECT_EQ(Verdict_Of("(echo ' *** ERROR 21'; head -c 3000000 /dev/zero | tr '\\0' x; cat echo.orv) > e; mv e "
                         "echo.orv"),
              (Outcome{Verdict::Failed, "The engine's echo holds an error."}));
    for (const std::string name : {"chem.orv", "Wasser.orv", "plot.orv"})
        EXPECT_EQ(Verdict_Of("head -c -40 " + name + " > cut; mv cut " + name),
                  (Outcome{Verdict::Incomplete, "The output " + name + " holds 1 of 2 years."}));
    EXPECT_EQ(Verdict_Of("", 1), (Outcome{Verdict::Incomplete, "The output chem.orv holds 1 of 2 years."}));
    EXPECT_EQ(Verdict_Of("exit 3"), (Outcome{Verdict::Failed, "The engine ended with exit code 3."}));
    EXPECT_EQ(Verdict_Of("kill -9 $$"), (Outcome{Verdict::Failed, "The engine was ended by signal 9."}));
}

TEST_F(Job_Record_Test, A_Hung_Engine_Is_Ended_When_Its_Time_Is_Over_Also_One_That_Does_Not_Listen)
{
    Engine("trap '' TERM; (trap '' TERM; while true; do sleep 0.1; done) & while true; do sleep 0.1; done");
    const auto run = Add_Run("hangs");

    EXPECT_EQ(Orveljob("--limit 1"), 1);

    EXPECT_EQ(Record(run).Verdict, Verdict::Failed);
    EXPECT_EQ(Record(run).Reason, "It took longer than 1 s.");
    EXPECT_EQ(Record(run).Signal, SIGKILL);
    EXPECT_TRUE(Soon([&] { return !Is_Locked(run); })); // what it had started is gone, too
}

TEST_F(Job_Record_Test, The_Verdict_Outlives_The_Journal_And_The_Next_Job)
{
    Engine("exit 1");
    const auto run = Add_Run("fails");
    Orveljob();
    fs::remove(Focus_Directory() / "orveljob.log");

    EXPECT_EQ(Simulation_List(Focus_Directory()).at(0).State.Verdict, Verdict::Failed);
    EXPECT_EQ(Orveljob(), 1); // kept, and still not complete
    EXPECT_EQ(Record(run).Reason, "The engine ended with exit code 1.");
    EXPECT_TRUE(Contains(Journal(), "\tkept\tp.run/c.run/fails.run\tfailed\n")) << Journal();
}

TEST_F(Job_Record_Test, The_Journal_Is_Only_Added_To)
{
    Good_Engine(2);
    Add_Run("one");
    Put(Focus_Directory() / "orveljob.log", "2024-05-31 14:05:00\tbegin\t\tcut of"); // by a kill

    Orveljob();
    const std::string first = Journal();
    Orveljob();

    EXPECT_TRUE(first.starts_with("2024-05-31 14:05:00\tbegin\t\tcut of\n20")) << first;
    EXPECT_TRUE(Journal().starts_with(first));
    const auto history = Read_Job_Log(Focus_Directory());
    EXPECT_EQ(history.Runs.size(), 1u); // of the last job alone
    EXPECT_EQ(history.Runs.begin()->second, Job_Event::Kept);
}

TEST_F(Job_Record_Test, A_Job_File_Executed_Twice_Destroys_Nothing)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    ASSERT_EQ(Orveljob(), 0);
    const auto written = fs::last_write_time(run / "chem.orv");
    const std::string record = Read_Whole(run / "run.json");

    EXPECT_EQ(Orveljob(), 0);
    EXPECT_EQ(Orveljob("--resume"), 0);
    EXPECT_EQ(Orveljob("--failed"), 0);

    EXPECT_EQ(fs::last_write_time(run / "chem.orv"), written);
    EXPECT_EQ(Read_Whole(run / "run.json"), record);
}

TEST_F(Job_Record_Test, Results_Without_A_Record_Are_Never_Touched_By_A_Start)
{
    const auto run = Add_Run("old");
    fs::remove(run / "orvel401.exe");
    Put_Complete_Output(run, 2);

    for (const char* options : {"", "--resume", "--failed"})
        EXPECT_EQ(Orveljob(options), 1);

    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Unrecorded);
    EXPECT_TRUE(fs::exists(run / "chem.orv"));
}

TEST_F(Job_Record_Test, Old_Output_Stays_Where_It_Is_When_An_Input_Is_Missing)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    Put_Complete_Output(run, 2); // of a job that was cut off
    fs::remove(Focus_Directory() / "H_01.cli");

    EXPECT_EQ(Orveljob(), 1);

    EXPECT_TRUE(fs::exists(run / "chem.orv"));
    EXPECT_EQ(Record(run).Reason, "The input ..\\..\\..\\H_01.cli is missing.");
    EXPECT_FALSE(fs::exists(Focus_Directory() / "bin"));
}

TEST_F(Job_Record_Test, Resume_Runs_What_Was_Cut_Off_Stopped_Or_Not_Begun_And_Failed_What_Failed)
{
    Good_Engine(2);
    const auto complete = Add_Run("complete");
    ASSERT_EQ(Orveljob(), 0);
    Engine("exit 1");
    const auto failed = Add_Run("failed");
    ASSERT_EQ(Orveljob(), 1);
    const auto cut_off = Add_Run("cut off"), waiting = Add_Run("waiting"), stopped = Add_Run("stopped");
    Put(cut_off / "echo.orv", "half");
    Put(stopped / "run.json",
        Format_Run_Record({.Years_Expected = 2, .Verdict = Verdict::Stopped, .Reason = "It was."}));
    fs::remove(stopped / "orvel401.exe");
    Good_Engine(2);
    for (const auto& run : {cut_off, waiting})
        Copy_Whole(Home / "orvel401.exe", run / "orvel401.exe");
    const auto written = fs::last_write_time(complete / "chem.orv");

    EXPECT_EQ(Orveljob("--resume"), 1);

    for (const auto& run : {cut_off, waiting, stopped})
        EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Complete) << run;
    EXPECT_EQ(State_Of_Run(failed).Verdict, Verdict::Failed);
    EXPECT_EQ(Orveljob("--failed"), 0);
    EXPECT_EQ(State_Of_Run(failed).Verdict, Verdict::Complete);
    EXPECT_EQ(fs::last_write_time(complete / "chem.orv"), written);
    EXPECT_EQ(Read_Whole(Focus_Directory() / "bin" / "0001" / "p.run" / "c.run" / "cut off.run" / "echo.orv"), "half");
}

TEST_F(Job_Record_Test, A_Job_Killed_With_Its_Engine_Leaves_A_Run_That_Was_Cut_Off)
{
    Engine("echo half > echo.orv; while true; do sleep 0.02; done");
    const auto run = Add_Run("one");
    const auto next = Add_Run("next");
    const pid_t job = Begin_Orveljob();
    ASSERT_TRUE(Soon([&] { return fs::exists(run / "echo.orv"); }));

    ::kill(job, SIGKILL);
    ::waitpid(job, nullptr, 0);
    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Running); // the engine goes on without its job
    EXPECT_TRUE(Stop(The_Session, Focus(), true));

    EXPECT_FALSE(Is_Locked(run));
    EXPECT_TRUE(State_Of_Run(run).Cut_Off);
    EXPECT_EQ(Result_Text(Simulation_List(Focus_Directory()).at(1)), "incomplete: cut off");
    Good_Engine(2);
    for (const auto& at : {run, next})
        Copy_Whole(Home / "orvel401.exe", at / "orvel401.exe");
    EXPECT_EQ(Orveljob("--resume"), 0);
}

TEST_F(Job_Record_Test, Stop_Ends_The_Engines_Records_Them_And_Lets_The_Others_Wait)
{
    Engine("echo half > echo.orv; while true; do sleep 0.02; done");
    const auto first = Add_Run("a"), second = Add_Run("b");
    const pid_t job = Begin_Orveljob();
    ASSERT_TRUE(Soon([&] { return fs::exists(first / "echo.orv"); }));

    EXPECT_TRUE(Stop_Job(The_Session.Program, The_Session.Ask, Focus()));
    int status = 0;
    ::waitpid(job, &status, 0);

    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(Record(first).Verdict, Verdict::Stopped);
    EXPECT_EQ(Record(first).Reason, "It was stopped.");
    EXPECT_TRUE(Soon([&] { return !Is_Locked(first) && !Is_Locked(second); })); // what the engine had started ends
    const auto state = State_Of_Run(second); // at work too, or waiting, by the number of processors
    EXPECT_TRUE(state.Verdict == Verdict::Stopped || state.Verdict == Verdict::Scheduled);
    EXPECT_FALSE(Stop_Job(The_Session.Program, The_Session.Ask, Focus()));
    EXPECT_EQ(The_User.Messages.back().Text, "There is no job at work.");
}

TEST_F(Job_Record_Test, A_Job_That_Is_Terminated_Stops_Its_Engines_As_Well)
{
    Engine("echo half > echo.orv; while true; do sleep 0.02; done");
    const auto run = Add_Run("a");
    const pid_t job = Begin_Orveljob();
    ASSERT_TRUE(Soon([&] { return fs::exists(run / "echo.orv"); }));

    ::kill(job, SIGTERM);
    ::waitpid(job, nullptr, 0);

    EXPECT_EQ(Record(run).Verdict, Verdict::Stopped);
}

TEST_F(Job_Record_Test, An_Old_Request_To_Stop_Does_Not_Stop_The_Next_Job)
{
    Good_Engine(2);
    Add_Run("one");
    Put(Focus_Directory() / "orveljob.stop", "");

    EXPECT_EQ(Orveljob(), 0);
}

TEST_F(Job_Record_Test, A_Run_Behind_A_Link_Is_Refused_And_What_Lies_There_Left_Alone)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    fs::rename(Focus_Directory() / "p.run", Home / "elsewhere");
    fs::create_directory_symlink(Home / "elsewhere", Focus_Directory() / "p.run");

    EXPECT_EQ(Orveljob(), 1);

    EXPECT_TRUE(fs::exists(run / "orvel401.exe"));
    EXPECT_FALSE(fs::exists(run / "run.json"));
    EXPECT_TRUE(Contains(Journal(), "is a link, which leads elsewhere")) << Journal();
}

TEST_F(Job_Record_Test, An_Engine_Or_A_Directory_That_Everyone_May_Change_Is_Refused)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    for (const auto& open : {run, run / "orvel401.exe"}) {
        fs::permissions(open, fs::perms::others_write, fs::perm_options::add);
        EXPECT_EQ(Orveljob(), 1);
        EXPECT_TRUE(Contains(Record(run).Reason, "Every user of this computer may change " + open.string()));
        EXPECT_FALSE(fs::exists(run / "echo.orv"));
        fs::permissions(run, fs::perms::others_write, fs::perm_options::remove);
        fs::remove(run / "run.json");
        Copy_Whole(Home / "orvel401.exe", run / "orvel401.exe");
    }
    for (const auto& open : {Focus_Directory(), Home.Path()}) {
        fs::permissions(open, fs::perms::others_write, fs::perm_options::add);
        EXPECT_EQ(Orveljob(), 2);
        fs::permissions(open, fs::perms::others_write, fs::perm_options::remove);
    }
}

TEST_F(Job_Record_Test, An_Output_That_Was_Cut_After_Its_Record_Is_No_Longer_Complete)
{
    Good_Engine(2);
    const auto run = Add_Run("one");
    Orveljob();

    fs::resize_file(run / "chem.orv", 100);

    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Incomplete);
    EXPECT_EQ(State_Of_Run(run).Reason, "The output chem.orv is not the one that was recorded.");
}

// --- starting from the shell

TEST_F(Job_Record_Test, A_Start_Is_Refused_As_A_Whole_Before_Anything_Changes_When_A_Run_Cannot_Be_Started)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const fs::path run = Focus_Directory() / "test.run" / "Maize.run" / "Hamburg_-_(H).run";
    const auto refused = [&] {
        const auto result = Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB).Result;
        EXPECT_TRUE(Batch_Pending(Focus_Directory()));
        EXPECT_FALSE(fs::exists(Focus_Directory() / "orveljob.bat"));
        return result == Start_Result::Failed ? The_User.Messages.back().Text : "";
    };

    fs::rename(Focus_Directory() / "H_07.cli", Home / "kept");
    EXPECT_EQ(refused(), run.string() + ": The input ..\\..\\..\\H_07.cli is missing.");
    fs::rename(Home / "kept", Focus_Directory() / "H_07.cli");
    fs::rename(run / "orvel401.exe", Home / "kept");
    EXPECT_EQ(refused(), run.string() + ": The engine orvel401.exe is missing in the run directory.");
    fs::rename(Home / "kept", run / "orvel401.exe");
    fs::permissions(Home.Path(), fs::perms::others_write, fs::perm_options::add);
    EXPECT_TRUE(Contains(refused(), "Every user of this computer may change"));
}

TEST_F(Job_Record_Test, A_Batch_Left_Beside_Its_Job_By_A_Kill_Keeps_What_Has_Finished)
{
    Good_Engine();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const std::string batch = Read_Whole(Focus_Directory() / "batch.bat");
    const auto run_it = [&] {
        const auto started = Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB);
        int code = -1;
        Soon([&] { return (code = Job_Exit_Code(started.Process).value_or(-1)) >= 0; });
        return code;
    };
    ASSERT_EQ(run_it(), 0);
    const fs::path run = Focus_Directory() / "test.run" / "Maize.run" / "Hamburg_-_(H).run";
    const auto written = fs::last_write_time(run / "chem.orv");
    Put(Focus_Directory() / "batch.bat", batch); // as if the shell had been killed before it retired the batch

    EXPECT_EQ(run_it(), 0);

    EXPECT_EQ(fs::last_write_time(run / "chem.orv"), written);
    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Complete);
    EXPECT_FALSE(Batch_Pending(Focus_Directory()));
}

TEST_F(Job_Record_Test, Of_500_Runs_The_210_That_Fail_In_Seven_Ways_Are_Told_Exactly)
{
    constexpr std::size_t Runs = 500, Failing = 210;
    const std::vector<std::pair<std::string, Outcome>> ways = {
        {"rm *.orv", {Verdict::Incomplete, "The output echo.orv is missing."}},
        {"rm plot.orv", {Verdict::Incomplete, "The output plot.orv is missing."}},
        {"echo ECHO > echo.orv", {Verdict::Incomplete, "The output echo.orv ends early."}},
        {"echo ' *** ERROR 21' | cat - echo.orv > e; mv e echo.orv",
         {Verdict::Failed, "The engine's echo holds an error."}},
        {"head -c -40 chem.orv > e; mv e chem.orv", {Verdict::Incomplete, "The output chem.orv holds 1 of 2 years."}},
        {"exit 3", {Verdict::Failed, "The engine ended with exit code 3."}},
        {"kill -9 $$", {Verdict::Failed, "The engine was ended by signal 9."}},
    };
    std::vector<std::size_t> order(Runs);
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::shuffle(order, std::mt19937(210)); // NOLINT: the same each time
    std::vector<Outcome> expected(Runs, Outcome{Verdict::Complete, ""});
    std::string script = "case ${PWD##*/} in";
    for (std::size_t i = 0; i < Failing; ++i) {
        expected[order[i]] = ways[i % ways.size()].second;
        script += "\n" + std::to_string(order[i]) + ".run) " + ways[i % ways.size()].first + ";;";
    }
    Good_Engine(2);
    Engine(Read_Whole(Home / "orvel401.exe").substr(10) + script + "\nesac");
    std::vector<fs::path> runs;
    for (std::size_t i = 0; i < Runs; ++i)
        runs.push_back(Add_Run(std::to_string(i)));

    EXPECT_EQ(Orveljob("--jobs 2"), 1);

    for (std::size_t i = 0; i < Runs; ++i) {
        const Run_State state = State_Of_Run(runs[i]);
        EXPECT_EQ((Outcome{state.Verdict, Record(runs[i]).Reason}), expected[i]) << runs[i];
    }
    std::map<Job_Event, std::size_t> ended;
    for (const auto& [run, event] : Read_Job_Log(Focus_Directory()).Runs)
        ++ended[event];
    EXPECT_EQ(ended[Job_Event::Finished], Runs - Failing);
    EXPECT_EQ(ended[Job_Event::Failed], Failing * 2 / 7);
    EXPECT_EQ(ended[Job_Event::Killed], Failing / 7);
    EXPECT_EQ(ended[Job_Event::Incomplete], Failing * 4 / 7);
}

TEST_F(Job_Record_Test, A_Directory_That_Is_None_Is_A_Sentence_And_Wrong_Use)
{
    const std::string told = (Home / "told").string();
    const auto run = [&](const std::string& place) {
        return WEXITSTATUS(std::system((std::string(ORVELJOB) + " '" + place + "' 2>'" + told + "'").c_str()));
    };
    EXPECT_EQ(run("/no/such/place"), 2);
    EXPECT_EQ(Read_Whole(told), "/no/such/place: No such file or directory.\n");

    EXPECT_EQ(run(told), 2);
    EXPECT_EQ(Read_Whole(told), told + ": Not a directory.\n");
}

} // namespace orvel
