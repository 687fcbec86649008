#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Bytes of Windows-1252 as XML text in UTF-8, escaped for elements and for attributes in either kind of quotes. Control
// characters, which XML does not allow, become blanks.
std::string Xml_Text(std::string_view bytes);

} // namespace orvel
