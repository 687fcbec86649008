#include "scenario/horizon_grid.h"

#include "core/numbers.h"
#include "scenario/scenario_options.h"
#include "ui/number_field.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

using Horizon = Scenario_Horizon;

// A column edits either a field that holds text or a number, or a plain number.
struct Column {
    std::string_view Heading;
    Variant Horizon::*Mixed = nullptr;
    double Horizon::*Number = nullptr;
};

bool Direct_Input(const Scenario_Document& document)
{
    return document.SZE_Hydraulic_Flag.Number() == 0;
}

std::vector<Column> Columns_Of(const Scenario_Document& document)
{
    const bool length = document.SZE_Dispersion_Flag != 0;
    std::vector<Column> columns = {
        {"Thickness      [cm]", &Horizon::SZE_Hor_Thickness},
        {"Bulk Density     [kg/L]", &Horizon::SZE_Hor_Bulk_Density},
        {length ? "Dispersion length  [cm]" : "Dispersion coeff.  [cm2/d]", &Horizon::SZE_Hor_Dispersion},
        {"Initial Soil Water (m\xB3/m\xB3)", &Horizon::SZE_Hor_Soil_Water},
    };
    if (Direct_Input(document)) {
        columns.push_back({"Field        Capacity (m\xB3/m\xB3)", &Horizon::SZE_Hor_FC});
        columns.push_back({"Wilting        Point (m\xB3/m\xB3)", &Horizon::SZE_Hor_WP});
    } else {
        columns.push_back({"Sand      Fraction [%]", &Horizon::SZE_Hor_Sand});
        columns.push_back({"Clay      Fraction [%]", nullptr, &Horizon::SZE_Hor_Clay});
    }
    columns.push_back({"Organic Carbon [%]", &Horizon::SZE_Hor_OC});
    columns.push_back({" pH-Value          ", &Horizon::SZE_Hor_pH});
    columns.push_back({" Biodeg. factor [-]", nullptr, &Horizon::SZE_Hor_Biodeg});
    if (Drainage_Option(document) == 1)
        columns.push_back({"Drainage Value [1/day]", &Horizon::SZE_Hor_Drainage});
    return columns;
}

constexpr std::size_t Thickness_Column = 0, Carbon_Column = 6;
constexpr std::size_t Capacity_Column = 4, Wilting_Column = 5; // with direct input

std::string Cell_Of(const Horizon& horizon, const Column& column)
{
    return column.Mixed ? (horizon.*column.Mixed).Text() : General_Text(horizon.*column.Number);
}

// An untouched cell keeps the document's number.
void Store(Horizon& horizon, const Column& column, const std::string& cell)
{
    if (cell == Cell_Of(horizon, column))
        return;
    if (column.Mixed)
        horizon.*column.Mixed = Typed_Number(cell);
    else
        horizon.*column.Number = Val(cell);
}

} // namespace

Horizon_Grid Show_Horizons(const Scenario_Document& document)
{
    const auto columns = Columns_Of(document);
    Horizon_Grid grid;
    grid.Headings.push_back("Horizon Number");
    for (const auto& column : columns)
        grid.Headings.emplace_back(column.Heading);
    const auto rows = Rows_Counted(document.SZE_Horizons.Number(), Most_Horizons);
    for (std::size_t h = 0; h < rows; ++h) {
        grid.Row_Titles.push_back("Horizon " + std::to_string(h + 1));
        auto& cells = grid.Cells.emplace_back(columns.size());
        for (std::size_t c = 0; c < columns.size() && h < document.Horizons.size(); ++c)
            cells[c] = Cell_Of(document.Horizons[h], columns[c]);
    }
    return grid;
}

std::vector<Profile_Layer> Soil_Profile(const Horizon_Grid& grid)
{
    std::vector<Profile_Layer> layers;
    double top = 0;
    for (const auto& cells : grid.Cells) {
        const double bottom = top + std::max(0.0, Val(cells[Thickness_Column]));
        layers.push_back({top, bottom, Val(cells[Carbon_Column])});
        top = bottom;
    }
    return layers;
}

std::string Profile_Caption(const Scenario_Document& document, const Horizon_Grid& grid)
{
    double sum = 0;
    std::string empty;
    for (std::size_t h = 0; h < grid.Cells.size(); ++h) {
        const double thickness = Val(grid.Cells[h][Thickness_Column]);
        sum += thickness;
        if (thickness == 0)
            empty += "\nHorizon " + std::to_string(h + 1) + " has no thickness.";
    }
    if (!std::isfinite(sum))
        return {};
    const std::string caption = "Sum of thickness: " + General_Text(sum) + " cm";
    const std::string core =
        sum == document.SZE_Core_Depth ? "" : ", core depth: " + General_Text(document.SZE_Core_Depth) + " cm";
    return caption + core + empty;
}

std::optional<Refusal> Check_Horizon_Cells(const Scenario_Document& document, const Horizon_Grid& grid)
{
    for (std::size_t h = 0; h < grid.Cells.size() && Direct_Input(document); ++h) {
        if (Val(grid.Cells[h][Wilting_Column]) > Val(grid.Cells[h][Capacity_Column]))
            return Refusal{
                {"Data Check", "Horizon " + std::to_string(h + 1) + ": Wilting point must not exceed field capacity"},
                "Grid_nhor"};
    }
    return std::nullopt;
}

std::optional<double> Take_Over_Horizons(Scenario_Edit edit, const Horizon_Grid& grid)
{
    auto& document = edit.Document;
    const auto columns = Columns_Of(document);
    document.SZE_Horizons = grid.Cells.size();
    document.Horizons.resize(grid.Cells.size());
    double sum = 0;
    for (std::size_t h = 0; h < grid.Cells.size(); ++h) {
        for (std::size_t c = 0; c < columns.size(); ++c)
            Store(document.Horizons[h], columns[c], grid.Cells[h][c]);
        sum += document.Horizons[h].SZE_Hor_Thickness.Number();
    }
    edit.Changed = true;
    return sum == document.SZE_Core_Depth ? std::nullopt : std::optional(sum);
}

} // namespace orvel
