#pragma once

#include "core/session.h"

#include <filesystem>

namespace orvel {

// The calendar of a run: that of the installation for a single run, else that of the mode which the run directory lies
// in.
std::filesystem::path Calendar_File(const Session& session, const std::filesystem::path& run_directory,
                                    bool single_run);

} // namespace orvel
