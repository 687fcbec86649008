#pragma once

#include "core/progress.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The water balance of a run and the pesticide balance of each of its substances, by year or by month.

enum class Balance_View { Annual, Monthly };

struct Water_Balance_Row { // L/m2
    double Precipitation = 0, Irrigation = 0, Runoff = 0, Evapotranspiration = 0, Percolate = 0, Diff_Storage = 0;
};

struct Pesticide_Balance_Row { // g/ha; Application is the formation of a metabolite
    double Application = 0, Volatilisation = 0, Runoff = 0, Plant_Uptake = 0, Degradation = 0, Percolate = 0,
           Diff_Storage = 0;
};

struct Balance_Tables {
    std::string Water_Text, Pesticide_Text; // as a window shows them, bytes of Windows-1252, lines end in CR LF
    std::vector<Water_Balance_Row> Water;   // empty if the texts came from the caches
    std::vector<std::vector<Pesticide_Balance_Row>> Pesticide; // by substance; empty if the texts came from the caches
    bool From_Cache = false;
    bool Cached = false;    // the cache files hold these tables now
    std::string Not_Cached; // why a complete table was not kept, a sentence
    std::string Failure;    // why the texts end early, a sentence; empty if they are complete
};

// Reads the caches MBalance.orv and PBalance.orv (by month: MBalance_M.orv and PBalance_M.orv) of a run directory if
// both are there; else builds the tables out of the engine's files and writes the caches, but not for a run that is at
// work or has no plot.orv. Never throws for what a file holds: the texts then end early.
Balance_Tables Build_Or_Load_Balance(const std::filesystem::path& run_directory, Balance_View view,
                                     const Progress& progress = {});

} // namespace orvel
