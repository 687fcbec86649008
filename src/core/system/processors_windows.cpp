#include "core/system/processors.h"

#include "core/system/handle_windows.h"

#include <algorithm>
#include <bit>

namespace orvel {

int Processors()
{
    DWORD_PTR own = 0, all = 0;
    if (::GetProcessAffinityMask(::GetCurrentProcess(), &own, &all) == 0)
        return 1;
    return std::max(1, std::popcount(static_cast<std::uint64_t>(own)));
}

} // namespace orvel
