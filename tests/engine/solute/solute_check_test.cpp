#include "engine/solute/solute_check.h"
#include "engine/solute_setups.h"

#include <gtest/gtest.h>

#include <functional>

namespace orvel::engine {

namespace {

Solute_Setup Sound_Setup()
{
    Solute_Setup setup = Uniform_Setup(3, 1, 1.5, 0.3);
    setup.Substances = {Substance_With(1, 1, 0.9), Substance_With(2, 1)};
    setup.Substances[0].Arrows[1] = Arrow_To(2, 0.1);
    return setup;
}

// The numbers of the faults after a change.
std::vector<int> Faults(const std::function<void(Solute_Setup&, Solute_Substance&)>& damage)
{
    Solute_Setup setup = Sound_Setup();
    damage(setup, setup.Substances[0]);
    std::vector<int> numbers;
    for (const auto& fault : Check_Solute_Setup(setup))
        numbers.push_back(static_cast<int>(fault.Kind));
    return numbers;
}

} // namespace

TEST(Solute_Check, A_Sound_Setup_Has_No_Fault)
{
    EXPECT_TRUE(Check_Solute_Setup(Sound_Setup()).empty());
}

TEST(Solute_Check, Sorption_Outside_Its_Range_Is_45)
{
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Freundlich_Exponent = 0.05; }), std::vector{45});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Freundlich_Exponent = 1.6; }), std::vector{45});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Koc = -1; }), std::vector{45});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.K_Doc = -1; }), std::vector{45});
}

TEST(Solute_Check, A_Missing_Molar_Mass_Or_Vapour_Value_Is_46)
{
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Molmass = 0; }), std::vector{46});
    EXPECT_EQ(Faults([](auto& setup, auto&) { setup.Substances[1].Molmass = 0; }), std::vector{46});
    EXPECT_EQ(Faults([](auto& setup, auto&) {
                  setup.Volatilisation = {.Henry_Calculated = true, .Vapour_Pressure = {1e-4, 0}};
              }),
              std::vector{46});
    // Nothing is converted: no molar mass is needed.
    EXPECT_EQ(Faults([](auto& setup, auto& s) {
                  s.Molmass = 0;
                  setup.Substances.pop_back();
              }),
              std::vector<int>{});
}

TEST(Solute_Check, Horizon_Tables_Of_Another_Length_Are_47)
{
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Kd_From_Koc = false; }), std::vector{47});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Depth_Mode = 2; }), std::vector{47});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Depth_Mode = 7; }), std::vector{47});
    EXPECT_EQ(Faults([](auto&, auto& s) {
                  s.Kd_From_Koc = false;
                  s.Horizon_Kd = {1};
                  s.Horizon_Exponent = {0.9};
              }),
              std::vector<int>{});
}

TEST(Solute_Check, Negative_Rates_And_A_Circle_Are_48)
{
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Arrows[1].Rate = -0.1; }), std::vector{48});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.F_Neq = -0.1; }), std::vector{48});
    EXPECT_EQ(Faults([](auto&, auto& s) { s.Arrows[1].Target = 1; }), std::vector{48});
    EXPECT_EQ(Faults([](auto& setup, auto&) { setup.Plant.Washoff = -1; }), std::vector{48});
}

} // namespace orvel::engine
