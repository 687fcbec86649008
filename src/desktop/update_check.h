#pragma once

#include "core/message.h"
#include "core/version.h"

#include <string_view>

namespace orvel {

// What to tell of the page that lists the current package: its file name ends in the release's date, YYYYMMDD, before
// ".zip". A page without such a name, or an empty one, is a connection problem. `own` is this release.
Message Evaluate_Update_Page(std::string_view page, std::string_view own = Release_Date);

// The message for a fetch that failed, and for a build without an address.
Message Connection_Problem();
Message No_Update_Address();

} // namespace orvel
