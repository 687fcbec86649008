#pragma once

#include <array>

namespace orvel {

// What the readers of a run's files give, row by row.

enum class Balance_View { Annual, Monthly };

struct Water_Balance_Row { // L/m2
    double Precipitation = 0, Irrigation = 0, Runoff = 0, Evapotranspiration = 0, Percolate = 0, Diff_Storage = 0;
};

struct Pesticide_Balance_Row { // g/ha; Application is the formation of a metabolite
    double Application = 0, Volatilisation = 0, Runoff = 0, Plant_Uptake = 0, Degradation = 0, Percolate = 0,
           Diff_Storage = 0;
};

// The two depths of the leachate tables.
enum class Depth { One_Metre, Core_Bottom };
constexpr std::array<Depth, 2> Depths = {Depth::One_Metre, Depth::Core_Bottom};

constexpr int Warm_Up_Years = 6; // at the start of a simulation, not evaluated

// Concentrations in the top layers of the soil: the actual maximum, and the maxima of averages over windows of days.
constexpr std::array<int, 11> TWA_Window = {0, 1, 2, 4, 7, 14, 21, 28, 42, 56, 100}; // days; 0 is the actual maximum
constexpr int Profile_Layers = 20;

struct TWA_Maximum {
    double Value = 0; // in the unit of the run's profile columns
    int Begin = 0;    // day of the simulation
};

// A day of the simulation's calendar: running number, day of the month, month, year from 1. In order of the numbers.
struct Run_Day {
    int Number = 0, Day = 0, Month = 0, Year = 0;
};

// A value of plot.orv as the engine scaled it, with the running number of its day and its hour, of which 24 closes the
// day.
struct Plot_Value {
    int Day = 0, Hour = 0;
    double Value = 0;
};

} // namespace orvel
