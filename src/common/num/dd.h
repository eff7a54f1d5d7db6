// Double-double arithmetic: exact sums and products of two doubles as
// unevaluated pairs hi + lo, from plain double operations (no fused
// multiply-add), in one scalar and one four-lane form with the same
// operations in the same order, so a lane gives the scalar bits.
#pragma once

#include <immintrin.h>

#include "../round.h"

namespace zams::dd {

struct Pair {
    double hi, lo;
};

inline Pair two_sum(double a, double b) {
    double s = a + b, bb = s - a;
    return {s, (a - (s - bb)) + (b - bb)};
}
// The integer nearest the pair's value, ties to even; |hi| below 2^52. hi - r
// is exact, so the rest decides the cases hi alone rounds the wrong way.
inline double round_even(Pair v) {
    double r = zams::round_even(v.hi);
    const double rest = (v.hi - r) + v.lo;
    if (rest > 0.5) r += 1;
    else if (rest < -0.5) r -= 1;
    return r;
}
inline Pair fast_two_sum(double a, double b) {  // |a| >= |b|
    double s = a + b;
    return {s, b - (s - a)};
}
// Veltkamp split; |a| < 2^995
inline Pair split(double a) {
    double c = 134217729.0 * a, h = c - (c - a);
    return {h, a - h};
}
// a * b exactly as hi + lo (Dekker), no underflow or overflow in between
inline Pair two_prod(double a, double b) {
    double p = a * b;
    Pair x = split(a), y = split(b);
    return {p, ((x.hi * y.hi - p) + x.hi * y.lo + x.lo * y.hi) + x.lo * y.lo};
}

// ---- four lanes ----

struct V2 {
    __m256d hi, lo;
};

inline __m256d c(double v) { return _mm256_set1_pd(v); }
inline __m256d neg(__m256d a) { return _mm256_xor_pd(a, c(-0.0)); }

inline V2 two_sum(__m256d a, __m256d b) {
    __m256d s = _mm256_add_pd(a, b), bb = _mm256_sub_pd(s, a);
    return {s, _mm256_add_pd(_mm256_sub_pd(a, _mm256_sub_pd(s, bb)), _mm256_sub_pd(b, bb))};
}
inline V2 fast_two_sum(__m256d a, __m256d b) {
    __m256d s = _mm256_add_pd(a, b);
    return {s, _mm256_sub_pd(b, _mm256_sub_pd(s, a))};
}
inline V2 split(__m256d a) {
    __m256d t = _mm256_mul_pd(c(134217729.0), a), h = _mm256_sub_pd(t, _mm256_sub_pd(t, a));
    return {h, _mm256_sub_pd(a, h)};
}
inline V2 two_prod(__m256d a, __m256d b) {
    __m256d p = _mm256_mul_pd(a, b);
    V2 x = split(a), y = split(b);
    __m256d e = _mm256_sub_pd(_mm256_mul_pd(x.hi, y.hi), p);
    e = _mm256_add_pd(e, _mm256_mul_pd(x.hi, y.lo));
    e = _mm256_add_pd(e, _mm256_mul_pd(x.lo, y.hi));
    return {p, _mm256_add_pd(e, _mm256_mul_pd(x.lo, y.lo))};
}

}  // namespace zams::dd
