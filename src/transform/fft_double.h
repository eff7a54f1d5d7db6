// Double-precision complex transforms of orders 12 and 13: self-sorting
// passes of radix 8 or 16, natural order in and out, no bit reversal.
//
// A pass sees s interleaved sequences of length n = N / s (sequence q holds
// the points q + s j). With m = n / R, it takes the R points j = p + r m
// (r < R) of every sequence, transforms them to b_k, and stores
// b_k w_n^(p k) at q + s (R p + k): the next pass sees R s sequences of
// length m. After the last pass (m = 1, no factors) bin k of the whole
// transform sits at k.
//
// The first pass (s = 1) runs its R-point transforms across two p at once
// (the two lanes of a vector) and swaps lanes into place as it stores; its
// factors lie in reading order, one vector (w^(pk), w^((p+1)k)) a step. The
// later passes are sort_pass below: two sequences q at once, one
// factor w_N^(pks) broadcast to both lanes. The R-point transforms are the straight-line
// ones of fft_small.h; with R at most 16 a 256-bit vector of two points
// keeps them near the register count of the 64-bit target.
//
// Passes alternate between the destination and the work buffer (2^M
// complex values); the last pass reads and writes the same positions, so
// it may run in place on the destination. The source is read only by the
// first pass, so it may be the destination. Radix-16 passes whose points lie
// 4 KB apart (order 12) lose to four radix-8 passes on cache-set conflicts.
#pragma once

// Included from the end of fft_small.h (vdft, cmul_bc, cmul_mem, ilog2).

namespace zams::fft {

inline constexpr int kDblMinOrder = 7;
inline constexpr int kDblMaxOrder = 13;

// Radices of the passes of each order, first pass first (0 ends a list).
inline constexpr int kDblRadix[kDblMaxOrder + 1][4] = {
    {}, {}, {}, {}, {}, {}, {},
    {4, 4, 8},    // 7
    {8, 4, 8},    // 8
    {8, 4, 16},    // 9
    {8, 8, 16},    // 10
    {8, 8, 8, 4},    // 11
    {8, 8, 8, 8},     // 12
    {16, 8, 8, 8},    // 13
};

// A self-sorting pass of radix R over s >= W interleaved sequences of
// length n = N / s (sequence q holds the points q + s j). With m = n / R it
// takes the R points j = p + r m of every sequence, transforms them to b_k
// and stores b_k w_N^(p k s) at q + s (R p + k): the next pass sees R s
// sequences of length m. It runs across W sequences at once with one
// factor broadcast to every lane, w_N^(p k s) = root[2 p k s]. With m = 1
// there are no factors, and x may be y: every position is read before it
// is written.
template <class F, bool Inv, int R, int N, int s> void sort_pass(const F* x, F* y, const F* root) {
    using T = VT<F>;
    constexpr int W = T::W, m = N / (s * R), xs = s * m / W;
    const F* rt = small_tabs<F>().root[ilog2(R)];
    for (int q = 0; q < s; q += W) {
        typename T::V c[R];
        vdft<F, Inv, R>(x + 2 * q, xs, c, rt, 1);
#pragma GCC unroll 64
        for (int k = 0; k < R; ++k) T::store(y + 2 * (q + s * k), c[k]);
    }
    for (int p = 1; p < m; ++p) {
        const F* w = root + 2 * p * s;
        for (int q = 0; q < s; q += W) {
            typename T::V c[R];
            vdft<F, Inv, R>(x + 2 * (q + s * p), xs, c, rt, 1);
#pragma GCC unroll 64
            for (int k = 1; k < R; ++k) c[k] = cmul_bc<F, Inv>(c[k], w + 2 * p * s * (k - 1));
#pragma GCC unroll 64
            for (int k = 0; k < R; ++k) T::store(y + 2 * (q + s * (R * p + k)), c[k]);
        }
    }
}

// w_N^j for j < N, and the first pass's factors in reading order.
template <int M> struct DblTab {
    static constexpr int N = 1 << M, R = kDblRadix[M][0];
    alignas(32) double root[2 * N];
    alignas(32) double first[2 * (N / R) * (R - 1)];
    DblTab() {
        for (long long j = 0; j < N; ++j) put_w(root + 2 * j, 2 * j, N);
        double* f = first;
        for (long long p = 0; p < N / R; p += 2)
            for (long long k = 1; k < R; ++k, f += 4) {
                put_w(f, 2 * p * k, N);
                put_w(f + 2, 2 * (p + 1) * k, N);
            }
    }
};
template <int M> const DblTab<M>& dbl_tab() {
    static const DblTab<M> t;
    return t;
}

// The first pass of N points, radix R, x to y.
template <bool Inv, int R, int N> void dbl_first(const double* x, double* y, const double* tw) {
    using T = VT<double>;
    constexpr int m = N / R;
    const double* rt = small_tabs<double>().root[ilog2(R)];
    for (int p = 0; p < m; p += 2, tw += 4 * (R - 1)) {
        typename T::V c[R];
        vdft<double, Inv, R>(x + 2 * p, m / 2, c, rt, 1);
#pragma GCC unroll 32
        for (int k = 1; k < R; ++k) c[k] = cmul_mem<double, Inv>(c[k], tw + 4 * (k - 1));
        double* y0 = y + 2 * R * p;
#pragma GCC unroll 16
        for (int k = 0; k < R; k += 2) {
            T::store(y0 + 2 * k, _mm256_permute2f128_pd(c[k], c[k + 1], 0x20));
            T::store(y0 + 2 * (R + k), _mm256_permute2f128_pd(c[k], c[k + 1], 0x31));
        }
    }
}

// Through first_out and later_passes of fft_small.h.
template <bool Inv, int M> void dbl_fft_m(const double* src, double* dst, double* work) {
    constexpr int N = 1 << M, P = pass_count(kDblRadix[M]);
    const DblTab<M>& tb = dbl_tab<M>();
    double* x = first_out<P>(src, dst, work);
    dbl_first<Inv, kDblRadix[M][0], N>(src, x, tb.first);
    later_passes<P>(x, dst, work, [&]<int I>(const double* in, double* out) {
        sort_pass<double, Inv, kDblRadix[M][I], N, pass_stride(kDblRadix[M], I)>(in, out, tb.root);
    });
}

// Orders 12 and 13; src may be dst, work holds 2^M complex values.
template <bool Inv> void dbl_fft(const double* src, double* dst, double* work, int M) {
    with_order<kDblMinOrder, kDblMaxOrder>(M, [&]<int K>() { dbl_fft_m<Inv, K>(src, dst, work); });
}

}  // namespace zams::fft
