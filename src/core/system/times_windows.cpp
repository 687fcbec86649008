#include "core/system/times.h"

#include "core/system/file_identity.h"

namespace orvel {

std::time_t Last_Change(const std::filesystem::path& path)
{
    constexpr std::time_t Years_1601_To_1970 = 11'644'473'600; // in seconds
    const auto file = Identity_Of(path);
    return file ? static_cast<std::time_t>(file->Seconds - Years_1601_To_1970) : 0;
}

std::tm Local_Time(std::time_t time)
{
    std::tm parts{};
    ::localtime_s(&parts, &time);
    return parts;
}

} // namespace orvel
