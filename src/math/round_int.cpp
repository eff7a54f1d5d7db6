// Rounding floating vectors to integral values: Floor, Ceil, Trunc, Round
// (halves away from zero) and Frac (x - Trunc(x), the sign of x kept, +-0
// for infinities). All exact; NaN stays NaN and zeros keep their sign.
#include "dd_elem.h"
#include "elem_apply.h"

namespace zams {

namespace {

inline double floor_(double x) { return __builtin_floor(x); }
inline double ceil_(double x) { return __builtin_ceil(x); }
inline double trunc_(double x) { return __builtin_trunc(x); }
// x - Trunc(x) is exact, so the half is seen exactly
inline double round_(double x) {
    double t = __builtin_trunc(x);
    return ddm::fabs_(x - t) >= 0.5 ? t + ddm::copysign_(1.0, x) : t;
}
inline double frac_(double x) {
    if (x != x) return x;
    if (ddm::fabs_(x) == ddm::inf()) return ddm::copysign_(0.0, x);
    return ddm::copysign_(x - __builtin_trunc(x), x);
}

}  // namespace

}  // namespace zams

ZAMS_UNARY_REAL(Floor, zams::floor_)
ZAMS_UNARY_REAL(Ceil, zams::ceil_)
ZAMS_UNARY_REAL(Trunc, zams::trunc_)
ZAMS_UNARY_REAL(Round, zams::round_)
ZAMS_UNARY_REAL(Frac, zams::frac_)
