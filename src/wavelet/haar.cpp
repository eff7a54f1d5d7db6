// One level of the Haar transform: pair sums and differences, halved in the
// forward direction, and the inverse that undoes them.
#include <type_traits>

#include "../common/check.h"
#include "../common/scale.h"
#include "../common/types.h"
#include "wt_simd.h"

namespace zams::wt {
namespace {

// The pair (a, b) -> ((a + b) / 2, (a - b) / 2) and back (l + h, l - h).
// Floats halve by a product with 0.5; integers take the exact sum or
// difference through the scale rule, one more step of it when halving.
template <class T> struct Pair {
    static constexpr bool flt = std::is_floating_point_v<T>;
    int sf;
    T fwd_low(T a, T b) const {
        if constexpr (flt) return (a + b) * T(0.5);
        else return scale_round_sat<T>(int32_t(a) + int32_t(b), add_scale(sf, 1));
    }
    T fwd_high(T a, T b) const {
        if constexpr (flt) return (a - b) * T(0.5);
        else return scale_round_sat<T>(int32_t(a) - int32_t(b), add_scale(sf, 1));
    }
    T inv_even(T l, T h) const {
        if constexpr (flt) return l + h;
        else return scale_round_sat<T>(int32_t(l) + int32_t(h), sf);
    }
    T inv_odd(T l, T h) const {
        if constexpr (flt) return l - h;
        else return scale_round_sat<T>(int32_t(l) - int32_t(h), sf);
    }
    // The unpaired last sample: the pair (x, x), whose high band is 0.
    T last(T x) const {
        if constexpr (flt) return x;
        else return scale_round_sat<T>(int32_t(x), sf);
    }
};

template <class T> zamStatus haar_fwd(const T* x, int len, T* lo, T* hi, int sf) {
    if (zamStatus s = check_args(len, x, lo, hi)) return s;
    const Pair<T> p{sf};
    const int half = len / 2;
    int n = 0;
    if constexpr (std::is_floating_point_v<T>) {
        using A = Avx<T>;
        const typename A::V h = A::set1(T(0.5));
        for (; n + A::L <= half; n += A::L) {
            typename A::V e, o;
            split(x + 2 * n, e, o);
            A::store(lo + n, A::mul(A::add(e, o), h));
            A::store(hi + n, A::mul(A::sub(e, o), h));
        }
    }
    for (; n < half; ++n) {
        lo[n] = p.fwd_low(x[2 * n], x[2 * n + 1]);
        hi[n] = p.fwd_high(x[2 * n], x[2 * n + 1]);
    }
    if (len & 1) lo[half] = p.last(x[len - 1]);
    return zamStatusOk;
}

template <class T> zamStatus haar_inv(const T* lo, const T* hi, T* y, int len, int sf) {
    if (zamStatus s = check_args(len, lo, hi, y)) return s;
    const Pair<T> p{sf};
    const int half = len / 2;
    int n = 0;
    if constexpr (std::is_floating_point_v<T>) {
        using A = Avx<T>;
        for (; n + A::L <= half; n += A::L) {
            const typename A::V l = A::load(lo + n), h = A::load(hi + n);
            merge(y + 2 * n, A::add(l, h), A::sub(l, h));
        }
    }
    for (; n < half; ++n) {
        y[2 * n] = p.inv_even(lo[n], hi[n]);
        y[2 * n + 1] = p.inv_odd(lo[n], hi[n]);
    }
    if (len & 1) y[len - 1] = p.last(lo[half]);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::wt

using zams::wt::haar_fwd;
using zams::wt::haar_inv;

ZAMS_FN(zamStatus, zamsWTHaarFwd_8s)(const Zam8s* pSrc, int len, Zam8s* pDstLow, Zam8s* pDstHigh) {
    return haar_fwd(pSrc, len, pDstLow, pDstHigh, 0);
}
ZAMS_FN(zamStatus, zamsWTHaarFwd_16s_Sfs)(const Zam16s* pSrc, int len, Zam16s* pDstLow, Zam16s* pDstHigh, int sf) {
    return haar_fwd(pSrc, len, pDstLow, pDstHigh, sf);
}
ZAMS_FN(zamStatus, zamsWTHaarFwd_32f)(const Zam32f* pSrc, int len, Zam32f* pDstLow, Zam32f* pDstHigh) {
    return haar_fwd(pSrc, len, pDstLow, pDstHigh, 0);
}
ZAMS_FN(zamStatus, zamsWTHaarFwd_64f)(const Zam64f* pSrc, int len, Zam64f* pDstLow, Zam64f* pDstHigh) {
    return haar_fwd(pSrc, len, pDstLow, pDstHigh, 0);
}
ZAMS_FN(zamStatus, zamsWTHaarInv_8s)(const Zam8s* pSrcLow, const Zam8s* pSrcHigh, Zam8s* pDst, int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, 0);
}
ZAMS_FN(zamStatus, zamsWTHaarInv_16s_Sfs)(const Zam16s* pSrcLow, const Zam16s* pSrcHigh, Zam16s* pDst, int len, int sf) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, sf);
}
ZAMS_FN(zamStatus, zamsWTHaarInv_32f)(const Zam32f* pSrcLow, const Zam32f* pSrcHigh, Zam32f* pDst, int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, 0);
}
ZAMS_FN(zamStatus, zamsWTHaarInv_64f)(const Zam64f* pSrcLow, const Zam64f* pSrcHigh, Zam64f* pDst, int len) {
    return haar_inv(pSrcLow, pSrcHigh, pDst, len, 0);
}
