#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The free-hand run: one pesticide file, one scenario file and a list of climate files of a directory, run in the same
// directory.

// What the form holds: names of files in the directory, and the texts of its boxes. Bytes of Windows-1252.
struct Single_Run_Entry {
    std::string Pesticide, Scenario;
    std::vector<std::string> Climates; // one per year; the last one serves all further years
    std::string Start_Day, End_Day, Years;
    int Start_Month_Index = -1, End_Month_Index = -1; // list indices, -1: none chosen
};

// The entry of run settings, and back.
Single_Run_Entry Entry_Of_Settings(const Single_Run_Settings& run);
Single_Run_Settings Settings_Of_Entry(const Single_Run_Entry& entry);

// The words that let orvelctl do the same run, UTF-8.
std::vector<std::string> Single_Run_Words(const Single_Run_Entry& entry);

// Applies what the directory's orvel.inp restores. Without a readable file nothing changes.
void Restore_Single_Run(const std::filesystem::path& directory, Single_Run_Settings& run, Output_Selection& output);

// The first thing that rules out the run, or nothing, in the order of the checks: the pesticide file, the scenario
// file, their horizons, the form's boxes. The horizons are compared with `scenario_horizons`, those of the open
// document.
std::optional<Refusal> Check_Single_Run(const std::filesystem::path& directory, const Single_Run_Entry& entry,
                                        double scenario_horizons);

// Checks of a box that is left: a day must be 1 to 31, the years 1 to the most that the engine runs.
std::optional<Refusal> Check_Day(const std::string& text, const std::string& control);
std::optional<Refusal> Check_Years(const std::string& text);

// Mild hints at days that no year has, a line each; such a day is accepted all the same.
std::string Period_Hints(const Single_Run_Entry& entry);

// What a directory lacks for a single run, and where the scenarios of the installation lie; empty if it has all.
std::string Missing_Files_Text(const Program_State& program, const std::filesystem::path& directory);

} // namespace orvel
