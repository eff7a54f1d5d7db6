// Elementary functions of complex vectors: Exp, Ln, Sin, Cos.
// exp(a + ib) = e^a (cos b + i sin b), the power of two of e^a applied after
// the products, so a part overflows only where it really does;
// ln z = ln|z| + i atan2(b, a), ln|z| from the sum of squares as a pair, so
// |z| near 1 keeps its digits; sin z = sin a cosh b + i cos a sinh b,
// cos z = cos a cosh b - i sin a sinh b. A NaN part, or an infinite part
// whose sine or cosine is needed, gives NaN parts; ln 0 is -inf + i atan2.
#include "../common/num/elem.h"
#include "../common/num/sincos.h"
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

inline void exp_c(double a, double b, double* re, double* im) {
    if (b == 0) {
        *re = ddm::exp_pair({a, 0.0});
        *im = b;
        return;
    }
    if (a != a || !ddm::finite(b)) {
        *re = *im = ddm::nan();
        return;
    }
    Pair s, c;
    sincos_dd::sincos(b, &s, &c);
    if (ddm::fabs_(a) > 1500) {  // infinite or far beyond the range: signed infinities or zeros
        double m = a > 0 ? ddm::inf() : 0.0;
        *re = c.hi * m;
        *im = s.hi * m;
        return;
    }
    int k;
    Pair m = ddm::exp_parts({a, 0.0}, &k);
    *re = ddm::scale(ddm::mul(m, c), k);
    *im = ddm::scale(ddm::mul(m, s), k);
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
    double m = aa > ab ? aa : ab;
    if (m == 0) {
        *re = -ddm::inf();
        return;
    }
    int adj = 0;
    if (m < 0x1p-900) {
        aa *= 0x1p600;
        ab *= 0x1p600;
        m *= 0x1p600;
        adj = -600;
    }
    int e = int((to_bits(m) >> 52) & 0x7ff) - 1023;
    double s1 = pow2(-e / 2), s2 = pow2(-(e - e / 2));
    aa = aa * s1 * s2;
    ab = ab * s1 * s2;
    Pair sq = ddm::add(dd::two_prod(aa, aa), dd::two_prod(ab, ab));
    *re = ddm::add(ddm::mul(ddm::log_pair(sq), 0.5), ddm::mul(ddm::kLn2, double(e + adj))).hi;
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

}  // namespace

}  // namespace zams

ZAMS_COMPLEX_UNARY_BOTH(Exp, zams::exp_c)
ZAMS_COMPLEX_UNARY_BOTH(Ln, zams::ln_c)
ZAMS_COMPLEX_UNARY_BOTH(Sin, zams::sin_c)
ZAMS_COMPLEX_UNARY_BOTH(Cos, zams::cos_c)
