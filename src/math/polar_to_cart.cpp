// PolarToCart: magnitude and phase (radians) to cartesian parts,
// re = magn cos(phase), im = magn sin(phase), each within an ulp for any
// finite phase; an infinite or NaN phase gives NaN parts.
#include <cmath>

#include "../common/check.h"
#include "../common/types.h"
#include "../common/num/sincos.h"
#include "../common/num/sincos_vec.h"

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

// Single precision below |phase| < 2^19: the phase is reduced in double by
// a three-part pi/2 (each product with k exact; the remainder's relative
// error stays near 2^-52 even at the closest approach of a single-precision
// value to a multiple of pi/2), sine and cosine of |r| <= pi/4 by their
// Taylor series to r^11 and r^12 (truncation below 2^-36 relative), and the
// product with the magnitude rounded once to single precision. Scalar and
// vector steps run the same operations.
namespace f32 {

constexpr double kRange = 0x1p19;
constexpr double kSin[] = {-1.0 / 6, 1.0 / 120, -1.0 / 5040, 1.0 / 362880, -1.0 / 39916800};
constexpr double kCos[] = {-1.0 / 2, 1.0 / 24, -1.0 / 720, 1.0 / 40320, -1.0 / 3628800, 1.0 / 479001600};

template <size_t N> inline double horner(const double (&k)[N], double z) {
    double p = k[N - 1];
    for (size_t i = N - 1; i-- > 0;) p = p * z + k[i];
    return p;
}
template <size_t N> inline __m256d horner(const double (&k)[N], __m256d z) {
    __m256d p = _mm256_set1_pd(k[N - 1]);
    for (size_t i = N - 1; i-- > 0;) p = _mm256_add_pd(_mm256_mul_pd(p, z), _mm256_set1_pd(k[i]));
    return p;
}

inline void one(float magn, float phase, float* re, float* im) {
    using namespace sincos_dd;
    double x = phase, ax = x < 0 ? -x : x;
    if (!(ax < kRange)) {
        polar_one(magn, phase, re, im);
        return;
    }
    int k = int(ax * kTwoOverPi + 0.5);
    double kd = k;
    double r = ((ax - kd * kPio2Parts[0]) - kd * kPio2Parts[1]) - kd * kPio2Parts[2];
    double z = r * r;
    double sv = r + (r * z) * horner(kSin, z), cv = 1.0 + z * horner(kCos, z);
    double s = k & 1 ? cv : sv, c = k & 1 ? sv : cv;
    if (k & 2) s = -s;
    if ((k ^ (k >> 1)) & 1) c = -c;
    if (std::signbit(x)) s = -s;  // a phase of -0 gives -0, as the vector step does
    *re = float(double(magn) * c);
    *im = float(double(magn) * s);
}

// All-ones lanes where bit `b` of k is set, made by a double compare: a mask
// from 32-bit integer compares widened to 64-bit lanes lets the compiler
// turn the blends below into lane-by-lane selects, which on i386 run as
// pairs of 32-bit shifts through the stack.
inline __m256d bit_mask(__m128i k, int b) {
    __m128i bit = _mm_and_si128(k, _mm_set1_epi32(b));
    return _mm256_cmp_pd(_mm256_cvtepi32_pd(bit), _mm256_setzero_pd(), _CMP_NEQ_OQ);
}

inline bool four(const float* magn, const float* phase, __m128* re, __m128* im) {
    using namespace sincos_dd;
    __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(phase));
    __m256d sign = _mm256_and_pd(x, _mm256_set1_pd(-0.0)), ax = _mm256_xor_pd(x, sign);
    if (_mm256_movemask_pd(_mm256_cmp_pd(ax, _mm256_set1_pd(kRange), _CMP_LT_OQ)) != 0xf) return false;
    __m128i k = _mm256_cvttpd_epi32(_mm256_add_pd(_mm256_mul_pd(ax, _mm256_set1_pd(kTwoOverPi)), _mm256_set1_pd(0.5)));
    __m256d kd = _mm256_cvtepi32_pd(k);
    __m256d r = _mm256_sub_pd(ax, _mm256_mul_pd(kd, _mm256_set1_pd(kPio2Parts[0])));
    r = _mm256_sub_pd(r, _mm256_mul_pd(kd, _mm256_set1_pd(kPio2Parts[1])));
    r = _mm256_sub_pd(r, _mm256_mul_pd(kd, _mm256_set1_pd(kPio2Parts[2])));
    __m256d z = _mm256_mul_pd(r, r);
    __m256d sv = _mm256_add_pd(r, _mm256_mul_pd(_mm256_mul_pd(r, z), horner(kSin, z)));
    __m256d cv = _mm256_add_pd(_mm256_set1_pd(1.0), _mm256_mul_pd(z, horner(kCos, z)));
    __m256d odd = bit_mask(k, 1), two = bit_mask(k, 2);
    __m256d s = _mm256_xor_pd(_mm256_blendv_pd(sv, cv, odd), _mm256_xor_pd(_mm256_and_pd(two, _mm256_set1_pd(-0.0)), sign));
    __m256d c = _mm256_xor_pd(_mm256_blendv_pd(cv, sv, odd), _mm256_and_pd(_mm256_xor_pd(odd, two), _mm256_set1_pd(-0.0)));
    __m256d m = _mm256_cvtps_pd(_mm_loadu_ps(magn));
    *re = _mm256_cvtpd_ps(_mm256_mul_pd(m, c));
    *im = _mm256_cvtpd_ps(_mm256_mul_pd(m, s));
    return true;
}

}  // namespace f32

// Four elements: re and im of each, or false when a lane needs the element
// code (for double: phase below 2^-27, from 2^19 on or not finite, or a
// magnitude or product the common product path does not handle).
inline bool polar4(const float* magn, const float* phase, __m128* re, __m128* im) {
    return f32::four(magn, phase, re, im);
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

inline void element(float magn, float phase, float* re, float* im) { f32::one(magn, phase, re, im); }
inline void element(double magn, double phase, double* re, double* im) { polar_one(magn, phase, re, im); }

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
        element(magn[i], phase[i], &re, &im);
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
        element(magn[i], phase[i], &a, &b);
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
