#pragma once

#include "core/variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Number fields are read by Val and never refuse a text: what is no number is 0, what begins with one is that number.

// What a field of numbers tells at once while a text stands in it that is read as something else than it looks: "1,5"
// is 1, "abc" and an empty field are 0. Nothing for a text that is a number from end to end, blanks around it apart.
std::optional<std::string> Reading_Hint(std::string_view typed);

// What a document keeps of a field of numbers: the text as typed if it is a number from end to end, else the number
// that is read from it, so that no blank, comma or gap reaches a file that is split on blanks.
Variant Typed_Number(std::string_view typed);

// The whole number of a field of whole numbers: halves to the even one, what is beyond an i16 to its end.
std::int16_t Typed_Integer(std::string_view typed);

} // namespace orvel
