// Powers, logarithms and exponentials in other bases, and the functions
// accurate near zero: Pow, Powx, Log10, Log2, 10Log10, Exp2, Exp10, Expm1,
// Log1p, Hypot, Inv, InvSqrt. Each is formed from the double-double
// logarithm and exponential of dd_elem.h and rounded once. Special values
// follow C99 Annex F (a domain error gives NaN, a pole an infinity); no
// warnings.
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

// y is an odd integer
inline bool is_odd(double y) {
    if (!(ddm::fabs_(y) < 0x1p53) || __builtin_trunc(y) != y) return false;
    return (int64_t(y) & 1) != 0;
}

// x^y for finite nonzero x and finite y: e^(y ln|x|) with y ln|x| as a
// pair; the sign is that of x for an odd integer y
inline double pow_finite(double x, double y) {
    Pair l = ddm::log_pair({ddm::fabs_(x), 0.0});
    double p = y * l.hi;
    double r;
    if (!(ddm::fabs_(p) < 0x1p12)) r = ddm::exp_pair({p, 0.0});  // far outside the range: overflow or zero
    else r = ddm::exp_pair(ddm::mul(l, y));
    return x < 0 && is_odd(y) ? -r : r;
}

inline double pow_(double x, double y) {
    if (y == 0 || x == 1.0) return 1.0;
    if (x != x || y != y) return x + y;
    double ax = ddm::fabs_(x), ay = ddm::fabs_(y);
    if (ay == ddm::inf()) {
        if (ax == 1.0) return 1.0;
        return (ax < 1.0) == (y > 0) ? 0.0 : ddm::inf();
    }
    bool odd = is_odd(y);
    if (x == 0 || ax == ddm::inf()) {
        // |x|^y is 0 or inf; the sign of x survives an odd integer power
        bool big = (x == 0) == (y < 0);
        double m = big ? ddm::inf() : 0.0;
        return odd ? ddm::copysign_(m, x) : m;
    }
    if (x < 0 && __builtin_trunc(y) != y) return ddm::nan();
    return pow_finite(x, y);
}

// the logarithm's special values: NaN below zero, -inf at zero, +inf at +inf
inline bool log_special(double x, double* r) {
    if (x > 0 && x < ddm::inf()) return false;
    *r = x == 0 ? -ddm::inf() : (x > 0 ? x : (x != x ? x : ddm::nan()));
    return true;
}
inline double log2_(double x) {
    double r;
    if (log_special(x, &r)) return r;
    ddm::LogParts l = ddm::log_parts({x, 0.0});
    return ddm::add(ddm::mul(l.lm, ddm::kInvLn2), double(l.e)).hi;
}
inline double log10_(double x) {
    double r;
    if (log_special(x, &r)) return r;
    return ddm::mul(ddm::log_pair({x, 0.0}), ddm::kInvLn10).hi;
}
inline double ten_log10_(double x) {
    double r;
    if (log_special(x, &r)) return r;
    return ddm::mul(ddm::log_pair({x, 0.0}), ddm::kTenInvLn10).hi;
}
inline double log1p_(double x) {
    if (x != x || x == ddm::inf()) return x;
    if (x == -1.0) return -ddm::inf();
    if (x < -1.0) return ddm::nan();
    if (ddm::fabs_(x) < 0x1p-54) return x;
    return ddm::log_pair(dd::two_sum(1.0, x)).hi;
}

// b^x = e^(x ln b), x ln b as a pair; beyond |x| of 2^11 the result
// is 0 or inf whatever the low bits
inline double exp_base(double x, Pair lnb) {
    if (x != x) return x;
    if (!(ddm::fabs_(x) < 0x1p11)) return x > 0 ? ddm::inf() : 0.0;
    return ddm::exp_pair(ddm::mul(lnb, x));
}
inline double exp2_(double x) { return exp_base(x, ddm::kLn2); }
inline double exp10_(double x) { return exp_base(x, ddm::kLn10); }

inline double expm1_(double x) {
    if (x != x) return x;
    if (ddm::fabs_(x) < 0x1p-54) return x;
    if (x > 40) return ddm::exp_pair({x, 0.0});
    if (x < -40) return -1.0;  // e^x below 2^-57
    int k;
    Pair m = ddm::exp_parts({x, 0.0}, &k);
    return ddm::add(ddm::scale_pair(m, k), -1.0).hi;
}

inline int exponent(double x) { return int((to_bits(x) >> 52) & 0x7ff) - 1023; }

// sqrt(a^2 + b^2) with both scaled by the power of two that brings the
// larger into [1, 2), the sum of squares as a pair and its root rounded once
inline double hypot_(double a, double b) {
    a = ddm::fabs_(a);
    b = ddm::fabs_(b);
    if (a == ddm::inf() || b == ddm::inf()) return ddm::inf();
    if (a != a || b != b) return a + b;
    if (a < b) {
        double t = a;
        a = b;
        b = t;
    }
    if (a == 0) return 0.0;
    int adj = 0;
    if (a < 0x1p-900) {  // subnormal or near it: scale into the normal range first
        a *= 0x1p600;
        b *= 0x1p600;
        adj = -600;
    }
    int e = exponent(a);
    double s1 = pow2(-e / 2), s2 = pow2(-(e - e / 2));
    double sa = a * s1 * s2, sb = b * s1 * s2;
    Pair r = ddm::sqrt(ddm::add(dd::two_prod(sa, sa), dd::two_prod(sb, sb)));
    return ddm::scale(r, e + adj);
}

inline double inv_(double x) { return 1.0 / x; }

// 1/sqrt(x): x scaled by an even power of two into [1, 4), a first root
// refined by one Newton step with x r^2 formed as a pair
inline double invsqrt_(double x) {
    if (x == 0) return ddm::inf();
    if (!(x > 0)) return x != x ? x : ddm::nan();
    if (x == ddm::inf()) return 0.0;
    int adj = 0;
    if (x < 0x1p-1000) {
        x *= 0x1p200;
        adj = 100;
    }
    int even = exponent(x) & ~1;
    x *= pow2(-even);
    double r = 1.0 / __builtin_sqrt(x);
    Pair err = ddm::add(ddm::neg(ddm::mul(dd::two_prod(r, r), x)), 1.0);  // 1 - x r^2, small
    Pair y = ddm::add({r, 0.0}, 0.5 * r * err.hi);
    return ddm::scale(y, adj - even / 2);
}

}  // namespace

}  // namespace zams

ZAMS_BINARY_REAL(Pow, zams::pow_)
ZAMS_WITH_CONST(Powx, 32f, zams::pow_)
ZAMS_WITH_CONST(Powx, 64f, zams::pow_)
ZAMS_UNARY_REAL(Log10, zams::log10_)
ZAMS_UNARY_REAL(Log2, zams::log2_)
ZAMS_UNARY_REAL(Exp2, zams::exp2_)
ZAMS_UNARY_REAL(Exp10, zams::exp10_)
ZAMS_UNARY_REAL(10Log10, zams::ten_log10_)
ZAMS_UNARY_REAL(Expm1, zams::expm1_)
ZAMS_UNARY_REAL(Log1p, zams::log1p_)
ZAMS_BINARY_REAL(Hypot, zams::hypot_)
ZAMS_UNARY_REAL(Inv, zams::inv_)
ZAMS_UNARY_REAL(InvSqrt, zams::invsqrt_)
