#pragma once

#include <ctime>
#include <filesystem>

namespace orvel {

// When a file or directory was last changed; 0 where there is none.
std::time_t Last_Change(const std::filesystem::path& path);

// A time in the parts of the local calendar.
std::tm Local_Time(std::time_t time);

} // namespace orvel
