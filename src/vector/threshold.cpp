// Thresholding: clamp, replace or invert the elements beyond a level.
#include <immintrin.h>

#include <cmath>
#include <type_traits>

#include "../common/check.h"
#include "../common/loop.h"
#include "../common/round.h"
#include "../common/types.h"
#include "../core/parallel.h"

namespace zams {
namespace {

// ---------------------------------------------------------------- real kinds

enum class Kind { LT, GT, LTAbs, GTAbs };

template <class T> inline bool negative(T x) {
    if constexpr (std::is_floating_point_v<T>) return std::signbit(x);
    else return x < 0;
}

// |x| in a type wide enough for the most negative integer.
template <class T> inline auto magnitude(T x) {
    if constexpr (std::is_floating_point_v<T>) return std::fabs(x);
    else return x < 0 ? -int64_t(x) : int64_t(x);
}

template <Kind K, class T> inline T clamp_one(T x, T level) {
    if constexpr (K == Kind::LT) return x < level ? level : x;
    if constexpr (K == Kind::GT) return x > level ? level : x;
    if constexpr (K == Kind::LTAbs) return magnitude(x) < level ? (negative(x) ? T(-level) : level) : x;
    if constexpr (K == Kind::GTAbs) return magnitude(x) > level ? (negative(x) ? T(-level) : level) : x;
}

// The float and double LT/GT kinds are max/min with the element as the
// second operand: the instruction returns it on equality and for NaN, which
// is exactly "keep unless strictly beyond".
template <Kind K, class T> void clamp_simd(const T* src, T* dst, int len, T level) {
    if constexpr (std::is_same_v<T, float>) {
        const __m256 l = _mm256_set1_ps(level);
        for_each_block<16>(
            dst, len, [&](int i) { dst[i] = clamp_one<K>(src[i], level); },
            [&](int i) {
                __m256 a = _mm256_loadu_ps(src + i), b = _mm256_loadu_ps(src + i + 8);
                if constexpr (K == Kind::LT) a = _mm256_max_ps(l, a), b = _mm256_max_ps(l, b);
                else a = _mm256_min_ps(l, a), b = _mm256_min_ps(l, b);
                _mm256_storeu_ps(dst + i, a);
                _mm256_storeu_ps(dst + i + 8, b);
            });
    } else {
        const __m256d l = _mm256_set1_pd(level);
        for_each_block<8>(
            dst, len, [&](int i) { dst[i] = clamp_one<K>(src[i], level); },
            [&](int i) {
                __m256d a = _mm256_loadu_pd(src + i), b = _mm256_loadu_pd(src + i + 4);
                if constexpr (K == Kind::LT) a = _mm256_max_pd(l, a), b = _mm256_max_pd(l, b);
                else a = _mm256_min_pd(l, a), b = _mm256_min_pd(l, b);
                _mm256_storeu_pd(dst + i, a);
                _mm256_storeu_pd(dst + i + 4, b);
            });
    }
}

template <Kind K, class T> zamStatus clamp_real(const T* src, T* dst, int len, T level) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if constexpr (K == Kind::LTAbs || K == Kind::GTAbs)
        if (level < 0) return zamStatusBadThresholdLevel;
    if constexpr (std::is_floating_point_v<T> && (K == Kind::LT || K == Kind::GT)) {
        clamp_simd<K>(src, dst, len, level);
    } else {
        for (int i = 0; i < len; ++i) dst[i] = clamp_one<K>(src[i], level);
    }
    return zamStatusOk;
}

template <class T> zamStatus threshold_real(const T* src, T* dst, int len, T level, int op) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (op == zamCmpLess) return clamp_real<Kind::LT>(src, dst, len, level);
    if (op == zamCmpGreater) return clamp_real<Kind::GT>(src, dst, len, level);
    return zamStatusBadArgument;
}

template <bool Less, class T> zamStatus replace_real(const T* src, T* dst, int len, T level, T value) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        dst[i] = (Less ? x < level : x > level) ? value : x;
    }
    return zamStatusOk;
}

template <class T> zamStatus replace_both(const T* src, T* dst, int len, T lo, T vlo, T hi, T vhi) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (lo > hi) return zamStatusBadThresholdRange;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        dst[i] = x < lo ? vlo : (x > hi ? vhi : x);
    }
    return zamStatusOk;
}

// ------------------------------------------------------------- complex kinds

// Squared magnitudes are exact for 16-bit parts (64-bit integers) and for
// float parts (each square exact in double, one rounding for the sum).
template <class P> using wide_t = std::conditional_t<std::is_integral_v<P>, int64_t, double>;

template <class C> inline auto norm2(const C& x) {
    using W = wide_t<part_t<C>>;
    return W(x.re) * W(x.re) + W(x.im) * W(x.im);
}

inline Zam16s round_even_16s(double v) { return static_cast<Zam16s>(round_even(v)); }

template <class P> inline P from_double(double v) {
    if constexpr (std::is_same_v<P, Zam16s>) return round_even_16s(v);
    else return static_cast<P>(v);
}

// x scaled to magnitude `level`, phase kept; a zero element (no phase)
// becomes (level, 0).
template <class C, class P> inline C to_magnitude(const C& x, P level, double n2) {
    if (n2 == 0) return C{level, P(0)};
    double r = std::sqrt(n2);
    return C{from_double<P>(double(x.re) * double(level) / r), from_double<P>(double(x.im) * double(level) / r)};
}

template <bool Less, class C, class P> zamStatus clamp_complex(const C* src, C* dst, int len, P level) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (level < 0) return zamStatusBadThresholdLevel;
    using W = wide_t<P>;
    const W l2 = W(level) * W(level);
    for (int i = 0; i < len; ++i) {
        C x = src[i];
        W n2 = norm2(x);
        dst[i] = (Less ? n2 < l2 : n2 > l2) ? to_magnitude(x, level, double(n2)) : x;
    }
    return zamStatusOk;
}

template <class C, class P> zamStatus threshold_complex(const C* src, C* dst, int len, P level, int op) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (op == zamCmpLess) return clamp_complex<true>(src, dst, len, level);
    if (op == zamCmpGreater) return clamp_complex<false>(src, dst, len, level);
    return zamStatusBadArgument;
}

template <bool Less, class C, class P> zamStatus replace_complex(const C* src, C* dst, int len, P level, C value) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (level < 0) return zamStatusBadThresholdLevel;
    using W = wide_t<P>;
    const W l2 = W(level) * W(level);
    for (int i = 0; i < len; ++i) {
        W n2 = norm2(src[i]);
        dst[i] = (Less ? n2 < l2 : n2 > l2) ? value : src[i];
    }
    return zamStatusOk;
}

// ------------------------------------------------------------ inverse kinds

// 1/x with |x| first raised to `level`. Returns true when a zero element met
// a zero level (the result there is an infinity).
template <class T> bool invert_real(const T* src, T* dst, int len, T level) {
    const T inv = T(1) / level;
    bool zero = false;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        zero |= x == T(0);
        dst[i] = std::fabs(x) < level ? std::copysign(inv, x) : T(1) / x;
    }
    return zero && level == T(0);
}

// Complex: x floored to magnitude `level` keeps its phase, so its reciprocal
// is conj(x) / (|x| level); a zero element gives (1/level, 0).
template <class C> bool invert_complex(const C* src, C* dst, int len, part_t<C> level) {
    using P = part_t<C>;
    const double l = level, l2 = l * l;
    bool zero = false;
    for (int i = 0; i < len; ++i) {
        C x = src[i];
        double n2 = norm2(x);
        if (n2 == 0) {
            zero = true;
            dst[i] = C{P(1.0 / l), P(0)};
        } else if (n2 < l2) {
            double d = std::sqrt(n2) * l;
            dst[i] = C{P(double(x.re) / d), P(-double(x.im) / d)};
        } else {
            dst[i] = C{P(double(x.re) / n2), P(-double(x.im) / n2)};
        }
    }
    return zero && level == P(0);
}

template <class T, class P, class Kernel>
zamStatus invert(const T* src, T* dst, int len, P level, int parallel_from, Kernel kernel) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (level < 0) return zamStatusBadThresholdLevel;
    if (len < parallel_from) return kernel(src, dst, len, level) ? zamStatusWarnInvThreshZero : zamStatusOk;
    int warned = run_sliced(len, Team::AtMostTwo,
                            [&](int off, int n) { return kernel(src + off, dst + off, n, level); });
    return warned ? zamStatusWarnDivByZero : zamStatusOk;
}

template <class T> zamStatus inv_real(const T* s, T* d, int n, T level) {
    return invert(s, d, n, level, sizeof(T) == 4 ? 8192 : 2048, invert_real<T>);
}
template <class C> zamStatus inv_complex(const C* s, C* d, int n, part_t<C> level) {
    return invert(s, d, n, level, sizeof(C) == 8 ? 2048 : 512, invert_complex<C>);
}

// Dispatch of the clamp kinds by element type.
template <Kind K, class T, class P> zamStatus clamp(const T* s, T* d, int n, P level) {
    if constexpr (is_complex_v<T>) return clamp_complex<K == Kind::LT>(s, d, n, level);
    else return clamp_real<K>(s, d, n, level);
}
template <bool Less, class T, class P> zamStatus replace(const T* s, T* d, int n, P level, T value) {
    if constexpr (is_complex_v<T>) return replace_complex<Less>(s, d, n, level, value);
    else return replace_real<Less>(s, d, n, level, value);
}
template <class T, class P> zamStatus generic(const T* s, T* d, int n, P level, int op) {
    if constexpr (is_complex_v<T>) return threshold_complex(s, d, n, level, op);
    else return threshold_real(s, d, n, level, op);
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsThreshold_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_16s_I)(Zam16s* pSrcDst, int len, Zam16s level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_16sc_I)(Zam16sc* pSrcDst, int len, Zam16s level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_32f_I)(Zam32f* pSrcDst, int len, Zam32f level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_64f_I)(Zam64f* pSrcDst, int len, Zam64f level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, zamCmpOp relOp) { return generic(pSrc, pDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level, zamCmpOp relOp) { return generic(pSrcDst, pSrcDst, len, level, relOp); }
ZAMS_FN(zamStatus, zamsThreshold_LT_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_16s_I)(Zam16s* pSrcDst, int len, Zam16s level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_16sc_I)(Zam16sc* pSrcDst, int len, Zam16s level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32s)(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32s_I)(Zam32s* pSrcDst, int len, Zam32s level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32f_I)(Zam32f* pSrcDst, int len, Zam32f level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_64f_I)(Zam64f* pSrcDst, int len, Zam64f level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level) { return clamp<Kind::LT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LT_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level) { return clamp<Kind::LT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_16s_I)(Zam16s* pSrcDst, int len, Zam16s level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_16sc_I)(Zam16sc* pSrcDst, int len, Zam16s level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32s)(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32s_I)(Zam32s* pSrcDst, int len, Zam32s level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32f_I)(Zam32f* pSrcDst, int len, Zam32f level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_64f_I)(Zam64f* pSrcDst, int len, Zam64f level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level) { return clamp<Kind::GT>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GT_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level) { return clamp<Kind::GT>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level) { return clamp_real<Kind::LTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_16s_I)(Zam16s* pSrcDst, int len, Zam16s level) { return clamp_real<Kind::LTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_32s)(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level) { return clamp_real<Kind::LTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_32s_I)(Zam32s* pSrcDst, int len, Zam32s level) { return clamp_real<Kind::LTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level) { return clamp_real<Kind::LTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_32f_I)(Zam32f* pSrcDst, int len, Zam32f level) { return clamp_real<Kind::LTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level) { return clamp_real<Kind::LTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTAbs_64f_I)(Zam64f* pSrcDst, int len, Zam64f level) { return clamp_real<Kind::LTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level) { return clamp_real<Kind::GTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_16s_I)(Zam16s* pSrcDst, int len, Zam16s level) { return clamp_real<Kind::GTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_32s)(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s level) { return clamp_real<Kind::GTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_32s_I)(Zam32s* pSrcDst, int len, Zam32s level) { return clamp_real<Kind::GTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level) { return clamp_real<Kind::GTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_32f_I)(Zam32f* pSrcDst, int len, Zam32f level) { return clamp_real<Kind::GTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level) { return clamp_real<Kind::GTAbs>(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_GTAbs_64f_I)(Zam64f* pSrcDst, int len, Zam64f level) { return clamp_real<Kind::GTAbs>(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, Zam16s value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_16s_I)(Zam16s* pSrcDst, int len, Zam16s level, Zam16s value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, Zam16sc value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_16sc_I)(Zam16sc* pSrcDst, int len, Zam16s level, Zam16sc value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, Zam32f value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_32f_I)(Zam32f* pSrcDst, int len, Zam32f level, Zam32f value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, Zam32fc value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level, Zam32fc value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, Zam64f value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_64f_I)(Zam64f* pSrcDst, int len, Zam64f level, Zam64f value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, Zam64fc value) { return replace<true>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTVal_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level, Zam64fc value) { return replace<true>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s level, Zam16s value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_16s_I)(Zam16s* pSrcDst, int len, Zam16s level, Zam16s value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, Zam16s level, Zam16sc value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_16sc_I)(Zam16sc* pSrcDst, int len, Zam16s level, Zam16sc value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level, Zam32f value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_32f_I)(Zam32f* pSrcDst, int len, Zam32f level, Zam32f value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level, Zam32fc value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level, Zam32fc value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level, Zam64f value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_64f_I)(Zam64f* pSrcDst, int len, Zam64f level, Zam64f value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level, Zam64fc value) { return replace<false>(pSrc, pDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_GTVal_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level, Zam64fc value) { return replace<false>(pSrcDst, pSrcDst, len, level, value); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, Zam16s levelLT, Zam16s valueLT, Zam16s levelGT, Zam16s valueGT) { return replace_both(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_16s_I)(Zam16s* pSrcDst, int len, Zam16s levelLT, Zam16s valueLT, Zam16s levelGT, Zam16s valueGT) { return replace_both(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_32s)(const Zam32s* pSrc, Zam32s* pDst, int len, Zam32s levelLT, Zam32s valueLT, Zam32s levelGT, Zam32s valueGT) { return replace_both(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_32s_I)(Zam32s* pSrcDst, int len, Zam32s levelLT, Zam32s valueLT, Zam32s levelGT, Zam32s valueGT) { return replace_both(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f levelLT, Zam32f valueLT, Zam32f levelGT, Zam32f valueGT) { return replace_both(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_32f_I)(Zam32f* pSrcDst, int len, Zam32f levelLT, Zam32f valueLT, Zam32f levelGT, Zam32f valueGT) { return replace_both(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f levelLT, Zam64f valueLT, Zam64f levelGT, Zam64f valueGT) { return replace_both(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTValGTVal_64f_I)(Zam64f* pSrcDst, int len, Zam64f levelLT, Zam64f valueLT, Zam64f levelGT, Zam64f valueGT) { return replace_both(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_32f)(const Zam32f* pSrc, Zam32f* pDst, int len, Zam32f level) { return inv_real(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_32f_I)(Zam32f* pSrcDst, int len, Zam32f level) { return inv_real(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_32fc)(const Zam32fc* pSrc, Zam32fc* pDst, int len, Zam32f level) { return inv_complex(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_32fc_I)(Zam32fc* pSrcDst, int len, Zam32f level) { return inv_complex(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_64f)(const Zam64f* pSrc, Zam64f* pDst, int len, Zam64f level) { return inv_real(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_64f_I)(Zam64f* pSrcDst, int len, Zam64f level) { return inv_real(pSrcDst, pSrcDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_64fc)(const Zam64fc* pSrc, Zam64fc* pDst, int len, Zam64f level) { return inv_complex(pSrc, pDst, len, level); }
ZAMS_FN(zamStatus, zamsThreshold_LTInv_64fc_I)(Zam64fc* pSrcDst, int len, Zam64f level) { return inv_complex(pSrcDst, pSrcDst, len, level); }
