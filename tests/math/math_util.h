// Shared by the math tests: thread-count scope, exact rounding oracles and
// ulp distances.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "digest.h"
#include "harness.h"

namespace mt {

using zt::ok;
using zt::Threads;

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

// Equal bits, or both NaN; complex values part by part.
template <class F> bool same(F a, F b) {
    if constexpr (requires { a.re; }) return same(a.re, b.re) && same(a.im, b.im);
    else return (std::isnan(a) && std::isnan(b)) || zt::bits(a) == zt::bits(b);
}

// Complex elements from consecutive pairs of parts.
template <class C, class P> std::vector<C> as_complex(const std::vector<P>& p) {
    std::vector<C> c(p.size() / 2);
    std::memcpy(c.data(), p.data(), c.size() * sizeof(C));
    return c;
}

// Random bit patterns that are not NaN: every binade, subnormals, infinities.
template <class F> std::vector<F> random_bits(size_t n, uint32_t seed) {
    std::mt19937_64 g(seed);
    std::vector<F> v;
    while (v.size() < n) {
        uint64_t b = g();
        F x;
        std::memcpy(&x, &b, sizeof x);
        if (!std::isnan(x)) v.push_back(x);
    }
    return v;
}

// The largest err(i) over i < n and where it is.
template <class Err> std::pair<double, size_t> worst(size_t n, Err err) {
    std::pair<double, size_t> w{0, 0};
    for (size_t i = 0; i < n; ++i)
        if (double e = err(i); e > w.first) w = {e, i};
    return w;
}

// Vector groups, element steps and groups holding special arguments agree
// with the one-element call at every start offset below `offsets`.
template <class F> void steps_agree(zamStatus (*fn)(const F*, F*, int), const std::vector<F>& x, int offsets, const char* what) {
    const int n = int(x.size());
    for (int off = 0; off < offsets; ++off) {
        std::vector<F> y(x.size());
        ASSERT_EQ(fn(x.data() + off, y.data() + off, n - off), zamStatusOk);
        for (int i = off; i < n; ++i) {
            F one;
            fn(&x[size_t(i)], &one, 1);
            ASSERT_EQ(zt::bits(y[size_t(i)]), zt::bits(one)) << what << " " << x[size_t(i)] << " at " << i;
        }
    }
}

// The first n values, complex ones as their parts, for one comparison:
// EXPECT_EQ(mt::first(y, 2), (std::vector<Zam16s>{re0, im0, re1, im1})).
template <class T> auto first(const T* p, size_t n) {
    if constexpr (requires { p->re; }) {
        std::vector<decltype(p->re)> v;
        for (size_t i = 0; i < n; ++i) v.push_back(p[i].re), v.push_back(p[i].im);
        return v;
    } else {
        return std::vector<T>(p, p + n);
    }
}

// A status and an output into a digest.
template <class T> void rec(zt::Digest& d, zamStatus s, const std::vector<T>& y) { d.status(s), d.add(y); }

}  // namespace mt
