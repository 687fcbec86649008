// Any bytes as a cache of the leachate tables: read back, printed again, turned into periods, drawn and put into a
// report.
#include "core/code_page.h"
#include "report/summary_report.h"
#include "round_trip.h"
#include "tables/annual_diagram.h"
#include "tables/leachate_periods.h"
#include "tables/leachate_text.h"

#include <cstdint>
#include <stdexcept>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto cached = Parse_Leachate(bytes);
    try {
        for (int index = 0; index < 3; ++index) {
            Table_Text text;
            text.Head(cached.Titles);
            std::size_t tables = 0;
            for (const auto depth : Depths) {
                for (const auto& years : cached.Set[static_cast<std::size_t>(depth)]) {
                    Print_Periods(text, depth, Periods_Of(years, index));
                    ++tables;
                }
            }
            const auto again = Parse_Leachate(text.File).Set;
            Demand_Same(std::to_string(again[0].size() + again[1].size()), std::to_string(tables));
        }
    } catch (const std::domain_error&) { // a sum beyond the range of a double
    }
    Leachate_Tables tables;
    tables.Titles = cached.Titles;
    tables.Period = cached.Set;
    for (std::size_t depth = 0; depth < Annual_Depths.size(); ++depth) {
        for (std::size_t s = 0; s < Annual_Substances(tables).size(); ++s)
            Annual_Diagram(tables, depth, s);
    }
    Summary report;
    report.Substances.resize(3);
    Add_Percentiles(report, 0, "Hamburg (H)", tables);
    Summary_Text(report);
    Window_Text(bytes);
    return 0;
}

} // namespace orvel
