#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace orvel {

// An advisory lock on a file or directory: the sign of life of a job, a run, an engine. The system drops it when the
// last process that holds it ends, so no sign outlives a crash.
class Lock {
public:
    // Takes the lock, or gives nothing if another process holds it or the path is not there. Throws File_Error if it
    // cannot be opened. An inherited lock is passed on to the programs that this one starts.
    static std::optional<Lock> Take(const std::filesystem::path& path, bool inherited = false);
    // The same, but waits up to `most`: testing a lock from outside holds it for an instant.
    static std::optional<Lock> Take_Within(const std::filesystem::path& path, std::chrono::milliseconds most);
    // Held by any number of programs at a time, but by none while one has taken it for itself.
    static std::optional<Lock> Take_Shared(const std::filesystem::path& path);
    // Takes over the lock that the parent program passed on as `Kept_Descriptor` (spawn.h). Child programs of this one
    // do not inherit it.
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

// Ends the programs that were started in a directory and were given its lock (spawn.h), whoever started them: engines
// whose job has gone. Whether there was one.
bool End_Holders(const std::filesystem::path& directory);

// Whether a process holds the lock of a path, tested without waiting. A path that is not there is not locked. Throws
// File_Error for one whose lock cannot be tested: no answer is not "no".
bool Is_Locked(const std::filesystem::path& path);

} // namespace orvel
