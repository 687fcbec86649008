#include "ui/number_field.h"

#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvel {

namespace {

constexpr double Beyond_All_Measure = 1e300;

std::size_t Digits_From(std::string_view text, std::size_t at)
{
    const auto end = text.find_first_not_of("0123456789", at);
    return (end == std::string_view::npos ? text.size() : end) - at;
}

bool Has_Sign(std::string_view text, std::size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-');
}

bool Is_Number(std::string_view text)
{
    std::size_t at = Has_Sign(text, 0) ? 1 : 0;
    std::size_t digits = Digits_From(text, at);
    at += digits;
    if (at < text.size() && text[at] == '.') {
        const auto decimals = Digits_From(text, at + 1);
        at += 1 + decimals;
        digits += decimals;
    }
    if (digits == 0)
        return false;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        at += Has_Sign(text, at + 1) ? 2 : 1;
        const auto exponent = Digits_From(text, at);
        return exponent > 0 && at + exponent == text.size();
    }
    return at == text.size();
}

// A number beyond the range is read as the largest double.
bool Is_Read_As_It_Looks(std::string_view trimmed)
{
    return Is_Number(trimmed) && std::abs(Val(trimmed)) < std::numeric_limits<double>::max();
}

} // namespace

std::optional<std::string> Reading_Hint(std::string_view typed)
{
    const auto text = Trim(typed);
    if (text.empty())
        return "An empty field is read as 0.";
    if (Is_Read_As_It_Looks(text))
        return std::nullopt;
    std::string hint = "\"" + std::string(text) + "\" is read as " + General_Text(Val(text)) + ".";
    if (Is_Read_As_It_Looks(Comma_To_Point(text)))
        hint += " The decimal sign is the point.";
    return hint;
}

Variant Typed_Number(std::string_view typed)
{
    return Is_Read_As_It_Looks(Trim(typed)) ? Variant(typed) : Variant(Val(typed));
}

std::optional<Refusal> Check_Size(std::string_view typed, std::string control)
{
    if (std::abs(Val(typed)) < Beyond_All_Measure)
        return std::nullopt;
    return Refusal{{"Data check", "\"" + std::string(Trim(typed)) + "\" is too large a number."}, std::move(control)};
}

std::int16_t Typed_Integer(std::string_view typed)
{
    using Limits = std::numeric_limits<std::int16_t>;
    return To_I16(std::clamp<double>(Val(typed), Limits::min(), Limits::max()));
}

} // namespace orvel
