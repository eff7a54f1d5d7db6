// The scale-factor rule of every _Sfs function: the exact integer result r
// is multiplied by 2^-sf; a positive sf divides with rounding to nearest,
// ties to even; a negative sf multiplies; the result saturates to the
// destination type. Kernels may compute it faster, never differently: this
// is the rule they are tested against.
#pragma once

#include <climits>
#include <cstdint>
#include <type_traits>

#include "round.h"
#include "types.h"

namespace zams {

// r / 2^sf rounded to nearest, ties to even (sf >= 1). Exact for any sf.
template <class W> constexpr W shr_round_even(W r, int sf) {
    constexpr int bits = int(sizeof(W) * CHAR_BIT);
    using U = std::make_unsigned_t<W>;
    if (sf >= bits) {
        // |r| <= 2^(bits-1) <= 2^(sf-1): never above one half, a tie only
        // for the most negative value, which rounds to the even 0.
        return 0;
    }
    W q = r >> sf;  // floor
    U rem = static_cast<U>(r) & ((U(1) << sf) - 1);
    U half = U(1) << (sf - 1);
    if (rem > half || (rem == half && (q & 1))) ++q;
    return q;
}

// r * 2^-sf for sf <= 0, saturated to T. Shifts that would leave W's range
// take the bound by the sign.
template <class T, class W> constexpr T shl_saturate(W r, int sf) {
    constexpr int bits = int(sizeof(W) * CHAR_BIT);
    if (r == 0 || sf == 0) return saturate<T>(r);
    if (sf <= -(bits - 1)) return r > 0 ? traits<T>::max : traits<T>::min;  // no -INT_MIN
    int k = -sf;
    W lim = std::numeric_limits<W>::max() >> k;
    if (r > lim) return traits<T>::max;
    if (std::is_signed_v<W> && r < -lim) return traits<T>::min;
    return saturate<T>(static_cast<W>(static_cast<std::make_unsigned_t<W>>(r) << k));
}

// The whole rule: exact r times 2^-sf, rounded half to even, saturated to T.
template <class T, class W> constexpr T scale_round_sat(W r, int sf) {
    if (sf > 0) return saturate<T>(shr_round_even(r, sf));
    return shl_saturate<T>(r, sf);
}

// A double rounded to nearest, ties to even, and saturated to the integer
// type T (at most 32 bits); not-a-number gives `nan`.
template <class T> inline T round_sat(double v, T nan = T(0)) {
    if (v != v) return nan;
    const double r = round_even(v);
    return saturate<T>(int64_t(r < -0x1p62 ? -0x1p62 : r > 0x1p62 ? 0x1p62 : r));
}

// The rule with a divisor: the exact quotient r / (d 2^sf) rounded half to
// even and saturated to T, for |r| < 2^62 and 1 <= d < 2^31 (a normalised
// correlation: a sum of products over its number of terms).
template <class T> constexpr T div_scale_round_sat(int64_t r, int64_t d, int sf) {
    if (r == 0) return T(0);
    if (sf <= 0) {
        // r 2^-sf / d: a numerator past 2^62 gives a quotient past 2^31.
        if (-sf >= 62 || (r < 0 ? -r : r) >= (int64_t(1) << (62 + sf))) return r > 0 ? traits<T>::max : traits<T>::min;
        r *= int64_t(1) << -sf;
        sf = 0;
    }
    // d 2^sf past 2^63 is more than twice |r|: the quotient rounds to 0.
    if (sf >= 63 || d > (INT64_MAX >> sf)) return T(0);
    const int64_t den = d << sf;
    int64_t q = r / den, rem = r % den;  // truncated towards zero
    const int64_t twice = (rem < 0 ? -rem : rem) * 2;
    if (twice > den || (twice == den && (q & 1))) q += r < 0 ? -1 : 1;
    return saturate<T>(q);
}

// Two scale terms added (a filter's taps factor and a call's scale factor):
// the sum, held where every result is already 0 or the bound by sign, so
// that no pair of arguments overflows it.
constexpr int add_scale(int64_t a, int64_t b) {
    const int64_t s = a + b;
    return int(s > 4096 ? 4096 : s < -4096 ? -4096 : s);
}

// How a family computes a given scale factor. The limits are data, one pair
// a family: above `zero_above` every result rounds to 0; at or below
// `bound_at_or_below` any nonzero result saturates, so only its sign counts.
struct ScaleLimits {
    int zero_above;
    int bound_at_or_below;  // INT_MIN where the left-shift kernel serves every negative factor
};
inline constexpr int kNoLimit = INT_MIN;

enum class ScaleKind { Zero, Pos, One, None, Neg, Bound };

constexpr ScaleKind scale_kind(int sf, ScaleLimits lim) {
    if (sf > lim.zero_above) return ScaleKind::Zero;
    if (sf > 1) return ScaleKind::Pos;
    if (sf == 1) return ScaleKind::One;
    if (sf == 0) return ScaleKind::None;
    if (lim.bound_at_or_below != kNoLimit && sf <= lim.bound_at_or_below) return ScaleKind::Bound;
    return ScaleKind::Neg;
}

}  // namespace zams
