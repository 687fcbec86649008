#pragma once

#include "output/plot_file.h"
#include "output/run_records.h"

#include <functional>
#include <string>
#include <vector>

namespace orvel {

constexpr int First_Evaluated_Day = 2191; // behind six years of warm-up
constexpr int Last_Evaluated_Day = 25000;

// The mean concentrations of one substance, fed line by line.
class Soil_Averages {
public:
    // The mean of a line; one of hour 24 closes its day. Throws File_Error for a day behind the last one.
    void Add(double mean, bool closes_day);
    // The actual maximum counts all lines; a window's averages count the days' closing values, and may begin in the
    // warm-up, whose days are 0. Of equal averages the earliest stays.
    std::array<TWA_Maximum, TWA_Window.size()> Maxima() const;
    int Days() const { return static_cast<int>(Sums.size()) - 1; } // closed so far

private:
    double Sum_To(int day) const
    {
        return day <= First_Evaluated_Day ? 0 : Sums[static_cast<std::size_t>(day - First_Evaluated_Day)];
    }

    std::vector<double> Sums = {0}; // of all days before, from the first evaluated one on
    TWA_Maximum Actual;
};

// Reads the lines behind the head, from the one behind day 2190, hour 24, on: per substance the mean over `depth`
// layers, of which the profile has 20. `year` is called with the days done, once a year. Throws File_Error for a
// head or days out of bounds.
std::vector<Soil_Averages> Scan_Soil_Profile(Line_Scanner& plot, const Plot_Head& head, int depth,
                                             const std::function<void(int)>& year);

// A day of the simulation as "15 May 8"; every fourth year has 366 days. The last day of a year comes out as day 0 of
// the next.
std::string Simulation_Date(int day);

} // namespace orvel
