// Pieces shared by the conversion families: the block driver, packed 24-bit
// loads and stores, the halving multiplier and the float-to-integer roundings.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "../common/num/bits.h"

namespace zams::cvt {

// Runs `op` over n elements in blocks of W. op(s, d) reads W source elements
// of SB bytes and writes W destination elements of DB bytes. The
// elements before the destination is 32-byte aligned and the tail are copied
// through a zeroed stack block and run by the same op, so every element gets
// exactly the vector arithmetic, whatever the length and alignment. Packed
// 24-bit elements (SB or DB of 3) are moved 3 bytes at a time and never
// touch a byte past the vector. The op loads all its source before it
// stores, which makes in-place calls of equal element sizes safe.
template <size_t SB, size_t DB, size_t W, class Op>
inline void run_blocks(const void* src, void* dst, size_t n, Op op) {
    const auto* s = static_cast<const uint8_t*>(src);
    auto* d = static_cast<uint8_t*>(dst);
    auto staged = [&](size_t i, size_t k) {
        alignas(32) uint8_t ts[W * SB] = {};
        alignas(32) uint8_t td[W * DB];
        std::memcpy(ts, s + i * SB, k * SB);
        op(static_cast<const uint8_t*>(ts), static_cast<uint8_t*>(td));
        std::memcpy(d + i * DB, td, k * DB);
    };
    auto staged_run = [&](size_t i, size_t end) {
        while (i < end) {
            size_t k = end - i < W ? end - i : W;
            staged(i, k);
            i += k;
        }
    };
    size_t head = 0;
    uintptr_t mis = reinterpret_cast<uintptr_t>(d) % 32;
    if ((DB & (DB - 1)) == 0 && mis % DB == 0) head = (32 - mis) % 32 / DB;
    if (head > n) head = n;
    staged_run(0, head);
    size_t i = head;
    if (n >= W)
        for (; i <= n - W; i += W) op(s + i * SB, d + i * DB);
    staged_run(i, n);
}

// ---- unaligned 128-bit loads and stores of byte pointers ----

inline __m128i ld(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void st(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

// ---- packed 24-bit samples ----

// 8 packed samples (24 bytes) widened to two vectors of 4 int32.
template <bool Signed> inline void load24x8(const uint8_t* p, __m128i& lo, __m128i& hi) {
    __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    __m128i b = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + 16));
    __m128i c = _mm_alignr_epi8(b, a, 12);  // bytes 12..23 at the bottom
    if constexpr (Signed) {
        // Each sample into the top 3 bytes of its lane, then shifted down with its sign.
        const __m128i m = _mm_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11);
        lo = _mm_srai_epi32(_mm_shuffle_epi8(a, m), 8);
        hi = _mm_srai_epi32(_mm_shuffle_epi8(c, m), 8);
    } else {
        const __m128i m = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
        lo = _mm_shuffle_epi8(a, m);
        hi = _mm_shuffle_epi8(c, m);
    }
}

// The low 3 bytes of 8 int32 lanes stored as 24 packed bytes.
inline void store24x8(uint8_t* p, __m128i lo, __m128i hi) {
    const __m128i m = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    __m128i a = _mm_shuffle_epi8(lo, m);
    __m128i b = _mm_shuffle_epi8(hi, m);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_or_si128(a, _mm_slli_si128(b, 12)));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p + 16), _mm_srli_si128(b, 4));
}

// ---- vectors as halves ----

inline __m128i lo128(__m256i v) { return _mm256_castsi256_si128(v); }
inline __m128i hi128(__m256i v) { return _mm256_extractf128_si256(v, 1); }
inline __m256i join128(__m128i lo, __m128i hi) { return _mm256_insertf128_si256(_mm256_castsi128_si256(lo), hi, 1); }
inline __m256 to_ps(__m128i lo, __m128i hi) { return _mm256_cvtepi32_ps(join128(lo, hi)); }

// 1.0 halved sf times (sf > 0) or doubled -sf times (sf < 0) in single
// precision with ties to even: exact down to the smallest sub-normal, 0
// from sf = 150 (the last halving is a tie that goes to 0), infinite from
// sf = -128. Built from the bits, so the caller's flush-to-zero setting
// does not change it.
inline float halved_multiplier(int sf) {
    uint32_t b;
    if (sf >= 150) b = 0;
    else if (sf > 126) b = 1u << (149 - sf);
    else if (sf > -128) b = uint32_t(127 - sf) << 23;
    else b = 0x7F800000u;
    return float_from_bits(b);
}

// ---- rounding of floating values to integral values ----

enum class Rnd {
    Zero,    // toward zero
    Even,    // to nearest, ties to even
    Away,    // to nearest, ties away from zero, whatever the processor's direction
    AwayRZ,  // |x| + 0.5 truncated: ties away only while the processor rounds toward zero
    EvenCsr, // nearest-even by the processor's direction, found set to nearest
};

// Even becomes EvenCsr when the processor already rounds to nearest, so
// that the conversion instruction itself can round.
inline Rnd with_csr(Rnd r) { return r == Rnd::Even && (_mm_getcsr() & 0x6000u) == 0 ? Rnd::EvenCsr : r; }

// The library-wide reading of a mode: 1 nearest-even, 0 toward zero, any other half-away.
inline Rnd mode_of(int m) { return m == 1 ? Rnd::Even : m == 0 ? Rnd::Zero : Rnd::Away; }

template <Rnd R> inline __m256 round_ps(__m256 v) {
    if constexpr (R == Rnd::Zero) {
        return _mm256_round_ps(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
    } else if constexpr (R == Rnd::Even) {
        return _mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    } else {
        // Half away: the fraction v - trunc(v) is exact; one more unit, with
        // v's sign, where it reaches one half.
        static_assert(R == Rnd::Away, "the other roundings convert directly");
        const __m256 sign = _mm256_set1_ps(-0.0f);
        __m256 t = _mm256_round_ps(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        __m256 f = _mm256_andnot_ps(sign, _mm256_sub_ps(v, t));
        __m256 unit = _mm256_or_ps(_mm256_set1_ps(1.0f), _mm256_and_ps(sign, v));
        return _mm256_add_ps(t, _mm256_and_ps(_mm256_cmp_ps(f, _mm256_set1_ps(0.5f), _CMP_GE_OQ), unit));
    }
}

template <Rnd R> inline __m256d round_pd(__m256d v) {
    if constexpr (R == Rnd::Zero) {
        return _mm256_round_pd(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
    } else if constexpr (R == Rnd::Even) {
        return _mm256_round_pd(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    } else {  // the double-source members round half away exactly in every mode
        const __m256d sign = _mm256_set1_pd(-0.0);
        __m256d t = _mm256_round_pd(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        __m256d f = _mm256_andnot_pd(sign, _mm256_sub_pd(v, t));
        __m256d unit = _mm256_or_pd(_mm256_set1_pd(1.0), _mm256_and_pd(sign, v));
        return _mm256_add_pd(t, _mm256_and_pd(_mm256_cmp_pd(f, _mm256_set1_pd(0.5), _CMP_GE_OQ), unit));
    }
}

// Rounded and converted to int32 lanes (out of range: INT32_MIN).
template <Rnd R> inline __m256i to_epi32(__m256 v) {
    if constexpr (R == Rnd::Zero) return _mm256_cvttps_epi32(v);
    else if constexpr (R == Rnd::EvenCsr) return _mm256_cvtps_epi32(v);
    else if constexpr (R == Rnd::AwayRZ) {  // the truncating conversion does the last step
        const __m256 sign = _mm256_set1_ps(-0.0f);
        __m256 a = _mm256_add_ps(_mm256_andnot_ps(sign, v), _mm256_set1_ps(0.5f));
        return _mm256_cvttps_epi32(_mm256_or_ps(a, _mm256_and_ps(sign, v)));
    } else return _mm256_cvttps_epi32(round_ps<R>(v));
}
template <Rnd R> inline __m128i to_epi32(__m256d v) {
    if constexpr (R == Rnd::Zero) return _mm256_cvttpd_epi32(v);
    else if constexpr (R == Rnd::EvenCsr) return _mm256_cvtpd_epi32(v);
    else return _mm256_cvttpd_epi32(round_pd<R>(v));
}

// Calls f.template operator()<R>() for the rounding R, so that each mode
// gets its own kernel.
template <class F> inline void with_rnd(Rnd r, F&& f) {
    switch (r) {
        case Rnd::Zero: f.template operator()<Rnd::Zero>(); break;
        case Rnd::Even: f.template operator()<Rnd::Even>(); break;
        case Rnd::Away: f.template operator()<Rnd::Away>(); break;
        case Rnd::AwayRZ: f.template operator()<Rnd::AwayRZ>(); break;
        case Rnd::EvenCsr: f.template operator()<Rnd::EvenCsr>(); break;
    }
}

}  // namespace zams::cvt
