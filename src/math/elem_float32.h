// Single-precision kernels of Exp (in single precision with one exact
// split), Ln and Arctan (in double, rounded once), each within an ulp; scalar
// and vector steps run the same operations and give the same bits.
// Arguments a kernel does not cover (non-finite, extremes, non-positive for
// ln) go to the double kernels of common/num/elem.h.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <cstring>

#include "../common/num/elem.h"

namespace zams::elem32 {

// e^x = 2^k e^r for -86 < x < 88, eight elements at a time in single
// precision: k = round(x log2 e), r = x - k ln2 as rh + rl, where rh = x -
// k C1 is exact (C1 holds 17 bits of ln2 and |k| < 2^7; x and k C1 are within
// a factor of two) and rl = -k C2 carries the rest. Then
//   e^r = (1 + rh) + rl + r^2 (1/2 + r P(r)),
// with 1 + rh split exactly into S + e, so that the only large rounding is
// the last addition; P is a degree-4 minimax fit (tools/fit_elem32.py,
// relative error of e^r below 2^-30.5 with its single-precision
// coefficients). The sum is within 0.8 ulp, and the scaling by 2^k is exact
// because every result in this range is normal.
struct ExpF {
    static constexpr float kLog2e = 0x1.715476p+0f, kC1 = 0x1.62e4p-1f, kC2 = 0x1.7f7d1cp-20f;
    static constexpr float c[] = {0x1.55553cp-3f, 0x1.5554eep-5f, 0x1.11376ap-7f, 0x1.6d466cp-10f, 0x1.6c3164p-13f};
    static constexpr float kLow = -86.0f, kHigh = 88.0f;
    static bool covered(float x) { return x > kLow && x < kHigh; }
    static float scalar(float x) {
        float k = _mm_cvtss_f32(_mm_round_ss(_mm_setzero_ps(), _mm_set_ss(x * kLog2e), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
        float rh = x - k * kC1, rl = -(k * kC2), r = rh + rl;
        float p = c[4];
        for (int i = 3; i >= 0; --i) p = p * r + c[i];
        float q = (r * r) * (0.5f + r * p);
        float big = 1.0f + rh, e = rh - (big - 1.0f);
        float y = big + (e + (rl + q));
        int32_t scale = int32_t(k * 8388608.0f + 1065353216.0f);  // (k + 127) 2^23: the bits of 2^k
        return y * float_from_bits(uint32_t(scale));
    }
    static bool covered(__m256 x) {
        __m256 in = _mm256_and_ps(_mm256_cmp_ps(x, _mm256_set1_ps(kLow), _CMP_GT_OQ),
                                  _mm256_cmp_ps(x, _mm256_set1_ps(kHigh), _CMP_LT_OQ));
        return _mm256_movemask_ps(in) == 0xff;
    }
    static __m256 vector(__m256 x) {
        __m256 k = _mm256_round_ps(_mm256_mul_ps(x, _mm256_set1_ps(kLog2e)), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        __m256 rh = _mm256_sub_ps(x, _mm256_mul_ps(k, _mm256_set1_ps(kC1)));
        __m256 rl = _mm256_xor_ps(_mm256_mul_ps(k, _mm256_set1_ps(kC2)), _mm256_set1_ps(-0.0f));
        __m256 r = _mm256_add_ps(rh, rl);
        __m256 p = _mm256_set1_ps(c[4]);
        for (int i = 3; i >= 0; --i) p = _mm256_add_ps(_mm256_mul_ps(p, r), _mm256_set1_ps(c[i]));
        __m256 q = _mm256_mul_ps(_mm256_mul_ps(r, r), _mm256_add_ps(_mm256_set1_ps(0.5f), _mm256_mul_ps(r, p)));
        const __m256 one = _mm256_set1_ps(1.0f);
        __m256 big = _mm256_add_ps(one, rh), e = _mm256_sub_ps(rh, _mm256_sub_ps(big, one));
        __m256 y = _mm256_add_ps(big, _mm256_add_ps(e, _mm256_add_ps(rl, q)));
        __m256i scale = _mm256_cvtps_epi32(_mm256_add_ps(_mm256_mul_ps(k, _mm256_set1_ps(8388608.0f)),
                                                         _mm256_set1_ps(1065353216.0f)));
        return _mm256_mul_ps(y, _mm256_castsi256_ps(scale));
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
        uint64_t b = to_bits(x);
        // m from the mantissa, moved to [sqrt(2)/2, sqrt(2)) by the exponent
        uint64_t adj = ((b & 0x000fffffffffffffull) + 0x00095f619980c433ull) & 0x0010000000000000ull;
        double m = from_bits((b & 0x000fffffffffffffull) | (0x3ff0000000000000ull - adj));
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

// atan x for finite single-precision x, in double over four lanes: with a =
// |x|, a below tan(pi/8) is kept, a up to tan(3pi/8) becomes (a - 1) / (a + 1)
// (atan a = pi/4 + atan v) and a beyond becomes -1 / a (pi/2 + atan v), all
// three as (alpha a - beta) / (alpha + beta a) with one division, so that
// |v| <= tan(pi/8). atan v = v + v^3 P(v^2), P a degree-4 minimax fit with
// relative error below 2^-30.4 (tools/fit_elem32.py); the sum with the
// breakpoint's angle loses nothing relative to the result, which is at
// least |atan v|, so the single-precision result is within 0.52 ulp.
struct AtanD {
    static constexpr double kT1 = 0.41421356237309503, kT2 = 2.414213562373095;
    static constexpr double kPio4 = 0x1.921fb54442d18p-1, kPio2 = 0x1.921fb54442d18p+0;
    static constexpr double c[] = {-0x1.f1d95ecb00af2p-5, 0x1.b1e86530c8370p-4, -0x1.23b4e4b1e0b33p-3,
                                   0x1.999193048c161p-3, -0x1.55554922210f2p-2};
    static constexpr double kLow = -0x1p128, kHigh = 0x1p128;  // every finite single-precision value
    static bool covered(double x) { return x > kLow && x < kHigh; }
    static double scalar(double x) {
        double a = x < 0 ? -x : x;
        double alpha = a >= kT2 ? 0.0 : 1.0, beta = a >= kT1 ? 1.0 : 0.0;
        double hi = a >= kT2 ? kPio2 : a >= kT1 ? kPio4 : 0.0;
        double v = (a * alpha - beta) / (alpha + beta * a), z = v * v;
        double p = c[0];
        for (int i = 1; i < 5; ++i) p = p * z + c[i];
        double r = hi + (v + (v * z) * p);
        return to_bits(x) >> 63 ? -r : r;  // -0 keeps its sign
    }
    static __m256d vector(__m256d x) {
        __m256d sign = _mm256_and_pd(x, _mm256_set1_pd(-0.0)), a = _mm256_xor_pd(x, sign);
        __m256d m1 = _mm256_cmp_pd(a, _mm256_set1_pd(kT1), _CMP_GE_OQ), m2 = _mm256_cmp_pd(a, _mm256_set1_pd(kT2), _CMP_GE_OQ);
        __m256d alpha = _mm256_andnot_pd(m2, _mm256_set1_pd(1.0)), beta = _mm256_and_pd(m1, _mm256_set1_pd(1.0));
        __m256d hi = _mm256_blendv_pd(_mm256_and_pd(m1, _mm256_set1_pd(kPio4)), _mm256_set1_pd(kPio2), m2);
        __m256d v = _mm256_div_pd(_mm256_sub_pd(_mm256_mul_pd(a, alpha), beta), _mm256_add_pd(alpha, _mm256_mul_pd(beta, a)));
        __m256d z = _mm256_mul_pd(v, v);
        __m256d p = _mm256_set1_pd(c[0]);
        for (int i = 1; i < 5; ++i) p = _mm256_add_pd(_mm256_mul_pd(p, z), _mm256_set1_pd(c[i]));
        __m256d r = _mm256_add_pd(hi, _mm256_add_pd(v, _mm256_mul_pd(_mm256_mul_pd(v, z), p)));
        return _mm256_xor_pd(r, sign);
    }
};

}  // namespace zams::elem32
