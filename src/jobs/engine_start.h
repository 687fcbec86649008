#pragma once

#include "core/system/spawn.h"

#include <filesystem>
#include <stdexcept>

namespace orvel {

// Starting an engine in its run directory, for jobs and single runs.

// A run that cannot be started; the text says why.
struct Run_Refused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// How an engine is started in its run directory; what it prints is kept there as Progress_Name (run_outputs.h). A
// Windows program is started through wine. Throws Run_Refused if the engine or wine is missing.
Program_Start Engine_Start(const std::filesystem::path& directory, const std::filesystem::path& engine);

// Deletes all output files of a directory and their record. Throws Run_Refused if one cannot be deleted.
void Delete_Output(const std::filesystem::path& directory);

} // namespace orvel
