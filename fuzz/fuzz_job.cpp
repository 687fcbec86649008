// Any bytes as a job file and as a job's log; runs read from it are printed and read again.
#include "core/code_page.h"
#include "core/error.h"
#include "jobs/job_log.h"
#include "round_trip.h"
#include "runs/job_file.h"

namespace orvel {

namespace {

std::string Printed(const std::vector<Job_Run>& runs)
{
    std::string text;
    for (const auto& run : runs)
        text += Format_Job_Run(Dos_To_Ansi(run.Directory), run.Engine, text.empty());
    return Format_Job(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Parse_Job_Log(bytes);
    try {
        const auto runs = Parse_Job(bytes);
        const std::string once = Printed(runs);
        Demand_Same(Printed(Parse_Job(once)), once);
    } catch (const File_Error&) {
    }
    return 0;
}

} // namespace orvel
