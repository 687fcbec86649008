// The survey of an overview over runs whose files are made up: many of them, damaged ones, and ones that change.
#include "evaluation/overview_survey.h"

#include "core/files.h"
#include "core/sha256.h"
#include "evaluation/overview_rows.h"
#include "processor_seconds.h"
#include "tables/leachate_run.h"
#include "tables/leachate_tables.h"

#include <condition_variable>
#include <ctime>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

constexpr auto Patience = 60s;

// What a survey has told last.
class Listener {
public:
    Overview_Survey::Publish Take()
    {
        return [this](std::shared_ptr<const Survey_State> state) {
            const std::scoped_lock lock(Guard);
            Latest = std::move(state);
            Told.notify_all();
        };
    }

    template <class Condition> std::shared_ptr<const Survey_State> Wait_For(Condition holds)
    {
        std::unique_lock lock(Guard);
        const bool held = Told.wait_for(lock, Patience, [&] { return Latest && holds(*Latest); });
        EXPECT_TRUE(held) << (Latest ? Counts_Text(Latest->Overview) : std::string("nothing was told"));
        return Latest;
    }
    std::shared_ptr<const Survey_State> Wait_Until_Settled()
    {
        return Wait_For([](const Survey_State& state) { return state.Is_Settled; });
    }

private:
    std::mutex Guard;
    std::condition_variable Told;
    std::shared_ptr<const Survey_State> Latest;
};

// An installation with runs that are copies of one complete run, recorded as the job records them.
class Survey_Test : public testing::Test {
protected:
    Survey_Test()
    {
        Source.Write_Water(26);
        Source.Write_Chem(".orv", Rising(26), Rising(26));
        EXPECT_TRUE(Build_Or_Load(Source.Path()).Kept);
        Write_Whole(Home / "orvel401.exe", "an engine");
        fs::create_directories(Home / "focus");
    }

    fs::path Place(int number) const
    {
        const std::vector<std::string> locations = {"Hamburg_-_(H)", "Jokioinen_-_(J)", "Porto_-_(O)", "Sevilla_-_(S)"};
        return Home / "focus" / ("p" + std::to_string(number / 4) + ".run") / "Maize.run" /
               (locations[static_cast<std::size_t>(number % 4)] + ".run");
    }

    // With the stored tables, and the record last, as in life.
    fs::path Add_Run(const fs::path& run) const
    {
        fs::create_directories(run);
        Run_Record record{.Program = "orveljob",
                          .Engine = {"orvel401.exe", 9, Sha256("an engine")},
                          .Start = std::time(nullptr),
                          .End = std::time(nullptr) + 3600,
                          .Exit = 0,
                          .Years_Expected = 26,
                          .Years_Found = 26,
                          .Verdict = Verdict::Complete};
        const std::string control = "026 01 01 31 12\r\n";
        Write_File(run / "orvel.inp", control);
        record.Inputs.push_back({"orvel.inp", control.size(), Sha256(control)});
        for (const auto& entry : fs::directory_iterator(Source.Path())) {
            const std::string name = entry.path().filename().string();
            if (name == "year.orv" || name == "period.orv")
                continue;
            fs::copy_file(entry.path(), run / name);
            record.Outputs.push_back({{name, fs::file_size(entry.path()), Sha256_Of_File(entry.path())}, {}});
        }
        for (const char* table : {"year.orv", "period.orv"})
            fs::copy_file(Source / table, run / table);
        Write_File(run / "run.json", Format_Run_Record(record));
        return run;
    }

    void Add_Runs(int count) const
    {
        for (int i = 0; i < count; ++i)
            Add_Run(Place(i));
    }

    Leachate_Run Source;
    Temporary_Directory Home;
};

int Counted(const Survey_State& state, Cell_Kind kind)
{
    return static_cast<int>(std::ranges::count(state.Overview.Runs, kind, &Overview_Run::Kind));
}

} // namespace

TEST_F(Survey_Test, A_Thousand_Runs_Are_Known_At_Once_And_Cost_Nothing_While_Nothing_Changes)
{
    Add_Runs(1000);
    const double begin = Processor_Seconds();

    Listener listener;
    Overview_Survey survey(Home.Path(), {}, listener.Take());
    const auto state = listener.Wait_Until_Settled();

    const double seconds = Processor_Seconds() - begin;
    RecordProperty("seconds_of_processor", std::to_string(seconds));
    EXPECT_EQ(Counted(*state, Cell_Kind::Figure), 1000);
    EXPECT_TRUE(std::ranges::all_of(state->Overview.Runs, &Overview_Run::Checked)); // by times alone
    EXPECT_LT(seconds, 5) << "of the processor; half a second on an idle machine without sanitizers";

    const auto looks = survey.Looks();
    const double idle = Processor_Seconds();
    std::this_thread::sleep_for(2s);
    EXPECT_EQ(survey.Looks(), looks);
    EXPECT_LT(Processor_Seconds() - idle, 0.1);

    // One run changes: it alone is looked at.
    Write_File(Place(500) / "chem.orv", "other");
    listener.Wait_For([](const Survey_State& now) { return Counted(now, Cell_Kind::Changed) == 1; });
    EXPECT_LT(survey.Looks(), looks + 10);
}

TEST_F(Survey_Test, Runs_Come_Go_And_Are_Damaged_And_Each_Says_So)
{
    Add_Runs(8);
    Listener listener;
    Overview_Survey survey(Home.Path(), {}, listener.Take());
    listener.Wait_Until_Settled();

    fs::remove_all(Place(0).parent_path().parent_path()); // a pesticide with four runs
    listener.Wait_For([](const Survey_State& state) { return state.Overview.Runs.size() == 4; });
    Add_Run(Place(0));
    listener.Wait_For([](const Survey_State& state) { return Counted(state, Cell_Kind::Figure) == 5; });

    Write_File(Place(4) / "run.json", "{");
    listener.Wait_For([](const Survey_State& state) { return Counted(state, Cell_Kind::Unreadable) == 1; });
    Write_File(Place(5) / "year.orv", "noise"); // a cache is built anew
    Write_File(Place(6) / "Wasser.orv", std::string(100'000, '\xFF'));
    const auto state = listener.Wait_For([](const Survey_State& now) {
        return Counted(now, Cell_Kind::Changed) == 1 && Counted(now, Cell_Kind::Figure) == 3;
    });
    EXPECT_EQ(Counts_Text(state->Overview), "5 simulations: 3 with figures, 1 changed since, 1 unreadable");

    fs::remove_all(Home / "focus");
    listener.Wait_For([](const Survey_State& now) { return now.Overview.Runs.empty(); });
}

TEST_F(Survey_Test, A_Run_Of_Which_A_File_Cannot_Be_Read_Is_Not_Told_As_Changed)
{
    Add_Run(Place(0));
    fs::remove(Home / "orvel401.exe");
    fs::create_directory(Home / "orvel401.exe"); // what lies there cannot be read, and nobody knows its bytes
    Listener listener;
    Overview_Survey survey(Home.Path(), {}, listener.Take());

    const auto state = listener.Wait_Until_Settled();

    ASSERT_EQ(Counted(*state, Cell_Kind::Unreadable), 1);
    EXPECT_NE(state->Overview.Runs[0].Reason.find("orvel401.exe"), std::string::npos);
    EXPECT_TRUE(state->Overview.Runs[0].Figures.empty());
}

TEST_F(Survey_Test, A_Run_That_Is_Rewritten_While_It_Is_Read_Ends_With_Its_Last_State)
{
    const fs::path run = Add_Run(Place(0));
    const std::string chem = Read_Whole(run / "chem.orv"), record = Read_Whole(run / "run.json");
    Listener listener;
    Overview_Survey survey(Home.Path(), {}, listener.Take());
    for (int i = 0; i < 200; ++i) {
        Write_File(run / "chem.orv", i % 2 == 0 ? chem.substr(0, chem.size() / 2) : chem);
        Write_File(run / "run.json", i % 2 == 0 ? record.substr(0, 100) : record);
    }
    listener.Wait_For([](const Survey_State& state) { return Counted(state, Cell_Kind::Figure) == 1; });

    Write_File(run / "chem.orv", chem + "x");

    listener.Wait_For([](const Survey_State& state) { return Counted(state, Cell_Kind::Changed) == 1; });
}

// As a job does it: the record and what was derived go first, the engine writes piece by piece, the record comes last.
// Two results take turns while the survey reads; 22.5 and 45 are the means of their fourth and fifth highest years.
TEST_F(Survey_Test, A_Run_That_Is_Computed_Anew_Hundreds_Of_Times_Never_Shows_A_Wrong_Figure)
{
    constexpr int rounds = 400;
    const fs::path run = Add_Run(Place(0));
    Leachate_Run doubled;
    std::vector<int> fluxes;
    for (const int flux : Rising(26))
        fluxes.push_back(2 * flux);
    doubled.Write_Water(26);
    doubled.Write_Chem(".orv", fluxes, fluxes);
    const std::array chem = {Read_Whole(Source / "chem.orv"), Read_Whole(doubled / "chem.orv")};
    auto record = Read_Run_Record(run).value();

    std::mutex guard;
    std::map<std::string, int> seen; // figures, and words where there is none
    std::vector<std::string> wrong;
    std::shared_ptr<const Survey_State> latest;
    Overview_Survey survey(Home.Path(), {}, [&](std::shared_ptr<const Survey_State> state) {
        const std::scoped_lock lock(guard);
        latest = std::move(state);
        for (const auto& shown : latest->Overview.Runs) {
            ++seen[shown.Kind == Cell_Kind::Figure ? "figure" : State_Text(shown)];
            for (const auto& figure : shown.Figures) {
                if (shown.Kind == Cell_Kind::Figure && figure.Value != 22.5 && figure.Value != 45)
                    wrong.push_back(std::to_string(figure.Value));
            }
        }
    });
    std::thread engine([&] {
        for (int round = 1; round <= rounds; ++round) {
            const auto& text = chem[static_cast<std::size_t>(round % 2)];
            for (const char* old : {"run.json", "year.orv", "period.orv"})
                fs::remove(run / old);
            for (const double share : {0.3, 0.7, 1.0})
                Write_File(run / "chem.orv",
                           text.substr(0, static_cast<std::size_t>(share * static_cast<double>(text.size()))));
            for (auto& output : record.Outputs) {
                output.File.Size = fs::file_size(run / output.File.Name);
                output.File.Sha256 = Sha256_Of_File(run / output.File.Name);
            }
            record.End = std::time(nullptr) + 3600;
            Write_File(run / "run.json", Format_Run_Record(record));
            if (round % 10 == 0)
                std::this_thread::sleep_for(20ms);
        }
    });
    engine.join();
    const auto until = std::chrono::steady_clock::now() + Patience;
    const auto ends_well = [&] {
        const std::scoped_lock lock(guard);
        return latest && latest->Is_Settled && Counted(*latest, Cell_Kind::Figure) == 1 &&
               latest->Overview.Runs[0].Figures[0].Value == 22.5; // of the last, even round
    };
    while (!ends_well() && std::chrono::steady_clock::now() < until)
        std::this_thread::sleep_for(10ms);

    EXPECT_TRUE(ends_well());
    const std::scoped_lock lock(guard);
    EXPECT_EQ(wrong, std::vector<std::string>());
    EXPECT_GT(seen["figure"], 2);
    EXPECT_GT(seen.size(), 1U) << "a cell said that there is no figure";
}

TEST_F(Survey_Test, A_Copied_Run_Is_Shown_As_Not_Checked_Until_Its_Bytes_Are_Compared)
{
    const fs::path run = Add_Run(Place(0));
    auto record = Read_Run_Record(run).value();
    record.End = std::time(nullptr) - 3600; // the copy's files were made long after the run
    Write_File(run / "run.json", Format_Run_Record(record));

    Overview_Reader reader(Home.Path(), Mode_Of(Mode_Kind::Focus));
    auto found = reader.Look({.Pesticide = "p0", .Crop = "Maize", .Location = "Hamburg (H)", .Directory = run});
    EXPECT_EQ(Mark_Text(found), "not checked") << State_Text(found) << found.Reason;
    reader.Look_Closer(found);
    EXPECT_EQ(Mark_Text(found), "");
    EXPECT_TRUE(found.Checked);

    // The same size, another byte, an old time: only the digest tells.
    std::string chem = Read_Whole(run / "chem.orv");
    chem.back() ^= 1;
    const auto written = fs::last_write_time(run / "chem.orv");
    Write_File(run / "chem.orv", chem);
    fs::last_write_time(run / "chem.orv", written);
    found = reader.Look({.Pesticide = "p0", .Crop = "Maize", .Location = "Hamburg (H)", .Directory = run});
    reader.Look_Closer(found);
    EXPECT_EQ(found.Kind, Cell_Kind::Changed);
    EXPECT_EQ(found.Reason, "chem.orv has changed.");
    EXPECT_TRUE(found.Figures.empty());
}

TEST_F(Survey_Test, Names_Of_Two_Hundred_Letters_And_Five_Thousand_Runs)
{
    const std::string longest(200, 'x');
    Add_Run(Home / "focus" / (longest + ".run") / "Maize.run" / "Hamburg_-_(H).run");
    for (int i = 0; i < 5000; ++i) { // that were only prepared
        const auto run = Home / "focus" / ("q" + std::to_string(i / 25) + ".run") /
                         ("c" + std::to_string(i / 5 % 5) + ".run") / ("l" + std::to_string(i % 5) + ".run");
        fs::create_directories(run);
    }

    Listener listener;
    Overview_Survey survey(Home.Path(), {}, listener.Take());
    const auto state = listener.Wait_Until_Settled();

    EXPECT_EQ(state->Overview.Runs.size(), 5001U);
    EXPECT_EQ(Counted(*state, Cell_Kind::Scheduled), 5000);
    EXPECT_EQ(state->Overview.Rows.back().Pesticide.size(), 200U);
}

} // namespace orvel
