// Four-lane forms of the double kernels of elem_kernel.h: the same
// operations in the same order, so each lane gives the bits the scalar
// kernel gives. The branches of the scalar code become per-lane selections;
// each kernel states the arguments it covers, and a caller sends a group
// holding any other argument to the scalar kernel.
#pragma once

#include <immintrin.h>

#include "elem_kernel.h"

namespace zams::elemv {

inline __m256d abs_pd(__m256d x) { return _mm256_andnot_pd(_mm256_set1_pd(-0.0), x); }
inline __m256d c(double v) { return _mm256_set1_pd(v); }

// e^x for |x| < 708: no overflow, no subnormal result, and the scaled
// result needs no second step; below 2^-28 the result is 1 + x.
struct Exp {
    static bool covered(__m256d x) {
        return _mm256_movemask_pd(_mm256_cmp_pd(abs_pd(x), c(708.0), _CMP_LT_OQ)) == 0xf;
    }
    static __m256d eval(__m256d x) {
        constexpr double P1 = 1.66666666666666019037e-01, P2 = -2.77777777770155933842e-03,
                         P3 = 6.61375632143793436117e-05, P4 = -1.65339022054652515390e-06,
                         P5 = 4.13813679705723846039e-08;
        constexpr double kInvLn2 = 1.44269504088896338700e+00;
        __m256d ax = abs_pd(x);
        // k = 0 while the high word of |x| is at most that of ln2 / 2;
        // otherwise x / ln2 rounded half away from zero (this is also 1 or
        // -1 on the middle range the scalar kernel treats apart)
        __m256d half = _mm256_or_pd(c(0.5), _mm256_and_pd(x, c(-0.0)));
        __m256d t = _mm256_cvtepi32_pd(_mm256_cvttpd_epi32(_mm256_add_pd(_mm256_mul_pd(c(kInvLn2), x), half)));
        t = _mm256_andnot_pd(_mm256_cmp_pd(ax, c(elem::from_bits(0x3fd62e4300000000ull)), _CMP_LT_OQ), t);
        __m256d hi = _mm256_sub_pd(x, _mm256_mul_pd(t, c(elem::kLn2Hi)));
        __m256d lo = _mm256_mul_pd(t, c(elem::kLn2Lo));
        __m256d r = _mm256_sub_pd(hi, lo);
        __m256d rr = _mm256_mul_pd(r, r);
        __m256d p = _mm256_add_pd(c(P4), _mm256_mul_pd(rr, c(P5)));
        p = _mm256_add_pd(c(P3), _mm256_mul_pd(rr, p));
        p = _mm256_add_pd(c(P2), _mm256_mul_pd(rr, p));
        p = _mm256_add_pd(c(P1), _mm256_mul_pd(rr, p));
        __m256d cc = _mm256_sub_pd(r, _mm256_mul_pd(rr, p));
        // with k = 0, hi = r and lo = 0, and this is the scalar k = 0 form
        __m256d q = _mm256_div_pd(_mm256_mul_pd(r, cc), _mm256_sub_pd(c(2.0), cc));
        __m256d y = _mm256_sub_pd(c(1.0), _mm256_sub_pd(_mm256_sub_pd(lo, q), hi));
        // y 2^k, exact: 2^k is normal for the k of this range, as is the product
        __m128i e = _mm_slli_epi32(_mm_add_epi32(_mm256_cvttpd_epi32(t), _mm_set1_epi32(1023)), 20);
        __m128i zero = _mm_setzero_si128();
        __m256i scale = _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_unpacklo_epi32(zero, e)), _mm_unpackhi_epi32(zero, e), 1);
        y = _mm256_mul_pd(y, _mm256_castsi256_pd(scale));
        return _mm256_blendv_pd(y, _mm256_add_pd(c(1.0), x), _mm256_cmp_pd(ax, c(0x1p-28), _CMP_LT_OQ));
    }
};

// atan x for |x| < 2^66 (NaN excluded). The scalar breakpoints select per
// lane the reduction x' = (a|x| - b) / (a + b|x|), which is |x| itself, (2|x| - 1) / (2 + |x|),
// (|x| - 1) / (|x| + 1), (|x| - 1.5) / (1 + 1.5|x|) or -1 / |x|, and the
// parts of atan at the breakpoint (zero for the first); the sign of x is
// put back at the end, as the scalar kernel's odd symmetry does.
struct Atan {
    static bool covered(__m256d x) {
        return _mm256_movemask_pd(_mm256_cmp_pd(abs_pd(x), c(0x1p66), _CMP_LT_OQ)) == 0xf;
    }
    static __m256d eval(__m256d x) {
        constexpr double aT[] = {3.33333333333329318027e-01,  -1.99999999998764832476e-01, 1.42857142725034663711e-01,
                                 -1.11111104054623557880e-01, 9.09088713343650656196e-02,  -7.69187620504482999495e-02,
                                 6.66107313738753120669e-02,  -5.83357013379057348645e-02, 4.97687799461593236017e-02,
                                 -3.65315727442169155270e-02, 1.62858201153657823623e-02};
        __m256d sign = _mm256_and_pd(x, c(-0.0));
        __m256d ax = _mm256_xor_pd(x, sign);
        __m256d m0 = _mm256_cmp_pd(ax, c(0.4375), _CMP_GE_OQ), m1 = _mm256_cmp_pd(ax, c(0.6875), _CMP_GE_OQ),
                m2 = _mm256_cmp_pd(ax, c(1.1875), _CMP_GE_OQ), m3 = _mm256_cmp_pd(ax, c(2.4375), _CMP_GE_OQ);
        __m256d a = _mm256_blendv_pd(_mm256_blendv_pd(_mm256_blendv_pd(c(1.0), c(2.0), m0), c(1.0), m1), c(0.0), m3);
        __m256d b = _mm256_blendv_pd(_mm256_blendv_pd(_mm256_and_pd(m0, c(1.0)), c(1.5), m2), c(1.0), m3);
        __m256d hi = _mm256_and_pd(m0, c(4.63647609000806093515e-01));
        hi = _mm256_blendv_pd(hi, c(7.85398163397448278999e-01), m1);
        hi = _mm256_blendv_pd(hi, c(9.82793723247329054082e-01), m2);
        hi = _mm256_blendv_pd(hi, c(1.57079632679489655800e+00), m3);
        __m256d lo = _mm256_and_pd(m0, c(2.26987774529616870924e-17));
        lo = _mm256_blendv_pd(lo, c(3.06161699786838301793e-17), m1);
        lo = _mm256_blendv_pd(lo, c(1.39033110312309984516e-17), m2);
        lo = _mm256_blendv_pd(lo, c(6.12323399573676603587e-17), m3);
        __m256d v = _mm256_div_pd(_mm256_sub_pd(_mm256_mul_pd(a, ax), b), _mm256_add_pd(a, _mm256_mul_pd(b, ax)));
        __m256d z = _mm256_mul_pd(v, v), w = _mm256_mul_pd(z, z);
        __m256d s1 = _mm256_add_pd(c(aT[8]), _mm256_mul_pd(w, c(aT[10])));
        s1 = _mm256_add_pd(c(aT[6]), _mm256_mul_pd(w, s1));
        s1 = _mm256_add_pd(c(aT[4]), _mm256_mul_pd(w, s1));
        s1 = _mm256_add_pd(c(aT[2]), _mm256_mul_pd(w, s1));
        s1 = _mm256_mul_pd(z, _mm256_add_pd(c(aT[0]), _mm256_mul_pd(w, s1)));
        __m256d s2 = _mm256_add_pd(c(aT[7]), _mm256_mul_pd(w, c(aT[9])));
        s2 = _mm256_add_pd(c(aT[5]), _mm256_mul_pd(w, s2));
        s2 = _mm256_add_pd(c(aT[3]), _mm256_mul_pd(w, s2));
        s2 = _mm256_mul_pd(w, _mm256_add_pd(c(aT[1]), _mm256_mul_pd(w, s2)));
        __m256d r = _mm256_sub_pd(hi, _mm256_sub_pd(_mm256_sub_pd(_mm256_mul_pd(v, _mm256_add_pd(s1, s2)), lo), v));
        return _mm256_xor_pd(r, sign);
    }
};

}  // namespace zams::elemv
