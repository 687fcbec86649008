#pragma once

#include "engine/input/calendar.h"
#include "engine/input/findings.h"
#include "engine/input/run_control.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::engine {

// One day of climate, gaps filled.
struct Climate_Day {
    int Month = 0, Day = 0;
    double Rain = 0;                                            // cm
    double Evaporation = 0;                                     // cm, negative where it is missing
    double Temperature_14 = 0, Temperature = 0, Difference = 0; // degC
    double Humidity = 0;                                        // % at 14 h
    double Radiation = 0;                                       // kJ/m2
};

// The climate of the run: day number d is Days[d - First_Day].
struct Climate {
    Calendar Dates;
    int First_Day = 1, Last_Day = 0;
    std::vector<Climate_Day> Days;
    double First_Year_Mean = 0;      // degC, of the first file, without shift
    std::vector<std::string> Titles; // one a year

    const Climate_Day& On(int day) const { return Days[static_cast<std::size_t>(day - First_Day)]; }
};

// Reads the days of one file: rows of the same date are merged, gaps filled, ranges checked (errors 51, 52). Latitude
// in degrees.
std::vector<Climate_Day> Read_Climate_Days(std::string_view bytes, std::string_view name, double latitude,
                                           std::string& title, Findings& findings);

// Joins the years, cuts them to the simulated period and checks for missing days (error 53).
Climate Assemble_Climate(const Run_Control& control, const std::vector<const std::vector<Climate_Day>*>& years,
                         Findings& findings);

// Saturation vapour pressure over water, hPa, at a temperature in degC (Tetens; Murray 1967 J. Appl. Meteorol. 6:203).
double Saturation_Pressure(double temperature);

// Solar declination, rad (Allen et al. 1998, FAO-56 eq. 24), and day length, h (eq. 34). Latitude in degrees.
double Declination(int day_of_year);
double Day_Length(double latitude, int day_of_year);

// Radiation at the top of the atmosphere, MJ/(m2 d) (FAO-56 eq. 21). Latitude in degrees.
double Extraterrestrial_Radiation(double latitude, int day_of_year);

// Potential evapotranspiration, cm/d: Hamon 1961 (J. Hydraul. Div. ASCE 87:107) before the crop factor, temperature in
// degC and day length in h; Haude 1955 (Mitt. Dt. Wetterd. 11; DIN 19685) with the factor of the month in mm/hPa,
// temperature in degC and humidity in % at 14 h, at most 0.7.
double Hamon_Evapotranspiration(double temperature, double day_length);
double Haude_Evapotranspiration(double factor, double temperature_14, double humidity);

// Monthly factors of the Haude equation, mm/hPa, by crop number; 0 for no crop.
using Haude_Table = std::map<int, std::array<double, 12>>;
Haude_Table Read_Haude(std::string_view bytes, Findings& findings);
const std::array<double, 12>& Haude_Row(const Haude_Table& table,
                                        int crop_number); // built-in grass or bare-soil factors if the row is missing

} // namespace orvel::engine
