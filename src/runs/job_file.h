#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The job file orveljob.bat, and the pending batch that becomes one. It has five kinds of line: "echo off", "cd",
// deleting old output, the engine, deleting the engine's copy.

constexpr std::string_view Job_File_Name = "orveljob.bat";

struct Job_Run {
    std::string
        Directory; // run directory below the mode directory, in the bytes of the cd line, that is, the DOS code page
    std::string Engine;
};

// The runs of a job file or a pending batch file, in order. Throws File_Error with the line number for any other kind
// or order of lines.
std::vector<Job_Run> Parse_Job(std::string_view bytes);

// The lines that a combination adds to the pending batch.
std::string Format_Job_Run(std::string_view run_directory, std::string_view engine, bool first);

// The bytes of the job file made from those of a pending batch.
std::string Format_Job(std::string_view batch);

// The directories of the runs below the mode directory. The code page of the cd lines is not one to one: throws
// File_Error for a line that fits several directories that are there, or the directory of another line.
std::vector<std::filesystem::path> Resolve_Runs(const std::filesystem::path& mode_directory,
                                                const std::vector<Job_Run>& runs);

// A directory that is there and that a job could not tell from this run directory; nothing if there is none.
std::optional<std::filesystem::path> Indistinct_Directory(const std::filesystem::path& mode_directory,
                                                          std::string_view run_directory);

// The directories of the runs in the job file of a mode directory. Throws File_Error.
std::vector<std::filesystem::path> Read_Job_Runs(const std::filesystem::path& mode_directory);

} // namespace orvel
