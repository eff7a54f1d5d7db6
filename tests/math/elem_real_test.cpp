// The second set of floating elementary functions (trigonometric,
// hyperbolic, powers, other bases, reciprocals, rounding): the error
// against MPFR over random bit patterns and ranges, by the bound each group
// of the header states; special values; in place against out of place.
#include <cmath>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"

#ifdef ZAMS_TEST_MPFR
#include <mpfr.h>
#endif

namespace {

using F32 = zamStatus (*)(const Zam32f*, Zam32f*, int);
using F32I = zamStatus (*)(Zam32f*, int);
using F64 = zamStatus (*)(const Zam64f*, Zam64f*, int);
using F64I = zamStatus (*)(Zam64f*, int);
using B32 = zamStatus (*)(const Zam32f*, const Zam32f*, Zam32f*, int);
using B64 = zamStatus (*)(const Zam64f*, const Zam64f*, Zam64f*, int);
#ifdef ZAMS_TEST_MPFR
using Ref1 = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using Ref2 = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);
int ref_inv(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t m) { return mpfr_ui_div(r, 1, x, m); }
int ref_10log10(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t m) {
    mpfr_log10(r, x, m);
    return mpfr_mul_ui(r, r, 10, m);
}
int ref_invcbrt(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t m) {
    mpfr_t c;
    mpfr_init2(c, 400);
    mpfr_cbrt(c, x, m);
    int t = mpfr_ui_div(r, 1, c, m);
    mpfr_clear(c);
    return t;
}
int ref_floor(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t) { return mpfr_floor(r, x); }
int ref_ceil(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t) { return mpfr_ceil(r, x); }
int ref_trunc(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t) { return mpfr_trunc(r, x); }
int ref_round(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t) { return mpfr_round(r, x); }
#else
using Ref1 = std::nullptr_t;
using Ref2 = std::nullptr_t;
constexpr Ref1 ref_inv = nullptr, ref_invcbrt = nullptr, ref_10log10 = nullptr, ref_floor = nullptr, ref_ceil = nullptr, ref_trunc = nullptr,
               ref_round = nullptr;
#define mpfr_sin nullptr
#define mpfr_cos nullptr
#define mpfr_tan nullptr
#define mpfr_asin nullptr
#define mpfr_acos nullptr
#define mpfr_sinh nullptr
#define mpfr_cosh nullptr
#define mpfr_tanh nullptr
#define mpfr_asinh nullptr
#define mpfr_acosh nullptr
#define mpfr_atanh nullptr
#define mpfr_log10 nullptr
#define mpfr_log2 nullptr
#define mpfr_exp2 nullptr
#define mpfr_exp10 nullptr
#define mpfr_expm1 nullptr
#define mpfr_log1p nullptr
#define mpfr_rec_sqrt nullptr
#define mpfr_frac nullptr
#define mpfr_erf nullptr
#define mpfr_erfc nullptr
#define mpfr_pow nullptr
#define mpfr_atan2 nullptr
#define mpfr_hypot nullptr
#endif

// One function in both precisions and both forms, its oracle, its bounds
// in ulps (0: exact), and the range where its interesting values lie.
struct Unary {
    const char* name;
    F32 f32;
    F32I f32i;
    F64 f64;
    F64I f64i;
    Ref1 ref;
    double b32, b64, lo, hi;
};

#define ROW(N) #N, zams##N##_32f, zams##N##_32f_I, zams##N##_64f, zams##N##_64f_I
const Unary kUnary[] = {
    {ROW(Sin), mpfr_sin, 1, 1, -10, 10},         {ROW(Cos), mpfr_cos, 1, 1, -10, 10},
    {ROW(Tan), mpfr_tan, 1, 1, -10, 10},         {ROW(Asin), mpfr_asin, 1, 2, -1, 1},
    {ROW(Acos), mpfr_acos, 1, 2, -1, 1},         {ROW(Tanh), mpfr_tanh, 1, 1, -5, 5},
    {ROW(Sinh), mpfr_sinh, 1, 1, -30, 30},       {ROW(Cosh), mpfr_cosh, 1, 1, -30, 30},
    {ROW(Log10), mpfr_log10, 1, 1, 0.5, 2},      {ROW(Log2), mpfr_log2, 1, 1, 0.5, 2},
    {ROW(10Log10), ref_10log10, 1, 1, 0, 1e4},   {ROW(Exp2), mpfr_exp2, 1, 1, -1100, 1100},
    {ROW(Exp10), mpfr_exp10, 1, 1, -330, 330},   {ROW(Inv), ref_inv, 0.5, 0.5, -4, 4},
    {ROW(InvSqrt), mpfr_rec_sqrt, 1, 1, 0, 100}, {ROW(Floor), ref_floor, 0, 0, -1e3, 1e3},
    {ROW(Ceil), ref_ceil, 0, 0, -1e3, 1e3},      {ROW(Trunc), ref_trunc, 0, 0, -1e3, 1e3},
    {ROW(Round), ref_round, 0, 0, -1e3, 1e3},    {ROW(Frac), mpfr_frac, 0, 0, -1e3, 1e3},
    {ROW(Expm1), mpfr_expm1, 1, 1, -2, 2},       {ROW(Log1p), mpfr_log1p, 1, 1, -0.9, 2},
    {ROW(Asinh), mpfr_asinh, 1, 2, -3, 3},       {ROW(Acosh), mpfr_acosh, 1, 2, 1, 3},
    {ROW(Atanh), mpfr_atanh, 1, 2, -1, 1},       {ROW(Erf), mpfr_erf, 1, 2, -4, 4},
    {ROW(Erfc), mpfr_erfc, 1, 2, -2, 27.3},      {ROW(InvCbrt), ref_invcbrt, 1, 1, -10, 10},
};
#undef ROW

struct Binary {
    const char* name;
    B32 f32;
    B64 f64;
    Ref2 ref;
    double b32, b64;
};
const Binary kBinary[] = {
    {"Pow", zamsPow_32f, zamsPow_64f, mpfr_pow, 1, 1},
    {"Atan2", zamsAtan2_32f, zamsAtan2_64f, mpfr_atan2, 1, 2},
    {"Hypot", zamsHypot_32f, zamsHypot_64f, mpfr_hypot, 1, 1},
};

// values near the half-integers, small integers and the type's edges
template <class F> std::vector<F> edges() {
    std::vector<F> v = {0, -0.0, 0.5, -0.5, 1.5, -2.5, 1, -1, 2, 10, 1e-30f, -1e-30f, 3e38f, -3e38f, 1e-45f, INFINITY, -INFINITY};
    v.push_back(std::nextafter(F(0.5), F(0)));
    v.push_back(std::nextafter(F(1), F(2)));
    v.push_back(std::numeric_limits<F>::max());
    v.push_back(std::numeric_limits<F>::denorm_min());
    v.push_back(-std::numeric_limits<F>::min());
    return v;
}

#ifdef ZAMS_TEST_MPFR
template <class F, class Fn> double worst_unary(Fn fn, Ref1 ref, const std::vector<F>& x, std::string* at) {
    std::vector<F> y(x.size());
    EXPECT_EQ(fn(x.data(), y.data(), int(x.size())), zamStatusOk);
    auto [w, i] = mt::worst(x.size(), [&](size_t i) { return mpfr_ulps(ref, double(x[i]), y[i]); });
    *at = std::to_string(double(x[i])) + " -> " + std::to_string(double(y[i]));
    return w;
}

// Each function, each precision: random bit patterns (every binade,
// subnormals, infinities) and random values in its range, within the
// header's bound; a non-exact function must show at least the rounding
// error, or the measurement saw nothing.
TEST(ElementaryReal, WithinStatedUlpsOfMpfr) {
    const size_t n = 6000;
    for (const Unary& u : kUnary) {
        std::string at;
        double w32 = 0, w64 = 0;
        uint32_t seed = 100;
        for (auto x : {mt::random_bits<Zam32f>(n, seed), zt::random_reals<Zam32f>(n, seed + 1, Zam32f(u.lo), Zam32f(u.hi)), edges<Zam32f>()}) {
            double w = worst_unary<Zam32f>(u.f32, u.ref, x, &at);
            EXPECT_LE(w, u.b32) << u.name << "_32f at " << at;
            w32 = std::max(w32, w);
            ++seed;
        }
        for (auto x : {mt::random_bits<Zam64f>(n, seed), zt::random_reals<Zam64f>(n, seed + 1, u.lo, u.hi), edges<Zam64f>()}) {
            double w = worst_unary<Zam64f>(u.f64, u.ref, x, &at);
            EXPECT_LE(w, u.b64) << u.name << "_64f at " << at;
            w64 = std::max(w64, w);
            ++seed;
        }
        if (u.b32 > 0.5) {
            EXPECT_GT(w32, 0.3) << u.name;
        }
        if (u.b64 > 0.5) {
            EXPECT_GT(w64, 0.3) << u.name;
        }
    }
}

// Arguments where the reductions are hardest: large phases, near the
// poles and roots, and near 1 for the logarithms.
TEST(ElementaryReal, HardArguments) {
    std::string at;
    std::vector<Zam64f> big = {1e22, 1e300, 0x1p1023, 6381956970095103.0 * 0x1p797, 5.319372648326541416e+255, 355.0, 710.0, 1.5707963267948966};
    for (F64 f : {zamsSin_64f, zamsCos_64f, zamsTan_64f})
        EXPECT_LE(worst_unary<Zam64f>(f, f == zamsSin_64f ? mpfr_sin : f == zamsCos_64f ? mpfr_cos : mpfr_tan, big, &at), 1.0) << at;
    auto near1 = zt::random_reals<Zam64f>(3000, 7, 1 - 1e-9, 1 + 1e-9);
    EXPECT_LE(worst_unary<Zam64f>(zamsLog10_64f, mpfr_log10, near1, &at), 1.0) << at;
    EXPECT_LE(worst_unary<Zam64f>(zamsLog2_64f, mpfr_log2, near1, &at), 1.0) << at;
    auto tiny = zt::random_reals<Zam64f>(3000, 8, -1e-12, 1e-12);
    for (auto [f, r] : {std::pair<F64, Ref1>{zamsExpm1_64f, mpfr_expm1}, {zamsLog1p_64f, mpfr_log1p}, {zamsSinh_64f, mpfr_sinh},
                        {zamsTanh_64f, mpfr_tanh}, {zamsAsinh_64f, mpfr_asinh}, {zamsAtanh_64f, mpfr_atanh}})
        EXPECT_LE(worst_unary<Zam64f>(f, r, tiny, &at), 1.0) << at;
    auto edge1 = zt::random_reals<Zam64f>(3000, 9, 1 - 1e-6, 1.0);
    EXPECT_LE(worst_unary<Zam64f>(zamsAsin_64f, mpfr_asin, edge1, &at), 2.0) << at;
    EXPECT_LE(worst_unary<Zam64f>(zamsAcos_64f, mpfr_acos, edge1, &at), 2.0) << at;
    EXPECT_LE(worst_unary<Zam64f>(zamsAtanh_64f, mpfr_atanh, edge1, &at), 2.0) << at;
    auto acosh1 = zt::random_reals<Zam64f>(3000, 10, 1.0, 1 + 1e-9);
    EXPECT_LE(worst_unary<Zam64f>(zamsAcosh_64f, mpfr_acosh, acosh1, &at), 2.0) << at;
    auto overflow = zt::random_reals<Zam64f>(3000, 11, 705, 712);
    EXPECT_LE(worst_unary<Zam64f>(zamsCosh_64f, mpfr_cosh, overflow, &at), 1.0) << at;
    EXPECT_LE(worst_unary<Zam64f>(zamsExpm1_64f, mpfr_expm1, overflow, &at), 1.0) << at;
}

template <class F, class Fn> double worst_binary(Fn fn, Ref2 ref, const std::vector<F>& a, const std::vector<F>& b, std::string* at) {
    std::vector<F> y(a.size());
    EXPECT_EQ(fn(a.data(), b.data(), y.data(), int(a.size())), zamStatusOk);
    auto [w, i] = mt::worst(a.size(), [&](size_t i) { return mpfr_ulps(ref, double(a[i]), double(b[i]), y[i]); });
    *at = std::to_string(double(a[i])) + ", " + std::to_string(double(b[i]));
    return w;
}

TEST(ElementaryReal, BinaryWithinStatedUlpsOfMpfr) {
    const size_t n = 20000;
    for (const Binary& f : kBinary) {
        std::string at;
        auto a32 = zt::random_reals<Zam32f>(n, 20, 0, 30), b32 = zt::random_reals<Zam32f>(n, 21, -30, 30);
        auto a64 = zt::random_reals<Zam64f>(n, 22, 0, 300), b64 = zt::random_reals<Zam64f>(n, 23, -120, 120);
        EXPECT_LE(worst_binary<Zam32f>(f.f32, f.ref, a32, b32, &at), f.b32) << f.name << " " << at;
        EXPECT_LE(worst_binary<Zam64f>(f.f64, f.ref, a64, b64, &at), f.b64) << f.name << " " << at;
        auto r32 = mt::random_bits<Zam32f>(n, 24), s32 = mt::random_bits<Zam32f>(n, 25);
        auto r64 = mt::random_bits<Zam64f>(n, 26), s64 = mt::random_bits<Zam64f>(n, 27);
        EXPECT_LE(worst_binary<Zam32f>(f.f32, f.ref, r32, s32, &at), f.b32) << f.name << " " << at;
        EXPECT_LE(worst_binary<Zam64f>(f.f64, f.ref, r64, s64, &at), f.b64) << f.name << " " << at;
    }
    // powers near 1 with large exponents, where ln x must carry many digits
    std::string at;
    auto x = zt::random_reals<Zam64f>(5000, 28, 0.999, 1.001), y = zt::random_reals<Zam64f>(5000, 29, -7e5, 7e5);
    EXPECT_LE(worst_binary<Zam64f>(zamsPow_64f, mpfr_pow, x, y, &at), 1.0) << at;
    // negative bases with integer exponents
    auto nx = zt::random_reals<Zam64f>(5000, 30, -10, 0);
    std::vector<Zam64f> ny(5000);
    for (size_t i = 0; i < ny.size(); ++i) ny[i] = double(int(i % 81) - 40);
    EXPECT_LE(worst_binary<Zam64f>(zamsPow_64f, mpfr_pow, nx, ny, &at), 1.0) << at;
}
#endif

// The special values each group's comment names, in both precisions.
TEST(ElementaryReal, SpecialValues) {
    const double inf = INFINITY, nan = NAN;
    struct Case {
        F64 f64;
        F32 f32;
        double x, want;
    } cases[] = {
        {zamsSin_64f, zamsSin_32f, inf, nan},           {zamsCos_64f, zamsCos_32f, nan, nan},
        {zamsSin_64f, zamsSin_32f, -0.0, -0.0},         {zamsTan_64f, zamsTan_32f, -inf, nan},
        {zamsAsin_64f, zamsAsin_32f, 1.0, M_PI_2},      {zamsAsin_64f, zamsAsin_32f, -1.5, nan},
        {zamsAcos_64f, zamsAcos_32f, -1.0, M_PI},       {zamsAcos_64f, zamsAcos_32f, 1.0, 0.0},
        {zamsTanh_64f, zamsTanh_32f, -inf, -1.0},       {zamsSinh_64f, zamsSinh_32f, -inf, -inf},
        {zamsCosh_64f, zamsCosh_32f, -inf, inf},        {zamsSinh_64f, zamsSinh_32f, 1000, inf},
        {zamsLog10_64f, zamsLog10_32f, 1000, 3},        {zamsLog10_64f, zamsLog10_32f, 0.0, -inf},
        {zamsLog2_64f, zamsLog2_32f, 0x1p-149, -149},   {zamsLog2_64f, zamsLog2_32f, -2.0, nan},
        {zamsExp2_64f, zamsExp2_32f, -149, 0x1p-149},   {zamsExp10_64f, zamsExp10_32f, 10, 1e10},
        {zamsExp2_64f, zamsExp2_32f, -inf, 0.0},        {zamsExp10_64f, zamsExp10_32f, 1e6, inf},
        {zams10Log10_64f, zams10Log10_32f, 100, 20},    {zams10Log10_64f, zams10Log10_32f, -0.0, -inf},
        {zamsInv_64f, zamsInv_32f, -0.0, -inf},         {zamsInvSqrt_64f, zamsInvSqrt_32f, 0.25, 2},
        {zamsInvSqrt_64f, zamsInvSqrt_32f, -1, nan},    {zamsInvSqrt_64f, zamsInvSqrt_32f, inf, 0},       {zamsInvSqrt_64f, zamsInvSqrt_32f, -0.0, inf},
        {zamsFloor_64f, zamsFloor_32f, -0.5, -1},       {zamsCeil_64f, zamsCeil_32f, -0.5, -0.0},
        {zamsRound_64f, zamsRound_32f, 2.5, 3},         {zamsRound_64f, zamsRound_32f, -0.5, -1},
        {zamsRound_64f, zamsRound_32f, 0.49999997, 0},  {zamsTrunc_64f, zamsTrunc_32f, -inf, -inf},
        {zamsFrac_64f, zamsFrac_32f, -2.75, -0.75},     {zamsFrac_64f, zamsFrac_32f, -inf, -0.0},
        {zamsFrac_64f, zamsFrac_32f, -3.0, -0.0},       {zamsExpm1_64f, zamsExpm1_32f, -inf, -1},
        {zamsLog1p_64f, zamsLog1p_32f, -1, -inf},       {zamsLog1p_64f, zamsLog1p_32f, -2, nan},
        {zamsAcosh_64f, zamsAcosh_32f, 0.5, nan},       {zamsAcosh_64f, zamsAcosh_32f, 1.0, 0.0},
        {zamsAtanh_64f, zamsAtanh_32f, -1.0, -inf},     {zamsAtanh_64f, zamsAtanh_32f, 2.0, nan},
        {zamsAsinh_64f, zamsAsinh_32f, -inf, -inf},     {zamsErf_64f, zamsErf_32f, -inf, -1},
        {zamsErfc_64f, zamsErfc_32f, -inf, 2},          {zamsErfc_64f, zamsErfc_32f, inf, 0},
        {zamsInvCbrt_64f, zamsInvCbrt_32f, -0.0, -inf}, {zamsInvCbrt_64f, zamsInvCbrt_32f, -8, -0.5},
    };
    for (const Case& c : cases) {
        Zam64f y;
        ASSERT_EQ(c.f64(&c.x, &y, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(y, c.want)) << c.x << " gave " << y << " want " << c.want;
        Zam32f xf = Zam32f(c.x), yf;
        ASSERT_EQ(c.f32(&xf, &yf, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(yf, Zam32f(c.want))) << xf << " gave " << yf << " (32f)";
    }
    struct Case2 {
        double a, b, pow, hypot;
    } two[] = {
        {nan, 0.0, 1, nan},    {1.0, nan, 1, nan},    {-0.0, -3, -inf, 3},   {0.0, -2, inf, 2},
        {-1, inf, 1, inf},     {0.5, -inf, inf, inf}, {-inf, 3, -inf, inf},  {-inf, -2, 0, inf},
        {-8, 1.0 / 3, nan, 8.00693},  {-2, 3, -8, 3.605551275463989}, {inf, nan, nan, inf}, {3, 4, 81, 5},
    };
    for (const Case2& c : two) {
        Zam64f p, h;
        ASSERT_EQ(zamsPow_64f(&c.a, &c.b, &p, 1), zamStatusOk);
        ASSERT_EQ(zamsHypot_64f(&c.a, &c.b, &h, 1), zamStatusOk);
        EXPECT_TRUE(mt::same(p, c.pow)) << c.a << "^" << c.b << " gave " << p;
        if (c.a != -8) {
            EXPECT_TRUE(mt::same(h, c.hypot)) << c.a << ", " << c.b << " gave " << h;
        }
    }
    // hypot neither overflows nor underflows on the way
    Zam64f big[2] = {1e300, 1e300}, small[2] = {0x1.8p-1060, 0x1p-1059}, h;
    EXPECT_EQ(mt::ok(zamsHypot_64f(big, big + 1, &h, 1), h), 1.4142135623730951e300);
    EXPECT_EQ(mt::ok(zamsHypot_64f(small, small + 1, &h, 1), h), 0x1.4p-1059);
    Zam64f ys[2] = {1.0, -1.0}, xs[2] = {-0.0, -0.0}, a2[2];
    ASSERT_EQ(zamsAtan2_64f(ys, xs, a2, 2), zamStatusOk);
    EXPECT_EQ(mt::first(a2, 2), (std::vector<Zam64f>{M_PI_2, -M_PI_2}));
    Zam32f sc[2], one = 0.5f;
    ASSERT_EQ(zamsSinCos_32f(&one, sc, sc + 1, 1), zamStatusOk);
    EXPECT_EQ(mt::first(sc, 2), (std::vector<Zam32f>{0.47942555f, 0.87758255f}));
}

// In place gives the out-of-place bits from any start; Powx equals Pow with
// the constant repeated; SinCos equals Sin and Cos; argument checks.
TEST(ElementaryReal, FormsAgree) {
    auto x32 = zt::random_reals<Zam32f>(301, 40, -20.0f, 20.0f);
    auto x64 = zt::random_reals<Zam64f>(301, 41, -20.0, 20.0);
    for (const Unary& u : kUnary) {
        std::vector<Zam32f> w32(301), io32 = x32;
        std::vector<Zam64f> w64(301), io64 = x64;
        ASSERT_EQ(u.f32(x32.data(), w32.data(), 301), zamStatusOk);
        ASSERT_EQ(u.f32i(io32.data() + 1, 300), zamStatusOk);
        ASSERT_EQ(u.f64(x64.data(), w64.data(), 301), zamStatusOk);
        ASSERT_EQ(u.f64i(io64.data() + 1, 300), zamStatusOk);
        EXPECT_TRUE(mt::same(io32[0], x32[0]) && mt::same(io64[0], x64[0])) << u.name;
        for (int i = 1; i < 301; ++i) {
            ASSERT_TRUE(mt::same(io32[i], w32[i])) << u.name << " " << i;
            ASSERT_TRUE(mt::same(io64[i], w64[i])) << u.name << " " << i;
        }
    }
    auto p32 = zt::random_reals<Zam32f>(301, 42, 0.0f, 4.0f);
    auto p64 = zt::random_reals<Zam64f>(301, 43, 0.0, 4.0);
    std::vector<Zam32f> c32(301, -2.5f), a32(301), b32 = p32;
    std::vector<Zam64f> c64(301, 7.25), a64(301), b64 = p64, d64(301);
    ASSERT_EQ(zamsPow_32f(p32.data(), c32.data(), a32.data(), 301), zamStatusOk);
    ASSERT_EQ(zamsPowx_32f_I(-2.5f, b32.data(), 301), zamStatusOk);
    ASSERT_EQ(zamsPow_64f(p64.data(), c64.data(), a64.data(), 301), zamStatusOk);
    ASSERT_EQ(zamsPowx_64f(p64.data(), 7.25, b64.data(), 301), zamStatusOk);
    EXPECT_EQ(a32, b32);
    ASSERT_EQ(zamsPowx_32f(p32.data(), -2.5f, b32.data(), 301), zamStatusOk);
    EXPECT_EQ(a32, b32);
    EXPECT_EQ(a64, b64);
    ASSERT_EQ(zamsPowx_64f_I(7.25, p64.data(), 301), zamStatusOk);
    EXPECT_EQ(p64, a64);
    std::vector<Zam64f> s(301), c(301);
    ASSERT_EQ(zamsSinCos_64f(x64.data(), s.data(), c.data(), 301), zamStatusOk);
    ASSERT_EQ(zamsSin_64f(x64.data(), a64.data(), 301), zamStatusOk);
    ASSERT_EQ(zamsCos_64f(x64.data(), d64.data(), 301), zamStatusOk);
    EXPECT_EQ(s, a64);
    EXPECT_EQ(c, d64);
}

ZAMS_DIGEST(elementary_real) {
    auto f = zt::random_reals<Zam32f>(800, 90, -40.0f, 40.0f);
    auto g = zt::random_reals<Zam64f>(800, 91, -40.0, 40.0);
    auto fb = mt::random_bits<Zam32f>(800, 92);
    auto gb = mt::random_bits<Zam64f>(800, 93);
    std::vector<Zam32f> yf(800);
    std::vector<Zam64f> yg(800);
    for (const Unary& u : kUnary) {
        mt::rec(d, u.f32(f.data(), yf.data(), 800), yf);
        mt::rec(d, u.f32(fb.data(), yf.data(), 800), yf);
        mt::rec(d, u.f64(g.data(), yg.data(), 800), yg);
        mt::rec(d, u.f64(gb.data(), yg.data(), 800), yg);
    }
    for (const Binary& b : kBinary) {
        mt::rec(d, b.f32(f.data(), fb.data(), yf.data(), 800), yf);
        mt::rec(d, b.f64(g.data(), gb.data(), yg.data(), 800), yg);
        mt::rec(d, b.f64(gb.data(), g.data(), yg.data(), 800), yg);
    }
}

}  // namespace
