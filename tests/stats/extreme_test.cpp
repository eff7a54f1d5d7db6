// Extremes and their indices against a scalar scan.
#include <cmath>
#include <limits>

#include "digest.h"
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

#define EXTREME_SUITE(T)                                                                                   \
    TEST(Extreme, T##_ValuesAndFirstIndices) {                                                             \
        using X = Zam##T;                                                                                  \
        for (bool nan_first : {false, true}) {                                                             \
            auto pool = dup_pool<X>(300, 11, nan_first);                                                   \
            each_layout(pool, 300, [](const X* x, int n) {                                                 \
                int imax = scan<true>(x, n), imin = scan<false>(x, n);                                     \
                X v;                                                                                       \
                int k = -1;                                                                                \
                ASSERT_EQ(zamsMax_##T(x, n, &v), zamStatusOk);                                             \
                ASSERT_TRUE(same(v, x[imax])) << n;                                                        \
                ASSERT_EQ(zamsMin_##T(x, n, &v), zamStatusOk);                                             \
                ASSERT_TRUE(same(v, x[imin])) << n;                                                        \
                ASSERT_EQ(zamsMaxIndx_##T(x, n, &v, &k), zamStatusOk);                                     \
                ASSERT_EQ(k, imax) << n;                                                                   \
                ASSERT_TRUE(same(v, x[imax]));                                                             \
                ASSERT_EQ(zamsMinIndx_##T(x, n, &v, &k), zamStatusOk);                                     \
                ASSERT_EQ(k, imin) << n;                                                                   \
                ASSERT_EQ(zamsMaxIndx_##T(x, n, &v, nullptr), zamStatusOk);                                \
                ASSERT_TRUE(same(v, x[imax]));                                                             \
            });                                                                                            \
        }                                                                                                  \
    }
EXTREME_SUITE(16s)
EXTREME_SUITE(32s)
EXTREME_SUITE(32f)
EXTREME_SUITE(64f)

// MinMaxIndx: the first element equal to each extreme; a NaN extreme
// (leading NaN) matches nothing and gives index 0.
#define MINMAX_SUITE(T)                                                                                    \
    TEST(Extreme, T##_MinMaxWithIndices) {                                                                 \
        using X = Zam##T;                                                                                  \
        auto pool = dup_pool<X>(300, 12, true);                                                            \
        each_layout(pool, 300, [](const X* x, int n) {                                                     \
            int imax = scan<true>(x, n), imin = scan<false>(x, n);                                         \
            X lo, hi;                                                                                      \
            int a = -1, b = -1;                                                                            \
            ASSERT_EQ(zamsMinMax_##T(x, n, &lo, &hi), zamStatusOk);                                        \
            ASSERT_TRUE(same(lo, x[imin]) && same(hi, x[imax])) << n;                                      \
            ASSERT_EQ(zamsMinMaxIndx_##T(x, n, &lo, &a, &hi, &b), zamStatusOk);                            \
            ASSERT_TRUE(same(lo, x[imin]) && same(hi, x[imax])) << n;                                      \
            ASSERT_EQ(a, imin) << n;                                                                       \
            ASSERT_EQ(b, imax) << n;                                                                       \
        });                                                                                                \
    }
MINMAX_SUITE(8u)
MINMAX_SUITE(16s)
MINMAX_SUITE(16u)
MINMAX_SUITE(32s)
MINMAX_SUITE(32u)
MINMAX_SUITE(32f)
MINMAX_SUITE(64f)

// By magnitude: compared exactly (|-32768| beats 32767), reported saturated.
template <class T> void abs_case(zamStatus (*mx)(const T*, int, T*), zamStatus (*mn)(const T*, int, T*),
                                 zamStatus (*mxi)(const T*, int, T*, int*), zamStatus (*mni)(const T*, int, T*, int*)) {
    auto pool = dup_pool<T>(300, 13);
    using W = long long;
    auto mag = [](T v) { return v < 0 ? -W(v) : W(v); };
    auto sat = [](W v) { return T(std::min<W>(v, std::numeric_limits<T>::max())); };
    each_layout(pool, 300, [&](const T* x, int n) {
        int a = 0, b = 0;
        for (int i = 1; i < n; ++i) {
            if (mag(x[i]) > mag(x[a])) a = i;
            if (mag(x[i]) < mag(x[b])) b = i;
        }
        T v;
        int k;
        ASSERT_EQ(mx(x, n, &v), zamStatusOk);
        ASSERT_EQ(v, sat(mag(x[a])));
        ASSERT_EQ(mn(x, n, &v), zamStatusOk);
        ASSERT_EQ(v, sat(mag(x[b])));
        ASSERT_EQ(mxi(x, n, &v, &k), zamStatusOk);
        ASSERT_EQ(k, a);
        ASSERT_EQ(mni(x, n, &v, &k), zamStatusOk);
        ASSERT_EQ(k, b);
        ASSERT_EQ(v, sat(mag(x[b])));
    });
}

TEST(Extreme, ByMagnitude) {
    abs_case<Zam16s>(zamsMaxAbs_16s, zamsMinAbs_16s, zamsMaxAbsIndx_16s, zamsMinAbsIndx_16s);
    abs_case<Zam32s>(zamsMaxAbs_32s, zamsMinAbs_32s, zamsMaxAbsIndx_32s, zamsMinAbsIndx_32s);
}

TEST(Extreme, FirstOfEqualZeros) {
    // The first of equal zeros is the result, on the vector path too.
    std::vector<Zam64f> z(100);
    for (int i = 0; i < 100; ++i) z[i] = i % 2 ? 0.0 : -0.0;
    Zam64f m;
    ASSERT_EQ(zamsMax_64f(z.data(), 100, &m), zamStatusOk);
    EXPECT_TRUE(std::signbit(m));
    ASSERT_EQ(zamsMin_64f(z.data() + 1, 99, &m), zamStatusOk);
    EXPECT_FALSE(std::signbit(m));
}

TEST(Extreme, CheckOrder) {
    Zam32f x[2] = {1, 2}, v = 9;
    int k = 9;
    EXPECT_EQ(zamsMax_32f(nullptr, 0, &v), zamStatusNullPointer);
    EXPECT_EQ(zamsMax_32f(x, 0, &v), zamStatusBadLength);
    EXPECT_EQ(zamsMaxIndx_32f(x, 0, &v, nullptr), zamStatusBadLength);
    EXPECT_EQ(zamsMinIndx_64f(nullptr, 1, nullptr, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsMaxAbsIndx_16s(reinterpret_cast<Zam16s*>(x), 2, reinterpret_cast<Zam16s*>(&v), nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsMinMaxIndx_32f(x, 2, &v, &k, &v, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsMinMaxIndx_32f(x, -1, &v, &k, &v, &k), zamStatusBadLength);
    EXPECT_EQ(zamsMinMax_8u(nullptr, 1, nullptr, nullptr), zamStatusNullPointer);
    EXPECT_EQ(v, 9);
    EXPECT_EQ(k, 9);
}

// Element-wise extremes: a > b ? a : b with a from the first source.
template <bool Max, class T> T every(T a, T b) { return (Max ? a > b : a < b) ? a : b; }

template <class T> std::vector<T> every_pool(uint32_t seed) {
    auto v = dup_pool<T>(320, seed);
    if constexpr (std::is_floating_point_v<T>) v[5] = std::numeric_limits<T>::quiet_NaN();
    return v;
}

#define EVERY_OOP(T)                                                                                               \
    zt::sweep_binary<Zam##T, Zam##T, Zam##T>(zamsMaxEvery_##T, every<true, Zam##T>, every_pool<Zam##T>(1), every_pool<Zam##T>(2), o, zt::BitEqual{}); \
    zt::sweep_binary<Zam##T, Zam##T, Zam##T>(zamsMinEvery_##T, every<false, Zam##T>, every_pool<Zam##T>(3), every_pool<Zam##T>(4), o, zt::BitEqual{});
#define EVERY_I(T)                                                                                                 \
    zt::sweep_binary<Zam##T, Zam##T, Zam##T>([](const Zam##T* a, const Zam##T* b, Zam##T* d, int n) {              \
        std::memmove(d, b, n * sizeof(Zam##T)); return zamsMaxEvery_##T##_I(a, d, n); },                             \
        every<true, Zam##T>, every_pool<Zam##T>(5), every_pool<Zam##T>(6), o, zt::BitEqual{});                       \
    zt::sweep_binary<Zam##T, Zam##T, Zam##T>([](const Zam##T* a, const Zam##T* b, Zam##T* d, int n) {              \
        std::memmove(d, b, n * sizeof(Zam##T)); return zamsMinEvery_##T##_I(a, d, n); },                             \
        every<false, Zam##T>, every_pool<Zam##T>(7), every_pool<Zam##T>(8), o, zt::BitEqual{});

TEST(Every, MatchesModelEverywhere) {
    zt::SweepOptions o{80, true, 1};
    EVERY_OOP(8u)
    EVERY_OOP(16u)
    EVERY_OOP(32f)
    EVERY_OOP(64f)
    EVERY_I(8u)
    EVERY_I(16s)
    EVERY_I(16u)
    EVERY_I(32s)
    EVERY_I(32f)
    EVERY_I(64f)
    Zam32f a[1] = {1}, b[1] = {2};
    EXPECT_EQ(zamsMaxEvery_32f(a, nullptr, b, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsMinEvery_16s_I(reinterpret_cast<Zam16s*>(a), nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsMaxEvery_64f_I(reinterpret_cast<Zam64f*>(a), reinterpret_cast<Zam64f*>(b), 0), zamStatusBadLength);
}

#define DIGEST_MINMAX(T)                                                                              \
    {                                                                                                     \
        auto x = dup_pool<Zam##T>(301, 40, true);                                                         \
        auto y = dup_pool<Zam##T>(301, 41);                                                               \
        for (int n : {1, 33, 34, 301}) {                                                                  \
            Zam##T lo, hi;                                                                                \
            int a, b;                                                                                     \
            d.status(zamsMinMaxIndx_##T(x.data(), n, &lo, &a, &hi, &b));                                  \
            d.add(&lo, 1), d.add(&hi, 1), d.add(&a, 1), d.add(&b, 1);                                     \
            d.status(zamsMinMax_##T(y.data(), n, &lo, &hi));                                              \
            d.add(&lo, 1), d.add(&hi, 1);                                                                 \
        }                                                                                                 \
    }
#define DIGEST_EXT(T)                                                                                     \
    {                                                                                                     \
        auto x = dup_pool<Zam##T>(301, 42);                                                               \
        for (int n : {1, 33, 34, 301}) {                                                                  \
            Zam##T v;                                                                                     \
            int k;                                                                                        \
            d.status(zamsMax_##T(x.data(), n, &v)); d.add(&v, 1);                                         \
            d.status(zamsMin_##T(x.data(), n, &v)); d.add(&v, 1);                                         \
            d.status(zamsMaxIndx_##T(x.data(), n, &v, &k)); d.add(&v, 1); d.add(&k, 1);                   \
            d.status(zamsMinIndx_##T(x.data(), n, &v, &k)); d.add(&v, 1); d.add(&k, 1);                   \
        }                                                                                                 \
    }
#define DIGEST_ABS(T)                                                                                     \
    {                                                                                                     \
        auto x = dup_pool<Zam##T>(301, 43);                                                               \
        Zam##T v;                                                                                         \
        int k;                                                                                            \
        d.status(zamsMaxAbs_##T(x.data(), 301, &v)); d.add(&v, 1);                                        \
        d.status(zamsMinAbs_##T(x.data(), 301, &v)); d.add(&v, 1);                                        \
        d.status(zamsMaxAbsIndx_##T(x.data(), 301, &v, &k)); d.add(&v, 1); d.add(&k, 1);                 \
        d.status(zamsMinAbsIndx_##T(x.data(), 301, &v, &k)); d.add(&v, 1); d.add(&k, 1);                 \
    }
#define DIGEST_EVERY(T)                                                                                   \
    {                                                                                                     \
        auto a = every_pool<Zam##T>(44), b = every_pool<Zam##T>(45);                                      \
        std::vector<Zam##T> o(a.size());                                                                  \
        d.status(zamsMaxEvery_##T(a.data(), b.data(), o.data(), int(a.size()))); d.add(o);                \
        d.status(zamsMinEvery_##T(a.data(), b.data(), o.data(), int(a.size()))); d.add(o);                \
    }
#define DIGEST_EVERY_I(T)                                                                                 \
    {                                                                                                     \
        auto a = every_pool<Zam##T>(44), b = every_pool<Zam##T>(45), c = b;                               \
        const int n = int(a.size());                                                                      \
        d.status(zamsMaxEvery_##T##_I(a.data(), c.data(), n)); d.add(c);                                  \
        d.status(zamsMinEvery_##T##_I(b.data(), c.data(), n)); d.add(c);                                  \
    }

ZAMS_DIGEST(extremes) {
    DIGEST_EXT(16s) DIGEST_EXT(32s) DIGEST_EXT(32f) DIGEST_EXT(64f)
    DIGEST_ABS(16s) DIGEST_ABS(32s)
    DIGEST_MINMAX(8u) DIGEST_MINMAX(16s) DIGEST_MINMAX(16u) DIGEST_MINMAX(32s) DIGEST_MINMAX(32u)
    DIGEST_MINMAX(32f) DIGEST_MINMAX(64f)
}

ZAMS_DIGEST(every) {
    DIGEST_EVERY(8u) DIGEST_EVERY(16u) DIGEST_EVERY(32f) DIGEST_EVERY(64f)
    DIGEST_EVERY_I(8u) DIGEST_EVERY_I(16u) DIGEST_EVERY_I(32f) DIGEST_EVERY_I(64f) DIGEST_EVERY_I(16s) DIGEST_EVERY_I(32s)
}

}  // namespace
