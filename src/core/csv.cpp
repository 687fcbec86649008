#include "core/csv.h"

#include "core/text.h"

#include <charconv>

namespace orvel {

namespace {

bool Is_Number(std::string_view text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

std::string Csv_Field(std::string_view text)
{
    constexpr std::string_view Formula_Begin = "=+-@\t\r",
                               Quoted = ",;\"\r\n\t"; // some spreadsheets split at semicolons
    const bool formula = !text.empty() && Contains(Formula_Begin, text.substr(0, 1)) && !Is_Number(text);
    const std::string field = (formula ? "'" : "") + std::string(text);
    const bool plain = field.find_first_of(Quoted) == std::string::npos && field == Trim(field);
    return plain ? field : "\"" + Replace_All(field, "\"", "\"\"") + "\"";
}

std::string Csv_Line(const std::vector<std::string>& fields)
{
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i == 0 ? "" : ",") + Csv_Field(fields[i]);
    return line.append(CrLf);
}

} // namespace orvel
