#include "output/table_lines.h"

#include "core/numbers.h"
#include "core/text.h"

namespace orvel {

namespace {

constexpr std::string_view Gaps = " \t";

} // namespace

std::vector<double> Line_Numbers(std::string_view line)
{
    std::vector<double> numbers;
    for (auto first = line.find_first_not_of(Gaps); first != std::string_view::npos;
         first = line.find_first_not_of(Gaps)) {
        line.remove_prefix(first);
        const auto word = line.substr(0, line.find_first_of(Gaps));
        numbers.push_back(Val(word));
        line.remove_prefix(word.size());
    }
    return numbers;
}

std::string_view Trim_Tabs(std::string_view line)
{
    const auto first = line.find_first_not_of(Gaps);
    return first == std::string_view::npos ? std::string_view()
                                           : line.substr(first, line.find_last_not_of(Gaps) - first + 1);
}

std::vector<std::string_view> Line_Cells(std::string_view line)
{
    std::vector<std::string_view> cells;
    for (auto tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
        cells.push_back(Trim(line.substr(0, tab)));
        line.remove_prefix(tab + 1);
    }
    cells.push_back(Trim(line));
    return cells;
}

} // namespace orvel
