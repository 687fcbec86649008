#pragma once

#include "core/numbers.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace orvel {

// Val for the millions of short numbers of an engine file: the same value for every text. A number of at most 19 digits
// below 2^53 whose power of ten is exact needs one multiplication or division, which rounds once and so gives the
// nearest double; all others go the long way.
inline double Quick_Val(std::string_view text)
{
    constexpr std::array<double, 23> Powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                               1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int Most_Digits = 19;
    constexpr int Most_Exponent_Digits = 4;
    constexpr std::uint64_t Exact = 1ULL << 53U;
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto digit = [](char c) { return static_cast<unsigned char>(c - '0'); };

    while (at != end && (*at == ' ' || *at == '\t'))
        ++at;
    const char* const start = at;
    if (at == end)
        return 0;
    const bool negative = *at == '-';
    if (negative || *at == '+')
        ++at;
    std::uint64_t mantissa = 0;
    const char* const first = at;
    for (; at != end && digit(*at) < 10; ++at)
        mantissa = 10 * mantissa + digit(*at);
    auto digits = at - first;
    int exponent = 0;
    if (at != end && *at == '.') {
        const char* const decimals = ++at;
        for (; at != end && digit(*at) < 10; ++at)
            mantissa = 10 * mantissa + digit(*at);
        digits += at - decimals;
        exponent = static_cast<int>(decimals - at);
    }
    const std::string_view whole(start, static_cast<std::size_t>(end - start));
    if (digits == 0 || digits > Most_Digits)
        return Val(whole);
    if (at != end && (*at == 'E' || *at == 'e')) {
        ++at;
        const bool below = at != end && *at == '-';
        if (below || (at != end && *at == '+'))
            ++at;
        int power = 0;
        const char* const power_first = at;
        for (; at != end && digit(*at) < 10; ++at) {
            if (at - power_first == Most_Exponent_Digits)
                return Val(whole);
            power = 10 * power + digit(*at);
        }
        exponent += below ? -power : power;
    }
    if (mantissa == 0)
        return 0;
    const auto power = static_cast<std::size_t>(exponent < 0 ? -exponent : exponent);
    if (mantissa > Exact || power >= Powers.size())
        return Val(whole);
    const auto value = static_cast<double>(mantissa);
    const double scaled = exponent < 0 ? value / Powers[power] : value * Powers[power];
    return negative ? -scaled : scaled;
}

} // namespace orvel
