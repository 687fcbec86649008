#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace orvel {

// A text that was printed from a document as it was read must come out the same once more.
inline void Demand_Same(const std::string& first, const std::string& second)
{
    if (first == second)
        return;
    std::fprintf(stderr, "printed first:\n%s\nthen:\n%s\n", first.c_str(), second.c_str());
    std::abort();
}

} // namespace orvel
