#include "core/system/processors.h"

#include <algorithm>
#include <sched.h>

namespace orvel {

int Processors()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    if (::sched_getaffinity(0, sizeof set, &set) != 0)
        return 1;
    return std::max(1, CPU_COUNT(&set));
}

} // namespace orvel
