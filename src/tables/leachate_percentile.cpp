#include "tables/leachate_percentile.h"

namespace orvel {

namespace {

constexpr double Percentile = 0.8;
constexpr double Picked = -1;

std::size_t Position_Of_Largest(const std::vector<double>& concentrations)
{
    std::size_t position = 0;
    for (std::size_t k = 1; k < concentrations.size(); ++k) {
        if (concentrations[k] > concentrations[position])
            position = k;
    }
    return position;
}

} // namespace

double Leachate_Conc(double flux, double percolate)
{
    return percolate > 0 && flux > 0 ? flux * 100 / percolate : 0;
}

int Upper_Rank(std::size_t count)
{
    return static_cast<int>(static_cast<double>(count) * Percentile + 1);
}

Leachate_Result Evaluate_Leachate(std::span<const Leachate_Row> rows, std::size_t first)
{
    Leachate_Result result;
    if (rows.size() <= first)
        return result;
    const auto evaluated = rows.subspan(first);
    std::vector<double> concentrations;
    for (const auto& row : evaluated) {
        result.Total.Flux += row.Flux;
        result.Total.Percolate += row.Percolate;
        concentrations.push_back(row.Conc);
    }
    result.Total.Conc = result.Total.Percolate > 0 ? result.Total.Flux * 100 / result.Total.Percolate : 0;

    std::size_t upper = 0;
    for (auto n = static_cast<int>(evaluated.size()); n >= Upper_Rank(evaluated.size()); --n) {
        upper = Position_Of_Largest(concentrations);
        concentrations[upper] = Picked;
    }
    const std::size_t lower = Position_Of_Largest(concentrations);

    const auto& a = evaluated[upper];
    const auto& b = evaluated[lower];
    result.A = static_cast<int>(first + upper + 1);
    result.B = static_cast<int>(first + lower + 1);
    result.P80.Flux = a.Flux + b.Flux;
    result.P80.Percolate = a.Percolate + b.Percolate;
    result.P80.Conc = (Leachate_Conc(a.Flux, a.Percolate) + Leachate_Conc(b.Flux, b.Percolate)) / 2;
    return result;
}

} // namespace orvel
