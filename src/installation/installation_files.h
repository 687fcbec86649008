#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvel {

// Calls `write` for every file of an installation except the programs, with its path below the installation directory.
// Exceptions of `write` are passed on.
using Write_Installation_File = std::function<void(const std::string& path, std::string_view bytes)>;
void Make_Installation_Files(const Write_Installation_File& write);

// The same without the climate files, which are by far the largest part.
void Make_Data_Files(const Write_Installation_File& write);

} // namespace orvel
