#pragma once

#include <filesystem>
#include <vector>

namespace orvel {

// Turns a directory into an installation: engine and utilities, demonstration scenarios, climates, pesticide files,
// crop data base, help texts and the files that start and run forms expect. Programs are copied from the first of
// `parts` that has them; only the engine is required. Creates the directory and its parents if need be. Throws
// File_Error with a sentence for a directory that is not empty, a missing engine or a disk error; the directory is then
// unchanged. An attempt that is killed leaves nothing that passes for an installation, and can be repeated.
void Lay_Out_Installation(const std::filesystem::path& directory, const std::vector<std::filesystem::path>& parts);

// Whether an attempt was killed in the directory and not repeated; the second throws File_Error then.
bool Is_Unfinished(const std::filesystem::path& directory);
void Refuse_Unfinished(const std::filesystem::path& directory);

// The directories that may hold engine and utilities: the program's own, then libexec/orvelsuite and share/orvelsuite.
std::vector<std::filesystem::path> Parts_Beside(const std::filesystem::path& program);

} // namespace orvel
