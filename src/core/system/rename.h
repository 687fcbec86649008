#pragma once

#include <filesystem>
#include <system_error>

namespace orvel {

// Gives a file or directory another name on the same file system, in place of a file of that name: whoever looks finds
// the old one or the new one, whole. Where the system does not let go of what another program has open, it is tried
// again for a while.
[[nodiscard]] std::error_code Rename(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace orvel
