#include "engine/solute/transport.h"

#include "engine/kernel_columns.h"
#include "engine/solute/solute.h"
#include "engine/solute_setups.h"
#include "engine/verification.h"

namespace orvel::engine {

namespace {

// Courant number below 0.95 for q 0.6, theta 0.3, dz 1: three sub-steps a day.
constexpr double Step = 1.0 / 3;

double Centre_Of_Mass(const Steady_Column& column)
{
    double sum = 0;
    for (int i = 0; i < column.N; ++i)
        sum += column.Mass(i) * (i + 0.5) * column.Dz;
    return sum / column.Total();
}

} // namespace

TEST(Transport, Moves_A_Block_Undistorted_At_Courant_1)
{
    Steady_Column column(Best_Kernel(), 200, 1, 0.3, 1.5, 0, 1, 0.6, 0);
    for (int i = 0; i < 5; ++i)
        column.Put(i, 2 + i);

    column.Run(60, 0.5);

    double error = 0;
    for (int i = 0; i < 200; ++i)
        error = std::max(error, std::abs(column.Mass(i) - (i >= 120 && i < 125 ? 2 + i - 120 : 0)));
    Verify(1, "piston flow over 120 cm: largest error of a mass, ug/cm2", error, 0, 1e-12);
    Verify(1, "piston flow: total mass, ug/cm2", column.Total(), 20, 1e-12);
}

TEST(Transport, Follows_The_Closed_Solution_Of_The_Convection_Dispersion_Equation)
{
    for (const double kd : {0.0, 1.0}) {
        Steady_Column column(Best_Kernel(), 300, 1, 0.3, 1.5, kd, 1, 0.6, 5);
        column.Set_Inlet(1);

        column.Run(kd == 0 ? 25 : 150, Step);

        const std::string name = kd == 0 ? "resident concentration, R = 1, t = 25 d, z = "
                                         : "resident concentration, R = 6, t = 150 d, z = ";
        Verify(2, name + "24.5 cm", column.Concentration(24), 0.88271, 0.003);
        Verify(2, name + "49.5 cm", column.Concentration(49), 0.50228, 0.003);
        Verify(2, name + "74.5 cm", column.Concentration(74), 0.12739, 0.003);
    }
}

TEST(Transport, Carries_The_Flux_Concentration_Of_Ogata_And_Banks)
{
    Steady_Column column(Best_Kernel(), 300, 1, 0.3, 1.5, 0, 1, 0.6, 5);
    column.Set_Inlet(1);

    column.Run(25 - Step, Step);
    const double before = column.Through(50);
    column.Run(2 * Step, Step);
    Verify(3, "flux concentration at 50 cm, t = 25 d", (column.Through(50) - before) / (0.6 * 2 * Step), 0.58529,
           0.005);

    column.Run(25 - Step, Step);
    Verify_Relative(3, "mass through 50 cm after 50 d, ug/cm2", column.Through(50), 15.188, 0.005);
}

TEST(Transport, Reaches_The_Steady_Profile_Of_A_Decaying_Substance)
{
    Steady_Column column(Best_Kernel(), 150, 1, 0.3, 1.5, 1, 1, 0.6, 5);
    column.Set_Inlet(1);
    const std::vector<double> rate(column.M.size(), 0.02);
    std::vector<double> loss(rate.size()), formed_loss(rate.size()), sink(rate.size(), 0.0), sums(rate.size(), 0.0);
    double moles = 0;
    Kernel_Fate fate;
    fate.Loss = loss.data();
    fate.Formed_Loss = formed_loss.data();
    fate.Sink = sink.data();
    fate.Sink_Stride = Steady_Column::Lanes;
    column.Kernel.Decay_Factors(rate.data(), static_cast<int>(rate.size()), Step / 2, loss.data(), formed_loss.data());

    for (int k = 0; k < 3 * 1000; ++k) {
        const Kernel_Fate_Sums into{sums.data(), sums.data(), sums.data(), sums.data(), &moles};
        column.Kernel.React(column.Column, fate, 0, Step / 2, into);
        column.Run(Step, Step);
        column.Kernel.React(column.Column, fate, 0, Step / 2, into);
    }

    const auto at = [&](int z) { return std::sqrt(column.Concentration(z - 1) * column.Concentration(z)); };
    Verify(4, "steady concentration with decay 0.02/d, z = 10 cm", at(10), 0.49676, 0.001);
    Verify(4, "steady concentration with decay 0.02/d, z = 25 cm", at(25), 0.24063, 0.001);
    Verify(4, "steady concentration with decay 0.02/d, z = 50 cm", at(50), 0.07189, 0.001);
}

TEST(Transport, Gives_A_Freundlich_Pulse_The_Same_Place_On_Every_Grid)
{
    const double expected[] = {33.77, 33.71, 33.71, 33.71}, thickness[] = {2.5, 1, 0.5, 0.25};
    for (int g = 0; g < 4; ++g) {
        const double dz = thickness[g];
        Steady_Column column(Best_Kernel(), static_cast<int>(200 / dz), dz, 0.3, 1.5, 1, 0.9, 0.3, 5);
        for (int i = 0; i < static_cast<int>(5 / dz); ++i)
            column.Put(i, 10 * dz / 5);

        column.Run(200, 1 / std::ceil(1 / (0.95 * dz)));

        const std::string name = "Freundlich pulse, dz " + std::to_string(dz).substr(0, 4) + " cm: ";
        Verify(6, name + "centre of mass, cm", Centre_Of_Mass(column), expected[g], 0.05);
        Verify(6, name + "closure, ug/cm2", column.Total() + column.Through(column.N) - 10, 0, 1e-13);
    }
}

TEST(Transport, Takes_The_Value_Between_Unequal_Compartments_From_The_Line_Between_Their_Middles)
{
    EXPECT_DOUBLE_EQ(Interface_Mean(1, 4, 1, 2), 2);
    EXPECT_DOUBLE_EQ(Interface_Mean(1, 3, 5, 5), 2);
}

TEST(Transport, Cuts_A_Segment_So_That_No_Compartment_Passes_On_More_Than_Its_Water)
{
    const double flux[] = {3, 0.9, 0.2}, thickness[] = {1, 1}, wet[] = {0.3, 0.3}, dry[] = {0.25, 0.3};

    EXPECT_EQ(Sub_Step_Count(1, 2, flux, thickness, wet, dry), 4); // 0.9 / (0.95 x 0.25) = 3.79
    EXPECT_EQ(Sub_Step_Count(0.5, 2, flux, thickness, wet, dry), 2);
    EXPECT_EQ(Sub_Step_Count(1e-9, 2, flux, thickness, wet, dry), 1);
    const double flood[] = {0, 1e6, 0};
    EXPECT_EQ(Sub_Step_Count(1, 2, flood, thickness, wet, dry), Most_Sub_Steps);
}

TEST(Transport, Volatilises_Through_Boundary_Layer_And_Soil_In_Series)
{
    // 1 / (0.1 / 4000 + 0.5 x 1 / (4000 x 0.05 + 0.43 x 0.1 / 1e-3))
    EXPECT_NEAR(Volatilisation_Conductance(0.1, 4000, 1, 0.05, 0.1, 1e-3), 1 / (0.1 / 4000 + 0.5 / (200 + 43)), 1e-9);
    EXPECT_EQ(Volatilisation_Conductance(0.1, 4000, 1, 0.05, 0.1, 0), 0);
}

TEST(Transport, Loses_Vapour_From_The_First_Compartment_Into_The_Sum)
{
    Solute_Setup setup = Uniform_Setup(20, 1, 1.4, 0.2);
    setup.Substances = {Substance_With(1, 0.1)};
    setup.Volatilisation = {.Henry = {0.5, 0}, .Diffusion_Air = 0.05, .Boundary_Layer = 0.5};
    Solute_Column column(setup);
    Solute_Sums sums(20, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.2);
    day.Applications = {Applied(10)};

    column.Step_Day(day, sums);

    EXPECT_GT(sums.Soil_Volatilised[0], 0.01);
    EXPECT_NEAR(sums.Soil_Volatilised[0] + column.Stores().Soil[0], 10, 1e-12);
    EXPECT_GT(column.Mass()[4], 0); // vapour spreads downwards too
}

TEST(Transport, Carries_With_Dissolved_Organic_Carbon_What_Sorbs_To_It)
{
    // b = 1e-6 x 1e6 x 20 = 20: of a strongly sorbed substance 21 parts move for 1.
    double leached[2];
    for (const int with : {0, 1}) {
        Solute_Setup setup = Uniform_Setup(10, 1, 1.5, 0.3);
        setup.Doc = with ? 20 : 0;
        setup.Dispersion_Is_Length = true; // of 0: diffusion in water alone
        setup.Substances = {Substance_With(1, 100)};
        setup.Substances[0].K_Doc = 1e6;
        Solute_Column column(setup);
        Solute_Sums sums(10, column.Lanes());
        Solute_Day day = Flowing_Day(setup, 0.3, 0.1);
        day.Applications = {Applied(10)};
        column.Step_Day(day, sums);
        EXPECT_DOUBLE_EQ(column.Doc_Factor(0), with ? 21 : 1);
        leached[with] = sums.Flux[column.Lanes()]; // through the interface below compartment 1
    }
    // Capacity 150.3 without, 0.3 x 21 + 150 = 156.3 with; small outflow, so nearly in proportion. Diffusion is the
    // same for both.
    const double diffusion = 0.43 * std::pow(0.3, 10.0 / 3) / 0.25;
    EXPECT_NEAR(leached[1] / leached[0], (0.1 * 21 + diffusion) / (0.1 + diffusion) * 150.3 / 156.3,
                0.02 * leached[1] / leached[0]);
}

} // namespace orvel::engine
