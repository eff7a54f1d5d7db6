// Rounding a double to an integral value from an SSE instruction: independent
// of the caller's MXCSR rounding direction and of the C library.
#pragma once

#include <immintrin.h>

#include "num/bits.h"  // pow2

namespace zams {

// Nearest integral value, ties to even.
inline double round_even(double v) {
    return _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

}  // namespace zams
