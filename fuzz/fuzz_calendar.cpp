// Any bytes as the calendar datum.dat: the daily series of a few days is made with it.
#include "tables/daily_series.h"
#include "tables/series.h"

#include <cstdint>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto days = Parse_Calendar({reinterpret_cast<const char*>(data), size});
    static const std::vector<Plot_Value> values = {
        {1, 12, 1.5}, {1, 24, 2.5}, {2, 24, 3}, {366, 24, 4}, {1000000, 24, 5}};
    for (const int variable : {1, 14, 28}) {
        for (const bool cumulative : {false, true})
            Make_Daily_Series(values, days,
                              {.Variable = variable, .Cumulative = cumulative, .From = {1, 1}, .To = {12, 66}});
    }
    return 0;
}

} // namespace orvel
