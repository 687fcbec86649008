#pragma once

#include "core/message.h"
#include "core/version.h"

#include <string_view>

namespace orvel {

// The message for a page that lists the current package, whose file name ends in its release date, YYYYMMDD, and
// ".zip". `own` is the date of this program. An empty page or one without such a name counts as a connection problem.
Message Evaluate_Update_Page(std::string_view page, std::string_view own = Release_Date);

// The messages for a failed fetch and for a build without an address.
Message Connection_Problem();
Message No_Update_Address();

} // namespace orvel
