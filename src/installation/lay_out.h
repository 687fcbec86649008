#pragma once

#include <filesystem>
#include <vector>

namespace orvel {

// Makes a directory an installation: engine and utilities, demonstration scenarios, climates, pesticide files, crop
// data base, help texts and the files that start and run forms expect. Programs are copied from the first of `parts`
// that has them; only the engine must be there. Makes the directory with its parents if it is missing. Throws
// File_Error with a sentence for a directory that is not empty, a missing engine and a failure of the disk; the
// directory is then as it was, and a power cut leaves nothing that looks like an installation.
void Lay_Out_Installation(const std::filesystem::path& directory, const std::vector<std::filesystem::path>& parts);

// The directories that may hold engine and utilities: the program's own, libexec/orvelsuite and share/orvelsuite.
std::vector<std::filesystem::path> Parts_Beside(const std::filesystem::path& program);

} // namespace orvel
