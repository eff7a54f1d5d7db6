// Norms and dot products against long double and exact integer models.
#include <cmath>
#include <limits>

#include "digest.h"
#include "stats_util.h"

namespace {

using st::LD;
using st::ok;
using st::pairs;
using st::scaled;
template <class T> LD re(const T& v) {
    if constexpr (std::is_arithmetic_v<T>) return LD(v);
    else return LD(v.re);
}
template <class T> LD im(const T& v) {
    if constexpr (std::is_arithmetic_v<T>) return 0;
    else return LD(v.im);
}

struct Norms {
    LD inf = 0, l1 = 0, l2sq = 0;
};
template <class T> Norms model(const T* a, const T* b, int n) {
    Norms r;
    for (int i = 0; i < n; ++i) {
        LD x = re(a[i]) - (b ? re(b[i]) : 0), y = im(a[i]) - (b ? im(b[i]) : 0);
        LD m = std::sqrt(x * x + y * y);
        r.inf = std::max(r.inf, m), r.l1 += m, r.l2sq += x * x + y * y;
    }
    return r;
}

#define NEAR_REL(got, want, rel) EXPECT_LE(std::fabs(LD(got) - (want)), (rel) * std::fabs(want) + 1e-300L)

// Each floating norm and difference norm, at several lengths and alignments.
template <class S, class DI, class D1, class D2>
void float_norms(const std::vector<S>& x, const std::vector<S>& y, LD rel, zamStatus (*inf)(const S*, int, DI*),
                 zamStatus (*l1)(const S*, int, D1*), zamStatus (*l2)(const S*, int, D2*),
                 zamStatus (*dinf)(const S*, const S*, int, DI*), zamStatus (*dl1)(const S*, const S*, int, D1*),
                 zamStatus (*dl2)(const S*, const S*, int, D2*)) {
    for (int len : {1, 2, 3, 5, 16, 33, 100, 513}) {
        for (size_t off : {size_t(0), sizeof(S) / 2, size_t(24)}) {
            zt::Guarded<S> a(len, off), b(len, 64 - off);
            a.copy_from(x.data());
            b.copy_from(y.data());
            Norms n = model<S>(a.data(), nullptr, len), m = model<S>(a.data(), b.data(), len);
            const LD rel_inf = std::max(rel, LD(std::numeric_limits<DI>::epsilon()) / 2);
            DI vi;
            D1 v1;
            D2 v2;
            NEAR_REL(ok(inf(a.data(), len, &vi), vi), n.inf, rel_inf);
            NEAR_REL(ok(l1(a.data(), len, &v1), v1), n.l1, rel);
            NEAR_REL(ok(l2(a.data(), len, &v2), v2), std::sqrt(n.l2sq), rel);
            NEAR_REL(ok(dinf(a.data(), b.data(), len, &vi), vi), m.inf, rel_inf);
            NEAR_REL(ok(dl1(a.data(), b.data(), len, &v1), v1), m.l1, rel);
            NEAR_REL(ok(dl2(a.data(), b.data(), len, &v2), v2), std::sqrt(m.l2sq), rel);
        }
    }
}

TEST(Norm, FloatingTypes) {
    auto f = zt::random_reals<Zam32f>(1100, 1), g = zt::random_reals<Zam32f>(1100, 2);
    auto d = zt::random_reals<Zam64f>(1100, 3), e = zt::random_reals<Zam64f>(1100, 4);
    float_norms<Zam32f>(f, g, 1.2e-7L, zamsNorm_Inf_32f, zamsNorm_L1_32f, zamsNorm_L2_32f, zamsNormDiff_Inf_32f,
                        zamsNormDiff_L1_32f, zamsNormDiff_L2_32f);
    float_norms<Zam64f>(d, e, 1e-14L, zamsNorm_Inf_64f, zamsNorm_L1_64f, zamsNorm_L2_64f, zamsNormDiff_Inf_64f,
                        zamsNormDiff_L1_64f, zamsNormDiff_L2_64f);
    float_norms<Zam32fc>(pairs<Zam32fc>(f), pairs<Zam32fc>(g), 1e-14L, zamsNorm_Inf_32fc32f, zamsNorm_L1_32fc64f,
                         zamsNorm_L2_32fc64f, zamsNormDiff_Inf_32fc32f, zamsNormDiff_L1_32fc64f, zamsNormDiff_L2_32fc64f);
    float_norms<Zam64fc>(pairs<Zam64fc>(d), pairs<Zam64fc>(e), 1e-14L, zamsNorm_Inf_64fc64f, zamsNorm_L1_64fc64f,
                         zamsNorm_L2_64fc64f, zamsNormDiff_Inf_64fc64f, zamsNormDiff_L1_64fc64f, zamsNormDiff_L2_64fc64f);
    // The complex infinity norm is single precision: correctly rounded.
    Zam32fc c[2] = {{3, 4}, {-5, 12}};
    Zam32f v;
    EXPECT_EQ(ok(zamsNorm_Inf_32fc32f(c, 2, &v), v), 13.0f);
    Zam64f nan_in[3] = {1, NAN, 2}, r;
    EXPECT_TRUE(std::isnan(ok(zamsNorm_Inf_64f(nan_in, 3, &r), r)));
}

TEST(Norm, Integer16s) {
    auto x = zt::random_ints<Zam16s>(2000, 5), y = zt::random_ints<Zam16s>(2000, 6);
    for (int len : {1, 2, 7, 300, 2000}) {
        for (bool diff : {false, true}) {
            Norms m = model<Zam16s>(x.data(), diff ? y.data() : nullptr, len);
            // the norm or the difference norm, by `diff`; checks the status and gives the result
            auto run = [&](auto norm, auto norm_diff, auto out, auto... sf) {
                return ok(diff ? norm_diff(x.data(), y.data(), len, &out, sf...) : norm(x.data(), len, &out, sf...), out);
            };
            EXPECT_EQ(run(zamsNorm_Inf_16s32f, zamsNormDiff_Inf_16s32f, Zam32f{}), float(m.inf));
            EXPECT_EQ(run(zamsNorm_L1_16s32f, zamsNormDiff_L1_16s32f, Zam32f{}), float(m.l1));
            NEAR_REL(run(zamsNorm_L2_16s32f, zamsNormDiff_L2_16s32f, Zam32f{}), std::sqrt(m.l2sq), 6e-8L);
            for (int sf : {-70, -33, -31, -1, 0, 1, 5, 31, 32, 33, 64}) {
                EXPECT_EQ(run(zamsNorm_Inf_16s32s_Sfs, zamsNormDiff_Inf_16s32s_Sfs, Zam32s{}, sf), scaled(m.inf, sf, INT32_MIN, INT32_MAX));
                EXPECT_EQ(run(zamsNorm_L1_16s32s_Sfs, zamsNormDiff_L1_16s32s_Sfs, Zam32s{}, sf), scaled(m.l1, sf, INT32_MIN, INT32_MAX));
                EXPECT_EQ(run(zamsNorm_L1_16s64s_Sfs, zamsNormDiff_L1_16s64s_Sfs, Zam64s{}, sf), scaled(m.l1, sf, INT64_MIN, INT64_MAX));
                EXPECT_EQ(run(zamsNorm_L2Sqr_16s64s_Sfs, zamsNormDiff_L2Sqr_16s64s_Sfs, Zam64s{}, sf), scaled(m.l2sq, sf, INT64_MIN, INT64_MAX))
                    << len << " " << sf;
                // The L2 norm: the factor taken modulo 32, truncated.
                int k = sf >= 0 ? sf % 32 : -(-sf % 32);
                LD want = std::min(2147483647.0L, std::trunc(std::ldexp(std::sqrt(m.l2sq), -k)));
                EXPECT_NEAR(LD(run(zamsNorm_L2_16s32s_Sfs, zamsNormDiff_L2_16s32s_Sfs, Zam32s{}, sf)), want,
                            want * 1e-15L + (want < 2147483647.0L ? 1 : 0)) << len << " " << sf;
            }
        }
    }
    Zam16s one[1] = {3};
    Zam32s s;
    EXPECT_EQ(ok(zamsNorm_L2_16s32s_Sfs(one, 1, &s, 33), s), 1);  // 3 / 2 truncated, as for factor 1
    EXPECT_EQ(ok(zamsNorm_L2_16s32s_Sfs(one, 1, &s, -34), s), 12);
}

// ------------------------------------------------------------ dot products

template <class A, class B> void dot_model(const A* a, const B* b, int n, LD* r, LD* i) {
    *r = *i = 0;
    for (int k = 0; k < n; ++k) {
        *r += re(a[k]) * re(b[k]) - im(a[k]) * im(b[k]);
        *i += re(a[k]) * im(b[k]) + im(a[k]) * re(b[k]);
    }
}

template <class A, class B, class D> void check_float_dot(zamStatus (*fn)(const A*, const B*, int, D*),
                                                          const std::vector<A>& a, const std::vector<B>& b, LD rel) {
    for (int len : {1, 3, 4, 15, 16, 17, 100, 400}) {
        LD r, i, ar = 0;
        dot_model(a.data(), b.data(), len, &r, &i);
        for (int k = 0; k < len; ++k) ar += std::fabs(re(a[k]) * re(b[k])) + std::fabs(im(a[k]) * im(b[k])) +
                                            std::fabs(re(a[k]) * im(b[k])) + std::fabs(im(a[k]) * re(b[k]));
        D got;
        ok(fn(a.data(), b.data(), len, &got), got);
        // Accumulated in double: the error is a rounding of the result plus
        // a tiny share of the sum of magnitudes.
        EXPECT_LE(std::fabs(re(got) - r), rel * std::fabs(r) + 1e-15L * ar) << len;
        EXPECT_LE(std::fabs(im(got) - i), rel * std::fabs(i) + 1e-15L * ar) << len;
    }
}

TEST(DotProd, FloatingPairs) {
    auto f = zt::random_reals<Zam32f>(900, 7), g = zt::random_reals<Zam32f>(900, 8);
    auto d = zt::random_reals<Zam64f>(900, 9), e = zt::random_reals<Zam64f>(900, 10);
    auto fc = pairs<Zam32fc>(f), gc = pairs<Zam32fc>(g);
    auto dc = pairs<Zam64fc>(d), ec = pairs<Zam64fc>(e);
    check_float_dot(zamsDotProd_32f, f, g, 6e-8L);
    check_float_dot(zamsDotProd_32fc, fc, gc, 6e-8L);
    check_float_dot(zamsDotProd_32f32fc, f, gc, 6e-8L);
    check_float_dot(zamsDotProd_32f64f, f, g, 1.2e-16L);
    check_float_dot(zamsDotProd_32fc64fc, fc, gc, 1.2e-16L);
    check_float_dot(zamsDotProd_32f32fc64fc, f, gc, 1.2e-16L);
    check_float_dot(zamsDotProd_64f, d, e, 1.2e-16L);
    check_float_dot(zamsDotProd_64fc, dc, ec, 1.2e-16L);
    check_float_dot(zamsDotProd_64f64fc, d, ec, 1.2e-16L);
    // Alignment does not change the bits.
    for (size_t off : {4, 8, 20, 36}) {
        zt::Guarded<Zam32f> a(777, off), b(777, 60 - off);
        a.copy_from(f.data());
        b.copy_from(g.data());
        Zam32f x, y;
        EXPECT_EQ(zt::bits(ok(zamsDotProd_32f(a.data(), b.data(), 777, &x), x)), zt::bits(ok(zamsDotProd_32f(f.data(), g.data(), 777, &y), y)));
    }
}

// The 16-bit-result rule: factor limited to [-15, 31]; rounding to even.
LD dp16(LD s, int sf) {
    sf = std::max(-15, std::min(31, sf));
    return scaled(s, sf, -32768, 32767);
}

template <class A, class B, class D, class Rule>
void check_int_dot(zamStatus (*fn)(const A*, const B*, int, D*, int), const std::vector<A>& a,
                   const std::vector<B>& b, Rule rule) {
    for (int len : {1, 2, 9, 100, 700})
        for (int sf : {-40, -16, -15, -3, 0, 1, 2, 13, 31, 32, 45}) {
            LD r, i;
            dot_model(a.data(), b.data(), len, &r, &i);
            D got;
            EXPECT_EQ(re(ok(fn(a.data(), b.data(), len, &got, sf), got)), rule(r, sf)) << len << " " << sf;
            EXPECT_EQ(im(got), rule(i, sf)) << len << " " << sf;
        }
}

template <class D, class = void> struct Part { using type = D; };
template <class D> struct Part<D, std::void_t<decltype(D{}.re)>> { using type = decltype(D{}.re); };

template <class A, class B, class D> void check_exact_dot(zamStatus (*fn)(const A*, const B*, int, D*),
                                                          const std::vector<A>& a, const std::vector<B>& b) {
    for (int len : {1, 5, 700}) {
        LD r, i;
        dot_model(a.data(), b.data(), len, &r, &i);
        D got;
        using P = typename Part<D>::type;
        EXPECT_EQ(re(ok(fn(a.data(), b.data(), len, &got), got)), LD(P(r))) << len;  // exact, then rounded once to the result type
        EXPECT_EQ(im(got), LD(P(i))) << len;
    }
}

TEST(DotProd, IntegerPairs) {
    auto s = zt::random_ints<Zam16s>(1400, 11), t = zt::random_ints<Zam16s>(1400, 12);
    auto sc = pairs<Zam16sc>(s), tc = pairs<Zam16sc>(t);
    // 32-bit sources kept small enough for the long double model.
    std::vector<Zam32s> u(1400), v(1400);
    std::mt19937 g(13);
    for (auto& x : u) x = Zam32s(g() % 2000001) - 1000000;
    for (auto& x : v) x = Zam32s(g() % 2000001) - 1000000;
    auto uc = pairs<Zam32sc>(u), vc = pairs<Zam32sc>(v);
    auto r32 = [](LD x, int sf) { return scaled(x, sf, INT32_MIN, INT32_MAX); };
    check_int_dot(zamsDotProd_16s_Sfs, s, t, dp16);
    check_int_dot(zamsDotProd_16sc_Sfs, sc, tc, dp16);
    check_int_dot(zamsDotProd_16s16sc_Sfs, s, tc, dp16);
    check_int_dot(zamsDotProd_16s32s_Sfs, s, t, r32);
    check_int_dot(zamsDotProd_16s32s32s_Sfs, s, v, r32);
    check_int_dot(zamsDotProd_16s16sc32sc_Sfs, s, tc, r32);
    check_int_dot(zamsDotProd_16sc32sc_Sfs, sc, tc, r32);
    check_int_dot(zamsDotProd_32s_Sfs, u, v, r32);
    check_int_dot(zamsDotProd_32sc_Sfs, uc, vc, r32);
    check_int_dot(zamsDotProd_32s32sc_Sfs, u, vc, r32);
    check_exact_dot(zamsDotProd_16s32f, s, t);
    check_exact_dot(zamsDotProd_16sc32fc, sc, tc);
    check_exact_dot(zamsDotProd_16s16sc32fc, s, tc);
    check_exact_dot(zamsDotProd_16s64s, s, t);
    check_exact_dot(zamsDotProd_16sc64sc, sc, tc);
    check_exact_dot(zamsDotProd_16s16sc64sc, s, tc);

    // Sums beyond 64 bits stay exact: 3 (2^31 - 1)^2 / 2^40.
    const Zam32s big[3] = {INT32_MAX, INT32_MAX, INT32_MAX};
    Zam32s w;
    EXPECT_EQ(ok(zamsDotProd_32s_Sfs(big, big, 3, &w, 40), w), scaled(3.0L * 2147483647.0L * 2147483647.0L, 40, INT32_MIN, INT32_MAX));
    const Zam32sc cb[2] = {{INT32_MAX, INT32_MIN}, {INT32_MIN, INT32_MIN}};
    Zam32sc wc;
    ok(zamsDotProd_32sc_Sfs(cb, cb, 2, &wc, 62), wc);
    LD cr, ci;
    dot_model(cb, cb, 2, &cr, &ci);
    EXPECT_EQ(wc.re, scaled(cr, 62, INT32_MIN, INT32_MAX));
    EXPECT_EQ(wc.im, scaled(ci, 62, INT32_MIN, INT32_MAX));
}

ZAMS_DIGEST(norms_and_dots) {
    auto f = zt::random_reals<Zam32f>(600, 20), g = zt::random_reals<Zam32f>(600, 21);
    auto e = zt::random_reals<Zam64f>(600, 22), h = zt::random_reals<Zam64f>(600, 23);
    auto s = zt::random_ints<Zam16s>(600, 24), t = zt::random_ints<Zam16s>(600, 25);
    auto u = zt::random_ints<Zam32s>(600, 26), v = zt::random_ints<Zam32s>(600, 27);
    auto fc = pairs<Zam32fc>(f), gc = pairs<Zam32fc>(g);
    auto ec = pairs<Zam64fc>(e), hc = pairs<Zam64fc>(h);
    auto sc = pairs<Zam16sc>(s), tc = pairs<Zam16sc>(t);
    auto uc = pairs<Zam32sc>(u), vc = pairs<Zam32sc>(v);
    const int n = 299;
    Zam32f r32;
    Zam64f r64;
    Zam32s i32;
    Zam64s i64;
#define D1(call, out) d.status(call); d.add(&out, 1);
    D1(zamsNorm_Inf_32f(f.data(), n, &r32), r32) D1(zamsNorm_L1_32f(f.data(), n, &r32), r32) D1(zamsNorm_L2_32f(f.data(), n, &r32), r32)
    D1(zamsNorm_Inf_64f(e.data(), n, &r64), r64) D1(zamsNorm_L1_64f(e.data(), n, &r64), r64) D1(zamsNorm_L2_64f(e.data(), n, &r64), r64)
    D1(zamsNorm_Inf_16s32f(s.data(), n, &r32), r32) D1(zamsNorm_L1_16s32f(s.data(), n, &r32), r32) D1(zamsNorm_L2_16s32f(s.data(), n, &r32), r32)
    D1(zamsNorm_Inf_32fc32f(fc.data(), n, &r32), r32) D1(zamsNorm_L1_32fc64f(fc.data(), n, &r64), r64) D1(zamsNorm_L2_32fc64f(fc.data(), n, &r64), r64)
    D1(zamsNorm_Inf_64fc64f(ec.data(), n, &r64), r64) D1(zamsNorm_L1_64fc64f(ec.data(), n, &r64), r64) D1(zamsNorm_L2_64fc64f(ec.data(), n, &r64), r64)
    D1(zamsNormDiff_Inf_32f(f.data(), g.data(), n, &r32), r32) D1(zamsNormDiff_L1_32f(f.data(), g.data(), n, &r32), r32) D1(zamsNormDiff_L2_32f(f.data(), g.data(), n, &r32), r32)
    D1(zamsNormDiff_Inf_64f(e.data(), h.data(), n, &r64), r64) D1(zamsNormDiff_L1_64f(e.data(), h.data(), n, &r64), r64) D1(zamsNormDiff_L2_64f(e.data(), h.data(), n, &r64), r64)
    D1(zamsNormDiff_Inf_16s32f(s.data(), t.data(), n, &r32), r32) D1(zamsNormDiff_L1_16s32f(s.data(), t.data(), n, &r32), r32) D1(zamsNormDiff_L2_16s32f(s.data(), t.data(), n, &r32), r32)
    D1(zamsNormDiff_Inf_32fc32f(fc.data(), gc.data(), n, &r32), r32) D1(zamsNormDiff_L1_32fc64f(fc.data(), gc.data(), n, &r64), r64) D1(zamsNormDiff_L2_32fc64f(fc.data(), gc.data(), n, &r64), r64)
    D1(zamsNormDiff_Inf_64fc64f(ec.data(), hc.data(), n, &r64), r64) D1(zamsNormDiff_L1_64fc64f(ec.data(), hc.data(), n, &r64), r64) D1(zamsNormDiff_L2_64fc64f(ec.data(), hc.data(), n, &r64), r64)
    for (int sf : {-3, 0, 4, 35}) {
        D1(zamsNorm_Inf_16s32s_Sfs(s.data(), n, &i32, sf), i32) D1(zamsNorm_L1_16s32s_Sfs(s.data(), n, &i32, sf), i32)
        D1(zamsNorm_L2_16s32s_Sfs(s.data(), n, &i32, sf), i32) D1(zamsNorm_L1_16s64s_Sfs(s.data(), n, &i64, sf), i64)
        D1(zamsNorm_L2Sqr_16s64s_Sfs(s.data(), n, &i64, sf), i64)
        D1(zamsNormDiff_Inf_16s32s_Sfs(s.data(), t.data(), n, &i32, sf), i32) D1(zamsNormDiff_L1_16s32s_Sfs(s.data(), t.data(), n, &i32, sf), i32)
        D1(zamsNormDiff_L2_16s32s_Sfs(s.data(), t.data(), n, &i32, sf), i32) D1(zamsNormDiff_L1_16s64s_Sfs(s.data(), t.data(), n, &i64, sf), i64)
        D1(zamsNormDiff_L2Sqr_16s64s_Sfs(s.data(), t.data(), n, &i64, sf), i64)
        Zam16s r16;
        Zam16sc c16;
        Zam32sc c32;
        D1(zamsDotProd_16s_Sfs(s.data(), t.data(), n, &r16, sf), r16) D1(zamsDotProd_16sc_Sfs(sc.data(), tc.data(), n, &c16, sf), c16)
        D1(zamsDotProd_16s16sc_Sfs(s.data(), tc.data(), n, &c16, sf), c16) D1(zamsDotProd_16s32s_Sfs(s.data(), t.data(), n, &i32, sf), i32)
        D1(zamsDotProd_16s32s32s_Sfs(s.data(), u.data(), n, &i32, sf), i32) D1(zamsDotProd_16s16sc32sc_Sfs(s.data(), tc.data(), n, &c32, sf), c32)
        D1(zamsDotProd_16sc32sc_Sfs(sc.data(), tc.data(), n, &c32, sf), c32) D1(zamsDotProd_32s_Sfs(u.data(), v.data(), n, &i32, sf), i32)
        D1(zamsDotProd_32sc_Sfs(uc.data(), vc.data(), n, &c32, sf), c32) D1(zamsDotProd_32s32sc_Sfs(u.data(), vc.data(), n, &c32, sf), c32)
    }
    Zam32fc c32f;
    Zam64fc c64f;
    Zam64sc c64s;
    D1(zamsDotProd_32f(f.data(), g.data(), n, &r32), r32) D1(zamsDotProd_32fc(fc.data(), gc.data(), n, &c32f), c32f)
    D1(zamsDotProd_32f32fc(f.data(), gc.data(), n, &c32f), c32f) D1(zamsDotProd_32f64f(f.data(), g.data(), n, &r64), r64)
    D1(zamsDotProd_32fc64fc(fc.data(), gc.data(), n, &c64f), c64f) D1(zamsDotProd_32f32fc64fc(f.data(), gc.data(), n, &c64f), c64f)
    D1(zamsDotProd_64f(e.data(), h.data(), n, &r64), r64) D1(zamsDotProd_64fc(ec.data(), hc.data(), n, &c64f), c64f)
    D1(zamsDotProd_64f64fc(e.data(), hc.data(), n, &c64f), c64f) D1(zamsDotProd_16s32f(s.data(), t.data(), n, &r32), r32)
    D1(zamsDotProd_16sc32fc(sc.data(), tc.data(), n, &c32f), c32f) D1(zamsDotProd_16s16sc32fc(s.data(), tc.data(), n, &c32f), c32f)
    D1(zamsDotProd_16s64s(s.data(), t.data(), n, &i64), i64) D1(zamsDotProd_16sc64sc(sc.data(), tc.data(), n, &c64s), c64s)
    D1(zamsDotProd_16s16sc64sc(s.data(), tc.data(), n, &c64s), c64s)
#undef D1
}

}  // namespace
