// Any bytes as the engine's echo of its input.
#include "output/echo_file.h"
#include "windows.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Read_Through_Windows(data, size, [](const auto& open) {
        auto scanner = open();
        const auto echo = Scan_Echo(scanner);
        std::string text = echo.Holds_Error ? "ERROR" : "";
        for (const auto& name : echo.Substance_Names)
            text += name + "\n";
        try {
            const auto layers = echo.Layers();
            text += Number_Texts(std::array<double, 4>{
                static_cast<double>(layers.Total_Compartments), static_cast<double>(layers.Top_Layers),
                static_cast<double>(layers.Has_Daily_Output), static_cast<double>(layers.Has_Monthly_Output)});
        } catch (const File_Error& error) {
            text += error.what();
        }
        return text;
    });
    return 0;
}

} // namespace orvel
