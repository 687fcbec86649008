#pragma once

#include "core/message.h"

#include <string_view>

namespace orvel {

// The date-coded release of this build.
constexpr std::string_view Release_Date = "20120312";

// What to tell of the page that lists the current package: its file name ends in the release's date, YYYYMMDD, before
// ".zip". A page without such a name, or an empty one, is a connection problem.
Message Evaluate_Update_Page(std::string_view page);

// The message for a fetch that failed, and for a build without an address.
Message Connection_Problem();
Message No_Update_Address();

} // namespace orvel
