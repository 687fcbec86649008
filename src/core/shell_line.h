#pragma once

#include "core/system/users_shell.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The line that does with orvelctl what a window does, ready for the shell of this system: `orvelctl -C "/my runs"
// status --mode focus`. Words and line are UTF-8.
std::string Orvelctl_Line(const std::filesystem::path& app_path, const std::vector<std::string>& words);

// The line that makes a directory the current one, on another drive too.
std::string Directory_Line(const std::filesystem::path& directory);

// A word as a shell takes it for one: as it is if it is plain; in double quotes, which every shell knows, if nothing in
// it means anything between them; else as only this shell takes it. What is typed on Windows may be read by two: where
// both cannot be served, a "$" or "`" is meant for cmd.exe; a name between percent signs is not protected from it.
std::string Shell_Word(const std::string& word, Users_Shell shell = Shell_Of_System());

} // namespace orvel
