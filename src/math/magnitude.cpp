// Complex measures: Magnitude, Phase, CartToPolar and PowerSpectr of
// complex vectors, given interleaved (32fc, 64fc, 16sc) or as separate real
// and imaginary parts.
#include <immintrin.h>

#include <cstring>

#include "../common/check.h"
#include "../common/loop.h"
#include "../common/types.h"
#include "../common/num/bits.h"
#include "../common/num/elem.h"
#include "../core/parallel.h"
#include "sqrt_kernel.h"

namespace zams {

namespace {

inline bool inf_d(double v) { return v - v != v - v && v == v; }
inline double abs_d(double v) { return from_bits(0) + (v < 0 ? -v : v); }
inline double sqrt_d(double x) { return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(x))); }
const double kInf = from_bits(0x7ff0000000000000ull);

// |re + i im| with the C99 hypot rules: an infinite part gives +inf even
// when the other is NaN. Arguments far from 1 are scaled by a power of two
// so that the squares neither overflow nor underflow.
inline double hypot_d(double re, double im) {
    if (inf_d(re) || inf_d(im)) return kInf;
    double a = abs_d(re), b = abs_d(im), m = a > b ? a : b;
    if (m > from_bits(0x5f30000000000000ull) || (m < from_bits(0x20b0000000000000ull) && m > 0)) {
        // 2^500 and 2^-500; scale by 2^-600 or 2^600
        double s = m > 1 ? from_bits(0x1a70000000000000ull) : from_bits(0x6570000000000000ull);
        double u = m > 1 ? from_bits(0x6570000000000000ull) : from_bits(0x1a70000000000000ull);
        a *= s, b *= s;
        return sqrt_d(a * a + b * b) * u;
    }
    return sqrt_d(a * a + b * b);
}

// Single precision in double: the squares are exact, the sum and the root
// are rounded once each, so results are within an ulp and never overflow.
inline Zam32f hypot_f(Zam32f re, Zam32f im) {
    if (inf_d(re) || inf_d(im)) return Zam32f(kInf);
    double a = re, b = im;
    return Zam32f(sqrt_d(a * a + b * b));
}

void magnitude_32fc_slice(const Zam32fc* src, Zam32f* dst, int cnt) {
    for_each_block<4, 16>(
        dst, cnt, [&](int i) { dst[i] = hypot_f(src[i].re, src[i].im); },
        [&](int i) {
            const float* p = reinterpret_cast<const float*>(src + i);
            __m256d a = _mm256_cvtps_pd(_mm_loadu_ps(p)), b = _mm256_cvtps_pd(_mm_loadu_ps(p + 4));
            __m256d s = _mm256_hadd_pd(_mm256_mul_pd(a, a), _mm256_mul_pd(b, b));  // m0 m2 m1 m3
            __m128 m = _mm256_cvtpd_ps(_mm256_sqrt_pd(s));
            m = _mm_shuffle_ps(m, m, _MM_SHUFFLE(3, 1, 2, 0));
            _mm_storeu_ps(dst + i, m);
            // NaN sums come from NaN or inf - inf: settle those by the rules
            if (_mm256_movemask_pd(_mm256_cmp_pd(s, s, _CMP_UNORD_Q)))
                for (int j = i; j < i + 4; ++j) dst[j] = hypot_f(src[j].re, src[j].im);
        });
}

template <class F> void magnitude_parts_slice(const F* re, const F* im, F* dst, int cnt) {
    for (int i = 0; i < cnt; ++i) {
        if constexpr (sizeof(F) == 4) dst[i] = hypot_f(re[i], im[i]);
        else dst[i] = hypot_d(re[i], im[i]);
    }
}

zamStatus magnitude_32fc(const Zam32fc* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_threshold(len, threshold::Magnitude_32fc, Team::AtMostTwo, [&](int off, int cnt) {
        magnitude_32fc_slice(src + off, dst + off, cnt);
        return false;
    });
    return zamStatusOk;
}

// round(sqrt(re^2 + im^2) 2^-sf), exact, saturated.
template <class Get>
zamStatus magnitude_16s(int len, Zam16s* dst, int sf, Get get) {
    run_threshold(len, threshold::Magnitude_16sc, Team::AtMostTwo, [&](int off, int cnt) {
        for (int i = off; i < off + cnt; ++i) {
            int64_t re, im;
            get(i, re, im);
            uint64_t m = sqrt_scaled(uint64_t(re * re + im * im), sf);
            dst[i] = m > 32767 ? Zam16s(32767) : Zam16s(m);
        }
        return false;
    });
    return zamStatusOk;
}

template <class C, class F> zamStatus power_c(const C* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        if constexpr (sizeof(F) == 4) {
            double a = src[i].re, b = src[i].im;
            dst[i] = F(a * a + b * b);
        } else {
            dst[i] = src[i].re * src[i].re + src[i].im * src[i].im;
        }
    }
    return zamStatusOk;
}

template <class F> zamStatus power_parts(const F* re, const F* im, F* dst, int len) {
    if (zamStatus s = check_args(len, re, im, dst)) return s;
    for (int i = 0; i < len; ++i) {
        if constexpr (sizeof(F) == 4) {
            double a = re[i], b = im[i];
            dst[i] = F(a * a + b * b);
        } else {
            dst[i] = re[i] * re[i] + im[i] * im[i];
        }
    }
    return zamStatusOk;
}

// Phase: atan2(im, re), single precision through double.

template <class C, class F> zamStatus phase_c(const C* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(elem::atan2(src[i].im, src[i].re));
    return zamStatusOk;
}

template <class F> zamStatus phase_parts(const F* re, const F* im, F* dst, int len) {
    if (zamStatus s = check_args(len, re, im, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(elem::atan2(im[i], re[i]));
    return zamStatusOk;
}

inline Zam32f magnitude_of(Zam32f re, Zam32f im) { return hypot_f(re, im); }
inline Zam64f magnitude_of(Zam64f re, Zam64f im) { return hypot_d(re, im); }

template <class C, class F> zamStatus magnitude_c(const C* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = magnitude_of(F(src[i].re), F(src[i].im));
    return zamStatusOk;
}

template <class C, class F> zamStatus cart_to_polar_c(const C* src, F* mag, F* phase, int len) {
    if (zamStatus s = check_args(len, src, mag, phase)) return s;
    for (int i = 0; i < len; ++i) {
        F re = src[i].re, im = src[i].im;  // read both before writing: outputs may overlay the source
        mag[i] = magnitude_of(re, im);
        phase[i] = F(elem::atan2(im, re));
    }
    return zamStatusOk;
}

template <class F> zamStatus cart_to_polar_parts(const F* re, const F* im, F* mag, F* phase, int len) {
    if (zamStatus s = check_args(len, re, im, mag, phase)) return s;
    for (int i = 0; i < len; ++i) {
        F a = re[i], b = im[i];
        mag[i] = magnitude_of(a, b);
        phase[i] = F(elem::atan2(b, a));
    }
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsPhase_32fc)(const Zam32fc* pSrc, Zam32f* pDst, int len) { return zams::phase_c(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsPhase_64fc)(const Zam64fc* pSrc, Zam64f* pDst, int len) { return zams::phase_c(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsPhase_32f)(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len) {
    return zams::phase_parts(pSrcRe, pSrcIm, pDst, len);
}
ZAMS_FN(zamStatus, zamsPhase_64f)(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len) {
    return zams::phase_parts(pSrcRe, pSrcIm, pDst, len);
}
ZAMS_FN(zamStatus, zamsCartToPolar_32fc)(const Zam32fc* pSrc, Zam32f* pDstMagn, Zam32f* pDstPhase, int len) {
    return zams::cart_to_polar_c(pSrc, pDstMagn, pDstPhase, len);
}
ZAMS_FN(zamStatus, zamsCartToPolar_64fc)(const Zam64fc* pSrc, Zam64f* pDstMagn, Zam64f* pDstPhase, int len) {
    return zams::cart_to_polar_c(pSrc, pDstMagn, pDstPhase, len);
}
ZAMS_FN(zamStatus, zamsCartToPolar_32f)(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDstMagn, Zam32f* pDstPhase, int len) {
    return zams::cart_to_polar_parts(pSrcRe, pSrcIm, pDstMagn, pDstPhase, len);
}
ZAMS_FN(zamStatus, zamsCartToPolar_64f)(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDstMagn, Zam64f* pDstPhase, int len) {
    return zams::cart_to_polar_parts(pSrcRe, pSrcIm, pDstMagn, pDstPhase, len);
}

ZAMS_FN(zamStatus, zamsMagnitude_32fc)(const Zam32fc* pSrc, Zam32f* pDst, int len) {
    return zams::magnitude_32fc(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsMagnitude_64fc)(const Zam64fc* pSrc, Zam64f* pDst, int len) {
    return zams::magnitude_c(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsMagnitude_32f)(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len) {
    if (zamStatus s = zams::check_args(len, pSrcRe, pSrcIm, pDst)) return s;
    zams::magnitude_parts_slice(pSrcRe, pSrcIm, pDst, len);
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsMagnitude_64f)(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len) {
    if (zamStatus s = zams::check_args(len, pSrcRe, pSrcIm, pDst)) return s;
    zams::magnitude_parts_slice(pSrcRe, pSrcIm, pDst, len);
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsMagnitude_16sc_Sfs)(const Zam16sc* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    if (zamStatus s = zams::check_args(len, pSrc, pDst)) return s;
    return zams::magnitude_16s(len, pDst, scaleFactor, [=](int i, int64_t& re, int64_t& im) {
        re = pSrc[i].re, im = pSrc[i].im;
    });
}
ZAMS_FN(zamStatus, zamsMagnitude_16s_Sfs)(const Zam16s* pSrcRe, const Zam16s* pSrcIm, Zam16s* pDst, int len, int scaleFactor) {
    if (zamStatus s = zams::check_args(len, pSrcRe, pSrcIm, pDst)) return s;
    return zams::magnitude_16s(len, pDst, scaleFactor, [=](int i, int64_t& re, int64_t& im) {
        re = pSrcRe[i], im = pSrcIm[i];
    });
}
ZAMS_FN(zamStatus, zamsPowerSpectr_32fc)(const Zam32fc* pSrc, Zam32f* pDst, int len) {
    return zams::power_c(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsPowerSpectr_64fc)(const Zam64fc* pSrc, Zam64f* pDst, int len) {
    return zams::power_c(pSrc, pDst, len);
}
ZAMS_FN(zamStatus, zamsPowerSpectr_32f)(const Zam32f* pSrcRe, const Zam32f* pSrcIm, Zam32f* pDst, int len) {
    return zams::power_parts(pSrcRe, pSrcIm, pDst, len);
}
ZAMS_FN(zamStatus, zamsPowerSpectr_64f)(const Zam64f* pSrcRe, const Zam64f* pSrcIm, Zam64f* pDst, int len) {
    return zams::power_parts(pSrcRe, pSrcIm, pDst, len);
}
