#include "jobs/job.h"

#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/processors.h"
#include "core/system/spawn.h"
#include "core/text.h"
#include "jobs/engine_start.h"
#include "jobs/job_log.h"
#include "jobs/job_status.h"
#include "runs/job_file.h"

#include <chrono>
#include <map>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds Longest_Wait(1); // for a lock: testing it from outside holds it for an instant

struct Running_Engine {
    std::size_t Run;
    Lock Held;
};

std::string Counted(std::size_t count, std::string_view what)
{
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

class Job {
public:
    explicit Job(const fs::path& mode_directory)
        : Directory(mode_directory),
          Runs(Parse_Job(Read_Whole(Found_Or_New(mode_directory, Job_File_Name)))),
          Paths(Resolve_Runs(mode_directory, Runs)),
          Log(mode_directory)
    {}

    Job_Result Work(int jobs)
    {
        const auto most = static_cast<std::size_t>(jobs);
        Log.Add(Job_Event::Begin, "", Counted(Runs.size(), "run") + ", " + std::to_string(jobs) + " at a time");
        for (std::size_t run = 0; run < Runs.size(); ++run) {
            while (Engines.size() >= most)
                Wait();
            Start(run);
        }
        while (!Engines.empty())
            Wait();
        Log.Add(Job_Event::End, "", Counted(Runs.size(), "run") + ", " + std::to_string(Failed) + " failed");
        return {.Runs = static_cast<int>(Runs.size()), .Failed = Failed};
    }

private:
    std::string Name(std::size_t run) const { return Paths[run].lexically_relative(Directory).string(); }

    void Start(std::size_t run)
    try {
        const fs::path& path = Paths[run];
        std::error_code ignored;
        if (!fs::is_directory(path, ignored))
            throw Run_Refused("The run directory is missing.");
        auto lock = Lock::Take_Within(path, Longest_Wait);
        if (!lock)
            throw Run_Refused("Another engine is at work in the run directory.");
        Delete_Output(path);
        Program_Start start = Engine_Start(path, path / Path_Of(Runs[run].Engine));
        start.Kept_Descriptor = lock->Descriptor();
        Log.Add(Job_Event::Started, Name(run), "");
        const int process = Start_Program(start);
        Engines.emplace(process, Running_Engine{.Run = run, .Held = std::move(*lock)});
    } catch (const Run_Refused& reason) {
        Fail(run, Job_Event::Failed, reason.what());
        Delete_Engine(run);
    } catch (const File_Error& reason) {
        Fail(run, Job_Event::Failed, reason.what());
        Delete_Engine(run);
    }

    void Wait()
    {
        const auto end = Wait_For_Any_Program();
        if (!end)
            return;
        const auto engine = Engines.find(end->Process);
        if (engine == Engines.end())
            return;
        const std::size_t run = engine->second.Run;
        Delete_Engine(run);
        Record_Result(run, *end);
        Engines.erase(engine);
    }

    void Record_Result(std::size_t run, const Program_End& end)
    {
        if (end.Signal != 0)
            return Fail(run, Job_Event::Killed, "signal " + std::to_string(end.Signal));
        if (end.Exit_Code != 0)
            return Fail(run, Job_Event::Failed, "exit code " + std::to_string(end.Exit_Code));
        if (Echo_Holds_Error(Paths[run]))
            return Fail(run, Job_Event::Failed, "errors in the engine's echo");
        std::error_code ignored;
        fs::remove(Paths[run] / Progress_Name, ignored);
        Log.Add(Job_Event::Finished, Name(run), "");
    }

    void Fail(std::size_t run, Job_Event event, std::string_view detail)
    {
        ++Failed;
        Log.Add(event, Name(run), detail);
    }

    void Delete_Engine(std::size_t run)
    {
        std::error_code ignored;
        fs::remove(Paths[run] / Path_Of(Runs[run].Engine), ignored);
    }

    fs::path Directory;
    std::vector<Job_Run> Runs;
    std::vector<fs::path> Paths;
    Job_Log Log;
    std::map<int, Running_Engine> Engines; // by process id
    int Failed = 0;
};

} // namespace

Job_Result Run_Job(const fs::path& mode_directory, int jobs)
{
    return Job(mode_directory).Work(jobs > 0 ? jobs : Processors());
}

} // namespace orvel
