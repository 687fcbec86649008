#pragma once

#include <string_view>

namespace orvel {

// The release notes, newest first: blocks headed by version and date and closed by a line of dashes; lines end in CR
// LF.
std::string_view Release_Notes();

} // namespace orvel
