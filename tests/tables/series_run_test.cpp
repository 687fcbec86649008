#include "tables/series.h"

#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "engine/engine_case.h"
#include "engine/engine_process.h"
#include "tables/series_table.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvel {

using namespace engine;

// What the daily diagram sums up over a year is what the balances of the same run tell, for every flow.

namespace {

constexpr int Years = 4;

// The days of the run; every fourth year has a 29 February.
std::string Calendar()
{
    std::string text;
    int number = 0;
    for (int year = 1; year <= Years; ++year) {
        const std::array<int, 12> days = {31, year % 4 == 0 ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= days[static_cast<std::size_t>(month) - 1]; ++day)
                text += std::to_string(++number) + " " + std::to_string(day) + " " + std::to_string(month) + " " +
                        std::to_string(year) + "\r\n";
        }
    }
    return text;
}

// The annual block of a year.
std::vector<std::string> Block(const std::string& file, int year)
{
    std::vector<std::string> lines;
    for (const auto line : Split_Lines(file)) {
        if (Contains(line, "*** ANNUAL"))
            --year;
        if (year == 0)
            lines.emplace_back(line);
    }
    return lines;
}

double Total(const std::vector<std::string>& block, std::string_view anchor)
{
    for (const auto& line : block) {
        if (Contains(line, anchor))
            return Val(Columns(line, 40, 12));
    }
    ADD_FAILURE() << "no line with " << anchor;
    return 0;
}

// The application column summed over the rows of the compartments.
double Applied(const std::vector<std::string>& block)
{
    double sum = 0;
    bool inside = false;
    for (const auto& line : block) {
        inside = (inside || Contains(line, "RIZON PARTMENT")) && !Contains(line, "* DECAY FOR COMPARTMENT 1");
        if (inside)
            sum += Val(Columns(line, 19, 12));
    }
    return sum;
}

// One run for all tests: its columns are those of Rows.
struct Series_Of_A_Run : testing::Test {
    static void SetUpTestSuite()
    {
        Directory = new Temporary_Directory;
        Case = new Engine_Case(Demo_Case("H", "_maize", "demo_C.psm", Years));
        for (const int substance : {1, 2}) {
            for (const auto* code : {"TPAP", "TDKF", "TUPF", "TVOX", "RFLX", "EFLX", "TDKQ", "TDKN"})
                Case->Rows.push_back(Row_Of(code, 0, substance));
            Case->Rows.push_back(Row_Of("PFLX", Case->Scenario.SZE_Core_Depth, substance));
        }
        Case->Rows.push_back(Row_Of("INFL", Case->Scenario.SZE_Core_Depth));
        Case->Header_Tail = " Version 5          SOIL 0 "; // days of applications have 24 lines
        auto files = Case->Files();
        files["datum.dat"] = Calendar();
        Write_Files(files, Directory->Path());
        ASSERT_EQ(Run_Engine(Directory->Path()).Exit_Code, 0);
    }
    static void TearDownTestSuite()
    {
        delete Case;
        delete Directory;
    }

    // The sum of a year by the diagram's rule.
    static double Sum(std::string_view code, int substance, int year)
    {
        for (std::size_t c = 0; c < Case->Rows.size(); ++c) {
            if (Case->Rows[c].Code != code || Case->Rows[c].Substance != substance)
                continue;
            const Daily_Request request{Output_Variable_Number(code), true, {1, year}, {12, year}};
            const auto series =
                Read_Daily_Series(*Directory / "datum.dat", Directory->Path(), static_cast<int>(c) + 1, request);
            return series.Points.empty() ? NAN : series.Points.back().Y;
        }
        ADD_FAILURE() << "no column " << code;
        return NAN;
    }

    // Values of the series have five digits.
    static void Expect_Same(double sum, double total) { EXPECT_NEAR(sum, total, 1e-4 * total + 1e-12); }

    static inline Temporary_Directory* Directory = nullptr;
    static inline Engine_Case* Case = nullptr;
};

TEST_F(Series_Of_A_Run, Sums_Of_A_Year_Are_The_Totals_Of_The_Balances_In_Kg_Per_Hectare)
{
    const std::array<const char*, 2> files = {"chem.orv", "chem_A1.orv"};
    for (int substance = 1; substance <= 2; ++substance) {
        const auto file = File_Of(Directory->Path(), files[static_cast<std::size_t>(substance) - 1]);
        for (int year = 1; year <= Years; ++year) {
            SCOPED_TRACE(std::string(files[static_cast<std::size_t>(substance) - 1]) + ", year " +
                         std::to_string(year));
            const auto block = Block(file, year);
            ASSERT_FALSE(block.empty());

            Expect_Same(Sum("TPAP", substance, year), Applied(block));
            Expect_Same(Sum("TDKF", substance, year), Total(block, "TOTAL DECAY OF "));
            Expect_Same(Sum("TUPF", substance, year), Total(block, "TOTAL PLANT UPTAKE OF"));
            Expect_Same(Sum("RFLX", substance, year) + Sum("EFLX", substance, year), Total(block, "TOTAL RUNOFF"));
            Expect_Same(Sum("PFLX", substance, year), Total(block, "LEACHED BELOW CORE"));
            if (substance == 1) {
                Expect_Same(Sum("TVOX", substance, year), Total(block, "TOTAL VOLATILIZATION"));
            }
            Expect_Same(Sum("TDKQ", substance, year) + Sum("TDKN", substance, year), Total(block, "TOTAL DECAY OF "));
        }
    }
}

TEST_F(Series_Of_A_Run, The_Run_Holds_Applications_And_Hourly_Days_To_Be_Compared)
{
    EXPECT_EQ(Read_Plot_Column(Directory->Path() / "plot.orv", 1).size(),
              4U * 365 + 1 + 4 * 23); // one application a year
    EXPECT_GT(Applied(Block(File_Of(Directory->Path(), "chem.orv"), 1)), 0.5);
    EXPECT_GT(Applied(Block(File_Of(Directory->Path(), "chem_A1.orv"), 1)), 0.01);
}

TEST_F(Series_Of_A_Run, Percolate_Sums_To_The_Recharge_Below_The_Core)
{
    const auto file = File_Of(Directory->Path(), "Wasser.orv");
    for (int year = 1; year <= Years; ++year)
        Expect_Same(Sum("INFL", 1, year), Total(Block(file, year), "RECHARGE BELOW CORE"));
}

// The rows of a utility's table, as numbers.
std::vector<std::vector<double>> Rows_Of(const std::string& table)
{
    std::vector<std::vector<double>> rows;
    bool inside = false;
    for (const auto line : Split_Lines(table)) {
        if (Contains(line, "----")) {
            inside = !inside;
        } else if (inside) {
            auto& row = rows.emplace_back();
            for (auto at = line.find('\t'); at != std::string_view::npos; at = line.find('\t', at + 1))
                row.push_back(Val(line.substr(at + 1)));
        }
    }
    return rows;
}

TEST_F(Series_Of_A_Run, The_Table_By_Year_Has_The_Totals_Of_The_Balances)
{
    const auto rows = Rows_Of(Series_Table(Utility::Year, Directory->Path(), Parse_Calendar(Calendar())));
    constexpr std::size_t First = 2, Per_Substance = 9; // columns of the date, columns of a substance

    ASSERT_EQ(rows.size(), static_cast<std::size_t>(Years));
    for (int year = 1; year <= Years; ++year) {
        const auto& row = rows[static_cast<std::size_t>(year) - 1];
        EXPECT_EQ(row[0], year);
        EXPECT_EQ(row[1], year % 4 == 0 ? 366 : 365);
        for (std::size_t substance = 0; substance < 2; ++substance) {
            const auto block = Block(File_Of(Directory->Path(), substance == 0 ? "chem.orv" : "chem_A1.orv"), year);
            const auto* at = &row[First + Per_Substance * substance];
            // Three digits remain of an amount below 0.001 kg/ha.
            const auto expect_same = [](double cell, double total) {
                EXPECT_NEAR(cell, total, 6e-3 * std::abs(total) + 1e-12);
            };
            expect_same(at[0], Applied(block));
            expect_same(at[1], Total(block, "TOTAL DECAY OF "));
            expect_same(at[2], Total(block, "TOTAL PLANT UPTAKE OF"));
            expect_same(at[4] + at[5], Total(block, "TOTAL RUNOFF"));
            expect_same(at[8], Total(block, "LEACHED BELOW CORE"));
        }
        EXPECT_NEAR(row.back(), Total(Block(File_Of(Directory->Path(), "Wasser.orv"), year), "RECHARGE BELOW CORE"),
                    1e-3);
    }
}

TEST_F(Series_Of_A_Run, Months_And_Days_Sum_To_The_Years)
{
    const auto calendar = Parse_Calendar(Calendar());
    const auto years = Rows_Of(Series_Table(Utility::Year, Directory->Path(), calendar));
    constexpr std::size_t Dates = 3;
    for (const auto period : {Utility::Month, Utility::Day}) {
        std::vector<std::vector<double>> sums(Years, std::vector<double>(Case->Rows.size()));
        const auto rows = Rows_Of(Series_Table(period, Directory->Path(), calendar));
        EXPECT_EQ(rows.size(), period == Utility::Month ? 12U * Years : 4U * 365 + 1);
        for (const auto& row : rows) {
            for (std::size_t i = 0; i < Case->Rows.size(); ++i)
                sums[static_cast<std::size_t>(row[0]) - 1][i] += row[Dates + i];
        }
        for (std::size_t year = 0; year < years.size(); ++year) {
            for (std::size_t i = 0; i < Case->Rows.size(); ++i)
                EXPECT_NEAR(years[year][i + 2], sums[year][i], 6e-3 * std::abs(sums[year][i]) + 1e-12)
                    << "year " << year + 1 << ", column " << i + 1;
        }
    }
}

} // namespace

} // namespace orvel
