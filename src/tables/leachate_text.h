#pragma once

#include "tables/leachate_records.h"
#include "tables/table_text.h"

#include <string_view>

namespace orvel {

// The lines of the leachate tables year.orv and period.orv, as printed and as read back.

// Both print a table of unrounded figures and return it with the figures as printed. A table that could not be read to
// its end (`whole` is false) ends with its last row.
Leachate_Table Print_Years(Table_Text& text, Depth depth, Leachate_Table years, bool whole = true);
Leachate_Table Print_Periods(Table_Text& text, Depth depth, Leachate_Table periods);

// The tables of a year.orv or period.orv, and the four lines above them. A table ends with its percentile row; its rows
// are told from the rest by rules and words, so their number does not matter.
struct Cached_Leachate {
    std::vector<std::string> Titles;
    Leachate_Set Set;
};
Cached_Leachate Parse_Leachate(std::string_view bytes);

} // namespace orvel
