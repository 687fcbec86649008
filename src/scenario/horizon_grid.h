#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The table of the soil horizons: one row a horizon, cells as texts. Which columns there are follows from the
// document's options.
struct Horizon_Grid {
    std::vector<std::string> Headings;
    std::vector<std::string> Row_Titles;         // "Horizon 1" ...
    std::vector<std::vector<std::string>> Cells; // [row][column], behind the title column
    bool operator==(const Horizon_Grid&) const = default;
};

// The document's horizons; a horizon that it does not hold yet is a row of empty cells.
Horizon_Grid Show_Horizons(const Scenario_Document& document);

// The horizons to scale, one a row: depths in cm, organic carbon in %. A thickness that is not above 0 gives a layer
// without height.
struct Profile_Layer {
    double Top = 0, Bottom = 0, Organic_Carbon = 0;
    bool operator==(const Profile_Layer&) const = default;
};
std::vector<Profile_Layer> Soil_Profile(const Horizon_Grid& grid);

// What is told beside the profile: the sum of thickness, and the core depth where it differs.
std::string Profile_Caption(const Scenario_Document& document, const Horizon_Grid& grid);

// With direct input, a wilting point above the field capacity; equal ones pass.
std::optional<Refusal> Check_Horizon_Cells(const Scenario_Document& document, const Horizon_Grid& grid);

// Takes a checked grid over. The result is the sum of thickness (cm) if it differs from the core depth: the editor
// shows it in the box of the core depth, and the document keeps its own depth until that box is left.
std::optional<double> Take_Over_Horizons(Scenario_Edit edit, const Horizon_Grid& grid);

} // namespace orvel
