#pragma once

#include "core/system/file_handle.h"
#include "core/time_text.h"

#include <ctime>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace orvel {

// orveljob.log in the mode directory: the journal of all jobs, to which each only adds. UTF-8, one line per event,
// fields separated by tabs: local time, event, run directory below the mode directory, detail. It serves the user, and
// programs for progress and estimates: what a run is worth, its record tells.

constexpr std::string_view Job_Log_Name = "orveljob.log";

enum class Job_Event { Begin, Started, Finished, Incomplete, Failed, Killed, Stopped, Kept, End };
std::string_view Event_Name(Job_Event event);

class Job_Log {
public:
    // Opens the journal, or begins one. Throws File_Error if it cannot be written.
    explicit Job_Log(const std::filesystem::path& mode_directory);

    void Add(Job_Event event, std::string_view run, std::string_view detail);

private:
    File_Handle File;
};

// What the journal says of the last job.
struct Job_History {
    std::time_t Begin = 0; // 0: there is none
    bool Ended = false;
    std::map<std::string, Job_Event, std::less<>> Runs; // last event by run directory
};

// Lines of any other form are ignored.
Job_History Parse_Job_Log(std::string_view text);
Job_History Read_Job_Log(const std::filesystem::path& mode_directory); // empty without a readable journal

} // namespace orvel
