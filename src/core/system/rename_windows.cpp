#include "core/system/file_handle.h"
#include "core/system/handle_windows.h"
#include "core/system/rename.h"

#include <chrono>
#include <thread>

namespace orvel {

namespace {

// A virus scanner or a viewer has the file open, and will be done.
bool Is_Held(const std::error_code& reason)
{
    return reason.value() == ERROR_SHARING_VIOLATION || reason.value() == ERROR_ACCESS_DENIED ||
           reason.value() == ERROR_LOCK_VIOLATION;
}

// The system denies access to what another program has open; to what may not be changed as well.
bool Another_Has_It_Open(const std::filesystem::path& path)
{
    return !Open_Shared(path, DELETE) && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

// A directory without entries gives way to another one, as on other systems.
bool Give_Way(const std::filesystem::path& to)
{
    return ::RemoveDirectoryW(Long_Path(to).c_str()) != 0;
}

std::error_code Try_To_Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    const bool moved = ::MoveFileExW(Long_Path(from).c_str(), Long_Path(to).c_str(),
                                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    return moved ? std::error_code() : Last_Error();
}

} // namespace

std::error_code Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(to, ignored)) {
        if (!std::filesystem::is_directory(from, ignored))
            return std::make_error_code(std::errc::is_a_directory);
        if (!Give_Way(to))
            return std::make_error_code(std::errc::directory_not_empty);
    }
    constexpr std::chrono::milliseconds Pause(20), Most(2000);
    const auto end = std::chrono::steady_clock::now() + Most;
    while (true) {
        const std::error_code error = Try_To_Rename(from, to);
        if (!error || !Is_Held(error))
            return error;
        if (std::chrono::steady_clock::now() >= end)
            return Another_Has_It_Open(to) || Another_Has_It_Open(from) ? Left_Alone::In_Use : error;
        std::this_thread::sleep_for(Pause);
    }
}

} // namespace orvel
