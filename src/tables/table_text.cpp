#include "tables/table_text.h"

#include "core/numbers.h"
#include "core/text.h"
#include "output/table_lines.h"

#include <algorithm>
#include <charconv>

namespace orvel {

namespace {

bool Same_Number(std::string_view a, std::string_view b)
{
    double first = 0, second = 0;
    const auto read = [](std::string_view text, double& number) {
        text = Trim(text);
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        return error == std::errc() && end == text.data() + text.size();
    };
    return read(a, first) && read(b, second) && first == second;
}

bool Same_Cells(std::string_view a, std::string_view b)
{
    return a == b || std::ranges::equal(Line_Cells(a), Line_Cells(b), [](std::string_view one, std::string_view other) {
               return one == other || Same_Number(one, other);
           });
}

} // namespace

void Table_Text::Line(std::string_view file, std::string_view screen)
{
    File.append(file).append(CrLf);
    Screen.append(screen).append(CrLf);
}

std::string Figure_Text(double figure)
{
    return Number_Text('F', figure, 0);
}

double As_Printed(double figure)
{
    return Val(Figure_Text(figure));
}

bool Holds_Text(std::string_view file, std::string_view text)
{
    if (file == text)
        return true;
    const auto lines = Split_Lines(file), wanted = Split_Lines(text);
    return file.ends_with(CrLf) && std::ranges::equal(lines, wanted, Same_Cells);
}

} // namespace orvel
