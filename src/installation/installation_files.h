#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvel {

// Gives every file of an installation but the programs to `write`, with its path below the installation directory;
// directories stand before what is in them. What `write` throws comes through.
using Write_Installation_File = std::function<void(const std::string& path, std::string_view bytes)>;
void Make_Installation_Files(const Write_Installation_File& write);

// The same without the climate files, which are most of it.
void Make_Data_Files(const Write_Installation_File& write);

} // namespace orvel
