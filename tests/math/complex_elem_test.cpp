// Complex Exp, Ln, Sin, Cos: each part against its MPFR formula, special
// values, in place against out of place.
#include <cmath>

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

enum class Op { Exp, Ln, Sin, Cos };
struct Row {
    const char* name;
    Op op;
    C32 f32;
    C32I f32i;
    C64 f64;
    C64I f64i;
};
#define ROW(N) #N, Op::N, zams##N##_32fc, zams##N##_32fc_I, zams##N##_64fc, zams##N##_64fc_I
const Row kRows[] = {{ROW(Exp)}, {ROW(Ln)}, {ROW(Sin)}, {ROW(Cos)}};
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
    }
    mpfr_clears(x, y, t, u, (mpfr_ptr)nullptr);
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
            EXPECT_LE((worst<Zam32fc, Zam32f>(r.op, r.f32, z32, &at)), 1.0) << r.name << "_32fc at " << at;
            EXPECT_LE((worst<Zam64fc, Zam64f>(r.op, r.f64, z64, &at)), 2.0) << r.name << "_64fc at " << at;
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
    };
    for (const Case& c : cases) {
        Zam64fc y;
        ASSERT_EQ(c.f(&c.z, &y, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(y, c.want)) << c.z.re << " + i " << c.z.im << " gave " << y.re << " + i " << y.im;
    }
    // |z| beyond the range: ln|z| without overflow on the way
    Zam64fc big = {1e308, 1e308}, y;
    ASSERT_EQ(zamsLn_64fc(&big, &y, 1), zamStatusOk);
    EXPECT_NEAR(y.re, 709.1962086421661 + M_LN2 / 2, 1e-12);
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
        EXPECT_EQ(r.f64(z64.data(), nullptr, 3), zamStatusNullPointer);
        EXPECT_EQ(r.f32i(io32.data(), 0), zamStatusBadLength);
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
}

}  // namespace
