#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// The factors of the MUSLE: soil erodibility, slope, management, area, duration of the rain storm, in the order
// Text1_er to Text5_er.
using Erosion_Texts = std::array<std::string, 5>;

// A factor of 0 shows an empty box.
Erosion_Texts Show_Erosion(const Scenario_Document& document);

// "OK". All five become numbers; an empty box is 0 again.
void Take_Over_Erosion(Scenario_Edit edit, const Erosion_Texts& texts);

} // namespace orvel
