#include "runs/output_selection.h"

#include "core/output_variables.h"

namespace orvel {

namespace {

constexpr int One_Metre = 100;

constexpr Output_Selection Start_Slots = {{{1, 0},
                                           {2, 0},
                                           {3, 100},
                                           {4, 0},
                                           {6, 0},
                                           {6, 30},
                                           {7, 0},
                                           {7, 30},
                                           {8, 0},
                                           {9, 0},
                                           {12, 0},
                                           {20, 100},
                                           {21, 0},
                                           {23, 100}}};
constexpr Output_Selection Recommended_Slots = {{{1, 0},
                                                 {2, 0},
                                                 {3, 100},
                                                 {4, 0},
                                                 {6, 0},
                                                 {6, 30},
                                                 {7, 0},
                                                 {7, 30},
                                                 {8, 0},
                                                 {9, 0},
                                                 {12, 0},
                                                 {14, 5},
                                                 {20, 100},
                                                 {21, 0},
                                                 {23, 100}}};

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
