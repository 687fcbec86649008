#pragma once

#include "core/message.h"
#include "core/version.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// The message for a page that lists the current package, whose file name ends in its release date, YYYYMMDD, and
// ".zip". `own` is the date of this program. An empty page or one without such a name counts as a connection problem.
Message Evaluate_Update_Page(std::string_view page, std::string_view own = Release_Date);

// The message for a failed fetch.
Message Connection_Problem();

// A file of the installation that its distributor fills: its first line is the address, by https, of the page that
// lists the current package.
constexpr std::string_view Update_File = "update.txt";

// The address; empty if there is no such file, or none that can be trusted.
std::string Update_Address(const std::filesystem::path& installation);

} // namespace orvel
