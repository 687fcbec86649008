#include "jobs/run_tree.h"

#include "core/files.h"
#include "core/run_name.h"
#include "jobs/job_status.h"

#include <sys/stat.h>

namespace orvel {

std::vector<Run_Entry> Run_Entries(const std::filesystem::path& parent)
{
    std::vector<Run_Entry> entries;
    for (const std::string& directory : List_Run_Levels(parent)) {
        if (const auto name = Name_Of(directory))
            entries.push_back({Decode_Level(*name), parent / directory});
    }
    return entries;
}

std::string Date_Of_Simulation(const std::filesystem::path& run_directory)
{
    const auto echo = Find_File(run_directory, "echo.orv");
    struct stat about {};
    if (!echo || ::stat(echo->c_str(), &about) != 0)
        return {};
    return Date_Text(about.st_mtime);
}

} // namespace orvel
