#pragma once

#include <string_view>

namespace orvel {

// The text of a file of installation/, as it was when the program was built; lines end in LF. Throws std::logic_error
// for any other name.
std::string_view Embedded_File(std::string_view name);

} // namespace orvel
