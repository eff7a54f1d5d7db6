// Floating point to integer (modes, scale factors, saturation, NaN), double
// to single, and the processor's rounding direction around the calls.
// Model: the scaled value in long double (exact: scaling by a power of two
// cannot round a value that still has an integer part), rounded by the C
// library, saturated.
#include <cfloat>
#include <cmath>
#include <limits>

#include "digest.h"
#include "convert_util.h"

namespace {

constexpr float kNaNf = std::numeric_limits<float>::quiet_NaN();
constexpr float kInff = std::numeric_limits<float>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

using ct::check_all;
using ct::P24;

enum class R { Zero, Even, Away };
R usual(int mode) { return mode == 1 ? R::Even : mode == 0 ? R::Zero : R::Away; }

// The multiplier: 1 halved sf times in single precision.
long double mult(int sf) { return sf >= 150 ? 0.0L : sf <= -128 ? HUGE_VALL : std::ldexp(1.0L, -sf); }

long double model(long double x, int sf, R r, long double lo, long double hi, long double nan) {
    long double p = x * mult(sf);
    if (std::isnan(p)) return nan;
    p = r == R::Even ? std::rint(p) : r == R::Zero ? std::trunc(p) : std::round(p);
    return p < lo ? lo : p > hi ? hi : p;
}

// Values that test the rounding and the bounds, then random ones.
std::vector<float> floats(size_t n, uint32_t seed) {
    std::vector<float> v = {0.5f, -0.5f, 1.5f, -1.5f, 2.5f, -2.5f, 0.49999997f, -0.49999997f, 0.50000006f,
                            kNaNf, -kNaNf, kInff, -kInff, -0.0f, 0.0f, 1e30f, -1e30f, 8388609.0f, -8388611.0f,
                            4194304.5f, 127.5f, 128.0f, -128.5f, -129.0f, 255.5f, 256.0f, 32767.5f, -32768.5f,
                            65535.5f, 65536.0f, 2147483520.0f, 2147483648.0f, -2147483648.0f, -2147483904.0f,
                            8388607.5f, 16777215.0f, -8388608.5f, 1e-40f, -1e-45f, 3.4e38f};
    auto r = zt::random_reals<float>(n, seed, -70000.0f, 70000.0f);
    auto k = zt::random_ints<int32_t>(n, seed + 1);
    for (size_t i = 0; v.size() < n; ++i) {
        switch (i % 4) {
            case 0: v.push_back(r[i]); break;
            case 1: v.push_back(float(k[i] % 70000) + 0.5f); break;  // ties
            case 2: v.push_back(r[i] * 1e-3f); break;
            default: v.push_back(std::ldexp(float(k[i] % 4096), int(i % 40) - 20)); break;
        }
    }
    return v;
}

std::vector<double> doubles(size_t n, uint32_t seed) {
    std::vector<double> v = {0.5, -0.5, 2.5, -2.5, 0.49999999999999994, -0.49999999999999994, kNaN, kInf, -kInf,
                             -0.0, 4503599627370497.0, 4503599627370496.5, -4503599627370495.5, 9.2233720368547748e18,
                             9223372036854775808.0, -9223372036854775808.0, -9.3e18, 1e300, -1e300,
                             2147483647.4, 2147483647.5, -2147483648.5, -2147483649.0, 32767.5, -32768.5, 1e-310};
    auto f = floats(n, seed);
    for (size_t i = 0; v.size() < n; ++i) v.push_back(i % 3 ? double(f[i]) : double(f[i]) * 1.00000001 * 65536.0);
    return v;
}

constexpr int kModes[] = {0, 1, 2, 3, -1, 7};
constexpr int kFactors[] = {INT32_MIN, -200, -128, -127, -40, -16, -1, 0, 1, 3, 16, 31, 126, 127, 149, 150, 1000, INT32_MAX};

// One member with a mode and a scale, fn(src, dst, len, mode, sf): every
// mode and factor, each call under one of the caller's rounding directions
// (all four turn up for every mode), which the results do not depend on and
// the call gives back; then every length and alignment at one mode and factor.
template <class S, class D, class Fn>
void modes_and_factors(const std::vector<S>& x, Fn fn, R (*rule)(int), long double lo, long double hi, long double nan,
                       const char* name) {
    const unsigned saved = _mm_getcsr();
    unsigned k = 0;
    for (int mode : kModes)
        for (int sf : kFactors) {
            const unsigned csr = (saved & ~0x6000u) | (k++ % 4) << 13;
            auto call = [&](const S* s, D* d, int n) {
                _mm_setcsr(csr);
                const zamStatus st = fn(s, d, n, zamRoundMode(mode), sf);
                const unsigned after = _mm_getcsr();
                _mm_setcsr(saved);
                EXPECT_EQ(after, csr) << name << " mode " << mode << " sf " << sf;
                return st;
            };
            check_all<S, D>(x, call, [&](S v) { return D(model(v, sf, rule(mode), lo, hi, nan)); },
                            std::string(name) + " mode " + std::to_string(mode) + " sf " + std::to_string(sf));
        }
    zt::sweep_unary<S, D>([&](const S* s, D* d, int n) { return fn(s, d, n, zamRoundHalfAway, -2); },
                          [&](S v) { return D(model(v, -2, rule(2), lo, hi, nan)); }, x, {.max_len = 100});
}

TEST(ConvertRound, FloatingToInteger) {
    auto x = floats(211, 1);
    modes_and_factors<Zam32f, Zam8s>(x, zamsConvert_32f8s_Sfs, usual, -128, 127, 127, "32f8s");
    modes_and_factors<Zam32f, Zam8u>(x, zamsConvert_32f8u_Sfs, usual, 0, 255, 255, "32f8u");
    modes_and_factors<Zam32f, Zam16s>(x, zamsConvert_32f16s_Sfs, usual, -32768, 32767, 32767, "32f16s");
    modes_and_factors<Zam32f, Zam16u>(x, zamsConvert_32f16u_Sfs, usual, 0, 65535, 65535, "32f16u");
    modes_and_factors<Zam32f, Zam32s>(x, zamsConvert_32f32s_Sfs, usual, INT32_MIN, INT32_MAX, INT32_MAX, "32f32s");
    auto xd = doubles(211, 2);
    modes_and_factors<Zam64f, Zam16s>(xd, zamsConvert_64f16s_Sfs, usual, -32768, 32767, 32767, "64f16s");
    // NaN passes both clamps of this member and converts to the smallest value.
    modes_and_factors<Zam64f, Zam32s>(xd, zamsConvert_64f32s_Sfs, usual, INT32_MIN, INT32_MAX, INT32_MIN, "64f32s");
    // Here 2 is half away, 1 nearest-even and anything else toward zero.
    auto rule64 = [](int m) { return m == 2 ? R::Away : m == 1 ? R::Even : R::Zero; };
    modes_and_factors<Zam64f, Zam64s>(xd, zamsConvert_64f64s_Sfs, +rule64, (long double)INT64_MIN,
                                      (long double)INT64_MAX, (long double)INT64_MAX, "64f64s");
}

TEST(ConvertRound, SingleToPacked24) {
    auto x = floats(211, 3);
    for (int sf : kFactors) {
        auto put = [&](auto lo, auto hi, auto nan) {
            return [=](Zam32f v) { return ct::p24(int64_t(model(v, sf, R::Even, lo, hi, nan))); };
        };
        check_all<Zam32f, P24>(
            x, [&](const Zam32f* s, P24* d, int n) { return zamsConvert_32f24s_Sfs(s, reinterpret_cast<Zam24s*>(d), n, sf); },
            put(-8388608, 8388607, 8388607), "32f24s sf " + std::to_string(sf));
        check_all<Zam32f, P24>(
            x, [&](const Zam32f* s, P24* d, int n) { return zamsConvert_32f24u_Sfs(s, reinterpret_cast<Zam24u*>(d), n, sf); },
            put(0, 16777215, 16777215), "32f24u sf " + std::to_string(sf));
    }
}

// Single to double and back; in place where the sizes match.
TEST(ConvertRound, SingleAndDoubleEveryLengthAndAlignment) {
    zt::SweepOptions o{.max_len = 100};
    zt::sweep_unary<Zam32f, Zam64f>(zamsConvert_32f64f, [](Zam32f v) { return double(v); }, floats(100, 4), o);
    zt::sweep_unary<Zam64f, Zam32f>(zamsConvert_64f32f, [](Zam64f v) {
        return std::isnan(v) ? float(v) : v > FLT_MAX ? FLT_MAX : v < -FLT_MAX ? -FLT_MAX : float(v); }, doubles(100, 5), o);
}

// The pointers are checked before the rounding mode.
TEST(ConvertRound, PointersBeforeMode) {
    Zam16s y[2] = {7, 7};
    EXPECT_EQ(zamsConvert_32f16s_Sfs(nullptr, y, 0, zamRoundMode(9), 0), zamStatusNullPointer);
    EXPECT_EQ(y[0], 7);
}

ZAMS_DIGEST(convert_round) {
    auto put = [&](zamStatus s, const auto& v) { d.status(s), d.add(v); };
    auto x = floats(301, 11);
    auto xd = doubles(301, 12);
    std::vector<Zam8s> y8(301);
    std::vector<Zam16s> y16(301);
    std::vector<Zam32s> y32(301);
    std::vector<Zam64s> y64(301);
    std::vector<Zam32f> yf(301);
    std::vector<Zam64f> yd(301);
    std::vector<Zam8u> y24(3 * 301);
    put(zamsConvert_32f64f(x.data(), yd.data(), 301), yd);
    put(zamsConvert_64f32f(xd.data(), yf.data(), 301), yf);
    for (int sf : {-200, -127, -9, 0, 1, 7, 30, 149, 150}) {
        put(zamsConvert_32f24s_Sfs(x.data(), y24.data(), 301, sf), y24);
        put(zamsConvert_32f24u_Sfs(x.data(), y24.data(), 301, sf), y24);
        for (int mode : {0, 1, 2, 3}) {
            auto m = zamRoundMode(mode);
            put(zamsConvert_32f8s_Sfs(x.data(), y8.data(), 301, m, sf), y8);
            put(zamsConvert_32f8u_Sfs(x.data(), reinterpret_cast<Zam8u*>(y8.data()), 301, m, sf), y8);
            put(zamsConvert_32f16s_Sfs(x.data(), y16.data(), 301, m, sf), y16);
            put(zamsConvert_32f16u_Sfs(x.data(), reinterpret_cast<Zam16u*>(y16.data()), 301, m, sf), y16);
            put(zamsConvert_32f32s_Sfs(x.data(), y32.data(), 301, m, sf), y32);
            put(zamsConvert_64f16s_Sfs(xd.data(), y16.data(), 301, m, sf), y16);
            put(zamsConvert_64f32s_Sfs(xd.data(), y32.data(), 301, m, sf), y32);
            put(zamsConvert_64f64s_Sfs(xd.data(), y64.data(), 301, m, sf), y64);
        }
    }
}

}  // namespace
