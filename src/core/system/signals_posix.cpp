#include "core/system/signals.h"

#include <csignal>
#include <initializer_list>
#include <unistd.h>

namespace orvel {

namespace {

volatile std::sig_atomic_t Code = 0, Noticed = 0;

void Notice(int)
{
    Noticed = 1;
}

void Exit_Now(int)
{
    ::_exit(Code);
}

} // namespace

void Exit_When_Stopped(int exit_code)
{
    Code = exit_code;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        std::signal(number, Exit_Now);
}

void Notice_When_Stopped()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        std::signal(number, Notice);
}

bool Was_Stopped()
{
    return Noticed != 0;
}

void Report_Failed_Writes()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace orvel
