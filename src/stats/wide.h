// Exact wide integers for the reductions (i386 has no 128-bit type) and
// the scaling of wide results.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <type_traits>

#include "../common/round.h"
#include "../common/scale.h"
#include "../common/types.h"

namespace zams::red {

// A signed 128-bit integer as two's complement hi:lo.
struct I128 {
    uint64_t lo = 0;
    int64_t hi = 0;

    static I128 of(int64_t v) { return I128{uint64_t(v), v < 0 ? -1 : 0}; }
    I128& operator+=(I128 o) {
        uint64_t l = lo + o.lo;
        hi = int64_t(uint64_t(hi) + uint64_t(o.hi) + (l < lo));
        lo = l;
        return *this;
    }
    I128& operator+=(int64_t v) { return *this += of(v); }
    I128 operator-() const {
        I128 r{~lo, ~hi};
        return r += int64_t(1);
    }
    I128 operator-(I128 o) const {
        I128 r = *this;
        return r += -o;
    }
    bool negative() const { return hi < 0; }
    // Fits in int64: the high word is the sign extension of the low word.
    bool fits64() const { return hi == (int64_t(lo) < 0 ? -1 : 0); }
    double to_double() const {
        if (fits64()) return double(int64_t(lo));  // rounded once
        if (negative()) return -(-*this).to_double();
        return double(hi) * 18446744073709551616.0 + double(lo);
    }
};

// a * b exactly for |a|, |b| < 2^63.
inline I128 mul(int64_t a, int64_t b) {
    bool neg = (a < 0) != (b < 0);
    uint64_t x = a < 0 ? uint64_t(-a) : uint64_t(a), y = b < 0 ? uint64_t(-b) : uint64_t(b);
    uint64_t x0 = x & 0xFFFFFFFFu, x1 = x >> 32, y0 = y & 0xFFFFFFFFu, y1 = y >> 32;
    uint64_t p00 = x0 * y0, p01 = x0 * y1, p10 = x1 * y0, p11 = x1 * y1;
    uint64_t mid = (p00 >> 32) + (p01 & 0xFFFFFFFFu) + (p10 & 0xFFFFFFFFu);
    I128 r;
    r.lo = (p00 & 0xFFFFFFFFu) | (mid << 32);
    r.hi = int64_t(p11 + (p01 >> 32) + (p10 >> 32) + (mid >> 32));
    return neg ? -r : r;
}

// v * 2^-sf rounded to nearest, ties to even, saturated to T (the rule of
// every _Sfs result), for a 128-bit v.
template <class T> T scale_wide(I128 v, int sf) {
    using L = traits<T>;
    if (sf <= 0) {
        if (v.fits64()) return scale_round_sat<T>(int64_t(v.lo), sf);
        return v.negative() ? L::min : L::max;
    }
    if (sf >= 127) return T(0);  // |v| < 2^126: below one half
    // floor(v / 2^sf) and the remainder's comparison with one half.
    uint64_t lo = v.lo;
    int64_t hi = v.hi;
    uint64_t rem_hi = 0, rem_lo = 0, half_hi = 0, half_lo = 0;
    if (sf < 64) {
        rem_lo = lo & ((uint64_t(1) << sf) - 1);
        half_lo = uint64_t(1) << (sf - 1);
        lo = (lo >> sf) | (sf ? uint64_t(hi) << (64 - sf) : 0);
        hi >>= sf;
    } else {
        int s = sf - 64;
        rem_lo = v.lo;
        rem_hi = s ? uint64_t(v.hi) & ((uint64_t(1) << s) - 1) : 0;
        if (s == 0) half_lo = uint64_t(1) << 63;
        else half_hi = uint64_t(1) << (s - 1);
        lo = uint64_t(hi >> s);
        hi = hi < 0 ? -1 : 0;
    }
    I128 q{lo, hi};
    bool above = rem_hi > half_hi || (rem_hi == half_hi && rem_lo > half_lo);
    bool tie = rem_hi == half_hi && rem_lo == half_lo;
    if (above || (tie && (q.lo & 1))) q += int64_t(1);
    if (!q.fits64()) return q.negative() ? L::min : L::max;
    return saturate<T>(int64_t(q.lo));
}

}  // namespace zams::red
