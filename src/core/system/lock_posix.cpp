#include "core/system/lock.h"

#include "core/error.h"
#include "core/system/last_error_posix.h"
#include "core/system/spawn.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace orvel {

namespace {

[[noreturn]] void Fail(const std::filesystem::path& path)
{
    const auto reason = Last_Error();
    File_Error failure("Cannot tell whether " + path.string() + " is in use: " + reason.message() + ".");
    failure.Code = reason;
    throw failure;
}

// The path's descriptor; -1 if it is not there.
int Open(const std::filesystem::path& path, int flags)
{
    int number = -1;
    do
        number = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | flags);
    while (number < 0 && errno == EINTR);
    if (number < 0 && !Is_Missing(Last_Error()))
        Fail(path);
    return number;
}

// The same for a lock that nobody else may hold: on network file systems only who may write a file can have it. A
// directory or a running program cannot be opened so, nor a file without rights to it.
int Open_To_Hold(const std::filesystem::path& path, int flags)
{
    int number = -1;
    do
        number = ::open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | flags);
    while (number < 0 && errno == EINTR);
    return number < 0 ? Open(path, flags) : number;
}

// Whether the lock was got; false: another process holds it.
bool Try(int number, int kind, const std::filesystem::path& path)
{
    int result = 0;
    do
        result = ::flock(number, kind | LOCK_NB);
    while (result != 0 && errno == EINTR);
    if (result != 0 && errno != EWOULDBLOCK)
        Fail(path);
    return result == 0;
}

} // namespace

std::optional<Lock> Lock::Take(const std::filesystem::path& path, bool inherited)
{
    const int number = Open_To_Hold(path, inherited ? 0 : O_CLOEXEC);
    if (number < 0)
        return std::nullopt;
    Lock lock(number);
    return Try(number, LOCK_EX, path) ? std::optional(std::move(lock)) : std::nullopt;
}

std::optional<Lock> Lock::Take_Shared(const std::filesystem::path& path)
{
    const int number = Open(path, O_CLOEXEC);
    if (number < 0)
        return std::nullopt;
    Lock lock(number);
    return Try(number, LOCK_SH, path) ? std::optional(std::move(lock)) : std::nullopt;
}

Lock Lock::Adopt(int descriptor)
{
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return Lock(descriptor);
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
    return Is_Same(process / "cwd", directory) && Is_Same(process / "fd" / std::to_string(Kept_As(-1)), directory);
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
    const int number = Open(path, O_CLOEXEC);
    if (number < 0)
        return false;
    const Lock closed_at_the_end = Lock::Adopt(number);
    return !Try(number, LOCK_SH, path);
}

} // namespace orvel
