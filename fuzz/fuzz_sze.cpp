// Any bytes as a scenario file: read, print, read and print again.
#include "core/error.h"
#include "files/broken_line.h"
#include "files/document_json.h"
#include "files/scenario_file.h"
#include "round_trip.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Scenario_Document document;
    try {
        Reset_SZE(document);
        Parse_SZE({reinterpret_cast<const char*>(data), size}, document);
        Json_Of(document);
        const bool whole = !Broken_By_Layout(document);
        // The first save can drop senescence dates, so the document to compare is the one read back from it.
        Parse_SZE(Format_SZE(document), document);
        const std::string first = Format_SZE(document);
        Parse_SZE(first, document);
        if (whole)
            Demand_Same(first, Format_SZE(document));
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
