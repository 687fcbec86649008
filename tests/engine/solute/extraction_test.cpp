#include "engine/solute/extraction.h"

#include "core/numbers.h"

#include "engine/solute_setups.h"
#include "engine/verification.h"

#include <cmath>
#include <numeric>

namespace orvel::engine {

namespace {

// One compartment of 1 cm, theta 0.3, rho 1.5, Kd 1: C = M / 1.8.
struct Field {
    Solute_Setup Setup;
    Solute_Day Day;
    Solute_Sums Sums;

    explicit Field(int compartments = 1) : Setup(Uniform_Setup(compartments, 1, 1.5, 0.3)), Day(Still_Day(Setup, 0.3))
    {
        Setup.Substances = {Substance_With(1, 1)};
    }
    // 10 ug/cm2 in the first compartment, then the events of the day.
    Solute_Column Run()
    {
        Solute_Column column(Setup);
        Sums = Solute_Sums(static_cast<int>(Setup.Thickness.size()), column.Lanes());
        Solute_Day before = Still_Day(Setup, 0.3);
        before.Applications = {Applied(10, 0, 24)};
        column.Step_Day(before, Sums);
        Sums.Clear();
        column.Step_Day(Day, Sums);
        return column;
    }
};

// The share of a mass that is lost where x times it would go if it stayed: by hand 1 - e^-x. The engine takes it in n
// equal implicit steps, of at most 0.1 cm of water or a tenth of a compartment's soil.
double Lost_Share(double x, int n)
{
    return 1 - std::pow(1 + x / n, -n);
}

void Verify_Loss(int number, const std::string& what, double lost, double x, int n)
{
    Verify(number, what + ", in " + std::to_string(n) + " steps", lost, 10 * Lost_Share(x, n), 1e-9);
    Verify_Relative(number, what, lost, 10 * (1 - std::exp(-x)), 0.05);
}

} // namespace

TEST(Extraction, Uptake_Takes_The_Stream_Of_Dissolved_Substance)
{
    Field field;
    field.Setup.Substances[0].Plant_Uptake = 0.5;
    field.Day.Transpiration = {0.1};

    const Solute_Column column = field.Run();

    Verify(23, "uptake, factor 0.5, 0.1 cm, ug/cm2", field.Sums.Uptake[0], 10 * (1 - std::exp(-0.5 * 0.1 / 1.8)), 1e-9);
    Verify(23, "left after uptake, ug/cm2", column.Mass()[0], 10 * std::exp(-0.5 * 0.1 / 1.8), 1e-9);
}

TEST(Extraction, Runoff_Takes_Dissolved_Substance_From_The_Mixing_Depth)
{
    Field field;
    field.Setup.Runoff_Depth = 1;
    field.Setup.Doc = 10;
    field.Setup.Substances[0].K_Doc = 1e5; // 1 + b = 2
    field.Day.Runoff = 0.4;

    const Solute_Column column = field.Run();

    const double share = 0.4 * 2 / (0.3 * 2 + 1.5); // Q (1 + b) C / M with M = (0.6 + 1.5) C
    Verify_Loss(23, "runoff of 0.4 cm, with DOC, ug/cm2", field.Sums.Runoff[0], share, 4);
    EXPECT_NEAR(column.Mass()[0], 10 - field.Sums.Runoff[0], 1e-12);
}

TEST(Extraction, Erosion_Takes_Sorbed_Substance_From_The_First_Compartment)
{
    Field field;
    field.Day.Sediment = 0.05;

    const Solute_Column column = field.Run();

    Verify_Loss(23, "erosion of 0.05 g/cm2, ug/cm2", field.Sums.Sediment[0], 0.05 / 1.8, 1);
    EXPECT_EQ(field.Sums.Runoff[0], 0);
    EXPECT_NEAR(column.Mass()[0], 10 - field.Sums.Sediment[0], 1e-12);
}

TEST(Extraction, Erosion_Takes_From_The_Slow_Sites_Too)
{
    Field field;
    field.Setup.Substances[0].F_Neq = 0.5;
    field.Setup.Substances[0].K_Des = 0.5;
    Solute_Column column(field.Setup);
    Solute_Sums sums(1, column.Lanes());
    Solute_Day day = Still_Day(field.Setup, 0.3);
    day.Applications = {Applied(10)};
    for (int k = 0; k < 100; ++k) {
        column.Step_Day(day, sums);
        day.Applications.clear();
    }
    const double fast = column.Mass()[0], slow = column.Slow_Mass()[0];
    day.Sediment = 0.05;
    column.Step_Day(day, sums);

    EXPECT_NEAR(sums.Sediment[0], fast * Lost_Share(0.05 / 1.8, 1) + slow * (1 - std::exp(-0.05 / 1.5)), 1e-9);
}

TEST(Extraction, Bypass_Takes_From_The_First_Centimetre_And_Arrives_At_Its_Outlet)
{
    Field field(10);
    field.Day.Bypass = 0.4;
    field.Day.Bypass_Outlet = 6;
    const Solute_Column column = field.Run();
    const int lanes = column.Lanes();

    const double taken = field.Sums.Bypass[0];
    Verify_Loss(23, "bypass of 0.4 cm, ug/cm2", taken, 0.4 / 1.8, 4);
    EXPECT_NEAR(column.Mass()[0], 10 - taken, 1e-9);
    EXPECT_NEAR(column.Mass()[6 * lanes], taken, 1e-9);
    for (int i = 0; i <= 10; ++i)
        EXPECT_NEAR(field.Sums.Flux[i * lanes], i >= 1 && i <= 6 ? taken : 0, 1e-9) << i;
    EXPECT_NEAR(column.Stores().Soil[0], 10, 1e-12);
}

// An application at hour 0 meets all the water of its day, one at noon half of it, one at hour 24 none.
TEST(Extraction, An_Application_Meets_The_Water_That_Comes_After_It)
{
    for (const double hour : {0.0, 12.0, 24.0}) {
        const double rest = 1 - hour / 24;
        const std::string at = ", application at hour " + std::to_string(static_cast<int>(hour)) + ", ug/cm2";
        const auto run = [hour](Field& field) {
            Solute_Column column(field.Setup);
            field.Sums = Solute_Sums(static_cast<int>(field.Setup.Thickness.size()), column.Lanes());
            field.Day.Applications = {Applied(10, 0, hour)};
            column.Step_Day(field.Day, field.Sums);
        };

        Field runoff;
        runoff.Setup.Runoff_Depth = 1;
        runoff.Day.Runoff = 0.4;
        run(runoff);
        const int steps = hour == 0 ? 4 : 2; // of the time that is left
        Verify_Loss(39, "runoff of 0.4 cm" + at, runoff.Sums.Runoff[0], 0.4 * rest / 1.8, steps);

        Field erosion;
        erosion.Day.Sediment = 0.05;
        run(erosion);
        Verify_Loss(39, "erosion of 0.05 g/cm2" + at, erosion.Sums.Sediment[0], 0.05 * rest / 1.8, 1);

        Field bypass(10);
        bypass.Day.Bypass = 0.4;
        bypass.Day.Bypass_Outlet = 6;
        run(bypass);
        Verify_Loss(39, "bypass of 0.4 cm" + at, bypass.Sums.Bypass[0], 0.4 * rest / 1.8, steps);
    }
}

// A pulse that the day's infiltration carries through the whole mixing zone loses 1 - e^(-Q/q), whatever it sorbs to
// and whatever the day is cut into: each depth takes w(z) Q against q that goes on.
TEST(Extraction, Runoff_Takes_Beside_Infiltration)
{
    constexpr double infiltration = 4, runoff = 2;
    for (const double kd : {0.0, 0.2}) {
        for (const int parts : {1, 2, 24, 0}) { // 0: an hourly day
            Field field(100);
            field.Setup.Thickness.assign(100, 0.05);
            field.Setup.Surface = 99;
            field.Setup.Deposit_Depth = 0.05;
            field.Setup.Runoff_Depth = 1;
            field.Setup.Substances = {Substance_With(1, kd)};
            field.Day.Flux.assign(101, infiltration);
            field.Day.Runoff = runoff;
            field.Day.Hourly = parts == 0;
            field.Day.Applications = {Applied(10)};
            for (int p = 1; p < parts; ++p)
                field.Day.Applications.push_back(Applied(1e-12, 0, 24.0 * p / parts));
            Solute_Column column(field.Setup);
            field.Sums = Solute_Sums(100, column.Lanes());

            column.Step_Day(field.Day, field.Sums);

            const std::string what = "runoff of 2 cm beside infiltration of 4 cm, Kd " + General_Text(kd) + ", " +
                                     (parts == 0 ? "by the hour" : "in " + std::to_string(parts) + " part(s)") +
                                     ", ug/cm2";
            Verify_Relative(44, what, field.Sums.Runoff[0], 10 * (1 - std::exp(-runoff / infiltration)), 0.05);
            // Exactly, from compartment to compartment: each passes on q / (q + w Q).
            double left = 1;
            for (const double weight : Interaction_Weights(field.Setup.Thickness, 1))
                left /= 1 + weight * runoff / infiltration;
            Verify(44, what + ", from compartment to compartment", field.Sums.Runoff[0], 10 * (1 - left), 1e-3);
        }
    }
}

TEST(Extraction, Weights_Of_The_Mixing_Zone_Add_Up_To_1_And_Fall_With_Depth)
{
    const std::vector<double> weights = Interaction_Weights({0.5, 0.5, 1, 1}, 1.7);

    EXPECT_NEAR(std::accumulate(weights.begin(), weights.end(), 0.0), 1, 1e-15);
    EXPECT_NEAR(weights[0], (1 - std::exp(-1.5 / 1.7)) / (1 - std::exp(-3)), 1e-15);
    EXPECT_EQ(weights[3], 0);
    EXPECT_EQ(Interaction_Weights({1, 1}, 0), (std::vector<double>{0, 0}));
}

TEST(Extraction, Tillage_Spreads_The_Mass_Evenly_Over_Its_Depth)
{
    Field field(30);
    field.Day.Tillage_Depth = 20;

    const Solute_Column column = field.Run();

    Verify(24, "tillage of 20 cm: mass of compartment 1, ug/cm2", column.Mass()[0], 0.5, 1e-12);
    Verify(24, "tillage of 20 cm: mass of compartment 12, ug/cm2", column.Mass()[11 * column.Lanes()], 0.5, 1e-12);
    Verify(24, "tillage of 20 cm: mass of the column, ug/cm2", column.Stores().Soil[0], 10, 1e-12);
}

TEST(Extraction, Tillage_Gives_Each_Gram_Of_Soil_The_Same_And_A_Cut_Compartment_Its_Share)
{
    std::vector<double> mass{6, 0, 0, 3, 1};

    Mix_Soil(mass.data(), 1, {1, 2, 1, 2, 1}, {1, 1, 2, 1, 1}, 5);

    // In 0..5: 6 + half of 3 = 7.5 over 1 + 2 + 2 + 1 = 6 g.
    EXPECT_DOUBLE_EQ(mass[0], 1.25);
    EXPECT_DOUBLE_EQ(mass[1], 2.5);
    EXPECT_DOUBLE_EQ(mass[2], 2.5);
    EXPECT_DOUBLE_EQ(mass[3], 1.5 + 1.25);
    EXPECT_DOUBLE_EQ(mass[4], 1);
}

TEST(Extraction, Tillage_Takes_Plant_Residues_Down)
{
    Field field(30);
    Solute_Column column(field.Setup);
    Solute_Sums sums(30, column.Lanes());
    Solute_Application onto_leaves = Applied(10);
    onto_leaves.Plant_Share = 1;
    field.Day.Applications = {onto_leaves};
    column.Step_Day(field.Day, sums);
    field.Day.Applications.clear();
    field.Day.Tillage_Depth = 20;
    column.Step_Day(field.Day, sums);

    EXPECT_EQ(column.Plant_Mass(), 0);
    EXPECT_NEAR(column.Mass()[5 * column.Lanes()], 0.5, 1e-12);
}

} // namespace orvel::engine
