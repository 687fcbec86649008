#pragma once

#include "core/progress.h"
#include "records/expected_figures.h"
#include "runs/acceptance.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Tries an engine on the reference simulations: the demonstration data, as this program makes them, whatever the
// installation has of them. Texts are bytes of Windows-1252.

struct Accept_Order {
    std::filesystem::path App_Path;
    std::filesystem::path Engine;   // empty: that of the installation
    std::filesystem::path Expected; // empty: expected.csv of the installation
};

struct Tried_Figure {
    Expected_Figure Expected;
    std::optional<double> Obtained;
    std::string State;           // why there is none, a sentence
    std::optional<double> Ratio; // to what was expected; nothing without both, or if only that is 0
    bool Is_Good = false;
};

struct Trial {
    std::vector<Tried_Figure> Figures; // in the order of the expected ones
    std::vector<Expected_Figure>
        Obtained;    // all that came out, with the tolerance of what was expected or the usual one
    Acceptance What; // engine and expected file, without a date

    bool Is_Accepted() const;
};

// Runs what the expected figures name, one simulation per processor at a time, in a temporary directory that is
// removed. Throws File_Error for an expected file or an engine that cannot be read or may not be started;
// Reading_Stopped if the user stopped it.
Trial Try_Engine(const Accept_Order& order, const Progress& progress = {});

// Notes in the installation that the engine was accepted today, or that it is not any more. Throws File_Error.
void Note_Trial(const std::filesystem::path& app_path, const Trial& trial);

// A line a figure, parted by tabs, after one of headings, and one that tells the result. UTF-8.
std::string Trial_Text(const Trial& trial);

} // namespace orvel
