#pragma once

#include "installation/demo_tables.h"

#include <string>
#include <vector>

namespace orvel {

// Generated weather: wet days by a two-state Markov chain with gamma amounts (Richardson 1981, Water Resour. Res.
// 17:182; parameters from the month's rain by Geng et al. 1986, Agric. For. Meteorol. 36:363), temperature by a
// first-order autoregression, evaporation and radiation from temperatures (Hargreaves & Samani 1982, 1985). It
// resembles the site's climate but is not measured.

struct Weather_Day {
    int Day = 0, Month = 0, Year = 0;  // the year counts from 1; every fourth has a 29 February
    double Rain = 0, Evaporation = 0;  // mm
    double Temp_14 = 0, Temp_Mean = 0; // degC; at 14 h, daily mean
    double Temp_Diff = 0;              // Tmax - Tmin, degC
    double Humidity = 0;               // relative, at 14 h, %
    double Radiation = 0;              // MJ/m2
    bool operator==(const Weather_Day&) const = default;
};

// The days of the years 1 to `years`. A day's weather depends only on the site, not on `years`.
std::vector<Weather_Day> Demo_Weather(const Demo_Site& site, const Monthly_Climate& climate, int years);

// Days of a month of the demonstration's calendar.
int Days_In_Month(int month, int year);

// The bytes of the climate files, one per year.
std::vector<std::string> Format_Weather(const Demo_Site& site, const std::vector<Weather_Day>& days);

// The bytes of the daily diagram's calendar: running number, day, month and year of every day of `years` years.
std::string Format_Calendar(int years);

} // namespace orvel
