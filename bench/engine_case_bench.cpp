// Writes the run directory for timing the engine: 26 years, 200 compartments of 1 cm, a parent and three metabolites,
// monthly output. Run the engine there beside `leach_column scalar 200 26`.   engine_case_bench DIR
#include "engine/engine_case.h"

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace orvel;
    using namespace orvel::engine;
    if (argc < 2)
        return 2;
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
    std::filesystem::create_directories(argv[1]);
    Write_Files(run.Files(), argv[1]);
    std::printf("%s: 26 years, %d compartments, 4 substances\n", argv[1], run.Scenario.SZE_Layers);
}
