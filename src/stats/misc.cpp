// Element-wise extremes of two vectors, magnitude order, range counts, zero
// crossings and sliding-window sums.
#include <immintrin.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "../common/check.h"
#include "../common/num/bits.h"
#include "../common/types.h"

namespace zams::red {
namespace {

// a > b ? a : b (a < b ? a : b): the form of maxps/minps, so the compiler
// keeps the NaN rule (b is taken when unordered) and still vectorises.
template <bool Max, class T> zamStatus every(const T* a, const T* b, T* dst, int len) {
    if (zamStatus s = check_args(len, a, b, dst)) return s;
    for (int i = 0; i < len; ++i) {
        T x = a[i], y = b[i];
        dst[i] = (Max ? x > y : x < y) ? x : y;
    }
    return zamStatusOk;
}

// Number of significant bits of the largest magnitude.
template <class T> zamStatus max_order_int(const T* src, int len, int* order) {
    if (len < 1) return zamStatusBadLength;
    if (zamStatus s = check_ptr(src, order)) return s;
    uint32_t m = 0;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        uint32_t a = x < 0 ? 0u - uint32_t(x) : uint32_t(x);
        m = a > m ? a : m;
    }
    *order = m ? 32 - __builtin_clz(m) : 0;
    return zamStatusOk;
}

// Binary exponent e of the largest finite magnitude, max |x| in
// [2^(e-1), 2^e), from the bits (so subnormals count too); a non-finite
// element is skipped and gives the warning.
template <class T> zamStatus max_order_fl(const T* src, int len, int* order) {
    if (len < 1) return zamStatusBadLength;
    if (zamStatus s = check_ptr(src, order)) return s;
    T m = 0;
    bool bad = false;
    for (int i = 0; i < len; ++i) {
        T a = std::fabs(src[i]);
        if (!(a <= std::numeric_limits<T>::max())) bad = true;
        else if (a > m) m = a;
    }
    int e = 0;
    if (m > 0) {
        constexpr int mant = std::numeric_limits<T>::digits - 1, bias = std::numeric_limits<T>::max_exponent - 1;
        using U = std::conditional_t<sizeof(T) == 8, uint64_t, uint32_t>;
        U b = to_bits(m);
        int be = int(b >> mant);
        if (be == 0) {  // subnormal: the top set bit of the mantissa
            int top = int(sizeof(U) * 8) - 1 - (sizeof(U) == 8 ? __builtin_clzll(uint64_t(b)) : __builtin_clz(uint32_t(b)));
            e = top - mant - bias + 2;
        } else {
            e = be - bias + 1;
        }
    }
    *order = e;
    return bad ? zamStatusWarnMaxOrderNotFinite : zamStatusOk;
}

zamStatus count_in_range(const Zam32s* src, int len, int* count, Zam32s lo, Zam32s hi) {
    if (zamStatus s = check_args(len, src, count)) return s;
    int c = 0;
    for (int i = 0; i < len; ++i) c += (src[i] > lo) & (src[i] < hi);
    *count = c;
    return zamStatusOk;
}

template <class T> zamStatus zero_crossing(const T* src, int len, Zam32f* out, int kind) {
    if (zamStatus s = check_args(len, src, out)) return s;
    if (kind < 0 || kind > 2) return zamStatusBadCrossingType;
    int64_t c = 0;
    if (kind == 1) {
        // Twice the half-weighted count: |sgn a - sgn b| is 0, 1 or 2.
        auto sgn = [](T v) { return (v > 0) - (v < 0); };
        for (int i = 1; i < len; ++i) c += std::abs(sgn(src[i]) - sgn(src[i - 1]));
        *out = float(double(c) * 0.5);
    } else {
        for (int i = 1; i < len; ++i) c += (src[i] >= 0) != (src[i - 1] >= 0);
        *out = kind == 0 ? float(c) : float(double(c) / len);
    }
    return zamStatusOk;
}

// Running sum, exact in 64 bits; each output rounded once.
template <class T> zamStatus sum_window(const T* src, Zam32f* dst, int len, int mask) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (mask < 1) return zamStatusBadWindowLength;
    int64_t s = 0;
    for (int k = 0; k < mask; ++k) s += src[k];
    dst[0] = float(s);
    for (int n = 1; n < len; ++n) {
        s += int64_t(src[n + mask - 1]) - src[n - 1];
        dst[n] = float(s);
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::red

using namespace zams::red;

#define ZAMS_EVERY(T)                                                                                            \
    ZAMS_FN(zamStatus, zamsMaxEvery_##T)(const Zam##T* pSrc1, const Zam##T* pSrc2, Zam##T* pDst, int len) {     \
        return every<true>(pSrc1, pSrc2, pDst, len);                                                            \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsMinEvery_##T)(const Zam##T* pSrc1, const Zam##T* pSrc2, Zam##T* pDst, int len) {     \
        return every<false>(pSrc1, pSrc2, pDst, len);                                                           \
    }
#define ZAMS_EVERY_I(T)                                                                                          \
    ZAMS_FN(zamStatus, zamsMaxEvery_##T##_I)(const Zam##T* pSrc, Zam##T* pSrcDst, int len) {                    \
        return every<true>(pSrc, static_cast<const Zam##T*>(pSrcDst), pSrcDst, len);                            \
    }                                                                                                            \
    ZAMS_FN(zamStatus, zamsMinEvery_##T##_I)(const Zam##T* pSrc, Zam##T* pSrcDst, int len) {                    \
        return every<false>(pSrc, static_cast<const Zam##T*>(pSrcDst), pSrcDst, len);                           \
    }
ZAMS_EVERY(8u)
ZAMS_EVERY(16u)
ZAMS_EVERY(32f)
ZAMS_EVERY(64f)
ZAMS_EVERY_I(8u)
ZAMS_EVERY_I(16s)
ZAMS_EVERY_I(16u)
ZAMS_EVERY_I(32s)
ZAMS_EVERY_I(32f)
ZAMS_EVERY_I(64f)

ZAMS_FN(zamStatus, zamsMaxOrder_16s)(const Zam16s* pSrc, int len, int* pOrder) { return max_order_int(pSrc, len, pOrder); }
ZAMS_FN(zamStatus, zamsMaxOrder_32s)(const Zam32s* pSrc, int len, int* pOrder) { return max_order_int(pSrc, len, pOrder); }
ZAMS_FN(zamStatus, zamsMaxOrder_32f)(const Zam32f* pSrc, int len, int* pOrder) { return max_order_fl(pSrc, len, pOrder); }
ZAMS_FN(zamStatus, zamsMaxOrder_64f)(const Zam64f* pSrc, int len, int* pOrder) { return max_order_fl(pSrc, len, pOrder); }

ZAMS_FN(zamStatus, zamsCountInRange_32s)(const Zam32s* pSrc, int len, int* pCounts, Zam32s lowerBound, Zam32s upperBound) {
    return count_in_range(pSrc, len, pCounts, lowerBound, upperBound);
}
ZAMS_FN(zamStatus, zamsZeroCrossing_16s32f)(const Zam16s* pSrc, int len, Zam32f* pValZC, int zcType) { return zero_crossing(pSrc, len, pValZC, zcType); }
ZAMS_FN(zamStatus, zamsZeroCrossing_32f)(const Zam32f* pSrc, int len, Zam32f* pValZC, int zcType) { return zero_crossing(pSrc, len, pValZC, zcType); }
ZAMS_FN(zamStatus, zamsSumWindow_8u32f)(const Zam8u* pSrc, Zam32f* pDst, int len, int maskSize) { return sum_window(pSrc, pDst, len, maskSize); }
ZAMS_FN(zamStatus, zamsSumWindow_16s32f)(const Zam16s* pSrc, Zam32f* pDst, int len, int maskSize) { return sum_window(pSrc, pDst, len, maskSize); }
