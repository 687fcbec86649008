#pragma once

#include "core/time_text.h"
#include "output/run_state.h"
#include "runs/mode.h"

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The state of a job seen from outside: by locks and files, without waiting and without disturbing it.

// Whether a job or an engine of the mode is at work. A missing probe file counts as running.
bool Job_Running(const Program_State& program, const Mode& mode);

// The same without the probe file, which says nothing about a job.
bool Is_Job_At_Work(const Program_State& program, const Mode& mode);

// The years, at most `years`, that the engine of a run directory has completed: by its own progress, else by the last
// year in its water balance.
double Years_Done(const std::filesystem::path& run, double years);

struct Job_Progress {
    int Runs = 0, Done = 0, Running = 0, Failed = 0; // failed runs count as done, too
    double Years = 0, Years_Done = 0;                // simulated years of the whole job
    double Seconds_Left = -1;                        // -1: not known yet
};
// Runs that the job keeps count as done; their years are no part of it.
Job_Progress Progress_Of_Job(const std::filesystem::path& mode_directory);

// One line for the user: "3 of 12 runs, 2 running, 41 %, 3 min left".
std::string Progress_Text(const Job_Progress& progress);

enum class Run_Status { Scheduled, Running, Data_Available };
std::string_view Status_Text(Run_Status status); // "Scheduled", "Running", "Data available"

Run_Status Status_Of_Run(const std::filesystem::path& run);

struct Simulation {
    std::string Pesticide, Crop, Location; // as the list shows them, bytes of Windows-1252
    std::filesystem::path Directory;       // the run directory
    std::time_t Date = 0;                  // of the run directory
    Run_Status Status = Run_Status::Scheduled;
    Run_State State;
    bool Echo_Failed = false; // of an unrecorded run: its echo holds an error
};

// What the list says beside the three texts: "complete", "incomplete: 12 of 26 years", "unrecorded: ERROR" ... Empty
// for a run that waits or is at work.
std::string Result_Text(const Simulation& simulation);

// The reason, or what a user should know of an unrecorded run: one sentence; empty if there is nothing to tell.
std::string Explanation(const Simulation& simulation);

// The state of one run directory; its names are not filled in.
Simulation Look_At_Run(const std::filesystem::path& run);

// All run directories of a mode, sorted by pesticide, crop and location. At most 31 crops of a pesticide and 31
// locations of a crop.
std::vector<Simulation> Simulation_List(const std::filesystem::path& mode_directory);

// The same with names and directories alone: no run is looked at.
std::vector<Simulation> Simulation_Places(const std::filesystem::path& mode_directory);

// One of these, as it is now.
Simulation Look_At_Simulation(Simulation place);

} // namespace orvel
