// Elementary functions: Exp, Ln, Arctan (floating) and the integer
// exponentials and logarithms.
#include <algorithm>
#include <climits>
#include <cmath>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"
#include "sweep.h"

#ifdef ZAMS_TEST_MPFR
#include <mpfr.h>
#endif

namespace {

#ifdef ZAMS_TEST_MPFR
template <class F, class Fn>
void check_ulps(Fn fn, int (*ref)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t), const std::vector<F>& x, const char* what) {
    std::vector<F> y(x.size());
    ASSERT_EQ(fn(x.data(), y.data(), int(x.size())), zamStatusOk);
    auto [w, at] = mt::worst(x.size(), [&](size_t i) { return mpfr_ulps(ref, x[i], y[i]); });
    EXPECT_LE(w, 1.0) << what << " worst at " << x[at];
    // rounding alone costs up to half an ulp: a smaller worst case would
    // mean the measurement saw nothing
    EXPECT_GT(w, 0.4) << what;
}

TEST(Elementary, WithinOneUlpOfMpfr) {
    const size_t n = 25000;
    check_ulps<Zam32f>(zamsExp_32f, mpfr_exp, mt::random_bits<Zam32f>(n, 1), "exp32 bits");
    check_ulps<Zam32f>(zamsExp_32f, mpfr_exp, zt::random_reals<Zam32f>(n, 2, -104, 89), "exp32");
    check_ulps<Zam64f>(zamsExp_64f, mpfr_exp, zt::random_reals<Zam64f>(n, 3, -746, 710), "exp64");
    check_ulps<Zam64f>(zamsExp_64f, mpfr_exp, zt::random_reals<Zam64f>(n, 4, -1, 1), "exp64 small");
    check_ulps<Zam64f>(zamsExp_64f, mpfr_exp, mt::random_bits<Zam64f>(n, 5), "exp64 bits");
    check_ulps<Zam32f>(zamsLn_32f, mpfr_log, mt::random_bits<Zam32f>(n, 6), "ln32 bits");
    check_ulps<Zam32f>(zamsLn_32f, mpfr_log, zt::random_reals<Zam32f>(n, 7, 0.5, 2), "ln32 near 1");
    check_ulps<Zam64f>(zamsLn_64f, mpfr_log, mt::random_bits<Zam64f>(n, 8), "ln64 bits");
    check_ulps<Zam64f>(zamsLn_64f, mpfr_log, zt::random_reals<Zam64f>(n, 9, 0.7, 1.5), "ln64 near 1");
    check_ulps<Zam32f>(zamsArctan_32f, mpfr_atan, mt::random_bits<Zam32f>(n, 10), "atan32 bits");
    check_ulps<Zam32f>(zamsArctan_32f, mpfr_atan, zt::random_reals<Zam32f>(n, 11, -4, 4), "atan32");
    check_ulps<Zam64f>(zamsArctan_64f, mpfr_atan, mt::random_bits<Zam64f>(n, 12), "atan64 bits");
    check_ulps<Zam64f>(zamsArctan_64f, mpfr_atan, zt::random_reals<Zam64f>(n, 13, -3, 3), "atan64");
}

// Double e^x where the reduction is most delicate: a few ulps either side of
// the points where x 128/ln2 crosses a half (the table index changes and |r|
// is largest), across the whole range and around the kernel's range limit.
TEST(Elementary, Exp64WithinOneUlpAtIndexChanges) {
    std::vector<Zam64f> x;
    const double step = 0.6931471805599453 / 128;
    for (int n = -130900; n <= 130900; n += 97) {
        double h = (n + 0.5) * step, ulp = std::nextafter(std::fabs(h), INFINITY) - std::fabs(h);
        for (int d = -3; d <= 3; ++d) x.push_back(h + d * ulp);
    }
    for (double e : {708.0, -708.0})
        for (int d = -4; d <= 4; ++d) x.push_back(e + d * 0x1p-43);
    check_ulps<Zam64f>(zamsExp_64f, mpfr_exp, x, "exp64 index changes");
}
#endif

TEST(Elementary, SpecialValues) {
    const double inf = INFINITY, nan = NAN, tiny = 4.9406564584124654e-324;
    struct Case {
        zamStatus (*fn)(const Zam64f*, Zam64f*, int);
        double x, want;
    } cases[] = {
        {zamsExp_64f, 0.0, 1.0},       {zamsExp_64f, -0.0, 1.0},     {zamsExp_64f, inf, inf},
        {zamsExp_64f, -inf, 0.0},      {zamsExp_64f, nan, nan},      {zamsExp_64f, 710.0, inf},
        {zamsExp_64f, -746.0, 0.0},    {zamsExp_64f, -745.0, tiny},  {zamsLn_64f, 0.0, -inf},
        {zamsLn_64f, -0.0, -inf},      {zamsLn_64f, -1.0, nan},      {zamsLn_64f, inf, inf},
        {zamsLn_64f, -inf, nan},       {zamsLn_64f, 1.0, 0.0},       {zamsLn_64f, nan, nan},
        {zamsArctan_64f, inf, M_PI_2}, {zamsArctan_64f, -inf, -M_PI_2}, {zamsArctan_64f, -0.0, -0.0},
        {zamsArctan_64f, nan, nan},    {zamsArctan_64f, 1.0, M_PI_4}, {zamsArctan_64f, tiny, tiny},
    };
    for (const Case& c : cases) {
        Zam64f y;
        ASSERT_EQ(c.fn(&c.x, &y, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(y, c.want)) << c.x;
        Zam32f xf = Zam32f(c.x), yf;
        if ((std::isfinite(c.x) && std::fabs(c.x) > 100) || (c.x != 0 && std::fabs(c.x) < 1e-300)) continue;
        ASSERT_EQ(c.fn == zamsExp_64f ? zamsExp_32f(&xf, &yf, 1)
                  : c.fn == zamsLn_64f ? zamsLn_32f(&xf, &yf, 1) : zamsArctan_32f(&xf, &yf, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(yf, Zam32f(c.want))) << c.x;
    }
    Zam32f f[3] = {1e-45f, 88.8f, -104.0f};
    EXPECT_EQ(mt::ok(zamsLn_32f_I(f, 1), f[0]), -103.27893f);
    ASSERT_EQ(zamsExp_32f_I(f + 1, 2), zamStatusOk);
    EXPECT_EQ(mt::first(f + 1, 2), (std::vector<Zam32f>{INFINITY, 0.0f}));
}

// Vector groups, scalar steps and groups holding an argument outside the
// vector reduction (NaN, infinities, extremes, non-positive) all agree with
// the one-element call, at every start offset (head and tail lengths): a
// special argument leaves its neighbours' bits alone. In place too.
TEST(Elementary, VectorAndScalarStepsAgree) {
    auto x = zt::random_reals<Zam32f>(400, 16, -120.0f, 120.0f);
    const Zam32f odd[] = {NAN, INFINITY, -INFINITY, 0.0f, -0.0f, -1.0f, 1e-45f, 3e38f, 89.0f, -104.0f};
    for (int i = 0; i < 400; i += 9) x[size_t(i)] = odd[(i / 9) % 10];
    for (auto [fn, name] : {std::pair{&zamsExp_32f, "exp32"}, {&zamsLn_32f, "ln32"}, {&zamsArctan_32f, "atan32"}})
        mt::steps_agree<Zam32f>(fn, x, 9, name);
    std::vector<Zam32f> want(400), io = x;
    ASSERT_EQ(zamsArctan_32f(x.data(), want.data(), 400), zamStatusOk);
    ASSERT_EQ(zamsArctan_32f_I(io.data() + 1, 399), zamStatusOk);
    EXPECT_TRUE(mt::same(io[0], x[0]));
    for (int i = 1; i < 400; ++i) ASSERT_TRUE(mt::same(io[i], want[i])) << i;
    // the double kernels: every range of the reductions, mostly vector groups
    auto d = zt::random_reals<Zam64f>(600, 17, -3.0, 3.0);
    auto e = zt::random_reals<Zam64f>(600, 18, -720.0, 720.0);
    const Zam64f oddd[] = {NAN, INFINITY, -INFINITY, 0.0, -0.0, 1e-300, 0x1p-29, 1e30, -1e300, 709.9, -745.0, 0.3465735902799726,
                           0x1.62e42ffffffffp-2, 1e-310, 800.0};
    for (int i = 0; i < 600; i += 23) d[size_t(i)] = e[size_t((i + 11) % 600)] = oddd[(i / 23) % 15];
    for (auto* v : {&d, &e})
        for (auto [fn, name] : {std::pair{&zamsExp_64f, "exp64"}, {&zamsArctan_64f, "atan64"}}) mt::steps_agree<Zam64f>(fn, *v, 9, name);
    // in place from an odd start gives the out-of-place bits
    for (auto [fn, fn_i] : {std::pair{&zamsExp_64f, &zamsExp_64f_I}, {&zamsLn_64f, &zamsLn_64f_I}, {&zamsArctan_64f, &zamsArctan_64f_I}}) {
        std::vector<Zam64f> wd(600), iod = e;
        ASSERT_EQ(fn(e.data(), wd.data(), 600), zamStatusOk);
        ASSERT_EQ(fn_i(iod.data() + 1, 599), zamStatusOk);
        EXPECT_TRUE(mt::same(iod[0], e[0]));
        for (int i = 1; i < 600; ++i) ASSERT_TRUE(mt::same(iod[i], wd[i])) << i;
    }
}

// Ln_16s over every source and scale factor against long double.
TEST(IntegerLog, Ln16sEverySourceEveryScale) {
    std::vector<Zam16s> x(65536), y(65536);
    for (int i = 0; i < 65536; ++i) x[i] = Zam16s(i - 32768);
    const int stride = sizeof(void*) == 8 ? 1 : 13;  // the long double oracle is slow under emulation
    for (int sf = -14; sf <= 5; ++sf) {
        ASSERT_EQ(zamsLn_16s_Sfs(x.data(), y.data(), 65536, sf), zamStatusWarnLnNegative);
        for (int i = 0; i < 65536; i += stride) {
            Zam16s want = x[i] <= 0 ? Zam16s(-32768)
                                    : mt::clamp_to<Zam16s>(mt::Wide(std::rint(std::ldexp(std::log((long double)x[i]), -sf))));
            ASSERT_EQ(y[i], want) << x[i] << " sf " << sf;
        }
    }
    // the first non-positive element decides between the two warnings
    Zam16s a[] = {5, 0, -3}, b[] = {5, -3, 0}, r[3];
    EXPECT_EQ(zamsLn_16s_Sfs(a, r, 3, 0), zamStatusWarnLnZero);
    EXPECT_EQ(zamsLn_16s_ISfs(b, 3, -2), zamStatusWarnLnNegative);
    EXPECT_EQ(b[0], 6);  // 4 ln 5 = 6.44
    Zam16s ok[] = {1, 2, 32767};
    EXPECT_EQ(zamsLn_16s_Sfs(ok, ok, 3, -10), zamStatusOk);  // same pointer: in place
    EXPECT_EQ(ok[1], 710);  // 1024 ln 2 = 709.78
}

TEST(IntegerLog, TenLog10Of32s) {
    auto x = zt::random_ints<Zam32s>(3000, 15);
    int64_t p = 1;
    for (int j = 0; j < 10; ++j, p *= 10) x[size_t(7 * j + 1)] = Zam32s(p);
    std::vector<Zam32s> y(3000);
    for (int sf = -26; sf <= 8; ++sf) {
        zamStatus st = zams10Log10_32s_Sfs(x.data(), y.data(), 3000, sf);
        EXPECT_TRUE(st == zamStatusWarnLnZero || st == zamStatusWarnLnNegative);
        for (int i = 0; i < 3000; ++i) {
            Zam32s want;
            if (x[i] <= 0) {
                want = INT32_MIN;
            } else {
                long double v = 10 * std::log10((long double)x[i]);
                want = mt::clamp_to<Zam32s>(mt::Wide(std::rint(std::ldexp(v, -sf))));
            }
            ASSERT_EQ(y[i], want) << x[i] << " sf " << sf;
        }
    }
    Zam32s t[] = {10, 100, 1000};  // 10 / 4 = 2.5 -> 2, 20 / 4 = 5, 30 / 4 = 7.5 -> 8
    EXPECT_EQ(zams10Log10_32s_ISfs(t, 3, 2), zamStatusOk);
    EXPECT_EQ(mt::first(t, 3), (std::vector<Zam32s>{2, 5, 8}));
}

#ifdef ZAMS_TEST_MPFR
// The exponent range MPFR allows at most, for e^x of a 32-bit x.
struct WideExponents {
    mpfr_exp_t emin = mpfr_get_emin(), emax = mpfr_get_emax();
    WideExponents() {
        mpfr_set_emin(mpfr_get_emin_min());
        mpfr_set_emax(mpfr_get_emax_max());
    }
    ~WideExponents() {
        mpfr_set_emin(emin);
        mpfr_set_emax(emax);
    }
};

// round(v 2^-sf) for an exact v >= 0, ties to even, saturated to T
template <class T> T scaled_model(mpfr_srcptr v, long sf) {
    mpfr_t t;
    mpfr_init2(t, mpfr_get_prec(v));
    mpfr_mul_2si(t, v, -sf, MPFR_RNDN);
    T out;
    if (mpfr_cmp_si(t, long(std::numeric_limits<T>::max())) >= 0) {
        out = std::numeric_limits<T>::max();
    } else {
        mpfr_rint(t, t, MPFR_RNDN);
        out = T(mpfr_get_si(t, MPFR_RNDN));
    }
    mpfr_clear(t);
    return out;
}

// Exp of every source in x at every scale factor of the list and at those
// around x / ln2, where the result is neither 0 nor saturated.
template <class T>
void exp_against_mpfr(zamStatus (*fn)(const T*, T*, int, int), const std::vector<T>& x, std::vector<long> fixed) {
    WideExponents wide;
    mpfr_t e;
    mpfr_init2(e, 256);
    const int bits = std::numeric_limits<T>::digits;
    for (T v : x) {
        mpfr_set_si(e, long(v), MPFR_RNDN);
        mpfr_exp(e, e, MPFR_RNDN);
        std::vector<long> sfs = fixed;
        long k0 = long(std::floor(double(v) / M_LN2));
        for (long sf = k0 - 3; sf <= k0 + bits + 2; ++sf) sfs.push_back(std::clamp<long>(sf, INT_MIN, INT_MAX));
        for (long sf : sfs) {
            T y;
            ASSERT_EQ(fn(&v, &y, 1, int(sf)), zamStatusOk);
            ASSERT_EQ(y, scaled_model<T>(e, sf)) << v << " sf " << sf;
        }
    }
    mpfr_clear(e);
}

TEST(IntegerExp, EverySourceOf16sAgainstMpfr) {
    std::vector<Zam16s> x(65536);
    for (int i = 0; i < 65536; ++i) x[size_t(i)] = Zam16s(i - 32768);
    exp_against_mpfr<Zam16s>(zamsExp_16s_Sfs, x, {INT_MIN, -47300, -16, -1, 0, 1, 4, 15, 47274, INT_MAX});
}

TEST(IntegerExp, RandomAndEdgeSourcesOf32sAgainstMpfr) {
    auto x = zt::random_ints<Zam32s>(6000, 20);
    for (int i = 0; i < 2000; ++i) x[size_t(i)] = Zam32s(x[size_t(i)] % 2000);  // small sources too
    for (Zam32s v : {0, 1, -1, 21, 22, 23, 710, 745, -745, INT_MAX, INT_MIN, 1488522235, 1488522236, -1488522236, -1488522237})
        x.push_back(v);
    exp_against_mpfr<Zam32s>(zamsExp_32s_Sfs, x, {INT_MIN, -31, -1, 0, 1, 31, INT_MAX});
}

TEST(IntegerLog, Ln32sAgainstMpfr) {
    auto x = zt::random_ints<Zam32s>(4000, 21);
    for (Zam32s& v : x) v = v == INT_MIN || v == 0 ? 7 : (v < 0 ? -v : v);
    for (int k = 0; k < 31; ++k) x.push_back(Zam32s(1u << k)), x.push_back(Zam32s(std::lround(std::exp(k * 0.7))));
    x.push_back(INT_MAX);
    std::vector<long> sfs = {INT_MIN, -1000, INT_MAX, 1000};
    for (long sf = -32; sf <= 8; ++sf) sfs.push_back(sf);
    std::vector<Zam32s> y(x.size());
    mpfr_t l;
    mpfr_init2(l, 256);
    for (long sf : sfs) {
        ASSERT_EQ(zamsLn_32s_Sfs(x.data(), y.data(), int(x.size()), int(sf)), zamStatusOk);
        for (size_t i = 0; i < x.size(); ++i) {
            mpfr_set_si(l, x[i], MPFR_RNDN);
            mpfr_log(l, l, MPFR_RNDN);
            ASSERT_EQ(y[i], scaled_model<Zam32s>(l, sf)) << x[i] << " sf " << sf;
        }
    }
    mpfr_clear(l);
}
#endif

// The in-place forms give the out-of-place values; Ln_32s treats the
// non-positive elements as Ln_16s does; a few values whose rounding is known.
TEST(IntegerExp, InPlaceSaturationAndLnWarnings) {
    auto s = zt::random_ints<Zam16s>(300, 22);
    auto w = zt::random_ints<Zam32s>(300, 23);
    for (int i = 0; i < 300; ++i) s[size_t(i)] = Zam16s(s[size_t(i)] % 40), w[size_t(i)] = w[size_t(i)] % 60;
    for (int sf : {-10, 0, 3, 40}) {
        std::vector<Zam16s> ys(300), ios = s;
        std::vector<Zam32s> yw(300), iow = w, yl(300), iol = w;
        ASSERT_EQ(zamsExp_16s_Sfs(s.data(), ys.data(), 300, sf), zamStatusOk);
        ASSERT_EQ(zamsExp_16s_ISfs(ios.data(), 300, sf), zamStatusOk);
        ASSERT_EQ(zamsExp_32s_Sfs(w.data(), yw.data(), 300, sf), zamStatusOk);
        ASSERT_EQ(zamsExp_32s_ISfs(iow.data(), 300, sf), zamStatusOk);
        zamStatus st = zamsLn_32s_Sfs(w.data(), yl.data(), 300, sf);
        EXPECT_EQ(zamsLn_32s_ISfs(iol.data(), 300, sf), st);
        EXPECT_TRUE(ys == ios && yw == iow && yl == iol) << sf;
    }
    // e^0 2^-1 = 1/2 rounds to the even 0, e^0 2^-0 = 1; e^10 = 22026.47 and
    // saturation of both types
    Zam16s e16[] = {0, 0, 10, 11, -32768};
    Zam32s e32[] = {0, 22, 100, INT_MIN};
    EXPECT_EQ(zamsExp_16s_ISfs(e16, 1, 1), zamStatusOk);
    EXPECT_EQ(zamsExp_16s_ISfs(e16 + 1, 4, 0), zamStatusOk);
    EXPECT_EQ(mt::first(e16, 5), (std::vector<Zam16s>{0, 1, 22026, 32767, 0}));
    EXPECT_EQ(zamsExp_32s_ISfs(e32, 4, -2), zamStatusOk);  // 4 e^22 = 14343263645.2
    EXPECT_EQ(mt::first(e32, 4), (std::vector<Zam32s>{4, INT_MAX, INT_MAX, 0}));
    // the first non-positive element decides the warning, and gets INT_MIN
    Zam32s a[] = {5, 0, -3}, b[] = {5, -3, 0}, r[3];
    EXPECT_EQ(zamsLn_32s_Sfs(a, r, 3, -20), zamStatusWarnLnZero);
    EXPECT_EQ(mt::first(r, 3), (std::vector<Zam32s>{1687618, INT_MIN, INT_MIN}));  // 2^20 ln 5 = 1687617.97
    EXPECT_EQ(zamsLn_32s_ISfs(b, 3, 0), zamStatusWarnLnNegative);
    EXPECT_EQ(b[0], 2);
}

ZAMS_DIGEST(elementary) {
    auto f = zt::random_reals<Zam32f>(3000, 81, -100.0f, 100.0f);
    auto g = zt::random_reals<Zam64f>(3000, 82, -800.0, 800.0);
    std::vector<Zam32f> yf(3000);
    std::vector<Zam64f> yg(3000);
    for (auto fn : {zamsExp_32f, zamsLn_32f, zamsArctan_32f}) mt::rec(d, fn(f.data(), yf.data(), 3000), yf);
    for (auto fn : {zamsExp_64f, zamsLn_64f, zamsArctan_64f}) mt::rec(d, fn(g.data(), yg.data(), 3000), yg);
    auto s = zt::random_ints<Zam16s>(2000, 83);
    auto w = zt::random_ints<Zam32s>(2000, 84);
    std::vector<Zam16s> ys(2000);
    std::vector<Zam32s> yw(2000);
    for (int sf : {-12, -3, 0, 2}) {
        mt::rec(d, zamsLn_16s_Sfs(s.data(), ys.data(), 2000, sf), ys);
        mt::rec(d, zams10Log10_32s_Sfs(w.data(), yw.data(), 2000, sf), yw);
    }
    std::vector<Zam16s> s40(s), ye(2000);
    std::vector<Zam32s> w60(w);
    for (size_t i = 0; i < 2000; ++i) s40[i] = Zam16s(s40[i] % 40), w60[i] = w60[i] % 60;
    for (int sf : {-20, -7, 0, 5, 30}) {
        mt::rec(d, zamsExp_16s_Sfs(s40.data(), ye.data(), 2000, sf), ye);
        mt::rec(d, zamsExp_32s_Sfs(w60.data(), yw.data(), 2000, sf), yw);
        mt::rec(d, zamsExp_32s_Sfs(w.data(), yw.data(), 2000, sf), yw);
        mt::rec(d, zamsLn_32s_Sfs(w.data(), yw.data(), 2000, sf - 10), yw);
    }
}

}  // namespace
