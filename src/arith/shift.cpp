// LShiftC and RShiftC by a constant count on 8u, 16s, 16u, 32s: logical for
// the unsigned types, arithmetic for the signed right shifts. 128-bit
// integer SSE; bytes are shifted as 16-bit words and masked.
#include <immintrin.h>

#include <type_traits>

#include "../common/loop.h"
#include "bits_handoff.h"

namespace zams::bits {
namespace {

template <bool Left, class T> T shift1(T x, int k) {
    if constexpr (Left) return static_cast<T>(static_cast<std::make_unsigned_t<T>>(x) << k);
    else return static_cast<T>(x >> k);  // arithmetic for signed T
}

template <bool Left, class T> __m128i shift_v(__m128i x, __m128i cnt, __m128i mask) {
    if constexpr (sizeof(T) == 1) {
        return _mm_and_si128(Left ? _mm_sll_epi16(x, cnt) : _mm_srl_epi16(x, cnt), mask);
    } else if constexpr (sizeof(T) == 2) {
        if constexpr (Left) return _mm_sll_epi16(x, cnt);
        else if constexpr (std::is_signed_v<T>) return _mm_sra_epi16(x, cnt);
        else return _mm_srl_epi16(x, cnt);
    } else {
        if constexpr (Left) return _mm_sll_epi32(x, cnt);
        else return _mm_sra_epi32(x, cnt);
    }
}

// 0 < k < width.
template <bool Left, class T> void kernel(const T* a, int k, T* d, int len) {
    constexpr int P = 16 / sizeof(T);
    const __m128i cnt = _mm_cvtsi32_si128(k);
    const int m = Left ? (0xFF << k) & 0xFF : 0xFF >> k;
    const __m128i mask = _mm_set1_epi8(static_cast<char>(m));
    auto ve = [&](int i) {
        __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), shift_v<Left, T>(x, cnt, mask));
    };
    for_each_block<2 * P, 16>(
        d, len, [&](int i) { d[i] = shift1<Left>(a[i], k); },
        [&](int i) {
            ve(i);
            ve(i + P);
        });
}

// A signed right shift fills with the sign; every other shift by the width
// or more gives zeros.
template <bool Left, class T> constexpr bool sign_fill = !Left && std::is_signed_v<T>;

template <bool Left, class T> zamStatus shift(const T* a, int k, T* d, int len) {
    constexpr int W = 8 * sizeof(T);
    if (k == 0) return copy(a, d, len);
    if (k >= W && !sign_fill<Left, T>) {
        if (zamStatus s = check_ptr(a)) return s;
        return zero(d, len);
    }
    if (zamStatus s = check_args(len, a, d)) return s;
    if (k < 0) return zamStatusBadShift;
    kernel<Left>(a, k < W ? k : W - 1, d, len);
    return zamStatusOk;
}

template <bool Left, class T> zamStatus shift_i(int k, T* d, int len) {
    constexpr int W = 8 * sizeof(T);
    if (k >= W && !sign_fill<Left, T>) return zero(d, len);
    if (zamStatus s = check_args(len, d)) return s;
    if (k < 0) return zamStatusBadShift;
    if (k > 0) kernel<Left>(d, k < W ? k : W - 1, d, len);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::bits

using namespace zams::bits;

#define ZAMS_SHIFT(t)                                                                                             \
    ZAMS_FN(zamStatus, zamsLShiftC_##t)(const Zam##t* a, int k, Zam##t* d, int n) { return shift<true>(a, k, d, n); } \
    ZAMS_FN(zamStatus, zamsRShiftC_##t)(const Zam##t* a, int k, Zam##t* d, int n) { return shift<false>(a, k, d, n); } \
    ZAMS_FN(zamStatus, zamsLShiftC_##t##_I)(int k, Zam##t* d, int n) { return shift_i<true>(k, d, n); }           \
    ZAMS_FN(zamStatus, zamsRShiftC_##t##_I)(int k, Zam##t* d, int n) { return shift_i<false>(k, d, n); }

ZAMS_SHIFT(8u)
ZAMS_SHIFT(16s)
ZAMS_SHIFT(16u)
ZAMS_SHIFT(32s)
