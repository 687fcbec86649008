// Any bytes as a plan: what was read and is written as one is read again as the same.
#include "core/error.h"
#include "plans/plan_table.h"
#include "round_trip.h"

#include <cstdint>

namespace orvel {

namespace {

std::string With_Doubled_Quotes(std::string_view text)
{
    std::string doubled;
    for (const char c : text) {
        doubled += c;
        if (c == '"')
            doubled += c;
    }
    return doubled;
}

// The same plan, written with every cell in quotes.
std::string Written(std::string_view text)
{
    std::string plan;
    Plan_Ids ids;
    Plan_Reader reader(Source_Of(text));
    const auto add = [&](const std::string& cell, bool first) {
        plan += (first ? "\"" : ",\"") + With_Doubled_Quotes(cell) + "\"";
    };
    for (std::size_t i = 0; i < reader.Columns().All.size(); ++i)
        add(reader.Columns().All[i].Name, i == 0);
    plan += "\r\n";
    for (Plan_Row row;;) {
        try {
            if (!reader.Next(row))
                return plan;
        } catch (const File_Error&) {
            continue;
        }
        ids.Add(reader.Cell(row, Plan_Column_Kind::Id));
        for (std::size_t i = 0; i < row.Cells.size(); ++i)
            add(row.Cells[i], i == 0);
        plan += "\r\n";
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const std::string once = Written({reinterpret_cast<const char*>(data), size});
        Demand_Same(Written(once), once);
    } catch (const File_Error&) {
        // The first row is not that of a plan.
    }
    return 0;
}

} // namespace orvel
