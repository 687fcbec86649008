// Writes the run directories for timing the engine.
//
//   engine_case_bench DIR           26 years, 200 compartments of 1 cm, a parent and three metabolites, monthly output;
//   run the
//                                   engine there beside `leach_column scalar 200 26`
//   engine_case_bench DIR hourly    two years with 520 applications, so 24 lines on as many days; a parent, 15 series
//   and 180
//                                   columns of a profile; run the engine there beside the next one and the writer's
//                                   floor
//   engine_case_bench DIR bare      the same without a column
#include "engine/engine_case.h"

#include <cstdio>
#include <string_view>

namespace {

using namespace orvel;
using namespace orvel::engine;

Engine_Case Monthly_Case()
{
    Engine_Case run = Demo_Case("H", "_wcerea", "demo_C.psm", 26);
    run.Scenario.SZE_Layers = 200;
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = run.Scenario.SZE_Freq_Conc = "MNTH";
    Pesticide_Document& pesticide = run.Pesticide;
    for (const std::size_t metabolite : {std::size_t{2}, std::size_t{3}, std::size_t{4}}) {
        pesticide.Met_Present[metabolite] = true;
        pesticide.Molmass[metabolite] = 150;
        pesticide.Koc[metabolite] = 20.0 + 10 * static_cast<double>(metabolite);
        pesticide.Fr_Exp[metabolite] = 0.9;
        if (metabolite < 4) { // each into the next one
            pesticide.Degradation[metabolite][1] = pesticide.Degradation[1][1];
            pesticide.Degradation[metabolite][1].Deg_Rate = 0.005;
        }
        pesticide.Degradation[metabolite][4] = pesticide.Degradation[1][1];
        pesticide.Degradation[metabolite][4].Deg_Rate = 0.005;
    }
    return run;
}

// Applications on the first 520 days, which is as many as a document holds.
Engine_Case Hourly_Case(bool bare)
{
    Engine_Case run = Demo_Case("T_C", "_maize", "demo_S.psm", 2);
    run.Header_Tail = " Version 5          SOIL 0 ";
    for (auto& location : run.Pesticide.Applications) {
        std::size_t slot = 1;
        for (int year = 1; year <= 2; ++year)
            for (int month = 1; month <= 12; ++month)
                for (int day = 1; day <= 28 && slot < Last_Application; ++day)
                    location[slot++] = {.App_Day = static_cast<std::int16_t>(day),
                                        .App_Month = static_cast<std::int16_t>(month),
                                        .App_Year = static_cast<std::int16_t>(year),
                                        .App_Rate = 0.01,
                                        .App_Crop_Flag = 9};
    }
    for (auto& count : run.Pesticide.App_Count)
        count = std::int16_t{520};
    if (bare) {
        run.Rows = {Row_Of("PRSN", 0)};
        return run;
    }
    for (const char* code : {"PRSN", "TETD", "INFL", "RUNF", "THET", "TEMP", "TPAP", "TDKF", "TUPF", "TVOX", "TPST",
                             "TPSC", "SPSC", "PFLX", "LEAC"})
        run.Rows.push_back(Row_Of(code, 100));
    run.Profile_Rows = 180;
    run.Count_Tail = "    0.000000180";
    for (int row = 0; row < 180; ++row)
        run.Rows.push_back(Row_Of("TPSC", 1 + row % 20));
    return run;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    const std::string_view kind = argc > 2 ? argv[2] : "monthly";
    const Engine_Case run = kind == "monthly" ? Monthly_Case() : Hourly_Case(kind == "bare");
    std::filesystem::create_directories(argv[1]);
    Write_Files(run.Files(), argv[1]);
    std::printf("%s: %d years, %d compartments, %zu columns\n", argv[1], run.Years, run.Scenario.SZE_Layers,
                run.Rows.size());
}
