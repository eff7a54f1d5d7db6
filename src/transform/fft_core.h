// Power-of-two complex FFT: spec header layout, table builders and kernels
// shared by the complex and real transforms.
//
// Interleaved transforms of orders 2 to 6 run straight-line code
// (fft_small.h), float orders 7 to 16 and double orders 7 to 15
// self-sorting passes of radix 4 to 64 (fft_sort.h), natural order in and
// out. The split kinds, orders 0 and 1 and the longer orders run the network
// below.
//
// The network is a decimation-in-time one on bit-reversed input: a
// first pass reads the source in bit-reversed order and runs the twiddle-free
// radix-4 (even orders) or radix-8 (odd orders) butterflies, then radix-4
// passes of span L = 4, 16, ... (even) or 8, 32, ... (odd) finish it in place.
// Passes whose blocks fit the first-level cache run block by block.
//
// Stage tables: for span L the three runs T1[j] = w^j, T2[j] = w^2j,
// T3[j] = w^3j (j < L, w = exp(-2 pi i / 4L)) lie one after another, at
// entry L - 4 (even chain) or L - 8 (odd chain). Large orders keep the
// table of an inner order only and take the outer passes' twiddles from a
// table of w_N^m, m < N/2.
#pragma once

#include <immintrin.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "../common/ids.h"
#include "../common/simd.h"
#include "../common/spec.h"
#include "../common/num/bits.h"
#include "../common/trig.h"
#include "zams.h"
#include "zams_impl.h"

namespace zams::fft {

// Identifier words of the kinds.
enum : int32_t {
    kIdC32fc = id::FftC32fc, kIdC32f = id::FftC32f, kIdR32f = id::FftR32f,
    kIdC64fc = id::FftC64fc, kIdC64f = id::FftC64f, kIdR64f = id::FftR64f
};

// Spec header: 84 bytes for float kinds, 88 for double. Tables are referred
// to by byte offsets from the header start, one layout for both targets.
template <class F> struct Hdr {
    int32_t id, order, fwdOn, invOn;
    F scale;
    int32_t hint, work, owned;
    uint32_t offRev, offTw, offRecomb, offCcs;
    uint32_t offTop;     // large orders: w_N^m, m < N/2 (0 otherwise)
    uint32_t tabOrder;   // order of the stage table at offTw
    uint32_t offCoarse;  // real kinds from order 18: coarse recombination factors
    uint32_t pad[6];
};
static_assert(sizeof(Hdr<float>) == 84 && sizeof(Hdr<double>) == 88);


// Complex orders at and above which the blocked large layout is used.
template <class F> constexpr int large_threshold(bool real) { return (sizeof(F) == 4 && !real) ? 19 : 18; }
// Real orders from which the recombination factors are coarse x fine.
inline constexpr int kRealSplitOrder = 18;
template <class F> constexpr int fine_bits() { return sizeof(F) == 4 ? 11 : 10; }  // 16 KB of factors

// Everything a transform of order M needs, resolved from a header.
template <class F> struct Plan {
    int M;
    const F* tab;       // stage table (interleaved complex)
    int tabOrder;       // passes with 4L <= 2^tabOrder read it
    const F* top;       // w_N^m, m < N/2, or null
    const uint32_t* rev;  // bit reversal of the first-pass groups, or null
};

// Calls fn.template operator()<K>() for the K in [Lo, Hi] equal to M: the
// one place a run-time order picks a transform compiled for its size.
template <int Lo, int Hi, class Fn> inline void with_order(int M, Fn&& fn) {
    [&]<int... I>(std::integer_sequence<int, I...>) {
        (void)((M == Lo + I && (fn.template operator()<Lo + I>(), true)) || ...);
    }(std::make_integer_sequence<int, Hi - Lo + 1>{});
}

// ---------------------------------------------------------------- AVX ops --
template <class F> struct VT;
template <> struct VT<float> : Avx<float> {
    static constexpr int W = 4;  // complex values a vector
    static V imsign() { return _mm256_castsi256_ps(_mm256_set_epi32(INT32_MIN, 0, INT32_MIN, 0, INT32_MIN, 0, INT32_MIN, 0)); }
    static V allsign() { return _mm256_set1_ps(-0.0f); }
};
template <> struct VT<double> : Avx<double> {
    static constexpr int W = 2;
    static V imsign() { return _mm256_castsi256_pd(_mm256_set_epi64x(INT64_MIN, 0, INT64_MIN, 0)); }
    static V allsign() { return _mm256_set1_pd(-0.0); }
};

// a * w, or a * conj(w) for the inverse.
template <class F, bool Inv> inline typename VT<F>::V cmul(typename VT<F>::V a, typename VT<F>::V w) {
    using T = VT<F>;
    auto wi = T::dup_im(w);
    if constexpr (Inv) wi = T::xor_(wi, T::allsign());
    return T::addsub(T::mul(a, T::dup_re(w)), T::mul(T::swap(a), wi));
}

// -i * c = (c.im, -c.re).
template <class F> inline typename VT<F>::V mul_negi(typename VT<F>::V c) {
    return VT<F>::xor_(VT<F>::swap(c), VT<F>::imsign());
}

// One run of radix-4 butterflies: cnt positions (a multiple of the vector
// width) starting at p in quarter 0 of a block of span L.
template <class F, bool Inv>
inline void r4_run(F* p, size_t L, const F* t1, const F* t2, const F* t3, size_t cnt) {
    using T = VT<F>;
    F* q1 = p + 2 * L;
    F* q2 = p + 4 * L;
    F* q3 = p + 6 * L;
    for (size_t i = 0; i < 2 * cnt; i += 2 * T::W) {
        auto a0 = T::load(p + i);
        auto a1 = cmul<F, Inv>(T::load(q1 + i), T::load(t2 + i));
        auto a2 = cmul<F, Inv>(T::load(q2 + i), T::load(t1 + i));
        auto a3 = cmul<F, Inv>(T::load(q3 + i), T::load(t3 + i));
        auto c0 = T::add(a0, a1), c1 = T::sub(a0, a1);
        auto c2 = T::add(a2, a3), t = mul_negi<F>(T::sub(a2, a3));
        T::store(p + i, T::add(c0, c2));
        T::store(q2 + i, T::sub(c0, c2));
        if constexpr (Inv) {
            T::store(q1 + i, T::sub(c1, t));
            T::store(q3 + i, T::add(c1, t));
        } else {
            T::store(q1 + i, T::add(c1, t));
            T::store(q3 + i, T::sub(c1, t));
        }
    }
}

// ----------------------------------------------------------- bit reversal --
inline constexpr struct RevByte {
    uint8_t v[256];
    constexpr RevByte() : v() {
        for (int i = 0; i < 256; ++i) {
            int r = 0;
            for (int b = 0; b < 8; ++b) r |= ((i >> b) & 1) << (7 - b);
            v[i] = static_cast<uint8_t>(r);
        }
    }
} kRevByte;

inline uint32_t rev_bits(uint32_t x, int bits) {
    if (bits <= 0) return 0;
    uint32_t r = (uint32_t(kRevByte.v[x & 255]) << 24) | (uint32_t(kRevByte.v[(x >> 8) & 255]) << 16) |
                 (uint32_t(kRevByte.v[(x >> 16) & 255]) << 8) | uint32_t(kRevByte.v[x >> 24]);
    return r >> (32 - bits);
}

// ------------------------------------------------------------ first pass --
// Source access: interleaved (re, im) or split arrays.
template <class F> struct Interleaved {
    const F* p;
    void get(size_t i, F& r, F& m) const { r = p[2 * i]; m = p[2 * i + 1]; }
};
template <class F> struct Split {
    const F* re;
    const F* im;
    void get(size_t i, F& r, F& m) const { r = re[i]; m = im[i]; }
};

// Vector form of the even-order first pass: W groups at once, lanes
// gathered from the bit-reversed positions, outputs transposed so each
// group's four results are stored together.
template <class F> struct FirstVec;
template <> struct FirstVec<float> {
    static constexpr size_t W = 4;
    static __m256 gather(const float* p, const size_t* at) {
        __m128d lo = _mm_loadh_pd(_mm_load_sd(reinterpret_cast<const double*>(p + 2 * at[0])), reinterpret_cast<const double*>(p + 2 * at[1]));
        __m128d hi = _mm_loadh_pd(_mm_load_sd(reinterpret_cast<const double*>(p + 2 * at[2])), reinterpret_cast<const double*>(p + 2 * at[3]));
        return _mm256_castpd_ps(_mm256_insertf128_pd(_mm256_castpd128_pd256(lo), hi, 1));
    }
    // 4 x 4 transpose of complex values: (y0..y3)[l] -> out[l]
    static void transpose(__m256& a, __m256& b, __m256& c, __m256& d) {
        __m256d t0 = _mm256_unpacklo_pd(_mm256_castps_pd(a), _mm256_castps_pd(b));
        __m256d t1 = _mm256_unpackhi_pd(_mm256_castps_pd(a), _mm256_castps_pd(b));
        __m256d t2 = _mm256_unpacklo_pd(_mm256_castps_pd(c), _mm256_castps_pd(d));
        __m256d t3 = _mm256_unpackhi_pd(_mm256_castps_pd(c), _mm256_castps_pd(d));
        a = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x20));
        b = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x20));
        c = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x31));
        d = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x31));
    }
    static void store(float* y, __m256 a, __m256 b, __m256 c, __m256 d) {
        transpose(a, b, c, d);
        _mm256_storeu_ps(y, a);
        _mm256_storeu_ps(y + 8, b);
        _mm256_storeu_ps(y + 16, c);
        _mm256_storeu_ps(y + 24, d);
    }
    // eight outputs a group: two transposes, rows 16 floats apart
    static void store2(float* y, const __m256* o) {
        __m256 a = o[0], b = o[1], c = o[2], d = o[3], e = o[4], f = o[5], g = o[6], h = o[7];
        transpose(a, b, c, d);
        transpose(e, f, g, h);
        _mm256_storeu_ps(y, a); _mm256_storeu_ps(y + 8, e);
        _mm256_storeu_ps(y + 16, b); _mm256_storeu_ps(y + 24, f);
        _mm256_storeu_ps(y + 32, c); _mm256_storeu_ps(y + 40, g);
        _mm256_storeu_ps(y + 48, d); _mm256_storeu_ps(y + 56, h);
    }
    static void load2(const float* y, __m256* x) {
        x[0] = _mm256_loadu_ps(y); x[4] = _mm256_loadu_ps(y + 8);
        x[1] = _mm256_loadu_ps(y + 16); x[5] = _mm256_loadu_ps(y + 24);
        x[2] = _mm256_loadu_ps(y + 32); x[6] = _mm256_loadu_ps(y + 40);
        x[3] = _mm256_loadu_ps(y + 48); x[7] = _mm256_loadu_ps(y + 56);
        transpose(x[0], x[1], x[2], x[3]);
        transpose(x[4], x[5], x[6], x[7]);
    }
    static void load(const float* y, __m256& a, __m256& b, __m256& c, __m256& d) {
        a = _mm256_loadu_ps(y); b = _mm256_loadu_ps(y + 8); c = _mm256_loadu_ps(y + 16); d = _mm256_loadu_ps(y + 24);
        transpose(a, b, c, d);
    }
};
template <> struct FirstVec<double> {
    static constexpr size_t W = 2;
    static __m256d gather(const double* p, const size_t* at) {
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p + 2 * at[0])), _mm_loadu_pd(p + 2 * at[1]), 1);
    }
    static void store(double* y, __m256d a, __m256d b, __m256d c, __m256d d) {
        _mm256_storeu_pd(y, _mm256_permute2f128_pd(a, b, 0x20));
        _mm256_storeu_pd(y + 4, _mm256_permute2f128_pd(c, d, 0x20));
        _mm256_storeu_pd(y + 8, _mm256_permute2f128_pd(a, b, 0x31));
        _mm256_storeu_pd(y + 12, _mm256_permute2f128_pd(c, d, 0x31));
    }
    static void store2(double* y, const __m256d* o) {
        for (int k = 0; k < 4; ++k) {
            _mm256_storeu_pd(y + 4 * k, _mm256_permute2f128_pd(o[2 * k], o[2 * k + 1], 0x20));
            _mm256_storeu_pd(y + 16 + 4 * k, _mm256_permute2f128_pd(o[2 * k], o[2 * k + 1], 0x31));
        }
    }
    static void load2(const double* y, __m256d* x) {
        for (int k = 0; k < 4; ++k) {
            __m256d u = _mm256_loadu_pd(y + 4 * k), v = _mm256_loadu_pd(y + 16 + 4 * k);
            x[2 * k] = _mm256_permute2f128_pd(u, v, 0x20);
            x[2 * k + 1] = _mm256_permute2f128_pd(u, v, 0x31);
        }
    }
    static void load(const double* y, __m256d& a, __m256d& b, __m256d& c, __m256d& d) {
        __m256d u0 = _mm256_loadu_pd(y), u1 = _mm256_loadu_pd(y + 4), u2 = _mm256_loadu_pd(y + 8), u3 = _mm256_loadu_pd(y + 12);
        a = _mm256_permute2f128_pd(u0, u2, 0x20);
        b = _mm256_permute2f128_pd(u0, u2, 0x31);
        c = _mm256_permute2f128_pd(u1, u3, 0x20);
        d = _mm256_permute2f128_pd(u1, u3, 0x31);
    }
};

// Groups [g0, g0 + k W) of the even-order first pass; returns the next group.
template <class F, bool Inv, bool Permuted, class Src>
size_t first_pass_vec(const Src& src, F* d, int M, size_t g0, size_t g1, const uint32_t* rev) {
    using T = VT<F>;
    using FV = FirstVec<F>;
    constexpr size_t W = FV::W;
    const size_t Q = (size_t(1) << M) / 4;
    size_t g = g0;
    for (; g + W <= g1; g += W) {
        typename T::V a0, a1, a2, a3;
        F* y = d + 8 * g;
        if constexpr (Permuted) {
            FV::load(y, a0, a1, a2, a3);
        } else {
            size_t at[W];
            for (size_t l = 0; l < W; ++l) at[l] = rev ? rev[g + l] : rev_bits(uint32_t(g + l), M - 2);
            a0 = FV::gather(src.p, at);
            for (size_t l = 0; l < W; ++l) at[l] += 2 * Q;
            a1 = FV::gather(src.p, at);
            for (size_t l = 0; l < W; ++l) at[l] -= Q;
            a2 = FV::gather(src.p, at);
            for (size_t l = 0; l < W; ++l) at[l] += 2 * Q;
            a3 = FV::gather(src.p, at);
        }
        const auto c0 = T::add(a0, a1), c1 = T::sub(a0, a1), c2 = T::add(a2, a3);
        const auto t = mul_negi<F>(T::sub(a2, a3));
        const auto y0 = T::add(c0, c2), y2 = T::sub(c0, c2);
        const auto y1 = Inv ? T::sub(c1, t) : T::add(c1, t);
        const auto y3 = Inv ? T::add(c1, t) : T::sub(c1, t);
        FV::store(y, y0, y1, y2, y3);
    }
    return g;
}

// Vector form of the odd-order first pass (radix 2, then radix 4 of span 2).
template <class F> inline typename VT<F>::V blend_re_im(typename VT<F>::V re_from, typename VT<F>::V im_from) {
    if constexpr (sizeof(F) == 4) return _mm256_blend_ps(re_from, im_from, 0xAA);
    else return _mm256_blend_pd(re_from, im_from, 0xA);
}

template <class F, bool Inv, bool Permuted, class Src>
size_t first_pass_vec8(const Src& src, F* d, int M, size_t g0, size_t g1, const uint32_t* rev) {
    using T = VT<F>;
    using FV = FirstVec<F>;
    constexpr size_t W = FV::W;
    const size_t E = (size_t(1) << M) / 8;
    static constexpr int kRev3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    const auto h = T::set1(F(0.70710678118654752440));
    size_t g = g0;
    for (; g + W <= g1; g += W) {
        typename T::V x[8];
        F* y = d + 16 * g;
        if constexpr (Permuted) {
            FV::load2(y, x);
        } else {
            size_t r[W], at[W];
            for (size_t l = 0; l < W; ++l) r[l] = rev ? rev[g + l] : rev_bits(uint32_t(g + l), M - 3);
            for (int q = 0; q < 8; ++q) {
                for (size_t l = 0; l < W; ++l) at[l] = r[l] + size_t(kRev3[q]) * E;
                x[q] = FV::gather(src.p, at);
            }
        }
        typename T::V b[8];
        for (int k = 0; k < 4; ++k) {
            b[2 * k] = T::add(x[2 * k], x[2 * k + 1]);
            b[2 * k + 1] = T::sub(x[2 * k], x[2 * k + 1]);
        }
        typename T::V o[8];
        for (int j = 0; j < 2; ++j) {
            auto a0 = b[j], a1 = b[2 + j], a2 = b[4 + j], a3 = b[6 + j];
            if (j == 1) {
                a1 = mul_negi<F>(a1);
                if constexpr (Inv) a1 = T::xor_(a1, T::allsign());
                const auto s2 = T::swap(a2), s3 = T::swap(a3);
                const auto p2 = T::add(a2, s2), m2 = T::sub(a2, s2);
                const auto p3 = T::add(a3, s3), n3 = T::sub(s3, a3);
                if constexpr (Inv) {
                    a2 = T::mul(blend_re_im<F>(m2, p2), h);
                    a3 = T::mul(blend_re_im<F>(T::xor_(p3, T::allsign()), n3), h);
                } else {
                    a2 = T::mul(blend_re_im<F>(p2, m2), h);
                    a3 = T::mul(blend_re_im<F>(n3, T::xor_(p3, T::allsign())), h);
                }
            }
            const auto c0 = T::add(a0, a1), c1 = T::sub(a0, a1), c2 = T::add(a2, a3);
            const auto t = mul_negi<F>(T::sub(a2, a3));
            o[j] = T::add(c0, c2);
            o[4 + j] = T::sub(c0, c2);
            o[2 + j] = Inv ? T::sub(c1, t) : T::add(c1, t);
            o[6 + j] = Inv ? T::add(c1, t) : T::sub(c1, t);
        }
        FV::store2(y, o);
    }
    return g;
}

// Groups [g0, g1) of the first pass. With Permuted the destination already
// holds the bit-reversed input (in-place large orders) and is read in place.
template <class F, bool Inv, bool Permuted, class Src>
void first_pass(const Src& src, F* d, int M, size_t g0, size_t g1, const uint32_t* rev) {
    const size_t N = size_t(1) << M;
    if (M == 0) {
        if constexpr (!Permuted) src.get(0, d[0], d[1]);
        return;
    }
    if (M == 1) {
        F ar, ai, br, bi;
        if constexpr (Permuted) { ar = d[0]; ai = d[1]; br = d[2]; bi = d[3]; }
        else { src.get(0, ar, ai); src.get(1, br, bi); }
        d[0] = ar + br; d[1] = ai + bi; d[2] = ar - br; d[3] = ai - bi;
        return;
    }
    if ((M & 1) == 0) {
        const size_t Q = N / 4;
        if constexpr (std::is_same_v<Src, Interleaved<F>>) g0 = first_pass_vec<F, Inv, Permuted>(src, d, M, g0, g1, rev);
        for (size_t g = g0; g < g1; ++g) {
            F* y = d + 8 * g;
            F a0r, a0i, a1r, a1i, a2r, a2i, a3r, a3i;
            if constexpr (Permuted) {
                a0r = y[0]; a0i = y[1]; a1r = y[2]; a1i = y[3]; a2r = y[4]; a2i = y[5]; a3r = y[6]; a3i = y[7];
            } else {
                size_t r = rev ? rev[g] : rev_bits(uint32_t(g), M - 2);
                src.get(r, a0r, a0i); src.get(r + 2 * Q, a1r, a1i);
                src.get(r + Q, a2r, a2i); src.get(r + 3 * Q, a3r, a3i);
            }
            F c0r = a0r + a1r, c0i = a0i + a1i, c1r = a0r - a1r, c1i = a0i - a1i;
            F c2r = a2r + a3r, c2i = a2i + a3i, c3r = a2r - a3r, c3i = a2i - a3i;
            // t = -i * c3 = (c3i, -c3r)
            F tr = c3i, ti = -c3r;
            if constexpr (Inv) { tr = -tr; ti = -ti; }
            y[0] = c0r + c2r; y[1] = c0i + c2i;
            y[4] = c0r - c2r; y[5] = c0i - c2i;
            y[2] = c1r + tr; y[3] = c1i + ti;
            y[6] = c1r - tr; y[7] = c1i - ti;
        }
        return;
    }
    // Odd order: radix-2 pairs, then a radix-4 pass of span 2 (radix 8).
    const size_t E = N / 8;
    const F h = F(0.70710678118654752440);
    if constexpr (std::is_same_v<Src, Interleaved<F>>) g0 = first_pass_vec8<F, Inv, Permuted>(src, d, M, g0, g1, rev);
    for (size_t g = g0; g < g1; ++g) {
        F* y = d + 16 * g;
        F xr[8], xi[8];
        if constexpr (Permuted) {
            for (int q = 0; q < 8; ++q) { xr[q] = y[2 * q]; xi[q] = y[2 * q + 1]; }
        } else {
            size_t r = rev ? rev[g] : rev_bits(uint32_t(g), M - 3);
            static constexpr int kRev3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
            for (int q = 0; q < 8; ++q) src.get(r + kRev3[q] * E, xr[q], xi[q]);
        }
        // radix 2: b[2k] = x[2k] + x[2k+1], b[2k+1] = x[2k] - x[2k+1]
        F br[8], bi[8];
        for (int k = 0; k < 4; ++k) {
            br[2 * k] = xr[2 * k] + xr[2 * k + 1]; bi[2 * k] = xi[2 * k] + xi[2 * k + 1];
            br[2 * k + 1] = xr[2 * k] - xr[2 * k + 1]; bi[2 * k + 1] = xi[2 * k] - xi[2 * k + 1];
        }
        // span 2, j = 0: quarters b0, b2, b4, b6 with w = 1
        // span 2, j = 1: b1, b3, b5, b7 with w = w_8, w^2 = -i, w^3
        for (int j = 0; j < 2; ++j) {
            F a0r = br[j], a0i = bi[j], a1r = br[2 + j], a1i = bi[2 + j];
            F a2r = br[4 + j], a2i = bi[4 + j], a3r = br[6 + j], a3i = bi[6 + j];
            if (j == 1) {
                // a1 *= w^2 = -i (forward) or +i (inverse)
                F t1r = a1i, t1i = -a1r;
                if constexpr (Inv) { t1r = -t1r; t1i = -t1i; }
                a1r = t1r; a1i = t1i;
                // a2 *= w = h(1 - i) (forward) or h(1 + i)
                // a3 *= w^3 = h(-1 - i) (forward) or h(-1 + i)
                F s2r, s2i, s3r, s3i;
                if constexpr (Inv) {
                    s2r = (a2r - a2i) * h; s2i = (a2r + a2i) * h;
                    s3r = (-a3r - a3i) * h; s3i = (a3r - a3i) * h;
                } else {
                    s2r = (a2r + a2i) * h; s2i = (a2i - a2r) * h;
                    s3r = (a3i - a3r) * h; s3i = (-a3r - a3i) * h;
                }
                a2r = s2r; a2i = s2i; a3r = s3r; a3i = s3i;
            }
            F c0r = a0r + a1r, c0i = a0i + a1i, c1r = a0r - a1r, c1i = a0i - a1i;
            F c2r = a2r + a3r, c2i = a2i + a3i, c3r = a2r - a3r, c3i = a2i - a3i;
            F tr = c3i, ti = -c3r;
            if constexpr (Inv) { tr = -tr; ti = -ti; }
            y[2 * j] = c0r + c2r; y[2 * j + 1] = c0i + c2i;
            y[2 * j + 8] = c0r - c2r; y[2 * j + 9] = c0i - c2i;
            y[2 * j + 4] = c1r + tr; y[2 * j + 5] = c1i + ti;
            y[2 * j + 12] = c1r - tr; y[2 * j + 13] = c1i - ti;
        }
    }
}

// --------------------------------------------------------------- passes --
template <class F> constexpr size_t block_points() { return sizeof(F) == 4 ? 2048 : 1024; }

// One radix-4 pass of span L over the points [base, base + len) (a multiple
// of 4L), twiddles from the stage table or the large table.
template <class F, bool Inv> void pass(F* a, size_t base, size_t len, size_t L, const Plan<F>& pl) {
    const size_t first = (pl.M & 1) ? 8 : 4;
    if ((4 * L) <= (size_t(1) << pl.tabOrder)) {
        const F* t1 = pl.tab + 2 * (L - first);
        for (size_t b = base; b < base + len; b += 4 * L) r4_run<F, Inv>(a + 2 * b, L, t1, t1 + 2 * L, t1 + 4 * L, L);
        return;
    }
    // Outer passes of the large orders: gather the twiddles in chunks.
    constexpr size_t C = 64;
    alignas(32) F t[3][2 * C];
    const size_t N = size_t(1) << pl.M, half = N / 2, stp = N / (4 * L);
    for (size_t j0 = 0; j0 < L; j0 += C) {
        for (size_t j = 0; j < C; ++j) {
            size_t m1 = (j0 + j) * stp, m2 = 2 * m1, m3 = 3 * m1;
            t[0][2 * j] = pl.top[2 * m1]; t[0][2 * j + 1] = pl.top[2 * m1 + 1];
            if (m2 < half) { t[1][2 * j] = pl.top[2 * m2]; t[1][2 * j + 1] = pl.top[2 * m2 + 1]; }
            else { t[1][2 * j] = -pl.top[2 * (m2 - half)]; t[1][2 * j + 1] = -pl.top[2 * (m2 - half) + 1]; }
            if (m3 < half) { t[2][2 * j] = pl.top[2 * m3]; t[2][2 * j + 1] = pl.top[2 * m3 + 1]; }
            else if (m3 < N) { t[2][2 * j] = -pl.top[2 * (m3 - half)]; t[2][2 * j + 1] = -pl.top[2 * (m3 - half) + 1]; }
            else { t[2][2 * j] = pl.top[2 * (m3 - N)]; t[2][2 * j + 1] = pl.top[2 * (m3 - N) + 1]; }
        }
        for (size_t b = base; b < base + len; b += 4 * L) r4_run<F, Inv>(a + 2 * (b + j0), L, t[0], t[1], t[2], C);
    }
}

// The whole transform of 2^M points from src into d (interleaved). With
// Permuted, d already holds the bit-reversed input. Passes run block by
// block at two sizes: first-level cache blocks, then second-level ones.
template <class F> constexpr size_t block2_points() { return sizeof(F) == 4 ? 32768 : 16384; }

template <class F, bool Inv, bool Permuted, class Src>
void run_block(const Src& src, F* d, const Plan<F>& pl, size_t blk, size_t B) {
    const size_t gsize = (pl.M & 1) ? 8 : 4;
    const size_t L0 = (pl.M & 1) ? 8 : 4;
    first_pass<F, Inv, Permuted>(src, d, pl.M, blk / gsize, (blk + B) / gsize, pl.rev);
    for (size_t L = L0; 4 * L <= B; L *= 4) pass<F, Inv>(d, blk, B, L, pl);
}

template <class F, bool Inv, bool Permuted, class Src> void run(const Src& src, F* d, const Plan<F>& pl) {
    const int M = pl.M;
    const size_t N = size_t(1) << M;
    if (M <= 3) {
        first_pass<F, Inv, Permuted>(src, d, M, 0, 1, nullptr);
        return;
    }
    const size_t L0 = (M & 1) ? 8 : 4;
    const size_t B = N < block_points<F>() ? N : block_points<F>();
    const size_t B2 = N < block2_points<F>() ? N : block2_points<F>();
    for (size_t blk2 = 0; blk2 < N; blk2 += B2) {
        for (size_t blk = blk2; blk < blk2 + B2; blk += B) run_block<F, Inv, Permuted>(src, d, pl, blk, B);
        size_t L = L0;
        while (4 * L <= B) L *= 4;
        for (; 4 * L <= B2; L *= 4) pass<F, Inv>(d, blk2, B2, L, pl);
    }
    size_t L = L0;
    while (4 * L <= B2) L *= 4;
    for (; 4 * L <= N; L *= 4) pass<F, Inv>(d, 0, N, L, pl);
}

// Bit reversal of 2^M points (M >= 6) in tiles of 8 x 8: runs of 8 points
// N/8 apart are read whole and written whole, so every cache line moves
// once. Out of place, or in place by swapping a tile with its mirror.
template <class F> inline void load_tile(const F* a, int M, size_t m, F (*t)[16]) {
    for (size_t r = 0; r < 8; ++r) std::memcpy(t[r], a + 2 * ((r << (M - 3)) | (m << 3)), 16 * sizeof(F));
}
template <class F> inline void store_tile(F* a, int M, size_t rm, const F (*t)[16]) {
    static constexpr int kRev3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    for (size_t c = 0; c < 8; ++c) {
        F* o = a + 2 * ((size_t(kRev3[c]) << (M - 3)) | (rm << 3));
        for (size_t r = 0; r < 8; ++r) {
            o[2 * kRev3[r]] = t[r][2 * c];
            o[2 * kRev3[r] + 1] = t[r][2 * c + 1];
        }
    }
}
template <class F> void bitrev_tiles(const F* src, F* dst, int M) {
    const size_t mids = size_t(1) << (M - 6);
    alignas(32) F t[8][16];
    for (size_t m = 0; m < mids; ++m) {
        load_tile(src, M, m, t);
        store_tile(dst, M, rev_bits(uint32_t(m), M - 6), t);
    }
}
template <class F> void bitrev_tiles_inplace(F* a, int M) {
    const size_t mids = size_t(1) << (M - 6);
    alignas(32) F t[8][16], u[8][16];
    for (size_t m = 0; m < mids; ++m) {
        const size_t rm = rev_bits(uint32_t(m), M - 6);
        if (rm < m) continue;
        load_tile(a, M, m, t);
        if (rm != m) load_tile(a, M, rm, u);
        store_tile(a, M, rm, t);
        if (rm != m) store_tile(a, M, m, u);
    }
}

// In-place bit reversal of 2^M interleaved points.
template <class F> void bitrev_inplace(F* a, int M) {
    const size_t N = size_t(1) << M;
    for (size_t i = 0; i < N; ++i) {
        size_t j = rev_bits(uint32_t(i), M);
        if (i < j) {
            F r = a[2 * i], m = a[2 * i + 1];
            a[2 * i] = a[2 * j]; a[2 * i + 1] = a[2 * j + 1];
            a[2 * j] = r; a[2 * j + 1] = m;
        }
    }
}

// out[i] = a[i] times s for the n reals of a (out may be a).
template <class F> void scale_n(const F* a, F* out, size_t n, F s) {
    using T = VT<F>;
    constexpr size_t S = 2 * T::W;
    auto v = T::set1(s);
    size_t i = 0;
    for (; i + S <= n; i += S) T::store(out + i, T::mul(T::load(a + i), v));
    for (; i < n; ++i) out[i] = a[i] * s;
}
// n reals times s, in place.
template <class F> void scale_n(F* a, size_t n, F s) { scale_n(static_cast<const F*>(a), a, n, s); }

// ------------------------------------------------------- table builders --
// 1/sqrt(n) of the float transforms (the FFT's flag 4, the DCT's first
// coefficient): 1/sqrt(n) with its significand cut to 12 bits (the same
// estimate on every processor) refined by one Newton step in single
// precision. Deliberately not the correctly rounded value.
inline float rsqrt_refined(double n) {
    const float r = float(from_bits(to_bits(1.0 / std::sqrt(n)) & ~((uint64_t(1) << 41) - 1)));
    const float nf = float(n);
    return (r * -0.5f) * ((nf * r) * r - 3.0f);
}

template <class F> inline void put_w(F* t, long long k, long long n) {
    // exp(-i pi k / n) = (cos, -sin)
    double s, c;
    sincospi_ratio(k, n, &s, &c);
    t[0] = F(c);
    t[1] = F(-s);
}

// Twiddles w_N^m = exp(-2 pi i m / N), N = 2^n, as put_w(t, 2m, N) writes
// them, without evaluating each. sincospi_ratio reduces m / (N/2) exactly to
// q/2 + r with |r| <= 1/4, sin(pi r) is odd and cos(pi r) even in r, and
// one quarter turn (m + N/4) keeps r and adds one to q. So the values past
// N/8 are those below it mirrored, every value is one of the first quarter
// turned, and the builders evaluate one octant: the same bits as evaluating
// every entry.

// t[m] = w_N^m for m <= last (N >= 16, last <= N/4). With `half` (w_{N/2}^m
// for m <= N/16) the even m are copied from it.
template <class F> void build_quarter(F* t, size_t N, size_t last, const F* half) {
    const size_t E = N / 8, upto = E < last ? E : last, step = half ? 2 : 1;
    if (half)
        for (size_t m = 0; m <= upto; m += 2) t[2 * m] = half[m], t[2 * m + 1] = half[m + 1];
    // Below N/8 the reduction leaves q = 0 and r = 2m / N exactly.
    size_t m = half ? 1 : 0;
    const double unit = 2.0 / double(N);
    for (; m + 3 * step < upto; m += 4 * step) {
        alignas(32) double s[4], c[4];
        __m256d vs, vc;
        const __m256d r = _mm256_mul_pd(_mm256_set_pd(double(m + 3 * step), double(m + 2 * step), double(m + step), double(m)),
                                        _mm256_set1_pd(unit));
        sincospi_poly4(r, &vs, &vc);
        _mm256_store_pd(s, vs);
        _mm256_store_pd(c, vc);
        for (size_t l = 0; l < 4; ++l) t[2 * (m + l * step)] = F(c[l]), t[2 * (m + l * step) + 1] = F(-s[l]);
    }
    for (; m <= upto; m += step) put_w(t + 2 * m, (long long)(2 * m), (long long)N);
    for (m = E + 1; m <= last; ++m) {
        const F* o = t + 2 * (N / 4 - m);
        t[2 * m] = -o[1];
        t[2 * m + 1] = -o[0];
    }
}

// out[i] = w_N^(i * stride) for i < count (count * stride <= N) from the
// quarter table q of N (2^qbits values), run by run of equal turns. A
// quarter turn takes w to -i w. The quarter's only zero part is the
// imaginary -0 at m = 0, and a zero part ends positive as put_w leaves it
// (x + 0 turns -0 into +0 and keeps every other x).
template <class F> void put_turned_run(F* out, const F* q, int qbits, size_t stride, size_t count) {
    const size_t Q = size_t(1) << qbits;
    size_t i = 0;
    for (size_t n = 0; i < count; ++n) {
        size_t end = ((n + 1) * Q + stride - 1) / stride;  // the first i of the next turn
        if (end > count) end = count;
        const size_t o = n * Q;  // q[2 * (i * stride - o)] is the quarter's value
        switch (n) {
            case 0: for (; i < end; ++i) out[2 * i] = q[2 * i * stride], out[2 * i + 1] = q[2 * i * stride + 1]; break;
            case 1: for (; i < end; ++i) out[2 * i] = q[2 * (i * stride - o) + 1] + F(0), out[2 * i + 1] = -q[2 * (i * stride - o)]; break;
            case 2: for (; i < end; ++i) out[2 * i] = -q[2 * (i * stride - o)], out[2 * i + 1] = -(q[2 * (i * stride - o) + 1] + F(0)); break;
            default: for (; i < end; ++i) out[2 * i] = F(0) - q[2 * (i * stride - o) + 1], out[2 * i + 1] = q[2 * (i * stride - o)]; break;
        }
    }
}

// Stage table of order K (K >= 4; passes of span L with 4L <= 2^K) from the
// quarter table q of w_{2^(K + sh)}.
template <class F> void build_stage_table(F* t, int K, const F* q, int sh) {
    const size_t first = (K & 1) ? 8 : 4, N = size_t(1) << K;
    for (size_t L = first; 4 * L <= N; L *= 4)
        for (size_t p = 1; p <= 3; ++p)
            put_turned_run(t + 2 * (L - first + (p - 1) * L), q, K - 2 + sh, p * ((N / (4 * L)) << sh), L);
}

// Entry of a stage table of order K where the last span's first run
// (L = 2^K / 4, T1[j] = w^j) starts: the quarter table of w_{2^K}.
inline size_t quarter_entry(int K) { return (size_t(1) << K) / 4 - ((K & 1) ? 8 : 4); }

// Reversed first-pass group indices of order M (M >= 4).
inline void build_rev(uint32_t* r, int M) {
    int b = (M & 1) ? M - 3 : M - 2;
    size_t n = size_t(1) << b;
    for (size_t g = 0; g < n; ++g) r[g] = rev_bits(uint32_t(g), b);
}

// The complex transform's part of a spec, laid out from byte offset `off`
// of the header; returns the offset behind it. M >= 7 (complex) or the
// complex sub-transform of a real spec (M >= 7 as well).
template <class F> uint32_t build_complex_tables(Hdr<F>* h, uint8_t* base, uint32_t off, int M, bool real) {
    const size_t N = size_t(1) << M;
    if (M < large_threshold<F>(real)) {
        h->offTw = off;
        h->tabOrder = uint32_t(M);
        F* tab = reinterpret_cast<F*>(base + off);
        build_quarter(tab + 2 * quarter_entry(M), N, N / 4 - 1, static_cast<const F*>(nullptr));
        build_stage_table(tab, M, tab + 2 * quarter_entry(M), 0);
        off += uint32_t(round64(2 * sizeof(F) * N + 7));
        h->offRev = off;
        build_rev(reinterpret_cast<uint32_t*>(base + off), M);
        off += uint32_t(round64(N + 3));
        return off;
    }
    // Large: stage table of the innermost order, then w_N^m for m < N/2.
    int K = M;
    while (K >= large_threshold<F>(real)) K -= (sizeof(F) == 4 ? (K <= 22 ? 4 : 8) : (K <= 21 ? 4 : 8));
    h->offTw = off;
    h->tabOrder = uint32_t(K);
    const uint32_t offTab = off;
    off += uint32_t(round64(2 * sizeof(F) * (size_t(1) << K) + 64));
    h->offTop = off;
    F* top = reinterpret_cast<F*>(base + off);
    build_quarter(top, N, N / 4 - 1, static_cast<const F*>(nullptr));
    put_turned_run(top, top, M - 2, 1, N / 2);  // the first quarter onto itself, then turned
    build_stage_table(reinterpret_cast<F*>(base + offTab), K, top, M - K);
    off += uint32_t(round64(sizeof(F) * N));
    return off;
}

// The quarter table of w_{2^M} inside a spec whose complex tables are built.
template <class F> const F* quarter_of(const Hdr<F>* h, int M) {
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    if (h->offTop) return reinterpret_cast<const F*>(base + h->offTop);
    return reinterpret_cast<const F*>(base + h->offTw) + 2 * quarter_entry(M);
}

// Resolves a header into a plan for its complex transform of order M.
template <class F> Plan<F> plan_of(const Hdr<F>* h, int M);

}  // namespace zams::fft

#include "fft_small.h"
#include "fft_static_tables.h"

namespace zams::fft {

template <class F> Plan<F> plan_of(const Hdr<F>* h, int M) {
    Plan<F> p{M, nullptr, 0, nullptr, nullptr};
    const uint8_t* base = reinterpret_cast<const uint8_t*>(h);
    if (h->offTw != 0) {
        p.tab = reinterpret_cast<const F*>(base + h->offTw);
        p.tabOrder = int(h->tabOrder);
        if (h->offTop) p.top = reinterpret_cast<const F*>(base + h->offTop);
        if (h->offRev) p.rev = reinterpret_cast<const uint32_t*>(base + h->offRev);
        return p;
    }
    // Up to 64 points: the built-in tables.
    if constexpr (sizeof(F) == 4) p.tab = (M & 1) ? kTabOdd_32f : kTabEven_32f;
    else p.tab = (M & 1) ? kTabOdd_64f : kTabEven_64f;
    p.tabOrder = (M & 1) ? 5 : 6;
    return p;
}

// Interleaved transform of a plan, src may be dst. `work` holds 2^M complex
// values for every kind below the real kinds' large threshold; orders 7 to
// 16 may pass through it between their passes. Long transforms first
// reverse the order in tiles; the rest fuse the reversal into the first
// pass and copy an in-place source to `work`.
inline constexpr int kTiledOrder = 13;
template <class F, bool Inv> void cfft_inter(const Plan<F>& pl, const F* src, F* dst, F* work) {
    if (pl.M <= kSmallMaxOrder && pl.M >= kSmallMinOrder) {
        small_fft<F, Inv>(src, dst, pl.M);
    } else if (pl.M >= kSortMinOrder && pl.M <= sort_max_order<F>()) {
        sort_fft<F, Inv>(src, dst, work, pl.M);
    } else if (sizeof(F) == 8 && pl.M == kDepthOrder) {
        if constexpr (sizeof(F) == 8) depth_fft<Inv>(src, dst, work);
    } else if (pl.M >= kTiledOrder) {
        // Into a destination off the vector alignment the passes run in
        // the work buffer, where it holds the whole transform, and one copy
        // goes out.
        F* x = (vec_aligned(dst) || pl.M >= large_threshold<F>(true)) ? dst : work;
        if (src != x) bitrev_tiles(src, x, pl.M);
        else bitrev_tiles_inplace(x, pl.M);
        run<F, Inv, true>(Interleaved<F>{x}, x, pl);
        if (x != dst) std::memcpy(dst, x, (size_t(2) << pl.M) * sizeof(F));
    } else if (src != dst) {
        run<F, Inv, false>(Interleaved<F>{src}, dst, pl);
    } else {
        std::memcpy(work, src, (size_t(2) << pl.M) * sizeof(F));
        run<F, Inv, false>(Interleaved<F>{work}, dst, pl);
    }
}

}  // namespace zams::fft
