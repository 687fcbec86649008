#include "engine/solute/fate.h"

#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

double Temperature_Factor(double t, double reference, double q10)
{
    return t < 0 ? 0 : Steady_Power(q10, (t - reference) / 10);
}

double Reference_Moisture(const Solute_Arrow& arrow, double field_capacity)
{
    if (arrow.Moist_Rel > 0)
        return arrow.Moist_Rel / 100 * field_capacity;
    return arrow.Moist_Abs > 0 ? arrow.Moist_Abs / 100 : 0;
}

double Moisture_Factor(double theta, double field_capacity, double reference, double exponent)
{
    return reference > 0 ? Steady_Power(std::min(theta, field_capacity) / reference, exponent) : 1;
}

double Depth_Factor(const Solute_Setup& setup, const Solute_Substance& substance, const Solute_Arrow& arrow,
                    int compartment)
{
    if (substance.Depth_Mode == 0)
        return setup.Biodegradation[compartment];
    if (substance.Depth_Mode == 1)
        return 1;
    double factor = 0;
    for (int h = 0; h < setup.Horizons; ++h)
        factor +=
            setup.Horizon_Share[static_cast<std::size_t>(compartment) * setup.Horizons + h] * arrow.Horizon_Factor[h];
    return factor;
}

double Photolysis_Share(double top, double bottom)
{
    constexpr double depth = 0.1; // cm
    return (Steady_Exp(-top / depth) - Steady_Exp(-bottom / depth)) * depth / (bottom - top);
}

double Photolysis_Rate(const Solute_Arrow& arrow, double radiation, double cover)
{
    if (arrow.Photo_Rate <= 0 || arrow.Photo_Reference <= 0)
        return 0;
    const double watts = radiation * 1000 / 86400;
    return arrow.Photo_Rate * (1 - cover) * watts / arrow.Photo_Reference;
}

} // namespace orvel::engine
