#pragma once

#include <cstdint>

namespace orvel {

// How well colours, 0xRRGGBB, can be told apart: the contrast of the Web Content Accessibility Guidelines (W3C, WCAG
// 2.1), 1 to 21.
double Contrast(std::uint32_t one, std::uint32_t other);

constexpr double Least_Text_Contrast = 4.5; // of text against its ground
constexpr double Least_Mark_Contrast = 3;   // of lines, bars and signs

// The ink, or the nearest shade of it towards black or white that reaches a contrast against the ground.
std::uint32_t Readable_On(std::uint32_t ground, std::uint32_t ink, double least = Least_Text_Contrast);

} // namespace orvel
