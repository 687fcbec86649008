#pragma once

#include "core/session.h"
#include "substance/location_lists.h"

#include <optional>

namespace orvel {

// The years of a list that can be checked; a later one is told as an error of the sequence.
constexpr int Last_Checked_Year = 89;

// "Done": every application lies behind the one before it. Absolute dates are checked at the locations of the visible
// list but the user-specific one, which is cut at its first undefined date when it is saved; relative ones in the
// shared list, as far as neighbours share their reference point. On an error the location and the application that is
// too late in the list are those under edit, and the refusal names the control of the day.
std::optional<Refusal> Check_Sequence(Pesticide_Edit edit, const Location_Lists& lists);

} // namespace orvel
