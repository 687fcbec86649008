#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// The macropore parameters: threshold rain flow (cm), fraction of the excess, depth (cm); in the order S_Ic, S_fmac,
// S_depma.
using Macropore_Texts = std::array<std::string, 3>;

Macropore_Texts Show_Macropores(const Scenario_Document& document);

// The values that the form's reset writes into the boxes.
Macropore_Texts Default_Macropores();

// "OK": stores the three and silently corrects them: a threshold below 0 becomes 100, a fraction above 1 becomes 1, the
// depth ends above the last layer. Marks both documents as changed, including the pesticide document.
void Take_Over_Macropores(Session& session, const Macropore_Texts& texts);

// Keeps the macropores above the last layer.
void Limit_Macropore_Depth(Scenario_Document& document);

} // namespace orvel
