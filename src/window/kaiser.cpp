// Kaiser windows: w(n) = I0(alpha sqrt(n (M - n))) / I0(alpha M / 2).
#include <cmath>
#include <type_traits>

#include "../common/check.h"
#include "apply.h"

namespace zams::win {
namespace {

// e^x for 0 <= x <= 709 from plain arithmetic (the C library's exp differs
// between targets): x = k ln2 + r, |r| <= ln2 / 2, e^r by its Taylor series.
inline double exp_pos(double x) {
    constexpr double kLn2Hi = 6.93147180369123816490e-01;  // low bits zero: k * kLn2Hi is exact
    constexpr double kLn2Lo = 1.90821492927058770002e-10;
    constexpr double kInvLn2 = 1.44269504088896338700e+00;
    double k = round_even(x * kInvLn2);
    double r = (x - k * kLn2Hi) - k * kLn2Lo;
    // sum of r^i / i!, i = 0..13, as 1 + r (1 + r/2 (1 + r/3 (...))).
    double e = 1.0;
    for (int i = 13; i >= 1; --i) e = 1.0 + e * r / i;
    return e * pow2(static_cast<int>(k));
}

// I0 by the polynomial approximations of Abramowitz and Stegun 9.8.1 and
// 9.8.2; x >= 0.
inline double bessel_i0(double x) {
    if (x < 3.75) {
        double t = x * 0.26666666666666666;
        double t2 = t * t;
        return 1.0 + t2 * (3.5156229 + t2 * (3.0899424 + t2 * (1.2067492 + t2 * (0.2659732 + t2 * (0.0360768 + t2 * 0.0045813)))));
    }
    double u = 3.75 / x;
    double p = 0.39894228 + u * (0.01328592 + u * (0.00225319 + u * (-0.00157565 + u * (0.00916281 + u * (-0.02057706 + u * (0.02635537 + u * (-0.01647633 + u * 0.00392377)))))));
    return exp_pos(x) / std::sqrt(x) * p;
}

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
