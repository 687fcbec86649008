#include "jobs/simulations.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/rights.h"
#include "runs/batch.h"

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

// The three levels of a run below its mode's directory. One that is a link leads elsewhere: what lies there is none of
// this list's.
bool Is_In_Place(const fs::path& run)
{
    constexpr int Levels = 3;
    fs::path level = run;
    for (int i = 0; i < Levels; ++i, level = level.parent_path()) {
        std::error_code error;
        if (!Matches(level.filename().string(), "*.run") ||
            fs::symlink_status(level, error).type() != fs::file_type::directory)
            return false;
    }
    return true;
}

bool May_Be_Removed(const fs::path& run)
{
    return Is_In_Place(run) && !Is_At_Work(run);
}

// Deletes the files, then the directory: one that holds another directory stays. False: it is still there.
bool Remove_Run(const fs::path& run)
{
    if (!May_Be_Removed(run))
        return false;
    std::error_code error;
    for (const auto& file : List_Files(run, "*")) {
        if (!fs::remove(run / file, error))
            return false;
    }
    return fs::remove(run, error);
}

// Removes a level that holds no run any more; whatever else a user has put there keeps it.
void Remove_If_Empty(const fs::path& level)
{
    std::error_code ignored;
    if (!fs::is_symlink(level, ignored) && List_Directories(level, "*.run").empty())
        fs::remove(level, ignored);
}

bool Has_Readable_Echo(const fs::path& run)
{
    const auto echo = Find_File(run, "echo.orv");
    return echo && May_Read(*echo);
}

} // namespace

void Clean_Leftovers(Session& session, const Mode& mode)
{
    const fs::path root = Mode_Directory(session, mode);
    if (Find_File(root, "orveljob.bat"))
        return;
    Load_Batch(session, mode);
    std::vector<fs::path> pending;
    for (const auto& run : session.Run.Job_Dir)
        pending.push_back(Run_Path(root, run));
    for (const auto& simulation : Simulation_List(session, mode)) {
        const fs::path& run = simulation.Directory;
        if (Has_Readable_Echo(run) || std::ranges::find(pending, run) != pending.end())
            continue;
        Remove_Run(run);
    }
    for (const auto& pesticide : List_Directories(root, "*.run")) {
        if (fs::is_symlink(root / pesticide))
            continue;
        for (const auto& crop : List_Directories(root / pesticide, "*.run"))
            Remove_If_Empty(root / pesticide / crop);
    }
}

int Delete_Simulations(Session& session, const Mode& mode, const std::vector<Simulation>& simulations)
try {
    const std::string what = simulations.size() > 1 ? "these simulations" : "this simulation";
    const Message question{std::string(Deleting),
                           "Do you really want to remove " + what + "?",
                           Icon::Question,
                           {Button::Yes, Button::No},
                           Button::Yes};
    if (simulations.empty() || session.Ask(question) != Button::Yes)
        return 0;
    std::vector<fs::path> going;
    for (const auto& simulation : simulations) {
        if (May_Be_Removed(simulation.Directory))
            going.push_back(simulation.Directory);
    }
    Take_Out_Of_Batch(session, mode, going); // first: a batch never names a directory that is gone
    int removed = 0;
    for (const auto& simulation : simulations) {
        const fs::path& run = simulation.Directory;
        std::error_code unknown;
        if (Remove_Run(run))
            ++removed;
        else if (fs::symlink_status(run, unknown).type() !=
                 fs::file_type::not_found) // one that is gone already is what the user wants
            session.Ask({std::string(Deleting), "You are currently running a simulation using the directory\r\n" +
                                                    Path_Text(run) + ".\r\n\r\nDelete operation failed!\r\n\r\n"});
        Remove_If_Empty(run.parent_path());
        Remove_If_Empty(run.parent_path().parent_path());
    }
    return removed;
} catch (const std::runtime_error& error) { // of the pending batch
    session.Ask({std::string(Deleting), To_Code_Page(error.what())});
    return 0;
}

} // namespace orvel
