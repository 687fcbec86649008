#pragma once

#include "output/run_records.h"
#include "tables/table_status.h"

#include <string>
#include <vector>

namespace orvel {

// The water balance of a run and the pesticide balance of each of its substances, by year or by month. Figures are
// rounded as printed, whether the tables were built or read from their cache.
struct Balance_Tables : Table_Status {
    std::string Water_Text, Pesticide_Text; // as a window shows them, bytes of Windows-1252, lines end in CR LF
    std::vector<std::string> Titles;        // the four lines above the tables
    std::vector<Water_Balance_Row> Water;
    std::vector<std::vector<Pesticide_Balance_Row>> Pesticide; // by substance
    std::vector<std::string> Substance_Name; // by substance: as in echo.orv, else as in the table's title
};

} // namespace orvel
