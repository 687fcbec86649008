#include "core/numbers.h"
#include "core/text.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "verification.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace orvel::engine {

// Whole runs whose losses at the surface must not depend on the parts that a day is cut into, and their size.

namespace {

// How a day comes to be cut: not at all, once or at every hour by applications of next to nothing, by a soil run.
enum class Cut { None, Noon, Hours, Soil_Run };

constexpr std::pair<Cut, const char*> Cuts[] = {
    {Cut::Noon, "an application of nothing at noon"},
    {Cut::Hours, "one at each hour"},
    {Cut::Soil_Run, "soil run"},
};

constexpr double Rain = 4; // cm, on 30 May

// Bare soil at field capacity, without evaporation, and one day of rain; 1 kg/ha falls at its hour 0, does not decay
// and sorbs linearly.
Engine_Case Rainy_Day(double koc, Cut cut)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 1);
    Pesticide_Document& pesticide = run.Pesticide;
    pesticide.Vap_Press = pesticide.Henry = {0, 0};
    pesticide.Koc[1] = koc;
    pesticide.Fr_Exp[1] = 1;
    for (auto& row : pesticide.Degradation[1])
        row.Deg_Rate = 0;
    Scenario_Document& scenario = run.Scenario;
    scenario.SZE_ET_Method = 0;
    for (Crop_Row& crop : scenario.Crops)
        crop.SZE_Rot_Text2 = 0;
    std::string climate = "one day of rain\r\n";
    for (std::string_view line : Split_Lines(run.Climates[0])) {
        if (line.size() < 7 || line[0] != ' ')
            continue;
        const bool wet = line.substr(1, 4) == "3005";
        climate += std::string(line.substr(0, 7)) + (wet ? "4.0000    " : "0.0000    ") +
                   "0.0000    13.00     10.00     6.00      70.0      10000\r\n";
    }
    run.Climates[0] = climate;
    Application application{.App_Day = 30, .App_Month = 5, .App_Year = 1, .App_Rate = 1};
    pesticide.App_Method = 1;
    pesticide.App_Mode = 0;
    std::vector<Application> applications{application};
    application.App_Rate = 1e-9;
    for (int hour = 1; hour < 24; ++hour) {
        application.App_Crop_Flag = static_cast<std::int16_t>(hour);
        if (cut == Cut::Hours || (cut == Cut::Noon && hour == 12))
            applications.push_back(application);
    }
    for (std::size_t block = 0; block < pesticide.Applications.size(); ++block) {
        pesticide.App_Count[block] = static_cast<double>(applications.size());
        for (std::size_t a = 0; a < applications.size(); ++a)
            pesticide.Applications[block][a + 1] = applications[a];
    }
    if (cut == Cut::Soil_Run)
        run.Header_Tail = "          SOIL   0.0";
    return run;
}

Engine_Case With_Bypass(Engine_Case run)
{
    run.Scenario.SZE_Macropore = 1;
    run.Scenario.SZE_Macro_Depth = 60;
    run.Scenario.SZE_Macro_Threshold = 1;
    run.Scenario.SZE_Macro_Fraction = 0.2; // of 3 cm
    return run;
}

Engine_Case With_Runoff(Engine_Case run)
{
    run.Scenario.SZE_Runoff_Depth = 2;
    for (Crop_Row& crop : run.Scenario.Crops)
        crop.SZE_Rot_CN1 = crop.SZE_Rot_CN2 = crop.SZE_Rot_CN3 = 91;
    return run;
}

Engine_Case With_Erosion(Engine_Case run)
{
    run = With_Runoff(std::move(run));
    Scenario_Document& scenario = run.Scenario;
    scenario.SZE_Erosion = 1;
    scenario.SZE_Eros_K = 0.3;
    scenario.SZE_Eros_2 = scenario.SZE_Eros_3 = 1;
    scenario.SZE_Eros_4 = 10;
    scenario.SZE_Eros_5 = 2;
    for (Crop_Row& crop : scenario.Crops)
        crop.SZE_Rot_USLE1 = crop.SZE_Rot_USLE2 = crop.SZE_Rot_USLE3 = 1;
    return run;
}

struct Day_Loss {
    double Runoff = 0, Sediment = 0, Bypass = 0; // kg/ha
    double Water = 0;                            // cm that ran off
};

Day_Loss Loss_Of(const Engine_Case& run)
{
    Temporary_Directory directory;
    EXPECT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const int top = Top_Layers(File_Of(directory.Path(), "echo.orv"));
    const Solute_Year year = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top).at(0);
    const Water_Year water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top).at(0);
    return {year.Runoff - year.Sediment, year.Sediment, year.Bypass, water.Runoff};
}

// What runoff and bypass take from the first horizon in the day, kg/ha, by the second model.
std::pair<double, double> Reference_Loss(const Engine_Case& run, double runoff, double bypass)
{
    const Scenario_Horizon& soil = run.Scenario.Horizons.front();
    const double density = soil.SZE_Hor_Bulk_Density.Number(), theta = soil.SZE_Hor_FC.Number();
    const double kd = run.Pesticide.Koc[1].Number() * soil.SZE_Hor_OC.Number() / 100;
    std::string command = "python3 '" ORVEL_SURFACE_REFERENCE "' 5";
    for (const double figure : {theta, std::max(1 - density / 2.65, theta + 0.01), density, kd,
                                soil.SZE_Hor_Dispersion.Number(), Rain - runoff - bypass, runoff, 2.0, bypass})
        command += " " + General_Text(figure);
    std::FILE* const pipe = ::popen(command.c_str(), "r");
    double by_runoff = -1, by_bypass = -1;
    EXPECT_EQ(std::fscanf(pipe, "%lf %lf", &by_runoff, &by_bypass), 2);
    EXPECT_EQ(::pclose(pipe), 0);
    return {by_runoff, by_bypass};
}

constexpr double Tolerance = 0.05;

} // namespace

TEST(Run_Verification, Case_44_Bypass_And_Runoff_Of_A_Day_Against_A_Second_Model)
{
    for (const double koc : {60.0, 1000.0}) {
        const std::string name = "Koc " + General_Text(koc) + ": ";
        const Engine_Case pores = With_Bypass(Rainy_Day(koc, Cut::None));
        Verify_Relative(44, name + "with the bypass of 0.6 cm (kg/ha)", Loss_Of(pores).Bypass,
                        Reference_Loss(pores, 0, 0.6).second, Tolerance);
        const Engine_Case slope = With_Runoff(Rainy_Day(koc, Cut::None));
        const Day_Loss loss = Loss_Of(slope);
        EXPECT_GT(loss.Water, 2);
        Verify_Relative(44, name + "with runoff (kg/ha)", loss.Runoff, Reference_Loss(slope, loss.Water, 0).first,
                        Tolerance);
    }
}

TEST(Run_Verification, Case_44_Losses_Do_Not_Depend_On_The_Parts_Of_A_Day)
{
    const Day_Loss pores = Loss_Of(With_Bypass(Rainy_Day(60, Cut::None)));
    const Day_Loss slope = Loss_Of(With_Runoff(Rainy_Day(60, Cut::None)));
    const Day_Loss soil = Loss_Of(With_Erosion(Rainy_Day(1000, Cut::None)));
    EXPECT_GT(soil.Sediment, 0.01);
    for (const auto& [cut, words] : Cuts) {
        const std::string by = std::string(" (kg/ha), ") + words + ", against a whole day";
        Compare_Relative(44, "with bypass" + by, Loss_Of(With_Bypass(Rainy_Day(60, cut))).Bypass, pores.Bypass,
                         Tolerance);
        Compare_Relative(44, "with runoff" + by, Loss_Of(With_Runoff(Rainy_Day(60, cut))).Runoff, slope.Runoff,
                         Tolerance);
        const Day_Loss eroded = Loss_Of(With_Erosion(Rainy_Day(1000, cut)));
        Compare_Relative(44, "with runoff beside erosion" + by, eroded.Runoff, soil.Runoff, Tolerance);
        Compare_Relative(44, "with sediment" + by, eroded.Sediment, soil.Sediment, Tolerance);
    }
}

// The deposit of the day before is washed off while runoff and bypass take from the soil.
TEST(Run_Verification, Case_44_Wash_Off_Does_Not_Depend_On_The_Parts_Of_A_Day)
{
    const auto washed = [](Cut cut) {
        Engine_Case run = Rainy_Day(60, cut);
        run.Pesticide.App_Method = 4;
        run.Pesticide.Plant_Washoff = 0.5;
        for (auto& location : run.Pesticide.Applications) {
            location[1].App_Day = 29;
            for (Application& application : location)
                application.App_Frpex = 100;
        }
        return run;
    };
    const Day_Loss pores = Loss_Of(With_Bypass(washed(Cut::None))), slope = Loss_Of(With_Runoff(washed(Cut::None)));
    for (const auto& [cut, words] : Cuts) {
        const std::string by = std::string(", washed from leaves (kg/ha), ") + words + ", against a whole day";
        Compare_Relative(44, "with bypass" + by, Loss_Of(With_Bypass(washed(cut))).Bypass, pores.Bypass, Tolerance);
        Compare_Relative(44, "with runoff" + by, Loss_Of(With_Runoff(washed(cut))).Runoff, slope.Runoff, Tolerance);
    }
}

namespace {

constexpr int Vapour_Years = Sanitized ? 2 : 6;

// Demonstration weather, 1 kg/ha on 1 May of each year onto bare soil.
Engine_Case Vapour_Case(double pressure, double solubility, double koc)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", Vapour_Years);
    Pesticide_Document& pesticide = run.Pesticide;
    pesticide.Henry_Flag = 1;
    pesticide.Vap_Press = {pressure, 4 * pressure};
    pesticide.Solubility = {solubility, 2 * solubility};
    pesticide.Volat_Temp = {20, 30};
    pesticide.Diff_Air = 0.05;
    pesticide.Depth_Volat = 0.1;
    pesticide.Molmass[1] = 300;
    pesticide.Koc[1] = koc;
    pesticide.App_Method = 1;
    pesticide.App_Mode = 0;
    for (std::size_t block = 0; block < pesticide.Applications.size(); ++block) {
        pesticide.App_Count[block] = Vapour_Years;
        for (std::size_t a = 1; a <= Vapour_Years; ++a)
            pesticide.Applications[block][a] = {
                .App_Day = 1, .App_Month = 5, .App_Year = static_cast<std::int16_t>(a), .App_Rate = 1};
    }
    run.Rows = {Row_Of("TVOX", 0), Row_Of("TEMP", 0)};
    return run;
}

double Volatilised(const Engine_Case& run)
{
    Temporary_Directory directory;
    EXPECT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const int top = Top_Layers(File_Of(directory.Path(), "echo.orv"));
    double sum = 0;
    for (const Solute_Year& year : Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top))
        sum += year.Volatilised;
    return sum;
}

} // namespace

TEST(Run_Verification, Case_44_Volatilisation_Does_Not_Depend_On_The_Parts_Of_A_Day)
{
    for (const double pressure : {1e-3, 1e-2}) {
        Engine_Case run = Vapour_Case(pressure, 90, 60);
        const double whole = Volatilised(run);
        run.Header_Tail = "          SOIL   0.0";
        Compare_Relative(44, "volatilised at " + General_Text(pressure) + " Pa (kg/ha), soil run, against whole days",
                         Volatilised(run), whole, 0.02);
    }
}

// No more leaves the soil in a day than crosses the boundary layer of 0.1 cm from saturated air: by hand
// Da/d . VP M/(R T), with Da = 0.05 cm2/s . (T/293.15)^1.75 and the vapour pressure between its two points.
TEST(Run_Verification, Case_45_No_More_Evaporates_Than_Saturated_Air_Carries)
{
    for (const double solubility : {90.0, 1.0, 0.01}) {
        Temporary_Directory directory;
        ASSERT_EQ(Run_Case(Vapour_Case(1e-4, solubility, 10), directory.Path()).Exit_Code, 0);
        double most = 0; // of the daily flux, relative to the hand calculation
        for (const Plot_Line& line : Read_Plot(File_Of(directory.Path(), "plot.orv")).Lines) {
            const double kelvin = 273.15 + line.Values.at(1);
            const double pressure = 1e-4 * std::pow(4, (1 / 293.15 - 1 / kelvin) / (1 / 293.15 - 1 / 303.15));
            const double vapour = pressure * 300 / (8.314 * kelvin);                                    // ug/cm3
            const double crossing = 86400 * 0.05 * std::pow(kelvin / 293.15, 1.75) / 0.1 * vapour / 10; // kg/ha/d
            most = std::max(most, line.Values.at(0) / crossing);
        }
        Verify(45, "largest daily flux over that from saturated air, solubility " + General_Text(solubility) + " mg/L",
               most, 1, 0.01);
        const std::string echo = File_Of(directory.Path(), "echo.orv");
        EXPECT_NE(
            echo.find("NOTE 19: THE DISSOLVED CONCENTRATION OF THE ACTIVE SUBSTANCE WAS ABOVE ITS SOLUBILITY ON "),
            std::string::npos);
    }
}

// Both kernels, with everything that acts at the surface and saturated air.
TEST(Run_Verification, Case_45_Surface_Losses_Have_The_Same_Bytes_By_Both_Kernels)
{
    const auto bytes = [](const std::string& arguments) {
        Temporary_Directory directory;
        Write_Files(With_Erosion(With_Bypass(Vapour_Case(1e-4, 1, 60))).Files(), directory.Path());
        EXPECT_EQ(Run_Engine(directory.Path(), arguments).Exit_Code, 0);
        return File_Of(directory.Path(), "chem.orv") + File_Of(directory.Path(), "plot.orv");
    };
    const std::string best = bytes("");
    EXPECT_NE(best.find("THEREOF"), std::string::npos);
    EXPECT_EQ(best, bytes("--baseline"));
}

TEST(Run_Verification, Case_45_What_Dissolves_Is_Not_Noted)
{
    Temporary_Directory directory;
    ASSERT_EQ(Run_Case(Vapour_Case(1e-4, 1e6, 10), directory.Path()).Exit_Code, 0);
    EXPECT_EQ(File_Of(directory.Path(), "echo.orv").find("NOTE 19"), std::string::npos);
}

// The note is there without volatilisation, too: 1 kg/ha in 2.5 cm of soil at a solubility of 1 ug/L.
TEST(Run_Verification, Case_45_A_Solution_Above_The_Solubility_Is_Noted_Without_Vapour)
{
    Temporary_Directory directory;
    ASSERT_EQ(Run_Case(Vapour_Case(0, 0.001, 10), directory.Path()).Exit_Code, 0);
    EXPECT_NE(File_Of(directory.Path(), "echo.orv").find("NOTE 19"), std::string::npos);
}

} // namespace orvel::engine
