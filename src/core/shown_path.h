#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A path or a system's message in bytes of Windows-1252, for a box. Characters that the code page lacks show as "?".
std::string Shown(std::string_view utf8);
std::string Shown_Path(const std::filesystem::path& path);
