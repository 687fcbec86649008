#pragma once

#include "runs/mode.h"

#include <functional>
#include <string>
#include <string_view>

namespace orvel {

// The rules of the start form's Load and first Activate.

// Sets the program up in App_Path: write test, pending batch files deleted, engine and versions, orvel.bat, start
// values. False: the directory cannot be written, and the program ends without a message. A job that has been started
// is not touched: its locks tell of it.
bool Start_Up(Session& session);

// The first engine of the directory, its version, 4.01 for orvel401.exe, and the labels of engine and program. Without
// one the name is empty and the version 0.
void Find_Engine(Program_State& program);

// Warns where the system's print of 3.5 holds a comma.
void Check_Decimal_Separator(const Ask_Function& ask, std::string_view printed);

// Characters 4 and 5 of the first line of a mode's version source, trimmed; empty where the file is missing.
std::string Scenario_Version(const Program_State& program, const Mode& mode);

// Whether the data of a soil mode are installed; false: the user has been told.
bool Mode_Available(const Program_State& program, const Ask_Function& ask, const Mode& mode);

// Whether the shipped files are read-only already: one scenario file stands for all.
bool Files_Protected(const Program_State& program);

// Makes the scenario files of the focus directory read-only, those of individual crops apart, and all its climate
// files. `progress` is called before each file with the number done and the number of all. False: a file could not be
// changed, and the user has been told.
bool Protect_Files(const Program_State& program, const Ask_Function& ask,
                   const std::function<void(int, int)>& progress);

} // namespace orvel
