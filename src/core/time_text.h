#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace orvel {

// "2024-05-31 14:05:09" in local time, and back; 0 for any other text.
std::string Time_Text(std::time_t time);
std::time_t Time_Of_Text(std::string_view text);

// The same without the seconds, as lists show it.
std::string Date_Text(std::time_t date);

} // namespace orvel
