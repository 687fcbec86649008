#pragma once

#include <filesystem>

namespace orvel {

// Throws the File_Error that Write_Whole (core/files.h) would for a file, as far as it can be told before long work
// whose result goes there. The file is left as it is.
void Check_Writable(const std::filesystem::path& file);

} // namespace orvel
