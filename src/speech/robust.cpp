// The Cauchy robust error, its derivative and its second derivative, in
// double from u = (x / c)^2 and rounded once to single precision. Where
// u passes 2^60, 1 + u is u and the asymptotic forms are used, so that
// infinite samples give the limits (+inf, a signed 0, -0).
#include <cstdint>

#include "../common/check.h"
#include "../common/num/elem.h"

namespace zams {
namespace {

constexpr double kHuge = 1152921504606846976.0;  // 2^60

// ln(1 + u) without the loss of a rounded 1 + u.
inline double log1p(double u) {
    const double w = 1.0 + u;
    return w == 1.0 ? u : elem::log(w) * (u / (w - 1.0));
}

enum class Kind { Rho, D, DD2 };

template <Kind K> inline float cauchy_one(float xf, double c) {
    const double x = xf, t = x / c, u = t * t;
    if (u > kHuge) {
        if constexpr (K == Kind::Rho) return float(c * c * 0.5 * elem::log(u));
        if constexpr (K == Kind::D) return float(c * c / x);
        if constexpr (K == Kind::DD2) return float(-1.0 / u);
    }
    if constexpr (K == Kind::Rho) return float(c * c * 0.5 * log1p(u));
    if constexpr (K == Kind::D) return float(x / (1.0 + u));
    if constexpr (K == Kind::DD2) return float((1.0 - u) / ((1.0 + u) * (1.0 + u)));
}

template <Kind K> zamStatus cauchy(const Zam32f* src, Zam32f* dst, int len, Zam32f param) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (!(param > 0.0f)) return zamStatusNotPositiveParam;
    const double c = param;
    for (int i = 0; i < len; ++i) dst[i] = cauchy_one<K>(src[i], c);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_CAUCHY(NAME, K)                                                                         \
    ZAMS_FN(zamStatus, zams##NAME##_32f)(const Zam32f* s, Zam32f* d, int n, Zam32f c) {             \
        return cauchy<K>(s, d, n, c);                                                                \
    }                                                                                                \
    ZAMS_FN(zamStatus, zams##NAME##_32f_I)(Zam32f* sd, int n, Zam32f c) { return cauchy<K>(sd, sd, n, c); }

ZAMS_CAUCHY(Cauchy, Kind::Rho)
ZAMS_CAUCHY(CauchyD, Kind::D)
ZAMS_CAUCHY(CauchyDD2, Kind::DD2)
