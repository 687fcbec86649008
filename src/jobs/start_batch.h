#pragma once

#include "runs/mark.h"

#include <filesystem>
#include <optional>

namespace orvel {

// Starting the pending batch of a mode as a job.

enum class Start_Result { Started, Already_Running, Nothing_Pending, Failed };

struct Started_Job {
    Start_Result Result = Start_Result::Failed;
    int Process = 0; // for Job_Exit_Code
};

// Makes the pending batch the job file and starts the job, which outlives this program. `jobs` runs at a time, 0: one
// per processor. Unless the result is Started, the user has been told. `runner` is the job runner; without one it is
// the program orveljob beside the running one.
Started_Job Start_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, int jobs = 0,
                        const std::filesystem::path& runner = {});

// Starts the pending batch; if none is pending, the choice is marked first and runs alone.
Started_Job Run_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Run_Choice& choice,
                      int jobs = 0, const std::filesystem::path& runner = {});

// The exit code of a job that this program started, without waiting; nothing while it runs.
std::optional<int> Job_Exit_Code(int process);

} // namespace orvel
