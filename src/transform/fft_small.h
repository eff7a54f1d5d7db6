// Straight-line transforms of up to 64 points, natural order in and out.
//
// With W complex values a vector and N = N1 W points, vector n1 holds the
// points W n1 .. W n1 + W - 1. An N1-point transform runs across the
// vectors (every lane its own sequence), each result k1 is multiplied by
// the lane factors w_N^(l k1), and W-point transforms across transposed
// groups of W vectors finish it: lane j of result k2 of group g is point
// g W + j + N1 k2. Every input is loaded before the first store, so the
// source may be the destination. No bit reversal, no work buffer.
#pragma once

// Included from fft_core.h behind the vector operations and put_w.

namespace zams::fft {

inline constexpr int kSmallMaxOrder = 6;
// Smallest order of the straight-line path (float orders 2 and 3 run in
// double: N1 must hold a group of W).
inline constexpr int kSmallMinOrder = 2;

// Tables of vectors of W factors keep every vector as two: the real parts
// duplicated, then the imaginary parts duplicated (4 W values), so a product
// needs no shuffles of the factor.
template <class F> inline void put_w_dup(F* blk, int lane, long long k, long long n) {
    constexpr int W = VT<F>::W;
    F w[2];
    put_w(w, k, n);
    blk[2 * lane] = blk[2 * lane + 1] = w[0];
    blk[2 * W + 2 * lane] = blk[2 * W + 2 * lane + 1] = w[1];
}

// w_N^m for m < N, and the lane factors w_N^(l k1) (k1 < N1, l < W), of
// every order up to 6, built once with sincospi_ratio.
template <class F> struct SmallTabs {
    alignas(32) F root[kSmallMaxOrder + 1][2 << kSmallMaxOrder];
    alignas(32) F lane[kSmallMaxOrder + 1][4 << kSmallMaxOrder];  // duplicated parts
    SmallTabs() {
        constexpr long long W = VT<F>::W;
        for (int M = 1; M <= kSmallMaxOrder; ++M) {
            const long long N = 1LL << M;
            for (long long m = 0; m < N; ++m) put_w(root[M] + 2 * m, 2 * m, N);
            if (N < W) continue;
            for (long long k1 = 0; k1 < N / W; ++k1)
                for (long long l = 0; l < W; ++l) put_w_dup(lane[M] + 4 * W * k1, int(l), 2 * ((l * k1) % N), N);
        }
    }
};
template <class F> const SmallTabs<F>& small_tabs() {
    static const SmallTabs<F> t;
    return t;
}

// a * w (a * conj(w) for the inverse) with the parts of w loaded already
// duplicated: the same operations as cmul, the shuffles left to the loads.
template <class F, bool Inv>
inline typename VT<F>::V cmul_parts(typename VT<F>::V a, typename VT<F>::V wr, typename VT<F>::V wi) {
    using T = VT<F>;
    if constexpr (Inv) wi = T::xor_(wi, T::allsign());
    return T::addsub(T::mul(a, wr), T::mul(T::swap(a), wi));
}
// w one value in every lane.
template <class F, bool Inv> inline typename VT<F>::V cmul_bc(typename VT<F>::V a, const F* w) {
    if constexpr (sizeof(F) == 4) return cmul_parts<F, Inv>(a, _mm256_broadcast_ss(w), _mm256_broadcast_ss(w + 1));
    else return cmul_parts<F, Inv>(a, _mm256_broadcast_sd(w), _mm256_broadcast_sd(w + 1));
}
// w a vector of values from memory (duplicating loads of the parts).
template <class F, bool Inv> inline typename VT<F>::V cmul_mem(typename VT<F>::V a, const F* w) {
    if constexpr (sizeof(F) == 4) {
        return cmul_parts<F, Inv>(a, _mm256_moveldup_ps(_mm256_loadu_ps(w)), _mm256_movehdup_ps(_mm256_loadu_ps(w)));
    } else {
        // movddup from w + 1 duplicates the imaginary parts
        return cmul_parts<F, Inv>(a, _mm256_movedup_pd(_mm256_loadu_pd(w)), _mm256_movedup_pd(_mm256_loadu_pd(w + 1)));
    }
}
// w a vector of values from a table of duplicated parts (put_w_dup).
template <class F, bool Inv> inline typename VT<F>::V cmul_dup(typename VT<F>::V a, const F* blk) {
    return cmul_parts<F, Inv>(a, VT<F>::load(blk), VT<F>::load(blk + 2 * VT<F>::W));
}

// y[k] = sum_n x_n w^(nk), k < N, vector by vector (lanes independent),
// x_n the vector at x + n xs (in vectors), w^m = root[2 m rs]; radix-4
// decimation in time, radix 2 at the end. The leaves load straight from
// memory so the data is never copied to the stack first.
template <class F, bool Inv, int N, class Ld>
__attribute__((always_inline)) inline void vdft_ld(const Ld& ld, int n0, int ns, typename VT<F>::V* y, const F* root, int rs) {
    using T = VT<F>;
    if constexpr (N == 1) {
        y[0] = ld(n0);
    } else if constexpr (N == 2) {
        const auto a = ld(n0), b = ld(n0 + ns);
        y[0] = T::add(a, b);
        y[1] = T::sub(a, b);
    } else {
        constexpr int Q = N / 4;
#pragma GCC unroll 64
        for (int r = 0; r < 4; ++r) vdft_ld<F, Inv, Q>(ld, n0 + r * ns, 4 * ns, y + r * Q, root, 4 * rs);
#pragma GCC unroll 64
        for (int k = 0; k < Q; ++k) {
            auto a0 = y[k], a1 = y[Q + k], a2 = y[2 * Q + k], a3 = y[3 * Q + k];
            if (8 * k == N) {
                // w = w_8, w^2 = -i, w^3 = -w_8 conj: with p = a1 + a3, m = a1 - a3
                // and q = -i p (+i p for the inverse), a1 w + a3 w^3 = h (m + q)
                // and -i (a1 w - a3 w^3) = h (q - m), h = 1/sqrt 2: two real
                // products in place of two complex ones.
                a2 = mul_negi<F>(a2);
                if constexpr (Inv) a2 = T::xor_(a2, T::allsign());
                const auto pp = T::add(a1, a3), mm = T::sub(a1, a3);
                auto q = mul_negi<F>(pp);
                if constexpr (Inv) q = T::xor_(q, T::allsign());
                const auto h = T::set1(F(0.70710678118654752440));
                const auto c2 = T::mul(T::add(mm, q), h), u = T::mul(T::sub(q, mm), h);
                const auto c0 = T::add(a0, a2), c1 = T::sub(a0, a2);
                y[k] = T::add(c0, c2);
                y[2 * Q + k] = T::sub(c0, c2);
                y[Q + k] = T::add(c1, u);
                y[3 * Q + k] = T::sub(c1, u);
                continue;
            }
            if (k != 0) {
                a1 = cmul_bc<F, Inv>(a1, root + 2 * k * rs);
                // w^(2k) is -i (forward) or +i exactly when 2k = N/4
                if (8 * k == N) {
                    a2 = mul_negi<F>(a2);
                    if constexpr (Inv) a2 = T::xor_(a2, T::allsign());
                } else {
                    a2 = cmul_bc<F, Inv>(a2, root + 4 * k * rs);
                }
                a3 = cmul_bc<F, Inv>(a3, root + 6 * k * rs);
            }
            const auto c0 = T::add(a0, a2), c1 = T::sub(a0, a2), c2 = T::add(a1, a3);
            const auto t = mul_negi<F>(T::sub(a1, a3));
            y[k] = T::add(c0, c2);
            y[2 * Q + k] = T::sub(c0, c2);
            y[Q + k] = Inv ? T::sub(c1, t) : T::add(c1, t);
            y[3 * Q + k] = Inv ? T::add(c1, t) : T::sub(c1, t);
        }
    }
}

// The inputs x_n at x + n xs (in vectors).
template <class F, bool Inv, int N>
__attribute__((always_inline)) inline void vdft(const F* x, int xs, typename VT<F>::V* y, const F* root, int rs) {
    constexpr int S = 2 * VT<F>::W;  // floats a vector
    vdft_ld<F, Inv, N>([x, xs](int n) { return VT<F>::load(x + S * n * xs); }, 0, 1, y, root, rs);
}

// The last split-radix step of rsplit: from the half spectra U (N/2
// points, the even ones), V (4n + 1) and T (4n + 3) to put(k, re, im) for
// 0 < k < N/2, and put(0, re[0], re[N/2]) for the two real bins. Bins k,
// H - k, Q + k, Q - k from U_k + w^k V_k + w^3k T_k with
// p = w^k V_k + w^3k T_k, q = w^k V_k - w^3k T_k: Z_k = U_k + p,
// Z_(H-k) = conj(U_k - p), Z_(Q+k) = conj(U_(Q-k)) - i q,
// Z_(Q-k) = U_(Q-k) - i conj(q). V and T are real at k = 0 and E.
template <class F, int N, class Put>
__attribute__((always_inline)) inline void rjoin(const typename VT<F>::V* ur, const typename VT<F>::V* ui,
                                                 const typename VT<F>::V* vr, const typename VT<F>::V* vi,
                                                 const typename VT<F>::V* tr, const typename VT<F>::V* ti,
                                                 const F* root, int rs, const Put& put) {
    using T = VT<F>;
    using V = typename T::V;
    constexpr int H = N / 2, Q = N / 4, E = N / 8;
    const V p0 = T::add(vr[0], tr[0]);
    put(0, T::add(ur[0], p0), T::sub(ur[0], p0));
    put(Q, ur[Q], T::sub(tr[0], vr[0]));
    {
        const V m1 = T::mul(T::sub(vr[E], tr[E]), T::set1(F(0.70710678118654752440)));
        const V m2 = T::mul(T::add(vr[E], tr[E]), T::set1(F(-0.70710678118654752440)));
        put(E, T::add(ur[E], m1), T::add(ui[E], m2));
        put(3 * E, T::sub(ur[E], m1), T::sub(m2, ui[E]));
    }
#pragma GCC unroll 16
    for (int k = 1; k < E; ++k) {
        const F* w1 = root + 2 * k * rs;
        const F* w3 = root + 6 * k * rs;
        const V c1 = T::set1(w1[0]), s1 = T::set1(w1[1]), c3 = T::set1(w3[0]), s3 = T::set1(w3[1]);
        const V ar = T::sub(T::mul(c1, vr[k]), T::mul(s1, vi[k])), ai = T::add(T::mul(c1, vi[k]), T::mul(s1, vr[k]));
        const V br = T::sub(T::mul(c3, tr[k]), T::mul(s3, ti[k])), bi = T::add(T::mul(c3, ti[k]), T::mul(s3, tr[k]));
        const V pr = T::add(ar, br), pi = T::add(ai, bi), qi = T::sub(ai, bi), nqr = T::sub(br, ar);
        put(k, T::add(ur[k], pr), T::add(ui[k], pi));
        put(H - k, T::sub(ur[k], pr), T::sub(pi, ui[k]));
        put(Q + k, T::add(ur[Q - k], qi), T::sub(nqr, ui[Q - k]));
        put(Q - k, T::sub(ur[Q - k], qi), T::add(ui[Q - k], nqr));
    }
}

// The half spectrum of N points by real products alone: re[k] = the sum of
// x_n cos(2 pi n k / N) (k <= N/2) and im[k] = minus the sum of
// x_n sin(2 pi n k / N) (0 < k < N/2), every vector x_n = ld(n0 + n ns) a
// real number to the recursion (split radix: the even points, then those
// at 4n + 1 and 4n + 3), w_N^m = root[2 m rs]. A product by a factor then
// needs no shuffle: its parts are real constants. 518 additions and
// multiplications at 64 points, 198 at 32.
template <class F, int N, class Ld>
__attribute__((always_inline)) inline void rsplit(const Ld& ld, int n0, int ns, typename VT<F>::V* re,
                                                  typename VT<F>::V* im, const F* root, int rs) {
    using T = VT<F>;
    using V = typename T::V;
    if constexpr (N == 1) {
        re[0] = ld(n0);
    } else if constexpr (N == 2) {
        const V a = ld(n0), b = ld(n0 + ns);
        re[0] = T::add(a, b);
        re[1] = T::sub(a, b);
    } else if constexpr (N == 4) {
        const V x0 = ld(n0), x1 = ld(n0 + ns), x2 = ld(n0 + 2 * ns), x3 = ld(n0 + 3 * ns);
        const V a = T::add(x0, x2), b = T::add(x1, x3);
        re[0] = T::add(a, b);
        re[2] = T::sub(a, b);
        re[1] = T::sub(x0, x2);
        im[1] = T::sub(x3, x1);
    } else {
        constexpr int H = N / 2, Q = N / 4, E = N / 8;
        V ur[Q + 1], ui[Q + 1], vr[E + 1], vi[E + 1], tr[E + 1], ti[E + 1];
        rsplit<F, H>(ld, n0, 2 * ns, ur, ui, root, 2 * rs);
        rsplit<F, Q>(ld, n0 + ns, 4 * ns, vr, vi, root, 4 * rs);
        rsplit<F, Q>(ld, n0 + 3 * ns, 4 * ns, tr, ti, root, 4 * rs);
        rjoin<F, N>(ur, ui, vr, vi, tr, ti, root, rs, [re, im](int k, V r, V i) {
            re[k] = r;
            (k ? im[k] : re[H]) = i;
        });
    }
}

// The N-point transform of vdft_ld (N a power of 2, 8 <= N <= 64) through
// rsplit: bins k and N - k are re[k] + i im[k] and re[k] - i im[k], one
// in-lane shuffle a pair of bins (swapped for the inverse). At 64 points
// that is 642 vector operations, 31 of them shuffles, against 708 and 97
// for two radix-8 steps with the 49 general factors between them.
template <class F, bool Inv, int N, class Ld>
__attribute__((always_inline)) inline void rvdft_ld(const Ld& ld, typename VT<F>::V* y, const F* root) {
    using T = VT<F>;
    typename T::V re[N / 2 + 1], im[N / 2 + 1];
    rsplit<F, N>(ld, 0, 1, re, im, root, 1);
    y[0] = re[0];
    y[N / 2] = re[N / 2];
#pragma GCC unroll 64
    for (int k = 1; k < N / 2; ++k) {
        const auto t = T::swap(im[k]);
        y[Inv ? N - k : k] = T::addsub(re[k], t);
        y[Inv ? k : N - k] = T::addsub(re[k], T::xor_(t, T::allsign()));
    }
}

// rvdft_ld with bin k handed to st(k, v) as soon as it is formed: the last
// split-radix step is joined into bins and stored pair by pair instead of
// keeping all N / 2 + 1 pairs live (at 64 points they would spill on
// either target). The same operations as rvdft_ld, so the same bits.
template <class F, bool Inv, int N, class Ld, class St>
__attribute__((always_inline)) inline void rvdft_st(const Ld& ld, const St& st, const F* root) {
    using T = VT<F>;
    using V = typename T::V;
    constexpr int H = N / 2, Q = N / 4, E = N / 8;
    V ur[Q + 1], ui[Q + 1], vr[E + 1], vi[E + 1], tr[E + 1], ti[E + 1];
    rsplit<F, H>(ld, 0, 2, ur, ui, root, 2);
    rsplit<F, Q>(ld, 1, 4, vr, vi, root, 4);
    rsplit<F, Q>(ld, 3, 4, tr, ti, root, 4);
    rjoin<F, N>(ur, ui, vr, vi, tr, ti, root, 1, [&st](int k, V re, V im) {
        if (k == 0) {
            st(0, re);
            st(H, im);
            return;
        }
        const V t = T::swap(im);
        st(Inv ? N - k : k, T::addsub(re, t));
        st(Inv ? k : N - k, T::addsub(re, T::xor_(t, T::allsign())));
    });
}

// The transform of a pass of radix R, inputs at x + n xs (in vectors):
// from 32 points by real products (rvdft_ld), below by vdft.
template <class F, bool Inv, int R>
__attribute__((always_inline)) inline void pass_dft(const F* x, int xs, typename VT<F>::V* y, const F* rt) {
    constexpr int S = 2 * VT<F>::W;
    if constexpr (R >= 32) rvdft_ld<F, Inv, R>([x, xs](int n) { return VT<F>::load(x + S * n * xs); }, y, rt);
    else vdft<F, Inv, R>(x, xs, y, rt, 1);
}

template <class F, bool Inv, int M> void small_fft_m(const F* src, F* dst, const SmallTabs<F>& tb) {
    using T = VT<F>;
    using V = typename T::V;
    constexpr int W = T::W, N = 1 << M, N1 = N / W;
    V y[N1];
    vdft<F, Inv, N1>(src, 1, y, tb.root[M], W);
#pragma GCC unroll 64
    for (int k = 1; k < N1; ++k) y[k] = cmul_dup<F, Inv>(y[k], tb.lane[M] + 4 * W * k);
#pragma GCC unroll 64
    for (int g = 0; g < N1; g += W) {
        if constexpr (W == 4) {
            V t0 = y[g], t1 = y[g + 1], t2 = y[g + 2], t3 = y[g + 3];
            FirstVec<F>::transpose(t0, t1, t2, t3);
            const auto c0 = T::add(t0, t2), c1 = T::sub(t0, t2), c2 = T::add(t1, t3);
            const auto t = mul_negi<F>(T::sub(t1, t3));
            T::store(dst + 2 * g, T::add(c0, c2));
            T::store(dst + 2 * (g + 2 * N1), T::sub(c0, c2));
            T::store(dst + 2 * (g + N1), Inv ? T::sub(c1, t) : T::add(c1, t));
            T::store(dst + 2 * (g + 3 * N1), Inv ? T::add(c1, t) : T::sub(c1, t));
        } else {
            const V t0 = _mm256_permute2f128_pd(y[g], y[g + 1], 0x20);
            const V t1 = _mm256_permute2f128_pd(y[g], y[g + 1], 0x31);
            T::store(dst + 2 * g, T::add(t0, t1));
            T::store(dst + 2 * (g + N1), T::sub(t0, t1));
        }
    }
}

// The transform of order M (2 <= M <= 6); src may be dst.
template <class F, bool Inv> void small_fft(const F* src, F* dst, int M) {
    if constexpr (sizeof(F) == 4) {
        if (M < 4) {  // 4 or 8 points: in double and back
            alignas(32) double t[16];
            const int n = 2 << M;
            for (int i = 0; i < n; i += 4) _mm256_store_pd(t + i, _mm256_cvtps_pd(_mm_loadu_ps(src + i)));
            small_fft<double, Inv>(t, t, M);
            for (int i = 0; i < n; i += 4) _mm_storeu_ps(dst + i, _mm256_cvtpd_ps(_mm256_load_pd(t + i)));
            return;
        }
    }
    const SmallTabs<F>& tb = small_tabs<F>();
    with_order<2, kSmallMaxOrder>(M, [&]<int K>() {
        if constexpr (sizeof(F) == 8 || K >= 4) small_fft_m<F, Inv, K>(src, dst, tb);
    });
}

}  // namespace zams::fft

namespace zams::fft {

constexpr int ilog2(int r) { return r <= 1 ? 0 : 1 + ilog2(r / 2); }

// Radix lists of the multi-pass transforms: at most four radices, first
// pass first, 0 ends a list. A pass sees as many sequences as the product
// of the radices before it.
constexpr int pass_count(const int (&rad)[4]) {
    int p = 0;
    while (p < 4 && rad[p]) ++p;
    return p;
}
constexpr int pass_stride(const int (&rad)[4], int i) {
    int s = 1;
    for (int j = 0; j < i; ++j) s *= rad[j];
    return s;
}

// Whether passes may run in a caller's buffer: half the vector loads and
// stores of a buffer 16 bytes off a 32-byte boundary cross a cache line
// (the network of double orders 15 and 16 took 10-18% longer with its
// passes there). The work buffer is aligned.
inline bool vec_aligned(const void* p) { return reinterpret_cast<uintptr_t>(p) % 32 == 0; }

// Where the first pass of a P-pass transform writes: out of place with an
// even count, the destination (the passes then end with the last one in
// place there); in place, and with an odd count, the work buffer.
template <int P, class F> F* first_out(const F* src, F* dst, F* work) { return ((P & 1) || src == dst) ? work : dst; }

// The passes after the first of a P-pass transform, from x (where the first
// pass wrote): pass.template operator()<I>(in, out) for I = 1 .. P - 1. They
// alternate between the work buffer and the destination, the last one
// writing the destination, in place there when the one before did too.
template <int P, class F, class Pass> void later_passes(F* x, F* dst, F* work, Pass&& pass) {
    [&]<int... I>(std::integer_sequence<int, I...>) {
        ([&] {
            F* y = (I + 2 == P || x == work) ? dst : work;
            pass.template operator()<I + 1>(x, y);
            x = y;
        }(), ...);
    }(std::make_integer_sequence<int, P - 1>{});
}

}  // namespace zams::fft

#include "fft_sort.h"
