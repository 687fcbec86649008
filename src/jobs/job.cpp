#include "jobs/job.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/processors.h"
#include "jobs/engine_start.h"
#include "jobs/engines.h"
#include "jobs/job_log.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "runs/bin.h"
#include "runs/bin_rule.h"
#include "runs/job_file.h"
#include "runs/run_place.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds Longest_Wait(1); // for a lock: testing it from outside holds it for an instant

std::string Counted(std::size_t count, std::string_view what)
{
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

// What the journal says of the end of a run.
Job_Event Event_Of(const Run_Record& record)
{
    switch (record.Verdict) {
    case Verdict::Complete:
        return Job_Event::Finished;
    case Verdict::Incomplete:
        return Job_Event::Incomplete;
    case Verdict::Stopped:
        return Job_Event::Stopped;
    default:
        return record.Signal ? Job_Event::Killed : Job_Event::Failed;
    }
}

class Job {
public:
    Job(const fs::path& mode_directory, const Job_Order& order)
        : Directory(mode_directory),
          Order(order),
          Runs(Parse_Job(Read_Whole(Found_Or_New(mode_directory, Job_File_Name)))),
          Paths(Resolve_Runs(mode_directory, Runs)),
          Log(mode_directory),
          At_Work(mode_directory / Stop_Name, [this](std::size_t run, const Run_Record& record,
                                                     const std::string& error) { Take_End(run, record, error); })
    {}

    Job_Result Work()
    {
        const int jobs = Order.Jobs > 0 ? Order.Jobs : Processors();
        Log.Add(Job_Event::Begin, "", Counted(Runs.size(), "run") + ", " + std::to_string(jobs) + " at a time");
        Begin_Generation(Directory);
        Keep_Rule_Of_Bin();
        for (std::size_t run = 0; run < Runs.size(); ++run) {
            while (At_Work.At_Work() >= static_cast<std::size_t>(jobs))
                At_Work.Wait();
            At_Work.Look_For_Stop();
            if (At_Work.Stopped())
                ++Left; // it waits on, for a start that resumes
            else
                Start(run);
        }
        while (At_Work.At_Work() > 0)
            At_Work.Wait();
        Keep_Rule_Of_Bin();
        Log.Add(Job_Event::End, "",
                Counted(Runs.size(), "run") + ", " + std::to_string(Failed) + " failed" +
                    (Left > 0 ? ", " + std::to_string(Left) + " stopped or not begun" : ""));
        return {.Runs = static_cast<int>(Runs.size()), .Failed = Failed + Left};
    }

private:
    void Keep_Rule_Of_Bin() const
    try {
        Empty_Bin(Directory);
    } catch (const File_Error&) { // nothing goes by a rule that cannot be read; the list of the bin tells it
    }

    std::string Name(std::size_t run) const { return Paths[run].lexically_relative(Directory).generic_string(); }
    fs::path Engine(std::size_t run) const { return Paths[run] / Path_Of(Runs[run].Engine); }

    void Start(std::size_t run)
    try {
        const fs::path& path = Paths[run];
        std::error_code ignored;
        if (!fs::is_directory(path, ignored))
            throw Run_Refused("The run directory is missing.");
        Check_No_Link(Directory, path);
        auto lock = Lock::Take_Within(path, Longest_Wait);
        if (!lock)
            throw Run_Refused("Another engine is at work in the run directory.");
        // Looked at under the lock: nobody changes the run's state now.
        const Run_State state = State_Of_Run_Held(path);
        if (state.Unreadable)
            throw Run_Refused(To_Utf8(state.Reason));
        if (!Is_Selected(Order.Selection, state))
            return Keep(run, state);
        Begin(run, std::move(*lock), state.Record.has_value());
    } catch (const Run_Refused& reason) {
        Fail(run, reason.what());
    } catch (const File_Error& reason) {
        Fail(run, reason.what());
    }

    // A finished run is left as it is; only a copy of the engine that a killed job left behind goes.
    void Keep(std::size_t run, const Run_State& state)
    {
        if (state.Record)
            Delete_Engine(run);
        if (state.Verdict != Verdict::Complete)
            ++Failed;
        Log.Add(Job_Event::Kept, Name(run), Verdict_Text(state.Verdict));
    }

    // Everything that can be refused is looked at before the old output goes.
    void Begin(std::size_t run, Lock lock, bool has_record)
    {
        const fs::path& path = Paths[run];
        Run_Record record = New_Record();
        try {
            if (Order.Selection != Job_Selection::Fresh)
                Restore_Engine(run);
            Check_Not_Open_To_All(path);
            Check_Not_Open_To_All(Engine(run));
            Program_Start start = Engine_Start(path, Engine(run));
            record = At_Work.Recorder.Begin(path, Engine(run), Order.Limit);
            Move_Output_To_Bin(Directory, path);
            has_record = false;
            start.Kept_Descriptor = lock.Descriptor();
            start.Own_Group = true;
            Log.Add(Job_Event::Started, Name(run), "");
            At_Work.Add({.Run = run, .Directory = path, .Limit = Order.Limit, .Held = std::move(lock)},
                        std::move(record), start);
        } catch (const std::runtime_error& reason) { // Run_Refused and File_Error
            // A record of an earlier end tells more than that of a start that was refused.
            if (!has_record)
                At_Work.Recorder.Refuse(path, std::move(record), reason.what());
            Delete_Engine(run);
            throw Run_Refused(reason.what());
        }
    }

    // Puts the engine of the installation into the run directory where the last job has deleted its copy.
    void Restore_Engine(std::size_t run)
    {
        std::error_code ignored;
        const fs::path source = Found_Or_New(Directory.parent_path(), Path_Of(Runs[run].Engine));
        if (!fs::exists(Engine(run), ignored) && fs::exists(source, ignored)) {
            Check_Not_Open_To_All(source);
            Copy_Whole(source, Engine(run));
        }
    }

    void Take_End(std::size_t run, const Run_Record& record, const std::string& error)
    {
        if (!error.empty())
            return Fail(run, error);
        // The record stands, so the engine's copy may go.
        Delete_Engine(run);
        if (record.Verdict != Verdict::Complete)
            return Fail(run, To_Utf8(record.Reason), Event_Of(record));
        std::error_code ignored;
        fs::remove(Paths[run] / Progress_Name, ignored);
        Log.Add(Job_Event::Finished, Name(run), "");
    }

    void Fail(std::size_t run, std::string_view detail, Job_Event event = Job_Event::Failed)
    {
        ++(event == Job_Event::Stopped ? Left : Failed);
        Log.Add(event, Name(run), detail);
    }

    void Delete_Engine(std::size_t run)
    {
        std::error_code ignored;
        fs::remove(Engine(run), ignored);
    }

    fs::path Directory;
    Job_Order Order;
    std::vector<Job_Run> Runs;
    std::vector<fs::path> Paths;
    Job_Log Log;
    Engines At_Work;
    int Failed = 0, Left = 0; // left: stopped, or not begun
};

} // namespace

Job_Result Run_Job(const fs::path& mode_directory, const Job_Order& order)
{
    Check_Not_Open_To_All(mode_directory);
    Check_Not_Open_To_All(mode_directory.parent_path());
    return Job(mode_directory, order).Work();
}

Job_Result Run_Single(const fs::path& directory, const fs::path& engine, int lock, std::optional<int> limit)
{
    Job_Result result{.Runs = 1};
    Engines at_work(directory / Stop_Name, [&](std::size_t, const Run_Record& record, const std::string& error) {
        result.Failed = error.empty() && record.Verdict == Verdict::Complete ? 0 : 1;
        std::error_code ignored;
        if (result.Failed == 0)
            fs::remove(directory / Progress_Name, ignored);
    });
    try {
        for (const auto& place : {directory, engine.parent_path(), engine})
            Check_Not_Open_To_All(place);
        Program_Start start = Engine_Start(directory, engine);
        Run_Record record = at_work.Recorder.Begin(directory, engine, limit);
        Delete_Output(directory);
        start.Kept_Descriptor = lock;
        start.Own_Group = true;
        at_work.Add({.Run = 0, .Directory = directory, .Limit = limit, .Held = std::nullopt}, std::move(record), start);
    } catch (const std::runtime_error& reason) {
        if (!Has_Engine_Output(directory)) // else it tells of another run
            at_work.Recorder.Refuse(directory, New_Record(), reason.what());
        throw;
    }
    while (at_work.At_Work() > 0)
        at_work.Wait();
    return result;
}

void Remove_Stop_Request(const fs::path& directory)
{
    std::error_code error;
    fs::remove(directory / Stop_Name, error);
    if (error)
        throw File_Error("Cannot delete " + (directory / Stop_Name).string() + ": " + error.message() + ".");
}

bool Is_Selected(Job_Selection selection, const Run_State& state)
{
    if (state.Verdict == Verdict::Scheduled || state.Cut_Off)
        return selection != Job_Selection::Failed || state.Cut_Off;
    if (!state.Record)
        return false;
    switch (selection) {
    case Job_Selection::Resume:
        return state.Verdict == Verdict::Stopped;
    case Job_Selection::Failed:
        return state.Verdict == Verdict::Failed || state.Verdict == Verdict::Incomplete;
    default:
        return false;
    }
}

} // namespace orvel
