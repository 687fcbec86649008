// Any bytes as a cache of the leachate tables: read back, turned into periods and gathered into a report.
#include "report/summary_report.h"
#include "round_trip.h"
#include "tables/leachate_periods.h"

#include <cstdint>
#include <stdexcept>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        for (int index = 0; index < 3; ++index) {
            const auto periods = Build_Periods(bytes, index);
            const auto again = Parse_Leachate(periods.Text.File);
            Demand_Same(std::to_string(again.Tables.size()),
                        std::to_string(periods.Set[0].size() + periods.Set[1].size()));
        }
    } catch (const std::domain_error&) { // a sum that no double holds
    }
    Summary report;
    report.Substances.resize(3);
    Gather_Percentiles(report, 0, "Hamburg (H)", bytes);
    Summary_Text(report);
    Shown_Cache(bytes);
    return 0;
}

} // namespace orvel
