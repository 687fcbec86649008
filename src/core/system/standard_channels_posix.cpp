#include "core/system/standard_channels.h"

#include <cerrno>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace orvel {

void Open_Standard_Channels()
{
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const bool closed = ::fcntl(channel, F_GETFD) < 0 && errno == EBADF;
        if (closed && ::open("/dev/null", O_RDONLY) != channel) // the lowest free number
            return;
    }
}

} // namespace orvel
