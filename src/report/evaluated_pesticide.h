#pragma once

#include "core/session.h"

#include <string_view>

namespace orvel {

// Makes the pesticide file of an evaluated simulation the session's document; `stem` is the entry of the list, bytes of
// Windows-1252. A file that is not in the installation any more leaves the session as it is: its simulations outlive
// it. False: not read.
bool Read_Evaluated_Pesticide(Session& session, std::string_view stem);

} // namespace orvel
