#include "core/system/lock.h"

#include "core/system/spawn.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace orvel {

std::optional<Lock> Lock::Take(const std::filesystem::path& path, bool inherited)
{
    const int number = ::open(path.c_str(), O_RDONLY | (inherited ? 0 : O_CLOEXEC));
    if (number < 0)
        return std::nullopt;
    Lock lock(number);
    if (::flock(number, LOCK_EX | LOCK_NB) != 0)
        return std::nullopt;
    return lock;
}

std::optional<Lock> Lock::Take_Shared(const std::filesystem::path& path)
{
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (number < 0)
        return std::nullopt;
    Lock lock(number);
    if (::flock(number, LOCK_SH | LOCK_NB) != 0)
        return std::nullopt;
    return lock;
}

std::optional<Lock> Lock::Take_Within(const std::filesystem::path& path, std::chrono::milliseconds most)
{
    constexpr std::chrono::milliseconds Pause(10);
    const auto end = std::chrono::steady_clock::now() + most;
    while (true) {
        if (auto lock = Take(path))
            return lock;
        if (std::chrono::steady_clock::now() >= end)
            return std::nullopt;
        std::this_thread::sleep_for(Pause);
    }
}

Lock Lock::Adopt(int descriptor)
{
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return Lock(descriptor);
}

Lock::Lock(Lock&& other) noexcept : Number(std::exchange(other.Number, -1)) {}

Lock& Lock::operator=(Lock&& other) noexcept
{
    std::swap(Number, other.Number);
    return *this;
}

Lock::~Lock()
{
    if (Number >= 0)
        ::close(Number);
}

namespace {

bool Is_Same(const std::filesystem::path& path, const struct stat& file)
{
    struct stat about {};
    return ::stat(path.c_str(), &about) == 0 && about.st_dev == file.st_dev && about.st_ino == file.st_ino;
}

// Whether a process, named by its directory under /proc, was started in a directory to hold its lock.
bool Holds(const std::filesystem::path& process, const struct stat& directory)
{
    return Is_Same(process / "cwd", directory) && Is_Same(process / "fd" / std::to_string(Kept_As), directory);
}

} // namespace

bool End_Holders(const std::filesystem::path& directory)
{
    struct stat about {};
    if (::stat(directory.c_str(), &about) != 0)
        return false;
    bool ended = false;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        const int process = std::atoi(entry->path().filename().c_str());
        if (process > 0 && process != ::getpid() && Holds(entry->path(), about))
            ended = ::kill(process, SIGKILL) == 0 || ended;
    }
    return ended;
}

bool Is_Locked(const std::filesystem::path& path)
{
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (number < 0)
        return false;
    const bool locked = ::flock(number, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(number);
    return locked;
}

} // namespace orvel
