#pragma once

#include "core/message.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace orvel {

// Whether the directory is an installation; nothing is written.
bool Is_Installation(const std::filesystem::path& directory);

// The installation to work in: the directory if it is one; else what the user makes of it. An answer of "Yes" lays one
// out, or takes one that is there, where `choose` says (an empty path: nowhere); in a directory with other files it is
// made below it. Nothing: the program is to end, and the user has been told.
std::optional<std::filesystem::path> Find_Installation(const std::filesystem::path& directory,
                                                       const std::vector<std::filesystem::path>& parts,
                                                       const Ask_Function& ask,
                                                       const std::function<std::filesystem::path()>& choose);

} // namespace orvel
