// Pre-emphasis y[n] = x[n] - k x[n-1] and de-emphasis y[n] = x[n] + k y[n-1],
// with the previous sample carried between calls in *pMem.
#include <immintrin.h>

#include <cstdint>

#include "../common/check.h"
#include "../common/scale.h"

namespace zams {
namespace {

// The one step of each kind, float or Q15 with the scale rule.
inline float pre_step(float x, float prev, float k) { return x - k * prev; }
inline Zam16s pre_step(Zam16s x, Zam16s prev, Zam16s k, int sf) {
    return scale_round_sat<Zam16s>(int64_t(x) * 32768 - int64_t(k) * prev, add_scale(15, sf));
}
inline float de_step(float x, float prev, float k) { return x + k * prev; }
inline Zam16s de_step(Zam16s x, Zam16s prev, Zam16s k, int sf) {
    return scale_round_sat<Zam16s>(int64_t(x) * 32768 + int64_t(k) * prev, add_scale(15, sf));
}

// Pre-emphasis runs from the last sample down, so that in place every
// x[n-1] is read before it is overwritten.
template <class T, class... Sf> zamStatus preemph(const T* src, T* dst, int len, T k, T* mem, Sf... sf) {
    if (zamStatus s = check_ptr(src, dst, mem)) return s;
    if (zamStatus s = check_len(len)) return s;
    const T first = *mem, last = src[len - 1];
    int n = len - 1;
    if constexpr (sizeof...(Sf) == 0) {
        const __m256 kv = _mm256_set1_ps(k);
        for (; n >= 8; n -= 8) {
            const __m256 a = _mm256_loadu_ps(src + n - 7), b = _mm256_loadu_ps(src + n - 8);
            _mm256_storeu_ps(dst + n - 7, _mm256_sub_ps(a, _mm256_mul_ps(kv, b)));
        }
    }
    for (; n >= 1; --n) dst[n] = pre_step(src[n], src[n - 1], k, sf...);
    dst[0] = pre_step(src[0], first, k, sf...);
    *mem = last;
    return zamStatusOk;
}

template <class T, class... Sf> zamStatus deemph(const T* src, T* dst, int len, T k, T* mem, Sf... sf) {
    if (zamStatus s = check_ptr(src, dst, mem)) return s;
    if (zamStatus s = check_len(len)) return s;
    T prev = *mem;
    for (int n = 0; n < len; ++n) prev = dst[n] = de_step(src[n], prev, k, sf...);
    *mem = prev;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

#define ZAMS_EMPHASIS(NAME, fn)                                                                              \
    ZAMS_FN(zamStatus, zams##NAME##_32f)(const Zam32f* s, Zam32f* d, int n, Zam32f k, Zam32f* m) {             \
        return fn(s, d, n, k, m);                                                                            \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zams##NAME##_32f_I)(Zam32f* sd, int n, Zam32f k, Zam32f* m) { return fn(sd, sd, n, k, m); } \
    ZAMS_FN(zamStatus, zams##NAME##_16s_Sfs)(const Zam16s* s, Zam16s* d, int n, Zam16s k, Zam16s* m, int sf) { \
        return fn(s, d, n, k, m, sf);                                                                        \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zams##NAME##_16s_ISfs)(Zam16s* sd, int n, Zam16s k, Zam16s* m, int sf) {              \
        return fn(sd, sd, n, k, m, sf);                                                                      \
    }

ZAMS_EMPHASIS(Preemphasize, preemph)
ZAMS_EMPHASIS(Deemphasize, deemph)
