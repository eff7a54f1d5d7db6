// Applying a symmetric window: coefficients w(n) for the first half are
// produced in blocks and each multiplies element n and element len-1-n, so
// the window is symmetric to the bit. Coefficients are doubles; the product
// is rounded once to the element type (integers: nearest, ties to even,
// saturated).
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <type_traits>

#include "../common/scale.h"
#include "../common/types.h"

namespace zams::win {

// One element times w, in the element's type; `scale` is 2^-sf for the
// scaled integer form (1 otherwise).
template <class P> inline P times(P x, double w, double scale) {
    if constexpr (std::is_same_v<P, Zam16s>) return round_sat<Zam16s>(double(x) * w * scale);
    else return static_cast<P>(double(x) * w);
}
template <class T> inline T mul(const T& x, double w, double scale) {
    if constexpr (is_complex_v<T>) return T{times(x.re, w, scale), times(x.im, w, scale)};
    else return times(x, w, scale);
}

// gen(first, count, out) writes w(first) .. w(first + count - 1).
// Coefficients are produced kBlock at a time.
inline constexpr int kBlock = 256;

template <class T, class Gen> void apply(const T* src, T* dst, int len, Gen&& gen, double scale = 1.0) {
    constexpr int B = kBlock;
    double w[B];
    const int half = (len + 1) / 2;  // coefficients needed; the middle one of an odd length once
    for (int n0 = 0; n0 < half; n0 += B) {
        int cnt = std::min(B, half - n0);
        gen(n0, cnt, w);
        int k = 0;
        if constexpr (std::is_same_v<T, Zam32f>) {
            // Four from each end while the two groups stay apart; the same
            // double products and roundings as the scalar steps.
            for (; k + 4 <= cnt && 2 * (n0 + k) + 7 < len; k += 4) {
                int i = n0 + k, j = len - 4 - i;  // back group: j .. j + 3, mirrored
                __m256d c = _mm256_loadu_pd(w + k);
                __m256d r = _mm256_permute_pd(_mm256_permute2f128_pd(c, c, 1), 0x5);  // reversed
                __m256d a = _mm256_mul_pd(_mm256_cvtps_pd(_mm_loadu_ps(src + i)), c);
                __m256d b = _mm256_mul_pd(_mm256_cvtps_pd(_mm_loadu_ps(src + j)), r);
                _mm_storeu_ps(dst + i, _mm256_cvtpd_ps(a));
                _mm_storeu_ps(dst + j, _mm256_cvtpd_ps(b));
            }
        }
        for (; k < cnt; ++k) {
            int i = n0 + k, j = len - 1 - i;
            dst[i] = mul(src[i], w[k], scale);
            if (j != i) dst[j] = mul(src[j], w[k], scale);
        }
    }
}

}  // namespace zams::win
