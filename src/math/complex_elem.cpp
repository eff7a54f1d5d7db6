// Elementary functions of complex vectors: Exp, Ln, Sin, Cos, Tan, Tanh,
// Pow, Powx.
// exp(a + ib) = e^a (cos b + i sin b), the power of two of e^a applied after
// the products, so a part overflows only where it really does;
// ln z = ln|z| + i atan2(b, a), ln|z| from the sum of squares as a pair, so
// |z| near 1 keeps its digits; sin z = sin a cosh b + i cos a sinh b,
// cos z = cos a cosh b - i sin a sinh b. A NaN part, or an infinite part
// whose sine or cosine is needed, gives NaN parts; ln 0 is -inf + i atan2.
// tanh(x + iy) = (sinh x cosh x + i sin y cos y) / (sinh^2 x + cos^2 y),
// a sum of squares below, so nothing cancels; tan z = -i tanh(iz).
// z^w = exp(w ln z) with ln z as a pair of pairs, so the product keeps the
// digits the exponential magnifies.
#include "../common/num/elem.h"
#include "../common/num/sincos.h"
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

// e^(a + ib) for a and b given as pairs: sin and cos of b.hi corrected to
// first order by b.lo
inline void exp_cp(Pair a, Pair b, double* re, double* im) {
    if (b.hi == 0) {
        *re = ddm::exp_pair(a);
        *im = b.hi;
        return;
    }
    if (a.hi != a.hi || !ddm::finite(b.hi)) {
        *re = *im = ddm::nan();
        return;
    }
    Pair s, c;
    sincos_dd::sincos(b.hi, &s, &c);
    if (b.lo != 0) {
        Pair s0 = s;
        s = ddm::add(s, ddm::mul(c, b.lo));
        c = ddm::sub(c, ddm::mul(s0, b.lo));
    }
    if (ddm::fabs_(a.hi) > 1500) {  // infinite or far beyond the range: signed infinities or zeros
        double m = a.hi > 0 ? ddm::inf() : 0.0;
        *re = c.hi * m;
        *im = s.hi * m;
        return;
    }
    int k;
    Pair m = ddm::exp_parts(a, &k);
    *re = ddm::scale(ddm::mul(m, c), k);
    *im = ddm::scale(ddm::mul(m, s), k);
}
inline void exp_c(double a, double b, double* re, double* im) { exp_cp({a, 0.0}, {b, 0.0}, re, im); }

// A finite nonzero z scaled by a power of two 2^-e so that max(|a|, |b|) is
// in [1, 2): the squares and products below neither overflow nor underflow.
struct Scaled {
    double a, b;
    int e;
};
inline Scaled scaled(double a, double b) {
    double aa = ddm::fabs_(a), ab = ddm::fabs_(b), m = aa > ab ? aa : ab;
    int adj = 0;
    if (m < 0x1p-900) {
        a *= 0x1p600;
        b *= 0x1p600;
        m *= 0x1p600;
        adj = -600;
    }
    int e = int((to_bits(m) >> 52) & 0x7ff) - 1023;
    double s1 = pow2(-e / 2), s2 = pow2(-(e - e / 2));
    return {a * s1 * s2, b * s1 * s2, e + adj};
}
// ln|z| as a pair
inline Pair ln_abs(Scaled z) {
    Pair sq = ddm::add(dd::two_prod(z.a, z.a), dd::two_prod(z.b, z.b));
    return ddm::add(ddm::mul(ddm::log_pair(sq), 0.5), ddm::mul(ddm::kLn2, double(z.e)));
}
// arg z as a pair: the double atan2 t0, then z turned back by t0 leaves the
// small angle im/re still to add (its cube is far below the pair's digits)
inline Pair arg_pair(Scaled z) {
    double t0 = elem::atan2(z.b, z.a);
    Pair s, c;
    ddm::sincos_small(t0, &s, &c);
    Pair im = ddm::sub(ddm::mul(c, z.b), ddm::mul(s, z.a));
    double re = z.a * c.hi + z.b * s.hi;
    return dd::two_sum(t0, im.hi / re);
}

inline void ln_c(double a, double b, double* re, double* im) {
    *im = elem::atan2(b, a);
    double aa = ddm::fabs_(a), ab = ddm::fabs_(b);
    if (aa == ddm::inf() || ab == ddm::inf()) {
        *re = ddm::inf();
        return;
    }
    if (a != a || b != b) {
        *re = ddm::nan();
        return;
    }
    if (aa == 0 && ab == 0) {
        *re = -ddm::inf();
        return;
    }
    *re = ln_abs(scaled(a, b)).hi;
}

inline void sin_c(double a, double b, double* re, double* im) {
    if (!ddm::finite(a) || b != b) {
        *re = *im = ddm::nan();
        return;
    }
    Pair s, c;
    sincos_dd::sincos(a, &s, &c);
    *re = s.hi * ddm::cosh(b);
    *im = c.hi * ddm::sinh(b);
}
inline void cos_c(double a, double b, double* re, double* im) {
    if (!ddm::finite(a) || b != b) {
        *re = *im = ddm::nan();
        return;
    }
    Pair s, c;
    sincos_dd::sincos(a, &s, &c);
    *re = c.hi * ddm::cosh(b);
    *im = -(s.hi * ddm::sinh(b));
}

// tanh(x + iy). Past |x| = 22, 1 - |tanh x| is below 2^-62: the real part
// is +-1 and the imaginary part 4 sin y cos y e^-2|x| to the same relative
// error, tending to a zero with the sign of sin 2y.
inline void tanh_c(double x, double y, double* re, double* im) {
    if (x != x) {
        *re = x;
        *im = y == 0 ? y : ddm::nan();
        return;
    }
    double ax = ddm::fabs_(x);
    if (!ddm::finite(y)) {  // +-1 + i0 at an infinite x, x + iNaN at a zero x
        *re = ax == ddm::inf() ? ddm::copysign_(1.0, x) : x == 0 ? x : ddm::nan();
        *im = ax == ddm::inf() ? ddm::copysign_(0.0, y) : ddm::nan();
        return;
    }
    Pair s, c;
    sincos_dd::sincos(y, &s, &c);
    Pair sc = ddm::mul(s, c);
    if (ax >= 22) {
        *re = ddm::copysign_(1.0, x);
        if (ax > 400 || y == 0) {
            *im = y == 0 ? y : sc.hi * 0.0;
        } else {
            int k;
            Pair m = ddm::exp_parts({-2 * ax, 0.0}, &k);
            *im = ddm::scale(ddm::mul(m, sc), k + 2);
        }
        return;
    }
    Pair sh, ch;
    if (ax < 0x1p-30) {  // the series: x^5/120 is below 2^-150 x
        sh = {ax, ax * ax * ax / 6};
        ch = {1.0, ax * ax / 2};
    } else {
        Pair e = ddm::exp_small(ax), ie = ddm::div({1.0, 0.0}, e);
        sh = ddm::mul(ddm::sub(e, ie), 0.5);
        ch = ddm::mul(ddm::add(e, ie), 0.5);
    }
    if (x < 0) sh = ddm::neg(sh);
    Pair den = ddm::add(ddm::mul(sh, sh), ddm::mul(c, c));
    *re = x == 0 ? x : ddm::div(ddm::mul(sh, ch), den).hi;  // exact zeros keep their sign
    *im = y == 0 ? y : ddm::div(sc, den).hi;
}
inline void tan_c(double x, double y, double* re, double* im) {
    double u, v;
    tanh_c(-y, x, &u, &v);
    *re = v;
    *im = -u;
}

// (a + ib)^(c + id). The exponent 0 gives 1 for any base; a NaN part gives
// NaN parts; a zero base gives 0 for c > 0, +inf for a real c < 0; an
// infinite base with a real exponent gives e^(+-inf + i c arg z); an
// infinite exponent part, and every other case without a limit, NaN parts.
inline void pow_c(double a, double b, double c, double d, double* re, double* im) {
    if (c == 0 && d == 0) {
        *re = 1.0;
        *im = 0.0;
        return;
    }
    double nan = ddm::nan();
    *re = *im = nan;
    if (a != a || b != b || !ddm::finite(c) || !ddm::finite(d)) return;
    double aa = ddm::fabs_(a), ab = ddm::fabs_(b);
    if (aa == ddm::inf() || ab == ddm::inf()) {
        if (d == 0) exp_c(c > 0 ? ddm::inf() : -ddm::inf(), c * elem::atan2(b, a), re, im);
        return;
    }
    if (aa == 0 && ab == 0) {
        if (c > 0) *re = *im = 0.0;
        else if (d == 0) *re = ddm::inf(), *im = 0.0;
        return;
    }
    Scaled z = scaled(a, b);
    Pair lr = ln_abs(z), th = arg_pair(z);
    double pre = c * lr.hi - d * th.hi, pim = c * th.hi + d * lr.hi;
    if (!(ddm::fabs_(pre) < 0x1p12) || !(ddm::fabs_(pim) < 0x1p900)) {  // no digits to keep: overflow, zero or no angle
        exp_c(pre, pim, re, im);
        return;
    }
    exp_cp(ddm::sub(ddm::mul(lr, c), ddm::mul(th, d)), ddm::add(ddm::mul(th, c), ddm::mul(lr, d)), re, im);
}

}  // namespace

}  // namespace zams

ZAMS_COMPLEX_UNARY_BOTH(Exp, zams::exp_c)
ZAMS_COMPLEX_UNARY_BOTH(Ln, zams::ln_c)
ZAMS_COMPLEX_UNARY_BOTH(Sin, zams::sin_c)
ZAMS_COMPLEX_UNARY_BOTH(Cos, zams::cos_c)
ZAMS_COMPLEX_UNARY_BOTH(Tan, zams::tan_c)
ZAMS_COMPLEX_UNARY_BOTH(Tanh, zams::tanh_c)
ZAMS_COMPLEX_BINARY(Pow, 32fc, zams::pow_c)
ZAMS_COMPLEX_BINARY(Pow, 64fc, zams::pow_c)
ZAMS_COMPLEX_WITH_CONST(Powx, 32fc, 32f, zams::pow_c)
ZAMS_COMPLEX_WITH_CONST(Powx, 64fc, 64f, zams::pow_c)
