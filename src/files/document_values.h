#pragma once

#include "core/session.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Single values of a document by the names that JSON shows: "Koc[1]", "Applications[0][1].App_Rate", "SZE_Latitude".
// Texts are bytes of Windows-1252; what is returned as a reason is a sentence, empty if there is nothing wrong.

// Why no document of this kind has a field of this name whose value can be replaced: there is none, or it follows from
// other fields, as the count of a table does.
std::string Why_Not_A_Pesticide_Field(std::string_view name);
std::string Why_Not_A_Scenario_Field(std::string_view name);

// The value as it is printed; nothing if this document has no such field in use.
std::optional<std::string> Value_Of(const Pesticide_Document& document, std::string_view name);
std::optional<std::string> Value_Of(const Scenario_Document& document, std::string_view name);

// Replaces a value. The reason tells why it cannot be: the document has no such field, or the field does not take the
// text; the document is then as it was.
[[nodiscard]] std::string Replace_Value(Pesticide_Document& document, std::string_view name, std::string_view text);
[[nodiscard]] std::string Replace_Value(Scenario_Document& document, std::string_view name, std::string_view text);

} // namespace orvel
