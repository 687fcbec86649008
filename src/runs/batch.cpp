#include "runs/batch.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/locations.h"
#include "core/system/lock.h"
#include "core/system/program_path.h"
#include "core/system/rights.h"
#include "core/system/spawn.h"
#include "core/text.h"
#include "jobs/job.h"
#include "jobs/job_log.h"
#include "jobs/job_status.h"

#include <chrono>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Starting = "Starting ORVEL Simulations";

fs::path Batch_File(const Session& session, const Mode& mode)
{
    return Found_Or_New(Mode_Directory(session, mode), "batch.bat");
}

void Tell(const Session& session, std::string text)
{
    session.Ask({std::string(Starting), std::move(text)});
}

// The lock of the job, unless one is at work.
std::optional<Lock> Take_Job_Lock(const Session& session, const Mode& mode)
{
    constexpr std::chrono::milliseconds Most(200);
    return Job_Running(session, mode) ? std::nullopt : Lock::Take_Within(Mode_Directory(session, mode), Most);
}

std::string Busy_Text(const Session& session, const Mode& mode)
{
    if (!Find_File(Mode_Directory(session, mode), mode.Probe_File))
        return "The file " + std::string(mode.Probe_File) + " of the installation is missing.";
    return "The current ORVEL simulation is still running.";
}

int Start_Job(const Session& session, const Mode& mode, int jobs, const fs::path& runner, const Lock& lock)
{
    const fs::path directory = Mode_Directory(session, mode);
    const std::string batch = Read_Whole(Batch_File(session, mode));
    Parse_Job(batch);
    Write_Whole(Found_Or_New(directory, "orveljob.bat"), Format_Job(batch));
    std::error_code ignored;
    fs::remove(directory / Job_Log_Name, ignored); // it tells of the job before
    Program_Start start{.Program = runner,
                        .Arguments = {"--jobs", std::to_string(jobs), "--lock", std::to_string(Kept_As), "."},
                        .Directory = directory,
                        .Output = {},
                        .Kept_Descriptor = lock.Descriptor(),
                        .Own_Session = true};
    return Start_Program(start);
}

} // namespace

const std::string_view Run_Button_Notice =
    "INFORMATION:\r\n"
    "The Run button is disabled as long as the current ORVEL simulation is running.\r\n"
    " If the Run button will not become active after the ORVEL simulation finished, please first close this form "
    "and then directly reopen it.";

bool Batch_Pending(const Session& session, const Mode& mode)
{
    std::error_code ignored;
    return fs::exists(Batch_File(session, mode), ignored);
}

std::string_view Run_Caption(const Session& session, const Mode& mode)
{
    return Batch_Pending(session, mode) ? "Start Batch" : "Run";
}

void Load_Batch(Session& session, const Mode& mode)
try {
    const fs::path directory = Mode_Directory(session, mode);
    auto& runs = session.Run.Job_Dir;
    runs.clear();
    for (const auto& path : Resolve_Runs(directory, Parse_Job(Read_Whole(Batch_File(session, mode)))))
        runs.push_back(Replace_All(Path_Text(path.lexically_relative(directory)), "/", "\\"));
} catch (const File_Error&) {
    session.Run.Job_Dir.clear(); // none, or damaged: the next combination begins a new one
}

std::optional<Lock> Acquire_Batch_Lock(const Session& session)
{
    constexpr std::chrono::seconds Most(10);
    // A file that every run takes a copy of: the directories' own locks tell of runs and jobs at work.
    const fs::path token = Found_Or_New(session.Program.App_Path, "Haude.dat");
    if (!May_Read(token))
        return std::nullopt;
    auto turn = Lock::Take_Within(token, Most);
    if (!turn)
        throw File_Error(
            "Another program is preparing simulations in this installation. Please try again when it has finished.");
    return turn;
}

std::string Run_Directory(std::string_view pesticide, std::string_view crop, std::string_view location)
{
    constexpr std::size_t Ending = 4;
    const auto stem = pesticide.substr(0, pesticide.size() - std::min(pesticide.size(), Ending));
    return Name_Encode(std::string(stem) + ".run") + Name_Encode("\\" + std::string(crop) + ".run") +
           Name_Encode("\\" + std::string(location) + ".run");
}

fs::path Run_Path(const fs::path& mode_directory, std::string_view run_directory)
{
    return mode_directory / Path_Of(Replace_All(std::string(run_directory), "\\", "/"));
}

Started_Job Start_Batch(Session& session, const Mode& mode, int jobs, const fs::path& runner)
try {
    const auto turn = Acquire_Batch_Lock(session);
    if (!Batch_Pending(session, mode)) {
        Tell(session, "No combination is marked for a batch.");
        return {Start_Result::Nothing_Pending};
    }
    const auto lock = Take_Job_Lock(session, mode);
    if (!lock) {
        Tell(session, Busy_Text(session, mode));
        return {Start_Result::Already_Running};
    }
    const int process = Start_Job(session, mode, jobs, runner.empty() ? Program_Beside("orveljob") : runner, *lock);
    std::error_code ignored;
    fs::remove(Batch_File(session, mode), ignored);
    session.Run.Job_Dir.clear();
    return {Start_Result::Started, process};
} catch (const File_Error& error) {
    Tell(session, To_Code_Page(error.what()));
    return {Start_Result::Failed};
}

Started_Job Run_Batch(Session& session, const Mode& mode, const Run_Choice& choice, int jobs, const fs::path& runner)
{
    session.Run.Run_Pending_Flag = false;
    if (!Batch_Pending(session, mode) && Mark_For_Batch(session, mode, choice) != Mark_Result::Marked)
        return {Start_Result::Nothing_Pending};
    return Start_Batch(session, mode, jobs, runner);
}

std::optional<int> Job_Exit_Code(int process)
{
    constexpr int Killed = 128;
    const auto end = End_Of_Program(process);
    if (!end)
        return std::nullopt;
    return end->Signal == 0 ? end->Exit_Code : Killed + end->Signal;
}

bool Delete_Pesticide(Session& session, std::string_view pesticide)
{
    const Message question{"Deleting pesticide input files",
                           "Are you sure that you want to delete the file '" + std::string(pesticide) + "'!",
                           Icon::Warning,
                           {Button::Ok, Button::Cancel},
                           Button::Cancel};
    if (session.Ask(question) != Button::Ok)
        return false;
    const fs::path file = Found_Or_New(session.Program.App_Path, Path_Of(pesticide));
    std::error_code error;
    if (!Is_Read_Only(file) && fs::remove(file, error))
        return true;
    session.Ask({question.Title, "The file " + Path_Text(file) + " could not be deleted."});
    return false;
}

} // namespace orvel
