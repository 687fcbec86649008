#pragma once

#include "core/progress.h"
#include "tables/daily_series.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace orvel {

// Where the daily diagram's series come from: plot.orv of a run directory, and the calendar datum.dat.

// A column, 1 to the number of value columns, of all lines after the head that have a day number. A line that ends
// before the column counts as 0. If `progress` stops the reading, the result is what was read so far. Throws File_Error
// for a file that cannot be read.
std::vector<Plot_Value> Read_Plot_Column(const std::filesystem::path& file, int column, const Progress& progress = {});

// One line per day: running number, day of the month, month, year.
std::vector<Run_Day> Parse_Calendar(std::string_view bytes);

// The series that the diagram draws. A missing file gives a series without points; one that
// cannot be read throws File_Error.
Daily_Series Read_Daily_Series(const std::filesystem::path& calendar, const std::filesystem::path& run_directory,
                               int column, const Daily_Request& request, const Progress& progress = {});

} // namespace orvel
