#pragma once

#include "output/run_record.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace orvel {

// What a run directory is worth, looked at from outside: by its lock, its record and the names and sizes of its files.
// Nothing is read but the record, and outputs that are younger than it once, so that a list of many runs can ask again
// and again.
struct Run_State {
    orvel::Verdict Verdict = orvel::Verdict::Unrecorded;
    std::string Reason; // one sentence; empty if complete, running or scheduled
    std::optional<Run_Record> Record;
    bool Cut_Off = false;    // begun, but nobody was there to record its end
    bool Unreadable = false; // there is a record, which cannot be read; the reason tells why
    std::error_code Code;    // of the system, if that could not read it

    // Whether the engine's output is there and whole as far as is known: nothing may touch it without being asked to.
    bool Is_Finished() const { return Verdict == orvel::Verdict::Complete || Verdict == orvel::Verdict::Unrecorded; }
};

Run_State State_Of_Run(const std::filesystem::path& run_directory);
// The same for a caller who holds the run's lock: the run is not at work.
Run_State State_Of_Run_Held(const std::filesystem::path& run_directory);

// Whether a run directory of a batch still holds its copy of the engine, which the job deletes once the record is
// written.
bool Has_Engine_Copy(const std::filesystem::path& run_directory);

constexpr std::string_view Cut_Off_Reason = "The run was cut off: its job ended before the engine did.";

} // namespace orvel
