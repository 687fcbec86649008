#include "runs/batch.h"

#include "core/files.h"
#include "core/run_name.h"
#include "core/system/rights.h"
#include "runs/job_file.h"

#include <algorithm>
#include <chrono>

namespace orvel {

namespace fs = std::filesystem;

fs::path Batch_File(const fs::path& mode_directory)
{
    return Found_Or_New(mode_directory, "batch.bat");
}

bool Batch_Pending(const fs::path& mode_directory)
{
    std::error_code ignored;
    return fs::exists(Batch_File(mode_directory), ignored);
}

std::string_view Run_Caption(const fs::path& mode_directory)
{
    return Batch_Pending(mode_directory) ? "Start Batch" : "Run";
}

std::vector<std::string> Read_Batch(const fs::path& mode_directory)
try {
    std::vector<std::string> runs;
    for (const auto& path : Resolve_Runs(mode_directory, Parse_Job(Read_Whole(Batch_File(mode_directory)))))
        runs.push_back(Run_Directory_Of(mode_directory, path));
    return runs;
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return {}; // no batch, or a damaged one: the next combination begins a new one
}

void Add_To_Batch(const fs::path& mode_directory, std::string_view run_directory, std::string_view engine, bool first)
{
    const fs::path batch = Batch_File(mode_directory);
    const std::string before = first ? "" : Read_Whole(batch);
    Write_Whole(batch, before + Format_Job_Run(run_directory, engine, first));
}

void Take_Out_Of_Batch(const fs::path& app_path, const fs::path& mode_directory, const std::vector<fs::path>& runs)
{
    if (!Batch_Pending(mode_directory))
        return;
    const auto turn = Acquire_Batch_Lock(app_path);
    const fs::path batch = Batch_File(mode_directory);
    const auto jobs = Parse_Job(Read_Whole(batch));
    const auto places = Resolve_Runs(mode_directory, jobs);
    std::string kept;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        if (std::ranges::find(runs, places[i]) == runs.end())
            kept += Format_Job_Run(jobs[i].Directory, jobs[i].Engine, kept.empty());
    }
    if (kept.empty() && !fs::remove(batch))
        throw File_Error("The pending batch " + batch.string() + " cannot be removed.");
    if (!kept.empty())
        Write_Whole(batch, kept);
}

std::optional<Lock> Acquire_Batch_Lock(const fs::path& app_path)
{
    constexpr std::chrono::seconds Most(10);
    // A file that every run needs a copy of; locks on the directories themselves already mean a run or job at work.
    const fs::path token = Found_Or_New(app_path, "Haude.dat");
    if (!May_Read(token))
        return std::nullopt;
    auto turn = Lock::Take_Within(token, Most);
    if (!turn)
        throw File_Error(
            "Another program is preparing simulations in this installation. Please try again when it has finished.");
    return turn;
}

} // namespace orvel
