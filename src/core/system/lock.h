#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace orvel {

// An advisory lock on a file or directory: the sign of life of a job, a run, an engine. The system drops it when the
// last process that holds it ends, so no sign outlives a crash.
class Lock {
public:
    // Takes the lock, or gives nothing if another process holds it or the path cannot be opened. An inherited lock
    // stays with the programs that this one starts.
    static std::optional<Lock> Take(const std::filesystem::path& path, bool inherited = false);
    // The same, waiting for it: a look at a lock from outside holds it for an instant.
    static std::optional<Lock> Take_Within(const std::filesystem::path& path, std::chrono::milliseconds most);
    // The lock that the program which started this one has handed over as `Kept_Descriptor` (spawn.h). The programs
    // that this one starts do not get it.
    static Lock Adopt(int descriptor);

    Lock(Lock&& other) noexcept;
    Lock& operator=(Lock&& other) noexcept;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock();

    int Descriptor() const { return Number; }

private:
    explicit Lock(int number) : Number(number) {}
    int Number;
};

// Whether a process holds the lock of a path, tested without waiting. A path that is not there is not locked.
bool Is_Locked(const std::filesystem::path& path);

} // namespace orvel
