#include "output/run_state.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/sha256.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/run_outputs.h"

#include <mutex>
#include <utility>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Whether a file that was written after its record is still the recorded one. What was found is kept while the program
// runs, by the identity of the file.
bool Has_Digest(const fs::path& file, const std::string& digest)
{
    static std::mutex turn;
    static File_Digests digests;
    const std::scoped_lock held(turn);
    return digests.Of(file).Sha256 == digest;
}

// The first output that is not the recorded one; empty if all are. One of the same size that is no younger than the
// record is taken for it unread.
std::string Changed_Output(const fs::path& run_directory, const Run_Record& record)
{
    const auto recorded = Identity_Of(run_directory / Run_Record_Name);
    const auto is_younger = [&](const File_Identity& file) {
        return !recorded ||
               std::pair(file.Seconds, file.Nanoseconds) > std::pair(recorded->Seconds, recorded->Nanoseconds);
    };
    for (const auto& output : record.Outputs) {
        const fs::path file = run_directory / Path_Of(output.File.Name);
        const auto found = Identity_Of(file);
        if (!found || found->Size != output.File.Size)
            return output.File.Name;
        if (is_younger(*found) && !Has_Digest(file, output.File.Sha256))
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
    if (const auto place = Recorded_Directory(run_directory);
        !state.Record->Directory.empty() && !Same_Text(state.Record->Directory, place)) {
        state.Verdict = Verdict::Incomplete;
        state.Reason = "Its record is that of another run, " + state.Record->Directory + ".";
        return state;
    }
    try {
        const std::string changed = Changed_Output(run_directory, *state.Record);
        if (!changed.empty()) {
            state.Verdict = Verdict::Incomplete;
            state.Reason = "The output " + changed + " is not the one that was recorded.";
        }
    } catch (const File_Error& error) {
        state.Verdict = Verdict::Incomplete;
        state.Reason = To_Code_Page(error.what());
    }
    return state;
}

} // namespace orvel
