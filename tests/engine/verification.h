#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace orvel::engine {

// One figure of a verification case: checks it, and prints a line from which a page of the documentation can be made:
//   VERIFY <tab> case <tab> what <tab> figure <tab> expected <tab> tolerance <tab> passed or FAILED
// The tolerance is absolute.
inline void Verify(int number, const std::string& what, double figure, double expected, double tolerance)
{
    const bool passed = std::abs(figure - expected) <= tolerance;
    std::printf("VERIFY\t%d\t%s\t%.12g\t%.12g\t%.3g\t%s\n", number, what.c_str(), figure, expected, tolerance,
                passed ? "passed" : "FAILED");
    EXPECT_TRUE(passed) << "case " << number << ", " << what << ": " << figure << " instead of " << expected << " +- "
                        << tolerance;
}

// The same with a tolerance relative to the expected value.
inline void Verify_Relative(int number, const std::string& what, double figure, double expected, double tolerance)
{
    Verify(number, what, figure, expected, tolerance * std::abs(expected));
}

} // namespace orvel::engine
