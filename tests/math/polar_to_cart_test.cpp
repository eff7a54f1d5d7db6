// PolarToCart: magnitude and phase to cartesian parts.
#include <bit>
#include <cmath>
#include <random>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"

#ifdef ZAMS_TEST_MPFR
#include <mpfr.h>
#endif

namespace {

// Phases that stress the reduction: random doubles of every size, the
// doubles nearest to multiples of pi/2 (worst cancellation), and the
// binade edges of the two reduction methods.
std::vector<Zam64f> hard_phases(size_t n, uint32_t seed) {
    std::mt19937_64 g(seed);
    std::vector<Zam64f> v;
    std::uniform_real_distribution<double> small(-8, 8), mid(-6e5, 6e5);
    for (size_t i = 0; i < n; ++i) {
        switch (i % 5) {
            case 0: v.push_back(small(g)); break;
            case 1: v.push_back(mid(g)); break;
            case 2: {  // any finite double
                double x;
                do x = std::bit_cast<double>(uint64_t(g())); while (!std::isfinite(x));
                v.push_back(x);
                break;
            }
            case 3: {  // the neighbourhood of k pi/2
                double k = double(g() % 400000) - 200000;
                double x = k * (M_PI / 2);
                v.push_back(std::nextafter(x, double(g() % 3) - 1.0));
                break;
            }
            default: v.push_back(std::ldexp(1.0 + double(g() % 1024) / 1024, int(g() % 80) - 20));
        }
    }
    // the double closest to a multiple of pi/2, and edges of the methods
    v.push_back(std::ldexp(6381956970095103.0, 797));
    v.push_back(-std::ldexp(6381956970095103.0, 797));
    for (double x : {0x1p19, std::nextafter(0x1p19, 0.0), M_PI / 4, std::nextafter(M_PI / 4, 4.0), 0x1p-27, 0x1.8p-27,
                     1.7976931348623157e308, 1e22, 5e-324})
        v.push_back(x), v.push_back(-x);
    return v;
}

// Phases in the range the four-lane steps take (2^-27 <= |x| < 2^19),
// including the neighbourhoods of multiples of pi/2 and the range's edges.
std::vector<Zam64f> common_phases(size_t n, uint32_t seed) {
    std::vector<Zam64f> v;
    for (double x : hard_phases(2 * n, seed))
        if (std::fabs(x) >= 0x1p-27 && std::fabs(x) < 0x1p19 && v.size() < n) v.push_back(x);
    return v;
}

std::vector<Zam64f> magnitudes(size_t n, uint32_t seed) {
    auto m = zt::random_reals<Zam64f>(n, seed, -1e3, 1e3);
    for (size_t i = 0; i < n; i += 7) m[i] *= 1e305;  // the scaled product above 2^990
    for (size_t i = 3; i < n; i += 7) m[i] *= 1e-310;  // subnormal magnitudes and results
    return m;
}

#ifdef ZAMS_TEST_MPFR
// Error of got against m trig(x) evaluated exactly, in ulps of F.
template <class F> double trig_ulps(bool sine, double m, double x, F got) {
    mpfr_t a, e;
    mpfr_inits2(300, a, e, (mpfr_ptr)nullptr);
    mpfr_set_d(a, x, MPFR_RNDN);
    (sine ? mpfr_sin : mpfr_cos)(e, a, MPFR_RNDN);
    mpfr_mul_d(e, e, m, MPFR_RNDN);
    double out = ulps_from_exact(e, got);
    mpfr_clears(a, e, (mpfr_ptr)nullptr);
    return out;
}

// Both precisions over every size of phase (seed 1) and over the range of
// the four-lane steps (seed 21).
TEST(PolarToCart, WithinAnUlpOfMpfr) {
    for (uint32_t seed : {1u, 21u}) {
        auto x = seed == 1 ? hard_phases(20000, seed) : common_phases(20000, seed);
        auto m = magnitudes(x.size(), seed + 1);
        std::vector<Zam64fc> y(x.size());
        ASSERT_EQ(zamsPolarToCart_64fc(m.data(), x.data(), y.data(), int(x.size())), zamStatusOk);
        std::vector<Zam32f> xf, mf;
        for (double v : x)
            if (std::fabs(v) < 3e38) xf.push_back(Zam32f(v));
        mf = zt::random_reals<Zam32f>(xf.size(), 4, -1e3f, 1e3f);
        for (size_t i = 0; i < xf.size(); i += 5) mf[i] *= 1e-42f;
        std::vector<Zam32f> re(xf.size()), im(xf.size());
        ASSERT_EQ(zamsPolarToCart_32f(mf.data(), xf.data(), re.data(), im.data(), int(xf.size())), zamStatusOk);
        double worst = 0, worst_f = 0;
        size_t at = 0;
        for (size_t i = 0; i < x.size(); ++i) {
            double u = std::max(trig_ulps(false, m[i], x[i], y[i].re), trig_ulps(true, m[i], x[i], y[i].im));
            if (u > worst) worst = u, at = i;
        }
        for (size_t i = 0; i < xf.size(); ++i)
            worst_f = std::max({worst_f, trig_ulps(false, mf[i], xf[i], re[i]), trig_ulps(true, mf[i], xf[i], im[i])});
        EXPECT_LE(worst, 1.0) << "phase " << x[at] << " magnitude " << m[at];
        EXPECT_LE(worst_f, 1.0);
        // rounding alone reaches this: the measurement saw something
        EXPECT_GT(worst, 0.4);
        EXPECT_GT(worst_f, 0.4);
    }
}
#endif

// Without MPFR (i386): single precision against long double for phases
// whose x87 reduction is exact enough, and double precision by identities
// that hold to a few ulps. The digest ties i386 to the x86-64 bits.
TEST(PolarToCart, AgreesWithLongDouble) {
    auto x = zt::random_reals<Zam32f>(4000, 5, -100.0f, 100.0f);
    auto m = zt::random_reals<Zam32f>(4000, 6, -1e3f, 1e3f);
    std::vector<Zam32fc> y(4000);
    ASSERT_EQ(zamsPolarToCart_32fc(m.data(), x.data(), y.data(), 4000), zamStatusOk);
    for (int i = 0; i < 4000; ++i) {
        long double a = x[i];
        ASSERT_LE(mt::ulp_diff(y[i].re, m[i] * std::cos(a)), 1.0) << x[i];
        ASSERT_LE(mt::ulp_diff(y[i].im, m[i] * std::sin(a)), 1.0) << x[i];
    }
    auto xd = hard_phases(4000, 7);
    std::vector<Zam64f> one(xd.size(), 1.0), re(xd.size()), im(xd.size());
    ASSERT_EQ(zamsPolarToCart_64f(one.data(), xd.data(), re.data(), im.data(), int(xd.size())), zamStatusOk);
    for (size_t i = 0; i < xd.size(); ++i) ASSERT_NEAR(double((long double)re[i] * re[i] + (long double)im[i] * im[i]), 1.0, 4e-16) << xd[i];
    // sin(-x) = -sin(x), cos(-x) = cos(x), and a half turn negates both
    std::vector<Zam64f> neg(xd.size()), re2(xd.size()), im2(xd.size());
    for (size_t i = 0; i < xd.size(); ++i) neg[i] = -xd[i];
    ASSERT_EQ(zamsPolarToCart_64f(one.data(), neg.data(), re2.data(), im2.data(), int(xd.size())), zamStatusOk);
    for (size_t i = 0; i < xd.size(); ++i) ASSERT_TRUE(re2[i] == re[i] && im2[i] == -im[i]) << xd[i];
}

// Special values; bad arguments are rejected before anything is written.
TEST(PolarToCart, SpecialValues) {
    const double inf = INFINITY, nan = NAN;
    Zam64f m[8] = {2, 2, 2, -3, 0, inf, 5, 1e-320};
    Zam64f p[8] = {inf, -inf, nan, 0, -1, 0, -0.0, 0.5};
    Zam64fc y[8];
    // inf cos 0 = inf, inf sin 0 is undefined
    const Zam64fc want[7] = {{nan, nan}, {nan, nan}, {nan, nan}, {-3.0, -0.0}, {0.0, -0.0}, {inf, nan}, {5.0, -0.0}};
    ASSERT_EQ(zamsPolarToCart_64fc(m, p, y, 8), zamStatusOk);
    for (int i = 0; i < 7; ++i) EXPECT_TRUE(mt::same(y[i], want[i])) << i;
    EXPECT_TRUE(y[7].re > 0.0 && y[7].im > 0.0);  // subnormal results, not flushed
    Zam32f mf[3] = {1, 1, 4}, pf[3] = {INFINITY, NAN, 3.14159265f}, re[3], im[3];
    ASSERT_EQ(zamsPolarToCart_32f(mf, pf, re, im, 3), zamStatusOk);
    EXPECT_TRUE(std::isnan(re[0]) && std::isnan(im[0]) && std::isnan(re[1]) && std::isnan(im[1]));
    EXPECT_EQ(re[2], -4.0f);
    EXPECT_EQ(im[2], Zam32f(4 * std::sin((long double)3.14159265f)));
}

// Four-lane steps, element steps and groups the vector step declines (a
// phase outside its range, a magnitude or product its product path does not
// handle) agree with the one-element call at every start offset; the split
// and interleaved forms agree bit for bit and write nothing outside the
// destination.
TEST(PolarToCart, FormsAndStepsAgreeWithOneElementCalls) {
    auto x = common_phases(400, 31);
    auto m = magnitudes(x.size(), 32);
    const double odd[] = {NAN, INFINITY, 1e300, 0x1p19, 1e-30, 0.0, -0.0};
    for (size_t i = 5; i < x.size(); i += 37) x[i] = odd[(i / 37) % 7];
    for (size_t i = 17; i < x.size(); i += 41) m[i] = i % 2 ? NAN : 0.0;
    auto hard = hard_phases(60, 8);  // every size of phase, in groups with common ones
    for (size_t i = 11; i < x.size(); i += 13) x[i] = hard[(i / 13) % hard.size()];
    const size_t n = x.size();
    std::vector<Zam32f> xf(n);
    auto mf = zt::random_reals<Zam32f>(n, 33, -1e3f, 1e3f);
    for (size_t i = 0; i < n; ++i) xf[i] = Zam32f(x[i]);
    for (size_t i = 2; i < n; i += 29) mf[i] = i % 2 ? NAN : INFINITY;
    auto eq = [](auto re, auto im, auto want_re, auto want_im) {
        return zt::bits(re) == zt::bits(want_re) && zt::bits(im) == zt::bits(want_im);
    };
    for (size_t off = 0; off < 5; ++off) {
        const int len = int(n - off);
        zt::Guarded<Zam64fc> y(n - off, off * 4);
        zt::Guarded<Zam64f> re(n - off, off), im(n - off, off + 5);
        zt::Guarded<Zam32fc> yc(n - off, off * 8);
        zt::Guarded<Zam32f> rf(n - off, off * 3), jf(n - off, off + 1);
        ASSERT_EQ(zamsPolarToCart_64fc(&m[off], &x[off], y.data(), len), zamStatusOk);
        ASSERT_EQ(zamsPolarToCart_64f(&m[off], &x[off], re.data(), im.data(), len), zamStatusOk);
        ASSERT_EQ(zamsPolarToCart_32fc(&mf[off], &xf[off], yc.data(), len), zamStatusOk);
        ASSERT_EQ(zamsPolarToCart_32f(&mf[off], &xf[off], rf.data(), jf.data(), len), zamStatusOk);
        for (size_t i = off; i < n; ++i) {
            Zam64fc one;
            Zam32f a, b;
            zamsPolarToCart_64fc(&m[i], &x[i], &one, 1);
            zamsPolarToCart_32f(&mf[i], &xf[i], &a, &b, 1);
            const size_t k = i - off;
            ASSERT_TRUE(eq(y[k].re, y[k].im, one.re, one.im) && eq(re[k], im[k], one.re, one.im)) << x[i] << " at " << i;
            ASSERT_TRUE(eq(rf[k], jf[k], a, b) && eq(yc[k].re, yc[k].im, a, b)) << xf[i] << " at " << i;
        }
        ASSERT_TRUE(y.guards_intact() && re.guards_intact() && im.guards_intact());
        ASSERT_TRUE(yc.guards_intact() && rf.guards_intact() && jf.guards_intact());
    }
    // in place over the sources
    std::vector<Zam64f> a = m, b = x;
    ASSERT_EQ(zamsPolarToCart_64f(a.data(), b.data(), a.data(), b.data(), int(n)), zamStatusOk);
    for (size_t i = 0; i < n; ++i) {
        Zam64fc one;
        zamsPolarToCart_64fc(&m[i], &x[i], &one, 1);
        ASSERT_TRUE(eq(a[i], b[i], one.re, one.im)) << i;
    }
}

ZAMS_DIGEST(polar_to_cart_common) {
    auto x = common_phases(2000, 41);
    auto m = magnitudes(x.size(), 42);
    int n = int(x.size());
    std::vector<Zam64fc> y(x.size());
    mt::rec(d, zamsPolarToCart_64fc(m.data(), x.data(), y.data(), n), y);
    std::vector<Zam32f> xf(x.begin(), x.end()), re(x.size()), im(x.size());
    auto mf = zt::random_reals<Zam32f>(x.size(), 43, -1e3f, 1e3f);
    mt::rec(d, zamsPolarToCart_32f(mf.data(), xf.data(), re.data(), im.data(), n), re);
    d.add(im);
}

ZAMS_DIGEST(polar_to_cart) {
    auto x = hard_phases(3000, 11);
    auto m = magnitudes(x.size(), 12);
    int n = int(x.size());
    std::vector<Zam64f> re(x.size()), im(x.size());
    mt::rec(d, zamsPolarToCart_64f(m.data(), x.data(), re.data(), im.data(), n), re);
    d.add(im);
    std::vector<Zam32f> xf(x.size()), mf(x.size());
    for (int i = 0; i < n; ++i) xf[i] = Zam32f(std::fmod(x[i], 1e30)), mf[i] = Zam32f(m[i] * 1e-300);
    std::vector<Zam32fc> yc(x.size());
    mt::rec(d, zamsPolarToCart_32fc(mf.data(), xf.data(), yc.data(), n), yc);
    d.status(zamsPolarToCart_64fc(m.data(), nullptr, nullptr, n));
}

}  // namespace
