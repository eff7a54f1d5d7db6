// Hyperbolic functions of floating vectors and their inverses: Sinh, Cosh,
// Tanh, Asinh, Acosh, Atanh, from the double-double exponential and
// logarithm of dd_elem.h. Acosh below 1 and Atanh beyond 1 give NaN,
// Atanh(+-1) gives +-inf; no warnings.
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

using ddm::Pair;

// (e^2|x| - 1) / (e^2|x| + 1)
inline double tanh_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax >= 0x1p-27)) return x;
    if (ax >= 22) return ddm::copysign_(1.0, x);
    Pair e = ddm::exp_small(2 * ax);
    return ddm::copysign_(ddm::div(ddm::add(e, -1.0), ddm::add(e, 1.0)).hi, x);
}

// asinh |x| = ln(|x| + sqrt(x^2 + 1)); ln 2|x| once x^2 + 1 is x^2
inline double asinh_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax >= 0x1p-27) || ax == ddm::inf()) return x;
    Pair r;
    if (ax > 0x1p28) r = ddm::add(ddm::log_pair({ax, 0.0}), ddm::kLn2);
    else r = ddm::log_pair(ddm::add(ddm::sqrt(ddm::add(dd::two_prod(ax, ax), 1.0)), ax));
    return ddm::copysign_(r.hi, x);
}
// acosh x = ln(x + sqrt((x - 1)(x + 1)))
inline double acosh_(double x) {
    if (x != x || x == ddm::inf()) return x;
    if (x < 1.0) return ddm::nan();
    if (x > 0x1p28) return ddm::add(ddm::log_pair({x, 0.0}), ddm::kLn2).hi;
    Pair d = ddm::mul(dd::two_sum(x, -1.0), dd::two_sum(x, 1.0));
    Pair s = d.hi == 0 ? d : ddm::sqrt(d);
    return ddm::log_pair(ddm::add(s, x)).hi;
}
// atanh x = ln((1 + x) / (1 - x)) / 2
inline double atanh_(double x) {
    double ax = ddm::fabs_(x);
    if (!(ax >= 0x1p-27)) return x;
    if (ax > 1.0) return ddm::nan();
    if (ax == 1.0) return ddm::copysign_(ddm::inf(), x);
    Pair q = ddm::div(dd::two_sum(1.0, ax), dd::two_sum(1.0, -ax));
    return ddm::copysign_(0.5 * ddm::log_pair(q).hi, x);
}

}  // namespace

}  // namespace zams

ZAMS_UNARY_REAL(Sinh, zams::ddm::sinh)
ZAMS_UNARY_REAL(Cosh, zams::ddm::cosh)
ZAMS_UNARY_REAL(Tanh, zams::tanh_)
ZAMS_UNARY_REAL(Asinh, zams::asinh_)
ZAMS_UNARY_REAL(Acosh, zams::acosh_)
ZAMS_UNARY_REAL(Atanh, zams::atanh_)
