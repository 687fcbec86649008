#pragma once

#include "core/error.h"
#include "core/run_name.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The bin of a mode directory: what a mark, a start or the list takes away. MODE/bin/NNNN/<run path>, moved within the
// mode directory. A generation NNNN is what goes between two starts of a job; a second removal of the same run begins a
// new one. Every function throws File_Error; nothing is lost then.

constexpr int Kept_Generations = 20;

// Begins a new generation, if the last one holds anything, and deletes all but the last ones.
void Begin_Generation(const std::filesystem::path& mode_directory);

// Moves a run directory, or a file of the mode directory, into the bin. Returns where it is now.
std::filesystem::path Move_To_Bin(const std::filesystem::path& mode_directory, const std::filesystem::path& what);

// Moves the output of a run, with its record, into the bin, and leaves its inputs and its engine where they are. What
// lies in the bin then is a run directory with all its files but the engine. Does nothing for a run without output.
void Move_Output_To_Bin(const std::filesystem::path& mode_directory, const std::filesystem::path& run);

struct Binned_Run {
    int Generation = 0;
    std::filesystem::path Run;       // below the mode directory
    std::filesystem::path Directory; // where it lies now
    bool operator==(const Binned_Run&) const = default;
};

// The runs in the bin, the newest generation first.
std::vector<Binned_Run> Runs_In_Bin(const std::filesystem::path& mode_directory);

// Moves a run back to its place. A run that is there now goes to the bin, unless it is at work.
void Put_Back(const std::filesystem::path& mode_directory, const Binned_Run& binned);

} // namespace orvel
