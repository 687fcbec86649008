#include "jobs/single_run_start.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "jobs/engine_start.h"
#include "jobs/job.h"
#include "jobs/job_status.h"
#include "jobs/run_recording.h"
#include "output/run_state.h"
#include "runs/run_control.h"
#include "runs/run_place.h"

#include <chrono>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Tell_Failed(const Ask_Function& ask, std::string_view text)
{
    Tell(ask, "File check", text);
    return false;
}

} // namespace

bool Start_Single_Run(Session& session, const fs::path& directory, const Single_Run_Entry& entry,
                      const fs::path& runner)
{
    constexpr std::chrono::milliseconds Most(200);
    const auto lock = Lock::Take_Within(directory, Most);
    if (!lock || Is_Locked(Found_Or_New(directory, "echo.orv")))
        return Tell_Failed(session.Ask, Still_At_Work);
    session.Run.Single = Settings_Of_Entry(entry);
    try {
        Write_Whole(Found_Or_New(directory, "orvel.inp"), Format_Single_Run(session.Run.Single, session.Output));
    } catch (const File_Error&) {
        return Tell_Failed(session.Ask, "Cannot write ORVEL.INP");
    }
    const fs::path engine = session.Program.App_Path / session.Program.Engine_Exe;
    std::error_code ignored;
    if (!fs::is_regular_file(engine, ignored))
        return Tell_Failed(session.Ask, "Orvel not found"); // checked before any output is deleted
    try {
        for (const auto& place : {directory, session.Program.App_Path, engine})
            Check_Not_Open_To_All(place);
        Engine_Start(directory, engine);
        Inputs_Of_Run(directory);
        Remove_Stop_Request(directory);
    } catch (const std::runtime_error& refused) { // Run_Refused and File_Error
        return Tell_Failed(session.Ask, To_Code_Page(refused.what()));
    }
    try {
        Start_Program(
            {.Program = runner.empty() ? Program_Beside("orveljob") : runner,
             .Arguments = {"--single", engine.string(), "--lock", std::to_string(Kept_As(lock->Descriptor())), "."},
             .Directory = directory,
             .Output = {},
             .Kept_Descriptor = lock->Descriptor(),
             .Own_Session = true});
        return true;
    } catch (const File_Error& error) {
        return Tell_Failed(session.Ask, To_Code_Page(error.what()));
    }
}

bool Stop_Single_Run(const Ask_Function& ask, const fs::path& directory)
try {
    if (!Is_Locked(directory))
        return Tell_Failed(ask, "There is no engine at work in this directory.");
    Write_Whole(directory / Stop_Name, "");
    return true;
} catch (const File_Error& error) {
    return Tell_Failed(ask, To_Code_Page(error.what()));
}

Single_Run_State State_Of_Single_Run(const fs::path& directory, int years)
{
    Single_Run_State state;
    state.Running = Is_Locked(directory) || Is_Locked(Found_Or_New(directory, "echo.orv"));
    if (!state.Running) {
        const Run_State ended = State_Of_Run(directory);
        if (ended.Record)
            state.Text = ended.Verdict == Verdict::Complete ? "The simulation is complete."
                                                            : "The simulation is not complete. " + ended.Reason;
        return state;
    }
    state.Years_Done = static_cast<int>(Years_Done(directory, years));
    state.Text =
        "The engine is at work: " + std::to_string(state.Years_Done) + " of " + std::to_string(years) + " years.";
    return state;
}

} // namespace orvel
