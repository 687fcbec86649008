#pragma once

#include "output/line_scanner.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The engine's echo of its input, echo.orv: what the tables need to know of a run.

constexpr std::size_t Most_Result_Names = 10;

struct Echo_Layers {
    int Total_Compartments = 0;
    int Top_Layers = 0; // compartment at 1 m depth
    bool Has_Daily_Output = false, Has_Monthly_Output = false;
};

// The counts of compartments and the output frequency. A text that is missing ends its search at the end of the file,
// and the columns are then those of the last line. Throws File_Error for a count outside of an i16.
Echo_Layers Scan_Echo_Layers(Line_Scanner& echo);
Echo_Layers
Read_Echo_Layers(const std::filesystem::path& run_directory); // throws File_Error too if there is no echo.orv

// The names of the substances of the run, the active substance first; at most ten.
std::vector<std::string> Scan_Substance_Names(Line_Scanner& echo);
std::vector<std::string>
Read_Substance_Names(const std::filesystem::path& run_directory); // throws File_Error if there is no echo.orv

// Whether a line tells of an error, so that the simulation failed.
bool Scan_For_Error(Line_Scanner& echo);
// Whether a simulation has ended with an error. False while it is at work, and without an echo.orv: nothing else tells
// of one that was begun.
bool Simulation_Failed(const std::filesystem::path& run_directory);
constexpr std::string_view Simulation_Failed_Text = "The simulation failed: its echo file, echo.orv, tells why.";

} // namespace orvel
