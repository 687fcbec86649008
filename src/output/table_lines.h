#pragma once

#include <string_view>
#include <vector>

namespace orvel {

// The numbers of a table's line, parted by blanks and tabs; a word that is no number is 0.
std::vector<double> Line_Numbers(std::string_view line);

// The line without blanks and tabs at both ends.
std::string_view Trim_Tabs(std::string_view line);

// The cells of a line parted by tabs, without the blanks around them.
std::vector<std::string_view> Line_Cells(std::string_view line);

} // namespace orvel
