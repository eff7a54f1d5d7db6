// Correlation and convolution against long double direct sums at every path
// boundary, the 16-bit members bit-exact against an exact model, zero lags
// outside the sources, and thread counts that must not change
// the bits.
#include <cmath>
#include <complex>
#include <functional>
#include <random>
#include <vector>

#include "digest.h"
#include "harness.h"
#include "zamcore.h"

namespace {

using LC = std::complex<long double>;

template <class T> struct El;
template <> struct El<float> {
    static constexpr long double eps = 6e-8L;
    static LC wide(float v) { return LC(v, 0); }
    static float make(std::mt19937& g) { return float(std::uniform_real_distribution<double>(-1, 1)(g)); }
};
template <> struct El<double> {
    static constexpr long double eps = 1.2e-16L;
    static LC wide(double v) { return LC(v, 0); }
    static double make(std::mt19937& g) { return std::uniform_real_distribution<double>(-1, 1)(g); }
};
template <> struct El<Zam32fc> {
    static constexpr long double eps = 6e-8L;
    static LC wide(Zam32fc v) { return LC(v.re, v.im); }
    static Zam32fc make(std::mt19937& g) { return {El<float>::make(g), El<float>::make(g)}; }
};
template <> struct El<Zam64fc> {
    static constexpr long double eps = 1.2e-16L;
    static LC wide(Zam64fc v) { return LC(v.re, v.im); }
    static Zam64fc make(std::mt19937& g) { return {El<double>::make(g), El<double>::make(g)}; }
};

template <class T> std::vector<T> rand_vec(int n, uint32_t seed) {
    std::mt19937 g(seed);
    std::vector<T> v(static_cast<size_t>(n));
    for (auto& e : v) e = El<T>::make(g);
    return v;
}
std::vector<Zam16s> rand_16s(int n, uint32_t seed, int lim = 32767) {
    std::mt19937 g(seed);
    std::uniform_int_distribution<int> u(-lim - 1, lim);
    std::vector<Zam16s> v(static_cast<size_t>(n));
    for (auto& e : v) e = Zam16s(u(g));
    return v;
}

// sum over k of conj(a[k]) b[k + lag], and the sum of magnitudes for the bound.
template <class T> LC corr_model(const std::vector<T>& a, const std::vector<T>& b, int64_t lag, long double& mag) {
    LC s = 0;
    for (int64_t k = 0; k < int64_t(a.size()); ++k) {
        const int64_t j = k + lag;
        if (j < 0 || j >= int64_t(b.size())) continue;
        const LC x = std::conj(El<T>::wide(a[size_t(k)])), y = El<T>::wide(b[size_t(j)]);
        s += x * y;
        mag += std::abs(x) * std::abs(y);
    }
    return s;
}
template <class T> LC conv_model(const std::vector<T>& a, const std::vector<T>& b, int64_t n, long double& mag) {
    LC s = 0;
    for (int64_t k = 0; k < int64_t(a.size()); ++k) {
        if (n - k < 0 || n - k >= int64_t(b.size())) continue;
        const LC x = El<T>::wide(a[size_t(k)]), y = El<T>::wide(b[size_t(n - k)]);
        s += x * y;
        mag += std::abs(x) * std::abs(y);
    }
    return s;
}

// Every output within a bound that grows with the transform length and the
// sum of |a||b| of the worst output.
template <class T>
void expect_close(const std::vector<T>& got, const std::vector<LC>& want, long double mag, const char* what) {
    long double worst = 0;
    for (size_t i = 0; i < got.size(); ++i) worst = std::max(worst, std::abs(El<T>::wide(got[i]) - want[i]));
    EXPECT_LE(worst, 64 * El<T>::eps * std::max(mag, 1.0L)) << what;
}

// ---------------------------------------------------------------- floating
template <class T> struct Fns;
#define ZT_FNS(T)                                                                                             \
    template <> struct Fns<Zam##T> {                                                                          \
        static constexpr auto autocorr = zamsAutoCorr_##T;                                                    \
        static constexpr auto normA = zamsAutoCorr_NormA_##T;                                                 \
        static constexpr auto normB = zamsAutoCorr_NormB_##T;                                                 \
        static constexpr auto cross = zamsCrossCorr_##T;                                                      \
    };
ZT_FNS(32f)
ZT_FNS(64f)
ZT_FNS(32fc)
ZT_FNS(64fc)

template <class T> class CorrFloat : public ::testing::Test {};
using FloatTypes = ::testing::Types<float, double, Zam32fc, Zam64fc>;
TYPED_TEST_SUITE(CorrFloat, FloatTypes);

TYPED_TEST(CorrFloat, AutoCorrAndItsNormalisationsAtThePathBoundary) {
    using T = TypeParam;
    // 855 computed lags sum directly, 856 go through the transform; lags
    // past the source are zero.
    for (auto [len, dstLen] : {std::pair{900, 855}, {900, 856}, {856, 1000}, {40, 60}, {1, 3}}) {
        const auto x = rand_vec<T>(len, 3 + len);
        std::vector<LC> want(static_cast<size_t>(dstLen));
        long double mag = 0;
        for (int k = 0; k < dstLen; ++k) want[size_t(k)] = k < len ? corr_model(x, x, k, mag) : LC(0);
        std::vector<T> raw(static_cast<size_t>(dstLen)), a(static_cast<size_t>(dstLen)), b(static_cast<size_t>(dstLen));
        ASSERT_EQ(Fns<T>::autocorr(x.data(), len, raw.data(), dstLen), zamStatusOk);
        ASSERT_EQ(Fns<T>::normA(x.data(), len, a.data(), dstLen), zamStatusOk);
        ASSERT_EQ(Fns<T>::normB(x.data(), len, b.data(), dstLen), zamStatusOk);
        expect_close(raw, want, mag, "raw");
        std::vector<LC> wa(want), wb(want);
        for (int k = 0; k < std::min(len, dstLen); ++k) {
            wa[size_t(k)] /= (long double)len;
            wb[size_t(k)] /= (long double)(len - k);
        }
        expect_close(a, wa, mag / len, "NormA");
        // NormB's last lags have few terms: its bound is the raw bound over them.
        expect_close(b, wb, mag, "NormB");
        for (int k = len; k < dstLen; ++k) EXPECT_EQ(El<T>::wide(raw[size_t(k)]), LC(0));
    }
}

TYPED_TEST(CorrFloat, CrossCorrOverEveryLagRangeAndPath) {
    using T = TypeParam;
    struct Case {
        int la, lb, dstLen, lowLag;
    };
    // work = min * count / max against 383; 3x rule for sections; lags
    // wholly below, across and above the sources.
    const Case cases[] = {{100, 100, 383, -150}, {100, 100, 384, -150}, {500, 1600, 2000, -400},
                          {1600, 500, 2000, -1500}, {50, 70, 30, -200},  {50, 70, 40, 100},
                          {7, 5, 20, -10},          {1, 1, 1, 0},        {300, 2000, 1500, 700}};
    for (const Case& c : cases) {
        const auto a = rand_vec<T>(c.la, 11 + c.la), b = rand_vec<T>(c.lb, 13 + c.lb);
        std::vector<LC> want(static_cast<size_t>(c.dstLen));
        long double mag = 0;
        for (int n = 0; n < c.dstLen; ++n) want[size_t(n)] = corr_model(a, b, int64_t(c.lowLag) + n, mag);
        std::vector<T> got(static_cast<size_t>(c.dstLen));
        ASSERT_EQ(Fns<T>::cross(a.data(), c.la, b.data(), c.lb, got.data(), c.dstLen, c.lowLag), zamStatusOk);
        expect_close(got, want, mag, "cross");
        for (int n = 0; n < c.dstLen; ++n) {
            const int64_t lag = int64_t(c.lowLag) + n;
            if (lag < 1 - c.la || lag > c.lb - 1) {
                EXPECT_EQ(El<T>::wide(got[size_t(n)]), LC(0)) << lag;
            }
        }
    }
}

template <class T> using ConvFn = zamStatus (*)(const T*, int, const T*, int, T*);

template <class T> void check_conv(ConvFn<T> fn) {
    // 511 / 512 outputs, 63 / 64 in the shorter source, both orders, and a
    // long source past three times the short one (sections).
    for (auto [la, lb] : {std::pair{64, 448}, {64, 449}, {63, 2000}, {2000, 63}, {100, 5000}, {300, 400}, {1, 1}}) {
        const auto a = rand_vec<T>(la, 17 + la), b = rand_vec<T>(lb, 19 + lb);
        const int n = la + lb - 1;
        std::vector<LC> want(static_cast<size_t>(n));
        long double mag = 0;
        for (int i = 0; i < n; ++i) want[size_t(i)] = conv_model(a, b, i, mag);
        std::vector<T> got(static_cast<size_t>(n));
        ASSERT_EQ(fn(a.data(), la, b.data(), lb, got.data()), zamStatusOk);
        expect_close(got, want, mag, "conv");
    }
}
TEST(Conv, FloatAgainstLongDouble) {
    check_conv<float>(zamsConv_32f);
    check_conv<double>(zamsConv_64f);
}

TEST(Conv, BiasedIsAWindowOfTheFullConvolution) {
    const auto a = rand_vec<float>(80, 1), b = rand_vec<float>(700, 2);
    std::vector<float> full(779);
    ASSERT_EQ(zamsConv_32f(a.data(), 80, b.data(), 700, full.data()), zamStatusOk);
    for (auto [dstLen, bias] : {std::pair{100, -30}, {600, 300}, {50, 770}, {20, 900}, {900, -60}}) {
        std::vector<float> got(size_t(dstLen), 7.0f);
        ASSERT_EQ(zamsConvBiased_32f(a.data(), 80, b.data(), 700, got.data(), dstLen, bias), zamStatusOk);
        for (int n = 0; n < dstLen; ++n) {
            const int i = n + bias;
            const float want = i >= 0 && i < 779 ? full[size_t(i)] : 0.0f;
            EXPECT_NEAR(got[size_t(n)], want, 1e-4f) << bias << " " << n;
        }
    }
}

TEST(Conv, ThreadCountDoesNotChangeTheBits) {
    const auto a = rand_vec<float>(100, 5), b = rand_vec<float>(40000, 6);
    std::vector<float> one(40099), two(40099);
    const int saved = ownGetNumThreads();
    zamSetNumThreads(1);
    ASSERT_EQ(zamsConv_32f(a.data(), 100, b.data(), 40000, one.data()), zamStatusOk);
    zamSetNumThreads(2);
    ASSERT_EQ(zamsConv_32f(a.data(), 100, b.data(), 40000, two.data()), zamStatusOk);
    zamSetNumThreads(saved);
    EXPECT_EQ(0, std::memcmp(one.data(), two.data(), one.size() * sizeof(float)));
}

// The direct sums have one order, fixed by the positions of the terms: a
// whole call (many outputs a step) gives the bits of calls of one output,
// and sources at other addresses give the same bits. Tap counts cover every
// remainder mod 8 and every count with a kernel of its own (4 to 16); the
// lags run from zeros through the edges to the inside, over one block of
// converted inputs or several. In the second pass positive taps meet a
// stretch of -0, whose sums are +0.
template <class T> void expect_bits(const std::vector<T>& want, const std::vector<T>& got, const char* what, int la) {
    EXPECT_EQ(0, std::memcmp(want.data(), got.data(), want.size() * sizeof(T))) << what << ", " << la << " taps";
}

template <class T> T positive(T v) {
    if constexpr (std::is_floating_point_v<T>) return std::abs(v);
    else return T{std::abs(v.re), std::abs(v.im)};
}
template <class T> T negative_zero() {
    if constexpr (std::is_floating_point_v<T>) return T(-0.0);
    else return T{-0.0, -0.0};
}

template <class T> void direct_sums_have_one_order() {
    for (const int lb : {1100, 45}) {
        for (const bool zeros : {false, true}) {
            for (int la : {1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 21, 36, 63, 130}) {
                auto a = rand_vec<T>(la, 23 + la), b = rand_vec<T>(lb, 29);
                if (zeros) {
                    for (T& v : a) v = positive(v);
                    std::fill(b.begin() + lb / 3, b.begin() + 2 * lb / 3, negative_zero<T>());
                }
                std::vector<T> a1(size_t(la) + 1), b1(size_t(lb) + 3);
                std::copy(a.begin(), a.end(), a1.begin() + 1);
                std::copy(b.begin(), b.end(), b1.begin() + 3);
                const int n = la + lb + 6, lowLag = -la - 2;
                std::vector<T> whole(static_cast<size_t>(n)), one(whole), moved(whole);
                ASSERT_EQ(Fns<T>::cross(a.data(), la, b.data(), lb, whole.data(), n, lowLag), zamStatusOk);
                for (int i = 0; i < n; ++i)
                    ASSERT_EQ(Fns<T>::cross(a.data(), la, b.data(), lb, &one[size_t(i)], 1, lowLag + i), zamStatusOk);
                ASSERT_EQ(Fns<T>::cross(a1.data() + 1, la, b1.data() + 3, lb, moved.data(), n, lowLag), zamStatusOk);
                expect_bits(whole, one, "CrossCorr by single lags", la);
                expect_bits(whole, moved, "CrossCorr moved", la);
                if constexpr (std::is_same_v<T, float>) {
                    if (la >= 64 && la + lb - 1 >= 512) continue;  // the convolution's FFT path
                    const int m = la + lb - 1;
                    std::vector<float> conv(static_cast<size_t>(m)), single(conv), shifted(conv);
                    ASSERT_EQ(zamsConv_32f(a.data(), la, b.data(), lb, conv.data()), zamStatusOk);
                    for (int i = 0; i < m; ++i)
                        ASSERT_EQ(zamsConvBiased_32f(a.data(), la, b.data(), lb, &single[size_t(i)], 1, i),
                                  zamStatusOk);
                    ASSERT_EQ(zamsConv_32f(b1.data() + 3, lb, a1.data() + 1, la, shifted.data()), zamStatusOk);
                    expect_bits(conv, single, "Conv by single outputs", la);
                    expect_bits(conv, shifted, "Conv moved and swapped", la);
                }
            }
        }
    }
}

TEST(Direct, SumsDoNotDependOnGroupingOrAddresses) {
    direct_sums_have_one_order<float>();
    direct_sums_have_one_order<double>();
    direct_sums_have_one_order<Zam32fc>();
    direct_sums_have_one_order<Zam64fc>();
}

// ------------------------------------------------------------------ 16-bit
// round(r / (d 2^sf)), ties to even, saturated: long double holds these
// quotients far from any tie they are not on.
Zam16s model_16s(int64_t r, int64_t d, int sf) {
    const long double q = std::nearbyintl((long double)r / ((long double)d * std::ldexp(1.0L, sf)));
    return Zam16s(std::clamp<long double>(q, -32768, 32767));
}

TEST(Corr16s, ExactSumsScaledRoundedAndSaturated) {
    for (int sf : {-3, 0, 1, 7, 15, 40}) {
        for (int len : {1, 9, 64, 300}) {
            const auto x = rand_16s(len, 23 + len, 2000), y = rand_16s(len + 37, 29 + len, 2000);
            const int dstLen = len + 5;
            std::vector<Zam16s> raw(static_cast<size_t>(dstLen)), na(static_cast<size_t>(dstLen)), nb(static_cast<size_t>(dstLen));
            ASSERT_EQ(zamsAutoCorr_16s_Sfs(x.data(), len, raw.data(), dstLen, sf), zamStatusOk);
            ASSERT_EQ(zamsAutoCorr_NormA_16s_Sfs(x.data(), len, na.data(), dstLen, sf), zamStatusOk);
            ASSERT_EQ(zamsAutoCorr_NormB_16s_Sfs(x.data(), len, nb.data(), dstLen, sf), zamStatusOk);
            for (int k = 0; k < dstLen; ++k) {
                int64_t r = 0;
                for (int n = 0; n + k < len; ++n) r += int64_t(x[size_t(n)]) * x[size_t(n + k)];
                EXPECT_EQ(raw[size_t(k)], model_16s(r, 1, sf)) << sf << " " << len << " " << k;
                EXPECT_EQ(na[size_t(k)], k < len ? model_16s(r, len, sf) : 0);
                EXPECT_EQ(nb[size_t(k)], k < len ? model_16s(r, len - k, sf) : 0);
            }
            // cross: 16-bit scaled and the exact 64-bit sums
            const int lowLag = -len / 2, n = len + 20;
            std::vector<Zam16s> c16(static_cast<size_t>(n));
            std::vector<Zam64s> c64(static_cast<size_t>(n));
            ASSERT_EQ(zamsCrossCorr_16s_Sfs(x.data(), len, y.data(), len + 37, c16.data(), n, lowLag, sf), zamStatusOk);
            ASSERT_EQ(zamsCrossCorr_16s64s(x.data(), len, y.data(), len + 37, c64.data(), n, lowLag), zamStatusOk);
            for (int i = 0; i < n; ++i) {
                int64_t r = 0;
                for (int k = 0; k < len; ++k) {
                    const int j = k + lowLag + i;
                    if (j >= 0 && j < len + 37) r += int64_t(x[size_t(k)]) * y[size_t(j)];
                }
                EXPECT_EQ(c64[size_t(i)], r);
                EXPECT_EQ(c16[size_t(i)], model_16s(r, 1, sf));
            }
        }
    }
    // Full-scale inputs saturate at both ends.
    std::vector<Zam16s> big(50, -32768), out(3);
    ASSERT_EQ(zamsAutoCorr_16s_Sfs(big.data(), 50, out.data(), 3, 0), zamStatusOk);
    EXPECT_EQ(out[0], 32767);
    std::vector<Zam16s> mixed = {32767, -32768}, c(3);
    ASSERT_EQ(zamsConv_16s_Sfs(mixed.data(), 2, mixed.data(), 2, c.data(), 0), zamStatusOk);
    EXPECT_EQ(c[1], -32768);
}

TEST(Conv16s, ExactAgainstTheIntegerModel) {
    for (int sf : {-2, 0, 5, 12}) {
        const auto a = rand_16s(70, 31, 3000), b = rand_16s(600, 37, 3000);
        std::vector<Zam16s> got(669);
        ASSERT_EQ(zamsConv_16s_Sfs(b.data(), 600, a.data(), 70, got.data(), sf), zamStatusOk);
        for (int n = 0; n < 669; ++n) {
            int64_t r = 0;
            for (int k = 0; k < 70; ++k)
                if (n - k >= 0 && n - k < 600) r += int64_t(a[size_t(k)]) * b[size_t(n - k)];
            EXPECT_EQ(got[size_t(n)], model_16s(r, 1, sf)) << n;
        }
    }
}

// --------------------------------------------------------------- cyclic
TEST(ConvCyclic, SmallCyclicConvolutionsAndNoChecks) {
    const auto a = rand_vec<float>(8, 41), b = rand_vec<float>(8, 43);
    const auto bc = rand_vec<Zam32fc>(4, 47);
    std::vector<float> y8(8);
    std::vector<Zam32fc> y4(4);
    EXPECT_EQ(zamsConvCyclic8x8_32f(a.data(), b.data(), y8.data()), zamStatusOk);
    EXPECT_EQ(zamsConvCyclic4x4_32f32fc(a.data(), bc.data(), y4.data()), zamStatusOk);
    for (int n = 0; n < 8; ++n) {
        double s = 0;
        for (int k = 0; k < 8; ++k) s += double(a[size_t(k)]) * b[size_t((n - k + 8) % 8)];
        EXPECT_FLOAT_EQ(y8[size_t(n)], float(s));
    }
    for (int n = 0; n < 4; ++n) {
        double re = 0, im = 0;
        for (int k = 0; k < 4; ++k) {
            re += double(a[size_t(k)]) * bc[size_t((n - k + 4) % 4)].re;
            im += double(a[size_t(k)]) * bc[size_t((n - k + 4) % 4)].im;
        }
        EXPECT_FLOAT_EQ(y4[size_t(n)].re, float(re));
        EXPECT_FLOAT_EQ(y4[size_t(n)].im, float(im));
    }
    const auto s16 = rand_16s(8, 53), t16 = rand_16s(8, 59);
    for (int sf : {0, 3, 16}) {
        std::vector<Zam16s> y(8);
        EXPECT_EQ(zamsConvCyclic8x8_16s_Sfs(s16.data(), t16.data(), y.data(), sf), zamStatusOk);
        for (int n = 0; n < 8; ++n) {
            int64_t r = 0;
            for (int k = 0; k < 8; ++k) r += int64_t(s16[size_t(k)]) * t16[size_t((n - k + 8) % 8)];
            EXPECT_EQ(y[size_t(n)], model_16s(r, 1, sf));
        }
    }
    // No checks: any arguments give 0, and null ones leave everything alone.
    EXPECT_EQ(zamsConvCyclic8x8_32f(nullptr, b.data(), y8.data()), zamStatusOk);
    EXPECT_EQ(zamsConvCyclic4x4_32f32fc(a.data(), nullptr, y4.data()), zamStatusOk);
    EXPECT_EQ(zamsConvCyclic8x8_16s_Sfs(s16.data(), t16.data(), nullptr, -5), zamStatusOk);
}

ZAMS_DIGEST(corr_conv) {
    auto a = rand_vec<float>(300, 61), b = rand_vec<float>(2000, 67);
    std::vector<float> c(2299), r(900), x(1200);
    d.status(zamsConv_32f(a.data(), 300, b.data(), 2000, c.data()));
    d.status(zamsAutoCorr_32f(b.data(), 2000, r.data(), 900));
    d.status(zamsCrossCorr_32f(a.data(), 300, b.data(), 2000, x.data(), 1200, -100));
    d.add(c);
    d.add(r);
    d.add(x);
    auto s = rand_16s(200, 71);
    std::vector<Zam16s> s2(399);
    d.status(zamsConv_16s_Sfs(s.data(), 200, s.data(), 200, s2.data(), 14));
    d.add(s2);
}

}  // namespace
