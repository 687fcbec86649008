#include "core/system/flush.h"

#include "core/system/file_handle.h"
#include "core/system/last_error_posix.h"

#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace orvel {

namespace fs = std::filesystem;

void Flush_Directory(const fs::path& directory)
{
    std::error_code ignored;
    File_Handle opened(directory.empty() ? fs::path(".") : directory, File_Handle::Use::Directory, ignored);
    if (opened.Is_Open())
        ignored = opened.Flush();
}

bool Flush_Directory_And_Files(const fs::path& directory)
{
    std::vector<File_Handle> opened;
    std::error_code error, unopened; // a file that cannot be opened cannot be flushed
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        opened.emplace_back(entry->path(), File_Handle::Use::Read, unopened);
    opened.emplace_back(directory, File_Handle::Use::Directory, unopened);
    if (error)
        return false;
    for (auto& file : opened)
        file.Begin_Flush();
    bool flushed = true;
    for (auto& file : opened)
        flushed = !file.Flush() && flushed;
    return flushed;
}

std::error_code Flush_File_System(const fs::path& directory)
{
    const int opened = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return Last_Error();
    const auto error = ::syncfs(opened) == 0 ? std::error_code() : Last_Error();
    ::close(opened);
    return error;
}

} // namespace orvel
