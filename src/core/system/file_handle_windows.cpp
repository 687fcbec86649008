#include "core/system/file_handle.h"

#include "core/system/named_lock_windows.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <mutex>
#include <thread>

namespace orvel {

namespace {

DWORD Access_Of(File_Handle::Use use)
{
    using Use = File_Handle::Use;
    switch (use) {
    case Use::Read:
        return GENERIC_READ;
    case Use::Write:
    case Use::Write_New:
        return GENERIC_WRITE;
    case Use::Append:
        return FILE_APPEND_DATA | FILE_WRITE_ATTRIBUTES | SYNCHRONIZE;
    case Use::Update:
        return GENERIC_READ | GENERIC_WRITE;
    case Use::Directory:
        return GENERIC_WRITE; // without it nothing can be flushed
    }
    return GENERIC_READ;
}

DWORD Disposition_Of(File_Handle::Use use)
{
    using Use = File_Handle::Use;
    switch (use) {
    case Use::Write: // emptied when it is known to be an ordinary file
    case Use::Append:
    case Use::Update:
        return OPEN_ALWAYS;
    case Use::Write_New:
        return CREATE_NEW;
    case Use::Read:
    case Use::Directory:
        return OPEN_EXISTING;
    }
    return OPEN_EXISTING;
}

std::error_code Check_Ordinary(HANDLE handle)
{
    if (::GetFileType(handle) != FILE_TYPE_DISK)
        return Left_Alone::Device;
    BY_HANDLE_FILE_INFORMATION about{};
    if (::GetFileInformationByHandle(handle, &about) == 0)
        return Last_Error();
    return (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? std::make_error_code(std::errc::is_a_directory)
                                                                    : std::error_code();
}

// A link within its directory is followed, one that leads elsewhere is not.
std::error_code Check_Link(const std::filesystem::path& file)
{
    std::error_code no_link;
    const auto target = std::filesystem::read_symlink(file, no_link);
    return !no_link && target.has_parent_path() ? make_error_code(Left_Alone::Link_Elsewhere) : std::error_code();
}

// Tries again while another program, such as a virus scanner, keeps the file for itself: for an instant, since who asks
// may have many files to read.
Held_Handle Open_When_Let_Go(const std::filesystem::path& file, DWORD access, DWORD disposition, DWORD flags)
{
    constexpr std::chrono::milliseconds Pause(10), Most(200);
    const auto end = std::chrono::steady_clock::now() + Most;
    while (true) {
        Held_Handle opened = Open_Shared(file, access, disposition, flags);
        const DWORD reason = opened ? 0 : ::GetLastError();
        if (reason != ERROR_SHARING_VIOLATION || std::chrono::steady_clock::now() >= end) {
            ::SetLastError(reason);
            return opened;
        }
        std::this_thread::sleep_for(Pause);
    }
}

// What is there but is no file that could be opened so, as the other systems tell it.
std::error_code Reason_Of(const std::filesystem::path& file, std::error_code error)
{
    if (error.value() == ERROR_SHARING_VIOLATION)
        return Left_Alone::In_Use;
    std::error_code ignored;
    return error == std::errc::permission_denied && std::filesystem::is_directory(file, ignored)
               ? std::make_error_code(std::errc::is_a_directory)
               : error;
}

std::error_code Result_Of(BOOL done)
{
    return done != 0 ? std::error_code() : Last_Error();
}

DWORD At_Once(std::size_t bytes)
{
    return static_cast<DWORD>(std::min<std::size_t>(bytes, 1U << 30U));
}

OVERLAPPED Place_Of(std::uint64_t place)
{
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(place);
    at.OffsetHigh = static_cast<DWORD>(place >> 32U);
    return at;
}

// The locks of files that are held while they are open, by the number of the file.
std::mutex Locks_Guard;
std::map<int, Held_Handle> Locks;

} // namespace

File_Handle::File_Handle(const std::filesystem::path& file, Use use, std::error_code& error,
                         std::filesystem::perms rights)
{
    error = use == Use::Directory ? std::error_code() : Check_Link(file);
    if (error)
        return;
    const bool may_be_written = (rights & std::filesystem::perms::owner_write) != std::filesystem::perms::none;
    Held_Handle opened = Open_When_Let_Go(file, Access_Of(use), Disposition_Of(use),
                                          use == Use::Directory ? DWORD{FILE_FLAG_BACKUP_SEMANTICS}
                                          : may_be_written      ? DWORD{FILE_ATTRIBUTE_NORMAL}
                                                                : DWORD{FILE_ATTRIBUTE_READONLY});
    if (!opened) {
        error = Reason_Of(file, Last_Error());
        return;
    }
    if (use != Use::Directory)
        error = Check_Ordinary(opened.Get());
    if (error)
        return;
    Number = Number_Of(opened.Release());
    if (use == Use::Write)
        error = Resize(0);
    if (error)
        static_cast<void>(Close());
}

File_Handle::File_Handle(File_Handle&& other) noexcept : Number(std::exchange(other.Number, -1)) {}

File_Handle& File_Handle::operator=(File_Handle&& other) noexcept
{
    std::swap(Number, other.Number);
    return *this;
}

File_Handle::~File_Handle()
{
    static_cast<void>(Close());
}

std::size_t File_Handle::Read(char* to, std::size_t most, std::error_code& error)
{
    DWORD got = 0;
    error = Result_Of(::ReadFile(Handle_Of(Number), to, At_Once(most), &got, nullptr));
    return got;
}

std::size_t File_Handle::Read_At(std::uint64_t place, char* to, std::size_t most, std::error_code& error)
{
    error.clear();
    std::size_t filled = 0;
    while (filled < most) {
        OVERLAPPED at = Place_Of(place + filled);
        DWORD got = 0;
        if (::ReadFile(Handle_Of(Number), to + filled, At_Once(most - filled), &got, &at) == 0) {
            if (::GetLastError() == ERROR_HANDLE_EOF)
                return filled;
            error = Last_Error();
            return 0;
        }
        if (got == 0)
            return filled;
        filled += got;
    }
    return filled;
}

std::uint64_t File_Handle::Size(std::error_code& error) const
{
    LARGE_INTEGER size{};
    error = Result_Of(::GetFileSizeEx(Handle_Of(Number), &size));
    return error ? 0 : static_cast<std::uint64_t>(size.QuadPart);
}

std::error_code File_Handle::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        DWORD written = 0;
        if (::WriteFile(Handle_Of(Number), bytes.data(), At_Once(bytes.size()), &written, nullptr) == 0)
            return Last_Error();
        if (written == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(written);
    }
    return {};
}

std::error_code File_Handle::Write_At(std::uint64_t place, std::string_view bytes)
{
    LARGE_INTEGER to{};
    to.QuadPart = static_cast<LONGLONG>(place);
    return ::SetFilePointerEx(Handle_Of(Number), to, nullptr, FILE_BEGIN) == 0 ? Last_Error() : Write(bytes);
}

std::error_code File_Handle::Resize(std::uint64_t size)
{
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return Result_Of(::SetFileInformationByHandle(Handle_Of(Number), FileEndOfFileInfo, &end, sizeof end));
}

// Files have the owner that their directory gives them.
void File_Handle::Take_Owner_Of(const std::filesystem::path&) {}

void File_Handle::Lock_While_Open()
{
    auto held = Hold_Lock(Lock_Name(Handle_Of(Number)), Lock_Kind::Alone, false);
    const std::scoped_lock lock(Locks_Guard);
    Locks[Number] = std::move(held);
}

void File_Handle::Begin_Flush() {}

std::error_code File_Handle::Flush()
{
    return Result_Of(::FlushFileBuffers(Handle_Of(Number)));
}

std::error_code File_Handle::Close()
{
    if (!Is_Open())
        return {};
    {
        const std::scoped_lock lock(Locks_Guard);
        Locks.erase(Number);
    }
    return Result_Of(::CloseHandle(Handle_Of(std::exchange(Number, -1))));
}

} // namespace orvel
