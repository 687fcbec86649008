#include "engine/solute/extraction.h"

#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

std::vector<double> Interaction_Weights(const std::vector<double>& thickness, double depth)
{
    constexpr double steepness = 3;
    std::vector<double> weights(thickness.size(), 0.0);
    double top = 0;
    for (std::size_t i = 0; i < thickness.size() && top < depth; ++i) {
        const double bottom = std::min(top + thickness[i], depth);
        weights[i] =
            (Steady_Exp(-steepness * top / depth) - Steady_Exp(-steepness * bottom / depth)) / Steady_Lost(steepness);
        top += thickness[i];
    }
    return weights;
}

double Carried_Loss(double mass, double carried)
{
    return mass > 0 && carried > 0 ? mass * Steady_Lost(carried / mass) : 0;
}

void Mix_Soil(double* mass, int stride, const std::vector<double>& thickness, const std::vector<double>& density,
              double depth)
{
    double total = 0, soil = 0, top = 0;
    std::size_t reached = 0;
    const auto share = [&](std::size_t i) { return std::min((depth - top) / thickness[i], 1.0); };
    for (; reached < thickness.size() && top < depth; ++reached) {
        total += share(reached) * mass[reached * stride];
        soil += share(reached) * thickness[reached] * density[reached];
        top += thickness[reached];
    }
    top = 0;
    for (std::size_t i = 0; i < reached; ++i) {
        const double mixed = share(i);
        mass[i * stride] = (1 - mixed) * mass[i * stride] + total * mixed * thickness[i] * density[i] / soil;
        top += thickness[i];
    }
}

} // namespace orvel::engine
