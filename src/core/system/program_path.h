#pragma once

#include <filesystem>
#include <string>

namespace orvel {

// Where the running program lies, whatever name it was started by. Throws std::filesystem::filesystem_error.
std::filesystem::path Own_Path();

// The path of a program of this name beside the running one, whether or not it exists.
std::filesystem::path Program_Beside(const std::string& name);

// The program of this name in the directories of PATH, or an empty path.
std::filesystem::path Program_In_Path(const std::string& name);

} // namespace orvel
