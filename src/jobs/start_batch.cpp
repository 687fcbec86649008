#include "jobs/start_batch.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "jobs/job_log.h"
#include "jobs/job_status.h"
#include "runs/batch.h"
#include "runs/job_file.h"

#include <chrono>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Takes the job lock; nothing if a job is at work.
std::optional<Lock> Take_Job_Lock(const Program_State& program, const Mode& mode)
{
    constexpr std::chrono::milliseconds Most(200);
    return Job_Running(program, mode) ? std::nullopt : Lock::Take_Within(Mode_Directory(program, mode), Most);
}

std::string Busy_Text(const Program_State& program, const Mode& mode)
{
    if (!Find_File(Mode_Directory(program, mode), mode.Probe_File))
        return "The file " + std::string(mode.Probe_File) + " of the installation is missing.";
    return "The current ORVEL simulation is still running.";
}

int Start_Job(const fs::path& mode_directory, int jobs, const fs::path& runner, const Lock& lock)
{
    const std::string batch = Read_Whole(Batch_File(mode_directory));
    Parse_Job(batch);
    Write_Whole(Found_Or_New(mode_directory, Job_File_Name), Format_Job(batch));
    std::error_code ignored;
    fs::remove(mode_directory / Job_Log_Name, ignored); // of the previous job
    Program_Start start{.Program = runner,
                        .Arguments = {"--jobs", std::to_string(jobs), "--lock", std::to_string(Kept_As), "."},
                        .Directory = mode_directory,
                        .Output = {},
                        .Kept_Descriptor = lock.Descriptor(),
                        .Own_Session = true};
    return Start_Program(start);
}

} // namespace

Started_Job Start_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, int jobs,
                        const fs::path& runner)
try {
    const auto turn = Acquire_Batch_Lock(program.App_Path);
    const fs::path directory = Mode_Directory(program, mode);
    if (!Batch_Pending(directory)) {
        Tell(ask, Starting, "No combination is marked for a batch.");
        return {Start_Result::Nothing_Pending};
    }
    const auto lock = Take_Job_Lock(program, mode);
    if (!lock) {
        Tell(ask, Starting, Busy_Text(program, mode));
        return {Start_Result::Already_Running};
    }
    const int process = Start_Job(directory, jobs, runner.empty() ? Program_Beside("orveljob") : runner, *lock);
    std::error_code ignored;
    fs::remove(Batch_File(directory), ignored);
    return {Start_Result::Started, process};
} catch (const File_Error& error) {
    Tell(ask, Starting, To_Code_Page(error.what()));
    return {Start_Result::Failed};
}

Started_Job Run_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Run_Choice& choice,
                      int jobs, const fs::path& runner)
{
    if (!Batch_Pending(Mode_Directory(program, mode)) &&
        Mark_For_Batch(program, ask, mode, choice) != Mark_Result::Marked)
        return {Start_Result::Nothing_Pending};
    return Start_Batch(program, ask, mode, jobs, runner);
}

std::optional<int> Job_Exit_Code(int process)
{
    constexpr int Killed = 128;
    const auto end = End_Of_Program(process);
    if (!end)
        return std::nullopt;
    return end->Signal == 0 ? end->Exit_Code : Killed + end->Signal;
}

} // namespace orvel
