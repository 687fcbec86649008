#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Why this system gives no file or directory this name (UTF-8, without directories), as a sentence; empty if it does.
std::string Fault_Of_Name(std::string_view name);

} // namespace orvel
