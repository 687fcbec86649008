#pragma once

#include "plans/plan_survey.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The grid of a plan: what its rows are told apart by, the state of each run, a column of figures for each substance,
// and the rest of the columns of the plan. Texts are UTF-8.
struct Plan_Grid_Column {
    enum class Holds { Cell, State, Figure };
    std::string Head;
    Holds Kind = Holds::Cell;
    std::size_t Place = 0; // of a cell among the columns of the plan
    std::string Substance; // of figures, bytes of Windows-1252
    std::string Unit;      // empty: each figure has its own
    bool operator==(const Plan_Grid_Column&) const = default;
};

struct Plan_Grid {
    std::vector<Plan_Grid_Column> Columns;
    std::vector<std::size_t> Rows; // of the plan, those that are shown
};

// All rows, or those of a state alone.
Plan_Grid Grid_Of(const Plan_View& view, std::optional<Verdict> state);

// A cell by its row of the plan.
std::string Cell_Text(const Plan_View& view, const Plan_Grid_Column& column, std::size_t row);

// The grid with tabs, for a spreadsheet, and the first rows of it as a page that can be printed.
std::string Grid_Lines(const Plan_View& view, const Plan_Grid& grid);
std::string Grid_Page(const Plan_View& view, const Plan_Grid& grid);
constexpr std::size_t Most_Rows_Printed = 2000;

// Why a run has no result, by its record; empty if there is nothing to tell.
std::string Reason_Of_Row(const Plan_View& view, std::size_t row);

} // namespace orvel
