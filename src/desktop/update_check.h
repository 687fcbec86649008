#pragma once

#include "core/message.h"
#include "core/version.h"

#include <string_view>

namespace orvel {

// The answer to a page that lists the current package, whose file name ends in its release date, YYYYMMDD, and ".zip".
// `own` is the date of this program. A page without such a name, or an empty one, is a connection problem.
Message Evaluate_Update_Page(std::string_view page, std::string_view own = Release_Date);

// For a fetch that failed, and for a build without an address.
Message Connection_Problem();
Message No_Update_Address();

} // namespace orvel
