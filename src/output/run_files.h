#pragma once

#include "core/error.h"
#include "core/progress.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// The files of a run that the builders of tables read.

// The balance file of a substance.
struct Chem_File {
    std::filesystem::path File;
    std::string Suffix; // ".orv", "_A1.orv" ...
    std::string Label;  // "Pesticide", " Metab.A1" ...
};

// The active substance's file, be it there or not, then the files that are there for the metabolites A1 B1 C1 D1 A2 B2
// C2 D2.
std::vector<Chem_File> Chem_Files(const std::filesystem::path& run_directory);

// Whether there are as many balance files as substances; any number is right without any file.
bool Has_All_Substances(const std::filesystem::path& run_directory, std::size_t substances);

// The share of the files to read that has been read, for the user.
class Reading_Progress {
public:
    Reading_Progress(const Progress& progress, const std::vector<std::filesystem::path>& files);

    // Tells the user; `read` is the count of bytes so far. Throws Reading_Stopped if the user wishes to stop.
    void Tell(const std::string& message, std::uint64_t read) const;

private:
    const Progress& Report_Progress;
    double Total = 0;
};

struct Reading_Stopped : File_Error {
    Reading_Stopped() : File_Error("The reading was stopped.") {}
};

} // namespace orvel
