#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// The macropore parameters: threshold rain flow (cm), fraction of the excess, depth (cm), in the order S_Ic, S_fmac,
// S_depma.
using Macropore_Texts = std::array<std::string, 3>;

Macropore_Texts Show_Macropores(const Scenario_Document& document);

// What the form's reset puts into the boxes.
Macropore_Texts Default_Macropores();

// "OK": stores the three and corrects them silently: a threshold below 0 is 100, a fraction above 1 is 1, the depth
// ends above the last layer. Both documents count as changed, the pesticide document too.
void Take_Over_Macropores(Session& session, const Macropore_Texts& texts);

// The macropores may not reach the last layer.
void Limit_Macropore_Depth(Scenario_Document& document);

} // namespace orvel
