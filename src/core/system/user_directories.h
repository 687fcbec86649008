#pragma once

#include <filesystem>

namespace orvel {

// Where the program keeps, for the user, what outlives it and is no document; an empty path for a user without a home.
std::filesystem::path User_State_Directory();

} // namespace orvel
