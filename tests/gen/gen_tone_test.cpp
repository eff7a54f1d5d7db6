// Tones against magn cos(phase + 2 pi f n) in long double: short and long
// tones, continuity across calls, the Q15 forms and state, the check order.
#include <cmath>

#include "digest.h"
#include "harness.h"

namespace {

using LD = long double;
const LD kPi = 3.141592653589793238462643383279502884L;

// The angle phase + 2 pi frac(f n), with f n exact in long double (f has
// at most 40 significant bits in these tests and n at most 2^23).
LD angle(LD phase, LD f, long n) {
    LD c = f * n;
    return phase + 2 * kPi * (c - std::floor(c));
}

template <class T> LD re_of(const T& v) {
    if constexpr (std::is_arithmetic_v<T>) return v;
    else return v.re;
}

template <class T, class P, class M>
void check_chain(zamStatus (*fn)(T*, int, M, P, P*), M magn, P f, P phase, double tol, int calls = 30) {
    auto g = zt::rng(uint32_t(f * 1e6));
    for (int call = 0; call < calls; ++call) {
        const int len = 1 + int(g() % 900);
        std::vector<T> d(len);
        const P start = phase;
        ASSERT_EQ(fn(d.data(), len, magn, f, &phase), zamStatusOk);
        for (int n = 0; n < len; ++n) {
            const LD a = angle(start, f, n);
            ASSERT_NEAR(re_of(d[n]), magn * std::cos(a), tol) << "call " << call << " n " << n;
            if constexpr (!std::is_arithmetic_v<T>) {
                ASSERT_NEAR(d[n].im, magn * std::sin(a), tol) << n;
            }
        }
        LD want = std::fmod(angle(start, f, len), 2 * kPi);
        if (want > 2 * kPi - 1e-6L) want = 0;
        ASSERT_NEAR(phase, want, sizeof(P) == 4 ? 2e-6 : 1e-13) << call;
    }
}

TEST(Tone, ChainsFollowTheFormula) {
    for (float f : {0.0f, 1e-4f, 0.0625f, 0.1234567f, 0.25f, 0.4999f}) {
        check_chain<Zam32f, Zam32f, Zam32f>(zamsTone_Direct_32f, 3.0f, f, 0.3f, 3e-6);
        check_chain<Zam32fc, Zam32f, Zam32f>(zamsTone_Direct_32fc, 3.0f, f, 6.28f, 3e-6);
        check_chain<Zam16s, Zam32f, Zam16s>(zamsTone_Direct_16s, 32767, f, 1.0f, 0.5 + 1e-6);
        check_chain<Zam16sc, Zam32f, Zam16s>(zamsTone_Direct_16sc, 1000, f, 4.0f, 0.5 + 1e-6);
        // double frequencies with 40 significant bits, so the model is exact
        const double fd = std::ldexp(std::floor(std::ldexp(double(f) + 1e-7, 40)), -40);
        check_chain<Zam64f, Zam64f, Zam64f>(zamsTone_Direct_64f, 2.0, fd, 0.7, 1e-13);
        check_chain<Zam64fc, Zam64f, Zam64f>(zamsTone_Direct_64fc, 2.0, fd, 5.5, 1e-13);
    }
}

TEST(Tone, LongToneDoesNotDrift) {
    const int n = 1 << 23;
    std::vector<Zam32fc> d(n);
    Zam32f phase = 2.0f;
    const Zam32f f = 0.1234567f;
    ASSERT_EQ(zamsTone_Direct_32fc(d.data(), n, 1.0f, f, &phase), zamStatusOk);
    double worst = 0;
    for (int i = 0; i < n; i += 97) {
        const LD a = angle(2.0f, f, i);
        worst = std::max(worst, double(std::hypot(d[i].re - std::cos(a), d[i].im - std::sin(a))));
    }
    EXPECT_LT(worst, 2e-7);
    std::vector<Zam64f> e(n);
    Zam64f ph = 0.5;
    const double fd = std::ldexp(std::floor(std::ldexp(0.3141592653, 40)), -40);  // n f exact in long double
    ASSERT_EQ(zamsTone_Direct_64f(e.data(), n, 1.0, fd, &ph), zamStatusOk);
    worst = 0;
    for (int i = 0; i < n; i += 97) worst = std::max(worst, double(std::fabs(e[i] - std::cos(angle(0.5, fd, i)))));
    EXPECT_LT(worst, 1e-13);
}

TEST(Tone, CheckOrder) {
    Zam32f phase = 1, bad = 6.2831855f;
    EXPECT_EQ(zamsTone_Direct_32f(nullptr, 0, -1, 0.5f, &bad), zamStatusBadToneMagnitude);
    EXPECT_EQ(zamsTone_Direct_32f(nullptr, 0, 1, 0.5f, &bad), zamStatusBadToneFrequency);
    EXPECT_EQ(zamsTone_Direct_32f(nullptr, 0, 1, NAN, &bad), zamStatusBadToneFrequency);
    EXPECT_EQ(zamsTone_Direct_32f(nullptr, 0, 1, 0.1f, &bad), zamStatusBadTonePhase);
    EXPECT_EQ(zamsTone_Direct_32f(nullptr, 0, 1, 0.1f, &phase), zamStatusNullPointer);
    Zam16s s[2];
    EXPECT_EQ(zamsTone_Direct_16s(s, 2, 0, 0.1f, &phase), zamStatusBadToneMagnitude);
    EXPECT_EQ(phase, 1.0f);
}

TEST(Tone, Q15DirectAndState) {
    Zam16s d[700], ref[700];
    EXPECT_EQ(zamsToneQ15_Direct_16s(d, 1, 0, 0, 0), zamStatusBadToneMagnitude);
    EXPECT_EQ(zamsToneQ15_Direct_16s(d, 1, 1, 16384, 0), zamStatusBadToneFrequency);
    EXPECT_EQ(zamsToneQ15_Direct_16s(d, 1, 1, 0, 205887), zamStatusBadTonePhase);
    ASSERT_EQ(zamsToneQ15_Direct_16s(d, 700, 30000, 16383, 205886), zamStatusOk);
    Zam32f phase = 205886.0f / 32768;
    ASSERT_EQ(zamsTone_Direct_16s(ref, 700, 30000, 16383.0f / 32768, &phase), zamStatusOk);
    EXPECT_EQ(0, std::memcmp(d, ref, sizeof d));

    int size = 0;
    ASSERT_EQ(zamsToneGetStateSizeQ15_16s(&size), zamStatusOk);
    EXPECT_EQ(size, 64);
    zt::Guarded<uint8_t> mem(64);
    auto* st = reinterpret_cast<ZamsToneState_16s*>(mem.data());
    EXPECT_EQ(zamsToneInitQ15_16s(st, 1, 0, -5), zamStatusBadTonePhase);
    ASSERT_EQ(zamsToneInitQ15_16s(st, 25000, 777, 12345), zamStatusOk);
    ZamsToneState_16s* whole = nullptr;
    ASSERT_EQ(zamsToneInitAllocQ15_16s(&whole, 25000, 777, 12345), zamStatusOk);
    // Past the 2^15-sample period of the counter, in pieces and at once.
    constexpr int n = 40000;
    std::vector<Zam16s> a(n), b(n);
    ASSERT_EQ(zamsToneQ15_16s(a.data(), n, whole), zamStatusOk);
    auto g = zt::rng(3);
    for (int at = 0; at < n;) {
        const int len = std::min(n - at, 1 + int(g() % 2000));
        ASSERT_EQ(zamsToneQ15_16s(b.data() + at, len, st), zamStatusOk);
        at += len;
    }
    EXPECT_EQ(a, b);
    EXPECT_TRUE(mem.guards_intact());
    for (int i = 0; i < n; ++i)
        ASSERT_NEAR(a[i], 25000 * std::cos(angle(12345.0L / 32768, 777.0L / 32768, i)), 0.5 + 1e-6) << i;
    EXPECT_EQ(zamsToneFree(whole), zamStatusOk);
    EXPECT_EQ(zamsToneFree(st), zamStatusOk);
}

ZAMS_DIGEST(tone) {
    std::vector<Zam32f> f(1000);
    std::vector<Zam64fc> c(1000);
    std::vector<Zam16sc> s(1000);
    Zam32f ph = 2.0f;
    Zam64f ph64 = 2.0;
    d.status(zamsTone_Direct_32f(f.data(), 1000, 3, 0.0371f, &ph));
    d.add(f);
    d.add(&ph, 1);
    d.status(zamsTone_Direct_64fc(c.data(), 1000, 3, 0.4371, &ph64));
    d.add(c);
    d.add(&ph64, 1);
    d.status(zamsTone_Direct_16sc(s.data(), 1000, 32767, 0.2371f, &ph));
    d.add(s);
    std::vector<Zam16s> q(1000);
    d.status(zamsToneQ15_Direct_16s(q.data(), 1000, 9999, 3333, 123456));
    d.add(q);
}

}  // namespace
