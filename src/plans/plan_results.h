#pragma once

#include "output/run_record.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What the runs of a plan have come to, by the files of its directory alone.

// Where a run stands, and its result as it lies in its file; empty if it has none.
struct Row_State {
    orvel::Verdict Verdict = orvel::Verdict::Scheduled;
    std::string Result;
};
Row_State State_Of_Row(const std::filesystem::path& directory, std::size_t row);

struct Plan_Status {
    std::size_t Runs = 0;
    std::array<std::size_t, 6> By_Verdict{}; // complete to scheduled, in the order of Verdict
    bool At_Work = false;
    std::optional<double> Runs_A_Second; // of the parts at work, once one of their runs has ended
    std::optional<double> Seconds_Left;

    std::size_t Of(orvel::Verdict verdict) const { return By_Verdict[static_cast<std::size_t>(verdict)]; }
};
// Throws File_Error if the directory holds no plan.
Plan_Status Status_Of_Plan(const std::filesystem::path& directory);
// The speed of the parts at work and the time left, by how many runs have ended since they began.
void Estimate(Plan_Status& status, std::filesystem::file_time_type since, std::size_t ended);
std::string Status_Text(const Plan_Status& status); // for the user, a line a fact
std::string Status_Json(const Plan_Status& status);

// Passes the results on as comma-separated values, piece by piece: a first row that names the columns, then one a run
// and substance in the order of the plan. `with_seconds` fills the column of measured times, which differ whenever the
// runs are run. Throws File_Error if the directory holds no plan.
void Print_Results(const std::filesystem::path& directory, bool with_seconds,
                   const std::function<void(std::string_view)>& print);

// The same cell by cell, the first time the names of the columns. Texts are UTF-8.
void Visit_Results(const std::filesystem::path& directory, bool with_seconds,
                   const std::function<void(const std::vector<std::string>& cells)>& visit);

} // namespace orvel
