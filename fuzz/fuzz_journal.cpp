// Any bytes as the journal of a mode's jobs, orveljob.log; the times that it holds are printed and read again.
#include "jobs/job_log.h"
#include "round_trip.h"

#include <cstdint>

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto history = Parse_Job_Log({reinterpret_cast<const char*>(data), size});
    for (const auto& [run, event] : history.Runs)
        Event_Name(event);
    if (history.Begin > 0)
        Demand_Same(Time_Text(Time_Of_Text(Time_Text(history.Begin))), Time_Text(history.Begin));
    return 0;
}

} // namespace orvel
