// Hilbert transform: a cosine over whole periods gives the sine, odd and
// even lengths against a long double model of the one-sided spectrum, the
// 16-bit forms, lengths 1 and 2.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "digest.h"
#include "dft_model.h"
#include "harness.h"

namespace {

using namespace dftt;

// The analytic signal by the rule: X = DFT(x); X[1..h] doubled, X[N/2+1 ..
// N/2+h] cleared (h = ceil(N/2) - 1), inverse divided by N.
std::vector<LC> model(const std::vector<float>& x) {
    const size_t n = x.size();
    std::vector<LC> w(n);
    for (size_t i = 0; i < n; ++i) w[i] = x[i];
    auto X = naive(w, false);
    const size_t h = (n + 1) / 2 - 1;
    for (size_t k = 1; k <= h; ++k) X[k] *= 2;
    for (size_t k = n / 2 + 1; k < n / 2 + 1 + h; ++k) X[k] = 0;
    auto y = naive(X, true);
    for (auto& v : y) v /= (long double)n;
    return y;
}

struct HSpec {
    ZamsHilbertSpec_32f32fc* p = nullptr;
    ~HSpec() {
        if (p) zamsHilbertFree_32f32fc(p);
    }
};

TEST(Hilbert, CosineOverWholePeriodsGivesTheSine) {
    for (int n : {64, 100, 99, 1000, 4099}) {
        HSpec s;
        ASSERT_EQ(zamsHilbertInitAlloc_32f32fc(&s.p, n, 0), zamStatusOk);
        const int periods = 5;
        std::vector<float> x(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) x[size_t(i)] = float(std::cos(2 * M_PI * periods * i / n));
        std::vector<Zam32fc> y(static_cast<size_t>(n));
        ASSERT_EQ(zamsHilbert_32f32fc(x.data(), y.data(), s.p), zamStatusOk);
        for (int i = 0; i < n; ++i) {
            EXPECT_NEAR(y[size_t(i)].re, x[size_t(i)], 2e-5) << n;
            EXPECT_NEAR(y[size_t(i)].im, std::sin(2 * M_PI * periods * i / n), 2e-5) << n << " at " << i;
        }
    }
}

TEST(Hilbert, OddAndEvenLengthsMatchTheModel) {
    std::mt19937 g(3);
    std::uniform_real_distribution<double> u(-1, 1);
    for (int n : {3, 4, 5, 6, 7, 16, 17, 97, 128, 255, 256, 257}) {
        HSpec s;
        ASSERT_EQ(zamsHilbertInitAlloc_32f32fc(&s.p, n, 0), zamStatusOk);
        std::vector<float> x(static_cast<size_t>(n));
        for (auto& v : x) v = float(u(g));
        std::vector<Zam32fc> y(static_cast<size_t>(n));
        ASSERT_EQ(zamsHilbert_32f32fc(x.data(), y.data(), s.p), zamStatusOk);
        EXPECT_LE(rel_rms(y, model(x)), 2 * bound<float>(size_t(n))) << n;
    }
}

TEST(Hilbert, SixteenBitForms) {
    const int n = 90;
    std::vector<Zam16s> x(n);
    std::vector<float> xf(n);
    for (int i = 0; i < n; ++i) xf[size_t(i)] = x[size_t(i)] = Zam16s(std::lround(12000 * std::sin(0.37 * i) + 300 * (i % 7)));
    ZamsHilbertSpec_16s32fc* a = nullptr;
    ZamsHilbertSpec_16s16sc* b = nullptr;
    HSpec f;
    ASSERT_EQ(zamsHilbertInitAlloc_16s32fc(&a, n, 0), zamStatusOk);
    ASSERT_EQ(zamsHilbertInitAlloc_16s16sc(&b, n, 0), zamStatusOk);
    ASSERT_EQ(zamsHilbertInitAlloc_32f32fc(&f.p, n, 0), zamStatusOk);
    std::vector<Zam32fc> yf(n), ya(n);
    std::vector<Zam16sc> yb(n);
    ASSERT_EQ(zamsHilbert_32f32fc(xf.data(), yf.data(), f.p), zamStatusOk);
    ASSERT_EQ(zamsHilbert_16s32fc(x.data(), ya.data(), a), zamStatusOk);
    ASSERT_EQ(zamsHilbert_16s16sc_Sfs(x.data(), yb.data(), b, 1), zamStatusOk);
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(ya[size_t(i)].re, yf[size_t(i)].re);
        EXPECT_EQ(ya[size_t(i)].im, yf[size_t(i)].im);
        EXPECT_EQ(yb[size_t(i)].re, Zam16s(std::nearbyint(yf[size_t(i)].re / 2)));
        EXPECT_EQ(yb[size_t(i)].im, Zam16s(std::nearbyint(yf[size_t(i)].im / 2)));
    }
    // a negative scale factor saturates
    ASSERT_EQ(zamsHilbert_16s16sc_Sfs(x.data(), yb.data(), b, -4), zamStatusOk);
    EXPECT_EQ(yb[1].re, x[1] * 16 > 32767 ? 32767 : (x[1] * 16 < -32768 ? -32768 : x[1] * 16));
    EXPECT_EQ(zamsHilbertFree_16s32fc(a), zamStatusOk);
    EXPECT_EQ(zamsHilbertFree_16s16sc(b), zamStatusOk);
}

TEST(Hilbert, LengthsOneAndTwo) {
    for (int n : {1, 2}) {
        HSpec s;
        ASSERT_EQ(zamsHilbertInitAlloc_32f32fc(&s.p, n, 5), zamStatusOk);
        const float x[2] = {3.5f, -1.25f};
        Zam32fc y[2] = {{9, 9}, {9, 9}};
        ASSERT_EQ(zamsHilbert_32f32fc(x, y, s.p), zamStatusOk);
        for (int i = 0; i < n; ++i) {
            EXPECT_EQ(y[i].re, x[i]);
            EXPECT_EQ(y[i].im, 0.0f);
        }
        if (n == 1) {
            EXPECT_EQ(y[1].re, 9.0f);
        }
    }
}

ZAMS_DIGEST(hilbert) {
    for (int n : {1, 5, 64, 97, 300}) {
        std::vector<float> x(static_cast<size_t>(n));
        std::vector<Zam16s> xs(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            x[size_t(i)] = float(std::sin(0.1 * i * i));
            xs[size_t(i)] = Zam16s(i * 37 % 2001 - 1000);
        }
        ZamsHilbertSpec_32f32fc* a = nullptr;
        ZamsHilbertSpec_16s16sc* b = nullptr;
        d.status(zamsHilbertInitAlloc_32f32fc(&a, n, 0));
        d.status(zamsHilbertInitAlloc_16s16sc(&b, n, 0));
        std::vector<Zam32fc> y(static_cast<size_t>(n));
        std::vector<Zam16sc> ys(static_cast<size_t>(n));
        d.status(zamsHilbert_32f32fc(x.data(), y.data(), a));
        d.status(zamsHilbert_16s16sc_Sfs(xs.data(), ys.data(), b, 0));
        d.add(y);
        d.add(ys);
        zamsHilbertFree_32f32fc(a);
        zamsHilbertFree_16s16sc(b);
    }
}

}  // namespace
