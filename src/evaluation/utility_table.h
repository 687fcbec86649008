#pragma once

#include "core/session.h"
#include "tables/utilities.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Starts the utilities that make the tables of a single run, and shows the tables.

// The bytes of the batch file for a directory: what a command interpreter would run there. Paths have no drive letter
// on this system.
std::string Format_Utility_Batch(Utility utility, const std::filesystem::path& directory,
                                 const std::filesystem::path& app_path);

// Whether the table has to be made: there are series, and the table or the copy of the series is missing or older.
bool Is_Due(Utility utility, const std::filesystem::path& directory);

// Writes the batch file and the head of the series' copy, removes the old table and starts the utility in the
// directory, without waiting. What it prints goes to Utility_Log there. Returns the process id for Job_Exit_Code.
// Nothing: it could not be started, the run is at work, or the directory belongs to a batch; the user has been told.
std::optional<int> Start_Utility(const Session& session, Utility utility, const std::filesystem::path& directory);

// Returns what a utility that ended without a table had printed, and removes its log.
constexpr std::string_view Utility_Log = "utility.log";
std::string Take_Utility_Log(const std::filesystem::path& directory);

// The table's text as a window shows it, without the last line end; the daily table only up to the size limit of a
// shown file. Nothing without a table.
std::optional<std::string> Utility_Table(const Session& session, Utility utility,
                                         const std::filesystem::path& directory);

} // namespace orvel
