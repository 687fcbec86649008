#pragma once

#include "jobs/job_status.h"

#include <string_view>
#include <vector>

namespace orvel {

// Marks failed simulations for the pending batch again.

// Whether a simulation failed or ended early, by its record or, without one, by its echo.
bool Has_Failed(const Simulation& simulation);

// Asks once, then marks the simulations of the list that failed and are not yet marked: with the present pesticide and
// scenario files, but each with the output, the tillage depth, the years and the scaling of its own orvel.inp. The user
// has been told of any refusal. Returns the number marked.
int Mark_Failed_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                      const std::vector<Simulation>& simulations);

// Marks one simulation again in the same manner; its question has been answered. False: the user has been told why not.
bool Mark_Run_Again(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                    const Simulation& simulation);

// Marks what a pesticide (stem of its file) and a crop lack: locations of the crop that were never prepared, but for
// those without application data, and simulations that were stopped, cut off or never begun. All get the options of
// the first simulation. Returns the number marked.
int Mark_Missing(const Program_State& program, const Ask_Function& ask, const Mode& mode, std::string_view pesticide,
                 std::string_view crop);

} // namespace orvel
