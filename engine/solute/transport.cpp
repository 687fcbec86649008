#include "engine/solute/transport.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

int Sub_Step_Count(double d, int compartments, const double* flux, const double* thickness, const double* theta_start,
                   const double* theta_end)
{
    double fastest = 0;
    for (int i = 0; i < compartments; ++i)
        fastest = std::max(fastest, flux[i + 1] / (0.95 * thickness[i] * std::min(theta_start[i], theta_end[i])));
    const double count = std::ceil(d * fastest);
    return static_cast<int>(std::clamp(count, 1.0, static_cast<double>(Most_Sub_Steps)));
}

double Volatilisation_Conductance(double boundary_layer, double air_diffusion, double thickness, double air_tortuosity,
                                  double water_tortuosity, double kaw)
{
    if (kaw <= 0 || air_diffusion <= 0)
        return 0;
    const double soil = air_diffusion * air_tortuosity + Water_Diffusion * water_tortuosity / kaw;
    return soil > 0 ? 1 / (boundary_layer / air_diffusion + 0.5 * thickness / soil) : 0;
}

} // namespace orvel::engine
