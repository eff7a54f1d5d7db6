// Exponentials and logarithms of integer vectors with a scale factor:
// Exp_16s, Exp_32s, Ln_16s, Ln_32s and 10Log10_32s. Each result is
// round(f(x) 2^-sf), ties to even, saturated. f(x) is formed as a
// double-double pair (2^-100 relative) and the pair, not its rounded head,
// decides the rounding: a value within an ulp of a half still rounds the
// right way. A non-positive element of a logarithm gives the type's minimum;
// the first of them decides the warning: 7 for a zero, 8 for a negative
// number.
#include <cstdint>

#include "../common/check.h"
#include "../common/round.h"
#include "../common/types.h"
#include "dd_elem.h"

namespace zams {

namespace {

using ddm::Pair;

// v 2^e for a positive pair v (or zero), rounded to nearest even on the
// whole pair and saturated to T
template <class T> T round_pair(Pair v, int64_t e) {
    if (v.hi == 0) return T(0);
    int64_t top = int64_t((to_bits(v.hi) >> 52) & 0x7ff) - 1023 + e;  // v 2^e in [2^top, 2^(top+1))
    if (top > 40) return traits<T>::max;
    if (top < -3) return T(0);  // below a quarter
    v = ddm::scale_pair(v, int(e));
    return saturate<T>(int64_t(dd::round_even(v)));
}

// e^x for an integer x as M 2^*k: x = n ln2 + r, |r| <= ln2/2, with n ln2
// formed from exact products (n has at most 32 bits), then e^r from the pair
// exponential
inline Pair exp_int(int64_t x, int64_t* k) {
    double xd = double(x);
    double nd = round_even(xd * ddm::kInvLn2.hi);
    Pair p1 = dd::two_prod(nd, ddm::kLn2.hi), p2 = dd::two_prod(nd, ddm::kLn2.lo);
    Pair r = ddm::add(dd::two_sum(xd - p1.hi, -p1.lo), ddm::neg(p2));  // xd - p1.hi exact: the two are within a factor 2
    int j;
    Pair m = ddm::exp_parts(r, &j);
    *k = int64_t(nd) + j;
    return m;
}

template <class T> zamStatus exp_int_vec(const T* src, T* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) {
        int64_t k;
        Pair m = exp_int(src[i], &k);
        dst[i] = round_pair<T>(m, k - sf);
    }
    return zamStatusOk;
}

// 10 log10(x) is an integer only at powers of ten; those are exact, so that
// a tie after scaling rounds the exact value, not a neighbour of it.
inline bool power_of_ten(int64_t x, double& v) {
    int64_t p = 1;
    for (int j = 0; j <= 18; ++j) {
        if (x == p) {
            v = 10.0 * j;
            return true;
        }
        if (p > x || j == 18) return false;
        p *= 10;
    }
    return false;
}

enum class Base { E, TenLog10 };

template <class T> zamStatus log_int(const T* src, T* dst, int len, int sf, Base base) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    zamStatus warn = zamStatusOk;
    for (int i = 0; i < len; ++i) {
        T x = src[i];
        if (x <= 0) {
            if (warn == zamStatusOk) warn = x == 0 ? zamStatusWarnLnZero : zamStatusWarnLnNegative;
            dst[i] = traits<T>::min;
            continue;
        }
        Pair v = ddm::log_pair({double(x), 0.0});
        double exact;
        if (base == Base::TenLog10) v = power_of_ten(x, exact) ? Pair{exact, 0.0} : ddm::mul(v, ddm::kTenInvLn10);
        dst[i] = round_pair<T>(v, -int64_t(sf));
    }
    return warn;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsExp_16s_ISfs)(Zam16s* pSrcDst, int len, int scaleFactor) {
    return zams::exp_int_vec(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsExp_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::exp_int_vec(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsExp_32s_ISfs)(Zam32s* pSrcDst, int len, int scaleFactor) {
    return zams::exp_int_vec(pSrcDst, pSrcDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsExp_32s_Sfs)(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor) {
    return zams::exp_int_vec(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsLn_16s_ISfs)(Zam16s* pSrcDst, int len, int scaleFactor) {
    return zams::log_int(pSrcDst, pSrcDst, len, scaleFactor, zams::Base::E);
}
ZAMS_FN(zamStatus, zamsLn_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDst, int len, int scaleFactor) {
    return zams::log_int(pSrc, pDst, len, scaleFactor, zams::Base::E);
}
ZAMS_FN(zamStatus, zamsLn_32s_ISfs)(Zam32s* pSrcDst, int len, int scaleFactor) {
    return zams::log_int(pSrcDst, pSrcDst, len, scaleFactor, zams::Base::E);
}
ZAMS_FN(zamStatus, zamsLn_32s_Sfs)(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor) {
    return zams::log_int(pSrc, pDst, len, scaleFactor, zams::Base::E);
}
ZAMS_FN(zamStatus, zams10Log10_32s_ISfs)(Zam32s* pSrcDst, int len, int scaleFactor) {
    return zams::log_int(pSrcDst, pSrcDst, len, scaleFactor, zams::Base::TenLog10);
}
ZAMS_FN(zamStatus, zams10Log10_32s_Sfs)(const Zam32s* pSrc, Zam32s* pDst, int len, int scaleFactor) {
    return zams::log_int(pSrc, pDst, len, scaleFactor, zams::Base::TenLog10);
}
