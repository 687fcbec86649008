#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// A directory of the run tree: pesticide, crop and location below the directory of a mode.
struct Run_Entry {
    std::string Name; // decoded, as the lists show it; bytes of Windows-1252
    std::filesystem::path Directory;
    bool operator==(const Run_Entry&) const = default;
};

// The entries of one level, sorted by directory name. Two directories that decode to the same name remain two entries.
// A name that the code page cannot hold is left out: no such run can have been prepared.
std::vector<Run_Entry> Run_Entries(const std::filesystem::path& parent);

// Date and time of a run's echo file in the format of the lists; empty if there is none yet.
std::string Date_Of_Simulation(const std::filesystem::path& run_directory);

} // namespace orvel
