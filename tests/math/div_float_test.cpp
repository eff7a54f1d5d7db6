// Floating division: Div on 32f, 64f, 32fc, 64fc and DivCRev_32f.
#include <array>
#include <complex>

#include "digest.h"
#include "math_util.h"
#include "sweep.h"

namespace {

TEST(DivFloat, IeeeQuotientsAtEveryLengthAndAlignment) {
    auto a = zt::random_reals<Zam32f>(300, 1, -100.0f, 100.0f);
    auto b = zt::random_reals<Zam32f>(300, 2);
    a[17] = 0.0f, a[18] = -0.0f, b[18] = 0.0f;
    auto eq = [](Zam32f x, Zam32f y) { return (std::isnan(x) && std::isnan(y)) || zt::bits(x) == zt::bits(y); };
    zt::sweep_binary<Zam32f, Zam32f, Zam32f>(zamsDiv_32f, [](Zam32f d, Zam32f n) { return n / d; }, a, b, {}, eq);
    auto c = zt::random_reals<Zam64f>(300, 3, -100.0, 100.0);
    auto e = zt::random_reals<Zam64f>(300, 4);
    c[5] = 0.0;
    zt::sweep_binary<Zam64f, Zam64f, Zam64f>(zamsDiv_64f, [](Zam64f d, Zam64f n) { return n / d; }, c, e);
    zt::sweep_unary<Zam32f, Zam32f>(
        [](const Zam32f* s, Zam32f* d, int n) { return zamsDivCRev_32f(s, 3.5f, d, n); },
        [](Zam32f x) { return 3.5f / x; }, a, {}, eq);
}

TEST(DivFloat, ZeroDivisorsGiveIeeeResultsWithoutWarning) {
    Zam32f d[] = {0.0f, -0.0f, 0.0f, 2.0f}, n[] = {1.0f, 1.0f, 0.0f, 1.0f}, y[4];
    ASSERT_EQ(zamsDiv_32f(d, n, y, 4), zamStatusOk);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(mt::same(y[i], std::array{INFINITY, -INFINITY, NAN, 0.5f}[i])) << i;
    EXPECT_EQ(mt::ok(zamsDiv_32f_I(d, n, 4), n[3]), 0.5f);  // n divided by d in place
    EXPECT_EQ(mt::ok(zamsDivCRev_32f_I(1.0f, n + 3, 1), n[3]), 2.0f);
}

// Complex quotients against long double at wide ranges, at several start
// offsets; `close(part, exact part, magnitude)` judges each part.
template <class C, class P, class Close> void quotients(zamStatus (*fn)(const C*, const C*, C*, int), uint32_t seed, P tiny, P huge, int offsets, Close close) {
    auto p = zt::random_reals<P>(4000, seed, -1e3, 1e3);
    for (int i = 0; i < 4000; i += 9) p[i] *= tiny, p[i + 1] *= huge;
    auto a = mt::as_complex<C>(p), b = std::vector<C>(a.begin() + 1000, a.end());
    std::vector<C> y(1000);
    for (int off = 0; off < offsets; ++off) {
        ASSERT_EQ(fn(a.data() + off, b.data() + off, y.data() + off, 1000 - off), zamStatusOk);
        for (int i = off; i < 1000; ++i) {
            auto w = std::complex<long double>(b[i].re, b[i].im) / std::complex<long double>(a[i].re, a[i].im);
            EXPECT_TRUE(close(y[i].re, w.real(), std::abs(w)) && close(y[i].im, w.imag(), std::abs(w))) << i;
        }
    }
}

// 32fc works in double: within an ulp per part, but parts far below the
// magnitude carry cancellation and are judged against it. 64fc scales: it
// loses digits of a part that cancels, not of the quotient, so each part is
// judged in ulps of the magnitude.
TEST(DivFloat, ComplexQuotients) {
    quotients<Zam32fc, Zam32f>(zamsDiv_32fc, 5, 1e-35f, 1e30f, 3, [](Zam32f g, long double v, long double mag) {
        return std::fabs(v) > mag * 1e-3L ? mt::ulp_diff(g, v) <= 1.0 : std::fabs(g - v) <= mag * 1e-7L;
    });
    quotients<Zam64fc, Zam64f>(zamsDiv_64fc, 6, 1e-300, 1e300, 1, [](Zam64f g, long double v, long double mag) {
        return std::fabs(g - v) <= 4 * std::ldexp(mag, -52);
    });
    Zam32fc zero{0, 0}, one{1, -2}, r;
    EXPECT_EQ(mt::first(&mt::ok(zamsDiv_32fc(&zero, &one, &r, 1), r), 1), (std::vector<Zam32f>{INFINITY, -INFINITY}));
    Zam64fc zd{0, 0}, od{-3, 0}, rd;
    EXPECT_EQ(mt::ok(zamsDiv_64fc(&zd, &od, &rd, 1), rd).re, -INFINITY);
    EXPECT_EQ(mt::first(&mt::ok(zamsDiv_64fc_I(&od, &od, 1), od), 1), (std::vector<Zam64f>{1.0, 0.0}));
    // in place divides pSrcDst by pSrc, with the out-of-place bits
    auto a = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(600, 7, -1e3f, 1e3f));
    std::vector<Zam32fc> num(a.begin() + 150, a.end()), want(150);
    ASSERT_EQ(zamsDiv_32fc(a.data(), num.data(), want.data(), 150), zamStatusOk);
    ASSERT_EQ(zamsDiv_32fc_I(a.data(), num.data(), 150), zamStatusOk);
    EXPECT_EQ(std::memcmp(num.data(), want.data(), want.size() * sizeof(Zam32fc)), 0);
}

ZAMS_DIGEST(div_float) {
    auto a = zt::random_reals<Zam32f>(2000, 61);
    auto b = zt::random_reals<Zam32f>(2000, 62);
    std::vector<Zam32f> y(2000);
    auto* c = reinterpret_cast<Zam32fc*>(y.data());
    mt::rec(d, zamsDiv_32f(a.data(), b.data(), y.data(), 2000), y);
    mt::rec(d, zamsDivCRev_32f(a.data(), 7.0f, y.data(), 2000), y);
    mt::rec(d, zamsDiv_32fc(reinterpret_cast<Zam32fc*>(a.data()), reinterpret_cast<Zam32fc*>(b.data()), c, 1000), y);
    std::vector<Zam64f> ad(a.begin(), a.end()), bd(b.begin(), b.end()), z(2000);
    auto* cd = reinterpret_cast<Zam64fc*>(z.data());
    mt::rec(d, zamsDiv_64f(ad.data(), bd.data(), z.data(), 2000), z);
    mt::rec(d, zamsDiv_64fc(reinterpret_cast<Zam64fc*>(ad.data()), reinterpret_cast<Zam64fc*>(bd.data()), cd, 1000), z);
}

}  // namespace
