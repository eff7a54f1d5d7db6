// Mixed-radix passes of the DFT of any length: self-sorting (Stockham)
// decimation in frequency, natural order in and out.
//
// A pass of radix p over a sequence of current length n at stride s (s
// the product of the radices before it, m = n / p):
//
//     for j < m, q < s:  a_r = x[q + s (j + r m)],  r < p
//                        y[q + s (p j + t)] = (DFT_p a)_t * W_n^(j t),  t < p
//
// Passes with s at least a vector's width of complex values run along q
// ("runs": one twiddle a run, broadcast); the first pass (s = 1) runs along
// j instead, with a twiddle vector a lane and the p outputs of a lane
// stored p apart ("lanes"). Radices 2 and 4 have butterflies of their own;
// odd radices (3, 5, 7 unrolled, any other up to kMaxRadix) use the
// symmetric-pair form
//
//     A_0 = a_0 + sum s_r,  A_t, A_(p-t) = a_0 + sum c_rt s_r -/+ i sum s'_rt d_r
//     s_r = a_r + a_(p-r), d_r = a_r - a_(p-r), c_rt + i s'_rt = exp(2 pi i r t / p)
//
// with the roots of unity of the radix from the stage's table. A composite
// radix P = A B of two coprime factors (6, 10, 12, 14, 15, 20, 21, 28, 35)
// is one pass of two stages in registers by the prime factor mapping, with
// no twiddles between them: inputs a_((r_A B + r_B A) mod P) give B
// butterflies of A, then A butterflies of B, the output (t_A, t_B) lands at
// (t_A B (B^-1 mod A) + t_B A (A^-1 mod B)) mod P. Its roots table holds
// the A roots of unity of A, then the B of B. The inverse
// uses the conjugate roots and twiddles. The last pass (m = 1, no
// twiddles) may multiply by the normalisation factor while it stores.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>

#include "fft_core.h"

namespace zams::dft {

inline constexpr int kMaxRadix = 64;  // larger prime factors go to a convolution

// ------------------------------------------------------------ value ops --
template <class F> struct Cx {
    F re, im;
};

// One complex value.
template <class F> struct One {
    using V = Cx<F>;
    static constexpr int W = 1;
    static V load(const F* p) { return {p[0], p[1]}; }
    static void store(F* p, V v) { p[0] = v.re; p[1] = v.im; }
    static void store_lanes(F* p, size_t, V v) { store(p, v); }
    static V bcast(const F* p) { return load(p); }
    static V add(V a, V b) { return {a.re + b.re, a.im + b.im}; }
    static V sub(V a, V b) { return {a.re - b.re, a.im - b.im}; }
    static V rmul(V a, F c) { return {a.re * c, a.im * c}; }
    // -i a (forward) or +i a (inverse)
    template <bool Inv> static V rot(V a) { return Inv ? V{-a.im, a.re} : V{a.im, -a.re}; }
    template <bool Inv> static V cmul(V a, V w) {
        if constexpr (Inv) return {a.re * w.re + a.im * w.im, a.im * w.re - a.re * w.im};
        else return {a.re * w.re - a.im * w.im, a.im * w.re + a.re * w.im};
    }
};

// A vector of W complex values (AVX).
template <class F> struct Vec {
    using T = fft::VT<F>;
    using V = typename T::V;
    static constexpr int W = T::W;
    static V load(const F* p) { return T::load(p); }
    static void store(F* p, V v) { T::store(p, v); }
    // Lane k to p + 2 k stride (stride in complex values).
    static void store_lanes(F* p, size_t stride, V v) {
        if constexpr (sizeof(F) == 4) {
            const __m128 lo = _mm256_castps256_ps128(v), hi = _mm256_extractf128_ps(v, 1);
            _mm_storel_pi(reinterpret_cast<__m64*>(p), lo);
            _mm_storeh_pi(reinterpret_cast<__m64*>(p + 2 * stride), lo);
            _mm_storel_pi(reinterpret_cast<__m64*>(p + 4 * stride), hi);
            _mm_storeh_pi(reinterpret_cast<__m64*>(p + 6 * stride), hi);
        } else {
            _mm_storeu_pd(p, _mm256_castpd256_pd128(v));
            _mm_storeu_pd(p + 2 * stride, _mm256_extractf128_pd(v, 1));
        }
    }
    // Lane k from p[k] (one complex value each).
    static V load_lanes(const F* const* p) {
        if constexpr (sizeof(F) == 4) {
            const __m128 lo = _mm_loadh_pi(_mm_castpd_ps(_mm_load_sd(reinterpret_cast<const double*>(p[0]))),
                                           reinterpret_cast<const __m64*>(p[1]));
            const __m128 hi = _mm_loadh_pi(_mm_castpd_ps(_mm_load_sd(reinterpret_cast<const double*>(p[2]))),
                                           reinterpret_cast<const __m64*>(p[3]));
            return _mm256_insertf128_ps(_mm256_castps128_ps256(lo), hi, 1);
        } else {
            return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p[0])), _mm_loadu_pd(p[1]), 1);
        }
    }
    static V bcast(const F* p) {
        if constexpr (sizeof(F) == 4) return _mm256_castpd_ps(_mm256_broadcast_sd(reinterpret_cast<const double*>(p)));
        else return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(p));
    }
    static V add(V a, V b) { return T::add(a, b); }
    static V sub(V a, V b) { return T::sub(a, b); }
    static V rmul(V a, F c) { return T::mul(a, T::set1(c)); }
    template <bool Inv> static V rot(V a) {
        const V t = fft::mul_negi<F>(a);  // -i a
        return Inv ? T::xor_(t, T::allsign()) : t;
    }
    template <bool Inv> static V cmul(V a, V w) { return fft::cmul<F, Inv>(a, w); }
};

// ------------------------------------------------------------ radices --
// The first factor A of a composite radix P = A B (A the power of P's
// least prime, B > 1 coprime to it), 0 for a prime or a prime power.
constexpr int pfa_first(int p) {
    if (p < 2) return 0;
    int q = 2;
    while (p % q) ++q;
    int a = 1;
    while (p % q == 0) { p /= q; a *= q; }
    return p > 1 ? a : 0;
}
// Entries of a stage's roots table: the radix's own for an odd prime, A + B
// for a composite, none for 2 and 4.
constexpr int roots_count(int p) { return pfa_first(p) ? p / pfa_first(p) + pfa_first(p) : (p & 1 ? p : 0); }
// The inverse of a modulo m (a and m coprime, small).
constexpr int inv_mod(int a, int m) {
    int x = 1;
    while (a * x % m != 1) ++x;
    return x;
}

// The radices with a butterfly of their own: the primes 2, 3, 5, 7, the
// 4, and the composite ones (pfa_first > 0). Any other odd prime up to
// kMaxRadix runs the general odd butterfly (P = 0).
using Radices = std::integer_sequence<int, 2, 3, 4, 5, 6, 7, 10, 12, 14, 15, 20, 21, 28, 35>;
template <int... R> constexpr bool listed(int p, std::integer_sequence<int, R...>) { return ((p == R) || ...); }
constexpr bool composite(int p) { return pfa_first(p) > 0 && listed(p, Radices{}); }

// Calls go.template operator()<P>() with the radix p as a constant P: a
// listed radix, else 0.
template <class Go, int... R> inline void by_radix(int p, Go&& go, std::integer_sequence<int, R...>) {
    if (!((p == R ? (go.template operator()<R>(), true) : false) || ...)) go.template operator()<0>();
}
template <class Go> inline void by_radix(int p, Go&& go) { by_radix(p, go, Radices{}); }

// f(i) for lo <= i < N, unrolled, when the count N is known at compile
// time (N > 0), else for lo <= i < n.
template <int N, class Fn> __attribute__((always_inline)) inline void for_n(int lo, int n, Fn&& f) {
    if constexpr (N > 0) {
#pragma GCC unroll 64
        for (int i = lo; i < N; ++i) f(i);
    } else {
        for (int i = lo; i < n; ++i) f(i);
    }
}

// Whether a position's loads and stores of radix P are unrolled: on
// x86-64 every radix known at compile time (rolled, 3000 = 20 x 15 x 10
// took 1.15 of the time), on i386 the composite ones only (unrolling the
// prime ones on its eight registers took 1.2 of the time at 100 and 1.1
// to 1.2 at 1536). The same operations in the same order either way.
template <int P> inline constexpr bool kUnrolled = P > 0 && (sizeof(void*) == 8 || pfa_first(P) > 0);

// ----------------------------------------------------------- butterflies --
// A[t] = sum_r a[r] exp(-/+ 2 pi i r t / p), t < p (a is overwritten).
// roots: (cos, sin)(2 pi k / p), k < p, for the odd radices; P is the
// radix when known at compile time, 0 for any odd p.
template <class F, class O, bool Inv, int P>
__attribute__((always_inline)) inline void butterfly(typename O::V* a, typename O::V* A, int p, const F* roots) {
    using V = typename O::V;
    if constexpr (P == 2) {
        A[0] = O::add(a[0], a[1]);
        A[1] = O::sub(a[0], a[1]);
    } else if constexpr (P == 4) {
        const V b0 = O::add(a[0], a[2]), b1 = O::sub(a[0], a[2]);
        const V b2 = O::add(a[1], a[3]), b3 = O::template rot<Inv>(O::sub(a[1], a[3]));
        A[0] = O::add(b0, b2);
        A[2] = O::sub(b0, b2);
        A[1] = O::add(b1, b3);
        A[3] = O::sub(b1, b3);
    } else if constexpr (P > 0 && pfa_first(P) > 0) {
        constexpr int Na = pfa_first(P), Nb = P / Na;
        constexpr int Ca = Nb * inv_mod(Nb % Na, Na), Cb = Na * inv_mod(Na % Nb, Nb);
        V t[P];
#pragma GCC unroll 8
        for (int b = 0; b < Nb; ++b) {
            V u[Na], U[Na];
#pragma GCC unroll 8
            for (int r = 0; r < Na; ++r) u[r] = a[(r * Nb + b * Na) % P];
            butterfly<F, O, Inv, Na>(u, U, Na, roots);
#pragma GCC unroll 8
            for (int k = 0; k < Na; ++k) t[k * Nb + b] = U[k];
        }
#pragma GCC unroll 8
        for (int k = 0; k < Na; ++k) {
            V u[Nb], U[Nb];
#pragma GCC unroll 8
            for (int r = 0; r < Nb; ++r) u[r] = t[k * Nb + r];
            butterfly<F, O, Inv, Nb>(u, U, Nb, roots + 2 * Na);
#pragma GCC unroll 8
            for (int l = 0; l < Nb; ++l) A[(k * Ca + l * Cb) % P] = U[l];
        }
    } else {
        const int pp = P ? P : p, h = pp / 2;
        V sum = a[0];
        for (int r = 1; r <= h; ++r) {
            const V sr = O::add(a[r], a[pp - r]), dr = O::sub(a[r], a[pp - r]);
            a[r] = sr;
            a[pp - r] = dr;
            sum = O::add(sum, sr);
        }
        A[0] = sum;
        for (int t = 1; t <= h; ++t) {
            V e = O::add(a[0], O::rmul(a[1], roots[2 * t])), o = O::rmul(a[pp - 1], roots[2 * t + 1]);
            int k = t;
            for (int r = 2; r <= h; ++r) {
                k += t;
                if (k >= pp) k -= pp;
                e = O::add(e, O::rmul(a[r], roots[2 * k]));
                o = O::add(o, O::rmul(a[pp - r], roots[2 * k + 1]));
            }
            const V jo = O::template rot<Inv>(o);
            A[t] = O::add(e, jo);
            A[pp - t] = O::sub(e, jo);
        }
    }
}

// One position of a pass: the p inputs from x at stride `in`, the
// butterfly, twiddles (w(t) for t >= 1, none when Tw is false), the scale
// when Scaled, the p outputs to y at stride `out` (store: O::store or
// O::store_lanes).
template <class F, class O, bool Inv, int P, bool Tw, bool Scaled, bool Lanes, class TwAt>
inline void position(const F* x, size_t in, F* y, size_t out, size_t laneStride, int p, const F* roots, TwAt tw,
                     F scale) {
    using V = typename O::V;
    constexpr int Cap = P ? P : kMaxRadix;
    V a[Cap], A[Cap];
    const int pp = P ? P : p;
    a[0] = O::load(x);  // every radix has a first input (said outright for the compiler)
    for_n<kUnrolled<P> ? P : 0>(1, pp, [&](int r) { a[r] = O::load(x + 2 * in * size_t(r)); });
    butterfly<F, O, Inv, P>(a, A, pp, roots);
    for_n<kUnrolled<P> ? P : 0>(0, pp, [&](int t) {
        V v = A[t];
        if constexpr (Tw) {
            if (t) v = O::template cmul<Inv>(v, tw(t));
        }
        if constexpr (Scaled) v = O::rmul(v, scale);
        if constexpr (Lanes) O::store_lanes(y + 2 * out * size_t(t), laneStride, v);
        else O::store(y + 2 * out * size_t(t), v);
    });
}

// A pass in runs along q. tw: [j][t - 1] (m > 1 only). CS, CM: s and m
// when known at compile time (a short plan's passes), else 0.
template <class F, bool Inv, int P, bool Scaled, size_t CS = 0, size_t CM = 0>
void pass_runs(const F* x, F* y, size_t s, size_t m, int p, const F* tw, const F* roots, F scale) {
    if constexpr (CS > 0) s = CS;
    if constexpr (CM > 0) m = CM;
    using VO = Vec<F>;
    using SO = One<F>;
    constexpr size_t W = size_t(VO::W);
    const int pp = P ? P : p;
    for (size_t j = 0; j < m; ++j) {
        const F* xj = x + 2 * s * j;
        F* yj = y + 2 * s * pp * j;
        const F* wj = tw + 2 * (pp - 1) * j;
        size_t q = 0;
        if (j == 0) {
            for (; q + W <= s; q += W)
                position<F, VO, Inv, P, false, Scaled, false>(xj + 2 * q, s * m, yj + 2 * q, s, 0, pp, roots,
                                                             [](int) { return typename VO::V{}; }, scale);
            for (; q < s; ++q)
                position<F, SO, Inv, P, false, Scaled, false>(xj + 2 * q, s * m, yj + 2 * q, s, 0, pp, roots,
                                                             [](int) { return typename SO::V{}; }, scale);
            continue;
        }
        typename VO::V wv[P ? P : kMaxRadix];
        for (int t = 1; t < pp; ++t) wv[t] = VO::bcast(wj + 2 * (t - 1));
        for (; q + W <= s; q += W)
            position<F, VO, Inv, P, true, Scaled, false>(xj + 2 * q, s * m, yj + 2 * q, s, 0, pp, roots,
                                                        [&](int t) { return wv[t]; }, scale);
        for (; q < s; ++q)
            position<F, SO, Inv, P, true, Scaled, false>(xj + 2 * q, s * m, yj + 2 * q, s, 0, pp, roots,
                                                        [&](int t) { return SO::load(wj + 2 * (t - 1)); }, scale);
    }
}

// The first pass (s = 1) in lanes along j. tw: [t - 1][j]. CM: m when
// known at compile time, else 0.
template <class F, bool Inv, int P, size_t CM = 0>
void pass_lanes(const F* x, F* y, size_t m, int p, const F* tw, const F* roots) {
    if constexpr (CM > 0) m = CM;
    using VO = Vec<F>;
    using SO = One<F>;
    constexpr size_t W = size_t(VO::W);
    const int pp = P ? P : p;
    size_t j = 0;
    for (; j + W <= m; j += W)
        position<F, VO, Inv, P, true, false, true>(x + 2 * j, m, y + 2 * pp * j, 1, size_t(pp), pp, roots,
                                                   [&](int t) { return VO::load(tw + 2 * ((t - 1) * m + j)); }, F(1));
    for (; j < m; ++j)
        position<F, SO, Inv, P, true, false, false>(x + 2 * j, m, y + 2 * pp * j, 1, 0, pp, roots,
                                                    [&](int t) { return SO::load(tw + 2 * ((t - 1) * m + j)); }, F(1));
}

// One pass by radix (by_radix).
template <class F, bool Inv>
void run_pass(const F* x, F* y, size_t s, size_t m, int p, bool lanes, const F* tw, const F* roots, const F* scale) {
    by_radix(p, [&]<int P>() {
        if (lanes) pass_lanes<F, Inv, P>(x, y, m, p, tw, roots);
        else if (scale) pass_runs<F, Inv, P, true>(x, y, s, m, p, tw, roots, *scale);
        else pass_runs<F, Inv, P, false>(x, y, s, m, p, tw, roots, F(1));
    });
}

// The short plans: sequences of radices whose passes run with every count
// known at compile time, in one call (no dispatch by radix, constant
// strides and loop counts), the same operations in the same order as
// run_pass, so the same bits. Measured against the dispatched passes
// (64fc, 32fc): 60 0.76, 0.68; 80 0.77, 0.69; 100 0.82, 0.73 (i386 0.69,
// 0.65); 120 0.74, 0.63; 200 to 400 0.86 to 0.93; 1536 0.94, 0.91 (i386
// 0.89, 0.77); 50, the complex half of the real 100: the real 100 about
// 0.67 of its time on x86-64 and 0.60 on i386 (against the peer, 1.20 to
// 0.81 and 1.31 to 0.79); 500 and 1000 only 0.94 to 0.99, not worth their
// code.
template <int... R> struct Seq {};
using ShortPlans = std::tuple<Seq<4, 5, 5>, Seq<4, 3, 5>, Seq<4, 4, 5>, Seq<4, 2, 3, 5>, Seq<20, 10>, Seq<20, 12>,
                              Seq<20, 15>, Seq<20, 20>, Seq<4, 4, 4, 4, 6>, Seq<5, 2, 5>>;

// The index + 1 in ShortPlans of the radices r[0..nr), else 0.
template <int... R> constexpr bool same_seq(Seq<R...>, const int32_t* r, int nr) {
    constexpr int v[] = {R...};
    if (nr != int(sizeof...(R))) return false;
    for (int i = 0; i < nr; ++i)
        if (v[i] != r[i]) return false;
    return true;
}
inline int short_plan(const int32_t* r, int nr) {
    return [&]<class... S>(std::tuple<S...>*) {
        int k = 0, i = 0;
        ((++i, !k && same_seq(S{}, r, nr) ? k = i : 0), ...);
        return k;
    }(static_cast<ShortPlans*>(nullptr));
}

// The passes of Seq<R...> over n = R0 R1 ... points from x to dst through
// t, alternating as run_cplan does (the last pass writes dst), the first
// in lanes when its m fills a vector. st[i].tw, st[i].roots: the stage
// tables' offsets from base; scale: the last pass's factor or null.
template <class F, bool Inv, class St, int... R>
void short_passes(const uint8_t* base, const St* st, const F* x, F* dst, F* t, const F* scale) {
    constexpr int rs[] = {R...};
    constexpr size_t nst = sizeof...(R), n = (size_t(R) * ...);
    constexpr auto stride = [](size_t i) {
        size_t v = 1;
        for (size_t j = 0; j < i; ++j) v *= size_t(rs[j]);
        return v;
    };
    const auto pass = [&]<size_t I>() {
        constexpr int P = rs[I];
        constexpr size_t S = stride(I), M = n / S / size_t(P);
        F* y = ((nst - 1 - I) & 1) ? t : dst;
        const F* tw = reinterpret_cast<const F*>(base + st[I].tw);  // unused where the offset is 0
        const F* roots = reinterpret_cast<const F*>(base + st[I].roots);
        if constexpr (I == 0 && M >= size_t(Vec<F>::W)) pass_lanes<F, Inv, P, M>(x, y, 0, P, tw, roots);
        else if (I + 1 == nst && scale) pass_runs<F, Inv, P, true, S, M>(x, y, 0, 0, P, tw, roots, *scale);
        else pass_runs<F, Inv, P, false, S, M>(x, y, 0, 0, P, tw, roots, F(1));
        x = y;
    };
    [&]<size_t... I>(std::index_sequence<I...>) { (pass.template operator()<I>(), ...); }(std::make_index_sequence<nst>{});
}

// The Split method's rows of M values lie Mo = M + kRowPad apart (64
// bytes more than M): rows a power of two apart would fall on the same
// cache sets and stall loads behind stores to the same low address bits.
template <class F> inline constexpr size_t kRowPad = 64 / (2 * sizeof(F));

// The last pass of the L-point passes on M columns (Split method): inputs
// x[(q + s r) M + n1], outputs y[k2 Mo + n1], k2 = q + s t, times
// W_n^(n1 k2) = W_n^(n1 q) W_n^(n1 s t) from the rows tab[q Mo + n1] and
// tab[(s - 1 + t) Mo + n1], and the scale when Scaled. M is a multiple of
// the vector.
template <class F, bool Inv, int P, bool Scaled>
void pass_split_last(const F* x, F* y, size_t M, size_t Mo, size_t s, int p, const F* tab, const F* roots, F scale) {
    using VO = Vec<F>;
    using V = typename VO::V;
    constexpr int Cap = P ? P : kMaxRadix;
    const int pp = P ? P : p;
    const F* wst = tab + 2 * (s - 1) * Mo;  // row t: W_n^(n1 s t)
    for (size_t q = 0; q < s; ++q)
        for (size_t n1 = 0; n1 < M; n1 += size_t(VO::W)) {
            V a[Cap], A[Cap];
            a[0] = VO::load(x + 2 * (q * M + n1));
            for (int r = 1; r < pp; ++r) a[r] = VO::load(x + 2 * ((q + s * size_t(r)) * M + n1));
            butterfly<F, VO, Inv, P>(a, A, pp, roots);
            const V wq = VO::load(tab + 2 * (q * Mo + n1));
            for (int t = 0; t < pp; ++t) {
                V v = A[t];
                if (t) {
                    const V w = VO::load(wst + 2 * (size_t(t) * Mo + n1));
                    v = VO::template cmul<Inv>(v, q ? VO::template cmul<false>(w, wq) : w);
                } else if (q) {
                    v = VO::template cmul<Inv>(v, wq);
                }
                if constexpr (Scaled) v = VO::rmul(v, scale);
                VO::store(y + 2 * ((q + s * size_t(t)) * Mo + n1), v);
            }
        }
}

template <class F, bool Inv>
void run_split_last(const F* x, F* y, size_t M, size_t Mo, size_t s, int p, const F* tab, const F* roots,
                    const F* scale) {
    by_radix(p, [&]<int P>() {
        if (scale) pass_split_last<F, Inv, P, true>(x, y, M, Mo, s, p, tab, roots, *scale);
        else pass_split_last<F, Inv, P, false>(x, y, M, Mo, s, p, tab, roots, F(1));
    });
}

// y[L k1 + k2] = t[k2 Mo + k1]: the rows of the Split method interleaved
// (M a multiple of the vector). Double precision, the method's own: 2 x 2
// blocks, rows k2 and k2 + 1 at k1 and k1 + 1 into y's entries L k1 + k2
// and L (k1 + 1) + k2, two loads and two stores for four values (12288 on
// i386 in 0.96 of the time of a vector gathered at a time, x86-64 within
// the noise); an odd L's last row by halves. Single precision (no plan of
// it splits): a vector gathered at a time.
template <class F> void interleave(const F* t, F* y, size_t M, size_t Mo, size_t L) {
    using VO = Vec<F>;
    constexpr int W = VO::W;
    if constexpr (sizeof(F) == 8) {
        for (size_t k1 = 0; k1 < M; k1 += 2) {
            F* y0 = y + 2 * L * k1;
            F* y1 = y0 + 2 * L;
            size_t k2 = 0;
            for (; k2 + 1 < L; k2 += 2) {
                const __m256d a = _mm256_loadu_pd(t + 2 * (k2 * Mo + k1));
                const __m256d b = _mm256_loadu_pd(t + 2 * ((k2 + 1) * Mo + k1));
                _mm256_storeu_pd(y0 + 2 * k2, _mm256_permute2f128_pd(a, b, 0x20));
                _mm256_storeu_pd(y1 + 2 * k2, _mm256_permute2f128_pd(a, b, 0x31));
            }
            if (k2 < L) {
                const __m256d a = _mm256_loadu_pd(t + 2 * (k2 * Mo + k1));
                _mm_storeu_pd(y0 + 2 * k2, _mm256_castpd256_pd128(a));
                _mm_storeu_pd(y1 + 2 * k2, _mm256_extractf128_pd(a, 1));
            }
        }
    } else {
        size_t k1 = 0, k2 = 0;
        for (size_t o = 0; o < M * L; o += size_t(W)) {
            const F* p[W];
            for (int w = 0; w < W; ++w) {
                p[w] = t + 2 * (k2 * Mo + k1);
                if (++k2 == L) { k2 = 0; ++k1; }
            }
            VO::store(y + 2 * o, VO::load_lanes(p));
        }
    }
}

// The short plans' runners in the order of ShortPlans.
template <class F, bool Inv, class St>
using ShortFn = void (*)(const uint8_t*, const St*, const F*, F*, F*, const F*);
template <class F, bool Inv, class St, int... R> constexpr ShortFn<F, Inv, St> short_fn(Seq<R...>*) {
    return &short_passes<F, Inv, St, R...>;
}
template <class F, bool Inv, class St, class T> struct ShortTable;
template <class F, bool Inv, class St, class... S> struct ShortTable<F, Inv, St, std::tuple<S...>> {
    static constexpr ShortFn<F, Inv, St> fn[] = {short_fn<F, Inv, St>(static_cast<S*>(nullptr))...};
};

}  // namespace zams::dft
