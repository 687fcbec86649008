#include "core/system/terminal.h"

#include "core/system/handle_windows.h"

namespace orvel {

namespace {

bool Is_Console(DWORD channel)
{
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(channel), &mode) != 0;
}

} // namespace

bool Output_Is_Terminal()
{
    return Is_Console(STD_OUTPUT_HANDLE);
}

bool Error_Is_Terminal()
{
    return Is_Console(STD_ERROR_HANDLE);
}

} // namespace orvel
