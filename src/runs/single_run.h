#pragma once

#include "core/session.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The free-hand run: one pesticide file, one scenario file and a list of climate files of a directory, run in that
// directory.

constexpr std::string_view Still_At_Work =
    "An engine is still at work in this directory. Please wait until it has finished.";

// What the form holds: names of files in the directory, and the texts of its boxes. Bytes of Windows-1252.
struct Single_Run_Entry {
    std::string Pesticide, Scenario;
    std::vector<std::string> Climates; // one a year; the last one stands for the years beyond
    std::string Start_Day, End_Day, Years;
    int Start_Month_Index = -1, End_Month_Index = -1; // list indices, -1: none chosen
};

// The entry that the directory's orvel.inp restores, with the output slots in the session. Without a readable file:
// what the session holds.
Single_Run_Entry Restore_Single_Run(Session& session, const std::filesystem::path& directory);

// Whether old output stands in a directory: it must be archived or given up before a run.
bool Has_Output(const std::filesystem::path& directory);

// The first thing that forbids the run, in the order of the checks: the pesticide file, the scenario file, their
// horizons, the form's boxes.
std::optional<Refusal> Check_Single_Run(const Session& session, const std::filesystem::path& directory,
                                        const Single_Run_Entry& entry);

// A day box that is left: 1 to 31. The years box: above 0.
std::optional<Refusal> Check_Day(const std::string& text, const std::string& control);
std::optional<Refusal> Check_Years(const std::string& text);

// Takes the entry over, writes orvel.inp, deletes old output and starts the engine in the directory, without waiting.
// The engine's process holds the directory's lock as long as it works. False: the user has been told. A run that is at
// work there is left alone, and told.
bool Start_Single_Run(Session& session, const std::filesystem::path& directory, const Single_Run_Entry& entry);

// Years done of years to do and whether the engine is at work in a directory.
struct Single_Run_State {
    bool Running = false;
    int Years_Done = 0;
    std::string Text; // one line for people
};
Single_Run_State State_Of_Single_Run(const std::filesystem::path& directory, int years);

// The first free archive name below a directory: "Run_1", "Run_2" ...
std::string Free_Archive_Name(const std::filesystem::path& directory);

// Moves the output files of a directory into the archive folder and copies the run's input beside them. Output goes
// only when the archive is whole, and never while an engine is at work there. False: the user has been told.
bool Archive_Run(Session& session, const std::filesystem::path& directory, const std::string& folder);

} // namespace orvel
