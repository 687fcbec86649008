#pragma once

#include <string_view>

namespace orvel {

// The unit of a documents' field, by its name with or without indices and records before it
// ("Applications[1][2].App_Rate" is kg/ha); empty for a text, a date, a flag and a bare number. ASCII.
std::string_view Unit_Of_Field(std::string_view field);

} // namespace orvel
