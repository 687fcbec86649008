#include "engine_case.h"

#include "core/numbers.h"
#include "core/output_variables.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "installation/demo_pesticides.h"
#include "installation/demo_scenario.h"
#include "installation/demo_weather.h"

#include <algorithm>
#include <fstream>

namespace orvel::engine {

namespace {

const Demo_Tables& Tables()
{
    static const Demo_Tables tables = Load_Demo_Tables();
    return tables;
}

std::string Two_Digits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

Output_Row Row_Of(std::string_view code, double depth, int substance)
{
    Output_Row row;
    row.Code = code;
    row.Variable = Output_Variable_Number(code);
    row.Depth = depth;
    row.Scale_Text = Output_Variables[static_cast<std::size_t>(row.Variable)].Out_Scale;
    row.Substance = substance;
    return row;
}

std::string Engine_Case::Control() const
{
    std::string text = Format_Pattern(Years, "000") + " " + Start + " " + End + Header_Tail + "\r\n" + Scenario_Name +
                       "\r\ntest.psm\r\n";
    for (int y = 1; y <= Years; ++y)
        text += "climate_" + Two_Digits(y) + ".cli\r\n";
    text += Format_Pattern(static_cast<double>(Rows.size()) - Profile_Rows, "00000000") + Count_Tail + "\r\n";
    for (const Output_Row& row : Rows)
        text += "    " + row.Code + "    TSER" + Format_Pattern(row.Depth, "  000") + ".0 " + row.Scale_Text +
                Format_Pattern(row.Substance, "00000000") + "\r\n";
    return text;
}

std::map<std::string, std::string> Engine_Case::Files() const
{
    Pesticide_Document pesticide = Pesticide;
    Scenario_Document scenario = Scenario;
    std::map<std::string, std::string> files{
        {"orvel.inp", Control()}, {"test.psm", Format_PSM(pesticide)}, {Scenario_Name, Format_SZE(scenario)}};
    for (int y = 1; y <= Years; ++y)
        files["climate_" + Two_Digits(y) + ".cli"] = Climates[static_cast<std::size_t>(y - 1)];
    return files;
}

Engine_Case Demo_Case(std::string_view site, std::string_view stem, std::string_view pesticide, int years)
{
    Engine_Case run;
    const auto& place = *std::ranges::find(Tables().Sites, site, &Demo_Site::Code);
    const auto& crop = *std::ranges::find(Tables().Crops, stem, &Demo_Crop::Stem);
    run.Scenario =
        Demo_Scenario_Document(place, crop, place.Is_Zone() ? Demo_Purpose::Soil_Content : Demo_Purpose::Leaching);
    const auto all = Demo_Pesticides();
    run.Pesticide = std::ranges::find(all, pesticide, &Demo_Pesticide::Name)->Document;
    run.Years = years;
    run.Climates = Format_Weather(place, Demo_Weather(place, Tables().Climates.at(place.Climate_As), years));
    run.Scenario_Name = std::string(site) + std::string(stem) + ".sze";
    return run;
}

void Write_Files(const std::map<std::string, std::string>& files, const std::filesystem::path& directory)
{
    for (const auto& [name, bytes] : files)
        std::ofstream(directory / name, std::ios::binary) << bytes;
}

} // namespace orvel::engine
