#include "core/system/signals.h"

#include "core/system/handle_windows.h"

#include <atomic>
#include <cstdlib>

namespace orvel {

namespace {

std::atomic<int> Code = 0;
std::atomic<bool> Noticed = false;

BOOL WINAPI Notice(DWORD)
{
    Noticed = true;
    return TRUE;
}

BOOL WINAPI Exit_Now(DWORD)
{
    ::ExitProcess(static_cast<UINT>(Code.load()));
}

} // namespace

void Exit_When_Stopped(int exit_code)
{
    Code = exit_code;
    ::SetConsoleCtrlHandler(Exit_Now, TRUE);
}

void Notice_When_Stopped()
{
    ::SetConsoleCtrlHandler(Notice, TRUE);
}

bool Was_Stopped()
{
    return Noticed;
}

void Report_Failed_Writes() {} // they always do

} // namespace orvel
