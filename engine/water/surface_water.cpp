#include "engine/water/surface_water.h"

#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Least_Amount = 1e-12; // cm

} // namespace

double Snow_Melt(double snow, double factor, double temperature)
{
    return std::min(snow, factor * std::max(temperature, 0.0));
}

double Dry_Curve_Number(double mean)
{
    return 4.2 * mean / (10 - 0.058 * mean);
}

double Wet_Curve_Number(double mean)
{
    return 23 * mean / (10 + 0.13 * mean);
}

double Curve_Retention(double curve_number)
{
    return 2.54 * (1000 / curve_number - 10);
}

double Retention_At(double mean_curve_number, double relative_moisture)
{
    const double w = std::clamp(relative_moisture, 0.0, 1.0);
    const double mean = Curve_Retention(mean_curve_number);
    if (w <= 0.5)
        return std::lerp(Curve_Retention(Dry_Curve_Number(mean_curve_number)), mean, 2 * w);
    return std::lerp(mean, Curve_Retention(Wet_Curve_Number(mean_curve_number)), 2 * w - 1);
}

double Curve_Runoff(double supply, double retention)
{
    const double s = std::max(retention, 0.0), excess = supply - 0.2 * s;
    return excess > 0 ? excess * excess / (supply + 0.8 * s) : 0;
}

Soil_Loss Soil_Loss_Of(double runoff, double area, double duration, const Soil_Loss_Factors& factors)
{
    constexpr double shortest_storm = 0.5; // h
    Soil_Loss result;
    const double square_km = area / 100;
    result.Concentration_Time = 0.76 * Steady_Power(square_km, 0.38);
    if (runoff <= 0 || area <= 0)
        return result;
    const double peak_time = std::max(duration, shortest_storm) / 2 + 0.6 * result.Concentration_Time;
    result.Peak_Flow = 2.08 * square_km * runoff / peak_time;
    const double volume = 100 * area * runoff; // m3
    result.Loss = 11.8 * Steady_Power(volume * result.Peak_Flow, 0.56) * factors.Erodibility * factors.Slope *
                  factors.Cover * factors.Practice;
    if (result.Loss > 0)
        result.Enrichment = std::max(1.0, Steady_Exp(2 - 0.2 * Steady_Log(1000 * result.Loss / area)));
    return result;
}

Canopy_Step Canopy_Day(double store, double rain, double cover, double capacity, double demand)
{
    Canopy_Step step;
    step.Store = std::min(store + cover * rain, capacity);
    step.Throughfall = rain - (step.Store - store);
    if (step.Throughfall < Least_Amount) { // rounding
        step.Store = store + rain;
        step.Throughfall = 0;
    }
    step.Evaporated = std::min(demand, step.Store);
    step.Store -= step.Evaporated;
    return step;
}

} // namespace orvel::engine
