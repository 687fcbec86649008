#include "engine/output/figures.h"

#include "engine/input/findings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orvel::engine {

namespace {

constexpr double Zero_Below = 1e-30;
constexpr int Series_Digits = 5;
constexpr double Plain_Above = 0.9e-4; // smaller values cannot round to 0.0001
constexpr int Largest_Power = 45;
constexpr double Near_Tie = 1e-8; // closer to a tie than this, the exact conversion decides

// Correctly rounded powers of ten.
struct Powers {
    std::array<double, 2 * Largest_Power + 1> Value{};
    Powers()
    {
        for (int k = -Largest_Power; k <= Largest_Power; ++k) {
            const std::string text = "1e" + std::to_string(k);
            std::from_chars(text.data(), text.data() + text.size(), Value[static_cast<std::size_t>(k + Largest_Power)]);
        }
    }
};

const double* Powers_Of_Ten() // the power k at index k, from -Largest_Power to Largest_Power
{
    static const Powers powers;
    return powers.Value.data() + Largest_Power;
}

double Power_Of_Ten(int k)
{
    return Powers_Of_Ten()[k];
}

// A positive value as `digits` decimal digits times a power of ten, given by the exponent of the first digit.
struct Decimal {
    std::uint64_t Digits = 0;
    int Exponent = 0;
};

Decimal Exact_Decimal(double a, int digits)
{
    char buffer[40];
    const char* const end =
        std::to_chars(buffer, buffer + sizeof buffer, a, std::chars_format::scientific, digits - 1).ptr;
    Decimal decimal;
    const char* at = buffer;
    for (; *at != 'e'; ++at) {
        if (*at != '.')
            decimal.Digits = 10 * decimal.Digits + static_cast<std::uint64_t>(*at - '0');
    }
    std::from_chars(at + (at[1] == '+' ? 2 : 1), end, decimal.Exponent);
    return decimal;
}

// The decimal exponent of a positive value, or one less.
int Least_Exponent(double a)
{
    const auto binary = static_cast<int>(std::bit_cast<std::uint64_t>(a) >> 52U) - 1023;
    return (binary * 1233) >> 12;
}

// One multiplication and one rounding, exact except near a tie or a power of ten.
Decimal Decimal_Of(double a, int digits)
{
    int e = Least_Exponent(a);
    if (std::abs(e) > Largest_Power - 10)
        return Exact_Decimal(a, digits);
    const double low = Power_Of_Ten(digits - 1), high = 10 * low;
    double m = a * Power_Of_Ten(digits - 1 - e);
    if (m >= high) {
        ++e;
        m = a * Power_Of_Ten(digits - 1 - e);
    } else if (m < low) {
        --e;
        m = a * Power_Of_Ten(digits - 1 - e);
    }
    const double whole = std::floor(m), rest = m - whole;
    if (std::fabs(rest - 0.5) < Near_Tie || m < low || m >= high - 0.5)
        return Exact_Decimal(a, digits);
    return {static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1 : 0), e};
}

double Checked(double value)
{
    if (!std::isfinite(value))
        throw Engine_Failure(Fault::Not_A_Number, "A RESULT IS NOT A NUMBER");
    return std::fabs(value) < Zero_Below ? 0 : value;
}

// The decimal digits of 0 to 99, in pairs.
struct Digit_Pairs {
    std::array<char, 200> Text{};
    constexpr Digit_Pairs()
    {
        for (std::size_t n = 0; n < 100; ++n) {
            Text[2 * n] = static_cast<char>('0' + n / 10);
            Text[2 * n + 1] = static_cast<char>('0' + n % 10);
        }
    }
};
constexpr Digit_Pairs Pairs;

template <class Number> void Put_Pairs(char* to, Number digits, int count)
{
    int at = count;
    for (; at >= 2; at -= 2, digits /= 100)
        std::memcpy(to + at - 2, Pairs.Text.data() + 2 * (digits % 100), 2);
    if (at == 1)
        *to = static_cast<char>('0' + digits % 10);
}

char* Put_Digits(char* to, std::uint64_t digits, int count)
{
    if (digits >> 32U)
        Put_Pairs(to, digits, count);
    else
        Put_Pairs(to, static_cast<std::uint32_t>(digits), count);
    return to + count;
}

// Writes d.dddE+dd without padding; returns the end.
char* Scientific(char* to, bool negative, Decimal decimal, int digits)
{
    if (negative)
        *to++ = '-';
    char* const first = to;
    to = Put_Digits(to + 1, decimal.Digits, digits);
    first[0] = first[1];
    first[1] = '.';
    if (digits == 1)
        --to;
    *to++ = 'E';
    *to++ = decimal.Exponent < 0 ? '-' : '+';
    const int size = std::abs(decimal.Exponent);
    return Put_Digits(to, static_cast<std::uint64_t>(size), size > 99 ? 3 : 2);
}

// Writes the same digits in plain notation, without trailing zeros; returns the end.
char* Plain(char* to, bool negative, Decimal decimal, int digits)
{
    if (negative)
        *to++ = '-';
    int decimals = digits - 1 - decimal.Exponent;
    while (decimals > 0 && decimal.Digits % 10 == 0) {
        decimal.Digits /= 10;
        --decimals;
        --digits;
    }
    if (decimals <= 0)
        return Put_Digits(to, decimal.Digits, digits);
    const int before = std::max(1, digits - decimals);
    char all[24];
    Put_Digits(all, decimal.Digits, before + decimals);
    to = std::copy_n(all, before, to);
    *to++ = '.';
    return std::copy_n(all + before, decimals, to);
}

// A figure being printed, with room for padding in front, so that the text is appended in one piece.
struct Figure {
    static constexpr int Most_Blanks = 24;
    std::array<char, Most_Blanks + 64> Room;

    Figure() { std::memset(Room.data(), ' ', Most_Blanks); }
    char* Begin() { return Room.data() + Most_Blanks; }
    char* End() { return Room.data() + Room.size(); }
    void Append_To(std::string& text, const char* end, int width)
    {
        const auto length = static_cast<int>(end - Begin());
        const int size = std::max(length, std::min(width, length + Most_Blanks));
        text.append(end - size, end);
    }
};

// Writes a value with n decimals; returns the end, or null if it does not fit.
char* Fixed(char* to, char* end, double value, int decimals)
{
    const double a = std::fabs(value);
    const double scaled = a * Power_Of_Ten(decimals);
    const double whole = std::floor(scaled), rest = scaled - whole;
    if (scaled > 1e15 || std::fabs(rest - 0.5) < std::max(Near_Tie, scaled * 1e-15)) {
        const auto result = std::to_chars(to, end, value, std::chars_format::fixed, decimals);
        return result.ec == std::errc() ? result.ptr : nullptr;
    }
    auto digits = static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1 : 0);
    if (value < 0 && digits != 0)
        *to++ = '-';
    const auto unit = static_cast<std::uint64_t>(Power_Of_Ten(decimals));
    const std::uint64_t before = digits / unit;
    int count = 1;
    for (std::uint64_t left = before / 10; left != 0; left /= 10)
        ++count;
    to = Put_Digits(to, before, count);
    if (decimals == 0)
        return to;
    *to++ = '.';
    return Put_Digits(to, digits - before * unit, decimals);
}

// Up to eight characters as a number, the first in the lowest byte.
constexpr std::uint64_t Word(std::string_view text)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        word |= std::uint64_t{static_cast<unsigned char>(text[i])} << 8U * i;
    return word;
}

void Put_Word(char* to, std::uint64_t word)
{
    for (unsigned i = 0; i < 8; ++i)
        to[i] = static_cast<char>(word >> 8U * i);
}

// The first digits of a value of 1E-28 to 1E+28, or 0 where the exact conversion is needed.
struct Quick_Digits {
    std::uint32_t Whole;
    int Exponent;
};
Quick_Digits Quick_Decimal(double value, int digits)
{
    const double* const power = Powers_Of_Ten();
    int e = Least_Exponent(value);
    e += value >= power[e + 1] ? 1 : 0;
    const double m = value * power[digits - 1 - e];
    const auto whole = static_cast<std::uint32_t>(m);
    const double rest = m - whole;
    const bool safe = std::fabs(rest - 0.5) >= Near_Tie && m < power[digits] - 1 && m >= power[digits - 1];
    return {safe ? whole + (rest > 0.5 ? 1 : 0) : 0, e};
}

void Put_Pair(char* to, std::uint32_t number) // 0 to 99
{
    std::memcpy(to, Pairs.Text.data() + std::size_t{2} * number, 2);
}

// Appends most values above 0 without a detour; false where another form or the exact conversion is needed.
bool Put_Usual_Exponent(std::string& text, double value, int width, int decimals)
{
    if (!(value > 1e-28 && value < 1e28 && (decimals == 4 || decimals == 5)))
        return false;
    auto [whole, e] = Quick_Decimal(value, decimals + 1);
    if (whole == 0)
        return false;
    text.append(static_cast<std::size_t>(std::max(width, decimals + 6)), ' ');
    char* at = text.data() + text.size();
    Put_Pair(at - 2, static_cast<std::uint32_t>(std::abs(e)));
    at[-3] = e < 0 ? '-' : '+';
    at[-4] = 'E';
    Put_Pair(at - 6, whole % 100);
    Put_Pair(at - 8, whole / 100 % 100);
    whole /= 10000;
    if (decimals == 5) {
        at[-9] = static_cast<char>('0' + whole % 10);
        whole /= 10;
        --at;
    }
    at[-9] = '.';
    at[-10] = static_cast<char>('0' + whole);
    return true;
}

// Fills the field for most values above 0 without a detour; false where another form or the exact conversion is needed.
bool Put_Usual_Series(char* field, double value)
{
    if (!(value > 1e-28 && value < 99999 && (value >= 1e-3 || value < Plain_Above)))
        return false;
    const bool plain = value > Plain_Above;
    const auto [whole, e] = Quick_Decimal(value, plain ? Series_Digits : Series_Digits - 1);
    if (whole == 0)
        return false;
    if (!plain) {
        std::memcpy(field, " 0.000E-00", Series_Width);
        field[1] = static_cast<char>('0' + whole / 1000);
        field[3] = static_cast<char>('0' + whole / 100 % 10);
        Put_Pair(field + 4, whole % 100);
        Put_Pair(field + 8, static_cast<std::uint32_t>(-e));
        return true;
    }
    // Eight characters in one word, the first in its lowest byte, so that no character is stored and read again.
    std::uint64_t text = Word({Pairs.Text.data() + std::size_t{2} * (whole / 10000) + 1, 1}) |
                         Word({Pairs.Text.data() + std::size_t{2} * (whole / 100 % 100), 2}) << 8U |
                         Word({Pairs.Text.data() + std::size_t{2} * (whole % 100), 2}) << 24U;
    const int significant = 8 - std::countl_zero(text ^ Word("00000")) / 8; // without zeros at the end
    if (e < 0) {
        static constexpr std::array<std::uint64_t, 4> Before{0, Word("      0."), Word("     0.0"), Word("    0.00")};
        text = Before[static_cast<std::size_t>(-e)] >> 8U * significant | text << 8U * (8 - significant);
    } else {
        const int before = e + 1, length = significant > before ? significant + 1 : before;
        const std::uint64_t whole_part = (std::uint64_t{1} << 8U * before) - 1;
        text = (text & whole_part) | Word(".") << 8U * before | (text & ~whole_part) << 8U;
        text = Word("        ") >> 8U * length | text << 8U * (8 - length);
    }
    field[0] = ' ';
    field[1] = e == -3 && significant == Series_Digits ? '0' : ' ';
    Put_Word(field + 2, text);
    return true;
}

} // namespace

void Put_Blanks(std::string& text, int count)
{
    text.append(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

void Put_Left(std::string& text, std::string_view what, int width)
{
    const auto room = static_cast<std::size_t>(width);
    text += what.substr(0, room);
    Put_Blanks(text, width - static_cast<int>(what.size()));
}

void To_Column(std::string& text, std::size_t line_start, int column)
{
    Put_Blanks(text, column - 1 - static_cast<int>(text.size() - line_start));
}

void Put_Integer(std::string& text, long value, int width)
{
    Figure figure;
    figure.Append_To(text, std::to_chars(figure.Begin(), figure.End(), value).ptr, width);
}

void Put_Fixed(std::string& text, double value, int width, int decimals)
{
    value = Checked(value);
    Figure figure;
    for (int n = decimals; n >= 0; --n) {
        const char* const end = Fixed(figure.Begin(), figure.End(), value, n);
        if (end && end - figure.Begin() <= width)
            return figure.Append_To(text, end, width);
    }
    Put_Exponent(text, value, width, std::max(0, width - 7));
}

void Put_Exponent(std::string& text, double value, int width, int decimals)
{
    if (Put_Usual_Exponent(text, value, width, decimals))
        return;
    value = Checked(value);
    Figure figure;
    const Decimal decimal = value == 0 ? Decimal{} : Decimal_Of(std::fabs(value), decimals + 1);
    figure.Append_To(text, Scientific(figure.Begin(), value < 0, decimal, decimals + 1), width);
}

void Put_Series(char* field, double value)
{
    if (value == 0) {
        std::memcpy(field, "       0.0", Series_Width);
        return;
    }
    if (Put_Usual_Series(field, value))
        return;
    value = Checked(value);
    if (value == 0)
        return Put_Series(field, 0);
    std::array<char, 64> figure{};
    const char* end = figure.data() + Series_Width;
    if (std::fabs(value) > Plain_Above) {
        const Decimal decimal = Decimal_Of(std::fabs(value), Series_Digits);
        if (decimal.Exponent >= -4 && decimal.Exponent < Series_Digits)
            end = Plain(figure.data(), value < 0, decimal, Series_Digits);
    }
    for (int digits = 4; end - figure.data() >= Series_Width && digits > 1; --digits)
        end = Scientific(figure.data(), value < 0, Decimal_Of(std::fabs(value), digits), digits);
    const auto length = static_cast<int>(end - figure.data());
    std::memset(field, ' ', Series_Width);
    std::memcpy(field + Series_Width - length, figure.data(), static_cast<std::size_t>(length));
}

Out_File::Out_File(const std::filesystem::path& file) : Name(file.filename().string())
{
    std::error_code error;
    File = File_Handle(file, File_Handle::Use::Write, error);
    if (error)
        throw Engine_Failure(Fault::Disk_Failure, "CANNOT CREATE " + Name + ": " + error.message(), Exit_No_File);
    Buffer.reserve(Full + (Full >> 2U));
}

void Out_File::Check(const std::error_code& error) const
{
    if (error)
        throw Engine_Failure(Fault::Disk_Failure, "CANNOT WRITE " + Name + ": " + error.message(), Exit_No_File);
}

void Out_File::Flush()
{
    if (Is_Open())
        Check(File.Write(Buffer));
    Buffer.clear();
}

void Out_File::Close()
{
    Flush();
    Check(File.Close());
}

} // namespace orvel::engine
