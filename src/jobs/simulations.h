#pragma once

#include "core/progress.h"
#include "jobs/job_status.h"
#include "runs/bin.h"

#include <vector>

namespace orvel {

// What the simulation list does with run directories.

// Removes run directories without an echo file, as long as no job was ever started in the mode (no orveljob.bat); those
// that the pending batch names stay. Crop directories left empty are removed too. Errors are not reported.
void Clean_Leftovers(const std::filesystem::path& mode_directory);

// Asks, then moves the simulations into the bin (bin.h) and removes any crop and pesticide directories that become
// empty; marked ones leave the pending batch. One that is at work stays, and the user is told; so does one that is
// reached through a link, since nothing outside the mode's directory is ever deleted. Returns the number removed; 0 if
// the pending batch cannot be changed.
// `progress` is called before each; if it says so, the rest stays.
int Delete_Simulations(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                       const std::vector<Simulation>& simulations, const Progress& progress = {});

// A run in the bin as the list would show it.
Simulation Simulation_In_Bin(const Binned_Run& binned);

// Puts runs back to their places; what is there now goes to the bin. Returns their number; what was refused has been
// told. `progress` is called before each; if it says so, the rest stays.
int Put_Back_Simulations(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                         const std::vector<Binned_Run>& runs, const Progress& progress = {});

} // namespace orvel
