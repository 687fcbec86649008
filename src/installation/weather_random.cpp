#include "installation/weather_random.h"

#include <cmath>
#include <numbers>
#include <string>

namespace orvel {

namespace {

std::uint64_t Hash(std::string_view text)
{
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return hash;
}

} // namespace

Weather_Random::Weather_Random(std::string_view code) : State(Hash("ORVEL-DEMO-" + std::string(code))) {}

std::uint64_t Weather_Random::Next()
{
    State += 0x9e3779b97f4a7c15U;
    std::uint64_t z = State;
    z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9U;
    z = (z ^ (z >> 27U)) * 0x94d049bb133111ebU;
    return z ^ (z >> 31U);
}

double Weather_Random::Uniform()
{
    return (static_cast<double>(Next() >> 11U) + 0.5) * 0x1p-53;
}

double Weather_Random::Normal()
{
    if (Kept) {
        const double kept = *Kept;
        Kept.reset();
        return kept;
    }
    const double radius = std::sqrt(-2 * std::log(Uniform()));
    const double angle = 2 * std::numbers::pi * Uniform();
    Kept = radius * std::sin(angle);
    return radius * std::cos(angle);
}

double Weather_Random::Gamma(double shape)
{
    if (shape < 1) {
        const double larger = Gamma(shape + 1);
        return larger * std::pow(Uniform(), 1 / shape);
    }
    const double d = shape - 1.0 / 3;
    const double c = 1 / std::sqrt(9 * d);
    while (true) {
        const double x = Normal();
        if (1 + c * x <= 0)
            continue;
        const double v = std::pow(1 + c * x, 3);
        if (std::log(Uniform()) < 0.5 * x * x + d * (1 - v + std::log(v)))
            return d * v;
    }
}

} // namespace orvel
