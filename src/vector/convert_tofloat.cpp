// Conversion to floating point: from integers (with an optional power-of-two
// scale) and between single and double precision.
#include <immintrin.h>

#include <algorithm>
#include <cfloat>

#include "../common/check.h"
#include "convert_kernels.h"

namespace zams {
namespace {

using cvt::ld;
using cvt::run_blocks;
using cvt::st;

inline __m128i ld8(const uint8_t* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
inline void stf(uint8_t* p, __m256 v) { _mm256_storeu_ps(reinterpret_cast<float*>(p), v); }
inline void std4(uint8_t* p, __m256d v) { _mm256_storeu_pd(reinterpret_cast<double*>(p), v); }

// Small integers to single: 8 lanes a step, each widened to int32, converted
// (exact below 2^24) and multiplied by a power of two (exact: the clamps keep
// the product normal).
enum class Small { S8, U8, S16, U16, S24, U24 };

template <Small K> inline void small_to_ps(const uint8_t* s, __m128i& lo, __m128i& hi) {
    if constexpr (K == Small::S8 || K == Small::U8) {
        __m128i x = ld8(s);
        if constexpr (K == Small::S8) lo = _mm_cvtepi8_epi32(x), hi = _mm_cvtepi8_epi32(_mm_srli_si128(x, 4));
        else lo = _mm_cvtepu8_epi32(x), hi = _mm_cvtepu8_epi32(_mm_srli_si128(x, 4));
    } else if constexpr (K == Small::S16 || K == Small::U16) {
        __m128i x = ld(s);
        if constexpr (K == Small::S16) lo = _mm_cvtepi16_epi32(x), hi = _mm_cvtepi16_epi32(_mm_srli_si128(x, 8));
        else lo = _mm_cvtepu16_epi32(x), hi = _mm_cvtepu16_epi32(_mm_srli_si128(x, 8));
    } else {
        cvt::load24x8<K == Small::S24>(s, lo, hi);
    }
}

template <Small K> constexpr size_t small_bytes() {
    return K == Small::S8 || K == Small::U8 ? 1 : K == Small::S16 || K == Small::U16 ? 2 : 3;
}

template <Small K> zamStatus small_32f(const void* src, Zam32f* dst, int len, float mul) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const __m256 m = _mm256_set1_ps(mul);
    run_blocks<small_bytes<K>(), 4, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        __m128i lo, hi;
        small_to_ps<K>(s, lo, hi);
        stf(d, _mm256_mul_ps(cvt::to_ps(lo, hi), m));
    });
    return zamStatusOk;
}

// x * 2^-sf with the factor clamped to [lo, hi]; a zero factor multiplies by 1.
inline float scale_f(int sf, int lo, int hi) { return pow2f(-std::clamp(sf, lo, hi)); }
inline double scale_d(int sf, int lo, int hi) { return pow2(-std::clamp(sf, lo, hi)); }

// 32-bit integers to single: the conversion rounds in the processor's
// current direction, the power of two after it is exact.
zamStatus s32_32f(const Zam32s* src, Zam32f* dst, int len, float mul) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const __m256 m = _mm256_set1_ps(mul);
    run_blocks<4, 4, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s));
        stf(d, _mm256_mul_ps(_mm256_cvtepi32_ps(x), m));
    });
    return zamStatusOk;
}

// 16-bit and 32-bit integers to double: exact.
template <bool From16> zamStatus int_64f(const void* src, Zam64f* dst, int len, double mul) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const __m256d m = _mm256_set1_pd(mul);
    run_blocks<From16 ? 2 : 4, 8, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        __m128i lo, hi;
        if constexpr (From16) {
            __m128i x = ld(s);
            lo = _mm_cvtepi16_epi32(x), hi = _mm_cvtepi16_epi32(_mm_srli_si128(x, 8));
        } else {
            lo = ld(s), hi = ld(s + 16);
        }
        std4(d, _mm256_mul_pd(_mm256_cvtepi32_pd(lo), m));
        std4(d + 32, _mm256_mul_pd(_mm256_cvtepi32_pd(hi), m));
    });
    return zamStatusOk;
}

// 64-bit integers to double, rounded once: x = hi * 2^32 + lo with hi signed
// and lo unsigned; both parts and hi * 2^32 are exact doubles, so the one
// addition is the only rounding.
zamStatus s64_64f(const Zam64s* src, Zam64f* dst, int len) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (len == 0) return zamStatusBadLength;  // the length is an unsigned count here
    const __m256d two32 = _mm256_set1_pd(4294967296.0), two31 = _mm256_set1_pd(2147483648.0);
    const __m128i flip = _mm_set1_epi32(INT32_MIN);
    run_blocks<8, 8, 4>(src, dst, size_t(static_cast<unsigned>(len)), [&](const uint8_t* s, uint8_t* d) {
        __m128 a = _mm_castsi128_ps(ld(s)), b = _mm_castsi128_ps(ld(s + 16));
        __m128i lo = _mm_castps_si128(_mm_shuffle_ps(a, b, _MM_SHUFFLE(2, 0, 2, 0)));
        __m128i hi = _mm_castps_si128(_mm_shuffle_ps(a, b, _MM_SHUFFLE(3, 1, 3, 1)));
        __m256d l = _mm256_add_pd(_mm256_cvtepi32_pd(_mm_xor_si128(lo, flip)), two31);
        std4(d, _mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(hi), two32), l));
    });
    return zamStatusOk;
}

zamStatus f32_64f(const Zam32f* src, Zam64f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    run_blocks<4, 8, 8>(src, dst, size_t(len), [](const uint8_t* s, uint8_t* d) {
        const float* f = reinterpret_cast<const float*>(s);
        std4(d, _mm256_cvtps_pd(_mm_loadu_ps(f)));
        std4(d + 32, _mm256_cvtps_pd(_mm_loadu_ps(f + 4)));
    });
    return zamStatusOk;
}

// Double to single: beyond the single range the largest finite value (by
// sign), then rounded in the current direction. A NaN stays a NaN.
zamStatus f64_32f(const Zam64f* src, Zam32f* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const __m256d hi = _mm256_set1_pd(FLT_MAX), lo = _mm256_set1_pd(-FLT_MAX);
    run_blocks<8, 4, 8>(src, dst, size_t(len), [&](const uint8_t* s, uint8_t* d) {
        const double* p = reinterpret_cast<const double*>(s);
        // min/max return their second operand when one is a NaN.
        __m256d a = _mm256_max_pd(lo, _mm256_min_pd(hi, _mm256_loadu_pd(p)));
        __m256d b = _mm256_max_pd(lo, _mm256_min_pd(hi, _mm256_loadu_pd(p + 4)));
        _mm_storeu_ps(reinterpret_cast<float*>(d), _mm256_cvtpd_ps(a));
        _mm_storeu_ps(reinterpret_cast<float*>(d + 16), _mm256_cvtpd_ps(b));
    });
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsConvert_8s32f)(const Zam8s* pSrc, Zam32f* pDst, int len) { return small_32f<Small::S8>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_8u32f)(const Zam8u* pSrc, Zam32f* pDst, int len) { return small_32f<Small::U8>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_16s32f)(const Zam16s* pSrc, Zam32f* pDst, int len) { return small_32f<Small::S16>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_16u32f)(const Zam16u* pSrc, Zam32f* pDst, int len) { return small_32f<Small::U16>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_24s32f)(const Zam24s* pSrc, Zam32f* pDst, int len) { return small_32f<Small::S24>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_24u32f)(const Zam24u* pSrc, Zam32f* pDst, int len) { return small_32f<Small::U24>(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_16s32f_Sfs)(const Zam16s* pSrc, Zam32f* pDst, int len, int scaleFactor) {
    return small_32f<Small::S16>(pSrc, pDst, len, scale_f(scaleFactor, -112, 126));
}
ZAMS_FN(zamStatus, zamsConvert_32s32f)(const Zam32s* pSrc, Zam32f* pDst, int len) { return s32_32f(pSrc, pDst, len, 1.0f); }
ZAMS_FN(zamStatus, zamsConvert_32s32f_Sfs)(const Zam32s* pSrc, Zam32f* pDst, int len, int scaleFactor) {
    return s32_32f(pSrc, pDst, len, scale_f(scaleFactor, -96, 126));
}
ZAMS_FN(zamStatus, zamsConvert_16s64f_Sfs)(const Zam16s* pSrc, Zam64f* pDst, int len, int scaleFactor) {
    return int_64f<true>(pSrc, pDst, len, scale_d(scaleFactor, -1008, 1022));
}
ZAMS_FN(zamStatus, zamsConvert_32s64f)(const Zam32s* pSrc, Zam64f* pDst, int len) { return int_64f<false>(pSrc, pDst, len, 1.0); }
ZAMS_FN(zamStatus, zamsConvert_32s64f_Sfs)(const Zam32s* pSrc, Zam64f* pDst, int len, int scaleFactor) {
    return int_64f<false>(pSrc, pDst, len, scale_d(scaleFactor, -992, 1022));
}
ZAMS_FN(zamStatus, zamsConvert_64s64f)(const Zam64s* pSrc, Zam64f* pDst, int len) { return s64_64f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_32f64f)(const Zam32f* pSrc, Zam64f* pDst, int len) { return f32_64f(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsConvert_64f32f)(const Zam64f* pSrc, Zam32f* pDst, int len) { return f64_32f(pSrc, pDst, len); }
