#include "tables/table_cache.h"

#include "core/files.h"

namespace orvel {

namespace fs = std::filesystem;

std::optional<Table_Cache::Bytes> Table_Cache::Read(const fs::path& run_directory) const
try {
    const auto first = Find_File(run_directory, First), second = Find_File(run_directory, Second);
    if (!first || !second)
        return std::nullopt;
    return Bytes{Read_Whole(*first), Read_Whole(*second)};
} catch (const File_Error&) {
    return std::nullopt;
}

void Table_Cache::Write(const fs::path& run_directory, Echo echo, const Plot_Head& head, const Bytes& bytes,
                        Table_Status& status) const
try {
    status.Not_Kept = Why_Not_Kept(echo, head);
    if (status.Not_Kept.empty()) {
        Look_Again(echo, run_directory);
        status.Not_Kept = Why_Not_Kept(echo, head);
    }
    if (!status.Not_Kept.empty())
        return;
    Write_Whole(Found_Or_New(run_directory, First), bytes.First);
    Write_Whole(Found_Or_New(run_directory, Second), bytes.Second);
    status.Kept = true;
} catch (const File_Error& error) {
    status.Not_Kept = To_Code_Page(error.what());
}

std::string Why_Not_Kept(const Echo& echo, const Plot_Head& head)
{
    if (echo.At_Work)
        return "The simulation is still at work.";
    if (echo.Failed())
        return std::string(Simulation_Failed_Text);
    return head.Whole ? "" : "The run has no complete plot.orv.";
}

} // namespace orvel
