#pragma once

#include "core/session.h"
#include "files/misread.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// A climate file is a title line, then one day per line in fixed columns.

constexpr std::size_t Climate_Number_Width = 10;

// A number column of the file: where it begins (1-based), its heading in the grid in two lines, the name that a user
// knows it by, the pattern that the grid shows it with, and its title in the chart; the chart has no radiation.
struct Climate_Column {
    std::optional<double> Climate_Row::*Number;
    std::size_t First;
    std::string_view Heading, Heading_Below, Name, Shown_With, Chart_Title;
};

// In the order of the file, which is also that of the grid.
constexpr std::array<Climate_Column, 7> Climate_Columns = {{
    {&Climate_Row::Cli_Rain, 8, "Rainfall", "[cm]", "Rainfall", "0.00", "Precipitation [cm]"},
    {&Climate_Row::Cli_Evap, 18, "Evap", "[cm]", "Evaporation", "0.00", "pot. Evapotranspiration [cm/d]"},
    {&Climate_Row::Cli_Temp_14, 28, "Temp", "14.00", "Temperature at 14.00", "0.0", "Temperature at 14.00[\xB0\x43]"},
    {&Climate_Row::Cli_Temp_Mean, 38, "mean", "Temp", "Mean temperature", "0.0", "Mean Temperature [\xB0\x43]"},
    {&Climate_Row::Cli_Temp_Diff, 48, "Diff", "", "Temperature difference", "0.0", "Tmax-Tmin [\xB0\x43]"},
    {&Climate_Row::Cli_Rel_Hum, 58, "Rel.hum.", "[%]", "Relative humidity", "0.0", "rel. humidity [%] at 14.00"},
    {&Climate_Row::Cli_Radiation, 68, "Radiation", "[kJ/m\xB2]", "Radiation", "0.0", ""},
}};

// A number as it is shown and written: a blank is 0.
inline double Number_Of(const Climate_Row& row, const Climate_Column& column)
{
    return (row.*column.Number).value_or(0);
}

// A number as a cell of the grid shows it.
std::string Cell_Text(const Climate_Row& row, const Climate_Column& column);

// Rounds every number as the grid shows it: what a save of an unedited grid writes.
void Round_As_Shown(Climate_Table& table);

// A row whose day is blank or zero is neither saved nor simulated.
bool Is_Left_Out(const Climate_Row& row);

// A short line is no error, and a column of blanks no number. Throws File_Error for more rows than Most_Climate_Rows or
// an empty file. Fields that are no numbers are listed where the caller asks for them, except those of rows left out.
Climate_Table Parse_CLI(std::string_view bytes, Misreads* misreads = nullptr);

// Whether the last line ends early and without its line end: the columns behind are lost.
bool Ends_In_A_Cut_Line(std::string_view bytes);

// Why a climate file seems to have been cut, a sentence: its last line is short, or it begins on 1 January and does not
// end on 31 December. Empty if it is whole.
std::string Seems_Cut(std::string_view bytes, const Climate_Table& table);

// Rows whose day is blank or zero are left out; one empty line stands at the end.
std::string Format_CLI(const Climate_Table& table);

// All or nothing; false: it failed, and the user has been told.
bool Read_CLI(Session& session, const std::filesystem::path& file);
bool Write_CLI(Session& session, const std::filesystem::path& file);

} // namespace orvel
