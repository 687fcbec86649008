#pragma once

#include "output/line_scanner.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The engine's time series, plot.orv: a head of eleven lines, then a line per output time.

constexpr int Plot_Head_Lines = 11;
constexpr int Closing_Hour = 24; // of a day
constexpr std::size_t Plot_Value_Width = 10;
constexpr std::size_t Plot_Series_First = 11; // 1-based column of the first value of a line

// When a line was written: the running number of the day, and the hour, of which 24 closes the day. 0 where the line
// has no such number.
struct Plot_Moment {
    int Day = 0, Hour = 0;
};
Plot_Moment Moment_Of(std::string_view line);

struct Plot_Column {
    std::string Plot_Code;
    double Plot_Depth = 0; // cm
    std::string Plot_Scale;
};

struct Plot_Head {
    std::array<std::string, 4> Titles; // lines 1, 3, 4 and 6, without blanks at their ends
    int N_Columns = 0;                 // value columns of a line, profile columns among them
    int N_Profile = 0;                 // the last columns: the soil profile, 20 per substance
    int Months = 0;
    std::vector<Plot_Column> Columns; // as many as the head names, at most N_Columns
    bool Whole = false;               // the head's eleven lines are there
};

// Reads the head; the scanner then stands on its last line. Throws File_Error for a count below 0 or outside of an i16.
Plot_Head Scan_Plot_Head(Line_Scanner& plot);

// The head of a run's plot.orv; not whole if there is none. Throws File_Error.
Plot_Head Read_Plot_Head(const std::filesystem::path& run_directory);

} // namespace orvel
