// Complex transforms of float orders 7 to 12 and double orders 7 to 13:
// self-sorting passes of radix 4, 8 or 16, natural order in and out, no bit
// reversal.
//
// A pass sees s interleaved sequences of length n = N / s (sequence q holds
// the points q + s j). With m = n / R, it takes the R points j = p + r m
// (r < R) of every sequence, transforms them to b_k, and stores
// b_k w_n^(p k) at q + s (R p + k): the next pass sees R s sequences of
// length m. After the last pass (m = 1, no factors) bin k of the whole
// transform sits at k.
//
// The first pass (s = 1) runs its R-point transforms across W p at once
// (the lanes of a vector) and transposes groups of W results into place as
// it stores; its factors lie in reading order, one vector (w^(pk),
// w^((p+1)k), ...) a step. The later passes are sort_pass below: W
// sequences q at once, one factor w_N^(pks) broadcast to every lane. The
// R-point transforms are the straight-line ones of fft_small.h: a radix-8
// transform is eight vectors, the register count of the 32-bit target, a
// radix-16 one sixteen, that of the 64-bit target.
//
// Passes alternate between the destination and the work buffer (2^M
// complex values); the last pass reads and writes the same positions, so
// it may run in place on the destination. The source is read only by the
// first pass, so it may be the destination. Radix-16 passes whose points lie
// 4 KB apart (double order 12) lose to four radix-8 passes on cache-set
// conflicts.
#pragma once

// Included from the end of fft_small.h (vdft, cmul_bc, cmul_mem, ilog2).

namespace zams::fft {

// W complex vectors of W points to their transpose: lane l of v[j] out is
// lane j of v[l] in.
template <class F> inline void transpose_w(typename VT<F>::V* v) {
    if constexpr (sizeof(F) == 4) {
        FirstVec<F>::transpose(v[0], v[1], v[2], v[3]);
    } else {
        const auto a = _mm256_permute2f128_pd(v[0], v[1], 0x20), b = _mm256_permute2f128_pd(v[0], v[1], 0x31);
        v[0] = a;
        v[1] = b;
    }
}

inline constexpr int kSortMinOrder = 7;
template <class F> constexpr int sort_max_order() { return sizeof(F) == 4 ? 12 : 13; }

// Radices of the passes of each order, first pass first (0 ends a list):
// the fastest of the splits timed on both targets (on i386 they took
// 10-30% less time than the planar passes they replaced, on x86-64 about
// the same). The precisions differ at order 7 only, sort_radix.
inline constexpr int kSortRadix[14][4] = {
    {}, {}, {}, {}, {}, {}, {},
    {4, 4, 8},       // 7 (double)
    {8, 4, 8},       // 8
    {8, 4, 16},      // 9
    {8, 8, 16},      // 10
    {8, 8, 8, 4},    // 11
    {8, 8, 8, 8},    // 12
    {16, 8, 8, 8},   // 13 (double)
};
inline constexpr int kSortRadix7f[4] = {8, 4, 4};  // float order 7
template <class F> constexpr const int (&sort_radix(int M))[4] {
    return (sizeof(F) == 4 && M == 7) ? kSortRadix7f : kSortRadix[M];
}

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


// w_N^j for j < N, and the first pass's factors in reading order: W
// positions p at a time, R - 1 vectors of them (k = 1 .. R - 1).
template <class F, int M> struct SortTab {
    static constexpr int N = 1 << M, R = sort_radix<F>(M)[0], W = VT<F>::W;
    alignas(32) F root[2 * N];
    alignas(32) F first[2 * (N / R) * (R - 1)];
    SortTab() {
        for (long long j = 0; j < N; ++j) put_w(root + 2 * j, 2 * j, N);
        for (long long p = 0; p < N / R; p += W)
            for (long long k = 1; k < R; ++k)
                for (long long l = 0; l < W; ++l) put_w(first + 2 * ((R - 1) * p + (k - 1) * W + l), 2 * (p + l) * k, N);
    }
};
template <class F, int M> const SortTab<F, M>& sort_tab() {
    static const SortTab<F, M> t;
    return t;
}

// The first pass of N points, radix R, x to y.
template <class F, bool Inv, int R, int N> void sort_first(const F* x, F* y, const F* tw) {
    using T = VT<F>;
    constexpr int m = N / R, W = T::W;
    const F* rt = small_tabs<F>().root[ilog2(R)];
    for (int p = 0; p < m; p += W, tw += 2 * W * (R - 1)) {
        typename T::V c[R];
        vdft<F, Inv, R>(x + 2 * p, m / W, c, rt, 1);
#pragma GCC unroll 32
        for (int k = 1; k < R; ++k) c[k] = cmul_mem<F, Inv>(c[k], tw + 2 * W * (k - 1));
        F* y0 = y + 2 * R * p;
#pragma GCC unroll 16
        for (int k = 0; k < R; k += W) {
            transpose_w<F>(c + k);
#pragma GCC unroll 4
            for (int l = 0; l < W; ++l) T::store(y0 + 2 * (R * l + k), c[k + l]);
        }
    }
}

// Through first_out and later_passes of fft_small.h.
template <class F, bool Inv, int M> void sort_fft_m(const F* src, F* dst, F* work) {
    constexpr int N = 1 << M;
    constexpr const int(&rad)[4] = sort_radix<F>(M);
    constexpr int P = pass_count(rad);
    const SortTab<F, M>& tb = sort_tab<F, M>();
    F* x = first_out<P>(src, dst, work);
    sort_first<F, Inv, rad[0], N>(src, x, tb.first);
    later_passes<P>(x, dst, work, [&]<int I>(const F* in, F* out) {
        sort_pass<F, Inv, rad[I], N, pass_stride(rad, I)>(in, out, tb.root);
    });
}

// Orders kSortMinOrder to sort_max_order<F>(); src may be dst, work holds
// 2^M complex values.
template <class F, bool Inv> void sort_fft(const F* src, F* dst, F* work, int M) {
    with_order<kSortMinOrder, sort_max_order<F>()>(M, [&]<int K>() { sort_fft_m<F, Inv, K>(src, dst, work); });
}

}  // namespace zams::fft
