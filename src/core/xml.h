#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Bytes of Windows-1252 as XML text in UTF-8, escaped for elements and for attributes in either kind of quotes. Control
// characters, which XML does not allow, become blanks.
std::string Xml_Text(std::string_view bytes);

// An element; `attributes` begin with a blank, `inner` is XML.
std::string Xml_Element(std::string_view name, std::string_view attributes, std::string_view inner);

} // namespace orvel
