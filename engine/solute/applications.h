#pragma once

#include "core/session.h"
#include "engine/input/crop.h"
#include "engine/input/findings.h"
#include "engine/input/run_control.h"

#include <array>
#include <string>
#include <vector>

namespace orvel::engine {

// An application at its day.
struct Planned_Application {
    int Day = 0; // number of the day
    Date On;
    double Hour = 0;           // 0 to 24
    double Rate = 0;           // kg/ha
    double Depth = 0;          // cm
    double Plant_Share = 0;    // 0 to 1
    double Poorly_Exposed = 0; // share of the deposit on the plant
};

// The block of the pesticide document that a location uses; a location without one uses block 0 (note).
int Application_Block(const Pesticide_Document& pesticide, const std::string& location_code, Findings& findings);

// The applications of the simulated period in the order of their days; what is wrong goes to the findings (errors 42,
// 43, 44).
std::vector<Planned_Application> Plan_Applications(const Pesticide_Document& pesticide, int block,
                                                   const Scenario_Document& scenario,
                                                   const std::vector<Crop_Period>& rotation, const Calendar& dates,
                                                   int first_day, int last_day, Findings& findings);

// The days of the crops' events, for dates that are relative to them.
class Crop_Events {
public:
    Crop_Events(const std::vector<Crop_Period>& rotation, const Calendar& dates);

    // The day of an event (0 to 2: first emergence, maturation, harvest of the year, 3 to 5: the second one) in a year;
    // where the year lacks it, that of the nearest later year moved there, and `moved` is set. Nothing is No_Day.
    int Day_Of(int reference, int year, bool& moved) const;

private:
    const Calendar* Dates;
    std::array<std::vector<int>, 3> Days; // emergences, maturations, harvests in their order
};

} // namespace orvel::engine
