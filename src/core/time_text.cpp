#include "core/time_text.h"

#include "core/numbers.h"
#include "core/system/times.h"
#include "core/text.h"

namespace orvel {

namespace {

constexpr std::size_t Time_Width = 19;
constexpr int First_Year = 1900, Last_Year = 9999;

void Add_Padded(std::string& text, int number, char behind)
{
    if (number < 10)
        text += '0';
    text += std::to_string(number);
    if (behind != 0)
        text += behind;
}

} // namespace

std::string Time_Text(std::time_t time)
{
    const std::tm parts = Local_Time(time);
    std::string text = std::to_string(parts.tm_year + First_Year) + "-";
    Add_Padded(text, parts.tm_mon + 1, '-');
    Add_Padded(text, parts.tm_mday, ' ');
    Add_Padded(text, parts.tm_hour, ':');
    Add_Padded(text, parts.tm_min, ':');
    Add_Padded(text, parts.tm_sec, 0);
    return text;
}

std::time_t Time_Of_Text(std::string_view text)
{
    if (text.size() != Time_Width || text.find_first_not_of("0123456789-: ") != std::string_view::npos)
        return 0;
    const auto part = [text](std::size_t first, std::size_t width) {
        return Whole_Part(Columns(text, first, width), 0, Last_Year);
    };
    std::tm parts{};
    parts.tm_year = part(1, 4) - First_Year;
    parts.tm_mon = part(6, 2) - 1;
    parts.tm_mday = part(9, 2);
    parts.tm_hour = part(12, 2);
    parts.tm_min = part(15, 2);
    parts.tm_sec = part(18, 2);
    parts.tm_isdst = -1;
    const std::time_t time = std::mktime(&parts);
    return time < 0 ? 0 : time;
}

std::string Date_Text(std::time_t date)
{
    constexpr std::size_t To_Minutes = 16;
    return Time_Text(date).substr(0, To_Minutes);
}

} // namespace orvel
