#pragma once

#include "core/system/lock.h"
#include "runs/mode.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// The rules behind the start form's Load and first Activate.

// Sets the program up in App_Path: write test, engine and versions, orvel.bat, start values; ends marks that were
// killed half-way. False: the directory cannot be written, and the program ends without a message.
bool Start_Up(Session& session);

// A batch that was marked and not started when its shell ended.
struct Dropped_Batch {
    std::size_t Runs = 0;
    std::filesystem::path File; // in the bin
};

// When the program opens, a pending batch goes to the bin: but not while a mark is at work, another shell is open or a
// job runs, whose user may still want it. A job that has been started is not touched: its locks identify it.
std::optional<Dropped_Batch> Drop_Pending_Batch(const Program_State& program);
std::string Dropped_Text(const Dropped_Batch& dropped);

// Makes it the pending batch again. False: it could not be, or another one has been marked meanwhile, and the user has
// been told.
bool Put_Back_Batch(const Program_State& program, const Ask_Function& ask, const Dropped_Batch& dropped);

// Held by each desktop program while it is open, so that no other one drops the pending batch. Nothing if the file that
// carries it is missing.
std::optional<Lock> Sign_Of_Shell(const Program_State& program);

// Finds the first engine of the directory and sets its name, its version, 4.01 for orvel401.exe, and the version labels
// of engine and program. Without an engine the name is empty and the version 0.
void Find_Engine(Program_State& program);

// Warns if `printed`, 3.5 as the system prints it, contains a comma.
void Check_Decimal_Separator(const Ask_Function& ask, std::string_view printed);

// What tells the label Aktuelle_ORVELSUITE_Version, which ends with the scenario version, from the program's version.
std::string Suite_Label_Hint();

// Characters 4 and 5 of the first line of a mode's version source, trimmed; empty if the file is missing.
std::string Scenario_Version(const Program_State& program, const Mode& mode);

// Whether the data of a soil mode are installed; false: the user has been told.
bool Mode_Available(const Program_State& program, const Ask_Function& ask, const Mode& mode);

// Whether the shipped files are read-only already: judged by one scenario file.
bool Files_Protected(const Program_State& program);

// Makes the scenario files of the focus directory read-only, except those of individual crops, and all its climate
// files read-only. `progress` is called before each file with the number done and the total. False: a file could not be
// changed, and the user has been told.
bool Protect_Files(const Program_State& program, const Ask_Function& ask,
                   const std::function<void(int, int)>& progress);

} // namespace orvel
