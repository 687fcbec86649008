#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// A text as a field of comma-separated values, quoted where it holds a separator, a quote or a line break. A text that
// a spreadsheet would take for a formula (it begins with = + - @ and is no number) gets an apostrophe in front, which
// marks it as text.
std::string Csv_Field(std::string_view text);

// The fields of a record as a line, with its end.
std::string Csv_Line(const std::vector<std::string>& fields);

constexpr std::string_view Byte_Order_Mark = "\xEF\xBB\xBF"; // by which spreadsheets know UTF-8

} // namespace orvel
