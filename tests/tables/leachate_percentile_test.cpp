#include "tables/leachate_percentile.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// Rows with a percolate of 100 L/m2, so that the concentration in ug/L is the flux in g/ha.
std::vector<Leachate_Row> Rows(const std::vector<double>& fluxes)
{
    std::vector<Leachate_Row> rows;
    for (const double flux : fluxes)
        rows.push_back({flux, 100, Leachate_Conc(flux, 100)});
    return rows;
}

// Six years of warm-up with the largest values of all, then `count` years with 1, 2, 3 ... in rising order.
std::vector<Leachate_Row> Rising_Years(int count)
{
    std::vector<double> fluxes(Warm_Up_Years, 1000);
    for (int i = 1; i <= count; ++i)
        fluxes.push_back(i);
    return Rows(fluxes);
}

} // namespace

TEST(Leachate_Percentile, A_Concentration_Is_The_Flux_In_The_Percolate)
{
    EXPECT_EQ(Leachate_Conc(1, 100), 1);
    EXPECT_EQ(Leachate_Conc(3, 200), 1.5);
}

TEST(Leachate_Percentile, A_Year_Without_Percolate_Has_Concentration_0_Even_If_Flux_Is_Positive)
{
    EXPECT_EQ(Leachate_Conc(5, 0), 0);
    EXPECT_EQ(Leachate_Conc(5, -1), 0);
    EXPECT_EQ(Leachate_Conc(0, 100), 0);
    EXPECT_EQ(Leachate_Conc(-5, 100), 0);
}

TEST(Leachate_Percentile, Of_20_Years_It_Is_The_Mean_Of_The_Fourth_And_Fifth_Highest)
{
    const auto result = Evaluate_Leachate(Rising_Years(20), Warm_Up_Years);

    EXPECT_EQ(result.A, 6 + 17);
    EXPECT_EQ(result.B, 6 + 16);
    EXPECT_EQ(result.P80, (Leachate_Row{17 + 16, 200, 16.5}));
}

TEST(Leachate_Percentile, Of_40_Years_It_Is_The_Mean_Of_The_Eighth_And_Ninth_Highest)
{
    const auto result = Evaluate_Leachate(Rising_Years(40), Warm_Up_Years);

    EXPECT_EQ(result.A, 6 + 33);
    EXPECT_EQ(result.B, 6 + 32);
}

TEST(Leachate_Percentile, Of_60_Years_It_Is_The_Mean_Of_The_Twelfth_And_Thirteenth_Highest)
{
    const auto result = Evaluate_Leachate(Rising_Years(60), Warm_Up_Years);

    EXPECT_EQ(result.A, 6 + 49);
    EXPECT_EQ(result.B, 6 + 48);
}

TEST(Leachate_Percentile, A_Run_Of_27_Years_Takes_Five_Selections)
{
    const auto result = Evaluate_Leachate(Rising_Years(21), Warm_Up_Years);

    EXPECT_EQ(result.A, 6 + 17);
    EXPECT_EQ(result.B, 6 + 16);
}

TEST(Leachate_Percentile, With_All_Concentrations_0_The_Selections_Are_The_First_Years)
{
    const auto result = Evaluate_Leachate(Rows(std::vector<double>(26, 0)), Warm_Up_Years);

    EXPECT_EQ(result.A, 10);
    EXPECT_EQ(result.B, 11);
    EXPECT_EQ(result.P80, (Leachate_Row{0, 200, 0}));
}

TEST(Leachate_Percentile, Of_Equal_Concentrations_The_Earlier_Year_Is_Taken_First)
{
    auto rows = Rising_Years(20);
    rows[7] = rows[6 + 16]; // year 8 equals year 23, the fourth highest

    const auto result = Evaluate_Leachate(rows, Warm_Up_Years);

    EXPECT_EQ(result.A, 8);
    EXPECT_EQ(result.B, 23);
}

TEST(Leachate_Percentile, Flux_And_Percolate_Are_Sums_And_The_Concentration_Is_A_Mean)
{
    std::vector<Leachate_Row> rows = {{1, 50, 2}, {9, 100, 9}};

    const auto result = Evaluate_Leachate(rows, 0); // one selection takes the second row, the further one the first

    EXPECT_EQ(result.A, 2);
    EXPECT_EQ(result.B, 1);
    EXPECT_EQ(result.P80, (Leachate_Row{10, 150, 5.5}));
}

TEST(Leachate_Percentile, The_Total_Is_Weighted_By_The_Percolate_And_Leaves_The_Warm_Up_Out)
{
    std::vector<Leachate_Row> rows(6, {1000, 1000, 100});
    rows.push_back({1, 50, 2});
    rows.push_back({9, 150, 6});

    EXPECT_EQ(Evaluate_Leachate(rows, Warm_Up_Years).Total, (Leachate_Row{10, 200, 5}));
}

TEST(Leachate_Percentile, A_Total_Without_Percolate_Has_Concentration_0)
{
    EXPECT_EQ(Evaluate_Leachate(std::vector<Leachate_Row>{{1, 0, 0}}, 0).Total, (Leachate_Row{1, 0, 0}));
}

TEST(Leachate_Percentile, One_Evaluated_Year_Is_Both_Selections)
{
    const auto result = Evaluate_Leachate(Rising_Years(1), Warm_Up_Years);

    EXPECT_EQ(result.A, 7);
    EXPECT_EQ(result.B, 7);
    EXPECT_EQ(result.P80, (Leachate_Row{2, 200, 1}));
}

TEST(Leachate_Percentile, With_No_Year_Evaluated_All_Is_0)
{
    EXPECT_EQ(Evaluate_Leachate(Rising_Years(0), Warm_Up_Years), Leachate_Result{});
    EXPECT_EQ(Evaluate_Leachate({}, Warm_Up_Years), Leachate_Result{});
}

} // namespace orvel
