// Makes a directory a bad place: loaded before a program's own libraries, it stands before calls of the C library on
// files below it.
//   PLACE_ROOT  the directory
//   PLACE_IS    READ_ONLY: nothing can be written, as on a medium that is; FULL: files can be made but take no byte
//               more than PLACE_ROOM of one program; WITHOUT_LOCKS: no file can be locked
#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

bool Is_Place(const char* kind)
{
    const char* const is = std::getenv("PLACE_IS");
    return is != nullptr && std::strcmp(is, kind) == 0;
}

bool Is_Below_Root(const char* path)
{
    const char* const root = std::getenv("PLACE_ROOT");
    const std::size_t length = root == nullptr ? 0 : std::strlen(root);
    return length > 0 && std::strncmp(path, root, length) == 0 && (path[length] == '/' || path[length] == 0);
}

bool Is_Here(int file)
{
    char link[64], path[PATH_MAX];
    const int before = errno;
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const auto size = ::readlink(link, path, sizeof path - 1);
    errno = before;
    if (size <= 0)
        return false;
    path[size] = 0;
    return Is_Below_Root(path);
}

bool Is_Here(int directory, const char* path)
{
    if (path[0] == '/')
        return Is_Below_Root(path);
    char current[PATH_MAX];
    return directory == AT_FDCWD ? ::getcwd(current, sizeof current) != nullptr && Is_Below_Root(current)
                                 : Is_Here(directory);
}

bool Refuses(int directory, const char* path)
{
    if (!Is_Place("READ_ONLY") || !Is_Here(directory, path))
        return false;
    errno = EROFS;
    return true;
}

// The bytes that still find room of `wanted`; -1 if none does.
ssize_t Room_For(int file, std::size_t wanted)
{
    static std::size_t used = 0;
    if (!Is_Place("FULL") || !Is_Here(file))
        return static_cast<ssize_t>(wanted);
    const char* const room = std::getenv("PLACE_ROOM");
    const std::size_t all = room == nullptr ? 0 : std::strtoul(room, nullptr, 10);
    const std::size_t taken = used < all ? std::min(wanted, all - used) : 0;
    used += taken;
    if (taken == 0 && wanted > 0) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<ssize_t>(taken);
}

template <class Function> Function Next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool Is_Writing(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

int Open_At(int directory, const char* path, int flags, mode_t mode)
{
    if (Is_Writing(flags) && Refuses(directory, path))
        return -1;
    return Next<int (*)(int, const char*, int, ...)>("openat")(directory, path, flags, mode);
}

} // namespace

extern "C" {

#define OPEN(name)                                                                                                     \
    int name(const char* path, int flags, ...)                                                                         \
    {                                                                                                                  \
        va_list more;                                                                                                  \
        va_start(more, flags);                                                                                         \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;                                         \
        va_end(more);                                                                                                  \
        return Open_At(AT_FDCWD, path, flags, mode);                                                                   \
    }
OPEN(open)
OPEN(open64)

int mkdir(const char* path, mode_t mode)
{
    return Refuses(AT_FDCWD, path) ? -1 : Next<int (*)(const char*, mode_t)>("mkdir")(path, mode);
}

int rename(const char* from, const char* to)
{
    return Refuses(AT_FDCWD, from) || Refuses(AT_FDCWD, to)
               ? -1
               : Next<int (*)(const char*, const char*)>("rename")(from, to);
}

int link(const char* from, const char* to)
{
    return Refuses(AT_FDCWD, to) ? -1 : Next<int (*)(const char*, const char*)>("link")(from, to);
}

int unlink(const char* path)
{
    return Refuses(AT_FDCWD, path) ? -1 : Next<int (*)(const char*)>("unlink")(path);
}

int remove(const char* path)
{
    return Refuses(AT_FDCWD, path) ? -1 : Next<int (*)(const char*)>("remove")(path);
}

int unlinkat(int directory, const char* path, int flags)
{
    return Refuses(directory, path) ? -1 : Next<int (*)(int, const char*, int)>("unlinkat")(directory, path, flags);
}

int chmod(const char* path, mode_t mode)
{
    return Refuses(AT_FDCWD, path) ? -1 : Next<int (*)(const char*, mode_t)>("chmod")(path, mode);
}

ssize_t write(int file, const void* bytes, std::size_t size)
{
    const auto room = Room_For(file, size);
    return room < 0
               ? -1
               : Next<ssize_t (*)(int, const void*, std::size_t)>("write")(file, bytes, static_cast<std::size_t>(room));
}

int flock(int file, int operation)
{
    if (Is_Place("WITHOUT_LOCKS") && Is_Here(file)) {
        errno = ENOLCK;
        return -1;
    }
    return Next<int (*)(int, int)>("flock")(file, operation);
}

} // extern "C"
