#include "core/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvel {

namespace {

constexpr std::array Shifts = {16U, 8U, 0U};
constexpr std::uint32_t Black = 0x000000, White = 0xFFFFFF;

double Luminance(std::uint32_t colour)
{
    constexpr std::array weights = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t i = 0; i < Shifts.size(); ++i) {
        const double part = ((colour >> Shifts[i]) & 255U) / 255.0;
        sum += weights[i] * (part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

std::uint32_t Mixed(std::uint32_t one, std::uint32_t other, double share)
{
    std::uint32_t mixed = 0;
    for (const auto shift : Shifts) {
        const double part = ((one >> shift) & 255U) * (1 - share) + ((other >> shift) & 255U) * share;
        mixed |= static_cast<std::uint32_t>(std::lround(part)) << shift;
    }
    return mixed;
}

} // namespace

double Contrast(std::uint32_t one, std::uint32_t other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

std::uint32_t Readable_On(std::uint32_t ground, std::uint32_t ink, double least)
{
    constexpr int steps = 50;
    const std::uint32_t end = Contrast(ground, Black) > Contrast(ground, White) ? Black : White;
    for (int step = 0; step < steps; ++step) {
        const auto shade = Mixed(ink, end, static_cast<double>(step) / steps);
        if (Contrast(ground, shade) >= least)
            return shade;
    }
    return end;
}

} // namespace orvel
