// Absolute value.
#include <cmath>

#include "digest.h"
#include "scaled_model.h"

namespace {

// The most negative integer saturates; -0 and NaN lose their sign bit only.
template <class T> T iabs(T x) { return x == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : T(x < 0 ? -x : x); }
template <class T> T fabs_(T x) { return std::fabs(x); }

template <class T> std::vector<T> data(uint32_t seed) {
    if constexpr (std::is_integral_v<T>) return zt::random_ints<T>(300, seed);
    auto v = zt::random_reals<T>(300, seed);
    v[3] = T(-0.0), v[5] = -T(NAN), v[6] = -T(INFINITY), v[8] = T(NAN);
    return v;
}

// Both exports of each type over every length and alignment, in place and
// not.
template <class T> void abs_type(zamStatus (*f)(const T*, T*, int), zamStatus (*fi)(T*, int), T (*m)(T), uint32_t seed) {
    auto x = data<T>(seed);
    zt::sweep_unary<T, T>(f, m, x);
    zt::sweep_unary<T, T>(st::in_place(fi), m, x, {.in_place = false, .len_step = 5});
}

TEST(Abs, EveryTypeFormLengthAndAlignment) {
    abs_type<Zam16s>(zamsAbs_16s, zamsAbs_16s_I, iabs, 11);
    abs_type<Zam32s>(zamsAbs_32s, zamsAbs_32s_I, iabs, 12);
    abs_type<Zam32f>(zamsAbs_32f, zamsAbs_32f_I, fabs_, 13);
    abs_type<Zam64f>(zamsAbs_64f, zamsAbs_64f_I, fabs_, 14);
}

ZAMS_DIGEST(abs_16s) {
    auto x = zt::random_ints<Zam16s>(1000, 5);
    std::vector<Zam16s> y(x.size());
    d.status(zamsAbs_16s(x.data(), y.data(), int(x.size())));
    d.add(y);
}

}  // namespace
