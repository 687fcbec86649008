#pragma once

#include "runs/run_control.h"

#include <functional>

namespace orvel {

// Marking a combination for the pending batch: its run directory is prepared and its lines join batch.bat.

// The title of the messages about marking and starting.
constexpr std::string_view Starting = "Starting ORVEL Simulations";

enum class Mark_Result { Marked, Already_Selected, Cancelled, Failed };

// Mark for Batch. Unless the result is Marked, the user has been told and the batch is unchanged; results of an earlier
// run are removed only once the new run directory is complete.
Mark_Result Mark_For_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                           const Run_Choice& choice);

struct Mark_All_Result {
    int Marked = 0;                    // combinations
    int Passed_Over = 0;               // without valid application data
    int No_Scenario = 0;               // offered by the table of a soil mode, without a scenario file
    int Failed = 0;                    // refused by the user or by the system, each reported
    std::vector<Run_Choice> Choices{}; // those marked
};

// What marking did, as a form shows it: "3 combinations marked, 1 without valid application data".
std::string Marked_Text(const Mark_All_Result& result);

// Mark all for Batch: all locations of a pesticide file and a crop. Stops at the first refusal that would recur at
// every location (a full batch). `progress` is called before each location with its index and the number of locations.
Mark_All_Result Mark_All(const Program_State& program, const Ask_Function& ask, const Mode& mode,
                         std::string_view pesticide, const Crop* crop, const Run_Options& options,
                         const std::function<void(int, int)>& progress = {});

} // namespace orvel
