#include "substance/application_pattern.h"

#include "substance/application_list.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Fewest_Regular = 22;

// What applications of a pattern must have in common.
struct Shared_Part {
    int Day, Month;
    double Rate, Depth;
    bool operator==(const Shared_Part&) const = default;
};

Shared_Part Part_Of(const Pesticide_Document& document, std::size_t location, std::size_t a)
{
    if (document.App_Mode == App_Mode_Relative) {
        const auto& relative = document.Relative[a];
        return {relative.Abs9_Day, relative.Abs9_Month, relative.Abs9_Rate, relative.Abs9_Depth};
    }
    const auto& application = document.Applications[location][a];
    return {application.App_Day, application.App_Month, application.App_Rate, application.App_Depth};
}

bool Repeats_Itself(const Pesticide_Document& document, std::size_t location, int count, int per_year)
{
    for (int a = 1; a <= count; ++a) {
        const auto at = static_cast<std::size_t>(a);
        const auto master = static_cast<std::size_t>((a - 1) % per_year + 1);
        if (Part_Of(document, location, at) != Part_Of(document, location, master) ||
            document.Applications[location][at].App_Time != 0)
            return false;
    }
    return true;
}

} // namespace

Application_Pattern Pattern_Of_Location(const Pesticide_Document& document, int location)
{
    const int l = std::clamp(location, 0, Last_Location);
    const int count = Applications_Of(document, l);
    if (count < Fewest_Regular)
        return {};
    for (int pattern = 1; pattern <= 3; ++pattern) {
        const int cycles = Cycles_Of_Pattern(pattern);
        if (count % cycles != 0)
            continue;
        const int per_year = count / cycles;
        const bool regular = Repeats_Itself(document, static_cast<std::size_t>(l), count, per_year);
        return {regular ? pattern : 0, per_year};
    }
    return {};
}

void Check_Pattern(const Pesticide_Document& document, Editor_State& editor, int location)
{
    const auto found = Pattern_Of_Location(document, location);
    editor.App_Pattern = static_cast<std::uint8_t>(found.Pattern);
    if (found.Pattern > 0)
        editor.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(found.Pattern));
    if (found.Per_Year > 0)
        editor.App_Per_Year[static_cast<std::size_t>(std::clamp(location, 0, Last_Location))] =
            static_cast<std::int16_t>(found.Per_Year);
}

} // namespace orvel
