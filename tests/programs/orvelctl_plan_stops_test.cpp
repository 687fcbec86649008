// Plans that are killed, stopped, refused, run by a cluster or out of space: what is done stays, and they go on.
#include "plan_fixture.h"

#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace orvel {

TEST_F(Orvelctl_Plan, Killed_Twenty_Times_It_Runs_Nothing_Twice_And_Gives_The_Same_Bytes)
{
    constexpr int Kills = 20;
    Put_Plan(24);
    const std::string plan = (Place / "plan.csv").string(), to = (Place / "killed").string(), home = Installation();
    std::vector<std::string> words = {ORVELCTL, "-C", home, "plan", "run", plan, "--to", to, "--jobs", "2", "--wait"};
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    std::map<fs::path, File_Identity> complete;
    std::size_t interrupted = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        pid_t process = 0;
        ASSERT_EQ(::posix_spawn(&process, ORVELCTL, nullptr, nullptr, arguments.data(), environ), 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(10 + 37 * (kill % 7)));
        ::kill(process, SIGKILL);
        int status = 0;
        ::waitpid(process, &status, 0);
        interrupted += WIFSIGNALED(status) ? 1 : 0;
        const auto now = Complete_Runs(to);
        for (const auto& [run, record] : complete) {
            ASSERT_TRUE(now.contains(run)) << run;
            EXPECT_EQ(now.at(run), record) << run << " was run twice";
        }
        complete = now;
    }
    EXPECT_GT(interrupted, 5U);

    const auto last = Do("plan run plan.csv --to killed --wait");
    EXPECT_EQ(last.Code, 0) << last.Told;
    ASSERT_EQ(Do("plan run plan.csv --to undisturbed --jobs 1 --wait").Code, 0);
    EXPECT_EQ(Results_Of("killed"), Results_Of("undisturbed"));
    EXPECT_EQ(Complete_Runs(to).size(), 24U);
    for (const auto& [result, record] : Complete_Runs(to))
        EXPECT_EQ(Names_In(result.parent_path()).size(), 4U) << result;
}

TEST_F(Orvelctl_Plan, A_Stop_Ends_The_Engines_And_The_Plan_Goes_On_Later)
{
    Put_Plan(12);
    ASSERT_EQ(Do("plan run plan.csv --to runs --part 12/12 --wait").Code,
              0); // the set-up may take longer than the stop
    const auto stopped = Do("plan run plan.csv --to runs --jobs 1 --wait", "timeout -s TERM 0.3");
    EXPECT_EQ(stopped.Code, 124);
    EXPECT_TRUE(stopped.Told.ends_with("Plan: The plan was stopped. Run it again to go on.\n")) << stopped.Told;

    EXPECT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);
    EXPECT_EQ(Do("plan status runs").Printed, "12 runs, 12 complete\n");
}

TEST_F(Orvelctl_Plan, Without_Waiting_It_Goes_On_By_Itself_And_A_Second_One_Is_Refused)
{
    Put_Plan(8);
    const auto begun = Do("plan run plan.csv --to runs --jobs 1");
    EXPECT_EQ(begun.Code, 0) << begun.Told;

    const auto second = Do("plan run plan.csv --to runs --wait");
    EXPECT_EQ(second.Code, 1);
    EXPECT_EQ(second.Told, "Plan: The directory " + (Place / "runs").string() + " has another plan run at work.\n");

    std::string status;
    for (int i = 0; i < 600 && status != "8 runs, 8 complete\n"; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        status = Do("plan status runs").Printed;
    }
    EXPECT_EQ(status, "8 runs, 8 complete\n");
}

// The cluster starts the tasks one by one after sbatch has ended, and lists the job until the last has.
TEST_F(Orvelctl_Plan, On_A_Cluster_It_Is_One_Array_Of_Parts_And_Comes_To_The_Same)
{
    Put_Plan(7);
    Put_Program("sbatch", "printf '%s\\n' \"$@\" > arguments\n"
                          "(for i in 1 2 3; do SLURM_ARRAY_TASK_ID=$i sh ./slurm.sh; done; : > ended) &\n"
                          "echo 'sbatch: warning: 3 tasks' >&2\necho 4711\n");
    Put_Program("squeue", "test -e ended || echo 4711\n");

    const auto run = Do(R"(plan run plan.csv --to "a plan's \$HOME %a" --slurm --tasks 3 --time 90 --limit 60 --wait)",
                        With_Programs());

    EXPECT_EQ(run.Code, 0) << run.Told;
    EXPECT_EQ(run.Printed, "Job 4711, 3 tasks\n");
    EXPECT_TRUE(run.Told.ends_with("7 runs, 7 complete\n")) << run.Told;
    const fs::path plan = Place / "a plan's $HOME %a";
    EXPECT_EQ(Read_Whole(plan / "arguments"),
              "--parsable\n--job-name=orvel-plan\n--array=1-3\n--ntasks=1\n--cpus-per-task=1\n--requeue\n"
              "--output=/dev/null\n--time=90\nslurm.sh\n");
    EXPECT_TRUE(Read_Whole(plan / "slurm-1.log").ends_with("3 of 3 runs are complete.\n"));
    EXPECT_TRUE(Read_Whole(plan / "slurm-3.log").ends_with("2 of 2 runs are complete.\n"));
    ASSERT_EQ(Do("plan run plan.csv --to undisturbed --wait").Code, 0);
    EXPECT_EQ(Results_Of(R"("a plan's \$HOME %a")"), Results_Of("undisturbed"));
}

TEST_F(Orvelctl_Plan, A_Cluster_That_Is_Not_There_Or_Refuses_Has_Its_Sentence)
{
    Put_Plan(2);
    const std::string run = "plan run plan.csv --to runs --slurm --tasks 2";
    Put_Program("nothing", "");
    const auto missing = Do(run, With_Programs());
    EXPECT_EQ(missing.Code, 1);
    EXPECT_EQ(missing.Told, "Plan: There is no sbatch on this machine: a plan goes to a cluster from where "
                            "its Slurm is installed.\n");

    Put_Program("sbatch", "echo 'sbatch: error: invalid partition specified: none' >&2\n"
                          "echo 'sbatch: error: Batch job submission failed' >&2\nexit 1\n");
    const auto refused = Do(run, With_Programs());
    EXPECT_EQ(refused.Code, 1);
    EXPECT_EQ(refused.Told, "Plan: sbatch has not taken the plan: sbatch: error: invalid partition specified: none "
                            "sbatch: error: Batch job submission failed\n");
    EXPECT_EQ(Do("plan status runs").Printed, "2 runs, 2 scheduled\n");

    // A task fails: the directory tells it, whatever Slurm says.
    Put_Program("sbatch", "echo 8\n");
    Put_Program("squeue", "exit 0\n");
    const auto not_done = Do(run + " --wait", With_Programs());
    EXPECT_EQ(not_done.Code, 1);
    EXPECT_EQ(not_done.Told, "2 runs, 2 scheduled\nPlan: Not all runs are complete. What the tasks told is "
                             "in slurm-1.log and so on; run the plan again to go on.\n");

    EXPECT_EQ(Do("plan run plan.csv --to runs --slurm").Code, 2);
    EXPECT_EQ(Do(run + " --part 1/2").Code, 2);
    EXPECT_EQ(Do("plan run plan.csv --to runs --time 5").Code, 2);
}

TEST_F(Orvelctl_Plan, A_Part_That_Begins_Again_Waits_Until_The_One_Before_Has_Gone)
{
    Put_Plan(8);
    ASSERT_EQ(Do("plan run plan.csv --to runs --jobs 1").Code, 0);

    const auto second = Do("plan run plan.csv --to runs --patience 60 --wait");
    EXPECT_EQ(second.Code, 0) << second.Told;
    EXPECT_EQ(Do("plan status runs").Printed, "8 runs, 8 complete\n");
}

TEST_F(Orvelctl_Plan, A_Full_Disk_Is_Told_And_What_Is_Done_Stays)
{
    Put_Plan(4);
    ASSERT_EQ(Do("plan run plan.csv --to runs --part 1/2 --wait").Code, 0);

    const auto full = Do("plan run plan.csv --to runs --wait", "ulimit -f 2;"); // blocks of 512 or 1024 bytes
    EXPECT_EQ(full.Code, 1);
    EXPECT_NE(full.Told.find(": File too large. What is done stays; run the plan again to go on.\n"), std::string::npos)
        << full.Told;
    EXPECT_EQ(Do("plan status runs").Printed, "4 runs, 2 complete, 2 scheduled\n");

    EXPECT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);
    ASSERT_EQ(Do("plan run plan.csv --to undisturbed --wait").Code, 0);
    EXPECT_EQ(Results_Of("runs"), Results_Of("undisturbed"));
}

TEST_F(Orvelctl_Plan, A_Run_That_Fails_Or_Takes_Too_Long_Is_Told_And_Run_Again)
{
    const fs::path other = Place / "other", engine = other / "orvel401.exe", real = Place / "real.exe";
    fs::copy(Installation(), other, fs::copy_options::recursive);
    fs::rename(engine, real);
    // Row 1 hangs and row 2 fails as long as there is a sign.
    Put("other/orvel401.exe", "#!/bin/sh\nif test -f '" + (Place / "sign").string() +
                                  "'; then case $PWD in *1) sleep 30;; *2) exit 3;; esac; fi\nexec '" + real.string() +
                                  "'\n");
    fs::permissions(engine, fs::perms::owner_all);
    App = other.string();
    Put_Plan(3);
    Put("sign", "");

    const auto failed = Do("plan run plan.csv --to runs --jobs 3 --limit 5 --wait");
    EXPECT_EQ(failed.Code, 1);
    EXPECT_NE(failed.Told.find("Plan: Run 1: It took longer than 5 s.\n"), std::string::npos) << failed.Told;
    EXPECT_NE(failed.Told.find("Plan: Run 2: The engine ended with exit code 3.\n"), std::string::npos);
    EXPECT_TRUE(failed.Told.ends_with("1 of 3 runs are complete.\nPlan: 2 runs have failed.\n"));
    EXPECT_EQ(Do("plan status runs").Printed, "3 runs, 1 complete, 2 failed\n");
    const auto lines = Lines_Of(Results_Of("runs"));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[2], "run 2,22,2,,,,0,,,failed,");

    fs::remove(Place / "sign");
    EXPECT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);
    EXPECT_EQ(Do("plan status runs").Printed, "3 runs, 3 complete\n");
}

// The directory in which an engine works serves several runs, one after the other.
TEST_F(Orvelctl_Plan, No_Run_Is_Taken_For_Complete_By_What_Another_Has_Left)
{
    const fs::path other = Place / "other", engine = other / "orvel401.exe", real = Place / "real.exe";
    fs::copy(Installation(), other, fs::copy_options::recursive);
    fs::rename(engine, real);
    Put("other/orvel401.exe", "#!/bin/sh\ncase $PWD in *[356]) exit 0;; esac\nexec '" + real.string() + "'\n");
    fs::permissions(engine, fs::perms::owner_all);
    App = other.string();
    Put_Plan(8);

    EXPECT_EQ(Do("plan run plan.csv --to runs --jobs 1 --wait").Code, 1);

    EXPECT_EQ(Do("plan status runs").Printed, "8 runs, 5 complete, 3 incomplete\n");
    const fs::path runs = Place / "runs" / "runs" / "0000";
    EXPECT_EQ(Names_In(runs / "0000003"), (std::vector<std::string>{"demo_A.psm", "Haude.dat", "orvel.inp",
                                                                    "progress.orv", "result.csv", "run.json"}));
    EXPECT_EQ(Names_In(runs / "0000004").size(), 4U);
    EXPECT_FALSE(fs::exists(Place / "runs" / "work"));
}

TEST_F(Orvelctl_Plan, What_A_Killed_Part_Has_Left_Goes)
{
    Put_Plan(2);
    ASSERT_EQ(Do("plan run plan.csv --to runs --part 1/2 --wait").Code, 0);
    const fs::path left = Place / "runs" / "work" / "2-of-3" / "1";
    fs::create_directories(left);
    Write_Whole(left / "plot.orv", "x");

    EXPECT_EQ(Do("plan run plan.csv --to runs --part 2/2 --wait").Code, 0);

    EXPECT_FALSE(fs::exists(Place / "runs" / "work"));
    EXPECT_EQ(Do("plan status runs").Printed, "2 runs, 2 complete\n");
}

} // namespace orvel
