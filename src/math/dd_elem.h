// Scalar double-double kernels for the elementary functions of double
// vectors: arithmetic on hi + lo pairs, the logarithm of a pair and the
// exponential of a pair, each to about 2^-100 relative. Every function of
// this folder that needs more than a double's precision on the way (powers,
// logarithms in other bases, hyperbolic functions, complex forms) is built
// from these, so the error analysis lives here once. Plain double operations
// only, so i386 and x86-64 give the same bits.
#pragma once

#include <cstdint>

#include "../common/num/bits.h"
#include "../common/num/dd.h"
#include "../common/num/sincos.h"
#include "../common/round.h"
#include "exp64_table.h"

namespace zams::ddm {

using dd::Pair;
using dd::fast_two_sum;
using dd::two_prod;
using dd::two_sum;

inline constexpr Pair kLn2 = {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};
inline constexpr Pair kLn10 = {0x1.26bb1bbb55516p+1, -0x1.f48ad494ea3e9p-53};
inline constexpr Pair kInvLn2 = {0x1.71547652b82fep+0, 0x1.777d0ffda0d24p-56};
inline constexpr Pair kInvLn10 = {0x1.bcb7b1526e50ep-2, 0x1.95355baaafad3p-57};
inline constexpr Pair kTenInvLn10 = {0x1.15f2ced384f29p+2, -0x1.02bea6b55233cp-53};
inline constexpr Pair kTwoInvSqrtPi = {0x1.20dd750429b6dp+0, 0x1.1ae3a914fed8p-56};

inline double inf() { return from_bits(0x7ff0000000000000ull); }
inline double nan() { return from_bits(0x7ff8000000000000ull); }
inline double fabs_(double x) { return from_bits(to_bits(x) & 0x7fffffffffffffffull); }
inline bool finite(double x) { return x - x == 0; }
inline double copysign_(double m, double s) {
    return from_bits((to_bits(m) & 0x7fffffffffffffffull) | (to_bits(s) & 0x8000000000000000ull));
}

inline Pair neg(Pair a) { return {-a.hi, -a.lo}; }
inline Pair add(Pair a, Pair b) {
    Pair s = two_sum(a.hi, b.hi);
    s.lo += a.lo + b.lo;
    return fast_two_sum(s.hi, s.lo);
}
inline Pair add(Pair a, double b) {
    Pair s = two_sum(a.hi, b);
    s.lo += a.lo;
    return fast_two_sum(s.hi, s.lo);
}
inline Pair sub(Pair a, Pair b) { return add(a, neg(b)); }
inline Pair mul(Pair a, Pair b) {
    Pair p = two_prod(a.hi, b.hi);
    p.lo += a.hi * b.lo + a.lo * b.hi;
    return fast_two_sum(p.hi, p.lo);
}
inline Pair mul(Pair a, double b) {
    Pair p = two_prod(a.hi, b);
    p.lo += a.lo * b;
    return fast_two_sum(p.hi, p.lo);
}
inline Pair div(Pair a, Pair b) {
    double q1 = a.hi / b.hi;
    Pair r = sub(a, mul(b, q1));
    double q2 = r.hi / b.hi;
    r = sub(r, mul(b, q2));
    double q3 = r.hi / b.hi;
    Pair q = fast_two_sum(q1, q2);
    return add(q, q3);
}
// 0 < a.hi < 2^995
inline Pair sqrt(Pair a) {
    double s = __builtin_sqrt(a.hi);
    Pair r = sub(a, two_prod(s, s));
    return fast_two_sum(s, r.hi / (2 * s));
}

// x 2^k for any k, rounded once for a normal result (twice, within an ulp,
// for a subnormal one); x a normalised pair, so x.hi is x rounded.
inline double scale(Pair x, int k) {
    if (k > 1023) return x.hi * pow2(1023) * pow2(k - 1023 > 1023 ? 1023 : k - 1023);
    if (k >= -1021) return x.hi * pow2(k);
    if (k < -1200) return x.hi * 0.0;
    // below the normal range: hi and lo scaled into range exactly, summed,
    // then rounded once more to the subnormal grid
    double a = x.hi * pow2(k + 600), b = x.lo * pow2(k + 600);
    double r = a * pow2(-600);
    double rest = (a - r * pow2(600)) + b;  // exact difference, small remainder
    return r + rest * pow2(-600);
}
inline Pair scale_pair(Pair x, int k) { return {x.hi * pow2(k), x.lo * pow2(k)}; }  // |k| <= 1000, no underflow

// The logarithm of a positive finite pair as e ln2 + ln m, m in
// [sqrt(1/2), sqrt(2)): e and ln m kept apart so that Log2 and Log10 can
// add e exactly.
struct LogParts {
    int e;
    Pair lm;
};

// ln m = 2 atanh(f), f = (m - 1)/(m + 1), |f| <= 0.1716: the series
// 2f (1 + f^2/3 + f^4/5 + ...) to f^42, the terms past f^22 (below 2^-56
// of the sum) in double.
inline LogParts log_parts(Pair x) {
    int e = 0;
    if (x.hi < 0x1p-1000) {
        x = scale_pair(x, 200);
        e = -200;
    }
    int be = int((to_bits(x.hi) >> 52) & 0x7ff) - 1023;
    double s1 = pow2(-be / 2), s2 = pow2(-(be - be / 2));  // 2^-be in two exact steps: be may be 1023
    Pair m = {x.hi * s1 * s2, x.lo * s1 * s2};
    if (m.hi > 0x1.6a09e667f3bcdp+0) {
        m = {m.hi * 0.5, m.lo * 0.5};
        ++be;
    }
    e += be;
    Pair num = fast_two_sum(m.hi - 1.0, m.lo);  // m.hi - 1 is exact on this range
    Pair den = add(two_sum(m.hi, 1.0), m.lo);
    Pair f = div(num, den);
    Pair t = mul(f, f);
    double p = 0;
    for (int n = 21; n >= 11; --n) p = p * t.hi + 1.0 / (2 * n + 1);
    Pair s = {p, 0.0};
    for (int n = 10; n >= 1; --n) {
        double d = 2 * n + 1, c = 1.0 / d;
        Pair cdp = two_prod(c, d);
        Pair cd = fast_two_sum(c, ((1.0 - cdp.hi) - cdp.lo) / d);  // 1/d as a pair
        s = add(mul(s, t), cd);
    }
    s = add(mul(s, t), 1.0);
    return {e, mul(mul(f, s), 2.0)};
}
inline Pair log_pair(Pair x) {
    LogParts l = log_parts(x);
    return add(mul(kLn2, double(l.e)), l.lm);
}

// e^x = M 2^k for a pair x with |x.hi| < 746: M within 2^-100 relative,
// 1 <= M < 2 up to the table's rounding. x = (128 k + j) ln2/128 + r,
// |r| <= ln2/256, e^r - 1 by its Taylor series to r^7.
inline Pair exp_parts(Pair x, int* k) {
    double nd = (x.hi * exp64::kInvStep + 0x1.8p52) - 0x1.8p52;
    int n = int(nd);
    // nd times ln2/128 as three parts: the first product is exact, and so is
    // x.hi minus it
    constexpr double kStep3 = ((0x1.62e42fefa39efp-8 - exp64::kStepHi) - exp64::kStepLo) + 0x1.abc9e3b39803fp-63;
    Pair rl = two_prod(nd, exp64::kStepLo);
    Pair r = two_sum(x.hi - nd * exp64::kStepHi, -rl.hi);
    r.lo += (x.lo - rl.lo) - nd * kStep3;
    r = fast_two_sum(r.hi, r.lo);
    Pair r2 = two_prod(r.hi, r.hi);
    double h = r.hi;
    double tail = h * r2.hi * (1.0 / 6 + h * (1.0 / 24 + h * (1.0 / 120 + h * (1.0 / 720 + h * (1.0 / 5040)))));
    Pair q = fast_two_sum(h, 0.5 * r2.hi);
    q.lo += r.lo + 0.5 * r2.lo + h * r.lo + tail;
    q = fast_two_sum(q.hi, q.lo);
    const double* t = exp64::kTable[n & 127];
    Pair a = two_prod(t[0], q.hi);
    Pair s = fast_two_sum(t[0], a.hi);
    s.lo += a.lo + t[1] + t[1] * q.hi + t[0] * q.lo;
    *k = n >> exp64::kBits;
    return fast_two_sum(s.hi, s.lo);
}

// e^x of a pair, rounded to double; overflow to +inf, underflow to 0.
inline double exp_pair(Pair x) {
    if (!(x.hi < 709.8)) return x.hi != x.hi ? x.hi : inf();
    if (x.hi < -745.2) return 0.0;
    int k;
    Pair m = exp_parts(x, &k);
    return scale(m, k);
}

// sin and cos of |x| <= 4 as pairs to about 2^-100 absolute (the shared
// sincos_dd kernel ends its series in double, near 2^-57): x less k pi/2
// with the four-part pi/2 (k <= 3, every product exact), then the two
// Taylor series in pairs to r^27, |r| <= pi/4.
struct FactorialInverses {
    Pair c[28];  // c[n] = 1/n!
    FactorialInverses() {
        c[0] = c[1] = {1.0, 0.0};
        for (int n = 2; n < 28; ++n) c[n] = div(c[n - 1], {double(n), 0.0});
    }
};
inline void sincos_small(double x, Pair* s, Pair* c) {
    static const FactorialInverses f;
    const double* p = sincos_dd::kPio2Parts;
    double k = round_even(x * sincos_dd::kTwoOverPi);
    Pair r = {x - k * p[0], 0.0};  // exact: x is within a factor two of k p[0] when k != 0
    for (int j = 1; j < 4; ++j) r = add(r, -k * p[j]);
    Pair z = mul(r, r), sv = neg(f.c[27]), cv = neg(f.c[26]);  // the signs of r^27 and r^26
    for (int n = 25; n >= 1; n -= 2) sv = add(mul(sv, z), n % 4 == 1 ? f.c[n] : neg(f.c[n]));
    sv = mul(sv, r);
    for (int n = 24; n >= 0; n -= 2) cv = add(mul(cv, z), n % 4 == 0 ? f.c[n] : neg(f.c[n]));
    int q = int(k) & 3;
    Pair ns = neg(sv), nc = neg(cv);
    const Pair* sin_q[4] = {&sv, &cv, &ns, &nc};
    const Pair* cos_q[4] = {&cv, &ns, &nc, &sv};
    *s = *sin_q[q];
    *c = *cos_q[q];
}

// Sinh and Cosh (shared by the real and the complex forms)
// e^|x| as a pair, |x| < 22
inline Pair exp_small(double ax) {
    int k;
    Pair m = ddm::exp_parts({ax, 0.0}, &k);
    return ddm::scale_pair(m, k);
}
// e^|x| / 2 for |x| >= 22, where e^-|x| is below 2^-63 of it: e^(|x| - ln2)
inline double half_exp(double ax) {
    if (!(ax < 711.0)) return ddm::inf();
    return ddm::exp_pair(ddm::sub({ax, 0.0}, ddm::kLn2));
}

inline double sinh(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax >= 0x1p-27)) return x;  // x^3/6 below 2^-55 x; NaN too
    if (ax >= 22) return ddm::copysign_(half_exp(ax), x);
    Pair e = exp_small(ax);
    Pair d = ddm::sub(e, ddm::div({1.0, 0.0}, e));
    return ddm::copysign_(0.5 * d.hi, x);
}
inline double cosh(double x) {
    double ax = ddm::fabs_(x);
    if (ax != ax) return x;
    if (ax < 0x1p-27) return 1.0;
    if (ax >= 22) return half_exp(ax);
    Pair e = exp_small(ax);
    return 0.5 * ddm::add(e, ddm::div({1.0, 0.0}, e)).hi;
}
}  // namespace zams::ddm
