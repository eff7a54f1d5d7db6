// PolarToCart: magnitude and phase (radians) to cartesian parts,
// re = magn cos(phase), im = magn sin(phase), each within an ulp for any
// finite phase; an infinite or NaN phase gives NaN parts.
#include "../common/check.h"
#include "../common/types.h"
#include "sincos_dd.h"
#include "sincos_vec.h"

namespace zams {

namespace {

template <class F> inline void polar_one(F magn, F phase, F* re, F* im) {
    double x = phase;
    if (x - x != 0) {  // infinite or NaN
        *re = *im = F(x - x);
        return;
    }
    sincos_dd::Pair s, c;
    sincos_dd::sincos(x, &s, &c);
    if constexpr (sizeof(F) == 4) {  // the double product is far inside a float ulp
        *re = F(double(magn) * (c.hi + c.lo));
        *im = F(double(magn) * (s.hi + s.lo));
    } else {
        *re = sincos_dd::mul(magn, c);
        *im = sincos_dd::mul(magn, s);
    }
}

// Four elements: re and im of each, or false when a lane needs the scalar
// code (phase below 2^-27, from 2^19 on or not finite; for double, a
// magnitude or product the common product path does not handle).
inline bool polar4(const float* magn, const float* phase, __m128* re, __m128* im) {
    __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(phase));
    if (!sincos_vec::covered(x)) return false;
    sincos_vec::V2 s, c;
    sincos_vec::sincos(x, &s, &c);
    __m256d m = _mm256_cvtps_pd(_mm_loadu_ps(magn));
    *re = _mm256_cvtpd_ps(_mm256_mul_pd(m, _mm256_add_pd(c.hi, c.lo)));
    *im = _mm256_cvtpd_ps(_mm256_mul_pd(m, _mm256_add_pd(s.hi, s.lo)));
    return true;
}
inline bool polar4(const double* magn, const double* phase, __m256d* re, __m256d* im) {
    __m256d x = _mm256_loadu_pd(phase);
    if (!sincos_vec::covered(x)) return false;
    sincos_vec::V2 s, c;
    sincos_vec::sincos(x, &s, &c);
    __m256d m = _mm256_loadu_pd(magn), ok = _mm256_castsi256_pd(_mm256_set1_epi64x(-1));
    *re = sincos_vec::mul(m, c, &ok);
    *im = sincos_vec::mul(m, s, &ok);
    return _mm256_movemask_pd(ok) == 0xf;
}

inline void store_parts(float* re, float* im, __m128 a, __m128 b) {
    _mm_storeu_ps(re, a);
    _mm_storeu_ps(im, b);
}
inline void store_parts(double* re, double* im, __m256d a, __m256d b) {
    _mm256_storeu_pd(re, a);
    _mm256_storeu_pd(im, b);
}
inline void store_pairs(Zam32fc* dst, __m128 a, __m128 b) {
    float* d = reinterpret_cast<float*>(dst);
    _mm_storeu_ps(d, _mm_unpacklo_ps(a, b));
    _mm_storeu_ps(d + 4, _mm_unpackhi_ps(a, b));
}
inline void store_pairs(Zam64fc* dst, __m256d a, __m256d b) {
    double* d = reinterpret_cast<double*>(dst);
    __m256d lo = _mm256_unpacklo_pd(a, b), hi = _mm256_unpackhi_pd(a, b);  // (0, 2) and (1, 3) pairs
    _mm256_storeu_pd(d, _mm256_permute2f128_pd(lo, hi, 0x20));
    _mm256_storeu_pd(d + 4, _mm256_permute2f128_pd(lo, hi, 0x31));
}

template <class F> struct VecOf;
template <> struct VecOf<float> {
    using type = __m128;
};
template <> struct VecOf<double> {
    using type = __m256d;
};
template <class F> using Vec = typename VecOf<F>::type;

// Four at a time in vector steps; a group the vector step declines, and the
// tail, element by element. All four are computed before any is stored, as
// the destinations may alias the sources element by element.
template <class F, class C> zamStatus polar_to_cart_c(const F* magn, const F* phase, C* dst, int len) {
    if (zamStatus s = check_args(len, magn, phase, dst)) return s;
    auto one = [&](int i) {
        F re, im;
        polar_one(magn[i], phase[i], &re, &im);
        dst[i].re = re;
        dst[i].im = im;
    };
    int i = 0;
    for (; i + 4 <= len; i += 4) {
        Vec<F> re, im;
        if (polar4(magn + i, phase + i, &re, &im)) {
            store_pairs(dst + i, re, im);
        } else {
            for (int j = i; j < i + 4; ++j) one(j);
        }
    }
    for (; i < len; ++i) one(i);
    return zamStatusOk;
}

template <class F> zamStatus polar_to_cart_parts(const F* magn, const F* phase, F* re, F* im, int len) {
    if (zamStatus s = check_args(len, magn, phase, re, im)) return s;
    auto one = [&](int i) {
        F a, b;
        polar_one(magn[i], phase[i], &a, &b);
        re[i] = a;
        im[i] = b;
    };
    int i = 0;
    for (; i + 4 <= len; i += 4) {
        Vec<F> a, b;
        if (polar4(magn + i, phase + i, &a, &b)) {
            store_parts(re + i, im + i, a, b);
        } else {
            for (int j = i; j < i + 4; ++j) one(j);
        }
    }
    for (; i < len; ++i) one(i);
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsPolarToCart_32fc)(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32fc* pDst, int len) {
    return zams::polar_to_cart_c(pSrcMagn, pSrcPhase, pDst, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_64fc)(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64fc* pDst, int len) {
    return zams::polar_to_cart_c(pSrcMagn, pSrcPhase, pDst, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_32f)(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32f* pDstRe, Zam32f* pDstIm, int len) {
    return zams::polar_to_cart_parts(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_64f)(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64f* pDstRe, Zam64f* pDstIm, int len) {
    return zams::polar_to_cart_parts(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}
