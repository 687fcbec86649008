#pragma once

#include "core/message.h"

#include <filesystem>
#include <string>

namespace orvel {

// The output of a single run, which stands beside its input, can be put aside before the next one.

// Whether old output stands in a directory: it must be archived or given up before a run.
bool Has_Output(const std::filesystem::path& directory);

// The first free archive name below a directory: "Run_1", "Run_2" ...
std::string Free_Archive_Name(const std::filesystem::path& directory);

// Moves the output files of a directory into the archive folder and copies the run's input beside them. Output goes
// only when the archive is whole, and never while an engine is at work there. False: the user has been told.
bool Archive_Run(const Ask_Function& ask, const std::filesystem::path& directory, const std::string& folder);

} // namespace orvel
