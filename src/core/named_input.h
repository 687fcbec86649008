#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace orvel {

// A file that orvel.inp names, as an engine finds it: `\` and `/` separate directories, case is ignored in every part.
// The path begins with the run directory, unless the name is absolute. Nothing if it is not there. Throws File_Error
// for a directory that cannot be searched.
std::optional<std::filesystem::path> Named_Input(const std::filesystem::path& run_directory, std::string_view name);

} // namespace orvel
