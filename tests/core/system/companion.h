#pragma once

#include "core/files.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "temporary_directory.h"

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace orvel {

constexpr int Killed = 9; // the signal

inline Program_Start Companion(const Temporary_Directory& place, const std::vector<std::string>& arguments)
{
    return {.Program = Program_Beside("companion"),
            .Arguments = arguments,
            .Directory = place.Path(),
            .Output = "output",
            .Own_Group = true};
}

// Whether it came true within the time that a loaded computer needs.
inline bool Comes_True(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

// A companion at work, ended with what it has started at the end.
class Companion_At_Work {
public:
    explicit Companion_At_Work(const Program_Start& start) : Process(Start_Program(start)) {}
    Companion_At_Work(const Companion_At_Work&) = delete;
    Companion_At_Work& operator=(const Companion_At_Work&) = delete;
    ~Companion_At_Work() { Kill(); }
    int Number() const { return Process; }
    // The signal that it ended by; 0 if it had ended before.
    int Kill() const
    {
        End_Group(Process, true);
        return Wait_For_Program(Process).Signal;
    }

private:
    int Process;
};

} // namespace orvel
