#include "core/system/user_directories.h"

#include <cstdlib>

namespace orvel {

namespace {

std::filesystem::path Absolute_In(const char* variable)
{
    const char* const value = std::getenv(variable);
    const std::filesystem::path path = value == nullptr ? "" : value;
    return path.is_absolute() ? path : std::filesystem::path();
}

} // namespace

std::filesystem::path User_Directory()
{
    return Absolute_In("HOME");
}

std::filesystem::path User_State_Directory()
{
    const auto states = Absolute_In("XDG_STATE_HOME"), home = User_Directory();
    if (states.empty() && home.empty())
        return {};
    return (states.empty() ? home / ".local" / "state" : states) / "orvelsuite";
}

} // namespace orvel
