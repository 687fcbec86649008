// Any bytes as the engine's time series: its head, and the averages of its profile.
#include "output/soil_averages.h"
#include "windows.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Read_Through_Windows(data, size, [](const auto& open) {
        std::string text;
        try {
            auto plot = open();
            const auto head = Scan_Plot_Head(plot);
            for (const auto& column : head.Columns)
                text += column.Plot_Code + column.Plot_Scale + "\n";
            for (const auto& substance : Scan_Soil_Profile(plot, head, 20, [](int) {})) {
                for (const auto& maximum : substance.Maxima())
                    text += std::to_string(maximum.Value) + Simulation_Date(maximum.Begin) + "\n";
            }
        } catch (const File_Error& error) {
            text += error.what();
        }
        return text;
    });
    return 0;
}

} // namespace orvel
