#pragma once

#include <array>
#include <string_view>

namespace orvel {

// A time series that the engine can write: its code, its name, the unit of the daily rate and of the summed amount (for
// a state both are the same), and the eight characters of its scale in the run control file. Texts are bytes of
// Windows-1252.
struct Output_Variable {
    std::string_view Out_Code, Out_Label;
    std::array<std::string_view, 2> Out_Unit;
    std::string_view Out_Scale;
};

constexpr int Last_Output_Variable = 28;

// The variables by their number, 1 to 28; number 0 is an empty slot.
extern const std::array<Output_Variable, Last_Output_Variable + 1> Output_Variables;

// The number of the variable with this code, 0 for an unknown one. The case counts.
int Output_Variable_Number(std::string_view code);

} // namespace orvel
