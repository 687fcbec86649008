// Any bytes as notes beside a document: what was read and is written is read again as the same.
#include "core/error.h"
#include "files/document_notes.h"
#include "round_trip.h"

#include <cstdint>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const std::string once = Format_Notes(Parse_Notes({reinterpret_cast<const char*>(data), size}));
        Demand_Same(Format_Notes(Parse_Notes(once)), once);
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
