#pragma once

#include "output/run_files.h"
#include "tables/leachate_tables.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The lines of the leachate tables, as printed and as read back.

constexpr std::string_view Leachate_Dashes = "\t------------------------------------------------------------";

// The seven lines above the rows of a year table, less the rule: two blank lines, the title, a blank line, the column
// heads, the units.
void Print_Year_Head(Table_Text& text, Depth depth, std::string_view result_name, std::string_view label);
// A row with its number; after the last warm-up year a rule follows.
void Print_Year_Row(Table_Text& text, std::size_t year, const Leachate_Row& row);
void Print_Leachate_Row(Table_Text& text, std::size_t number, const Leachate_Row& row);
// The rule, the total and the percentile. The window's percentile row of a year table at 1 m lacks the "80 ".
void Print_Leachate_Result(Table_Text& text, const Leachate_Result& result, std::string_view screen_label);

constexpr std::string_view Percentile_Label = "80 Perc.(";
constexpr std::string_view Short_Percentile_Label = "Perc.(";

// A table as it stands in year.orv or period.orv: rows and result are the printed figures.
struct Printed_Table {
    Depth At = Depth::One_Metre;
    std::vector<std::string> Head; // the title's four lines, then the column heads
    Leachate_Table Table;
};

struct Printed_Tables {
    std::vector<std::string> Titles; // the four lines above all tables
    std::vector<Printed_Table> Tables;
};

// Reads a year.orv or period.orv. A table ends with its percentile row; rules and words part its rows from the rest, so
// that the number of rows does not matter.
Printed_Tables Parse_Leachate(std::string_view bytes);

// The figures and positions of a percentile row, the total left at 0.
Leachate_Result Parse_Percentile(std::string_view line);

// The tables by depth and substance.
Leachate_Set Set_Of(const Printed_Tables& printed);

} // namespace orvel
