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

}  // namespace zams

ZAMS_FN(zamStatus, zamsAbs_16s)(const Zam16s* pSrc, Zam16s* pDst, int len) { return zams::abs_16s(pSrc, pDst, len); }
