#pragma once

#include "core/session.h"

#include <optional>
#include <string_view>
#include <vector>

namespace orvel {

// Checks between an editor's buttons and the save dialog or the end of the form.

constexpr std::string_view Scenario_Save_Caption =
    "Save ORVEL 3.20 Input File"; // the versions are those of the file formats
constexpr std::string_view Climate_Save_Caption = "Save ORVEL 3.22 Climate File";
constexpr std::string_view Scenario_Mask = "*.sze", Climate_Mask = "*.cli";

// The steps of "Save" before the dialog opens: stores the number of horizons from its box, checks it against the core
// depth, and keeps the macropores off the last layer. A refusal leaves the rest of the document as it was. Reports
// tillage dates that the layout will not write.
std::optional<Refusal> Prepare_Save(Session& session, std::string_view horizons);

// "Soil Horizon Parameters" requires a number of horizons.
std::optional<Refusal> Check_Open_Horizons(std::string_view horizons);

// A date part beyond two digits, such as year 100, would be cut in the file: it is refused before anything is written.
// Tillage matters only if a crop is tilled.
std::optional<Refusal> Check_Rotation_Digits(const std::vector<Rotation_Row>& rows, const std::vector<Crop_Row>& crops);

// "Done": whether the form may close; asks the user if there are changes.
bool May_Close(const Session& session, bool changed);

} // namespace orvel
