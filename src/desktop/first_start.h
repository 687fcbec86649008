#pragma once

#include "core/message.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace orvel {

// Whether the directory is an installation; nothing is written.
bool Is_Installation(const std::filesystem::path& directory);

// The installation in a directory that the user chose: one that is there, or a new one, in a directory with other files
// below it. `scenarios_of`: see Make_Installation. Nothing: it failed, and the user has been told.
std::optional<std::filesystem::path> Installation_In(const std::filesystem::path& directory,
                                                     const std::vector<std::filesystem::path>& parts,
                                                     const Ask_Function& ask,
                                                     const std::filesystem::path& scenarios_of = {});

} // namespace orvel
