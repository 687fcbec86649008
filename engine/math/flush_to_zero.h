#pragma once

#if defined(__SSE2__)
#include <xmmintrin.h>

#endif

namespace orvel::engine {

// While an instance lives, subnormal numbers are flushed to 0: ahead of a solute front masses fade into the subnormal
// range, where arithmetic is slow.
class Flush_To_Zero {
public:
#if defined(__SSE2__)
    Flush_To_Zero() : Before(_mm_getcsr())
    {
        _mm_setcsr(Before | 0x8040);
    }
    ~Flush_To_Zero()
    {
        _mm_setcsr(Before);
    }

private:
    unsigned Before;

public:
#else
    Flush_To_Zero() = default;
#endif
    Flush_To_Zero(const Flush_To_Zero&) = delete;
    Flush_To_Zero& operator=(const Flush_To_Zero&) = delete;
};

} // namespace orvel::engine
