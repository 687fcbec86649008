#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace orvel::engine {

// One figure of a verification case: checks it, and prints a line from which a page of the documentation can be made:
//   VERIFY <tab> case <tab> what <tab> figure <tab> expected <tab> tolerance <tab> passed or FAILED
// The tolerance is absolute. With COMPARE in place of VERIFY the expected value is another figure of the engine.
inline void Print_Figure(const char* kind, int number, const std::string& what, double figure, double expected,
                         double tolerance)
{
    const bool passed = std::abs(figure - expected) <= tolerance;
    std::printf("%s\t%d\t%s\t%.12g\t%.12g\t%.3g\t%s\n", kind, number, what.c_str(), figure, expected, tolerance,
                passed ? "passed" : "FAILED");
    EXPECT_TRUE(passed) << "case " << number << ", " << what << ": " << figure << " instead of " << expected << " +- "
                        << tolerance;
}

// Against a closed solution, a hand calculation or an independent model.
inline void Verify(int number, const std::string& what, double figure, double expected, double tolerance)
{
    Print_Figure("VERIFY", number, what, figure, expected, tolerance);
}

// The same with a tolerance relative to the expected value.
inline void Verify_Relative(int number, const std::string& what, double figure, double expected, double tolerance)
{
    Verify(number, what, figure, expected, tolerance * std::abs(expected));
}

// Of the engine with itself: grids, kernels, its own sums; the tolerance is absolute, or relative to the other figure.
inline void Compare(int number, const std::string& what, double figure, double other, double tolerance)
{
    Print_Figure("COMPARE", number, what, figure, other, tolerance);
}
inline void Compare_Relative(int number, const std::string& what, double figure, double other, double tolerance)
{
    Compare(number, what, figure, other, tolerance * std::abs(other));
}

} // namespace orvel::engine
