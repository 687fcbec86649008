#include "jobs/single_run_start.h"

#include "core/files.h"
#include "core/system/lock.h"
#include "jobs/engine_start.h"
#include "jobs/job_status.h"
#include "runs/run_control.h"

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

bool Start_Single_Run(Session& session, const fs::path& directory, const Single_Run_Entry& entry)
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
        Program_Start start = Engine_Start(directory, engine);
        Delete_Output(directory);
        start.Kept_Descriptor = lock->Descriptor();
        start.Own_Session = true;
        Start_Program(start);
        return true;
    } catch (const File_Error&) {
        return Tell_Failed(session.Ask, "Orvel not found");
    } catch (const Run_Refused& refused) {
        return Tell_Failed(session.Ask, refused.what());
    }
}

Single_Run_State State_Of_Single_Run(const fs::path& directory, int years)
{
    Single_Run_State state;
    state.Running = Is_Locked(directory) || Is_Locked(Found_Or_New(directory, "echo.orv"));
    if (!state.Running)
        return state;
    state.Years_Done = static_cast<int>(Years_Done(directory, years));
    state.Text =
        "The engine is at work: " + std::to_string(state.Years_Done) + " of " + std::to_string(years) + " years.";
    return state;
}

} // namespace orvel
