#include "engine/solute/sorption.h"

#include "core/pesticide_constants.h"
#include "engine/math/steady_math.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

constexpr double Gas_Constant = 8.314; // J/(mol K)
constexpr double Kelvin = 273.15;

double Horizon_Mean(const Solute_Setup& setup, const std::vector<double>& table, int compartment)
{
    double sum = 0;
    for (int h = 0; h < setup.Horizons; ++h)
        sum += setup.Horizon_Share[static_cast<std::size_t>(compartment) * setup.Horizons + h] * table[h];
    return sum;
}

} // namespace

double Neutral_Share(double ph, double pka)
{
    return 1 / (1 + Steady_Power(10.0, ph - pka));
}

double Koc_At_pH(const Solute_Substance& substance, double ph)
{
    if (substance.pKa >= No_Dissociation || substance.pKa <= 0)
        return substance.Koc;
    const double here = Neutral_Share(ph, substance.pKa), first = Neutral_Share(substance.pH, substance.pKa);
    if (substance.pH2 == No_Value)
        return substance.Koc * here / first;
    const double second = Neutral_Share(substance.pH2, substance.pKa);
    if (std::abs(first - second) < 1e-6)
        return substance.Koc;
    const double slope = (substance.Koc - substance.Koc2) / (first - second);
    const double ionised = std::max(substance.Koc - slope * first, 0.0);
    const double neutral = std::max(substance.Koc + slope * (1 - first), 0.0);
    return neutral * here + ionised * (1 - here);
}

double Air_Dry_Factor(double koc_change, double theta, double wilting_point)
{
    const double dryness = std::clamp((wilting_point - theta) / (0.5 * wilting_point), 0.0, 1.0);
    return dryness > 0 ? Steady_Power(koc_change, dryness) : 1;
}

double At_Temperature(const std::array<double, 2>& value, const std::array<double, 2>& temperature, double enthalpy,
                      double t)
{
    const double inverse = 1 / (t + Kelvin), first = 1 / (temperature[0] + Kelvin),
                 second = 1 / (temperature[1] + Kelvin);
    const bool two_points = value[0] > 0 && value[1] > 0 && temperature[0] != temperature[1];
    const double slope = two_points ? -Steady_Log(value[1] / value[0]) / (second - first) : enthalpy / Gas_Constant;
    return value[0] * Steady_Exp(-slope * (inverse - first));
}

double Henry_Constant(const Solute_Volatilisation& volatilisation, double molmass, double t)
{
    if (!volatilisation.Henry_Calculated)
        return At_Temperature(volatilisation.Henry, volatilisation.Temperature, volatilisation.Enthalpy, t);
    std::array<double, 2> henry{};
    for (int k = 0; k < 2; ++k) {
        if (volatilisation.Solubility[k] > 0)
            henry[k] = molmass * volatilisation.Vapour_Pressure[k] / volatilisation.Solubility[k];
    }
    return At_Temperature(henry, volatilisation.Temperature, volatilisation.Enthalpy, t);
}

double Vapour_Pressure(const Solute_Volatilisation& volatilisation, double t)
{
    return At_Temperature(volatilisation.Vapour_Pressure, volatilisation.Temperature, volatilisation.Enthalpy, t);
}

double Saturated_Vapour(const Solute_Volatilisation& volatilisation, double molmass, double t)
{
    const double pressure = volatilisation.Vapour_Pressure[0] > 0 ? Vapour_Pressure(volatilisation, t) : 0;
    return molmass * pressure / (Gas_Constant * (t + Kelvin));
}

double Solubility_In_Water(const Solute_Volatilisation& volatilisation, double t)
{
    return volatilisation.Solubility[0] > 0
               ? At_Temperature(volatilisation.Solubility, volatilisation.Temperature, 0, t)
               : 0;
}

double Saturating_Concentration(const Solute_Volatilisation& volatilisation, double molmass, double t)
{
    const double vapour = Saturated_Vapour(volatilisation, molmass, t);
    const double limit =
        vapour > 0 ? vapour / Air_Water_Ratio(volatilisation, molmass, t) : Solubility_In_Water(volatilisation, t);
    return limit > 0 ? limit : No_Saturation;
}

double Air_Water_Ratio(const Solute_Volatilisation& volatilisation, double molmass, double t)
{
    return Henry_Constant(volatilisation, molmass, t) / (Gas_Constant * (t + Kelvin));
}

double Air_Diffusion(const Solute_Volatilisation& volatilisation, double t)
{
    return 86400 * volatilisation.Diffusion_Air * Steady_Power((t + Kelvin) / (20 + Kelvin), 1.75);
}

Sorption_Base Sorption_Of(const Solute_Setup& setup, const Solute_Substance& substance, int compartment)
{
    Sorption_Base base;
    double k = 0, exponent = substance.Freundlich_Exponent;
    if (substance.Kd_From_Koc) {
        k = Koc_At_pH(substance, setup.pH[compartment]) * setup.Organic_Carbon[compartment] / 100;
    } else {
        k = Horizon_Mean(setup, substance.Horizon_Kd, compartment);
        exponent = Horizon_Mean(setup, substance.Horizon_Exponent, compartment);
    }
    base.Rho_K = setup.Density[compartment] * k;
    if (k == 0 || std::abs(exponent - 1) < 1e-12)
        return base;
    base.Exponent = exponent;
    base.Limit = std::max(substance.Freundlich_Limit / 1000, 1e-9);
    base.Limit_Power = Steady_Power(base.Limit, exponent - 1);
    return base;
}

double Freundlich(double c, double exponent, double limit)
{
    return c >= limit ? Steady_Power(c, exponent) : Steady_Power(limit, exponent - 1) * c;
}

} // namespace orvel::engine
