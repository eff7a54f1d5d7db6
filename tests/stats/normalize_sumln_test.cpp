// Sums of logarithms against long double logl sums; normalisation against
// same-precision, long double and exact integer models.
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

#include "digest.h"
#include "harness.h"
#include "sweep.h"

namespace {

using LD = long double;

template <class S> LD ln_sum(const S* v, int n) {
    LD s = 0;
    for (int i = 0; i < n; ++i) s += logl(LD(v[i]));
    return s;
}

// One unit in the last place of the float nearest w.
LD ulp32(LD w) { return w == 0 ? LD(1e-45f) : std::ldexp(1.0L, std::ilogb(float(w)) - 23); }

// Positive values over several decades, all above or all below 1 so that
// the sum has no cancellation and a relative bound is meaningful.
template <class T> std::vector<T> positive(size_t n, uint32_t seed, bool above_one) {
    auto g = zt::rng(seed);
    std::uniform_real_distribution<double> e(above_one ? 0.1 : -30.0, above_one ? 30.0 : -0.1), m(1.0, 2.0);
    std::vector<T> v(n);
    for (auto& x : v) x = T(std::ldexp(m(g), int(e(g))) * (above_one ? 1.0 : 0.5));
    return v;
}

TEST(SumLn, MatchesLongDoubleLogSums) {
    for (bool above : {true, false}) {
        auto f = positive<Zam32f>(600, above ? 1 : 2, above);
        auto g = positive<Zam64f>(600, above ? 3 : 4, above);
        for (int n : {1, 2, 3, 7, 8, 9, 31, 100, 257, 600}) {
            Zam32f s32 = 0;
            Zam64f s64 = 0, s3264 = 0;
            ASSERT_EQ(zamsSumLn_32f(f.data(), n, &s32), zamStatusOk);
            ASSERT_EQ(zamsSumLn_32f64f(f.data(), n, &s3264), zamStatusOk);
            ASSERT_EQ(zamsSumLn_64f(g.data(), n, &s64), zamStatusOk);
            LD w32 = ln_sum(f.data(), n), w64 = ln_sum(g.data(), n);
            EXPECT_LE(std::fabs(LD(s32) - w32), 2 * ulp32(w32)) << n;
            EXPECT_LE(std::fabs(LD(s3264) - w32), 1e-14L * std::fabs(w32)) << n;
            EXPECT_LE(std::fabs(LD(s64) - w64), 1e-14L * std::fabs(w64)) << n;
        }
    }
    // Many terms of one size: an uncompensated double sum drifts past the bound.
    std::vector<Zam64f> many(40000);
    for (size_t i = 0; i < many.size(); ++i) many[i] = 1.1 + 1e-6 * double(i % 97);
    Zam64f s = 0;
    ASSERT_EQ(zamsSumLn_64f(many.data(), int(many.size()), &s), zamStatusOk);
    LD w = ln_sum(many.data(), int(many.size()));
    EXPECT_LE(std::fabs(LD(s) - w), 1e-15L * w);
    // Values around 1 with logs of both signs: bounded by the magnitudes of the terms.
    auto mixed = zt::random_reals<Zam64f>(500, 5, 0.25, 4.0);
    ASSERT_EQ(zamsSumLn_64f(mixed.data(), 500, &s), zamStatusOk);
    LD mag = 0;
    for (Zam64f x : mixed) mag += std::fabs(logl(LD(x)));
    EXPECT_LE(std::fabs(LD(s) - ln_sum(mixed.data(), 500)), 1e-15L * mag);
}

TEST(SumLn, IntegerSource) {
    std::vector<Zam16s> v;
    for (int x = 1; x <= 32767; x += 97) v.push_back(Zam16s(x));
    v.push_back(32767);
    Zam32f s = 0;
    for (int n : {1, 2, 5, 64, int(v.size())}) {
        ASSERT_EQ(zamsSumLn_16s32f(v.data(), n, &s), zamStatusOk);
        LD w = ln_sum(v.data(), n);
        EXPECT_LE(std::fabs(LD(s) - w), 2 * ulp32(w)) << n;
    }
}

// The first non-positive element decides: zero gives 7 and minus infinity,
// a negative value 8 and NaN; -0 counts as zero.
TEST(SumLn, FirstNonPositiveElementDecides) {
    auto run = [](auto zero_first, auto neg_first, auto fn, auto* out) {
        EXPECT_EQ(fn(zero_first, 3, out), zamStatusWarnLnZero);
        EXPECT_TRUE(std::isinf(double(*out)) && *out < 0);
        EXPECT_EQ(fn(neg_first, 3, out), zamStatusWarnLnNegative);
        EXPECT_TRUE(std::isnan(double(*out)));
    };
    const Zam32f fz[] = {5, -0.0f, -3}, fn[] = {5, -3, 0};
    const Zam64f dz[] = {5, 0, -3}, dn[] = {5, -1e-300, 0};
    const Zam16s sz[] = {5, 0, -3}, sn[] = {5, -3, 0};
    Zam32f o32;
    Zam64f o64;
    run(fz, fn, zamsSumLn_32f, &o32);
    run(fz, fn, zamsSumLn_32f64f, &o64);
    run(dz, dn, zamsSumLn_64f, &o64);
    run(sz, sn, zamsSumLn_16s32f, &o32);
    // A zero after an infinity still warns.
    const Zam32f inf0[] = {std::numeric_limits<float>::infinity(), 0};
    EXPECT_EQ(zamsSumLn_32f(inf0, 2, &o32), zamStatusWarnLnZero);
    // An infinity alone gives plus infinity, a NaN gives NaN, both without a warning.
    const Zam64f inf2[] = {2, std::numeric_limits<double>::infinity(), 3}, nan2[] = {2, NAN, 3};
    EXPECT_EQ(zamsSumLn_64f(inf2, 3, &o64), zamStatusOk);
    EXPECT_EQ(o64, std::numeric_limits<double>::infinity());
    EXPECT_EQ(zamsSumLn_64f(nan2, 3, &o64), zamStatusOk);
    EXPECT_TRUE(std::isnan(o64));
}

TEST(SumLn, ChecksPointersThenLength) {
    const Zam32f x[] = {1};
    Zam32f s = 42;
    EXPECT_EQ(zamsSumLn_32f(nullptr, 0, &s), zamStatusNullPointer);
    EXPECT_EQ(zamsSumLn_32f(x, 0, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsSumLn_32f(x, 0, &s), zamStatusBadLength);
    EXPECT_EQ(zamsSumLn_16s32f(nullptr, -1, &s), zamStatusNullPointer);
    EXPECT_EQ(zamsSumLn_16s32f(reinterpret_cast<const Zam16s*>(x), -1, &s), zamStatusBadLength);
    Zam64f d = 42;
    EXPECT_EQ(zamsSumLn_64f(nullptr, 1, &d), zamStatusNullPointer);
    EXPECT_EQ(zamsSumLn_32f64f(x, -5, &d), zamStatusBadLength);
    EXPECT_EQ(s, 42);
    EXPECT_EQ(d, 42);
}

// ------------------------------------------------------------- Normalize

// The in-place form driven like the two-pointer one.
template <class T, class F> auto in_place(F f) {
    return [f](const T* s, T* d, int n) {
        std::memmove(d, s, size_t(n) * sizeof(T));
        return f(d, n);
    };
}

TEST(Normalize, RealIsRoundedDifferenceOverDivisor) {
    auto f = zt::random_reals<Zam32f>(300, 6);
    auto g = zt::random_reals<Zam64f>(300, 7);
    const Zam32f fs = 3.25f, fd = -0.7f;
    const Zam64f gs = -11.5, gd = 3.0;
    auto rf = [&](Zam32f x) { return Zam32f((x - fs) / fd); };
    auto rg = [&](Zam64f x) { return Zam64f((x - gs) / gd); };
    zt::sweep_unary<Zam32f, Zam32f>([&](const Zam32f* s, Zam32f* d, int n) { return zamsNormalize_32f(s, d, n, fs, fd); }, rf, f);
    zt::sweep_unary<Zam64f, Zam64f>([&](const Zam64f* s, Zam64f* d, int n) { return zamsNormalize_64f(s, d, n, gs, gd); }, rg, g);
    zt::SweepOptions o{.max_len = 70, .in_place = false};
    zt::sweep_unary<Zam32f, Zam32f>(in_place<Zam32f>([&](Zam32f* d, int n) { return zamsNormalize_32f_I(d, n, fs, fd); }), rf, f, o);
    zt::sweep_unary<Zam64f, Zam64f>(in_place<Zam64f>([&](Zam64f* d, int n) { return zamsNormalize_64f_I(d, n, gs, gd); }), rg, g, o);
}

// Single precision: each part within one float ulp of the exact quotient of
// the rounded difference.
struct WithinFloatUlp {
    bool operator()(const Zam32fc& got, const Zam32fc& want) const {
        return std::nextafter(want.re, -INFINITY) <= got.re && got.re <= std::nextafter(want.re, INFINITY) &&
               std::nextafter(want.im, -INFINITY) <= got.im && got.im <= std::nextafter(want.im, INFINITY);
    }
};

TEST(Normalize, ComplexSinglePrecision) {
    auto v = zt::random_reals<Zam32f>(600, 8);
    std::vector<Zam32fc> x(300);
    for (int i = 0; i < 300; ++i) x[i] = {v[2 * i], v[2 * i + 1]};
    const Zam32fc s{1.5f, -2.25f}, dv{0.3f, -1.7f};
    auto ref = [&](Zam32fc e) {
        LD a = Zam32f(e.re - s.re), b = Zam32f(e.im - s.im), c = dv.re, d = dv.im, den = c * c + d * d;
        return Zam32fc{Zam32f((a * c + b * d) / den), Zam32f((b * c - a * d) / den)};
    };
    WithinFloatUlp eq;
    zt::sweep_unary<Zam32fc, Zam32fc>([&](const Zam32fc* p, Zam32fc* q, int n) { return zamsNormalize_32fc(p, q, n, s, dv); }, ref, x, {}, eq);
    zt::SweepOptions o{.max_len = 50, .in_place = false};
    zt::sweep_unary<Zam32fc, Zam32fc>(in_place<Zam32fc>([&](Zam32fc* d, int n) { return zamsNormalize_32fc_I(d, n, s, dv); }), ref, x, o, eq);
    // A purely real divisor gives the real quotients.
    Zam32fc one{7, -3}, out;
    ASSERT_EQ(zamsNormalize_32fc(&one, &out, 1, {1, 1}, {2, 0}), zamStatusOk);
    EXPECT_EQ(out.re, 3.0f);
    EXPECT_EQ(out.im, -2.0f);
}

struct NearDouble {
    bool operator()(const Zam64fc& got, const Zam64fc& want) const {
        LD m = std::hypot(LD(want.re), LD(want.im));
        return std::fabs(LD(got.re) - want.re) <= 1e-15L * m && std::fabs(LD(got.im) - want.im) <= 1e-15L * m;
    }
};

TEST(Normalize, ComplexDoublePrecision) {
    auto v = zt::random_reals<Zam64f>(600, 9);
    std::vector<Zam64fc> x(300);
    for (int i = 0; i < 300; ++i) x[i] = {v[2 * i], v[2 * i + 1]};
    for (Zam64fc dv : {Zam64fc{0.3, -1.7}, Zam64fc{-4.0, 0.01}, Zam64fc{0, 2.5}}) {
        const Zam64fc s{-0.5, 8.0};
        auto ref = [&](Zam64fc e) {
            LD a = e.re - s.re, b = e.im - s.im, c = dv.re, d = dv.im, den = c * c + d * d;
            return Zam64fc{double((a * c + b * d) / den), double((b * c - a * d) / den)};
        };
        zt::SweepOptions o{.max_len = 60};
        zt::sweep_unary<Zam64fc, Zam64fc>([&](const Zam64fc* p, Zam64fc* q, int n) { return zamsNormalize_64fc(p, q, n, s, dv); }, ref, x, o, NearDouble{});
        o = {.max_len = 20, .in_place = false};
        zt::sweep_unary<Zam64fc, Zam64fc>(in_place<Zam64fc>([&](Zam64fc* d, int n) { return zamsNormalize_64fc_I(d, n, s, dv); }), ref, x, o, NearDouble{});
    }
    // Divisors whose squared magnitude leaves the double range.
    Zam64fc big{1e300, 0}, out;
    ASSERT_EQ(zamsNormalize_64fc(&big, &out, 1, {0, 0}, {1e300, 1e300}), zamStatusOk);
    EXPECT_NEAR(out.re, 0.5, 1e-15);
    EXPECT_NEAR(out.im, -0.5, 1e-15);
    Zam64fc tiny{3e-300, 1e-300};
    ASSERT_EQ(zamsNormalize_64fc(&tiny, &out, 1, {0, 0}, {0, 1e-300}), zamStatusOk);
    EXPECT_NEAR(out.re, 1.0, 1e-15);
    EXPECT_NEAR(out.im, -3.0, 1e-15);
}

// Exact model: n 2^-sf / div rounded to nearest even, saturated, by 64-bit
// integer division.
Zam16s int_ref(int32_t n, int div, int sf) {
    if (n == 0) return 0;
    bool neg = (n < 0) != (div < 0);
    int64_t a = n < 0 ? -int64_t(n) : n, b = div < 0 ? -int64_t(div) : int64_t(div);
    int64_t num, den;
    if (sf >= 0) {
        if (sf >= 32) return 0;
        num = a;
        den = b << sf;
    } else {
        if (-sf >= 48) return neg ? -32768 : 32767;
        num = a << -sf;
        den = b;
    }
    int64_t q = num / den, r = num % den;
    if (2 * r > den || (2 * r == den && (q & 1))) ++q;
    if (neg) q = -q;
    return Zam16s(q > 32767 ? 32767 : q < -32768 ? -32768 : q);
}

const int kDivs[] = {1, -1, 2, 3, -7, 1000, -65536, INT_MAX, INT_MIN};
const int kFactors[] = {-60, -47, -46, -31, -16, -3, -1, 0, 1, 2, 5, 15, 16, 17, 31, 40};

TEST(Normalize, IntegerScaledQuotient) {
    auto v = zt::random_ints<Zam16s>(2000, 10);
    const Zam16s subs[] = {0, 1, -32768, 32767, 123};
    for (Zam16s sub : subs)
        for (int dv : kDivs)
            for (int sf : kFactors) {
                std::vector<Zam16s> out(v.size());
                ASSERT_EQ(zamsNormalize_16s_Sfs(v.data(), out.data(), int(v.size()), sub, dv, sf), zamStatusOk);
                for (size_t i = 0; i < v.size(); ++i)
                    ASSERT_EQ(out[i], int_ref(int32_t(v[i]) - sub, dv, sf)) << v[i] << " " << sub << " " << dv << " " << sf;
            }
    auto ref = [](Zam16s x) { return int_ref(int32_t(x) + 5, -3, -2); };
    zt::sweep_unary<Zam16s, Zam16s>([](const Zam16s* s, Zam16s* d, int n) { return zamsNormalize_16s_Sfs(s, d, n, -5, -3, -2); }, ref, v);
    zt::SweepOptions o2{.max_len = 50, .in_place = false};
    zt::sweep_unary<Zam16s, Zam16s>(in_place<Zam16s>([](Zam16s* d, int n) { return zamsNormalize_16s_ISfs(d, n, -5, -3, -2); }), ref, v, o2);
}

TEST(Normalize, IntegerComplexPartsApart) {
    auto v = zt::random_ints<Zam16s>(600, 11);
    std::vector<Zam16sc> x(300);
    for (int i = 0; i < 300; ++i) x[i] = {v[2 * i], v[2 * i + 1]};
    const Zam16sc sub{-100, 32767};
    for (int dv : kDivs)
        for (int sf : kFactors) {
            std::vector<Zam16sc> out(x.size());
            ASSERT_EQ(zamsNormalize_16sc_Sfs(x.data(), out.data(), 300, sub, dv, sf), zamStatusOk);
            for (int i = 0; i < 300; ++i) {
                ASSERT_EQ(out[i].re, int_ref(int32_t(x[i].re) - sub.re, dv, sf));
                ASSERT_EQ(out[i].im, int_ref(int32_t(x[i].im) - sub.im, dv, sf));
            }
        }
    auto ref = [&](Zam16sc e) { return Zam16sc{int_ref(e.re - sub.re, 7, 1), int_ref(e.im - sub.im, 7, 1)}; };
    auto eq = [](const Zam16sc& a, const Zam16sc& b) { return a.re == b.re && a.im == b.im; };
    zt::SweepOptions o{.max_len = 100};
    zt::sweep_unary<Zam16sc, Zam16sc>([&](const Zam16sc* s, Zam16sc* d, int n) { return zamsNormalize_16sc_Sfs(s, d, n, sub, 7, 1); }, ref, x, o, eq);
    o = {.max_len = 30, .in_place = false};
    zt::sweep_unary<Zam16sc, Zam16sc>(in_place<Zam16sc>([&](Zam16sc* d, int n) { return zamsNormalize_16sc_ISfs(d, n, sub, 7, 1); }), ref, x, o, eq);
}

// Pointers, then length, then the divisor; on any error nothing is written.
TEST(Normalize, ChecksAndZeroDivisor) {
    zt::Guarded<Zam64fc> buf(4);
    Zam64fc* d = buf.data();  // holds the guard pattern until something writes
    auto untouched = [&] {
        const uint8_t* p = reinterpret_cast<const uint8_t*>(d);
        for (size_t i = 0; i < 4 * sizeof(Zam64fc); ++i)
            if (p[i] != zt::Guarded<Zam64fc>::kPattern) return false;
        return buf.guards_intact();
    };
    const Zam64fc src[4] = {};
    const Zam64f* sr = &src[0].re;
    Zam64f* dr = &d[0].re;
    const Zam32f* sf = reinterpret_cast<const Zam32f*>(src);
    Zam32f* df = reinterpret_cast<Zam32f*>(d);
    const Zam16s* ss = reinterpret_cast<const Zam16s*>(src);
    Zam16s* ds = reinterpret_cast<Zam16s*>(d);

    EXPECT_EQ(zamsNormalize_32f(sf, df, 4, 0, 0.0f), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32f(sf, df, 4, 0, -0.0f), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32f(nullptr, df, 4, 0, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsNormalize_32f(sf, df, 0, 0, 0), zamStatusBadLength);
    EXPECT_EQ(zamsNormalize_32f_I(df, 4, 1, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32f_I(nullptr, -1, 1, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsNormalize_64f(sr, dr, 4, 0, 0.0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_64f(sr, nullptr, 0, 0, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsNormalize_64f_I(dr, -2, 0, 0), zamStatusBadLength);
    EXPECT_EQ(zamsNormalize_32fc(reinterpret_cast<const Zam32fc*>(src), reinterpret_cast<Zam32fc*>(d), 4, {1, 1}, {0, -0.0f}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32fc_I(reinterpret_cast<Zam32fc*>(d), 4, {}, {}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32fc_I(nullptr, 0, {}, {}), zamStatusNullPointer);
    EXPECT_EQ(zamsNormalize_64fc(src, d, 4, {}, {0, 0}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_64fc(src, d, 0, {}, {0, 0}), zamStatusBadLength);
    EXPECT_EQ(zamsNormalize_64fc_I(d, 4, {}, {}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16s_Sfs(ss, ds, 4, 0, 0, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16s_Sfs(ss, nullptr, 4, 0, 0, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsNormalize_16s_ISfs(ds, 0, 0, 0, 0), zamStatusBadLength);
    EXPECT_EQ(zamsNormalize_16s_ISfs(ds, 4, 0, 0, 3), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16sc_Sfs(reinterpret_cast<const Zam16sc*>(src), reinterpret_cast<Zam16sc*>(d), 4, {}, 0, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16sc_ISfs(reinterpret_cast<Zam16sc*>(d), 4, {}, 0, -1), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16sc_ISfs(nullptr, 4, {}, 0, -1), zamStatusNullPointer);
    EXPECT_TRUE(untouched());
}

// Special values pass through the float quotient.
TEST(Normalize, FloatSpecialValues) {
    const Zam32f inf = std::numeric_limits<float>::infinity();
    const Zam32f x[] = {inf, -inf, NAN, 1e-45f, 3e38f, 2.0f, 1.0f, 0.0f, 5.0f};
    Zam32f o[9];
    ASSERT_EQ(zamsNormalize_32f(x, o, 9, -3e38f, 1e-38f), zamStatusOk);
    for (int i = 0; i < 9; ++i) {
        Zam32f w = (x[i] - -3e38f) / 1e-38f;
        EXPECT_EQ(zt::bits(o[i]), zt::bits(w)) << i;
    }
    ASSERT_EQ(zamsNormalize_32f(x, o, 9, 1.0f, NAN), zamStatusOk);
    for (Zam32f e : o) EXPECT_TRUE(std::isnan(e));
}

ZAMS_DIGEST(normalize_sumln) {
    auto f = zt::random_reals<Zam32f>(256, 20, 0.001f, 500.0f);
    auto g = zt::random_reals<Zam64f>(256, 21, 0.001, 500.0);
    auto s = zt::random_ints<Zam16s>(256, 22);
    Zam32f r32;
    Zam64f r64;
    d.status(zamsSumLn_32f(f.data(), 256, &r32)); d.add(&r32, 1);
    d.status(zamsSumLn_32f64f(f.data(), 256, &r64)); d.add(&r64, 1);
    d.status(zamsSumLn_64f(g.data(), 256, &r64)); d.add(&r64, 1);
    std::vector<Zam16s> pos(256);
    for (int i = 0; i < 256; ++i) pos[i] = Zam16s(s[i] == 0 || s[i] == -32768 ? 1 : std::abs(s[i]));
    d.status(zamsSumLn_16s32f(pos.data(), 256, &r32)); d.add(&r32, 1);
    d.status(zamsSumLn_16s32f(s.data(), 256, &r32)); d.add(&r32, 1);

    std::vector<Zam32f> of(256);
    std::vector<Zam64f> og(256);
    d.status(zamsNormalize_32f(f.data(), of.data(), 256, 7.5f, -3.1f)); d.add(of);
    d.status(zamsNormalize_32f_I(of.data(), 256, -1.0f, 0.37f)); d.add(of);
    d.status(zamsNormalize_64f(g.data(), og.data(), 256, 7.5, -3.1)); d.add(og);
    d.status(zamsNormalize_64f_I(og.data(), 256, -1.0, 0.37)); d.add(og);
    std::vector<Zam32fc> cf(128);
    std::vector<Zam64fc> cg(128);
    d.status(zamsNormalize_32fc(reinterpret_cast<const Zam32fc*>(f.data()), cf.data(), 128, {1, 2}, {0.5f, -3})); d.add(cf);
    d.status(zamsNormalize_32fc_I(cf.data(), 128, {-1, 0}, {7, 0.25f})); d.add(cf);
    d.status(zamsNormalize_64fc(reinterpret_cast<const Zam64fc*>(g.data()), cg.data(), 128, {1, 2}, {0.5, -3})); d.add(cg);
    d.status(zamsNormalize_64fc_I(cg.data(), 128, {-1, 0}, {7, 0.25})); d.add(cg);
    std::vector<Zam16s> os(256);
    for (int sf : {-4, 0, 3}) {
        d.status(zamsNormalize_16s_Sfs(s.data(), os.data(), 256, 17, -5, sf)); d.add(os);
        d.status(zamsNormalize_16s_ISfs(os.data(), 256, -3, 3, sf)); d.add(os);
        std::vector<Zam16sc> oc(128);
        d.status(zamsNormalize_16sc_Sfs(reinterpret_cast<const Zam16sc*>(s.data()), oc.data(), 128, {5, -9}, 11, sf)); d.add(oc);
        d.status(zamsNormalize_16sc_ISfs(oc.data(), 128, {0, 1}, -2, sf)); d.add(oc);
    }
    d.status(zamsNormalize_32f(f.data(), of.data(), 256, 0, 0));
}

}  // namespace
