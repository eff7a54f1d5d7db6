// 256-bit AVX operations over float and double, written once for every
// family that works in floating vectors. Loads and stores are unaligned
// (free on aligned data). Complex helpers act on interleaved (re, im) pairs.
#pragma once

#include <immintrin.h>

namespace zams {

template <class F> struct Avx;

template <> struct Avx<float> {
    using V = __m256;
    static constexpr int L = 8;  // lanes
    static V load(const float* p) { return _mm256_loadu_ps(p); }
    static void store(float* p, V v) { _mm256_storeu_ps(p, v); }
    static V set1(float s) { return _mm256_set1_ps(s); }
    static V add(V a, V b) { return _mm256_add_ps(a, b); }
    static V sub(V a, V b) { return _mm256_sub_ps(a, b); }
    static V mul(V a, V b) { return _mm256_mul_ps(a, b); }
    static V div(V a, V b) { return _mm256_div_ps(a, b); }
    static V addsub(V a, V b) { return _mm256_addsub_ps(a, b); }
    static V xor_(V a, V b) { return _mm256_xor_ps(a, b); }
    static V swap(V a) { return _mm256_permute_ps(a, 0xB1); }  // (re, im) -> (im, re)
    static V dup_re(V a) { return _mm256_moveldup_ps(a); }
    static V dup_im(V a) { return _mm256_movehdup_ps(a); }
};

template <> struct Avx<double> {
    using V = __m256d;
    static constexpr int L = 4;
    static V load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, V v) { _mm256_storeu_pd(p, v); }
    static V set1(double s) { return _mm256_set1_pd(s); }
    static V add(V a, V b) { return _mm256_add_pd(a, b); }
    static V sub(V a, V b) { return _mm256_sub_pd(a, b); }
    static V mul(V a, V b) { return _mm256_mul_pd(a, b); }
    static V div(V a, V b) { return _mm256_div_pd(a, b); }
    static V addsub(V a, V b) { return _mm256_addsub_pd(a, b); }
    static V xor_(V a, V b) { return _mm256_xor_pd(a, b); }
    static V swap(V a) { return _mm256_permute_pd(a, 0x5); }
    static V dup_re(V a) { return _mm256_movedup_pd(a); }
    static V dup_im(V a) { return _mm256_permute_pd(a, 0xF); }
};

// Products of interleaved complex pairs, (a+bi)(c+di) = (ac - bd, bc + ad),
// as separate multiplies and one addsub (no fused operations).
template <class F> inline typename Avx<F>::V cmul_pairs(typename Avx<F>::V x, typename Avx<F>::V y) {
    using A = Avx<F>;
    return A::addsub(A::mul(x, A::dup_re(y)), A::mul(A::swap(x), A::dup_im(y)));
}

}  // namespace zams
