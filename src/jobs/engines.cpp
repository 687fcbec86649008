#include "jobs/engines.h"

#include "core/error.h"
#include "core/system/signals.h"
#include "jobs/engine_start.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

namespace orvel {

namespace {

constexpr std::chrono::milliseconds Look_Interval(200); // for a request to stop and for limits
constexpr std::chrono::seconds Patience(2);             // between asking an engine to end and ending it

} // namespace

void Engines::Add(Start start, Run_Record record, const Program_Start& program)
{
    const int process = Start_Program(program);
    Running.emplace(process, Running_Engine{.From = std::move(start),
                                            .Record = std::move(record),
                                            .Begun = Clock::now(),
                                            .Asked_To_End = std::nullopt,
                                            .Interruption = {}});
}

void Engines::Begin(std::size_t run, const std::filesystem::path& directory, const std::filesystem::path& engine)
{
    Program_Start program = Engine_Start(directory, engine);
    program.Own_Group = true;
    Run_Record record = Recorder.Begin(directory, engine, std::nullopt);
    Add({.Run = run, .Directory = directory, .Limit = std::nullopt, .Held = std::nullopt}, std::move(record), program);
}

void Engines::Look_For_Stop()
{
    std::error_code ignored;
    Is_Stopped = Is_Stopped || Was_Stopped() || std::filesystem::exists(Stop_File, ignored);
}

void Engines::Wait()
{
    Watch();
    for (auto& ended : Take_Ended())
        Record_End(ended);
}

void Engines::Watch()
{
    std::vector<int> processes;
    std::ranges::copy(std::views::keys(Running), std::back_inserter(processes));
    if (const auto end = Wait_For_Any_Of(processes, Look_Interval))
        Take_End(*end);
    Look_For_Stop();
    for (auto& running : Running) {
        Running_Engine& engine = running.second;
        const bool too_long =
            engine.From.Limit && Clock::now() - engine.Begun > std::chrono::seconds(*engine.From.Limit);
        engine.Interruption.Too_Long = engine.Interruption.Too_Long || (too_long && !engine.Asked_To_End);
        engine.Interruption.Stopped = Is_Stopped && !engine.Interruption.Too_Long;
        if (Is_Stopped || too_long)
            Interrupt(running.first, engine);
    }
}

void Engines::Interrupt(int process, Running_Engine& engine)
{
    if (!engine.Asked_To_End) {
        engine.Asked_To_End = Clock::now();
        End_Group(process, false);
    } else if (Clock::now() - *engine.Asked_To_End > Patience) {
        End_Group(process, true);
    }
}

void Engines::Take_End(const Program_End& end)
{
    const auto found = Running.find(end.Process);
    if (found == Running.end())
        return;
    Running_Engine& engine = found->second;
    End_Group(end.Process, true); // what the engine has left behind would hold the run's lock
    engine.Record.End = std::time(nullptr);
    Over.push_back({std::move(engine.From), std::move(engine.Record), end, engine.Interruption});
    Running.erase(found);
}

std::vector<Engines::Ended_Engine> Engines::Take_Ended()
{
    return std::exchange(Over, {});
}

void Engines::Record_End(Ended_Engine& ended)
{
    std::string error;
    try {
        Recorder.Complete(ended.From.Directory, ended.Record, ended.End, ended.Interruption);
        Run_Recorder::Write(ended.From.Directory, ended.Record);
    } catch (const File_Error& reason) {
        error = reason.what();
    }
    Tell_End(ended.From.Run, ended.Record, error);
}

} // namespace orvel
