#pragma once

#include "core/session.h"
#include "substance/location_lists.h"

#include <optional>

namespace orvel {

// The last year that is checked; a later one counts as an error of the sequence.
constexpr int Last_Checked_Year = 89;

// "Done": every application must come after the one before it. Absolute dates are checked at the locations of the
// visible list except the user-specific one, which is truncated at its first undefined date on saving; relative ones in
// the shared list, where neighbours share their reference point. On an error the location and the offending application
// become those under edit, and the refusal names the day control.
std::optional<Refusal> Check_Sequence(Pesticide_Edit edit, const Location_Lists& lists);

} // namespace orvel
