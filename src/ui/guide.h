#pragma once

#include "core/message.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The user guide: pages of HTML in a directory of their own. For each window `windows/NAME.html`, after the window's
// object name, leads to the place where it is described.

// Where the guide is: the directory that the variable ORVELSUITE_GUIDE names, else the one that was built, unpacked or
// installed with the program, whether or not it is there.
std::filesystem::path Guide_Directory(const std::filesystem::path& program);

// The page for the first of these windows that has one, from the window in use outwards; the contents for none.
std::filesystem::path Guide_Page(const std::filesystem::path& guide, const std::vector<std::string>& windows);

// What is told where the guide, or a program that shows it, is not there.
Message Guide_Not_Installed(const std::filesystem::path& guide);
Message Guide_Not_Shown(const std::filesystem::path& page);

} // namespace orvel
