#include "core/system/file_handle.h"

#include "core/system/last_error_posix.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
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
        return O_WRONLY | O_CREAT; // emptied when it is known to be an ordinary file
    case Use::Append:
        return O_WRONLY | O_CREAT | O_APPEND;
    case Use::Update:
        return O_RDWR | O_CREAT;
    case Use::Write_New:
        return O_WRONLY | O_CREAT | O_EXCL;
    case Use::Directory:
        return O_RDONLY | O_DIRECTORY;
    }
    return O_RDONLY;
}

int Open_Once(const std::filesystem::path& file, int flags, mode_t rights)
{
    int number = -1;
    do
        number = ::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, rights);
    while (number < 0 && errno == EINTR);
    return number;
}

// Opens a file or a link to one in the same directory; -1 with an error.
int Open(std::filesystem::path file, int flags, mode_t rights, std::error_code& error)
{
    constexpr int Most_Links = 40; // as the system itself follows
    for (int link = 0; link < Most_Links; ++link) {
        const int number = Open_Once(file, flags | O_NOFOLLOW, rights);
        error = number < 0 ? Last_Error() : std::error_code();
        if (error != std::errc::too_many_symbolic_link_levels)
            return number;
        std::error_code no_link;
        const auto target = std::filesystem::read_symlink(file, no_link);
        if (no_link)
            return -1;
        if (target.has_parent_path()) {
            error = Left_Alone::Link_Elsewhere;
            return -1;
        }
        file.replace_filename(target);
    }
    return -1;
}

std::error_code Check_Ordinary(int number)
{
    struct stat about {};
    if (::fstat(number, &about) != 0)
        return Last_Error();
    if (S_ISDIR(about.st_mode))
        return std::make_error_code(std::errc::is_a_directory);
    return S_ISREG(about.st_mode) ? std::error_code() : Left_Alone::Device;
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

template <class Call> std::error_code Uninterrupted(Call call)
{
    auto error = Result_Of(call());
    while (error == std::errc::interrupted)
        error = Result_Of(call());
    return error;
}

} // namespace

File_Handle::File_Handle(const std::filesystem::path& file, Use use, std::error_code& error,
                         std::filesystem::perms rights)
{
    const auto mode = static_cast<mode_t>(rights);
    if (use == Use::Directory) {
        Number = Open_Once(file, Flags_Of(use), mode);
        error = Is_Open() ? std::error_code() : Last_Error();
        return;
    }
    Number = Open(file, Flags_Of(use), mode, error);
    if (!error)
        error = Check_Ordinary(Number);
    // An empty file is left as it is: a file system may write one that was cut to nothing to the disk as it is closed.
    if (!error && use == Use::Write && Size(error) > 0)
        error = Resize(0);
    if (error && Is_Open())
        ::close(std::exchange(Number, -1));
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
    std::size_t filled = 0;
    while (filled < most) {
        const auto got = Bytes_Got(
            [&] { return ::pread(Number, to + filled, most - filled, static_cast<off_t>(place + filled)); }, error);
        if (got == 0)
            return error ? 0 : filled;
        filled += got;
    }
    return filled;
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
        else if (written == 0)
            return std::make_error_code(std::errc::io_error);
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
    return Uninterrupted([=, this] { return ::ftruncate(Number, static_cast<off_t>(size)); });
}

void File_Handle::Take_Owner_Of(const std::filesystem::path& file)
{
    struct stat wanted {
    }, present{};
    if (::stat(file.c_str(), &wanted) != 0 || ::fstat(Number, &present) != 0 ||
        (wanted.st_uid == present.st_uid && wanted.st_gid == present.st_gid))
        return;
    constexpr auto Same_User = static_cast<uid_t>(-1);
    if (::fchown(Number, wanted.st_uid, wanted.st_gid) != 0 && ::fchown(Number, Same_User, wanted.st_gid) != 0)
        return; // only the superuser may give files away
}

void File_Handle::Lock_While_Open()
{
    ::flock(Number, LOCK_EX | LOCK_NB);
}

void File_Handle::Begin_Flush()
{
    ::sync_file_range(Number, 0, 0, SYNC_FILE_RANGE_WRITE);
}

std::error_code File_Handle::Flush()
{
    return Uninterrupted([this] { return ::fsync(Number); });
}

std::error_code File_Handle::Close()
{
    const auto error = Is_Open() ? Result_Of(::close(std::exchange(Number, -1))) : std::error_code();
    return error == std::errc::interrupted ? std::error_code() : error; // it is closed all the same
}

} // namespace orvel
