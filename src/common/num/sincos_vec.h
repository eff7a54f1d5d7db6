// Four-lane form of sincos_dd::sincos for 2^-27 <= |x| < 2^19: the same
// operations in the same order, so each lane gives the scalar bits. The
// quarter-turn choice of the scalar code becomes per-lane selection; phases
// outside that range go to the scalar code (a caller tests covered()).
#pragma once

#include <immintrin.h>

#include "sincos.h"

namespace zams::sincos_vec {

using dd::c;
using dd::fast_two_sum;
using dd::neg;
using dd::two_prod;
using dd::two_sum;
using dd::V2;

template <size_t N> inline __m256d horner(const double (&k)[N], __m256d z) {
    __m256d p = c(k[N - 1]);
    for (size_t i = N - 1; i-- > 0;) p = _mm256_add_pd(_mm256_mul_pd(p, z), c(k[i]));
    return p;
}

inline bool covered(__m256d x) {
    __m256d ax = _mm256_andnot_pd(c(-0.0), x);
    __m256d in = _mm256_and_pd(_mm256_cmp_pd(ax, c(0x1p-27), _CMP_GE_OQ), _mm256_cmp_pd(ax, c(0x1p19), _CMP_LT_OQ));
    return _mm256_movemask_pd(in) == 0xf;
}

// 64-bit lane masks from bit `b` of four 32-bit integers
inline __m256d lane_mask(__m128i q, int b) {
    __m128i bit = _mm_set1_epi32(b);
    __m128i m = _mm_cmpeq_epi32(_mm_and_si128(q, bit), bit);
    __m256i w = _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_unpacklo_epi32(m, m)), _mm_unpackhi_epi32(m, m), 1);
    return _mm256_castsi256_pd(w);
}

inline void sincos(__m256d x, V2* s, V2* co) {
    using namespace sincos_dd;
    __m256d sign = _mm256_and_pd(x, c(-0.0));
    __m256d ax = _mm256_xor_pd(x, sign);
    // x = k pi/2 + r; k = 0 and r = x up to pi/4, where the steps below
    // leave x as it is
    __m256d kd = _mm256_cvtepi32_pd(_mm256_cvttpd_epi32(_mm256_add_pd(_mm256_mul_pd(ax, c(kTwoOverPi)), c(0.5))));
    kd = _mm256_andnot_pd(_mm256_cmp_pd(ax, c(0x1.921fb54442d18p-1), _CMP_LE_OQ), kd);
    __m128i q = _mm256_cvttpd_epi32(kd);
    V2 r = two_sum(_mm256_sub_pd(ax, _mm256_mul_pd(kd, c(kPio2Parts[0]))), neg(_mm256_mul_pd(kd, c(kPio2Parts[1]))));
    V2 t2 = two_sum(r.hi, neg(_mm256_mul_pd(kd, c(kPio2Parts[2]))));
    __m256d lo = _mm256_sub_pd(_mm256_add_pd(r.lo, t2.lo), _mm256_mul_pd(kd, c(kPio2Parts[3])));
    r = fast_two_sum(t2.hi, lo);

    V2 z = two_prod(r.hi, r.hi);
    z.lo = _mm256_add_pd(z.lo, _mm256_mul_pd(_mm256_mul_pd(c(2.0), r.hi), r.lo));
    V2 r3 = two_prod(r.hi, z.hi);
    r3.lo = _mm256_add_pd(r3.lo, _mm256_add_pd(_mm256_mul_pd(r.hi, z.lo), _mm256_mul_pd(r.lo, z.hi)));
    V2 t = two_prod(r3.hi, c(kSixthHi));
    t.lo = _mm256_add_pd(t.lo, _mm256_add_pd(_mm256_mul_pd(r3.lo, c(kSixthHi)), _mm256_mul_pd(r3.hi, c(kSixthLo))));
    V2 sv = two_sum(r.hi, neg(t.hi));
    sv.lo = _mm256_add_pd(sv.lo, _mm256_add_pd(_mm256_sub_pd(r.lo, t.lo),
                                               _mm256_mul_pd(_mm256_mul_pd(r3.hi, z.hi), horner(kSin, z.hi))));
    sv = fast_two_sum(sv.hi, sv.lo);
    V2 cv = fast_two_sum(c(1.0), neg(_mm256_mul_pd(c(0.5), z.hi)));
    cv.lo = _mm256_add_pd(cv.lo, _mm256_add_pd(_mm256_mul_pd(c(-0.5), z.lo),
                                               _mm256_mul_pd(_mm256_mul_pd(z.hi, z.hi), horner(kCos, z.hi))));
    cv = fast_two_sum(cv.hi, cv.lo);

    // quarter turn q: sin = sv, cv, -sv, -cv; cos = cv, -sv, -cv, sv
    __m256d odd = lane_mask(q, 1), two = lane_mask(q, 2);
    __m256d sneg = _mm256_xor_pd(_mm256_and_pd(two, c(-0.0)), sign);
    __m256d cneg = _mm256_and_pd(_mm256_xor_pd(odd, two), c(-0.0));
    s->hi = _mm256_xor_pd(_mm256_blendv_pd(sv.hi, cv.hi, odd), sneg);
    s->lo = _mm256_xor_pd(_mm256_blendv_pd(sv.lo, cv.lo, odd), sneg);
    co->hi = _mm256_xor_pd(_mm256_blendv_pd(cv.hi, sv.hi, odd), cneg);
    co->lo = _mm256_xor_pd(_mm256_blendv_pd(cv.lo, sv.lo, odd), cneg);
}

// m (hi + lo) rounded once, as sincos_dd::mul on its common path; `ok`
// clears a lane where the scalar code takes another path (magnitude not
// below 2^990 or NaN, product below 2^-960 or zero)
inline __m256d mul(__m256d m, V2 v, __m256d* ok) {
    __m256d p = _mm256_mul_pd(m, v.hi);
    __m256d am = _mm256_andnot_pd(c(-0.0), m), ap = _mm256_andnot_pd(c(-0.0), p);
    *ok = _mm256_and_pd(*ok, _mm256_and_pd(_mm256_cmp_pd(am, c(0x1p990), _CMP_LT_OQ), _mm256_cmp_pd(ap, c(0x1p-960), _CMP_GE_OQ)));
    V2 e = two_prod(m, v.hi);
    return _mm256_add_pd(e.hi, _mm256_add_pd(e.lo, _mm256_mul_pd(m, v.lo)));
}

}  // namespace zams::sincos_vec
