// Triangle waves against the closed formula in long double, continuity
// across calls, the Q15 forms and state, and the check order.
#include <cmath>

#include "digest.h"
#include "harness.h"

namespace {

using LD = long double;
const LD kPi = 3.141592653589793238462643383279502884L;

// The wave at phase theta (any real): falling over h = pi + asym from +magn,
// rising over g = pi - asym.
LD tri(LD magn, LD asym, LD theta) {
    theta = std::fmod(theta, 2 * kPi);
    if (theta < 0) theta += 2 * kPi;
    const LD h = kPi + asym, g = kPi - asym;
    return theta < h ? magn * (1 - 2 * theta / h) : magn * (2 * (theta - h) / g - 1);
}
LD next_phase(LD phase, int len, LD f) { return std::fmod(phase + 2 * kPi * f * len, 2 * kPi); }

TEST(Triangle, QuarterRateSymmetric) {
    Zam32f d[9], phase = 0;
    ASSERT_EQ(zamsTriangle_Direct_32f(d, 9, 1, 0.25f, 0, &phase), zamStatusOk);
    const Zam32f want[9] = {1, 0, -1, 0, 1, 0, -1, 0, 1};
    for (int i = 0; i < 9; ++i) EXPECT_EQ(d[i], want[i]) << i;
    phase = 0;
    ASSERT_EQ(zamsTriangle_Direct_32f(d, 4, 1, 0.25f, 0, &phase), zamStatusOk);
    EXPECT_EQ(phase, 0.0f);
}

// Calls of random lengths, each from the phase the last one returned: every
// block against the formula from its own start, and the returned phase
// against the formula.
template <class T, class P, class M>
void check_chain(zamStatus (*fn)(T*, int, M, P, P, P*), M magn, P f, P asym, P phase, double tol) {
    auto g = zt::rng(uint32_t(f * 1000));
    for (int call = 0; call < 40; ++call) {
        const int len = 1 + int(g() % 700);
        std::vector<T> d(len);
        const P start = phase;
        ASSERT_EQ(fn(d.data(), len, magn, f, asym, &phase), zamStatusOk);
        for (int n = 0; n < len; ++n) {
            const LD theta = start + 2 * kPi * LD(f) * n;
            if constexpr (std::is_arithmetic_v<T>) {
                ASSERT_NEAR(d[n], tri(magn, asym, theta), tol) << "call " << call << " n " << n;
            } else {
                ASSERT_NEAR(d[n].re, tri(magn, asym, theta), tol) << "call " << call << " n " << n;
                ASSERT_NEAR(d[n].im, tri(magn, asym, theta - kPi / 2), tol) << "call " << call << " n " << n;
            }
        }
        LD want = next_phase(start, len, f);
        if (want > 2 * kPi - 1e-5L) want = 0;  // may round to 2 pi and come back as 0
        ASSERT_NEAR(phase, want, sizeof(P) == 4 ? 2e-6 : 1e-12) << call;
        ASSERT_TRUE(phase >= 0 && phase < 2 * kPi);
    }
}

TEST(Triangle, ChainsFollowTheFormula) {
    for (float f : {0.01f, 0.123f, 0.3f, 0.499f})
        for (float a : {0.0f, -2.5f, 1.0f, 3.1f}) {
            // 32f keeps the running value in double: only the output rounds
            check_chain<Zam32f, Zam32f, Zam32f>(zamsTriangle_Direct_32f, 2.5f, f, a, 1.0f, 1e-5);
            check_chain<Zam32fc, Zam32f, Zam32f>(zamsTriangle_Direct_32fc, 2.5f, f, a, 5.0f, 1e-5);
            check_chain<Zam16s, Zam32f, Zam16s>(zamsTriangle_Direct_16s, 30000, f, a, 0.5f, 0.5 + 1e-6);
            check_chain<Zam16sc, Zam32f, Zam16s>(zamsTriangle_Direct_16sc, 1000, f, a, 6.0f, 0.5 + 1e-6);
            // the running value gathers rounding, amplified by h / g at the
            // turns of a steep wave
            check_chain<Zam64f, Zam64f, Zam64f>(zamsTriangle_Direct_64f, 1.0, f + 1e-9, a, 0.25, 1e-10);
            check_chain<Zam64fc, Zam64f, Zam64f>(zamsTriangle_Direct_64fc, 3.0, f, a - 1e-9, 3.0, 1e-10);
        }
}

TEST(Triangle, LongWaveStaysInStep) {
    const int n = 1 << 20;
    std::vector<Zam64f> d(n);
    Zam64f phase = 1.0;
    ASSERT_EQ(zamsTriangle_Direct_64f(d.data(), n, 1.0, 0.0123, 0.7, &phase), zamStatusOk);
    for (int i = n - 1000; i < n; ++i) ASSERT_NEAR(d[i], tri(1, 0.7L, 1 + 2 * kPi * 0.0123L * i), 1e-8) << i;
}

TEST(Triangle, CheckOrder) {
    Zam32f phase = 1, bad = 6.2831855f;  // 2 pi rounded up to float
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 0, 0.5f, 4, &bad), zamStatusBadMagnitude);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, 0.5f, 4, &bad), zamStatusBadFrequency);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, -0.01f, 4, &bad), zamStatusBadFrequency);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, 0.1f, float(M_PI), &bad), zamStatusBadAsymmetry);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, 0.1f, -3.1416f, &bad), zamStatusBadAsymmetry);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, 0.1f, 0, &bad), zamStatusBadPhase);
    EXPECT_EQ(zamsTriangle_Direct_32f(nullptr, 0, 1, 0.1f, 0, &phase), zamStatusNullPointer);
    Zam64f p64 = -1e-300;
    EXPECT_EQ(zamsTriangle_Direct_64f(nullptr, 0, 1, 0.1, 0, &p64), zamStatusBadPhase);
    EXPECT_EQ(phase, 1.0f);
}

TEST(Triangle, Q15Direct) {
    Zam16s d[300], ref[300];
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 0, 0, 0, 0), zamStatusBadMagnitude);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, 16384, 0, 0), zamStatusBadFrequency);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, -1, 0, 0), zamStatusBadFrequency);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, 0, 205887, 0), zamStatusBadPhase);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, 0, -1, 0), zamStatusBadPhase);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, 0, 0, 102944), zamStatusBadAsymmetry);
    EXPECT_EQ(zamsTriangleQ15_Direct_16s(d, 1, 1, 0, 0, -102944), zamStatusBadAsymmetry);
    // The extremes of every range are accepted, and the values are the 16s
    // Direct member's with the parameters converted in single precision.
    const int cases[][3] = {{16383, 205886, 102943}, {0, 0, -102943}, {5000, 100000, 0}};
    for (auto& c : cases) {
        ASSERT_EQ(zamsTriangleQ15_Direct_16s(d, 300, 12345, Zam16s(c[0]), c[1], c[2]), zamStatusOk);
        Zam32f phase = float(c[1]) * float(1.0 / 32768);
        ASSERT_EQ(zamsTriangle_Direct_16s(ref, 300, 12345, float(c[0]) * float(1.0 / 32768),
                                          float(c[2]) * float(1.0 / 32768), &phase),
                  zamStatusOk);
        EXPECT_EQ(0, std::memcmp(d, ref, sizeof d));
    }
}

TEST(Triangle, Q15StateContinuesTheWave) {
    int size = 0;
    ASSERT_EQ(zamsTriangleGetStateSizeQ15_16s(&size), zamStatusOk);
    EXPECT_EQ(size, 128);
    zt::Guarded<uint8_t> mem(128);
    auto* st = reinterpret_cast<ZamsTriangleState_16s*>(mem.data());
    ASSERT_EQ(zamsTriangleInitQ15_16s(st, 20000, 1234, 70000, -30000), zamStatusOk);
    ZamsTriangleState_16s* whole = nullptr;
    ASSERT_EQ(zamsTriangleInitAllocQ15_16s(&whole, 20000, 1234, 70000, -30000), zamStatusOk);
    constexpr int n = 5000;
    std::vector<Zam16s> a(n), b(n);
    ASSERT_EQ(zamsTriangleQ15_16s(a.data(), n, whole), zamStatusOk);
    auto g = zt::rng(11);
    for (int at = 0; at < n;) {
        const int len = std::min(n - at, 1 + int(g() % 300));
        ASSERT_EQ(zamsTriangleQ15_16s(b.data() + at, len, st), zamStatusOk);
        at += len;
    }
    EXPECT_EQ(a, b);
    EXPECT_TRUE(mem.guards_intact());
    const LD q = 1.0L / 32768;
    for (int i = 0; i < n; ++i)
        ASSERT_NEAR(a[i], tri(20000, -30000 * q, 70000 * q + 2 * kPi * 1234 * q * i), 0.5 + 1e-6) << i;
    EXPECT_EQ(zamsTriangleFree(whole), zamStatusOk);
    EXPECT_EQ(zamsTriangleFree(st), zamStatusOk);
}

TEST(Triangle, Q15StateChecks) {
    std::vector<double> mem(16);
    auto* st = reinterpret_cast<ZamsTriangleState_16s*>(mem.data());
    ZamsTriangleState_16s* p = nullptr;
    EXPECT_EQ(zamsTriangleInitQ15_16s(st, 0, 0, 0, 0), zamStatusBadMagnitude);
    EXPECT_EQ(zamsTriangleInitQ15_16s(st, 1, 16384, 0, 0), zamStatusBadFrequency);
    EXPECT_EQ(zamsTriangleInitQ15_16s(st, 1, 0, 205887, 0), zamStatusBadPhase);
    EXPECT_EQ(zamsTriangleInitAllocQ15_16s(&p, 1, 0, 0, 102944), zamStatusBadAsymmetry);
    EXPECT_EQ(p, nullptr);
}

ZAMS_DIGEST(triangle) {
    std::vector<Zam32f> f(500);
    std::vector<Zam64fc> c(500);
    std::vector<Zam16sc> s(500);
    Zam32f ph = 2.0f;
    Zam64f ph64 = 2.0;
    d.status(zamsTriangle_Direct_32f(f.data(), 500, 3, 0.0371f, -1.2f, &ph));
    d.add(f);
    d.add(&ph, 1);
    d.status(zamsTriangle_Direct_64fc(c.data(), 500, 3, 0.4371, 2.2, &ph64));
    d.add(c);
    d.add(&ph64, 1);
    d.status(zamsTriangle_Direct_16sc(s.data(), 500, 32767, 0.2371f, 0.2f, &ph));
    d.add(s);
    std::vector<Zam16s> q(500);
    d.status(zamsTriangleQ15_Direct_16s(q.data(), 500, 9999, 3333, 123456, -50000));
    d.add(q);
}

}  // namespace
