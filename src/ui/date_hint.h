#pragma once

#include <optional>
#include <string>

namespace orvel {

// A mild hint at a day that no year has: "February has no day 30." 29 February is one. Nothing for a day or month that
// is none at all, which is told elsewhere.
std::optional<std::string> Date_Hint(int day, int month);

} // namespace orvel
