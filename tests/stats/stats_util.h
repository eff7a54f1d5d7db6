// Shared by the statistics tests: long double models, the scaling rule and
// a shorthand for calls that write one result.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "harness.h"

namespace st {

using LD = long double;

using zt::ok;

// x 2^-sf rounded to nearest even, saturated to [lo, hi].
inline LD scaled(LD x, int sf, LD lo, LD hi) { return std::min(hi, std::max(lo, std::nearbyint(std::ldexp(x, -sf)))); }

// Complex elements from consecutive pairs of parts.
template <class C, class P> std::vector<C> pairs(const std::vector<P>& v) {
    std::vector<C> c(v.size() / 2);
    for (size_t i = 0; i < c.size(); ++i) c[i] = {v[2 * i], v[2 * i + 1]};
    return c;
}

// fn(a) for each argument in turn: one generic body over several types.
template <class Fn, class... A> void each(Fn fn, A... a) { (fn(a), ...); }

}  // namespace st
