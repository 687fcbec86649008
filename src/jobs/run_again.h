#pragma once

#include "jobs/job_status.h"

#include <vector>

namespace orvel {

// Simulations that failed can be marked for the pending batch anew.

// Whether a simulation ended with an error or was killed.
bool Has_Failed(const Simulation& simulation);

// Asks once, then marks those of the list that failed and are not marked already: with the present pesticide and
// scenario files, but each with the output, the tillage depth, the years and the scaling of its own orvel.inp. What is
// refused has been told. The number marked.
int Mark_Failed_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                      const std::vector<Simulation>& simulations);

} // namespace orvel
