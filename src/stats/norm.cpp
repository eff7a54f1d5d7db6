// Norms of a vector and of the difference of two vectors.
//
// Floating norms accumulate in double precision in four lanes (lane =
// index modulo 4, combined in a fixed order), so results do not depend on
// alignment; integer norms are exact until the final scaling.
#include <immintrin.h>

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "../common/check.h"
#include "wide.h"

namespace zams::red {
namespace {

enum class Kind { Inf, L1, L2, L2Sqr };

// Element n of x, or of x - y: as a double for floating types (complex: its
// squared magnitude), as an exact integer for 16-bit ones.
template <class S, bool Diff> struct View {
    const S* x;
    const S* y;  // unused for the norm of x alone
    double sq(int i) const {
        if constexpr (is_complex_v<S>) {
            double re = double(x[i].re) - (Diff ? double(y[i].re) : 0.0), im = double(x[i].im) - (Diff ? double(y[i].im) : 0.0);
            return re * re + im * im;
        } else {
            double d = double(x[i]) - (Diff ? double(y[i]) : 0.0);
            return d * d;
        }
    }
    double abs(int i) const {
        if constexpr (is_complex_v<S>) return std::sqrt(sq(i));
        else return std::fabs(double(x[i]) - (Diff ? double(y[i]) : 0.0));
    }
    int32_t diff(int i) const { return int32_t(x[i]) - (Diff ? int32_t(y[i]) : 0); }
};

// Sum of squares of floats in double precision: the L2 kernel of 32f.
double sum_squares(const float* x, int n) {
    __m256d s0 = _mm256_setzero_pd(), s1 = s0, s2 = s0, s3 = s0;
    auto sq = [&](int k) {
        __m256d v = _mm256_cvtps_pd(_mm_loadu_ps(x + k));
        return _mm256_mul_pd(v, v);
    };
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        s0 = _mm256_add_pd(s0, sq(i));
        s1 = _mm256_add_pd(s1, sq(i + 4));
        s2 = _mm256_add_pd(s2, sq(i + 8));
        s3 = _mm256_add_pd(s3, sq(i + 12));
    }
    for (; i + 4 <= n; i += 4) s0 = _mm256_add_pd(s0, sq(i));
    double l[4];
    _mm256_storeu_pd(l, _mm256_add_pd(_mm256_add_pd(s0, s1), _mm256_add_pd(s2, s3)));
    for (; i < n; ++i) l[i & 3] += double(x[i]) * double(x[i]);
    return (l[0] + l[1]) + (l[2] + l[3]);
}

template <Kind K, class S, bool D> double norm_fl(View<S, D> v, int n) {
    if constexpr (K == Kind::L2 && std::is_same_v<S, Zam32f> && !D) {
        return std::sqrt(sum_squares(v.x, n));
    } else if constexpr (K == Kind::Inf) {
        double m = 0;
        for (int i = 0; i < n; ++i) {
            double a = v.abs(i);
            m = (a > m || a != a) ? a : m;  // a NaN stays
        }
        return m;
    } else {
        double acc[4] = {0, 0, 0, 0};
        int i = 0;
        for (; i + 4 <= n; i += 4)
            for (int k = 0; k < 4; ++k) acc[k] += K == Kind::L1 ? v.abs(i + k) : v.sq(i + k);
        for (; i < n; ++i) acc[i & 3] += K == Kind::L1 ? v.abs(i) : v.sq(i);
        double s = (acc[0] + acc[1]) + (acc[2] + acc[3]);
        return K == Kind::L2 ? std::sqrt(s) : s;
    }
}

template <Kind K, class S, class D> zamStatus norm_float(const S* a, const S* b, int len, D* dst) {
    if (zamStatus s = b ? check_ptr(a, b, dst) : check_ptr(a, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    *dst = static_cast<D>(b ? norm_fl<K>(View<S, true>{a, b}, len) : norm_fl<K>(View<S, false>{a, b}, len));
    return zamStatusOk;
}

// 16-bit integers: max |x|, sum |x| exactly; sum x^2 exactly in 128 bits
// (a difference squared reaches 2^32).
struct IntNorms {
    int64_t inf = 0, l1 = 0;
    I128 l2;
};
template <Kind K, bool D> IntNorms int_norms(View<Zam16s, D> v, int n) {
    IntNorms r;
    for (int i0 = 0; i0 < n; i0 += 1 << 20) {
        int end = n - i0 > (1 << 20) ? i0 + (1 << 20) : n;
        int64_t sq = 0;
        for (int i = i0; i < end; ++i) {
            int64_t d = v.diff(i), a = d < 0 ? -d : d;
            if constexpr (K == Kind::Inf) r.inf = a > r.inf ? a : r.inf;
            if constexpr (K == Kind::L1) r.l1 += a;
            if constexpr (K == Kind::L2 || K == Kind::L2Sqr) sq += d * d;
        }
        r.l2 += sq;
    }
    return r;
}

template <Kind K> zamStatus norm_16s32f(const Zam16s* a, const Zam16s* b, int len, Zam32f* dst) {
    if (zamStatus s = b ? check_ptr(a, b, dst) : check_ptr(a, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    IntNorms r = b ? int_norms<K>(View<Zam16s, true>{a, b}, len) : int_norms<K>(View<Zam16s, false>{a, b}, len);
    if constexpr (K == Kind::Inf) *dst = float(r.inf);
    if constexpr (K == Kind::L1) *dst = float(r.l1);
    if constexpr (K == Kind::L2) *dst = float(std::sqrt(r.l2.to_double()));
    return zamStatusOk;
}

// The integer L2 norm: root in double precision, divided (multiplied) by
// 2^(sf mod 32) for a positive (negative) factor, saturated, truncated.
Zam32s l2_scaled(double root, int sf) {
    int k = sf >= 0 ? sf % 32 : -((-(int64_t)sf) % 32);
    double v = root * pow2(-k);
    if (v >= 2147483647.0) return 2147483647;
    return static_cast<Zam32s>(v);  // truncation toward zero
}

template <Kind K, class D> zamStatus norm_16s_sfs(const Zam16s* a, const Zam16s* b, int len, D* dst, int sf) {
    if (zamStatus s = b ? check_ptr(a, b, dst) : check_ptr(a, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    IntNorms r = b ? int_norms<K>(View<Zam16s, true>{a, b}, len) : int_norms<K>(View<Zam16s, false>{a, b}, len);
    if constexpr (K == Kind::Inf) *dst = scale_round_sat<D>(r.inf, sf);
    if constexpr (K == Kind::L1) *dst = scale_round_sat<D>(r.l1, sf);
    if constexpr (K == Kind::L2) *dst = l2_scaled(std::sqrt(r.l2.to_double()), sf);
    if constexpr (K == Kind::L2Sqr) *dst = scale_wide<D>(r.l2, sf);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

// Each norm twice: of pSrc, and of pSrc1 - pSrc2.
#define ZAMS_NORM_FL(K, N, S, D)                                                                                   \
    ZAMS_FN(zamStatus, zamsNorm_##K##_##N)(const S* pSrc, int len, D* pNorm) {                                     \
        return norm_float<Kind::K>(pSrc, static_cast<const S*>(nullptr), len, pNorm);                             \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsNormDiff_##K##_##N)(const S* pSrc1, const S* pSrc2, int len, D* pNorm) {                \
        if (!pSrc2) return zamStatusNullPointer;                                                                  \
        return norm_float<Kind::K>(pSrc1, pSrc2, len, pNorm);                                                     \
    }
#define ZAMS_NORM_16S(K, N, D, fn, ...)                                                                             \
    ZAMS_FN(zamStatus, zamsNorm_##K##_##N)(const Zam16s* pSrc, int len, D* pNorm __VA_OPT__(, int scaleFactor)) {  \
        return fn<Kind::K>(pSrc, static_cast<const Zam16s*>(nullptr), len, pNorm __VA_OPT__(, scaleFactor));      \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsNormDiff_##K##_##N)(const Zam16s* pSrc1, const Zam16s* pSrc2, int len,                  \
                                               D* pNorm __VA_OPT__(, int scaleFactor)) {                          \
        if (!pSrc1 || !pSrc2) return zamStatusNullPointer;                                                        \
        return fn<Kind::K>(pSrc1, pSrc2, len, pNorm __VA_OPT__(, scaleFactor));                                   \
    }

ZAMS_NORM_FL(Inf, 32f, Zam32f, Zam32f)
ZAMS_NORM_FL(Inf, 64f, Zam64f, Zam64f)
ZAMS_NORM_FL(Inf, 32fc32f, Zam32fc, Zam32f)
ZAMS_NORM_FL(Inf, 64fc64f, Zam64fc, Zam64f)
ZAMS_NORM_FL(L1, 32f, Zam32f, Zam32f)
ZAMS_NORM_FL(L1, 64f, Zam64f, Zam64f)
ZAMS_NORM_FL(L1, 32fc64f, Zam32fc, Zam64f)
ZAMS_NORM_FL(L1, 64fc64f, Zam64fc, Zam64f)
ZAMS_NORM_FL(L2, 32f, Zam32f, Zam32f)
ZAMS_NORM_FL(L2, 64f, Zam64f, Zam64f)
ZAMS_NORM_FL(L2, 32fc64f, Zam32fc, Zam64f)
ZAMS_NORM_FL(L2, 64fc64f, Zam64fc, Zam64f)

ZAMS_NORM_16S(Inf, 16s32f, Zam32f, norm_16s32f)
ZAMS_NORM_16S(L1, 16s32f, Zam32f, norm_16s32f)
ZAMS_NORM_16S(L2, 16s32f, Zam32f, norm_16s32f)
ZAMS_NORM_16S(Inf, 16s32s_Sfs, Zam32s, norm_16s_sfs, sf)
ZAMS_NORM_16S(L1, 16s32s_Sfs, Zam32s, norm_16s_sfs, sf)
ZAMS_NORM_16S(L2, 16s32s_Sfs, Zam32s, norm_16s_sfs, sf)
ZAMS_NORM_16S(L1, 16s64s_Sfs, Zam64s, norm_16s_sfs, sf)
ZAMS_NORM_16S(L2Sqr, 16s64s_Sfs, Zam64s, norm_16s_sfs, sf)
