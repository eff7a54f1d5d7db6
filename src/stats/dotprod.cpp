// Dot products sum(a[n] b[n]) of real and complex vectors, no conjugation.
//
// Floating products accumulate in double precision in four lanes (lane =
// index modulo 4, fixed combination order); integer products exactly, in
// 64 bits where they cannot overflow and in 128 bits otherwise.
#include <immintrin.h>

#include <cstdint>
#include <type_traits>

#include "../common/check.h"
#include "wide.h"

namespace zams::red {
namespace {

template <class T> inline constexpr bool cplx = is_complex_v<T>;
template <class T> inline double re_of(const T& v) {
    if constexpr (cplx<T>) return double(v.re);
    else return double(v);
}
template <class T> inline double im_of(const T& v) {
    if constexpr (cplx<T>) return double(v.im);
    else return 0.0;
}

// ------------------------------------------------------------ floating

// The real 32f kernel: products of floats are exact in double.
double dot_32f(const float* a, const float* b, int n) {
    __m256d s0 = _mm256_setzero_pd(), s1 = s0, s2 = s0, s3 = s0;
    int i = 0;
    auto prod = [&](int k) { return _mm256_mul_pd(_mm256_cvtps_pd(_mm_loadu_ps(a + k)), _mm256_cvtps_pd(_mm_loadu_ps(b + k))); };
    for (; i + 16 <= n; i += 16) {
        s0 = _mm256_add_pd(s0, prod(i));
        s1 = _mm256_add_pd(s1, prod(i + 4));
        s2 = _mm256_add_pd(s2, prod(i + 8));
        s3 = _mm256_add_pd(s3, prod(i + 12));
    }
    for (; i + 4 <= n; i += 4) s0 = _mm256_add_pd(s0, prod(i));
    double l[4];
    _mm256_storeu_pd(l, _mm256_add_pd(_mm256_add_pd(s0, s1), _mm256_add_pd(s2, s3)));
    for (; i < n; ++i) l[i & 3] += double(a[i]) * double(b[i]);
    return (l[0] + l[1]) + (l[2] + l[3]);
}

// Any floating pair: real and imaginary sums in four lanes each.
template <class A, class B> void dot_fl(const A* a, const B* b, int n, double out[2]) {
    if constexpr (std::is_same_v<A, Zam32f> && std::is_same_v<B, Zam32f>) {
        out[0] = dot_32f(a, b, n);
        out[1] = 0;
        return;
    }
    double re[4] = {0, 0, 0, 0}, im[4] = {0, 0, 0, 0};
    for (int i = 0; i < n; ++i) {
        double ar = re_of(a[i]), ai = im_of(a[i]), br = re_of(b[i]), bi = im_of(b[i]);
        if constexpr (cplx<A> && cplx<B>) {
            re[i & 3] += ar * br - ai * bi;
            im[i & 3] += ar * bi + ai * br;
        } else if constexpr (cplx<A> || cplx<B>) {
            re[i & 3] += ar * br;  // one side is real
            im[i & 3] += cplx<A> ? ai * br : ar * bi;
        } else {
            re[i & 3] += ar * br;
        }
    }
    out[0] = (re[0] + re[1]) + (re[2] + re[3]);
    out[1] = (im[0] + im[1]) + (im[2] + im[3]);
}

template <class A, class B, class D> zamStatus dot_float(const A* a, const B* b, int len, D* dst) {
    if (zamStatus s = check_args(len, a, b, dst)) return s;
    double v[2];
    dot_fl(a, b, len, v);
    if constexpr (cplx<D>) *dst = D{static_cast<part_t<D>>(v[0]), static_cast<part_t<D>>(v[1])};
    else *dst = static_cast<D>(v[0]);
    return zamStatusOk;
}

// ------------------------------------------------------------- integer

template <class T> inline int64_t ire(const T& v) {
    if constexpr (cplx<T>) return v.re;
    else return v;
}
template <class T> inline int64_t iim(const T& v) {
    if constexpr (cplx<T>) return v.im;
    else return 0;
}

// Exact sums; products of 16-bit parts (and their complex combinations,
// below 2^32) are summed in 64 bits, others in 128 bits.
template <class A, class B> void dot_int(const A* a, const B* b, int n, I128 out[2]) {
    constexpr bool narrow = (std::is_same_v<A, Zam16s> || std::is_same_v<A, Zam16sc>) &&
                            (std::is_same_v<B, Zam16s> || std::is_same_v<B, Zam16sc>);
    out[0] = out[1] = I128{};
    if constexpr (narrow) {
        // At most 2^31 per element: chunks of 2^31 elements cannot overflow.
        int64_t re = 0, im = 0;
        for (int i = 0; i < n; ++i) {
            int64_t ar = ire(a[i]), ai = iim(a[i]), br = ire(b[i]), bi = iim(b[i]);
            re += ar * br - ai * bi;
            im += ar * bi + ai * br;
        }
        out[0] = I128::of(re);
        out[1] = I128::of(im);
    } else {
        for (int i = 0; i < n; ++i) {
            int64_t ar = ire(a[i]), ai = iim(a[i]), br = ire(b[i]), bi = iim(b[i]);
            out[0] += mul(ar, br);
            if (ai && bi) out[0] += -mul(ai, bi);
            if (cplx<A> || cplx<B>) {
                out[1] += mul(ar, bi);
                out[1] += mul(ai, br);
            }
        }
    }
}

// The 16-bit-result rule: factor 0 saturates; a positive factor (at most
// 31) rounds to nearest even; a negative one (at least -15) shifts left
// when the result fits and saturates by comparison otherwise.
Zam16s scale_dp16(int64_t s, int sf) {
    if (sf == 0) return saturate<Zam16s>(s);
    if (sf > 0) {
        if (sf > 31) sf = 31;
        int64_t q = (s + ((int64_t(1) << (sf - 1)) - 1) + ((s >> sf) & 1)) >> sf;
        return saturate<Zam16s>(q);
    }
    int k = sf < -15 ? 15 : -sf;
    if (s > (int64_t(32767) >> k)) return 32767;
    if (s < (int64_t(-32768) >> k)) return -32768;
    return static_cast<Zam16s>(s * (int64_t(1) << k));
}

template <class D> inline auto to_dst(I128 v, int sf) {
    if constexpr (std::is_same_v<D, Zam16s>) return scale_dp16(int64_t(v.lo), sf);
    else if constexpr (std::is_same_v<D, Zam32s>) return scale_wide<Zam32s>(v, sf);
    else if constexpr (std::is_same_v<D, Zam64s>) return int64_t(v.lo);
    else return static_cast<Zam32f>(v.to_double());
}

template <class A, class B, class D> zamStatus dot_integer(const A* a, const B* b, int len, D* dst, int sf = 0) {
    if (zamStatus s = check_args(len, a, b, dst)) return s;
    I128 v[2];
    dot_int(a, b, len, v);
    if constexpr (cplx<D>) {
        using P = part_t<D>;
        *dst = D{static_cast<P>(to_dst<P>(v[0], sf)), static_cast<P>(to_dst<P>(v[1], sf))};
    } else {
        *dst = static_cast<D>(to_dst<D>(v[0], sf));
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

#define DP_FL(N, A, B, D)                                                                    \
    ZAMS_FN(zamStatus, zamsDotProd_##N)(const Zam##A* pSrc1, const Zam##B* pSrc2, int len, Zam##D* pDp) { \
        return dot_float(pSrc1, pSrc2, len, pDp);                                            \
    }
#define DP_INT(N, A, B, D)                                                                   \
    ZAMS_FN(zamStatus, zamsDotProd_##N)(const Zam##A* pSrc1, const Zam##B* pSrc2, int len, Zam##D* pDp) { \
        return dot_integer(pSrc1, pSrc2, len, pDp);                                          \
    }
#define DP_SFS(N, A, B, D)                                                                   \
    ZAMS_FN(zamStatus, zamsDotProd_##N)(const Zam##A* pSrc1, const Zam##B* pSrc2, int len, Zam##D* pDp, \
                                        int scaleFactor) {                                   \
        return dot_integer(pSrc1, pSrc2, len, pDp, scaleFactor);                             \
    }

DP_FL(32f, 32f, 32f, 32f)
DP_FL(32fc, 32fc, 32fc, 32fc)
DP_FL(32f32fc, 32f, 32fc, 32fc)
DP_FL(32f64f, 32f, 32f, 64f)
DP_FL(32fc64fc, 32fc, 32fc, 64fc)
DP_FL(32f32fc64fc, 32f, 32fc, 64fc)
DP_FL(64f, 64f, 64f, 64f)
DP_FL(64fc, 64fc, 64fc, 64fc)
DP_FL(64f64fc, 64f, 64fc, 64fc)
DP_SFS(16s_Sfs, 16s, 16s, 16s)
DP_SFS(16sc_Sfs, 16sc, 16sc, 16sc)
DP_SFS(16s16sc_Sfs, 16s, 16sc, 16sc)
DP_INT(16s32f, 16s, 16s, 32f)
DP_INT(16sc32fc, 16sc, 16sc, 32fc)
DP_INT(16s16sc32fc, 16s, 16sc, 32fc)
DP_INT(16s64s, 16s, 16s, 64s)
DP_INT(16sc64sc, 16sc, 16sc, 64sc)
DP_INT(16s16sc64sc, 16s, 16sc, 64sc)
DP_SFS(16s32s_Sfs, 16s, 16s, 32s)
DP_SFS(16s32s32s_Sfs, 16s, 32s, 32s)
DP_SFS(16s16sc32sc_Sfs, 16s, 16sc, 32sc)
DP_SFS(16sc32sc_Sfs, 16sc, 16sc, 32sc)
DP_SFS(32s_Sfs, 32s, 32s, 32s)
DP_SFS(32sc_Sfs, 32sc, 32sc, 32sc)
DP_SFS(32s32sc_Sfs, 32s, 32sc, 32sc)
