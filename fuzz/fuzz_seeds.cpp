// Writes seeds for the fuzz targets: fuzz_seeds DIR makes DIR/fuzz_psm and so on.
#include "core/files.h"
#include "core/sha256.h"
#include "engine/engine_case.h"
#include "files/pesticide_example.h"
#include "files/scenario_example.h"
#include "output/engine_files.h"
#include "records/archive_manifest.h"
#include "records/zip_maker.h"
#include "runs/job_file.h"
#include "substance/guidance.h"
#include "tables/balance_text.h"
#include "tables/leachate_percentile.h"
#include "tables/leachate_periods.h"
#include "tables/leachate_text.h"

#include <filesystem>
#include <iostream>

namespace orvel {

namespace {

void Seed(const std::filesystem::path& directory, std::string_view bytes, std::string_view name = "seed")
{
    std::filesystem::create_directories(directory);
    Write_Whole(directory / name, bytes);
}

// The first byte tells whether an archive follows, or its manifest alone.
void Seed_Archive(const std::filesystem::path& directory)
{
    const std::string digest = Sha256("hello");
    Archive_Manifest manifest{.Program = "ORVELSUITE", .Mode = "focus", .Files = {{"a.txt", 5, digest}}};
    Seed(directory, " " + Format_Manifest(manifest), "no_run"); // a blank is even
    manifest.Runs = {{"focus/p.run/c.run/l.run", "p", "c", "l", "ok", "", {"../../../H_01.cli"}}};
    Seed(directory, " " + Format_Manifest(manifest), "manifest");
    const std::string text = Format_Manifest(manifest);
    Seed(directory, "!" + Made_Zip({{"archive.json", text}, {"files/a.txt", "hello"}}), "archive");
    Seed(directory, "!" + Made_Zip({{"archive.json", text}, {"files/a.txt", "hello", 0120777}}), "link");
    Seed(directory, "!" + Made_Zip({{"archive.json", text}, {"../a.txt", "hello"}}), "elsewhere");
}

// The first byte is the number of the file among the engine's input files.
void Seed_Engine(const std::filesystem::path& directory)
{
    auto run = engine::Demo_Case("H", "_maize", "demo_C.psm", 1);
    run.End = "10 01";
    for (auto& count : run.Pesticide.App_Count) {
        if (count.Number() > 1)
            count = 1;
    }
    run.Climates.front().resize(run.Climates.front().find("\n", 900) + 1); // the days that are needed
    const auto files = run.Files();
    char number = 0;
    for (const char* name : {"orvel.inp", "H_maize.sze", "test.psm", "climate_01.cli"})
        Seed(directory, std::string(1, number++) + files.at(name), name);
    Seed(directory, std::string(1, number) + "comment\r\n14 0.1 0.1 0.1 0.2 0.2 0.2 0.2 0.2 0.2 0.2 0.1 0.1\r\n",
         "Haude.dat");
}

// The first byte is the window size.
void Seed_Output(const std::filesystem::path& directory)
{
    const std::string window = "@";
    Seed(directory / "fuzz_echo", window + Echo_File());
    Seed(directory / "fuzz_wasser",
         window + Water_Block({.Kind = "MONTHLY", .Snow = "1.5000", .Transpiration = {{1, "2.50000"}}}) +
             Water_Block("1.00000", "2.00000") + End_Of_Output());
    Seed(directory / "fuzz_chem", window + Chem_Block({.Kind = "MONTHLY", .Macropore_First = true}) +
                                      Chem_Block("1.0000E-03", "2.00000E-03") + End_Of_Output());
    const std::vector<std::string> values(21, "1.5");
    Seed(directory / "fuzz_plot", window + Plot_Head_Of(21, 20) + Plot_Line(2190, 24, values) +
                                      Plot_Line(2191, 12, values) + Plot_Line(2191, 24, values) +
                                      Plot_Line(2192, 24, values));
    Seed(directory / "fuzz_year",
         "one\r\ntwo\r\nthree\r\nfour\r\n \r\n \r\n\tResults for P in the percolate at 1 m soil depth\r\n \r\n"
         "\t  Year  \tPesticide Flux\t   Percolate\tPesticide Conc.\r\n\t         \t     (g/ha)\r\n"
         "\t7       \t7.0000000   \t100.000     \t7.000\r\n\t---\r\n\tTotal    \t7.0000000   \t100.000     \t7.000\r\n"
         "\t80 Perc.(7/7)\t14.0000     \t200.000     \t7.000\r\n");
}

// Stored tables of eight years; the first byte is the kind, a byte 1 parts the two files.
void Seed_Cache(const std::filesystem::path& directory)
{
    const std::vector<std::string> titles = {"Engine", "Scenario", "Pesticide", "Soil"};
    Leachate_Table years{.Result_Name = "Results for P", .Label = "Pesticide"};
    for (int year = 1; year <= 8; ++year)
        years.Rows.push_back({static_cast<double>(year), 100, static_cast<double>(year)});
    years.Result = Evaluate_Leachate(years.Rows, Warm_Up_Years);
    Table_Text first, second, water, pesticide;
    for (auto* text : {&first, &second, &water, &pesticide})
        text->Head(titles);
    for (const auto depth : Depths)
        Print_Periods(second, depth, Periods_Of(Print_Years(first, depth, years), 0));
    Seed(directory, std::string(1, '\0') + first.File + '\x01' + second.File, "leachate");
    Print_Water_Head(water, Balance_View::Annual);
    Print_Row(water, 1, Water_Balance_Row{.Precipitation = 677.512, .Percolate = 234.188});
    Print_Pesticide_Head(pesticide, Balance_View::Annual, "Pesticide", true);
    Print_Row(pesticide, 1, Pesticide_Balance_Row{.Application = 1000, .Degradation = 765.1});
    Seed(directory, '\x01' + water.File + '\x01' + pesticide.File, "balance");
}

// The first byte is the number of the file in the run directory.
void Seed_Report(const std::filesystem::path& directory)
{
    Seed(directory, std::string(1, '\0') + Echo_File(), "echo.orv");
    Seed(directory, '\x01' + Plot_Head_Of(1, 0), "plot.orv");
    Seed(directory, '\x02' + Water_Block("10.00000", "5.00000") + End_Of_Output(), "Wasser.orv");
    Seed(directory, '\x03' + Chem_Block("1.E-03", "2.E-03") + End_Of_Output(), "chem.orv");
}

} // namespace

} // namespace orvel

using namespace orvel;
using namespace orvel::engine;

int main(int argc, char** argv)
try {
    if (argc != 2)
        return 2;
    const std::filesystem::path directory = argv[1];
    Seed(directory / "fuzz_psm", Example_File());
    Seed(directory / "fuzz_sze", Scenario_File());
    Seed(directory / "fuzz_cli",
         "Demo\r\n 0201811.2500000 0.1500000 18.5000   14.2500   6.0000000 78.5000   15230.0         12\r\n\r\n");
    Seed(directory / "fuzz_inp",
         "002 01 01 31 12 Version 5          SOIL 0 \r\n..\\..\\..\\T_N_maize.sze\r\ntest.psm\r\na.cli\r\nb.cli\r\n"
         "00000001    5.000000020\r\n    LEAC    TSER  100.0  1.0E09 00000001\r\n");
    Seed(directory / "fuzz_job", Format_Job(Format_Job_Run("a.run\\b.run\\c.run", "orvel401.exe", true) +
                                            Format_Job_Run("a.run\\b.run\\d.run", "orvel401.exe", false)));
    Seed(directory / "fuzz_crops", "2\r\nname\r\n"
                                   "Maize            80  0.15   90  3  1.80   5  5  1  30  7  1  20  9  1   1  9  1  "
                                   "30  4  1  0.2 0.2 0.2 0.2  0 0 0  1.20 0.60\r\n"
                                   "Potatoes         60  0.15   80  1  0.80  10  5  1  20  7  1  15  9  1  31  8  1   "
                                   "5  5  1  0.2 0.2 0.2 0.2  0 0 1  1.15 0.75\r\n");
    Seed_Archive(directory / "fuzz_archive");
    Seed(directory / "fuzz_calendar", "1 1 1 1\r\n2 2 1 1\r\n366 1 1 2\r\n");
    Seed(directory / "fuzz_journal",
         "2024-05-31 14:05:09\tbegin\t\t2 runs, 1 at a time\n2024-05-31 14:05:10\tstarted\ta.run/b.run/"
         "c.run\t\n2024-05-31 14:05:20\tkilled\ta.run/b.run/c.run\tsignal 9\n2024-05-31 "
         "14:05:21\tend\t\t2 runs, 1 failed\n");
    Seed(directory / "fuzz_plan", "id,mode,pesticide,crop,location,psm.Koc[1],#note\r\n"
                                  "a,focus,demo_A.psm,Maize,\"Thiva (T), irrigated\",1.5,\"say \"\"so\"\"\"\r\n");
    Seed(directory / "fuzz_plan",
         "\xEF\xBB\xBFid;pesticide;scenario;climate;years;sze.SZE_Latitude\n"
         "1;demo_A.psm;soil.sze;one.cli|two.cli;26;52.5\n;;;;;\n2;x\n",
         "files");
    Seed(directory / "fuzz_notes", R"({"schema": "orvel-notes 1", "fields": {"Koc[1]": {"source": "a", "x": [1, null]}},
 "answers": [{"rule": "P1", "field": "Koc[1]", "value": "1", "text": "b"}], "other": {"y": true}})");
    Seed(directory / "fuzz_guidance", Shipped_Guidance());
    Seed(directory / "fuzz_guidance",
         R"x({"schema": "orvel-guidance 1", "rules": [{"id": "X", "severity": "error", "text": "t",
 "source": "s", "compare": "Degradation[*][*].Deg_Q10", "one_of": [2.58, "y"], "tolerance": 0.1, "when": [
 {"compare": "Source(Koc[*])", "most": 0}]}], "crops": [{"crops": ["Maize"], "interception": [0, 1, 2, 3, 4]}]})x",
         "small");
    Seed_Cache(directory / "fuzz_cache");
    Seed_Report(directory / "fuzz_report");
    Seed_Output(directory);
    Seed_Engine(directory / "fuzz_engine");
    return 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
