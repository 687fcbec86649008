#pragma once

namespace orvel {

// Opens the null device in place of standard channels that are closed, so that no file or lock takes their numbers and
// is written over. An output that was closed still cannot be written. The first thing that a program does.
void Open_Standard_Channels();

} // namespace orvel
