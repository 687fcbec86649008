#include "engine/math/vector_math.h"

#include "engine/math/steady_math.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

double Relative(double figure, long double expected)
{
    return expected == 0 ? std::abs(figure) : static_cast<double>(std::abs((figure - expected) / expected));
}

} // namespace

TEST(Vector_Math, Logarithm_Is_Exact_To_1e_14)
{
    double worst = 0;
    for (int k = -600; k <= 600; ++k) {
        for (const double m : {1.0, 1.0000001, 1.3, 1.41421356, 1.4142136, 1.9999999}) {
            const double x = std::ldexp(m, k);
            worst = std::max(worst, Relative(Log(All(x))[0], std::log(static_cast<long double>(x))));
        }
    }
    for (int k = 1; k < 200000; ++k) {
        const double x = 0.5 + k * 1e-5;
        worst = std::max(worst, Relative(Log(All(x))[1], std::log(static_cast<long double>(x))));
    }
    EXPECT_LT(worst, 1e-14);
}

TEST(Vector_Math, Exponential_Is_Exact_To_1e_14_And_Cut_At_The_Ends)
{
    double worst = 0;
    for (double x = -707.9; x < 708.9; x += 0.00731)
        worst = std::max(worst, Relative(Exp(All(x))[2], std::exp(static_cast<long double>(x))));
    EXPECT_LT(worst, 1e-14);
    EXPECT_GT(Exp(All(-1e300))[0], 0);
    EXPECT_LT(Exp(All(-1e300))[0], 1e-300);
    EXPECT_TRUE(std::isfinite(Exp(All(1e300))[0]));
}

TEST(Vector_Math, Mean_Decay_Keeps_Its_Digits_Near_0)
{
    double worst = 0;
    for (double x = 1e-18; x < 0.8; x *= 1.03)
        worst = std::max(worst, Relative(Mean_Decay(All(x))[3], -std::expm1(-static_cast<long double>(x)) / x));
    EXPECT_LT(worst, 1e-14);
    EXPECT_EQ(Mean_Decay(All(0))[0], 1);
}

TEST(Vector_Math, Lanes_Do_Not_Touch_Each_Other)
{
    const V4 x{0.1, 2, 30, 400};
    for (int lane = 0; lane < 4; ++lane) {
        EXPECT_EQ(Log(x)[lane], Log(All(x[lane]))[0]);
        EXPECT_EQ(Exp(x)[lane], Exp(All(x[lane]))[0]);
    }
}

TEST(Vector_Math, Single_Numbers_Have_The_Same_Functions)
{
    EXPECT_EQ(Steady_Exp(1.5), Exp(All(1.5))[0]);
    EXPECT_EQ(Steady_Log(1.5), Log(All(1.5))[0]);
    EXPECT_NEAR(Steady_Power(2.58, -1.7), std::pow(2.58, -1.7), 1e-15);
    EXPECT_EQ(Steady_Power(0, 0.7), 0);
    EXPECT_EQ(Steady_Power(0, 0), 1);
    for (const double x : {0.0, 1e-300, 1e-12, 0.3, 0.7999, 0.8, 5.0, 1e6})
        EXPECT_NEAR(Steady_Lost(x), -std::expm1(-x), 1e-14 * -std::expm1(-x)) << x;
}

} // namespace orvel::engine
