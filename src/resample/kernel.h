// The resamplers' dot products of samples with table rows. Eight lanes over
// the taps from the first one, the lanes added in a fixed order, the taps
// past the last group of eight one by one: the order of summation depends
// on the tap positions only, never on where the buffers lie.
#pragma once

#include <immintrin.h>

#include <cmath>
#include <cstdint>

#include "../common/scale.h"
#include "../common/types.h"

namespace zams::resample {

// Eight samples as floats.
inline __m256 load8(const float* x) { return _mm256_loadu_ps(x); }
inline __m256 load8(const int16_t* x) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(x));
    const __m256i w = _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_cvtepi16_epi32(v)),
                                              _mm_cvtepi16_epi32(_mm_srli_si128(v, 8)), 1);
    return _mm256_cvtepi32_ps(w);
}

// Lanes 0..7 added as ((0+4)+(2+6)) + ((1+5)+(3+7)).
inline float hsum(__m256 v) {
    __m128 s = _mm_add_ps(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1));
    s = _mm_add_ps(s, _mm_movehl_ps(s, s));
    s = _mm_add_ss(s, _mm_shuffle_ps(s, s, 1));
    return _mm_cvtss_f32(s);
}

// Two accumulators a row: groups of eight taps alternate between them (the
// even groups in the first), so two addition chains run at once; the
// order still depends on the tap positions only.

// sum x[j] r[j], j < n.
template <class T> inline float dot(const T* x, const float* r, int n) {
    __m256 a = _mm256_setzero_ps(), b = _mm256_setzero_ps();
    auto even = [&](int j) { a = _mm256_add_ps(a, _mm256_mul_ps(load8(x + j), _mm256_loadu_ps(r + j))); };
    auto odd = [&](int j) { b = _mm256_add_ps(b, _mm256_mul_ps(load8(x + j), _mm256_loadu_ps(r + j))); };
    int j = 0;
    for (; j + 32 <= n; j += 32) even(j), odd(j + 8), even(j + 16), odd(j + 24);
    if (j + 16 <= n) even(j), odd(j + 8), j += 16;
    if (j + 8 <= n) even(j), j += 8;
    float s = hsum(_mm256_add_ps(a, b));
    for (; j < n; ++j) s += float(x[j]) * r[j];
    return s;
}

// dot(x0, r, n) and dot(x1, r, n), two outputs that share the row r: each
// output's additions exactly those of dot, the row's groups loaded once
// for both (the four accumulators, the row's vector and a product fit in
// eight vector registers).
template <class T> inline void dot2(const T* x0, const T* x1, const float* r, int n, float& y0, float& y1) {
    __m256 a0 = _mm256_setzero_ps(), b0 = a0, a1 = a0, b1 = a0;
    auto even = [&](int j) {
        const __m256 c = _mm256_loadu_ps(r + j);
        a0 = _mm256_add_ps(a0, _mm256_mul_ps(load8(x0 + j), c));
        a1 = _mm256_add_ps(a1, _mm256_mul_ps(load8(x1 + j), c));
    };
    auto odd = [&](int j) {
        const __m256 c = _mm256_loadu_ps(r + j);
        b0 = _mm256_add_ps(b0, _mm256_mul_ps(load8(x0 + j), c));
        b1 = _mm256_add_ps(b1, _mm256_mul_ps(load8(x1 + j), c));
    };
    int j = 0;
    for (; j + 32 <= n; j += 32) even(j), odd(j + 8), even(j + 16), odd(j + 24);
    if (j + 16 <= n) even(j), odd(j + 8), j += 16;
    if (j + 8 <= n) even(j), j += 8;
    float s0 = hsum(_mm256_add_ps(a0, b0)), s1 = hsum(_mm256_add_ps(a1, b1));
    for (; j < n; ++j) s0 += float(x0[j]) * r[j], s1 += float(x1[j]) * r[j];
    y0 = s0;
    y1 = s1;
}

// The arbitrary ratio's rows: the taps of a table row and their differences
// to the next row, in groups of eight (eight values, then their eight
// differences), the taps past the last group of eight after them (values,
// then differences). The tap's offset in such a row and the distance from
// a value to its difference:
inline int lerp_at(int j, int n, int& gap) {
    const int n8 = n & ~7;
    if (j < n8) {
        gap = 8;
        return 2 * (j & ~7) + (j & 7);
    }
    gap = n - n8;
    return 2 * n8 + (j - n8);
}

// The row between two table rows, r[j] + a d[j], j < n, from such a row
// into c (n floats, in tap order).
inline void lerp_row(const float* row, int n, float a, float* c) {
    const __m256 va = _mm256_set1_ps(a);
    int j = 0;
    for (; j + 8 <= n; j += 8) {
        const float* r = row + 2 * j;
        _mm256_storeu_ps(c + j, _mm256_add_ps(_mm256_loadu_ps(r), _mm256_mul_ps(va, _mm256_loadu_ps(r + 8))));
    }
    const float* r = row + 2 * j;
    const int gap = n - j;
    for (int k = 0; k < gap; ++k) c[j + k] = r[k] + a * r[k + gap];
}

// dot(x, c, n) with c = lerp_row(row, n, a), the row formed on the fly: the
// same bits, for rows too long to form in a buffer first.
template <class T> inline float dot_lerp(const T* x, const float* row, int n, float a) {
    const __m256 va = _mm256_set1_ps(a);
    auto coef = [&](int j) {
        const float* c = row + 2 * j;
        return _mm256_add_ps(_mm256_loadu_ps(c), _mm256_mul_ps(va, _mm256_loadu_ps(c + 8)));
    };
    __m256 p = _mm256_setzero_ps(), q = _mm256_setzero_ps();
    int j = 0;
    for (; j + 16 <= n; j += 16) {
        p = _mm256_add_ps(p, _mm256_mul_ps(load8(x + j), coef(j)));
        q = _mm256_add_ps(q, _mm256_mul_ps(load8(x + j + 8), coef(j + 8)));
    }
    if (j + 8 <= n) {
        p = _mm256_add_ps(p, _mm256_mul_ps(load8(x + j), coef(j)));
        j += 8;
    }
    float s = hsum(_mm256_add_ps(p, q));
    const float* r = row + 2 * j;
    const int gap = n - j;
    for (int k = 0; k < gap; ++k) s += float(x[j + k]) * (r[k] + a * r[k + gap]);
    return s;
}

// An output sample: floats as they are; 16-bit rounded to nearest, ties to
// even, and saturated (not-a-number gives 0).
template <class T> inline T to_sample(float v) {
    if constexpr (std::is_same_v<T, float>) return v;
    else return round_sat<T>(double(v));
}

}  // namespace zams::resample
