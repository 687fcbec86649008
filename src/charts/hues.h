#pragma once

#include "charts/chart.h"

#include <array>
#include <cstdint>

namespace orvel {

// Hues that can be told apart with any colour vision, as 0xRRGGBB; on a dark background they are drawn lighter.
constexpr std::uint32_t Hue_Of(Colour role)
{
    constexpr std::array<std::uint32_t, 9> hues = {0x2F6FB5, 0xD1492E, 0x2F6FB5, 0x56B4E9, 0xE69F00,
                                                   0x8B6BB1, 0x009E73, 0xD1492E, 0x8C8C8C};
    return hues[static_cast<std::size_t>(role)];
}

} // namespace orvel
