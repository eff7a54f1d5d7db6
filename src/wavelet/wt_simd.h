// Splitting a stream into its even and odd samples and merging two streams
// into one, eight floats or four doubles a vector: the two halves of every
// two-channel transform.
#pragma once

#include "../common/simd.h"

namespace zams::wt {

// Loads 2L samples from p: e gets p[0], p[2], ..., o gets p[1], p[3], ...
inline void split(const float* p, __m256& e, __m256& o) {
    const __m256 a = _mm256_loadu_ps(p), b = _mm256_loadu_ps(p + 8);
    const __m256 lo = _mm256_permute2f128_ps(a, b, 0x20), hi = _mm256_permute2f128_ps(a, b, 0x31);
    e = _mm256_shuffle_ps(lo, hi, 0x88);
    o = _mm256_shuffle_ps(lo, hi, 0xDD);
}
inline void split(const double* p, __m256d& e, __m256d& o) {
    const __m256d a = _mm256_loadu_pd(p), b = _mm256_loadu_pd(p + 4);
    const __m256d lo = _mm256_permute2f128_pd(a, b, 0x20), hi = _mm256_permute2f128_pd(a, b, 0x31);
    e = _mm256_unpacklo_pd(lo, hi);
    o = _mm256_unpackhi_pd(lo, hi);
}

// Stores e[0], o[0], e[1], o[1], ... as 2L samples at p.
inline void merge(float* p, __m256 e, __m256 o) {
    const __m256 lo = _mm256_unpacklo_ps(e, o), hi = _mm256_unpackhi_ps(e, o);
    _mm256_storeu_ps(p, _mm256_permute2f128_ps(lo, hi, 0x20));
    _mm256_storeu_ps(p + 8, _mm256_permute2f128_ps(lo, hi, 0x31));
}
inline void merge(double* p, __m256d e, __m256d o) {
    const __m256d lo = _mm256_unpacklo_pd(e, o), hi = _mm256_unpackhi_pd(e, o);
    _mm256_storeu_pd(p, _mm256_permute2f128_pd(lo, hi, 0x20));
    _mm256_storeu_pd(p + 4, _mm256_permute2f128_pd(lo, hi, 0x31));
}

}  // namespace zams::wt
