#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Starting another program without a copy of this one, which may be large and have windows.

struct Program_Start {
    std::filesystem::path Program;
    std::vector<std::string> Arguments; // without the program's own name
    std::filesystem::path Directory;    // working directory
    std::filesystem::path Output;       // takes what it prints; empty: nothing is kept. Relative to the directory.
    bool Keeps_Standard_Error = false;  // prints its errors where this program does, not into the output
    int Kept_Descriptor = -1;           // stays open in the program, as number Kept_As
    bool Own_Session = false;           // outlives this program and its terminal
};
constexpr int Kept_As = 3;

// The process. Throws File_Error with the program's name.
int Start_Program(const Program_Start& start);

// How a program ended: with an exit code, or by a signal.
struct Program_End {
    int Process = 0;
    int Exit_Code = 0;
    int Signal = 0; // 0: it ended by itself
};
constexpr int Unknown_Program = 128; // the exit code of a process that this program has not started

// The first two wait; the second gives nothing when a signal came in between, the third while the program is at work.
Program_End Wait_For_Program(int process);
std::optional<Program_End> Wait_For_Any_Program();
std::optional<Program_End> End_Of_Program(int process);

} // namespace orvel
