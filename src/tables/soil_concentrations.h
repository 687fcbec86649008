#pragma once

#include "core/progress.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// Concentrations in the top layers of the soil: the actual maximum and the maxima of averages over windows of days, out
// of plot.orv.

constexpr std::array<int, 11> TWA_Window = {0, 1, 2, 4, 7, 14, 21, 28, 42, 56, 100}; // days; 0 is the actual maximum
constexpr int Profile_Layers = 20;

struct TWA_Maximum {
    double Value = 0; // in the unit of the run's profile columns
    int Begin = 0;    // day of the simulation
};

struct Soil_Concentrations {
    std::string Text;                        // as a window shows it, bytes of Windows-1252, lines end in CR LF
    std::vector<std::string> Substance_Name; // by substance, as echo.orv names them
    std::vector<std::array<TWA_Maximum, TWA_Window.size()>> Maximum; // by substance
    bool Written = false;                                            // PECsoil_<depth>.orv holds this table now
    std::string Not_Written;                                         // why a complete table was not written, a sentence
    std::string Failure; // why the text ends early, a sentence; empty if it is complete
};

// Builds the table for a depth in layers (1 or more) and writes it to the file PECsoil_<depth>.orv of the run
// directory, but not for a run that is at work. Never throws for what a file holds: the text then ends early.
Soil_Concentrations Build_Soil_Concentrations(const std::filesystem::path& run_directory, int depth,
                                              const Progress& progress = {});

} // namespace orvel
