#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvel {

// Starting another program without forking a copy of this one, which may be large and have windows.

struct Program_Start {
    std::filesystem::path Program;
    std::vector<std::string> Arguments; // without the program's own name
    std::filesystem::path Directory;    // working directory
    std::filesystem::path Output;      // file for what it prints, relative to Directory; empty: the output is discarded
    bool Keeps_Standard_Error = false; // standard error goes where this program's goes, not into Output
    int Kept_Descriptor = -1;          // stays open in the program, as number Kept_As(Kept_Descriptor)
    bool Own_Session = false;          // outlives this program and its terminal
    bool Own_Group = false;            // can be ended together with what it starts: End_Group
};
int Kept_As(int descriptor);

// Whether the system runs Windows programs itself.
bool Runs_Windows_Programs();

// Returns the process id. Throws File_Error with the program's name.
int Start_Program(const Program_Start& start);

// How a program ended: with an exit code, or by a signal.
struct Program_End {
    int Process = 0;
    int Exit_Code = 0;
    int Signal = 0; // 0: it exited
};
constexpr int Unknown_Program = 128; // the exit code of a process that this program has not started

// The first two wait, the second at most as long as given and until a signal interrupts it; the third does not. Only
// the ends of the programs that are named are taken.
Program_End Wait_For_Program(int process);
std::optional<Program_End> Wait_For_Any_Of(std::span<const int> processes, std::chrono::milliseconds most);
std::optional<Program_End> End_Of_Program(int process);

// Asks a program that was started with a group of its own, and what it has started, to end; or ends them at once.
void End_Group(int process, bool at_once);

} // namespace orvel
