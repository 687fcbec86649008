#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Bytes of Windows-1252 as text of an XML document in UTF-8, fit for elements and for attributes in either quotes.
// Control characters, which no such document may hold, become blanks.
std::string Xml_Text(std::string_view bytes);

} // namespace orvel
