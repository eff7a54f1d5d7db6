// Complex measures: Magnitude and PowerSpectr.
#include <cmath>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"

namespace {

long double mag_ld(long double a, long double b) { return std::sqrt(a * a + b * b); }

// Interleaved and split forms within an ulp of long double at several
// alignments; p holds pairs of parts.
template <class C, class P>
void within_an_ulp(zamStatus (*ci)(const C*, P*, int), zamStatus (*split)(const P*, const P*, P*, int), const std::vector<P>& p) {
    const size_t n = p.size() / 2;
    auto x = mt::as_complex<C>(p);
    std::vector<P> re(n), im(n);
    for (size_t i = 0; i < n; ++i) re[i] = x[i].re, im[i] = x[i].im;
    for (size_t off : {0, 1, 2, 3, 5}) {
        zt::Guarded<P> y(n - off, off * 4), z(n - off, off * 8 + 4);
        ASSERT_EQ(ci(x.data() + off, y.data(), int(n - off)), zamStatusOk);
        ASSERT_EQ(split(re.data() + off, im.data() + off, z.data(), int(n - off)), zamStatusOk);
        for (size_t i = 0; i < n - off; ++i) {
            ASSERT_LE(mt::ulp_diff(y[i], mag_ld(re[i + off], im[i + off])), 1.0) << i;
            ASSERT_LE(mt::ulp_diff(z[i], mag_ld(re[i + off], im[i + off])), 1.0) << i;
        }
        ASSERT_TRUE(y.guards_intact() && z.guards_intact());
    }
}

TEST(Magnitude, FloatWithinAnUlpAtEveryAlignment) {
    auto p = zt::random_reals<Zam32f>(2000, 1, -1e3f, 1e3f);
    for (int i = 0; i < 2000; i += 11) p[i] *= 1e35f, p[i + 1] *= 1e-42f;
    within_an_ulp<Zam32fc, Zam32f>(zamsMagnitude_32fc, zamsMagnitude_32f, p);
    auto q = zt::random_reals<Zam64f>(2000, 2, -1e3, 1e3);
    for (int i = 0; i < 2000; i += 11) q[i] *= 1e305, q[i + 1] *= 1e-310, q[i + 3] *= 1e-300;
    within_an_ulp<Zam64fc, Zam64f>(zamsMagnitude_64fc, zamsMagnitude_64f, q);
}

TEST(Magnitude, SpecialValues) {
    const float inf = INFINITY, nan = NAN;
    // eight elements so that the vector body sees them
    Zam32fc x[8] = {{inf, nan}, {nan, -inf}, {nan, 1}, {-3, 4}, {0, -0.0f}, {3e38f, 3e38f}, {-inf, 0}, {1e-45f, 0}};
    Zam32f y[8];
    ASSERT_EQ(zamsMagnitude_32fc(x, y, 8), zamStatusOk);
    const Zam32f want[8] = {inf, inf, nan, 5.0f, 0.0f, float(std::sqrt(2.0) * 3e38), inf, 1e-45f};
    for (int i = 0; i < 8; ++i) EXPECT_TRUE(mt::same(y[i], want[i])) << i;
    Zam64fc xd[2] = {{nan, INFINITY}, {1e300, 1e300}};
    Zam64f yd[2];
    ASSERT_EQ(zamsMagnitude_64fc(xd, yd, 2), zamStatusOk);
    EXPECT_EQ(yd[0], INFINITY);
    EXPECT_NEAR(yd[1] / 1e300, std::sqrt(2.0), 1e-15);
}

// Integer magnitudes: exact round(|z| 2^-sf), checked by bracketing with
// squares of half-integers, over random and extreme pairs.
TEST(Magnitude, IntegerExactUnderEveryScale) {
    auto p = zt::random_ints<Zam16s>(4000, 3);
    p[0] = -32768, p[1] = -32768, p[2] = 3, p[3] = 4;
    auto x = mt::as_complex<Zam16sc>(p);
    std::vector<Zam16s> re(2000), im(2000), y(2000), z(2000);
    for (int i = 0; i < 2000; ++i) re[i] = x[i].re, im[i] = x[i].im;
    for (int sf = -17; sf <= 18; ++sf) {
        ASSERT_EQ(zamsMagnitude_16sc_Sfs(x.data(), y.data(), 2000, sf), zamStatusOk);
        ASSERT_EQ(zamsMagnitude_16s_Sfs(re.data(), im.data(), z.data(), 2000, sf), zamStatusOk);
        for (int i = 0; i < 2000; ++i) {
            long double v = std::ldexp(mag_ld(re[i], im[i]), -sf);
            Zam16s want = v >= 32767.0L ? Zam16s(32767) : Zam16s(std::rint(v));
            ASSERT_EQ(y[i], want) << re[i] << " " << im[i] << " sf " << sf;
            ASSERT_EQ(z[i], y[i]);
        }
    }
    Zam16sc t[2] = {{3, 4}, {0, 3}};  // 5 / 2 = 2.5 -> 2, 3 / 2 = 1.5 -> 2
    ASSERT_EQ(zamsMagnitude_16sc_Sfs(t, y.data(), 2, 1), zamStatusOk);
    EXPECT_EQ(mt::first(y.data(), 2), (std::vector<Zam16s>{2, 2}));
}

TEST(PowerSpectr, SumsOfSquares) {
    Zam32fc x[3] = {{3, 4}, {-1e20f, 1e20f}, {0, -2}};
    Zam32f y[3];
    ASSERT_EQ(zamsPowerSpectr_32fc(x, y, 3), zamStatusOk);
    EXPECT_EQ(mt::first(y, 3), (std::vector<Zam32f>{25.0f, INFINITY, 4.0f}));
    Zam32f re[2] = {1.5f, -2}, im[2] = {2, 0.5f};
    ASSERT_EQ(zamsPowerSpectr_32f(re, im, y, 2), zamStatusOk);
    EXPECT_EQ(mt::first(y, 2), (std::vector<Zam32f>{6.25f, 4.25f}));
    Zam64fc xd[1] = {{-3, 4}};
    Zam64f yd[1], rd[1] = {2}, id[1] = {-1};
    EXPECT_EQ(mt::ok(zamsPowerSpectr_64fc(xd, yd, 1), yd[0]), 25.0);
    EXPECT_EQ(mt::ok(zamsPowerSpectr_64f(rd, id, yd, 1), yd[0]), 5.0);
}

#ifdef ZAMS_TEST_MPFR
TEST(Phase, WithinUlpsOfMpfr) {
    auto p = zt::random_reals<Zam32f>(40000, 6, -10.0f, 10.0f);
    for (int i = 0; i + 2 < 40000; i += 7) p[i] *= 1e-30f, p[i + 2] *= 1e25f;
    auto x = mt::as_complex<Zam32fc>(p);
    std::vector<Zam32f> y(20000);
    ASSERT_EQ(zamsPhase_32fc(x.data(), y.data(), 20000), zamStatusOk);
    double w = mt::worst(20000, [&](size_t i) { return mpfr_ulps(mpfr_atan2, x[i].im, x[i].re, y[i]); }).first;
    EXPECT_LE(w, 1.0);
    EXPECT_GT(w, 0.4);
    std::vector<Zam64f> re(20000), im(20000), z(20000);
    for (int i = 0; i < 20000; ++i) re[i] = double(p[2 * i]) * 1.1, im[i] = double(p[2 * i + 1]) / 3.0;
    ASSERT_EQ(zamsPhase_64f(re.data(), im.data(), z.data(), 20000), zamStatusOk);
    w = mt::worst(20000, [&](size_t i) { return mpfr_ulps(mpfr_atan2, im[i], re[i], z[i]); }).first;
    EXPECT_LE(w, 2.0);
    EXPECT_GT(w, 0.4);
}
#endif

TEST(Phase, SpecialValuesAndCartToPolar) {
    const double inf = INFINITY, pi = M_PI;
    struct Case {
        double re, im, want;
    } cases[] = {
        {1, 0.0, 0.0},       {1, -0.0, -0.0},    {-1, 0.0, pi},        {-1, -0.0, -pi},
        {0.0, 0.0, 0.0},     {-0.0, 0.0, pi},    {-0.0, -0.0, -pi},    {0.0, 2, pi / 2},
        {0.0, -2, -pi / 2},  {inf, inf, pi / 4}, {-inf, inf, 3 * pi / 4}, {-inf, -1, -pi},
        {inf, -1, -0.0},     {3, inf, pi / 2},   {-1, 1, 3 * pi / 4},  {1, 1, pi / 4},
    };
    for (const Case& c : cases) {
        Zam64fc x{c.re, c.im};
        Zam64f y;
        ASSERT_EQ(zamsPhase_64fc(&x, &y, 1), zamStatusOk);
        EXPECT_EQ(zt::bits(y), zt::bits(c.want)) << c.re << " " << c.im;
        Zam32f xr = Zam32f(c.re), xi = Zam32f(c.im), yf;
        ASSERT_EQ(zamsPhase_32f(&xr, &xi, &yf, 1), zamStatusOk);
        EXPECT_EQ(zt::bits(yf), zt::bits(Zam32f(c.want))) << c.re << " " << c.im;
    }
    Zam64fc n{NAN, 1};
    Zam64f y;
    EXPECT_TRUE(std::isnan(mt::ok(zamsPhase_64fc(&n, &y, 1), y)));

    // CartToPolar gives what Magnitude and Phase give.
    auto p = zt::random_reals<Zam32f>(600, 7);
    std::vector<Zam64f> pd(p.begin(), p.end());
    auto* c = reinterpret_cast<const Zam32fc*>(p.data());
    auto* cd = reinterpret_cast<const Zam64fc*>(pd.data());
    auto agree = [](auto out, auto polar, auto mag, auto phase, auto... src) {
        std::vector<decltype(out)> m(300), ph(300), m2(300), ph2(300);
        ASSERT_EQ(polar(src..., m.data(), ph.data(), 300), zamStatusOk);
        ASSERT_EQ(mag(src..., m2.data(), 300), zamStatusOk);
        ASSERT_EQ(phase(src..., ph2.data(), 300), zamStatusOk);
        EXPECT_TRUE(m == m2 && ph == ph2);
    };
    agree(Zam32f{}, zamsCartToPolar_32fc, zamsMagnitude_32fc, zamsPhase_32fc, c);
    agree(Zam32f{}, zamsCartToPolar_32f, zamsMagnitude_32f, zamsPhase_32f, &p[0], &p[300]);
    agree(Zam64f{}, zamsCartToPolar_64fc, zamsMagnitude_64fc, zamsPhase_64fc, cd);
    agree(Zam64f{}, zamsCartToPolar_64f, zamsMagnitude_64f, zamsPhase_64f, &pd[0], &pd[300]);
}

ZAMS_DIGEST(magnitude) {
    auto p = zt::random_reals<Zam32f>(2000, 71, -1e4f, 1e4f);
    auto q = zt::random_ints<Zam16s>(2000, 72);
    std::vector<Zam32f> y(1000);
    std::vector<Zam16s> z(1000);
    auto* c = reinterpret_cast<Zam32fc*>(p.data());
    mt::rec(d, zamsMagnitude_32fc(c, y.data(), 1000), y);
    mt::rec(d, zamsMagnitude_32f(p.data(), p.data() + 1000, y.data(), 1000), y);
    mt::rec(d, zamsPowerSpectr_32fc(c, y.data(), 1000), y);
    std::vector<Zam64f> pd(p.begin(), p.end()), yd(1000);
    auto* cd = reinterpret_cast<Zam64fc*>(pd.data());
    mt::rec(d, zamsMagnitude_64fc(cd, yd.data(), 1000), yd);
    mt::rec(d, zamsMagnitude_64f(pd.data(), pd.data() + 1000, yd.data(), 1000), yd);
    mt::rec(d, zamsPowerSpectr_64fc(cd, yd.data(), 1000), yd);
    mt::rec(d, zamsPhase_32fc(c, y.data(), 1000), y);
    mt::rec(d, zamsPhase_64f(pd.data(), pd.data() + 1000, yd.data(), 1000), yd);
    for (int sf : {-5, 0, 3}) {
        mt::rec(d, zamsMagnitude_16sc_Sfs(reinterpret_cast<Zam16sc*>(q.data()), z.data(), 1000, sf), z);
        mt::rec(d, zamsMagnitude_16s_Sfs(q.data(), q.data() + 1000, z.data(), 1000, sf), z);
    }
}

}  // namespace
