#include "core/system/flush.h"

#include "core/system/file_handle.h"
#include "core/system/handle_windows.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

std::error_code Flush_File(const fs::path& file)
{
    const auto opened = Open_Shared(file, GENERIC_WRITE);
    if (!opened)
        return {}; // one that cannot be written was not written
    return ::FlushFileBuffers(opened.Get()) != 0 ? std::error_code() : Last_Error();
}

} // namespace

// The file system notes entries of directories in its journal before a rename that asks for it returns.
void Flush_Directory(const fs::path&) {}

bool Flush_Directory_And_Files(const fs::path& directory)
{
    bool flushed = true;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        flushed = !(entry->is_regular_file(error) && Flush_File(entry->path())) && flushed;
    return flushed && !error;
}

std::error_code Flush_File_System(const fs::path& directory)
{
    // Only an administrator may flush a volume: file by file.
    std::error_code error;
    for (fs::recursive_directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->is_regular_file(error) && !error)
            error = Flush_File(entry->path());
        if (error)
            return error;
    }
    return error;
}

} // namespace orvel
