#include "core/system/terminal.h"

#include "core/system/handle_windows.h"

namespace orvel {

namespace {

bool Is_Console(DWORD channel)
{
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(channel), &mode) != 0;
}

bool Leads_Somewhere(DWORD channel)
{
    const HANDLE handle = ::GetStdHandle(channel);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
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

bool Output_Is_Seen()
{
    return Leads_Somewhere(STD_OUTPUT_HANDLE);
}

bool Error_Is_Seen()
{
    return Leads_Somewhere(STD_ERROR_HANDLE);
}

} // namespace orvel
