#include "report/run_results.h"

#include "core/numbers.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Conc_Decimals = 3;

Run_Result Result_Of(const Leachate_Table& periods, const std::string& name, int period_index)
{
    const auto selected = [&](int number) {
        if (number < 1 || static_cast<std::size_t>(number) > periods.Rows.size())
            return Selected_Period();
        return Selected_Period{number, Years_Of_Period(number, period_index),
                               periods.Rows[static_cast<std::size_t>(number) - 1].Conc};
    };
    return {name, periods.Result.P80, selected(periods.Result.A), selected(periods.Result.B),
            periods.Result.P80.Conc > Drinking_Water_Limit};
}

} // namespace

std::string Limit_Number()
{
    return General_Text(Drinking_Water_Limit);
}

std::string Limit_Text()
{
    return Limit_Number() + " " + std::string(Leachate_Unit);
}

Run_Results Results_Of(const Leachate_Tables& tables)
{
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    const auto& years = tables.Year[static_cast<std::size_t>(Depth::One_Metre)];
    Run_Results results;
    if (periods.empty() || years.empty() || tables.Result_Name.size() != periods.size()) {
        results.Problem = "The simulation's tables and its substances do not agree.";
        return results;
    }
    results.Years = static_cast<int>(years.front().Rows.size());
    results.Dry_Periods = static_cast<int>(
        std::ranges::count_if(periods.front().Rows, [](const Leachate_Row& row) { return row.Percolate <= 0; }));
    for (std::size_t s = 0; s < periods.size(); ++s)
        results.Substances.push_back(Result_Of(periods[s], Substance_Of(tables.Result_Name[s]), tables.Period_Index));
    return results;
}

std::string Years_Of_Period(int period, int period_index)
{
    const int years = period_index + 1, first = static_cast<int>(Warm_Up_Years) + (period - 1) * years + 1;
    return std::to_string(first) + (years > 1 ? " to " + std::to_string(first + years - 1) : "");
}

std::string Conc_Text(double conc)
{
    return Fixed_Text(conc, Conc_Decimals);
}

} // namespace orvel
