// Four-lane form of the double atan kernel of common/num/elem.h: the same
// operations in the same order, so each lane gives the bits the scalar
// kernel gives. The branches of the scalar code become per-lane selections;
// each kernel states the arguments it covers, and a caller sends a group
// holding any other argument to the scalar kernel.
#pragma once

#include <immintrin.h>

#include "../common/num/elem.h"

namespace zams::elemv {

inline __m256d abs_pd(__m256d x) { return _mm256_andnot_pd(_mm256_set1_pd(-0.0), x); }
inline __m256d c(double v) { return _mm256_set1_pd(v); }

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
