// The library opens, lists and removes files by functions of C and of the system that take names of at most 260
// characters, unless the machine was told otherwise, and that keep a read-only file from being removed with its
// directory. The linker puts these in their place (src/CMakeLists.txt).
#include "core/system/handle_windows.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <direct.h>
#include <dirent.h>
#include <io.h>
#include <sys/stat.h>
#include <sys/utime.h>

using orvel::Long_Path;

namespace {

template <class... Arguments> using C_Function = int (*)(const wchar_t*, Arguments...);

} // namespace

// Those that are replaced.
extern "C" {
extern C_Function<struct _stat64*> __real___imp__wstat64;
extern C_Function<> __real___imp__wmkdir;
extern C_Function<> __real___imp__wchdir;
extern C_Function<int> __real___imp__wchmod;
extern C_Function<struct __utimbuf64*> __real___imp__wutime64;
extern FILE* (*__real___imp__wfopen)(const wchar_t*, const wchar_t*);
extern BOOL(WINAPI* __real___imp_DeleteFileW)(const wchar_t*);
extern BOOL(WINAPI* __real___imp_RemoveDirectoryW)(const wchar_t*);
extern BOOL(WINAPI* __real___imp_MoveFileExW)(const wchar_t*, const wchar_t*, DWORD);
extern HANDLE(WINAPI* __real___imp_CreateFileW)(const wchar_t*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD,
                                                HANDLE);
_WDIR* __real__wopendir(const wchar_t*);
}

namespace {

bool Is_Long(const wchar_t* name, const std::wstring& path)
{
    return path != name;
}

// The function of C takes the question mark of a long name for a wildcard.
int Stat(const wchar_t* name, struct _stat64* about)
{
    const auto path = Long_Path(name);
    if (!Is_Long(name, path))
        return __real___imp__wstat64(name, about);
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found) == 0) {
        errno = ENOENT;
        return -1;
    }
    constexpr std::int64_t Ticks_A_Second = 10'000'000, From_1601_To_1970 = 11'644'473'600;
    const auto seconds = [](const FILETIME& time) {
        return static_cast<std::int64_t>((std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime) /
                   Ticks_A_Second -
               From_1601_To_1970;
    };
    const bool directory = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
               read_only = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    *about = {};
    about->st_mode = static_cast<unsigned short>((directory ? S_IFDIR | 0111 : S_IFREG) | (read_only ? 0444 : 0666));
    about->st_nlink = 1;
    about->st_size = static_cast<std::int64_t>((std::uint64_t{found.nFileSizeHigh} << 32U) | found.nFileSizeLow);
    about->st_atime = seconds(found.ftLastAccessTime);
    about->st_mtime = seconds(found.ftLastWriteTime);
    about->st_ctime = seconds(found.ftCreationTime);
    return 0;
}

int Make_Directory(const wchar_t* name)
{
    return __real___imp__wmkdir(Long_Path(name).c_str());
}

int Change_Directory(const wchar_t* name)
{
    return __real___imp__wchdir(orvel::Short_Path(name).c_str());
}

int Change_Mode(const wchar_t* name, int mode)
{
    return __real___imp__wchmod(Long_Path(name).c_str(), mode);
}

int Set_Times(const wchar_t* name, struct __utimbuf64* times)
{
    return __real___imp__wutime64(Long_Path(name).c_str(), times);
}

FILE* Open(const wchar_t* name, const wchar_t* mode)
{
    return __real___imp__wfopen(Long_Path(name).c_str(), mode);
}

HANDLE WINAPI Create_File(const wchar_t* name, DWORD access, DWORD shared, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD flags, HANDLE like)
{
    return __real___imp_CreateFileW(Long_Path(name).c_str(), access, shared, security, disposition, flags, like);
}

// A file without leave to be written may be removed, as on the other systems.
BOOL WINAPI Delete_File(const wchar_t* name)
{
    const auto path = Long_Path(name);
    if (__real___imp_DeleteFileW(path.c_str()) != 0)
        return TRUE;
    if (::GetLastError() != ERROR_ACCESS_DENIED)
        return FALSE;
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    const bool read_only = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0 &&
                           (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    if (!read_only || ::SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) == 0) {
        ::SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (__real___imp_DeleteFileW(path.c_str()) != 0)
        return TRUE;
    const DWORD reason = ::GetLastError();
    ::SetFileAttributesW(path.c_str(), attributes);
    ::SetLastError(reason);
    return FALSE;
}

BOOL WINAPI Remove_Directory(const wchar_t* name)
{
    return __real___imp_RemoveDirectoryW(Long_Path(name).c_str());
}

BOOL WINAPI Move_File(const wchar_t* from, const wchar_t* to, DWORD flags)
{
    return __real___imp_MoveFileExW(Long_Path(from).c_str(), to == nullptr ? nullptr : Long_Path(to).c_str(), flags);
}

} // namespace

extern "C" {
C_Function<struct _stat64*> __wrap___imp__wstat64 = Stat;
C_Function<> __wrap___imp__wmkdir = Make_Directory;
C_Function<> __wrap___imp__wchdir = Change_Directory;
C_Function<int> __wrap___imp__wchmod = Change_Mode;
C_Function<struct __utimbuf64*> __wrap___imp__wutime64 = Set_Times;
FILE* (*__wrap___imp__wfopen)(const wchar_t*, const wchar_t*) = Open;
BOOL(WINAPI* __wrap___imp_DeleteFileW)(const wchar_t*) = Delete_File;
BOOL(WINAPI* __wrap___imp_RemoveDirectoryW)(const wchar_t*) = Remove_Directory;
BOOL(WINAPI* __wrap___imp_MoveFileExW)(const wchar_t*, const wchar_t*, DWORD) = Move_File;
HANDLE(WINAPI* __wrap___imp_CreateFileW)
(const wchar_t*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) = Create_File;

// The library's own keeps the name in 260 characters; its other functions for directories take what is made here.
_WDIR* __wrap__wopendir(const wchar_t* name)
{
    if (name == nullptr)
        return __real__wopendir(name);
    const auto path = Long_Path(name);
    if (!Is_Long(name, path))
        return __real__wopendir(name);
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        errno = attributes == INVALID_FILE_ATTRIBUTES ? ENOENT : ENOTDIR;
        return nullptr;
    }
    const std::wstring mask = path + L"\\*";
    auto* const opened = static_cast<_WDIR*>(std::calloc(1, sizeof(_WDIR) + mask.size() * sizeof(wchar_t)));
    if (opened == nullptr) {
        errno = ENOMEM;
        return nullptr;
    }
    opened->dd_handle = -1;
    std::memcpy(static_cast<wchar_t*>(opened->dd_name), mask.c_str(), (mask.size() + 1) * sizeof(wchar_t));
    return opened;
}
}
