#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The line that does with orvelctl what a window does, ready for a shell: "orvelctl -C '/my runs' status --mode focus".
// Words and line are UTF-8.
std::string Orvelctl_Line(const std::filesystem::path& app_path, const std::vector<std::string>& words);

// A word as a POSIX shell takes it for one: in quotes unless it is plain.
std::string Shell_Word(const std::string& word);

} // namespace orvel
