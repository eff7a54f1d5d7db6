// Elementary functions of floating vectors: Exp, Ln, Arctan on 32f and 64f.
// Special values follow IEEE and C99 Annex F: ln(+-0) = -inf, ln of a
// negative number is NaN, exp(-inf) = 0, atan(+-inf) = +-pi/2; no warnings.
#include "../common/check.h"
#include "elem_kernel.h"

namespace zams {

namespace {

template <class F, double (*Fn)(double)> zamStatus apply(const F* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = F(Fn(double(src[i])));
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

#define ZAMS_ELEM_FLOAT(Name, fn)                                                                   \
    ZAMS_FN(zamStatus, zams##Name##_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) {              \
        return zams::apply<Zam32f, zams::elem::fn>(pSrc, pDst, len);                               \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_32f_I)(Zam32f * pSrcDst, int len) {                            \
        return zams::apply<Zam32f, zams::elem::fn>(pSrcDst, pSrcDst, len);                         \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) {              \
        return zams::apply<Zam64f, zams::elem::fn>(pSrc, pDst, len);                               \
    }                                                                                              \
    ZAMS_FN(zamStatus, zams##Name##_64f_I)(Zam64f * pSrcDst, int len) {                            \
        return zams::apply<Zam64f, zams::elem::fn>(pSrcDst, pSrcDst, len);                         \
    }

ZAMS_ELEM_FLOAT(Exp, exp)
ZAMS_ELEM_FLOAT(Ln, log)
ZAMS_ELEM_FLOAT(Arctan, atan)
