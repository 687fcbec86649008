#pragma once

#include <ctime>

namespace orvel {

// That this process has spent so far; std::clock tells those of the wall on Windows.
inline double Processor_Seconds()
{
    timespec spent{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &spent);
    return static_cast<double>(spent.tv_sec) + 1e-9 * static_cast<double>(spent.tv_nsec);
}

} // namespace orvel
