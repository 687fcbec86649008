#pragma once

#include <filesystem>
#include <system_error>

namespace orvel {

// Waiting until what was written is on the disk.

// Flushes the entries of a directory: what was created or renamed in it. An empty path is the current directory.
void Flush_Directory(const std::filesystem::path& directory);

// Flushes a directory and its files together: one wait instead of one for each. False: not all of it is on the disk.
bool Flush_Directory_And_Files(const std::filesystem::path& directory);

// Flushes the whole file system that a directory lies on: the fastest way for many new files.
[[nodiscard]] std::error_code Flush_File_System(const std::filesystem::path& directory);

} // namespace orvel
