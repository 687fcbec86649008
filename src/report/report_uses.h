#pragma once

#include "core/session.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Applications of a location that differ in nothing but their year.
struct Report_Use {
    std::string Rate;  // "0.75 kg/ha"
    std::string Date;  // "1 November", "14 days after 1st emergence in the year"
    std::string Years; // "every year, 1 to 26", "years 1, 2 and 5"
    std::string Place; // "soil surface", "5 cm deep", "crop, 50 % intercepted"
    bool operator==(const Report_Use&) const = default;
};

// The uses of a location's text ("Hamburg (H)") in a pesticide document, in the order of their first application. None
// if the document has no applications for it; relative dates are those of all locations.
std::vector<Report_Use> Uses_Of(const Pesticide_Document& document, std::string_view location);

// Years in words; they are sorted.
std::string Years_Text(const std::vector<int>& years);

} // namespace orvel
