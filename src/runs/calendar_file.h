#pragma once

#include "core/session.h"

#include <filesystem>

namespace orvel {

// The calendar of a run: the installation's for a single run, else that of the mode the run directory belongs to.
std::filesystem::path Calendar_File(const Session& session, const std::filesystem::path& run_directory,
                                    bool single_run);

} // namespace orvel
