// Sums of logarithms against long double logl sums; normalisation against
// same-precision, long double and exact integer models.
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

#include "digest.h"
#include "stats_util.h"
#include "sweep.h"

namespace {

using st::LD;
using st::ok;

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
            LD w32 = ln_sum(f.data(), n), w64 = ln_sum(g.data(), n);
            EXPECT_LE(std::fabs(LD(ok(zamsSumLn_32f(f.data(), n, &s32), s32)) - w32), 2 * ulp32(w32)) << n;
            EXPECT_LE(std::fabs(LD(ok(zamsSumLn_32f64f(f.data(), n, &s3264), s3264)) - w32), 1e-14L * std::fabs(w32)) << n;
            EXPECT_LE(std::fabs(LD(ok(zamsSumLn_64f(g.data(), n, &s64), s64)) - w64), 1e-14L * std::fabs(w64)) << n;
        }
    }
    // Many terms of one size: an uncompensated double sum drifts past the bound.
    std::vector<Zam64f> many(40000);
    for (size_t i = 0; i < many.size(); ++i) many[i] = 1.1 + 1e-6 * double(i % 97);
    Zam64f s = 0;
    LD w = ln_sum(many.data(), int(many.size()));
    EXPECT_LE(std::fabs(LD(ok(zamsSumLn_64f(many.data(), int(many.size()), &s), s)) - w), 1e-15L * w);
    // Values around 1 with logs of both signs: bounded by the magnitudes of the terms.
    auto mixed = zt::random_reals<Zam64f>(500, 5, 0.25, 4.0);
    LD mag = 0;
    for (Zam64f x : mixed) mag += std::fabs(logl(LD(x)));
    EXPECT_LE(std::fabs(LD(ok(zamsSumLn_64f(mixed.data(), 500, &s), s)) - ln_sum(mixed.data(), 500)), 1e-15L * mag);
}

TEST(SumLn, IntegerSource) {
    std::vector<Zam16s> v;
    for (int x = 1; x <= 32767; x += 97) v.push_back(Zam16s(x));
    v.push_back(32767);
    Zam32f s = 0;
    for (int n : {1, 2, 5, 64, int(v.size())}) {
        LD w = ln_sum(v.data(), n);
        EXPECT_LE(std::fabs(LD(ok(zamsSumLn_16s32f(v.data(), n, &s), s)) - w), 2 * ulp32(w)) << n;
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
    EXPECT_EQ(ok(zamsSumLn_64f(inf2, 3, &o64), o64), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(ok(zamsSumLn_64f(nan2, 3, &o64), o64)));
}

// ------------------------------------------------------------- Normalize

// Out of place over every length and alignment, then the in-place form
// driven like the two-pointer one (source copied to the destination first).
template <class T, class Ref, class Eq = zt::BitEqual>
void sweep_both(auto fn, auto fn_i, Ref ref, const std::vector<T>& x, int max_len, int max_len_i, Eq eq = {}) {
    zt::sweep_unary<T, T>(fn, ref, x, {.max_len = max_len}, eq);
    auto in_place = [&](const T* s, T* d, int n) { return std::memmove(d, s, size_t(n) * sizeof(T)), fn_i(d, n); };
    zt::sweep_unary<T, T>(in_place, ref, x, {.max_len = max_len_i, .in_place = false}, eq);
}

// Floating forms: (x - sub) / div; a complex quotient from the rounded
// difference, judged by `eq` against long double.
template <class T, class Eq = zt::BitEqual>
void float_normalize(zamStatus (*fn)(const T*, T*, int, T, T), zamStatus (*fn_i)(T*, int, T, T), T sub, T div,
                     const std::vector<T>& x, int max_len, int max_len_i, Eq eq = {}) {
    auto ref = [&](T e) {
        if constexpr (requires { e.re; }) {
            using P = decltype(e.re);
            LD a = P(e.re - sub.re), b = P(e.im - sub.im), c = div.re, d = div.im, den = c * c + d * d;
            return T{P((a * c + b * d) / den), P((b * c - a * d) / den)};
        } else {
            return T((e - sub) / div);
        }
    };
    sweep_both<T>([&](const T* s, T* d, int n) { return fn(s, d, n, sub, div); }, [&](T* d, int n) { return fn_i(d, n, sub, div); },
                  ref, x, max_len, max_len_i, eq);
}

// Single precision: each part within one float ulp of the exact quotient of
// the rounded difference.
struct WithinFloatUlp {
    bool operator()(const Zam32fc& got, const Zam32fc& want) const {
        return std::nextafter(want.re, -INFINITY) <= got.re && got.re <= std::nextafter(want.re, INFINITY) &&
               std::nextafter(want.im, -INFINITY) <= got.im && got.im <= std::nextafter(want.im, INFINITY);
    }
};

struct NearDouble {
    bool operator()(const Zam64fc& got, const Zam64fc& want) const {
        LD m = std::hypot(LD(want.re), LD(want.im));
        return std::fabs(LD(got.re) - want.re) <= 1e-15L * m && std::fabs(LD(got.im) - want.im) <= 1e-15L * m;
    }
};

TEST(Normalize, FloatingQuotients) {
    float_normalize<Zam32f>(zamsNormalize_32f, zamsNormalize_32f_I, 3.25f, -0.7f, zt::random_reals<Zam32f>(300, 6), 300, 70);
    float_normalize<Zam64f>(zamsNormalize_64f, zamsNormalize_64f_I, -11.5, 3.0, zt::random_reals<Zam64f>(300, 7), 300, 70);
    float_normalize<Zam32fc>(zamsNormalize_32fc, zamsNormalize_32fc_I, {1.5f, -2.25f}, {0.3f, -1.7f},
                             st::pairs<Zam32fc>(zt::random_reals<Zam32f>(600, 8)), 300, 50, WithinFloatUlp{});
    for (Zam64fc dv : {Zam64fc{0.3, -1.7}, Zam64fc{-4.0, 0.01}, Zam64fc{0, 2.5}})
        float_normalize<Zam64fc>(zamsNormalize_64fc, zamsNormalize_64fc_I, {-0.5, 8.0}, dv,
                                 st::pairs<Zam64fc>(zt::random_reals<Zam64f>(600, 9)), 60, 20, NearDouble{});
    // A purely real divisor gives the real quotients.
    Zam32fc one{7, -3}, out;
    EXPECT_TRUE(zt::BitEqual{}(ok(zamsNormalize_32fc(&one, &out, 1, {1, 1}, {2, 0}), out), Zam32fc{3.0f, -2.0f}));
    // Divisors whose squared magnitude leaves the double range.
    Zam64fc big{1e300, 0}, tiny{3e-300, 1e-300}, o;
    EXPECT_TRUE(NearDouble{}(ok(zamsNormalize_64fc(&big, &o, 1, {0, 0}, {1e300, 1e300}), o), {0.5, -0.5}));
    EXPECT_TRUE(NearDouble{}(ok(zamsNormalize_64fc(&tiny, &o, 1, {0, 0}, {0, 1e-300}), o), {1.0, -3.0}));
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

// Integer forms, complex parts apart: every divisor class and scale factor,
// then every length and alignment for one of them.
template <class T>
void int_normalize(zamStatus (*fn)(const T*, T*, int, T, int, int), zamStatus (*fn_i)(T*, int, T, int, int),
                   std::initializer_list<T> subs, const std::vector<T>& x, int max_len, int max_len_i) {
    auto model = [](T e, T sub, int dv, int sf) {
        if constexpr (requires { e.re; }) return T{int_ref(e.re - sub.re, dv, sf), int_ref(e.im - sub.im, dv, sf)};
        else return int_ref(int32_t(e) - sub, dv, sf);
    };
    for (T sub : subs)
        for (int dv : {1, -1, 2, 3, -7, 1000, -65536, INT_MAX, INT_MIN})
            for (int sf : {-60, -47, -46, -31, -16, -3, -1, 0, 1, 2, 5, 15, 16, 17, 31, 40}) {
                std::vector<T> out(x.size());
                ASSERT_EQ(fn(x.data(), out.data(), int(x.size()), sub, dv, sf), zamStatusOk);
                for (size_t i = 0; i < x.size(); ++i) ASSERT_TRUE(zt::BitEqual{}(out[i], model(x[i], sub, dv, sf))) << i << " " << dv << " " << sf;
            }
    const T sub = *subs.begin();
    sweep_both<T>([&](const T* s, T* d, int n) { return fn(s, d, n, sub, -3, -2); }, [&](T* d, int n) { return fn_i(d, n, sub, -3, -2); },
                  [&](T e) { return model(e, sub, -3, -2); }, x, max_len, max_len_i);
}

TEST(Normalize, IntegerScaledQuotient) {
    int_normalize<Zam16s>(zamsNormalize_16s_Sfs, zamsNormalize_16s_ISfs, {-5, 0, 1, -32768, 32767, 123}, zt::random_ints<Zam16s>(2000, 10), 300, 50);
    int_normalize<Zam16sc>(zamsNormalize_16sc_Sfs, zamsNormalize_16sc_ISfs, {{-100, 32767}}, st::pairs<Zam16sc>(zt::random_ints<Zam16s>(600, 11)), 100, 30);
}

// Pointers, then length, then the divisor; on any error nothing is written.
TEST(Normalize, ChecksAndZeroDivisor) {
    // An empty guarded buffer: every byte around its start is a guard, so
    // any write through d shows.
    zt::Guarded<Zam64fc> buf(0);
    Zam64fc* d = buf.data();
    const Zam64fc src[4] = {};
    const Zam64f* sr = &src[0].re;
    Zam64f* dr = &d[0].re;
    const Zam32f* sf = reinterpret_cast<const Zam32f*>(src);
    Zam32f* df = reinterpret_cast<Zam32f*>(d);
    const Zam16s* ss = reinterpret_cast<const Zam16s*>(src);
    Zam16s* ds = reinterpret_cast<Zam16s*>(d);

    EXPECT_EQ(zamsNormalize_32f(sf, df, 4, 0, 0.0f), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32f(sf, df, 4, 0, -0.0f), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32f_I(df, 4, 1, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_64f(sr, dr, 4, 0, 0.0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32fc(reinterpret_cast<const Zam32fc*>(src), reinterpret_cast<Zam32fc*>(d), 4, {1, 1}, {0, -0.0f}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_32fc_I(reinterpret_cast<Zam32fc*>(d), 4, {}, {}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_64fc(src, d, 4, {}, {0, 0}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_64fc_I(d, 4, {}, {}), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16s_Sfs(ss, ds, 4, 0, 0, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16s_ISfs(ds, 4, 0, 0, 3), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16sc_Sfs(reinterpret_cast<const Zam16sc*>(src), reinterpret_cast<Zam16sc*>(d), 4, {}, 0, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsNormalize_16sc_ISfs(reinterpret_cast<Zam16sc*>(d), 4, {}, 0, -1), zamStatusDivideByZero);
    EXPECT_TRUE(buf.guards_intact());
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
