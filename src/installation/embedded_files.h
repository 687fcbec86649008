#pragma once

#include <string_view>

namespace orvel {

// The text of a file of installation/ at build time; lines end in LF. Throws std::logic_error for any other name.
std::string_view Embedded_File(std::string_view name);

} // namespace orvel
