#include "engine_process.h"
#include "verification.h"

#include <functional>

namespace orvel::engine {

// Input that would mislead without a word: what the echo says about it.

namespace {

Engine_Case Short_Case()
{
    return Demo_Case("H", "_maize", "demo_A.psm", 2);
}

struct Told {
    int Exit_Code = 0;
    std::string Echo;
    bool operator()(std::string_view text) const { return Echo.find(text) != std::string::npos; }
};

using Files = std::map<std::string, std::string>;

Told Tell(const Engine_Case& run, const std::function<void(Files&)>& damage = {})
{
    Temporary_Directory directory;
    Files files = run.Files();
    if (damage)
        damage(files);
    Write_Files(files, directory.Path());
    Told told;
    told.Exit_Code = Run_Engine(directory.Path(), "--check").Exit_Code;
    told.Echo = File_Of(directory.Path(), "echo.orv");
    return told;
}

void Replace(std::string& text, std::string_view what, std::string_view by)
{
    const auto at = text.find(what);
    ASSERT_NE(at, std::string::npos) << what;
    text.replace(at, what.size(), by);
}

void For_Applications(Engine_Case& run, const std::function<void(Application&)>& change)
{
    for (auto& location : run.Pesticide.Applications) {
        for (Application& application : location)
            change(application);
    }
}

} // namespace

TEST(Run_Notes, A_Good_Case_Is_Told_None_Of_This)
{
    const Told told = Tell(Short_Case());
    EXPECT_EQ(told.Exit_Code, 0);
    for (const char* number : {"NOTE 13", "NOTE 15", "NOTE 20", "NOTE 21", "NOTE 22", "NOTE 23"})
        EXPECT_FALSE(told(number)) << number << "\n" << told.Echo;
}

TEST(Run_Notes, A_Run_To_Which_Nothing_Is_Applied_Says_So)
{
    Engine_Case none = Short_Case();
    for (auto& count : none.Pesticide.App_Count)
        count = 0;
    EXPECT_TRUE(Tell(none)(
        "NOTE 20: NOTHING IS APPLIED, ALL CONCENTRATIONS ARE 0: THE PATTERN OF THE PESTICIDE FILE IS EMPTY"));

    Engine_Case later = Short_Case();
    later.Pesticide.App_Mode = 0;
    for (auto& count : later.Pesticide.App_Count)
        count = 2;
    For_Applications(later, [](Application& a) { a = {.App_Day = 1, .App_Month = 5, .App_Year = 9, .App_Rate = 1}; });
    EXPECT_TRUE(Tell(later)("NOTE 20: NOTHING IS APPLIED, ALL CONCENTRATIONS ARE 0: ALL 2 APPLICATION(S) LIE OUTSIDE "
                            "THE SIMULATED PERIOD"));

    For_Applications(later, [](Application& a) { a.App_Rate = 0; });
    EXPECT_TRUE(Tell(later)("NONE OF THE 2 APPLICATION(S) HAS A RATE"));
}

TEST(Run_Notes, A_Core_That_Ends_Above_A_Metre_Is_Noted_And_One_In_Metres_Refused)
{
    Engine_Case run = Short_Case();
    run.Scenario.Horizons.resize(1);
    run.Scenario.SZE_Horizons = 1;
    run.Scenario.Horizons[0].SZE_Hor_Thickness = 50;
    run.Scenario.SZE_Core_Depth = 50;
    run.Scenario.SZE_Layers = 20;
    const Told half = Tell(run);
    EXPECT_EQ(half.Exit_Code, 0);
    EXPECT_TRUE(half("NOTE 21: THE CORE ENDS AT 50 CM: WHAT TABLES AND FILES HEAD \"1 M SOIL DEPTH\" IS THE PERCOLATE "
                     "OF THE CORE"));

    run.Scenario.Horizons[0].SZE_Hor_Thickness = 1;
    run.Scenario.SZE_Core_Depth = 1;
    const Told metre = Tell(run);
    EXPECT_EQ(metre.Exit_Code, 1);
    EXPECT_TRUE(metre("ERROR 32: CORE DEPTH NOT WITHIN 5 TO 100000 CM"));
}

TEST(Run_Notes, A_Density_That_Leaves_No_Air_Is_Noted_With_Both_Figures)
{
    Engine_Case run = Short_Case();
    run.Scenario.Horizons[0].SZE_Hor_Bulk_Density = 2.2; // 1 - 2.2 / 2.65 = 0.170
    run.Scenario.Horizons[0].SZE_Hor_FC = 0.292;
    EXPECT_TRUE(Tell(run)("NOTE 13: POROSITY BY THE DENSITY, 0.17, IS NOT ABOVE FIELD CAPACITY, 0.292: 0.302 IS TAKEN "
                          "IN HORIZON 1"));
}

TEST(Run_Notes, A_Range_Is_Told_As_The_Range)
{
    Engine_Case drained = Short_Case();
    drained.Scenario.Horizons[0].SZE_Hor_Drainage = 1e9;
    EXPECT_TRUE(Tell(drained)("ERROR 37: DRAINAGE PARAMETER NOT WITHIN 0 TO 1E6 IN HORIZON 1"));

    Engine_Case thick = Short_Case();
    thick.Scenario.Horizons[0].SZE_Hor_Thickness = 200000;
    EXPECT_TRUE(Tell(thick)("ERROR 33: THICKNESS NOT WITHIN 0.001 TO 100000 CM IN HORIZON 1"));
}

TEST(Run_Notes, What_An_Application_Has_And_Nobody_Uses_Is_Noted)
{
    for (const std::int16_t hour : {std::int16_t{25}, std::int16_t{-1}}) {
        Engine_Case run = Short_Case();
        run.Pesticide.App_Method = 1;
        For_Applications(run, [hour](Application& a) { a.App_Crop_Flag = hour; });
        EXPECT_TRUE(
            Tell(run)("NOTE 13: HOUR " + std::to_string(hour) + " OF APPLICATION 1 IS NOT 0 TO 24: 0 IS TAKEN"));
    }
    Engine_Case run = Short_Case();
    run.Pesticide.App_Method = 1;
    For_Applications(run, [](Application& a) { a.App_Frpex = 40; });
    for (Relative_Application& application : run.Pesticide.Relative)
        application.Abs9_Frpex = 40;
    EXPECT_TRUE(Tell(run)("APPLICATION(S) IS NOT USED: THE METHOD IS 1"));
    run.Pesticide.App_Method = 4;
    EXPECT_FALSE(Tell(run)("NOTE 22"));
}

// Lines and columns counted in the file as it is written.
TEST(Run_Notes, Values_Of_The_First_Volatilisation_Line_That_Differ_Are_Noted_With_Their_Place)
{
    Engine_Case run = Short_Case();
    const Told told = Tell(run, [](Files& files) {
        std::string& text = files["test.psm"];
        const auto line = text.find('\n', text.find("<henry  ")) + 1;
        const auto end = text.find('\r', line);
        text.replace(line, end - line, "0.00E+00     90    -1   1.00E-04     1e999    0.1    98400    20 ");
    });
    EXPECT_EQ(told.Exit_Code, 0) << told.Echo;
    EXPECT_TRUE(told(", COLUMN 20: \"-1\" (MOLAR MASS) IS NOT USED, ")) << told.Echo;
    EXPECT_TRUE(told(", COLUMN 38: \"1e999\" (DIFFUSION COEFFICIENT IN AIR) IS NOT USED, ")) << told.Echo;
}

TEST(Run_Notes, Horizon_Numbers_Out_Of_Order_Are_Noted_With_Their_Place)
{
    const Told told = Tell(Short_Case(), [](Files& files) {
        std::string& text = files["H_maize.sze"];
        Replace(text, "\n    1 ", "\n    3 ");
        Replace(text, "\n    2 ", "\n    abc ");
    });
    EXPECT_TRUE(told(", COLUMN 5: \"3\" (HORIZON NUMBER) IS NOT USED, 1 IS")) << told.Echo;
    EXPECT_TRUE(told(", COLUMN 5: \"abc\" (HORIZON NUMBER) IS NOT USED, 2 IS")) << told.Echo;
}

TEST(Run_Notes, A_Scale_That_Is_Not_Positive_Is_Noted)
{
    Engine_Case run = Short_Case();
    run.Rows = {Row_Of("LEAC", 100), Row_Of("PRSN", 0)};
    run.Rows[0].Scale_Text = "0.0";
    run.Rows[1].Scale_Text = "-1.0";
    const Told told = Tell(run);
    EXPECT_TRUE(told("NOTE 22: SCALE 0 OF LEAC GIVES A COLUMN OF ZEROS")) << told.Echo;
    EXPECT_TRUE(told("NOTE 22: SCALE -1 OF PRSN GIVES A COLUMN WITH THE OPPOSITE SIGN")) << told.Echo;
}

TEST(Run_Notes, Rain_In_Millimetres_Is_Noted)
{
    Engine_Case run = Short_Case();
    std::string wet = "mm\r\n";
    for (std::string_view rest = run.Climates[0]; !rest.empty();) {
        const auto end = rest.find('\n');
        const std::string_view line = rest.substr(0, end + 1);
        if (line[0] == ' ') // 2 mm on each of 365 days
            wet += std::string(line.substr(0, 7)) + "2.000     " + std::string(line.substr(17));
        rest.remove_prefix(end + 1);
    }
    run.Climates[0] = wet;
    EXPECT_TRUE(Tell(run)("NOTE 23: CLIMATE FILE climate_01.cli HAS 730 CM OF PRECIPITATION IN ITS YEAR: THE COLUMN IS "
                          "IN CM, NOT MM"));
}

TEST(Run_Notes, Rain_That_No_Number_Holds_Is_An_Error_And_Has_No_Sum)
{
    Engine_Case run = Short_Case();
    run.Climates[0].replace(run.Climates[0].find('\n') + 1 + 7, 10, "1e999     ");
    EXPECT_TRUE(Tell(run)("ERROR 52: RAIN NOT WITHIN 0 TO 100 CM IN LINE 2 OF climate_01.cli"));
}

// Of one compartment, neither the metre nor a flux at 1 m is taken at the surface.
TEST(Run_Notes, One_Compartment_Has_Its_Metre_At_Its_Bottom)
{
    Engine_Case run = Short_Case();
    run.Scenario.Horizons.resize(1);
    run.Scenario.SZE_Horizons = 1;
    run.Scenario.Horizons[0].SZE_Hor_Thickness = 200;
    run.Scenario.SZE_Core_Depth = 200;
    run.Scenario.SZE_Layers = 1;
    run.Rows = {Row_Of("INFL", 100), Row_Of("LEAC", 100)};
    const Told told = Tell(run);
    EXPECT_TRUE(told("NOTE 15: INFL AT 100 CM IS TAKEN AT 200 CM")) << told.Echo;
    EXPECT_TRUE(told("NOTE 15: LEAC AT 100 CM IS TAKEN AT 200 CM")) << told.Echo;
}

} // namespace orvel::engine
