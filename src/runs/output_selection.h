#pragma once

#include "core/session.h"

namespace orvel {

// The time series requested of the engine: three options, and which controls a row of the dialog shows.

enum class Output_Option { Minimum = 0, Recommended = 1, User_Specific = 2 };

Output_Selection Start_Output(); // at the start of the program: not the recommended table
Output_Selection Minimum_Output();
Output_Selection Recommended_Output();

// The option that matches a selection: Recommended only for the whole table, Minimum for any selection whose first slot
// is the leachate at 1 m.
Output_Option Option_Of_Output(const Output_Selection& output);

// Whether a variable, 0 to 28, has a substance or a depth, so that its row shows the control.
bool Substance_Visible(int variable);
bool Depth_Visible(int variable);

} // namespace orvel
