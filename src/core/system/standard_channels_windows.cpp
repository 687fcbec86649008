#include "core/system/standard_channels.h"

#include "core/system/handle_windows.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace orvel {

void Open_Standard_Channels()
{
    // Lines end as they are written, and hold UTF-8.
    for (std::FILE* const channel : {stdin, stdout, stderr})
        ::_setmode(::_fileno(channel), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

} // namespace orvel
