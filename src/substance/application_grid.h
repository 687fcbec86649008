#pragma once

#include "core/message.h"
#include "core/session.h"
#include "substance/application_view.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The grid of single applications: one row per application of the location under edit, whatever its year.

constexpr int Grid_Columns = 8;
struct Grid_Column {
    static constexpr int App_Number = 0, Day = 1, Month = 2, Year = 3, Hour = 4, App_Rate = 5,
                         Depth_Or_Interception = 6, Fraction = 7;
};

// Cells by column; column 0 is the title of the row. The header row is separate.
using Application_Row = std::array<std::string, Grid_Columns>;
using Application_Grid = std::vector<Application_Row>;

// Column 6 is the depth of a soil application and the interception of any other.
std::array<std::string_view, Grid_Columns> Application_Grid_Headers(Application_Method method);

// As many rows as Text_naps says; rows beyond the stored applications are empty except for the title.
Application_Grid Load_Application_Grid(const Pesticide_Document& document, const Editor_State& editor,
                                       std::string_view text_naps, Application_Method method);

// The cell after a key press: Key_Delete clears it, and a key that would make a day exceed 31, a month 12 or a year
// 9999 is ignored. Day, month, year and hour accept digits only.
std::string Application_Cell_After_Key(std::string cell, int column, int key_code);

// Whether a cell accepts pasted text: empty, or entirely a number within the bounds of Application_Cell_After_Key.
bool Application_Cell_Takes(int column, std::string_view text);

// "Same Fractions for all applications": copies that of the first row.
void Same_Fractions(Application_Grid& grid);

// What is wrong with a grid, and the cell to return to.
struct Grid_Refusal {
    Message Text;
    int Row = 0, Column = 0;
    bool operator==(const Grid_Refusal&) const = default;
};

// Every application needs a day, month, year and rate, and must come after the one before it. Nothing if all is well.
std::optional<Grid_Refusal> Check_Application_Grid(const Application_Grid& grid);

// Stores all rows at the location under edit, marks the document as changed and determines the location's pattern.
void Store_Application_Grid(Pesticide_Edit edit, const Application_Grid& grid, Application_Method method);

// "OK": the same for a grid that was found good.
std::optional<Grid_Refusal> Accept_Application_Grid(Pesticide_Edit edit, const Application_Grid& grid,
                                                    Application_Method method);

// The first application on a day that no year has, as a question whether to keep it; nothing if all can be.
std::optional<Message> Impossible_Date(const Application_Grid& grid);

} // namespace orvel
