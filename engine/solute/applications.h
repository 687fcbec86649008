#pragma once

#include "core/session.h"
#include "engine/input/crop.h"
#include "engine/input/findings.h"
#include "engine/input/run_control.h"

#include <array>
#include <string>
#include <vector>

namespace orvel::engine {

// An application on its day.
struct Planned_Application {
    int Day = 0; // day number
    Date On;
    double Hour = 0;           // 0 to 24
    double Rate = 0;           // kg/ha
    double Depth = 0;          // cm
    double Plant_Share = 0;    // 0 to 1
    double Poorly_Exposed = 0; // share of the deposit on the plant
};

// The application block of the pesticide document for a location; without one of its own a location uses block 0
// (note).
int Application_Block(const Pesticide_Document& pesticide, const std::string& location_code, Findings& findings);

// The applications in the simulated period, ordered by day; faults go to the findings (errors 42, 43, 44).
std::vector<Planned_Application> Plan_Applications(const Pesticide_Document& pesticide, int block,
                                                   const Scenario_Document& scenario,
                                                   const std::vector<Crop_Period>& rotation, const Calendar& dates,
                                                   int first_day, int last_day, Findings& findings);

// The days of crop events, for dates given relative to them.
class Crop_Events {
public:
    Crop_Events(const std::vector<Crop_Period>& rotation, const Calendar& dates);

    // The day of an event in a year (0 to 2: first emergence, maturation, harvest of the year; 3 to 5: the second). If
    // the year lacks the event, the day of the nearest later year is moved into this one and `moved` is set. No_Day if
    // there is none.
    int Day_Of(int reference, int year, bool& moved) const;

private:
    const Calendar* Dates;
    std::array<std::vector<int>, 3> Days; // emergences, maturations, harvests, each in ascending order
};

} // namespace orvel::engine
