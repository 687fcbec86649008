#include "output/run_files.h"

#include "core/files.h"
#include "core/text.h"

#include <algorithm>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// As Find_File chooses: the exact name if it is there, else the first in order.
std::optional<std::string> Chosen_Name(const std::vector<std::string>& names, const std::string& wanted)
{
    std::optional<std::string> best;
    for (const auto& name : names) {
        if (name == wanted)
            return name;
        if (Same_Text(name, wanted) && (!best || name < *best))
            best = name;
    }
    return best;
}

} // namespace

std::vector<Chem_File> Chem_Files(const fs::path& run_directory)
{
    std::vector<Chem_File> files = {{Found_Or_New(run_directory, "chem.orv"), ".orv", "Pesticide"}};
    const auto names = List_Files(run_directory, "chem_??.orv"); // once for all eight
    for (const char generation : {'1', '2'}) {
        for (const char letter : {'A', 'B', 'C', 'D'}) {
            const std::string metabolite = {letter, generation};
            const std::string suffix = "_" + metabolite + ".orv";
            if (const auto name = Chosen_Name(names, "chem" + suffix))
                files.push_back({run_directory / *name, suffix, " Metab." + metabolite});
        }
    }
    return files;
}

bool Has_All_Substances(const fs::path& run_directory, std::size_t substances)
{
    const auto files = Chem_Files(run_directory);
    std::error_code ignored;
    return substances == files.size() || (files.size() == 1 && !fs::exists(files.front().File, ignored));
}

Reading_Progress::Reading_Progress(const Progress& progress, const std::vector<fs::path>& files)
    : Report_Progress(progress)
{
    for (const auto& file : files) {
        std::error_code missing;
        const auto size = fs::file_size(file, missing);
        Total += missing ? 0 : static_cast<double>(size);
    }
}

void Reading_Progress::Tell(const std::string& message, std::uint64_t read) const
{
    const double share = Total > 0 ? std::min(1.0, static_cast<double>(read) / Total) : 0;
    if (Report_Progress && !Report_Progress(message, share))
        throw Reading_Stopped();
}

} // namespace orvel
