#include "installation/installation_files.h"

#include "core/text.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "installation/demo_pesticides.h"
#include "installation/demo_scenario.h"
#include "installation/demo_weather.h"
#include "installation/embedded_files.h"
#include "runs/output_selection.h"
#include "runs/run_control.h"
#include "substance/pathway.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

constexpr std::string_view Calendar_File = "datum.dat";

std::string With_Cr_Lf(std::string_view text)
{
    return Replace_All(std::string(text), "\n", CrLf);
}

std::string In_Mode(const Mode& mode, std::string_view name)
{
    return std::string(mode.Directory) + "/" + std::string(name);
}

// The bytes of the run control file that a run form restores when it first opens: the first crop at the first site,
// with the recommended output.
std::string Format_Template(const Mode& mode, const std::vector<Demo_Pesticide>& pesticides)
{
    const bool soil = mode.Profile_Rows;
    const auto& pesticide = *std::ranges::find(pesticides, soil ? "demo_S.psm" : "demo_D.psm", &Demo_Pesticide::Name);
    Run_Choice choice = Choose_Run(mode, pesticide.Name, &Crops.front(), Location_Text(soil ? "T_N" : "C", true));
    choice.Pattern = 1;
    choice.Met_Present = pesticide.Document.Met_Present;
    choice.Options.Output = Recommended_Output();
    choice.Options.Tillage = Tillage_List(mode).at(static_cast<std::size_t>(mode.Tillage_Index));
    return Format_Run(Program_State(), mode, choice);
}

void Write_Weather(const Demo_Tables& tables, const Write_Installation_File& write)
{
    for (const auto& site : tables.Sites) {
        const auto files = Format_Weather(site, Demo_Weather(site, tables.Climates.at(site.Climate_As), Demo_Years));
        for (std::size_t year = 1; year <= files.size(); ++year) {
            const std::string name = site.Code + "_" + Format_Pattern(static_cast<double>(year), "00") + ".cli";
            write(In_Mode(Mode_Of(site.Is_Zone() ? Mode_Kind::Efsa : Mode_Kind::Focus), name), files[year - 1]);
            write(In_Mode(Mode_Of(Mode_Kind::Efsa_T4), name), files[year - 1]);
        }
    }
}

void Write_Scenarios(Mode_Kind mode, std::vector<Demo_Scenario> scenarios, const Write_Installation_File& write)
{
    for (auto& scenario : scenarios)
        write(In_Mode(Mode_Of(mode), scenario.Name), Format_SZE(scenario.Document));
}

void Write_Mode(const Mode& mode, const std::vector<Demo_Pesticide>& pesticides, const Write_Installation_File& write)
{
    write(In_Mode(mode, Calendar_File), Format_Calendar(Demo_Years));
    write(In_Mode(mode, "orvel.inp"), Format_Template(mode, pesticides));
    // Without this file the run form would consider the mode's job to be running.
    write(In_Mode(mode, mode.Probe_File), "Probe file of the run form; its content has no meaning.\r\n");
    if (!mode.Last_Copy.empty())
        write(In_Mode(mode, mode.Last_Copy),
              "rem Copied into each run directory; there is nothing to be done after a run.\r\n");
}

} // namespace

void Make_Data_Files(const Write_Installation_File& write)
{
    for (const auto name : {"input.dat", "Haude.dat", "Assystant.txt", "expected.csv"})
        write(name, With_Cr_Lf(Embedded_File(name)));
    write(std::string(Calendar_File), Format_Calendar(Demo_Years));
    auto pesticides = Demo_Pesticides();
    for (auto& pesticide : pesticides)
        write(pesticide.Name, Format_PSM(pesticide.Document));
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4})
        Write_Mode(Mode_Of(kind), pesticides, write);

    const Demo_Tables tables = Load_Demo_Tables();
    Write_Scenarios(Mode_Kind::Focus, Location_Scenarios(tables, Demo_Purpose::Leaching), write);
    Write_Scenarios(Mode_Kind::Efsa, Zone_Scenarios(tables), write);
    Write_Scenarios(Mode_Kind::Efsa_T4, Zone_Scenarios(tables), write);
    Write_Scenarios(Mode_Kind::Efsa_T4, Location_Scenarios(tables, Demo_Purpose::Soil_Content), write);
}

void Make_Installation_Files(const Write_Installation_File& write)
{
    Make_Data_Files(write);
    Write_Weather(Load_Demo_Tables(), write);
}

} // namespace orvel
