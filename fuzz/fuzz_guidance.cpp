// Any bytes as a file of rules, which then check a document.
#include "core/error.h"
#include "files/pesticide_example.h"
#include "substance/guidance_check.h"
#include "substance/pathway.h"

#include <cstdint>
#include <memory>

namespace orvel {

namespace {

Guidance_Facts Example_Facts()
{
    const auto document = Example_Document();
    Update_Pathway(*document);
    return Facts_Of(*document);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Guidance_Facts facts = Example_Facts();
    try {
        const auto guidance = Parse_Guidance({reinterpret_cast<const char*>(data), size});
        const auto findings = Check_Guidance(guidance, facts, {});
        Findings_Lines(findings);
        Findings_Json(findings);
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
