// A-law and mu-law companding: decoding, encoding and conversion between the
// laws. The scalar forms read tables built at compile time from the laws'
// intervals; the vector forms compute the same codes and values with integer
// arithmetic on sixteen samples at a time (the segment of a value is read
// from the exponent of its float image). Tests hold both to the same bits.
#include <immintrin.h>

#include <array>
#include <cstdint>

#include "../common/check.h"
#include "../common/loop.h"

namespace zams {
namespace {

// Both laws' vector decoding: the magnitude from a base and a multiplier in
// 16-bit lanes (widened from bytes), negated where the code's top bit is clear.
template <class Mag>
inline void decode_halves(__m128i base, __m128i mul, __m128i c, Mag mag, __m128i& lo, __m128i& hi) {
    const __m128i z = _mm_setzero_si128(), pos = _mm_cmpgt_epi8(z, c);
    auto half = [&](__m128i b, __m128i m, __m128i p) {
        const __m128i n = _mm_cmpeq_epi16(p, z);
        return _mm_sub_epi16(_mm_xor_si128(mag(b, m), n), n);
    };
    lo = half(_mm_cvtepu8_epi16(base), _mm_cvtepu8_epi16(mul), _mm_cvtepi8_epi16(pos));
    hi = half(_mm_unpackhi_epi8(base, z), _mm_unpackhi_epi8(mul, z), _mm_unpackhi_epi8(pos, pos));
}

// ------------------------------------------------------------------ A-law
// A code is the sign bit (1 for x >= 0) and seven bits s q (segment s,
// step q) with the even bits inverted (xor 0x55). On the 16-bit scale segment
// 0 covers [16 q, 16 q + 16); segment s >= 1 covers 2^(s-1) (256 + 16 q) with
// width 2^(s+3). A value decodes to its interval's middle. Encoding works on
// the 12-bit magnitude floor(x / 16), negative values by ones' complement.
struct ALaw {
    static constexpr int16_t decode(uint8_t c) {
        const int t = (c ^ 0x55) & 0x7F, s = t >> 4, q = t & 15;
        const int lo = s == 0 ? 16 * q : (256 + 16 * q) << (s - 1);
        const int width = s == 0 ? 16 : 16 << (s - 1);
        const int v = lo + width / 2;
        return int16_t(c & 0x80 ? v : -v);
    }
    // ix: 0..2047, the magnitude in steps of 16.
    static constexpr uint8_t encode_mag(int ix, bool positive) {
        int s = 0;
        while (s < 7 && ix >= (32 << s)) ++s;  // segment boundaries 32, 64, ... 2048
        const int q = s == 0 ? ix & 31 : (ix >> s) & 15;
        const int seven = s == 0 ? q : (s + 1) << 4 | q;  // ix < 32 is segments 0 and 1 alike
        return uint8_t((positive ? 0x80 : 0) | seven) ^ 0x55;
    }
    static constexpr int kIndexShift = 4;  // the code depends on x >> 4 only
    static constexpr uint8_t encode_index(int q) {  // q = x >> 4, -2048..2047
        return q >= 0 ? encode_mag(q, true) : encode_mag(-q - 1, false);
    }

    // Sixteen codes to two vectors of eight values.
    static void decode_vec(__m128i c, __m128i& lo, __m128i& hi) {
        const __m128i t = _mm_xor_si128(c, _mm_set1_epi8(0x55));
        const __m128i seg = _mm_and_si128(_mm_srli_epi16(t, 4), _mm_set1_epi8(7));
        const __m128i q = _mm_and_si128(t, _mm_set1_epi8(15));
        // per segment: multiplier 2^(s-1) (1 for s = 0) and the implicit step 16 (s >= 1)
        const __m128i mul = _mm_shuffle_epi8(_mm_setr_epi8(1, 1, 2, 4, 8, 16, 32, 64, 0, 0, 0, 0, 0, 0, 0, 0), seg);
        const __m128i lead = _mm_shuffle_epi8(_mm_setr_epi8(0, 16, 16, 16, 16, 16, 16, 16, 0, 0, 0, 0, 0, 0, 0, 0), seg);
        const __m128i base = _mm_or_si128(q, lead);  // q or 16 + q, fits a byte
        decode_halves(base, mul, c, [](__m128i b, __m128i m) {
            return _mm_mullo_epi16(_mm_or_si128(_mm_slli_epi16(b, 4), _mm_set1_epi16(8)), m);
        }, lo, hi);
    }
    // Eight values to eight codes (in 16-bit lanes).
    static __m128i encode_vec(__m128i x) {
        const __m128i sgn = _mm_srai_epi16(x, 15);
        const __m128i ix = _mm_srli_epi16(_mm_xor_si128(x, sgn), 4);  // 0..2047
        // ix >= 16 is 2^k (1.f), k = 4..10: the code is (k - 3) << 4 | top four bits of f,
        // the float's bits shifted right by 19 less (130 << 4).
        auto seg = [](__m128i i32) {
            return _mm_sub_epi32(_mm_srli_epi32(_mm_castps_si128(_mm_cvtepi32_ps(i32)), 19), _mm_set1_epi32(130 << 4));
        };
        __m128i code = _mm_packs_epi32(seg(_mm_cvtepu16_epi32(ix)), seg(_mm_unpackhi_epi16(ix, _mm_setzero_si128())));
        code = _mm_blendv_epi8(ix, code, _mm_cmpgt_epi16(ix, _mm_set1_epi16(15)));
        code = _mm_or_si128(code, _mm_andnot_si128(sgn, _mm_set1_epi16(0x80)));
        return _mm_xor_si128(code, _mm_set1_epi16(0x55));
    }
};

// ----------------------------------------------------------------- mu-law
// A code is the complement of the sign bit (1 for x >= 0 after the
// complement) and seven bits e q; with t = ~code & 0x7F, e = t >> 4 and
// q = t & 15 the interval on the 16-bit scale is [(132 + 8 q) 2^e - 132 - 4 2^e,
// + 8 2^e), decoded to its middle (132 + 8 q) 2^e - 132. Encoding works on
// the biased magnitude floor(|x| / 4) + 33 (ones' complement for negative x),
// at most 8191.
struct MuLaw {
    static constexpr int16_t decode(uint8_t c) {
        const int t = ~c & 0x7F, e = t >> 4, q = t & 15;
        const int v = ((132 + 8 * q) << e) - 132;
        return int16_t(c & 0x80 ? v : -v);
    }
    static constexpr uint8_t encode_mag(int a, bool positive) {  // a: 33..8191
        int e = 0;
        while (e < 7 && a >= (64 << e)) ++e;  // a in [32 2^e, 64 2^e), or below 64 for e = 0
        const int q = (a >> (e + 1)) & 15;
        const int code = (7 - e) << 4 | (15 - q);
        return uint8_t(code | (positive ? 0x80 : 0));
    }
    static constexpr int kIndexShift = 2;  // the code depends on x >> 2 only
    static constexpr uint8_t encode_index(int q) {  // q = x >> 2, -8192..8191
        const int a = (q >= 0 ? q : -q - 1) + 33;
        return encode_mag(a > 8191 ? 8191 : a, q >= 0);
    }

    static void decode_vec(__m128i c, __m128i& lo, __m128i& hi) {
        const __m128i t = _mm_andnot_si128(c, _mm_set1_epi8(0x7F));
        const __m128i e = _mm_and_si128(_mm_srli_epi16(t, 4), _mm_set1_epi8(7));
        const __m128i q = _mm_and_si128(t, _mm_set1_epi8(15));
        const __m128i mul =
            _mm_shuffle_epi8(_mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, char(128), 0, 0, 0, 0, 0, 0, 0, 0), e);
        decode_halves(q, mul, c, [](__m128i b, __m128i m) {
            const __m128i v = _mm_mullo_epi16(_mm_add_epi16(_mm_slli_epi16(b, 3), _mm_set1_epi16(132)), m);
            return _mm_sub_epi16(v, _mm_set1_epi16(132));
        }, lo, hi);
    }
    static __m128i encode_vec(__m128i x) {
        const __m128i sgn = _mm_srai_epi16(x, 15);
        __m128i a = _mm_add_epi16(_mm_srli_epi16(_mm_xor_si128(x, sgn), 2), _mm_set1_epi16(33));
        a = _mm_min_epi16(a, _mm_set1_epi16(8191));
        // a = 2^k (1.f), k = 5..12: the code is (12 - k) << 4 | (15 - top four bits of f),
        // that is 2239 less the float's bits shifted right by 19.
        auto seg = [](__m128i i32) {
            return _mm_sub_epi32(_mm_set1_epi32(2239), _mm_srli_epi32(_mm_castps_si128(_mm_cvtepi32_ps(i32)), 19));
        };
        __m128i code = _mm_packs_epi32(seg(_mm_cvtepu16_epi32(a)), seg(_mm_unpackhi_epi16(a, _mm_setzero_si128())));
        return _mm_or_si128(code, _mm_andnot_si128(sgn, _mm_set1_epi16(0x80)));
    }
};

template <class Law> struct Tables {
    std::array<int16_t, 256> dec{};
    std::array<uint8_t, (65536 >> Law::kIndexShift)> enc{};
    constexpr Tables() {
        for (int c = 0; c < 256; ++c) dec[c] = Law::decode(uint8_t(c));
        constexpr int n = 65536 >> Law::kIndexShift;
        for (int i = 0; i < n; ++i) enc[i] = Law::encode_index(i < n / 2 ? i : i - n);
    }
    uint8_t encode(int16_t x) const { return enc[uint16_t(x) >> Law::kIndexShift]; }
};
template <class Law> constexpr Tables<Law> kTab{};

// A float on the 16-bit scale: clamped, rounded down, NaN as 0.
inline int16_t float_to_lin(float x) {
    if (!(x == x)) return 0;
    x = x < -32768.0f ? -32768.0f : (x > 32767.0f ? 32767.0f : x);
    return int16_t(_mm_cvtss_si32(_mm_floor_ss(_mm_setzero_ps(), _mm_set_ss(x))));
}
inline __m128i floats_to_lin(const float* p) {
    auto one = [](__m256 x) {
        const __m256 ord = _mm256_cmp_ps(x, x, _CMP_ORD_Q);
        x = _mm256_min_ps(_mm256_max_ps(x, _mm256_set1_ps(-32768.0f)), _mm256_set1_ps(32767.0f));
        return _mm256_cvttps_epi32(_mm256_and_ps(_mm256_floor_ps(x), ord));
    };
    const __m256i a = one(_mm256_loadu_ps(p));
    return _mm_packs_epi32(_mm256_castsi256_si128(a), _mm256_extractf128_si256(a, 1));
}

inline void store_lin(Zam16s* d, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(d), v); }
inline void store_lin(Zam32f* d, __m128i v) {
    _mm256_storeu_ps(d, _mm256_cvtepi32_ps(
                            _mm256_insertf128_si256(_mm256_castsi128_si256(_mm_cvtepi16_epi32(v)),
                                                    _mm_cvtepi16_epi32(_mm_unpackhi_epi64(v, v)), 1)));
}
inline __m128i load_lin(const Zam16s* s) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(s)); }
inline __m128i load_lin(const Zam32f* s) { return floats_to_lin(s); }
inline int16_t lin_of(Zam16s x) { return x; }
inline int16_t lin_of(Zam32f x) { return float_to_lin(x); }

template <class Law, class D> zamStatus to_lin(const Zam8u* src, D* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for_each_block<16>(
        dst, len, [&](int i) { dst[i] = D(kTab<Law>.dec[src[i]]); },
        [&](int i) {
            __m128i lo, hi;
            Law::decode_vec(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i)), lo, hi);
            store_lin(dst + i, lo);
            store_lin(dst + i + 8, hi);
        });
    return zamStatusOk;
}

template <class Law, class S> zamStatus from_lin(const S* src, Zam8u* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for_each_block<16, 16>(
        dst, len, [&](int i) { dst[i] = kTab<Law>.encode(lin_of(src[i])); },
        [&](int i) {
            const __m128i a = Law::encode_vec(load_lin(src + i)), b = Law::encode_vec(load_lin(src + i + 8));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), _mm_packus_epi16(a, b));
        });
    return zamStatusOk;
}

template <class From, class To> zamStatus transcode(const Zam8u* src, Zam8u* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for_each_block<16, 16>(
        dst, len, [&](int i) { dst[i] = kTab<To>.encode(kTab<From>.dec[src[i]]); },
        [&](int i) {
            __m128i lo, hi;
            From::decode_vec(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i)), lo, hi);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), _mm_packus_epi16(To::encode_vec(lo), To::encode_vec(hi)));
        });
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsALawToLin_8u16s)(const Zam8u* s, Zam16s* d, int n) { return to_lin<ALaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsALawToLin_8u32f)(const Zam8u* s, Zam32f* d, int n) { return to_lin<ALaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsMuLawToLin_8u16s)(const Zam8u* s, Zam16s* d, int n) { return to_lin<MuLaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsMuLawToLin_8u32f)(const Zam8u* s, Zam32f* d, int n) { return to_lin<MuLaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsLinToALaw_16s8u)(const Zam16s* s, Zam8u* d, int n) { return from_lin<ALaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsLinToALaw_32f8u)(const Zam32f* s, Zam8u* d, int n) { return from_lin<ALaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsLinToMuLaw_16s8u)(const Zam16s* s, Zam8u* d, int n) { return from_lin<MuLaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsLinToMuLaw_32f8u)(const Zam32f* s, Zam8u* d, int n) { return from_lin<MuLaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsALawToMuLaw_8u)(const Zam8u* s, Zam8u* d, int n) { return transcode<ALaw, MuLaw>(s, d, n); }
ZAMS_FN(zamStatus, zamsMuLawToALaw_8u)(const Zam8u* s, Zam8u* d, int n) { return transcode<MuLaw, ALaw>(s, d, n); }
