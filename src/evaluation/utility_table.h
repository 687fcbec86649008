#pragma once

#include "core/session.h"
#include "tables/utilities.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Starts the utilities that make the tables of a single run, and shows what they made.

// The batch file for a directory: what a command interpreter would run there. The lines that name a path have no drive
// letter here.
std::string Format_Utility_Batch(Utility utility, const std::filesystem::path& directory,
                                 const std::filesystem::path& app_path);

// Whether the table has to be made: it or the series' copy is missing, or the series are newer, and there are series.
bool Is_Due(Utility utility, const std::filesystem::path& directory);

// Writes the batch file and the head of the series' copy, removes the old table and starts the utility in the
// directory, without waiting. What it prints goes to Utility_Log there. The process for Job_Exit_Code. Nothing: it
// could not be started, the run is at work, or the directory belongs to a batch; the user has been told.
std::optional<int> Start_Utility(const Session& session, Utility utility, const std::filesystem::path& directory);

// What the utility printed before it ended without a table; its log is removed.
constexpr std::string_view Utility_Log = "utility.log";
std::string Take_Utility_Log(const std::filesystem::path& directory);

// The table's text as a window shows it, less the last end of line; that by day only as far as a shown file goes.
// Nothing without a table.
std::optional<std::string> Shown_Table(const Session& session, Utility utility, const std::filesystem::path& directory);

} // namespace orvel
