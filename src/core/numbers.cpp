#include "core/numbers.h"

#include "core/error.h"
#include "core/text.h"

#include <algorithm>
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

// A value's significant decimal digits without trailing zeros, and the power of ten of the first one. Zero has the
// single digit "0".
struct Decimal {
    bool Negative = false;
    std::string Digits = "0";
    int Exponent = 0;
};

constexpr double Most_Whole = 1e15;
constexpr std::uint64_t Ten_To_Fifteen = 1'000'000'000'000'000;
constexpr int Bits_Behind_Point = 52; // at most, of a double from 1 on

// Fifteen significant digits as a whole number, and the power of ten of the first one.
struct Fifteen_Digits {
    std::uint64_t Digits;
    int Exponent;
};

// The digits of a value in [1, 1e15) by integer arithmetic: exact, halves to even, several times faster than to_chars.
Fifteen_Digits Digits_Of_Whole(double value)
{
    __extension__ using Wide = unsigned __int128;
    const auto whole = static_cast<std::uint64_t>(value);
    const auto rest = static_cast<std::uint64_t>((value - static_cast<double>(whole)) * (1ULL << Bits_Behind_Point));
    int whole_digits = 0;
    std::uint64_t scale = Ten_To_Fifteen;
    for (std::uint64_t w = whole; w > 0; w /= 10) {
        ++whole_digits;
        scale /= 10;
    }
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

Decimal Decimal_Of_Whole(double value)
{
    const auto [digits, exponent] = Digits_Of_Whole(value);
    return {false, std::to_string(digits), exponent};
}

// The general form of a positive value by a fast path: for values in [1, 1e15), and for those below 1 whose shortest
// digits fit the decimals allowed; else nothing.
std::optional<std::string> Short_Way(double size)
{
    char text[32];
    if (size >= 1 && size < Most_Whole) {
        const auto [digits, exponent] = Digits_Of_Whole(size);
        const auto whole = static_cast<std::size_t>(exponent) + 1;
        if (whole > Significant_Digits)
            return std::nullopt;
        std::to_chars(text, text + sizeof text, digits);
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
    char buffer[40];
    // If the shortest digits that identify the value are at most fifteen, they are its fifteen digits.
    auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific).ptr;
    if (std::find(buffer, end, 'e') - buffer > Significant_Digits + 1)
        end =
            std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, Significant_Digits - 1)
                .ptr;
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    const auto e = text.find('e');
    Decimal decimal{false, std::string(1, text[0]), 0};
    decimal.Digits += text.substr(std::min<std::size_t>(2, e), e - std::min<std::size_t>(2, e));
    const auto exponent = text.substr(text[e + 1] == '+' ? e + 2 : e + 1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.Exponent);
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
    decimal.Digits.erase(decimal.Digits.find_last_not_of('0') + 1);
    return decimal;
}

// Cuts a decimal to `count` significant digits, halves away from zero; a count below 0 gives zero.
Decimal Round_To(Decimal decimal, int count)
{
    if (count >= static_cast<int>(decimal.Digits.size()))
        return decimal;
    const bool up = count >= 0 && decimal.Digits[static_cast<std::size_t>(count)] >= '5';
    decimal.Digits.resize(static_cast<std::size_t>(std::max(count, 0)));
    if (up) {
        auto at = static_cast<int>(decimal.Digits.size()) - 1;
        while (at >= 0 && decimal.Digits[static_cast<std::size_t>(at)] == '9')
            decimal.Digits[static_cast<std::size_t>(at--)] = '0';
        if (at >= 0) {
            ++decimal.Digits[static_cast<std::size_t>(at)];
        } else {
            decimal.Digits.insert(0, 1, '1');
            ++decimal.Exponent;
        }
    }
    if (decimal.Digits.find_first_not_of('0') == std::string::npos)
        return {};
    return decimal;
}

std::string Fixed(const Decimal& decimal, int whole_digits, int decimals)
{
    const int whole = std::max(decimal.Exponent + 1, whole_digits);
    std::string text(static_cast<std::size_t>(whole + (decimals > 0 ? 1 + decimals : 0)), '0');
    const std::string_view digits = decimal.Digits;
    const auto first =
        static_cast<std::size_t>(whole - 1 - decimal.Exponent); // index of the first digit, not counting the point
    const auto before_point = std::min(static_cast<std::size_t>(std::max(decimal.Exponent + 1, 0)), digits.size());
    if (before_point > 0)
        digits.copy(text.data() + first, before_point);
    if (const auto at = first + before_point + 1; at < text.size())
        digits.substr(before_point).copy(text.data() + at, text.size() - at);
    if (decimals > 0)
        text[static_cast<std::size_t>(whole)] = '.';
    return text;
}

std::string Exponent_Text(int exponent)
{
    const std::string digits = std::to_string(std::abs(exponent));
    return std::string(exponent < 0 ? "E-" : "E+") + (digits.size() < 2 ? "0" : "") + digits;
}

bool Is_Zero(const Decimal& decimal)
{
    return decimal.Digits == "0";
}

// Leading zeros that do not directly precede the point become blanks; blanks at both ends are cut.
std::string Without_Leading_Zeros(std::string text)
{
    for (std::size_t i = 0; i < text.size() && text[i] == '0' && !(i + 1 < text.size() && text[i + 1] == '.'); ++i)
        text[i] = ' ';
    return std::string(Trim(text));
}

std::string Padded(std::string text, int width)
{
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
    const int decimals = std::max(0, static_cast<int>(decimal.Digits.size()) - 1 - decimal.Exponent);
    const std::string sign = decimal.Negative ? "-" : "";
    if (decimals <= Most_Decimals && decimal.Exponent < Most_Digits_Before_Point)
        return sign + Fixed(decimal, 1, decimals);
    std::string mantissa = decimal.Digits.substr(0, 1);
    if (decimal.Digits.size() > 1)
        mantissa += "." + decimal.Digits.substr(1);
    return sign + mantissa + Exponent_Text(decimal.Exponent);
}

std::string Print_Form(double value)
{
    const std::string text = General_Text(value);
    return (text[0] == '-' ? text : " " + text) + " ";
}

std::string Format_Pattern(double value, std::string_view pattern)
{
    const auto zeros = pattern.find('0');
    const std::string blanks(pattern.substr(0, zeros));
    pattern.remove_prefix(zeros);
    const auto e = pattern.find('E');
    const auto number = pattern.substr(0, e);
    const auto point = number.find('.');
    const int whole_digits = static_cast<int>(std::min(point, number.size()));
    const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);

    Decimal decimal = Decimal_Of(value);
    std::string text;
    if (e != std::string_view::npos) {
        decimal = Round_To(decimal, whole_digits + decimals);
        const int exponent = decimal.Exponent;
        decimal.Exponent = 0;
        text = Fixed(decimal, 1, decimals) + Exponent_Text(exponent);
    } else {
        decimal = Is_Zero(decimal) ? decimal : Round_To(decimal, decimal.Exponent + 1 + decimals);
        text = Fixed(decimal, whole_digits, decimals);
        if (point != std::string_view::npos && decimals == 0)
            text += '.';
    }
    return (decimal.Negative ? "-" : "") + blanks + text;
}

std::string Number_Text(char kind, double value, int width)
{
    const std::string text = kind == 'I' ? General_Text(value) : Format_Pattern(value, Pattern_For(value));
    return Padded(Without_Leading_Zeros(text), width);
}

std::string Fixed_Text(double value, int decimals)
{
    const std::string pattern = "0." + std::string(static_cast<std::size_t>(std::max(decimals, 0)), '0');
    return Padded(Without_Leading_Zeros(Format_Pattern(value, pattern)), decimals);
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
