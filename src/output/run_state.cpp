#include "output/run_state.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "output/echo_file.h"
#include "output/run_outputs.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

// The first output that is not of the size that was recorded; empty if all are.
std::string Changed_Output(const fs::path& run_directory, const Run_Record& record)
{
    for (const auto& output : record.Outputs) {
        std::error_code error;
        const auto size = fs::file_size(run_directory / Path_Of(output.File.Name), error);
        if (error || size != output.File.Size)
            return output.File.Name;
    }
    return {};
}

Run_State Without_Record(const fs::path& run_directory)
{
    const bool has_output = Has_Engine_Output(run_directory), has_engine = Has_Engine_Copy(run_directory);
    if (has_engine && has_output)
        return {.Verdict = Verdict::Incomplete, .Reason = std::string(Cut_Off_Reason), .Cut_Off = true};
    if (has_output)
        return {.Reason = "The run has no record."};
    // A directory that was only prepared waits; so does one whose engine has gone, until a start puts it back.
    return {.Verdict = Verdict::Scheduled};
}

} // namespace

bool Has_Engine_Copy(const fs::path& run_directory)
{
    return Is_Run_Level(run_directory.filename().string()) && !List_Files(run_directory, "orvel*.exe").empty();
}

Run_State State_Of_Run(const fs::path& run_directory)
{
    return Is_At_Work(run_directory) ? Run_State{.Verdict = Verdict::Running} : State_Of_Run_Held(run_directory);
}

Run_State State_Of_Run_Held(const fs::path& run_directory)
{
    Run_State state;
    try {
        state.Record = Read_Run_Record(run_directory);
    } catch (const File_Error& error) {
        return {.Verdict = Verdict::Incomplete,
                .Reason = To_Code_Page(error.what()),
                .Unreadable = true,
                .Code = error.Code};
    }
    if (!state.Record)
        return Without_Record(run_directory);
    state.Verdict = state.Record->Verdict;
    state.Reason = state.Record->Reason;
    if (state.Verdict != Verdict::Complete)
        return state;
    const std::string changed = Changed_Output(run_directory, *state.Record);
    if (!changed.empty()) {
        state.Verdict = Verdict::Incomplete;
        state.Reason = "The output " + changed + " is not the one that was recorded.";
    }
    return state;
}

} // namespace orvel
