// The error function and its complement of floating vectors, and the
// inverse cube root. erf x = 2/sqrt(pi) e^(-x^2) sum 2^n x^(2n+1)/(2n+1)!!
// (all terms positive, summed as pairs) below |x| = 3; erfc x by its
// continued fraction from 3 on, so its small values keep their digits;
// each from the other by 1 - where that loses nothing. InvCbrt is
// e^(-ln|x| / 3) with the sign of x. No warnings.
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

// e^(-x^2) as a pair (|x| < 27.5, the power of two applied)
inline Pair exp_neg_sq(double x) {
    int k;
    Pair m = ddm::exp_parts(ddm::neg(dd::two_prod(x, x)), &k);
    return ddm::scale_pair(m, k);
}

// erf x as a pair for |x| < 3
inline Pair erf_series(double x) {
    Pair t = dd::two_prod(x, x);
    t = {2 * t.hi, 2 * t.lo};
    Pair a = {x, 0.0}, s = a;
    for (int n = 1; n < 200; ++n) {
        a = ddm::div(ddm::mul(a, t), {double(2 * n + 1), 0.0});
        s = ddm::add(s, a);
        if (ddm::fabs_(a.hi) < 0x1p-110 * ddm::fabs_(s.hi)) break;
    }
    return ddm::mul(ddm::mul(s, exp_neg_sq(x)), ddm::kTwoInvSqrtPi);
}

// erfc x for x >= 3: e^(-x^2)/sqrt(pi) / (x + (1/2)/(x + 1/(x + (3/2)/(x + ...))))
// from the 80th level back, as pairs; the result's power of two is kept
// apart until the end so that results down to the subnormals round once.
inline double erfc_cf(double x) {
    Pair t = {x, 0.0};
    for (int k = 80; k >= 1; --k) t = ddm::add(ddm::div({0.5 * k, 0.0}, t), x);
    int e;
    Pair m = ddm::exp_parts(ddm::neg(dd::two_prod(x, x)), &e);
    Pair r = ddm::div(ddm::mul(m, ddm::kTwoInvSqrtPi), t);
    return ddm::scale({0.5 * r.hi, 0.5 * r.lo}, e);
}

inline double erf_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax >= 0x1p-28)) return x != x ? x : x * ddm::kTwoInvSqrtPi.hi;
    if (ax < 3) return erf_series(x).hi;
    if (ax >= 6) return ddm::copysign_(1.0, x);
    return ddm::copysign_(ddm::add({1.0, 0.0}, -erfc_cf(ax)).hi, x);
}

inline double erfc_(double x) {
    if (x != x) return x;
    if (x < -6) return 2.0;
    if (x < 3) return ddm::sub({1.0, 0.0}, erf_series(x)).hi;
    if (x > 27.5) return 0.0;
    return erfc_cf(x);
}

inline constexpr Pair kThird = {0x1.5555555555555p-2, 0x1.5555555555555p-56};

inline double invcbrt_(double x) {
    double ax = ddm::fabs_(x);
    if (ax != ax) return x;
    if (ax == 0) return ddm::copysign_(ddm::inf(), x);
    if (ax == ddm::inf()) return ddm::copysign_(0.0, x);
    return ddm::copysign_(ddm::exp_pair(ddm::neg(ddm::mul(ddm::log_pair({ax, 0.0}), kThird))), x);
}

}  // namespace

}  // namespace zams

ZAMS_UNARY_REAL(Erf, zams::erf_)
ZAMS_UNARY_REAL(Erfc, zams::erfc_)
ZAMS_UNARY_REAL(InvCbrt, zams::invcbrt_)
