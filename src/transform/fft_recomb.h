// The real FFT's recombination: the half-length spectrum Z of N/2 complex
// points (even samples real, odd samples imaginary) to the spectrum V of
// the N reals, and back. The loops over the pairs (k, N/2 - k) read their
// input from a source and hand their output to a sink: the real FFT reads
// and writes its own buffer (Mem); the DCT runs its own vector steps on
// real and imaginary vectors and hands the ends and the last pairs to
// recombine_ends and recombine_tail with its twiddle pass as source or
// sink. The arithmetic is the same whatever the source and sink.
//
// Source: v0(), vh() (the two real ends: Re Z[0], Im Z[0] forward, or
// V[0], V[N/2] inverse); vec(i): W complex values from index i in memory
// order; pair(i) (float): two complex values; get(i, re, im): one.
// Sink: ends(a, b) (V[0], V[N/2] forward, or Z[0] inverse); vec(i, v);
// pair(i, v) (float); set(i, re, im). Pairs of one step are read before
// any of their values is handed on, and set(N/2 - k) comes before set(k),
// so an in-place Mem stays correct (at k = N/4 the two are the same bin).
#pragma once

#include "fft_core.h"

namespace zams::fft {

// W^k = exp(-2 pi i k / N) for 0 <= k <= N/4.
template <class F> struct Recomb {
    const F* t = nullptr;       // W^k, or the fine factors from order 18
    const F* coarse = nullptr;  // W^(c 2^fine_bits), from order 18
    int step = 1;               // up to order 4: index into W_16^m
    void get(size_t k, F& wr, F& wi) const {
        if (coarse) {
            const size_t f = k & ((size_t(1) << fine_bits<F>()) - 1), c = k >> fine_bits<F>();
            const double ar = t[2 * f], ai = t[2 * f + 1], br = coarse[2 * c], bi = coarse[2 * c + 1];
            wr = F(ar * br - ai * bi);
            wi = F(ar * bi + ai * br);
            return;
        }
        wr = t[2 * k * step];
        wi = t[2 * k * step + 1];
    }
};

template <class F> Recomb<F> recomb_of(const Hdr<F>* h, int R) {
    Recomb<F> r;
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    if (h->offRecomb == 0) {
        if constexpr (sizeof(F) == 4) r.t = kW16_32f;
        else r.t = kW16_64f;
        r.step = 16 >> R;
        return r;
    }
    r.t = reinterpret_cast<const F*>(base + h->offRecomb);
    if (h->offCoarse) r.coarse = reinterpret_cast<const F*>(base + h->offCoarse);
    return r;
}

// The complex transform of N/2 points behind a real spec of order h->order,
// in place or not, with the call's buffer (fft_real.cpp).
template <class F, bool Inv> zamStatus half_transform(const Hdr<F>* h, const F* src, F* dst, uint8_t* buf);

// The real FFT's own buffer as source and sink, interleaved complex.
template <class F> struct Mem {
    using T = VT<F>;
    F* d;
    F v0() const { return d[0]; }
    F vh() const { return d[1]; }
    typename T::V vec(size_t i) const { return T::load(d + 2 * i); }
    __m128 pair(size_t i) const { return _mm_loadu_ps(reinterpret_cast<const float*>(d) + 2 * i); }
    void get(size_t i, F& re, F& im) const {
        re = d[2 * i];
        im = d[2 * i + 1];
    }
    void ends(F a, F b) const {
        d[0] = a;
        d[1] = b;
    }
    void vec(size_t i, typename T::V v) const { T::store(d + 2 * i, v); }
    void pair(size_t i, __m128 v) const { _mm_storeu_ps(reinterpret_cast<float*>(d) + 2 * i, v); }
    void set(size_t i, F re, F im) const {
        d[2 * i] = re;
        d[2 * i + 1] = im;
    }
};

// Vectors of W values of k against the mirrored vectors, reversed in the register.
template <class F> inline typename VT<F>::V reverse_cplx(typename VT<F>::V v) {
    if constexpr (sizeof(F) == 4) {
        __m256 r = _mm256_permute2f128_ps(v, v, 0x01);
        return _mm256_shuffle_ps(r, r, 0x4E);
    } else {
        return _mm256_permute2f128_pd(v, v, 0x01);
    }
}
template <class F> inline typename VT<F>::V blend_im(typename VT<F>::V re_from, typename VT<F>::V im_from) {
    if constexpr (sizeof(F) == 4) return _mm256_blend_ps(re_from, im_from, 0xAA);
    else return _mm256_blend_pd(re_from, im_from, 0xA);
}

template <class F> inline typename VT<F>::V load_w(const Recomb<F>& w, size_t k) {
    using T = VT<F>;
    if (!w.coarse) return T::load(w.t + 2 * k);
    alignas(32) F t[2 * T::W];
    for (int i = 0; i < T::W; ++i) w.get(k + i, t[2 * i], t[2 * i + 1]);
    return T::load(t);
}

// Two pairs at a time in 128-bit vectors (float), the same operations as
// the wide loop; the short transforms run most of their pairs here.
template <bool Inv, class Src, class Dst> size_t recombine_pairs(const Src& s, const Dst& d, size_t H, const float* wt, size_t k) {
    const __m128 half = _mm_set1_ps(0.5f), imneg = _mm_castsi128_ps(_mm_set_epi32(INT32_MIN, 0, INT32_MIN, 0));
    const __m128 allneg = _mm_set1_ps(-0.0f);
    for (; k + 1 < H - (k + 1); k += 2) {
        const __m128 A = s.pair(k);
        const __m128 b = s.pair(H - k - 1);
        const __m128 Bc = _mm_xor_ps(_mm_shuffle_ps(b, b, 0x4E), imneg);
        const __m128 wk = _mm_loadu_ps(wt + 2 * k);
        const __m128 wr = _mm_moveldup_ps(wk);
        __m128 wi = _mm_movehdup_ps(wk);
        __m128 lo, hi;
        if constexpr (!Inv) {
            const __m128 E = _mm_mul_ps(_mm_add_ps(A, Bc), half);
            const __m128 D = _mm_mul_ps(_mm_sub_ps(A, Bc), half);
            const __m128 O = _mm_xor_ps(_mm_shuffle_ps(D, D, 0xB1), imneg);  // -i D
            const __m128 WO = _mm_addsub_ps(_mm_mul_ps(O, wr), _mm_mul_ps(_mm_shuffle_ps(O, O, 0xB1), wi));
            lo = _mm_add_ps(E, WO);
            hi = _mm_blend_ps(_mm_sub_ps(E, WO), _mm_sub_ps(WO, E), 0xA);
        } else {
            wi = _mm_xor_ps(wi, allneg);
            const __m128 E = _mm_add_ps(A, Bc);
            const __m128 D = _mm_sub_ps(A, Bc);
            const __m128 V = _mm_addsub_ps(_mm_mul_ps(D, wr), _mm_mul_ps(_mm_shuffle_ps(D, D, 0xB1), wi));
            const __m128 iV = _mm_xor_ps(_mm_shuffle_ps(V, V, 0xB1), _mm_xor_ps(imneg, allneg));
            lo = _mm_add_ps(E, iV);
            hi = _mm_blend_ps(_mm_sub_ps(E, iV), _mm_sub_ps(iV, E), 0xA);
        }
        d.pair(k, lo);
        d.pair(H - k - 1, _mm_shuffle_ps(hi, hi, 0x4E));
    }
    return k;
}

// Returns the first k left for the scalar loop.
template <class F, bool Inv, class Src, class Dst> size_t recombine_vec(const Src& s, const Dst& d, size_t H, const Recomb<F>& w) {
    using T = VT<F>;
    constexpr size_t W = T::W;
    if (w.step != 1) return 1;
    const auto half = T::set1(F(0.5));
    const auto imneg = T::imsign();
    size_t k = 1;
    // pairs k..k+W-1 and H-k-W+1..H-k must not overlap
    for (; k + W - 1 < H - (k + W - 1); k += W) {
        const auto A = s.vec(k);
        const auto Bc = T::xor_(reverse_cplx<F>(s.vec(H - k - (W - 1))), imneg);  // conj, in k order
        const auto wk = load_w(w, k);
        typename T::V lo, hi;
        if constexpr (!Inv) {
            const auto E = T::mul(T::add(A, Bc), half);
            const auto D = T::mul(T::sub(A, Bc), half);
            const auto WO = cmul<F, false>(mul_negi<F>(D), wk);
            lo = T::add(E, WO);
            hi = blend_im<F>(T::sub(E, WO), T::sub(WO, E));
        } else {
            const auto E = T::add(A, Bc);
            const auto D = T::sub(A, Bc);
            const auto V = cmul<F, true>(D, wk);
            const auto iV = T::xor_(T::swap(V), T::xor_(imneg, T::allsign()));  // (-V.im, V.re)
            lo = T::add(E, iV);
            hi = blend_im<F>(T::sub(E, iV), T::sub(iV, E));
        }
        d.vec(k, lo);
        d.vec(H - k - (W - 1), reverse_cplx<F>(hi));
    }
    if constexpr (sizeof(F) == 4)
        if (!w.coarse) k = recombine_pairs<Inv>(s, d, H, w.t, k);
    return k;
}

// The two real ends: V[0] and V[N/2] from Z[0] (forward), or Z[0] from
// them (inverse, doubled).
template <class Src, class Dst> void recombine_ends(const Src& s, const Dst& d) {
    const auto a = s.v0(), b = s.vh();
    d.ends(a + b, a - b);
}

// The pairs (k, N/2 - k) from k on, one at a time.
template <class F, bool Inv, class Src, class Dst>
void recombine_tail(const Src& s, const Dst& d, size_t H, const Recomb<F>& w, size_t k) {
    for (; 2 * k <= H; ++k) {
        const size_t k2 = H - k;
        F ar, ai, br, bi, wr, wi;
        s.get(k, ar, ai);
        s.get(k2, br, bi);
        w.get(k, wr, wi);
        if constexpr (!Inv) {
            const F er = (ar + br) * F(0.5), ei = (ai - bi) * F(0.5);
            const F dr = (ar - br) * F(0.5), di = (ai + bi) * F(0.5);
            // O = -i D; WO = W^k O
            const F orr = di, oi = -dr;
            const F xr = orr * wr - oi * wi, xi = oi * wr + orr * wi;
            d.set(k2, er - xr, xi - ei);
            d.set(k, er + xr, ei + xi);
        } else {
            const F er = ar + br, ei = ai - bi;
            const F dr = ar - br, di = ai + bi;
            // V = conj(W^k) D; i V = (-V.im, V.re)
            const F vr = dr * wr + di * wi, vi = di * wr - dr * wi;
            const F ivr = -vi, ivi = vr;
            d.set(k2, er - ivr, ivi - ei);
            d.set(k, er + ivr, ei + ivi);
        }
    }
}

// Forward: Z (N/2 complex) to V in Perm order (V[0], V[N/2], then V[k]
// for 0 < k < N/2). Inverse: V in Perm order to 2 Z.
template <class F, bool Inv, class Src, class Dst> void recombine(const Src& s, const Dst& d, size_t N, const Recomb<F>& w) {
    recombine_ends(s, d);
    recombine_tail<F, Inv>(s, d, N / 2, w, recombine_vec<F, Inv>(s, d, N / 2, w));
}

}  // namespace zams::fft
