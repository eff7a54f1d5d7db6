// Floating point to integer with a rounding mode, a power-of-two scale and
// saturation. Each value goes through the same steps: times the multiplier,
// clamped from above to the largest destination value (a NaN takes it),
// rounded by the mode, converted, saturated from below.
#include <immintrin.h>

#include <cstdint>

#include "../common/check.h"
#include "../common/fpenv.h"
#include "convert_kernels.h"

namespace zams {
namespace {

using cvt::Rnd;
using cvt::ld;
using cvt::run_blocks;
using cvt::st;


enum class To { S8, U8, S16, U16, S32, S24, U24 };

template <To K> constexpr float top() {
    switch (K) {
        case To::S8: return 127.0f;
        case To::U8: return 255.0f;
        case To::S16: return 32767.0f;
        case To::U16: return 65535.0f;
        case To::S32: return 2147483647.0f;  // 2^31 in single precision
        case To::S24: return 8388607.0f;
        default: return 16777215.0f;
    }
}
template <To K> constexpr size_t bytes_of() {
    return K == To::S8 || K == To::U8 ? 1 : K == To::S16 || K == To::U16 ? 2 : K == To::S32 ? 4 : 3;
}

// 8 singles to 8 int32 (as two halves), up to the conversion.
template <To K, Rnd R> inline void f32_lanes(const uint8_t* s, __m256 mul, __m128i& lo, __m128i& hi) {
    __m256 v = _mm256_mul_ps(_mm256_loadu_ps(reinterpret_cast<const float*>(s)), mul);
    v = _mm256_min_ps(v, _mm256_set1_ps(top<K>()));  // a NaN gives the second operand
    __m256i i = cvt::to_epi32<R>(v);  // below the int32 range: INT32_MIN, which saturates
    if constexpr (K == To::S32) {
        // 2^31 converts to INT32_MIN as well; flipping every bit makes it
        // INT32_MAX. (Below 2^31 the next single is 2^31 - 128: no rounding
        // reaches 2^31.)
        __m256 big = _mm256_cmp_ps(v, _mm256_set1_ps(2147483648.0f), _CMP_GE_OQ);
        i = _mm256_castps_si256(_mm256_xor_ps(_mm256_castsi256_ps(i), big));
    }
    lo = cvt::lo128(i);
    hi = cvt::hi128(i);
}

template <To K, Rnd R> void f32_run(const Zam32f* src, void* dst, size_t n, float mul) {
    const __m256 m = _mm256_set1_ps(mul);
    run_blocks<4, bytes_of<K>(), 16>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
        __m128i a, b, c, e;
        f32_lanes<K, R>(s, m, a, b);
        f32_lanes<K, R>(s + 32, m, c, e);
        if constexpr (K == To::S8) {
            st(d, _mm_packs_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, e)));
        } else if constexpr (K == To::U8) {
            st(d, _mm_packus_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, e)));
        } else if constexpr (K == To::S16) {
            st(d, _mm_packs_epi32(a, b));
            st(d + 16, _mm_packs_epi32(c, e));
        } else if constexpr (K == To::U16) {
            st(d, _mm_packus_epi32(a, b));
            st(d + 16, _mm_packus_epi32(c, e));
        } else if constexpr (K == To::S32) {
            st(d, a), st(d + 16, b), st(d + 32, c), st(d + 48, e);
        } else {
            const __m128i floor = _mm_set1_epi32(K == To::S24 ? -8388608 : 0);
            cvt::store24x8(d, _mm_max_epi32(a, floor), _mm_max_epi32(b, floor));
            cvt::store24x8(d + 24, _mm_max_epi32(c, floor), _mm_max_epi32(e, floor));
        }
    });
}

// The single-precision members with a mode. The 8-bit and 16-bit ones round
// half away as |x| + 0.5 truncated, with the processor's direction set
// toward zero for the call so that the sum cannot round up to the next
// integer (0.49999997 + 0.5 would give 1.0 to nearest).
template <To K> zamStatus f32_int(const Zam32f* src, void* dst, int len, int mode, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const float mul = cvt::halved_multiplier(sf);
    Rnd r = cvt::with_csr(cvt::mode_of(mode));
    if constexpr (K == To::S32) {
        cvt::with_rnd(r, [&]<Rnd R>() {
            if constexpr (R != Rnd::AwayRZ) f32_run<K, R>(src, dst, size_t(len), mul);
        });
    } else if (r == Rnd::Away) {
        RoundingScope scope(Rounding::TowardZero);
        f32_run<K, Rnd::AwayRZ>(src, dst, size_t(len), mul);
    } else {
        cvt::with_rnd(r, [&]<Rnd R>() {
            if constexpr (R != Rnd::Away && R != Rnd::AwayRZ) f32_run<K, R>(src, dst, size_t(len), mul);
        });
    }
    return zamStatusOk;
}

// The packed 24-bit members take no mode: nearest-even.
template <To K> zamStatus f32_24(const Zam32f* src, uint8_t* dst, int len, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const float mul = cvt::halved_multiplier(sf);
    cvt::with_rnd(cvt::with_csr(Rnd::Even), [&]<Rnd R>() {
        if constexpr (R == Rnd::Even || R == Rnd::EvenCsr) f32_run<K, R>(src, dst, size_t(len), mul);
    });
    return zamStatusOk;
}

// ---- double sources ----

// 64f to 16s: clamped from above only, like the single members.
// 64f to 32s: clamped from both sides, and a NaN passes both clamps, so it
// converts to INT32_MIN.
template <bool To32, Rnd R> void f64_run(const Zam64f* src, void* dst, size_t n, double mul) {
    const __m256d m = _mm256_set1_pd(mul);
    auto lanes = [&](const uint8_t* s) {
        __m256d v = _mm256_mul_pd(_mm256_loadu_pd(reinterpret_cast<const double*>(s)), m);
        if constexpr (To32) {
            v = _mm256_min_pd(_mm256_set1_pd(2147483647.0), v);
            v = _mm256_max_pd(_mm256_set1_pd(-2147483648.0), v);
        } else {
            v = _mm256_min_pd(v, _mm256_set1_pd(32767.0));
        }
        return cvt::to_epi32<R>(v);
    };
    run_blocks<8, To32 ? 4 : 2, 8>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
        __m128i a = lanes(s), b = lanes(s + 32);
        if constexpr (To32) st(d, a), st(d + 16, b);
        else st(d, _mm_packs_epi32(a, b));
    });
}

template <bool To32> zamStatus f64_int(const Zam64f* src, void* dst, int len, int mode, int sf) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const double mul = cvt::halved_multiplier(sf);
    cvt::with_rnd(cvt::with_csr(cvt::mode_of(mode)), [&]<Rnd R>() {
        if constexpr (R != Rnd::AwayRZ) f64_run<To32, R>(src, dst, size_t(len), mul);
    });
    return zamStatusOk;
}

// 64f to 64s. After rounding, r = hi * 2^32 + lo with hi = floor(r / 2^32):
// both parts convert exactly through int32 lanes. r = 2^63 (the clamp)
// comes out as INT64_MIN, and flipping its bits gives INT64_MAX.
template <Rnd R> void f64_64s_run(const Zam64f* src, Zam64s* dst, size_t n, double mul) {
    const __m256d m = _mm256_set1_pd(mul), top = _mm256_set1_pd(9223372036854775808.0),
                  bottom = _mm256_set1_pd(-9223372036854775808.0), two32 = _mm256_set1_pd(4294967296.0),
                  inv32 = _mm256_set1_pd(1.0 / 4294967296.0), two31 = _mm256_set1_pd(2147483648.0);
    const __m128i flip = _mm_set1_epi32(INT32_MIN);
    run_blocks<8, 8, 4>(src, dst, n, [&](const uint8_t* s, uint8_t* d) {
        __m256d v = _mm256_mul_pd(_mm256_loadu_pd(reinterpret_cast<const double*>(s)), m);
        v = _mm256_min_pd(v, top);
        v = _mm256_max_pd(cvt::round_pd<R>(v), bottom);
        __m256d h = _mm256_round_pd(_mm256_mul_pd(v, inv32), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
        __m256d l = _mm256_sub_pd(_mm256_sub_pd(v, _mm256_mul_pd(h, two32)), two31);
        __m128i hi = _mm256_cvttpd_epi32(h), lo = _mm_xor_si128(_mm256_cvttpd_epi32(l), flip);
        __m256i big = _mm256_castpd_si256(_mm256_cmp_pd(v, top, _CMP_GE_OQ));
        st(d, _mm_xor_si128(_mm_unpacklo_epi32(lo, hi), cvt::lo128(big)));
        st(d + 16, _mm_xor_si128(_mm_unpackhi_epi32(lo, hi), cvt::hi128(big)));
    });
}

// Here 2 means half away, 1 nearest-even and every other value toward zero.
zamStatus f64_64s(const Zam64f* src, Zam64s* dst, int len, int mode, int sf) {
    if (zamStatus s = check_ptr(src, dst)) return s;
    if (len == 0) return zamStatusBadLength;  // the length is an unsigned count here
    const double mul = cvt::halved_multiplier(sf);
    Rnd r = mode == 2 ? Rnd::Away : mode == 1 ? Rnd::Even : Rnd::Zero;
    const size_t n = static_cast<unsigned>(len);
    cvt::with_rnd(r, [&]<Rnd R>() {
        if constexpr (R != Rnd::AwayRZ && R != Rnd::EvenCsr) f64_64s_run<R>(src, dst, n, mul);
    });
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_F32_INT(name, K, T)                                                                       \
    ZAMS_FN(zamStatus, name)(const Zam32f* pSrc, T* pDst, int len, zamRoundMode rndMode, int scaleFactor) { \
        return f32_int<K>(pSrc, pDst, len, rndMode, scaleFactor);                                      \
    }
ZAMS_F32_INT(zamsConvert_32f8s_Sfs, To::S8, Zam8s)
ZAMS_F32_INT(zamsConvert_32f8u_Sfs, To::U8, Zam8u)
ZAMS_F32_INT(zamsConvert_32f16s_Sfs, To::S16, Zam16s)
ZAMS_F32_INT(zamsConvert_32f16u_Sfs, To::U16, Zam16u)
ZAMS_F32_INT(zamsConvert_32f32s_Sfs, To::S32, Zam32s)
#undef ZAMS_F32_INT

ZAMS_FN(zamStatus, zamsConvert_32f24s_Sfs)(const Zam32f* pSrc, Zam24s* pDst, int len, int scaleFactor) {
    return f32_24<To::S24>(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_32f24u_Sfs)(const Zam32f* pSrc, Zam24u* pDst, int len, int scaleFactor) {
    return f32_24<To::U24>(pSrc, pDst, len, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_64f16s_Sfs)(const Zam64f* pSrc, Zam16s* pDst, int len, zamRoundMode rndMode,
                                           int scaleFactor) {
    return f64_int<false>(pSrc, pDst, len, rndMode, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_64f32s_Sfs)(const Zam64f* pSrc, Zam32s* pDst, int len, zamRoundMode rndMode,
                                           int scaleFactor) {
    return f64_int<true>(pSrc, pDst, len, rndMode, scaleFactor);
}
ZAMS_FN(zamStatus, zamsConvert_64f64s_Sfs)(const Zam64f* pSrc, Zam64s* pDst, int len, zamRoundMode rndMode,
                                           int scaleFactor) {
    return f64_64s(pSrc, pDst, len, rndMode, scaleFactor);
}
