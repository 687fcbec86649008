#include "tables/utilities.h"

#include "core/run_name.h"

#include <array>

namespace orvel {

const Utility_Names& Names_Of(Utility utility)
{
    static constexpr std::array<Utility_Names, 3> Names = {{{"wyear.exe", "wyear.bat", "year.orv"},
                                                            {"wmonth.exe", "wmonth.bat", "month.orv"},
                                                            {"wday.exe", "wday.bat", "day.orv"}}};
    return Names[static_cast<std::size_t>(utility)];
}

bool Is_Of_A_Batch(const std::filesystem::path& directory)
{
    // Made absolute, so that a directory given as "." has its name.
    const auto place = std::filesystem::absolute(directory / "").lexically_normal().parent_path();
    return Is_Run_Level(place.filename().string());
}

} // namespace orvel
