// Any bytes as a climate file: read, show, print, read and print again.
#include "core/error.h"
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/document_json.h"
#include "round_trip.h"

namespace orvel {

namespace {

// The hour gains six blanks with each save.
std::string Without_Hours(Climate_Table table)
{
    for (auto& row : table.Rows)
        row.Cli_Hour.clear();
    return Format_CLI(table);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        auto table = Parse_CLI({reinterpret_cast<const char*>(data), size});
        Json_Of(table);
        const bool whole = !Broken_By_Layout(table);
        // A number that rounds up to one more digit (9.99999999 to 10.0000000) has a narrower pattern from then on.
        const auto again = Parse_CLI(Format_CLI(table));
        if (whole)
            Demand_Same(Without_Hours(again), Without_Hours(Parse_CLI(Format_CLI(again))));
        Round_As_Shown(table);
        Parse_CLI(Format_CLI(table));
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
