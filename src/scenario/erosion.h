#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// The factors of the MUSLE: soil erodibility, slope, management, area (ha), storm duration (h); in the order Text1_er
// to Text5_er.
using Erosion_Texts = std::array<std::string, 5>;

// The texts of the form; a factor of 0 is an empty box.
Erosion_Texts Show_Erosion(const Scenario_Document& document);

// "OK": stores all five as numbers; an empty box is 0.
void Take_Over_Erosion(Scenario_Edit edit, const Erosion_Texts& texts);

} // namespace orvel
