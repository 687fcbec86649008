#include "core/numbers.h"
#include "engine/input/climate.h"
#include "engine/verification.h"
#include "engine/water/grid.h"
#include "engine/water/heat.h"
#include "engine/water/soil_water.h"
#include "engine/water/surface_water.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace orvel::engine {

// Expected values were worked out apart from the engine, from the closed forms of the cited sources.

TEST(Water_Verification, Case_13_Runoff_Follows_The_Curve_Number_And_The_Moisture)
{
    struct Row {
        double Curve, Retention, Dry, Mean, Wet;
    };
    constexpr std::array<Row, 4> rows = {{{70, 10.8857, 0, 0.58128, 1.86997},
                                          {74, 8.9243, 0.02559, 0.85153, 2.20159},
                                          {78, 7.1641, 0.13533, 1.18576, 2.55723},
                                          {85, 4.4824, 0.60655, 1.96124, 3.24043}}};
    for (const Row& row : rows) {
        const std::string name = "curve number " + std::to_string(static_cast<int>(row.Curve));
        Verify(13, name + ", retention (cm)", Curve_Retention(row.Curve), row.Retention, 1e-4);
        Verify(13, name + ", runoff of 5 cm on dry soil", Curve_Runoff(5, Retention_At(row.Curve, 0)), row.Dry, 1e-4);
        Verify(13, name + ", mean moisture", Curve_Runoff(5, Retention_At(row.Curve, 0.5)), row.Mean, 1e-4);
        Verify(13, name + ", wet soil", Curve_Runoff(5, Retention_At(row.Curve, 1)), row.Wet, 1e-4);
    }
    Verify(13, "curve number 75, runoff of 5.08 cm", Curve_Runoff(5.08, Retention_At(75, 0.5)), 0.96762, 1e-4);
}

TEST(Water_Verification, Case_14_Vapour_Pressure_And_Day_Length)
{
    constexpr std::array<std::pair<double, double>, 4> pressures = {
        {{0, 6.108}, {10, 12.2796}, {20, 23.3828}, {25, 31.6778}}};
    for (const auto& [temperature, expected] : pressures)
        Verify(14, "vapour pressure (hPa) at " + std::to_string(static_cast<int>(temperature)) + " degC",
               Saturation_Pressure(temperature), expected, 1e-3);
    constexpr std::array<std::pair<int, double>, 4> lengths = {
        {{15, 8.3266}, {80, 11.9521}, {172, 16.1469}, {355, 7.8533}}};
    for (const auto& [day, expected] : lengths)
        Verify(14, "day length (h) at 50 N, day " + std::to_string(day), Day_Length(50, day), expected, 1e-3);
}

TEST(Water_Verification, Case_15_Hamon)
{
    Verify(15, "20 degC, 12 h (cm)", Hamon_Evapotranspiration(20, 12), 0.24135, 1e-4);
    Verify(15, "20 degC, 50 N, day 172", Hamon_Evapotranspiration(20, Day_Length(50, 172)), 0.43697, 1e-4);
    Verify(15, "10 degC, 50 N, day 80", Hamon_Evapotranspiration(10, Day_Length(50, 80)), 0.13017, 1e-4);
    Verify(15, "2 degC, 50 N, day 15", Hamon_Evapotranspiration(2, Day_Length(50, 15)), 0.03736, 1e-4);
}

TEST(Water_Verification, Case_16_Haude)
{
    Verify(16, "0.28, 25 degC, 50 % (cm)", Haude_Evapotranspiration(0.28, 25, 50), 0.44349, 1e-4);
    Verify(16, "0.20, 3 degC, 85 %", Haude_Evapotranspiration(0.20, 3, 85), 0.02273, 1e-4);
    Verify(16, "0.29, 14 degC, 60 %", Haude_Evapotranspiration(0.29, 14, 60), 0.18544, 1e-4);
    Verify(16, "0.26, 38 degC, 15 %, cut at 0.7", Haude_Evapotranspiration(0.26, 38, 15), 0.7, 1e-4);
}

TEST(Water_Verification, Case_17_Snow_Melt_And_Restricted_Drainage)
{
    Verify(17, "3 degC on 5 cm of snow (cm)", Snow_Melt(5, 0.46, 3), 1.38, 1e-6);
    Verify(17, "3 degC on 1 cm of snow", Snow_Melt(1, 0.46, 3), 1, 1e-6);
    // AD 100 cm 0.05 (1 - exp(-1 / AD)), the water that 100 cm of soil give up in a day
    constexpr std::array<std::pair<double, double>, 4> drained = {
        {{0.1, 0.499977}, {0.5, 2.161662}, {1, 3.160603}, {5, 4.531731}}};
    for (const auto& [parameter, expected] : drained) {
        for (const int parts : {1, 20, 200}) {
            double flux = 0;
            for (int i = 0; i < parts; ++i)
                flux = Restricted_Outflow(flux, 0.05, 100.0 / parts, parameter, 0.15);
            Verify(17,
                   "0.05 above field capacity in 100 cm, parameter " + General_Text(parameter) + ", " +
                       std::to_string(parts) + " compartments",
                   flux, expected, 1e-6);
        }
    }
}

TEST(Water_Verification, Case_18_Pedotransfer)
{
    const Van_Genuchten curve = Woesten_Functions(25, 15, 4.5, 1.124447, true);
    Verify(18, "continuous functions, saturated water", curve.Saturated, 0.509898, 1e-5);
    Verify(18, "alpha (1/cm)", curve.Alpha, 0.054132, 1e-5);
    Verify(18, "n", curve.N, 1.169909, 1e-5);
    const Horizon_Water water = Rawls_Functions(40, 20, 2.5);
    Verify(18, "sand 40, clay 20, matter 2.5: field capacity", water.Field_Capacity, 0.32435, 1e-5);
    Verify(18, "wilting point", water.Wilting_Point, 0.1655, 1e-5);
}

TEST(Water_Verification, Case_19_Soil_Loss)
{
    const Soil_Loss loss = Soil_Loss_Of(1, 10, 2, {0.3, 1, 0.2, 1});
    Verify(19, "time of concentration (h)", loss.Concentration_Time, 0.31682, 1e-4);
    Verify(19, "peak flow (m3/s)", loss.Peak_Flow, 0.174776, 1e-4);
    Verify(19, "soil loss (t)", loss.Loss, 12.7592, 1e-4);
    Verify(19, "enrichment", loss.Enrichment, 1.7678, 1e-4);
}

// A yearly wave in a uniform soil: amplitude and delay by the damping depth.
TEST(Water_Verification, Case_21_Heat_Wave)
{
    constexpr double amplitude = 8, mean = 10, step = 0.01, bottom = 10;
    constexpr int nodes = static_cast<int>(bottom / step + 0.5), years = 6, days = 365 * years;
    std::vector<double> temperature(nodes, mean);
    const std::vector<double> thickness(nodes, step), conductivity(nodes, 1.2), capacity(nodes, 2.0e6);
    constexpr std::array<double, 3> depths = {0.25, 0.5, 1}, amplitudes = {7.225, 6.525, 5.323},
                                    delays = {5.9, 11.8, 23.7};
    std::array<double, 3> highest{}, day_of_highest{};
    for (int day = 1; day <= days; ++day) {
        const double surface = mean + amplitude * std::sin(2 * std::numbers::pi * day / 365);
        Conduct_Heat(temperature, thickness, conductivity, capacity, surface, 1.2 / (step / 2), 86400);
        for (std::size_t k = 0; k < depths.size() && day > days - 365; ++k) {
            const auto node = static_cast<std::size_t>(depths[k] / step);
            const double there = (temperature[node - 1] + temperature[node]) / 2 - mean;
            if (there > highest[k]) {
                highest[k] = there;
                day_of_highest[k] = day - (days - 365);
            }
        }
    }
    for (std::size_t k = 0; k < depths.size(); ++k) {
        const std::string where = " at " + std::to_string(depths[k]) + " m";
        Verify(21, "amplitude (degC)" + where, highest[k], amplitudes[k], 0.05);
        Verify(21, "delay (d)" + where, day_of_highest[k] - 365.0 / 4, delays[k], 0.6);
    }
}

} // namespace orvel::engine
