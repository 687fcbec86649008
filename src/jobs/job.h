#pragma once

#include "output/run_state.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace orvel {

// The job of a mode: the runs of its job file (job_file.h). Each run gets its record when its engine has ended; a run
// that has finished is never touched.

// Which runs of the job file are run.
enum class Job_Selection {
    Fresh,  // those without a record: marked and not yet run, or cut off
    Resume, // those that were not begun, were cut off or stopped
    Failed, // those that failed or are incomplete
};

struct Job_Order {
    int Jobs = 0;             // runs at a time, 0: one per processor
    std::optional<int> Limit; // seconds that a run may take
    Job_Selection Selection = Job_Selection::Fresh;
};

struct Job_Result {
    int Runs = 0, Failed = 0; // failed: not complete when the job ends, for whatever reason
};

// Runs the job of a mode directory and keeps orveljob.log. The caller holds the lock of the mode directory. A run that
// fails does not stop the others. Throws File_Error if the job file cannot be read or the log not be written.
Job_Result Run_Job(const std::filesystem::path& mode_directory, const Job_Order& order);

// Runs one engine in a directory whose lock the caller holds as `lock`, without a job file and a log. The directory's
// old output is deleted.
Job_Result Run_Single(const std::filesystem::path& directory, const std::filesystem::path& engine, int lock,
                      std::optional<int> limit);

// A file of this name in the mode directory, or in the directory of a single run, asks the job to end: no process id
// stands in a file. A start removes an old request.
constexpr std::string_view Stop_Name = "orveljob.stop";
void Remove_Stop_Request(const std::filesystem::path& directory);

// Whether a start of this selection runs a run of this state.
bool Is_Selected(Job_Selection selection, const Run_State& state);

} // namespace orvel
