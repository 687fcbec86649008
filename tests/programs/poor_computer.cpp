// A computer whose file system has no locks (POOR_LOCKS) or little space (POOR_SPACE, in bytes): loaded before a
// program's own libraries, these stand before the calls of the C library.
#include <cerrno>
#include <cstdlib>
#include <dlfcn.h>
#include <sys/file.h>
#include <sys/statvfs.h>

namespace {

template <class Call> Call Next(Call, const char* name)
{
    return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, name));
}

void Take_Space(struct statvfs* about)
{
    const char* const space = std::getenv("POOR_SPACE");
    if (space != nullptr)
        about->f_bavail = static_cast<fsblkcnt_t>(std::atoll(space)) / about->f_frsize;
}

} // namespace

extern "C" int flock(int file, int operation) noexcept
{
    if (std::getenv("POOR_LOCKS") == nullptr)
        return Next(&flock, "flock")(file, operation);
    errno = ENOLCK;
    return -1;
}

extern "C" int statvfs(const char* path, struct statvfs* about) noexcept
{
    const int result = Next(&statvfs, "statvfs")(path, about);
    Take_Space(about);
    return result;
}
