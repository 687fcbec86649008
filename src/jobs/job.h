#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The job file orveljob.bat has five kinds of line: "echo off", "cd", deleting old output, the engine, deleting the
// engine's copy.

struct Job_Run {
    std::string Directory; // run directory below the mode directory, in the bytes of the cd line
    std::string Engine;
};

struct Job_Result {
    int Runs = 0, Failed = 0;
};

// The runs of a job file or a pending batch file, in order. Throws File_Error with the line number for any other line
// or order.
std::vector<Job_Run> Parse_Job(std::string_view bytes);

// The lines that a combination adds to the pending batch.
std::string Format_Job_Run(std::string_view run_directory, std::string_view engine, bool first);

// The job file of a batch.
std::string Format_Job(std::string_view batch);

// The directories of the runs below the mode directory. The code page of the cd lines is ambiguous: lines that match
// several directories get one each, in order.
std::vector<std::filesystem::path> Resolve_Runs(const std::filesystem::path& mode_directory,
                                                const std::vector<Job_Run>& runs);

// Runs the job of a mode directory, `jobs` runs at a time, and keeps orveljob.log. The caller holds the lock of the
// mode directory. A run that fails does not stop the others. Throws File_Error if the job file cannot be read.
Job_Result Run_Job(const std::filesystem::path& mode_directory, int jobs);

} // namespace orvel
