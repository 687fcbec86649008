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
// per processor. Whatever is not Started has been told. `runner` is the job runner; without one it is the program
// orveljob beside the running one.
Started_Job Start_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, int jobs = 0,
                        const std::filesystem::path& runner = {});

// Run: starts the pending batch; where none is pending, the choice alone is marked before.
Started_Job Run_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Run_Choice& choice,
                      int jobs = 0, const std::filesystem::path& runner = {});

// Whether a job of this program has ended, and how; does not wait. Nothing while it runs.
std::optional<int> Job_Exit_Code(int process);

} // namespace orvel
