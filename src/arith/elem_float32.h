// Single-precision Exp and Ln with their polynomials in double precision.
// Each result is formed in double well inside a single-precision ulp and
// rounded once, so it is within an ulp; scalar and vector steps run the same
// operations and give the same bits. Arguments the reduction does not cover
// (non-finite, extremes, non-positive for ln) go to the scalar kernels of
// elem_kernel.h.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <cstring>

#include "elem_kernel.h"

namespace zams::elem32 {

// e^x = 2^k e^r for -86 < x < 88, eight elements at a time: k =
// round(x log2 e) in single precision, r = x - k ln2 and e^r in double over
// two halves of four (r slightly beyond ln2 / 2 when x log2 e rounds
// across a half), e^r rounded once to single precision and scaled by 2^k,
// which is exact because every result in this range is normal. The
// polynomial is a degree-6 minimax fit of e^r on |r| <= 0.35 with relative
// error below 2^-28.9 (tools/fit_exp32.py), so the single-precision result
// is within 0.53 ulp.
struct ExpF {
    static constexpr float kLog2e = 1.44269504f;
    static constexpr double kLn2 = 0x1.62e42fefa39efp-1;
    static constexpr double c[] = {0x1.6ab2932933413p-10, 0x1.1273ec6dd0d73p-7, 0x1.5558bbc7ce567p-5,
                                   0x1.5553fd526cf12p-3,  0x1.fffffa5cd830dp-2, 0x1.000000a560ab0p+0,
                                   0x1.0000000292f69p+0};
    static constexpr float kLow = -86.0f, kHigh = 88.0f;
    static bool covered(float x) { return x > kLow && x < kHigh; }
    static double poly(double r) {
        double p = c[0];
        for (int i = 1; i < 7; ++i) p = p * r + c[i];
        return p;
    }
    static float scalar(float x) {
        float k = _mm_cvtss_f32(_mm_round_ss(_mm_setzero_ps(), _mm_set_ss(x * kLog2e), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        double p = poly(double(x) - double(k) * kLn2);
        int32_t scale = int32_t(k * 8388608.0f + 1065353216.0f);  // (k + 127) 2^23: the bits of 2^k
        float s;
        std::memcpy(&s, &scale, 4);
        return float(p) * s;
    }
    static __m128 half(__m128 x, __m128 k) {
        __m256d r = _mm256_sub_pd(_mm256_cvtps_pd(x), _mm256_mul_pd(_mm256_cvtps_pd(k), _mm256_set1_pd(kLn2)));
        __m256d p = _mm256_set1_pd(c[0]);
        for (int i = 1; i < 7; ++i) p = _mm256_add_pd(_mm256_mul_pd(p, r), _mm256_set1_pd(c[i]));
        return _mm256_cvtpd_ps(p);
    }
    static bool covered(__m256 x) {
        __m256 in = _mm256_and_ps(_mm256_cmp_ps(x, _mm256_set1_ps(kLow), _CMP_GT_OQ),
                                  _mm256_cmp_ps(x, _mm256_set1_ps(kHigh), _CMP_LT_OQ));
        return _mm256_movemask_ps(in) == 0xff;
    }
    static __m256 vector(__m256 x) {
        __m256 k = _mm256_round_ps(_mm256_mul_ps(x, _mm256_set1_ps(kLog2e)), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        __m128 lo = half(_mm256_castps256_ps128(x), _mm256_castps256_ps128(k));
        __m128 hi = half(_mm256_extractf128_ps(x, 1), _mm256_extractf128_ps(k, 1));
        __m256 p = _mm256_insertf128_ps(_mm256_castps128_ps256(lo), hi, 1);
        __m256i scale = _mm256_cvtps_epi32(_mm256_add_ps(_mm256_mul_ps(k, _mm256_set1_ps(8388608.0f)),
                                                         _mm256_set1_ps(1065353216.0f)));
        return _mm256_mul_ps(p, _mm256_castsi256_ps(scale));
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
