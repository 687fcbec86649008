#pragma once

#include "core/message.h"

#include <filesystem>
#include <string>

namespace orvel {

// Puts aside the output of a single run, which lies beside its input, before the next run.

// Whether a directory holds old output, which must be archived or discarded before a run.
bool Has_Output(const std::filesystem::path& directory);

// The first free archive name below a directory: "Run_1", "Run_2" ...
std::string Free_Archive_Name(const std::filesystem::path& directory);

// Moves the output files of a directory into the archive folder and copies the run's input beside them. Output is
// deleted only once the archive is complete, and never while an engine is at work there. False: the user has been told.
bool Archive_Run(const Ask_Function& ask, const std::filesystem::path& directory, const std::string& folder);

} // namespace orvel
