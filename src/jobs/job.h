#pragma once

#include <filesystem>

namespace orvel {

// The job of a mode: the runs of its job file (job_file.h).

struct Job_Result {
    int Runs = 0, Failed = 0;
};

// Runs the job of a mode directory, `jobs` runs at a time, and keeps orveljob.log. The caller holds the lock of the
// mode directory. A run that fails does not stop the others. Throws File_Error if the job file cannot be read.
Job_Result Run_Job(const std::filesystem::path& mode_directory, int jobs);

} // namespace orvel
