#pragma once

#include "charts/chart.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The charts of the annual balances, out of the cached tables MBalance.orv (water) and PBalance.orv (substances).

struct Balance_Row {
    int Year = 0;
    std::vector<double> Terms; // mm or g/ha, as many as the table has columns
};

struct Balance_Table {
    std::string Label;              // "Water", "Pesticide", "Metab.A1" ...
    std::vector<std::string> Terms; // the heads of the columns behind the year
    std::vector<Balance_Row> Rows;
    std::vector<std::string> Head; // the four lines above the tables
};

// The tables of a file in its order. A row that is cut short is left out.
std::vector<Balance_Table> Read_Balances(std::string_view bytes);

Chart Water_Balance_Chart(const Balance_Table& table);
Chart Substance_Balance_Chart(const Balance_Table& table, std::string_view substance);

} // namespace orvel
