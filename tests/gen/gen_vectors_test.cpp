// Test vectors against their formulas in long double.
#include <cmath>

#include "digest.h"
#include "harness.h"

namespace {

using LD = long double;
const LD kPi = 3.141592653589793238462643383279502884L;

// What an element of type T must hold for the exact value v: within half a
// unit of the saturated value (integers), or rounding-close (floats).
template <class T> void expect_close(T got, LD v, LD scale, const char* what, int n) {
    if constexpr (std::is_integral_v<T>) {
        const LD lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
        ASSERT_NEAR(LD(got), std::fmin(std::fmax(v, lo), hi), 0.5L + 1e-9L) << what << " " << n;
    } else {
        ASSERT_NEAR(LD(got), v, std::fabs(v) * (sizeof(T) == 4 ? 6e-8L : 2e-16L) + scale * 1e-15L) << what << " " << n;
    }
}

template <class T> struct Fns {
    zamStatus (*jaehne)(T*, int, T);
    zamStatus (*ramp)(T*, int, Zam32f, Zam32f);
    zamStatus (*slope)(T*, int, Zam64f, Zam64f);
};
#define FNS(T) Fns<Zam##T>{zamsVectorJaehne_##T, zamsVectorRamp_##T, zamsVectorSlope_##T}

template <class T> void check(Fns<T> fn, T magn) {
    for (int len : {1, 2, 7, 100, 1023}) {
        std::vector<T> d(len);
        ASSERT_EQ(fn.jaehne(d.data(), len, magn), zamStatusOk);
        for (int n = 0; n < len; ++n) expect_close(d[n], magn * std::sin(kPi * n * n / (2 * LD(len))), LD(magn), "jaehne", n);
        ASSERT_EQ(fn.ramp(d.data(), len, -3.5f, 0.75f), zamStatusOk);
        for (int n = 0; n < len; ++n) expect_close(d[n], -3.5L + 0.75L * n, 0, "ramp", n);
        ASSERT_EQ(fn.slope(d.data(), len, 1e3, -2.0 / 3), zamStatusOk);
        for (int n = 0; n < len; ++n) expect_close(d[n], 1e3L + LD(-2.0 / 3) * n, 0, "slope", n);
    }
    zt::Guarded<T> g(3);
    if constexpr (std::is_signed_v<T>) {
        EXPECT_EQ(fn.jaehne(g.data(), 3, T(-1)), zamStatusBadArgument);
    }
    EXPECT_TRUE(g.guards_intact());
}

TEST(Vectors, JaehneRampSlope) {
    check(FNS(8u), Zam8u(200));
    check(FNS(8s), Zam8s(100));
    check(FNS(16u), Zam16u(60000));
    check(FNS(16s), Zam16s(32767));
    check(FNS(32u), Zam32u(4000000000u));
    check(FNS(32s), Zam32s(2000000000));
    check(FNS(32f), Zam32f(1.5f));
    check(FNS(64f), Zam64f(1e10));
}

TEST(Vectors, SaturateAndLongJaehne) {
    std::vector<Zam8u> d(300);
    ASSERT_EQ(zamsVectorRamp_8u(d.data(), 300, -10.0f, 1.0f), zamStatusOk);
    EXPECT_EQ(d[0], 0);
    EXPECT_EQ(d[10], 0);
    EXPECT_EQ(d[11], 1);
    EXPECT_EQ(d[299], 255);
    ASSERT_EQ(zamsVectorSlope_8u(d.data(), 3, 0.5, 1.0), zamStatusOk);  // ties to even
    EXPECT_EQ(d[0], 0);
    EXPECT_EQ(d[1], 2);
    EXPECT_EQ(d[2], 2);
    // n^2 far beyond 2^53: the angle is still reduced exactly.
    const int len = 3000000;
    std::vector<Zam64f> j(len);
    ASSERT_EQ(zamsVectorJaehne_64f(j.data(), len, 1.0), zamStatusOk);
    for (int64_t n = len - 50; n < len; ++n) {
        const int64_t k = (n * n) % (4 * int64_t(len));
        EXPECT_NEAR(j[n], std::sin(kPi * k / (2 * LD(len))), 1e-15) << n;
    }
}

ZAMS_DIGEST(vectors) {
    std::vector<Zam32f> f(999);
    d.status(zamsVectorJaehne_32f(f.data(), 999, 2.5f));
    d.add(f);
    std::vector<Zam16s> s(999);
    d.status(zamsVectorJaehne_16s(s.data(), 999, 30000));
    d.add(s);
    std::vector<Zam64f> g(999);
    d.status(zamsVectorSlope_64f(g.data(), 999, -1.25, 1.0 / 3));
    d.add(g);
    std::vector<Zam32s> i(999);
    d.status(zamsVectorRamp_32s(i.data(), 999, -1e6f, 12345.678f));
    d.add(i);
}

}  // namespace
