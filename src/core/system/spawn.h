#pragma once

#include <filesystem>
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

// The program of this name beside the running one.
std::filesystem::path Program_Beside(const std::string& name);

// The program of this name in the directories of PATH, or an empty path.
std::filesystem::path Program_In_Path(const std::string& name);

} // namespace orvel
