// Any bytes as a run control file: restored in each variant, printed and restored again.
#include "core/error.h"
#include "output/parameter_list.h"
#include "round_trip.h"
#include "runs/run_control.h"

#include <algorithm>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        const auto restored = Parse_Template(Mode_Of(kind), bytes);
        Tillage_List_Index(Mode_Of(kind), restored.Till_Depth);
        Crop_Of_Part(Mode_Of(kind), restored.Code, restored.Crop_Part);
    }
    try {
        Substances_Of_Rows(bytes);
    } catch (const File_Error&) { // a short text
    }
    auto control = Parse_Single_Run(bytes);
    for (auto& slot : control.Output)
        slot.Out_Var = std::max<std::int16_t>(slot.Out_Var, 1); // a gap among the slots loses the last one by layout
    const std::string printed = Format_Single_Run(control.Settings, control.Output);
    const auto again = Parse_Single_Run(printed, control);
    Demand_Same(Format_Single_Run(again.Settings, again.Output), printed);
    return 0;
}

} // namespace orvel
