#include "core/system/terminal.h"

#include <unistd.h>

namespace orvel {

bool Output_Is_Terminal()
{
    return ::isatty(STDOUT_FILENO) == 1;
}

bool Error_Is_Terminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

// Both lead somewhere: a terminal, a file or the log of the desktop.
bool Output_Is_Seen()
{
    return true;
}

bool Error_Is_Seen()
{
    return true;
}

} // namespace orvel
