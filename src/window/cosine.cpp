// Bartlett, Hann, Hamming and Blackman windows.
#include <cstring>

#include "../common/check.h"
#include "../common/trig.h"
#include "apply.h"

namespace zams::win {
namespace {

// cos(2 pi k n / M) for successive n by the two-term recurrence
// c(n+1) = 2 cos(2 pi k / M) c(n) - c(n-1). Its error grows with the square
// of the steps taken, so the walk starts again from exact values every
// `period` steps: often enough for double results, less often for the
// narrower types.
struct CosWalk {
    long long k, M;
    int period, left = 0;
    long long n = 0;
    double twice_c1, prev, cur;
    CosWalk(int k_, int M_, int period_) : k(k_), M(M_), period(period_) { twice_c1 = 2.0 * cosine(1); }
    double cosine(long long n) const {
        double s, c;
        sincospi_ratio(2 * k * n, M, &s, &c);
        return c;
    }
    void seek(long long at) {
        n = at;
        left = 0;
    }
    double next() {
        if (left-- == 0) {
            prev = cosine(n - 1);
            cur = cosine(n);
            left = period - 1;
        }
        ++n;
        double c = cur;
        cur = twice_c1 * cur - prev;
        prev = c;
        return c;
    }
};

template <class T> using part_or_self = std::conditional_t<is_complex_v<T>, part_t<T>, T>;

enum class Win { Bartlett, Hann, Hamming, Blackman };

// The short path of the three-point Hann and Blackman windows: {0, 1, 0}
// written without computation.
template <class T> void three_points(const T* src, T* dst) {
    T mid = src[1];
    std::memset(static_cast<void*>(dst), 0, 3 * sizeof(T));
    dst[1] = mid;
}

template <Win W, class T> zamStatus cosine_window(const T* src, T* dst, int len, double alpha = 0, double scale = 1) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (len < 3) return zamStatusBadLength;
    const int M = len - 1;
    if constexpr (W == Win::Bartlett) {
        apply(src, dst, len, [&](int n0, int cnt, double* w) {
            for (int i = 0; i < cnt; ++i) w[i] = 2.0 * (n0 + i) / M;
        }, scale);
    } else {
        if ((W == Win::Hann || W == Win::Blackman) && len == 3 && scale == 1) {
            three_points(src, dst);
            return zamStatusOk;
        }
        const int period = sizeof(part_or_self<T>) == 8 ? 4 : 256;
        CosWalk c1(1, M, period), c2(2, M, period);
        const double a0 = (alpha + 1) * 0.5, a2 = alpha * 0.5;
        apply(src, dst, len, [&](int n0, int cnt, double* w) {
            c1.seek(n0);
            if constexpr (W == Win::Blackman) c2.seek(n0);
            for (int i = 0; i < cnt; ++i) {
                double c = c1.next();
                if constexpr (W == Win::Hann) w[i] = 0.5 - 0.5 * c;
                if constexpr (W == Win::Hamming) w[i] = 0.54 - 0.46 * c;
                if constexpr (W == Win::Blackman) w[i] = a0 - 0.5 * c - a2 * c2.next();
            }
        }, scale);
    }
    return zamStatusOk;
}

template <class T> zamStatus bartlett(const T* s, T* d, int n) { return cosine_window<Win::Bartlett>(s, d, n); }
template <class T> zamStatus hann(const T* s, T* d, int n) { return cosine_window<Win::Hann>(s, d, n); }
template <class T> zamStatus hamming(const T* s, T* d, int n) { return cosine_window<Win::Hamming>(s, d, n); }
template <class T> zamStatus blackman(const T* s, T* d, int n, float a) { return cosine_window<Win::Blackman>(s, d, n, a); }

// alpha of the standard Blackman window: the single-precision -0.16.
inline float std_alpha() {
    const uint32_t b = 0xBE23D70Au;
    float f;
    std::memcpy(&f, &b, 4);
    return f;
}

// alpha of the optimal Blackman window, -0.5 / (1 + cos(2 pi / M)), as
// minus the square of 0.5 / cos(pi / M).
inline float opt_alpha(int len) {
    double s, c;
    sincospi_ratio(1, len - 1, &s, &c);
    double h = 0.5 / c;
    return static_cast<float>(-(h * h));
}

// Q15 Blackman: alpha = alphaQ15 / 32768; the _ISfs form scales the
// products by 2^-scaleFactor, rounding once.
template <class T> zamStatus blackman_q15(const T* s, T* d, int n, int aq15, int sf = 0) {
    sf = sf < -200 ? -200 : (sf > 200 ? 200 : sf);  // far beyond any 16-bit result either way
    double scale = sf >= 0 ? 1.0 / pow2(sf) : pow2(-sf);
    return cosine_window<Win::Blackman>(s, d, n, aq15 * 3.0517578125e-5, scale);
}

}  // namespace
}  // namespace zams::win

using namespace zams::win;
using zams::check_ptr;

// Out-of-place members with pSrc == pDst behave as the in-place member.
#define ZAMS_WIN(Name, T, fn)                                                                   \
    ZAMS_FN(zamStatus, zamsWin##Name##_##T)(const Zam##T* pSrc, Zam##T* pDst, int len) {       \
        if (pSrc == pDst) return zamsWin##Name##_##T##_I(pDst, len);                            \
        return fn(pSrc, pDst, len);                                                             \
    }                                                                                           \
    ZAMS_FN(zamStatus, zamsWin##Name##_##T##_I)(Zam##T * pSrcDst, int len) { return fn(pSrcDst, pSrcDst, len); }

#define ZAMS_WIN_TYPES(Name, fn) \
    ZAMS_WIN(Name, 16s, fn) ZAMS_WIN(Name, 16sc, fn) ZAMS_WIN(Name, 32f, fn) \
    ZAMS_WIN(Name, 32fc, fn) ZAMS_WIN(Name, 64f, fn) ZAMS_WIN(Name, 64fc, fn)

ZAMS_WIN_TYPES(Bartlett, bartlett)
ZAMS_WIN_TYPES(Hann, hann)
ZAMS_WIN_TYPES(Hamming, hamming)

// Blackman with a free alpha; the standard and optimal members compute
// their alpha and hand over to it. The optimal member tests the length
// before anything else.
#define ZAMS_BLACKMAN(T)                                                                                     \
    ZAMS_FN(zamStatus, zamsWinBlackman_##T)(const Zam##T* pSrc, Zam##T* pDst, int len, Zam32f alpha) {      \
        if (pSrc == pDst) return zamsWinBlackman_##T##_I(pDst, len, alpha);                                  \
        return blackman(pSrc, pDst, len, alpha);                                                             \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsWinBlackman_##T##_I)(Zam##T * pSrcDst, int len, Zam32f alpha) {                  \
        return blackman(pSrcDst, pSrcDst, len, alpha);                                                       \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsWinBlackmanStd_##T)(const Zam##T* pSrc, Zam##T* pDst, int len) {                 \
        return zamsWinBlackman_##T(pSrc, pDst, len, std_alpha());                                            \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsWinBlackmanStd_##T##_I)(Zam##T * pSrcDst, int len) {                             \
        return zamsWinBlackman_##T##_I(pSrcDst, len, std_alpha());                                           \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsWinBlackmanOpt_##T)(const Zam##T* pSrc, Zam##T* pDst, int len) {                 \
        if (len < 4) return zamStatusBadLength;                                                              \
        return zamsWinBlackman_##T(pSrc, pDst, len, opt_alpha(len));                                         \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsWinBlackmanOpt_##T##_I)(Zam##T * pSrcDst, int len) {                             \
        if (len < 4) return zamStatusBadLength;                                                              \
        return zamsWinBlackman_##T##_I(pSrcDst, len, opt_alpha(len));                                        \
    }

ZAMS_BLACKMAN(16s)
ZAMS_BLACKMAN(16sc)
ZAMS_BLACKMAN(32f)
ZAMS_BLACKMAN(32fc)
ZAMS_BLACKMAN(64f)
ZAMS_BLACKMAN(64fc)

ZAMS_FN(zamStatus, zamsWinBlackmanQ15_16s)(const Zam16s* pSrc, Zam16s* pDst, int len, int alphaQ15) {
    if (pSrc == pDst) return zamsWinBlackmanQ15_16s_I(pDst, len, alphaQ15);
    return blackman_q15(pSrc, pDst, len, alphaQ15);
}
ZAMS_FN(zamStatus, zamsWinBlackmanQ15_16s_I)(Zam16s* pSrcDst, int len, int alphaQ15) {
    return blackman_q15(pSrcDst, pSrcDst, len, alphaQ15);
}
ZAMS_FN(zamStatus, zamsWinBlackmanQ15_16s_ISfs)(Zam16s* pSrcDst, int len, int alphaQ15, int scaleFactor) {
    return blackman_q15(pSrcDst, pSrcDst, len, alphaQ15, scaleFactor);
}
ZAMS_FN(zamStatus, zamsWinBlackmanQ15_16sc)(const Zam16sc* pSrc, Zam16sc* pDst, int len, int alphaQ15) {
    if (pSrc == pDst) return zamsWinBlackmanQ15_16sc_I(pDst, len, alphaQ15);
    return blackman_q15(pSrc, pDst, len, alphaQ15);
}
ZAMS_FN(zamStatus, zamsWinBlackmanQ15_16sc_I)(Zam16sc* pSrcDst, int len, int alphaQ15) {
    return blackman_q15(pSrcDst, pSrcDst, len, alphaQ15);
}
