#include "substance/depth_grid.h"

#include "core/text.h"
#include "substance/horizon_table.h"
#include "ui/number_field.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace {

constexpr std::size_t Kd_Column = 0, Exponent_Column = 1, First_Target_Column = 2;

constexpr std::array<Target_Column, 5> Targets_AS = {
    {{"MET. A1", 1}, {"MET. B1", 2}, {"MET. C1", 3}, {"MET. D1", 4}, {"CO2/B.RES.", 5}}};
constexpr std::array<Target_Column, 4> Targets_A1 = {{{"MET. B1", 1}, {"MET. A2", 2}, {"MET. B2", 3}, {"CO2/BRes", 4}}};
constexpr std::array<Target_Column, 4> Targets_B1 = {{{"MET. C1", 1}, {"MET. B2", 2}, {"MET. C2", 3}, {"CO2/BRes", 4}}};
constexpr std::array<Target_Column, 4> Targets_C1 = {{{"MET. D1", 1}, {"MET. C2", 2}, {"MET. D2", 3}, {"CO2/BRes", 4}}};
constexpr std::array<Target_Column, 2> Targets_D1 = {{{"MET. D2", 2}, {"CO2/BRes", 4}}};
constexpr std::array<Target_Column, 2> Targets_A2 = {{{"MET. B2", 1}, {"CO2/BRes", 2}}};
constexpr std::array<Target_Column, 2> Targets_B2 = {{{"MET. C2", 1}, {"CO2/BRes", 2}}};
constexpr std::array<Target_Column, 2> Targets_C2 = {{{"MET. D2", 1}, {"CO2/BRes", 2}}};
constexpr std::array<Target_Column, 1> Targets_D2 = {{{"CO2/BRes", 2}}};

constexpr std::array<std::span<const Target_Column>, Substances + 1> Targets = {
    {{}, Targets_AS, Targets_A1, Targets_B1, Targets_C1, Targets_D1, Targets_A2, Targets_B2, Targets_C2, Targets_D2}};

std::string_view Cell(const std::vector<std::string>& row, std::size_t column)
{
    return column < row.size() ? std::string_view(row[column]) : std::string_view();
}

// An empty cell keeps what a new row of the table begins with, so that no exponent becomes 0 by an OK.
Variant Stored(std::string_view cell, double of_new_row)
{
    return Trim(cell).empty() ? Variant(of_new_row) : Typed_Number(cell);
}

void Store_Default_Factors(Pesticide_Document& document, const std::vector<std::string>& factors)
{
    for (std::size_t row = 0; row < factors.size() && row + 1 < document.Horizons.size(); ++row) {
        for (auto& of_substance : document.Horizons[row + 1].Hor_Deg)
            std::fill(of_substance.begin() + 1, of_substance.end(), Stored(factors[row], Default_Factor));
    }
}

} // namespace

std::span<const Target_Column> Target_Columns(int i)
{
    return Targets.at(static_cast<std::size_t>(i));
}

std::vector<std::string> Depth_Grid_Headers(int i)
{
    std::vector<std::string> headers = {"Hor. Number", "   [mL/g]", i == 1 ? "  Fr-Exponent" : "Fr-Exponent"};
    for (const auto& target : Target_Columns(i))
        headers.emplace_back(target.Header);
    return headers;
}

std::string Horizon_Title(std::size_t row)
{
    return "Horizon " + std::to_string(row + 1);
}

Depth_Grid Load_Depth_Grid(const Pesticide_Document& document, int i, int rows)
{
    const auto targets = Target_Columns(i);
    const int stored = Rows_Of_Table(document);
    Depth_Grid grid;
    grid.Rows.assign(static_cast<std::size_t>(std::clamp(rows, 0, Most_Horizons)),
                     std::vector<std::string>(First_Target_Column + targets.size()));
    for (std::size_t row = 0; row < grid.Rows.size() && static_cast<int>(row) < stored; ++row) {
        const auto& horizon = document.Horizons[row + 1];
        auto& cells = grid.Rows[row];
        cells[Kd_Column] = horizon.Hor_Kd[i].Text();
        cells[Exponent_Column] = horizon.Hor_FrExp[i].Text();
        for (std::size_t k = 0; k < targets.size(); ++k)
            cells[First_Target_Column + k] = horizon.Hor_Deg[i][targets[k].Factor].Text();
    }
    return grid;
}

void Default_From_First_Target(Depth_Grid& grid)
{
    grid.Default_Factors.clear();
    for (auto& cells : grid.Rows) {
        const std::string factor(Cell(cells, First_Target_Column));
        for (std::size_t column = First_Target_Column; column < cells.size(); ++column)
            cells[column] = factor;
        grid.Default_Factors.push_back(factor);
    }
}

void Accept_Depth_Grid(Pesticide_Document& document, int i, const Depth_Grid& grid)
{
    const auto targets = Target_Columns(i);
    Grow_Horizon_Table(document, static_cast<int>(grid.Rows.size()));
    document.N_Horizons = grid.Rows.size();
    Store_Default_Factors(document, grid.Default_Factors);
    for (std::size_t row = 0; row < grid.Rows.size() && row + 1 < document.Horizons.size(); ++row) {
        const auto& cells = grid.Rows[row];
        auto& horizon = document.Horizons[row + 1];
        horizon.Hor_Kd[i] = Stored(Cell(cells, Kd_Column), Default_Kd);
        horizon.Hor_FrExp[i] = Stored(Cell(cells, Exponent_Column), Default_Exponent);
        for (std::size_t k = 0; k < targets.size(); ++k)
            horizon.Hor_Deg[i][targets[k].Factor] = Stored(Cell(cells, First_Target_Column + k), Default_Factor);
    }
}

} // namespace orvel
