// Any bytes as the engine's echo of its input.
#include "output/echo_file.h"
#include "windows.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Read_Through_Windows(data, size, [](const auto& open) {
        std::string text;
        try {
            auto echo = open();
            const auto layers = Scan_Echo_Layers(echo);
            text = Number_Texts(std::array<double, 4>{
                static_cast<double>(layers.Total_Compartments), static_cast<double>(layers.Top_Layers),
                static_cast<double>(layers.Has_Daily_Output), static_cast<double>(layers.Has_Monthly_Output)});
        } catch (const File_Error& error) {
            text = error.what();
        }
        auto names = open();
        for (const auto& name : Scan_Substance_Names(names))
            text += name + "\n";
        auto errors = open();
        return text + (Scan_For_Error(errors) ? "ERROR" : "");
    });
    return 0;
}

} // namespace orvel
