#pragma once

#include <string>

namespace orvel {

// The release notes, newest first: blocks headed by version and date and closed by a line of dashes; lines end in CR
// LF.
std::string Release_Notes();

} // namespace orvel
