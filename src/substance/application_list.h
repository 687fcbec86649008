#pragma once

#include "core/session.h"

#include <algorithm>

namespace orvel {

// The number of applications of a location: its count truncated and limited to the slots. A text counts as its number.
inline int Applications_Of(const Pesticide_Document& document, int location)
{
    return static_cast<int>(std::clamp(document.App_Count.at(static_cast<std::size_t>(location)).Number(), 0.0,
                                       static_cast<double>(Last_Application)));
}

// The location under edit.
inline int Location_Of(const Editor_State& editor)
{
    return std::clamp<int>(editor.App_Current_Location, 0, Last_Location);
}

} // namespace orvel
