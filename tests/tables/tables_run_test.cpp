#include "output/echo_file.h"
#include "tables/balance_tables.h"
#include "tables/leachate_tables.h"
#include "tables/soil_concentrations.h"

#include "core/numbers.h"
#include "core/text.h"
#include "engine/engine_case.h"
#include "engine/engine_process.h"
#include "temporary_directory.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvel {

using namespace engine;

// The tables out of a run of the engine agree with one another and with what the engine tells of the same amounts.

namespace {

constexpr int Years = 8;

// One run for all tests: an active substance and its metabolites, monthly output, the profile of the active substance.
struct Tables_Of_A_Run : testing::Test {
    static void SetUpTestSuite()
    {
        Directory = new Temporary_Directory;
        auto run = Demo_Case("H", "_maize", "demo_C.psm", Years);
        run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = run.Scenario.SZE_Freq_Conc = "MNTH";
        run.Rows = {Row_Of("INFL", 100)};
        for (int layer = 1; layer <= Profile_Layers; ++layer)
            run.Rows.push_back(Row_Of("TPSC", layer));
        run.Profile_Rows = Profile_Layers;
        run.Count_Tail = "    5.000000020"; // a depth of 5.0 cm, then the number of profile rows
        ASSERT_EQ(Run_Case(run, Directory->Path()).Exit_Code, 0);
    }
    // Each test builds its tables.
    void SetUp() override
    {
        for (const auto* cache :
             {"year.orv", "period.orv", "MBalance.orv", "PBalance.orv", "MBalance_M.orv", "PBalance_M.orv"})
            std::filesystem::remove(*Directory / cache);
    }
    static void TearDownTestSuite() { delete Directory; }

    static inline Temporary_Directory* Directory = nullptr;
};

// The last number behind a text in a file.
double Last_Total(const std::string& file, std::string_view anchor)
{
    double value = 0;
    for (const auto line : Split_Lines(file)) {
        if (Contains(line, anchor))
            value = Val(Columns(line, 40, 12));
    }
    return value;
}

} // namespace

TEST_F(Tables_Of_A_Run, Every_Substance_Has_All_Years_At_Both_Depths)
{
    const auto tables = Build_Or_Load(Directory->Path());

    EXPECT_EQ(tables.Failure, "");
    EXPECT_TRUE(tables.Kept);
    ASSERT_GE(tables.Result_Name.size(), 2U);
    for (const auto& depth : tables.Year) {
        ASSERT_EQ(depth.size(), tables.Result_Name.size());
        for (const auto& table : depth)
            EXPECT_EQ(table.Rows.size(), static_cast<std::size_t>(Years));
    }
    EXPECT_FALSE(Simulation_Failed(Directory->Path()));
    EXPECT_TRUE(Read_Echo(Directory->Path()).Layers().Has_Monthly_Output);
}

TEST_F(Tables_Of_A_Run, The_Core_Bottom_Is_That_Of_The_Balances)
{
    const auto leachate = Build_Or_Load(Directory->Path());
    const auto balance = Build_Or_Load_Balance(Directory->Path(), Balance_View::Annual);

    ASSERT_EQ(balance.Failure, "");
    ASSERT_EQ(balance.Pesticide.size(), leachate.Year[1].size());
    for (std::size_t s = 0; s < balance.Pesticide.size(); ++s) {
        for (std::size_t y = 0; y < static_cast<std::size_t>(Years); ++y) {
            EXPECT_EQ(leachate.Year[1][s].Rows[y].Percolate, balance.Water[y].Percolate);
            EXPECT_EQ(leachate.Year[1][s].Rows[y].Flux, balance.Pesticide[s][y].Percolate);
            EXPECT_GT(balance.Water[y].Percolate, 0);
        }
    }
}

TEST_F(Tables_Of_A_Run, The_Months_Of_A_Year_Add_Up_To_It)
{
    const auto annual = Build_Or_Load_Balance(Directory->Path(), Balance_View::Annual);
    const auto monthly = Build_Or_Load_Balance(Directory->Path(), Balance_View::Monthly);

    ASSERT_EQ(monthly.Water.size(), 12U * Years);
    for (std::size_t y = 0; y < static_cast<std::size_t>(Years); ++y) {
        double rain = 0, evaporated = 0, applied = 0, decayed = 0;
        for (std::size_t m = 12 * y; m < 12 * y + 12; ++m) {
            rain += monthly.Water[m].Precipitation;
            evaporated += monthly.Water[m].Evapotranspiration;
            applied += monthly.Pesticide[0][m].Application;
            decayed += monthly.Pesticide[0][m].Degradation;
        }
        EXPECT_NEAR(rain, annual.Water[y].Precipitation, 0.05); // figures have four decimals of a cm
        EXPECT_NEAR(evaporated, annual.Water[y].Evapotranspiration, 0.05);
        EXPECT_NEAR(applied, annual.Pesticide[0][y].Application, 1e-2);
        EXPECT_NEAR(decayed, annual.Pesticide[0][y].Degradation, 1e-2);
    }
}

TEST_F(Tables_Of_A_Run, The_Changes_Of_Storage_Add_Up_To_What_Is_Stored_At_The_End)
{
    const auto balance = Build_Or_Load_Balance(Directory->Path(), Balance_View::Annual);

    double stored = 0;
    for (const auto& row : balance.Pesticide[0])
        stored += row.Diff_Storage;

    EXPECT_NEAR(stored, 1000 * Last_Total(File_Of(Directory->Path(), "chem.orv"), "STORED IN SOIL"),
                0.05); // six digits a term
    EXPECT_GT(balance.Pesticide[0][6].Application, 0);
}

TEST_F(Tables_Of_A_Run, Averages_In_The_Soil_Do_Not_Rise_With_Their_Window)
{
    const auto soil = Build_Soil_Concentrations(Directory->Path(), 5);

    ASSERT_EQ(soil.Failure, "");
    ASSERT_EQ(soil.Maximum.size(), 1U);
    const auto& maximum = soil.Maximum[0];
    EXPECT_GT(maximum[10].Value, 0);
    for (std::size_t w = 1; w < maximum.size(); ++w)
        EXPECT_LE(maximum[w].Value, maximum[w - 1].Value * (1 + 1e-12)) << w;
}

} // namespace orvel
