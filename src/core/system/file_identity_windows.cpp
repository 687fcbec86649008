#include "core/system/file_identity.h"

#include "core/system/handle_windows.h"

namespace orvel {

namespace {

constexpr std::int64_t Ticks_A_Second = 10'000'000, Nanoseconds_A_Tick = 100;
constexpr std::int64_t From_1601_To_1970 = 11'644'473'600 * Ticks_A_Second;

} // namespace

std::optional<File_Identity> Identity_Of(const std::filesystem::path& file)
{
    const auto opened = Open_Shared(file, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION about{};
    FILE_BASIC_INFO times{};
    if (!opened || ::GetFileInformationByHandle(opened.Get(), &about) == 0 ||
        ::GetFileInformationByHandleEx(opened.Get(), FileBasicInfo, &times, sizeof times) == 0)
        return std::nullopt;
    const auto whole = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32U) | low; };
    const std::int64_t changed = times.LastWriteTime.QuadPart - From_1601_To_1970,
                       noted = times.ChangeTime.QuadPart - From_1601_To_1970;
    return File_Identity{.Device = about.dwVolumeSerialNumber,
                         .Number = whole(about.nFileIndexHigh, about.nFileIndexLow),
                         .Size = whole(about.nFileSizeHigh, about.nFileSizeLow),
                         .Seconds = changed / Ticks_A_Second,
                         .Nanoseconds = changed % Ticks_A_Second * Nanoseconds_A_Tick,
                         .Noted_Seconds = noted / Ticks_A_Second,
                         .Noted_Nanoseconds = noted % Ticks_A_Second * Nanoseconds_A_Tick};
}

} // namespace orvel
