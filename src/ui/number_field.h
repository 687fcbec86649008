#pragma once

#include "core/message.h"
#include "core/variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

// Number fields are read by Val and accept any text: the leading number counts, otherwise 0.

// The hint shown while a number field's text is read as another number than it shows: "1,5" is 1, "abc" and an empty
// field are 0. Nothing for a text that is a number from end to end, surrounding blanks aside.
std::optional<std::string> Reading_Hint(std::string_view typed);

// What a document stores for a number field: the text as typed if it is a number from end to end, else the number read
// from it, so that no blank or comma gets into a file that is split at blanks.
Variant Typed_Number(std::string_view typed);

// Refuses a number so large that sums and products of it leave the range of numbers.
std::optional<Refusal> Check_Size(std::string_view typed, std::string control);

// The value of a field of whole numbers: rounded, halves to even, and clamped to the range of an i16.
std::int16_t Typed_Integer(std::string_view typed);

} // namespace orvel
