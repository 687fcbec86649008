#include "engine/math/steady_angles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace orvel::engine {

TEST(Steady_Angles, Agree_With_The_C_Library)
{
    for (int i = -1000; i <= 1000; ++i) {
        const double x = 0.01 * i;
        ASSERT_NEAR(Steady_Sine(x), std::sin(x), 1e-14);
        ASSERT_NEAR(Steady_Cosine(x), std::cos(x), 1e-14);
        ASSERT_NEAR(Steady_Arc_Cosine(0.001 * i), std::acos(0.001 * i), 2e-13);
    }
    EXPECT_EQ(Steady_Arc_Cosine(1.5), 0);
    EXPECT_EQ(Steady_Arc_Cosine(-1.5), std::numbers::pi);
}

} // namespace orvel::engine
