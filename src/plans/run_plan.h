#pragma once

#include "core/session.h"
#include "plans/plan_directory.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Running a plan: every row that has no complete run yet, in the order of the plan. It may be ended at any moment, and
// goes on with what is missing when it is run again.

// What stays of a run that has ended.
enum class Plan_Keep {
    Records, // its record and its row of results
    Tables,  // the tables of its leachate too
    All,     // everything that it read and wrote
};
const Plan_Keep* Keep_Named(std::string_view name); // "records", "tables", "all"; nullptr for any other
std::string_view Keep_Name(Plan_Keep keep);

struct Plan_Order {
    std::filesystem::path Plan, Directory;
    int Jobs = 0; // runs at a time, 0: one per processor
    Plan_Part Part;
    Plan_Keep Keep = Plan_Keep::Tables;
    std::optional<int> Limit; // seconds that a run may take
};

struct Plan_Progress {
    std::size_t Runs = 0;             // of the part
    std::size_t Complete = 0;         // before and now
    std::size_t Begun = 0, Ended = 0; // now
    std::size_t Failed = 0;           // ended now, but not complete
};

struct Plan_Watch {
    std::function<void(const Plan_Progress&)> Progress;    // now and then
    std::function<void(const std::string& sentence)> Told; // of a run that failed
};

// A file in the directory of a plan with this name asks its runs to end.
constexpr std::string_view Plan_Stop_Name = "plan.stop";

// The caller holds the part of the plan (plan_directory.h). Throws File_Error if the plan cannot go on, as on a full
// disk: runs at work are waited for, and what is done stays done.
Plan_Progress Run_Plan(const Program_State& program, const Plan_Order& order, const Plan_Record& record,
                       const Plan_Watch& watch = {});

} // namespace orvel
