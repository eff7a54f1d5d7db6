// Integer division by a constant (DivC on 8u, 16s, 16sc, 64s) and of a
// constant by a vector (DivCRev_16u).
#include <climits>

#include "../common/check.h"
#include "../common/loop.h"
#include "../core/parallel.h"
#include "div_kernel.h"

namespace zams {

namespace {

constexpr DivRange kDivC8u{-15, 8}, kDivC16s{-30, 15}, kDivC16sc{-16, 15};
constexpr DivRange kEveryScale{INT_MIN, INT_MAX};

// x / val for 8u and 16s, the constant never zero. Above the range every
// quotient rounds to 0 and the call is handed to the type's Zero.
template <class T, class Zero>
zamStatus divc_real(const T* src, T val, T* dst, int len, int sf, DivRange range, int thr, Zero zero) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (val == 0) return zamStatusDivideByZero;
    if (sf > range.hi) return zero(dst, len);
    run_threshold(len, thr, Team::AtMostTwo, [&](int off, int cnt) {
        const T* s = src + off;
        T* d = dst + off;
        bool unused = false;
        auto scalar = [&](int i) { d[i] = div_elem<T>(int64_t(s[i]), int64_t(val), sf, range, Rnd::Even, unused); };
        if (sf < range.lo) {
            for (int i = 0; i < cnt; ++i) scalar(i);
            return false;
        }
        DivPd<T> k(sf, Rnd::Even);
        const __m256d v = _mm256_set1_pd(double(val));
        int zm = 0;
        for_each_block<8, 16>(d, cnt, scalar, [&](int i) {
            __m256d n0, n1;
            Lanes8<T>::load(s + i, n0, n1);
            Lanes8<T>::store(d + i, k.quot(n0, v, zm), k.quot(n1, v, zm));
        });
        return false;
    });
    return zamStatusOk;
}

zamStatus divc_16sc(const Zam16sc* src, Zam16sc val, Zam16sc* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (val.re == 0 && val.im == 0) return zamStatusDivideByZero;
    if (sf > kDivC16sc.hi) return zamsZero_16sc(dst, len);
    const int64_t c = val.re, d = val.im;
    const uint64_t norm = uint64_t(c * c + d * d);
    run_threshold(len, threshold::DivC_16sc, Team::AtMostTwo, [&](int off, int cnt) {
        bool unused = false;
        for (int i = off; i < off + cnt; ++i) {
            int64_t a = src[i].re, b = src[i].im;
            Zam16s re = div_elem<Zam16s>(a * c + b * d, norm, false, sf, kDivC16sc, Rnd::Even, unused);
            Zam16s im = div_elem<Zam16s>(b * c - a * d, norm, false, sf, kDivC16sc, Rnd::Even, unused);
            dst[i].re = re;
            dst[i].im = im;
        }
        return false;
    });
    return zamStatusOk;
}

zamStatus divc_64s(Zam64s val, Zam64s* io, int len, int sf) {
    if (zamStatus s = check_args(len, io)) return s;
    if (val == 0) return zamStatusDivideByZero;
    bool unused = false;
    for (int i = 0; i < len; ++i) io[i] = div_elem<Zam64s>(io[i], val, sf, kEveryScale, Rnd::Even, unused);
    return zamStatusOk;
}

// val / x, rounded to nearest even; a zero element gives 65535 (0 when val
// is 0) and the warning. A zero val zeroes the destination.
zamStatus divcrev_16u(const Zam16u* src, Zam16u val, Zam16u* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (val == 0) {
        bool zero = false;
        for (int i = 0; i < len && !zero; ++i) zero = src[i] == 0;
        zamStatus s = zamsZero_16s(reinterpret_cast<Zam16s*>(dst), len);
        if (s != zamStatusOk) return s;
        return zero ? zamStatusWarnDivByZero : zamStatusOk;
    }
    int warned = run_threshold(len, threshold::DivCRev_16u, Team::AtMostTwo, [&](int off, int cnt) {
        const Zam16u* s = src + off;
        Zam16u* d = dst + off;
        bool zero = false;
        auto scalar = [&](int i) { d[i] = div_elem<Zam16u>(int64_t(val), int64_t(s[i]), 0, kEveryScale, Rnd::Even, zero); };
        DivPd<Zam16u> k(0, Rnd::Even);
        const __m256d v = _mm256_set1_pd(double(val));
        int zm = 0;
        for_each_block<8, 16>(d, cnt, scalar, [&](int i) {
            __m256d d0, d1;
            Lanes8<Zam16u>::load(s + i, d0, d1);
            Lanes8<Zam16u>::store(d + i, k.quot(v, d0, zm), k.quot(v, d1, zm));
        });
        return zero || zm != 0;
    });
    return warned ? zamStatusWarnDivByZero : zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsDivC_8u_Sfs)(const Zam8u* pSrc, Zam8u val, Zam8u* pDst, int len, int scaleFactor) {
    return zams::divc_real(pSrc, val, pDst, len, scaleFactor, zams::kDivC8u, zams::threshold::DivC_8u, zamsZero_8u);
}
ZAMS_FN(zamStatus, zamsDivC_8u_ISfs)(Zam8u val, Zam8u* pSrcDst, int len, int scaleFactor) {
    return zamsDivC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDivC_16s_Sfs)(const Zam16s* pSrc, Zam16s val, Zam16s* pDst, int len, int scaleFactor) {
    return zams::divc_real(pSrc, val, pDst, len, scaleFactor, zams::kDivC16s, zams::threshold::DivC_16s, zamsZero_16s);
}
ZAMS_FN(zamStatus, zamsDivC_16s_ISfs)(Zam16s val, Zam16s* pSrcDst, int len, int scaleFactor) {
    return zamsDivC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDivC_16sc_Sfs)(const Zam16sc* pSrc, Zam16sc val, Zam16sc* pDst, int len, int scaleFactor) {
    return zams::divc_16sc(pSrc, val, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDivC_16sc_ISfs)(Zam16sc val, Zam16sc* pSrcDst, int len, int scaleFactor) {
    return zamsDivC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDivC_64s_ISfs)(Zam64s val, Zam64s* pSrcDst, int len, int scaleFactor) {
    return zams::divc_64s(val, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsDivCRev_16u)(const Zam16u* pSrc, Zam16u val, Zam16u* pDst, int len) {
    return zams::divcrev_16u(pSrc, val, pDst, len);
}
ZAMS_FN(zamStatus, zamsDivCRev_16u_I)(Zam16u val, Zam16u* pSrcDst, int len) {
    return zamsDivCRev_16u(pSrcDst, val, pSrcDst, len);
}
