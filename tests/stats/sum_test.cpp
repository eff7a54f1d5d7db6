// Sums, means and standard deviations against exact and long double models.
#include <cmath>
#include <limits>

#include "digest.h"
#include "stats_util.h"

namespace {

using st::LD;
using st::ok;
using st::scaled;

// The exact sum of doubles, correctly rounded: a list of non-overlapping
// partial sums grown by error-free additions.
double exact_sum(const std::vector<double>& v) {
    std::vector<double> p;
    for (double x : v) {
        size_t k = 0;
        for (double y : p) {
            if (std::fabs(x) < std::fabs(y)) std::swap(x, y);
            double hi = x + y, lo = y - (hi - x);
            if (lo != 0) p[k++] = lo;
            x = hi;
        }
        p.resize(k);
        p.push_back(x);
    }
    // Round the expansion once: add from the top, correcting a half-way case.
    double hi = 0;
    if (!p.empty()) {
        size_t n = p.size();
        hi = p[--n];
        double lo = 0;
        while (n > 0) {
            double x = hi, y = p[--n];
            hi = x + y;
            lo = y - (hi - x);
            if (lo != 0) break;
        }
        if (n > 0 && ((lo < 0 && p[n - 1] < 0) || (lo > 0 && p[n - 1] > 0))) {
            double y = lo * 2, x = hi + y;
            if (y == x - hi) hi = x;
        }
    }
    return hi;
}

template <class T> T ulp(T x) {
    x = std::fabs(x);
    return std::nextafter(x, std::numeric_limits<T>::infinity()) - x;
}

// Data with mixed magnitudes and both signs.
std::vector<double> mixed(size_t n, uint32_t seed) {
    std::mt19937_64 g(seed);
    std::uniform_real_distribution<double> m(-1, 1), e(-8, 8);
    std::vector<double> v(n);
    for (auto& x : v) x = m(g) * std::exp2(std::floor(e(g)));
    return v;
}

TEST(Sum, Double64WithinOneUlpOfExactAtEveryAlignment) {
    auto pool = mixed(2000, 1);
    for (int len = 1; len <= 300; len += (len < 40 ? 1 : 13)) {
        std::vector<double> head(pool.begin(), pool.begin() + len);
        double want = exact_sum(head), first = 0;
        for (size_t off : {0, 8, 16, 24, 40, 56}) {
            zt::Guarded<Zam64f> x(len, off);
            x.copy_from(head.data());
            Zam64f got, mean;
            ASSERT_LE(std::fabs(ok(zamsSum_64f(x.data(), len, &got), got) - want), ulp(want)) << len;
            if (off == 0) first = got;
            ASSERT_EQ(zt::bits(got), zt::bits(first)) << "alignment changed the result, len " << len;
            ASSERT_NEAR(ok(zamsMean_64f(x.data(), len, &mean), mean), want / len, 2 * ulp(want / len));
        }
    }
    // Heavy cancellation: the compensated sum still finds the small remainder.
    std::vector<double> c = {1e16, 1.0, -1e16, 3.0, 1e-3};
    Zam64f s;
    EXPECT_LE(std::fabs(ok(zamsSum_64f(c.data(), 5, &s), s) - exact_sum(c)), ulp(exact_sum(c)));
}

TEST(Sum, Float32AccurateAndFastPaths) {
    auto pool = mixed(5000, 2);
    std::vector<float> f(pool.begin(), pool.end());
    for (int len : {1, 7, 8, 31, 32, 33, 100, 257, 1000, 5000}) {
        std::vector<double> d(f.begin(), f.begin() + len);
        double exact = exact_sum(d), abs_sum = 0;
        for (double x : d) abs_sum += std::fabs(x);
        float acc, fast, first = 0;
        for (size_t off : {0, 4, 12, 28}) {
            zt::Guarded<Zam32f> x(len, off);
            x.copy_from(f.data());
            ASSERT_LE(std::fabs(double(ok(zamsSum_32f(x.data(), len, &acc, zamAlgHintAccurate), acc)) - exact),
                      double(ulp(float(exact)))) << len;
            // The fast path: a block of single-precision partial sums, each
            // addition off by at most half an ulp of a partial sum.
            ASSERT_LE(std::fabs(double(ok(zamsSum_32f(x.data(), len, &fast, zamAlgHintFast), fast)) - exact),
                      (len / 8.0 + 12) * 6e-8 * abs_sum) << len;
            if (off == 0) first = fast;
            ASSERT_EQ(zt::bits(fast), zt::bits(first));
            Zam32f m;
            ASSERT_NEAR(ok(zamsMean_32f(x.data(), len, &m, zamAlgHintNone), m), exact / len, 1.5 * ulp(float(exact / len)));
        }
    }
}

TEST(Sum, ComplexPartsSeparately) {
    auto pool = mixed(802, 3);
    for (int len : {1, 3, 4, 9, 100, 401}) {
        std::vector<double> re, im, re32, im32;
        std::vector<Zam64fc> z(len);
        std::vector<Zam32fc> c(len);
        for (int i = 0; i < len; ++i) {
            re.push_back(pool[2 * i]), im.push_back(pool[2 * i + 1]);
            z[i] = {re[i], im[i]};
            c[i] = {float(re[i]), float(im[i])};
            re32.push_back(c[i].re), im32.push_back(c[i].im);
        }
        Zam64fc s, m;
        ok(zamsSum_64fc(z.data(), len, &s), s);
        EXPECT_LE(std::fabs(s.re - exact_sum(re)), ulp(exact_sum(re)));
        EXPECT_LE(std::fabs(s.im - exact_sum(im)), ulp(exact_sum(im)));
        EXPECT_NEAR(ok(zamsMean_64fc(z.data(), len, &m), m).im, exact_sum(im) / len, 2 * ulp(exact_sum(im) / len));
        Zam32fc cs, cm, cf;
        ok(zamsSum_32fc(c.data(), len, &cs, zamAlgHintAccurate), cs);
        EXPECT_LE(std::fabs(cs.re - exact_sum(re32)), ulp(float(exact_sum(re32))));
        EXPECT_LE(std::fabs(cs.im - exact_sum(im32)), ulp(float(exact_sum(im32))));
        EXPECT_NEAR(ok(zamsSum_32fc(c.data(), len, &cf, zamAlgHintFast), cf).im, exact_sum(im32), 1e-5 * len);
        EXPECT_NEAR(ok(zamsMean_32fc(c.data(), len, &cm, zamAlgHintFast), cm).re, exact_sum(re32) / len, 1e-5);
    }
}

TEST(Sum, IntegersExactThenScaled) {
    auto a = zt::random_ints<Zam16s>(3000, 4);
    auto b = zt::random_ints<Zam32s>(3000, 5);
    for (int len : {1, 2, 5, 64, 3000})
        for (int sf : {-40, -3, 0, 1, 2, 7, 20, 33, 70}) {
            LD sa = 0, sb = 0, sre = 0, sim = 0;
            std::vector<Zam16sc> c(len);
            for (int i = 0; i < len; ++i) sa += a[i], sb += b[i], c[i] = {a[i], a[len - 1 - i]}, sre += a[i], sim += a[len - 1 - i];
            Zam16s s16;
            Zam32s s32, sb32;
            Zam16sc c16;
            Zam32sc c32;
            EXPECT_EQ(ok(zamsSum_16s32s_Sfs(a.data(), len, &s32, sf), s32), scaled(sa, sf, INT32_MIN, INT32_MAX)) << len << " " << sf;
            EXPECT_EQ(ok(zamsSum_16s_Sfs(a.data(), len, &s16, sf), s16), std::min(32767.0L, std::max(-32768.0L, LD(s32))));
            EXPECT_EQ(ok(zamsSum_32s_Sfs(b.data(), len, &sb32, sf), sb32), scaled(sb, sf, INT32_MIN, INT32_MAX)) << len << " " << sf;
            ok(zamsSum_16sc_Sfs(c.data(), len, &c16, sf), c16);
            EXPECT_EQ(c16.re, scaled(sre, sf, -32768, 32767));
            EXPECT_EQ(c16.im, scaled(sim, sf, -32768, 32767));
            EXPECT_EQ(ok(zamsSum_16sc32sc_Sfs(c.data(), len, &c32, sf), c32).im, scaled(sim, sf, INT32_MIN, INT32_MAX));
        }
    Zam16s two[2] = {32767, 1}, s;
    EXPECT_EQ(ok(zamsSum_16s_Sfs(two, 2, &s, 0), s), 32767);
}

TEST(Mean, IntegersRoundOnceAndClamp) {
    auto a = zt::random_ints<Zam16s>(500, 6);
    auto b = zt::random_ints<Zam32s>(500, 7);
    for (int len : {1, 3, 10, 500})
        for (int sf : {-2000, -20, -1, 0, 1, 3, 15, 1100}) {
            LD sa = 0, sb = 0;
            std::vector<Zam16sc> c(len);
            for (int i = 0; i < len; ++i) sa += a[i], sb += b[i], c[i] = {a[i], Zam16s(-a[i] / 2)};
            auto model = [&](LD s, LD lo, LD hi) {
                if (s == 0) return LD(0);
                int k = std::max(-1024, std::min(1023, sf));
                return std::min(hi, std::max(lo, std::nearbyint(std::ldexp(s, -k) / len)));
            };
            Zam16s m16;
            Zam32s m32;
            Zam16sc mc;
            EXPECT_EQ(ok(zamsMean_16s_Sfs(a.data(), len, &m16, sf), m16), model(sa, -32768, 32767)) << len << " " << sf;
            EXPECT_EQ(ok(zamsMean_16sc_Sfs(c.data(), len, &mc, sf), mc).re, m16);
            // the sum rounds to double
            EXPECT_NEAR(LD(ok(zamsMean_32s_Sfs(b.data(), len, &m32, sf), m32)), model(sb, INT32_MIN, INT32_MAX), 1) << len << " " << sf;
        }
}

// Sample standard deviation by two passes in long double.
template <class T> LD sd_model(const T* x, int n, LD* mean = nullptr) {
    LD s = 0, q = 0;
    for (int i = 0; i < n; ++i) s += x[i];
    LD m = s / n;
    for (int i = 0; i < n; ++i) q += (x[i] - m) * (x[i] - m);
    if (mean) *mean = m;
    return std::sqrt(q / (n - 1));
}

TEST(StdDev, FloatingPathsAgainstModel) {
    const Zam32f four[4] = {1, 2, 3, 4};
    Zam32f sd, mean;
    EXPECT_FLOAT_EQ(ok(zamsStdDev_32f(four, 4, &sd, zamAlgHintAccurate), sd), 1.2909944f);
    EXPECT_EQ(zamsStdDev_32f(four, 1, &sd, zamAlgHintAccurate), zamStatusBadLength);
    auto f = zt::random_reals<Zam32f>(3000, 8, 90.0f, 110.0f);  // a large mean over a small spread
    auto d = zt::random_reals<Zam64f>(3000, 9, -1e3, 1e5);
    for (int len : {2, 3, 17, 40, 999, 3000}) {
        LD mf, md;
        LD wf = sd_model(f.data(), len, &mf), wd = sd_model(d.data(), len, &md);
        Zam64f sd64, mean64;
        EXPECT_NEAR(ok(zamsStdDev_32f(f.data(), len, &sd, zamAlgHintAccurate), sd), wf, 2 * ulp(float(wf))) << len;
        EXPECT_NEAR(ok(zamsMeanStdDev_32f(f.data(), len, &mean, &sd, zamAlgHintNone), sd), wf, 2 * ulp(float(wf)));
        EXPECT_NEAR(mean, mf, ulp(float(mf)));
        // The fast path's single-precision sums lose about len * 2^-24 of
        // the mean squared, relative to the variance.
        EXPECT_NEAR(ok(zamsStdDev_32f(f.data(), len, &sd, zamAlgHintFast), sd), wf, 1 + len * 1e-3) << len;
        EXPECT_NEAR(ok(zamsStdDev_64f(d.data(), len, &sd64), sd64), wd, 4 * ulp(double(wd))) << len;
        EXPECT_NEAR(ok(zamsMeanStdDev_64f(d.data(), len, &mean64, &sd64), mean64), md, 2 * ulp(double(md)));
    }
}

TEST(StdDev, IntegersScaledAndLimited) {
    auto a = zt::random_ints<Zam16s>(2000, 10);
    for (int len : {2, 5, 300, 2000})
        for (int sf : {-40, -2, 0, 1, 4, 40}) {
            LD mean, w = sd_model(a.data(), len, &mean);
            Zam32s s32, m32;
            Zam16s s16, m16, mean16;
            EXPECT_NEAR(LD(ok(zamsStdDev_16s32s_Sfs(a.data(), len, &s32, sf), s32)), scaled(w, sf, INT32_MIN, INT32_MAX), 1) << len << " " << sf;
            EXPECT_EQ(ok(zamsStdDev_16s_Sfs(a.data(), len, &s16, sf), s16), std::min(s32, 32767));
            EXPECT_EQ(ok(zamsMeanStdDev_16s_Sfs(a.data(), len, &m16, &s16, sf), s16), std::min(s32, 32767));
            EXPECT_EQ(ok(zamsMean_16s_Sfs(a.data(), len, &mean16, sf), mean16), m16);
            EXPECT_NEAR(LD(ok(zamsMeanStdDev_16s32s_Sfs(a.data(), len, &m32, &s32, sf), m32)), scaled(mean, sf, INT32_MIN, INT32_MAX), 1);
        }
    const Zam16s wide[2] = {-32768, 32767};  // deviation 46340: above the 16-bit limit
    Zam16s s16;
    Zam32s s32;
    EXPECT_EQ(ok(zamsStdDev_16s_Sfs(wide, 2, &s16, 0), s16), 32767);
    EXPECT_EQ(ok(zamsStdDev_16s32s_Sfs(wide, 2, &s32, 0), s32), 46340);  // 32767.5 sqrt 2 = 46340.2
}

// A standard deviation needs two samples.
TEST(Sum, StdDevOfOneSampleIsRefused) {
    Zam32f f[2] = {1, 2}, out = 7;
    Zam16s s[2] = {1, 2}, o16 = 7;
    EXPECT_EQ(zamsMeanStdDev_32f(f, 1, &out, &out, zamAlgHintFast), zamStatusBadLength);
    EXPECT_EQ(zamsMeanStdDev_16s_Sfs(s, 1, &o16, &o16, 0), zamStatusBadLength);
    EXPECT_EQ(out, 7.0f);
    EXPECT_EQ(o16, 7);
}

ZAMS_DIGEST(sums) {
    auto f = zt::random_reals<Zam32f>(1001, 20);
    auto g = zt::random_reals<Zam64f>(1001, 21);
    auto a = zt::random_ints<Zam16s>(1001, 22);
    auto b = zt::random_ints<Zam32s>(1001, 23);
    std::vector<Zam32fc> fc(500);
    std::vector<Zam64fc> gc(500);
    std::vector<Zam16sc> ac(500);
    for (int i = 0; i < 500; ++i) fc[i] = {f[2 * i], f[2 * i + 1]}, gc[i] = {g[2 * i], g[2 * i + 1]}, ac[i] = {a[2 * i], a[2 * i + 1]};
    for (int len : {1, 2, 77, 500}) {
        for (auto h : {zamAlgHintFast, zamAlgHintAccurate}) {
            Zam32f r = 0, m = 0;  // not written when the status is an error
            Zam32fc rc{};
            d.status(zamsSum_32f(f.data(), len, &r, h)); d.add(&r, 1);
            d.status(zamsMean_32f(f.data(), len, &r, h)); d.add(&r, 1);
            d.status(zamsSum_32fc(fc.data(), len, &rc, h)); d.add(&rc, 1);
            d.status(zamsMean_32fc(fc.data(), len, &rc, h)); d.add(&rc, 1);
            d.status(zamsStdDev_32f(f.data(), len, &r, h)); d.add(&r, 1);
            d.status(zamsMeanStdDev_32f(f.data(), len, &m, &r, h)); d.add(&r, 1); d.add(&m, 1);
        }
        Zam64f r = 0, m = 0;
        Zam64fc rc{};
        d.status(zamsSum_64f(g.data(), len, &r)); d.add(&r, 1);
        d.status(zamsMean_64f(g.data(), len, &r)); d.add(&r, 1);
        d.status(zamsSum_64fc(gc.data(), len, &rc)); d.add(&rc, 1);
        d.status(zamsMean_64fc(gc.data(), len, &rc)); d.add(&rc, 1);
        d.status(zamsStdDev_64f(g.data(), len, &r)); d.add(&r, 1);
        d.status(zamsMeanStdDev_64f(g.data(), len, &m, &r)); d.add(&r, 1); d.add(&m, 1);
        for (int sf : {-5, 0, 3}) {
            Zam16s s16 = 0, t16 = 0;
            Zam32s s32 = 0, t32 = 0;
            Zam16sc c16{};
            Zam32sc c32{};
            d.status(zamsSum_16s_Sfs(a.data(), len, &s16, sf)); d.add(&s16, 1);
            d.status(zamsSum_16s32s_Sfs(a.data(), len, &s32, sf)); d.add(&s32, 1);
            d.status(zamsSum_16sc_Sfs(ac.data(), len, &c16, sf)); d.add(&c16, 1);
            d.status(zamsSum_16sc32sc_Sfs(ac.data(), len, &c32, sf)); d.add(&c32, 1);
            d.status(zamsSum_32s_Sfs(b.data(), len, &s32, sf)); d.add(&s32, 1);
            d.status(zamsMean_16s_Sfs(a.data(), len, &s16, sf)); d.add(&s16, 1);
            d.status(zamsMean_16sc_Sfs(ac.data(), len, &c16, sf)); d.add(&c16, 1);
            d.status(zamsMean_32s_Sfs(b.data(), len, &s32, sf)); d.add(&s32, 1);
            d.status(zamsStdDev_16s_Sfs(a.data(), len, &s16, sf)); d.add(&s16, 1);
            d.status(zamsStdDev_16s32s_Sfs(a.data(), len, &s32, sf)); d.add(&s32, 1);
            d.status(zamsMeanStdDev_16s_Sfs(a.data(), len, &s16, &t16, sf)); d.add(&s16, 1); d.add(&t16, 1);
            d.status(zamsMeanStdDev_16s32s_Sfs(a.data(), len, &s32, &t32, sf)); d.add(&s32, 1); d.add(&t32, 1);
        }
    }
}

}  // namespace
