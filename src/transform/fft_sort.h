// Complex transforms of float orders 7 to 16 and double orders 7 to 15:
// self-sorting passes of radix 4 to 64, natural order in and out, no bit
// reversal (double order 15 depth first, at the end of the file). Double
// precision runs them by decimation in frequency, float by decimation in
// time.
//
// Frequency (double). A pass sees s interleaved sequences of length
// n = N / s (sequence q holds the points q + s j). With m = n / R, it takes
// the R points j = p + r m (r < R) of every sequence, transforms them to b_k,
// and stores b_k w_n^(p k) at q + s (R p + k): the next pass sees R s
// sequences of length m. After the last pass (m = 1, no factors) bin k of
// the whole transform sits at k. The first pass (s = 1) runs its R-point
// transforms across W p at once (the lanes of a vector) and transposes
// groups of W results into place as it stores; its factors lie in reading
// order, one vector (w^(pk), w^((p+1)k), ...) a step. The later passes
// (dif_pass) run W sequences q at once, one factor w_N^(pks) broadcast to
// every lane.
//
// Time (float). Before a pass the data are N / Ns transforms of Ns points
// (Ns the product of the radices before it). For j < N/R with k = j mod Ns
// the pass takes the R points x_(j + r N/R), multiplies point r by
// w_(Ns R)^(r k) as it loads it, transforms them to b_r and stores b_r at
// (j - k) R + k + r Ns. Lanes run over W consecutive j: the first pass
// (Ns = 1) has no factors and transposes groups of W results into place, the
// later ones (Ns >= W) store whole vectors. A factor applied to a point in
// memory needs no shuffle: the loads duplicate the point's real and
// imaginary parts, and a w = re w + im (i w) with both w and i w from a table
// (three vector operations against four). In double precision the load that
// duplicates the imaginary parts would cross cache lines or shuffle, and the
// frequency passes are faster there.
//
// The R-point transforms are the straight-line ones of fft_small.h: a
// radix-8 transform is eight vectors, the register count of the 32-bit
// target, a radix-16 one sixteen, that of the 64-bit target. Passes
// alternate between the destination and the work buffer (2^M complex
// values); the last pass reads and writes the same positions, so it may run
// in place on the destination. The source is read only by the first pass,
// so it may be the destination. Radix-16 passes whose points lie 4 KB apart
// (double order 12) lose to four radix-8 passes on cache-set conflicts.
#pragma once

// Included from the end of fft_small.h (vdft, cmul_bc, cmul_mem, ilog2).

namespace zams::fft {

// Two vectors of two complex values to their transpose (the double first
// pass): lane l of v[j] out is lane j of v[l] in.
inline void transpose_w(__m256d* v) {
    const __m256d a = _mm256_permute2f128_pd(v[0], v[1], 0x20), b = _mm256_permute2f128_pd(v[0], v[1], 0x31);
    v[0] = a;
    v[1] = b;
}

// The transpose of four vectors of four complex values stored to y, row l
// (lane l of every vector) at y + l ys: 128-bit halves go out as they are,
// so no value crosses a lane in a register.
inline void store_transposed(float* y, int ys, const __m256* v) {
    const __m256d t0 = _mm256_unpacklo_pd(_mm256_castps_pd(v[0]), _mm256_castps_pd(v[1]));
    const __m256d t1 = _mm256_unpackhi_pd(_mm256_castps_pd(v[0]), _mm256_castps_pd(v[1]));
    const __m256d t2 = _mm256_unpacklo_pd(_mm256_castps_pd(v[2]), _mm256_castps_pd(v[3]));
    const __m256d t3 = _mm256_unpackhi_pd(_mm256_castps_pd(v[2]), _mm256_castps_pd(v[3]));
    double* z = reinterpret_cast<double*>(y);
    const int zs = ys / 2;
    _mm_storeu_pd(z, _mm256_castpd256_pd128(t0));
    _mm_storeu_pd(z + 2, _mm256_castpd256_pd128(t2));
    _mm_storeu_pd(z + zs, _mm256_castpd256_pd128(t1));
    _mm_storeu_pd(z + zs + 2, _mm256_castpd256_pd128(t3));
    _mm_storeu_pd(z + 2 * zs, _mm256_extractf128_pd(t0, 1));
    _mm_storeu_pd(z + 2 * zs + 2, _mm256_extractf128_pd(t2, 1));
    _mm_storeu_pd(z + 3 * zs, _mm256_extractf128_pd(t1, 1));
    _mm_storeu_pd(z + 3 * zs + 2, _mm256_extractf128_pd(t3, 1));
}

inline constexpr int kSortMinOrder = 7;
template <class F> constexpr int sort_max_order() { return sizeof(F) == 4 ? 16 : 14; }

// Radices of the passes of each order, float then double, first pass
// first (0 ends a list): the fastest of the splits timed on both targets.
// From order 13 the points of a pass lie 8 KB or more apart, and radix-16
// and radix-32 passes in the middle with radix 8 at the ends beat a radix-8
// pass in front of shorter transforms by 20-25%. Double order 15 runs depth
// first (depth_fft below): as passes over the whole transform, 16-32-8-8
// took 10% less time than the radix-4 network out of place on x86-64 but
// none on i386, and 10% more there in place. Double orders 9 and 10 end in
// one radix-64 pass, order 11 in a radix-32 one (rvdft_ld: its factors are
// real products, 10 vector operations a vector at radix 64 against 11 for
// two radix-8 passes with the factors between them): 6-10% less time at
// orders 9 and 10, 2-4% at 11. A first pass of radix 32 or 64 spills and
// loses on i386. The last pass stores its bins straight from the join
// (rvdft_st): 3-6% less time at orders 9 to 11 on either target. At order
// 11, 8-4-64 then took 1% less time than 8-8-32 on i386 but 4% more on
// x86-64, where its radix-64 pass stored 1.7 spilled vectors a vector
// more than the radix-32 one (callgrind, before rvdft_st).
inline constexpr int kSortRadix[17][2][4] = {
    {}, {}, {}, {}, {}, {}, {},
    {{4, 8, 4}, {4, 4, 8}},              // 7
    {{4, 8, 8}, {8, 4, 8}},              // 8
    {{8, 8, 8}, {8, 64}},                // 9
    {{16, 8, 8}, {16, 64}},              // 10
    {{8, 8, 8, 4}, {8, 8, 32}},          // 11
    {{8, 8, 8, 8}, {8, 8, 8, 8}},        // 12
    {{16, 8, 8, 8}, {16, 8, 8, 8}},      // 13
    {{8, 16, 16, 8}, {8, 16, 16, 8}},    // 14
    {{8, 16, 32, 8}, {}},                // 15 (float)
    {{8, 32, 32, 8}, {}},                // 16 (float)
};
template <class F> constexpr const int (&sort_radix(int M))[4] { return kSortRadix[M][sizeof(F) == 8]; }

// A frequency pass of radix R over s >= W interleaved sequences of
// length n = N / s (sequence q holds the points q + s j). With m = n / R it
// takes the R points j = p + r m of every sequence, transforms them to b_k
// and stores b_k w_N^(p k s) at q + s (R p + k): the next pass sees R s
// sequences of length m. It runs across W sequences at once with one
// factor broadcast to every lane, w_N^(p k s) = root[2 p k s]. With m = 1
// there are no factors, and x may be y: every position is read before it
// is written. With D > 1 the vector of position P (even) goes to D P
// instead (the last passes of the depth-first double transform).
template <class F, bool Inv, int R, int N, int s, int D = 1> void dif_pass(const F* x, F* y, const F* root) {
    using T = VT<F>;
    constexpr int W = T::W, m = N / (s * R), xs = s * m / W;
    const F* rt = small_tabs<F>().root[ilog2(R)];
    for (int q = 0; q < s; q += W) {
        if constexpr (sizeof(F) == 8 && R >= 32) {
            constexpr int S = 2 * W;
            rvdft_st<F, Inv, R>([x, q](int n) { return T::load(x + 2 * q + S * n * xs); },
                                [y, q](int k, typename T::V v) { T::store(y + 2 * D * (q + s * k), v); }, rt);
        } else {
            typename T::V c[R];
            pass_dft<F, Inv, R>(x + 2 * q, xs, c, rt);
#pragma GCC unroll 64
            for (int k = 0; k < R; ++k) T::store(y + 2 * D * (q + s * k), c[k]);
        }
    }
    for (int p = 1; p < m; ++p) {
        const F* w = root + 2 * p * s;
        for (int q = 0; q < s; q += W) {
            typename T::V c[R];
            pass_dft<F, Inv, R>(x + 2 * (q + s * p), xs, c, rt);
#pragma GCC unroll 64
            for (int k = 1; k < R; ++k) c[k] = cmul_bc<F, Inv>(c[k], w + 2 * p * s * (k - 1));
#pragma GCC unroll 64
            for (int k = 0; k < R; ++k) T::store(y + 2 * D * (q + s * (R * p + k)), c[k]);
        }
    }
}

// The frequency passes' factors: w_N^j for j < N, and the first pass's in
// reading order: W positions p at a time, R - 1 vectors of them
// (k = 1 .. R - 1).
template <class F, int M, int R = sort_radix<F>(M)[0]> struct DifFirstTab {
    static constexpr int N = 1 << M, W = VT<F>::W;
    alignas(32) F first[2 * (N / R) * (R - 1)];
    DifFirstTab() {
        for (long long p = 0; p < N / R; p += W)
            for (long long k = 1; k < R; ++k)
                for (long long l = 0; l < W; ++l) put_w(first + 2 * ((R - 1) * p + (k - 1) * W + l), 2 * (p + l) * k, N);
    }
};
template <class F, int M> struct DifTab : DifFirstTab<F, M> {
    alignas(32) F root[2 << M];
    DifTab() {
        for (long long j = 0; j < (1 << M); ++j) put_w(root + 2 * j, 2 * j, 1 << M);
    }
};
template <class F, int M, int R> const DifFirstTab<F, M, R>& dif_first_tab() {
    static const DifFirstTab<F, M, R> t;
    return t;
}
template <class F, int M> const DifTab<F, M>& dif_tab() {
    static const DifTab<F, M> t;
    return t;
}

// The first frequency pass of N points, radix R, x to y. With Blocks
// result k goes to the block of m = N / R values from k m on, point p at
// k m + (p + rot k) mod m. With rot = 0 those are the positions the pass
// read, so x may be y; out of place a rotation keeps the stores of the R
// blocks (64 KB apart at double order 15) out of one cache set.
template <class F, bool Inv, int R, int N, bool Blocks = false> void dif_first(const F* x, F* y, const F* tw, int rot = 0) {
    using T = VT<F>;
    constexpr int m = N / R, W = T::W;
    const F* rt = small_tabs<F>().root[ilog2(R)];
    for (int p = 0; p < m; p += W, tw += 2 * W * (R - 1)) {
        typename T::V c[R];
        pass_dft<F, Inv, R>(x + 2 * p, m / W, c, rt);
#pragma GCC unroll 32
        for (int k = 1; k < R; ++k) c[k] = cmul_mem<F, Inv>(c[k], tw + 2 * W * (k - 1));
        F* y0 = y + 2 * R * p;
        if constexpr (Blocks) {
#pragma GCC unroll 32
            for (int k = 0; k < R; ++k) T::store(y + 2 * (k * m + ((p + rot * k) & (m - 1))), c[k]);
        } else if constexpr (N >= 256 && N <= 1024) {
            // lane l of result k to y0 + 2 (R l + k) by 128-bit halves: no lane
            // crossing in a register (10-25% less time up to 1024 points,
            // more beyond, where the transposed vectors are faster)
#pragma GCC unroll 16
            for (int k = 0; k < R; ++k) {
                _mm_storeu_pd(y0 + 2 * k, _mm256_castpd256_pd128(c[k]));
                _mm_storeu_pd(y0 + 2 * (R + k), _mm256_extractf128_pd(c[k], 1));
            }
        } else {
#pragma GCC unroll 16
            for (int k = 0; k < R; k += W) {
                transpose_w(c + k);
#pragma GCC unroll 4
                for (int l = 0; l < W; ++l) T::store(y0 + 2 * (R * l + k), c[k + l]);
            }
        }
    }
}

// The time passes' factors: for every pass after the first, k-group g (W
// consecutive k) and r = 1 .. R - 1, the vector of w_(Ns R)^(r k) and the
// vector of i w_(Ns R)^(r k) = w_(Ns R)^(r k - Ns R / 4), or the first alone
// in the passes of half(i).
template <class F, int M> struct DitTab {
    static constexpr int N = 1 << M, W = VT<F>::W;
    static constexpr const int (&rad)[4] = sort_radix<F>(M);
    static constexpr int P = pass_count(rad);
    // A pass whose w and i w would take 16 KB or more keeps w alone and
    // forms i w by a shuffle (cmul_in_half): beside the source and the
    // destination the table then streams less through the 48 KB first-level
    // cache (float order 16: 1 MB of factors became 0.55 MB, 8-12% less
    // time; orders 11 to 15: 1-5%). Below that size the shuffle costs more
    // than the loads it saves (all passes of orders 9 and 10: 4% more).
    static constexpr bool half(int i) { return 16 * (rad[i] - 1) * pass_stride(rad, i) >= 16384; }
    static constexpr int parts(int i) { return half(i) ? 2 : 4; }  // floats a factor
    static constexpr int offset(int i) {  // of pass i's factors
        int o = 0;
        for (int j = 1; j < i; ++j) o += parts(j) * (rad[j] - 1) * pass_stride(rad, j);
        return o;
    }
    alignas(32) F w[offset(P)];
    DitTab() {
        for (int i = 1; i < P; ++i) {
            const long long Ns = pass_stride(rad, i), R = rad[i], n = Ns * R, V = parts(i) * W;
            F* t = w + offset(i);
            for (long long g = 0; g < Ns; g += W)
                for (long long r = 1; r < R; ++r, t += V)
                    for (long long l = 0; l < W; ++l) {
                        const long long e = (r * (g + l)) % n;
                        put_w(t + 2 * l, 2 * e, n);
                        if (!half(i)) put_w(t + 2 * W + 2 * l, (2 * e - n / 2 + 2 * n) % (2 * n), n);
                    }
        }
    }
};
template <class F, int M> const DitTab<F, M>& dit_tab() {
    static const DitTab<F, M> t;
    return t;
}

// a w (a conj(w) for the inverse), a at a, the vectors w and i w at wt:
// a w = re w + im (i w) and a conj(w) = re conj(w) - im conj(i w), the parts
// re and im of a duplicated by the loads.
template <bool Inv> inline __m256 cmul_in(const float* a, const float* wt) {
    const __m256 re = _mm256_moveldup_ps(_mm256_loadu_ps(a)), im = _mm256_movehdup_ps(_mm256_loadu_ps(a));
    __m256 w = _mm256_load_ps(wt), iw = _mm256_load_ps(wt + 8);
    if constexpr (Inv) {
        const __m256 sg = VT<float>::imsign();
        return _mm256_sub_ps(_mm256_mul_ps(re, _mm256_xor_ps(w, sg)), _mm256_mul_ps(im, _mm256_xor_ps(iw, sg)));
    }
    return _mm256_add_ps(_mm256_mul_ps(re, w), _mm256_mul_ps(im, iw));
}

// The same product with w alone at wt: i w = (-im w, re w) by a shuffle, so
// the table is half the size (a shuffle a product more) and the bits are
// those of cmul_in: a w = re w - im (im w, re w) in the real lanes and
// re w + im (im w, re w) in the imaginary ones. Only a zero result may take
// the other sign (the table's i w at a quarter turn, evaluated on its own,
// has zero parts of its own signs).
template <bool Inv> inline __m256 cmul_in_half(const float* a, const float* wt) {
    const __m256 re = _mm256_moveldup_ps(_mm256_loadu_ps(a)), im = _mm256_movehdup_ps(_mm256_loadu_ps(a));
    const __m256 w = _mm256_load_ps(wt), sw = VT<float>::swap(w);
    if constexpr (Inv) {
        // conj(i w) = -(im w, re w)
        const __m256 sg = VT<float>::imsign();
        return _mm256_sub_ps(_mm256_mul_ps(re, _mm256_xor_ps(w, sg)), _mm256_mul_ps(im, _mm256_xor_ps(sw, VT<float>::allsign())));
    }
    return _mm256_addsub_ps(_mm256_mul_ps(re, w), _mm256_mul_ps(im, sw));
}

// The first time pass of N points, radix R, x to y.
template <bool Inv, int R, int N> void dit_first(const float* x, float* y) {
    constexpr int m = N / R, W = 4;
    const float* rt = small_tabs<float>().root[ilog2(R)];
    for (int j = 0; j < m; j += W) {
        __m256 c[R];
        // Radix 8 by real products (rvdft_ld): the same vector operations
        // as vdft, 2-4% less time on i386 at orders 11 and 12, none lost on
        // x86-64.
        if constexpr (R == 8) rvdft_ld<float, Inv, R>([x, j](int n) { return _mm256_loadu_ps(x + 2 * (j + n * m)); }, c, rt);
        else vdft<float, Inv, R>(x + 2 * j, m / W, c, rt, 1);
#pragma GCC unroll 16
        for (int k = 0; k < R; k += W) store_transposed(y + 2 * (R * j + k), 2 * R, c + k);
    }
}

// A later time pass of radix R (Ns >= W), its factors at tw, x to y.
// With Half, the factors are w alone (cmul_in_half).
template <bool Inv, int R, int N, int Ns, bool Half = false> void dit_pass(const float* x, float* y, const float* tw) {
    constexpr int W = 4, m = N / R, V = (Half ? 2 : 4) * W, TS = V * (R - 1);  // factors a k-group
    const float* rt = small_tabs<float>().root[ilog2(R)];
    for (int jb = 0; jb < m; jb += Ns) {
        const float* t = tw;
        for (int k = 0; k < Ns; k += W, t += TS) {
            const float* xj = x + 2 * (jb + k);
            __m256 c[R];
            vdft_ld<float, Inv, R>(
                [xj, t](int r) {
                    if (r == 0) return _mm256_loadu_ps(xj);
                    if constexpr (Half) return cmul_in_half<Inv>(xj + 2 * r * m, t + V * (r - 1));
                    else return cmul_in<Inv>(xj + 2 * r * m, t + V * (r - 1));
                },
                0, 1, c, rt, 1);
            float* yk = y + 2 * (jb * R + k);
#pragma GCC unroll 64
            for (int r = 0; r < R; ++r) _mm256_storeu_ps(yk + 2 * r * Ns, c[r]);
        }
    }
}

// Double order 15 (512 KB of points), depth first. Passes over the whole
// transform in turn lose here to the cache sets and the second-level
// cache (source, destination, work buffer and factors together); so two
// passes sweep the whole transform and the three between them run block by
// block. The first pass (radix R, factors w_N^(pk)) leaves result k as a
// block of N / R points in the destination (dif_first with Blocks; in
// place when the source is the destination). The blocks then run in pairs
// k, k + 1 (k even), the two sequences in the two lanes of a vector: the
// first block pass loads point j of both by halves and stores them
// interleaved in the work buffer (dif_pass_halves), the next ones are
// frequency passes within the pair's part of the destination and the
// work buffer, ending in the work buffer. There bin b of sequence k lies at
// position k + 2 b of its pair, which is bin k + R b of the whole
// transform: the last passes (dif_last_blocks) run once every pair is done,
// as the destination held the pairs in between. 8-8-8-8-8 took 14-19% less
// time than the radix-4 network on x86-64, 3-7% less out of place on i386
// and 1-2% more in place there; the lists with radix 16 spill on i386 and
// those with radix 4 run more passes (both slower).
inline constexpr int kDepthOrder = 15;
inline constexpr int kDepthRadix[] = {8, 8, 8, 8, 8};  // first pass, block passes, last pass
inline constexpr int kDepthPasses = sizeof(kDepthRadix) / sizeof(int);
constexpr int depth_stride(int i) {  // sequences a block pass i sees
    int s = 2;
    for (int j = 1; j < i; ++j) s *= kDepthRadix[j];
    return s;
}

// The last passes (radix R, no factors) of NB pairs of B values each: the
// vector of pair j at position P goes to y + 2 (2 j + NB P). The pairs run
// in the inner loop, so the stores fill the destination in order, and each
// pair runs two positions q in turn, which use the whole cache lines of its
// loads (all loads lie a multiple of 4 KB apart, in one cache set).
template <bool Inv, int R, int B, int s, int NB> void dif_last_blocks(const double* x, double* y) {
    constexpr int W = 2;
    const double* rt = small_tabs<double>().root[ilog2(R)];
    for (int q0 = 0; q0 < s; q0 += 2 * W)
        for (int j = 0; j < NB; ++j)
            for (int q = q0; q < q0 + 2 * W; q += W) {
                __m256d c[R];
                vdft<double, Inv, R>(x + 2 * (B * j + q), s / W, c, rt, 1);
#pragma GCC unroll 64
                for (int k = 0; k < R; ++k) _mm256_storeu_pd(y + 2 * (2 * j + NB * (q + s * k)), c[k]);
            }
}

// The first block pass, radix R: the sequences k and k + 1 (k even) of n
// points each lie one after the other from x; point j of the two is loaded
// as one vector by its 128-bit halves, and the results go to y as dif_pass
// with s = 2 stores them: the two sequences interleaved from then on.
// Point j of the first sequence lies at (j + r0) mod n, of the second at
// n + (j + r1) mod n (the rotations of dif_first).
template <bool Inv, int R, int n> void dif_pass_halves(const double* x, double* y, const double* root, int r0, int r1) {
    constexpr int m = n / R;
    const double* rt = small_tabs<double>().root[ilog2(R)];
    for (int p = 0; p < m; ++p) {
        __m256d c[R];
        vdft_ld<double, Inv, R>(
            [x, p, r0, r1](int r) {
                const double* a = x + 2 * ((p + m * r + r0) & (n - 1));
                const double* b = x + 2 * (n + ((p + m * r + r1) & (n - 1)));
                return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(a)), _mm_loadu_pd(b), 1);
            },
            0, 1, c, rt, 1);
        if (p) {
#pragma GCC unroll 64
            for (int k = 1; k < R; ++k) c[k] = cmul_bc<double, Inv>(c[k], root + 4 * p * k);
        }
#pragma GCC unroll 64
        for (int k = 0; k < R; ++k) _mm256_storeu_pd(y + 4 * (R * p + k), c[k]);
    }
}

template <bool Inv> void depth_fft(const double* src, double* dst, double* work) {
    constexpr int M = kDepthOrder, P = kDepthPasses, N = 1 << M, R = kDepthRadix[0], B = 2 * N / R;
    static_assert(depth_stride(P) / 2 * R == N, "the radices multiply to N");
    static_assert((P - 2) & 1, "the block passes end in the work buffer");
    const double* first = dif_first_tab<double, M, R>().first;
    const double* root = dif_tab<double, ilog2(B)>().root;
    const int rot = src == dst ? 0 : 4;
    dif_first<double, Inv, R, N, true>(src, dst, first, rot);
    for (int b = 0, k = 0; b < N; b += B, k += 2) {
        double *x = work + 2 * b, *y = dst + 2 * b;
        dif_pass_halves<Inv, kDepthRadix[1], B / 2>(y, x, root, rot * k, rot * (k + 1));
        [&]<int... I>(std::integer_sequence<int, I...>) {
            ([&] {
                dif_pass<double, Inv, kDepthRadix[I + 2], B, depth_stride(I + 2)>(x, y, root);
                std::swap(x, y);
            }(), ...);
        }(std::make_integer_sequence<int, P - 3>{});
    }
    dif_last_blocks<Inv, kDepthRadix[P - 1], B, depth_stride(P - 1), R / 2>(work, dst);
}

// Through first_out and later_passes of fft_small.h.
template <class F, bool Inv, int M> void sort_fft_m(const F* src, F* dst, F* work) {
    constexpr int N = 1 << M;
    constexpr const int(&rad)[4] = sort_radix<F>(M);
    constexpr int P = pass_count(rad);
    F* x = first_out<P>(src, dst, work);
    if constexpr (sizeof(F) == 4) {
        using Tab = DitTab<F, M>;
        const Tab& tb = dit_tab<F, M>();
        dit_first<Inv, rad[0], N>(src, x);
        later_passes<P>(x, dst, work, [&]<int I>(const F* in, F* out) {
            dit_pass<Inv, rad[I], N, pass_stride(rad, I), Tab::half(I)>(in, out, tb.w + Tab::offset(I));
        });
    } else {
        const DifTab<F, M>& tb = dif_tab<F, M>();
        dif_first<F, Inv, rad[0], N>(src, x, tb.first);
        later_passes<P>(x, dst, work, [&]<int I>(const F* in, F* out) {
            dif_pass<F, Inv, rad[I], N, pass_stride(rad, I)>(in, out, tb.root);
        });
    }
}

// Orders kSortMinOrder to sort_max_order<F>(); src may be dst, work holds
// 2^M complex values.
template <class F, bool Inv> void sort_fft(const F* src, F* dst, F* work, int M) {
    with_order<kSortMinOrder, sort_max_order<F>()>(M, [&]<int K>() { sort_fft_m<F, Inv, K>(src, dst, work); });
}

}  // namespace zams::fft
