// Range counts, magnitude order, zero crossings and sliding-window sums.
#include <cmath>
#include <limits>

#include "digest.h"
#include "stats_util.h"

namespace {

TEST(CountInRange, BoundsAreExclusive) {
    const Zam32s x[] = {1, 2, 3};
    int c = -1;
    EXPECT_EQ(st::ok(zamsCountInRange_32s(x, 3, &c, 1, 3), c), 1);
    auto v = zt::random_ints<Zam32s>(500, 1);
    for (auto [lo, hi] : {std::pair{-32, 31}, std::pair{INT32_MIN, INT32_MAX}, std::pair{5, -5}, std::pair{0, 0}}) {
        int want = 0;
        for (Zam32s e : v) want += e > lo && e < hi;
        EXPECT_EQ(st::ok(zamsCountInRange_32s(v.data(), 500, &c, lo, hi), c), want);
    }
}

TEST(MaxOrder, BitsOfTheLargestMagnitude) {
    const Zam16s a[] = {3, -4, 1}, m[] = {0, -32768};
    const Zam32s b[] = {0, 0}, c[] = {INT32_MIN, 5};
    int o = -1;
    EXPECT_EQ(st::ok(zamsMaxOrder_16s(a, 3, &o), o), 3);  // |-4| = 100b
    EXPECT_EQ(st::ok(zamsMaxOrder_16s(m, 2, &o), o), 16);
    EXPECT_EQ(st::ok(zamsMaxOrder_32s(b, 2, &o), o), 0);
    EXPECT_EQ(st::ok(zamsMaxOrder_32s(c, 2, &o), o), 32);
    // Floats: max |x| in [2^(e-1), 2^e).
    struct Case { double v; int e; } const cases[] = {{1.0, 1}, {0.75, 0}, {-3.0, 2}, {4.0, 3}, {1e-310, -1029}, {0.0, 0}};
    for (auto [v, e] : cases) {
        Zam64f d[2] = {0.5 * v, v};
        EXPECT_EQ(st::ok(zamsMaxOrder_64f(d, 2, &o), o), e) << v;
    }
    Zam32f f[3] = {1.5f, -6.0f, 1e-40f};
    EXPECT_EQ(st::ok(zamsMaxOrder_32f(f, 3, &o), o), 3);
    EXPECT_EQ(st::ok(zamsMaxOrder_32f(f + 2, 1, &o), o), std::ilogb(1e-40f) + 1);
    // A non-finite element warns; the order of the finite ones is written.
    f[0] = INFINITY;
    o = -1;
    EXPECT_EQ(zamsMaxOrder_32f(f, 3, &o), zamStatusWarnMaxOrderNotFinite);
    EXPECT_EQ(o, 3);
    Zam64f n[2] = {NAN, 2.0};
    EXPECT_EQ(zamsMaxOrder_64f(n, 2, &o), zamStatusWarnMaxOrderNotFinite);
    EXPECT_EQ(o, 2);
    // The length comes before the pointers.
    EXPECT_EQ(zamsMaxOrder_32f(nullptr, 0, nullptr), zamStatusBadLength);
    EXPECT_EQ(zamsMaxOrder_16s(nullptr, 0, &o), zamStatusBadLength);
}

TEST(ZeroCrossing, ThreeKinds) {
    const Zam32f x[] = {1, -1, 0, 2, 0, -3, -4};
    Zam32f v = -1;
    // Zero counted positive: 1|-1, -1|0, 0|-3.
    EXPECT_EQ(st::ok(zamsZeroCrossing_32f(x, 7, &v, 0), v), 3.0f);
    // Half weights through zero: 1, 0.5, 0.5, 0.5, 0.5 (2 to 0 to -3 counts 1).
    EXPECT_EQ(st::ok(zamsZeroCrossing_32f(x, 7, &v, 1), v), 3.0f);
    EXPECT_FLOAT_EQ(st::ok(zamsZeroCrossing_32f(x, 7, &v, 2), v), 3.0f / 7);
    const Zam16s s[] = {5, 0, 5, -5, 0, 0, 5};
    EXPECT_EQ(st::ok(zamsZeroCrossing_16s32f(s, 7, &v, 0), v), 2.0f);
    EXPECT_EQ(st::ok(zamsZeroCrossing_16s32f(s, 7, &v, 1), v), 3.0f);  // 0.5 + 0.5 + 1 + 0.5 + 0 + 0.5
    EXPECT_EQ(st::ok(zamsZeroCrossing_16s32f(s, 1, &v, 0), v), 0.0f);
    v = 9;
    EXPECT_EQ(zamsZeroCrossing_32f(x, 7, &v, 3), zamStatusBadCrossingType);
    EXPECT_EQ(zamsZeroCrossing_16s32f(s, 7, &v, -1), zamStatusBadCrossingType);
    EXPECT_EQ(zamsZeroCrossing_32f(x, 0, &v, 3), zamStatusBadLength);
    EXPECT_EQ(v, 9.0f);
}

TEST(SumWindow, SlidingSumsAreExact) {
    auto a = zt::random_ints<Zam16s>(700, 3);
    std::vector<Zam8u> b(700);
    for (int i = 0; i < 700; ++i) b[i] = Zam8u(a[i]);
    for (int mask : {1, 2, 5, 64, 300}) {
        int len = 700 - mask + 1;
        zt::Guarded<Zam32f> y(len, 4), z(len, 8);
        ASSERT_EQ(zamsSumWindow_16s32f(a.data(), y.data(), len, mask), zamStatusOk);
        ASSERT_EQ(zamsSumWindow_8u32f(b.data(), z.data(), len, mask), zamStatusOk);
        for (int n = 0; n < len; ++n) {
            long long s = 0, t = 0;
            for (int k = 0; k < mask; ++k) s += a[n + k], t += b[n + k];
            ASSERT_EQ(y[n], float(s)) << mask << " " << n;
            ASSERT_EQ(z[n], float(t));
        }
        ASSERT_TRUE(y.guards_intact() && z.guards_intact());
    }
    Zam32f out[2] = {7, 7};
    EXPECT_EQ(zamsSumWindow_8u32f(b.data(), out, 2, 0), zamStatusBadWindowLength);
    EXPECT_EQ(zamsSumWindow_8u32f(b.data(), out, 0, 0), zamStatusBadLength);
    EXPECT_EQ(out[0], 7.0f);
}

ZAMS_DIGEST(misc) {
    auto a = zt::random_ints<Zam16s>(400, 10);
    auto b = zt::random_ints<Zam32s>(400, 11);
    auto f = zt::random_reals<Zam32f>(400, 12);
    auto g = zt::random_reals<Zam64f>(400, 13);
    std::vector<Zam8u> u(400);
    for (int i = 0; i < 400; ++i) u[i] = Zam8u(a[i]);
    int o;
    d.status(zamsMaxOrder_16s(a.data(), 400, &o)); d.add(&o, 1);
    d.status(zamsMaxOrder_32s(b.data(), 400, &o)); d.add(&o, 1);
    d.status(zamsMaxOrder_32f(f.data(), 400, &o)); d.add(&o, 1);
    d.status(zamsMaxOrder_64f(g.data(), 400, &o)); d.add(&o, 1);
    d.status(zamsCountInRange_32s(b.data(), 400, &o, -20, 1 << 30)); d.add(&o, 1);
    for (int k : {0, 1, 2}) {
        Zam32f v;
        d.status(zamsZeroCrossing_16s32f(a.data(), 400, &v, k)); d.add(&v, 1);
        d.status(zamsZeroCrossing_32f(f.data(), 400, &v, k)); d.add(&v, 1);
    }
    std::vector<Zam32f> w(390);
    d.status(zamsSumWindow_8u32f(u.data(), w.data(), 390, 11)); d.add(w);
    d.status(zamsSumWindow_16s32f(a.data(), w.data(), 390, 11)); d.add(w);
}

}  // namespace
