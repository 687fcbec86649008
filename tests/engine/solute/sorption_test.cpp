#include "engine/solute/sorption.h"

#include "engine/kernel_columns.h"
#include "engine/solute_setups.h"
#include "engine/verification.h"

namespace orvel::engine {

namespace {

double Inverted(const Solute_Kernel& kernel, double u, double theta, double rho, double k, double exponent,
                double guess = 0)
{
    Steady_Column column(kernel, 1, 1, theta, rho, k, exponent, 0, 0);
    column.C.assign(4, guess);
    column.Put(0, u);
    return column.Concentration(0);
}

Solute_Substance Acid(double koc2, double ph2)
{
    Solute_Substance acid;
    acid.Koc = 100;
    acid.pH = 5;
    acid.Koc2 = koc2;
    acid.pH2 = ph2;
    acid.pKa = 6.5;
    return acid;
}

} // namespace

TEST(Sorption, Finds_The_Concentration_Of_A_Content)
{
    const double content[] = {1e-6, 1e-3, 1, 100}, expected[] = {1.09837274e-7, 1.42029562e-4, 0.292740799, 46.3407755};
    for (int k = 0; k < 4; ++k) {
        char name[64];
        std::snprintf(name, sizeof name, "Freundlich inversion, u = %g ug/cm3: C", content[k]);
        Verify_Relative(5, name, Inverted(Best_Kernel(), content[k], 0.25, 1.4, 2, 0.9), expected[k], 1e-8);
    }
}

TEST(Sorption, Finds_The_Concentration_From_Any_Guess_And_For_Any_Exponent)
{
    for (const double exponent : {0.1, 0.3, 0.6, 0.9, 0.99, 1.0, 1.1, 1.5}) {
        for (const double c : {2e-5, 1e-3, 1.0, 50.0, 5000.0}) {
            for (const double guess : {0.0, 1e-8, 1.0, 1e6}) {
                const double u = 0.25 * c + 1.4 * 2 * std::pow(c, exponent);
                EXPECT_NEAR(Inverted(Best_Kernel(), u, 0.25, 1.4, 2, exponent, guess), c, 1e-10 * c)
                    << exponent << " " << guess;
            }
        }
    }
}

TEST(Sorption, Is_Linear_Below_The_Limit_And_Continuous_At_It)
{
    const double slope = std::pow(1e-5, -0.1);
    const double at_limit = 0.25 * 1e-5 + 1.4 * 2 * std::pow(1e-5, 0.9);

    EXPECT_NEAR(Inverted(Best_Kernel(), 1e-9, 0.25, 1.4, 2, 0.9), 1e-9 / (0.25 + 2.8 * slope), 1e-22);
    EXPECT_NEAR(Inverted(Best_Kernel(), at_limit * (1 - 1e-12), 0.25, 1.4, 2, 0.9), 1e-5, 1e-15);
    EXPECT_NEAR(Inverted(Best_Kernel(), at_limit * (1 + 1e-12), 0.25, 1.4, 2, 0.9), 1e-5, 1e-15);
    EXPECT_DOUBLE_EQ(Freundlich(1e-6, 0.9, 1e-5), slope * 1e-6);
    EXPECT_DOUBLE_EQ(Freundlich(2, 0.9, 1e-5), std::pow(2, 0.9));
}

TEST(Sorption, Gives_The_Capacity_As_The_Slope_And_Above_An_Exponent_Of_1_As_The_Chord)
{
    for (const double exponent : {0.8, 1.2}) {
        Steady_Column column(Best_Kernel(), 1, 2, 0.25, 1.4, 2, exponent, 0, 0);
        column.Put(0, 2 * (0.25 * 3 + 2.8 * std::pow(3, exponent)));
        EXPECT_NEAR(column.G[0], 2 * (0.25 + 2.8 * std::min(exponent, 1.0) * std::pow(3, exponent - 1)), 1e-11);
    }
}

TEST(Sorption, Depends_On_pH_Between_A_Neutral_And_An_Ionised_Species)
{
    const double two[] = {102.3438, 100, 82.1369, 37.8631, 20}, one[] = {102.8371, 100, 78.3772, 24.7851, 3.1623};
    for (int ph = 4; ph <= 8; ++ph) {
        Verify(12, "Koc, two points, pH " + std::to_string(ph), Koc_At_pH(Acid(20, 8), ph), two[ph - 4], 1e-4);
        Verify(12, "Koc, one point, pH " + std::to_string(ph), Koc_At_pH(Acid(-99, -99), ph), one[ph - 4], 1e-4);
    }
}

TEST(Sorption, Does_Not_Depend_On_pH_Without_A_pKa_Or_With_Two_Points_Of_One_Share)
{
    Solute_Substance substance = Acid(20, 8);
    for (const double pka : {0.0, -1.0, 20.0, 25.0}) {
        substance.pKa = pka;
        EXPECT_EQ(Koc_At_pH(substance, 7), 100);
    }
    substance = Acid(20, 5 + 1e-9);
    EXPECT_EQ(Koc_At_pH(substance, 7), 100);
}

TEST(Sorption, Has_No_Negative_Koc_Of_A_Species)
{
    // The points ask for a negative ion: it is cut at 0.
    Solute_Substance substance = Acid(0, 6.5);
    EXPECT_GE(Koc_At_pH(substance, 12), 0);
    EXPECT_LT(Koc_At_pH(substance, 12), 1e-3);
}

TEST(Sorption, Rises_Below_The_Wilting_Point)
{
    EXPECT_EQ(Air_Dry_Factor(10, 0.2, 0.1), 1);
    EXPECT_EQ(Air_Dry_Factor(10, 0.1, 0.1), 1);
    EXPECT_NEAR(Air_Dry_Factor(10, 0.075, 0.1), std::sqrt(10), 1e-12);
    EXPECT_NEAR(Air_Dry_Factor(10, 0.02, 0.1), 10, 1e-12);
}

TEST(Sorption, Takes_Kd_And_Exponent_From_The_Horizons_By_Their_Soil_Mass)
{
    Solute_Setup setup = Uniform_Setup(2, 1, 1.5, 0.3);
    setup.Horizons = 2;
    setup.Horizon_Share = {1, 0, 0.25, 0.75};
    setup.Substances = {Substance_With(1, 0)};
    auto& substance = setup.Substances[0];
    substance.Kd_From_Koc = false;
    substance.Horizon_Kd = {2, 4};
    substance.Horizon_Exponent = {0.9, 0.7};

    EXPECT_DOUBLE_EQ(Sorption_Of(setup, substance, 0).Rho_K, 3);
    EXPECT_DOUBLE_EQ(Sorption_Of(setup, substance, 1).Rho_K, 1.5 * 3.5);
    EXPECT_DOUBLE_EQ(Sorption_Of(setup, substance, 1).Exponent, 0.75);
}

TEST(Sorption, Puts_Henry_Constant_And_Vapour_Pressure_To_A_Temperature)
{
    Solute_Volatilisation calculated{.Henry_Calculated = true, .Vapour_Pressure = {1e-4, 0}, .Solubility = {90, 0}};
    const double henry = Henry_Constant(calculated, 300, 20);
    Verify_Relative(20, "Henry constant at 20 degC, Pa m3/mol", henry, 3.3333e-4, 2e-5);
    Verify_Relative(20, "air-water ratio at 20 degC", Air_Water_Ratio(calculated, 300, 20), 1.36766e-7, 1e-5);

    Solute_Volatilisation given{.Henry = {henry, 2 * henry}};
    Verify_Relative(20, "Henry constant at 10 degC from two points", Henry_Constant(given, 300, 10), 1.58703e-4, 1e-5);

    Solute_Volatilisation single{.Vapour_Pressure = {1e-4, 0}, .Enthalpy = 98400};
    Verify_Relative(20, "vapour pressure 10 to 20 degC, Hv 98400",
                    Vapour_Pressure(single, 10) / Vapour_Pressure(single, 20), 0.240300, 1e-5);
}

TEST(Sorption, Ages_With_The_Time_A_Mass_Has_Spent_In_The_Soil)
{
    Solute_Setup setup = Uniform_Setup(1, 1, 1.5, 0.3);
    setup.Substances = {Substance_With(1, 1)};
    setup.Substances[0].Annual_Increase = 50;
    Solute_Column column(setup);
    Solute_Sums sums(1, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.3);
    day.Applications = {Applied(10)};
    column.Step_Day(day, sums);
    day.Applications.clear();
    for (int k = 0; k < 365; ++k)
        column.Step_Day(day, sums);

    // On the 366th day the mass is 365 days old: K = 1 + 0.5 x 365 / 365.25.
    std::vector<double> c;
    column.Concentrations(c);
    EXPECT_NEAR(c[0], 10 / (0.3 + 1.5 * (1 + 0.5 * 365 / 365.25)), 1e-9);
}

} // namespace orvel::engine
