#include "jobs/simulations.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/system/rights.h"
#include "runs/batch.h"
#include "runs/bin.h"
#include "runs/bin_rule.h"
#include "runs/job_file.h"
#include "runs/run_place.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Deleting = "Deleting simulations";

bool Is_At_Work(const fs::path& run)
{
    const auto echo = Find_File(run, "echo.orv");
    return Is_Locked(run) || (echo && Is_Locked(*echo));
}

// Whether none of the three levels of a run below its mode's directory is a link: a link leads elsewhere, and what lies
// there is not ours to delete.
bool Is_In_Place(const fs::path& mode_directory, const fs::path& run)
try {
    Check_No_Link(mode_directory, run);
    return true;
} catch (const File_Error&) {
    return false;
}

bool May_Be_Removed(const fs::path& mode_directory, const fs::path& run)
{
    return Is_In_Place(mode_directory, run) && !Is_At_Work(run);
}

// Moves a run to the bin. False: it is still there.
bool Remove_Run(const fs::path& mode_directory, const fs::path& run)
try {
    std::error_code ignored;
    const bool is_there = fs::is_directory(run, ignored);
    if (!is_there || !May_Be_Removed(mode_directory, run))
        return false;
    Move_To_Bin(mode_directory, run);
    return true;
} catch (const File_Error&) {
    return false;
}

// The runs have gone to the bin all the same if its rule cannot be read.
void Empty_Bin_Or_Tell(const fs::path& mode_directory, const Ask_Function& ask)
try {
    Empty_Bin(mode_directory);
} catch (const File_Error& error) {
    Tell(ask, Deleting, To_Code_Page(error.what()));
}

// Deletes what was only prepared.
void Delete_Leftover(const fs::path& mode_directory, const fs::path& run)
{
    if (!May_Be_Removed(mode_directory, run))
        return;
    std::error_code error;
    for (const auto& file : List_Files(run, "*")) {
        if (!fs::remove(run / file, error))
            return;
    }
    fs::remove(run, error);
}

// Removes a level that no longer holds a run, unless the user has put something else there.
void Remove_If_Empty(const fs::path& level)
{
    std::error_code ignored;
    if (!fs::is_symlink(level, ignored) && List_Run_Levels(level).empty())
        fs::remove(level, ignored);
}

bool Has_Readable_Echo(const fs::path& run)
{
    const auto echo = Find_File(run, "echo.orv");
    return echo && May_Read(*echo);
}

} // namespace

void Clean_Leftovers(const fs::path& mode_directory)
{
    if (Find_File(mode_directory, Job_File_Name))
        return;
    std::vector<fs::path> pending;
    for (const auto& run : Read_Batch(mode_directory))
        pending.push_back(Run_Path(mode_directory, run));
    for (const auto& simulation : Simulation_List(mode_directory)) {
        const fs::path& run = simulation.Directory;
        // A record or any output tells of a run, also one that left no echo.
        if (simulation.State.Verdict != Verdict::Scheduled || Has_Readable_Echo(run) ||
            std::ranges::find(pending, run) != pending.end())
            continue;
        Delete_Leftover(mode_directory, run);
    }
    for (const auto& pesticide : List_Run_Levels(mode_directory)) {
        if (fs::is_symlink(mode_directory / pesticide))
            continue;
        for (const auto& crop : List_Run_Levels(mode_directory / pesticide))
            Remove_If_Empty(mode_directory / pesticide / crop);
    }
}

Simulation Simulation_In_Bin(const Binned_Run& binned)
{
    Simulation simulation = Look_At_Run(binned.Directory);
    const fs::path crop = binned.Run.parent_path();
    simulation.Pesticide = Decode_Level(To_Code_Page(crop.parent_path().string()));
    simulation.Crop = Decode_Level(To_Code_Page(crop.filename().string()));
    simulation.Location = Decode_Level(To_Code_Page(binned.Run.filename().string()));
    return simulation;
}

int Put_Back_Simulations(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                         const std::vector<Binned_Run>& runs, const Progress& progress)
{
    int put_back = 0, done = 0;
    for (const auto& run : runs) {
        if (progress && !progress(Decode_Level(To_Code_Page(run.Run.filename().string())),
                                  static_cast<double>(done++) / static_cast<double>(runs.size())))
            break;
        try {
            Put_Back(Mode_Directory(program, mode), run);
            ++put_back;
        } catch (const File_Error& error) {
            Tell(ask, "Put back simulations", To_Code_Page(error.what()));
        }
    }
    return put_back;
}

int Delete_Simulations(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                       const std::vector<Simulation>& simulations, const Progress& progress)
try {
    const std::string what = simulations.size() > 1 ? "these simulations" : "this simulation";
    const Message question{std::string(Deleting),
                           "Do you really want to remove " + what + "?",
                           Icon::Question,
                           {Button::Yes, Button::No},
                           Button::Yes};
    if (simulations.empty() || ask(question) != Button::Yes)
        return 0;
    const fs::path directory = Mode_Directory(program, mode);
    std::vector<fs::path> pending;
    for (const auto& run : Read_Batch(directory))
        pending.push_back(Run_Path(directory, run));
    if (pending.empty() && Batch_Pending(directory)) // damaged: it may name any of them
        Take_Out_Of_Batch(program.App_Path, directory, {simulations.front().Directory});
    int removed = 0, done = 0;
    for (const auto& simulation : simulations) {
        const fs::path& run = simulation.Directory;
        if (progress &&
            !progress(simulation.Location, static_cast<double>(done++) / static_cast<double>(simulations.size())))
            break;
        // Done first, so that a batch never names a directory that is gone.
        if (std::ranges::find(pending, run) != pending.end() && May_Be_Removed(directory, run))
            Take_Out_Of_Batch(program.App_Path, directory, {run});
        std::error_code unknown;
        if (Remove_Run(directory, run))
            ++removed;
        else if (fs::symlink_status(run, unknown).type() != fs::file_type::not_found) // already gone: nothing to report
            Tell(ask, Deleting,
                 "You are currently running a simulation using the directory\r\n" + Path_Text(run) +
                     ".\r\n\r\nDelete operation failed!\r\n\r\n");
        Remove_If_Empty(run.parent_path());
        Remove_If_Empty(run.parent_path().parent_path());
    }
    if (removed > 0)
        Empty_Bin_Or_Tell(directory, ask);
    return removed;
} catch (const std::runtime_error& error) { // from changing the pending batch
    Tell(ask, Deleting, To_Code_Page(error.what()));
    return 0;
}

} // namespace orvel
