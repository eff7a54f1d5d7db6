// Exact integer square roots under the scale-factor rule: round(sqrt(x) *
// 2^-sf), ties to even, as a magnitude that the caller saturates.
#pragma once

#include <immintrin.h>

#include <cstdint>

namespace zams {

// floor(sqrt(y)) for any 64-bit y: a double estimate corrected by exact
// integer steps.
inline uint64_t isqrt64(uint64_t y) {
    if (y == 0) return 0;
    // y to within 8 through two 32-bit conversions
    double approx = double(int32_t(y >> 34)) * 17179869184.0 + double(int32_t((y >> 3) & 0x7fffffff)) * 8.0;
    double e = _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(approx)));
    uint64_t r = e >= 4294967295.0   ? 4294967295u
                 : e >= 2147483647.0 ? uint64_t(int32_t(e * 0.5)) * 2
                                     : uint64_t(int32_t(e));
    while (r * r > y) --r;
    while (r < 4294967295u && (r + 1) * (r + 1) <= y) ++r;
    return r;
}

// floor(sqrt(hi * 2^64 + lo)) and whether the remainder exceeds the root
// (which decides rounding to nearest: squares of half-integers are never
// integers, so there are no ties). Digit by digit on 128 bits.
inline uint64_t isqrt128_round(uint64_t hi, uint64_t lo) {
    uint64_t rh = 0, rl = 0;               // result
    uint64_t bh = uint64_t(1) << 62, bl = 0;  // bit = 4^63
    auto ge = [](uint64_t ah, uint64_t al, uint64_t ch, uint64_t cl) { return ah > ch || (ah == ch && al >= cl); };
    while (bh != 0 || bl != 0) {
        uint64_t sl = rl + bl, sh = rh + bh + (sl < rl);  // res + bit
        // res >>= 1
        uint64_t nl = (rl >> 1) | (rh << 63), nh = rh >> 1;
        if (ge(hi, lo, sh, sl)) {
            uint64_t borrow = lo < sl;
            lo -= sl;
            hi -= sh + borrow;
            uint64_t tl = nl + bl;
            nh += bh + (tl < nl);
            nl = tl;
        }
        rh = nh, rl = nl;
        bl = (bl >> 2) | (bh << 62);
        bh >>= 2;
    }
    // remainder (hi, lo) against the root (rh, rl)
    bool up = hi > rh || (hi == rh && lo > rl);
    return rl + (up ? 1 : 0);
}

// round(sqrt(x) * 2^-sf), ties to even; UINT64_MAX for 2^63 or more.
inline uint64_t sqrt_scaled(uint64_t x, int sf) {
    if (x == 0) return 0;
    if (sf <= 0) {
        const int k = sf < -64 ? 64 : -sf;  // every factor from -63 down saturates alike
        if (k <= 31 && x <= (UINT64_MAX >> (2 * k))) {
            uint64_t y = x << (2 * k);
            uint64_t f = isqrt64(y);
            return f + (y - f * f > f ? 1 : 0);
        }
        // sqrt(x) 2^k below 2^63 needs x 4^k below 2^126
        if (k >= 63) return UINT64_MAX;
        int lz = 0;
        for (uint64_t t = x; !(t >> 63); t <<= 1) ++lz;
        if (64 - lz + 2 * k > 126) return UINT64_MAX;
        int shift = 2 * k;
        uint64_t hi = shift >= 64 ? x << (shift - 64) : x >> (64 - shift);
        uint64_t lo = shift >= 64 ? 0 : x << shift;
        return isqrt128_round(hi, lo);
    }
    if (sf >= 33) return 0;  // sqrt(x) < 2^32 <= 2^(sf-1)
    uint64_t m = isqrt64(x) >> sf;
    // compare x with (m + 1/2)^2 4^sf = (2m + 1)^2 4^(sf-1)
    uint64_t t = (2 * m + 1) * (2 * m + 1);
    if (t > (UINT64_MAX >> (2 * (sf - 1)))) return m;
    t <<= 2 * (sf - 1);
    if (x > t || (x == t && (m & 1))) ++m;
    return m;
}

}  // namespace zams
