#pragma once

namespace orvel {

// Makes the program exit at once with this code when it is interrupted or terminated or its terminal is closed. Nothing
// is cleaned up, no file is flushed.
void Exit_When_Stopped(int exit_code);

// Keeps the program going when it is interrupted or terminated or its terminal is closed, until it looks.
void Notice_When_Stopped();
bool Was_Stopped();

// Makes a write that cannot be done (broken pipe, file too large) return an error instead of ending the program.
void Report_Failed_Writes();

} // namespace orvel
