#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Selection of the locations for which the pesticide document holds applications. A list is that of the substance form:
// item 0 is " User specific", item l is location l of the document.

// The nine leaching locations.
std::vector<std::string> Offered_Locations();

// The crops of the soil zones, and the zones offered for each: all six for every crop.
constexpr std::array<std::string_view, 4> Soil_Crops = {"Sugar beets", "Winter cereals", "Sunflower", "Tobacco"};
std::vector<std::string> Offered_Soil_Locations(std::string_view crop);

// "Done". An offered location that is no longer selected leaves the list, and the applications of later ones move down
// by one index; a selected one not in the list is appended with one application per year. Returns the item to select,
// nothing if the list did not change. The document has room for nine locations: what does not fit is not appended.
std::optional<std::size_t> Choose_Locations(Pesticide_Edit edit, std::vector<std::string>& list,
                                            const std::vector<std::string>& offered,
                                            const std::vector<std::string>& selected);

bool Holds(const std::vector<std::string>& names, const std::string& name);

} // namespace orvel
