// PolarToCart: magnitude and phase (radians) to cartesian parts,
// re = magn cos(phase), im = magn sin(phase), each within an ulp for any
// finite phase; an infinite or NaN phase gives NaN parts.
#include "../common/check.h"
#include "../common/types.h"
#include "sincos_dd.h"

namespace zams {

namespace {

template <class F> inline void polar_one(F magn, F phase, F* re, F* im) {
    double x = phase;
    if (x - x != 0) {  // infinite or NaN
        *re = *im = F(x - x);
        return;
    }
    sincos_dd::Pair s, c;
    sincos_dd::sincos(x, &s, &c);
    if constexpr (sizeof(F) == 4) {  // the double product is far inside a float ulp
        *re = F(double(magn) * (c.hi + c.lo));
        *im = F(double(magn) * (s.hi + s.lo));
    } else {
        *re = sincos_dd::mul(magn, c);
        *im = sincos_dd::mul(magn, s);
    }
}

template <class F, class C> zamStatus polar_to_cart_c(const F* magn, const F* phase, C* dst, int len) {
    if (zamStatus s = check_args(len, magn, phase, dst)) return s;
    for (int i = 0; i < len; ++i) {
        F re, im;
        polar_one(magn[i], phase[i], &re, &im);
        dst[i].re = re;
        dst[i].im = im;
    }
    return zamStatusOk;
}

template <class F> zamStatus polar_to_cart_parts(const F* magn, const F* phase, F* re, F* im, int len) {
    if (zamStatus s = check_args(len, magn, phase, re, im)) return s;
    for (int i = 0; i < len; ++i) {
        F a, b;  // the destinations may alias the sources element by element
        polar_one(magn[i], phase[i], &a, &b);
        re[i] = a;
        im[i] = b;
    }
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsPolarToCart_32fc)(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32fc* pDst, int len) {
    return zams::polar_to_cart_c(pSrcMagn, pSrcPhase, pDst, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_64fc)(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64fc* pDst, int len) {
    return zams::polar_to_cart_c(pSrcMagn, pSrcPhase, pDst, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_32f)(const Zam32f* pSrcMagn, const Zam32f* pSrcPhase, Zam32f* pDstRe, Zam32f* pDstIm, int len) {
    return zams::polar_to_cart_parts(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}
ZAMS_FN(zamStatus, zamsPolarToCart_64f)(const Zam64f* pSrcMagn, const Zam64f* pSrcPhase, Zam64f* pDstRe, Zam64f* pDstIm, int len) {
    return zams::polar_to_cart_parts(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}
