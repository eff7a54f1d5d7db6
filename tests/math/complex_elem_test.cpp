// Complex Exp, Ln, Sin, Cos, Tan, Tanh, Pow, Powx: each part against its
// MPFR formula, special values, in place against out of place.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"

#ifdef ZAMS_TEST_MPFR
#include <mpfr.h>
#endif

namespace {

using C32 = zamStatus (*)(const Zam32fc*, Zam32fc*, int);
using C32I = zamStatus (*)(Zam32fc*, int);
using C64 = zamStatus (*)(const Zam64fc*, Zam64fc*, int);
using C64I = zamStatus (*)(Zam64fc*, int);

enum class Op { Exp, Ln, Sin, Cos, Tan, Tanh };
struct Row {
    const char* name;
    Op op;
    C32 f32;
    C32I f32i;
    C64 f64;
    C64I f64i;
};
#define ROW(N) #N, Op::N, zams##N##_32fc, zams##N##_32fc_I, zams##N##_64fc, zams##N##_64fc_I
const Row kRows[] = {{ROW(Exp)}, {ROW(Ln)}, {ROW(Sin)}, {ROW(Cos)}, {ROW(Tan)}, {ROW(Tanh)}};
#undef ROW

#ifdef ZAMS_TEST_MPFR
// the exact parts of op(a + ib) at 200 bits
void exact(Op op, double a, double b, mpfr_ptr re, mpfr_ptr im) {
    mpfr_t x, y, t, u;
    mpfr_inits2(200, x, y, t, u, (mpfr_ptr)nullptr);
    mpfr_set_d(x, a, MPFR_RNDN);
    mpfr_set_d(y, b, MPFR_RNDN);
    switch (op) {
    case Op::Exp:
        mpfr_exp(t, x, MPFR_RNDN);
        mpfr_sin_cos(im, re, y, MPFR_RNDN);
        mpfr_mul(re, re, t, MPFR_RNDN);
        mpfr_mul(im, im, t, MPFR_RNDN);
        break;
    case Op::Ln:
        mpfr_hypot(t, x, y, MPFR_RNDN);
        mpfr_log(re, t, MPFR_RNDN);
        mpfr_atan2(im, y, x, MPFR_RNDN);
        break;
    case Op::Sin:
    case Op::Cos:
        mpfr_sin_cos(t, u, x, MPFR_RNDN);  // sin a, cos a
        mpfr_cosh(re, y, MPFR_RNDN);
        mpfr_sinh(im, y, MPFR_RNDN);
        if (op == Op::Sin) {
            mpfr_mul(re, re, t, MPFR_RNDN);
            mpfr_mul(im, im, u, MPFR_RNDN);
        } else {
            mpfr_mul(re, re, u, MPFR_RNDN);
            mpfr_mul(im, im, t, MPFR_RNDN);
            mpfr_neg(im, im, MPFR_RNDN);
        }
        break;
    case Op::Tan:  // (sin 2a + i sinh 2b) / (cos 2a + cosh 2b)
    case Op::Tanh:  // (sinh 2a + i sin 2b) / (cosh 2a + cos 2b)
        mpfr_mul_2si(x, x, 1, MPFR_RNDN);
        mpfr_mul_2si(y, y, 1, MPFR_RNDN);
        if (op == Op::Tan) mpfr_swap(x, y);
        mpfr_sinh_cosh(re, t, x, MPFR_RNDN);
        mpfr_sin_cos(im, u, y, MPFR_RNDN);
        mpfr_add(t, t, u, MPFR_RNDN);
        mpfr_div(re, re, t, MPFR_RNDN);
        mpfr_div(im, im, t, MPFR_RNDN);
        if (op == Op::Tan) mpfr_swap(re, im);
        break;
    }
    mpfr_clears(x, y, t, u, (mpfr_ptr)nullptr);
}

// a^w = exp(w ln a) at 200 bits
void exact_pow(double a, double b, double c, double d, mpfr_ptr re, mpfr_ptr im) {
    mpfr_t x, y, lr, th, wr, wi, t;
    mpfr_inits2(200, x, y, lr, th, wr, wi, t, (mpfr_ptr)nullptr);
    mpfr_set_d(x, a, MPFR_RNDN);
    mpfr_set_d(y, b, MPFR_RNDN);
    mpfr_hypot(lr, x, y, MPFR_RNDN);
    mpfr_log(lr, lr, MPFR_RNDN);
    mpfr_atan2(th, y, x, MPFR_RNDN);
    mpfr_mul_d(wr, lr, c, MPFR_RNDN);
    mpfr_mul_d(t, th, d, MPFR_RNDN);
    mpfr_sub(wr, wr, t, MPFR_RNDN);
    mpfr_mul_d(wi, th, c, MPFR_RNDN);
    mpfr_mul_d(t, lr, d, MPFR_RNDN);
    mpfr_add(wi, wi, t, MPFR_RNDN);
    mpfr_exp(t, wr, MPFR_RNDN);
    mpfr_sin_cos(im, re, wi, MPFR_RNDN);
    mpfr_mul(re, re, t, MPFR_RNDN);
    mpfr_mul(im, im, t, MPFR_RNDN);
    mpfr_clears(x, y, lr, th, wr, wi, t, (mpfr_ptr)nullptr);
}


// the larger ulp error of the two parts, each in its own binade
template <class C, class F> double worst(Op op, zamStatus (*fn)(const C*, C*, int), const std::vector<C>& z, std::string* at) {
    std::vector<C> y(z.size());
    EXPECT_EQ(fn(z.data(), y.data(), int(z.size())), zamStatusOk);
    mpfr_t re, im;
    mpfr_inits2(200, re, im, (mpfr_ptr)nullptr);
    double w = 0;
    for (size_t i = 0; i < z.size(); ++i) {
        exact(op, z[i].re, z[i].im, re, im);
        double e = std::max(ulps_or_special<F>(re, y[i].re), ulps_or_special<F>(im, y[i].im));
        if (e > w) {
            w = e;
            *at = std::to_string(z[i].re) + " + i " + std::to_string(z[i].im);
        }
    }
    mpfr_clears(re, im, (mpfr_ptr)nullptr);
    return w;
}

TEST(ElementaryComplex, EachPartWithinStatedUlpsOfMpfr) {
    const size_t n = 4000;
    for (const Row& r : kRows) {
        // the real part of Exp and the imaginary part of Sin and Cos within
        // the range where the result is finite
        double lo = r.op == Op::Ln ? -1e3 : -20, hi = -lo;
        for (uint32_t seed : {1u, 2u}) {
            std::string at;
            auto z32 = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(2 * n, seed, Zam32f(lo), Zam32f(hi)));
            auto z64 = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, seed + 10, lo, hi));
            double w32 = worst<Zam32fc, Zam32f>(r.op, r.f32, z32, &at);
            EXPECT_LE(w32, 1.0) << r.name << "_32fc at " << at;
            double w64 = worst<Zam64fc, Zam64f>(r.op, r.f64, z64, &at);
            EXPECT_LE(w64, 2.0) << r.name << "_64fc at " << at;
            std::printf("[ measured ] %s: 32fc %.3f ulps, 64fc %.3f ulps, each part\n", r.name, w32, w64);
        }
    }
    // Ln on random bit patterns (every binade, subnormal and huge parts) and
    // near the unit circle
    std::string at;
    auto b64 = mt::as_complex<Zam64fc>(mt::random_bits<Zam64f>(2 * n, 5));
    EXPECT_LE((worst<Zam64fc, Zam64f>(Op::Ln, zamsLn_64fc, b64, &at)), 2.0) << at;
    std::vector<Zam64fc> circle(n);
    auto t = zt::random_reals<Zam64f>(n, 6, -3.0, 3.0);
    for (size_t i = 0; i < n; ++i) circle[i] = {std::cos(t[i]) * (1 + 1e-9), std::sin(t[i])};
    EXPECT_LE((worst<Zam64fc, Zam64f>(Op::Ln, zamsLn_64fc, circle, &at)), 2.0) << at;
    // Exp where e^re alone would overflow or underflow but the parts do not
    auto big = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, 7, 705, 712));
    for (auto& z : big) z.im = z.im - 708.5;  // im in [-3.5, 3.5]
    EXPECT_LE((worst<Zam64fc, Zam64f>(Op::Exp, zamsExp_64fc, big, &at)), 2.0) << at;
    // Tanh where |re| passes the point after which the real part is +-1
    auto far = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, 8, -40, 40));
    for (auto& z : far) z.re += z.re < 0 ? -10 : 10;
    EXPECT_LE((worst<Zam64fc, Zam64f>(Op::Tanh, zamsTanh_64fc, far, &at)), 2.0) << at;
    EXPECT_LE((worst<Zam64fc, Zam64f>(Op::Tan, zamsTan_64fc, mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, 9, -1e6, 1e6)), &at)), 2.0) << at;
}

// The largest error of Pow (w of each element) and Powx (w = val), in ulps
// of the larger exact part.
template <class C, class F> double pow_worst(const std::vector<C>& z, const std::vector<C>& w, F val, std::string* at) {
    std::vector<C> y(z.size()), yx(z.size());
    zamStatus st, stx;
    if constexpr (sizeof(F) == 4) st = zamsPow_32fc(z.data(), w.data(), y.data(), int(z.size())), stx = zamsPowx_32fc(z.data(), val, yx.data(), int(z.size()));
    else st = zamsPow_64fc(z.data(), w.data(), y.data(), int(z.size())), stx = zamsPowx_64fc(z.data(), val, yx.data(), int(z.size()));
    EXPECT_EQ(st, zamStatusOk);
    EXPECT_EQ(stx, zamStatusOk);
    mpfr_t re, im;
    mpfr_inits2(200, re, im, (mpfr_ptr)nullptr);
    double worst = 0;
    for (size_t i = 0; i < z.size(); ++i) {
        exact_pow(z[i].re, z[i].im, w[i].re, w[i].im, re, im);
        double e = ulps_of_larger<F>(re, im, y[i].re, y[i].im);
        exact_pow(z[i].re, z[i].im, val, 0, re, im);
        e = std::max(e, ulps_of_larger<F>(re, im, yx[i].re, yx[i].im));
        if (e > worst) {
            worst = e;
            *at = std::to_string(z[i].re) + " + i " + std::to_string(z[i].im) + " ^ " + std::to_string(w[i].re) + " + i " +
                  std::to_string(w[i].im) + " / " + std::to_string(val);
        }
    }
    mpfr_clears(re, im, (mpfr_ptr)nullptr);
    return worst;
}

// moduli below m lifted to m: the powers stay within the type's range
template <class C> std::vector<C> at_least(std::vector<C> z, double m) {
    for (C& c : z) {
        double r = std::hypot(double(c.re), double(c.im));
        if (r < m) c.re = decltype(c.re)(c.re * (m / r) * 1.01), c.im = decltype(c.im)(c.im * (m / r) * 1.01);
    }
    return z;
}

TEST(ElementaryComplex, PowWithinStatedUlpsOfMpfr) {
    const size_t n = 3000;
    std::string at;
    double w32 = 0, w64 = 0;
    for (uint32_t seed : {1u, 2u, 3u}) {
        // exponents up to 64 in modulus, bases whose powers stay in range
        auto z32 = at_least(mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(2 * n, seed, -1.4f, 1.4f)), 0.5);
        auto e32 = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(2 * n, seed + 10, -16.0f, 16.0f));
        w32 = std::max(w32, pow_worst<Zam32fc, Zam32f>(z32, e32, Zam32f(-21.0f * float(seed)), &at));
        EXPECT_LE(w32, 2.0) << at;
        auto z64 = at_least(mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, seed + 20, -8.0, 8.0)), 0.25);
        auto e64 = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(2 * n, seed + 30, -64.0, 64.0));
        for (size_t i = 0; i < n; i += 3) e64[i].im *= 0.05;  // keep some results far from the range limits
        w64 = std::max(w64, pow_worst<Zam64fc, Zam64f>(z64, e64, 63.7 - 40.1 * seed, &at));
        EXPECT_LE(w64, 4.0) << at;
    }
    // near the unit circle, where ln|z| is small and the angle carries all
    std::vector<Zam64fc> circ(n), ex(n);
    auto t = zt::random_reals<Zam64f>(2 * n, 40, -3.14, 3.14);
    for (size_t i = 0; i < n; ++i) circ[i] = {std::cos(t[i]) * (1 + 1e-12), std::sin(t[i])}, ex[i] = {t[n + i] * 20, t[i] / 7};
    w64 = std::max(w64, pow_worst<Zam64fc, Zam64f>(circ, ex, 64.0, &at));
    EXPECT_LE(w64, 4.0) << at;
    // a measurement that sees the rounding at all
    EXPECT_GT(w32, 0.4);
    EXPECT_GT(w64, 0.4);
    std::printf("[ measured ] Pow/Powx: 32fc %.3f ulps, 64fc %.3f ulps of the larger part\n", w32, w64);
}
#endif

TEST(ElementaryComplex, SpecialValues) {
    const double inf = INFINITY, nan = NAN;
    struct Case {
        C64 f;
        Zam64fc z, want;
    } cases[] = {
        {zamsExp_64fc, {0, 0}, {1, 0}},         {zamsExp_64fc, {-inf, 1}, {0, 0}},
        {zamsExp_64fc, {inf, 0}, {inf, 0}},     {zamsExp_64fc, {1, inf}, {nan, nan}},
        {zamsExp_64fc, {800, -0.0}, {inf, -0.0}}, {zamsExp_64fc, {0, M_PI}, {-1, 1.2246467991473532e-16}},
        {zamsLn_64fc, {0, 0}, {-inf, 0}},       {zamsLn_64fc, {-0.0, -0.0}, {-inf, -M_PI}},
        {zamsLn_64fc, {-1, 0}, {0, M_PI}},      {zamsLn_64fc, {nan, inf}, {inf, nan}},
        {zamsLn_64fc, {nan, 1}, {nan, nan}},
        {zamsSin_64fc, {inf, 0}, {nan, nan}},   {zamsSin_64fc, {0, 1}, {0, 1.1752011936438014}},
        {zamsCos_64fc, {0, 1}, {1.5430806348152437, -0.0}}, {zamsCos_64fc, {1, nan}, {nan, nan}},
        // Tanh far out: +-1 and a zero signed as sin 2y; NaN x keeps a zero y
        {zamsTanh_64fc, {-500, 2}, {-1, -0.0}},
        {zamsTanh_64fc, {inf, -1}, {1, -0.0}},  {zamsTanh_64fc, {-inf, inf}, {-1, 0.0}},
        {zamsTanh_64fc, {-inf, -nan}, {-1, -0.0}}, {zamsTanh_64fc, {nan, -0.0}, {nan, -0.0}},
        {zamsTanh_64fc, {nan, 1}, {nan, nan}}, {zamsTanh_64fc, {1, inf}, {nan, nan}},
        {zamsTanh_64fc, {-0.0, 0}, {-0.0, 0}}, {zamsTanh_64fc, {0, M_PI_2}, {0, 0x1.d02967c31cdb5p+53}},
        {zamsTan_64fc, {1, 0}, {1.5574077246549023, 0}}, {zamsTan_64fc, {-2, -0.0}, {2.1850398632615189, -0.0}},
        {zamsTan_64fc, {0.5, 800}, {0, 1}},    {zamsTan_64fc, {nan, 0}, {nan, 0}},
    };
    for (const Case& c : cases) {
        Zam64fc y;
        ASSERT_EQ(c.f(&c.z, &y, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(y, c.want)) << c.z.re << " + i " << c.z.im << " gave " << y.re << " + i " << y.im;
    }
    // Tanh past |x| = 22: the imaginary part keeps its digits
    Zam64fc t = {30, 2}, u;
    ASSERT_EQ(zamsTanh_64fc(&t, &u, 1), zamStatusOk);
    EXPECT_EQ(u.re, 1.0);
    EXPECT_NEAR(u.im / -1.325389839079891e-26, 1.0, 1e-14);
    // |z| beyond the range: ln|z| without overflow on the way
    Zam64fc big = {1e308, 1e308}, y;
    ASSERT_EQ(zamsLn_64fc(&big, &y, 1), zamStatusOk);
    EXPECT_NEAR(y.re, 709.1962086421661 + M_LN2 / 2, 1e-12);
}

TEST(ElementaryComplex, PowSpecialValues) {
    const double inf = INFINITY, nan = NAN;
    struct Case {
        Zam64fc z, w, want;
    } cases[] = {
        {{nan, 2}, {0, -0.0}, {1, 0}},        {{0, 0}, {0, 0}, {1, 0}},           {{2, 0}, {10, 0}, {1024, 0}},
        {{0, -0.0}, {2, 5}, {0, 0}},          {{-0.0, 0}, {-1, 0}, {inf, 0}},     {{0, 0}, {-1, 1}, {nan, nan}},
        {{0, 0}, {0, 1}, {nan, nan}},         {{1, nan}, {1, 0}, {nan, nan}},     {{2, 1}, {inf, 0}, {nan, nan}},
        {{inf, 0}, {2, 0}, {inf, 0}},         {{inf, 0}, {-2, 0}, {0, 0}},        {{inf, 1}, {1, 1}, {nan, nan}},
        {{-inf, 0}, {1, 0}, {-inf, inf}},     {{0, -inf}, {-1, 0}, {0, 0}},
        {{-8, 0}, {1.0 / 3, 0}, {1.0000000000000002, 1.7320508075688772}},  // the principal root
        {{0, 1}, {2, 0}, {-1, 1.2246467991473532e-16}}, {{2, 0}, {1e6, 0}, {inf, 0}}, {{2, 0}, {-1e6, 0}, {0, 0}},
    };
    for (const Case& c : cases) {
        Zam64fc y;
        ASSERT_EQ(zamsPow_64fc(&c.z, &c.w, &y, 1), zamStatusOk);
        bool ok = mt::same(y, c.want) || (std::isfinite(c.want.re) && std::fabs(y.re - c.want.re) <= 4e-16 * std::fabs(c.want.re) &&
                                          std::fabs(y.im - c.want.im) <= 4e-16 * std::max(std::fabs(c.want.re), std::fabs(c.want.im)));
        EXPECT_TRUE(ok) << c.z.re << " + i " << c.z.im << " ^ " << c.w.re << " + i " << c.w.im << " gave " << y.re << " + i " << y.im;
    }
    // Powx is Pow with a real exponent, in both precisions and in place
    auto z32 = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(402, 50, -3.0f, 3.0f));
    auto z64 = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(402, 51, -3.0, 3.0));
    z64[7] = {0, 0}, z32[9] = {-0.0f, NAN};
    std::vector<Zam32fc> e32(200, Zam32fc{-2.5f, 0}), p32(200), io32 = z32;
    std::vector<Zam64fc> e64(200, Zam64fc{-2.5, 0}), p64(200), io64 = z64;
    ASSERT_EQ(zamsPow_32fc(z32.data(), e32.data(), p32.data(), 200), zamStatusOk);
    ASSERT_EQ(zamsPowx_32fc_I(-2.5f, io32.data(), 200), zamStatusOk);
    ASSERT_EQ(zamsPow_64fc(z64.data(), e64.data(), p64.data(), 200), zamStatusOk);
    ASSERT_EQ(zamsPowx_64fc_I(-2.5, io64.data(), 200), zamStatusOk);
    for (int i = 0; i < 200; ++i) ASSERT_TRUE(mt::same(io32[i], p32[i]) && mt::same(io64[i], p64[i])) << i;
    EXPECT_TRUE(mt::same(io32[200], z32[200]) && mt::same(io64[200], z64[200]));
}

TEST(ElementaryComplex, InPlaceAndChecks) {
    auto z32 = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(402, 30, -5.0f, 5.0f));
    auto z64 = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(402, 31, -5.0, 5.0));
    for (const Row& r : kRows) {
        std::vector<Zam32fc> w32(201), io32 = z32;
        std::vector<Zam64fc> w64(201), io64 = z64;
        ASSERT_EQ(r.f32(z32.data(), w32.data(), 201), zamStatusOk);
        ASSERT_EQ(r.f32i(io32.data() + 1, 200), zamStatusOk);
        ASSERT_EQ(r.f64(z64.data(), w64.data(), 201), zamStatusOk);
        ASSERT_EQ(r.f64i(io64.data() + 1, 200), zamStatusOk);
        EXPECT_TRUE(mt::same(io32[0], z32[0]) && mt::same(io64[0], z64[0]));
        for (int i = 1; i < 201; ++i) ASSERT_TRUE(mt::same(io32[i], w32[i]) && mt::same(io64[i], w64[i])) << r.name << i;
    }
}

ZAMS_DIGEST(elementary_complex) {
    auto z32 = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(1200, 60, -30.0f, 30.0f));
    auto z64 = mt::as_complex<Zam64fc>(zt::random_reals<Zam64f>(1200, 61, -30.0, 30.0));
    auto b64 = mt::as_complex<Zam64fc>(mt::random_bits<Zam64f>(1200, 62));
    std::vector<Zam32fc> y32(600);
    std::vector<Zam64fc> y64(600);
    for (const Row& r : kRows) {
        mt::rec(d, r.f32(z32.data(), y32.data(), 600), y32);
        mt::rec(d, r.f64(z64.data(), y64.data(), 600), y64);
        mt::rec(d, r.f64(b64.data(), y64.data(), 600), y64);
    }
    // the first half of each vector raised to the second half
    y32.resize(300), y64.resize(300);
    mt::rec(d, zamsPow_32fc(z32.data(), z32.data() + 300, y32.data(), 300), y32);
    mt::rec(d, zamsPowx_32fc(z32.data(), -3.7f, y32.data(), 300), y32);
    mt::rec(d, zamsPow_64fc(z64.data(), z64.data() + 300, y64.data(), 300), y64);
    mt::rec(d, zamsPow_64fc(b64.data(), b64.data() + 300, y64.data(), 300), y64);
    mt::rec(d, zamsPowx_64fc(z64.data(), 11.25, y64.data(), 300), y64);
}

}  // namespace
