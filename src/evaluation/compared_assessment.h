#pragma once

#include "report/overview_reader.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// What the overview of a mode can be compared with: another installation, an archive of one, or earlier results that
// lie in the bin of the mode. Archives are laid out in a temporary directory for it. Throws File_Error for what holds
// no simulations of the mode or cannot be read, Reading_Stopped if the user stopped it.
Compared_Assessment Read_Compared(const std::filesystem::path& app_path, const Mode& mode, Soil_Choice soil,
                                  const std::filesystem::path& other, const Progress& progress = {});

// A generation of the bin that holds simulations.
struct Earlier_Results {
    std::filesystem::path Directory;
    std::string Text; // "generation 3: 9 simulations, the first of 22.11.2026 10:05"
};
// The newest first. Throws File_Error for a bin that cannot be read.
std::vector<Earlier_Results> Earlier_Results_In(const std::filesystem::path& mode_directory);

} // namespace orvel
