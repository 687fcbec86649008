#pragma once

#include <filesystem>

namespace orvel {

// The user's own directory; an empty path for a user without one.
std::filesystem::path User_Directory();

// Where the program keeps, for the user, what outlives it and is no document; an empty path for a user without a home.
std::filesystem::path User_State_Directory();

} // namespace orvel
