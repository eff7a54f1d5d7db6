// The scale rule as a test oracle, written apart from the library: the exact
// result in long double (64-bit significand: every result of these families
// is an integer below 2^64 in magnitude, so exact), scaled by ldexp, rounded
// by nearbyint in the default mode (ties to even), clamped.
// And the sweeps shared by the scaled families' tests.
#pragma once

#include <cmath>
#include <cstring>
#include <limits>

#include "sweep.h"

namespace st {

template <class T> struct part { using type = T; };
template <> struct part<Zam16sc> { using type = Zam16s; };
template <> struct part<Zam32sc> { using type = Zam32s; };
template <class T> constexpr bool cplx = !std::is_same_v<typename part<T>::type, T>;

template <class D> D scale(long double r, int sf) {
    long double x = std::nearbyint(std::ldexp(r, -sf));
    using L = std::numeric_limits<D>;
    if (x <= static_cast<long double>(L::min())) return L::min();
    if (x >= static_cast<long double>(L::max())) return L::max();
    return static_cast<D>(x);
}

inline long double ld(long double v) { return v; }

// Random data with the extremes, for real and complex types.
template <class T> std::vector<T> pool(size_t n, uint32_t seed) {
    using P = typename part<T>::type;
    auto r = zt::random_ints<P>(n * (cplx<T> ? 2 : 1), seed);
    std::vector<T> v(n);
    std::memcpy(v.data(), r.data(), n * sizeof(T));
    return v;
}

// Two sources (pool seeds `seed` and `seed + 1`) and a destination, for the
// digests, of every type; D2 and DC record one call on them (at factor sf).
template <class T> struct Io {
    std::vector<T> a, b, d;
    Io(size_t n, uint32_t seed) : a(pool<T>(n, seed)), b(pool<T>(n, seed + 1)), d(n) {}
};
struct AllIo {
    explicit AllIo(size_t n) : v8u(n, 1), v16s(n, 3), v16u(n, 5), v32s(n, 7), v64s(n, 9), v16sc(n, 11), v32sc(n, 13) {}
    Io<Zam8u> v8u;
    Io<Zam16s> v16s;
    Io<Zam16u> v16u;
    Io<Zam32s> v32s;
    Io<Zam64s> v64s;
    Io<Zam16sc> v16sc;
    Io<Zam32sc> v32sc;
};
#define D2(op, t) d.status(zams##op##_##t##_Sfs(v.v##t.a.data(), v.v##t.b.data(), v.v##t.d.data(), n, sf)), d.add(v.v##t.d)
#define DC(op, t, c) d.status(zams##op##_##t##_Sfs(v.v##t.a.data(), c, v.v##t.d.data(), n, sf)), d.add(v.v##t.d)

template <class T> bool same(const T& a, const T& b) { return std::memcmp(&a, &b, sizeof(T)) == 0; }

// An in-place export seen as an out-of-place one, for the sweeps: the
// destination starts as the (last) source.
template <class T> auto in_place(zamStatus (*f)(T*, int)) {
    return [f](const T* s, T* d, int n) { return std::memmove(d, s, size_t(n) * sizeof(T)), f(d, n); };
}
template <class A, class T> auto in_place(zamStatus (*f)(const A*, T*, int)) {
    return [f](const A* a, const T* b, T* d, int n) { return std::memmove(d, b, size_t(n) * sizeof(T)), f(a, d, n); };
}
template <class T> auto in_place(zamStatus (*f)(T, T*, int), T v) {
    return [f, v](const T* s, T* d, int n) { return std::memmove(d, s, size_t(n) * sizeof(T)), f(v, d, n); };
}

// f(a, b, d, len, sf) and its in-place form fi(a, bd, len, sf) against the
// model m(a, b, sf): every factor from -40 to 70 on a few lengths, and every
// length and alignment on the factors `sweep_sfs`. Factors that decide the
// result alone (every product shifted out) still check the pointers and
// the length, and write nothing on an error.
template <class A, class B, class D, class Fn, class FnI, class M>
void two_sources(Fn f, FnI fi, M m, std::vector<int> sweep_sfs, int len_step = 1) {
    auto pa = pool<A>(300, 101), pb_ = pool<B>(300, 202);
    for (int sf = -40; sf <= 70; ++sf) {
        for (int len : {1, 8, 19, 67}) {
            zt::Guarded<A> a(len, 2 * sizeof(A));
            zt::Guarded<B> b(len, 0);
            zt::Guarded<D> d(len, 6);
            a.copy_from(pa.data());
            b.copy_from(pb_.data());
            ASSERT_EQ(f(a.data(), b.data(), d.data(), len, sf), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_TRUE(same(d[i], m(pa[i], pb_[i], sf))) << "sf " << sf << " i " << i;
            ASSERT_TRUE(d.guards_intact());
            if constexpr (!std::is_same_v<FnI, std::nullptr_t>) {
                zt::Guarded<B> io(len, 10);
                io.copy_from(pb_.data());
                ASSERT_EQ(fi(a.data(), io.data(), len, sf), zamStatusOk);
                for (int i = 0; i < len; ++i) ASSERT_TRUE(same(io[i], m(pa[i], pb_[i], sf))) << "in place sf " << sf;
                ASSERT_TRUE(io.guards_intact());
            }
        }
    }
    for (int sf : {0, 70, -40}) {
        A a[2] = {};
        B b[2] = {};
        zt::Guarded<D> d(2);
        EXPECT_EQ(f(nullptr, b, d.data(), 0, sf), zamStatusNullPointer);
        EXPECT_EQ(f(a, nullptr, d.data(), 2, sf), zamStatusNullPointer);
        EXPECT_EQ(f(a, b, nullptr, 2, sf), zamStatusNullPointer);
        EXPECT_EQ(f(a, b, d.data(), 0, sf), zamStatusBadLength);
        EXPECT_EQ(f(a, b, d.data(), -1, sf), zamStatusBadLength);
        if constexpr (!std::is_same_v<FnI, std::nullptr_t>) {
            EXPECT_EQ(fi(nullptr, d.data(), 0, sf), zamStatusNullPointer);
            EXPECT_EQ(fi(a, nullptr, 2, sf), zamStatusNullPointer);
            EXPECT_EQ(fi(a, d.data(), 0, sf), zamStatusBadLength);
        }
        EXPECT_TRUE(d.guards_intact());  // nothing written, not even into the vector
    }
    zt::SweepOptions o;
    o.len_step = len_step;
    for (int sf : sweep_sfs) {
        zt::sweep_binary<A, B, D>([&](const A* a, const B* b, D* d, int n) { return f(a, b, d, n, sf); },
                                  [&](A a, B b) { return m(a, b, sf); }, pa, pb_, o);
    }
}

// f(x, val, d, len, sf) and fi(val, xd, len, sf) against m(x, val, sf) for
// each constant in `vals`.
template <class T, class D, class Fn, class FnI, class M>
void constant(Fn f, FnI fi, M m, std::vector<T> vals, std::vector<int> sweep_sfs, int len_step = 5) {
    auto px = pool<T>(300, 303);
    for (T v : vals) {
        for (int sf = -40; sf <= 70; ++sf) {
            for (int len : {1, 9, 40}) {
                zt::Guarded<T> x(len, 4);
                zt::Guarded<D> d(len, 2);
                zt::Guarded<T> io(len, 14);
                x.copy_from(px.data());
                io.copy_from(px.data());
                ASSERT_EQ(f(x.data(), v, d.data(), len, sf), zamStatusOk);
                ASSERT_EQ(fi(v, io.data(), len, sf), zamStatusOk);
                for (int i = 0; i < len; ++i) {
                    ASSERT_TRUE(same(d[i], m(px[i], v, sf))) << "sf " << sf << " i " << i;
                    ASSERT_TRUE(same(io[i], m(px[i], v, sf))) << "in place sf " << sf << " i " << i;
                }
                ASSERT_TRUE(d.guards_intact() && io.guards_intact());
            }
        }
        zt::SweepOptions o;
        o.len_step = len_step;
        for (int sf : sweep_sfs)
            zt::sweep_unary<T, D>([&](const T* x, D* d, int n) { return f(x, v, d, n, sf); },
                                  [&](T x) { return m(x, v, sf); }, px, o);
    }
    for (int sf : {0, 3, 70, -40}) {
        T x[2] = {};
        zt::Guarded<D> d(2);
        const T v = vals.back();
        EXPECT_EQ(f(nullptr, v, d.data(), 0, sf), zamStatusNullPointer);
        EXPECT_EQ(f(x, v, nullptr, 2, sf), zamStatusNullPointer);
        EXPECT_EQ(f(x, v, d.data(), 0, sf), zamStatusBadLength);
        EXPECT_EQ(fi(v, nullptr, 2, sf), zamStatusNullPointer);
        EXPECT_EQ(fi(v, d.data(), -1, sf), zamStatusBadLength);
        EXPECT_TRUE(d.guards_intact());
    }
}

}  // namespace st
