#pragma once

#include "tables/leachate_records.h"
#include "tables/table_text.h"

#include <optional>
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

// Whether bytes are a year table as it is printed, of these parts: each line in its place, totals and percentiles those
// of the rows.
bool Is_Year_File(std::string_view bytes, const Cached_Leachate& years);

// The length of the periods minus one, 0 to 2, with which the year tables give these bytes as period tables; nothing if
// none does. The likely one is tried first: with few years more than one may fit.
std::optional<int> Index_Of_Period_File(std::string_view bytes, const Cached_Leachate& years, int likely);

} // namespace orvel
