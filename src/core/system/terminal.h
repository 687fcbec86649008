#pragma once

namespace orvel {

// Whether a person reads along, and not a file or another program.
bool Output_Is_Terminal();
bool Error_Is_Terminal();

} // namespace orvel
