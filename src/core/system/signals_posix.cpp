#include "core/system/signals.h"

#include <csignal>
#include <initializer_list>
#include <unistd.h>

namespace orvel {

namespace {

volatile std::sig_atomic_t Code = 0;

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

void Report_Failed_Writes()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace orvel
