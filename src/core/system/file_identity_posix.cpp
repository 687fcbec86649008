#include "core/system/file_identity.h"

#include <sys/stat.h>

namespace orvel {

std::optional<File_Identity> Identity_Of(const std::filesystem::path& file)
{
    struct stat about {};
    if (::stat(file.c_str(), &about) != 0)
        return std::nullopt;
    return File_Identity{.Device = about.st_dev,
                         .Number = about.st_ino,
                         .Size = static_cast<std::uint64_t>(about.st_size),
                         .Seconds = about.st_mtim.tv_sec,
                         .Nanoseconds = about.st_mtim.tv_nsec,
                         .Noted_Seconds = about.st_ctim.tv_sec,
                         .Noted_Nanoseconds = about.st_ctim.tv_nsec};
}

} // namespace orvel
