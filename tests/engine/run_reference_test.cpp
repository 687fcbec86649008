#include "core/numbers.h"
#include "core/text.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "verification.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace orvel::engine {

// Whole runs against a second model, which was written apart from the engine (reference/leaching_model.py).

namespace {

struct Reference_Year {
    double Percolate = 0, Evapotranspiration = 0; // cm
    double Leached = 0, Decay = 0, Stored = 0;    // kg/ha
};

std::vector<Reference_Year> Reference_Run(const std::filesystem::path& directory, const std::string& substance)
{
    const std::string command = "python3 '" ORVEL_REFERENCE "' '" + directory.string() + "' " + substance;
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    std::string output;
    std::array<char, 4096> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        output.append(buffer.data(), got);
    EXPECT_EQ(::pclose(pipe), 0);
    std::vector<Reference_Year> years;
    for (std::string_view line : Split_Lines(output)) {
        Next_Token(line);
        const auto next = [&line] { return Val(Next_Token(line)); };
        years.push_back({next(), next(), next(), next(), next()});
    }
    return years;
}

// Hamburg with winter cereals and a substance without vapour pressure; yearly figures from the year on, by which the
// substance has come down.
void Compare_With_Reference(const std::string& name, Engine_Case run, double water_tolerance, double leached_tolerance)
{
    Temporary_Directory directory;
    run.Pesticide.Vap_Press = {0, 0};
    run.Pesticide.Henry = {0, 0};
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const int top = Top_Layers(File_Of(directory.Path(), "echo.orv"));
    const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top);
    const auto solute = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top);

    const auto years = Reference_Run(directory.Path(), "60 0.9 0.0346574");

    ASSERT_EQ(years.size(), water.size());
    double percolate = 0, other_percolate = 0, leached = 0, other_leached = 0;
    for (std::size_t y = 0; y < years.size(); ++y) {
        const std::string year = name + ", year " + std::to_string(y + 1) + ": ";
        Verify_Relative(43, year + "percolate (cm)", water[y].Percolate, years[y].Percolate, water_tolerance);
        Verify_Relative(43, year + "evapotranspiration (cm)", water[y].Evapotranspiration + water[y].Canopy_Loss,
                        years[y].Evapotranspiration, 0.01);
        Verify_Relative(43, year + "decayed (kg/ha)", solute[y].Decay, years[y].Decay, 0.01);
        Verify_Relative(43, year + "stored (kg/ha)", solute[y].Stored, years[y].Stored, 0.01);
        percolate += water[y].Percolate;
        other_percolate += years[y].Percolate;
        leached += solute[y].Leached;
        other_leached += years[y].Leached;
    }
    Verify_Relative(43, name + ", all years: percolate (cm)", percolate, other_percolate, 0.01);
    Verify_Relative(43, name + ", all years: leached below 1 m (kg/ha)", leached, other_leached, leached_tolerance);
}

} // namespace

TEST(Run_Verification, Case_43_A_Second_Model_Of_A_Whole_Run)
{
    if (Sanitized)
        GTEST_SKIP() << "too long a run for a build with sanitizers";
    Compare_With_Reference("free drainage", Demo_Case("H", "_wcerea", "demo_D.psm", 8), 1e-3, 0.013);

    Engine_Case slow = Demo_Case("H", "_wcerea", "demo_D.psm", 4);
    slow.Scenario.SZE_Water_Flag = 1;
    for (Scenario_Horizon& horizon : slow.Scenario.Horizons)
        horizon.SZE_Hor_Drainage = 0.5;
    Compare_With_Reference("restricted drainage", slow, 0.05, 0.05);
}

} // namespace orvel::engine
