// Thresholding, against scalar models element by element.
#include <cmath>
#include <limits>

#include "digest.h"
#include "sweep.h"

namespace {

using LD = long double;

// Pools for the sweeps: random values with many elements equal to the
// levels used below (equality never replaces) and, for floats, NaN and
// signed zeros.
template <class T> std::vector<T> pool(uint32_t seed, T level) {
    std::vector<T> v;
    if constexpr (std::is_integral_v<T>) v = zt::random_ints<T>(320, seed);
    else v = zt::random_reals<T>(320, seed, T(-50), T(50));
    for (size_t i = 0; i < v.size(); i += 7) v[i] = level;
    for (size_t i = 3; i < v.size(); i += 11) v[i] = T(-level);
    if constexpr (std::is_floating_point_v<T>) {
        for (size_t i = 5; i < v.size(); i += 13) v[i] = std::numeric_limits<T>::quiet_NaN();
        v[2] = T(-0.0);
    }
    return v;
}

template <class C> std::vector<C> cpool(uint32_t seed, double level) {
    using P = decltype(C{}.re);
    std::vector<C> v(320);
    std::mt19937 g(seed);
    std::uniform_real_distribution<double> d(-60, 60);
    for (auto& x : v) x = C{P(d(g)), P(d(g))};
    for (size_t i = 0; i < v.size(); i += 9) v[i] = C{P(0), P(0)};
    for (size_t i = 4; i < v.size(); i += 10) v[i] = C{P(level), P(0)};  // on the level
    v[1] = C{P(3 * level / 5), P(4 * level / 5)};
    return v;
}

constexpr zt::SweepOptions kShort{70, true, 1};
constexpr zt::SweepOptions kFull{300, true, 1};

template <class T> bool same_or_nan(T a, T b) {
    if constexpr (std::is_floating_point_v<T>) return zt::bits(a) == zt::bits(b) || (std::isnan(a) && std::isnan(b));
    else return a == b;
}
struct SameOrNan {
    template <class T> bool operator()(T a, T b) const { return same_or_nan(a, b); }
};

template <class T> T sgn_level(T x, T level) {
    if constexpr (std::is_floating_point_v<T>) return std::signbit(x) ? T(-level) : level;
    else return x < 0 ? T(-level) : level;
}
template <class T> LD absl(T x) { return x < 0 ? -LD(x) : LD(x); }

// Each in-place export gives what its out-of-place twin gives.
template <class X, class Oop, class Ip> void same_in_place(const std::vector<X>& data, Oop oop, Ip ip) {
    std::vector<X> ref(60), io(data.begin(), data.begin() + 60);
    ASSERT_EQ(oop(data.data(), ref.data(), 60), zamStatusOk);
    ASSERT_EQ(ip(io.data(), 60), zamStatusOk);
    for (int i = 0; i < 60; ++i) EXPECT_TRUE(same_or_nan(io[i], ref[i])) << i;
}
#define SAME_IN_PLACE(name, ...)                                                                                  \
    same_in_place(data, [=](const X* s, X* d, int n) { return zamsThreshold_##name(s, d, n, __VA_ARGS__); },      \
                  [=](X* d, int n) { return zamsThreshold_##name##_I(d, n, __VA_ARGS__); })

// One kind over lengths, alignments and in place against its model (the
// complex ones within a step of the part type, or exactly).
#define SWEEP_EQ(kind, opts, model, eq, ...)                                                                  \
    zt::sweep_unary<X, X>([=](const X* s, X* d, int n) { return zamsThreshold_##kind(s, d, n, __VA_ARGS__); }, \
                          model, data, opts, eq)
#define SWEEP(kind, opts, model, ...) SWEEP_EQ(kind, opts, model, SameOrNan{}, __VA_ARGS__)

// Each kind against its one-line model, levels and their negatives
// included; each in-place export against its out-of-place twin.
#define REAL_SUITE(T, lvl, val, opts)                                                                          \
    TEST(ThresholdReal, T##_AllKindsMatchModel) {                                                               \
        using X = Zam##T;                                                                                        \
        const X L = lvl, V = val;                                                                                \
        auto data = pool<X>(41, L);                                                                              \
        SWEEP(LT_##T, opts, [=](X x) { return x < L ? L : x; }, L);                                              \
        SWEEP(GT_##T, opts, [=](X x) { return x > L ? L : x; }, L);                                              \
        SWEEP(LTAbs_##T, kShort, [=](X x) { return absl(x) < LD(L) ? sgn_level(x, L) : x; }, L);                 \
        SWEEP(GTAbs_##T, kShort, [=](X x) { return absl(x) > LD(L) ? sgn_level(x, L) : x; }, L);                 \
        SWEEP(LTValGTVal_##T, kShort, [=](X x) { return x < X(-L) ? V : (x > L ? X(-V) : x); }, X(-L), V, L, X(-V)); \
        SAME_IN_PLACE(LT_##T, X(-5));                                                                              \
        SAME_IN_PLACE(GT_##T, X(3));                                                                               \
        SAME_IN_PLACE(LTAbs_##T, L);                                                                               \
        SAME_IN_PLACE(GTAbs_##T, X(2));                                                                            \
        SAME_IN_PLACE(LTValGTVal_##T, X(-2), X(1), X(2), X(0));                                                    \
    }

REAL_SUITE(16s, Zam16s(1000), Zam16s(-77), kShort)
REAL_SUITE(32s, Zam32s(5), Zam32s(123456), kShort)
REAL_SUITE(32f, 2.5f, -9.0f, kFull)
REAL_SUITE(64f, 2.5, -9.0, kFull)

// The kinds that exist for the real types that have a generic form and
// replacement by value: 16s, 32f, 64f.
#define REAL_VAL_SUITE(T, lvl, val)                                                                               \
    TEST(ThresholdReal, T##_GenericAndValueKinds) {                                                               \
        using X = Zam##T;                                                                                        \
        const X L = lvl, V = val;                                                                                \
        auto data = pool<X>(43, L);                                                                              \
        SWEEP(T, kShort, [=](X x) { return x < L ? L : x; }, L, zamCmpLess);                                      \
        SWEEP(T, kShort, [=](X x) { return x > L ? L : x; }, L, zamCmpGreater);                                   \
        SWEEP(LTVal_##T, kShort, [=](X x) { return x < L ? V : x; }, L, V);                                        \
        SWEEP(GTVal_##T, kShort, [=](X x) { return x > L ? V : x; }, L, V);                                        \
        SAME_IN_PLACE(T, L, zamCmpGreater);                                                                       \
        SAME_IN_PLACE(LTVal_##T, X(0), V);                                                                         \
        SAME_IN_PLACE(GTVal_##T, X(1), X(-2));                                                                     \
    }

REAL_VAL_SUITE(16s, Zam16s(-300), Zam16s(32767))
REAL_VAL_SUITE(32f, -1.5f, 100.0f)
REAL_VAL_SUITE(64f, -1.5, 100.0)

// -------------------------------------------------------------- complex

template <class C> struct CModel {
    using P = decltype(C{}.re);
    // Magnitude comparison and phase-keeping scaling in long double.
    static C scaled(C x, LD level) {
        LD n2 = LD(x.re) * x.re + LD(x.im) * x.im;
        if (n2 == 0) return C{P(level), P(0)};
        LD r = std::sqrt(n2);
        return C{round(LD(x.re) * level / r), round(LD(x.im) * level / r)};
    }
    static P round(LD v) {
        if constexpr (std::is_integral_v<P>) return P(std::nearbyint(v));
        else return P(v);
    }
    static LD n2(C x) { return LD(x.re) * x.re + LD(x.im) * x.im; }
};

// Scaled elements may differ from the long double model by one step of the
// part type (one unit for 16-bit parts, a few ulp for floats: the library
// rounds a double quotient).
template <class C> struct CloseComplex {
    bool operator()(C a, C b) const {
        using P = decltype(C{}.re);
        auto near = [](P u, P v) {
            if constexpr (std::is_integral_v<P>) return std::abs(int(u) - int(v)) <= 1;
            else return std::fabs(LD(u) - LD(v)) <= 4 * std::numeric_limits<P>::epsilon() * (1 + std::fabs(LD(v)));
        };
        return near(a.re, b.re) && near(a.im, b.im);
    }
};

#define COMPLEX_SUITE(T, P, lvl)                                                                                  \
    TEST(ThresholdComplex, T##_AllKindsMatchModel) {                                                             \
        using X = Zam##T;                                                                                        \
        using M = CModel<X>;                                                                                     \
        const P L = lvl;                                                                                         \
        const LD L2 = LD(L) * L;                                                                                 \
        const X V{P(7), P(-8)};                                                                                  \
        auto data = cpool<X>(47, L);                                                                             \
        const zt::SweepOptions o{40, true, 3};                                                                   \
        auto same = [](X a, X b) { return a.re == b.re && a.im == b.im; };                                       \
        SWEEP_EQ(LT_##T, o, [=](X x) { return M::n2(x) < L2 ? M::scaled(x, L) : x; }, CloseComplex<X>{}, L);     \
        SWEEP_EQ(GT_##T, o, [=](X x) { return M::n2(x) > L2 ? M::scaled(x, L) : x; }, CloseComplex<X>{}, L);     \
        SWEEP_EQ(T, o, [=](X x) { return M::n2(x) > L2 ? M::scaled(x, L) : x; }, CloseComplex<X>{}, L, zamCmpGreater); \
        SWEEP_EQ(LTVal_##T, o, [=](X x) { return M::n2(x) < L2 ? V : x; }, same, L, V);                          \
        SWEEP_EQ(GTVal_##T, o, [=](X x) { return M::n2(x) > L2 ? V : x; }, same, L, V);                          \
        X io[3] = {X{P(3), P(4)}, X{P(0), P(0)}, X{P(0), P(-1)}};                                                 \
        ASSERT_EQ(zamsThreshold_##T##_I(io, 3, P(2), zamCmpLess), zamStatusOk);                                  \
        ASSERT_EQ(zamsThreshold_LT_##T##_I(io, 3, P(2)), zamStatusOk);                                            \
        ASSERT_EQ(zamsThreshold_GT_##T##_I(io, 3, P(5)), zamStatusOk);                                            \
        ASSERT_EQ(zamsThreshold_GTVal_##T##_I(io, 3, P(4), X{P(1), P(1)}), zamStatusOk);                          \
        ASSERT_EQ(zamsThreshold_LTVal_##T##_I(io, 3, P(1), X{P(9), P(9)}), zamStatusOk);                          \
        EXPECT_TRUE(same(io[0], X{P(1), P(1)}) && same(io[1], X{P(2), P(0)}) && same(io[2], X{P(0), P(-2)}));    \
    }

COMPLEX_SUITE(16sc, Zam16s, 20)
COMPLEX_SUITE(32fc, Zam32f, 20.5f)
COMPLEX_SUITE(64fc, Zam64f, 20.0)

// 16-bit parts round to nearest (the model sweep allows one unit).
TEST(ThresholdComplex, GreaterScalesToLevelKeepingPhase) {
    Zam16sc w[] = {{300, -400}, {-30000, 30000}};
    ASSERT_EQ(zamsThreshold_GT_16sc_I(w, 2, 100), zamStatusOk);
    EXPECT_TRUE(w[0].re == 60 && w[0].im == -80);
    EXPECT_TRUE(w[1].re == -71 && w[1].im == 71);  // 100 / sqrt 2 = 70.71
}

// ------------------------------------------------------------- inverse

template <class T> T inv_model(T x, T level) {
    if (std::fabs(x) < level) return std::copysign(T(1) / level, x);
    return T(1) / x;
}

TEST(ThresholdInv, RealMatchesModelAtEveryAlignment) {
    auto f = pool<Zam32f>(51, 0.25f);
    zt::sweep_unary<Zam32f, Zam32f>([](const Zam32f* s, Zam32f* d, int n) { return zamsThreshold_LTInv_32f(s, d, n, 0.25f); },
                                    [](Zam32f x) { return inv_model(x, 0.25f); }, f, kShort, SameOrNan{});
    std::vector<Zam32f> io(f.begin() + 1, f.end());  // in place, from an odd start
    ASSERT_EQ(zamsThreshold_LTInv_32f_I(io.data(), int(io.size()), 0.25f), zamStatusOk);
    for (size_t i = 0; i < io.size(); ++i) ASSERT_TRUE(SameOrNan{}(io[i], inv_model(f[i + 1], 0.25f))) << i;
    auto g = pool<Zam64f>(52, 3.0);
    zt::sweep_unary<Zam64f, Zam64f>([](const Zam64f* s, Zam64f* d, int n) { return zamsThreshold_LTInv_64f(s, d, n, 3.0); },
                                    [](Zam64f x) { return inv_model(x, 3.0); }, g, kShort, SameOrNan{});
}

template <class C> void check_complex_inverse(zamStatus (*lib)(const C*, C*, int, decltype(C{}.re)),
                                              zamStatus (*lib_i)(C*, int, decltype(C{}.re))) {
    using P = decltype(C{}.re);
    const P L = 4;
    auto data = cpool<C>(53, 4.0);
    std::vector<C> out(data.size());
    ASSERT_EQ(lib(data.data(), out.data(), int(data.size()), L), zamStatusOk);
    for (size_t i = 0; i < data.size(); ++i) {
        C x = data[i];
        LD n2 = LD(x.re) * x.re + LD(x.im) * x.im;
        LD re, im;
        if (n2 == 0) re = 1 / LD(L), im = 0;
        else if (n2 < LD(L) * L) re = x.re / (std::sqrt(n2) * L), im = -x.im / (std::sqrt(n2) * L);
        else re = x.re / n2, im = -x.im / n2;
        ASSERT_TRUE(CloseComplex<C>{}(out[i], C{P(re), P(im)})) << i;
    }
    ASSERT_EQ(lib_i(data.data(), int(data.size()), L), zamStatusOk);
    EXPECT_EQ(std::memcmp(data.data(), out.data(), out.size() * sizeof(C)), 0);
}

TEST(ThresholdInv, ComplexMatchesModel) {
    check_complex_inverse<Zam32fc>(zamsThreshold_LTInv_32fc, zamsThreshold_LTInv_32fc_I);
    check_complex_inverse<Zam64fc>(zamsThreshold_LTInv_64fc, zamsThreshold_LTInv_64fc_I);
}

// A zero element with level 0 warns 4 on the serial path and 6 on the
// parallel one, wherever the zero lies, with one thread or two; the other
// elements are all written.
TEST(ThresholdInv, ZeroWarningsOnBothPaths) {
    struct Case { int below, from; } const sizes[] = {{8191, 8192}, {2047, 2048}};
    for (int threads : {1, 2}) {
        zt::Threads th(threads);
        for (int len : {sizes[0].below, sizes[0].from, sizes[0].from + 1}) {
            for (int where : {0, len / 2 + 1, len - 1}) {
                std::vector<Zam32f> x(len, 2.0f), y(len, 9.0f);
                x[where] = 0.0f;
                zamStatus want = len < 8192 ? zamStatusWarnInvThreshZero : zamStatusWarnDivByZero;
                ASSERT_EQ(zamsThreshold_LTInv_32f(x.data(), y.data(), len, 0.0f), want) << len << " " << where;
                EXPECT_TRUE(std::isinf(y[where]));
                EXPECT_EQ(y[len - 1 - (where == len - 1)], 0.5f);
                EXPECT_EQ(zamsThreshold_LTInv_32f(x.data(), y.data(), len, 0.5f), zamStatusOk);
                EXPECT_EQ(y[where], 2.0f);
            }
        }
        for (int len : {2047, 2048}) {
            std::vector<Zam64f> x(len, 2.0);
            std::vector<Zam32fc> c(len, Zam32fc{2, 0});
            x[len - 1] = 0.0;
            c[len - 1] = Zam32fc{0, 0};
            zamStatus want = len < 2048 ? zamStatusWarnInvThreshZero : zamStatusWarnDivByZero;
            EXPECT_EQ(zamsThreshold_LTInv_64f_I(x.data(), len, 0.0), want);
            EXPECT_EQ(zamsThreshold_LTInv_32fc_I(c.data(), len, 0.0f), want);
            EXPECT_EQ(x[0], 0.5);
            EXPECT_EQ(c[0].re, 0.5f);
        }
        for (int len : {511, 512}) {
            std::vector<Zam64fc> c(len, Zam64fc{0, 4});
            c[0] = Zam64fc{0, 0};
            EXPECT_EQ(zamsThreshold_LTInv_64fc_I(c.data(), len, 0.0),
                      len < 512 ? zamStatusWarnInvThreshZero : zamStatusWarnDivByZero);
            EXPECT_EQ(c[len - 1].im, -0.25);
        }
    }
}

// ------------------------------------------------------------ checks

TEST(ThresholdChecks, OrderAndNothingWritten) {
    Zam16s s[2] = {1, 2}, d[2] = {7, 7};
    Zam16sc cs[2] = {}, cd[2] = {{7, 7}, {7, 7}};
    Zam32f f[2] = {1, 0}, g[2] = {7, 7};
    EXPECT_EQ(zamsThreshold_16s(s, d, 2, 0, zamCmpOp(2)), zamStatusBadArgument);
    EXPECT_EQ(zamsThreshold_16s(s, d, 2, -5, zamCmpLess), zamStatusOk);
    d[0] = d[1] = 7;
    EXPECT_EQ(zamsThreshold_16sc(cs, cd, 2, -1, zamCmpOp(1)), zamStatusBadArgument);
    EXPECT_EQ(zamsThreshold_16sc(cs, cd, 2, -1, zamCmpLess), zamStatusBadThresholdLevel);
    EXPECT_EQ(zamsThreshold_LTVal_16sc(cs, cd, 2, -1, Zam16sc{}), zamStatusBadThresholdLevel);
    EXPECT_EQ(zamsThreshold_LT_16sc(cs, cd, 2, -1), zamStatusBadThresholdLevel);
    EXPECT_EQ(zamsThreshold_LTAbs_16s(s, d, 2, -1), zamStatusBadThresholdLevel);
    EXPECT_EQ(zamsThreshold_LTInv_32f(f, g, 2, -1), zamStatusBadThresholdLevel);
    EXPECT_EQ(zamsThreshold_LTValGTVal_16s(s, d, 2, 6, 0, 5, 0), zamStatusBadThresholdRange);
    EXPECT_EQ(zamsThreshold_LTValGTVal_16s(s, nullptr, 2, 6, 0, 5, 0), zamStatusNullPointer);
    for (auto v : d) EXPECT_EQ(v, 7);
    for (auto v : cd) EXPECT_EQ(v.re, 7);
    for (auto v : g) EXPECT_EQ(v, 7);
}

// ------------------------------------------------------------ digests

template <class T> std::vector<T> dpool(uint32_t seed) {
    if constexpr (std::is_integral_v<T>) return zt::random_ints<T>(257, seed);
    else return zt::random_reals<T>(257, seed, T(-9), T(9));
}

// One call on x into a fresh vector: its status and its output.
template <class T, class F, class... A> void dig(zt::Digest& d, const std::vector<T>& x, F f, A... args) {
    std::vector<T> y(x.size());
    d.status(f(x.data(), y.data(), int(x.size()), args...));
    d.add(y);
}
template <class T> using Level = zamStatus (*)(const T*, T*, int, T);

#define REAL_DIGEST(T, x, cmp)                                                                                  \
    dig(d, x, zamsThreshold_##T, Zam##T(1), cmp);                                                             \
    for (Level<Zam##T> f : {zamsThreshold_LT_##T, zamsThreshold_GT_##T, zamsThreshold_LTAbs_##T, zamsThreshold_GTAbs_##T}) \
        dig(d, x, f, Zam##T(1));                                                                              \
    dig(d, x, zamsThreshold_LTVal_##T, Zam##T(1), Zam##T(5));                                                  \
    dig(d, x, zamsThreshold_GTVal_##T, Zam##T(1), Zam##T(5));                                                  \
    dig(d, x, zamsThreshold_LTValGTVal_##T, Zam##T(-1), Zam##T(5), Zam##T(1), Zam##T(6));                      \
    dig(d, x, zamsThreshold_LTInv_##T, Zam##T(0.5))

ZAMS_DIGEST(threshold_real) {
    auto s16 = dpool<Zam16s>(1);
    auto s32 = dpool<Zam32s>(2);
    dig(d, s16, zamsThreshold_16s, Zam16s(100), zamCmpLess);
    for (Level<Zam16s> f : {zamsThreshold_LT_16s, zamsThreshold_GT_16s, zamsThreshold_LTAbs_16s, zamsThreshold_GTAbs_16s})
        dig(d, s16, f, Zam16s(f == zamsThreshold_LT_16s ? -100 : 100));
    dig(d, s16, zamsThreshold_LTVal_16s, Zam16s(0), Zam16s(3));
    dig(d, s16, zamsThreshold_GTVal_16s, Zam16s(0), Zam16s(3));
    dig(d, s16, zamsThreshold_LTValGTVal_16s, Zam16s(-9), Zam16s(1), Zam16s(9), Zam16s(2));
    for (Level<Zam32s> f : {zamsThreshold_LT_32s, zamsThreshold_GT_32s, zamsThreshold_LTAbs_32s, zamsThreshold_GTAbs_32s})
        dig(d, s32, f, 100);
    dig(d, s32, zamsThreshold_LTValGTVal_32s, -9, 1, 9, 2);
    auto f32 = dpool<Zam32f>(3);
    auto f64 = dpool<Zam64f>(4);
    REAL_DIGEST(32f, f32, zamCmpGreater);
    REAL_DIGEST(64f, f64, zamCmpLess);
}

#define COMPLEX_DIGEST(T, P, seed, cmp)                                                                        \
    auto x##T = cpool<Zam##T>(seed, 20);                                                                      \
    dig(d, x##T, zamsThreshold_##T, P(20), cmp);                                                              \
    dig(d, x##T, zamsThreshold_LT_##T, P(30));                                                                \
    dig(d, x##T, zamsThreshold_GT_##T, P(30));                                                                \
    dig(d, x##T, zamsThreshold_LTVal_##T, P(30), Zam##T{1, 2});                                               \
    dig(d, x##T, zamsThreshold_GTVal_##T, P(30), Zam##T{1, 2})

ZAMS_DIGEST(threshold_complex) {
    COMPLEX_DIGEST(16sc, Zam16s, 5, zamCmpLess);
    COMPLEX_DIGEST(32fc, Zam32f, 6, zamCmpGreater);
    dig(d, x32fc, zamsThreshold_LTInv_32fc, 0.0f);
    COMPLEX_DIGEST(64fc, Zam64f, 7, zamCmpGreater);
    dig(d, x64fc, zamsThreshold_LTInv_64fc, 7.0);
}

}  // namespace
