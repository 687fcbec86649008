#pragma once

#include <filesystem>

namespace orvel {

// What this process may do with a file or directory; false if it does not exist.

bool May_Read(const std::filesystem::path& path);
bool May_Write(const std::filesystem::path& path);

// Whether entries of the directory can be created and deleted.
bool May_Change_Entries(const std::filesystem::path& directory);

// Whether every user of the computer may write it, or create entries in it.
bool Is_Open_To_All(const std::filesystem::path& path);

} // namespace orvel
