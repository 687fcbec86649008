#pragma once

#include "output/run_records.h"
#include "tables/utilities.h"

#include <filesystem>
#include <span>
#include <string>

namespace orvel {

// The tables by year, month and day that the utilities make of a run's series: the run's title lines, a list of the
// columns, then one row per period.

// The file that a directory's table is made from: plot.orv, or the copy grw.orv if that has more than a head and is not
// older, or is the only one. Throws File_Error if both are missing.
std::filesystem::path Series_File(const std::filesystem::path& directory);

// The table of the value columns, without those of the soil profile, in bytes of Windows-1252. For a flow (cm/d, t/d,
// kg/ha/d) a row holds the period's amount (cm, t, kg/ha), for a state the mean of its days; a day's lines are equal
// parts of it. Columns are named by the directory's own run control and pesticide file where these can be read, and the
// run's last day is that of its run control. Throws File_Error with a sentence for series that are missing, empty,
// damaged or truncated, and for days that the calendar lacks.
std::string Series_Table(Utility period, const std::filesystem::path& directory, std::span<const Run_Day> calendar);

// Writes the table whole into the directory. The calendar is the directory's datum.dat, else that beside the programs.
// Throws File_Error with a sentence, also for the directory of a batch; an existing table is then unchanged.
void Make_Utility_Table(Utility period, const std::filesystem::path& directory, const std::filesystem::path& programs);

} // namespace orvel
