// Square root: floating, complex and scaled integer forms.
#include <cmath>
#include <complex>

#include "digest.h"
#include "math_util.h"
#include "sweep.h"

namespace {

// round(sqrt(x) 2^-sf) in long double, ties to even (the default rounding):
// exact enough for sources of 32 bits and results of 16.
template <class D> D ref_sqrt_ld(long double x, int sf) {
    if (x < 0) return 0;
    long double v = std::ldexp(std::sqrt(x), -sf);
    if (v > 1e18L) v = 1e18L;
    return mt::clamp_to<D>(mt::Wide(std::rint(v)));
}

// IEEE roots at every length and alignment, special values, arguments.
TEST(Sqrt, FloatMatchesIeee) {
    auto f = zt::random_reals<Zam32f>(300, 1, 0.0f, 1e6f);
    zt::sweep_unary<Zam32f, Zam32f>(zamsSqrt_32f, [](Zam32f x) { return Zam32f(std::sqrt(double(x))); }, f);
    auto g = zt::random_reals<Zam64f>(300, 2, 0.0, 1e12);
    zt::sweep_unary<Zam64f, Zam64f>(zamsSqrt_64f, [](Zam64f x) { return std::sqrt(x); }, g);
    std::vector<Zam32f> io = f;
    ASSERT_EQ(zamsSqrt_32f_I(io.data(), 300), zamStatusOk);
    EXPECT_EQ(io[7], Zam32f(std::sqrt(double(f[7]))));
    std::vector<Zam64f> iod = g;
    ASSERT_EQ(zamsSqrt_64f_I(iod.data(), 300), zamStatusOk);
    EXPECT_EQ(iod[9], std::sqrt(g[9]));
    const float inf = INFINITY;
    Zam32f x[] = {-0.0f, 0.0f, -1.0f, inf, -inf, NAN, 1e-45f, 4.0f}, y[8];
    const Zam32f want[] = {-0.0f, 0.0f, NAN, inf, NAN, NAN, std::sqrt(1e-45f), 2.0f};
    ASSERT_EQ(zamsSqrt_32f(x, y, 8), zamStatusOk);
    for (int i = 0; i < 8; ++i) EXPECT_TRUE(mt::same(y[i], want[i])) << x[i];
}

// Every 16-bit source at every useful scale factor.
TEST(SqrtInt, Every16BitSourceEveryScale) {
    std::vector<Zam16s> s(65536);
    std::vector<Zam16u> u(65536);
    std::vector<Zam8u> b(256);
    for (int i = 0; i < 65536; ++i) s[i] = Zam16s(i), u[i] = Zam16u(i);
    for (int i = 0; i < 256; ++i) b[i] = Zam8u(i);
    std::vector<Zam16s> ys(65536);
    std::vector<Zam16u> yu(65536);
    std::vector<Zam8u> yb(256);
    const int stride = sizeof(void*) == 8 ? 1 : 13;  // the long double oracle is slow under emulation
    for (int sf = -18; sf <= 12; ++sf) {
        ASSERT_EQ(zamsSqrt_16s_Sfs(s.data(), ys.data(), 65536, sf), zamStatusWarnSqrtNegative);
        ASSERT_EQ(zamsSqrt_16u_Sfs(u.data(), yu.data(), 65536, sf), zamStatusOk);
        ASSERT_EQ(zamsSqrt_8u_Sfs(b.data(), yb.data(), 256, sf), zamStatusOk);
        for (int i = 0; i < 65536; i += stride) {
            ASSERT_EQ(ys[i], ref_sqrt_ld<Zam16s>(s[i], sf)) << s[i] << " sf " << sf;
            ASSERT_EQ(yu[i], ref_sqrt_ld<Zam16u>(u[i], sf)) << u[i] << " sf " << sf;
        }
        for (int i = 0; i < 256; ++i) ASSERT_EQ(yb[i], ref_sqrt_ld<Zam8u>(i, sf)) << i << " sf " << sf;
        auto iu = u;
        auto ib = b;
        ASSERT_EQ(zamsSqrt_16u_ISfs(iu.data(), 65536, sf), zamStatusOk);
        ASSERT_EQ(zamsSqrt_8u_ISfs(ib.data(), 256, sf), zamStatusOk);
        ASSERT_EQ(iu, yu) << "in place, sf " << sf;
        ASSERT_EQ(ib, yb) << "in place, sf " << sf;
    }
    // ties: sqrt(9) / 2 = 1.5 -> 2, sqrt(25) / 2 = 2.5 -> 2
    Zam16s t[] = {9, 25, -4};
    EXPECT_EQ(zamsSqrt_16s_ISfs(t, 3, 1), zamStatusWarnSqrtNegative);
    EXPECT_EQ(mt::first(t, 3), (std::vector<Zam16s>{2, 2, 0}));
}

TEST(SqrtInt, Wide32And64BitSources) {
    auto w = zt::random_ints<Zam32s>(2000, 3);
    for (int i = 0; i < 2000; i += 3) w[i] = w[i] & 0x3fffffff;
    std::vector<Zam16s> y(2000);
    const int sf_step = sizeof(void*) == 8 ? 1 : 3;
    for (int sf = -20; sf <= 20; sf += sf_step) {
        ASSERT_EQ(zamsSqrt_32s16s_Sfs(w.data(), y.data(), 2000, sf), zamStatusWarnSqrtNegative);
        for (int i = 0; i < 2000; ++i) ASSERT_EQ(y[i], ref_sqrt_ld<Zam16s>(w[i], sf)) << w[i] << " sf " << sf;
    }
    Zam32s one[] = {7, -1};
    EXPECT_EQ(zamsSqrt_32s16s_Sfs(one, y.data(), 1, 0), zamStatusOk);
    EXPECT_EQ(zamsSqrt_32s16s_Sfs(one, y.data(), 2, 0), zamStatusWarnSqrtNegative);
    EXPECT_EQ(mt::first(y.data(), 2), (std::vector<Zam16s>{3, 0}));

    auto v = zt::random_ints<Zam64s>(1500, 4);
    for (int i = 0; i < 1500; i += 4) v[i] = v[i] >> (i % 60);
    // perfect squares and their neighbours
    for (int i = 1; i < 1500; i += 7) {
        int64_t r = int64_t(uint32_t(v[i])) >> 1;
        v[i] = r * r + (i % 3) - 1;
    }
    std::vector<Zam64s> y64(1500);
    std::vector<Zam16s> y16(1500);
    for (int sf = -40; sf <= 40; sf += sf_step) {
        ASSERT_EQ(zamsSqrt_64s_Sfs(v.data(), y64.data(), 1500, sf), zamStatusWarnSqrtNegative);
        ASSERT_EQ(zamsSqrt_64s16s_Sfs(v.data(), y16.data(), 1500, sf), zamStatusWarnSqrtNegative);
        for (int i = 0; i < 1500; ++i) {
            if (v[i] < 0) {
                ASSERT_TRUE(y64[i] == 0 && y16[i] == 0) << v[i];
                continue;
            }
#ifdef __SIZEOF_INT128__
            // m is right when (2m - 1)^2 <= 4 x 4^-sf <= (2m + 1)^2, a tie
            // only on the side of the even m; both sides scaled to integers.
            using W = unsigned __int128;
            int64_t m = y64[i];
            int up = sf < 0 ? -sf : 0, dn = sf > 0 ? sf : 0;
            if (m == INT64_MAX) {
                ASSERT_GE(std::ldexp(std::sqrt((long double)v[i]), -sf), 9.2233720368547e18L) << v[i] << " sf " << sf;
                ASSERT_EQ(y16[i], 32767);
                continue;
            }
            W a = (W(uint64_t(v[i])) * 4) << (2 * up);
            auto sq = [&](uint64_t k) { return (W(k) * W(k)) << (2 * dn); };
            W hi = sq(2 * uint64_t(m) + 1);
            ASSERT_TRUE(a < hi || (a == hi && m % 2 == 0)) << v[i] << " sf " << sf << " got " << m;
            if (m > 0) {
                W lo = sq(2 * uint64_t(m) - 1);
                ASSERT_TRUE(a > lo || (a == lo && m % 2 == 0)) << v[i] << " sf " << sf << " got " << m;
            }
            ASSERT_EQ(y16[i], mt::clamp_to<Zam16s>(m)) << v[i] << " sf " << sf;
#endif
        }
    }
    // saturation of the 64-bit result, exact root of the largest square
    Zam64s big[] = {INT64_MAX, 4611686014132420609LL};  // (2^31 - 1)^2
    EXPECT_EQ(zamsSqrt_64s_ISfs(big, 2, -31), zamStatusOk);
    EXPECT_LE(std::fabs((long double)big[0] - std::ldexp(std::sqrt((long double)INT64_MAX), 31)), 1.0L);
    Zam64s top = INT64_MAX;
    EXPECT_EQ(mt::ok(zamsSqrt_64s_ISfs(&top, 1, -32), top), INT64_MAX);
    EXPECT_EQ(big[1], int64_t(2147483647) << 31);
}

// Parts of the principal root within `ulps` of a long double oracle over
// wide ranges (p holds pairs of parts), and the special values of C99 Annex G.
template <class C, class P>
void root_accuracy(zamStatus (*fn)(const C*, C*, int), zamStatus (*fn_i)(C*, int), std::vector<P> p, P big, P small, double ulps) {
    for (size_t i = 0; i < p.size(); i += 10) p[i] *= big, p[i + 1] *= small;
    auto x = mt::as_complex<C>(p);
    std::vector<C> y(x.size());
    ASSERT_EQ(fn(x.data(), y.data(), int(x.size())), zamStatusOk);
    for (size_t i = 0; i < x.size(); ++i) {
        auto w = std::sqrt(std::complex<long double>(x[i].re, x[i].im));
        EXPECT_LE(mt::ulp_diff(y[i].re, w.real()), ulps) << i;
        EXPECT_LE(mt::ulp_diff(y[i].im, w.imag()), ulps) << i;
    }
    ASSERT_EQ(fn_i(x.data(), int(x.size())), zamStatusOk);  // in place: the same bits
    EXPECT_EQ(std::memcmp(x.data(), y.data(), y.size() * sizeof(C)), 0);
}

TEST(SqrtComplex, AccuracyAndSpecialValues) {
    root_accuracy<Zam32fc>(zamsSqrt_32fc, zamsSqrt_32fc_I, zt::random_reals<Zam32f>(2000, 5, -1e4f, 1e4f), 1e30f, 1e-40f, 1.0);
    root_accuracy<Zam64fc>(zamsSqrt_64fc, zamsSqrt_64fc_I, zt::random_reals<Zam64f>(2000, 6, -1e4, 1e4), 1e300, 1e-310, 2.0);
    const double inf = INFINITY, nan = NAN;
    struct Case {
        Zam64fc in, out;
    } cases[] = {
        {{0.0, 0.0}, {0.0, 0.0}},     {{-0.0, -0.0}, {0.0, -0.0}}, {{-4.0, 0.0}, {0.0, 2.0}},
        {{-4.0, -0.0}, {0.0, -2.0}},  {{3.0, inf}, {inf, inf}},    {{nan, -inf}, {inf, -inf}},
        {{-inf, 2.0}, {0.0, inf}},    {{inf, -2.0}, {inf, -0.0}},  {{-inf, nan}, {nan, inf}},
        {{inf, nan}, {inf, nan}},     {{nan, 1.0}, {nan, nan}},    {{-3.0, 4.0}, {1.0, 2.0}},
    };
    for (const Case& c : cases) {
        Zam64fc got;
        ASSERT_EQ(zamsSqrt_64fc(&c.in, &got, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(got, c.out)) << c.in.re << " " << c.in.im;
        Zam32fc io{float(c.in.re), float(c.in.im)};
        ASSERT_EQ(zamsSqrt_32fc_I(&io, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(io.im, float(c.out.im))) << c.in.re << " " << c.in.im;
    }
}

TEST(SqrtComplex, Integer16scParts) {
    auto p = zt::random_ints<Zam16s>(2000, 7);
    std::vector<Zam16sc> x(1000), y(1000);
    std::memcpy(x.data(), p.data(), sizeof(Zam16sc) * 1000);
    for (int sf = -10; sf <= 10; ++sf) {
        ASSERT_EQ(zamsSqrt_16sc_Sfs(x.data(), y.data(), 1000, sf), zamStatusOk);
        auto io = x;
        ASSERT_EQ(zamsSqrt_16sc_ISfs(io.data(), 1000, sf), zamStatusOk);
        ASSERT_EQ(std::memcmp(io.data(), y.data(), y.size() * sizeof(Zam16sc)), 0) << "in place, sf " << sf;
        for (int i = 0; i < 1000; ++i) {
            auto w = std::sqrt(std::complex<long double>(x[i].re, x[i].im));
            long double re = std::ldexp(w.real(), -sf), im = std::ldexp(w.imag(), -sf);
            ASSERT_EQ(y[i].re, mt::clamp_to<Zam16s>(mt::Wide(std::rint(std::fmin(re, 1e9L))))) << i << " sf " << sf;
            ASSERT_EQ(y[i].im, mt::clamp_to<Zam16s>(mt::Wide(std::rint(std::fmax(std::fmin(im, 1e9L), -1e9L)))))
                << i << " sf " << sf;
        }
    }
}

ZAMS_DIGEST(sqrt_all) {
    auto s = zt::random_ints<Zam16s>(1200, 41);
    auto w = zt::random_ints<Zam32s>(1200, 42);
    auto v = zt::random_ints<Zam64s>(1200, 43);
    auto f = zt::random_reals<Zam32f>(2400, 44, -1e5f, 1e5f);
    auto g = zt::random_reals<Zam64f>(2400, 45, -1e5, 1e5);
    std::vector<Zam16s> y16(1200);
    std::vector<Zam16u> yu(1200);
    std::vector<Zam8u> y8(1200);
    std::vector<Zam64s> y64(1200);
    std::vector<Zam32f> yf(2400);
    std::vector<Zam64f> yg(2400);
    auto* c16 = reinterpret_cast<Zam16sc*>(y16.data());
    for (int sf : {-20, -3, 0, 2, 7, 30}) {
        mt::rec(d, zamsSqrt_16s_Sfs(s.data(), y16.data(), 1200, sf), y16);
        mt::rec(d, zamsSqrt_16u_Sfs(reinterpret_cast<Zam16u*>(s.data()), yu.data(), 1200, sf), yu);
        mt::rec(d, zamsSqrt_8u_Sfs(reinterpret_cast<Zam8u*>(s.data()), y8.data(), 1200, sf), y8);
        mt::rec(d, zamsSqrt_32s16s_Sfs(w.data(), y16.data(), 1200, sf), y16);
        mt::rec(d, zamsSqrt_64s16s_Sfs(v.data(), y16.data(), 1200, sf), y16);
        mt::rec(d, zamsSqrt_64s_Sfs(v.data(), y64.data(), 1200, sf), y64);
        mt::rec(d, zamsSqrt_16sc_Sfs(reinterpret_cast<Zam16sc*>(s.data()), c16, 600, sf), y16);
    }
    mt::rec(d, zamsSqrt_32f(f.data(), yf.data(), 2400), yf);
    mt::rec(d, zamsSqrt_64f(g.data(), yg.data(), 2400), yg);
    mt::rec(d, zamsSqrt_32fc(reinterpret_cast<Zam32fc*>(f.data()), reinterpret_cast<Zam32fc*>(yf.data()), 1200), yf);
    mt::rec(d, zamsSqrt_64fc(reinterpret_cast<Zam64fc*>(g.data()), reinterpret_cast<Zam64fc*>(yg.data()), 1200), yg);
}

}  // namespace
