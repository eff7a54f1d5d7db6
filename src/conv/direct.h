// Direct sums of correlation and convolution: sum over i of conj(a[i]) b[i]
// (conj only for complex data), each in one order fixed by the positions of
// its terms (dot_real, lag_sum); the many-output kernels (dot_many) give
// the same bits for runs of outputs whose sums have the same length.
//
// Float products accumulate in double, double products in double, 16-bit
// products exactly in 64 bits; each sum is rounded once to its result.
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "../common/types.h"
#include "zamcore.h"

namespace zams::corr {

// The exact or accurate sum of one lag, and its rounding to the element type.
template <class T> struct Acc;
template <> struct Acc<float> { using type = double; };
template <> struct Acc<double> { using type = double; };
template <> struct Acc<Zam16s> { using type = int64_t; };
struct CAcc {
    double re = 0, im = 0;
};
template <> struct Acc<Zam32fc> { using type = CAcc; };
template <> struct Acc<Zam64fc> { using type = CAcc; };
template <class T> using acc_t = typename Acc<T>::type;

// Loads four values as doubles.
inline __m256d load4(const float* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
inline __m256d load4(const double* p) { return _mm256_loadu_pd(p); }

// The floating sum of n products a[i] b[i], in double, its order fixed by
// the term positions alone: the first 4 floor(n/4) terms go to eight
// partial sums by i mod 8, each added in sequence; the partials combine as
// q_l = p_l + p_{l+4} (l < 4), then (q_0 + q_1) + (q_2 + q_3); the last
// n mod 4 terms are added to that in sequence.
template <class A, class B> inline double dot_real(const A* a, const B* b, int64_t len) {
    const std::ptrdiff_t n = std::ptrdiff_t(len);  // the pointer's width (lengths of int arguments)
    __m256d s0 = _mm256_setzero_pd(), s1 = s0;
    std::ptrdiff_t i = 0;
    for (; i + 8 <= n; i += 8) {
        s0 = _mm256_add_pd(s0, _mm256_mul_pd(load4(a + i), load4(b + i)));
        s1 = _mm256_add_pd(s1, _mm256_mul_pd(load4(a + i + 4), load4(b + i + 4)));
    }
    for (; i + 4 <= n; i += 4) s0 = _mm256_add_pd(s0, _mm256_mul_pd(load4(a + i), load4(b + i)));
    alignas(32) double l[4];
    _mm256_store_pd(l, _mm256_add_pd(s0, s1));
    double s = (l[0] + l[1]) + (l[2] + l[3]);
    for (; i < n; ++i) s += double(a[i]) * double(b[i]);
    return s;
}

// The lag sum of n terms; the taps a are of the data's type, or double
// (pairs for complex data) where the many-output kernels hold them so.
template <class A, class T> inline acc_t<T> lag_sum(const A* a, const T* b, int64_t n) {
    if constexpr (std::is_same_v<T, Zam16s>) {
        int64_t s = 0;
        for (int64_t i = 0; i < n; ++i) s += int32_t(a[i]) * int32_t(b[i]);
        return s;
    } else if constexpr (is_complex_v<T>) {
        // conj(a) b = (ar br + ai bi) + i (ar bi - ai br)
        double r0 = 0, r1 = 0, i0 = 0, i1 = 0;
        for (int64_t k = 0; k < n; ++k) {
            const double ar = double(a[k].re), ai = double(a[k].im), br = double(b[k].re), bi = double(b[k].im);
            r0 += ar * br;
            r1 += ai * bi;
            i0 += ar * bi;
            i1 += ai * br;
        }
        return CAcc{r0 + r1, i0 - i1};
    } else {
        return dot_real(a, b, n);
    }
}

// The sum rounded to the element type (16-bit data: scaled and saturated).
template <class T> inline T round_to(const acc_t<T>& s) {
    if constexpr (is_complex_v<T>) return T{part_t<T>(s.re), part_t<T>(s.im)};
    else return T(s);
}

template <class T> inline T conj_of(const T& v) {
    if constexpr (is_complex_v<T>) return T{v.re, part_t<T>(-v.im)};
    else return v;
}

// Outputs a step of the many-output kernel: 4 x kVecs, each tap broadcast
// once to all of them (four vectors need 8 of the 16 registers of x86-64,
// i386 has 8).
#if defined(__x86_64__)
inline constexpr int kVecs = 2;
#else
inline constexpr int kVecs = 1;
#endif
// i386, real data: dot_many_pairs takes kernels up to 128 taps, eight
// outputs a step; longer ones, whose four chains of additions bound both
// kernels, run dot_many_d (measured).
inline constexpr int kRealVecs = 2;
inline constexpr bool pairs_for(int64_t n) { return kVecs < kRealVecs && n <= 128; }

// Four taps a[0..3] into the partials p[0..3] of the outputs at b: added,
// or the first of each partial (First) stored.
template <bool First, class B> inline void taps4(const double* a, const B* b, __m256d (&p)[4][kVecs]) {
    #pragma GCC unroll 8
    for (int r = 0; r < 4; ++r) {
        const __m256d t = _mm256_broadcast_sd(a + r);
        #pragma GCC unroll 8
        for (int v = 0; v < kVecs; ++v) {
            const __m256d m = _mm256_mul_pd(t, load4(b + r + 4 * v));
            p[r][v] = First ? m : _mm256_add_pd(p[r][v], m);
        }
    }
}

// A pass's partials started at the four taps at a, or at +0 when the pass
// has none.
template <class B> inline void start4(bool any, const double* a, const B* b, __m256d (&p)[4][kVecs]) {
    if (any) {
        taps4<true>(a, b, p);
        return;
    }
    #pragma GCC unroll 8
    for (auto& r : p)
        #pragma GCC unroll 8
        for (auto& v : r) v = _mm256_setzero_pd();
}

// Four finished sums rounded to the outputs: + 0 first (see dot_many_d).
template <class O> inline void put4(O* out, __m256d s) {
    s = _mm256_add_pd(s, _mm256_setzero_pd());
    if constexpr (std::is_same_v<O, float>) _mm_storeu_ps(out, _mm256_cvtpd_ps(s));
    else _mm256_storeu_pd(out, s);
}

// Pair l's joined partials q_l into (q_0 + q_1) and (q_2 + q_3).
inline void join_pair(int l, __m256d ql, __m256d& s01, __m256d& s23) {
    if (l == 0) s01 = ql;
    else if (l == 1) s01 = _mm256_add_pd(s01, ql);
    else if (l == 2) s23 = ql;
    else s23 = _mm256_add_pd(s23, ql);
}

// out[i] = dot_real(a, b + i, n), for i < count: the same sums in the same
// order, the outputs in the lanes; float data converted as it is loaded
// (exactly), float outputs rounded once from the double sums. Two passes over the taps (those at
// i mod 8 < 4 with the last whole four, then the rest) keep the partials
// of one pass in registers. A partial starts at its first product where
// dot_real adds that to +0: the two differ only in the sign of a zero, and
// only while every term so far is zero, so they can differ only in a sum
// that is zero, which the final + 0 makes +0 in every rounding mode where
// dot_real's is (and leaves -0 where dot_real's is -0).
template <class B> inline void dot_many_d(const double* a, int64_t len, const B* b, B* out, int64_t cnt) {
    // Indices in the pointer's width (lengths are those of int arguments).
    const std::ptrdiff_t n = std::ptrdiff_t(len), count = std::ptrdiff_t(cnt), step = 4 * kVecs;
    const std::ptrdiff_t n8 = n & ~std::ptrdiff_t(7), n4 = n & ~std::ptrdiff_t(3);
    for (std::ptrdiff_t i = 0; i + step <= count; i += step) {
        const B* bi = b + i;
        __m256d lo[4][kVecs], hi[4][kVecs];
        start4(n4 > 0, a, bi, lo);
        for (std::ptrdiff_t j = 8; j < n8; j += 8) taps4<false>(a + j, bi + j, lo);
        if (n4 > n8 && n8 > 0) taps4<false>(a + n8, bi + n8, lo);
        start4(n8 > 0, a + 4, bi + 4, hi);
        for (std::ptrdiff_t j = 12; j < n8; j += 8) taps4<false>(a + j, bi + j, hi);
        #pragma GCC unroll 8
        for (int v = 0; v < kVecs; ++v) {
            __m256d q[4];
            #pragma GCC unroll 8
            for (int r = 0; r < 4; ++r) q[r] = _mm256_add_pd(lo[r][v], hi[r][v]);
            __m256d s = _mm256_add_pd(_mm256_add_pd(q[0], q[1]), _mm256_add_pd(q[2], q[3]));
            for (std::ptrdiff_t j = n4; j < n; ++j)
                s = _mm256_add_pd(s, _mm256_mul_pd(_mm256_broadcast_sd(a + j), load4(bi + j + 4 * v)));
            put4(out + i + 4 * v, s);
        }
    }
}

// The same sums as dot_many_d, 4 V outputs a step, for eight vector
// registers: the partials by term position mod 8 run as four pairs (l,
// l + 4), each pair to its end and joined (q_l = p_l + p_{l+4}) before the
// next starts, so only the two partials of a pair are live, each tap
// broadcast once to the V vectors; (q_0 + q_1) + (q_2 + q_3) as there.
template <int V, class B, class O> inline void dot_many_pairs(const double* a, int64_t len, const B* b, O* out, int64_t cnt) {
    // Indices in the pointer's width (lengths are those of int arguments).
    const std::ptrdiff_t n = std::ptrdiff_t(len), count = std::ptrdiff_t(cnt), step = 4 * V;
    const std::ptrdiff_t n8 = n & ~std::ptrdiff_t(7), n4 = n & ~std::ptrdiff_t(3);
    const __m256d zero = _mm256_setzero_pd();
    for (std::ptrdiff_t i = 0; i + step <= count; i += step) {
        const B* bi = b + i;
        __m256d s01[V], s23[V];
        #pragma GCC unroll 4
        for (int l = 0; l < 4; ++l) {
            __m256d p[V], q[V];
            // p_l: terms l, l + 8, ... below n4; p_{l+4}: terms l + 4, l + 12, ... below n8
            const __m256d t0 = _mm256_broadcast_sd(a + l), t4 = _mm256_broadcast_sd(a + l + 4);
            #pragma GCC unroll 8
            for (int v = 0; v < V; ++v) {
                p[v] = n4 > 0 ? _mm256_mul_pd(t0, load4(bi + l + 4 * v)) : zero;
                q[v] = n8 > 0 ? _mm256_mul_pd(t4, load4(bi + l + 4 + 4 * v)) : zero;
            }
            for (std::ptrdiff_t j = l + 8; j < n8; j += 8) {
                const __m256d u0 = _mm256_broadcast_sd(a + j), u4 = _mm256_broadcast_sd(a + j + 4);
                #pragma GCC unroll 8
                for (int v = 0; v < V; ++v) {
                    p[v] = _mm256_add_pd(p[v], _mm256_mul_pd(u0, load4(bi + j + 4 * v)));
                    q[v] = _mm256_add_pd(q[v], _mm256_mul_pd(u4, load4(bi + j + 4 + 4 * v)));
                }
            }
            if (n4 > n8 && n8 > 0) {
                const __m256d u0 = _mm256_broadcast_sd(a + n8 + l);
                #pragma GCC unroll 8
                for (int v = 0; v < V; ++v) p[v] = _mm256_add_pd(p[v], _mm256_mul_pd(u0, load4(bi + n8 + l + 4 * v)));
            }
            #pragma GCC unroll 8
            for (int v = 0; v < V; ++v) {
                join_pair(l, _mm256_add_pd(p[v], q[v]), s01[v], s23[v]);
            }
        }
        #pragma GCC unroll 8
        for (int v = 0; v < V; ++v) {
            __m256d s = _mm256_add_pd(s01[v], s23[v]);
            for (std::ptrdiff_t j = n4; j < n; ++j)
                s = _mm256_add_pd(s, _mm256_mul_pd(_mm256_broadcast_sd(a + j), load4(bi + j + 4 * v)));
            put4(out + i + 4 * v, s);
        }
    }
}

// The sums of dot_many_pairs for a tap count N known at compile time, 4 V
// outputs a step, every product and join unrolled, the taps broadcast once
// a call into t (read as memory operands). Float data goes through a block
// of doubles on the stack (about 8 KiB: a chunk of about 1 Ki outputs, few
// restarts, measured), each input converted once (exactly) by the steps
// themselves, kLead inputs ahead of the first read (the block's last N - 1
// mod 4 inputs before the steps, so nothing past the data is read).
template <int N, int V> struct Fixed {
    static constexpr int n8 = N & ~7, n4 = N & ~3, kStep = 4 * V;
    static constexpr std::ptrdiff_t kChunkOut = 1024 / kStep * kStep, kLead = (kStep + N + 2) / 4 * 4 + 32;

    // Outputs i .. i + 4 V - 1 from the doubles at x (x[i] the first
    // input of output i).
    template <class O> static void step(const double* t, const double* x, O* out) {
        const __m256d zero = _mm256_setzero_pd();
        auto prod = [&](int j, int v) { return _mm256_mul_pd(_mm256_load_pd(t + 4 * j), _mm256_loadu_pd(x + j + 4 * v)); };
        __m256d s01[V], s23[V];
        #pragma GCC unroll 4
        for (int l = 0; l < 4; ++l) {
            #pragma GCC unroll 8
            for (int v = 0; v < V; ++v) {
                __m256d p = n4 > 0 ? prod(l, v) : zero, q = n8 > 0 ? prod(l + 4, v) : zero;
                #pragma GCC unroll 4
                for (int j = l + 8; j < n8; j += 8) {
                    p = _mm256_add_pd(p, prod(j, v));
                    q = _mm256_add_pd(q, prod(j + 4, v));
                }
                if (n4 > n8 && n8 > 0) p = _mm256_add_pd(p, prod(n8 + l, v));
                join_pair(l, _mm256_add_pd(p, q), s01[v], s23[v]);
            }
        }
        #pragma GCC unroll 8
        for (int v = 0; v < V; ++v) {
            __m256d s = _mm256_add_pd(s01[v], s23[v]);
            #pragma GCC unroll 4
            for (int j = n4; j < N; ++j) s = _mm256_add_pd(s, prod(j, v));
            put4(out + 4 * v, s);
        }
    }

    // out[i] for i < count (a multiple of 4 V).
    template <class B> static void run(const double* t, const B* b, B* out, std::ptrdiff_t count) {
        using P = std::ptrdiff_t;
        if constexpr (std::is_same_v<B, double>) {
            for (P i = 0; i < count; i += kStep) step(t, b + i, out + i);
        } else {
            alignas(32) double x[kChunkOut + N + 3];
            for (P i0 = 0; i0 < count; i0 += kChunkOut) {
                const B* bi = b + i0;
                const P c = std::min(kChunkOut, count - i0), len = c + N - 1, len4 = len & ~P(3);
                for (P k = 0; k < std::min(kLead, len4); k += 4) _mm256_store_pd(x + k, load4(bi + k));
                for (P k = len4; k < len; ++k) x[k] = double(bi[k]);
                for (P i = 0; i < c; i += kStep) {
                    #pragma GCC unroll 8
                    for (int g = 0; g < V; ++g)
                        if (const P k = i + kLead + 4 * g; k < len4) _mm256_store_pd(x + k, load4(bi + k));
                    step(t, x + i, out + i0 + i);
                }
            }
        }
    }
};

// Complex data: outRe[i] + i outIm[i] = lag_sum(a, b + i, n) for i < count,
// its four sums in sequence from +0 as there, the outputs in the lanes. a
// holds the taps as double pairs (re, im); re and im the parts of the
// signal in double.
inline void cdot_many_d(const double* a, int64_t n, const double* re, const double* im, double* outRe, double* outIm,
                        int64_t count) {
    constexpr int64_t step = 4 * kVecs;
    for (int64_t i = 0; i + step <= count; i += step) {
        __m256d r0[kVecs], r1[kVecs], i0[kVecs], i1[kVecs];
        #pragma GCC unroll 8
        for (int v = 0; v < kVecs; ++v) r0[v] = r1[v] = i0[v] = i1[v] = _mm256_setzero_pd();
        for (int64_t k = 0; k < n; ++k) {
            const __m256d ar = _mm256_broadcast_sd(a + 2 * k), ai = _mm256_broadcast_sd(a + 2 * k + 1);
            #pragma GCC unroll 8
            for (int v = 0; v < kVecs; ++v) {
                const __m256d br = _mm256_loadu_pd(re + i + k + 4 * v), bi = _mm256_loadu_pd(im + i + k + 4 * v);
                r0[v] = _mm256_add_pd(r0[v], _mm256_mul_pd(ar, br));
                r1[v] = _mm256_add_pd(r1[v], _mm256_mul_pd(ai, bi));
                i0[v] = _mm256_add_pd(i0[v], _mm256_mul_pd(ar, bi));
                i1[v] = _mm256_add_pd(i1[v], _mm256_mul_pd(ai, br));
            }
        }
        #pragma GCC unroll 8
        for (int v = 0; v < kVecs; ++v) {
            _mm256_storeu_pd(outRe + i + 4 * v, _mm256_add_pd(r0[v], r1[v]));
            _mm256_storeu_pd(outIm + i + 4 * v, _mm256_sub_pd(i0[v], i1[v]));
        }
    }
}

// Outputs a pass of dot_many over float data.
inline constexpr int64_t kChunk = 256;

// Tap counts with a kernel of their own (Fixed), dispatched by a table:
// 4 kFixedVecs outputs a step (measured: three vectors on x86-64, two on
// i386).
#if defined(__x86_64__)
inline constexpr int kFixedVecs = 3;
#else
inline constexpr int kFixedVecs = 2;
#endif
inline constexpr int kFixedMin = 4, kFixedMax = 16;
template <class B> using FixedFn = void (*)(const double*, const B*, B*, std::ptrdiff_t);
template <class B, int... I> constexpr std::array<FixedFn<B>, sizeof...(I)> fixed_table(std::integer_sequence<int, I...>) {
    return {&Fixed<kFixedMin + I, kFixedVecs>::template run<B>...};
}
template <class B>
inline constexpr auto kFixed = fixed_table<B>(std::make_integer_sequence<int, kFixedMax - kFixedMin + 1>{});

// The many-output kernels over any floating data: out[i] = the lag sum of
// a (n taps in double, pairs for complex data) against b + i, for
// i < count. Real data is read where it lies (floats converted as they
// are loaded); complex data is split into parts in double a chunk of
// outputs at a time into scratch (2 (2 kChunk + n) doubles). The outputs
// that do not fill a step go one at a time.
template <class B> inline constexpr int kParts = is_complex_v<B> ? 2 : 1;

template <class B>
inline void dot_many(const double* a, int64_t n, const B* b, B* out, int64_t count, double* scratch) {
    const bool fixed = !is_complex_v<B> && n >= kFixedMin && n <= kFixedMax;
    // In the pointer's width (a 64-bit remainder is a library call on i386).
    const std::ptrdiff_t step = fixed ? 4 * kFixedVecs : is_complex_v<B> || !pairs_for(n) ? 4 * kVecs : 4 * kRealVecs;
    const int64_t whole = std::ptrdiff_t(count) - std::ptrdiff_t(count) % step;
    if constexpr (!is_complex_v<B>) {
        if (fixed) {
            alignas(32) double t[4 * kFixedMax];
            for (int64_t j = 0; j < n; ++j) _mm256_store_pd(t + 4 * j, _mm256_broadcast_sd(a + j));
            kFixed<B>[n - kFixedMin](t, b, out, whole);
        } else if (!pairs_for(n)) {
            dot_many_d(a, n, b, out, whole);
        } else if (std::is_same_v<B, float> && n >= 32) {
            // Float data from 32 taps converted to double a chunk at a time
            // (exactly), so that the kernel's loads are plain (shorter
            // kernels convert as they load: faster there, measured).
            alignas(32) double x[kChunk + 128 + 7];
            for (int64_t i = 0; i < whole; i += kChunk) {
                const int64_t c = std::min(kChunk, whole - i), len = c + n - 1;
                int64_t k = 0;
                for (; k + 4 <= len; k += 4) _mm256_store_pd(x + k, load4(b + i + k));
                for (; k < len; ++k) x[k] = double(b[i + k]);
                dot_many_pairs<kRealVecs>(a, n, static_cast<const double*>(x), out + i, c);
            }
        } else {
            dot_many_pairs<kRealVecs>(a, n, b, out, whole);
        }
    } else {
        double* x = scratch;                   // 2 runs of kChunk + n - 1
        double* y = scratch + 2 * (kChunk + n - 1);  // 2 runs of kChunk
        for (int64_t i = 0; i < whole; i += kChunk) {
            const int64_t c = std::min(kChunk, whole - i), len = c + n - 1;
            double* xi = x + len;
            for (int64_t k = 0; k < len; ++k) {
                x[k] = double(b[i + k].re);
                xi[k] = double(b[i + k].im);
            }
            cdot_many_d(a, n, x, xi, y, y + c, c);
            for (int64_t k = 0; k < c; ++k) out[i + k] = B{part_t<B>(y[k]), part_t<B>(y[c + k])};
        }
    }
    for (int64_t i = whole; i < count; ++i) {
        if constexpr (is_complex_v<B>) out[i] = round_to<B>(lag_sum(reinterpret_cast<const Zam64fc*>(a), b + i, n));
        else out[i] = B(dot_real(a, b + i, n));
    }
}

// The taps of a direct path in double (the many-output kernels broadcast
// them), a[0], a[step], ... for n values (pairs for complex data; a itself
// when it is double and in order), and the scratch of dot_many (in the
// object for a short kernel). ok() is false when memory could not be had.
template <class T> class DoubleTaps {
public:
    DoubleTaps(const T* a, int64_t n, int64_t step) {
        constexpr int P = kParts<T>;
        const bool direct = std::is_same_v<T, double> && step == 1;
        const int64_t size = (direct ? 0 : P * n) + (is_complex_v<T> ? P * (2 * kChunk + n) : 0);
        own_ = size == 0 ? nullptr : size <= kLocal ? local_ : size < INT32_MAX / 8 ? zamsMalloc_64f(int(size)) : nullptr;
        if (size > 0 && !own_) return;
        if (direct) {
            p_ = reinterpret_cast<const double*>(a);
        } else {
            for (int64_t j = 0; j < n; ++j) {
                if constexpr (P == 2) {
                    own_[2 * j] = double(a[j * step].re);
                    own_[2 * j + 1] = double(a[j * step].im);
                } else {
                    own_[j] = double(a[j * step]);
                }
            }
            p_ = own_;
        }
        scratch_ = own_ ? own_ + (direct ? 0 : P * n) : nullptr;
    }
    ~DoubleTaps() {
        if (own_ != local_) zamsFree(own_);
    }
    DoubleTaps(const DoubleTaps&) = delete;
    DoubleTaps& operator=(const DoubleTaps&) = delete;
    bool ok() const { return p_ != nullptr; }
    const double* get() const { return p_; }
    double* scratch() const { return scratch_; }

private:
    // Short kernels (up to 256 taps of real data) keep their taps here.
    static constexpr int64_t kLocal = 256;
    alignas(32) double local_[kLocal];
    const double* p_ = nullptr;
    double* own_ = nullptr;
    double* scratch_ = nullptr;
};

}  // namespace zams::corr
