#include "core/system/lock.h"

#include <thread>
#include <utility>

namespace orvel {

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

Lock::Lock(Lock&& other) noexcept : Number(std::exchange(other.Number, -1)) {}

Lock& Lock::operator=(Lock&& other) noexcept
{
    std::swap(Number, other.Number);
    return *this;
}

} // namespace orvel
