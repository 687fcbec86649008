#pragma once

#include "core/session.h"

#include <optional>
#include <string_view>
#include <vector>

namespace orvel {

// What stands between an editor's buttons and the save dialog or the form's end.

constexpr std::string_view Scenario_Save_Caption =
    "Save ORVEL 3.20 Input File"; // the versions are those of the formats
constexpr std::string_view Climate_Save_Caption = "Save ORVEL 3.22 Climate File";
constexpr std::string_view Scenario_Mask = "*.sze", Climate_Mask = "*.cli";

// The steps of "Save" before the dialog opens: takes the number of horizons from its box, tests it against the core
// depth, and keeps the macropores off the last layer. A refusal leaves the rest of the document as it was. Dates of
// tillage that the layout will not write are told.
std::optional<Refusal> Prepare_Save(Session& session, std::string_view horizons);

// "Soil Horizon Parameters" needs a number of horizons.
std::optional<Refusal> Check_Open_Horizons(std::string_view horizons);

// A date part that its two digits in the file cannot hold, such as year 100, would be cut there: it is refused before
// anything is written. Tillage counts if a crop is tilled.
std::optional<Refusal> Check_Rotation_Digits(const std::vector<Rotation_Row>& rows, const std::vector<Crop_Row>& crops);

// "Done": whether the form may close. With changes the user is asked.
bool May_Close(const Session& session, bool changed);

} // namespace orvel
