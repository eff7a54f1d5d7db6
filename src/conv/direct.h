// Direct sums of correlation and convolution: sum over i of conj(a[i]) b[i]
// (conj only for complex data), the one kernel every direct path runs.
//
// Float products accumulate in double, double products in double, 16-bit
// products exactly in 64 bits; each sum is rounded once to its result.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <type_traits>

#include "../common/types.h"

namespace zams::corr {

// The exact or accurate sum of one lag, and its rounding to the element type.
template <class T> struct Acc;
template <> struct Acc<float> { using type = double; };
template <> struct Acc<double> { using type = double; };
template <> struct Acc<Zam16s> { using type = int64_t; };
struct CAcc {
    double re = 0, im = 0;
};
template <> struct Acc<Zam32fc> { using type = CAcc; };
template <> struct Acc<Zam64fc> { using type = CAcc; };
template <class T> using acc_t = typename Acc<T>::type;

// Four double lanes over float or double data.
template <class T> inline double dot_real(const T* a, const T* b, int64_t n) {
    auto load = [](const T* p) {
        if constexpr (std::is_same_v<T, float>) return _mm256_cvtps_pd(_mm_loadu_ps(p));
        else return _mm256_loadu_pd(p);
    };
    __m256d s0 = _mm256_setzero_pd(), s1 = s0;
    int64_t i = 0;
    for (; i + 8 <= n; i += 8) {
        s0 = _mm256_add_pd(s0, _mm256_mul_pd(load(a + i), load(b + i)));
        s1 = _mm256_add_pd(s1, _mm256_mul_pd(load(a + i + 4), load(b + i + 4)));
    }
    for (; i + 4 <= n; i += 4) s0 = _mm256_add_pd(s0, _mm256_mul_pd(load(a + i), load(b + i)));
    alignas(32) double l[4];
    _mm256_store_pd(l, _mm256_add_pd(s0, s1));
    double s = (l[0] + l[1]) + (l[2] + l[3]);
    for (; i < n; ++i) s += double(a[i]) * double(b[i]);
    return s;
}

template <class T> inline acc_t<T> lag_sum(const T* a, const T* b, int64_t n) {
    if constexpr (std::is_same_v<T, Zam16s>) {
        int64_t s = 0;
        for (int64_t i = 0; i < n; ++i) s += int32_t(a[i]) * int32_t(b[i]);
        return s;
    } else if constexpr (is_complex_v<T>) {
        // conj(a) b = (ar br + ai bi) + i (ar bi - ai br)
        double r0 = 0, r1 = 0, i0 = 0, i1 = 0;
        for (int64_t k = 0; k < n; ++k) {
            const double ar = a[k].re, ai = a[k].im, br = b[k].re, bi = b[k].im;
            r0 += ar * br;
            r1 += ai * bi;
            i0 += ar * bi;
            i1 += ai * br;
        }
        return CAcc{r0 + r1, i0 - i1};
    } else {
        return dot_real(a, b, n);
    }
}

// The sum rounded to the element type (16-bit data: scaled and saturated).
template <class T> inline T round_to(const acc_t<T>& s) {
    if constexpr (is_complex_v<T>) return T{part_t<T>(s.re), part_t<T>(s.im)};
    else return T(s);
}

template <class T> inline T conj_of(const T& v) {
    if constexpr (is_complex_v<T>) return T{v.re, part_t<T>(-v.im)};
    else return v;
}

}  // namespace zams::corr
