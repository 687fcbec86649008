#pragma once

#include "jobs/input_changes.h"
#include "jobs/job.h"
#include "jobs/job_status.h"
#include "runs/output_selection.h"
#include "runs/run_control.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Marking, starting and listing for the command line. Texts are bytes of Windows-1252.

struct Mark_Request {
    Mode_Kind Kind = Mode_Kind::Focus;
    std::string Pesticide, Crop, Location; // file name, texts of the list entries
    bool All = false;                      // all locations of the crop
    std::optional<Output_Option> Output;   // else as in the last run control file of the mode
    std::optional<int> Tillage;            // cm, else the default of the form
    std::optional<double> Scaling;         // degrees, else 0
};

// Marks as the run form of the mode does. Returns the run directories marked, below the installation directory; nothing
// if anything was refused, and the user has been told.
std::optional<std::vector<std::string>> Mark(Session& session, const Mark_Request& request);

// The lines of a shell that mark what a run form has selected, for one location and for all, and start the job. UTF-8.
std::vector<std::string> Run_Command_Lines(const Program_State& program, const Mode& mode, const Run_Choice& choice);

struct Progress_Report {
    std::function<void(const std::string&)> Tell;
    std::chrono::milliseconds Interval{500};
};

// Starts the job of the pending batch; with a report it waits for the end and reports progress meanwhile. False:
// refused, or a run failed, and the user has been told.
// A start of runs of the last job that finds none of them is no refusal.
bool Start(const Session& session, const Mode& mode, const Job_Order& order, const Progress_Report& report = {});

// Asks the job of a mode to end; if `wait`, returns when nothing is at work any more.
bool Stop(const Session& session, const Mode& mode, bool wait);

// One line for each simulation, separated by tabs: pesticide, crop, location, date, status, and the verdict of a run
// that has ended but is not complete.
std::string Simulation_Lines(const std::vector<Simulation>& simulations);

// The same as a JSON array of objects, in UTF-8, with the verdict, the years, the exit code and the changed inputs of
// every run and its directory. An input that cannot be read is among the changed ones, and `changes` tells why. Throws
// File_Error if an output cannot be read.
std::string Simulation_Json(const std::vector<Simulation>& simulations, Input_Changes& changes);

} // namespace orvel
