#include "tables/leachate_periods.h"

#include "tables/leachate_percentile.h"

#include <algorithm>

namespace orvel {

Leachate_Table Periods_Of(const Leachate_Table& years, int period_index)
{
    const auto years_a_period = static_cast<std::size_t>(period_index) + 1;
    Leachate_Table table{.Result_Name = years.Result_Name, .Label = years.Label};
    for (std::size_t p = 0; p < Leachate_Periods; ++p) {
        auto& row = table.Rows.emplace_back();
        const auto first = Warm_Up_Years + p * years_a_period;
        for (auto y = first; y < std::min(first + years_a_period, years.Rows.size()); ++y) {
            row.Flux += years.Rows[y].Flux;
            row.Percolate += years.Rows[y].Percolate;
        }
        row.Conc = Leachate_Conc(row.Flux, row.Percolate);
    }
    table.Result = Evaluate_Leachate(table.Rows, 0);
    return table;
}

} // namespace orvel
