#include "engine/water/grid.h"

#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Solid_Density = 2.65; // g/cm3
constexpr double Residual_Water = 0.01;
constexpr double Carbon_To_Matter = 1.724;
constexpr double Topsoil_Depth = 25; // cm; a horizon that begins above it is topsoil
constexpr int Most_Compartments = 400;

// Boundaries within the surface layer, cm: as fine as light, vapour and an applied film at the surface, coarser below.
constexpr double Surface_Cuts[] = {0.05, 0.1, 0.2, 0.35, 0.5, 0.75, 1, 1.5, 2, 2.5, 3, 4, 5};
constexpr double Least_Piece = 0.3; // of the distance between two cuts; a smaller piece is not cut off
constexpr double Same_Depth = 1e-9; // cm

struct Layer {
    double Top = 0, Bottom = 0;
    double Density = 0, Water = 0, Sand = 0, Clay = 0, pH = 0, Carbon = 0, Dispersion = 0, Drainage = 0,
           Biodegradation = 0;
    Horizon_Water Retention;
};

Horizon_Water Retention_Of(const Scenario_Horizon& horizon, int flag, double top)
{
    if (flag == 0)
        return {horizon.SZE_Hor_FC.Number(), horizon.SZE_Hor_WP.Number()};
    const double sand = horizon.SZE_Hor_Sand.Number(), clay = horizon.SZE_Hor_Clay,
                 density = horizon.SZE_Hor_Bulk_Density.Number();
    const double matter = Carbon_To_Matter * horizon.SZE_Hor_OC.Number();
    Horizon_Water water;
    if (flag == 1) {
        water = Rawls_Functions(sand, clay, matter);
    } else {
        const auto curve = Woesten_Functions(clay, 100 - sand - clay, matter, density, top < Topsoil_Depth);
        water = {Water_Content(curve, 100), Water_Content(curve, 16000)};
    }
    const double most = 1 - density / Solid_Density - 0.01;
    water.Wilting_Point = std::clamp(water.Wilting_Point, 0.005, std::max(0.005, most - 0.02));
    water.Field_Capacity = std::max(std::min(water.Field_Capacity, most), water.Wilting_Point + 0.02);
    return water;
}

std::vector<Layer> Layers_Of(const Scenario_Document& scenario)
{
    const int flag = static_cast<int>(scenario.SZE_Hydraulic_Flag.Number());
    std::vector<Layer> layers;
    double top = 0;
    for (const auto& horizon : scenario.Horizons) {
        Layer layer;
        layer.Top = top;
        layer.Bottom = top + horizon.SZE_Hor_Thickness.Number();
        layer.Density = horizon.SZE_Hor_Bulk_Density.Number();
        layer.Retention = Retention_Of(horizon, flag, top);
        layer.Water = horizon.SZE_Hor_Soil_Water.Number() > 0 ? horizon.SZE_Hor_Soil_Water.Number()
                                                              : layer.Retention.Field_Capacity;
        layer.Sand = horizon.SZE_Hor_Sand.Number();
        layer.Clay = horizon.SZE_Hor_Clay;
        layer.pH = horizon.SZE_Hor_pH.Number();
        layer.Carbon = horizon.SZE_Hor_OC.Number();
        layer.Dispersion = horizon.SZE_Hor_Dispersion.Number();
        layer.Drainage = horizon.SZE_Hor_Drainage.Number();
        layer.Biodegradation = horizon.SZE_Hor_Biodeg;
        layers.push_back(layer);
        top = layer.Bottom;
    }
    if (!layers.empty())
        layers.back().Bottom = scenario.SZE_Core_Depth; // the sum of the thicknesses may be off by 0.01 cm
    return layers;
}

// Thickness to aim for, cm, in the part of the core that ends at depth `bottom` (cm).
double Target_Thickness(double bottom)
{
    if (bottom <= 5)
        return 0.5;
    if (bottom <= 30)
        return 1;
    if (bottom <= 100)
        return 2.5;
    return 5;
}

} // namespace

int Grid::Compartment_At(double depth) const
{
    const auto found = std::ranges::lower_bound(Bottom, depth - 1e-9);
    return std::min(static_cast<int>(found - Bottom.begin()), Count() - 1);
}

int Grid::Interface_Nearest(double depth) const
{
    // Halfway between two, the upper one; but not the surface, which no water has passed.
    int best = Interface_Below(1);
    for (int number = 2; number <= Document_Count(); ++number) {
        const int interface = Interface_Below(number);
        if (std::fabs(Depth_Of(interface) - depth) < std::fabs(Depth_Of(best) - depth) - Same_Depth)
            best = interface;
    }
    return depth < std::fabs(Depth_Of(best) - depth) - Same_Depth ? 0 : best;
}

const Compartment_Range& Grid::Document_At(double depth) const
{
    const int inner = Compartment_At(depth);
    return *std::ranges::lower_bound(Document, inner, {}, &Compartment_Range::Last);
}

Horizon_Water Rawls_Functions(double sand, double clay, double organic_matter)
{
    return {0.2576 - 0.0020 * sand + 0.0036 * clay + 0.0299 * organic_matter,
            0.0260 + 0.0050 * clay + 0.0158 * organic_matter};
}

Van_Genuchten Woesten_Functions(double clay, double silt, double organic_matter, double density, bool topsoil)
{
    const double C = std::max(clay, 1.0), S = std::max(silt, 1.0), OM = std::max(organic_matter, 0.1), D = density,
                 t = topsoil ? 1 : 0;
    const double saturated = 0.7919 + 0.001691 * C - 0.29619 * D - 0.000001491 * S * S + 0.0000821 * OM * OM +
                             0.02427 / C + 0.01113 / S + 0.01472 * Steady_Log(S) - 0.0000733 * OM * C -
                             0.000619 * D * C - 0.001183 * D * OM - 0.0001664 * t * S;
    const double ln_alpha = -14.96 + 0.03135 * C + 0.0351 * S + 0.646 * OM + 15.29 * D - 0.192 * t - 4.671 * D * D -
                            0.000781 * C * C - 0.00687 * OM * OM + 0.0449 / OM + 0.0663 * Steady_Log(S) +
                            0.1482 * Steady_Log(OM) - 0.04546 * D * S - 0.4852 * D * OM + 0.00673 * t * C;
    const double ln_n = -25.23 - 0.02195 * C + 0.0074 * S - 0.1940 * OM + 45.5 * D - 7.24 * D * D + 0.0003658 * C * C +
                        0.002885 * OM * OM - 12.81 / D - 0.1524 / S - 0.01958 / OM - 0.2876 * Steady_Log(S) -
                        0.0709 * Steady_Log(OM) - 44.6 * Steady_Log(D) - 0.02264 * D * C + 0.0896 * D * OM +
                        0.00718 * t * C;
    return {saturated, Steady_Exp(ln_alpha), 1 + Steady_Exp(ln_n)};
}

double Water_Content(const Van_Genuchten& curve, double suction_cm)
{
    return Residual_Water + (curve.Saturated - Residual_Water) *
                                Steady_Power(1 + Steady_Power(curve.Alpha * suction_cm, curve.N), 1 / curve.N - 1);
}

double Porosity_Of_Density(double density)
{
    return 1 - density / Solid_Density;
}

double Porosity(double density, double field_capacity)
{
    return std::max(Porosity_Of_Density(density), field_capacity + 0.01);
}

std::vector<double> Equal_Compartments(double core_depth, int count)
{
    return std::vector<double>(static_cast<std::size_t>(count), core_depth / count);
}

std::vector<double> Graded_Compartments(const std::vector<double>& horizon_bottoms, double core_depth)
{
    std::vector<double> breaks = {5, 30, 100, core_depth};
    breaks.insert(breaks.end(), horizon_bottoms.begin(), horizon_bottoms.end());
    std::ranges::sort(breaks);
    std::vector<double> cuts;
    for (const double depth : breaks) {
        if (depth > 1e-6 && depth <= core_depth + 1e-6 && (cuts.empty() || depth - cuts.back() > 1e-6))
            cuts.push_back(std::min(depth, core_depth));
    }
    for (double coarser = 1;; coarser *= 1.1) {
        std::vector<double> thickness;
        double top = 0;
        for (const double bottom : cuts) {
            const double parts = std::ceil((bottom - top) / (coarser * Target_Thickness(bottom)) - 1e-9);
            if (parts > Most_Compartments)
                thickness.resize(Most_Compartments + 1);
            else
                thickness.insert(thickness.end(), static_cast<std::size_t>(parts), (bottom - top) / parts);
            top = bottom;
        }
        if (static_cast<int>(thickness.size()) <= Most_Compartments || coarser > 1e9)
            return thickness;
    }
}

std::vector<double> Divide_Surface(const std::vector<double>& bottoms)
{
    std::vector<double> divided;
    double top = 0;
    for (const double bottom : bottoms) {
        double cut_above = 0;
        for (const double cut : Surface_Cuts) {
            const double least = Least_Piece * (cut - cut_above);
            cut_above = cut;
            const double above = divided.empty() ? 0 : divided.back();
            if (cut > top && cut - above >= least && bottom - cut >= least)
                divided.push_back(cut);
        }
        divided.push_back(bottom);
        top = bottom;
    }
    return divided;
}

namespace {

// Lower boundaries of the document's compartments.
std::vector<double> Document_Bottoms(const Scenario_Document& scenario, const std::vector<double>& horizon_bottoms)
{
    std::vector<double> bottoms;
    if (scenario.SZE_Delxflg == 0) {
        double bottom = 0;
        for (const double dz : Graded_Compartments(horizon_bottoms, scenario.SZE_Core_Depth))
            bottoms.push_back(bottom += dz);
        return bottoms;
    }
    for (int i = 1; i <= scenario.SZE_Layers; ++i)
        bottoms.push_back(scenario.SZE_Core_Depth * i / scenario.SZE_Layers);
    return bottoms;
}

// Tells which compartments each of the document's holds, and how many belong to the surface layer.
void Place_Document(Grid& grid, const std::vector<double>& document, bool layer)
{
    int first = 0;
    for (const double bottom : document) {
        int last = first;
        while (grid.Bottom[static_cast<std::size_t>(last)] < bottom - Same_Depth)
            ++last;
        grid.Document.push_back({first, last});
        if (layer && grid.Depth_Of(first) < Surface_Cuts[std::size(Surface_Cuts) - 1] - Same_Depth)
            grid.Surface = last + 1;
        first = last + 1;
    }
    grid.Surface = std::min(grid.Surface, static_cast<int>(grid.Bottom.size()) - 1);
}

} // namespace

Grid Build_Grid(const Scenario_Document& scenario, Surface_Layer surface)
{
    const std::vector<Layer> layers = Layers_Of(scenario);
    Grid grid;
    std::vector<double> bottoms;
    bottoms.reserve(layers.size());
    for (const Layer& layer : layers)
        bottoms.push_back(layer.Bottom);
    const std::vector<double> document = Document_Bottoms(scenario, bottoms);
    grid.Bottom = surface == Surface_Layer::With ? Divide_Surface(document) : document;
    // Equal compartments have one thickness to the last bit.
    const std::vector<double> equal = scenario.SZE_Delxflg == 0
                                          ? std::vector<double>()
                                          : Equal_Compartments(scenario.SZE_Core_Depth, scenario.SZE_Layers);
    Place_Document(grid, document, surface == Surface_Layer::With);
    for (const Compartment_Range& range : grid.Document) {
        for (int i = range.First; i <= range.Last; ++i)
            grid.Thickness.push_back(range.First == range.Last && !equal.empty()
                                         ? equal.front()
                                         : grid.Bottom[static_cast<std::size_t>(i)] - grid.Depth_Of(i));
    }
    double bottom = 0, best = 1e9;
    for (int i = 0; i < grid.Count(); ++i) {
        const double top = bottom, dz = grid.Thickness[static_cast<std::size_t>(i)];
        bottom = grid.Bottom[static_cast<std::size_t>(i)];
        double length = 0, mass = 0;
        std::vector<double> overlap;
        for (std::size_t h = 0; h < layers.size(); ++h) {
            double part = std::min(bottom, layers[h].Bottom) - std::max(top, layers[h].Top);
            part = part > 1e-9 * dz ? part : 0;
            overlap.push_back(part);
            length += part;
            mass += part * layers[h].Density;
        }
        if (length <= 0) {
            overlap.back() = length = dz;
            mass = dz * layers.back().Density;
        }
        const auto mean = [&](auto get) {
            double sum = 0;
            for (std::size_t h = 0; h < layers.size(); ++h)
                sum += overlap[h] * get(layers[h]);
            return sum / length;
        };
        grid.Density.push_back(mean([](const Layer& l) { return l.Density; }));
        grid.Field_Capacity.push_back(mean([](const Layer& l) { return l.Retention.Field_Capacity; }));
        grid.Wilting_Point.push_back(mean([](const Layer& l) { return l.Retention.Wilting_Point; }));
        grid.Initial_Water.push_back(mean([](const Layer& l) { return l.Water; }));
        grid.Sand.push_back(mean([](const Layer& l) { return l.Sand; }));
        grid.Clay.push_back(mean([](const Layer& l) { return l.Clay; }));
        grid.pH.push_back(mean([](const Layer& l) { return l.pH; }));
        grid.Dispersion.push_back(mean([](const Layer& l) { return l.Dispersion; }));
        grid.Drainage.push_back(mean([](const Layer& l) { return l.Drainage; }));
        grid.Biodegradation.push_back(mean([](const Layer& l) { return l.Biodegradation; }));
        grid.Porosity.push_back(Porosity(grid.Density.back(), grid.Field_Capacity.back()));
        double carbon = 0;
        for (std::size_t h = 0; h < layers.size(); ++h) {
            grid.Horizon_Share.push_back(overlap[h] * layers[h].Density / mass);
            carbon += grid.Horizon_Share.back() * layers[h].Carbon;
        }
        grid.Organic_Carbon.push_back(carbon);
        const double middle = (top + bottom) / 2;
        const auto at = std::ranges::find_if(layers, [middle](const Layer& l) { return middle <= l.Bottom; });
        grid.Horizon.push_back(1 + static_cast<int>(std::min(at, layers.end() - 1) - layers.begin()));
    }
    for (int number = 1; number <= grid.Document_Count(); ++number) {
        const double away = std::fabs(grid.Depth_Of(grid.Interface_Below(number)) - 100);
        if (away < best - Same_Depth) {
            best = away;
            grid.Top_Layers = number;
        }
    }
    return grid;
}

} // namespace orvel::engine
