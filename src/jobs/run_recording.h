#pragma once

#include "core/sha256.h"
#include "core/system/spawn.h"
#include "output/run_record.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace orvel {

// Making the record of a run (output/run_record.h): by the program that starts the engine.

constexpr std::string_view Control_Name = "orvel.inp", Haude_Name = "Haude.dat";

// The files that a run reads, as its orvel.inp names them: orvel.inp, scenario, pesticide, climates, Haude.dat; each
// once. Throws Run_Refused, naming the first that is missing.
std::vector<std::filesystem::path> Inputs_Of_Run(const std::filesystem::path& run_directory);

// The name of an input in a record: as reached from the run directory.
std::string Input_Name(const std::filesystem::path& run_directory, const std::filesystem::path& input);

// Why a run did not end by itself.
struct Run_Interruption {
    bool Stopped = false;  // someone asked for it
    bool Too_Long = false; // its time was over
};

// Records the runs of a job; files that many of them share are digested once.
class Run_Recorder {
public:
    // What is known before the engine starts: its digest and those of the inputs, the time. Throws Run_Refused if an
    // input is missing, File_Error if one cannot be read.
    Run_Record Begin(const std::filesystem::path& run_directory, const std::filesystem::path& engine,
                     std::optional<int> limit);

    // Completes the record by the engine's end and what it left. One that cannot be made for an error of reading is
    // that of a failed run, with the error as its reason.
    void Complete(const std::filesystem::path& run_directory, Run_Record& record, const Program_End& end,
                  const Run_Interruption& interruption);

    // Writes a record into its run directory. Throws File_Error.
    static void Write(const std::filesystem::path& run_directory, const Run_Record& record);

    // Writes the record of a run whose engine could not be started.
    void Refuse(const std::filesystem::path& run_directory, Run_Record record, const std::string& reason);

private:
    bool Has_Leap_Day_Once(const std::filesystem::path& climate);
    void Take_Outputs(const std::filesystem::path& run_directory, Run_Record& record, std::string& fault);

    File_Digests Shared; // of files that may serve many runs
    std::map<File_Identity, bool> Leap_Days;
};

// A record with the program's name and version.
Run_Record New_Record();

} // namespace orvel
