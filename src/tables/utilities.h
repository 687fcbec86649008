#pragma once

#include <filesystem>
#include <string_view>

namespace orvel {

// The tables of a single run that three small programs of the installation make from the run's series.

enum class Utility { Year, Month, Day };

struct Utility_Names {
    std::string_view Program, Batch, Output;
};
const Utility_Names& Names_Of(Utility utility);

// The utility's copy of plot.orv: the whole file if the batch file was run, else the first lines of its head.
constexpr std::string_view Series_Copy = "grw.orv";

// Whether a directory belongs to a batch, whose year.orv is another table.
bool Is_Of_A_Batch(const std::filesystem::path& directory);

} // namespace orvel
