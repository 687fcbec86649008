#pragma once

#include "core/progress.h"

#include <string_view>

namespace orvel {

// What the programs without windows print on standard error.

// A box's title and text, bytes of Windows-1252.
void Tell(std::string_view title, std::string_view text);

// Shows what is being read, where a person can see it, and takes that away again.
Progress Shown_Progress();
void Clear_Progress();

} // namespace orvel
