// Goertzel: rFreq = k/N gives bin k of the DFT, rFreq = 0 the sum, two
// frequencies equal two single calls, the same bits at any buffer address,
// the 16-bit and Q15 forms, and the statuses in their order.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

#include "digest.h"
#include "dft_model.h"
#include "harness.h"

namespace {

using namespace dftt;

template <class F> struct GK;
template <> struct GK<float> {
    using C = Zam32fc;
    static constexpr auto r = zamsGoertz_32f;
    static constexpr auto c = zamsGoertz_32fc;
    static constexpr auto r2 = zamsGoertzTwo_32f;
    static constexpr auto c2 = zamsGoertzTwo_32fc;
};
template <> struct GK<double> {
    using C = Zam64fc;
    static constexpr auto r = zamsGoertz_64f;
    static constexpr auto c = zamsGoertz_64fc;
    static constexpr auto r2 = zamsGoertzTwo_64f;
    static constexpr auto c2 = zamsGoertzTwo_64fc;
};

// The value at any frequency: sum x(j) e^(2 pi i f (n - j)), which for
// f = k/n is bin k of the DFT.
LC at(const std::vector<LC>& x, long double f) {
    const long double pi = 3.141592653589793238462643383279502884L;
    LC acc = 0;
    for (size_t j = 0; j < x.size(); ++j) {
        long double ph = f * (long double)(x.size() - j);
        ph -= std::floor(ph);
        acc += x[j] * LC(std::cos(2 * pi * ph), std::sin(2 * pi * ph));
    }
    return acc;
}

template <class F> class Goertz : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Goertz, Precisions);

TYPED_TEST(Goertz, BinKOfTheDftAndOtherFrequencies) {
    using F = TypeParam;
    using G = GK<F>;
    std::mt19937 g(1);
    std::uniform_real_distribution<double> u(-1, 1);
    for (int n : {1, 7, 31, 32, 33, 100, 200, 1000, 4096, 4099}) {
        std::vector<F> x(static_cast<size_t>(n));
        std::vector<typename G::C> xc(static_cast<size_t>(n));
        std::vector<LC> xr(static_cast<size_t>(n)), xw(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            x[size_t(i)] = F(u(g));
            xc[size_t(i)] = {F(u(g)), F(u(g))};
            xr[size_t(i)] = x[size_t(i)];
            xw[size_t(i)] = LC(xc[size_t(i)].re, xc[size_t(i)].im);
        }
        const auto Xr = naive(xr, false), Xc = naive(xw, false);
        long double mr = 0, mc = 0;
        for (int k = 0; k < n; ++k) { mr += std::norm(Xr[size_t(k)]); mc += std::norm(Xc[size_t(k)]); }
        mr = std::sqrt(mr / n);
        mc = std::sqrt(mc / n);
        // The recursion's error grows as its length squared near rFreq 0;
        // the lanes run it over m = N/64 (real) or N/32 (complex) steps each
        // in float, N/32 or N/16 in double; N itself below 64.
        const long double m = n < 64 ? n : std::ceil(n / 32.0L);
        const long double tol = sizeof(F) == 4 ? 6e-8L * (m * m + 64) : 1e-16L * m * m + 4e-15L * n;
        for (int k : {0, 1, n / 3, n / 2, n - 1}) {
            if (k >= n) continue;
            const F f = F(double(k) / n);
            const bool bin = double(f) * n == double(k);  // else k/N is not exact in F
            typename G::C vr, vc, two[2];
            ASSERT_EQ(G::r(x.data(), n, &vr, f), zamStatusOk);
            ASSERT_EQ(G::c(xc.data(), n, &vc, f), zamStatusOk);
            const LC wr = bin ? Xr[size_t(k)] : at(xr, f), wc = bin ? Xc[size_t(k)] : at(xw, f);
            EXPECT_LE(std::abs(LC(vr.re, vr.im) - wr), tol * mr) << n << " k " << k;
            EXPECT_LE(std::abs(LC(vc.re, vc.im) - wc), tol * mc) << n << " k " << k;
            const F fs[2] = {f, F(0)};
            ASSERT_EQ(G::c2(xc.data(), n, two, fs), zamStatusOk);
            EXPECT_EQ(two[0].re, vc.re);
            EXPECT_EQ(two[0].im, vc.im);
            ASSERT_EQ(G::r2(x.data(), n, two, fs), zamStatusOk);
            EXPECT_EQ(two[0].re, vr.re);
        }
    }
}

TYPED_TEST(Goertz, ZeroFrequencyIsTheSumAndFrequencyChecks) {
    using F = TypeParam;
    using G = GK<F>;
    std::vector<F> x(1000);
    for (size_t i = 0; i < x.size(); ++i) x[i] = F(int(i % 13) - 6);  // exact sums
    long double sum = 0;
    for (F v : x) sum += v;
    typename G::C v;
    ASSERT_EQ(G::r(x.data(), 1000, &v, F(0)), zamStatusOk);
    EXPECT_EQ(double(v.re), double(sum));  // every step exact at rFreq 0
    EXPECT_EQ(double(v.im), 0);
    EXPECT_EQ(G::r(x.data(), 0, &v, F(2)), zamStatusBadLength);  // length before frequency
    EXPECT_EQ(G::r(x.data(), 10, &v, F(1)), zamStatusBadRelativeFreq);
    EXPECT_EQ(G::r(x.data(), 10, &v, F(-0.01)), zamStatusBadRelativeFreq);
    EXPECT_EQ(G::r(x.data(), 10, &v, F(NAN)), zamStatusBadRelativeFreq);
    typename G::C two[2];
    const F bad1[2] = {F(1.5), F(0.1)}, bad2[2] = {F(0.1), F(1)};
    EXPECT_EQ(G::r2(x.data(), 10, two, bad1), zamStatusBadRelativeFreq);
    EXPECT_EQ(G::r2(x.data(), 10, two, bad2), zamStatusBadRelativeFreq);
    EXPECT_EQ(G::r2(x.data(), 0, two, bad2), zamStatusBadLength);
}

// A kernel that peeled to an aligned address would sum in another order.
TYPED_TEST(Goertz, SameBitsAtAnyAddress) {
    using F = TypeParam;
    using G = GK<F>;
    const int n = 1000;
    std::vector<F> x(2 * n + 16);
    for (size_t i = 0; i < x.size(); ++i) x[i] = F(std::sin(0.37 * double(i * i % 977)));
    auto bits = [](const typename G::C& v) { return std::make_pair(v.re, v.im); };
    for (float f : {0.0f, 0.1234f, 0.5f}) {
        typename G::C r[3], c[3];
        for (int off = 0; off < 3; ++off) {
            std::vector<F> y(x.size() + 8);
            std::copy(x.begin(), x.end(), y.begin() + 1 + 3 * off);  // float: phases 1, 4, 7 of a vector
            const F* p = y.data() + 1 + 3 * off;
            ASSERT_EQ(G::r(p, n, &r[off], F(f)), zamStatusOk);
            ASSERT_EQ(G::c(reinterpret_cast<const typename G::C*>(p), n, &c[off], F(f)), zamStatusOk);
        }
        for (int off = 1; off < 3; ++off) {
            EXPECT_EQ(bits(r[off]), bits(r[0])) << f;
            EXPECT_EQ(bits(c[off]), bits(c[0])) << f;
        }
    }
}

TEST(Goertz16, ScaledAndSaturatedAndQ15) {
    const int n = 77;
    std::vector<Zam16sc> x(n);
    std::vector<Zam64fc> xd(n);
    std::vector<Zam16s> xr(n);
    std::vector<Zam64f> xrd(n);
    for (int i = 0; i < n; ++i) {
        x[size_t(i)] = {Zam16s(i * 97 % 601 - 300), Zam16s(i * 31 % 401 - 200)};
        xd[size_t(i)] = {double(x[size_t(i)].re), double(x[size_t(i)].im)};
        xr[size_t(i)] = x[size_t(i)].re;
        xrd[size_t(i)] = x[size_t(i)].re;
    }
    for (int sf : {-3, 0, 2}) {
        const float f = 5.0f / 64;
        Zam16sc v;
        Zam64fc w;
        ASSERT_EQ(zamsGoertz_16sc_Sfs(x.data(), n, &v, f, sf), zamStatusOk);
        ASSERT_EQ(zamsGoertz_64fc(xd.data(), n, &w, double(f)), zamStatusOk);
        auto want = [&](double a) {
            const double s = std::nearbyint(std::ldexp(a, -sf));
            return Zam16s(s > 32767 ? 32767 : (s < -32768 ? -32768 : s));
        };
        EXPECT_EQ(v.re, want(w.re)) << sf;
        EXPECT_EQ(v.im, want(w.im)) << sf;
        ASSERT_EQ(zamsGoertz_16s_Sfs(xr.data(), n, &v, f, sf), zamStatusOk);
        ASSERT_EQ(zamsGoertz_64f(xrd.data(), n, &w, double(f)), zamStatusOk);
        EXPECT_EQ(v.re, want(w.re)) << sf;
        // Q15: 2560 / 32768 = 5/64
        Zam16sc q, two[2];
        ASSERT_EQ(zamsGoertzQ15_16sc_Sfs(x.data(), n, &q, 2560, sf), zamStatusOk);
        ASSERT_EQ(zamsGoertz_16sc_Sfs(x.data(), n, &v, f, sf), zamStatusOk);
        EXPECT_EQ(q.re, v.re);
        const Zam16s qs[2] = {2560, 0};
        ASSERT_EQ(zamsGoertzTwoQ15_16sc_Sfs(x.data(), n, two, qs, sf), zamStatusOk);
        EXPECT_EQ(two[0].im, v.im);
    }
    Zam16sc v, two[2];
    EXPECT_EQ(zamsGoertzQ15_16sc_Sfs(x.data(), n, &v, 32767, 0), zamStatusOk);
    EXPECT_EQ(zamsGoertzQ15_16sc_Sfs(nullptr, n, &v, -1, 0), zamStatusBadRelativeFreq);  // Q15 sign first
    const Zam16s neg[2] = {5, -5};
    EXPECT_EQ(zamsGoertzTwoQ15_16sc_Sfs(x.data(), n, two, neg, 0), zamStatusBadRelativeFreq);
}

ZAMS_DIGEST(goertzel) {
    std::vector<float> x(777);
    std::vector<Zam32fc> xc(777);
    std::vector<double> xd(777);
    std::vector<Zam16sc> xs(777);
    for (size_t i = 0; i < x.size(); ++i) {
        x[i] = float(std::sin(0.01 * double(i * i % 1000)));
        xc[i] = {x[i], -x[i] * 0.5f};
        xd[i] = x[i];
        xs[i] = {Zam16s(i * 13 % 2000), Zam16s(500 - i)};
    }
    for (float f : {0.0f, 0.125f, 0.3f, 0.999f}) {
        Zam32fc a, b;
        Zam64fc c;
        Zam16sc e;
        d.status(zamsGoertz_32f(x.data(), 777, &a, f));
        d.status(zamsGoertz_32fc(xc.data(), 777, &b, f));
        d.status(zamsGoertz_64f(xd.data(), 777, &c, f));
        d.status(zamsGoertz_16sc_Sfs(xs.data(), 777, &e, f, 4));
        d.add(&a, 1);
        d.add(&b, 1);
        d.add(&c, 1);
        d.add(&e, 1);
    }
}

}  // namespace
