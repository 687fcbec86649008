#pragma once

#include <cstdint>
#include <cstring>

namespace orvel::engine {

// Four doubles at a time. Everything here is IEEE addition, multiplication, division and integer work, so that each
// processor gives the same bits, whatever the width of its registers and whichever C library it has. Included only by
// the sources of the kernels.

namespace {

using V4 = double __attribute__((vector_size(32)));
using V4_Bits = std::int64_t __attribute__((vector_size(32)));

#define LANES_INLINE [[gnu::always_inline]] inline

LANES_INLINE V4 Load(const double* from)
{
    V4 v;
    std::memcpy(&v, from, sizeof v);
    return v;
}

LANES_INLINE void Store(double* to, V4 v)
{
    std::memcpy(to, &v, sizeof v);
}

LANES_INLINE V4 All(double x)
{
    return V4{x, x, x, x};
}

LANES_INLINE V4 Max(V4 a, V4 b)
{
    return a > b ? a : b;
}

LANES_INLINE V4 Min(V4 a, V4 b)
{
    return a < b ? a : b;
}

LANES_INLINE V4 Magnitude(V4 a)
{
    return (V4)((V4_Bits)a & 0x7FFFFFFFFFFFFFFF);
}

LANES_INLINE bool Any(V4_Bits mask)
{
    return (mask[0] | mask[1] | mask[2] | mask[3]) != 0;
}

template <int I> LANES_INLINE V4 Spread(V4 v)
{
    return V4{v[I], v[I], v[I], v[I]};
}

// Natural logarithm of positive normal numbers, relative error below 1e-14: x = 2^e m with m from sqrt(1/2) to sqrt(2),
// ln m = 2 artanh((m - 1) / (m + 1)) by its series.
LANES_INLINE V4 Log(V4 x)
{
    const V4_Bits bits = (V4_Bits)x;
    V4 m = (V4)((bits & 0x000FFFFFFFFFFFFF) | 0x3FF0000000000000);
    const V4_Bits high = m > 1.4142135623730951;
    m = high ? m * 0.5 : m;
    // The exponent field is below 2^11: placed in the mantissa of 2^52 it becomes a double without a conversion.
    const V4 field =
        (V4)(((V4_Bits)((__attribute__((vector_size(32))) std::uint64_t)bits >> 52)) | 0x4330000000000000) -
        4503599627370496.0;
    const V4 e = field - (high ? All(1022.0) : All(1023.0));

    const V4 s = (m - 1.0) / (m + 1.0);
    const V4 z = s * s, z2 = z * z, z4 = z2 * z2;
    const V4 low = (1.0 / 3 + z * (1.0 / 5)) + z2 * (1.0 / 7 + z * (1.0 / 9));
    const V4 top = (1.0 / 11 + z * (1.0 / 13)) + z2 * (1.0 / 15 + z * (1.0 / 17));
    const V4 tail = z * (low + z4 * (top + z4 * (1.0 / 19 + z * (1.0 / 21))));
    const V4 twice = s + s;
    // ln 2 in two parts, the first with 21 zero bits at its end.
    return e * 6.93147180369123816490e-01 + (twice + (twice * tail + e * 1.90821492927058770002e-10));
}

// e^x with relative error below 1e-14; x is clamped to -708..709.
LANES_INLINE V4 Exp(V4 x)
{
    x = Min(Max(x, All(-708.0)), All(709.0));
    const V4 magic =
        All(6755399441055744.0); // 1.5 * 2^52: the low bits of the sum are the other operand rounded to an integer
    const V4 shifted = x * 1.4426950408889634 + magic;
    const V4 n = shifted - magic;
    const V4 r = (x - n * 6.93147180369123816490e-01) - n * 1.90821492927058770002e-10;

    const V4 r2 = r * r, r4 = r2 * r2;
    const V4 p0 = (1.0 + r) + r2 * (1.0 / 2 + r * (1.0 / 6));
    const V4 p1 = (1.0 / 24 + r * (1.0 / 120)) + r2 * (1.0 / 720 + r * (1.0 / 5040));
    const V4 p2 = (1.0 / 40320 + r * (1.0 / 362880)) + r2 * (1.0 / 3628800 + r * (1.0 / 39916800));
    const V4 p = p0 + r4 * (p1 + r4 * (p2 + r4 * (1.0 / 479001600)));

    const V4_Bits scale = (((V4_Bits)shifted - (V4_Bits)magic) + 1023) << 52;
    return p * (V4)scale;
}

// (1 - e^-x) / x for x from 0 to 0.8, by its series: full precision where 1 - e^-x would cancel.
LANES_INLINE V4 Mean_Decay(V4 x)
{
    constexpr double inverse_factorial[] = {1.0,
                                            1.0 / 2,
                                            1.0 / 6,
                                            1.0 / 24,
                                            1.0 / 120,
                                            1.0 / 720,
                                            1.0 / 5040,
                                            1.0 / 40320,
                                            1.0 / 362880,
                                            1.0 / 3628800,
                                            1.0 / 39916800,
                                            1.0 / 479001600,
                                            1.0 / 6227020800.0,
                                            1.0 / 87178291200.0,
                                            1.0 / 1307674368000.0};
    V4 sum = All(inverse_factorial[14]);
    for (int k = 13; k >= 0; --k)
        sum = inverse_factorial[k] - x * sum;
    return sum;
}

} // namespace

} // namespace orvel::engine
