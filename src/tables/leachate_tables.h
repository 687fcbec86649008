#pragma once

#include "core/progress.h"
#include "tables/leachate_records.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Reads the caches year.orv and period.orv of a run directory if both exist; else builds the tables from the engine's
// files and writes the caches, unless the run is at work or has no plot.orv. Never throws because of a file's contents:
// the texts then end early. `period_index` is kept for a run of other than 26, 46 or 66 years.
Leachate_Tables Build_Or_Load(const std::filesystem::path& run_directory, const Progress& progress = {},
                              int period_index = 0);

// The tables of the caches alone, of a run that is not at work; nothing if they are not there, are damaged or are older
// than the run. No file of the engine but the echo is read. Throws File_Error for one that cannot be read.
std::optional<Leachate_Tables> Load_Leachate(const std::filesystem::path& run_directory);

// The tables of a run that has just ended well, and what their caches would hold: built from the engine's files,
// whoever holds its lock. No cache is read or written; the bytes are empty if there can be none.
struct Built_Leachate {
    Leachate_Tables Tables;
    std::string Years, Periods;
};
Built_Leachate Build_Leachate(const std::filesystem::path& run_directory);
constexpr std::string_view Year_Cache_Name = "year.orv", Period_Cache_Name = "period.orv";

// The substance named in a "Results for ..." text.
std::string Substance_Of(std::string_view result_name);

} // namespace orvel
