#pragma once

#include <filesystem>
#include <string>

namespace orvel {

// The kind of file system that a path lies on if other machines may share it: "NFS", "SMB" ... Empty for one of this
// machine's own.
std::string Network_File_System(const std::filesystem::path& path);

} // namespace orvel
