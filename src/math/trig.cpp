// Trigonometric functions of floating vectors: Sin, Cos, Tan, SinCos on any
// finite argument (exact reduction by common/num/sincos.h, so a phase of
// 1e300 radians is as accurate as one of 1), Asin, Acos, Atan2.
// An infinite or NaN argument gives NaN; |x| > 1 gives NaN for Asin and
// Acos; no warnings.
#include "../common/num/elem.h"
#include "../common/num/sincos.h"
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

inline double sin_(double x) {
    if (!ddm::finite(x)) return ddm::nan();
    Pair s, c;
    sincos_dd::sincos(x, &s, &c);
    return s.hi;
}
inline double cos_(double x) {
    if (!ddm::finite(x)) return ddm::nan();
    Pair s, c;
    sincos_dd::sincos(x, &s, &c);
    return c.hi;
}
// s / c of the double-double pair; cos x is never zero at a double x
inline double tan_(double x) {
    if (!ddm::finite(x)) return ddm::nan();
    Pair s, c;
    sincos_dd::sincos(x, &s, &c);
    return ddm::div(s, c).hi;
}
inline void sincos_(double x, double* s, double* c) {
    if (!ddm::finite(x)) {
        *s = *c = ddm::nan();
        return;
    }
    Pair ps, pc;
    sincos_dd::sincos(x, &ps, &pc);
    *s = ps.hi;
    *c = pc.hi;
}

// atan of a pair: atan(hi) plus the first-order term of lo
inline double atan_pair(Pair y) { return elem::atan(y.hi) + y.lo / (1.0 + y.hi * y.hi); }

// asin x = atan(x / sqrt((1 - x)(1 + x))), the root's argument formed in
// double-double so that no digits are lost as |x| nears 1
inline double asin_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax <= 1.0)) return ddm::nan();
    if (ax < 0x1p-27) return x;
    if (ax == 1.0) return ddm::copysign_(0x1.921fb54442d18p+0, x);
    Pair d = ddm::mul(dd::two_sum(1.0, -x), dd::two_sum(1.0, x));
    return atan_pair(ddm::div({x, 0.0}, ddm::sqrt(d)));
}

// acos x = 2 atan(sqrt((1 - x) / (1 + x)))
inline double acos_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax <= 1.0)) return ddm::nan();
    if (x == -1.0) return 0x1.921fb54442d18p+1;
    if (x == 1.0) return 0.0;
    Pair q = ddm::div(dd::two_sum(1.0, -x), dd::two_sum(1.0, x));
    return 2.0 * atan_pair(ddm::sqrt(q));
}

}  // namespace

}  // namespace zams

ZAMS_UNARY_REAL(Sin, zams::sin_)
ZAMS_UNARY_REAL(Cos, zams::cos_)
ZAMS_UNARY_REAL(Tan, zams::tan_)
ZAMS_UNARY_REAL(Asin, zams::asin_)
ZAMS_UNARY_REAL(Acos, zams::acos_)
ZAMS_BINARY_REAL(Atan2, zams::elem::atan2)

ZAMS_FN(zamStatus, zamsSinCos_32f)(const Zam32f* pSrc, Zam32f* pDstSin, Zam32f* pDstCos, int len) {
    return zams::elemf::unary2<Zam32f, zams::sincos_>(pSrc, pDstSin, pDstCos, len);
}
ZAMS_FN(zamStatus, zamsSinCos_64f)(const Zam64f* pSrc, Zam64f* pDstSin, Zam64f* pDstCos, int len) {
    return zams::elemf::unary2<Zam64f, zams::sincos_>(pSrc, pDstSin, pDstCos, len);
}
