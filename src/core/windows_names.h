#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Why Windows gives no file or directory this name (UTF-8, without directories), as a sentence; empty if it does. Some
// names mean devices in every directory, whatever their ending; blanks and dots at the end are dropped, so that two
// names would be one.
std::string Fault_Of_Windows_Name(std::string_view name);

} // namespace orvel
