#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvel {

// The random numbers of the demonstration weather: always the same for the same site, on every system.
class Weather_Random {
public:
    // The start state is the FNV-1a hash (64 bits) of "ORVEL-DEMO-" and the site's code.
    explicit Weather_Random(std::string_view code);

    std::uint64_t Next();       // SplitMix64
    double Uniform();           // in (0, 1)
    double Normal();            // Box-Muller: the cosine half first, the sine half kept for the next call
    double Gamma(double shape); // scale 1; Marsaglia & Tsang 2000, ACM Trans. Math. Softw. 26:363

private:
    std::uint64_t State;
    std::optional<double> Kept;
};

} // namespace orvel
