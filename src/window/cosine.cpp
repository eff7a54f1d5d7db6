// Bartlett, Hann, Hamming and Blackman windows.
#include <immintrin.h>

#include <cstring>

#include "../common/check.h"
#include "../common/num/bits.h"
#include "../common/trig.h"
#include "apply.h"

namespace zams::win {
namespace {

// cos(2 pi k n / M) for n = n0 .. n0 + cnt - 1 by the two-term recurrence
// c(n + 4) = 2 cos(8 pi k / M) c(n) - c(n - 4), four interleaved walks in
// one vector so that the recurrence's latency is paid once per four values.
// Its error grows with the square of the steps taken, so the walks start
// again from exact values every `period` steps: often for double results,
// rarely for the narrower types.
void cosines(long long k, long long M, int n0, int cnt, int period, double* out) {
    auto cosine = [&](long long n) {
        double s, c;
        sincospi_ratio(2 * k * n, M, &s, &c);
        return c;
    };
    const __m256d twice_c4 = _mm256_set1_pd(2.0 * cosine(4));
    for (int i = 0; i < cnt; i += 4 * period) {
        const long long n = n0 + i, m = 2 * k;
        __m256d prev = cospi_ratio4({m * (n - 4), m * (n - 3), m * (n - 2), m * (n - 1)}, M);
        __m256d cur = cospi_ratio4({m * n, m * (n + 1), m * (n + 2), m * (n + 3)}, M);
        int end = cnt < i + 4 * period ? cnt : i + 4 * period;
        int j = i;
        for (; j + 4 <= end; j += 4) {
            _mm256_storeu_pd(out + j, cur);
            __m256d next = _mm256_sub_pd(_mm256_mul_pd(twice_c4, cur), prev);
            prev = cur;
            cur = next;
        }
        double rest[4];
        _mm256_storeu_pd(rest, cur);
        for (int r = 0; j < end; ++j, ++r) out[j] = rest[r];
    }
}

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
        const int period = sizeof(part_or_self<T>) == 8 ? 2 : 64;
        const double a0 = (alpha + 1) * 0.5, a2 = alpha * 0.5;
        double c1[kBlock], c2[kBlock];
        apply(src, dst, len, [&](int n0, int cnt, double* w) {
            cosines(1, M, n0, cnt, period, c1);
            if constexpr (W == Win::Blackman) cosines(2, M, n0, cnt, period, c2);
            for (int i = 0; i < cnt; ++i) {
                if constexpr (W == Win::Hann) w[i] = 0.5 - 0.5 * c1[i];
                if constexpr (W == Win::Hamming) w[i] = 0.54 - 0.46 * c1[i];
                if constexpr (W == Win::Blackman) w[i] = a0 - 0.5 * c1[i] - a2 * c2[i];
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
inline float std_alpha() { return float_from_bits(0xBE23D70Au); }

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
