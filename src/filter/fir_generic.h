// The FIR family as one template over (given taps, data, kept taps): the
// state of every taps/data pair that has no kernels of its own, and the
// sums every Direct form runs.
//
// A pair names its taps as given (Taps), its samples (Data), the reversed
// taps the sums use (Coef: float, double, their complex forms, or 16-bit
// integers with a total scale), the accumulator (double, complex double,
// or exact 64-bit integers) and the precision a floating result is rounded
// to before it is written as Data (Part).
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "../common/round.h"
#include "../common/scale.h"
#include "../common/types.h"
#include "zams_impl.h"

namespace zams::fir {

struct CD {
    double re = 0, im = 0;
};
struct CI {
    int64_t re = 0, im = 0;
};

// Real and imaginary parts of any sample or tap (imaginary 0 for real ones).
template <class T> inline double re_of(const T& v) {
    if constexpr (is_complex_v<T>) return double(v.re);
    else return double(v);
}
template <class T> inline double im_of(const T& v) {
    if constexpr (is_complex_v<T>) return double(v.im);
    else return 0.0;
}

// acc += c x, in the accumulator's arithmetic (exact for integers).
template <class T> inline void mac(double& acc, const T& c, const auto& x) { acc += double(c) * re_of(x); }
inline void mac(int64_t& acc, int32_t c, int32_t x) { acc += int64_t(c) * x; }
template <class C, class X> inline void mac(CD& a, const C& c, const X& x) {
    const double cr = re_of(c), ci = im_of(c), xr = re_of(x), xi = im_of(x);
    a.re += cr * xr - ci * xi;
    a.im += cr * xi + ci * xr;
}
template <class C, class X> inline void mac(CI& a, const C& c, const X& x) {
    a.re += int64_t(c.re) * x.re - int64_t(c.im) * x.im;
    a.im += int64_t(c.re) * x.im + int64_t(c.im) * x.re;
}

// The exact sum of c[k] x[k], k < n, for 16-bit taps none of which is
// -32768: pairs of products (each pair below 2^31 in magnitude) summed in
// double lanes, exact while the sum stays below 2^53.
inline int64_t dot16(const Zam16s* c, const Zam16s* x, int n) {
    __m256d a0 = _mm256_setzero_pd(), a1 = a0;
    auto pairs = [](const Zam16s* u, const Zam16s* v) {
        return _mm256_cvtepi32_pd(_mm_madd_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(u)),
                                                 _mm_loadu_si128(reinterpret_cast<const __m128i*>(v))));
    };
    int k = 0;
    for (; k + 16 <= n; k += 16) {
        a0 = _mm256_add_pd(a0, pairs(c + k, x + k));
        a1 = _mm256_add_pd(a1, pairs(c + k + 8, x + k + 8));
    }
    for (; k + 8 <= n; k += 8) a0 = _mm256_add_pd(a0, pairs(c + k, x + k));
    alignas(32) double l[4];
    _mm256_store_pd(l, _mm256_add_pd(a0, a1));
    int64_t s = int64_t(l[0]) + int64_t(l[1]) + int64_t(l[2]) + int64_t(l[3]);
    for (; k < n; ++k) s += int32_t(c[k]) * x[k];
    return s;
}

// Exact sums of 16-bit taps against 16-bit samples, many outputs a step:
// out[i] = sum c[k] x[i + k], i < n, k < L. A tap pair (c[2p], c[2p+1]) is
// broadcast and pmaddwd puts its two products for four outputs two apart
// into four 32-bit lanes (one vector for the even outputs of a step, one for
// the odd). A pair's lane sum is at most 32768 (|c[2p]| + |c[2p+1]|): runs of
// consecutive pairs whose bounds add up to less than 2^31 are summed in the
// 32-bit lanes, each run then widened into double lanes. Small taps make one
// run of the whole set. The sums are integers below 2^53 (sums16_fits asks
// for 2 to 2^22 - 1 taps), so every one is exact and the bits never depend
// on the grouping or the addresses. A pair of two -32768 taps, whose lane
// sum can reach 2^31, fits no run: such taps are summed another way.
inline constexpr int kSumChunk = 1024;  // taps whose runs are found at once

inline int64_t pair_bound(const Zam16s* c, int L, int p) {
    const int k = 2 * p;
    const int64_t a = c[k] < 0 ? -int64_t(c[k]) : c[k];
    const int64_t b = k + 1 >= L ? 0 : c[k + 1] < 0 ? -int64_t(c[k + 1]) : c[k + 1];
    return (a + b) * 32768;
}

inline bool sums16_fits(const Zam16s* c, int L) {
    if (L < 2 || L >= 1 << 22) return false;  // one tap: its pair would reach back one sample
    for (int p = 0; 2 * p < L; ++p)
        if (pair_bound(c, L, p) > INT32_MAX) return false;
    return true;
}

// The ends of the runs of the pairs [p0, p1).
inline int pair_runs(const Zam16s* c, int L, int p0, int p1, int* ends) {
    int nRuns = 0;
    int64_t room = 0;
    for (int p = p0; p < p1; ++p) {
        const int64_t b = pair_bound(c, L, p);
        if (p == p0 || b > room) {
            if (p > p0) ends[nRuns++] = p;
            room = INT32_MAX;
        }
        room -= b;
    }
    ends[nRuns++] = p1;
    return nRuns;
}

// One step of 4 V outputs (V even) over the runs of one piece of taps: vector
// v holds outputs base(v) + 2j, base(v) = 8 (v / 2) + v % 2.
template <int V> inline void sums16_step(const Zam16s* c, int L, int p0, const int* ends, int nRuns, const Zam16s* x,
                                         double* out) {
    __m256d d[V];
    for (int v = 0; v < V; ++v) d[v] = _mm256_setzero_pd();
    const int lastPair = L / 2;  // an odd tap count leaves c[L - 1] alone in this pair
    for (int r = 0, p = p0; r < nRuns; ++r) {
        __m128i a[V];
        for (int v = 0; v < V; ++v) a[v] = _mm_setzero_si128();
        auto pair = [&](__m128i t, int off) {
            for (int v = 0; v < V; ++v) {
                const __m128i xv = _mm_loadu_si128(reinterpret_cast<const __m128i*>(x + 8 * (v / 2) + v % 2 + off));
                a[v] = _mm_add_epi32(a[v], _mm_madd_epi16(xv, t));
            }
        };
        const int e = ends[r], ef = e < lastPair ? e : lastPair;
        for (; p < ef; ++p) {
            int32_t w;
            std::memcpy(&w, c + 2 * p, 4);
            pair(_mm_set1_epi32(w), 2 * p);
        }
        if (p < e) {  // (0, c[L - 1]) against samples L - 2 and L - 1: no read past the last one
            pair(_mm_set1_epi32(int32_t(uint32_t(uint16_t(c[L - 1])) << 16)), L - 2);
            ++p;
        }
        for (int v = 0; v < V; ++v) d[v] = _mm256_add_pd(d[v], _mm256_cvtepi32_pd(a[v]));
    }
    for (int v = 0; v < V; ++v) {
        alignas(32) double l[4];
        _mm256_store_pd(l, d[v]);
        for (int j = 0; j < 4; ++j) out[8 * (v / 2) + v % 2 + 2 * j] += l[j];
    }
}

// Adds the n sums to out, for taps that sums16_fits. Sixteen outputs a step:
// ten vector registers on x86-64; on i386 (eight) the spills of the double
// lanes once a run still cost less than eight.
inline constexpr int kSums16Step = 16;
inline void sums16_add(const Zam16s* c, const Zam16s* x, int L, int n, double* out) {
    constexpr int V = kSums16Step / 4, S = kSums16Step;
    if (n < S) {
        for (int i = 0; i < n; ++i) {
            int64_t s = 0;
            for (int k = 0; k < L; ++k) s += int32_t(c[k]) * x[i + k];
            out[i] += double(s);
        }
        return;
    }
    int ends[kSumChunk / 2];
    double last[S];
    const int nPairs = (L + 1) / 2;
    for (int p0 = 0; p0 < nPairs; p0 += kSumChunk / 2) {
        const int p1 = nPairs - p0 < kSumChunk / 2 ? nPairs : p0 + kSumChunk / 2;
        const int nRuns = pair_runs(c, L, p0, p1, ends);
        int i = 0;
        for (; i + S <= n; i += S) sums16_step<V>(c, L, p0, ends, nRuns, x + i, out + i);
        if (i < n) {  // the last S outputs again, the new ones kept
            for (int j = 0; j < S; ++j) last[j] = 0;
            sums16_step<V>(c, L, p0, ends, nRuns, x + (n - S), last);
            for (int j = S - (n - i); j < S; ++j) out[n - S + j] += last[j];
        }
    }
}

// The n sums, for taps that sums16_fits.
inline void sums16(const Zam16s* c, const Zam16s* x, int L, int n, double* out) {
    for (int i = 0; i < n; ++i) out[i] = 0;
    sums16_add(c, x, L, n, out);
}

// The scale rule of scale_round_sat<Zam16s> for integers below 2^53 held in
// doubles, eight at a time: times 2^-sf (exact: the factor is held to
// [-64, 64], where every result beyond it is already 0 or the bound), rounded
// to nearest even, held to the 16-bit range.
inline void emit16_exact(const double* v, Zam16s* dst, int n, int sf) {
    const int f = sf < -64 ? -64 : sf > 64 ? 64 : sf;
    const __m256d m = _mm256_set1_pd(pow2(-f)), lo = _mm256_set1_pd(-32768.0), hi = _mm256_set1_pd(32767.0);
    auto four = [&](const double* p) {
        const __m256d r = _mm256_round_pd(_mm256_mul_pd(_mm256_loadu_pd(p), m), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        return _mm256_cvtpd_epi32(_mm256_min_pd(_mm256_max_pd(r, lo), hi));
    };
    int i = 0;
    for (; i + 8 <= n; i += 8)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), _mm_packs_epi32(four(v + i), four(v + i + 4)));
    for (; i < n; ++i) dst[i] = scale_round_sat<Zam16s>(int64_t(v[i]), sf);
}

// Taps kept in 16 bits: integer taps shifted right by taps_shift(largest
// magnitude) and float taps scaled by 2^taps_fit(largest magnitude), so the
// largest is at most 32766 (not 32767: a pair of products stays below 2^31).
inline int taps_shift(int64_t m) {
    int s = 0;
    for (; m > 32766; m >>= 1) ++s;
    return s;
}
// A float tap quantised to those 16 bits: scaled by 2^f, rounded to nearest even and
// held to +-32766; NaN counts as 0. Only finite taps count towards the largest
// magnitude, so an infinite tap saturates without zeroing the others.
inline double fit_magnitude(double v) { return v - v == 0 ? (v < 0 ? -v : v) : 0; }
inline double fit_tap(double v, int f) {
    if (v != v) return 0;
    const double q = round_even(v * pow2(f));
    return q > 32766 ? 32766 : q < -32766 ? -32766 : q;
}
inline int taps_fit(double m) {
    int f = 0;
    if (m > 0) {
        while (f > -1000 && m * pow2(f) > 32766) --f;
        while (f < 62 && m * pow2(f + 1) <= 32766) ++f;
    }
    return f;
}

// The accumulator of a sum of Coef x Data.
template <class Coef, class Data> struct AccOf {
    using type = std::conditional_t<std::is_integral_v<Coef>, int64_t, std::conditional_t<is_complex_v<Coef>, CD, double>>;
};
template <> struct AccOf<Zam16sc, Zam16sc> { using type = CI; };
template <> struct AccOf<Zam32sc, Zam16sc> { using type = CI; };

// Floating results go through the part buffer and the conversions' rules.
template <class Part, class Data> void emit_parts(const Part* buf, Data* dst, int nParts, int sf) {
    using DP = std::conditional_t<is_complex_v<Data>, part_t<Data>, Data>;
    DP* d = reinterpret_cast<DP*>(dst);
    if constexpr (std::is_same_v<DP, Part>) {
        for (int i = 0; i < nParts; ++i) d[i] = buf[i];
    } else if constexpr (std::is_same_v<DP, float>) {
        for (int i = 0; i < nParts; ++i) d[i] = float(buf[i]);
    } else if constexpr (std::is_same_v<Part, float>) {
        g9_zamsConvert_32f16s_Sfs(buf, d, nParts, zamRoundNearestEven, sf);
    } else if constexpr (std::is_same_v<DP, Zam16s>) {
        g9_zamsConvert_64f16s_Sfs(buf, d, nParts, zamRoundNearestEven, sf);
    } else {
        g9_zamsConvert_64f32s_Sfs(buf, d, nParts, zamRoundNearestEven, sf);
    }
}

// Writes n sums as Data: floating ones rounded to Part and converted,
// integer ones scaled by 2^-(scale), rounded to nearest even, saturated.
template <class Part, class Acc, class Data> void emit(const Acc* acc, Data* dst, int n, int scale) {
    if constexpr (std::is_same_v<Acc, int64_t>) {
        for (int i = 0; i < n; ++i) dst[i] = scale_round_sat<Data>(acc[i], scale);
    } else if constexpr (std::is_same_v<Acc, CI>) {
        for (int i = 0; i < n; ++i)
            dst[i] = Data{scale_round_sat<Zam16s>(acc[i].re, scale), scale_round_sat<Zam16s>(acc[i].im, scale)};
    } else {
        constexpr int k = std::is_same_v<Acc, CD> ? 2 : 1;
        constexpr int kPiece = 128;
        Part buf[kPiece * 2];
        for (int i0 = 0; i0 < n; i0 += kPiece) {
            const int m = n - i0 < kPiece ? n - i0 : kPiece;
            for (int i = 0; i < m; ++i) {
                if constexpr (k == 2) {
                    buf[2 * i] = Part(acc[i0 + i].re);
                    buf[2 * i + 1] = Part(acc[i0 + i].im);
                } else {
                    buf[i] = Part(acc[i0 + i]);
                }
            }
            emit_parts(buf, dst + i0, m * k, scale);
        }
    }
}

}  // namespace zams::fir
