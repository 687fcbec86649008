#pragma once

#include "core/system/lock.h"
#include "core/system/spawn.h"
#include "jobs/run_recording.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace orvel {

// The engines that a job has at work, from their start to the record of their end.
class Engines {
public:
    // `stop_file`: while it is there, no engine goes on. `ended` gets each run, by the number it was started with, once
    // its record is written; an error of writing it is the text.
    using Ended = std::function<void(std::size_t run, const Run_Record& record, const std::string& error)>;
    Engines(std::filesystem::path stop_file, Ended ended) : Stop_File(std::move(stop_file)), Tell_End(std::move(ended))
    {}
    // For a caller that records the ends itself: it uses Watch and Take_Ended.
    explicit Engines(std::filesystem::path stop_file) : Stop_File(std::move(stop_file)) {}

    struct Start {
        std::size_t Run = 0;
        std::filesystem::path Directory;
        std::optional<int> Limit;
        std::optional<Lock> Held; // of the directory, until the record is written; the engine inherits it
    };
    void Add(Start start, Run_Record record, const Program_Start& program);
    // Starts the engine of a run that nobody else can reach: it holds no lock and has no limit. Throws Run_Refused and
    // File_Error.
    void Begin(std::size_t run, const std::filesystem::path& directory, const std::filesystem::path& engine);

    std::size_t At_Work() const { return Running.size(); }
    bool Stopped() const { return Is_Stopped; }

    // Waits for a while, or until an engine has ended; ends those whose time is over, and all if a stop is asked for.
    void Wait();

    // An engine that has ended; its run is held until this goes. The record is not completed yet.
    struct Ended_Engine {
        Start From;
        Run_Record Record;
        Program_End End;
        Run_Interruption Interruption;
    };
    // The same as Wait, but what has ended is left for Take_Ended: other engines can be started first.
    void Watch();
    std::vector<Ended_Engine> Take_Ended();
    void Look_For_Stop();

    Run_Recorder Recorder;

private:
    using Clock = std::chrono::steady_clock;
    struct Running_Engine {
        Start From;
        Run_Record Record;
        Clock::time_point Begun;
        std::optional<Clock::time_point> Asked_To_End;
        Run_Interruption Interruption;
    };

    void Interrupt(int process, Running_Engine& engine);
    void Take_End(const Program_End& end);
    void Record_End(Ended_Engine& ended);

    std::filesystem::path Stop_File;
    Ended Tell_End;
    std::map<int, Running_Engine> Running; // by process id
    std::vector<Ended_Engine> Over;
    bool Is_Stopped = false;
};

} // namespace orvel
