// The Cauchy functions and FM demodulation against closed formulas in long
// double.
#include <cmath>
#include <complex>
#include <limits>

#include "digest.h"
#include "sweep.h"

namespace {

using LD = long double;

// Distance in single-precision ulps of the expected value.
double ulps(float got, LD want) {
    if (std::isnan(want)) return std::isnan(got) ? 0 : 1e9;
    if (std::isinf(want)) return got == float(want) ? 0 : 1e9;
    const LD u = std::ldexp(LD(1), std::max(std::ilogb(float(want)), -126) - 23);
    return double(std::fabs(LD(got) - want) / u);
}

LD rho(LD x, LD c) { return c * c / 2 * std::log1p((x / c) * (x / c)); }
LD rho_d(LD x, LD c) { return x / (1 + (x / c) * (x / c)); }
LD rho_dd(LD x, LD c) {
    const LD u = (x / c) * (x / c);
    return (1 - u) / ((1 + u) * (1 + u));
}

TEST(Cauchy, ClosedFormsWithinOneUlpInPlaceAlike) {
    auto x = zt::random_reals<float>(2000, 21, -50.0f, 50.0f);
    for (size_t i = 0; i < x.size(); i += 5) x[i] = std::ldexp(x[i], -int(i % 60));  // tiny errors
    for (size_t i = 2; i < x.size(); i += 7) x[i] = std::ldexp(x[i], int(i % 90));    // huge errors
    const int n = int(x.size());
    for (float c : {1.0f, 0.01f, 3.7f, 1e10f}) {
        std::vector<float> y(n), io;
        struct F {
            zamStatus (*oop)(const Zam32f*, Zam32f*, int, Zam32f);
            zamStatus (*ip)(Zam32f*, int, Zam32f);
            LD (*model)(LD, LD);
        };
        for (F f : {F{zamsCauchy_32f, zamsCauchy_32f_I, rho}, F{zamsCauchyD_32f, zamsCauchyD_32f_I, rho_d},
                    F{zamsCauchyDD2_32f, zamsCauchyDD2_32f_I, rho_dd}}) {
            ASSERT_EQ(f.oop(x.data(), y.data(), n, c), zamStatusOk);
            for (int i = 0; i < n; ++i) ASSERT_LE(ulps(y[i], f.model(x[i], c)), 1.0) << x[i] << " c " << c;
            io = x;
            ASSERT_EQ(f.ip(io.data(), n, c), zamStatusOk);
            EXPECT_EQ(io, y);
        }
    }
}

TEST(Cauchy, LimitsAndParameterChecks) {
    const float inf = std::numeric_limits<float>::infinity();
    float x[3] = {inf, -inf, NAN}, y[3];
    ASSERT_EQ(zamsCauchy_32f(x, y, 3, 2.0f), zamStatusOk);
    EXPECT_TRUE(y[0] == inf && y[1] == inf && std::isnan(y[2]));
    ASSERT_EQ(zamsCauchyD_32f(x, y, 3, 2.0f), zamStatusOk);
    EXPECT_TRUE(y[0] == 0 && !std::signbit(y[0]) && y[1] == 0 && std::signbit(y[1]) && std::isnan(y[2]));
    ASSERT_EQ(zamsCauchyDD2_32f(x, y, 2, 2.0f), zamStatusOk);
    EXPECT_TRUE(y[0] == 0 && y[1] == 0);
    float keep[3] = {1, 2, 3};
    for (float c : {0.0f, -1.0f, -0.0f, float(NAN), -inf}) {
        EXPECT_EQ(zamsCauchy_32f(x, keep, 3, c), zamStatusNotPositiveParam);
        EXPECT_EQ(zamsCauchyD_32f_I(keep, 3, c), zamStatusNotPositiveParam);
        EXPECT_EQ(zamsCauchyDD2_32f(x, keep, 3, c), zamStatusNotPositiveParam);
    }
    EXPECT_TRUE(keep[0] == 1 && keep[1] == 2 && keep[2] == 3);
    EXPECT_EQ(zamsCauchy_32f_I(nullptr, 0, -1.0f), zamStatusNullPointer);
    EXPECT_EQ(zamsCauchyDD2_32f_I(keep, 0, -1.0f), zamStatusBadLength);
}

// A tone with a known frequency sweep: the demodulated steps are the phase
// increments; and each sample against the angle of the exact product.
TEST(FMDemod, FloatStepsOfAKnownPhase) {
    const int n = 1000;
    std::vector<Zam32fc> x(n);
    std::vector<LD> step(n);
    LD ph = 0.3L;
    for (int i = 0; i < n; ++i) {
        const LD w = 2.9L * std::sin(i * 0.01L);  // |w| < pi
        ph += w;
        step[i] = i ? w : 0;
        const LD a = 0.5L + (i % 7);
        x[i] = Zam32fc{float(a * std::cos(ph)), float(a * std::sin(ph))};
    }
    Zam32fc mem = x[0];
    std::vector<float> y(n);
    ASSERT_EQ(zamsFMDemod_32fc32f(x.data(), y.data(), n, &mem), zamStatusOk);
    EXPECT_EQ(mem.re, x[n - 1].re);
    EXPECT_EQ(mem.im, x[n - 1].im);
    for (int i = 1; i < n; ++i) {
        const Zam32fc a = x[i], b = x[i - 1];
        const LD re = LD(a.re) * b.re + LD(a.im) * b.im, im = LD(a.im) * b.re - LD(a.re) * b.im;
        ASSERT_LE(ulps(y[i], std::atan2(im, re)), 1.0) << i;
        ASSERT_NEAR(y[i], double(step[i]), 1e-5) << i;
    }
    EXPECT_EQ(y[0], 0.0f);
    // a zero sample gives 0 (no signed zero reaches the angle), a half turn +pi
    Zam32fc z[3] = {{-1.0f, 0.0f}, {0.0f, -0.0f}, {1.0f, -0.0f}};
    mem = Zam32fc{-2.0f, 0.0f};
    ASSERT_EQ(zamsFMDemod_32fc32f(z, y.data(), 3, &mem), zamStatusOk);
    EXPECT_EQ(zt::bits(y[0]), zt::bits(0.0f));
    EXPECT_EQ(zt::bits(y[1]), zt::bits(0.0f));
    EXPECT_EQ(zt::bits(y[2]), zt::bits(0.0f));
    mem = Zam32fc{-2.0f, -0.0f};
    z[0] = Zam32fc{2.0f, 0.0f};
    ASSERT_EQ(zamsFMDemod_32fc32f(z, y.data(), 1, &mem), zamStatusOk);
    EXPECT_EQ(y[0], float(3.14159265358979323846));
}

TEST(FMDemod, Q15AgainstExactAngleInPieces) {
    auto raw = zt::random_ints<Zam16s>(2 * 600, 31);
    std::vector<Zam16sc> x(600);
    for (int i = 0; i < 600; ++i) x[i] = Zam16sc{raw[2 * i], raw[2 * i + 1]};
    x[5] = Zam16sc{0, 0};
    x[9] = Zam16sc{-32768, 0}, x[10] = Zam16sc{32767, 0};  // a step of pi
    const Zam16sc mem0{100, -200};
    std::vector<Zam16s> y(600);
    Zam16sc mem = mem0;
    for (auto [a, b] : {std::pair{0, 1}, {1, 300}, {300, 600}})
        ASSERT_EQ(zamsFMDemod_16sc16s(x.data() + a, y.data() + a, b - a, &mem), zamStatusOk);
    int exact = 0;
    for (int i = 0; i < 600; ++i) {
        const Zam16sc a = x[i], b = i ? x[i - 1] : mem0;
        const LD re = LD(int64_t(a.re) * b.re + int64_t(a.im) * b.im);
        const LD im = LD(int64_t(a.im) * b.re - int64_t(a.re) * b.im);
        const LD q = std::min(std::nearbyint(std::atan2(im, re) / 3.14159265358979323846264L * 32768), 32767.0L);
        ASSERT_LE(std::fabs(q - y[i]), 1) << i;
        exact += q == y[i];
    }
    EXPECT_GE(exact, 598);
    EXPECT_EQ(y[5], 0);
    EXPECT_EQ(y[10], 32767);
    EXPECT_EQ(mem.re, x[599].re);
}

ZAMS_DIGEST(robust_fm) {
    const auto x = zt::random_reals<float>(600, 3, -30.0f, 30.0f);
    std::vector<float> y(600);
    d.status(zamsCauchy_32f(x.data(), y.data(), 600, 2.5f)), d.add(y);
    d.status(zamsCauchyD_32f(x.data(), y.data(), 600, 0.5f)), d.add(y);
    d.status(zamsCauchyDD2_32f(x.data(), y.data(), 600, 7.0f)), d.add(y);
    Zam32fc m{1.0f, 0.5f};
    d.status(zamsFMDemod_32fc32f(reinterpret_cast<const Zam32fc*>(x.data()), y.data(), 300, &m)), d.add(y);
    const auto s = zt::random_ints<Zam16s>(600, 4);
    std::vector<Zam16s> z(300);
    Zam16sc ms{3, -4};
    d.status(zamsFMDemod_16sc16s(reinterpret_cast<const Zam16sc*>(s.data()), z.data(), 300, &ms)), d.add(z);
}

}  // namespace
