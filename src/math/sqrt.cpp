// Square root: floating (32f, 64f), complex (32fc, 64fc, 16sc) and the
// integer forms with a scale factor. Long vectors run on two threads.
#include <immintrin.h>

#include "../common/check.h"
#include "../common/loop.h"
#include "../common/num/bits.h"
#include "../common/types.h"
#include "../core/parallel.h"
#include "div_kernel.h"
#include "sqrt_kernel.h"

namespace zams {

namespace {

inline double sqrt_d(double x) { return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(x))); }

template <class T> void sqrt_slice(const T* src, T* dst, int cnt) {
    if constexpr (std::is_same_v<T, Zam32f>) {
        for_each_block<8>(
            dst, cnt, [&](int i) { dst[i] = _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(src[i]))); },
            [&](int i) { _mm256_storeu_ps(dst + i, _mm256_sqrt_ps(_mm256_loadu_ps(src + i))); });
    } else {
        for_each_block<4>(
            dst, cnt, [&](int i) { dst[i] = sqrt_d(src[i]); },
            [&](int i) { _mm256_storeu_pd(dst + i, _mm256_sqrt_pd(_mm256_loadu_pd(src + i))); });
    }
}

template <class T> zamStatus sqrt_real(const T* src, T* dst, int len, int thr) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        sqrt_slice(src + off, dst + off, cnt);
        return false;
    });
    return zamStatusOk;
}

inline bool is_nan(double v) { return v != v; }
inline bool is_inf(double v) { return v - v != v - v && v == v; }
inline double abs_d(double v) { return v < 0 ? -v : (v == 0 ? 0.0 : v); }
inline double copysign_d(double m, double s) {
    return from_bits((to_bits(m) & ~(uint64_t(1) << 63)) | (to_bits(s) & (uint64_t(1) << 63)));
}

// Principal square root of x + iy with the special values of C99 Annex G:
// an infinite imaginary part gives +inf with that part, -inf + iy gives
// 0 + i inf, +inf + iy gives inf + i0, zeros keep the sign of y, and NaNs
// propagate. Finite arguments are scaled by a power of four so that the
// squared norm neither overflows nor underflows.
inline void csqrt_d(double x, double y, double& re, double& im) {
    const double inf = pow2(1023) * 2.0;
    if (is_inf(y)) {
        re = inf, im = y;
        return;
    }
    if (is_inf(x)) {
        if (x > 0) {
            re = x, im = is_nan(y) ? y : copysign_d(0.0, y);
        } else {
            re = is_nan(y) ? y : 0.0, im = copysign_d(inf, y);
        }
        return;
    }
    if (is_nan(x) || is_nan(y)) {
        re = im = x + y;
        return;
    }
    if (x == 0 && y == 0) {
        re = 0.0, im = y;
        return;
    }
    double ax = abs_d(x), ay = abs_d(y), m = ax > ay ? ax : ay;
    double scale = 1.0, unscale = 1.0;
    if (m > pow2(500)) scale = pow2(-600), unscale = pow2(300);
    if (m < pow2(-500)) scale = pow2(600), unscale = pow2(-300);
    ax *= scale, ay *= scale;
    double norm = sqrt_d(ax * ax + ay * ay);
    double t = sqrt_d((norm + ax) * 0.5);
    double other = ay / (2.0 * t);
    if (x >= 0) {
        re = t * unscale, im = copysign_d(other * unscale, y);
    } else {
        re = other * unscale, im = copysign_d(t * unscale, y);
    }
}

template <class C> zamStatus sqrt_complex(const C* src, C* dst, int len, int thr) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    using P = part_t<C>;
    run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        for (int i = off; i < off + cnt; ++i) {
            double re, im;
            csqrt_d(src[i].re, src[i].im, re, im);
            dst[i].re = P(re);
            dst[i].im = P(im);
        }
        return false;
    });
    return zamStatusOk;
}

// Integer forms: round(sqrt(x) 2^-sf), ties to even, saturated. A negative
// element gives 0 and the warning 3.
template <class S, class D> zamStatus sqrt_int(const S* src, D* dst, int len, int sf, int thr) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    int warned = run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        bool neg = false;
        for (int i = off; i < off + cnt; ++i) {
            S x = src[i];
            if (std::is_signed_v<S> && x < S(0)) {
                neg = true;
                dst[i] = 0;
            } else {
                dst[i] = sat_mag<D>(false, sqrt_scaled(uint64_t(x), sf));
            }
        }
        return neg;
    });
    return warned ? zamStatusWarnSqrtNegative : zamStatusOk;
}

// 16sc: the principal root in double precision, each part scaled, rounded
// to nearest even and saturated.
inline Zam16s round_part(double v, int sf) {
    if (sf > 0) v *= pow2(sf > 60 ? -60 : -sf);
    if (sf < 0) v *= pow2(sf < -60 ? 60 : -sf);
    v = _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    if (v > 32767.0) return 32767;
    if (v < -32768.0) return -32768;
    return Zam16s(int32_t(v));
}

zamStatus sqrt_16sc(const Zam16sc* src, Zam16sc* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_threshold(len, threshold::Sqrt_16sc, Team::AtMostTwo, [&](int off, int cnt) {
        for (int i = off; i < off + cnt; ++i) {
            double re, im;
            csqrt_d(src[i].re, src[i].im, re, im);
            Zam16s r = round_part(re, sf), m = round_part(im, sf);
            dst[i].re = r;
            dst[i].im = m;
        }
        return false;
    });
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

namespace th = zams::threshold;

ZAMS_FN(zamStatus, zamsSqrt_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {
    return zams::sqrt_real(pSrc, pDst, len, th::Sqrt_32f);
}
ZAMS_FN(zamStatus, zamsSqrt_32f_I)(Zam32f* pSrcDst, int len) { return zamsSqrt_32f(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqrt_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) {
    return zams::sqrt_real(pSrc, pDst, len, th::Sqrt_64f);
}
ZAMS_FN(zamStatus, zamsSqrt_64f_I)(Zam64f* pSrcDst, int len) { return zamsSqrt_64f(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqrt_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len) {
    return zams::sqrt_complex(pSrc, pDst, len, th::Sqrt_32fc);
}
ZAMS_FN(zamStatus, zamsSqrt_32fc_I)(Zam32fc* pSrcDst, int len) { return zamsSqrt_32fc(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqrt_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len) {
    return zams::sqrt_complex(pSrc, pDst, len, th::Sqrt_64fc);
}
ZAMS_FN(zamStatus, zamsSqrt_64fc_I)(Zam64fc* pSrcDst, int len) { return zamsSqrt_64fc(pSrcDst, pSrcDst, len); }

ZAMS_FN(zamStatus, zamsSqrt_8u_Sfs)(const Zam8u* pSrc, Zam8u* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_8u);
}
ZAMS_FN(zamStatus, zamsSqrt_8u_ISfs)(Zam8u* pSrcDst, int len, int scaleFactor) {
    return zamsSqrt_8u_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqrt_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_16s);
}
ZAMS_FN(zamStatus, zamsSqrt_16s_ISfs)(Zam16s* pSrcDst, int len, int scaleFactor) {
    return zamsSqrt_16s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqrt_16u_Sfs)(const Zam16u* pSrc, Zam16u* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_16u);
}
ZAMS_FN(zamStatus, zamsSqrt_16u_ISfs)(Zam16u* pSrcDst, int len, int scaleFactor) {
    return zamsSqrt_16u_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqrt_32s16s_Sfs)(const Zam32s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_32s16s);
}
ZAMS_FN(zamStatus, zamsSqrt_64s16s_Sfs)(const Zam64s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_64s16s);
}
ZAMS_FN(zamStatus, zamsSqrt_64s_Sfs)(const Zam64s* pSrc, Zam64s* pDst, int len, int scaleFactor) {
    return zams::sqrt_int(pSrc, pDst, len, scaleFactor, th::Sqrt_64s);
}
ZAMS_FN(zamStatus, zamsSqrt_64s_ISfs)(Zam64s* pSrcDst, int len, int scaleFactor) {
    return zamsSqrt_64s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqrt_16sc_Sfs)(const Zam16sc* pSrc, Zam16sc* pDst, int len, int scaleFactor) {
    return zams::sqrt_16sc(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqrt_16sc_ISfs)(Zam16sc* pSrcDst, int len, int scaleFactor) {
    return zamsSqrt_16sc_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
