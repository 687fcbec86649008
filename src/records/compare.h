#pragma once

#include "core/progress.h"
#include "records/comparison.h"

#include <filesystem>

namespace orvel {

// What can be compared.
enum class Comparable { Pesticide, Scenario, Climate, Run, Installation, Archive };
// Throws File_Error for a path that is none of these.
Comparable Comparable_Of(const std::filesystem::path& path);

// Compares two of a kind; an archive and an installation go together, by what the archive holds. An archive is laid out
// in a temporary directory for it. A tolerance of 0.01 takes numbers for the same that differ by one per cent of the
// first. Throws File_Error for two of different kinds and for what cannot be read, Reading_Stopped.
Comparison Compare(const std::filesystem::path& first, const std::filesystem::path& second, double tolerance,
                   const Progress& progress = {});

} // namespace orvel
