#pragma once

#include "plans/plan_survey.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The grid of a plan: its columns, the state of each run, and a column of figures for each substance. Texts are UTF-8.
struct Plan_Grid {
    std::vector<std::string> Heads;
    std::vector<std::string> Substances; // of the last columns, bytes of Windows-1252
    std::size_t State_Column = 0;
    std::vector<std::size_t> Rows; // of the plan, those that are shown

    bool Is_Figure(std::size_t column) const { return column > State_Column; }
};

// All rows, or those of a state alone.
Plan_Grid Grid_Of(const Plan_View& view, std::optional<Verdict> state);

// A cell by its row of the plan.
std::string Cell_Text(const Plan_View& view, const Plan_Grid& grid, std::size_t row, std::size_t column);

// The grid with tabs, for a spreadsheet, and the first rows of it as a page that can be printed.
std::string Grid_Lines(const Plan_View& view, const Plan_Grid& grid);
std::string Grid_Page(const Plan_View& view, const Plan_Grid& grid);
constexpr std::size_t Most_Rows_Printed = 2000;

// Why a run has no result, by its record; empty if there is nothing to tell.
std::string Reason_Of_Row(const Plan_View& view, std::size_t row);

} // namespace orvel
