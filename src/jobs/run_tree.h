#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// A directory of the run tree: pesticide, crop and location below the directory of a mode.
struct Run_Entry {
    std::string Name; // as the lists show it, decoded, bytes of Windows-1252
    std::filesystem::path Directory;
    bool operator==(const Run_Entry&) const = default;
};

// The entries of one level, sorted by the names of their directories. Two directories that decode to one name stay two
// entries. A name that the code page lacks is left out: no such run can have been prepared.
std::vector<Run_Entry> Run_Entries(const std::filesystem::path& parent);

// Date and time of a run's echo file, as the lists show dates; empty while the run has none.
std::string Date_Of_Simulation(const std::filesystem::path& run_directory);

} // namespace orvel
