// Cube root of double-precision vectors, within an ulp: Newton steps in
// double, then one last step whose residual t^3 - m is formed exactly.
#include "../common/check.h"
#include "../common/types.h"
#include "../common/loop.h"
#include "../common/num/bits.h"
#include "../common/num/dd.h"

namespace zams {

namespace {

using dd::two_prod;

// The cubic through cbrt at the four Chebyshev nodes of [1, 8]; its
// relative error on [1, 8) is below 1.32%.
constexpr double kGuess[] = {0.001627495338033107, -0.03402605365290508, 0.32883645446314835, 0.716734641860441};
inline double guess(double m) { return ((kGuess[0] * m + kGuess[1]) * m + kGuess[2]) * m + kGuess[3]; }

inline double cbrt_d(double x) {
    if (x == 0 || x != x || x - x != 0) return x;  // zeros, NaN, infinities
    bool neg = x < 0;
    if (neg) x = -x;
    int adj = 0;
    if (x < 0x1p-1022) x *= 0x1p54, adj = -18;  // subnormal: scale by 2^54 = (2^18)^3
    int e = int(to_bits(x) >> 52) - 1023;
    int q = e >= 0 ? e / 3 : -((-e + 2) / 3);  // floor(e / 3)
    double m = from_bits(to_bits(x) - (uint64_t(int64_t(3 * q)) << 52));  // in [1, 8)
    // a cubic guess within 1.4%, then three Newton steps (the relative error
    // squares at each: 1.7e-4, 2.9e-8, 1e-15)
    double t = guess(m);
    for (int k = 0; k < 3; ++k) t -= (t * t * t - m) / (3.0 * t * t);
    // t^3 - m with the error of t^3 kept: the final step is accurate to far
    // below an ulp, and the subtraction below rounds once
    dd::Pair t2 = two_prod(t, t);
    dd::Pair t3 = two_prod(t, t2.hi);
    double res = (t3.hi - m) + (t3.lo + t * t2.lo);
    double r = t - res / (3.0 * t2.hi);
    r = from_bits(to_bits(r) + (uint64_t(int64_t(q + adj)) << 52));
    return neg ? -r : r;
}

// Four normal numbers or zeros with the operations of cbrt_d lane by lane,
// so with its bits (a zero lane computes nonsense and takes x back); false
// leaves a group with a subnormal, infinite or NaN element to the element
// steps.
inline bool cbrt4(const double* src, double* dst) {
    using dd::c;
    __m256d x = _mm256_loadu_pd(src);
    __m256d sign = _mm256_and_pd(x, c(-0.0)), ax = _mm256_xor_pd(x, sign);
    __m256d zero = _mm256_cmp_pd(ax, _mm256_setzero_pd(), _CMP_EQ_OQ);
    __m256d in = _mm256_or_pd(zero, _mm256_and_pd(_mm256_cmp_pd(ax, c(0x1p-1022), _CMP_GE_OQ),
                                                  _mm256_cmp_pd(ax, c(__builtin_inf()), _CMP_LT_OQ)));
    if (_mm256_movemask_pd(in) != 0xf) return false;
    __m256i b = _mm256_castpd_si256(ax);
    __m128i b0 = _mm256_castsi256_si128(b), b1 = _mm256_extractf128_si256(b, 1);
    __m128i e0 = _mm_srli_epi64(b0, 52), e1 = _mm_srli_epi64(b1, 52);
    __m128i e = _mm_unpacklo_epi64(_mm_shuffle_epi32(e0, _MM_SHUFFLE(3, 3, 2, 0)), _mm_shuffle_epi32(e1, _MM_SHUFFLE(3, 3, 2, 0)));
    __m256d ed = _mm256_cvtepi32_pd(_mm_sub_epi32(e, _mm_set1_epi32(1023)));
    // floor(e / 3): (e + 1/2) / 3 is at least 1/6 from an integer, so the
    // rounded product floors the same way
    __m128i q = _mm256_cvttpd_epi32(_mm256_floor_pd(_mm256_mul_pd(_mm256_add_pd(ed, c(0.5)), c(1.0 / 3.0))));
    __m128i q3 = _mm_add_epi32(q, _mm_add_epi32(q, q));
    __m128i s0 = _mm_slli_epi64(_mm_cvtepi32_epi64(q3), 52), s1 = _mm_slli_epi64(_mm_cvtepi32_epi64(_mm_srli_si128(q3, 8)), 52);
    __m256d m = _mm256_castsi256_pd(
        _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_sub_epi64(b0, s0)), _mm_sub_epi64(b1, s1), 1));
    __m256d t = c(kGuess[0]);
    for (int k = 1; k < 4; ++k) t = _mm256_add_pd(_mm256_mul_pd(t, m), c(kGuess[k]));
    for (int k = 0; k < 3; ++k) {
        __m256d f = _mm256_sub_pd(_mm256_mul_pd(_mm256_mul_pd(t, t), t), m);
        t = _mm256_sub_pd(t, _mm256_div_pd(f, _mm256_mul_pd(_mm256_mul_pd(c(3.0), t), t)));
    }
    dd::V2 t2 = two_prod(t, t), t3 = two_prod(t, t2.hi);
    __m256d res = _mm256_add_pd(_mm256_sub_pd(t3.hi, m), _mm256_add_pd(t3.lo, _mm256_mul_pd(t, t2.lo)));
    __m256d r = _mm256_sub_pd(t, _mm256_div_pd(res, _mm256_mul_pd(c(3.0), t2.hi)));
    __m256i rb = _mm256_castpd_si256(r);
    __m128i r0 = _mm_add_epi64(_mm256_castsi256_si128(rb), _mm_slli_epi64(_mm_cvtepi32_epi64(q), 52));
    __m128i r1 = _mm_add_epi64(_mm256_extractf128_si256(rb, 1), _mm_slli_epi64(_mm_cvtepi32_epi64(_mm_srli_si128(q, 8)), 52));
    r = _mm256_castsi256_pd(_mm256_insertf128_si256(_mm256_castsi128_si256(r0), r1, 1));
    _mm256_storeu_pd(dst, _mm256_blendv_pd(_mm256_xor_pd(r, sign), x, zero));
    return true;
}

zamStatus cubrt_64f(const Zam64f* src, Zam64f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    auto one = [&](int i) { dst[i] = cbrt_d(src[i]); };
    for_each_block<4>(dst, len, one, [&](int i) {
        if (!cbrt4(src + i, dst + i))
            for (int j = i; j < i + 4; ++j) one(j);
    });
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsCubrt_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) { return zams::cubrt_64f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsCubrt_64f_I)(Zam64f* pSrcDst, int len) { return zams::cubrt_64f(pSrcDst, pSrcDst, len); }
