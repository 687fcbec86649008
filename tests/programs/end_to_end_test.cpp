// From a pesticide file through the real engine to the leachate table, as a user of the command line goes.
#include "programs/shell.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace orvel {

namespace fs = std::filesystem;

namespace {

Outcome Orvelctl(const std::string& arguments)
{
    return Shell(std::string(ORVELCTL) + " " + arguments + " 2>&1");
}

std::vector<std::string> Lines(const fs::path& file)
{
    std::ifstream in(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

double Column(const std::string& line, std::size_t first, std::size_t width)
{
    return first <= line.size() ? std::strtod(line.substr(first - 1, width).c_str(), nullptr) : 0;
}

// The figure of each year in an annual block's row of the compartment at 1 m, found by counting lines, not by the
// program's reader.
std::vector<double> Annual_Figures(const fs::path& file, const std::string& head, std::size_t layer_column, int layer,
                                   std::size_t column, std::size_t width)
{
    std::vector<double> figures;
    bool annual = false, table = false;
    for (const std::string& line : Lines(file)) {
        if (line.find("ANNUAL") != std::string::npos)
            annual = true;
        if (annual && line.find(head) != std::string::npos)
            table = true;
        else if (table && Column(line, layer_column, 3) == layer) {
            figures.push_back(Column(line, column, width));
            annual = table = false;
        }
    }
    return figures;
}

// The cells of the first table row that begins with a text.
std::vector<std::string> Row(const std::string& text, const std::string& beginning)
{
    const auto at = text.find("\t" + beginning);
    std::istringstream line(text.substr(at + 1, text.find('\n', at + 1) - at - 1));
    std::vector<std::string> cells;
    for (std::string cell; std::getline(line, cell, '\t');)
        cells.push_back(cell);
    return cells;
}

class End_To_End : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        Place = new Temporary_Directory;
        const auto laid = Orvelctl("init " + Installation().string());
        ASSERT_EQ(laid.Code, 0) << laid.Printed;
        const std::string at = "-C " + Installation().string();
        const auto marked =
            Orvelctl(at + " mark --mode focus --pesticide demo_D.psm --crop 'Winter cereals' --location 'Hamburg (H)'");
        ASSERT_EQ(marked.Code, 0) << marked.Printed;
        const auto run = Orvelctl(at + " start --mode focus --wait");
        ASSERT_EQ(run.Code, 0) << run.Printed;
    }
    static void TearDownTestSuite() { delete Place; }

    static fs::path Installation() { return Place->Path() / "installation"; }
    static fs::path Run() { return Installation() / "focus/demo_D.run/Winter_-_cereals.run/Hamburg_-_(H).run"; }

    static Temporary_Directory* Place;
};
Temporary_Directory* End_To_End::Place = nullptr;

} // namespace

TEST_F(End_To_End, The_Installation_Has_The_Engine_And_The_Utilities)
{
    for (const auto* name : {"orvel401.exe", "wyear.exe", "wmonth.exe", "wday.exe"})
        EXPECT_EQ(fs::status(Installation() / name).permissions() & fs::perms::owner_exec, fs::perms::owner_exec)
            << name;
}

TEST_F(End_To_End, The_Engine_Completes_The_Run)
{
    const auto echo = Lines(Run() / "echo.orv");

    ASSERT_FALSE(echo.empty());
    EXPECT_NE(echo.back().find("*** SIMULATION COMPLETED ***"), std::string::npos);
    EXPECT_FALSE(fs::exists(Run() / "orvel401.exe")); // the copy goes with the run
}

TEST_F(End_To_End, The_Total_Row_Agrees_With_The_Sums_In_The_Engines_Files)
{
    constexpr int layers_in_a_metre = 40; // compartments of 2.5 cm
    const auto percolate = Annual_Figures(Run() / "Wasser.orv", "HORIZON   COMPARTMENT", 13, layers_in_a_metre, 73, 13);
    const auto leached = Annual_Figures(Run() / "chem.orv", "RIZON PARTMENT", 10, layers_in_a_metre, 98, 11);
    ASSERT_EQ(percolate.size(), 26U);
    ASSERT_EQ(leached.size(), 26U);
    double water = 0, mass = 0;
    for (std::size_t year = 6; year < 26; ++year) { // the six warm-up years do not count
        water += percolate[year] * 10;
        mass += leached[year] * 1000;
    }

    const auto tables = Orvelctl("tables '" + Run().string() + "'");
    ASSERT_EQ(tables.Code, 0) << tables.Printed;
    const auto total = Row(tables.Printed, "Total");

    ASSERT_EQ(total.size(), 4U);
    EXPECT_NEAR(std::strtod(total[1].c_str(), nullptr), mass, 1e-6 * mass + 1e-7);
    EXPECT_NEAR(std::strtod(total[2].c_str(), nullptr), water, 0.005);
    EXPECT_NEAR(std::strtod(total[3].c_str(), nullptr), mass * 100 / water, 0.0005);
    EXPECT_GT(mass, 0);
}

TEST_F(End_To_End, The_Percentile_Is_The_Mean_Of_The_Fourth_And_Fifth_Highest_Year)
{
    const auto percolate = Annual_Figures(Run() / "Wasser.orv", "HORIZON   COMPARTMENT", 13, 40, 73, 13);
    const auto leached = Annual_Figures(Run() / "chem.orv", "RIZON PARTMENT", 10, 40, 98, 11);
    std::vector<double> concentrations;
    for (std::size_t year = 6; year < 26; ++year)
        concentrations.push_back(
            percolate[year] > 0 && leached[year] > 0 ? leached[year] * 1000 * 100 / (percolate[year] * 10) : 0);
    std::sort(concentrations.rbegin(), concentrations.rend());

    Orvelctl("tables '" + Run().string() + "'");
    const auto tables = Orvelctl("tables '" + Run().string() + "'"); // from the cache
    const auto percentile = Row(tables.Printed, "80 Perc.(");

    ASSERT_EQ(percentile.size(), 4U);
    EXPECT_NEAR(std::strtod(percentile[3].c_str(), nullptr), (concentrations[3] + concentrations[4]) / 2, 0.0005);
}

TEST_F(End_To_End, The_Report_Names_The_Location_With_Its_Percentile)
{
    const auto report =
        Orvelctl("-C " + Installation().string() + " report --mode focus --pesticide demo_D --crop 'Winter cereals'");

    EXPECT_EQ(report.Code, 0) << report.Printed;
    EXPECT_NE(report.Printed.find("FOCUS Summary Output File"), std::string::npos);
    EXPECT_NE(report.Printed.find("Hamburg (H)"), std::string::npos);
}

TEST_F(End_To_End, The_List_Shows_The_Run_As_Finished)
{
    const std::string at = "-C " + Installation().string();

    EXPECT_NE(Orvelctl(at + " status --mode focus").Printed.find("demo_D\tWinter cereals\tHamburg (H)\t"),
              std::string::npos);
    const auto status = Orvelctl(at + " status --mode focus --json");
    EXPECT_NE(status.Printed.find("\"Data available\""), std::string::npos) << status.Printed;
    EXPECT_NE(status.Printed.find("\"verdict\": \"complete\""), std::string::npos) << status.Printed;
}

TEST_F(End_To_End, A_Single_Run_Of_Three_Years_Is_Run_And_Archived)
{
    const fs::path place = Place->Path() / "single";
    fs::create_directories(place);
    fs::copy_file(Installation() / "demo_D.psm", place / "demo_D.psm");
    for (const char* name : {"H_wcerea.sze", "H_01.cli", "H_02.cli"})
        fs::copy_file(Installation() / "focus" / name, place / name);
    const fs::path before = fs::current_path();
    fs::current_path(place);
    const std::string single =
        "-C " + Installation().string() +
        " single --pesticide demo_D.psm --scenario H_wcerea.sze --climate H_01.cli,H_02.cli --years 3 --wait";

    const auto first = Orvelctl(single);
    const auto second = Orvelctl(single);
    const auto wrong = Orvelctl("-C " + Installation().string() +
                                " single --pesticide gone.psm --scenario H_wcerea.sze --climate H_01.cli --years 3");
    fs::current_path(before);

    EXPECT_EQ(first.Code, 0) << first.Printed;
    EXPECT_EQ(second.Code, 0) << second.Printed;
    EXPECT_NE(second.Printed.find("Earlier output is in Run_1."), std::string::npos) << second.Printed;
    EXPECT_EQ(wrong.Code, 1);
    EXPECT_NE(wrong.Printed.find("File check: gone.psm not found"), std::string::npos) << wrong.Printed;
    for (const char* name : {"echo.orv", "Wasser.orv", "chem.orv"}) {
        EXPECT_TRUE(fs::exists(place / name)) << name;
        EXPECT_TRUE(fs::exists(place / "Run_1" / name)) << name;
    }
    EXPECT_EQ(Annual_Figures(place / "Wasser.orv", "HORIZON   COMPARTMENT", 13, 40, 73, 13).size(), 3U);
}

TEST_F(End_To_End, An_Archived_Run_Is_Put_Back_By_Hand)
{
    const fs::path place = Place->Path() / "put_back", archive = place / "Run_1";
    fs::create_directories(place);
    fs::copy_file(Installation() / "demo_D.psm", place / "demo_D.psm");
    for (const char* name : {"H_wcerea.sze", "C_wcerea.sze", "H_01.cli", "C_01.cli"})
        fs::copy_file(Installation() / "focus" / name, place / name);
    const fs::path before = fs::current_path();
    fs::current_path(place);
    const std::string single = "-C " + Installation().string() + " single --pesticide demo_D.psm --years 1 --wait ";
    const auto first = Orvelctl(single + "--scenario H_wcerea.sze --climate H_01.cli");
    const auto hamburg = Lines("Wasser.orv");
    const auto second = Orvelctl(single + "--scenario C_wcerea.sze --climate C_01.cli");
    const auto chateaudun = Lines("Wasser.orv");

    for (const auto& entry : fs::directory_iterator(archive))
        fs::copy_file(entry.path(), place / entry.path().filename(), fs::copy_options::overwrite_existing);
    const auto put_back = Lines("Wasser.orv");
    const int run_again = std::system((Installation() / "orvel401.exe >/dev/null").c_str());
    const auto again = Lines("Wasser.orv");
    fs::current_path(before);

    EXPECT_EQ(first.Code, 0) << first.Printed;
    EXPECT_EQ(second.Code, 0) << second.Printed;
    EXPECT_NE(hamburg, chateaudun);
    EXPECT_EQ(put_back, hamburg);
    EXPECT_EQ(run_again, 0);
    EXPECT_EQ(again, hamburg); // its input came back with it
    EXPECT_GT(hamburg.size(), 10U);
}

TEST_F(End_To_End, Soil_Runs_Of_Both_Tiers_Reach_Their_Concentration_Tables)
{
    const std::string at = "-C " + Installation().string();
    const std::string what = " --pesticide demo_S.psm --crop 'Winter cereals' --location 'Total content - North (T_N)'";
    double warmer = 0;
    for (const std::string mode : {"efsa", "efsa_t4"}) {
        const auto marked = Orvelctl(at + " mark --mode " + mode + what + (mode == "efsa_t4" ? " --scaling 4" : ""));
        ASSERT_EQ(marked.Code, 0) << marked.Printed;
        const auto run = Orvelctl(at + " start --mode " + mode + " --wait");
        ASSERT_EQ(run.Code, 0) << run.Printed;
        const fs::path place = Installation() / (mode == "efsa" ? "EFSA" : "EFSA_T4") /
                               "demo_S.run/Winter_-_cereals.run/Total_-_content_-_-_-_North_-_(T_N).run";

        const auto table = Orvelctl("pecsoil '" + place.string() + "' --depth 5");

        ASSERT_EQ(table.Code, 0) << table.Printed;
        EXPECT_TRUE(fs::exists(place / "PECsoil_5.orv"));
        const auto head = table.Printed.find("PEC(mg/kg)");
        ASSERT_NE(head, std::string::npos) << table.Printed;
        const auto row = table.Printed.find('\n', head) + 1; // the window of the actual maximum, 0, prints as blanks
        const auto cell = table.Printed.find('\t', row + 1) + 1;
        const double actual = std::strtod(table.Printed.c_str() + cell, nullptr);
        // 1 kg/ha in 5 cm of soil of 0.707 g/cm3 is 2.83 mg/kg, beside what is left of the years before.
        EXPECT_GT(actual, 2.0);
        EXPECT_LT(actual, 6.0);
        if (mode == "efsa")
            warmer = actual;
        else
            EXPECT_LT(actual, warmer); // 4 degrees more let less remain from year to year
    }
}

TEST_F(End_To_End, A_Series_Is_Printed_Summed_And_Painted)
{
    const std::string series = "-C " + Installation().string() + " series '" + Run().string() + "' --column 3";

    const auto rate = Orvelctl(series + " --from 7-01 --to 7-12"),
               sum = Orvelctl(series + " --from 7-01 --to 7-12 --cumulative");
    const fs::path picture = Place->Path() / "percolate.png";
    const auto painted = Orvelctl(series + " --to-file " + picture.string());
    const auto beyond = Orvelctl("-C " + Installation().string() + " series '" + Run().string() + "' --column 99");

    ASSERT_EQ(rate.Code, 0) << rate.Printed;
    EXPECT_TRUE(rate.Printed.starts_with("day,Percolate at 100 cm (cm/d)\n")) << rate.Printed.substr(0, 60);
    EXPECT_TRUE(sum.Printed.starts_with("day,Cumulative Percolate at 100 cm (cm)\n")) << sum.Printed.substr(0, 60);
    EXPECT_EQ(std::count(rate.Printed.begin(), rate.Printed.end(), '\n'), 1 + 365);
    // The year's sum is the percolate at 1 m of the water balance.
    const auto percolate = Annual_Figures(Run() / "Wasser.orv", "HORIZON   COMPARTMENT", 13, 40, 73, 13);
    const auto last = sum.Printed.rfind(',');
    EXPECT_NEAR(std::strtod(sum.Printed.c_str() + last + 1, nullptr), percolate[6], 0.01 * percolate[6] + 0.001);
    EXPECT_EQ(painted.Code, 0) << painted.Printed;
    EXPECT_GT(fs::file_size(picture), 5000U);
    EXPECT_EQ(beyond.Code, 1);
}

} // namespace orvel
