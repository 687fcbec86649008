#pragma once

#include "core/error.h"

#include <filesystem>

namespace orvel {

// Whether a run may be started, replaced or removed where it lies. Each throws File_Error with a sentence if not.

// None of the levels of a run below its mode directory is a link: a link leads elsewhere, and what lies there is not
// the installation's to run, replace or delete.
void Check_No_Link(const std::filesystem::path& mode_directory, const std::filesystem::path& run);

// No user but the owner and the group may write a program or a directory that programs are started from: anyone else
// could put a program of his own there.
void Check_Not_Open_To_All(const std::filesystem::path& path);

} // namespace orvel
