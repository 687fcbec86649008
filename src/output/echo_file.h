#pragma once

#include "output/line_scanner.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The engine's echo of its input, echo.orv: what the tables need to know of a run, read in one pass.

constexpr std::size_t Most_Result_Names = 10;

struct Echo_Layers {
    int Total_Compartments = 0;
    int Top_Layers = 0; // compartment at 1 m depth
    bool Has_Daily_Output = false, Has_Monthly_Output = false;
};

struct Echo {
    std::vector<std::string> Substance_Names; // the active substance first; at most ten
    bool Holds_Error = false;
    bool Engine_Stopped = false; // by its own last line: it did not come to its end
    bool At_Work = false;        // an engine or a job held the run when the file was read
    std::string Missing;         // why there is no echo, a sentence; empty if it was read
    std::filesystem::file_time_type Written;
    std::string Total, Top;                        // the counts of compartments as they stand in their columns
    std::string Water_Frequency, Solute_Frequency; // the lines that name the frequency of the output

    // The simulation ended with an error. A run at work has not failed: until it ends, its echo says that it did not.
    bool Failed() const { return Holds_Error && !At_Work; }

    // The counts of compartments and the output frequency. A text that is missing ends its search at the end of the
    // file, and the columns are then those of the last line. Throws File_Error without an echo, and for a count outside
    // of an i16.
    Echo_Layers Layers() const;
};

Echo Scan_Echo(Line_Scanner& echo);

// The echo of a run directory; a missing one is empty. Throws File_Error for one that cannot be read.
Echo Read_Echo(const std::filesystem::path& run_directory);

// Looks at the run again: whether it is at work, and its echo if that is another one by now.
void Look_Again(Echo& echo, const std::filesystem::path& run_directory);

// Whether a simulation has ended with an error. False without an echo: nothing else tells of one that was begun. Throws
// File_Error.
bool Simulation_Failed(const std::filesystem::path& run_directory);
constexpr std::string_view Simulation_Failed_Text = "The simulation failed: its echo file, echo.orv, tells why.";

// Whether a job or an engine holds a run directory. Throws File_Error if that cannot be told.
bool Is_At_Work(const std::filesystem::path& run_directory);

} // namespace orvel
