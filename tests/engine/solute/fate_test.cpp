#include "engine/solute/fate.h"

#include "engine/solute/kernel.h"
#include "engine/solute_setups.h"
#include "engine/verification.h"

#include <algorithm>
#include <string>

namespace orvel::engine {

namespace {

constexpr double Ln2 = 0.69314718055994531;

// One compartment of 1 cm with theta 0.3, rho 1.5, in which nothing moves.
struct One_Compartment {
    Solute_Setup Setup = Uniform_Setup(1, 1, 1.5, 0.3);
    Solute_Day Day = Still_Day(Setup, 0.3);
    Solute_Sums Sums;
    std::unique_ptr<Solute_Column> Column;

    void Start(double mass)
    {
        Column = std::make_unique<Solute_Column>(Setup);
        Sums = Solute_Sums(1, Column->Lanes());
        Day.Applications = {Applied(mass)};
    }
    void Run(int days)
    {
        for (int k = 0; k < days; ++k) {
            Column->Step_Day(Day, Sums);
            Day.Applications.clear();
        }
    }
};

} // namespace

TEST(Fate, Two_Site_Sorption_Follows_The_Closed_Solution_Of_A_Batch)
{
    One_Compartment batch;
    batch.Setup.Substances = {Substance_With(1, 1)};
    batch.Setup.Substances[0].F_Neq = 0.5;
    batch.Setup.Substances[0].K_Des = 0.05;
    batch.Start(10);

    const double expected[] = {0.020113, 0.149275, 0.285599, 0.294117};
    const int days[] = {1, 10, 50, 200};
    for (int k = 0, now = 0; k < 4; now = days[k++]) {
        batch.Run(days[k] - now);
        const double slow = batch.Column->Slow_Mass()[0];
        Verify(7, "two-site batch, W/total after " + std::to_string(days[k]) + " d",
               slow / (slow + batch.Column->Mass()[0]), expected[k], 1e-5);
    }
    EXPECT_NEAR(batch.Column->Slow_Mass()[0] + batch.Column->Mass()[0], 10, 1e-12);
}

TEST(Fate, Two_Site_Sorption_Does_Not_Depend_On_The_Step)
{
    double slow[2];
    for (const bool hourly : {false, true}) {
        One_Compartment batch;
        batch.Setup.Substances = {Substance_With(1, 1)};
        batch.Setup.Substances[0].F_Neq = 0.5;
        batch.Setup.Substances[0].K_Des = 0.05;
        batch.Day.Hourly = hourly;
        batch.Start(10);
        batch.Run(10);
        slow[hourly] = batch.Column->Slow_Mass()[0];
    }
    EXPECT_NEAR(slow[0], slow[1], 1e-12);
}

TEST(Fate, A_Chain_Of_Three_Follows_Bateman)
{
    One_Compartment chain;
    chain.Setup.Substances = {Substance_With(1, 0), Substance_With(2, 0), Substance_With(3, 0)};
    const double molmass[] = {300, 200, 150}, half_life[] = {10, 30, 60}, formed[] = {0.5, 0.6, 0};
    for (int k = 0; k < 3; ++k) {
        auto& substance = chain.Setup.Substances[k];
        substance.Molmass = molmass[k];
        const double rate = Ln2 / half_life[k];
        substance.Arrows[1] = Arrow_To(k + 2, rate * formed[k]);
        substance.Arrows[5] = Arrow_To(0, rate * (1 - formed[k]));
    }
    chain.Start(10 * Ug_Cm2_Per_Kg_Ha);

    const double expected[3][3] = {{5, 1.468503, 0.085583}, {1.25, 1.875, 0.408084}, {0.009766, 0.49118, 0.688351}};
    const int days[] = {10, 30, 100};
    for (int k = 0, now = 0; k < 3; now = days[k++]) {
        chain.Run(days[k] - now);
        for (int s = 0; s < 3; ++s) {
            const std::string name =
                "substance " + std::to_string(s + 1) + " after " + std::to_string(days[k]) + " d, kg/ha";
            Verify_Relative(8, name, chain.Column->Mass()[s] / Ug_Cm2_Per_Kg_Ha, expected[k][s], 2e-3);
        }
    }
    const Solute_Closure closure = chain.Column->Closure(chain.Sums, Solute_Stores{{0, 0, 0}, {0, 0, 0}});
    Verify(8, "moles of the chain: found / applied", closure.Moles_Found / closure.Moles_Applied, 1, 1e-13);
}

TEST(Fate, Temperature_Follows_Q10_And_Stops_Decay_In_Frost)
{
    const double temperature[] = {-0.1, 0, 5, 10, 25}, expected[] = {0, 0.150231, 0.241307, 0.387597, 1.606238};
    for (int k = 0; k < 5; ++k) {
        char name[48];
        std::snprintf(name, sizeof name, "temperature factor at %g degC", temperature[k]);
        Verify(9, name, Temperature_Factor(temperature[k], 20, 2.58), expected[k], 1e-6);
    }
}

TEST(Fate, Moisture_Follows_Walker_Up_To_Field_Capacity)
{
    const double share[] = {0.25, 0.5, 0.75, 1.2}, expected[] = {0.378929, 0.615572, 0.817604, 1};
    Solute_Arrow arrow;
    arrow.Moist_Rel = 100;
    for (int k = 0; k < 4; ++k) {
        char name[64];
        std::snprintf(name, sizeof name, "moisture factor at theta/FC %g", share[k]);
        Verify(10, name, Moisture_Factor(share[k] * 0.3, 0.3, Reference_Moisture(arrow, 0.3), 0.7), expected[k], 1e-6);
    }
    arrow.Moist_Rel = 0;
    arrow.Moist_Abs = 20;
    Verify(10, "moisture factor, reference 20 Vol%, theta 0.10",
           Moisture_Factor(0.1, 0.3, Reference_Moisture(arrow, 0.3), 0.7), 0.615572, 1e-6);
    arrow.Moist_Abs = 0;
    EXPECT_EQ(Moisture_Factor(0.1, 0.3, Reference_Moisture(arrow, 0.3), 0.7), 1);
}

TEST(Fate, The_Kernel_Gives_The_Same_Factors_Four_At_A_Time)
{
    const double temperature[] = {-0.1, 0, 10, 25}, theta[] = {0.1, 0.2, 0.3, 0.4}, cap[] = {0.3, 0.3, 0.3, 0.3},
                 reference[] = {0.3, 0.15, 0.2, 0.3};
    double out[4];

    Best_Kernel().Rate_Factors(4, temperature, 20, std::log(2.58) / 10, theta, cap, reference, 0.7, out);

    for (int k = 0; k < 4; ++k)
        EXPECT_NEAR(out[k],
                    Temperature_Factor(temperature[k], 20, 2.58) * Moisture_Factor(theta[k], cap[k], reference[k], 0.7),
                    1e-14);
}

TEST(Fate, Depth_Acts_By_The_Scenario_Or_Not_Or_By_The_Substance)
{
    for (const int mode : {0, 1, 2}) {
        One_Compartment soil;
        soil.Setup.Biodegradation = {0.3};
        soil.Setup.Substances = {Substance_With(1, 1)};
        soil.Setup.Substances[0].Depth_Mode = mode;
        soil.Setup.Substances[0].Arrows[5] = Arrow_To(0, 0.02);
        soil.Setup.Substances[0].Arrows[5].Horizon_Factor = {0.7};
        soil.Start(10);

        soil.Run(5);

        const double factor[] = {0.3, 1, 0.7};
        Verify(11, "depth mode " + std::to_string(mode) + ": decayed in 5 d, ug/cm2", soil.Sums.Decay_Eq[0],
               10 * (1 - std::exp(-0.02 * factor[mode] * 5)), 1e-9);
    }
}

TEST(Fate, Decay_In_The_Liquid_Phase_Alone_Acts_On_The_Dissolved_Share)
{
    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1)};
    soil.Setup.Substances[0].Liquid_Only = true;
    soil.Setup.Substances[0].Arrows[5] = Arrow_To(0, 0.12);
    soil.Start(10);

    soil.Run(5);

    Verify(11, "liquid phase only, share 1/6: decayed in 5 d, ug/cm2", soil.Sums.Decay_Eq[0],
           10 * (1 - std::exp(-0.12 / 6 * 5)), 1e-9);
}

TEST(Fate, Equal_Decay_At_Slow_Sites_Makes_The_Whole_First_Order)
{
    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1)};
    auto& parent = soil.Setup.Substances[0];
    parent.F_Neq = 0.5;
    parent.K_Des = 0.05;
    parent.Arrows[5] = Arrow_To(0, 0.04);
    parent.Arrows[5].Neq = 1;
    soil.Start(10);
    soil.Run(60);

    Verify(11, "relative decay 1 at slow sites: left in 60 d, ug/cm2", soil.Column->Stores().Soil[0],
           10 * std::exp(-0.04 * 60), 1e-9);
}

TEST(Fate, Decay_At_Slow_Sites_Has_Its_Own_Rate)
{
    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1), Substance_With(2, 1)};
    auto& parent = soil.Setup.Substances[0];
    parent.F_Neq = 0.5;
    parent.K_Des = 0.05;
    parent.Arrows[1] = Arrow_To(2, 0.03);
    parent.Arrows[5] = Arrow_To(0, 0.01);
    parent.Arrows[1].Neq = parent.Arrows[5].Neq = 0.5;
    soil.Start(10);
    soil.Run(60);

    // dM/dt = -0.04 M - exchange, dW/dt = exchange - 0.02 W, here with small steps.
    double m = 10, w = 0, lost_slow = 0, formed = 0;
    constexpr int steps = 200000;
    const auto exchange = [](double fast, double slow) { return 0.05 * (0.5 * 1.5 / 1.8 * fast - slow); };
    for (int k = 0; k < steps; ++k) {
        const double h = 60.0 / steps;
        const double m_half = m + h / 2 * (-0.04 * m - exchange(m, w)),
                     w_half = w + h / 2 * (exchange(m, w) - 0.02 * w);
        m += h * (-0.04 * m_half - exchange(m_half, w_half));
        w += h * (exchange(m_half, w_half) - 0.02 * w_half);
        lost_slow += h * 0.02 * w_half;
        formed += h * (0.03 * m_half + 0.015 * w_half);
    }
    Verify_Relative(11, "relative decay 0.5 at slow sites: decayed there in 60 d, ug/cm2", soil.Sums.Decay_Neq[0],
                    lost_slow, 1e-3);
    Verify_Relative(11, "relative decay 0.5 at slow sites: formed in 60 d, ug/cm2", soil.Sums.Formed[1], formed, 1e-3);
    EXPECT_NEAR(soil.Column->Mass()[1], soil.Sums.Formed[1], 1e-12);
}

TEST(Fate, Light_Acts_In_The_First_Millimetres_Below_The_Cover)
{
    Solute_Arrow arrow = Arrow_To(0, 0);
    arrow.Photo_Rate = 0.1;
    arrow.Photo_Reference = 500;
    const double radiation = 43200; // 500 W/m2

    EXPECT_DOUBLE_EQ(Photolysis_Rate(arrow, radiation, 0), 0.1);
    EXPECT_DOUBLE_EQ(Photolysis_Rate(arrow, radiation, 0.75), 0.025);
    EXPECT_NEAR(Photolysis_Share(0, 1), 0.1 * (1 - std::exp(-10)), 1e-15);
    EXPECT_NEAR(Photolysis_Share(1, 2), 0.1 * (std::exp(-10) - std::exp(-20)), 1e-18);

    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1)};
    soil.Setup.Substances[0].Arrows[5] = arrow;
    soil.Day.Radiation = radiation;
    soil.Day.Temperature = {-5}; // light needs no warmth
    soil.Start(10);
    soil.Run(5);
    EXPECT_NEAR(soil.Sums.Decay_Eq[0], 10 * (1 - std::exp(-0.1 * Photolysis_Share(0, 1) * 5)), 1e-9);
}

TEST(Fate, A_Loss_Is_Split_By_The_Rates_Of_The_Arrows)
{
    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1), Substance_With(2, 1), Substance_With(4, 1)};
    auto& parent = soil.Setup.Substances[0];
    soil.Setup.Substances[1].Molmass = 150;
    soil.Setup.Substances[2].Molmass = 100;
    parent.Arrows[1] = Arrow_To(2, 0.01);
    parent.Arrows[2] = Arrow_To(3, 0.02); // not in the run: a sink
    parent.Arrows[3] = Arrow_To(4, 0.03);
    parent.Arrows[5] = Arrow_To(0, 0.04);
    soil.Start(10);

    soil.Run(10);

    const double lost = 10 * (1 - std::exp(-1));
    EXPECT_NEAR(soil.Sums.Decay_Eq[0], lost, 1e-9);
    EXPECT_NEAR(soil.Sums.Formed[1], lost * 0.1 * 150 / 300, 1e-9);
    EXPECT_NEAR(soil.Sums.Formed[2], lost * 0.3 * 100 / 300, 1e-9);
    EXPECT_NEAR(soil.Sums.Sink_Moles, lost * 0.6 / 300, 1e-9);
}

TEST(Fate, Arrows_With_Different_Corrections_Change_Their_Shares_With_The_Weather)
{
    One_Compartment soil;
    soil.Setup.Substances = {Substance_With(1, 1), Substance_With(2, 1)};
    auto& parent = soil.Setup.Substances[0];
    parent.Arrows[1] = Arrow_To(2, 0.02);
    parent.Arrows[1].Q10 = 2.58;
    parent.Arrows[5] = Arrow_To(0, 0.02);
    soil.Day.Temperature = {10};
    soil.Start(10);

    soil.Run(10);

    const double warm = 0.02 * std::pow(2.58, -1), all = warm + 0.02;
    EXPECT_NEAR(soil.Sums.Formed[1], 10 * (1 - std::exp(-10 * all)) * warm / all, 1e-9);
}

TEST(Fate, A_Very_Fast_Substance_Decays_Exactly_In_Many_Parts_Of_A_Step)
{
    for (const double rate : {3.0, 30.0, 300.0}) {
        One_Compartment soil;
        soil.Setup.Substances = {Substance_With(1, 1), Substance_With(2, 1)};
        soil.Setup.Substances[0].Arrows[1] = Arrow_To(2, rate);
        soil.Start(10);
        soil.Run(1);
        EXPECT_NEAR(soil.Column->Mass()[0], 10 * std::exp(-rate), 1e-9);
        EXPECT_NEAR(soil.Column->Mass()[1], 10 * (1 - std::exp(-rate)), 1e-9);
    }
}

TEST(Fate, Nine_Substances_Form_Each_Other_Across_The_Vectors)
{
    One_Compartment soil;
    for (int i = 1; i <= 9; ++i) {
        soil.Setup.Substances.push_back(Substance_With(i, 1));
        soil.Setup.Substances.back().Arrows[1] = Arrow_To(i < 9 ? i + 1 : 0, 0.1);
    }
    soil.Day.Hourly = true;
    soil.Start(10);

    soil.Run(10);

    // Equal rates and molar masses: a Poisson distribution with mean 1.
    double expected = 10 * std::exp(-1);
    for (int s = 0; s < 9; ++s) {
        EXPECT_NEAR(soil.Column->Mass()[s], expected, 1e-4 * expected) << s;
        expected /= s + 1;
    }
    const Solute_Closure closure =
        soil.Column->Closure(soil.Sums, Solute_Stores{std::vector<double>(9, 0.0), std::vector<double>(9, 0.0)});
    EXPECT_NEAR(closure.Moles_Found, closure.Moles_Applied, 1e-15);
}

} // namespace orvel::engine
