#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What an engine was asked for in a run directory and what it left there.

// A run's orvel.inp, as far as it names years and files.
struct Run_Request {
    int Years = 0; // 0 if the file does not say
    int Start_Day = 1, Start_Month = 1, End_Day = 31, End_Month = 12;
    std::string Scenario, Pesticide;   // as named there
    std::vector<std::string> Climates; // one a year
    bool Series = false;               // whether columns of plot.orv are asked for
};
Run_Request Parse_Run_Request(std::string_view control);

// The request of a run directory; years are 0 without an orvel.inp. Throws File_Error if it cannot be read.
Run_Request Read_Run_Request(const std::filesystem::path& run_directory);

// Whether a climate file has a 29 February. Throws File_Error.
bool Has_Leap_Day(const std::filesystem::path& climate);
using Leap_Day_Function = std::function<bool(const std::filesystem::path&)>;

struct Found_Output {
    std::filesystem::path File;
    std::optional<int> Years; // complete years that it holds; nothing for a file that is not yearly
};

struct Run_Outputs {
    std::vector<Found_Output> Files; // sorted by name, without what a table or the job left
    int Years_Expected = 0, Years_Found = 0;
    std::string Engine_Version; // as the echo's head tells it
    bool Holds_Error = false;   // the echo does, anywhere
    std::string Missing;        // what keeps the run from being complete, a sentence; empty if nothing does
};

// Looks through all outputs of a run; nothing is written. Throws File_Error if a file cannot be read.
Run_Outputs Find_Outputs(const std::filesystem::path& run_directory, const Run_Request& request,
                         const Leap_Day_Function& has_leap_day = Has_Leap_Day);

// The years of Wasser.orv or a chem*.orv: a block counts once a line follows the one that closes its totals. Throws
// File_Error.
int Years_In_Balance(const std::filesystem::path& file);

// Whether an echo is empty, or lacks the line by which the bundled engine closes it. Throws File_Error.
bool Ends_Early(const std::filesystem::path& echo);

// Whether the name is that of a file that an engine writes: *.orv, but neither a stored table nor the progress.
bool Is_Engine_Output(std::string_view name);
bool Has_Engine_Output(const std::filesystem::path& run_directory);

// "12 of 26 years"
std::string Years_Text(int found, int expected);

// File in the run directory that takes what an engine prints while it runs: "YEAR 3 OF 26". It is kept if the run
// fails.
constexpr std::string_view Progress_Name = "progress.orv";

} // namespace orvel
