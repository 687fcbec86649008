#pragma once

#include "core/progress.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The figures of finished runs, and how those of two assessments compare. Texts are bytes of Windows-1252.

// Which run a figure belongs to: mode ("focus") and texts of the lists; all empty for a run directory by itself.
struct Run_Key {
    std::string Mode, Pesticide, Crop, Location;
    auto operator<=>(const Run_Key&) const = default;
};

struct Found_Run {
    Run_Key Key;
    std::filesystem::path Directory;
};

// The runs of one mode directory, or of a generation of its bin; `mode` is the name that their keys get. In order of
// their directories.
std::vector<Found_Run> Runs_Below(const std::filesystem::path& directory, std::string_view mode);

// The 80th percentile of a substance's concentration in the leachate at 1 m, ug/L.
struct Run_Figure {
    Run_Key Key;
    std::string Substance; // empty for a run without results
    std::optional<double> Value;
    std::string State; // why there is no value, a sentence; empty if there is one
    bool operator==(const Run_Figure&) const = default;
};
constexpr std::string_view Result_Unit = "\xB5g/L";

// A row for each substance of a run, or one without a substance that says why there is none. Tables that are missing
// are built and kept first. Throws File_Error for a run that cannot be read, Reading_Stopped if the user stopped it.
std::vector<Run_Figure> Figures_Of(const Found_Run& run, const Progress& progress = {});
std::vector<Run_Figure> Figures_Of(const std::vector<Found_Run>& runs, const Progress& progress = {});

// Whether two numbers are the same within a tolerance, which is relative to the first.
bool Is_Within(double first, double second, double tolerance);

struct Compared_Result {
    Run_Key Key;
    std::string Substance;
    std::optional<double> First, Second;
    std::string First_State, Second_State; // why there is no figure
    std::optional<double> Ratio;           // of the second to the first; nothing without both, or if only one is 0

    // Whether both have a figure and the ratio is 1 within the tolerance, or neither has one and for the same reason.
    bool Is_Same(double tolerance) const;
    bool operator==(const Compared_Result&) const = default;
};

// Every run and substance of either side: in the order of the first, then what only the second has.
std::vector<Compared_Result> Compare_Results(const std::vector<Run_Figure>& first,
                                             const std::vector<Run_Figure>& second);

} // namespace orvel
