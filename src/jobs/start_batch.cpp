#include "jobs/start_batch.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "jobs/engine_start.h"
#include "jobs/job_log.h"
#include "jobs/job_status.h"
#include "jobs/run_recording.h"
#include "output/run_outputs.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/run_directory.h"
#include "runs/run_place.h"

#include <chrono>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Nothing_Marked = "No combination is marked for a batch.";

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

// The runs of a start, and the file that names them.
struct Planned_Job {
    std::string File; // bytes of the job file to be
    std::vector<Job_Run> Runs;
    std::vector<fs::path> Paths;
};

Planned_Job Plan_Job(const fs::path& mode_directory, Job_Selection selection)
{
    Planned_Job job;
    job.File = selection == Job_Selection::Fresh ? Format_Job(Read_Whole(Batch_File(mode_directory)))
                                                 : Read_Whole(Found_Or_New(mode_directory, Job_File_Name));
    // Without its first line, so that a fault is told with its line in the batch.
    job.Runs = Parse_Job(selection == Job_Selection::Fresh ? Read_Whole(Batch_File(mode_directory)) : job.File);
    job.Paths = Resolve_Runs(mode_directory, job.Runs);
    return job;
}

// Throws Run_Refused or File_Error unless an engine can be started in this run directory.
void Check_Run(const Program_State& program, const Mode& mode, const fs::path& path, const std::string& engine_name,
               Job_Selection selection)
{
    Check_No_Link(Mode_Directory(program, mode), path);
    std::error_code ignored;
    if (!fs::is_directory(path, ignored))
        throw Run_Refused("The run directory " + path.string() + " is missing. Please mark its combination again.");
    for (fs::path level = path; level != Mode_Directory(program, mode); level = level.parent_path())
        Check_Not_Open_To_All(level);
    fs::path engine = path / Path_Of(engine_name);
    if (selection != Job_Selection::Fresh && !fs::exists(engine, ignored))
        engine = Found_Or_New(program.App_Path, Path_Of(engine_name));
    Check_Not_Open_To_All(engine);
    if (const auto source = Find_File(program.App_Path, Path_Of(engine_name)))
        Check_Not_Open_To_All(*source); // which every run's copy is made of
    try {
        Engine_Start(engine.parent_path(), engine);
        Inputs_Of_Run(path);
    } catch (const Run_Refused& refused) {
        throw Run_Refused(path.string() + ": " + refused.what());
    }
}

// The number of runs that the job will run.
std::size_t Check_Job(const Program_State& program, const Mode& mode, const Planned_Job& job, Job_Selection selection)
{
    Check_Not_Open_To_All(program.App_Path);
    Check_Not_Open_To_All(Mode_Directory(program, mode));
    std::size_t selected = 0;
    for (std::size_t i = 0; i < job.Runs.size(); ++i) {
        if (!Is_Selected(selection, State_Of_Run(job.Paths[i])))
            continue;
        Check_Run(program, mode, job.Paths[i], job.Runs[i].Engine, selection);
        ++selected;
    }
    return selected;
}

void Check_Runner(const fs::path& runner)
{
    std::error_code ignored;
    if (!fs::is_regular_file(runner, ignored))
        throw File_Error("Cannot start " + runner.string() + ": it is missing.");
}

int Spawn_Job(const fs::path& mode_directory, const Job_Order& order, const fs::path& runner, const Lock& lock)
{
    Program_Start start{
        .Program = runner,
        .Arguments = {"--jobs", std::to_string(order.Jobs), "--lock", std::to_string(Kept_As(lock.Descriptor()))},
        .Directory = mode_directory,
        .Output = {},
        .Kept_Descriptor = lock.Descriptor(),
        .Own_Session = true};
    if (order.Limit)
        start.Arguments.insert(start.Arguments.end(), {"--limit", std::to_string(*order.Limit)});
    if (order.Selection != Job_Selection::Fresh)
        start.Arguments.emplace_back(order.Selection == Job_Selection::Resume ? "--resume" : "--failed");
    start.Arguments.emplace_back(".");
    return Start_Program(start);
}

// What stands in the way of a start before its runs are looked at; empty if nothing does.
std::string Nothing_To_Start(const fs::path& mode_directory, Job_Selection selection)
{
    if (selection == Job_Selection::Fresh)
        return Batch_Pending(mode_directory) ? "" : std::string(Nothing_Marked);
    return Find_File(mode_directory, Job_File_Name) ? "" : "No job was ever started here.";
}

} // namespace

Started_Job Start_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Job_Order& order,
                        const fs::path& runner)
try {
    const auto turn = Acquire_Batch_Lock(program.App_Path);
    const fs::path directory = Mode_Directory(program, mode);
    End_Interrupted_Marks(directory);
    if (const auto reason = Nothing_To_Start(directory, order.Selection); !reason.empty()) {
        Tell(ask, Starting, reason);
        return {Start_Result::Nothing_Pending};
    }
    const auto lock = Take_Job_Lock(program, mode);
    if (!lock) {
        Tell(ask, Starting, Busy_Text(program, mode));
        return {Start_Result::Already_Running};
    }
    const fs::path program_file = runner.empty() ? Program_Beside("orveljob") : runner;
    const Planned_Job job = Plan_Job(directory, order.Selection);
    if (job.Runs.empty()) {
        Tell(ask, Starting, Nothing_Marked);
        return {Start_Result::Nothing_Pending};
    }
    Check_Runner(program_file);
    if (Check_Job(program, mode, job, order.Selection) == 0 && order.Selection != Job_Selection::Fresh) {
        ask({std::string(Starting), "There is no such simulation in the last job.", Icon::Information});
        return {Start_Result::Nothing_Pending};
    }
    if (order.Selection == Job_Selection::Fresh)
        Write_Whole(Found_Or_New(directory, Job_File_Name), job.File);
    Remove_Stop_Request(directory);
    const int process = Spawn_Job(directory, order, program_file, *lock);
    // Killed here, the batch stays beside its job: its next start keeps what has finished.
    std::error_code ignored;
    if (order.Selection == Job_Selection::Fresh)
        fs::remove(Batch_File(directory), ignored);
    return {Start_Result::Started, process};
} catch (const std::runtime_error& error) { // File_Error and Run_Refused
    Tell(ask, Starting, To_Code_Page(error.what()));
    return {Start_Result::Failed};
}

Started_Job Run_Batch(const Program_State& program, const Ask_Function& ask, const Mode& mode, const Run_Choice& choice,
                      const Job_Order& order, const fs::path& runner)
{
    if (!Batch_Pending(Mode_Directory(program, mode)) &&
        Mark_For_Batch(program, ask, mode, choice) != Mark_Result::Marked)
        return {Start_Result::Nothing_Pending};
    return Start_Batch(program, ask, mode, order, runner);
}

std::vector<fs::path> Runs_To_Start(const Program_State& program, const Mode& mode, Job_Selection selection)
{
    const fs::path directory = Mode_Directory(program, mode);
    std::vector<fs::path> runs;
    if (!Nothing_To_Start(directory, selection).empty())
        return runs;
    for (const auto& path : Plan_Job(directory, selection).Paths) {
        if (Is_Selected(selection, State_Of_Run(path)))
            runs.push_back(path);
    }
    return runs;
}

std::string Start_Notice(const Program_State& program, const Mode& mode, const Run_Choice& choice)
try {
    const fs::path directory = Mode_Directory(program, mode);
    if (Batch_Pending(directory)) {
        const std::size_t all = Plan_Job(directory, Job_Selection::Fresh).Runs.size();
        const std::size_t running = Runs_To_Start(program, mode, Job_Selection::Fresh).size();
        std::string text =
            "Start Batch runs " + std::to_string(running) + " marked simulation" + (running == 1 ? "." : "s.");
        if (running < all)
            text += " " + std::to_string(all - running) + " more " + (all - running == 1 ? "has" : "have") +
                    " ended and will not be touched.";
        return text;
    }
    if (choice.Pesticide.empty() || choice.Location.empty() || choice.Crop == nullptr)
        return {};
    const auto run = Run_Path(directory, Run_Directory(choice.Pesticide, choice.Crop->Text, choice.Location));
    return std::string("Run starts the selected simulation alone.") +
           (Has_Engine_Output(run) ? " Its present results go to the bin." : "");
} catch (const File_Error& error) {
    return To_Code_Page(error.what());
}

std::optional<int> Job_Exit_Code(int process)
{
    constexpr int Killed = 128;
    const auto end = End_Of_Program(process);
    if (!end)
        return std::nullopt;
    return end->Signal == 0 ? end->Exit_Code : Killed + end->Signal;
}

bool End_Orphans(const fs::path& mode_directory)
{
    bool ended = false;
    if (Is_Locked(mode_directory) || !Find_File(mode_directory, Job_File_Name))
        return ended; // its job ends them, or there never was one
    for (const auto& run : Read_Job_Runs(mode_directory)) {
        if (Is_Locked(run))
            ended = End_Holders(run) || ended;
    }
    return ended;
}

bool Stop_Job(const Program_State& program, const Ask_Function& ask, const Mode& mode)
try {
    const fs::path directory = Mode_Directory(program, mode);
    if (Is_Locked(directory)) {
        Write_Whole(directory / Stop_Name, "");
        return true;
    }
    const bool ended = End_Orphans(directory);
    if (!ended)
        Tell(ask, Starting, "There is no job at work.");
    return ended;
} catch (const File_Error& error) {
    Tell(ask, Starting, To_Code_Page(error.what()));
    return false;
}

} // namespace orvel
