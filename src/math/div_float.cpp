// Floating division: Div on 32f, 64f, 32fc, 64fc and DivCRev_32f. IEEE
// quotients; a zero divisor gives infinity or NaN and no warning.
#include <immintrin.h>

#include "../common/check.h"
#include "../common/loop.h"
#include "../common/simd.h"
#include "../core/parallel.h"

namespace zams {

namespace {

// num[i] / div[i]
template <class T> void div_real_slice(const T* div, const T* num, T* dst, int cnt) {
    using A = Avx<T>;
    for_each_block<A::L>(
        dst, cnt, [&](int i) { dst[i] = num[i] / div[i]; },
        [&](int i) { A::store(dst + i, A::div(A::load(num + i), A::load(div + i))); });
}

template <class T> zamStatus div_real(const T* div, const T* num, T* dst, int len, int thr) {
    if (zamStatus s = check_args(len, div, num, dst)) return s;
    run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        div_real_slice(div + off, num + off, dst + off, cnt);
        return false;
    });
    return zamStatusOk;
}

// val / src[i]
zamStatus divcrev_32f(const Zam32f* src, Zam32f val, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    using A = Avx<Zam32f>;
    run_threshold(len, threshold::DivCRev_32f, Team::AtMostTwo, [&](int off, int cnt) {
        const Zam32f* s = src + off;
        Zam32f* d = dst + off;
        A::V v = A::set1(val);
        for_each_block<8>(
            d, cnt, [&](int i) { d[i] = val / s[i]; }, [&](int i) { A::store(d + i, A::div(v, A::load(s + i))); });
        return false;
    });
    return zamStatusOk;
}

// Single-precision complex quotients in double precision: the products are
// exact, the norm and the two sums are rounded once, and the final rounding
// to single precision keeps the result within an ulp. A zero divisor
// divides the dividend's parts by zero (infinity, or NaN for 0 / 0).
inline Zam32fc div32fc_one(Zam32fc x, Zam32fc y) {
    double a = x.re, b = x.im, c = y.re, d = y.im;
    double norm = c * c + d * d;
    double re = a * c + b * d, im = b * c - a * d;
    if (norm == 0) re = a, im = b;
    return {Zam32f(re / norm), Zam32f(im / norm)};
}

void div32fc_slice(const Zam32fc* div, const Zam32fc* num, Zam32fc* dst, int cnt) {
    const __m256d sign_even = _mm256_set_pd(0.0, -0.0, 0.0, -0.0);
    const __m256d zero = _mm256_setzero_pd();
    for_each_block<2, 16>(
        dst, cnt, [&](int i) { dst[i] = div32fc_one(num[i], div[i]); },
        [&](int i) {
            __m256d x = _mm256_cvtps_pd(_mm_loadu_ps(reinterpret_cast<const float*>(num + i)));
            __m256d y = _mm256_cvtps_pd(_mm_loadu_ps(reinterpret_cast<const float*>(div + i)));
            __m256d ys = _mm256_xor_pd(_mm256_permute_pd(y, 0x5), sign_even);  // -d, c
            __m256d p = _mm256_hadd_pd(_mm256_mul_pd(x, y), _mm256_mul_pd(x, ys));
            __m256d yy = _mm256_mul_pd(y, y);
            __m256d norm = _mm256_hadd_pd(yy, yy);
            p = _mm256_blendv_pd(p, x, _mm256_cmp_pd(norm, zero, _CMP_EQ_OQ));
            _mm_storeu_ps(reinterpret_cast<float*>(dst + i), _mm256_cvtpd_ps(_mm256_div_pd(p, norm)));
        });
}

// Double-precision complex quotients by scaling with the larger divisor
// part (no overflow of the squared norm).
inline Zam64fc div64fc_one(Zam64fc x, Zam64fc y) {
    double a = x.re, b = x.im, c = y.re, d = y.im;
    if (c == 0 && d == 0) return {a / c, b / c};
    double ac = c < 0 ? -c : c, ad = d < 0 ? -d : d;
    if (ac >= ad) {
        double r = d / c, den = c + d * r;
        return {(a + b * r) / den, (b - a * r) / den};
    }
    double r = c / d, den = c * r + d;
    return {(a * r + b) / den, (b * r - a) / den};
}

template <class C, class One> zamStatus div_complex(const C* div, const C* num, C* dst, int len, int thr, One one) {
    if (zamStatus s = check_args(len, div, num, dst)) return s;
    run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        one(div + off, num + off, dst + off, cnt);
        return false;
    });
    return zamStatusOk;
}

void div64fc_slice(const Zam64fc* div, const Zam64fc* num, Zam64fc* dst, int cnt) {
    for (int i = 0; i < cnt; ++i) dst[i] = div64fc_one(num[i], div[i]);
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsDiv_32f)(const Zam32f* pSrc1, const Zam32f* pSrc2, Zam32f* pDst, int len) {
    return zams::div_real(pSrc1, pSrc2, pDst, len, zams::threshold::Div_32f);
}
ZAMS_FN(zamStatus, zamsDiv_32f_I)(const Zam32f* pSrc, Zam32f* pSrcDst, int len) {
    return zamsDiv_32f(pSrc, pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsDiv_64f)(const Zam64f* pSrc1, const Zam64f* pSrc2, Zam64f* pDst, int len) {
    return zams::div_real(pSrc1, pSrc2, pDst, len, zams::threshold::Div_64f);
}
ZAMS_FN(zamStatus, zamsDiv_64f_I)(const Zam64f* pSrc, Zam64f* pSrcDst, int len) {
    return zamsDiv_64f(pSrc, pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsDiv_32fc)(const Zam32fc* pSrc1, const Zam32fc* pSrc2, Zam32fc* pDst, int len) {
    return zams::div_complex(pSrc1, pSrc2, pDst, len, zams::threshold::Div_32fc, zams::div32fc_slice);
}
ZAMS_FN(zamStatus, zamsDiv_32fc_I)(const Zam32fc* pSrc, Zam32fc* pSrcDst, int len) {
    return zamsDiv_32fc(pSrc, pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsDiv_64fc)(const Zam64fc* pSrc1, const Zam64fc* pSrc2, Zam64fc* pDst, int len) {
    return zams::div_complex(pSrc1, pSrc2, pDst, len, zams::threshold::Div_64fc, zams::div64fc_slice);
}
ZAMS_FN(zamStatus, zamsDiv_64fc_I)(const Zam64fc* pSrc, Zam64fc* pSrcDst, int len) {
    return zamsDiv_64fc(pSrc, pSrcDst, pSrcDst, len);
}
ZAMS_FN(zamStatus, zamsDivCRev_32f)(const Zam32f* pSrc, Zam32f val, Zam32f* pDst, int len) {
    return zams::divcrev_32f(pSrc, val, pDst, len);
}
ZAMS_FN(zamStatus, zamsDivCRev_32f_I)(Zam32f val, Zam32f* pSrcDst, int len) {
    return zamsDivCRev_32f(pSrcDst, val, pSrcDst, len);
}
