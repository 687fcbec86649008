#include "core/files.h"
#include "core/text.h"
#include "engine/output/echo.h"
#include "engine/setup/input.h"
#include "engine_process.h"
#include "files/misread.h"
#include "verification.h"

#include <algorithm>
#include <random>
#include <set>
#include <utility>

namespace orvel::engine {

namespace {

using Files = std::map<std::string, std::string>;

File_Source Source_Of(const Files& files)
{
    return [&files](std::string_view name) -> std::optional<std::string> {
        const auto found =
            std::ranges::find_if(files, [name](const auto& file) { return Same_Text(file.first, name); });
        return found == files.end() ? std::nullopt : std::optional(found->second);
    };
}

// The numbers of the errors that an input has.
std::vector<int> Errors_Of(const Files& files)
{
    Findings findings;
    Read_Input(Source_Of(files), findings);
    std::vector<int> numbers;
    for (const auto& error : findings.Errors)
        numbers.push_back(error.Number);
    return numbers;
}

// One year of Hamburg with erosion, macropores and a metabolite, so that every line of the documents is in use.
Engine_Case Full_Case()
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 1);
    run.Scenario.SZE_Erosion = 1;
    run.Scenario.SZE_Eros_K = 0.3, run.Scenario.SZE_Eros_2 = 1, run.Scenario.SZE_Eros_3 = 1,
    run.Scenario.SZE_Eros_4 = 1, run.Scenario.SZE_Eros_5 = 6;
    run.Scenario.SZE_Macropore = 1;
    run.Scenario.SZE_Macro_Depth = 50;
    run.Rows = {Row_Of("LEAC", 100)};
    return run;
}

// An error number and a change that must lead to it.
struct Damage {
    int Number;
    std::string What;
    std::function<void(Engine_Case&)> Documents;
    std::function<void(Files&)> Bytes;
};

void Cut_Line(std::string& text, std::size_t line, std::string_view replacement)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < line; ++i)
        at = text.find("\r\n", at) + 2;
    text.replace(at, text.find("\r\n", at) - at, replacement);
}

std::vector<Damage> Damages()
{
    const auto horizon = [](auto change) { return [change](Engine_Case& run) { change(run.Scenario.Horizons[1]); }; };
    const auto scenario = [](auto change) { return [change](Engine_Case& run) { change(run.Scenario); }; };
    const auto pesticide = [](auto change) { return [change](Engine_Case& run) { change(run.Pesticide); }; };
    const auto climate = [](std::size_t line, std::string_view row) {
        return [line, row](Files& files) { Cut_Line(files["climate_01.cli"], line, row); };
    };
    return {
        {11, "run control file empty", {}, [](Files& files) { files["orvel.inp"].clear(); }},
        {11, "no run control file", {}, [](Files& files) { files.erase("orvel.inp"); }},
        {12, "no years", {}, [](Files& files) { files["orvel.inp"].replace(0, 3, "000"); }},
        {13,
         "depth no number",
         {},
         [](Files& files) { files["orvel.inp"] = Replace_All(files["orvel.inp"], "100.0", "abc.d"); }},
        {21, "no scenario file", {}, [](Files& files) { files.erase("H_maize.sze"); }},
        {22, "no pesticide file", {}, [](Files& files) { files.erase("test.psm"); }},
        {23, "no climate file", {}, [](Files& files) { files.erase("climate_01.cli"); }},
        {31, "scenario file short", {}, [](Files& files) { files["H_maize.sze"].resize(300); }},
        {32, "no compartments", scenario([](Scenario_Document& s) { s.SZE_Layers = 0; }), {}},
        {32, "too many compartments", scenario([](Scenario_Document& s) { s.SZE_Layers = 401; }), {}},
        {32, "core depth 0", scenario([](Scenario_Document& s) { s.SZE_Core_Depth = 0; }), {}},
        {33, "core deeper than the horizons", scenario([](Scenario_Document& s) { s.SZE_Core_Depth += 1; }), {}},
        {34, "bulk density", horizon([](Scenario_Horizon& h) { h.SZE_Hor_Bulk_Density = 3; }), {}},
        {34, "organic carbon", horizon([](Scenario_Horizon& h) { h.SZE_Hor_OC = 61; }), {}},
        {35, "wilting point above field capacity", horizon([](Scenario_Horizon& h) { h.SZE_Hor_WP = 0.9; }), {}},
        {36, "curve number", scenario([](Scenario_Document& s) { s.Crops[0].SZE_Rot_CN1 = 0; }), {}},
        {36, "crop index", scenario([](Scenario_Document& s) { s.Rotation[0].SZE_Rot_Crop_Index = 9; }), {}},
        {36, "rotation date", scenario([](Scenario_Document& s) { s.Rotation[0].SZE_Eme_Month = 14; }), {}},
        {37, "erosion factor", scenario([](Scenario_Document& s) { s.SZE_Eros_K = -1; }), {}},
        {37, "macropore fraction", scenario([](Scenario_Document& s) { s.SZE_Macro_Fraction = 2; }), {}},
        {41, "pesticide file short", {}, [](Files& files) { files["test.psm"].resize(200); }},
        {42, "application date", pesticide([](Pesticide_Document& p) { p.Applications[2][1].App_Month = 0; }), {}},
        {43,
         "no such crop event",
         pesticide([](Pesticide_Document& p) {
             p.App_Mode = App_Mode_Relative;
             p.Relative[1] = {.Abs9_Month = 5, .Abs9_Year = 1, .Abs9_Rate = 1};
         }),
         {}},
        {44, "application rate", pesticide([](Pesticide_Document& p) { p.Applications[2][1].App_Rate = -1; }), {}},
        {45, "Freundlich exponent", pesticide([](Pesticide_Document& p) { p.Fr_Exp[1] = 3; }), {}},
        {46, "molar mass", pesticide([](Pesticide_Document& p) { p.Molmass[1] = 0; }), {}},
        {47, "horizons of the pesticide file", pesticide([](Pesticide_Document& p) { p.Kd_Flag[1] = 0; }), {}},
        {48, "negative rate", pesticide([](Pesticide_Document& p) { p.Degradation[1][5].Deg_Rate = -0.1; }), {}},
        {51,
         "climate row without a date",
         {},
         climate(10, " xx01010.1       0.1       5         5         5         5         5         ")},
        {52,
         "temperature",
         {},
         climate(10, " 1001010.1       0.1       5         99        5         5         5         ")},
        {53, "climate day missing", {}, climate(10, "")},
    };
}

} // namespace

TEST(Run_Verification, Case_30_Relative_Dates_Stand_In_The_Echo)
{
    const auto echo_of = [](std::int16_t days, std::int16_t reference) {
        Temporary_Directory directory;
        Engine_Case run = Demo_Case("H", "_maize", "demo_A.psm", 4);
        run.Scenario.Rotation.resize(1); // repeated every year
        run.Scenario.SZE_Rot_Count = 1;
        run.Pesticide.App_Count[0] = 1;
        run.Pesticide.Relative[1] = {.Abs9_Day = days, .Abs9_Month = reference, .Abs9_Year = 2, .Abs9_Rate = 1};
        Write_Files(run.Files(), directory.Path());
        EXPECT_EQ(Run_Engine(directory.Path(), "--check").Exit_Code, reference == 5 ? 1 : 0);
        EXPECT_FALSE(std::filesystem::exists(directory / "Wasser.orv"));
        return File_Of(directory.Path(), "echo.orv");
    };

    Verify(30, "20 days before the emergence on 5 May of year 2: 15.4.2 in the echo",
           Contains(echo_of(-20, 0), "\r\n  15.4.2  "), 1, 0);
    Verify(30, "on the day of emergence: 5.5.2", Contains(echo_of(0, 0), "\r\n  5.5.2  "), 1, 0);
    Verify(30, "400 days later: 9.6.3", Contains(echo_of(400, 0), "\r\n  9.6.3  "), 1, 0);
    Verify(30, "a rotation of one row is repeated",
           Contains(echo_of(0, 0), "NOTE 12: ROTATION REPEATED WITH A PERIOD OF 1 YEAR(S)"), 1, 0);
    Verify(30, "a second harvest that no year has: ERROR 43", Contains(Last_Line(echo_of(0, 5)), " *** ERROR 43: "), 1,
           0);
}

TEST(Run_Verification, Case_31_Each_Damaged_Input_Has_Its_Error)
{
    ASSERT_TRUE(Errors_Of(Full_Case().Files()).empty());
    int right = 0;
    const auto damages = Damages();
    for (const Damage& damage : damages) {
        Engine_Case run = Full_Case();
        if (damage.Documents)
            damage.Documents(run);
        Files files = run.Files();
        if (damage.Bytes)
            damage.Bytes(files);
        Temporary_Directory directory;
        Write_Files(files, directory.Path());

        const Engine_Result result = Run_Engine(directory.Path());

        const std::string last = Last_Line(File_Of(directory.Path(), "echo.orv"));
        EXPECT_EQ(result.Exit_Code, 1) << damage.What;
        EXPECT_TRUE(last.starts_with(" *** ERROR ")) << damage.What << ": " << last;
        EXPECT_TRUE(Contains(result.Output, "ERROR " + std::to_string(damage.Number) + ":"))
            << damage.What << ": " << result.Output;
        EXPECT_FALSE(std::filesystem::exists(directory / "Wasser.orv")) << damage.What;
        right += Contains(result.Output, "ERROR " + std::to_string(damage.Number) + ":");
    }
    Verify(31, "damaged inputs with the right error", right, static_cast<double>(damages.size()), 0);
}

TEST(Run_Verification, Case_31_A_Document_Cut_At_Any_Line_Is_Refused)
{
    const Files whole = Full_Case().Files();
    Temporary_Directory directory;
    for (const auto& [name, number] : {std::pair{"H_maize.sze", 31}, std::pair{"test.psm", 41}}) {
        Write_Files(whole, directory.Path());
        const auto lines = Split_Lines(whole.at(name));
        std::string kept;
        int refused = 0;
        for (std::size_t n = 0; n + 1 < lines.size(); ++n) {
            Write_Files({{name, kept}}, directory.Path());
            const Engine_Result result = Run_Engine(directory.Path());
            refused += result.Exit_Code == 1 &&
                       Contains(File_Of(directory.Path(), "echo.orv"), " *** ERROR " + std::to_string(number) + ": ");
            kept += std::string(lines[n]) + "\r\n";
        }
        Verify(31, std::string(name) + ": the executable refuses all cuts behind a line", refused,
               static_cast<double>(lines.size() - 1), 0);
    }
    EXPECT_FALSE(std::filesystem::exists(directory / "Wasser.orv"));
}

constexpr int Changes = Sanitized ? 1000 : 10000;

// Whatever a byte becomes, reading ends with errors or with an input that can be echoed.
TEST(Run_Verification, Case_31_Random_Bytes_Crash_Nothing)
{
    const Files whole = Full_Case().Files();
    std::vector<std::string> names;
    for (const auto& file : whole)
        names.push_back(file.first);
    std::mt19937 random(31);
    int read = 0;
    for (int change = 0; change < Changes; ++change) {
        Files files = whole;
        std::string& bytes = files[names[random() % names.size()]];
        for (int k = 0; k <= change % 3; ++k)
            bytes[random() % bytes.size()] =
                change % 2 ? "0123456789 .-E\n"[random() % 15] : static_cast<char>(random() % 256);
        Findings findings;
        const Engine_Input input = Read_Input(Source_Of(files), findings);
        std::string echo;
        if (!findings.Failed()) {
            Put_Input(echo, input);
            ++read;
        }
        Put_Errors(echo, findings);
        ASSERT_FALSE(echo.empty());
    }
    Verify(31, "share of changed inputs that are still read", static_cast<double>(read) / Changes, 0.5, 0.45);
}

constexpr int Runs = Sanitized ? 100 : 500;

// The same through the executable: it ends by itself, and the last line of the echo agrees with the exit code.
TEST(Run_Verification, Case_31_Random_Bytes_Through_The_Executable)
{
    const Files whole = Full_Case().Files();
    const std::string names[] = {"orvel.inp", "H_maize.sze", "test.psm", "climate_01.cli"};
    std::mt19937 random(32);
    Temporary_Directory directory;
    int good = 0, refused = 0, told = 0;
    for (int change = 0; change < Runs; ++change) {
        Files files = whole;
        std::string& bytes = files[names[change % 4]];
        for (int k = 0; k < 1 + change % 3; ++k)
            bytes[random() % bytes.size()] = "0123456789 .-E\n,x"[random() % 17];
        Write_Files(files, directory.Path());

        const Engine_Result result = Run_Engine(directory.Path(), change % 20 == 0 ? "" : "--check");

        const std::string last = Last_Line(File_Of(directory.Path(), "echo.orv"));
        good += result.Exit_Code == 0;
        refused += result.Exit_Code == 1;
        told += Contains(last, "ERROR") == (result.Exit_Code != 0);
        EXPECT_TRUE(result.Exit_Code == 0 || result.Exit_Code == 1) << result.Exit_Code << ": " << result.Output;
    }
    Verify(31, "changed inputs through the executable that end with exit code 0 or 1", good + refused, Runs, 0);
    Verify(31, "thereof with the matching last line of the echo", told, Runs, 0);
    EXPECT_GT(good, 0);
    EXPECT_GT(refused, 0);
}

// Words of a line that stand outside pointed brackets and read as numbers, by their 0-based place.
std::vector<std::size_t> Number_Words(std::string_view line)
{
    std::vector<std::size_t> places;
    bool label = false;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t end = std::min(line.find(' ', at), line.size());
        const auto word = line.substr(at, end - at);
        label = label || Contains(word, "<");
        if (!label && Is_One_Number(word))
            places.push_back(at);
        label = label && !Contains(word, ">");
        at = end + 1;
    }
    return places;
}

// Puts the word in place of the one that begins there; the columns behind may shift.
std::string With_Word(std::string_view bytes, std::size_t at, std::string_view word)
{
    std::string changed(bytes);
    const std::size_t end = std::min(changed.find_first_of(" \r", at), changed.size());
    changed.replace(at, end - at, word);
    return changed;
}

// Replaces every n-th number of a document by a word that is none, runs the engine, and counts the runs that end with
// file, line, column and word. The first number of the lines told as `unread` is read by nobody.
void Numbers_Are_Guarded(const Files& whole, const std::string& name, int number, int every,
                         const std::set<int>& unread)
{
    Temporary_Directory directory;
    Write_Files(whole, directory.Path());
    constexpr std::string_view words[] = {"0,02", "abc", "3O", "nan", "n/a", "1.2.3", "inf", "--1"};
    int told = 0, all = 0, line_number = 0, seen = 0;
    std::size_t start = 0;
    for (const auto line : Split_Lines(whole.at(name))) {
        ++line_number;
        bool skip = unread.contains(line_number);
        for (const std::size_t at : Number_Words(line)) {
            if (std::exchange(skip, false) || seen++ % every != 0)
                continue;
            const std::string_view word = words[all++ % std::size(words)];
            Write_Files({{name, With_Word(whole.at(name), start + at, word)}}, directory.Path());
            const Engine_Result result = Run_Engine(directory.Path(), "--check");
            const std::string expected = "ERROR " + std::to_string(number) + ": " + name + ", LINE " +
                                         std::to_string(line_number) + ", COLUMN " + std::to_string(at + 1) + ": \"" +
                                         std::string(word) + "\" IS NO NUMBER";
            const bool good = result.Exit_Code == 1 && Contains(result.Output, expected);
            EXPECT_TRUE(good) << expected << " missing in " << result.Output;
            told += good;
        }
        start += line.size() + 2;
    }
    Verify(36, name + ": numbers whose ruin is told with file, line and column", told, all, 0);
    EXPECT_GT(all, 100);
}

TEST(Run_Verification, Case_36_Every_Number_Of_The_Documents_Is_Guarded)
{
    const Files whole = Full_Case().Files();
    // Line 1 is the title with one number. Seven lines, 66 of the rotation and two of the soil stand above the
    // horizons' pairs of lines, each of which begins with the number of the horizon.
    Numbers_Are_Guarded(whole, "H_maize.sze", 31, 2, {1, 76, 78, 80, 82, 84, 86});
    Numbers_Are_Guarded(whole, "test.psm", 41, 11, {});
}

TEST(Run_Verification, Case_36_No_Numbers_In_Run_Control_And_Climate)
{
    struct Ruin {
        std::string File, Old, New, Told;
    };
    const std::vector<Ruin> ruins = {
        {"orvel.inp", "001 01 01", "OO1 01 01", "ERROR 12: ORVEL.INP, LINE 1, COLUMN 1: \"OO1\" IS NO NUMBER (YEARS)"},
        {"orvel.inp", "01 01 31 12", "01 01 31 l2", "ERROR 12: ORVEL.INP, LINE 1, COLUMN 14: \"l2\" IS NO NUMBER"},
        {"orvel.inp", "  100.0 ", "  100,0 ", "ERROR 13: ORVEL.INP, LINE 6, COLUMN 17: \"100,0\" IS NO NUMBER (DEPTH)"},
        {"orvel.inp", " 1.0E09 ", " 1.OE09 ",
         "ERROR 13: ORVEL.INP, LINE 6, COLUMN 25: \"1.OE09\" IS NO NUMBER (SCALE)"},
        {"orvel.inp", "00000001\r\n", "0000000x\r\n", "ERROR 1"},
    };
    const Files whole = Full_Case().Files();
    int told = 0;
    for (const Ruin& ruin : ruins) {
        Files files = whole;
        ASSERT_TRUE(Contains(files[ruin.File], ruin.Old)) << ruin.Old;
        files[ruin.File] = Replace_All(files[ruin.File], ruin.Old, ruin.New);
        Temporary_Directory directory;
        Write_Files(files, directory.Path());
        const Engine_Result result = Run_Engine(directory.Path(), "--check");
        const bool good = result.Exit_Code == 1 && Contains(result.Output, ruin.Told);
        EXPECT_TRUE(good) << ruin.Told << " missing in " << result.Output;
        told += good;
    }
    Verify(36, "orvel.inp: numbers whose ruin is told", told, static_cast<double>(ruins.size()), 0);

    // Columns of the second row of a climate file; the words are as wide as the fields.
    const std::pair<std::size_t, std::string_view> columns[] = {{8, "Rainfall"},
                                                                {18, "Evaporation"},
                                                                {28, "Temperature at 14.00"},
                                                                {38, "Mean temperature"},
                                                                {48, "Temperature difference"},
                                                                {58, "Relative humidity"},
                                                                {68, "Radiation"},
                                                                {84, "Hour"}};
    told = 0;
    for (const auto& [column, field] : columns) {
        Files files = whole;
        std::string row(Split_Lines(files["climate_01.cli"])[2]);
        row.resize(90, ' ');
        row.replace(column - 1, 4, column == 84 ? "14h " : "n/a ");
        row.replace(column + 3, 6, "      ");
        Cut_Line(files["climate_01.cli"], 2, row);
        Temporary_Directory directory;
        Write_Files(files, directory.Path());
        const Engine_Result result = Run_Engine(directory.Path(), "--check");
        const std::string expected = "ERROR 51: climate_01.cli, LINE 3, COLUMN " + std::to_string(column) + ": \"" +
                                     (column == 84 ? "14h" : "n/a") + "\" IS NO NUMBER (" + Upper(field) + ")";
        const bool good = result.Exit_Code == 1 && Contains(result.Output, expected);
        EXPECT_TRUE(good) << expected << " missing in " << result.Output;
        told += good;
    }
    Verify(36, "climate file: columns whose ruin is told", told, static_cast<double>(std::size(columns)), 0);
}

TEST(Run_Verification, Case_36_An_Arrow_Needs_A_Section)
{
    Engine_Case run = Full_Case();
    run.Pesticide.Degradation[1][2].Deg_Rate = 0.01; // to metabolite B1, which the file does not have
    const Files files = run.Files();
    Temporary_Directory directory;
    Write_Files(files, directory.Path());

    const Engine_Result result = Run_Engine(directory.Path(), "--check");

    const auto lines = Split_Lines(files.at("test.psm"));
    const auto line = std::ranges::find_if(lines, [](std::string_view text) { return Contains(text, "<Met B1>"); });
    const std::string expected = "ERROR 48: test.psm, LINE " + std::to_string(line - lines.begin() + 1) + ", COLUMN " +
                                 std::to_string(line->find_first_not_of(' ') + 1) +
                                 ": METABOLITE B1 IS FORMED, AND THE FILE HAS NO SECTION FOR IT";
    Verify(36, "an arrow to a metabolite without a section: ERROR 48 with its line", Contains(result.Output, expected),
           1, 0);
    EXPECT_EQ(result.Exit_Code, 1) << result.Output;
}

// 200 cm in 36 compartments: a border at 100 cm. In 45: the nearest border to 1 m lies at 22 x 200/45 cm.
TEST(Run_Verification, Case_37_A_Depth_That_Moves_Is_Noted)
{
    const auto echo_of = [](std::int16_t layers) {
        Engine_Case run = Full_Case();
        run.Scenario.SZE_Layers = layers;
        run.Rows = {Row_Of("LEAC", 100), Row_Of("INFL", 30), Row_Of("TEMP", 31)};
        Temporary_Directory directory;
        Write_Files(run.Files(), directory.Path());
        EXPECT_EQ(Run_Engine(directory.Path(), "--check").Exit_Code, 0);
        return File_Of(directory.Path(), "echo.orv");
    };

    const std::string met = echo_of(80), missed = echo_of(45);

    Verify(37, "80 compartments of 2.5 cm: nothing moves", Contains(met, "NOTE 15"), 0, 0);
    Verify(37, "45 compartments: 1 m is taken at 97.78 cm",
           Contains(missed, "NOTE 15: THE DEPTH OF 1 M, 100 CM IS TAKEN AT 97.78 CM"), 1, 0);
    Verify(37, "45 compartments: LEAC at 100 cm at 97.78 cm",
           Contains(missed, "NOTE 15: LEAC AT 100 CM IS TAKEN AT 97.78 CM"), 1, 0);
    Verify(37, "45 compartments: INFL at 30 cm at 31.11 cm",
           Contains(missed, "NOTE 15: INFL AT 30 CM IS TAKEN AT 31.11 CM"), 1, 0);
    Verify(37, "45 compartments: the first horizon ends within the seventh",
           Contains(missed, "NOTE 15: THE LOWER BORDER OF HORIZON 1 AT 30 CM LIES WITHIN THE COMPARTMENT FROM 26.67 TO "
                            "31.11 CM"),
           1, 0);
}

TEST(Run_Input, Up_To_Fifty_Errors_Are_Told)
{
    Engine_Case run = Full_Case();
    run.Scenario.Crops.assign(100, run.Scenario.Crops[0]);
    for (Crop_Row& crop : run.Scenario.Crops)
        crop.SZE_Rot_CN1 = 0;
    run.Scenario.SZE_Crop_Count = 100;

    EXPECT_EQ(Errors_Of(run.Files()), std::vector<int>(50, 36));
}

TEST(Run_Input, Names_Are_Found_Without_Regard_To_Case_And_Through_Backslashes)
{
    Temporary_Directory directory;
    const Engine_Case run = Full_Case();
    Files files = run.Files();
    std::filesystem::create_directories(directory / "a" / "Maize.run" / "H.run");
    std::string control = Replace_All(files["orvel.inp"], "H_maize.sze", "..\\..\\..\\h_MAIZE.SZE");
    control = Replace_All(control, "climate_01.cli", "..\\..\\..\\CLIMATE_01.cli");
    Write_Files({{"H_Maize.sze", files["H_maize.sze"]}, {"Climate_01.CLI", files["climate_01.cli"]}}, directory.Path());
    Write_Files({{"ORVEL.INP", control}, {"TEST.psm", files["test.psm"]}}, directory / "a" / "Maize.run" / "H.run");

    EXPECT_EQ(Run_Engine(directory / "a" / "Maize.run" / "H.run").Exit_Code, 0);
    EXPECT_EQ(Run_Engine(directory.Path(), "--dir a/Maize.run/H.run --check").Exit_Code, 0);
}

TEST(Run_Input, Only_The_Lists_Of_Blocks_And_Sections_Decide_What_Runs)
{
    const Files files = Demo_Case("H", "_maize", "demo_C.psm", 1).Files();
    Findings findings;
    const Engine_Input input = Read_Input(Source_Of(files), findings);

    EXPECT_EQ(input.Substances, (std::vector<int>{1, 2}));
    EXPECT_EQ(input.Application_Block, 2); // Hamburg
    EXPECT_EQ(input.Applications.size(), 1U);
    EXPECT_EQ(input.Location_Code, "H");
}

TEST(Run_Input, Evaporation_That_The_Scenario_Asks_For_Must_Be_There)
{
    Engine_Case run = Full_Case();
    auto lines = Split_Lines(run.Climates[0]);
    std::string bare;
    for (const auto line : lines)
        bare += (line.size() > 30 && line[0] == ' '
                     ? std::string(line.substr(0, 17)) + "          " + std::string(line.substr(27))
                     : std::string(line)) +
                "\r\n";
    run.Climates[0] = bare;

    EXPECT_EQ(Errors_Of(run.Files()), std::vector<int>{52});
    run.Scenario.SZE_ET_Method = 2;
    EXPECT_TRUE(Errors_Of(run.Files()).empty());
}

TEST(Run_Input, Version_And_Wrong_Arguments)
{
    Temporary_Directory directory;

    EXPECT_EQ(Run_Engine(directory.Path(), "--version").Output, "ORVEL engine 4.01\n");
    EXPECT_EQ(Run_Engine(directory.Path(), "--nonsense").Exit_Code, 1);
    EXPECT_FALSE(std::filesystem::exists(directory / "echo.orv"));
    EXPECT_EQ(Run_Engine(directory.Path(), "--dir /nonexistent").Exit_Code, 3);
}

} // namespace orvel::engine
