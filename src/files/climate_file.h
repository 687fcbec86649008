#pragma once

#include "core/session.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// A climate file is a title line, then one day per line in fixed columns.

constexpr int Climate_Number_First = 8; // column of the first number, each ten wide

// A number column: its heading in two lines, the name that a user knows it by, and the pattern it is shown with.
struct Climate_Column {
    double Climate_Row::*Number;
    std::string_view Heading, Heading_Below, Name, Shown_With;
};

// In the order of the file, which is also that of the grid.
constexpr std::array<Climate_Column, 7> Climate_Columns = {{
    {&Climate_Row::Cli_Rain, "Rainfall", "[cm]", "Rainfall", "0.00"},
    {&Climate_Row::Cli_Evap, "[cm]", "Evap", "Evaporation", "0.00"},
    {&Climate_Row::Cli_Temp_14, "Temp", "14.00", "Temperature at 14.00", "0.0"},
    {&Climate_Row::Cli_Temp_Mean, "mean", "Temp", "Mean temperature", "0.0"},
    {&Climate_Row::Cli_Temp_Diff, "Diff", "", "Temperature difference", "0.0"},
    {&Climate_Row::Cli_Rel_Hum, "Rel.hum.", "[%]", "Relative humidity", "0.0"},
    {&Climate_Row::Cli_Radiation, "Radiation", "[kJ/m\xB2]", "Radiation", "0.0"},
}};

// A number as a cell of the grid shows it.
std::string Cell_Text(const Climate_Row& row, const Climate_Column& column);

// Rounds every number as the grid shows it: what a save of an unedited grid writes.
void Round_As_Shown(Climate_Table& table);

// A row whose day is blank or zero is no day: it is not shown and not saved.
bool Is_Left_Out(const Climate_Row& row);

// A short line is no error. Throws File_Error for more rows than Most_Climate_Rows or an empty file.
Climate_Table Parse_CLI(std::string_view bytes);

// Rows whose day is blank or zero are left out; one empty line stands at the end.
std::string Format_CLI(const Climate_Table& table);

// All or nothing; false: it failed, and the user has been told.
bool Read_CLI(Session& session, const std::filesystem::path& file);
bool Write_CLI(Session& session, const std::filesystem::path& file);

} // namespace orvel
