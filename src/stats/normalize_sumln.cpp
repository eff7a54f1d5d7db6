// Sums of logarithms and normalisation by a subtrahend and a divisor.
#include <immintrin.h>

#include <cstdint>

#include "../common/num/elem.h"
#include "../common/check.h"
#include "../common/types.h"

namespace zams::red {
namespace {

// ------------------------------------------------------------- SumLn

// The logarithms are taken in double precision and summed with a running
// compensation term, so a long sum keeps the accuracy of its terms. The
// first zero or negative element decides the result: minus infinity with
// warning 7, NaN with warning 8.
template <class S, class D> zamStatus sum_ln(const S* src, int len, D* sum) {
    if (zamStatus s = check_args(len, src, sum)) return s;
    double acc = 0.0, comp = 0.0;
    for (int i = 0; i < len; ++i) {
        double x = double(src[i]);
        if (x <= 0.0) {
            bool zero = x == 0.0;
            *sum = D(zero ? -elem::inf() : elem::nan());
            return zero ? zamStatusWarnLnZero : zamStatusWarnLnNegative;
        }
        double t = elem::log(x);
        double u = acc + t;
        // Neumaier's form: the rounding error of the larger-magnitude order.
        double at = t < 0 ? -t : t, aa = acc < 0 ? -acc : acc;
        comp += aa >= at ? (acc - u) + t : (t - u) + acc;
        acc = u;
    }
    // An infinite element leaves the compensation NaN; the sum is then acc.
    double r = acc + comp;
    *sum = D(r == r ? r : acc);
    return zamStatusOk;
}

// ------------------------------------------------------------- Normalize, real floating

inline __m256 sub_div(__m256 x, __m256 s, __m256 d) { return _mm256_div_ps(_mm256_sub_ps(x, s), d); }
inline __m256d sub_div(__m256d x, __m256d s, __m256d d) { return _mm256_div_pd(_mm256_sub_pd(x, s), d); }
inline __m256 load(const float* p) { return _mm256_loadu_ps(p); }
inline __m256d load(const double* p) { return _mm256_loadu_pd(p); }
inline void store(float* p, __m256 v) { _mm256_storeu_ps(p, v); }
inline void store(double* p, __m256d v) { _mm256_storeu_pd(p, v); }
inline __m256 splat(float v) { return _mm256_set1_ps(v); }
inline __m256d splat(double v) { return _mm256_set1_pd(v); }

// One subtraction and one IEEE division per element, so every result is
// the rounded quotient of the rounded difference whatever the lane.
template <class T> zamStatus normalize_real(const T* src, T* dst, int len, T sub, T div) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (div == T(0)) return zamStatusDivideByZero;
    constexpr int W = 32 / int(sizeof(T));
    auto vs = splat(sub), vd = splat(div);
    int i = 0;
    for (; i + W <= len; i += W) store(dst + i, sub_div(load(src + i), vs, vd));
    for (; i < len; ++i) dst[i] = (src[i] - sub) / div;
    return zamStatusOk;
}

// ------------------------------------------------------------- Normalize, complex floating

// Single precision: the difference is rounded to float, then the quotient
// is formed in double, where the products of float parts are exact, so
// each part is within one float rounding of the true quotient of the
// rounded difference.
zamStatus normalize_cplx(const Zam32fc* src, Zam32fc* dst, int len, Zam32fc sub, Zam32fc div) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (div.re == 0.0f && div.im == 0.0f) return zamStatusDivideByZero;
    const double c = div.re, d = div.im, den = c * c + d * d;
    for (int i = 0; i < len; ++i) {
        double a = double(src[i].re - sub.re), b = double(src[i].im - sub.im);
        dst[i].re = float((a * c + b * d) / den);
        dst[i].im = float((b * c - a * d) / den);
    }
    return zamStatusOk;
}

// Double precision: the divisor's smaller part is expressed as a ratio of
// the larger one, which keeps the intermediate terms in range.
zamStatus normalize_cplx(const Zam64fc* src, Zam64fc* dst, int len, Zam64fc sub, Zam64fc div) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (div.re == 0.0 && div.im == 0.0) return zamStatusDivideByZero;
    const double c = div.re, d = div.im;
    const bool wide = (c < 0 ? -c : c) >= (d < 0 ? -d : d);
    const double r = wide ? d / c : c / d;
    const double den = wide ? c + d * r : c * r + d;
    for (int i = 0; i < len; ++i) {
        double a = src[i].re - sub.re, b = src[i].im - sub.im;
        if (wide) {
            dst[i].re = (a + b * r) / den;
            dst[i].im = (b - a * r) / den;
        } else {
            dst[i].re = (a * r + b) / den;
            dst[i].im = (b * r - a) / den;
        }
    }
    return zamStatusOk;
}

// ------------------------------------------------------------- Normalize, integer

// q = n 2^-sf / div for the exact difference n (|n| < 2^16), rounded to
// nearest even and saturated. Written as num / den with num = n 2^k and
// den = |div| 2^s, both exact in 64 bits; a double estimate of the
// quotient is corrected by the exact remainder, so no 64-bit division is
// needed and the estimate's rounding never reaches the result.
class IntDivider {
public:
    IntDivider(int div, int sf) {
        int64_t d = div;
        neg_ = d < 0;
        if (neg_) d = -d;
        if (sf >= 17) {  // |n| / 2^17 < 1/2: every quotient rounds to 0
            kind_ = Zero;
        } else if (sf <= -47) {  // |n| 2^47 / 2^31 >= 2^16: every nonzero quotient saturates
            kind_ = Bound;
        } else {
            int k = sf < 0 ? -sf : 0, s = sf > 0 ? sf : 0;
            mul_ = int64_t(1) << k;
            den_ = d << s;
            scale_ = double(mul_) / (double(d) * double(int64_t(1) << s));
        }
    }

    Zam16s operator()(int32_t n) const {
        if (neg_) n = -n;
        if (kind_ == Zero || n == 0) return 0;
        if (kind_ == Bound) return n > 0 ? Zam16s(32767) : Zam16s(-32768);
        double e = double(n) * scale_;
        if (e > 40000.0) return 32767;
        if (e < -40000.0) return -32768;
        int32_t q = int32_t(e);
        int64_t r = int64_t(n) * mul_ - int64_t(q) * den_;
        while (2 * r > den_) ++q, r -= den_;
        while (2 * r < -den_) --q, r += den_;
        if ((q & 1) && 2 * r == den_) ++q;
        if ((q & 1) && 2 * r == -den_) --q;
        return saturate<Zam16s>(q);
    }

private:
    enum Kind { Normal, Zero, Bound };
    Kind kind_ = Normal;
    bool neg_ = false;
    int64_t mul_ = 1, den_ = 1;
    double scale_ = 1.0;
};

zamStatus normalize_int(const Zam16s* src, Zam16s* dst, int len, Zam16s sub, int div, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (div == 0) return zamStatusDivideByZero;
    const IntDivider q(div, sf);
    for (int i = 0; i < len; ++i) dst[i] = q(int32_t(src[i]) - sub);
    return zamStatusOk;
}

zamStatus normalize_int(const Zam16sc* src, Zam16sc* dst, int len, Zam16sc sub, int div, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (div == 0) return zamStatusDivideByZero;
    const IntDivider q(div, sf);
    for (int i = 0; i < len; ++i) {
        Zam16s re = q(int32_t(src[i].re) - sub.re), im = q(int32_t(src[i].im) - sub.im);
        dst[i].re = re;
        dst[i].im = im;
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

ZAMS_FN(zamStatus, zamsSumLn_32f)(const Zam32f* pSrc, int len, Zam32f* pSum) { return sum_ln(pSrc, len, pSum); }
ZAMS_FN(zamStatus, zamsSumLn_64f)(const Zam64f* pSrc, int len, Zam64f* pSum) { return sum_ln(pSrc, len, pSum); }
ZAMS_FN(zamStatus, zamsSumLn_32f64f)(const Zam32f* pSrc, int len, Zam64f* pSum) { return sum_ln(pSrc, len, pSum); }
ZAMS_FN(zamStatus, zamsSumLn_16s32f)(const Zam16s* pSrc, int len, Zam32f* pSum) { return sum_ln(pSrc, len, pSum); }

#define ZAMS_NORMALIZE(T, SUB, DIV, IMPL)                                                                    \
    ZAMS_FN(zamStatus, zamsNormalize_##T)(const Zam##T* pSrc, Zam##T* pDst, int len, SUB vSub, DIV vDiv) {   \
        return IMPL(pSrc, pDst, len, vSub, vDiv);                                                             \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsNormalize_##T##_I)(Zam##T* pSrcDst, int len, SUB vSub, DIV vDiv) {                \
        return IMPL(static_cast<const Zam##T*>(pSrcDst), pSrcDst, len, vSub, vDiv);                           \
    }
ZAMS_NORMALIZE(32f, Zam32f, Zam32f, normalize_real)
ZAMS_NORMALIZE(64f, Zam64f, Zam64f, normalize_real)
ZAMS_NORMALIZE(32fc, Zam32fc, Zam32fc, normalize_cplx)
ZAMS_NORMALIZE(64fc, Zam64fc, Zam64fc, normalize_cplx)

#define ZAMS_NORMALIZE_SFS(T)                                                                                \
    ZAMS_FN(zamStatus, zamsNormalize_##T##_Sfs)(const Zam##T* pSrc, Zam##T* pDst, int len, Zam##T vSub,      \
                                                int vDiv, int scaleFactor) {                                 \
        return normalize_int(pSrc, pDst, len, vSub, vDiv, scaleFactor);                                      \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsNormalize_##T##_ISfs)(Zam##T* pSrcDst, int len, Zam##T vSub, int vDiv,            \
                                                 int scaleFactor) {                                          \
        return normalize_int(static_cast<const Zam##T*>(pSrcDst), pSrcDst, len, vSub, vDiv, scaleFactor);   \
    }
ZAMS_NORMALIZE_SFS(16s)
ZAMS_NORMALIZE_SFS(16sc)
