#pragma once

#include <functional>
#include <string>

namespace orvel {

// Called while a big file is read, after each year or so, with the message to show and the share of the work done, 0 to
// 1. Returning false stops the work.
using Progress = std::function<bool(const std::string& message, double share)>;

} // namespace orvel
