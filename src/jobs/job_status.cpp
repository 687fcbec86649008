#include "jobs/job_status.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/system/rights.h"
#include "core/system/times.h"
#include "core/text.h"
#include "jobs/job_log.h"
#include "output/echo_file.h"
#include "output/run_outputs.h"
#include "runs/job_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Tail = 64U << 10U; // an engine writes its last year at the end

// The runs that the job file names; none if it cannot be read.
std::vector<fs::path> Runs_Of_Job(const fs::path& directory)
try {
    return Read_Job_Runs(directory);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {};
}

double Years_Of_Run(const fs::path& run)
{
    constexpr std::size_t Years_Width = 3; // the first field of the file
    const std::string years = Read_Head(Found_Or_New(run, "orvel.inp"), Years_Width);
    return std::clamp(Val(years), 0.0, static_cast<double>(Most_Years));
}

// The number after the last "YEAR" in a text.
double Last_Year(std::string_view text)
{
    constexpr std::string_view Word = "YEAR";
    const auto at = text.rfind(Word);
    return at == std::string_view::npos ? 0 : Val(text.substr(at + Word.size()));
}

void Count_Run(const fs::path& run, std::optional<Job_Event> event, Job_Progress& progress)
{
    ++progress.Runs;
    if (event == Job_Event::Kept) {
        ++progress.Done;
        return;
    }
    const double years = Years_Of_Run(run);
    progress.Years += years;
    if (!event)
        return;
    if (*event == Job_Event::Started && Is_Locked(run)) {
        ++progress.Running;
        progress.Years_Done += Years_Done(run, years);
        return;
    }
    ++progress.Done;
    progress.Years_Done += years;
    if (*event != Job_Event::Finished)
        ++progress.Failed;
}

std::string Left_Text(double seconds)
{
    constexpr double Minute = 60;
    constexpr double Hour = 60 * Minute;
    if (seconds < Minute)
        return General_Text(std::ceil(seconds)) + " s left";
    if (seconds < Hour)
        return General_Text(std::ceil(seconds / Minute)) + " min left";
    return Format_Pattern(seconds / Hour, "0.0") + " h left";
}

std::string List_Name(const std::string& directory)
{
    return Decode_Level(To_Code_Page(directory));
}

// The crops of a pesticide, or the locations of a crop.
std::vector<std::string> First_Levels(const fs::path& directory)
{
    constexpr std::size_t Most = 31;
    auto names = List_Run_Levels(directory);
    if (names.size() > Most)
        names.resize(Most);
    return names;
}

} // namespace

Simulation Look_At_Run(const fs::path& run)
{
    Simulation simulation{.Pesticide = {}, .Crop = {}, .Location = {}, .Directory = run, .Date = {}};
    try {
        simulation.Date = Last_Change(run);
        simulation.Status = Status_Of_Run(run);
        simulation.State = State_Of_Run(run);
        simulation.Echo_Failed = simulation.State.Verdict == Verdict::Unrecorded && Simulation_Failed(run);
    } catch (const File_Error& error) { // the others of a list can be told all the same
        simulation.State = {.Verdict = Verdict::Incomplete, .Reason = To_Code_Page(error.what()), .Unreadable = true};
    }
    return simulation;
}

double Years_Done(const fs::path& run, double years)
try {
    const std::string said = Read_Tail(run / Progress_Name, 256);
    double done = Last_Year(said);
    if (done == 0)
        done = Last_Year(Read_Tail(Found_Or_New(run, "Wasser.orv"), Tail));
    return std::clamp(done, 0.0, years);
} catch (const File_Error&) {
    return 0; // nothing but the estimate of the time left rests on it
}

bool Job_Running(const Program_State& program, const Mode& mode)
{
    return !Find_File(Mode_Directory(program, mode), mode.Probe_File) || Is_Job_At_Work(program, mode);
}

bool Is_Job_At_Work(const Program_State& program, const Mode& mode)
{
    const fs::path directory = Mode_Directory(program, mode);
    return Is_Locked(directory) || std::ranges::any_of(Runs_Of_Job(directory), Is_Locked);
}

Job_Progress Progress_Of_Job(const fs::path& mode_directory)
{
    const Job_History history = Read_Job_Log(mode_directory);
    Job_Progress progress;
    for (const auto& run : Runs_Of_Job(mode_directory)) {
        const auto event = history.Runs.find(run.lexically_relative(mode_directory).generic_string());
        Count_Run(run, event == history.Runs.end() ? std::nullopt : std::optional(event->second), progress);
    }
    if (history.Begin > 0 && progress.Years_Done > 0) {
        const double elapsed = std::max(0.0, std::difftime(std::time(nullptr), history.Begin));
        progress.Seconds_Left = elapsed * (progress.Years - progress.Years_Done) / progress.Years_Done;
    }
    return progress;
}

std::string Progress_Text(const Job_Progress& progress)
{
    std::string text = std::to_string(progress.Done) + " of " + std::to_string(progress.Runs) + " runs";
    if (progress.Running > 0)
        text += ", " + std::to_string(progress.Running) + " running";
    if (progress.Failed > 0)
        text += ", " + std::to_string(progress.Failed) + " failed";
    if (progress.Years > 0)
        text += ", " + Format_Pattern(std::floor(100 * progress.Years_Done / progress.Years), "0") + " %";
    return progress.Seconds_Left > 0 ? text + ", " + Left_Text(progress.Seconds_Left) : text;
}

std::string_view Status_Text(Run_Status status)
{
    constexpr std::array<std::string_view, 3> Texts = {"Scheduled", "Running", "Data available"};
    return Texts[static_cast<std::size_t>(status)];
}

std::string Result_Text(const Simulation& simulation)
{
    const Run_State& state = simulation.State;
    if (state.Verdict == Verdict::Running || state.Verdict == Verdict::Scheduled)
        return {}; // the status says it
    std::string text(Verdict_Text(state.Verdict));
    if (state.Verdict == Verdict::Unrecorded)
        return text + (simulation.Echo_Failed ? ": ERROR" : "");
    if (state.Cut_Off)
        return text + ": cut off";
    if (state.Verdict == Verdict::Incomplete && state.Record &&
        state.Record->Years_Found < state.Record->Years_Expected)
        return text + ": " + Years_Text(state.Record->Years_Found, state.Record->Years_Expected);
    return text;
}

std::string Explanation(const Simulation& simulation)
{
    if (simulation.Echo_Failed)
        return std::string(Simulation_Failed_Text);
    return simulation.State.Reason;
}

Run_Status Status_Of_Run(const fs::path& run)
{
    const auto echo = Find_File(run, "echo.orv");
    if (!echo || !May_Read(*echo))
        return Run_Status::Scheduled;
    // The run's lock is tested first: while a job holds it, the engine's own lock is left alone.
    return Is_Locked(run) || Is_Locked(*echo) ? Run_Status::Running : Run_Status::Data_Available;
}

std::vector<Simulation> Simulation_Places(const fs::path& mode_directory)
{
    std::vector<Simulation> places;
    for (const auto& pesticide : List_Run_Levels(mode_directory)) {
        for (const auto& crop : First_Levels(mode_directory / pesticide)) {
            for (const auto& location : First_Levels(mode_directory / pesticide / crop))
                places.push_back({.Pesticide = List_Name(pesticide),
                                  .Crop = List_Name(crop),
                                  .Location = List_Name(location),
                                  .Directory = mode_directory / pesticide / crop / location});
        }
    }
    return places;
}

std::vector<Simulation> Simulation_List(const fs::path& mode_directory)
{
    auto simulations = Simulation_Places(mode_directory);
    for (auto& simulation : simulations)
        simulation = Look_At_Simulation(std::move(simulation));
    return simulations;
}

Simulation Look_At_Simulation(Simulation place)
{
    Simulation simulation = Look_At_Run(place.Directory);
    simulation.Pesticide = std::move(place.Pesticide);
    simulation.Crop = std::move(place.Crop);
    simulation.Location = std::move(place.Location);
    return simulation;
}

} // namespace orvel
