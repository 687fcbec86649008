#include "core/system/times.h"

#include "core/system/file_identity.h"

namespace orvel {

std::time_t Last_Change(const std::filesystem::path& path)
{
    const auto file = Identity_Of(path);
    return file ? static_cast<std::time_t>(file->Seconds) : 0;
}

std::tm Local_Time(std::time_t time)
{
    std::tm parts{};
    ::localtime_s(&parts, &time);
    return parts;
}

} // namespace orvel
