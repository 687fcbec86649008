#pragma once

#include <array>
#include <string_view>

namespace orvel {

// What the values of a variable are: states, flows (rates per day, which add up to amounts), or concentrations of a
// flow.
enum class Quantity { State, Flow, Flow_Concentration };

// A time series that the engine can write: its code, its name, the unit of the daily rate and of the summed amount (for
// a state both are the same), and the eight characters of its scale in the run control file. Texts are bytes of
// Windows-1252.
struct Output_Variable {
    std::string_view Out_Code, Out_Label;
    std::array<std::string_view, 2> Out_Unit;
    std::string_view Out_Scale;
    Quantity Kind = Quantity::State;
    bool Has_Depth = false, Has_Substance = false; // a request names a depth, a substance

    bool Is_Flow() const { return Kind == Quantity::Flow; }
};

// The numbers of the variables, named by their codes.
namespace Variable {
enum Number : int {
    None,
    PRSN,
    TETD,
    INFL,
    RUNF,
    ESLS,
    THET,
    TEMP,
    TPAP,
    TDKF,
    TDKQ,
    TDKN,
    TUPF,
    TVOX,
    TPST,
    QPST,
    NPST,
    DKFX,
    DKFQ,
    DKFN,
    PFLX,
    RFLX,
    EFLX,
    LEAC,
    SPST,
    TPSC,
    QPSC,
    NPSC,
    SPSC,
};
}

constexpr int Last_Output_Variable = Variable::SPSC;

// The variables by number, 1 to 28; number 0 is an empty slot.
extern const std::array<Output_Variable, Last_Output_Variable + 1> Output_Variables;

// The variable of any number; one outside the table counts as the nearest in it.
const Output_Variable& Output_Variable_Of(int number);

// The number of the variable with this code, 0 for an unknown one. Case-sensitive.
int Output_Variable_Number(std::string_view code);

} // namespace orvel
