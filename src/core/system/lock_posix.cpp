#include "core/system/lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
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
