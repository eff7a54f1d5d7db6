// Kaiser windows: w(n) = I0(alpha sqrt(n (M - n))) / I0(alpha M / 2).
#include <cmath>
#include <type_traits>

#include "../common/check.h"
#include "../common/num/bessel.h"
#include "apply.h"

namespace zams::win {
namespace {

using num::bessel_i0;

// alpha_m is |alpha * M|, as the member computes it; limit is the largest
// accepted |alpha| M / 2.
template <class T> zamStatus kaiser(const T* src, T* dst, int len, double alpha, double alpha_m, double limit) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    const int M = len - 1;
    const double a = alpha < 0 ? -alpha : alpha;
    if (a * M * 0.5 > limit) return zamStatusWindowOverflow;
    if (len == 1) {
        dst[0] = src[0];
        return zamStatusOk;
    }
    const double norm = 1.0 / bessel_i0(alpha_m * 0.5);
    apply(src, dst, len, [&](int n0, int cnt, double* w) {
        for (int i = 0; i < cnt; ++i) {
            double n = n0 + i;
            w[i] = bessel_i0(a * std::sqrt(n * (M - n))) * norm;
        }
    });
    return zamStatusOk;
}

// alpha in single precision: the product alpha M too.
template <class T> zamStatus kaiser_f(const T* s, T* d, int len, float alpha) {
    const double limit = std::is_same_v<T, Zam32f> || std::is_same_v<T, Zam32fc> ? 38.0 : 308.0;
    float am = alpha * static_cast<float>(len > 0 ? len - 1 : 0);
    return kaiser(s, d, len, alpha, am < 0 ? -am : am, limit);
}

template <class T> zamStatus kaiser_q15(const T* s, T* d, int len, int aq15) {
    double alpha = aq15 * 3.0517578125e-5;
    double am = alpha * (len > 0 ? len - 1 : 0);
    return kaiser(s, d, len, alpha, am < 0 ? -am : am, 308.0);
}

}  // namespace
}  // namespace zams::win

using namespace zams::win;

#define ZAMS_KAISER(Name, T, P, fn)                                                                  \
    ZAMS_FN(zamStatus, zamsWin##Name##_##T)(const Zam##T* pSrc, Zam##T* pDst, int len, P alpha) {   \
        if (pSrc == pDst) return zamsWin##Name##_##T##_I(pDst, len, alpha);                         \
        return fn(pSrc, pDst, len, alpha);                                                          \
    }                                                                                               \
    ZAMS_FN(zamStatus, zamsWin##Name##_##T##_I)(Zam##T * pSrcDst, int len, P alpha) {              \
        return fn(pSrcDst, pSrcDst, len, alpha);                                                    \
    }

ZAMS_KAISER(Kaiser, 16s, Zam32f, kaiser_f)
ZAMS_KAISER(Kaiser, 16sc, Zam32f, kaiser_f)
ZAMS_KAISER(Kaiser, 32f, Zam32f, kaiser_f)
ZAMS_KAISER(Kaiser, 32fc, Zam32f, kaiser_f)
ZAMS_KAISER(Kaiser, 64f, Zam32f, kaiser_f)
ZAMS_KAISER(Kaiser, 64fc, Zam32f, kaiser_f)
ZAMS_KAISER(KaiserQ15, 16s, int, kaiser_q15)
ZAMS_KAISER(KaiserQ15, 16sc, int, kaiser_q15)
