#pragma once

#include "core/progress.h"
#include "output/run_records.h"
#include "tables/table_status.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Concentrations in the top layers of the soil: the actual maximum and the maxima of averages over windows of days,
// from plot.orv.

// By window of days.
using Soil_Maxima = std::array<TWA_Maximum, TWA_Window.size()>;

struct Soil_Concentrations : Table_Status {
    std::string Text;                        // as a window shows it, bytes of Windows-1252, lines end in CR LF
    std::vector<std::string> Substance_Name; // by substance, as echo.orv names them
    std::vector<Soil_Maxima> Maximum;        // by substance
    bool Pore_Water = false;                 // concentrations in mg/L of the soil's water, else in mg/kg of soil
};

// Builds the table for a depth in layers (1 or more) and writes it to the file PECsoil_<depth>.orv of the run
// directory, unless the run is at work. Never throws because of a file's contents: the text then ends early.
Soil_Concentrations Build_Soil_Concentrations(const std::filesystem::path& run_directory, int depth,
                                              const Progress& progress = {});

// The table that such a file stores, of a run that is not at work; nothing if it is not there, is not what the builder
// writes or is older than the run. Its figures are rounded as printed. Throws File_Error for one that cannot be read.
std::optional<Soil_Concentrations> Load_Soil_Concentrations(const std::filesystem::path& run_directory, int depth);

// The unit of the concentrations of a run, which the last line above its tables names.
std::string_view Soil_Unit(bool pore_water); // "mg/L", "mg/kg"

} // namespace orvel
