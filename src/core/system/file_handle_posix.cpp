#include "core/system/file_handle.h"

#include "core/system/last_error_posix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace orvel {

namespace {

int Flags_Of(File_Handle::Use use)
{
    using Use = File_Handle::Use;
    switch (use) {
    case Use::Read:
        return O_RDONLY;
    case Use::Write:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case Use::Append:
        return O_WRONLY | O_CREAT | O_APPEND;
    case Use::Update:
        return O_RDWR | O_CREAT;
    case Use::Write_New:
        return O_WRONLY | O_CREAT | O_EXCL;
    }
    return O_RDONLY;
}

// Repeats a call that a signal interrupted.
template <class Call> std::size_t Bytes_Got(Call call, std::error_code& error)
{
    error.clear();
    while (true) {
        const auto got = call();
        if (got >= 0)
            return static_cast<std::size_t>(got);
        error = Last_Error();
        if (error != std::errc::interrupted)
            return 0;
        error.clear();
    }
}

std::error_code Result_Of(int result)
{
    return result == 0 ? std::error_code() : Last_Error();
}

} // namespace

File_Handle::File_Handle(const std::filesystem::path& file, Use use, std::error_code& error,
                         std::filesystem::perms rights)
    : Number(::open(file.c_str(), Flags_Of(use) | O_CLOEXEC, static_cast<mode_t>(rights)))
{
    error = Is_Open() ? std::error_code() : Last_Error();
}

File_Handle::File_Handle(File_Handle&& other) noexcept : Number(std::exchange(other.Number, -1)) {}

File_Handle& File_Handle::operator=(File_Handle&& other) noexcept
{
    std::swap(Number, other.Number);
    return *this;
}

File_Handle::~File_Handle()
{
    if (Is_Open())
        ::close(Number);
}

std::size_t File_Handle::Read(char* to, std::size_t most, std::error_code& error)
{
    return Bytes_Got([=, this] { return ::read(Number, to, most); }, error);
}

std::size_t File_Handle::Read_At(std::uint64_t place, char* to, std::size_t most, std::error_code& error)
{
    return Bytes_Got([=, this] { return ::pread(Number, to, most, static_cast<off_t>(place)); }, error);
}

std::uint64_t File_Handle::Size(std::error_code& error) const
{
    struct stat about {};
    error = Result_Of(::fstat(Number, &about));
    return !error && about.st_size > 0 ? static_cast<std::uint64_t>(about.st_size) : 0;
}

std::error_code File_Handle::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = ::write(Number, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (const auto error = Last_Error(); error != std::errc::interrupted)
            return error;
    }
    return {};
}

std::error_code File_Handle::Write_At(std::uint64_t place, std::string_view bytes)
{
    return ::lseek(Number, static_cast<off_t>(place), SEEK_SET) < 0 ? Last_Error() : Write(bytes);
}

std::error_code File_Handle::Resize(std::uint64_t size)
{
    return Result_Of(::ftruncate(Number, static_cast<off_t>(size)));
}

void File_Handle::Begin_Flush()
{
    ::sync_file_range(Number, 0, 0, SYNC_FILE_RANGE_WRITE);
}

std::error_code File_Handle::Flush()
{
    return Result_Of(::fsync(Number));
}

std::error_code File_Handle::Close()
{
    return Is_Open() ? Result_Of(::close(std::exchange(Number, -1))) : std::error_code();
}

} // namespace orvel
