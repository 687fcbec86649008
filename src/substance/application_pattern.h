#pragma once

#include "core/session.h"

namespace orvel {

// The number of application years of a regular pattern (1 to 3): 26, 23 or 22.
constexpr int Cycles_Of_Pattern(int pattern)
{
    return pattern == 1 ? 26 : pattern == 2 ? 23 : 22;
}

// The years that a pattern simulates: 26, 46 or 66; 6 for an irregular one.
constexpr int Years_Of_Pattern(int pattern)
{
    return 20 * pattern + 6;
}

struct Application_Pattern {
    int Pattern = 0;  // 0 irregular, 1 every year, 2 every other year, 3 every third year
    int Per_Year = 0; // applications per application year, 0 if the list has no such number
};

// The pattern of a location (0 to 9), from its list of applications; in relative mode from the shared list. A location
// with fewer than 22 applications, or whose years differ in date, rate or depth, is irregular; the year numbers and the
// interception are not compared, and a non-zero poorly exposed fraction makes any list irregular.
Application_Pattern Pattern_Of_Location(const Pesticide_Document& document, int location);

// Sets App_Pattern, App_Cycles and App_Per_Year of the location under edit from its pattern.
void Check_Pattern(const Pesticide_Document& document, Editor_State& editor, int location);

} // namespace orvel
