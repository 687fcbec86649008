#include "engine/solute/kernel.h"
#include "engine/solute/solute_check.h"
#include "engine/solute_setups.h"
#include "engine/verification.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace orvel::engine {

namespace {

constexpr int N = 60;

// Everything switched on at once.
Solute_Setup Busy_Setup(int substances)
{
    Solute_Setup setup = Uniform_Setup(N, 1, 1.4, 0.3);
    for (int i = 0; i < N; ++i)
        setup.Thickness[i] = i < 10 ? 0.5 : i < 40 ? 1 : 2.5;
    setup.Dispersion.assign(N, 5);
    setup.Doc = 20;
    setup.Runoff_Depth = 2;
    setup.Volatilisation = {
        .Henry = {1e-3, 2e-3}, .Vapour_Pressure = {1e-3, 4e-3}, .Diffusion_Air = 0.05, .Boundary_Layer = 0.1};
    setup.Plant = {.Decay = 0.05,
                   .Washoff = 0.5,
                   .Penetration = 0.05,
                   .Photodegradation = 0.1,
                   .Reference_Radiation = 500,
                   .Laminar_Layer = 0.03};
    for (int i = 1; i <= substances; ++i) {
        Solute_Substance substance = Substance_With(i, 0.1 * i, i == 2 ? 1.1 : i == 3 ? 1.0 : 0.9);
        substance.Molmass = 310 - 10 * i;
        substance.F_Neq = 0.3;
        substance.K_Des = 0.02;
        substance.K_Doc = 1000;
        substance.Plant_Uptake = 0.5;
        substance.Koc_Change = i == 1 ? 10 : 1;
        substance.Annual_Increase = i == 4 ? 10 : 0;
        substance.Liquid_Only = i == 2;
        substance.Arrows[1] = Arrow_To(i + 1, 0.02);
        substance.Arrows[1].Neq = 0.5;
        substance.Arrows[2] = Arrow_To(i + 3, 0.01);
        substance.Arrows[2].Q10 = 2.58;
        substance.Arrows[2].Moist_Exp = 0.7;
        substance.Arrows[5] = Arrow_To(0, 0.01);
        setup.Substances.push_back(substance);
    }
    setup.Substances[0].Arrows[1].Photo_Rate = 0.1;
    setup.Substances[0].Arrows[1].Photo_Reference = 500;
    return setup;
}

// Days of a small bucket with every event now and then; same seed, same days.
class Busy_Days {
public:
    explicit Busy_Days(const Solute_Setup& setup) : Setup(setup), Day(Still_Day(setup, 0.3)) {}

    const Solute_Day& Next()
    {
        Day.Theta_Start = Day.Theta_End;
        const double rain = Uniform() < 0.4 ? 2.5 * Uniform() : 0;
        Day.Runoff = rain > 1.5 ? 0.3 * rain : 0;
        Day.Bypass = rain > 1 ? 0.1 * rain : 0;
        Day.Bypass_Outlet = 25;
        Day.Sediment = rain > 2 ? 0.02 : 0;
        Day.Plant_Water = rain;
        Day.Flux[0] = rain - Day.Runoff - Day.Bypass;
        for (int i = 0; i < N; ++i) {
            const double dz = Setup.Thickness[i];
            const double in = Day.Flux[i] + (i == 25 ? Day.Bypass : 0);
            Day.Transpiration[i] = i < 20 ? 0.008 * std::clamp((Day.Theta_Start[i] - 0.06) / 0.1, 0.0, 1.0) : 0;
            const double full = Day.Theta_Start[i] + (in - Day.Transpiration[i]) / dz;
            Day.Flux[i + 1] = std::max(0.0, full - 0.3) * dz;
            Day.Theta_End[i] = full - Day.Flux[i + 1] / dz;
            Day.Temperature[i] = 10 + 12 * std::sin(Number / 58.1);
        }
        Day.Radiation = 10000;
        Day.Cover = 0.5;
        Day.Air_Temperature = Day.Temperature[0];
        Day.Tillage_Depth = Number % 200 == 150 ? 20 : 0;
        Day.Harvest = Number % 200 == 140;
        Day.Applications.clear();
        if (Number % 100 == 10) {
            Day.Applications = {Applied(10, 0, 12), Applied(5, 4.7, 6)};
            Day.Applications[0].Plant_Share = 0.4;
            Day.Applications[0].Poorly_Exposed = 0.3;
        }
        Day.Hourly = Number % 100 == 10 && Number > 100;
        ++Number;
        return Day;
    }

private:
    double Uniform()
    {
        Seed ^= Seed << 13;
        Seed ^= Seed >> 7;
        Seed ^= Seed << 17;
        return static_cast<double>(Seed >> 11) * 0x1p-53;
    }

    const Solute_Setup& Setup;
    Solute_Day Day;
    std::uint64_t Seed = 88172645463325252ULL;
    int Number = 0;
};

struct Busy_Run {
    Solute_Column Column;
    Solute_Stores Start;
    Solute_Sums Sums;
    double Least = 0; // smallest mass seen

    Busy_Run(const Solute_Setup& setup, int days, const Solute_Kernel* kernel = nullptr)
        : Column(setup, kernel),
          Start(Column.Stores()),
          Sums(N, Column.Lanes())
    {
        Busy_Days weather(setup);
        for (int k = 0; k < days; ++k) {
            Column.Step_Day(weather.Next(), Sums);
            for (int at = 0; at < N * Column.Lanes(); ++at)
                Least = std::min({Least, Column.Mass()[at], Column.Slow_Mass()[at]});
        }
    }
};

} // namespace

TEST(Solute_Column, Mass_And_Moles_Close_With_All_Processes_On)
{
    for (const int substances : {1, 4, 6, 9}) {
        const Solute_Setup setup = Busy_Setup(substances);
        ASSERT_TRUE(Check_Solute_Setup(setup).empty());

        const Busy_Run run(setup, 1500);

        const Solute_Closure closure = run.Column.Closure(run.Sums, run.Start);
        EXPECT_TRUE(run.Column.Finite());
        for (int k = 0; k < substances; ++k) {
            EXPECT_GT(closure.In[k], 0.1) << k;
            EXPECT_LT(std::abs(closure.Error[k]), 1e-12 * closure.In[k]) << k;
        }
        EXPECT_GT(closure.Moles_Applied, 0.7);
        EXPECT_NEAR(closure.Moles_Found / closure.Moles_Applied, 1, 1e-12);
        EXPECT_GE(run.Least, 0.0);
    }
}

TEST(Solute_Column, Every_Process_Of_The_Busy_Run_Moves_Something)
{
    const Busy_Run run(Busy_Setup(4), 1500);
    const auto total = [](const std::vector<double>& rows) {
        double sum = 0;
        for (const double x : rows)
            sum += x;
        return sum;
    };

    for (const auto* rows :
         {&run.Sums.Applied, &run.Sums.Formed, &run.Sums.Decay_Eq, &run.Sums.Decay_Neq, &run.Sums.Uptake,
          &run.Sums.Plant_Applied, &run.Sums.Plant_Decay, &run.Sums.Plant_Penetration, &run.Sums.Plant_Volatilised,
          &run.Sums.Soil_Volatilised, &run.Sums.Runoff, &run.Sums.Sediment, &run.Sums.Bypass})
        EXPECT_GT(total(*rows), 1e-4);
    EXPECT_GT(run.Sums.Flux[static_cast<std::size_t>(N) * run.Column.Lanes()], 1e-4);
}

TEST(Solute_Column, Stays_Positive_And_Closed_For_Extreme_Substances_And_Floods)
{
    std::uint64_t seed = 88172645463325252ULL;
    const auto pick = [&](std::initializer_list<double> values) {
        seed ^= seed << 13;
        seed ^= seed >> 7;
        seed ^= seed << 17;
        return values.begin()[seed % values.size()];
    };
    for (int run = 0; run < 60; ++run) {
        const double dz = pick({0.1, 1, 5}), theta = pick({0.01, 0.1, 0.45});
        Solute_Setup setup = Uniform_Setup(40, dz, pick({0.1, 1.4, 2.6}), theta);
        setup.Dispersion_Is_Length = pick({0, 1}) > 0;
        setup.Dispersion.assign(40, pick({0, 0.1, 5, 100}));
        setup.Doc = pick({0, 1000});
        setup.Volatilisation = {.Henry = {pick({0, 1e-4, 100, 1e5}), 0}, .Diffusion_Air = 0.05, .Boundary_Layer = 0.1};
        for (int i = 1; i <= 4; ++i) {
            Solute_Substance substance = Substance_With(i, pick({0, 1e-3, 1, 1e4}), pick({0.1, 0.5, 0.9, 1, 1.1, 1.5}));
            substance.Freundlich_Limit = pick({0, 0.01, 1000});
            substance.F_Neq = pick({0, 0.5, 100});
            substance.K_Des = pick({0, 0.01, 50});
            substance.K_Doc = pick({0, 1e4});
            substance.Koc_Change = pick({1, 100});
            substance.Plant_Uptake = pick({0, 1, 10});
            substance.Liquid_Only = pick({0, 1}) > 0;
            substance.Arrows[1] = Arrow_To(i + 1, pick({0, 1e-3, 1, 100}));
            substance.Arrows[1].Neq = pick({0, 1});
            setup.Substances.push_back(substance);
        }
        ASSERT_TRUE(Check_Solute_Setup(setup).empty());
        Solute_Column column(setup);
        const Solute_Stores start = column.Stores();
        Solute_Sums sums(40, column.Lanes());
        double least = 0, out = 0;
        for (int k = 0; k < 12; ++k) {
            Solute_Day day = Flowing_Day(setup, theta, pick({0, 0, 0.1, 2, 50}));
            day.Theta_End.assign(40, theta * pick({0.6, 1}));
            day.Transpiration.assign(40, pick({0, 0.05}));
            if (k % 5 == 0)
                day.Applications = {Applied(pick({1e-9, 1, 1e4}), pick({0, 3}), 7)};
            column.Step_Day(day, sums);
            for (int at = 0; at < 40 * column.Lanes(); ++at)
                least = std::min({least, column.Mass()[at], column.Slow_Mass()[at]});
            out = std::min(out, sums.Flux[40 * column.Lanes()]);
        }

        const Solute_Closure closure = column.Closure(sums, start);
        ASSERT_TRUE(column.Finite()) << run;
        EXPECT_GE(least, 0) << run;
        for (int s = 0; s < 4; ++s)
            EXPECT_LE(std::abs(closure.Error[s]), 1e-11 * closure.In[s]) << run << " " << s;
        EXPECT_NEAR(closure.Moles_Found, closure.Moles_Applied, 1e-11 * closure.Moles_Applied) << run;
        EXPECT_GE(out, -1e-12 * closure.In[0]) << run;
    }
}

TEST(Solute_Column, Each_Compartment_Closes_By_The_Sums)
{
    Solute_Setup setup = Busy_Setup(4);
    setup.Runoff_Depth = 0; // its loss is not kept by compartment
    Solute_Column column(setup);
    Solute_Sums sums(N, column.Lanes());
    Busy_Days weather(setup);
    for (int k = 0; k < 149; ++k) // until the first tillage
        column.Step_Day(weather.Next(), sums);

    const int lanes = column.Lanes();
    for (int i = 0; i < N; ++i) {
        for (int s = 0; s < 4; ++s) {
            const int at = i * lanes + s;
            double expected = sums.Applied[at] + sums.Formed[at] - sums.Decay_Eq[at] - sums.Decay_Neq[at] -
                              sums.Uptake[at] + sums.Flux[at] - sums.Flux[at + lanes];
            if (i == 0)
                expected -= sums.Soil_Volatilised[s] + sums.Sediment[s];
            EXPECT_NEAR(column.Mass()[at] + column.Slow_Mass()[at], expected, 1e-11) << i << " " << s;
        }
    }
}

TEST(Solute_Column, Both_Kernels_Give_The_Same_Bits)
{
    if (!Avx2_Kernel())
        GTEST_SKIP() << "this processor has no AVX2";
    for (const int substances : {2, 9}) {
        const Solute_Setup setup = Busy_Setup(substances);

        const Busy_Run plain(setup, 400, &Baseline_Kernel()), fast(setup, 400, Avx2_Kernel());

        for (int at = 0; at < N * plain.Column.Lanes(); ++at) {
            ASSERT_EQ(plain.Column.Mass()[at], fast.Column.Mass()[at]);
            ASSERT_EQ(plain.Column.Slow_Mass()[at], fast.Column.Slow_Mass()[at]);
        }
        Compare(33,
                std::to_string(substances) +
                    " substances, kernel with AVX2 against the one for every processor: equal bits",
                plain.Sums.Flux == fast.Sums.Flux && plain.Sums.Sink_Moles == fast.Sums.Sink_Moles, 1, 0);
    }
}

TEST(Solute_Column, A_Substance_Does_Not_Change_By_Those_That_Run_Beside_It)
{
    Solute_Setup one = Busy_Setup(1), nine = Busy_Setup(9);
    const Busy_Run alone(one, 300), together(nine, 300);

    for (int i = 0; i < N; ++i)
        EXPECT_EQ(alone.Column.Mass()[i * alone.Column.Lanes()], together.Column.Mass()[i * together.Column.Lanes()]);
}

TEST(Solute_Column, Asking_For_Concentrations_Changes_Nothing)
{
    const Solute_Setup setup = Busy_Setup(4);
    const Busy_Run quiet(setup, 200);
    Solute_Column asked(setup);
    Solute_Sums sums(N, asked.Lanes());
    Busy_Days weather(setup);
    std::vector<double> c;
    for (int k = 0; k < 200; ++k) {
        asked.Step_Day(weather.Next(), sums);
        asked.Concentrations(c);
    }

    EXPECT_TRUE(std::equal(asked.Mass(), asked.Mass() + N * asked.Lanes(), quiet.Column.Mass()));
    // And they satisfy the isotherm: the third substance is linear, with Kd 0.3 and the DOC's 1.02.
    const double theta = 0.3;
    const int deep = 50 * asked.Lanes() + 2;
    EXPECT_NEAR(asked.Mass()[deep], 2.5 * c[deep] * (theta * 1.02 + 1.4 * 0.3), 1e-12);
}

TEST(Solute_Column, An_Hourly_Day_Is_Told_Hour_By_Hour)
{
    Solute_Setup setup = Uniform_Setup(20, 1, 1.5, 0.3);
    setup.Substances = {Substance_With(1, 1)};
    Solute_Column column(setup);
    Solute_Sums sums(20, column.Lanes());
    Solute_Day day = Flowing_Day(setup, 0.3, 1.2);
    day.Hourly = true;
    day.Applications = {Applied(10, 0, 12)};
    std::vector<int> hours;
    std::vector<double> first;

    column.Step_Day(day, sums, [&](int hour) {
        hours.push_back(hour);
        first.push_back(column.Mass()[0]);
    });

    ASSERT_EQ(hours.size(), 24u);
    EXPECT_EQ(hours.front(), 1);
    EXPECT_EQ(hours.back(), 24);
    EXPECT_EQ(first[10], 0);  // hour 11
    EXPECT_EQ(first[11], 10); // hour 12: the application is there, and nothing has moved yet
    EXPECT_LT(first[12], 10);
}

TEST(Solute_Column, Sums_May_Be_Cleared_Between_The_Hours)
{
    Solute_Setup setup = Busy_Setup(4);
    Solute_Column whole(setup), parts(setup);
    Solute_Sums all(N, whole.Lanes()), hour(N, whole.Lanes()), gathered(N, whole.Lanes());
    Busy_Days one(setup), two(setup);
    for (int k = 0; k < 115; ++k) {
        whole.Step_Day(one.Next(), all);
        parts.Step_Day(two.Next(), hour, [&](int) {
            gathered.Add(hour);
            hour.Clear();
        });
    }
    gathered.Add(hour);

    for (std::size_t at = 0; at < all.Flux.size(); ++at)
        EXPECT_NEAR(gathered.Flux[at], all.Flux[at], 1e-12);
    EXPECT_NEAR(gathered.Sink_Moles, all.Sink_Moles, 1e-12);
    for (int at = 0; at < N * whole.Lanes(); ++at)
        EXPECT_NEAR(whole.Mass()[at], parts.Mass()[at], 1e-12); // the residence time is counted through the callback
}

TEST(Solute_Column, An_Hour_Outside_The_Day_Counts_As_0_And_A_Depth_Spreads_Evenly)
{
    Solute_Setup setup = Uniform_Setup(20, 1, 1.5, 0.3);
    setup.Substances = {Substance_With(1, 100)};
    Solute_Column column(setup);
    Solute_Sums sums(20, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.3);
    day.Applications = {Applied(10, 2.5, 99), Applied(1, 0, -3)};

    column.Step_Day(day, sums);

    EXPECT_DOUBLE_EQ(sums.Applied[0], 4 + 1);
    EXPECT_DOUBLE_EQ(sums.Applied[4], 4);
    EXPECT_DOUBLE_EQ(sums.Applied[8], 2);
}

TEST(Solute_Column, A_Clean_Column_Stays_Clean)
{
    const Solute_Setup setup = Busy_Setup(9);
    Solute_Column column(setup);
    Solute_Sums sums(N, column.Lanes());
    Solute_Day day = Flowing_Day(setup, 0.3, 0.5);
    for (int k = 0; k < 10; ++k)
        column.Step_Day(day, sums);

    EXPECT_TRUE(column.Finite());
    EXPECT_EQ(column.Stores().Soil, std::vector<double>(9, 0.0));
    std::vector<double> c;
    column.Concentrations(c);
    EXPECT_EQ(*std::max_element(c.begin(), c.end()), 0);
}

TEST(Solute_Column, Finds_Its_Slots_By_Index)
{
    Solute_Setup setup = Uniform_Setup(2, 1, 1.5, 0.3);
    setup.Substances = {Substance_With(1, 1), Substance_With(4, 1), Substance_With(9, 1)};
    const Solute_Column column(setup);

    EXPECT_EQ(column.Slots(), 3);
    EXPECT_EQ(column.Lanes(), 4);
    EXPECT_EQ(column.Slot_Of(4), 1);
    EXPECT_EQ(column.Slot_Of(5), -1);
    EXPECT_EQ(column.Index_Of(2), 9);
}

TEST(Solute_Column, Soil_Above_Sorbs_More_Where_It_Dries_Out)
{
    Solute_Setup setup = Uniform_Setup(1, 1, 1.5, 0.3); // wilting point 0.1
    setup.Substances = {Substance_With(1, 1)};
    setup.Substances[0].Koc_Change = 10;
    Solute_Column column(setup);
    Solute_Sums sums(1, column.Lanes());
    Solute_Day day = Still_Day(setup, 0.075);
    day.Applications = {Applied(10)};

    column.Step_Day(day, sums);

    std::vector<double> c;
    column.Concentrations(c);
    EXPECT_NEAR(c[0], 10 / (0.075 + 1.5 * std::sqrt(10)), 1e-12);
}

} // namespace orvel::engine
