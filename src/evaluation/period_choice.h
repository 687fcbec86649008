#pragma once

#include "output/plot_file.h"
#include "tables/daily_series.h"

namespace orvel {

// The period of a diagram, chosen by a month and a year for its begin and for its end.

struct Period {
    Run_Month From, To;
    bool operator==(const Period&) const = default;
};

enum class Period_End { Begin, End };

// The years of a simulation by the months that its plot.orv names; 0 without any.
int Years_Of_Plot(const Plot_Head& head);

// Moves the end that was not changed so that the period is not crossed: the begin goes to the new end, the end to the
// month behind the new begin, or to the begin's own month at the end of the simulation.
Period Uncrossed(const Period& chosen, Period_End changed, int years);

} // namespace orvel
