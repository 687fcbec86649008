// Plans, as a user of the command line runs them: with the shipped programs and the real engine.
#include "core/files.h"
#include "core/system/file_identity.h"
#include "records/zip_file.h"
#include "shell.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <map>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace orvel {

namespace fs = std::filesystem;

class Orvelctl_Plan : public ::testing::Test {
protected:
    // One installation serves all tests: nothing of it is changed.
    static void SetUpTestSuite()
    {
        Home = std::make_unique<Temporary_Directory>();
        ASSERT_EQ(std::system((std::string(ORVELCTL) + " init " + Installation()).c_str()), 0);
    }
    static void TearDownTestSuite() { Home.reset(); }
    static std::string Installation() { return (*Home / "home").string(); }

    Outcome Do(const std::string& words, const std::string& before = "")
    {
        return Shell("cd '" + Place.Path().string() + "' && " + before + " " + ORVELCTL + " -C '" + App + "' " + words);
    }

    void Put(const std::string& name, const std::string& bytes) { Write_Whole(Place / name, bytes); }

    // A plan of so many runs, whose sorption grows from row to row.
    void Put_Plan(int rows)
    {
        std::string plan = "id,mode,pesticide,crop,location,psm.Koc[1],#row\n";
        for (int row = 1; row <= rows; ++row)
            plan += "run " + std::to_string(row) + ",focus,demo_A.psm,Winter cereals,Hamburg (H)," +
                    std::to_string(20 + row) + "," + std::to_string(row) + "\n";
        Put("plan.csv", plan);
    }

    std::string Results_Of(const std::string& directory)
    {
        const auto results = Do("plan results " + directory);
        EXPECT_EQ(results.Code, 0) << results.Told;
        return results.Printed;
    }

    // A program of this name before all others on the PATH.
    void Put_Program(const std::string& name, const std::string& script)
    {
        fs::create_directories(Place / "bin");
        Put("bin/" + name, "#!/bin/sh\n" + script);
        fs::permissions(Place / "bin" / name, fs::perms::owner_all);
    }
    std::string With_Programs() const { return "env PATH='" + (Place / "bin").string() + "':/usr/bin:/bin"; }

    // What the box of a wrong plan of one row says; `columns` and `cells` follow the five of a good row.
    std::string Told_Of(const std::string& row, const std::string& columns = "")
    {
        Put("wrong.csv", "id,mode,pesticide,crop,location" + columns + "\n" + row + "\n");
        const auto told = Do("plan run wrong.csv --to wrong --wait");
        EXPECT_EQ(told.Code, 1);
        EXPECT_FALSE(fs::exists(Place / "wrong")) << row;
        return told.Told;
    }

    static inline std::unique_ptr<Temporary_Directory> Home;
    Temporary_Directory Place;
    std::string App = Installation();
    const std::string Good = "a,focus,demo_A.psm,Winter cereals,Hamburg (H)";
};

namespace {

std::vector<std::string> Names_In(const fs::path& directory)
{
    return List_Files(directory, "*");
}

std::vector<std::string> Lines_Of(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

std::string Cell(const std::string& line, int number)
{
    std::size_t at = 0;
    for (int i = 1; i < number; ++i)
        at = line.find(',', at) + 1;
    return line.substr(at, line.find(',', at) - at);
}

// The files that tell of complete runs.
std::map<fs::path, File_Identity> Complete_Runs(const fs::path& directory)
{
    std::map<fs::path, File_Identity> complete;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(directory / "runs", ignored)) {
        if (entry.path().filename() == "result.csv" && Read_Whole(entry.path()).find(",complete,") != std::string::npos)
            complete.emplace(entry.path(), *Identity_Of(entry.path().parent_path() / "run.json"));
    }
    return complete;
}

} // namespace

TEST_F(Orvelctl_Plan, A_Plan_Is_Run_With_Its_Replaced_Fields_And_Gives_A_Line_A_Run)
{
    Put("plan.csv", "\xEF\xBB\xBFid;mode;pesticide;crop;location;psm.Koc[1];#note\r\n"
                    "low;focus;demo_A.psm;Winter cereals;Hamburg (H);60;one, two\r\n"
                    "high;focus;demo_A.psm;Winter cereals;Hamburg (H);120;\xC3\xBC\r\n");

    const auto run = Do("plan run plan.csv --to runs --wait");
    ASSERT_EQ(run.Code, 0) << run.Told;
    EXPECT_TRUE(run.Told.ends_with("2 of 2 runs are complete.\n")) << run.Told;

    const auto lines = Lines_Of(Results_Of("runs"));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "id,psm.Koc[1],#note,substance,percentile,unit,years,flux,percolate,verdict,seconds");
    EXPECT_TRUE(lines[1].starts_with("low,60,\"one, two\",Demo substance A,")) << lines[1];
    EXPECT_TRUE(lines[2].starts_with("high,120,\xC3\xBC,Demo substance A,")) << lines[2];
    EXPECT_TRUE(lines[2].ends_with(",complete,")) << lines[2];
    EXPECT_EQ(Cell(lines[2], 6), "\xC2\xB5g/L");
    EXPECT_EQ(Cell(lines[2], 7), "26");
    // What sorbs less leaches more; the first line has a comma more in its label.
    EXPECT_GT(std::stod(Cell(lines[1], 6)), 2 * std::stod(Cell(lines[2], 5)));
    EXPECT_EQ(Do("plan status runs").Printed, "2 runs, 2 complete\n");
    EXPECT_EQ(Do("plan status runs --json").Printed,
              "{\n  \"runs\": 2,\n  \"complete\": 2,\n  \"incomplete\": 0,\n  \"failed\": 0,\n  \"stopped\": 0,\n"
              "  \"running\": 0,\n  \"scheduled\": 0,\n  \"at_work\": false,\n  \"runs_a_second\": null,\n"
              "  \"seconds_left\": null\n}\n");
}

TEST_F(Orvelctl_Plan, A_Plan_Gives_The_Figure_That_The_Same_Run_Gives_By_Itself)
{
    Put("plan.csv", "id,mode,pesticide,crop,location\n" + Good + "\n");
    ASSERT_EQ(Do("plan run plan.csv --to runs --wait --keep all").Code, 0);
    const fs::path run = Place / "runs" / "runs" / "0000" / "0000001";
    const auto line = Lines_Of(Results_Of("runs")).back();

    const auto tables = Do("tables '" + run.string() + "'");

    EXPECT_EQ(tables.Code, 0) << tables.Told;
    EXPECT_NE(tables.Printed.find(Cell(line, 3)), std::string::npos) << line << "\n" << tables.Printed;
    EXPECT_EQ(Do("verify '" + run.string() + "'").Code, 0);
}

TEST_F(Orvelctl_Plan, What_Is_Kept_Of_A_Run_Is_What_Was_Asked_For)
{
    Put_Plan(1);
    const fs::path run = fs::path("runs") / "0000" / "0000001";

    ASSERT_EQ(Do("plan run plan.csv --to all --keep all --wait").Code, 0);
    EXPECT_TRUE(fs::exists(Place / "all" / run / "chem.orv"));
    EXPECT_NE(Do("show " + (Place / "all" / run / "demo_A.psm").string()).Printed.find("\"Koc\": [0, 21, "),
              std::string::npos);

    ASSERT_EQ(Do("plan run plan.csv --to tables --wait").Code, 0);
    EXPECT_EQ(Names_In(Place / "tables" / run),
              (std::vector<std::string>{"period.orv", "result.csv", "run.json", "year.orv"}));
    std::uintmax_t bytes = 0;
    for (const auto& name : Names_In(Place / "tables" / run))
        bytes += fs::file_size(Place / "tables" / run / name);
    EXPECT_LE(bytes, 20000U);

    // Less can be kept later.
    ASSERT_EQ(Do("plan run plan.csv --to all --keep records --wait").Code, 0);
    EXPECT_EQ(Names_In(Place / "all" / run), (std::vector<std::string>{"result.csv", "run.json"}));
    EXPECT_EQ(Results_Of("all"), Results_Of("tables"));
}

TEST_F(Orvelctl_Plan, Files_Are_Run_As_Seen_From_The_Plan_With_A_Climate_A_Year)
{
    fs::create_directory(Place / "soils");
    for (const auto& [from, to] : {std::pair("demo_A.psm", "a.psm"),
                                   {"focus/H_wcerea.sze", "soils/one.sze"},
                                   {"focus/H_01.cli", "first.cli"},
                                   {"focus/H_02.cli", "second.cli"}})
        fs::copy_file(fs::path(Installation()) / from, Place / to);
    Put("plan.csv", "id\tpesticide\tscenario\tclimate\tyears\tsze.Horizons[0].SZE_Hor_OC\r\n"
                    "1\ta.psm\tsoils/one.sze\tfirst.cli|second.cli\t7\t1.5\r\n"
                    "2\ta.psm\tsoils/one.sze\t" +
                        Installation() + "/focus/H_03.cli\t7\t2.5\r\n");

    const auto run = Do("plan run plan.csv --to runs --keep all --wait");

    ASSERT_EQ(run.Code, 0) << run.Told;
    const auto control = Read_Whole(Place / "runs" / "runs" / "0000" / "0000001" / "orvel.inp");
    EXPECT_TRUE(control.starts_with("007 01 01 31 12\r\none.sze\r\n..\\..\\..\\inputs\\files\\a.psm\r\n"
                                    "..\\..\\..\\inputs\\files\\first.cli\r\n"
                                    "..\\..\\..\\inputs\\files\\second.cli\r\n"
                                    "..\\..\\..\\inputs\\files\\second.cli\r\n"))
        << control;
    EXPECT_NE(Do("show " + (Place / "runs" / "runs" / "0000" / "0000002" / "one.sze").string())
                  .Printed.find("\"SZE_Hor_OC\": 2.5"),
              std::string::npos);
    EXPECT_EQ(Lines_Of(Results_Of("runs")).size(), 3U);
}

TEST_F(Orvelctl_Plan, Every_Wrong_Row_Is_Told_With_Line_And_Column_Before_Anything_Runs)
{
    Put("plan.csv", "id,mode,pesticide,crop,location,psm.Koc[1]\n" + Good + ",60\n" + Good + ",60\n" +
                        "c,focus,none.psm,Maize,Hamburg (H),60\nd,focus,demo_A.psm,Winter cereals,Hamburg (H),x\n");

    const auto told = Do("plan run plan.csv --to runs --wait");

    EXPECT_EQ(told.Code, 1);
    EXPECT_EQ(told.Told, "Plan: Line 3, column 1: The id 'a' is there twice.\n"
                         "Plan: Line 4, column 3: There is no file none.psm in " +
                             Installation() + ".\nPlan: Line 5, column 6: psm.Koc[1]: 'x' is not a number.\n");
    EXPECT_FALSE(fs::exists(Place / "runs"));
}

TEST_F(Orvelctl_Plan, Each_Bad_Input_Has_Its_Sentence)
{
    EXPECT_EQ(
        Told_Of(Good + ",1", ",colour"),
        "Plan: Line 1, column 6: There is no column 'colour': a label begins with #, a field to replace with psm. "
        "or sze.\n");
    EXPECT_EQ(Told_Of(Good + ",1", ",psm.Coc[1]"), "Plan: Line 1, column 6: There is no field Coc[1].\n");
    EXPECT_EQ(Told_Of(Good + ",1", ",psm.Horizons[77].Hor_Kd[1]"),
              "Plan: Line 2, column 6: psm.Horizons[77].Hor_Kd[1]: This document has no Horizons[77].Hor_Kd[1].\n");
    EXPECT_EQ(Told_Of(Good + ",\"0,5\"", ",psm.Koc[1]"),
              "Plan: Line 2, column 6: psm.Koc[1]: '0,5' has a decimal comma: write a decimal point.\n");
    EXPECT_EQ(Told_Of(Good + ",", ",psm.Koc[1]"), "Plan: Line 2, column 6: The cell of 'psm.Koc[1]' is empty.\n");
    EXPECT_EQ(Told_Of(Good + ",70000", ",psm.Deg_Depth_Mode[1]"),
              "Plan: Line 2, column 6: psm.Deg_Depth_Mode[1]: '70000' is not a whole number of this field.\n");
    EXPECT_EQ(Told_Of("a,fokus,demo_A.psm,Winter cereals,Hamburg (H)"),
              "Plan: Line 2, column 2: There is no mode 'fokus': focus, efsa or efsa_t4.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm,Corn,Hamburg (H)"), "Plan: Line 2, column 4: There is no crop 'Corn'.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm,Winter cereals,Thiva"),
              "Plan: Line 2, column 5: The crop 'Winter cereals' has no location 'Thiva' in focus. It has 'Thiva (T), "
              "no irrigation'.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm"), "Plan: Line 2, column 4: The row ends before the column 'crop'.\n");
    EXPECT_EQ(Told_Of(""), "Plan: The plan has no rows.\n");
    EXPECT_EQ(Do("plan run none.csv --to wrong --wait").Told,
              "Plan: The file none.csv cannot be read: No such file or directory.\n");
    EXPECT_EQ(Do("plan run wrong.csv --to wrong --part 3/2 --wait").Code, 2);
    EXPECT_EQ(Do("plan status .").Told, "File check: The directory . holds no plan.\n");
}

TEST_F(Orvelctl_Plan, Another_Plan_And_Anything_Else_In_The_Directory_Are_Left_Alone)
{
    Put_Plan(1);
    ASSERT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);
    const std::string before = Results_Of("runs");
    Put_Plan(2);
    fs::create_directory(Place / "mine");
    Put("mine/letter.txt", "dear");

    EXPECT_EQ(Do("plan run plan.csv --to runs --wait").Told,
              "Plan: The directory " + (Place / "runs").string() + " holds the runs of another plan.\n");
    EXPECT_EQ(Do("plan run plan.csv --to mine --wait").Told,
              "Plan: The directory " + (Place / "mine").string() +
                  " is not empty and holds no plan: it has letter.txt.\n");
    EXPECT_EQ(Results_Of("runs"), before);
    EXPECT_EQ(Names_In(Place / "mine"), std::vector<std::string>{"letter.txt"});
}

TEST_F(Orvelctl_Plan, Jobs_Parts_And_What_Is_Kept_Change_No_Byte_Of_The_Results)
{
    Put_Plan(5);
    ASSERT_EQ(Do("plan run plan.csv --to one --jobs 1 --wait").Code, 0);
    ASSERT_EQ(Do("plan run plan.csv --to three --jobs 3 --keep records --wait").Code, 0);
    ASSERT_EQ(Do("plan run plan.csv --to parts --part 2/2 --wait").Code, 0);
    EXPECT_EQ(Do("plan status parts").Printed, "5 runs, 2 complete, 3 scheduled\n");
    ASSERT_EQ(Do("plan run plan.csv --to parts --part 1/2 --wait").Code, 0);

    const std::string results = Results_Of("one");
    EXPECT_EQ(Lines_Of(results).size(), 6U);
    EXPECT_EQ(Results_Of("three"), results);
    EXPECT_EQ(Results_Of("parts"), results);
    ASSERT_EQ(Do("plan results parts --to results.csv").Code, 0);
    EXPECT_EQ(Read_Whole(Place / "results.csv"), results);
    EXPECT_EQ(Do("plan results parts --to results.txt").Told,
              "File check: The table of results is written as .csv or .xlsx.\n");
}

// The soil modes have the figure that the overview shows of the same run; the unit tells it from a percentile.
TEST_F(Orvelctl_Plan, A_Run_Of_A_Soil_Mode_Has_The_Highest_Concentration_In_Soil)
{
    App = (Place / "own").string();
    ASSERT_EQ(std::system((std::string(ORVELCTL) + " init " + App).c_str()), 0);
    ASSERT_EQ(Do("mark --mode efsa --pesticide demo_S.psm --crop 'Winter cereals' --location 'Total content - North "
                 "(T_N)'")
                  .Code,
              0);
    ASSERT_EQ(Do("start --mode efsa --wait").Code, 0);
    const std::string overview = Do("overview --mode efsa --json").Printed;
    Put("plan.csv", "id,mode,pesticide,crop,location,#note\n"
                    "a,efsa,demo_S.psm,Winter cereals,Total content - North (T_N),007\n"
                    "b,focus,demo_A.psm,Winter cereals,Hamburg (H),7\n");

    ASSERT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);

    const auto lines = Lines_Of(Results_Of("runs"));
    ASSERT_EQ(lines.size(), 3U);
    const std::string figure = Cell(lines[1], 4);
    EXPECT_NE(overview.find("\"value\": " + figure + ",\n    \"unit\": \"mg/kg\""), std::string::npos)
        << figure << " " << overview;
    EXPECT_TRUE(lines[1].starts_with("a,007,Demo substance D," + figure + ",mg/kg,26,,,complete,")) << lines[1];
    EXPECT_EQ(Cell(lines[2], 5), "\xC2\xB5g/L");
    const auto kept = Names_In(Place / "runs/runs/0000/0000001");
    EXPECT_EQ(kept, (std::vector<std::string>{"PECsoil_1.orv", "period.orv", "result.csv", "run.json", "year.orv"}));

    // As a workbook: what is a number stays one, what only looks like one does not become it.
    ASSERT_EQ(Do("plan results runs --to results.xlsx").Code, 0);
    Zip_Reader book(Place / "results.xlsx");
    std::string sheet;
    for (std::size_t entry = 0; entry < book.Entries().size(); ++entry) {
        if (book.Entries()[entry].Name == "xl/worksheets/sheet1.xml")
            book.Read(entry, [&](std::string_view bytes) { sheet += bytes; });
    }
    EXPECT_NE(sheet.find("<v>" + figure + "</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<v>" + Cell(lines[2], 4) + "</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<t>007</t>"), std::string::npos);
    EXPECT_NE(sheet.find("<v>7</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<t>percolate</t>"), std::string::npos);
}

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

TEST_F(Orvelctl_Plan, A_Sweep_Is_A_Plan_Of_Every_Combination)
{
    const std::string run = " --mode focus --pesticide demo_A.psm --crop 'Winter cereals' --location 'Hamburg (H)'";
    const auto sweep = Do("plan sweep" + run + " --shift -7:7:7 --factor 'psm.Koc[1]=0.5,2' --to sweep.csv");
    ASSERT_EQ(sweep.Code, 0) << sweep.Told;

    const auto lines = Lines_Of(Read_Whole(Place / "sweep.csv"));
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_TRUE(lines[0].starts_with("id,mode,pesticide,crop,location,#shift,psm.Relative[1].Abs9_Day,")) << lines[0];
    EXPECT_TRUE(lines[0].ends_with(",#factor psm.Koc[1],psm.Koc[1]")) << lines[0];
    // Sorption 103, one day before the emergence.
    EXPECT_TRUE(lines[1].starts_with("1,focus,demo_A.psm,Winter cereals,Hamburg (H),-7,-8,-8,")) << lines[1];
    EXPECT_TRUE(lines[1].ends_with(",0.5,51.5")) << lines[1];
    EXPECT_TRUE(lines[2].ends_with(",2,206")) << lines[2];
    EXPECT_TRUE(lines[6].starts_with("6,focus,demo_A.psm,Winter cereals,Hamburg (H),7,6,6,")) << lines[6];

    EXPECT_EQ(Do("plan sweep" + run + " --shift 7:-7:7").Told,
              "Plan: '7:-7:7' is no range of shifts: FROM:TO:STEP in days, as -14:14:7.\n");
    EXPECT_EQ(Do("plan sweep" + run + " --factor 'psm.Coc[1]=1'").Told, "Plan: There is no field Coc[1].\n");
    EXPECT_EQ(Do("plan sweep" + run + " --factor 'psm.Koc[1]=1,'").Told, "Plan: '' is no factor.\n");
    EXPECT_EQ(Do("plan run sweep.csv --to runs --wait").Code, 0);
}

} // namespace orvel
