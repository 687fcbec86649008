// Any bytes as a pesticide file: read, derive the pathway, print, read and print again.
#include "core/error.h"
#include "files/broken_line.h"
#include "files/document_json.h"
#include "files/pesticide_file.h"
#include "round_trip.h"
#include "substance/pathway.h"

#include <memory>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto document = std::make_unique<Pesticide_Document>();
    try {
        Parse_PSM({reinterpret_cast<const char*>(data), size}, *document);
        Update_Pathway(*document);
        Json_Of(*document);
        const bool whole = !Broken_By_Layout(*document);
        // A number that rounds up to one more digit (9.99999999 to 10.0000000) has a narrower pattern from then on.
        Parse_PSM(Format_PSM(*document), *document);
        const std::string first = Format_PSM(*document);
        Parse_PSM(first, *document);
        if (whole)
            Demand_Same(first, Format_PSM(*document));
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
