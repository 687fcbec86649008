#include "evaluation/overview_survey.h"

#include "core/files.h"
#include "core/system/processors.h"
#include "core/text.h"
#include "output/run_files.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

constexpr auto Between_Looks_At_Work = 500ms; // of runs that compute
constexpr auto Between_Looks_Unwatched = 5s;  // where the system tells nothing
constexpr auto Between_Full_Looks = 60s;
constexpr auto Gathering = 100ms; // events come in bursts
constexpr auto Between_Tellings = 100ms;
constexpr std::size_t Batch = 200, Least_To_Share = 16; // runs
constexpr int Most_Readers = 4;

// Whether a file of the installation or the mode is an input of runs.
bool Is_Input(std::string_view name)
{
    return std::ranges::any_of(std::array{"*.psm", "*.sze", "*.cli", "Haude.dat", "orvel*.exe"},
                               [&](const char* mask) { return Matches(name, mask); });
}

// What tells whether anything in a directory is another than before.
std::vector<File_Identity> Files_In(const fs::path& directory)
{
    std::vector<File_Identity> files;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        if (const auto identity = Identity_Of(entry->path()))
            files.push_back(*identity);
    }
    return files;
}

bool Is_At_Work(const Overview_Run& run)
{
    return run.Kind == Cell_Kind::Running;
}

} // namespace

Overview_Survey::Overview_Survey(fs::path app_path, Survey_Choice choice, Publish publish)
    : App_Path(std::move(app_path)),
      Publish_State(std::move(publish)),
      Wanted(std::move(choice)),
      Thread([this] { Follow(); })
{}

Overview_Survey::~Overview_Survey()
{
    Ends = true;
    Watch.Wake();
    Thread.join();
}

void Overview_Survey::Choose(Survey_Choice choice)
{
    {
        const std::scoped_lock lock(Guard);
        if (Wanted == choice)
            return;
        Wanted = std::move(choice);
    }
    Is_Chosen_Anew = true;
    Watch.Wake();
}

void Overview_Survey::Follow()
{
    while (!Ends) {
        if (Is_Chosen_Anew)
            Take_Choice();
        if (Lists_Again)
            List_Runs();
        Look_At_Dirty();
        if (!Is_Interrupted())
            Look_Closer();
        if (!Is_Interrupted())
            Wait();
    }
}

// Other locations or another comparison need no new look.
void Overview_Survey::Take_Choice()
{
    Is_Chosen_Anew = false;
    Survey_Choice wanted;
    {
        const std::scoped_lock lock(Guard);
        wanted = Wanted;
    }
    const bool same_figures = !Readers.empty() && wanted.Mode == Chosen.Mode && wanted.Soil == Chosen.Soil;
    if (!same_figures)
        Begin_Anew(wanted);
    Chosen = std::move(wanted);
    if (same_figures)
        Tell(false);
}

void Overview_Survey::Begin_Anew(const Survey_Choice& choice)
{
    const Mode& mode = Mode_Of(choice.Mode);
    Program_State program;
    program.App_Path = App_Path;
    Directory = Mode_Directory(program, mode);
    Readers.clear();
    for (int i = 0; i < std::clamp(Processors(), 1, Most_Readers); ++i)
        Readers.push_back(std::make_unique<Overview_Reader>(App_Path, mode, choice.Soil));
    Runs.clear();
    Order.clear();
    Lists_Again = true;
}

// Directories are watched before they are listed, so that nothing is missed between.
void Overview_Survey::List_Runs()
try {
    Lists_Again = false;
    Failure.clear();
    Is_Unwatched = !Watch.Add(App_Path) || !Watch.Add_In_Tree(Directory, Directory);
    std::set<fs::path> seen;
    Order.clear();
    for (auto& place : Simulation_Places(Directory)) {
        const fs::path run = place.Directory;
        for (const auto& level : {run.parent_path().parent_path(), run.parent_path(), run}) {
            if (!Watch.Add_In_Tree(Directory, level))
                Is_Unwatched = true;
        }
        seen.insert(run);
        Order.push_back(run);
        Runs.try_emplace(run, Known_Run{.Place = std::move(place), .Run = {}});
    }
    std::erase_if(Runs, [&](const auto& known) { return !seen.contains(known.first); });
} catch (const std::exception& error) {
    Failure = error.what();
    Runs.clear();
    Order.clear();
}

// Many runs are looked at by several threads, each with a reader of its own, a batch at a time: between batches what is
// known is told.
void Overview_Survey::Look_At_Dirty()
{
    std::vector<Known_Run*> dirty;
    for (const auto& path : Order) {
        if (auto& known = Runs.at(path); known.Is_Dirty)
            dirty.push_back(&known);
    }
    for (const auto& reader : Readers)
        reader->Begin_Pass();
    for (std::size_t first = 0; first < dirty.size(); first += Batch) {
        if (Is_Interrupted())
            return;
        Look_At_Batch(std::span(dirty).subspan(first, std::min(Batch, dirty.size() - first)));
        Tell_Now_And_Then();
    }
    const bool pending = std::ranges::any_of(Runs, [](const auto& known) { return known.second.Run.Pending; });
    Tell(!pending);
}

void Overview_Survey::Look_At_Batch(std::span<Known_Run*> batch)
{
    std::atomic<std::size_t> next = 0;
    const auto look = [&](Overview_Reader& reader) {
        for (std::size_t i = next++; i < batch.size(); i = next++) {
            Known_Run& known = *batch[i];
            known.Is_Dirty = false;
            known.Seen = Files_In(known.Place.Directory);
            known.Run = reader.Look(known.Place);
            ++Looked;
        }
    };
    std::vector<std::thread> helpers;
    for (std::size_t i = 1; i < Readers.size() && batch.size() > Least_To_Share; ++i)
        helpers.emplace_back([&, i] { look(*Readers[i]); });
    look(*Readers.front());
    std::ranges::for_each(helpers, [](std::thread& helper) { helper.join(); });
}

void Overview_Survey::Look_Closer()
{
    for (const auto& path : Order) {
        auto& known = Runs.at(path);
        if (!known.Run.Pending)
            continue;
        try {
            Readers.front()->Look_Closer(known.Run, [this](const std::string&, double) { return !Is_Interrupted(); });
        } catch (const Reading_Stopped&) {
            known.Is_Dirty = true;
        }
        if (Is_Interrupted())
            return;
        Tell_Now_And_Then();
        // What happened meanwhile comes first.
        const auto events = Watch.Wait(0ms);
        std::ranges::for_each(events, [this](const auto& event) { Take_Event(event); });
        if (Lists_Again || std::ranges::any_of(Runs, [](const auto& other) { return other.second.Is_Dirty; }))
            return;
    }
    Tell(true);
}

void Overview_Survey::Wait()
{
    const bool has_work = Lists_Again || std::ranges::any_of(Runs, [](const auto& known) {
                              return known.second.Is_Dirty || known.second.Run.Pending;
                          });
    if (has_work)
        return;
    const bool at_work = std::ranges::any_of(Runs, [](const auto& known) { return Is_At_Work(known.second.Run); });
    const std::chrono::milliseconds most = at_work        ? std::chrono::milliseconds(Between_Looks_At_Work)
                                           : Is_Unwatched ? std::chrono::milliseconds(Between_Looks_Unwatched)
                                                          : std::chrono::milliseconds(Between_Full_Looks);
    auto events = Watch.Wait(most);
    if (Is_Interrupted())
        return;
    if (events.empty() && !at_work)
        return Mark_Changed();
    if (!events.empty())
        std::this_thread::sleep_for(Gathering);
    for (const auto& event : Watch.Wait(0ms))
        events.push_back(event);
    std::ranges::for_each(events, [this](const auto& event) { Take_Event(event); });
    for (auto& [path, known] : Runs)
        known.Is_Dirty = known.Is_Dirty || Is_At_Work(known.Run);
}

void Overview_Survey::Mark_All()
{
    Lists_Again = true;
    for (auto& [path, known] : Runs)
        known.Is_Dirty = true;
}

// Runs whose files have changed, although the system has not told.
void Overview_Survey::Mark_Changed()
{
    Lists_Again = true;
    for (auto& [path, known] : Runs)
        known.Is_Dirty = known.Is_Dirty || known.Seen != Files_In(path);
}

void Overview_Survey::Take_Event(const Directory_Watch::Event& event)
{
    const auto known = Runs.find(event.Directory);
    if (event.Directory.empty()) {
        Mark_All();
    } else if (known != Runs.end()) {
        known->second.Is_Dirty = true;
        Lists_Again = Lists_Again || event.Name.empty(); // the run itself has gone
    } else if (event.Directory != App_Path && event.Directory != Directory) {
        Lists_Again = true; // a pesticide, a crop, or a run that has gone
    } else if (event.Name.ends_with(".run") || event.Name.empty()) {
        Lists_Again = true;
    } else if (Is_Input(event.Name)) {
        Mark_All();
    }
}

void Overview_Survey::Tell(bool settled)
{
    std::vector<Overview_Run> runs;
    runs.reserve(Order.size());
    for (const auto& path : Order) {
        const auto& known = Runs.at(path);
        runs.push_back(known.Run);
        if (known.Run.Directory.empty()) { // not looked at yet
            runs.back() = {.Pesticide = known.Place.Pesticide,
                           .Crop = known.Place.Crop,
                           .Location = known.Place.Location,
                           .Directory = known.Place.Directory,
                           .Kind = Cell_Kind::Reading};
        }
    }
    Told = std::chrono::steady_clock::now();
    if (Chosen.Compared)
        Compare_With(runs, *Chosen.Compared);
    auto overview = Arrange_Overview(Chosen.Mode, Readers.front()->Quantity(), std::move(runs), Chosen.Codes);
    overview.Compared_With = Chosen.Compared ? Chosen.Compared->Name : std::string();
    Publish_State(std::make_shared<const Survey_State>(Survey_State{std::move(overview), Failure, settled}));
}

void Overview_Survey::Tell_Now_And_Then()
{
    if (std::chrono::steady_clock::now() - Told > Between_Tellings)
        Tell(false);
}

} // namespace orvel
