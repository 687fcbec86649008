#pragma once

#include "core/progress.h"
#include "output/run_records.h"
#include "tables/table_status.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// Concentrations in the top layers of the soil: the actual maximum and the maxima of averages over windows of days,
// from plot.orv.

struct Soil_Concentrations : Table_Status {
    std::string Text;                        // as a window shows it, bytes of Windows-1252, lines end in CR LF
    std::vector<std::string> Substance_Name; // by substance, as echo.orv names them
    std::vector<std::array<TWA_Maximum, TWA_Window.size()>> Maximum; // by substance
};

// Builds the table for a depth in layers (1 or more) and writes it to the file PECsoil_<depth>.orv of the run
// directory, unless the run is at work. Never throws because of a file's contents: the text then ends early.
Soil_Concentrations Build_Soil_Concentrations(const std::filesystem::path& run_directory, int depth,
                                              const Progress& progress = {});

} // namespace orvel
