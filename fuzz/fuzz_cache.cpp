// Any bytes as the two stored files of a run's tables (the first byte says of which kind, a byte 1 parts them):
// whatever is taken for whole has tables that every diagram and report can be made of, and is printed again as it is.
#include "report/summary_report.h"
#include "round_trip.h"
#include "tables/annual_diagram.h"
#include "tables/balance_chart.h"
#include "tables/balance_text.h"
#include "tables/leachate_text.h"

#include <cstdint>

namespace orvel {

namespace {

void Read_Leachate(std::string_view years, std::string_view periods)
{
    const auto stored = Parse_Leachate(years);
    if (!Is_Year_File(years, stored) || !Index_Of_Period_File(periods, stored, 0))
        return;
    Leachate_Tables tables;
    tables.Titles = stored.Titles;
    tables.Year = stored.Set;
    tables.Period = Parse_Leachate(periods).Set;
    Demand_Same(std::to_string(tables.Period[0].size()), std::to_string(tables.Year[0].size()));
    for (std::size_t depth = 0; depth < Annual_Depths.size(); ++depth) {
        for (std::size_t s = 0; s < Annual_Substances(tables).size(); ++s)
            Annual_Diagram(tables, depth, s);
    }
    Summary report;
    report.Substances.resize(tables.Period[0].size());
    Add_Percentiles(report, 0, "Hamburg (H)", tables);
    Summary_Text(report);
}

void Read_Balance(std::string_view water, std::string_view pesticides, Balance_View view)
{
    Balance_Tables tables;
    Parse_Water(water, view, tables);
    Parse_Pesticides(pesticides, view, tables);
    if (!Are_Balance_Files(water, pesticides, view, tables))
        return;
    Water_Balance_Chart(tables);
    for (std::size_t s = 0; s < tables.Pesticide.size(); ++s)
        Substance_Balance_Chart(tables, s);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto part = std::min(bytes.find('\x01'), bytes.size());
    const auto first = bytes.substr(0, part), second = bytes.substr(std::min(part + 1, bytes.size()));
    try {
        if (data[0] % 3 == 0)
            Read_Leachate(first, second);
        else
            Read_Balance(first, second, data[0] % 3 == 1 ? Balance_View::Annual : Balance_View::Monthly);
    } catch (const std::domain_error&) { // a figure beyond the range of a double: the builder takes it for a damage
    }
    return 0;
}

} // namespace orvel
