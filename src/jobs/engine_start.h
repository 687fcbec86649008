#pragma once

#include "core/system/spawn.h"

#include <filesystem>
#include <stdexcept>

namespace orvel {

// How an engine is started in the directory of its run, by a job and by a single run alike.

// A run that cannot be started; the text says why.
struct Run_Refused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The start of an engine with what it prints kept in the directory. A Windows program goes through wine. Throws
// Run_Refused if the engine is missing or wine is.
Program_Start Engine_Start(const std::filesystem::path& directory, const std::filesystem::path& engine);

// Deletes all output files of a directory. Throws Run_Refused if one cannot be deleted.
void Delete_Output(const std::filesystem::path& directory);

} // namespace orvel
