// Extremes: maximum, minimum, by magnitude, with first-occurrence indices.
//
// The rule every member follows is the scalar scan: the first element is
// the candidate and a later one replaces it only when strictly greater
// (smaller). So the index is that of the first occurrence of the extreme,
// and a NaN is taken only as the first element. The vector kernels find the
// extreme value over the non-NaN elements and then the first element equal
// to it, which gives exactly the scan's value (including the sign of a zero)
// and index.
#include <immintrin.h>

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "../common/check.h"
#include "../common/types.h"

namespace zams::red {
namespace {

template <bool Max, class T> inline bool beats(T a, T b) { return Max ? a > b : a < b; }

template <bool Max, class T> int scan(const T* x, int n) {
    int k = 0;
    for (int i = 1; i < n; ++i)
        if (beats<Max>(x[i], x[k])) k = i;
    return k;
}

// First i with x[i] == v (n if none).
template <class T> int find_equal(const T* x, int n, T v) {
    int i = 0;
    if constexpr (std::is_same_v<T, float>) {
        const __m256 b = _mm256_set1_ps(v);
        for (; i + 8 <= n; i += 8)
            if (int m = _mm256_movemask_ps(_mm256_cmp_ps(_mm256_loadu_ps(x + i), b, _CMP_EQ_OQ))) return i + __builtin_ctz(m);
    } else if constexpr (std::is_same_v<T, double>) {
        const __m256d b = _mm256_set1_pd(v);
        for (; i + 4 <= n; i += 4)
            if (int m = _mm256_movemask_pd(_mm256_cmp_pd(_mm256_loadu_pd(x + i), b, _CMP_EQ_OQ))) return i + __builtin_ctz(m);
    }
    for (; i < n; ++i)
        if (x[i] == v) return i;
    return n;
}

// The extreme over the elements, NaN elements after the first ignored:
// max(x, acc) returns acc when x is NaN.
template <bool Max> float reduce(const float* x, int n) {
    __m256 a0 = _mm256_set1_ps(x[0]), a1 = a0;
    int i = 0;
    auto op = [](__m256 v, __m256 a) { return Max ? _mm256_max_ps(v, a) : _mm256_min_ps(v, a); };
    for (; i + 16 <= n; i += 16) a0 = op(_mm256_loadu_ps(x + i), a0), a1 = op(_mm256_loadu_ps(x + i + 8), a1);
    float l[8];
    _mm256_storeu_ps(l, op(a0, a1));
    float m = l[0];
    for (int k = 1; k < 8; ++k) m = beats<Max>(l[k], m) ? l[k] : m;
    for (; i < n; ++i) m = beats<Max>(x[i], m) ? x[i] : m;
    return m;
}
template <bool Max> double reduce(const double* x, int n) {
    __m256d a0 = _mm256_set1_pd(x[0]), a1 = a0;
    int i = 0;
    auto op = [](__m256d v, __m256d a) { return Max ? _mm256_max_pd(v, a) : _mm256_min_pd(v, a); };
    for (; i + 8 <= n; i += 8) a0 = op(_mm256_loadu_pd(x + i), a0), a1 = op(_mm256_loadu_pd(x + i + 4), a1);
    double l[4];
    _mm256_storeu_pd(l, op(a0, a1));
    double m = l[0];
    for (int k = 1; k < 4; ++k) m = beats<Max>(l[k], m) ? l[k] : m;
    for (; i < n; ++i) m = beats<Max>(x[i], m) ? x[i] : m;
    return m;
}
// Integers: the compiler vectorises this form.
template <bool Max, class T> T reduce(const T* x, int n) {
    T m = x[0];
    for (int i = 1; i < n; ++i) m = beats<Max>(x[i], m) ? x[i] : m;
    return m;
}

// Index of the scan's result.
template <bool Max, class T> int extreme_index(const T* x, int n) {
    if (n < 34) return scan<Max>(x, n);
    if constexpr (std::is_floating_point_v<T>)
        if (x[0] != x[0]) return 0;  // a leading NaN is never replaced
    return find_equal(x, n, reduce<Max>(x, n));
}

// Max/Min and MaxIndx/MinIndx (the index pointer may be null).
template <bool Max, class T> zamStatus extreme(const T* src, int len, T* dst, int* idx, bool need_idx) {
    if (zamStatus s = need_idx ? check_ptr(src, dst, idx) : check_ptr(src, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    if (idx) {
        int k = extreme_index<Max>(src, len);
        *dst = src[k];
        *idx = k;
    } else if constexpr (std::is_floating_point_v<T>) {
        // The value alone: the first equal element is needed only to give a
        // zero the sign of its first occurrence (and a leading NaN).
        T m = len < 34 || src[0] != src[0] ? src[scan<Max>(src, len)] : reduce<Max>(src, len);
        *dst = m == 0 ? src[find_equal(src, len, m)] : m;
    } else {
        *dst = reduce<Max>(src, len);
    }
    return zamStatusOk;
}

// By magnitude: |x| compared exactly in the unsigned type, reported
// saturated to T (|-32768| is 32767); floating |x| is x with the sign bit
// cleared, and the scan rule holds (a NaN only as the first element).
template <class T> using mag_t = typename std::conditional_t<std::is_floating_point_v<T>, std::type_identity<T>, std::make_unsigned<T>>::type;
template <class T> inline mag_t<T> mag(T x) {
    if constexpr (std::is_floating_point_v<T>) return std::fabs(x);
    else return x < 0 ? mag_t<T>(0u - mag_t<T>(x)) : mag_t<T>(x);
}

template <bool Max, class T> zamStatus extreme_abs(const T* src, int len, T* dst, int* idx, bool need_idx) {
    if (zamStatus s = need_idx ? check_ptr(src, dst, idx) : check_ptr(src, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    if constexpr (std::is_floating_point_v<T>) {
        int k = 0;
        for (int i = 1; i < len; ++i)
            if (beats<Max>(mag(src[i]), mag(src[k]))) k = i;
        *dst = mag(src[k]);
        if (idx) *idx = k;
    } else {
        mag_t<T> m = mag(src[0]);
        for (int i = 1; i < len; ++i) {
            mag_t<T> a = mag(src[i]);
            m = beats<Max>(a, m) ? a : m;
        }
        *dst = m > mag_t<T>(traits<T>::max) ? traits<T>::max : T(m);
        if (idx) {
            int k = 0;
            while (mag(src[k]) != m) ++k;
            *idx = k;
        }
    }
    return zamStatusOk;
}

template <class T> zamStatus min_max(const T* src, int len, T* pMin, int* iMin, T* pMax, int* iMax, bool indices) {
    if (zamStatus s = indices ? check_ptr(src, pMin, pMax, iMin, iMax) : check_ptr(src, pMin, pMax)) return s;
    if (len < 1) return zamStatusBadLength;
    T lo, hi;
    if (len < 34 || !std::is_floating_point_v<T>) {
        lo = hi = src[0];
        for (int i = 1; i < len; ++i) {
            lo = src[i] < lo ? src[i] : lo;
            hi = src[i] > hi ? src[i] : hi;
        }
    } else {
        lo = reduce<false>(src, len);
        hi = reduce<true>(src, len);
    }
    if (indices) {
        // The first element equal to each; none for a NaN: index 0.
        int a = find_equal(src, len, lo), b = find_equal(src, len, hi);
        *iMin = a < len ? a : 0;
        *iMax = b < len ? b : 0;
        lo = src[*iMin];  // the first occurrence also fixes the sign of a zero
        hi = src[*iMax];
    } else if constexpr (std::is_floating_point_v<T>) {
        if (lo == 0) lo = src[find_equal(src, len, lo)];
        if (hi == 0) hi = src[find_equal(src, len, hi)];
    }
    *pMin = lo;
    *pMax = hi;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

#define ZAMS_EXT(T)                                                                                                      \
    ZAMS_FN(zamStatus, zamsMax_##T)(const Zam##T* pSrc, int len, Zam##T* pMax) { return extreme<true>(pSrc, len, pMax, nullptr, false); } \
    ZAMS_FN(zamStatus, zamsMin_##T)(const Zam##T* pSrc, int len, Zam##T* pMin) { return extreme<false>(pSrc, len, pMin, nullptr, false); } \
    ZAMS_FN(zamStatus, zamsMaxIndx_##T)(const Zam##T* pSrc, int len, Zam##T* pMax, int* pIndx) {                          \
        return extreme<true>(pSrc, len, pMax, pIndx, false);                                                              \
    }                                                                                                                    \
    ZAMS_FN(zamStatus, zamsMinIndx_##T)(const Zam##T* pSrc, int len, Zam##T* pMin, int* pIndx) {                          \
        return extreme<false>(pSrc, len, pMin, pIndx, false);                                                             \
    }
ZAMS_EXT(16s)
ZAMS_EXT(32s)
ZAMS_EXT(32f)
ZAMS_EXT(64f)

#define ZAMS_EXT_ABS(T)                                                                                                  \
    ZAMS_FN(zamStatus, zamsMaxAbs_##T)(const Zam##T* pSrc, int len, Zam##T* pMaxAbs) { return extreme_abs<true>(pSrc, len, pMaxAbs, nullptr, false); } \
    ZAMS_FN(zamStatus, zamsMinAbs_##T)(const Zam##T* pSrc, int len, Zam##T* pMinAbs) { return extreme_abs<false>(pSrc, len, pMinAbs, nullptr, false); } \
    ZAMS_FN(zamStatus, zamsMaxAbsIndx_##T)(const Zam##T* pSrc, int len, Zam##T* pMaxAbs, int* pIndx) {                    \
        return extreme_abs<true>(pSrc, len, pMaxAbs, pIndx, true);                                                        \
    }                                                                                                                    \
    ZAMS_FN(zamStatus, zamsMinAbsIndx_##T)(const Zam##T* pSrc, int len, Zam##T* pMinAbs, int* pIndx) {                    \
        return extreme_abs<false>(pSrc, len, pMinAbs, pIndx, true);                                                       \
    }
ZAMS_EXT_ABS(16s)
ZAMS_EXT_ABS(32s)
ZAMS_EXT_ABS(32f)
ZAMS_EXT_ABS(64f)

#define ZAMS_MINMAX(T)                                                                                                   \
    ZAMS_FN(zamStatus, zamsMinMax_##T)(const Zam##T* pSrc, int len, Zam##T* pMin, Zam##T* pMax) {                         \
        return min_max(pSrc, len, pMin, nullptr, pMax, nullptr, false);                                                   \
    }                                                                                                                    \
    ZAMS_FN(zamStatus, zamsMinMaxIndx_##T)(const Zam##T* pSrc, int len, Zam##T* pMin, int* pMinIndx, Zam##T* pMax,        \
                                           int* pMaxIndx) {                                                               \
        return min_max(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx, true);                                                 \
    }
ZAMS_MINMAX(8u)
ZAMS_MINMAX(16s)
ZAMS_MINMAX(16u)
ZAMS_MINMAX(32s)
ZAMS_MINMAX(32u)
ZAMS_MINMAX(32f)
ZAMS_MINMAX(64f)
