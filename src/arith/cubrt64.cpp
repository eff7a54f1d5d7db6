// Cube root of double-precision vectors, within an ulp: Newton steps in
// double, then one last step whose residual t^3 - m is formed exactly.
#include "../common/check.h"
#include "../common/types.h"
#include "../vector/sincos_dd.h"

namespace zams {

namespace {

using sincos_dd::from_bits;
using sincos_dd::to_bits;
using sincos_dd::two_prod;

inline double cbrt_d(double x) {
    if (x == 0 || x != x || x - x != 0) return x;  // zeros, NaN, infinities
    bool neg = x < 0;
    if (neg) x = -x;
    int adj = 0;
    if (x < 0x1p-1022) x *= 0x1p54, adj = -18;  // subnormal: scale by 2^54 = (2^18)^3
    int e = int(to_bits(x) >> 52) - 1023;
    int q = e >= 0 ? e / 3 : -((-e + 2) / 3);  // floor(e / 3)
    double m = from_bits(to_bits(x) - (uint64_t(int64_t(3 * q)) << 52));  // in [1, 8)
    // a linear guess within 15%, then quadratic convergence to about an ulp
    double t = 0.7 + 0.2 * m;
    for (int k = 0; k < 5; ++k) t -= (t * t * t - m) / (3.0 * t * t);
    // t^3 - m with the error of t^3 kept: the final step is accurate to far
    // below an ulp, and the subtraction below rounds once
    sincos_dd::Pair t2 = two_prod(t, t);
    sincos_dd::Pair t3 = two_prod(t, t2.hi);
    double res = (t3.hi - m) + (t3.lo + t * t2.lo);
    double r = t - res / (3.0 * t2.hi);
    r = from_bits(to_bits(r) + (uint64_t(int64_t(q + adj)) << 52));
    return neg ? -r : r;
}

zamStatus cubrt_64f(const Zam64f* src, Zam64f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = cbrt_d(src[i]);
    return zamStatusOk;
}

}  // namespace

}  // namespace zams

ZAMS_FN(zamStatus, zamsCubrt_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) { return zams::cubrt_64f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsCubrt_64f_I)(Zam64f* pSrcDst, int len) { return zams::cubrt_64f(pSrcDst, pSrcDst, len); }
