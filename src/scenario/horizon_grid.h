#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The soil horizon table: one row per horizon, cells as texts. The columns depend on the options of the document.
struct Horizon_Grid {
    std::vector<std::string> Headings;
    std::vector<std::string> Row_Titles;         // "Horizon 1" ...
    std::vector<std::vector<std::string>> Cells; // [row][column], behind the title column
    bool operator==(const Horizon_Grid&) const = default;
};

// The horizons of the document; one not yet stored is a row of empty cells.
Horizon_Grid Show_Horizons(const Scenario_Document& document);

// The horizons to scale, one per row: depths in cm, organic carbon in %. A thickness of 0 or less gives a layer without
// height.
struct Profile_Layer {
    double Top = 0, Bottom = 0, Organic_Carbon = 0;
    bool operator==(const Profile_Layer&) const = default;
};
std::vector<Profile_Layer> Soil_Profile(const Horizon_Grid& grid);

// The text beside the profile: the sum of the thicknesses, and the core depth if it differs.
std::string Profile_Caption(const Scenario_Document& document, const Horizon_Grid& grid);

// With direct input, a wilting point above the field capacity is refused; equal values are accepted.
std::optional<Refusal> Check_Horizon_Cells(const Scenario_Document& document, const Horizon_Grid& grid);

// Stores a checked grid. Returns the sum of the thicknesses (cm) if it differs from the core depth: the editor shows it
// in the core depth box, and the document keeps its depth until that box is left.
std::optional<double> Take_Over_Horizons(Scenario_Edit edit, const Horizon_Grid& grid);

} // namespace orvel
