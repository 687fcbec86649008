#pragma once

#include <string>

namespace orvel {

// Shows a box of the system's own, before or without any window of the program, and waits until it is closed; nothing
// on a system that has none. Texts are UTF-8.
void Show_System_Box(const std::string& title, const std::string& text, bool is_failure);

} // namespace orvel
