#include "engine/solute/plant_surface.h"

#include "engine/solute_setups.h"
#include "engine/verification.h"

#include <cmath>

namespace orvel::engine {

namespace {

Solute_Setup Leafy_Setup()
{
    Solute_Setup setup = Uniform_Setup(10, 1, 1.4, 0.3);
    setup.Substances = {Substance_With(1, 1)};
    setup.Plant = {.Washoff = 0.5, .Penetration = 0.1};
    return setup;
}

Solute_Application Onto_Leaves(double poorly)
{
    Solute_Application application = Applied(Ug_Cm2_Per_Kg_Ha);
    application.Plant_Share = 1;
    application.Poorly_Exposed = poorly;
    return application;
}

} // namespace

TEST(Plant_Surface, Two_Pools_Are_Penetrated_And_Washed_Off_At_Their_Own_Rates)
{
    const Solute_Setup setup = Leafy_Setup();
    Solute_Column column(setup);
    Solute_Sums sums(10, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.3);
    day.Applications = {Onto_Leaves(0.5)};
    day.Applications[0].Hour = 24;
    column.Step_Day(day, sums);
    Verify(22, "deposit of the first day, ug/cm2", column.Plant_Mass(), 10, 1e-12);

    day.Applications.clear();
    for (int k = 0; k < 5; ++k)
        column.Step_Day(day, sums);
    const double well = 5 * std::exp(-0.1 * 5), poor = 5 * std::exp(-0.02 * 5);
    Verify(22, "on the plants after 5 dry days, ug/cm2", column.Plant_Mass(), well + poor, 1e-9);
    Verify(22, "penetrated in 5 dry days, ug/cm2", sums.Plant_Penetration[0], 10 - well - poor, 1e-9);

    day.Plant_Water = 2;
    Verify(22, "wash-off share of well exposed, 2 cm", Rates_Of_Leaf(setup, day, false).Washed_Off, 0.632121, 1e-6);
    Verify(22, "wash-off share of poorly exposed, 2 cm", Rates_Of_Leaf(setup, day, true).Washed_Off, 0.181269, 1e-6);
    sums.Clear();
    column.Step_Day(day, sums);
    const double washed = well * (1 - std::exp(-1)) + poor * (1 - std::exp(-0.2));
    Verify(22, "washed off by 2 cm of rain, ug/cm2", sums.Flux[0], washed, 1e-9);
    Verify(22, "on the plants after the rain, ug/cm2", column.Plant_Mass(),
           well * std::exp(-1) * std::exp(-0.1) + poor * std::exp(-0.2) * std::exp(-0.02), 1e-9);
    Verify(22, "in the soil after the rain, ug/cm2", column.Stores().Soil[0], washed, 1e-9);
}

TEST(Plant_Surface, A_Deposit_Meets_The_Rain_That_Falls_After_It)
{
    const Solute_Setup setup = Leafy_Setup();
    // 2 cm of rain, wash-off 0.5/cm: an application at hour h meets the share 1 - h/24 of it.
    for (const double hour : {0.0, 6.0, 12.0, 24.0}) {
        Solute_Column column(setup);
        Solute_Sums sums(10, column.Lanes());
        Solute_Day day = Still_Day(setup, 0.3);
        day.Plant_Water = 2;
        day.Applications = {Onto_Leaves(0)};
        day.Applications[0].Hour = hour;
        column.Step_Day(day, sums);
        const double rest = 1 - hour / 24;
        Verify(39, "washed off on the day itself, application at hour " + std::to_string(static_cast<int>(hour)),
               sums.Flux[0], 10 * (1 - std::exp(-0.5 * 2 * rest)), 1e-9);
        Verify(39, "penetrated on the day itself", sums.Plant_Penetration[0],
               10 * std::exp(-0.5 * 2 * rest) * (1 - std::exp(-0.1 * rest)), 1e-9);
    }
}

TEST(Plant_Surface, A_Deposit_Of_1_Kg_Volatilises_Through_The_Laminar_Layer)
{
    const Solute_Volatilisation volatilisation{.Vapour_Pressure = {1e-4, 0}, .Diffusion_Air = 0.05};

    const double rate = Leaf_Volatilisation(volatilisation, 300, 0.03, 20);

    Verify_Relative(20, "flux from leaves for 1 kg/ha, kg/ha/d", rate * 1, 0.17725, 1e-5);
    EXPECT_EQ(Leaf_Volatilisation(volatilisation, 300, 0, 20), 0);
}

TEST(Plant_Surface, The_Rates_Share_A_Days_Loss)
{
    double pool = 8;
    const Leaf_Losses losses = Step_Leaf(
        pool, {.Decay = 0.1, .Photodegradation = 0.2, .Penetration = 0.3, .Volatilisation = 0.4, .Washed_Off = 0.25});

    EXPECT_DOUBLE_EQ(losses.Washed_Off, 2);
    EXPECT_NEAR(pool, 6 * std::exp(-1), 1e-12);
    const double lost = 6 * (1 - std::exp(-1));
    EXPECT_NEAR(losses.Decayed, 0.3 * lost, 1e-12);
    EXPECT_NEAR(losses.Penetrated, 0.3 * lost, 1e-12);
    EXPECT_NEAR(losses.Volatilised, 0.4 * lost, 1e-12);
}

TEST(Plant_Surface, Light_And_Relative_Rates_Act_As_Given)
{
    Solute_Setup setup = Leafy_Setup();
    setup.Plant = {.Decay = 0.05, .Photodegradation = 0.2, .Reference_Radiation = 500};
    Solute_Day day = Still_Day(setup, 0.3);
    day.Radiation = 21600; // 250 W/m2
    day.Poor_Photo = 0.3;

    EXPECT_DOUBLE_EQ(Rates_Of_Leaf(setup, day, false).Photodegradation, 0.1);
    EXPECT_DOUBLE_EQ(Rates_Of_Leaf(setup, day, true).Photodegradation, 0.03);
    EXPECT_DOUBLE_EQ(Rates_Of_Leaf(setup, day, true).Decay, 0.05);
}

TEST(Plant_Surface, Washed_Off_Mass_Goes_With_Runoff_Bypass_And_Infiltration)
{
    Solute_Setup setup = Leafy_Setup();
    setup.Plant.Penetration = 0;
    Solute_Column column(setup);
    Solute_Sums sums(10, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.3);
    day.Applications = {Onto_Leaves(0)};
    column.Step_Day(day, sums);
    day.Applications.clear();
    day.Plant_Water = 2;
    day.Runoff = 0.5;
    day.Bypass = 0.25;
    day.Bypass_Outlet = 7;
    day.Flux[0] = 1.25;

    column.Step_Day(day, sums);

    const double washed = 10 * (1 - std::exp(-1));
    EXPECT_NEAR(sums.Runoff[0], washed * 0.25, 1e-9); // the runoff depth is 0: nothing is taken from the soil
    EXPECT_GT(sums.Bypass[0], washed * 0.125);        // and what the bypass takes from the first compartment afterwards
    EXPECT_NEAR(sums.Flux[0], washed * 0.75, 1e-9);
    EXPECT_NEAR(sums.Flux[static_cast<std::size_t>(7) * column.Lanes()] - sums.Bypass[0], 0, 1e-9);
    EXPECT_NEAR(column.Stores().Soil[0], washed * 0.75, 1e-9);
}

TEST(Plant_Surface, Harvest_Brings_The_Deposit_To_The_Soil)
{
    Solute_Setup setup = Leafy_Setup();
    setup.Plant.Penetration = 0;
    Solute_Column column(setup);
    Solute_Sums sums(10, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.3);
    day.Applications = {Onto_Leaves(0.3)};
    column.Step_Day(day, sums);
    day.Applications.clear();
    day.Harvest = true;

    column.Step_Day(day, sums);

    EXPECT_EQ(column.Plant_Mass(), 0);
    EXPECT_DOUBLE_EQ(sums.Flux[0], 10);
    EXPECT_NEAR(column.Stores().Soil[0], 10, 1e-12);
}

TEST(Plant_Surface, The_Plants_Share_Follows_The_Method)
{
    EXPECT_EQ(Plant_Fraction(1, true, 0.6, 1, 1, 40), 0);
    EXPECT_EQ(Plant_Fraction(2, true, 0.6, 1, 1, 40), 0.6);
    EXPECT_DOUBLE_EQ(Plant_Fraction(3, true, 0.6, 2, 0.5, 40), 1 - std::exp(-1));
    EXPECT_EQ(Plant_Fraction(4, true, 0.6, 1, 1, 40), 0.4);
    EXPECT_EQ(Plant_Fraction(2, false, 0.6, 1, 1, 40), 0);
    EXPECT_EQ(Plant_Fraction(3, false, 0.6, 1, 1, 40), 0);
    EXPECT_EQ(Plant_Fraction(4, false, 0.6, 1, 1, 40), 0.4);
}

} // namespace orvel::engine
