#pragma once

#include "charts/chart.h"

#include <array>
#include <cstdint>

namespace orvel {

// Hues that can be told apart with any colour vision and against white, as 0xRRGGBB; on a dark background they are
// drawn lighter.
constexpr std::uint32_t Hue_Of(Colour role)
{
    constexpr std::array<std::uint32_t, 9> hues = {0x2F6FB5, 0xC23B1E, 0x17457F, 0x338CC4, 0xBC7900,
                                                   0x7D4FA6, 0x007A56, 0xB5301A, 0x868686};
    return hues[static_cast<std::size_t>(role)];
}

} // namespace orvel
