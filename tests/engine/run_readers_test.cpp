#include "core/numbers.h"
#include "engine_process.h"
#include "output/echo_file.h"
#include "output_blocks.h"
#include "tables/balance_tables.h"
#include "tables/leachate_tables.h"
#include "tables/soil_concentrations.h"
#include "verification.h"

namespace orvel::engine {

// The program's own tables out of real output, against figures taken from the files another way.

namespace {

constexpr std::string_view Hostile = "ANNUAL ERROR MONTHLY RIZON PARTMENT";

} // namespace

namespace {

// How far a figure of a table, which is held as printed, lies from the engine's, in units of its last printed digit.
double Print_Units(double figure, double engine)
{
    const std::string text = Number_Text('F', engine, 0);
    const auto point = text.find('.'), exponent = text.find('E');
    const auto digits_end = std::min(exponent, text.find_last_of("0123456789") + 1);
    const double decimals = point == std::string::npos ? 0 : static_cast<double>(digits_end - point - 1);
    const double power = exponent == std::string::npos ? 0 : Val(text.substr(exponent + 1));
    return std::fabs(figure - engine) / std::pow(10.0, power - decimals);
}

} // namespace

TEST(Run_Verification, Case_29_Leachate_Tables_Read_Real_Output)
{
    for (const int every : {1, 7}) {
        Temporary_Directory directory;
        Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 26);
        run.Scenario.SZE_Title = run.Pesticide.PSM_Title = run.Pesticide.Substance_Name[2] = Hostile;
        run.Scenario.SZE_Out_Every_Water = run.Scenario.SZE_Out_Every_Solute = every;
        run.Rows = {Row_Of("LEAC", 100)};
        ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
        const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", 40);
        const std::string name = "every " + std::to_string(every) + ": ";

        const Leachate_Tables tables = Build_Or_Load(directory.Path());

        EXPECT_EQ(tables.Failure, "");
        EXPECT_TRUE(tables.Kept);
        ASSERT_EQ(tables.Year[0].size(), 2U);
        for (const std::size_t substance : {std::size_t{0}, std::size_t{1}}) {
            const auto solute =
                Solute_Blocks(File_Of(directory.Path(), substance == 0 ? "chem.orv" : "chem_A1.orv"), "ANNUAL", 40);
            const auto& metre = tables.Year[0][substance].Rows;
            const auto& bottom = tables.Year[1][substance].Rows;
            Compare(29, name + "years of the leachate table", static_cast<double>(metre.size()), 26, 0);
            ASSERT_EQ(metre.size(), 26U);
            double flux = 0, percolate = 0;
            for (std::size_t y = 0; y < 26; ++y) {
                flux = std::max({flux, Print_Units(metre[y].Flux, 1000 * solute[y].Leached),
                                 Print_Units(bottom[y].Flux, 1000 * solute[y].Leached_Core)});
                percolate = std::max({percolate, Print_Units(metre[y].Percolate, 10 * water[y].Percolate),
                                      Print_Units(bottom[y].Percolate, 10 * water[y].Recharge)});
            }
            Compare(29, name + "leached mass by the table (units of its last digit)", flux, 0, 0.501);
            Compare(29, name + "percolate by the table (units of its last digit)", percolate, 0, 0.501);
            EXPECT_GT(tables.Year[0][substance].Result.P80.Flux, 0);
        }
    }
}

TEST(Run_Verification, Case_29_Balance_Tables_Read_Real_Output)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("J", "_potato", "demo_C.psm", 8);
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = "MNTH";
    run.Scenario.SZE_Title = Hostile;
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    EXPECT_TRUE(Read_Echo(directory.Path()).Layers().Has_Monthly_Output);
    EXPECT_FALSE(Simulation_Failed(directory.Path()));
    EXPECT_EQ(Read_Echo(directory.Path()).Substance_Names.size(), 2U);
    for (const auto& [view, title, rows] :
         {std::tuple{Balance_View::Annual, "ANNUAL", 8}, std::tuple{Balance_View::Monthly, "MONTHLY", 96}}) {
        const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), title, 40);
        const Balance_Tables tables = Build_Or_Load_Balance(directory.Path(), view);

        EXPECT_EQ(tables.Failure, "");
        ASSERT_EQ(tables.Water.size(), static_cast<std::size_t>(rows));
        ASSERT_EQ(tables.Pesticide.size(), 2U);
        double worst = 0, storage = 0;
        for (std::size_t k = 0; k < tables.Water.size(); ++k) {
            const Water_Balance_Row& row = tables.Water[k];
            const Water_Year& block = water[k];
            worst = std::max({worst, Print_Units(row.Precipitation, 10 * (block.Precipitation + block.Melt)),
                              Print_Units(row.Runoff, 10 * block.Runoff),
                              Print_Units(row.Evapotranspiration, 10 * (block.Evapotranspiration + block.Canopy_Loss)),
                              Print_Units(row.Percolate, 10 * block.Recharge)});
            storage = std::max(storage, std::fabs(row.Diff_Storage - 10 * block.Change));
        }
        Compare(29, std::string(title) + " water balance by the table (units of its last digit)", worst, 0, 0.501);
        Compare(29, std::string(title) + " change of storage that the table finds (L/m2)", storage, 0, 5e-3);
        for (const std::size_t substance : {std::size_t{0}, std::size_t{1}}) {
            const auto solute =
                Solute_Blocks(File_Of(directory.Path(), substance == 0 ? "chem.orv" : "chem_A1.orv"), title, 40);
            double stored = 0, mass = 0;
            for (std::size_t k = 0; k < solute.size(); ++k) {
                const Pesticide_Balance_Row& row = tables.Pesticide[substance][k];
                mass = std::max({mass, std::fabs(row.Application - 1000 * solute[k].Gained),
                                 std::fabs(row.Degradation - 1000 * solute[k].Decay)});
                mass = std::max(mass, std::fabs(row.Diff_Storage - 1000 * (solute[k].Stored - stored)));
                stored = solute[k].Stored;
            }
            Compare(29, std::string(title) + " pesticide balance by the table (g/ha)", mass, 0, 0.05);
        }
    }
}

TEST(Run_Verification, Case_29_Soil_Concentrations_Read_Real_Output)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("T_C", "_maize", "demo_S.psm", 8);
    run.Header_Tail = " Version 5          SOIL 0 ";
    run.Count_Tail = "    0.000000020";
    run.Profile_Rows = 20;
    run.Rows = {Row_Of("PRSN", 0), Row_Of("TEMP", 5)};
    for (int depth = 1; depth <= 20; ++depth)
        run.Rows.push_back(Row_Of("TPSC", depth));
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    double highest = 0; // mean of the top five centimetres behind the warm-up
    for (const Plot_Line& line : Read_Plot(File_Of(directory.Path(), "plot.orv")).Lines) {
        double mean = 0;
        for (std::size_t layer = 0; layer < 5; ++layer)
            mean += line.Values[2 + layer] / 5;
        if (line.Day > 2190)
            highest = std::max(highest, mean);
    }

    const Soil_Concentrations table = Build_Soil_Concentrations(directory.Path(), 5);

    EXPECT_EQ(table.Failure, "");
    ASSERT_EQ(table.Maximum.size(), 1U);
    Compare_Relative(29, "actual maximum of the top 5 cm (mg/kg)", table.Maximum[0][0].Value, highest, 1e-6);
    EXPECT_GT(highest, 1);
}

} // namespace orvel::engine
