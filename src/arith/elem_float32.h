// Single-precision Exp and Ln, four elements at a time in double precision.
// Each result is formed in double to about 1e-11 relative error and rounded
// once to single precision, so it is within an ulp; scalar and vector steps
// run the same operations and give the same bits. Arguments the reduction
// does not cover (non-finite, non-positive for ln) go to the scalar kernels
// of elem_kernel.h.
#pragma once

#include <immintrin.h>

#include "elem_kernel.h"

namespace zams::elem32 {

// e^x = 2^k e^r, k = round(x / ln2), |r| <= ln2 / 2, e^r by its Taylor
// series to degree 9 (remainder below 1e-11 relative).
struct ExpD {
    static constexpr double kLog2e = 1.4426950408889634074, kLn2Hi = 6.93147180369123816490e-01,
                            kLn2Lo = 1.90821492927058770002e-10;
    static constexpr double c[] = {1.0 / 362880, 1.0 / 40320, 1.0 / 5040, 1.0 / 720, 1.0 / 120,
                                   1.0 / 24,     1.0 / 6,     0.5,        1.0,        1.0};
    // finite x with e^x a normal double in single-precision reach
    static constexpr double kLow = -110.0, kHigh = 90.0;
    static bool covered(double x) { return x > kLow && x < kHigh; }
    static double scalar(double x) {
        double k = _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(x * kLog2e), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        double r = (x - k * kLn2Hi) - k * kLn2Lo;
        double p = c[0];
        for (int i = 1; i < 10; ++i) p = p * r + c[i];
        int ki = _mm_cvttsd_si32(_mm_set_sd(k));
        return p * elem::from_bits(uint64_t(int64_t(ki + 1023)) << 52);
    }
    static __m256d vector(__m256d x) {
        __m256d k = _mm256_round_pd(_mm256_mul_pd(x, _mm256_set1_pd(kLog2e)), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        __m256d r = _mm256_sub_pd(_mm256_sub_pd(x, _mm256_mul_pd(k, _mm256_set1_pd(kLn2Hi))),
                                  _mm256_mul_pd(k, _mm256_set1_pd(kLn2Lo)));
        __m256d p = _mm256_set1_pd(c[0]);
        for (int i = 1; i < 10; ++i) p = _mm256_add_pd(_mm256_mul_pd(p, r), _mm256_set1_pd(c[i]));
        __m128i ki = _mm_add_epi32(_mm256_cvttpd_epi32(k), _mm_set1_epi32(1023));
        __m128i lo = _mm_slli_epi64(_mm_cvtepi32_epi64(ki), 52);
        __m128i hi = _mm_slli_epi64(_mm_cvtepi32_epi64(_mm_srli_si128(ki, 8)), 52);
        __m256d scale = _mm256_castsi256_pd(_mm256_insertf128_si256(_mm256_castsi128_si256(lo), hi, 1));
        return _mm256_mul_pd(p, scale);
    }
};

// ln x = e ln2 + ln m, m in [sqrt(2)/2, sqrt(2)), ln m = 2 atanh(f) with
// f = (m - 1) / (m + 1), |f| < 0.172, by its odd series to f^15.
struct LnD {
    static constexpr double kLn2 = 6.93147180559945309417e-01;
    static constexpr double c[] = {2.0 / 15, 2.0 / 13, 2.0 / 11, 2.0 / 9, 2.0 / 7, 2.0 / 5, 2.0 / 3, 2.0};
    static constexpr double kLow = 0.0, kHigh = 1e39;  // single-precision positive finite
    static bool covered(double x) { return x > kLow && x < kHigh; }
    static double scalar(double x) {
        uint64_t b = elem::bits(x);
        // m from the mantissa, moved to [sqrt(2)/2, sqrt(2)) by the exponent
        uint64_t adj = ((b & 0x000fffffffffffffull) + 0x00095f619980c433ull) & 0x0010000000000000ull;
        double m = elem::from_bits((b & 0x000fffffffffffffull) | (0x3ff0000000000000ull - adj));
        int e = int((b >> 52) & 0x7ff) - 1023 + int(adj >> 52);
        double f = (m - 1.0) / (m + 1.0), z = f * f;
        double p = c[0];
        for (int i = 1; i < 8; ++i) p = p * z + c[i];
        return double(e) * kLn2 + f * p;
    }
    static __m256d vector(__m256d x) {
        __m256i b = _mm256_castpd_si256(x);
        __m128i b0 = _mm256_castsi256_si128(b), b1 = _mm256_extractf128_si256(b, 1);
        const __m128i mant = _mm_set1_epi64x(0x000fffffffffffffll), bias = _mm_set1_epi64x(0x00095f619980c433ll),
                      bit = _mm_set1_epi64x(0x0010000000000000ll), one = _mm_set1_epi64x(0x3ff0000000000000ll);
        __m128i a0 = _mm_and_si128(_mm_add_epi64(_mm_and_si128(b0, mant), bias), bit);
        __m128i a1 = _mm_and_si128(_mm_add_epi64(_mm_and_si128(b1, mant), bias), bit);
        __m128i m0 = _mm_or_si128(_mm_and_si128(b0, mant), _mm_sub_epi64(one, a0));
        __m128i m1 = _mm_or_si128(_mm_and_si128(b1, mant), _mm_sub_epi64(one, a1));
        // exponent + adjustment as 32-bit integers, then as doubles
        __m128i e0 = _mm_add_epi64(_mm_srli_epi64(b0, 52), _mm_srli_epi64(a0, 52));
        __m128i e1 = _mm_add_epi64(_mm_srli_epi64(b1, 52), _mm_srli_epi64(a1, 52));
        __m128i e32 = _mm_unpacklo_epi64(_mm_shuffle_epi32(e0, _MM_SHUFFLE(3, 3, 2, 0)), _mm_shuffle_epi32(e1, _MM_SHUFFLE(3, 3, 2, 0)));
        __m256d e = _mm256_cvtepi32_pd(_mm_sub_epi32(e32, _mm_set1_epi32(1023)));
        __m256d m = _mm256_castsi256_pd(_mm256_insertf128_si256(_mm256_castsi128_si256(m0), m1, 1));
        const __m256d onep = _mm256_set1_pd(1.0);
        __m256d f = _mm256_div_pd(_mm256_sub_pd(m, onep), _mm256_add_pd(m, onep)), z = _mm256_mul_pd(f, f);
        __m256d p = _mm256_set1_pd(c[0]);
        for (int i = 1; i < 8; ++i) p = _mm256_add_pd(_mm256_mul_pd(p, z), _mm256_set1_pd(c[i]));
        return _mm256_add_pd(_mm256_mul_pd(e, _mm256_set1_pd(kLn2)), _mm256_mul_pd(f, p));
    }
};

}  // namespace zams::elem32
