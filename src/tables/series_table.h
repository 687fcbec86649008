#pragma once

#include "output/run_records.h"
#include "tables/utilities.h"

#include <filesystem>
#include <span>
#include <string>

namespace orvel {

// The tables by year, month and day that the utilities make of a run's series: the run's title lines, a list of the
// columns, then a row a period.

// The series that a directory's table is made of: the copy grw.orv, unless it holds no more than a head or plot.orv is
// newer.
std::filesystem::path Series_File(const std::filesystem::path& directory);

// The table of the value columns, without those of the soil profile, in bytes of Windows-1252. Of a flow (cm/d, t/d,
// kg/ha/d) a row holds the amount of its period (cm, t, kg/ha), of a state the mean of the period's days; a day's lines
// are equal parts of it. Columns are named by the directory's own run control and pesticide file where these can be
// read, and the run's last day is that of its run control. Throws File_Error with a sentence for series that are
// missing, empty, damaged or cut short, and for days that the calendar does not have.
std::string Series_Table(Utility period, const std::filesystem::path& directory, std::span<const Run_Day> calendar);

// Writes the table whole into the directory. The calendar is the directory's datum.dat, else that beside the programs.
// Throws File_Error with a sentence, also for the directory of a batch; then a table that was there is as it was.
void Make_Utility_Table(Utility period, const std::filesystem::path& directory, const std::filesystem::path& programs);

} // namespace orvel
