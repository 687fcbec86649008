#include "core/numbers.h"

#include "core/error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>

namespace orvel {

namespace {

constexpr int Significant_Digits = 15;
constexpr int Most_Decimals = 15;
constexpr int Most_Digits_Before_Point = 15;

bool Is_Digit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr double Most_Whole = 1e15;
constexpr int Bits_Behind_Point = 52; // at most, of a double from 1 on

constexpr auto Tens = [] {
    std::array<std::uint64_t, Significant_Digits + 1> tens{1};
    for (std::size_t i = 1; i < tens.size(); ++i)
        tens[i] = 10 * tens[i - 1];
    return tens;
}();
constexpr std::uint64_t Ten_To_Fifteen = Tens.back();

// The fifteen significant digits of a value as a whole number, and the power of ten of the first one. Zero has the
// digits 0 and the power 0.
struct Decimal {
    std::uint64_t Digits = 0;
    int Exponent = 0;
    bool Negative = false;
};

// The digits of a value in [1, 1e15) by integer arithmetic: exact, halves to even, several times faster than to_chars.
Decimal Decimal_Of_Whole(double value)
{
    __extension__ using Wide = unsigned __int128;
    const auto whole = static_cast<std::uint64_t>(value);
    const auto rest = static_cast<std::uint64_t>((value - static_cast<double>(whole)) * (1ULL << Bits_Behind_Point));
    const int whole_digits = static_cast<int>(std::upper_bound(Tens.begin(), Tens.end(), whole) - Tens.begin());
    const std::uint64_t scale = Tens[static_cast<std::size_t>(Significant_Digits - whole_digits)];
    const Wide product = static_cast<Wide>(rest) * scale;
    const auto below = static_cast<std::uint64_t>(product) & ((1ULL << Bits_Behind_Point) - 1);
    constexpr auto Half = 1ULL << (Bits_Behind_Point - 1);
    std::uint64_t digits = whole * scale + static_cast<std::uint64_t>(product >> Bits_Behind_Point);
    if (below > Half || (below == Half && digits % 2 == 1))
        ++digits;
    if (digits == Ten_To_Fifteen) // 999999999999999.9
        return {digits / 10, whole_digits};
    return {digits, whole_digits - 1};
}

// The general form of a positive value by a fast path: for values in [1, 1e15), and for those below 1 whose shortest
// digits fit the decimals allowed; else nothing.
std::optional<std::string> Short_Way(double size)
{
    char text[32];
    if (size >= 1 && size < Most_Whole) {
        const Decimal decimal = Decimal_Of_Whole(size);
        const auto whole = static_cast<std::size_t>(decimal.Exponent) + 1;
        if (whole > Significant_Digits)
            return std::nullopt;
        std::to_chars(text, text + sizeof text, decimal.Digits);
        std::size_t last = Significant_Digits;
        while (last > whole && text[last - 1] == '0')
            --last;
        std::string result(text, whole);
        if (last > whole)
            result.append(1, '.').append(text + whole, last - whole);
        return result;
    }
    constexpr double Smallest = 1e-5; // below it the text might not fit the buffer
    if (size >= Smallest && size < 1) {
        const auto end = std::to_chars(text, text + sizeof text, size, std::chars_format::fixed).ptr;
        if (end - text <= 2 + Most_Decimals)
            return std::string(text, end);
    }
    return std::nullopt;
}

Decimal Decimal_Of_Any(double value)
{
    char text[40];
    // If the shortest digits that identify the value are at most fifteen, they are its fifteen digits.
    auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
    if (std::find(text, end, 'e') - text > Significant_Digits + 1)
        end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, Significant_Digits - 1).ptr;
    const char* const e = std::find(text, end, 'e');
    Decimal decimal;
    std::size_t count = 0;
    for (const char* at = text; at < e; ++at) {
        if (*at == '.')
            continue;
        decimal.Digits = 10 * decimal.Digits + static_cast<std::uint64_t>(*at - '0');
        ++count;
    }
    decimal.Digits *= Tens[Significant_Digits - count];
    std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, decimal.Exponent);
    return decimal;
}

Decimal Decimal_Of(double value)
{
    if (!std::isfinite(value))
        throw std::domain_error("A value that is not a number cannot be printed.");
    if (value == 0)
        return {};
    const double size = std::fabs(value);
    Decimal decimal = size >= 1 && size < Most_Whole ? Decimal_Of_Whole(size) : Decimal_Of_Any(size);
    decimal.Negative = value < 0;
    return decimal;
}

// Cuts a decimal to `count` significant digits, halves away from zero; a count below 0 gives zero.
Decimal Round_To(Decimal decimal, int count)
{
    if (count >= Significant_Digits)
        return decimal;
    if (count < 0)
        return {};
    const std::uint64_t unit = Tens[static_cast<std::size_t>(Significant_Digits - count)];
    const std::uint64_t rest = decimal.Digits % unit;
    decimal.Digits -= rest;
    if (rest >= unit / 2)
        decimal.Digits += unit;
    if (decimal.Digits == 0)
        return {};
    if (decimal.Digits == Ten_To_Fifteen) {
        decimal.Digits /= 10;
        ++decimal.Exponent;
    }
    return decimal;
}

// How many of the fifteen digits are left without the zeros at their end; 1 for zero.
int Digits_Needed(std::uint64_t digits)
{
    int needed = Significant_Digits;
    for (; needed > 1 && digits % 10 == 0; digits /= 10)
        --needed;
    return needed;
}

// Appends the digits with `decimals` behind the point, cut there, and zeros before them up to `whole_digits`.
void Append_Fixed(std::string& text, const Decimal& decimal, int whole_digits, int decimals)
{
    const int whole = std::max(decimal.Exponent + 1, whole_digits);
    const std::size_t point = text.size() + static_cast<std::size_t>(whole);
    const auto first = static_cast<std::ptrdiff_t>(point) - 1 - decimal.Exponent; // of the digits, without the point
    text.resize(point + static_cast<std::size_t>(decimals > 0 ? 1 + decimals : 0), '0');
    if (decimals > 0)
        text[point] = '.';
    if (decimal.Digits == 0)
        return;
    std::array<char, Significant_Digits> digits;
    std::to_chars(digits.data(), digits.data() + digits.size(), decimal.Digits);
    const int before_point = std::clamp(decimal.Exponent + 1, 0, Significant_Digits);
    std::copy_n(digits.begin(), before_point, text.begin() + first);
    const auto behind = first + before_point + 1;
    const auto room = static_cast<std::ptrdiff_t>(text.size()) - behind;
    if (room > 0)
        std::copy_n(digits.begin() + before_point, std::min<std::ptrdiff_t>(room, Significant_Digits - before_point),
                    text.begin() + behind);
}

void Append_Exponent(std::string& text, int exponent)
{
    text += exponent < 0 ? "E-" : "E+";
    if (std::abs(exponent) < 10)
        text += '0';
    text += std::to_string(std::abs(exponent));
}

// Cuts the leading zeros that do not directly precede the point and fills up with blanks.
std::string Arranged(std::string text, int width)
{
    std::size_t zeros = 0;
    while (zeros < text.size() && text[zeros] == '0' && !(zeros + 1 < text.size() && text[zeros + 1] == '.'))
        ++zeros;
    text.erase(0, zeros);
    if (static_cast<int>(text.size()) < width)
        text.resize(static_cast<std::size_t>(width), ' ');
    return text;
}

std::string_view Pattern_For(double value)
{
    const double a = std::fabs(value);
    if (a < 0.001)
        return "0.00E+00";
    if (a < 10)
        return "0.0000000";
    if (a < 100)
        return "0.0000";
    if (a < 1000)
        return "0.000";
    if (a < 10000)
        return "0.00";
    if (a < 100000)
        return "0.0";
    return "0.00E+00";
}

} // namespace

double Val(std::string_view text)
{
    const auto start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos)
        return 0;
    text.remove_prefix(start);
    const bool negative = text[0] == '-';
    if (negative || text[0] == '+')
        text.remove_prefix(1);
    // from_chars would also accept nan and inf, which are no numbers here.
    if (text.empty() || !(Is_Digit(text[0]) || (text[0] == '.' && text.size() > 1 && Is_Digit(text[1]))))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // The sign of the exponent distinguishes overflow from underflow; a number without an exponent is tiny only if
        // it begins with the point.
        const std::string_view number(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
        const auto e = number.find_first_of("eE");
        const bool tiny =
            e != std::string_view::npos ? number[e + 1] == '-' : number.find_first_not_of('0') == number.find('.');
        value = tiny ? 0 : std::numeric_limits<double>::max();
    }
    return negative && value != 0 ? -value : value;
}

int Whole_Part(std::string_view text, int least, int most)
{
    return static_cast<int>(std::clamp(Val(text), static_cast<double>(least), static_cast<double>(most)));
}

double Power_Of_Ten(double exponent)
{
    if (exponent > std::numeric_limits<double>::max_exponent10)
        return std::numeric_limits<double>::infinity();
    return Val("1E" + std::to_string(static_cast<int>(exponent)));
}

std::string General_Text(double value)
{
    if (auto text = Short_Way(std::fabs(value)))
        return value < 0 ? "-" + *text : *std::move(text);
    const Decimal decimal = Decimal_Of(value);
    const int digits = Digits_Needed(decimal.Digits);
    const int decimals = std::max(0, digits - 1 - decimal.Exponent);
    std::string text = decimal.Negative ? "-" : "";
    if (decimals <= Most_Decimals && decimal.Exponent < Most_Digits_Before_Point) {
        Append_Fixed(text, decimal, 1, decimals);
        return text;
    }
    Append_Fixed(text, {decimal.Digits, 0}, 1, digits - 1);
    Append_Exponent(text, decimal.Exponent);
    return text;
}

std::string Print_Form(double value)
{
    const std::string text = General_Text(value);
    return (text[0] == '-' ? text : " " + text) + " ";
}

std::string Format_Pattern(double value, std::string_view pattern)
{
    const auto blanks = pattern.find('0');
    const auto e = pattern.find('E');
    const auto number = pattern.substr(blanks, e - blanks);
    const auto point = number.find('.');
    const int whole_digits = static_cast<int>(std::min(point, number.size()));
    const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);

    Decimal decimal = Decimal_Of(value);
    const int in_front = e == std::string_view::npos ? decimal.Exponent + 1 : whole_digits;
    if (decimal.Digits != 0)
        decimal = Round_To(decimal, in_front + decimals);
    std::string text = decimal.Negative ? "-" : "";
    text.append(blanks, ' ');
    if (e != std::string_view::npos) {
        Append_Fixed(text, {decimal.Digits, 0}, 1, decimals);
        Append_Exponent(text, decimal.Exponent);
        return text;
    }
    Append_Fixed(text, decimal, whole_digits, decimals);
    if (point != std::string_view::npos && decimals == 0)
        text += '.';
    return text;
}

std::string Number_Text(char kind, double value, int width)
{
    return Arranged(kind == 'I' ? General_Text(value) : Format_Pattern(value, Pattern_For(value)), width);
}

std::string Fixed_Text(double value, int decimals)
{
    const std::string pattern = "0." + std::string(static_cast<std::size_t>(std::max(decimals, 0)), '0');
    return Arranged(Format_Pattern(value, pattern), decimals);
}

std::int16_t To_I16(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max()))
        throw File_Error("A number is outside the range of -32768 to 32767.");
    return static_cast<std::int16_t>(rounded);
}

std::size_t Rows_Counted(double count, std::size_t rows)
{
    return static_cast<std::size_t>(std::clamp(count, 0.0, static_cast<double>(rows)));
}

} // namespace orvel
