#pragma once

#include <string>
#include <string_view>

namespace orvel {

// A text as a field of comma-separated values, quoted where it holds a separator, a quote or a line break. A text that
// a spreadsheet would take for a formula (it begins with = + - @ and is no number) gets an apostrophe in front, which
// marks it as text.
std::string Csv_Field(std::string_view text);

} // namespace orvel
