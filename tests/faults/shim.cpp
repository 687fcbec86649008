// Makes one system call fail: loaded before a program's own libraries, it stands before those of the C library. Only
// calls on files below a directory count, so that the loader's do not; all programs that a command starts share the
// count.
//   FAULT_ROOT    the directory
//   FAULT_COUNTS  a file of one counter for each kind of call, which tells how many there are
//   FAULT_CALL    the kind: open read write fsync rename unlink mkdir close; none: calls are counted only
//   FAULT_AT      which call of that kind, from 1
//   FAULT_HOW     EIO, ENOSPC, EINTR, SHORT (half of the bytes) or KILL
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr const char* Kinds[] = {"open", "read", "write", "fsync", "rename", "unlink", "mkdir", "close"};
enum Kind { Open, Read, Write, Fsync, Rename, Unlink, Mkdir, Close, Number_Of_Kinds };
enum class Fault { None, Fails, Short };

std::int64_t* Counters = nullptr;
const char* Root = nullptr;
std::size_t Root_Length = 0;
int Wanted_Kind = -1;
long Wanted_At = 0;
const char* How = "";

__attribute__((constructor)) void Begin()
{
    Root = std::getenv("FAULT_ROOT");
    const char* const counts = std::getenv("FAULT_COUNTS");
    if (Root == nullptr || counts == nullptr)
        return;
    Root_Length = std::strlen(Root);
    const auto file = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, counts, O_RDWR | O_CLOEXEC));
    if (file < 0)
        return;
    void* const mapped =
        ::mmap(nullptr, sizeof(std::int64_t) * Number_Of_Kinds, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::syscall(SYS_close, file);
    if (mapped == MAP_FAILED)
        return;
    const char* const call = std::getenv("FAULT_CALL");
    for (int kind = 0; call != nullptr && kind < Number_Of_Kinds; ++kind) {
        if (std::strcmp(call, Kinds[kind]) == 0)
            Wanted_Kind = kind;
    }
    Wanted_At = std::atol(std::getenv("FAULT_AT") != nullptr ? std::getenv("FAULT_AT") : "0");
    How = std::getenv("FAULT_HOW") != nullptr ? std::getenv("FAULT_HOW") : "";
    Counters = static_cast<std::int64_t*>(mapped);
}

// Counts a call; what is to happen to it.
Fault Count(Kind kind)
{
    const auto number = __atomic_add_fetch(&Counters[kind], 1, __ATOMIC_RELAXED);
    if (kind != Wanted_Kind || number != Wanted_At)
        return Fault::None;
    if (std::strcmp(How, "KILL") == 0)
        ::raise(SIGKILL);
    if (std::strcmp(How, "SHORT") == 0)
        return Fault::Short;
    errno = std::strcmp(How, "ENOSPC") == 0 ? ENOSPC : std::strcmp(How, "EINTR") == 0 ? EINTR : EIO;
    return Fault::Fails;
}

bool Is_Below_Root(const char* path)
{
    return std::strncmp(path, Root, Root_Length) == 0 && (path[Root_Length] == '/' || path[Root_Length] == 0);
}

bool Counts_Of(int file)
{
    if (Counters == nullptr || file < 0)
        return false;
    const int before = errno;
    char link[64], path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const auto size = ::syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    errno = before;
    if (size <= 0)
        return false;
    path[size] = 0;
    return Is_Below_Root(path);
}

// A relative path counts by the directory that it is relative to.
bool Counts_Of(const char* path, int directory = AT_FDCWD)
{
    if (Counters == nullptr || path == nullptr)
        return false;
    if (path[0] == '/')
        return Is_Below_Root(path);
    if (directory != AT_FDCWD)
        return Counts_Of(directory);
    char current[4096];
    const int before = errno;
    const auto size = ::syscall(SYS_getcwd, current, sizeof current);
    errno = before;
    return size > 0 && Is_Below_Root(current);
}

template <class Function> Function Next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int Open_At(int directory, const char* path, int flags, mode_t mode)
{
    if (Counts_Of(path, directory) && Count(Open) == Fault::Fails)
        return -1;
    return static_cast<int>(::syscall(SYS_openat, directory, path, flags, mode));
}

mode_t Mode_In(int flags, va_list more)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
}

// The number of bytes to ask for, or -1.
template <class Size> ssize_t Asked(int file, Kind kind, Size size)
{
    const auto fault = Counts_Of(file) ? Count(kind) : Fault::None;
    if (fault == Fault::Fails)
        return -1;
    return static_cast<ssize_t>(fault == Fault::Short && size > 1 ? size / 2 : size);
}

} // namespace

extern "C" {

#define OPEN(name)                                                                                                     \
    int name(const char* path, int flags, ...)                                                                         \
    {                                                                                                                  \
        va_list more;                                                                                                  \
        va_start(more, flags);                                                                                         \
        const mode_t mode = Mode_In(flags, more);                                                                      \
        va_end(more);                                                                                                  \
        return Open_At(AT_FDCWD, path, flags, mode);                                                                   \
    }
#define OPEN_AT(name)                                                                                                  \
    int name(int directory, const char* path, int flags, ...)                                                          \
    {                                                                                                                  \
        va_list more;                                                                                                  \
        va_start(more, flags);                                                                                         \
        const mode_t mode = Mode_In(flags, more);                                                                      \
        va_end(more);                                                                                                  \
        return Open_At(directory, path, flags, mode);                                                                  \
    }
OPEN(open)
OPEN(open64)
OPEN_AT(openat)
OPEN_AT(openat64)

std::FILE* fopen(const char* path, const char* mode)
{
    if (Counts_Of(path) && Count(Open) == Fault::Fails)
        return nullptr;
    return Next<std::FILE* (*)(const char*, const char*)>("fopen")(path, mode);
}

DIR* opendir(const char* path)
{
    if (Counts_Of(path) && Count(Open) == Fault::Fails)
        return nullptr;
    return Next<DIR* (*)(const char*)>("opendir")(path);
}

struct dirent* readdir(DIR* directory)
{
    const bool may_fail = std::strcmp(How, "EIO") == 0 || std::strcmp(How, "KILL") == 0; // it is never interrupted
    if (may_fail && Counts_Of(::dirfd(directory)) && Count(Read) == Fault::Fails)
        return nullptr;
    return Next<struct dirent* (*)(DIR*)>("readdir")(directory);
}

ssize_t read(int file, void* to, size_t size)
{
    const auto asked = Asked(file, Read, size);
    return asked < 0 ? -1 : ::syscall(SYS_read, file, to, asked);
}

ssize_t pread(int file, void* to, size_t size, off_t place)
{
    const auto asked = Asked(file, Read, size);
    return asked < 0 ? -1 : ::syscall(SYS_pread64, file, to, asked, place);
}

ssize_t pread64(int file, void* to, size_t size, off64_t place)
{
    return pread(file, to, size, place);
}

ssize_t write(int file, const void* from, size_t size)
{
    const auto asked = Asked(file, Write, size);
    return asked < 0 ? -1 : ::syscall(SYS_write, file, from, asked);
}

ssize_t pwrite(int file, const void* from, size_t size, off_t place)
{
    const auto asked = Asked(file, Write, size);
    return asked < 0 ? -1 : ::syscall(SYS_pwrite64, file, from, asked, place);
}

ssize_t pwrite64(int file, const void* from, size_t size, off64_t place)
{
    return pwrite(file, from, size, place);
}

int ftruncate(int file, off_t size)
{
    return Asked(file, Write, 1) < 0 ? -1 : static_cast<int>(::syscall(SYS_ftruncate, file, size));
}

int ftruncate64(int file, off64_t size)
{
    return ftruncate(file, size);
}

int fsync(int file)
{
    return Asked(file, Fsync, 1) < 0 ? -1 : static_cast<int>(::syscall(SYS_fsync, file));
}

int syncfs(int file) noexcept
{
    return Asked(file, Fsync, 1) < 0 ? -1 : static_cast<int>(::syscall(SYS_syncfs, file));
}

int rename(const char* from, const char* to) noexcept
{
    if (Counts_Of(to) && Count(Rename) == Fault::Fails)
        return -1;
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int unlink(const char* path) noexcept
{
    if (Counts_Of(path) && Count(Unlink) == Fault::Fails)
        return -1;
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

int unlinkat(int directory, const char* path, int flags) noexcept
{
    if (Counts_Of(path, directory) && Count(Unlink) == Fault::Fails)
        return -1;
    return static_cast<int>(::syscall(SYS_unlinkat, directory, path, flags));
}

int remove(const char* path) noexcept
{
    if (Counts_Of(path) && Count(Unlink) == Fault::Fails)
        return -1;
    return Next<int (*)(const char*)>("remove")(path);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    if (Counts_Of(path) && Count(Mkdir) == Fault::Fails)
        return -1;
    return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int close(int file)
{
    // The file is closed all the same, as the system does.
    const bool fails = Counts_Of(file) && Count(Close) == Fault::Fails;
    const int reason = errno;
    const auto result = static_cast<int>(::syscall(SYS_close, file));
    if (!fails)
        return result;
    errno = reason;
    return -1;
}

} // extern "C"
