// Half precision (IEEE binary16): to and from single precision, from 16-bit
// integers, and to 16-bit integers with a scale. Each member has a hardware
// path (F16C, asked for once a call) and a software path; both give the same
// bits for every input, NaN payloads and sub-normals included.
#include <immintrin.h>

#include <algorithm>

#include "../common/check.h"
#include "convert_kernels.h"
#include "zamcore.h"

namespace zams {
namespace {

using cvt::ld;
using cvt::run_blocks;
using cvt::st;

inline __m128i k32(int v) { return _mm_set1_epi32(v); }

inline bool have_f16c() { return (ownGetFeature() & ZAM_CPU_F16C) != 0; }

// Hardware blocks are 32 elements, so that the call into the F16C code is
// paid once for 32 conversions.
constexpr size_t kHw = 32;

// ---- software path ----

// 4 singles to 4 half patterns (in int32 lanes), nearest-even or toward zero.
template <bool Even> inline __m128i sw_to_half4(__m128 v) {
    __m128i x = _mm_castps_si128(v);
    __m128i sign = _mm_and_si128(_mm_srli_epi32(x, 16), k32(0x8000));
    __m128i a = _mm_and_si128(x, k32(0x7FFFFFFF));
    // Normal results: rebias the exponent and drop 13 fraction bits, with
    // nearest-even adding just under one half plus the lowest kept bit (a
    // carry into the exponent is the right result, up to infinity).
    __m128i r = _mm_sub_epi32(a, k32(0x38000000));
    if constexpr (Even) r = _mm_add_epi32(r, _mm_add_epi32(k32(0xFFF), _mm_and_si128(_mm_srli_epi32(a, 13), k32(1))));
    r = _mm_srli_epi32(r, 13);
    // Below 2^-14: the half pattern is |v| * 2^24 (exact) rounded to an integer.
    __m128 sv = _mm_mul_ps(_mm_castsi128_ps(a), _mm_set1_ps(16777216.0f));
    __m128i sub = _mm_cvttps_epi32(
        _mm_round_ps(sv, (Even ? _MM_FROUND_TO_NEAREST_INT : _MM_FROUND_TO_ZERO) | _MM_FROUND_NO_EXC));
    r = _mm_blendv_epi8(r, sub, _mm_cmpgt_epi32(k32(0x38800000), a));
    // From 65536 up: infinity to nearest, the largest finite value toward zero.
    r = _mm_blendv_epi8(r, k32(Even ? 0x7C00 : 0x7BFF), _mm_cmpgt_epi32(a, k32(0x477FFFFF)));
    // Infinity stays infinity; a NaN becomes a quiet NaN with the top of its payload.
    __m128i nan = _mm_or_si128(k32(0x7E00), _mm_and_si128(_mm_srli_epi32(a, 13), k32(0x3FF)));
    __m128i special = _mm_blendv_epi8(k32(0x7C00), nan, _mm_cmpgt_epi32(a, k32(0x7F800000)));
    r = _mm_blendv_epi8(r, special, _mm_cmpgt_epi32(a, k32(0x7F7FFFFF)));
    return _mm_or_si128(r, sign);
}

template <bool Even> inline __m128i sw_to_half8(__m128 lo, __m128 hi) {
    return _mm_packus_epi32(sw_to_half4<Even>(lo), sw_to_half4<Even>(hi));
}

// 4 half patterns (zero-extended int32 lanes) to 4 singles.
inline __m128 sw_from_half4(__m128i h) {
    __m128i sign = _mm_slli_epi32(_mm_and_si128(h, k32(0x8000)), 16);
    __m128i m = _mm_and_si128(h, k32(0x7FFF));
    __m128i r = _mm_add_epi32(_mm_slli_epi32(m, 13), k32(0x38000000));
    // Infinity and NaN keep their payload; a NaN comes out quiet.
    __m128i special = _mm_or_si128(_mm_or_si128(_mm_slli_epi32(m, 13), k32(0x7F800000)),
                                   _mm_and_si128(_mm_cmpgt_epi32(m, k32(0x7C00)), k32(0x00400000)));
    r = _mm_blendv_epi8(r, special, _mm_cmpgt_epi32(m, k32(0x7BFF)));
    // Sub-normals and zero: the fraction times 2^-24, exact.
    __m128i sub = _mm_castps_si128(_mm_mul_ps(_mm_cvtepi32_ps(m), _mm_set1_ps(1.0f / 16777216.0f)));
    r = _mm_blendv_epi8(r, sub, _mm_cmpgt_epi32(k32(0x0400), m));
    return _mm_castsi128_ps(_mm_or_si128(r, sign));
}

inline __m256 sw_from_half8(__m128i h) {
    __m128 lo = sw_from_half4(_mm_cvtepu16_epi32(h));
    __m128 hi = sw_from_half4(_mm_unpackhi_epi16(h, _mm_setzero_si128()));
    return _mm256_insertf128_ps(_mm256_castps128_ps256(lo), hi, 1);
}

// ---- the members ----

zamStatus half_32f(const Zam16f* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (have_f16c()) {
        run_blocks<2, 4, kHw>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) __attribute__((target("f16c"))) {
            for (size_t j = 0; j < kHw; j += 8)
                _mm256_storeu_ps(reinterpret_cast<float*>(d + 4 * j), _mm256_cvtph_ps(ld(s + 2 * j)));
        });
    } else {
        run_blocks<2, 4, 8>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
            _mm256_storeu_ps(reinterpret_cast<float*>(d), sw_from_half8(ld(s)));
        });
    }
    return zamStatusOk;
}

// Singles (or 16-bit integers, converted exactly first) to half.
template <bool FromInt, bool Even> void to_half_run(const void* src, Zam16f* dst, size_t n, bool hw) {
    constexpr size_t SB = FromInt ? 2 : 4;
    auto load8 = [](const uint8_t* s) {
        if constexpr (FromInt) {
            __m128i x = ld(s);
            return cvt::to_ps(_mm_cvtepi16_epi32(x), _mm_cvtepi16_epi32(_mm_srli_si128(x, 8)));
        } else {
            return _mm256_loadu_ps(reinterpret_cast<const float*>(s));
        }
    };
    if (hw) {
        run_blocks<SB, 2, kHw>(src, dst, n, [&](const uint8_t* s, uint8_t* d) __attribute__((target("f16c"))) {
            for (size_t j = 0; j < kHw; j += 8)
                st(d + 2 * j, _mm256_cvtps_ph(load8(s + SB * j), Even ? _MM_FROUND_TO_NEAREST_INT : _MM_FROUND_TO_ZERO));
        });
    } else {
        run_blocks<SB, 2, 8>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
            __m256 v = load8(s);
            st(d, sw_to_half8<Even>(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1)));
        });
    }
}

// Mode 2 is refused; 1 is nearest-even and every other value toward zero.
template <bool FromInt> zamStatus to_half(const void* src, Zam16f* dst, int len, int mode) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (mode == 2) return zamStatusBadRoundMode;
    const bool hw = have_f16c();
    if (mode == 1) to_half_run<FromInt, true>(src, dst, size_t(len), hw);
    else to_half_run<FromInt, false>(src, dst, size_t(len), hw);
    return zamStatusOk;
}

// Half to 16-bit integers times 2^-sf. The value is exact in single
// precision and so is its product with 2^-sf for |sf| <= 40; beyond that
// every finite value rounds to 0 (sf > 40) or saturates (sf < -40), as it
// does at +-40. The magnitude is rounded (nearest-even or toward zero), its
// sign put back, and the result saturated. A net left shift of the
// significand by more than 4 bits saturates, also for a sub-normal whose
// shifted significand would fit; a NaN gives 0.
class Half16s {
public:
    Half16s(int mode, int sf) {
        int c = std::clamp(sf, -40, 40);
        mul_ = _mm256_set1_ps(pow2f(-c));
        even_ = mode == 1;
        shift_limit_ = _mm_set1_epi16(short(29 + c));  // effective exponent field above this: shift > 4
    }
    template <bool Even> __m128i apply(__m128i h, __m256 f) const {
        const __m256 sign = _mm256_set1_ps(-0.0f);
        __m256 m = _mm256_mul_ps(_mm256_andnot_ps(sign, f), mul_);
        m = _mm256_round_ps(m, (Even ? _MM_FROUND_TO_NEAREST_INT : _MM_FROUND_TO_ZERO) | _MM_FROUND_NO_EXC);
        m = _mm256_min_ps(m, _mm256_set1_ps(32768.0f));
        __m256i i = _mm256_cvttps_epi32(m);
        __m256i fb = _mm256_castps_si256(f);
        __m128i s0 = _mm_srai_epi32(cvt::lo128(fb), 31), s1 = _mm_srai_epi32(cvt::hi128(fb), 31);
        __m128i lo = _mm_sub_epi32(_mm_xor_si128(cvt::lo128(i), s0), s0);
        __m128i hi = _mm_sub_epi32(_mm_xor_si128(cvt::hi128(i), s1), s1);
        __m128i r = _mm_packs_epi32(lo, hi);
        // The checks on the raw half patterns, 8 lanes of 16 bits.
        __m128i mag = _mm_and_si128(h, _mm_set1_epi16(0x7FFF));
        __m128i e = _mm_max_epi16(_mm_srli_epi16(mag, 10), _mm_set1_epi16(1));
        __m128i big = _mm_andnot_si128(_mm_cmpeq_epi16(mag, _mm_setzero_si128()), _mm_cmpgt_epi16(e, shift_limit_));
        __m128i bound = _mm_xor_si128(_mm_set1_epi16(0x7FFF), _mm_srai_epi16(h, 15));
        r = _mm_blendv_epi8(r, bound, big);
        return _mm_andnot_si128(_mm_cmpgt_epi16(mag, _mm_set1_epi16(0x7C00)), r);
    }
    bool even() const { return even_; }

private:
    __m256 mul_;
    __m128i shift_limit_;
    bool even_;
};

template <bool Even> void half_16s_run(const Zam16f* src, Zam16s* dst, size_t n, const Half16s& k, bool hw) {
    if (hw) {
        run_blocks<2, 2, kHw>(src, dst, n, [&](const uint8_t* s, uint8_t* d) __attribute__((target("f16c"))) {
            for (size_t j = 0; j < kHw; j += 8) {
                __m128i h = ld(s + 2 * j);
                st(d + 2 * j, k.apply<Even>(h, _mm256_cvtph_ps(h)));
            }
        });
    } else {
        run_blocks<2, 2, 8>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
            __m128i h = ld(s);
            st(d, k.apply<Even>(h, sw_from_half8(h)));
        });
    }
}

zamStatus half_16s(const Zam16f* src, Zam16s* dst, int len, int mode, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if (mode == 2) return zamStatusBadRoundMode;
    const Half16s k(mode, sf);
    const bool hw = have_f16c();
    if (k.even()) half_16s_run<true>(src, dst, size_t(len), k, hw);
    else half_16s_run<false>(src, dst, size_t(len), k, hw);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsConvert_16f32f)(const Zam16f* pSrc, Zam32f* pDst, int len) { return half_32f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_32f16f)(const Zam32f* pSrc, Zam16f* pDst, int len, zamRoundMode rndMode) {
    return to_half<false>(pSrc, pDst, len, rndMode);
}
ZAMS_FN(zamStatus, zamsConvert_16s16f)(const Zam16s* pSrc, Zam16f* pDst, int len, zamRoundMode rndMode) {
    return to_half<true>(pSrc, pDst, len, rndMode);
}
ZAMS_FN(zamStatus, zamsConvert_16f16s_Sfs)(const Zam16f* pSrc, Zam16s* pDst, int len, zamRoundMode rndMode,
                                           int scaleFactor) {
    return half_16s(pSrc, pDst, len, rndMode, scaleFactor);
}
