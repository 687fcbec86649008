// Any bytes as one of the engine's input files (the first byte says which), with the other files from a demonstration
// run: read it, echo it, and if it is accepted simulate ten days of water.
#include "engine/engine_case.h"
#include "engine/output/echo.h"
#include "engine/setup/input.h"
#include "engine/water/water.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace orvel::engine {

namespace {

constexpr int Days = 10;

// The first days of a demonstration run.
std::map<std::string, std::string> Ten_Days()
{
    auto run = Demo_Case("H", "_maize", "demo_C.psm", 1);
    run.End = "10 01";
    for (auto& count : run.Pesticide.App_Count) {
        if (count.Number() > 1)
            count = 1;
    }
    std::size_t end = 0;
    for (int line = 0; line <= Days; ++line) // behind the title
        end = run.Climates.front().find('\n', end) + 1;
    run.Climates.front().resize(end);
    return run.Files();
}

const std::map<std::string, std::string>& Demonstration()
{
    static const auto files = Ten_Days();
    return files;
}

constexpr std::array<std::string_view, 5> Names = {"orvel.inp", "H_maize.sze", "test.psm", "climate_01.cli",
                                                   "Haude.dat"};

void Demand(bool good)
{
    if (!good)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto changed = Names[data[0] % Names.size()];
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const File_Source source = [&](std::string_view name) -> std::optional<std::string> {
        if (name == changed)
            return bytes;
        const auto found = Demonstration().find(std::string(name));
        return found == Demonstration().end() ? std::nullopt : std::optional(found->second);
    };
    Findings findings;
    const Engine_Input input = Read_Input(source, findings);
    std::string echo;
    if (findings.Failed()) {
        Put_Errors(echo, findings);
        Demand(echo.find(" *** ERROR ") == 0);
        return 0;
    }
    Put_Input(echo, input);
    Put_Notes(echo, findings);
    Demand(echo.find("ERROR") == std::string::npos);
    Water_Column water(input.Scenario, input.Core, input.Haude);
    const std::vector<double> temperature(static_cast<std::size_t>(input.Core.Count()), 5.0);
    for (int day = input.Weather.First_Day; day < input.Weather.First_Day + Days && day <= input.Weather.Last_Day;
         ++day) {
        const Crop_State crop = Crop_On(input.Scenario, input.Rotation, day);
        const Water_Day& today =
            water.Step_Day(input.Weather.On(day), input.Weather.Dates.Day_Of_Year(day), crop, temperature);
        Demand(std::abs(today.Closure) < 1e-10);
    }
    return 0;
}

} // namespace orvel::engine
