// Shared by the math tests: thread-count scope, exact rounding oracles and
// ulp distances.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

#include "harness.h"
#include "zamcore.h"

namespace mt {

// Sets the library's thread count for a test and restores it.
class Threads {
public:
    explicit Threads(int n) : old_(ownGetNumThreads()) { zamSetNumThreads(n); }
    ~Threads() { zamSetNumThreads(old_); }

private:
    int old_;
};

#ifdef __SIZEOF_INT128__
using Wide = __int128;
#else
using Wide = int64_t;  // i386: callers keep |n| * 2^k below 2^63
#endif

// n / d rounded by the mode (0 toward zero, 1 nearest even, 2 half away);
// d > 0. Floor division with the remainder compared against d / 2.
inline Wide round_div(Wide n, Wide d, int mode) {
    Wide q = n / d, r = n % d;
    if (r < 0) q -= 1, r += d;  // floor
    if (r == 0) return q;
    Wide twice = 2 * r;
    if (mode == 0) return q < 0 ? q + 1 : q;  // toward zero: floor, lifted for negatives
    if (twice > d) return q + 1;
    if (twice < d) return q;
    if (mode == 1) return (q % 2 == 0) ? q : q + 1;
    return q >= 0 ? q + 1 : q;  // exact half, away from zero: floor is q for positives
}

template <class T> T clamp_to(Wide v) {
    if (v < Wide(std::numeric_limits<T>::min())) return std::numeric_limits<T>::min();
    if (v > Wide(std::numeric_limits<T>::max())) return std::numeric_limits<T>::max();
    return T(v);
}

// Distance in ulps between two finite floats of one type.
template <class F> double ulp_diff(F got, long double want) {
    if (std::isnan(got) && std::isnan(want)) return 0;
    if (std::isinf(want) || std::isinf(got)) return (double(want) == double(got)) ? 0 : 1e30;
    int e;
    std::frexp(double(want), &e);
    int mant = std::numeric_limits<F>::digits;
    int emin = std::numeric_limits<F>::min_exponent;
    if (e < emin) e = emin;
    long double ulp = std::ldexp(1.0L, e - mant);
    return double(std::fabs((long double)got - want) / ulp);
}

}  // namespace mt
