#include "plans/pasted_plan.h"

#include "core/csv_reader.h"
#include "core/error.h"

#include <algorithm>
#include <vector>

namespace orvel {

namespace {

constexpr std::string_view Digits = "0123456789";

// Where the comma of a number stands, as in "-0,5" and "1,5E-3"; npos in any other cell.
std::size_t Decimal_Comma_In(std::string_view cell)
{
    constexpr std::string_view Around = " \"\r";
    const auto first = cell.find_first_not_of(Around);
    if (first == std::string_view::npos)
        return first;
    cell = cell.substr(0, cell.find_last_not_of(Around) + 1);
    auto at = first + (cell[first] == '-' || cell[first] == '+' ? 1 : 0);
    const auto skip_digits = [&] {
        const auto begin = at;
        at = std::min(cell.find_first_not_of(Digits, at), cell.size());
        return at > begin;
    };
    skip_digits();
    const auto comma = at;
    if (at == cell.size() || cell[at++] != ',' || !skip_digits())
        return std::string_view::npos;
    if (at < cell.size() && (cell[at] == 'e' || cell[at] == 'E')) {
        at += at + 1 < cell.size() && (cell[at + 1] == '-' || cell[at + 1] == '+') ? 2 : 1;
        if (!skip_digits())
            return std::string_view::npos;
    }
    return at == cell.size() ? comma : std::string_view::npos;
}

// The separator of the first row; a comma for a text that cannot be read, which is told where it is opened.
char Separator_Of(std::string_view text)
try {
    Csv_Reader reader(Source_Of(text));
    Csv_Row row;
    return reader.Next(row) ? reader.Separator() : ',';
} catch (const File_Error&) {
    return ',';
}

std::vector<std::size_t> Decimal_Commas(std::string_view text)
{
    std::vector<std::size_t> commas;
    const char separator = Separator_Of(text);
    if (separator == ',')
        return commas;
    bool quoted = false;
    for (std::size_t begin = 0, at = 0; at <= text.size(); ++at) {
        if (at < text.size() && text[at] == '"')
            quoted = !quoted;
        if (at < text.size() && (quoted || (text[at] != separator && text[at] != '\n')))
            continue;
        if (const auto comma = Decimal_Comma_In(text.substr(begin, at - begin)); comma != std::string_view::npos)
            commas.push_back(begin + comma);
        begin = at + 1;
    }
    return commas;
}

} // namespace

bool Has_Decimal_Commas(std::string_view text)
{
    return !Decimal_Commas(text).empty();
}

std::string With_Decimal_Points(std::string text)
{
    for (const auto comma : Decimal_Commas(text))
        text[comma] = '.';
    return text;
}

} // namespace orvel
