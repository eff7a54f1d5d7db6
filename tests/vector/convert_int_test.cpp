// Integer widening and narrowing, and integer to floating point.
// Models: exact long double arithmetic (a 64-bit significand holds every
// source value and every scaled value exactly), rounded by the C library.
#include <cfloat>
#include <cmath>
#include <functional>

#include "digest.h"
#include "convert_util.h"

namespace {

using namespace ct;

std::vector<P24> random24(size_t n, uint32_t seed) {
    auto w = zt::random_ints<int32_t>(n, seed);
    std::vector<P24> v(n);
    for (size_t i = 0; i < n; ++i) v[i] = p24(w[i] % 4 == 0 ? (w[i] < 0 ? -8388608 : 8388607) : w[i]);
    return v;
}

long double sat(long double v, long double lo, long double hi) { return v < lo ? lo : v > hi ? hi : v; }

// x * 2^-sf rounded by mode: 1 nearest-even, 0 toward zero, other half away.
long double scaled(long double x, int sf, int mode) {
    long double v = std::ldexp(x, -sf);
    return mode == 1 ? std::rint(v) : mode == 0 ? std::trunc(v) : std::round(v);
}

constexpr int kModes[] = {0, 1, 2, 3, -1};

// ---- exact conversions and 64-bit integers to double: every length and alignment ----

TEST(ConvertInt, WideningAndToFloat) {
    zt::SweepOptions o{.max_len = 120};
    zt::sweep_unary<Zam8s, Zam16s>(zamsConvert_8s16s, [](Zam8s x) { return Zam16s(x); }, zt::random_ints<Zam8s>(o.max_len, 1), o);
    zt::sweep_unary<Zam16s, Zam32s>(zamsConvert_16s32s, [](Zam16s x) { return Zam32s(x); }, zt::random_ints<Zam16s>(o.max_len, 2), o);
    auto p = random24(o.max_len, 3);
    zt::sweep_unary<P24, Zam32s>([](const P24* s, Zam32s* d, int n) { return zamsConvert_24s32s(raw(s), d, n); }, s24, p, o);
    zt::sweep_unary<P24, Zam32u>([](const P24* s, Zam32u* d, int n) { return zamsConvert_24u32u(raw(s), d, n); }, u24, p, o);
    zt::sweep_unary<Zam8s, Zam32f>(zamsConvert_8s32f, [](Zam8s x) { return float(x); }, zt::random_ints<Zam8s>(o.max_len, 4), o);
    zt::sweep_unary<Zam8u, Zam32f>(zamsConvert_8u32f, [](Zam8u x) { return float(x); }, zt::random_ints<Zam8u>(o.max_len, 5), o);
    zt::sweep_unary<Zam16s, Zam32f>(zamsConvert_16s32f, [](Zam16s x) { return float(x); }, zt::random_ints<Zam16s>(o.max_len, 6), o);
    zt::sweep_unary<Zam16u, Zam32f>(zamsConvert_16u32f, [](Zam16u x) { return float(x); }, zt::random_ints<Zam16u>(o.max_len, 7), o);
    p = random24(o.max_len, 8);
    zt::sweep_unary<P24, Zam32f>([](const P24* s, Zam32f* d, int n) { return zamsConvert_24s32f(raw(s), d, n); },
                                 [](P24 x) { return float(s24(x)); }, p, o);
    zt::sweep_unary<P24, Zam32f>([](const P24* s, Zam32f* d, int n) { return zamsConvert_24u32f(raw(s), d, n); },
                                 [](P24 x) { return float(u24(x)); }, p, o);
    o.max_len = 100;
    zt::sweep_unary<Zam32s, Zam32f>(zamsConvert_32s32f, [](Zam32s x) { return float((long double)x); },
                                    zt::random_ints<Zam32s>(o.max_len, 9), o);
    zt::sweep_unary<Zam32s, Zam64f>(zamsConvert_32s64f, [](Zam32s x) { return double(x); }, zt::random_ints<Zam32s>(o.max_len, 10), o);
    // 64-bit integers round once to nearest-even: values near 2^53 and 2^63
    // with low bits that sit exactly between two doubles.
    auto w = zt::random_ints<Zam64s>(o.max_len, 11);
    w[3] = (int64_t(1) << 53) + 1;
    w[4] = (int64_t(1) << 53) + 3;
    w[5] = -(int64_t(1) << 54) - 2;
    w[6] = INT64_MAX - 511;
    w[7] = INT64_MAX - 512;
    w[8] = int64_t(0x123456789ABCDEF1);
    zt::sweep_unary<Zam64s, Zam64f>(zamsConvert_64s64f, [](Zam64s x) { return double((long double)x); }, w, o);
}

TEST(ConvertInt, IntegerToFloatScaleClamps) {
    auto x16 = zt::random_ints<Zam16s>(77, 12);
    auto x32 = zt::random_ints<Zam32s>(77, 13);
    for (int sf : {INT32_MIN, -2000, -1009, -1008, -993, -992, -200, -113, -112, -97, -96, -3, 0, 1, 17, 125, 126, 127,
                   149, 1000, 1022, 1023, 5000, INT32_MAX}) {
        auto f = [&](auto x, int lo, int hi) { return std::ldexp((long double)x, -std::clamp(sf, lo, hi)); };
        std::string at = " sf " + std::to_string(sf);
        check_all<Zam16s, Zam32f>(x16, [&](auto s, auto d, int n) { return zamsConvert_16s32f_Sfs(s, d, n, sf); },
                                  [&](Zam16s x) { return float(f(x, -112, 126)); }, "16s32f" + at);
        check_all<Zam16s, Zam64f>(x16, [&](auto s, auto d, int n) { return zamsConvert_16s64f_Sfs(s, d, n, sf); },
                                  [&](Zam16s x) { return double(f(x, -1008, 1022)); }, "16s64f" + at);
        check_all<Zam32s, Zam32f>(x32, [&](auto s, auto d, int n) { return zamsConvert_32s32f_Sfs(s, d, n, sf); },
                                  [&](Zam32s x) { return float(f(float((long double)x), -96, 126)); }, "32s32f" + at);
        check_all<Zam32s, Zam64f>(x32, [&](auto s, auto d, int n) { return zamsConvert_32s64f_Sfs(s, d, n, sf); },
                                  [&](Zam32s x) { return double(f(x, -992, 1022)); }, "32s64f" + at);
    }
    // The clamps keep the largest magnitudes finite.
    Zam32s big = INT32_MIN;
    Zam32f y;
    ASSERT_EQ(zamsConvert_32s32f_Sfs(&big, &y, 1, -1000), zamStatusOk);
    EXPECT_EQ(y, -std::ldexp(1.0f, 127));
}

// ---- narrowing ----

TEST(ConvertInt, NarrowWithScale) {
    auto x = zt::random_ints<Zam32s>(93, 14);
    auto u = zt::random_ints<Zam32u>(93, 15);
    // Ties at every scale: odd multiples of one half above and below zero.
    for (int k = 0; k < 30; ++k) x[k] = (k & 1 ? -1 : 1) * ((1 + 2 * (k % 2)) << k);
    auto m24 = [](long double v, int sf, long double lo, long double hi) { return p24(int32_t(sat(scaled(v, std::clamp(sf, -31, 31), 1), lo, hi))); };
    for (int sf : {INT32_MIN, -40, -32, -31, -24, -16, -15, -9, -1, 0, 1, 2, 8, 15, 16, 23, 24, 30, 31, 32, 99, INT32_MAX}) {
        std::string at = " sf " + std::to_string(sf);
        check_all<Zam32s, Zam16s>(x, [&](auto s, auto d, int n) { return zamsConvert_32s16s_Sfs(s, d, n, sf); },
                                  [&](Zam32s v) { return Zam16s(sat(scaled(v, std::clamp(sf, -15, 31), 1), -32768, 32767)); }, "32s16s" + at);
        check_all<Zam32s, P24>(x, [&](auto s, P24* d, int n) { return zamsConvert_32s24s_Sfs(s, raw(d), n, sf); },
                               [&](Zam32s v) { return m24(v, sf, -8388608, 8388607); }, "32s24s" + at);
        check_all<Zam32u, P24>(u, [&](auto s, P24* d, int n) { return zamsConvert_32u24u_Sfs(s, raw(d), n, sf); },
                               [&](Zam32u v) { return m24(v, sf, 0, 16777215); }, "32u24u" + at);
    }
    zt::SweepOptions o{.max_len = 90};
    zt::sweep_unary<Zam32s, Zam16s>(zamsConvert_32s16s, [](Zam32s v) { return Zam16s(sat(v, -32768, 32767)); }, x, o);
    zt::sweep_unary<Zam32s, P24>([](const Zam32s* s, P24* d, int n) { return zamsConvert_32s24s_Sfs(s, raw(d), n, 3); },
                                 [&](Zam32s v) { return m24(v, 3, -8388608, 8388607); }, x, o);
}

// The members with a rounding mode: every mode (1 nearest-even, 0 toward
// zero, the others half away) at factors around the clamps [lo, hi], then
// every length and alignment at one mode and factor.
template <class S, class D>
void narrow_modes(zamStatus (*f)(const S*, D*, int, zamRoundMode, int), const std::vector<S>& x, int lo, int hi,
                  std::initializer_list<int> sfs, int sweep_mode, int sweep_sf) {
    auto model = [](S v, int sf, int mode) { return D(sat(scaled(v, sf, mode), std::numeric_limits<D>::min(), std::numeric_limits<D>::max())); };
    for (int mode : kModes)
        for (int sf : sfs)
            check_all<S, D>(x, [&](const S* s, D* d, int n) { return f(s, d, n, zamRoundMode(mode), sf); },
                            [&](S v) { return model(v, std::clamp(sf, lo, hi), mode); },
                            "mode " + std::to_string(mode) + " sf " + std::to_string(sf));
    zt::sweep_unary<S, D>([&](const S* s, D* d, int n) { return f(s, d, n, zamRoundMode(sweep_mode), sweep_sf); },
                          [&](S v) { return model(v, sweep_sf, sweep_mode); }, x, {.max_len = 80});
}

TEST(ConvertInt, NarrowModesAndScales) {
    auto x16 = zt::random_ints<Zam16s>(85, 16);
    narrow_modes<Zam16s, Zam8s>(zamsConvert_16s8s_Sfs, x16, -7, 18, {INT32_MIN, -8, -7, -6, -3, -1, 0, 1, 2, 5, 8, 15, 16, 17, 18, 40}, 2, 3);
    auto x64 = zt::random_ints<Zam64s>(90, 17);
    for (int k = 0; k < 40; ++k) x64[k] = (k & 1 ? -1 : 1) * ((int64_t(3) << k) >> 1);  // ties
    narrow_modes<Zam64s, Zam32s>(zamsConvert_64s32s_Sfs, x64, -31, 63,
                                 {INT32_MIN, -64, -32, -31, -30, -1, 0, 1, 2, 31, 32, 33, 62, 63, 64, INT32_MAX}, 1, 20);
}

// ---- digests ----

ZAMS_DIGEST(convert_int) {
    auto put = [&](zamStatus s, const auto& v) { d.status(s), d.add(v); };
    auto x8 = zt::random_ints<Zam8s>(301, 21);
    auto x16 = zt::random_ints<Zam16s>(301, 22);
    auto x32 = zt::random_ints<Zam32s>(301, 23);
    auto x64 = zt::random_ints<Zam64s>(301, 24);
    auto x24 = random24(301, 25);
    std::vector<Zam8s> y8(301);
    std::vector<Zam16s> y16(301);
    std::vector<Zam32s> y32(301);
    std::vector<Zam32f> yf(301);
    std::vector<Zam64f> yd(301);
    std::vector<Zam8u> y24(3 * 301);
    auto all = [&] { d.add(y8), d.add(y16), d.add(y32), d.add(yf), d.add(yd), d.add(y24); };
    d.status(zamsConvert_8s16s(x8.data(), y16.data(), 301));
    d.status(zamsConvert_16s32s(x16.data(), y32.data(), 301));
    all();
    put(zamsConvert_24s32s(raw(x24.data()), y32.data(), 301), y32);
    put(zamsConvert_24u32u(raw(x24.data()), reinterpret_cast<Zam32u*>(y32.data()), 301), y32);
    put(zamsConvert_32s16s(x32.data(), y16.data(), 301), y16);
    put(zamsConvert_8s32f(x8.data(), yf.data(), 301), yf);
    put(zamsConvert_8u32f(reinterpret_cast<Zam8u*>(x8.data()), yf.data(), 301), yf);
    put(zamsConvert_16s32f(x16.data(), yf.data(), 301), yf);
    put(zamsConvert_16u32f(reinterpret_cast<Zam16u*>(x16.data()), yf.data(), 301), yf);
    put(zamsConvert_24s32f(raw(x24.data()), yf.data(), 301), yf);
    put(zamsConvert_24u32f(raw(x24.data()), yf.data(), 301), yf);
    put(zamsConvert_32s32f(x32.data(), yf.data(), 301), yf);
    put(zamsConvert_32s64f(x32.data(), yd.data(), 301), yd);
    put(zamsConvert_64s64f(x64.data(), yd.data(), 301), yd);
    for (int sf : {-2000, -100, -7, -1, 0, 1, 5, 17, 18, 31, 40, 130, 2000}) {
        put(zamsConvert_16s32f_Sfs(x16.data(), yf.data(), 301, sf), yf);
        put(zamsConvert_32s32f_Sfs(x32.data(), yf.data(), 301, sf), yf);
        put(zamsConvert_16s64f_Sfs(x16.data(), yd.data(), 301, sf), yd);
        put(zamsConvert_32s64f_Sfs(x32.data(), yd.data(), 301, sf), yd);
        put(zamsConvert_32s16s_Sfs(x32.data(), y16.data(), 301, sf), y16);
        put(zamsConvert_32s24s_Sfs(x32.data(), y24.data(), 301, sf), y24);
        put(zamsConvert_32u24u_Sfs(reinterpret_cast<Zam32u*>(x32.data()), y24.data(), 301, sf), y24);
        for (int mode : kModes) {
            put(zamsConvert_16s8s_Sfs(x16.data(), y8.data(), 301, zamRoundMode(mode), sf), y8);
            put(zamsConvert_64s32s_Sfs(x64.data(), y32.data(), 301, zamRoundMode(mode), sf), y32);
        }
    }
}

}  // namespace
