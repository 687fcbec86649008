#pragma once

namespace orvel {

// Ends the program at once with this exit code when it is asked to stop from outside: interrupted, terminated or its
// terminal closed. Nothing is cleaned up, no file is flushed.
void Exit_When_Stopped(int exit_code);

// A write that cannot be done (a reader gone, a file grown too large) gives an error, instead of ending the program.
void Report_Failed_Writes();

} // namespace orvel
