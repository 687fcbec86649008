#include "core/system/times.h"

#include <sys/stat.h>

namespace orvel {

std::time_t Last_Change(const std::filesystem::path& path)
{
    struct stat about {};
    return ::stat(path.c_str(), &about) == 0 ? about.st_mtime : 0;
}

std::tm Local_Time(std::time_t time)
{
    std::tm parts{};
    ::localtime_r(&time, &parts);
    return parts;
}

} // namespace orvel
