#pragma once

#include "core/progress.h"
#include "plans/plan_directory.h"
#include "plans/run_plan.h"
#include "plans/slurm.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// Running a plan in a program of its own, which outlives the one that starts it, and ending it.

// The words behind "orvelctl -C DIR" that run a plan, without the directory of its runs being held.
std::vector<std::string> Words_To_Run(const Plan_Order& order);

// The same for a plan that goes to a cluster.
std::vector<std::string> Words_To_Submit(const Plan_Order& order, const Slurm_Order& slurm);

// The words behind "orvelctl" that run what the directory of a plan holds, and wait.
std::vector<std::string> Words_To_Go_On(const Program_State& program, const Plan_Order& order);

// Hands the part that is held to `orvelctl`, the program that runs it in a session of its own; what it has to say goes
// to the journal of the plan. Throws File_Error.
void Start_Plan(const Program_State& program, const Plan_Order& order, const Held_Plan& held,
                const std::filesystem::path& orvelctl);

// Checks a plan, sets its directory up and starts it, as the program beside this one. Throws File_Error, whose sentence
// names the first wrong rows, a line each; `progress` may stop the check, and nothing is left then.
void Begin_Plan(const Program_State& program, const Plan_Order& order, const Progress& progress);

// Sets the directory of a plan up and hands it to Slurm, whose tasks start `orvelctl`. Throws Plan_Faults and
// File_Error.
Slurm_Job Submit_Plan(const Program_State& program, const Plan_Order& order, const Slurm_Order& slurm,
                      const std::filesystem::path& orvelctl, const Progress& progress = {});

// The same with the program beside this one and the sentences of Begin_Plan.
Slurm_Job Begin_On_Cluster(const Program_State& program, const Plan_Order& order, const Slurm_Order& slurm,
                           const Progress& progress);

// Asks the parts of a plan that are at work to end; what they have done stays. Throws File_Error.
void Stop_Plan(const std::filesystem::path& directory);

} // namespace orvel
