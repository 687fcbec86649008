#include "files/misread.h"

#include <algorithm>

namespace orvel {

namespace {

bool Is_Digit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view Bare(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t"), last = text.find_last_not_of(" \t");
    return first == std::string_view::npos ? std::string_view() : text.substr(first, last - first + 1);
}

// Takes the digits at the beginning of the text and returns their number.
std::size_t Skip_Digits(std::string_view& text)
{
    const auto end = std::ranges::find_if_not(text, Is_Digit);
    const auto count = static_cast<std::size_t>(end - text.begin());
    text.remove_prefix(count);
    return count;
}

void Skip_Sign(std::string_view& text)
{
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
}

} // namespace

bool Is_One_Number(std::string_view text)
{
    text = Bare(text);
    Skip_Sign(text);
    std::size_t digits = Skip_Digits(text);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        digits += Skip_Digits(text);
    }
    if (digits == 0)
        return false;
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        Skip_Sign(text);
        if (Skip_Digits(text) == 0)
            return false;
    }
    return text.empty();
}

bool Is_Digits(std::string_view text)
{
    text = Bare(text);
    return !text.empty() && std::ranges::all_of(text, Is_Digit);
}

} // namespace orvel
