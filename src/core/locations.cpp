#include "core/locations.h"

namespace orvel {

std::string Location_Name(std::string_view code)
{
    for (const auto& location : Locations) {
        if (location.Code == code)
            return std::string(location.Name);
    }
    return {};
}

std::string Bracket_Text(std::string_view text)
{
    const auto open = text.find('(');
    if (open == std::string_view::npos)
        return {};
    const auto close = text.find(')', open);
    if (close == std::string_view::npos)
        return {};
    return std::string(text.substr(open + 1, close - open - 1));
}

} // namespace orvel
