#pragma once

#include "core/progress.h"
#include "records/results.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// Runs the inputs of an archive again and compares what comes out with what was archived. Texts are bytes of
// Windows-1252.

struct Reproduced_Run {
    std::string Directory;              // below the installation
    std::vector<std::string> Differing; // outputs with other bytes, or that only one of the two has
    std::string Fault;                  // why it cannot be compared, a sentence; empty if it can
    bool operator==(const Reproduced_Run&) const = default;
};

struct Reproduction {
    std::vector<Reproduced_Run> Runs;
    std::vector<Compared_Result> Results; // the archived figure first
    std::vector<std::string> Notes;       // other engine, other processor: sentences
    double Tolerance = 0;

    bool Has_Same_Bytes() const;
    // All runs could be compared, and their figures are the same within the tolerance; without one their outputs have
    // the same bytes.
    bool Is_Same() const;
};

struct Reproduction_Order {
    std::filesystem::path Archive;
    std::filesystem::path Engine;   // empty: the one of that name in the installation
    std::filesystem::path App_Path; // the installation
    double Tolerance = 0;
};

// Runs one simulation per processor at a time, in a temporary directory that is removed. The engine of the archive is
// never run: a program out of a file from elsewhere is not to be trusted. Throws File_Error for an archive that cannot
// be read, an engine that is missing or that every user may change; Reading_Stopped if the user stopped it.
Reproduction Reproduce(const Reproduction_Order& order, const Progress& progress = {});

// A line a run, parted by tabs: "same", "differs" or "failed", the directory, the outputs that differ or the fault;
// then figures and notes as Comparison_Lines prints them.
std::string Reproduction_Lines(const Reproduction& reproduction);
std::string Reproduction_Json(const Reproduction& reproduction); // UTF-8

} // namespace orvel
