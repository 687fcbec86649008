#pragma once

#include "core/message.h"
#include "core/session.h"
#include "substance/application_view.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The grid of single applications: every application of the location under edit is a row, whatever its year.

constexpr int Grid_Columns = 8;
struct Grid_Column {
    static constexpr int App_Number = 0, Day = 1, Month = 2, Year = 3, Hour = 4, App_Rate = 5,
                         Depth_Or_Interception = 6, Fraction = 7;
};

// Cells by column; column 0 is the row's title. The header row is apart.
using Application_Row = std::array<std::string, Grid_Columns>;
using Application_Grid = std::vector<Application_Row>;

// Column 6 is the depth of a soil application and the interception of any other.
std::array<std::string_view, Grid_Columns> Application_Grid_Headers(Application_Method method);

// As many rows as Text_naps says; rows beyond the stored applications are empty but for their title.
Application_Grid Load_Application_Grid(const Pesticide_Document& document, const Editor_State& editor,
                                       std::string_view text_naps, Application_Method method);

// The cell after a key, for keys as grids have them: Key_Delete clears it, and a key is not taken that would make a day
// exceed 31, a month 12 or a year 9999. Day, month, year and hour take digits only.
std::string Application_Cell_After_Key(std::string cell, int column, int key_code);

// Whether a cell takes a text that comes in one piece: empty, or a number from end to end within the bounds of the
// keys.
bool Application_Cell_Takes(int column, std::string_view text);

// "Same Fractions for all applications": that of the first row.
void Same_Fractions(Application_Grid& grid);

// What is wrong with a grid, and the cell to go back to.
struct Grid_Refusal {
    Message Text;
    int Row = 0, Column = 0;
    bool operator==(const Grid_Refusal&) const = default;
};

// Every application has a day, month, year and rate, and lies behind the one before it.
std::optional<Grid_Refusal> Check_Application_Grid(const Application_Grid& grid);

// "OK": checks, stores all rows in the location under edit, marks the document as changed, and finds the location's
// pattern.
std::optional<Grid_Refusal> Accept_Application_Grid(Pesticide_Edit edit, const Application_Grid& grid,
                                                    Application_Method method);

} // namespace orvel
