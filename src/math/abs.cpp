// Absolute value.
#include <immintrin.h>

#include "../common/check.h"
#include "../common/loop.h"
#include "../common/types.h"

namespace zams {

// |x| with -32768 first clamped to -32767, so the result saturates.
inline Zam16s abs_sat(Zam16s x) { return static_cast<Zam16s>(x < -32767 ? 32767 : (x < 0 ? -x : x)); }

inline zamStatus abs_16s(const Zam16s* src, Zam16s* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    const __m128i floor = _mm_set1_epi16(-32767);
    for_each_block<16, 16>(
        dst, len, [&](int i) { dst[i] = abs_sat(src[i]); },
        [&](int i) {
            __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i));
            __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i + 8));
            a = _mm_abs_epi16(_mm_max_epi16(a, floor));
            b = _mm_abs_epi16(_mm_max_epi16(b, floor));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), a);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i + 8), b);
        });
    return zamStatusOk;
}

inline zamStatus abs_32s(const Zam32s* src, Zam32s* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    for (int i = 0; i < len; ++i) dst[i] = src[i] < -2147483647 ? 2147483647 : (src[i] < 0 ? -src[i] : src[i]);
    return zamStatusOk;
}

// Floating |x|: the sign bit cleared, so -0 gives +0 and NaNs keep their payload.
template <class F> zamStatus abs_float(const F* src, F* dst, int len) {
    if (zamStatus s = check_args(len, src, dst)) return s;
    if constexpr (sizeof(F) == 4) {
        const __m256 mask = _mm256_castsi256_ps(_mm256_set1_epi32(0x7fffffff));
        for_each_block<8>(
            dst, len, [&](int i) { dst[i] = _mm_cvtss_f32(_mm_and_ps(_mm_set_ss(src[i]), _mm256_castps256_ps128(mask))); },
            [&](int i) { _mm256_storeu_ps(dst + i, _mm256_and_ps(_mm256_loadu_ps(src + i), mask)); });
    } else {
        const __m256d mask = _mm256_castsi256_pd(_mm256_set1_epi64x(0x7fffffffffffffffll));
        for_each_block<4>(
            dst, len, [&](int i) { dst[i] = _mm_cvtsd_f64(_mm_and_pd(_mm_set_sd(src[i]), _mm256_castpd256_pd128(mask))); },
            [&](int i) { _mm256_storeu_pd(dst + i, _mm256_and_pd(_mm256_loadu_pd(src + i), mask)); });
    }
    return zamStatusOk;
}

}  // namespace zams

ZAMS_FN(zamStatus, zamsAbs_16s)(const Zam16s* pSrc, Zam16s* pDst, int len) { return zams::abs_16s(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsAbs_16s_I)(Zam16s* pSrcDst, int len) { return zams::abs_16s(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsAbs_32s)(const Zam32s* pSrc, Zam32s* pDst, int len) { return zams::abs_32s(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsAbs_32s_I)(Zam32s* pSrcDst, int len) { return zams::abs_32s(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsAbs_32f)(const Zam32f* pSrc, Zam32f* pDst, int len) { return zams::abs_float(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsAbs_32f_I)(Zam32f* pSrcDst, int len) { return zams::abs_float(pSrcDst, pSrcDst, len); }
ZAMS_FN(zamStatus, zamsAbs_64f)(const Zam64f* pSrc, Zam64f* pDst, int len) { return zams::abs_float(pSrc, pDst, len); }
ZAMS_FN(zamStatus, zamsAbs_64f_I)(Zam64f* pSrcDst, int len) { return zams::abs_float(pSrcDst, pSrcDst, len); }
