// Extremes and their indices against a scalar scan.
#include <cmath>
#include <limits>

#include "digest.h"
#include "stats_util.h"
#include "sweep.h"

namespace {

// The scan: a later element replaces the candidate only when strictly
// beyond it.
template <bool Max, class T> int scan(const T* x, int n) {
    int k = 0;
    for (int i = 1; i < n; ++i)
        if (Max ? x[i] > x[k] : x[i] < x[k]) k = i;
    return k;
}

// Few distinct values, so extremes repeat; floats get NaNs and both zeros.
template <class T> std::vector<T> dup_pool(size_t n, uint32_t seed, bool nan_first = false) {
    std::mt19937 g(seed);
    std::vector<T> v(n);
    for (auto& x : v) {
        int r = int(g() % 9) - 4;
        if constexpr (std::is_floating_point_v<T>) {
            uint32_t k = g() % 10;
            x = k == 0 ? std::numeric_limits<T>::quiet_NaN() : (k == 1 ? T(-0.0) : T(r));
        } else if constexpr (std::is_signed_v<T>) {
            x = g() % 7 == 0 ? std::numeric_limits<T>::min() : (g() % 7 == 0 ? std::numeric_limits<T>::max() : T(r));
        } else {
            x = g() % 7 == 0 ? std::numeric_limits<T>::max() : T(r + 4);
        }
    }
    if constexpr (std::is_floating_point_v<T>)
        if (!nan_first && v[0] != v[0]) v[0] = T(1);
    return v;
}

template <class T> bool same(T a, T b) { return zt::bits(a) == zt::bits(b); }

template <class T, class F> void each_layout(const std::vector<T>& pool, int max_len, F f) {
    for (int len = 1; len <= max_len; len += len < 70 ? 1 : 23)
        for (size_t off : zt::offsets_for(len)) {
            if (off % sizeof(T) && len > 40) continue;  // odd offsets on the short lengths only
            zt::Guarded<T> x(len, off);
            x.copy_from(pool.data());
            f(x.data(), len);
            ASSERT_TRUE(x.guards_intact());
        }
}

// The four functions of one kind: Max, Min, MaxIndx, MinIndx or their
// by-magnitude forms.
template <class T> struct Ext {
    using type = T;
    zamStatus (*max)(const T*, int, T*), (*min)(const T*, int, T*);
    zamStatus (*maxi)(const T*, int, T*, int*), (*mini)(const T*, int, T*, int*);
};
#define EXT(T) Ext<Zam##T>{zamsMax_##T, zamsMin_##T, zamsMaxIndx_##T, zamsMinIndx_##T}
#define EXT_ABS(T) Ext<Zam##T>{zamsMaxAbs_##T, zamsMinAbs_##T, zamsMaxAbsIndx_##T, zamsMinAbsIndx_##T}
template <class T> struct MinMax {
    using type = T;
    zamStatus (*mm)(const T*, int, T*, T*);
    zamStatus (*mmi)(const T*, int, T*, int*, T*, int*);
};
#define MINMAX(T) MinMax<Zam##T>{zamsMinMax_##T, zamsMinMaxIndx_##T}

template <class T> void values_and_first_indices(Ext<T> f) {
    for (bool nan_first : {false, true}) {
        each_layout(dup_pool<T>(300, 11, nan_first), 300, [&](const T* x, int n) {
            int imax = scan<true>(x, n), imin = scan<false>(x, n), k = -1;
            T v;
            ASSERT_TRUE(same(st::ok(f.max(x, n, &v), v), x[imax])) << n;
            ASSERT_TRUE(same(st::ok(f.min(x, n, &v), v), x[imin])) << n;
            ASSERT_EQ(st::ok(f.maxi(x, n, &v, &k), k), imax) << n;
            ASSERT_TRUE(same(v, x[imax]));
            ASSERT_EQ(st::ok(f.mini(x, n, &v, &k), k), imin) << n;
            ASSERT_TRUE(same(st::ok(f.maxi(x, n, &v, nullptr), v), x[imax]));
        });
    }
}

TEST(Extreme, ValuesAndFirstIndices) {
    st::each([](auto f) { values_and_first_indices(f); }, EXT(16s), EXT(32s), EXT(32f), EXT(64f));
}

// MinMaxIndx: the first element equal to each extreme; a NaN extreme
// (leading NaN) matches nothing and gives index 0.
template <class T> void min_max_with_indices(MinMax<T> f) {
    each_layout(dup_pool<T>(300, 12, true), 300, [&](const T* x, int n) {
        int imax = scan<true>(x, n), imin = scan<false>(x, n), a = -1, b = -1;
        T lo, hi;
        ASSERT_TRUE(same(st::ok(f.mm(x, n, &lo, &hi), lo), x[imin]) && same(hi, x[imax])) << n;
        ASSERT_TRUE(same(st::ok(f.mmi(x, n, &lo, &a, &hi, &b), lo), x[imin]) && same(hi, x[imax])) << n;
        ASSERT_TRUE(a == imin && b == imax) << n;
    });
}

TEST(Extreme, MinMaxWithIndices) {
    st::each([](auto f) { min_max_with_indices(f); }, MINMAX(8u), MINMAX(16s), MINMAX(16u), MINMAX(32s), MINMAX(32u),
             MINMAX(32f), MINMAX(64f));
}

// By magnitude: compared exactly (|-32768| beats 32767), reported saturated;
// floating magnitudes with NaNs skipped unless first.
template <class T> void by_magnitude(Ext<T> f) {
    using W = std::conditional_t<std::is_floating_point_v<T>, T, long long>;
    auto mag = [](T v) { return std::is_floating_point_v<T> ? W(std::fabs(v)) : (v < 0 ? -W(v) : W(v)); };
    auto sat = [](W v) { return T(std::min<W>(v, W(std::numeric_limits<T>::max()))); };
    each_layout(dup_pool<T>(300, 13), 300, [&](const T* x, int n) {
        int a = 0, b = 0, k;
        for (int i = 1; i < n; ++i) {
            if (mag(x[i]) > mag(x[a])) a = i;
            if (mag(x[i]) < mag(x[b])) b = i;
        }
        T v;
        ASSERT_EQ(st::ok(f.max(x, n, &v), v), sat(mag(x[a])));
        ASSERT_EQ(st::ok(f.min(x, n, &v), v), sat(mag(x[b])));
        ASSERT_EQ(st::ok(f.maxi(x, n, &v, &k), k), a);
        ASSERT_EQ(st::ok(f.mini(x, n, &v, &k), k), b);
        ASSERT_EQ(v, sat(mag(x[b])));
    });
}

TEST(Extreme, ByMagnitude) {
    st::each([](auto f) { by_magnitude(f); }, EXT_ABS(16s), EXT_ABS(32s), EXT_ABS(32f), EXT_ABS(64f));
    // a leading NaN is the result and index 0; -0 reports +0
    Zam64f x[3] = {NAN, -5, 2}, z[2] = {-0.0, 1}, v;
    int k = 9;
    EXPECT_TRUE(std::isnan(st::ok(zamsMaxAbsIndx_64f(x, 3, &v, &k), v)) && k == 0);
    EXPECT_FALSE(std::signbit(st::ok(zamsMinAbs_64f(z, 2, &v), v)));
    Zam32f y[3] = {-3, 3, -3}, w;
    EXPECT_EQ(st::ok(zamsMinAbsIndx_32f(y, 3, &w, &k), k), 0);
    EXPECT_EQ(w, 3.0f);
}

TEST(Extreme, FirstOfEqualZeros) {
    // The first of equal zeros is the result, on the vector path too.
    std::vector<Zam64f> z(100);
    for (int i = 0; i < 100; ++i) z[i] = i % 2 ? 0.0 : -0.0;
    Zam64f m;
    EXPECT_TRUE(std::signbit(st::ok(zamsMax_64f(z.data(), 100, &m), m)));
    EXPECT_FALSE(std::signbit(st::ok(zamsMin_64f(z.data() + 1, 99, &m), m)));
}

// Element-wise extremes: a > b ? a : b with a from the first source.
template <bool Max, class T> T every(T a, T b) { return (Max ? a > b : a < b) ? a : b; }

template <class T> std::vector<T> every_pool(uint32_t seed) {
    auto v = dup_pool<T>(320, seed);
    if constexpr (std::is_floating_point_v<T>) v[5] = std::numeric_limits<T>::quiet_NaN();
    return v;
}

// MaxEvery, MinEvery (out of place where they exist) and their in-place forms.
template <class T> struct Every {
    using type = T;
    zamStatus (*max)(const T*, const T*, T*, int), (*min)(const T*, const T*, T*, int);
    zamStatus (*max_i)(const T*, T*, int), (*min_i)(const T*, T*, int);
};
#define EVERY(T) Every<Zam##T>{zamsMaxEvery_##T, zamsMinEvery_##T, zamsMaxEvery_##T##_I, zamsMinEvery_##T##_I}
#define EVERY_I(T) Every<Zam##T>{nullptr, nullptr, zamsMaxEvery_##T##_I, zamsMinEvery_##T##_I}

template <class T> void every_matches(Every<T> f) {
    zt::SweepOptions o{80, true, 1};
    if (f.max) {
        zt::sweep_binary<T, T, T>(f.max, every<true, T>, every_pool<T>(1), every_pool<T>(2), o);
        zt::sweep_binary<T, T, T>(f.min, every<false, T>, every_pool<T>(3), every_pool<T>(4), o);
    }
    // the in-place form driven like the two-source one, the second source copied to the destination first
    auto in_place = [](auto fn) {
        return [fn](const T* a, const T* b, T* d, int n) { return std::memmove(d, b, n * sizeof(T)), fn(a, d, n); };
    };
    zt::sweep_binary<T, T, T>(in_place(f.max_i), every<true, T>, every_pool<T>(5), every_pool<T>(6), o);
    zt::sweep_binary<T, T, T>(in_place(f.min_i), every<false, T>, every_pool<T>(7), every_pool<T>(8), o);
}

TEST(Every, MatchesModelEverywhere) {
    st::each([](auto f) { every_matches(f); }, EVERY(8u), EVERY(16u), EVERY(32f), EVERY(64f), EVERY_I(16s), EVERY_I(32s));
}

template <class T> void digest_ext(zt::Digest& d, Ext<T> f, const std::vector<T>& x, std::initializer_list<int> lens) {
    for (int n : lens) {
        T v;
        int k;
        d.status(f.max(x.data(), n, &v)), d.add(&v, 1);
        d.status(f.min(x.data(), n, &v)), d.add(&v, 1);
        d.status(f.maxi(x.data(), n, &v, &k)), d.add(&v, 1), d.add(&k, 1);
        d.status(f.mini(x.data(), n, &v, &k)), d.add(&v, 1), d.add(&k, 1);
    }
}

ZAMS_DIGEST(extremes) {
    st::each([&](auto f) { digest_ext(d, f, dup_pool<typename decltype(f)::type>(301, 42), {1, 33, 34, 301}); },
             EXT(16s), EXT(32s), EXT(32f), EXT(64f));
    st::each([&](auto f) { digest_ext(d, f, dup_pool<typename decltype(f)::type>(301, 43), {301}); }, EXT_ABS(16s), EXT_ABS(32s),
             EXT_ABS(32f), EXT_ABS(64f));
    st::each([&](auto f) {
        using T = typename decltype(f)::type;
        auto x = dup_pool<T>(301, 40, true), y = dup_pool<T>(301, 41);
        for (int n : {1, 33, 34, 301}) {
            T lo, hi;
            int a, b;
            d.status(f.mmi(x.data(), n, &lo, &a, &hi, &b)), d.add(&lo, 1), d.add(&hi, 1), d.add(&a, 1), d.add(&b, 1);
            d.status(f.mm(y.data(), n, &lo, &hi)), d.add(&lo, 1), d.add(&hi, 1);
        }
    }, MINMAX(8u), MINMAX(16s), MINMAX(16u), MINMAX(32s), MINMAX(32u), MINMAX(32f), MINMAX(64f));
}

ZAMS_DIGEST(every) {
    auto pools = [](auto f) { using T = typename decltype(f)::type; return std::pair{every_pool<T>(44), every_pool<T>(45)}; };
    st::each([&](auto f) {
        auto [a, b] = pools(f);
        auto o = a;
        d.status(f.max(a.data(), b.data(), o.data(), int(a.size()))), d.add(o);
        d.status(f.min(a.data(), b.data(), o.data(), int(a.size()))), d.add(o);
    }, EVERY(8u), EVERY(16u), EVERY(32f), EVERY(64f));
    st::each([&](auto f) {
        auto [a, b] = pools(f);
        auto c = b;
        d.status(f.max_i(a.data(), c.data(), int(a.size()))), d.add(c);
        d.status(f.min_i(b.data(), c.data(), int(a.size()))), d.add(c);
    }, EVERY(8u), EVERY(16u), EVERY(32f), EVERY(64f), EVERY_I(16s), EVERY_I(32s));
}

}  // namespace
