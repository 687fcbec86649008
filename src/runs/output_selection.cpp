#include "runs/output_selection.h"

#include "core/output_variables.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int One_Metre = 100;

constexpr Output_Selection Recommended_Slots = {{
    {Variable::PRSN, 0},
    {Variable::TETD, 0},
    {Variable::INFL, One_Metre},
    {Variable::RUNF, 0},
    {Variable::THET, 0},
    {Variable::THET, 30},
    {Variable::TEMP, 0},
    {Variable::TEMP, 30},
    {Variable::TPAP, 0},
    {Variable::TDKF, 0},
    {Variable::TUPF, 0},
    {Variable::TPST, 5},
    {Variable::PFLX, One_Metre},
    {Variable::RFLX, 0},
    {Variable::LEAC, One_Metre},
}};

constexpr Output_Selection Without(Output_Selection slots, int variable)
{
    const auto rest = std::remove_if(slots.begin(), slots.end(),
                                     [variable](const Output_Slot& slot) { return slot.Out_Var == variable; });
    std::fill(rest, slots.end(), Output_Slot{});
    return slots;
}

constexpr Output_Selection Start_Slots = Without(Recommended_Slots, Variable::TPST);

// Compares only the depths that are not 0 in the recommended table, and no substances.
bool Is_Recommended(const Output_Selection& output)
{
    for (std::size_t i = 0; i < output.size(); ++i) {
        const auto& wanted = Recommended_Slots[i];
        if (output[i].Out_Var != wanted.Out_Var || (wanted.Out_Depth != 0 && output[i].Out_Depth != wanted.Out_Depth))
            return false;
    }
    return true;
}

} // namespace

Output_Selection Start_Output()
{
    return Start_Slots;
}

Output_Selection Minimum_Output()
{
    return {{{Variable::LEAC, One_Metre}}};
}

Output_Selection Recommended_Output()
{
    return Recommended_Slots;
}

Output_Option Option_Of_Output(const Output_Selection& output)
{
    if (Is_Recommended(output))
        return Output_Option::Recommended;
    if (output[0].Out_Var == Variable::LEAC && output[0].Out_Depth == One_Metre)
        return Output_Option::Minimum;
    return Output_Option::User_Specific;
}

bool Substance_Visible(int variable)
{
    return Output_Variable_Of(variable).Has_Substance;
}

bool Depth_Visible(int variable)
{
    return Output_Variable_Of(variable).Has_Depth;
}

} // namespace orvel
