#pragma once

#include "core/error.h"
#include "output/recorded_file.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// run.json: the record of a run, written whole into its directory by the program that started the engine, when the
// engine has ended. A result is data only with its record. Texts are bytes of Windows-1252.

constexpr std::string_view Run_Record_Name = "run.json";

// The first four are of a record; the others are found by looking at the run.
enum class Verdict { Complete, Incomplete, Failed, Stopped, Running, Scheduled, Unrecorded };
std::string_view Verdict_Text(Verdict verdict); // "complete" ...

struct Recorded_Output {
    Recorded_File File;
    std::optional<int> Years; // complete years that it holds; nothing for a file that is not yearly
    bool operator==(const Recorded_Output&) const = default;
};

struct Run_Record {
    std::string Program, Program_Version; // that wrote the record
    std::string Directory;                // of the run below its mode, as in a job file; empty for a single run
    Recorded_File Engine;
    std::string Engine_Version;        // as the echo tells it, empty if it does not
    std::string Processor;             // what the engine made use of, as the echo tells it
    std::vector<Recorded_File> Inputs; // orvel.inp, scenario, pesticide, climates, Haude.dat
    std::time_t Start = 0, End = 0;    // 0 if the engine could not be started
    std::optional<int> Exit, Signal;   // how the engine ended
    std::optional<int> Limit;          // seconds that it was given
    int Years_Expected = 0;
    std::vector<Recorded_Output> Outputs;
    int Years_Found = 0; // the fewest of the yearly outputs
    orvel::Verdict Verdict = Verdict::Failed;
    std::string Reason; // one sentence; empty if complete
    bool operator==(const Run_Record&) const = default;
};

// The run directory as its record names it: its last three levels; empty for the directory of a single run.
std::string Recorded_Directory(const std::filesystem::path& run_directory);

// Throws File_Error, with the place if the text is not JSON, for anything that is not a record of this schema, and for
// a complete run whose exit, years or files say otherwise.
Run_Record Parse_Run_Record(std::string_view text);
std::string Format_Run_Record(const Run_Record& record); // UTF-8, LF, the same bytes for the same record

// The record of a run directory; nothing if there is none. One that is damaged or cannot be read throws File_Error with
// its name: it is never taken for none.
std::optional<Run_Record> Read_Run_Record(const std::filesystem::path& run_directory);

// The same, but nothing for a damaged one. Throws File_Error only if it cannot be read.
std::optional<Run_Record> Read_Good_Record(const std::filesystem::path& run_directory);

// "2026-11-22T02:14:23Z", and back; 0 for any other text.
std::string Utc_Text(std::time_t time);
std::time_t Time_Of_Utc(std::string_view text);

} // namespace orvel
