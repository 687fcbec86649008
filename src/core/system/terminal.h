#pragma once

namespace orvel {

// Whether standard output is a terminal rather than a file or a pipe.
bool Output_Is_Terminal();
bool Error_Is_Terminal();

} // namespace orvel
