#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace orvel {

// Aborts unless a document, printed after it was read back, gives the same text again.
inline void Demand_Same(const std::string& first, const std::string& second)
{
    if (first == second)
        return;
    std::fprintf(stderr, "printed first:\n%s\nthen:\n%s\n", first.c_str(), second.c_str());
    std::abort();
}

} // namespace orvel
