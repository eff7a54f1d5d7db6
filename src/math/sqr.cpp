// Square (Sqr) of floating, complex and integer vectors, and the cube root
// (Cubrt) of single-precision vectors.
#include "../common/check.h"
#include "../common/num/elem.h"
#include "../common/scale.h"
#include "../common/types.h"

namespace zams {

namespace {

template <class T> zamStatus sqr_float(const T* src, T* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = src[i] * src[i];
    return zamStatusOk;
}

// (a + bi)^2 = a^2 - b^2 + 2ab i; single precision formed in double.
template <class C> zamStatus sqr_complex(const C* src, C* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    using P = part_t<C>;
    for (int i = 0; i < len; ++i) {
        if constexpr (sizeof(P) == 4) {
            double a = src[i].re, b = src[i].im;
            dst[i].re = P(a * a - b * b);
            dst[i].im = P(2.0 * a * b);
        } else {
            P a = src[i].re, b = src[i].im;
            dst[i].re = (a - b) * (a + b);
            dst[i].im = 2.0 * a * b;
        }
    }
    return zamStatusOk;
}

// x^2 exact in 64 bits, then the scale-factor rule.
template <class T> zamStatus sqr_int(const T* src, T* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        int64_t x = src[i];
        dst[i] = scale_round_sat<T>(x * x, sf);
    }
    return zamStatusOk;
}

zamStatus sqr_16sc(const Zam16sc* src, Zam16sc* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        int64_t a = src[i].re, b = src[i].im;
        Zam16s re = scale_round_sat<Zam16s>(a * a - b * b, sf);
        Zam16s im = scale_round_sat<Zam16s>(2 * a * b, sf);
        dst[i].re = re;
        dst[i].im = im;
    }
    return zamStatusOk;
}

// Cube root of a float in double precision: x = m 2^(3q) with m in [1, 8),
// a linear first guess and six Newton steps (quadratic convergence from 15%
// leaves an error far below a single-precision ulp), sign restored.
inline Zam32f cbrt_f(Zam32f xf) {
    double x = xf;
    if (x == 0 || x != x || x - x != x - x) return xf;  // 0, -0, NaN, inf
    bool neg = x < 0;
    if (neg) x = -x;
    int e = int((to_bits(x) >> 52) & 0x7ff) - 1023;  // floats are normal doubles
    int q = e >= 0 ? e / 3 : -((-e + 2) / 3);
    double m = from_bits(to_bits(x) - (uint64_t(int64_t(3 * q)) << 52));  // in [1, 8)
    double t = 0.7 + 0.2 * m;
    for (int k = 0; k < 6; ++k) t -= (t * t * t - m) / (3.0 * t * t);
    double r = from_bits(to_bits(t) + (uint64_t(int64_t(q)) << 52));
    return Zam32f(neg ? -r : r);
}

zamStatus cubrt_32f(const Zam32f* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = cbrt_f(src[i]);
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsSqr_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) { return zams::sqr_float(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsSqr_32f_I)(Zam32f* pSrcDst, int len) { return zams::sqr_float(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqr_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) { return zams::sqr_float(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsSqr_64f_I)(Zam64f* pSrcDst, int len) { return zams::sqr_float(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqr_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len) { return zams::sqr_complex(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsSqr_32fc_I)(Zam32fc* pSrcDst, int len) { return zams::sqr_complex(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqr_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len) { return zams::sqr_complex(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsSqr_64fc_I)(Zam64fc* pSrcDst, int len) { return zams::sqr_complex(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsSqr_8u_Sfs)(const Zam8u* pSrc, Zam8u* pDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_8u_ISfs)(Zam8u* pSrcDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16s_ISfs)(Zam16s* pSrcDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16u_Sfs)(const Zam16u* pSrc, Zam16u* pDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16u_ISfs)(Zam16u* pSrcDst, int len, int scaleFactor) {
    return zams::sqr_int(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16sc_Sfs)(const Zam16sc* pSrc, Zam16sc* pDst, int len, int scaleFactor) {
    return zams::sqr_16sc(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsSqr_16sc_ISfs)(Zam16sc* pSrcDst, int len, int scaleFactor) {
    return zams::sqr_16sc(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsCubrt_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) { return zams::cubrt_32f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsCubrt_32f_I)(Zam32f* pSrcDst, int len) { return zams::cubrt_32f(pSrcDst, pSrcDst, len); }
