#include "tables/table_cache.h"

#include "core/files.h"
#include "core/text.h"
#include "output/run_files.h"
#include "output/run_outputs.h"
#include "output/run_state.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

std::string Table_Status::Note() const
{
    std::string note;
    if (Failure.empty() && Found == Stored::Damaged)
        note = "The stored table was damaged: it has been built anew.";
    if (Failure.empty() && Found == Stored::Older)
        note = "The stored table was older than its run: it has been built anew.";
    const std::string& reason = Failure.empty() ? Not_Kept : Failure;
    return note + (note.empty() || reason.empty() ? "" : " ") + reason;
}

Stored Table_Cache::Read(const fs::path& run_directory, Table_Status& status, Bytes& bytes) const
try {
    status.Run_Changed = Output_Changed(run_directory);
    const auto first = Find_File(run_directory, First), second = Find_File(run_directory, Second);
    if (!first || !second)
        return Stored::Missing;
    bytes = {Read_Whole(*first), Read_Whole(*second)};
    const bool older = std::min(fs::last_write_time(*first), fs::last_write_time(*second)) < status.Run_Changed;
    return older ? Stored::Older : Stored::Good;
} catch (const std::exception& error) {
    status.Not_Kept = To_Code_Page(error.what());
    status.Unwritten = true;
    return Stored::Unreadable;
}

void Table_Cache::Write(const fs::path& run_directory, Echo echo, const Plot_Head& head, const Bytes& bytes,
                        Table_Status& status) const
try {
    if (!status.Not_Kept.empty())
        return;
    status.Not_Kept = status.Gap.empty() ? Why_Not_Kept(echo, head) : status.Gap;
    if (status.Not_Kept.empty()) {
        Look_Again(echo, run_directory);
        status.Not_Kept = Why_Not_Kept(echo, head);
    }
    if (!status.Not_Kept.empty())
        return;
    Write_Whole(Found_Or_New(run_directory, First), bytes.First);
    Write_Whole(Found_Or_New(run_directory, Second), bytes.Second);
    status.Kept = true;
} catch (const File_Error& error) {
    status.Not_Kept = To_Code_Page(error.what());
    status.Unwritten = true;
}

namespace {

std::string Incomplete_Text(int found, int expected)
{
    return "The simulation is incomplete: " + Years_Text(found, expected) + ".";
}

// What the files of a run tell that has no record, or none that is still true: only those that are there are judged.
std::string Gap_In_Files(const fs::path& run_directory)
{
    const auto echo = Find_File(run_directory, "echo.orv");
    if (echo && !Simulation_Failed(run_directory) && Ends_Early(*echo))
        return "The simulation is incomplete: the output echo.orv ends early.";
    const Run_Request request = Read_Run_Request(run_directory);
    int found = request.Years;
    if (request.Years > 0) {
        for (const auto& output : Find_Outputs(run_directory, request).Files)
            found = std::min(found, output.Years.value_or(found));
    }
    return found < request.Years ? Incomplete_Text(found, request.Years) : std::string();
}

} // namespace

std::string Gap_Of(const fs::path& run_directory)
{
    const Run_State state = State_Of_Run(run_directory);
    if (state.Code) {
        File_Error failure(To_Utf8(state.Reason));
        failure.Code = state.Code;
        throw failure;
    }
    if (state.Verdict == Verdict::Complete || state.Verdict == Verdict::Running)
        return {};
    if (state.Record && state.Record->Verdict != Verdict::Complete &&
        state.Record->Years_Found < state.Record->Years_Expected)
        return Incomplete_Text(state.Record->Years_Found, state.Record->Years_Expected);
    std::string gap = Gap_In_Files(run_directory);
    if (!gap.empty() || state.Verdict == Verdict::Unrecorded || state.Verdict == Verdict::Scheduled)
        return gap;
    return "The simulation is not complete. " + state.Reason;
}

std::string Why_Not_Kept(const Echo& echo, const Plot_Head& head)
{
    if (echo.At_Work)
        return "The simulation is still at work.";
    if (echo.Failed())
        return std::string(Simulation_Failed_Text);
    return head.Whole ? "" : "The run has no complete plot.orv.";
}

fs::file_time_type Output_Changed(const fs::path& run_directory)
{
    auto changed = fs::file_time_type::min();
    const auto look = [&](const fs::path& file) {
        std::error_code missing;
        const auto written = fs::last_write_time(file, missing);
        if (missing && !Is_Missing(missing))
            throw File_Error("Cannot read " + file.string() + ": " + missing.message() + ".");
        if (!missing)
            changed = std::max(changed, written);
    };
    for (const char* name : {"echo.orv", "plot.orv", "Wasser.orv"})
        look(Found_Or_New(run_directory, name));
    for (const auto& chem : Chem_Files(run_directory))
        look(chem.File);
    return changed;
}

bool Is_Older(const Table_Status& tables, const fs::path& run_directory)
{
    return Output_Changed(run_directory) > tables.Run_Changed;
}

} // namespace orvel
