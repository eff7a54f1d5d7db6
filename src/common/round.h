// Rounding a double to an integral value, and exact powers of two, from
// SSE instructions and bits: independent of the caller's MXCSR rounding
// direction and of the C library (whose results differ between targets).
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <cstring>

namespace zams {

// Nearest integral value, ties to even.
inline double round_even(double v) {
    return _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

// 2^k as a double, k clamped to the normal range [-1022, 1023].
inline double pow2(int k) {
    k = k < -1022 ? -1022 : (k > 1023 ? 1023 : k);
    uint64_t b = uint64_t(k + 1023) << 52;
    double d;
    std::memcpy(&d, &b, 8);
    return d;
}

}  // namespace zams
