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

// Exact sums of 16-bit taps against 16-bit samples, several outputs a step:
// out[i] = sum c[k] x[i + k], k < L (L >= 8), in 32-bit lanes by pmaddwd.
// A narrow set of taps (sum of magnitudes at most 65535) keeps every partial
// sum below 2^31 in magnitude whatever the samples, so its products are
// summed as they are. Any other set splits each tap into a signed high byte
// and an unsigned low byte (c = 256 hi + lo): a pair of products is then
// below 2^24 in magnitude, 32 vectors of pairs in four lanes stay below 2^31,
// and the two parts are joined in 64 bits once per 32 vectors. The taps past
// the last whole vector are the last 8 taps with the ones already summed
// masked off. Every sum is exact, so the bits never depend on the grouping.
inline bool narrow_taps(const Zam16s* c, int L) {
    int64_t m = 0;
    for (int k = 0; k < L; ++k) m += c[k] < 0 ? -int64_t(c[k]) : int64_t(c[k]);
    return m <= 65535;
}

// The four lane sums of each of four vectors, as one vector (wraps only
// where the caller's bound allows none).
inline __m128i lane_sums(__m128i a0, __m128i a1, __m128i a2, __m128i a3) {
    return _mm_hadd_epi32(_mm_hadd_epi32(a0, a1), _mm_hadd_epi32(a2, a3));
}

template <bool Split, int N> inline void dots16_group(const Zam16s* c, const Zam16s* x, int L, int64_t* out) {
    constexpr int kChunk = Split ? 32 : 1 << 30;
    const int full = L / 8, r = L % 8, nv = full + (r != 0);
    const __m128i tailMask = _mm_cmpgt_epi16(_mm_setr_epi16(1, 2, 3, 4, 5, 6, 7, 8), _mm_set1_epi16(short(8 - r)));
    const __m128i low = _mm_set1_epi16(0xff);
    int64_t tot[N] = {};
    for (int v0 = 0; v0 < nv;) {
        const int v1 = nv - v0 < kChunk ? nv : v0 + kChunk;
        __m128i ah[N], al[N];
        for (int j = 0; j < N; ++j) ah[j] = al[j] = _mm_setzero_si128();
        auto step = [&](int off, __m128i cv) {
            __m128i hi = cv, lo = cv;
            if constexpr (Split) {
                hi = _mm_srai_epi16(cv, 8);
                lo = _mm_and_si128(cv, low);
            }
            for (int j = 0; j < N; ++j) {
                const __m128i xv = _mm_loadu_si128(reinterpret_cast<const __m128i*>(x + j + off));
                ah[j] = _mm_add_epi32(ah[j], _mm_madd_epi16(xv, hi));
                if constexpr (Split) al[j] = _mm_add_epi32(al[j], _mm_madd_epi16(xv, lo));
            }
        };
        const int vf = v1 < full ? v1 : full;
        for (int v = v0; v < vf; ++v) step(8 * v, _mm_loadu_si128(reinterpret_cast<const __m128i*>(c + 8 * v)));
        if (v1 > full)
            step(L - 8, _mm_and_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(c + L - 8)), tailMask));
        v0 = v1;
        const __m128i z = _mm_setzero_si128();
        alignas(16) int32_t h[4], l[4];
        _mm_store_si128(reinterpret_cast<__m128i*>(h), lane_sums(ah[0], N > 1 ? ah[1 % N] : z, N > 2 ? ah[2 % N] : z,
                                                                 N > 3 ? ah[3 % N] : z));
        if constexpr (Split) {
            _mm_store_si128(reinterpret_cast<__m128i*>(l), lane_sums(al[0], N > 1 ? al[1 % N] : z,
                                                                     N > 2 ? al[2 % N] : z, N > 3 ? al[3 % N] : z));
            for (int j = 0; j < N; ++j) tot[j] += int64_t(h[j]) * 256 + l[j];
        } else {
            for (int j = 0; j < N; ++j) tot[j] += h[j];
        }
    }
    for (int j = 0; j < N; ++j) out[j] = tot[j];
}

// The outputs in groups of N; a last, partial group is the last N outputs
// again (exact sums: recomputing one gives its bits).
template <bool Split, int N> inline void dots16_run(const Zam16s* c, const Zam16s* x, int L, int n, int64_t* out) {
    if (n < N) {
        for (int i = 0; i < n; ++i) dots16_group<Split, 1>(c, x + i, L, out + i);
        return;
    }
    for (int i = 0;; i += N) {
        if (i > n - N) i = n - N;
        dots16_group<Split, N>(c, x + i, L, out + i);
        if (i == n - N) break;
    }
}

inline void dots16(const Zam16s* c, const Zam16s* x, int L, int n, bool narrow, int64_t* out) {
    if (L < 8) {
        for (int i = 0; i < n; ++i) {
            int64_t s = 0;
            for (int k = 0; k < L; ++k) s += int32_t(c[k]) * x[i + k];
            out[i] = s;
        }
    } else if (narrow) {
        dots16_run<false, 4>(c, x, L, n, out);
    } else {
        // Eight accumulators and the split taps fill i386's eight registers
        // at two outputs a step; x86-64 has room for four.
        dots16_run<true, sizeof(void*) == 8 ? 4 : 2>(c, x, L, n, out);
    }
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
