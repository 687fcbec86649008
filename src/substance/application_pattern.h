#pragma once

#include "core/session.h"

namespace orvel {

// The number of application years of a regular pattern, 1 to 3: 26, 23 or 22.
constexpr int Cycles_Of_Pattern(int pattern)
{
    return pattern == 1 ? 26 : pattern == 2 ? 23 : 22;
}

// The years that a pattern simulates: 26, 46 or 66, and 6 for an irregular one.
constexpr int Years_Of_Pattern(int pattern)
{
    return 20 * pattern + 6;
}

// Finds the pattern of a location from its list of applications, 0 to 9, and sets App_Pattern and App_Per_Year of that
// location. In relative mode the shared list counts. A location without 22 applications, or whose years differ in date,
// rate or depth, is irregular (0); the years themselves and the interception are not compared, and a fraction poorly
// exposed other than 0 makes any list irregular.
void Check_Pattern(const Pesticide_Document& document, Editor_State& editor, int location);

} // namespace orvel
