#include "ui/date_hint.h"

#include "core/session.h"

#include <array>

namespace orvel {

std::optional<std::string> Date_Hint(int day, int month)
{
    constexpr std::array<int, 13> Days = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month >= static_cast<int>(Days.size()) || day <= Days[static_cast<std::size_t>(month)])
        return std::nullopt;
    return std::string(Month_Name[static_cast<std::size_t>(month)]) + " has no day " + std::to_string(day) + ".";
}

} // namespace orvel
