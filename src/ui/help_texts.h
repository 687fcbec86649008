#pragma once

#include "core/session.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The texts of the help assistant. In its file a record is a head line "XXX" and a number, then the lines of the text;
// a line that is exactly "XXX" ends the file. Texts count by their position; of the numbers only the last one matters:
// it is the number of the last text.

// The texts, each of their lines ended by CR LF.
std::vector<std::string> Parse_Help_Texts(std::string_view bytes);

// Reads Assystant.txt of the installation. A missing or unreadable file gives no texts and no message.
void Load_Help_Texts(Session& session);

// The text of a number; empty beyond the last one.
std::string_view Help_Text_Of(const Session& session, int number);

} // namespace orvel
