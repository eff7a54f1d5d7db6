// Float orders 13 to 16 and double order 14: one radix-8 pass in front of
// 8 shorter transforms, the self-sorting passes of fft_sort.h for the rows
// of orders 13 to 15 and double 14, this code again for those of order 16.
//
// N = R NR, n = n2 + NR n1, k = k1 + R k2. The first pass runs R-point
// transforms across W positions n2 at a time (inputs NR apart, contiguous
// vectors), multiplies result k1 by w_N^(n2 k1) and stores it to row k1 of
// the work buffer. Each row is then an NR-point transform in place (its
// scratch is the destination aligned up, free by then: the source has been
// read whole; a row of order 13 takes its own work buffer from there too),
// and a last pass interleaves the rows: bin k1 + R k2 is element k2 of row
// k1.
// Every stream is read and written contiguously, so the source may be the
// destination. Longer orders, and the double kinds from order 15, keep the
// network.
#pragma once

// Included from the end of fft_small.h.

namespace zams::fft {

// Double order 14 runs this way too (rows of order 11); from order 15 the
// network is as fast for double.
template <class F> constexpr int big_min_order() { return sizeof(F) == 4 ? 13 : 14; }
template <class F> constexpr int big_max_order() { return sizeof(F) == 4 ? 16 : 14; }

template <class F, bool Inv> void big_fft(const F* src, F* dst, F* work, int M);

// w_N^(n2 k1) for n2 < N/R, 1 <= k1 < R, in the order the first pass reads
// it: W positions n2 at a time, R - 1 vectors of them (k1 = 1 .. R - 1).
template <class F, int M, int R> struct SplitTab {
    static constexpr int NR = (1 << M) / R, W = VT<F>::W;
    alignas(64) F w[2 * (R - 1) * NR];
    SplitTab() {
        const long long N = 1LL << M;
        for (long long g = 0; g < NR; g += W)
            for (long long k1 = 1; k1 < R; ++k1)
                for (long long l = 0; l < W; ++l)
                    put_w(w + 2 * ((R - 1) * g + (k1 - 1) * W + l), 2 * (((g + l) * k1) % N), N);
    }
};
template <class F, int M, int R> const F* split_tab() {
    static const SplitTab<F, M, R> t;
    return t.w;
}

template <class F, bool Inv, int M, int R> void split_fft_m(const F* src, F* dst, F* work) {
    using T = VT<F>;
    using V = typename T::V;
    constexpr int W = T::W, NR = (1 << M) / R, LR = ilog2(R);
    const SmallTabs<F>& tb = small_tabs<F>();
    const F* tw = split_tab<F, M, R>();
    for (int g = 0; g < NR; g += W) {
        V y[R];
        vdft<F, Inv, R>(src + 2 * g, NR / W, y, tb.root[LR], 1);
        T::store(work + 2 * g, y[0]);
#pragma GCC unroll 8
        for (int k1 = 1; k1 < R; ++k1) T::store(work + 2 * (k1 * NR + g), cmul_mem<F, Inv>(y[k1], tw + 2 * ((R - 1) * g + (k1 - 1) * W)));
    }
    // the rows' scratch: the destination, aligned (a row is 1/R of it)
    F* scratch = reinterpret_cast<F*>(align64(dst));
    for (int k1 = 0; k1 < R; ++k1) {
        F* row = work + 2 * k1 * NR;
        if constexpr (M - LR <= sort_max_order<F>()) sort_fft<F, Inv>(row, row, scratch, M - LR);
        else big_fft<F, Inv>(row, row, scratch, M - LR);
    }
    for (int k = 0; k < NR; k += W) {
#pragma GCC unroll 2
        for (int h = 0; h < R; h += W) {
            V v[W];
#pragma GCC unroll 4
            for (int j = 0; j < W; ++j) v[j] = T::load(work + 2 * ((h + j) * NR + k));
            transpose_w<F>(v);
#pragma GCC unroll 4
            for (int j = 0; j < W; ++j) T::store(dst + 2 * (R * (k + j) + h), v[j]);
        }
    }
}

// Float orders 13 to 16 and double order 14, through a work buffer of 2^M
// complex values.
template <class F, bool Inv> void big_fft(const F* src, F* dst, F* work, int M) {
    with_order<big_min_order<F>(), big_max_order<F>()>(M, [&]<int K>() { split_fft_m<F, Inv, K, 8>(src, dst, work); });
}

}  // namespace zams::fft
