#pragma once

#include "jobs/job_status.h"

#include <vector>

namespace orvel {

// What the simulation list does with run directories.

// Removes run directories without an echo file, as long as no job was ever started in the mode (no orveljob.bat); those
// that the pending batch names stay. Crop directories left empty go with them. Errors are not told.
void Clean_Leftovers(const std::filesystem::path& mode_directory);

// Asks, then removes the simulations with the crop and pesticide directories that become empty; those that were marked
// are no longer part of the pending batch. One that is at work stays, and the user is told; so does one that is reached
// through a link, since nothing outside of the mode's directory is ever deleted. The number removed; 0 if the pending
// batch cannot be changed.
int Delete_Simulations(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                       const std::vector<Simulation>& simulations);

} // namespace orvel
