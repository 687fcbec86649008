#pragma once

#include <filesystem>
#include <system_error>

namespace orvel {

// Waiting until what was written is on the disk.

// The entries of a directory: what was created or renamed in it. The current directory for an empty path.
void Flush_Directory(const std::filesystem::path& directory);

// A directory and its files together: one wait instead of one for each. False: not all of it is safe.
bool Flush_Directory_And_Files(const std::filesystem::path& directory);

// The whole file system that a directory lies on: the fastest way for many new files.
[[nodiscard]] std::error_code Flush_File_System(const std::filesystem::path& directory);

} // namespace orvel
