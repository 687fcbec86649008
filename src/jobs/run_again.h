#pragma once

#include "jobs/job_status.h"
#include "runs/run_control.h"

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

// What a pesticide (stem of its file) and a crop lack, but for what is marked or waits in a job at work.
struct Missing_Runs {
    std::vector<Simulation> Unfinished; // stopped, cut off or never begun
    std::vector<Run_Choice>
        Unprepared; // locations with application data; the options are those of the first simulation

    bool Any() const { return !Unfinished.empty() || !Unprepared.empty(); }
};
Missing_Runs Find_Missing(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                          std::string_view pesticide, std::string_view crop);

// Whether there is anything to start for them: what is missing, or a batch that waits. True also if that cannot be
// read, which is told when it is tried.
bool Can_Run_Missing(const Program_State& program, const Mode& mode, std::string_view pesticide, std::string_view crop);

// Marks what is missing. False: there is nothing to start, no batch that waits either, and the user has been told.
bool Mark_Missing(const Program_State& program, const Ask_Function& ask, const Mode& mode, std::string_view pesticide,
                  std::string_view crop);

} // namespace orvel
