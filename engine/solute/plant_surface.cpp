#include "engine/solute/plant_surface.h"

#include "engine/math/steady_math.h"
#include "engine/solute/sorption.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

double Plant_Fraction(int method, bool crop, double cover, double filtration, double dry_mass, double percent)
{
    if (method == 4)
        return std::clamp(percent / 100, 0.0, 1.0);
    if (!crop || method < 2)
        return 0;
    const double fraction = method == 2 ? cover : Steady_Lost(filtration * dry_mass);
    return std::clamp(fraction, 0.0, 1.0);
}

double Leaf_Volatilisation(const Solute_Volatilisation& volatilisation, double molmass, double laminar_layer, double t)
{
    if (laminar_layer <= 0)
        return 0;
    return Air_Diffusion(volatilisation, t) / laminar_layer * Saturated_Vapour(volatilisation, molmass, t) /
           Ug_Cm2_Per_Kg_Ha;
}

Leaf_Rates Rates_Of_Leaf(const Solute_Setup& setup, const Solute_Day& day, bool poorly_exposed, double length)
{
    const auto& plant = setup.Plant;
    const auto relative = [&](double poor) { return poorly_exposed ? poor : 1.0; };
    const double watts = day.Radiation * 1000 / 86400;
    Leaf_Rates rates;
    rates.Decay = plant.Decay;
    rates.Penetration = relative(day.Poor_Penetration) * plant.Penetration;
    if (plant.Reference_Radiation > 0)
        rates.Photodegradation = relative(day.Poor_Photo) * plant.Photodegradation * watts / plant.Reference_Radiation;
    rates.Volatilisation =
        relative(day.Poor_Volatilisation) * Leaf_Volatilisation(setup.Volatilisation, setup.Substances.front().Molmass,
                                                                plant.Laminar_Layer, day.Air_Temperature);
    rates.Washed_Off = Steady_Lost(relative(day.Poor_Washoff) * plant.Washoff * day.Plant_Water * length);
    return rates;
}

Leaf_Losses Step_Leaf(double& pool, const Leaf_Rates& rates, double length)
{
    Leaf_Losses losses;
    losses.Washed_Off = pool * rates.Washed_Off;
    pool -= losses.Washed_Off;
    const double all = rates.Decay + rates.Photodegradation + rates.Penetration + rates.Volatilisation;
    if (all <= 0)
        return losses;
    const double lost = pool * Steady_Lost(all * length);
    losses.Decayed = lost * (rates.Decay + rates.Photodegradation) / all;
    losses.Penetrated = lost * rates.Penetration / all;
    losses.Volatilised = lost * rates.Volatilisation / all;
    pool -= lost;
    return losses;
}

} // namespace orvel::engine
