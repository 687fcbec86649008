#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace orvel::engine {

// An allocator for arrays that begin on a cache line.
template <class T> struct Cache_Line_Allocator {
    using value_type = T;
    static constexpr std::align_val_t Line{64};

    Cache_Line_Allocator() = default;
    template <class U> Cache_Line_Allocator(const Cache_Line_Allocator<U>&) {}
    T* allocate(std::size_t n) { return static_cast<T*>(::operator new(n * sizeof(T), Line)); }
    void deallocate(T* p, std::size_t) { ::operator delete(p, Line); }
    template <class U> bool operator==(const Cache_Line_Allocator<U>&) const { return true; }
};

using Aligned_Row = std::vector<double, Cache_Line_Allocator<double>>;

// N compartments, the slots, and both rounded up to a multiple of 4.
struct Solute_Layout {
    int N = 0, Slots = 0, Padded = 0, Lanes = 0;

    Solute_Layout(int compartments, int slots)
        : N(compartments),
          Slots(slots),
          Padded((compartments + 3) / 4 * 4),
          Lanes((slots + 3) / 4 * 4)
    {}
    std::size_t At(int row, int slot) const { return static_cast<std::size_t>(row) * Lanes + slot; }
    Aligned_Row Rows(double value, int extra = 0) const { return Aligned_Row(At(N + extra, 0), value); }
    Aligned_Row Column(double value) const { return Aligned_Row(Padded, value); } // one number a row
    Aligned_Row One_Row(double value) const { return Aligned_Row(Lanes, value); }
};

} // namespace orvel::engine
