#pragma once

#include "jobs/job.h"
#include "runs/mark.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Starting the pending batch of a mode as a job, or the runs of its last job again, and stopping it.

enum class Start_Result { Started, Already_Running, Nothing_Pending, Failed };

struct Started_Job {
    Start_Result Result = Start_Result::Failed;
    int Process = 0; // for Job_Exit_Code
};

// Makes the pending batch the job file and starts the job, which outlives this program; with a selection other than
// Fresh the last job file is taken as it is. Lock, runner, and the engine and the inputs of every run to be started are
// looked at first: if one is missing, nothing is changed. Unless the result is Started, the user has been told.
// `runner` is the job runner; without one it is the program orveljob beside the running one.
Started_Job Start_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                        const Job_Order& order = {}, const std::filesystem::path& runner = {});

// Starts the pending batch; if none is pending, the choice is marked first and runs alone.
Started_Job Run_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Run_Choice& choice,
                      const Job_Order& order = {}, const std::filesystem::path& runner = {});

// The runs that a start of this selection would run. Throws File_Error if the batch or the job file cannot be read.
std::vector<std::filesystem::path> Runs_To_Start(const Program_State& program, const Mode& mode,
                                                 Job_Selection selection);

// What a start will do, for the run form: how many marked simulations it runs and which stay as they are; without any,
// what becomes of the selected combination.
std::string Start_Notice(const Program_State& program, const Mode& mode, const Run_Choice& choice);

// The exit code of a job that this program started, without waiting; nothing while it runs.
std::optional<int> Job_Exit_Code(int process);

// Asks the job of a mode to end, and ends engines whose job has gone. False: none is at work, or it cannot be asked,
// and the user has been told.
bool Stop_Job(const Program_State& program, const Ask_Function& ask, const Mode& mode);

// Ends the engines of the last job if that has gone without them; while a job is at work nothing happens. Whether there
// was one. Throws File_Error.
bool End_Orphans(const std::filesystem::path& mode_directory);

} // namespace orvel
