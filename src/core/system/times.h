#pragma once

#include <ctime>
#include <filesystem>

namespace orvel {

// When a file or directory was last changed; 0 if it does not exist.
std::time_t Last_Change(const std::filesystem::path& path);

// A time broken down into local calendar fields.
std::tm Local_Time(std::time_t time);

} // namespace orvel
