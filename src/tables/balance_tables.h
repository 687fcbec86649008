#pragma once

#include "core/progress.h"
#include "tables/balance_records.h"

#include <filesystem>

namespace orvel {

// Reads the caches MBalance.orv and PBalance.orv (by month: MBalance_M.orv and PBalance_M.orv) of a run directory if
// both exist; else builds the tables from the engine's files and writes the caches, unless the run is at work or has no
// plot.orv. Never throws because of a file's contents: the texts then end early.
Balance_Tables Build_Or_Load_Balance(const std::filesystem::path& run_directory, Balance_View view,
                                     const Progress& progress = {});

} // namespace orvel
