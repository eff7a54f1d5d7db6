// When element-wise kernels write their destination with non-temporal
// stores: long calls whose destination overlaps no source, where the
// destination would only evict the sources from the cache.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zams {

inline constexpr size_t kStreamMinBytes = size_t(4) << 20;  // destination bytes

// [p, p + n) and [q, q + m) share no byte.
inline bool disjoint(const void* p, size_t n, const void* q, size_t m) {
    const uintptr_t a = reinterpret_cast<uintptr_t>(p), b = reinterpret_cast<uintptr_t>(q);
    return a + n <= b || b + m <= a;
}

}  // namespace zams
