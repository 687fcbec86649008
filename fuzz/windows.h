#pragma once

#include "output/line_scanner.h"
#include "round_trip.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orvel {

// Reads the bytes through windows of several sizes, one of them given by the first byte; the result of `read` must not
// depend on the size.
template <class Read> void Read_Through_Windows(const std::uint8_t* data, std::size_t size, const Read& read)
{
    if (size == 0)
        return;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string expected = read([&] { return Line_Scanner::Of_Bytes(bytes); });
    for (const std::size_t window : {std::size_t{data[0]}, std::size_t{300}})
        Demand_Same(read([&] { return Line_Scanner::Of_Bytes(bytes, window); }), expected);
}

// Numbers as text, for comparison.
inline std::string Number_Texts(std::span<const double> numbers)
{
    std::string text;
    for (const double number : numbers)
        text += std::to_string(number) + " ";
    return text + "\n";
}

} // namespace orvel
