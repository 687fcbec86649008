// Any bytes as the crop database: its first crops make a rotation; dates in order must stay unchanged, and the rotation
// is split up again.
#include "core/error.h"
#include "round_trip.h"
#include "scenario/crop_rotation.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Most_Rows = 6;

std::string Dates_Of(const Rotation_Work& work)
{
    std::string text;
    for (const auto& row : work.Rows) {
        for (const auto& stage : Crop_Stages) {
            const auto date = Date_Of(row, stage.Stage);
            text += std::to_string(date.Day) + "." + std::to_string(date.Month) + "." + std::to_string(date.Year) + " ";
        }
        text += "\n";
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        auto work = Load_Rotation({}, Parse_Crop_Data({reinterpret_cast<const char*>(data), size}));
        for (std::size_t crop = 0; crop < std::min(work.Data_Base.size(), Most_Rows); ++crop)
            Rot_Append(work, crop);
        const std::string dates = Dates_Of(work);
        Check_Rotation_Dates(work, static_cast<int>(work.Rows.size()));
        Demand_Same(dates, Dates_Of(work));
        Check_Rotation(work);
        while (!work.Rows.empty())
            Rot_Remove(work, 0);
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
