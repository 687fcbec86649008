#include "jobs/run_tree.h"

#include "core/files.h"
#include "core/run_name.h"
#include "core/system/times.h"
#include "jobs/job_status.h"

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
    const std::time_t changed = echo ? Last_Change(*echo) : 0;
    return changed == 0 ? std::string() : Date_Text(changed);
}

} // namespace orvel
