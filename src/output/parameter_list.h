#pragma once

#include "core/session.h"
#include "output/plot_file.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The series that a run offers for its diagram.

struct Parameter_Item {
    std::string Text; // bytes of Windows-1252
    int Column = 0;   // value column of plot.orv, from 1
    int Variable = 1; // of the output variables
    bool operator==(const Parameter_Item&) const = default;
};

// The list of a run that names none: it has no plot.orv, or one that cannot be read.
std::vector<Parameter_Item> Fixed_Parameters();

// The substance, 1 to 9, of every output row of a run control file, the rows of the profile included. Throws File_Error
// for a short text.
std::vector<int> Substances_Of_Rows(std::string_view run_control);

// An item for each column with a known code. Names of substances are by their number, from 1.
std::vector<Parameter_Item> Parameters_Of(const Plot_Head& head, const std::vector<int>& substances,
                                          const Per_Substance<std::string>& names);

// An item for each column with a known code, its substance named by the run control and pesticide file of the
// directory; "unknown" without them.
std::vector<Parameter_Item> Parameters_Of_Head(const Plot_Head& head, const std::filesystem::path& directory);

// The list of a run directory, its substances named as in its own copy of the pesticide file. The fixed list where they
// are missing or damaged; throws File_Error for one that cannot be read.
std::vector<Parameter_Item> Parameters_Of_Run(const std::filesystem::path& run_directory);

} // namespace orvel
