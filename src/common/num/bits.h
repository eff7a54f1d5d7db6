// Bit casts and exact powers of two: a floating value from its bits and
// back, without an integer conversion (64-bit ones are x87 code on i386) and
// without the C library, so the same bits on both targets.
#pragma once

#include <bit>
#include <cstdint>

namespace zams {

inline uint64_t to_bits(double x) { return std::bit_cast<uint64_t>(x); }
inline uint32_t to_bits(float x) { return std::bit_cast<uint32_t>(x); }
inline double from_bits(uint64_t b) { return std::bit_cast<double>(b); }
inline float float_from_bits(uint32_t b) { return std::bit_cast<float>(b); }

// 2^k as a double, k clamped to the normal range [-1022, 1023].
inline double pow2(int k) {
    k = k < -1022 ? -1022 : (k > 1023 ? 1023 : k);
    return from_bits(uint64_t(k + 1023) << 52);
}

// 2^k as a float for a normal single exponent, -126 <= k <= 127.
inline float pow2f(int k) { return float_from_bits(uint32_t(k + 127) << 23); }

}  // namespace zams
