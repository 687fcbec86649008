#pragma once

#include <string>
#include <string_view>

namespace orvel {

// A plan that was pasted from a spreadsheet, whose country may write numbers with a comma. Texts are UTF-8.

// Whether a cell of the text is a number with a decimal comma: "0,5". Never in a text that commas separate.
bool Has_Decimal_Commas(std::string_view text);

// The text with points in these cells. Nothing else is changed: not a label such as "one, two".
std::string With_Decimal_Points(std::string text);

} // namespace orvel
