#pragma once

namespace orvel {

// Whether standard output is a terminal rather than a file or a pipe.
bool Output_Is_Terminal();
bool Error_Is_Terminal();

// Whether what is printed on standard output or error goes anywhere. That of a program with windows may not.
bool Output_Is_Seen();
bool Error_Is_Seen();

} // namespace orvel
