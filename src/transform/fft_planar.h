// Complex orders 7 to 11 (float 7 to 12) in planar form: between passes
// the data lies in blocks of L points (L = 8 floats or 4 doubles, one
// vector), the L real parts and then the L imaginary parts, so a complex
// vector is two registers (re, im). A product by a factor is four multiplies and two
// adds with no shuffles, and the products by -i and +i of the radix-4
// butterflies are free: the parts trade places and the signs go into the
// adds around them. Shuffles are left to the edges: the first pass turns
// the interleaved source into planar form, transposes and stores; the last
// one turns it back into interleaved output.
//
// N = N1 R0 points, n = n1 + N1 n2. The first pass runs R0-point transforms
// across L columns n1 at a time, multiplies result k2 by w_N^(n1 k2) and
// transposes blocks of L x L, so a row of the buffer holds k2 = 0 .. R0 - 1
// of one n1: R0 sequences (q = k2) of N1 points. The later passes run their
// N1-point transforms across L sequences at once, in place and by
// decimation in time (see row_slot), so out of place into an aligned
// destination (vec_aligned) the transform needs no other buffer, and
// touches less memory. The last pass stores interleaved.
//
// Lane order: the loads that split an interleaved pair of vectors leave
// point P[l] of a block in lane l, and a block stored interleaved takes
// lane l from point P[l]: the passes keep that order throughout, so the
// output lands in natural order with two shuffles a vector.
#pragma once

// Included from fft_small.h behind small_tabs, root_tab and ilog2.

namespace zams::fft {

template <class F> struct Planar;
template <> struct Planar<float> {
    using V = __m256;
    static constexpr int L = 8;
    static constexpr int P[8] = {0, 1, 4, 5, 2, 3, 6, 7};
    // 8 interleaved points to (re, im), point P[l] in lane l
    static void load_inter(const float* p, V& r, V& i) {
        const V a = _mm256_loadu_ps(p), b = _mm256_loadu_ps(p + 8);
        r = _mm256_shuffle_ps(a, b, 0x88);
        i = _mm256_shuffle_ps(a, b, 0xDD);
    }
    static void store_inter(float* p, V r, V i) {
        _mm256_storeu_ps(p, _mm256_unpacklo_ps(r, i));
        _mm256_storeu_ps(p + 8, _mm256_unpackhi_ps(r, i));
    }
    // 8 x 8: lane j of v[l] out is lane l of v[j] in
    static void transpose(V* v) {
        V t[8], s[8];
        for (int j = 0; j < 4; ++j) {
            t[2 * j] = _mm256_unpacklo_ps(v[2 * j], v[2 * j + 1]);
            t[2 * j + 1] = _mm256_unpackhi_ps(v[2 * j], v[2 * j + 1]);
        }
        for (int h = 0; h < 2; ++h) {
            s[4 * h] = _mm256_shuffle_ps(t[4 * h], t[4 * h + 2], 0x44);
            s[4 * h + 1] = _mm256_shuffle_ps(t[4 * h], t[4 * h + 2], 0xEE);
            s[4 * h + 2] = _mm256_shuffle_ps(t[4 * h + 1], t[4 * h + 3], 0x44);
            s[4 * h + 3] = _mm256_shuffle_ps(t[4 * h + 1], t[4 * h + 3], 0xEE);
        }
        for (int l = 0; l < 4; ++l) {
            v[l] = _mm256_permute2f128_ps(s[l], s[4 + l], 0x20);
            v[4 + l] = _mm256_permute2f128_ps(s[l], s[4 + l], 0x31);
        }
    }
};
template <> struct Planar<double> {
    using V = __m256d;
    static constexpr int L = 4;
    static constexpr int P[4] = {0, 2, 1, 3};
    static void load_inter(const double* p, V& r, V& i) {
        const V a = _mm256_loadu_pd(p), b = _mm256_loadu_pd(p + 4);
        r = _mm256_unpacklo_pd(a, b);
        i = _mm256_unpackhi_pd(a, b);
    }
    static void store_inter(double* p, V r, V i) {
        _mm256_storeu_pd(p, _mm256_unpacklo_pd(r, i));
        _mm256_storeu_pd(p + 4, _mm256_unpackhi_pd(r, i));
    }
    static void transpose(V* v) {
        const V t0 = _mm256_unpacklo_pd(v[0], v[1]), t1 = _mm256_unpackhi_pd(v[0], v[1]);
        const V t2 = _mm256_unpacklo_pd(v[2], v[3]), t3 = _mm256_unpackhi_pd(v[2], v[3]);
        v[0] = _mm256_permute2f128_pd(t0, t2, 0x20);
        v[1] = _mm256_permute2f128_pd(t1, t3, 0x20);
        v[2] = _mm256_permute2f128_pd(t0, t2, 0x31);
        v[3] = _mm256_permute2f128_pd(t1, t3, 0x31);
    }
};

// A planar complex vector and its arithmetic.
template <class F> struct PV {
    using A = Avx<F>;
    using V = typename A::V;
    V re, im;
    friend PV operator+(PV a, PV b) { return {A::add(a.re, b.re), A::add(a.im, b.im)}; }
    friend PV operator-(PV a, PV b) { return {A::sub(a.re, b.re), A::sub(a.im, b.im)}; }
    // a - i b and a + i b: the product by i costs nothing
    static PV sub_ib(PV a, PV b) { return {A::add(a.re, b.im), A::sub(a.im, b.re)}; }
    static PV add_ib(PV a, PV b) { return {A::sub(a.re, b.im), A::add(a.im, b.re)}; }
    static PV load(const F* p) { return {A::load(p), A::load(p + Planar<F>::L)}; }
    void store(F* p) const {
        A::store(p, re);
        A::store(p + Planar<F>::L, im);
    }
};

// a * w, or a * conj(w) for the inverse, the parts of w in vectors.
template <class F, bool Inv> inline PV<F> pmul(PV<F> a, typename Avx<F>::V wr, typename Avx<F>::V wi) {
    using A = Avx<F>;
    if constexpr (Inv) return {A::add(A::mul(a.re, wr), A::mul(a.im, wi)), A::sub(A::mul(a.im, wr), A::mul(a.re, wi))};
    else return {A::sub(A::mul(a.re, wr), A::mul(a.im, wi)), A::add(A::mul(a.re, wi), A::mul(a.im, wr))};
}
// w one value from memory for every lane.
template <class F, bool Inv> inline PV<F> pmul_bc(PV<F> a, const F* w) {
    if constexpr (sizeof(F) == 4) return pmul<F, Inv>(a, _mm256_broadcast_ss(w), _mm256_broadcast_ss(w + 1));
    else return pmul<F, Inv>(a, _mm256_broadcast_sd(w), _mm256_broadcast_sd(w + 1));
}
// a * w_8 (forward h (1 - i), inverse h (1 + i)) and a * w_8^3 (h (-1 - i),
// h (-1 + i)): two adds and two multiplies.
template <class F, bool Inv> inline PV<F> pmul_w8(PV<F> a) {
    using A = Avx<F>;
    const auto h = A::set1(F(0.70710678118654752440));
    if constexpr (Inv) return {A::mul(A::sub(a.re, a.im), h), A::mul(A::add(a.re, a.im), h)};
    else return {A::mul(A::add(a.re, a.im), h), A::mul(A::sub(a.im, a.re), h)};
}
template <class F, bool Inv> inline PV<F> pmul_w83(PV<F> a) {
    using A = Avx<F>;
    const auto h = A::set1(F(0.70710678118654752440)), nh = A::set1(F(-0.70710678118654752440));
    if constexpr (Inv) return {A::mul(A::add(a.re, a.im), nh), A::mul(A::sub(a.re, a.im), h)};
    else return {A::mul(A::sub(a.im, a.re), h), A::mul(A::add(a.re, a.im), nh)};
}

// y[k] = sum_n x_n w^(nk), k < N, every lane its own sequence; x_n =
// ld(base + n st), w^m = root[2 m rs]. Radix-4 decimation in time, radix 2
// at the end, as vdft of fft_small.h.
template <class F, bool Inv, int N, class Ld>
__attribute__((always_inline)) inline void pdft(const Ld& ld, int base, int st, PV<F>* y, const F* root, int rs) {
    using C = PV<F>;
    if constexpr (N == 1) {
        y[0] = ld(base);
    } else if constexpr (N == 2) {
        const C a = ld(base), b = ld(base + st);
        y[0] = a + b;
        y[1] = a - b;
    } else {
        constexpr int Q = N / 4;
#pragma GCC unroll 64
        for (int r = 0; r < 4; ++r) pdft<F, Inv, Q>(ld, base + r * st, 4 * st, y + r * Q, root, 4 * rs);
#pragma GCC unroll 64
        for (int k = 0; k < Q; ++k) {
            C a0 = y[k], a1 = y[Q + k], a2 = y[2 * Q + k], a3 = y[3 * Q + k];
            const bool eighth = 8 * k == N;  // w^k = w_8, w^2k = -i (forward)
            if (eighth) {
                a1 = pmul_w8<F, Inv>(a1);
                a3 = pmul_w83<F, Inv>(a3);
            } else if (k != 0) {
                a1 = pmul_bc<F, Inv>(a1, root + 2 * k * rs);
                a2 = pmul_bc<F, Inv>(a2, root + 4 * k * rs);
                a3 = pmul_bc<F, Inv>(a3, root + 6 * k * rs);
            }
            // c0 = a0 + w^2k a2, c1 = a0 - w^2k a2
            C c0 = a0 + a2, c1 = a0 - a2;
            if (eighth) {
                c0 = Inv ? C::add_ib(a0, a2) : C::sub_ib(a0, a2);
                c1 = Inv ? C::sub_ib(a0, a2) : C::add_ib(a0, a2);
            }
            const C c2 = a1 + a3, d = a1 - a3;
            y[k] = c0 + c2;
            y[2 * Q + k] = c0 - c2;
            y[Q + k] = Inv ? C::add_ib(c1, d) : C::sub_ib(c1, d);
            y[3 * Q + k] = Inv ? C::sub_ib(c1, d) : C::add_ib(c1, d);
        }
    }
}

// w_N^(n1 k2) of the first pass (N = N1 R0): for k2 and each block of L
// columns, L real parts then L imaginary parts, lane l for column P[l].
template <class F, int M, int R0> struct PlanarTab {
    static constexpr int N1 = (1 << M) / R0, L = Planar<F>::L;
    alignas(64) F w[2 << M];
    PlanarTab() {
        const long long N = 1LL << M;
        for (long long k2 = 0; k2 < R0; ++k2)
            for (long long g = 0; g < N1; g += L)
                for (int l = 0; l < L; ++l) {
                    F t[2];
                    put_w(t, 2 * (((g + Planar<F>::P[l]) * k2) % N), N);
                    w[2 * (k2 * N1 + g) + l] = t[0];
                    w[2 * (k2 * N1 + g) + L + l] = t[1];
                }
    }
};
template <class F, int M, int R0> const F* planar_tab() {
    static const PlanarTab<F, M, R0> t;
    return t.w;
}

// Radices of the passes of each order, first pass first (0 ends a list),
// the same for both precisions: the fastest of the splits timed. The short
// radix-4 passes after the first keep every transform within the
// registers. Double order 12 runs faster as the interleaved passes of
// fft_double.h.
inline constexpr int kPlanarMinOrder = 7;
template <class F> constexpr int planar_max_order() { return sizeof(F) == 4 ? 12 : 11; }
inline constexpr int kPlanarRadix[13][4] = {
    {}, {}, {}, {}, {}, {}, {},
    {16, 8, 0, 0},   // 7
    {16, 16, 0, 0},  // 8
    {16, 4, 8, 0},   // 9
    {16, 4, 16, 0},  // 10
    {16, 4, 4, 8},   // 11
    {16, 8, 4, 8},   // 12 (float)
};

// The later passes run in place, decimation in time: a pass of radix R
// after transforms of D points (D the product of the later radices before
// it) takes R of them, at slots D r + c of a run of D R slots, to one of D R
// points at the slots c + D k. So the first pass leaves row n1 at a
// digit-reversed slot: for the last pass (radix R, D = N1 / R), row
// r + R n' goes to D r + the slot of n' among the passes before it.
constexpr int row_slot(const int (&rad)[4], int n1) {
    const int P = pass_count(rad);
    int slot = 0, n = n1;
    for (int j = P - 1; j >= 1; --j) {
        const int D = pass_stride(rad, j) / rad[0];
        slot += D * (n % rad[j]);
        n /= rad[j];
    }
    return slot;
}

// The first pass: interleaved src to planar rows of t, row n1 at slot
// row_slot(n1), R0 sequences a slot.
template <class F, bool Inv, int M> void planar_first(const F* src, F* t) {
    using A = Avx<F>;
    using Pl = Planar<F>;
    using C = PV<F>;
    constexpr const int(&rad)[4] = kPlanarRadix[M];
    constexpr int L = Pl::L, R0 = rad[0], N1 = (1 << M) / R0, Dl = N1 / rad[pass_count(rad) - 1];
    static_assert(N1 % L == 0 && R0 % L == 0, "the first pass works on whole blocks of L columns and L rows");
    static_assert(N1 / Dl >= L, "the rows of a block of columns lie Dl slots apart");
    const F* rt = small_tabs<F>().root[ilog2(R0)];
    const F* tw = planar_tab<F, M, R0>();
    for (int g = 0; g < N1; g += L) {
        C z[R0];
        auto ld = [&](int n2) {
            C c;
            Pl::load_inter(src + 2 * (g + N1 * n2), c.re, c.im);
            return c;
        };
        pdft<F, Inv, R0>(ld, 0, 1, z, rt, 1);
#pragma GCC unroll 64
        for (int k = 1; k < R0; ++k) {
            const F* w = tw + 2 * (k * N1 + g);
            z[k] = pmul<F, Inv>(z[k], A::load(w), A::load(w + L));
        }
        F* row = t + 2 * R0 * row_slot(rad, g);
#pragma GCC unroll 64
        for (int b = 0; b < R0; b += L) {
            typename A::V re[L], im[L];
#pragma GCC unroll 8
            for (int j = 0; j < L; ++j) {
                re[j] = z[b + Pl::P[j]].re;
                im[j] = z[b + Pl::P[j]].im;
            }
            Pl::transpose(re);
            Pl::transpose(im);
#pragma GCC unroll 8
            for (int l = 0; l < L; ++l) C{re[l], im[l]}.store(row + 2 * (Pl::P[l] * Dl * R0 + b));
        }
    }
}

// Later pass J of order M, x to y (in place but for the last pass of an
// in-place call, which reads the work buffer and writes the destination),
// run B of D R slots after run B. Each output of a transform but the last
// pass's is multiplied by the factor the next pass (radix Rn) would apply
// to it: output c + D k of run B, the e-th (e = B mod Rn) of the runs the
// next pass combines, by w_(D R Rn)^(e (c + D k)). The last pass stores
// interleaved.
template <class F, bool Inv, int M, int J> void planar_pass(const F* x, F* y, const F* root) {
    using C = PV<F>;
    using Pl = Planar<F>;
    constexpr const int(&rad)[4] = kPlanarRadix[M];
    constexpr int P = pass_count(rad), R0 = rad[0], R = rad[J], D = pass_stride(rad, J) / R0, L = Pl::L;
    constexpr int N1 = (1 << M) / R0, Rn = J + 1 < P ? rad[J + 1] : 1, wst = (1 << M) / (D * R * Rn);
    static_assert(R0 % L == 0 && N1 % (D * R) == 0, "a pass works on whole blocks of L sequences");
    constexpr int S = R0 * D;  // the stride of a transform's points
    const F* rt = small_tabs<F>().root[ilog2(R)];
    for (int B = 0; B < N1 / (D * R); ++B) {
        const int e = B % Rn;
        const F* xb = x + 2 * S * R * B;
        F* yb = y + 2 * S * R * B;
        // rolled: the radix-4 pass of double order 9 takes 95 ns, unrolled 107
#pragma GCC unroll 1
        for (int i = 0; i < S; i += L) {  // i = q + R0 c
            C v[R];
            auto ld = [&](int r) { return C::load(xb + 2 * (i + S * r)); };
            pdft<F, Inv, R>(ld, 0, 1, v, rt, 1);
            if constexpr (J + 1 == P) {
#pragma GCC unroll 64
                for (int k = 0; k < R; ++k) Pl::store_inter(yb + 2 * (i + S * k), v[k].re, v[k].im);
            } else {
                if (e != 0) {
                    const F* w = root + 2 * wst * e * (i / R0);
#pragma GCC unroll 64
                    for (int k = D == 1 ? 1 : 0; k < R; ++k) v[k] = pmul_bc<F, Inv>(v[k], w + 2 * wst * e * D * k);
                }
#pragma GCC unroll 64
                for (int k = 0; k < R; ++k) v[k].store(yb + 2 * (i + S * k));
            }
        }
    }
}

// Order M; src may be dst. Out of place, into a destination vec_aligned,
// the passes run in the destination; otherwise the first pass writes the
// work buffer (2^M complex values), the last reads it back.
template <class F, bool Inv, int M> void planar_fft_m(const F* src, F* dst, F* work) {
    constexpr int P = pass_count(kPlanarRadix[M]);
    const F* root = root_tab<F, M>();
    F* x = (src == dst || !vec_aligned(dst)) ? work : dst;
    planar_first<F, Inv, M>(src, x);
    [&]<int... J>(std::integer_sequence<int, J...>) {
        (planar_pass<F, Inv, M, J + 1>(x, J + 2 == P ? dst : x, root), ...);
    }(std::make_integer_sequence<int, P - 1>{});
}

template <class F, bool Inv> void planar_fft(const F* src, F* dst, F* work, int M) {
    with_order<kPlanarMinOrder, planar_max_order<F>()>(M, [&]<int K>() { planar_fft_m<F, Inv, K>(src, dst, work); });
}

}  // namespace zams::fft
