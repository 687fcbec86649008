#pragma once

#include "output/plot_file.h"
#include "tables/daily_series.h"

namespace orvel {

// The period of a diagram, chosen by month and year for both its start and its end.

struct Period {
    Run_Month From, To;
    bool operator==(const Period&) const = default;
};

enum class Period_End { Begin, End };

// The years of a simulation, from the number of months in the head of its plot.orv; 0 if there are none.
int Years_Of_Plot(const Plot_Head& head);

// Moves the bound that was not changed if the start would lie after the end: the start moves to the new end; the end
// moves to the month after the new start, or to the start's own month at the end of the simulation.
Period Uncrossed(const Period& chosen, Period_End changed, int years);

} // namespace orvel
