// e^x in double precision for |x| < 708 by a table of 2^(j/128):
// x = (128 k + j) ln2/128 + r with |r| <= ln2/256, e^x = 2^k 2^(j/128) e^r.
// n = 128 k + j is x 128/ln2 rounded to nearest (the 1.5 2^52 shift); n
// times the high part of ln2/128 is exact and so is x minus it, so r carries
// only the rounding of the low part's product. e^r - 1 is its Taylor
// polynomial to r^5 (the rest is below 2^-62 relative), and the table entry
// is hi + lo to 2^-106, so the sum T_hi + (T_hi p + T_lo) is within a
// little over half an ulp; the product with 2^k is exact, as the result is
// normal on this range. The scalar and vector forms run the same
// operations, so they give the same bits.
#pragma once

#include <immintrin.h>

#include <cstdint>

#include "../common/num/elem.h"
#include "exp64_table.h"

namespace zams::exp64 {

constexpr double kShift = 0x1.8p52;
constexpr double kC2 = 1.0 / 2, kC3 = 1.0 / 6, kC4 = 1.0 / 24, kC5 = 1.0 / 120;
constexpr double kRange = 708.0;

inline bool covered(double x) { return (x < 0 ? -x : x) < kRange; }

inline double scalar(double x) {
    double nd = (x * kInvStep + kShift) - kShift;
    int n = int(nd);
    double r = (x - nd * kStepHi) - nd * kStepLo;
    double r2 = r * r;
    double p = (r + r2 * (kC2 + r * kC3)) + (r2 * r2) * (kC4 + r * kC5);
    const double* t = kTable[n & 127];
    double y = t[0] + (t[0] * p + t[1]);
    return y * from_bits(uint64_t(uint32_t((n >> kBits) + 1023)) << 52);
}

inline bool covered(__m256d x) {
    __m256d ax = _mm256_andnot_pd(_mm256_set1_pd(-0.0), x);
    return _mm256_movemask_pd(_mm256_cmp_pd(ax, _mm256_set1_pd(kRange), _CMP_LT_OQ)) == 0xf;
}

inline __m256d vector(__m256d x) {
    auto c = [](double v) { return _mm256_set1_pd(v); };
    __m256d nd = _mm256_sub_pd(_mm256_add_pd(_mm256_mul_pd(x, c(kInvStep)), c(kShift)), c(kShift));
    __m128i n = _mm256_cvttpd_epi32(nd);
    __m256d r = _mm256_sub_pd(_mm256_sub_pd(x, _mm256_mul_pd(nd, c(kStepHi))), _mm256_mul_pd(nd, c(kStepLo)));
    __m256d r2 = _mm256_mul_pd(r, r);
    __m256d p = _mm256_add_pd(_mm256_add_pd(r, _mm256_mul_pd(r2, _mm256_add_pd(c(kC2), _mm256_mul_pd(r, c(kC3))))),
                              _mm256_mul_pd(_mm256_mul_pd(r2, r2), _mm256_add_pd(c(kC4), _mm256_mul_pd(r, c(kC5)))));
    // the four (hi, lo) entries, then hi and lo across the lanes
    __m128i j = _mm_and_si128(n, _mm_set1_epi32(127));
    __m128d e0 = _mm_load_pd(kTable[_mm_extract_epi32(j, 0)]), e1 = _mm_load_pd(kTable[_mm_extract_epi32(j, 1)]);
    __m128d e2 = _mm_load_pd(kTable[_mm_extract_epi32(j, 2)]), e3 = _mm_load_pd(kTable[_mm_extract_epi32(j, 3)]);
    __m256d a = _mm256_insertf128_pd(_mm256_castpd128_pd256(e0), e2, 1);
    __m256d b = _mm256_insertf128_pd(_mm256_castpd128_pd256(e1), e3, 1);
    __m256d hi = _mm256_unpacklo_pd(a, b), lo = _mm256_unpackhi_pd(a, b);
    __m256d y = _mm256_add_pd(hi, _mm256_add_pd(_mm256_mul_pd(hi, p), lo));
    __m128i e = _mm_slli_epi32(_mm_add_epi32(_mm_srai_epi32(n, kBits), _mm_set1_epi32(1023)), 20);
    __m128i zero = _mm_setzero_si128();
    __m256i scale = _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_unpacklo_epi32(zero, e)), _mm_unpackhi_epi32(zero, e), 1);
    return _mm256_mul_pd(y, _mm256_castsi256_pd(scale));
}

}  // namespace zams::exp64
