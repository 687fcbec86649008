#pragma once

#include "tables/balance_records.h"
#include "tables/table_text.h"

#include <array>
#include <string_view>

namespace orvel {

// The lines of the balance tables, as printed and as read back.

// A column after the year or month: its heading and the figure of a row.
template <class Row> struct Balance_Column {
    std::string_view Head;
    double Row::*Figure;
};
constexpr std::array<Balance_Column<Water_Balance_Row>, 6> Water_Columns = {{
    {"Precipitation", &Water_Balance_Row::Precipitation},
    {"Irrigation", &Water_Balance_Row::Irrigation},
    {"  Runoff", &Water_Balance_Row::Runoff},
    {"Evapotransp.", &Water_Balance_Row::Evapotranspiration},
    {" Percolate", &Water_Balance_Row::Percolate},
    {"Diff. Storage", &Water_Balance_Row::Diff_Storage},
}};
constexpr std::array<Balance_Column<Pesticide_Balance_Row>, 7> Pesticide_Columns = {{
    {"Application", &Pesticide_Balance_Row::Application},
    {"Volatilisation", &Pesticide_Balance_Row::Volatilisation},
    {"  Runoff", &Pesticide_Balance_Row::Runoff},
    {"Plant uptake", &Pesticide_Balance_Row::Plant_Uptake},
    {"Degradation", &Pesticide_Balance_Row::Degradation},
    {" Percolate", &Pesticide_Balance_Row::Percolate},
    {"Diff. Storage", &Pesticide_Balance_Row::Diff_Storage},
}};
constexpr std::string_view Formation_Head = "Formation"; // replaces the application for a metabolite

// The lines above the rows of a table. `label` is that of the substance: "Pesticide", " Metab.A1" ...
void Print_Water_Head(Table_Text& text, Balance_View view);
void Print_Pesticide_Head(Table_Text& text, Balance_View view, std::string_view label, bool active_substance);

// Print a row of unrounded figures and return it with the figures as printed.
Water_Balance_Row Print_Row(Table_Text& text, std::size_t number, Water_Balance_Row row);
Pesticide_Balance_Row Print_Row(Table_Text& text, std::size_t number, Pesticide_Balance_Row row);

// Read a cached text back, with the titles of the tables as their substances' names. A truncated row is left out.
void Parse_Water(std::string_view bytes, Balance_View view, Balance_Tables& tables);
void Parse_Pesticides(std::string_view bytes, Balance_View view, Balance_Tables& tables);

// Whether bytes are balance tables as they are printed, of these parts: each line in its place, and all tables of the
// same length. They have no line that closes them.
bool Are_Balance_Files(std::string_view water, std::string_view pesticides, Balance_View view,
                       const Balance_Tables& tables);

// A sentence that says why tables may not be kept, since a cut of them would not be noticed; empty if they may.
std::string Why_Not_Whole(const Balance_Tables& tables, Balance_View view);

} // namespace orvel
