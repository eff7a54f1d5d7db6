// Random fills against an independent model of the integer generator and
// the polar method, the continuation of a state across calls, and the
// distributions over a million samples (fixed seeds).
#include <cmath>
#include <functional>

#include "digest.h"
#include "harness.h"

namespace {

// The generator one step at a time, as stated: no fused steps, the borrow
// as a signed number.
struct Model {
    uint32_t x = 1131199209u, s0, s1, s2;
    int borrow = -1;
    explicit Model(uint32_t seed) : s0(seed) {
        s1 = uint32_t(uint64_t(seed) * 69069u + 1013904243u);
        s2 = uint32_t(uint64_t(s1) * 69069u + 1013904243u);
    }
    int32_t next() {
        uint32_t t = uint32_t(int64_t(s1) - int64_t(s2) + borrow);
        if (t >= 0x80000000u) {
            borrow = -1;
            t -= 18;
        } else {
            borrow = 0;
        }
        s2 = s1;
        s1 = s0;
        s0 = t;
        x = uint32_t(uint64_t(x) * 69069u + 1013904243u);
        return int32_t(t + x);
    }
    // The polar method: pairs (v, u) scaled and shifted.
    std::vector<double> gauss(int n, double mean, double sd) {
        std::vector<double> out;
        while (int(out.size()) < n) {
            double u, v, s;
            do {
                u = next() * 4.656612873077e-10;
                v = next() * 4.656612873077e-10;
                s = u * u + v * v;
            } while (s >= 1 || s == 0);
            double f = std::sqrt(-2 * std::log(s) / s);
            out.push_back(sd * f * v + mean);
            out.push_back(sd * f * u + mean);
        }
        out.resize(n);
        return out;
    }
};

constexpr double kUni = 2.3283064365387e-10;
const uint32_t kSeeds[] = {0u, 12345u, 0xFFFFFFFFu};

TEST(Rand, IntegerSequenceMatchesModel) {
    // 1000: whole blocks of eight words; 263: a short last block.
    for (uint32_t seed : kSeeds) for (int n : {1000, 263}) {
        Model m(seed);
        std::vector<Zam64f> d(n);
        unsigned cell = seed;
        ASSERT_EQ(zamsRandUniform_Direct_64f(d.data(), n, -1.0, 1.0, &cell), zamStatusOk);
        for (int i = 0; i < n; ++i) {
            const int32_t r = m.next();
            ASSERT_EQ(d[i], 0.0 + 2 * kUni * r) << "seed " << seed << " i " << i;
            ASSERT_EQ(std::llround(d[i] / (2 * kUni)), r);
        }
        EXPECT_EQ(cell, uint32_t(m.next())) << "the seed cell receives the next output";
    }
}

TEST(Rand, StatefulUniformKindsFollowTheFormula) {
    const uint32_t seed = 777;
    {
        Model m(seed);
        ZamsRandUniState_32f* st = nullptr;
        ASSERT_EQ(zamsRandUniformInitAlloc_32f(&st, -3.5f, 10.25f, seed), zamStatusOk);
        std::vector<Zam32f> d(1000);
        ASSERT_EQ(zamsRandUniform_32f(d.data(), 1000, st), zamStatusOk);
        const double mid = (-3.5 + 10.25) / 2, scale = (10.25 + 3.5) * kUni;
        for (int i = 0; i < 1000; ++i) ASSERT_EQ(d[i], float(mid + scale * m.next())) << i;
        EXPECT_EQ(zamsRandUniformFree_32f(st), zamStatusOk);
    }
    {
        Model m(seed);
        int size = 0;
        ASSERT_EQ(zamsRandUniformGetSize_16s(&size), zamStatusOk);
        EXPECT_EQ(size, 48);
        zt::Guarded<uint8_t> mem(48);
        auto* st = reinterpret_cast<ZamsRandUniState_16s*>(mem.data());
        ASSERT_EQ(zamsRandUniformInit_16s(st, -32768, 32767, seed), zamStatusOk);
        EXPECT_TRUE(mem.guards_intact());
        std::vector<Zam16s> d(1000);
        ASSERT_EQ(zamsRandUniform_16s(d.data(), 1000, st), zamStatusOk);
        for (int i = 0; i < 1000; ++i) ASSERT_EQ(d[i], Zam16s(std::trunc(-0.5 + 65535 * kUni * m.next()))) << i;
        EXPECT_TRUE(mem.guards_intact());
        // Free invalidates a state in caller memory and frees nothing.
        EXPECT_EQ(zamsRandUniformFree_16s(st), zamStatusOk);
        EXPECT_EQ(zamsRandUniform_16s(d.data(), 1, st), zamStatusContextMismatch);
    }
    {
        Model m(seed);
        ZamsRandUniState_8u* st = nullptr;
        ASSERT_EQ(zamsRandUniformInitAlloc_8u(&st, 10, 250, seed), zamStatusOk);
        std::vector<Zam8u> d(1000);
        ASSERT_EQ(zamsRandUniform_8u(d.data(), 1000, st), zamStatusOk);
        for (int i = 0; i < 1000; ++i) ASSERT_EQ(d[i], Zam8u(130 + 240 * kUni * m.next())) << i;
        EXPECT_EQ(zamsRandUniformFree_8u(st), zamStatusOk);
    }
}

TEST(Rand, EqualBoundsGiveThatValue) {
    std::vector<Zam32f> d(100);
    unsigned cell = 9;
    ASSERT_EQ(zamsRandUniform_Direct_32f(d.data(), 100, 2.5f, 2.5f, &cell), zamStatusOk);
    for (float v : d) ASSERT_EQ(v, 2.5f);
    std::vector<Zam16s> e(100);
    ASSERT_EQ(zamsRandUniform_Direct_16s(e.data(), 100, -7, -7, &cell), zamStatusOk);
    for (Zam16s v : e) ASSERT_EQ(v, -7);
}

TEST(Rand, GaussMatchesPolarModel) {
    for (uint32_t seed : kSeeds) {
        Model m(seed);
        const auto want = m.gauss(1001, 1.5, 2.0);
        std::vector<Zam64f> d(1001);
        unsigned cell = seed;
        ASSERT_EQ(zamsRandGauss_Direct_64f(d.data(), 1001, 1.5, 2.0, &cell), zamStatusOk);
        for (int i = 0; i < 1001; ++i) ASSERT_NEAR(d[i], want[i], 1e-14 * (1 + std::fabs(want[i]))) << i;
        // The spare of the last pair is dropped: the cell takes the next output.
        EXPECT_EQ(cell, uint32_t(m.next()));
    }
}

TEST(Rand, GaussIntegerKindsRoundAndSaturate) {
    Model m(31);
    const auto want = m.gauss(2000, 100.0, 20000.0);
    ZamsRandGaussState_16s* st = nullptr;
    ASSERT_EQ(zamsRandGaussInitAlloc_16s(&st, 100, 20000, 31), zamStatusOk);
    std::vector<Zam16s> d(2000);
    ASSERT_EQ(zamsRandGauss_16s(d.data(), 2000, st), zamStatusOk);
    int saturated = 0;
    for (int i = 0; i < 2000; ++i) {
        const double c = std::fmin(std::fmax(want[i], -32768.0), 32767.0);
        if (c != want[i]) {
            ++saturated;
            ASSERT_EQ(d[i], Zam16s(c)) << i;
        } else {
            ASSERT_NEAR(d[i], c, 0.5 + 1e-9) << i;
        }
    }
    EXPECT_GT(saturated, 100);
    EXPECT_EQ(zamsRandGaussFree_16s(st), zamStatusOk);

    Model m8(5);
    const auto want8 = m8.gauss(2000, 200.0, 40.0);
    ZamsRandGaussState_8u* s8 = nullptr;
    ASSERT_EQ(zamsRandGaussInitAlloc_8u(&s8, 200, 40, 5), zamStatusOk);
    std::vector<Zam8u> d8(2000);
    ASSERT_EQ(zamsRandGauss_8u(d8.data(), 2000, s8), zamStatusOk);
    for (int i = 0; i < 2000; ++i) ASSERT_NEAR(d8[i], std::fmin(std::fmax(want8[i], 0.0), 255.0), 0.5 + 1e-9) << i;
    EXPECT_EQ(zamsRandGaussFree_8u(s8), zamStatusOk);
}

// Every stateful generator: one fill of n equals fills of random pieces.
template <class T, class S>
void expect_pieces_equal(const std::function<zamStatus(S**)>& make, zamStatus (*fill)(T*, int, S*),
                         zamStatus (*release)(S*)) {
    constexpr int n = 1000;
    S *a = nullptr, *b = nullptr;
    ASSERT_EQ(make(&a), zamStatusOk);
    ASSERT_EQ(make(&b), zamStatusOk);
    std::vector<T> whole(n), pieces(n);
    ASSERT_EQ(fill(whole.data(), n, a), zamStatusOk);
    auto g = zt::rng(4);
    std::vector<int> cuts = {3, 7};
    for (int at = 10; at < n;) cuts.push_back(std::min<int>(n - at, 1 + g() % 37)), at += cuts.back();
    int at = 0;
    for (int c : cuts) {
        ASSERT_EQ(fill(pieces.data() + at, c, b), zamStatusOk);
        at += c;
    }
    EXPECT_EQ(0, std::memcmp(whole.data(), pieces.data(), sizeof(T) * n));
    EXPECT_EQ(release(a), zamStatusOk);
    EXPECT_EQ(release(b), zamStatusOk);
}

TEST(Rand, PiecesEqualOneFill) {
    expect_pieces_equal<Zam8u, ZamsRandUniState_8u>(
        [](auto** p) { return zamsRandUniformInitAlloc_8u(p, 0, 255, 1); }, zamsRandUniform_8u, zamsRandUniformFree_8u);
    expect_pieces_equal<Zam16s, ZamsRandUniState_16s>(
        [](auto** p) { return zamsRandUniformInitAlloc_16s(p, -100, 100, 2); }, zamsRandUniform_16s,
        zamsRandUniformFree_16s);
    expect_pieces_equal<Zam32f, ZamsRandUniState_32f>(
        [](auto** p) { return zamsRandUniformInitAlloc_32f(p, 0, 1, 3); }, zamsRandUniform_32f, zamsRandUniformFree_32f);
    // Odd pieces leave a spare pending that the next piece opens with.
    expect_pieces_equal<Zam8u, ZamsRandGaussState_8u>(
        [](auto** p) { return zamsRandGaussInitAlloc_8u(p, 128, 30, 4); }, zamsRandGauss_8u, zamsRandGaussFree_8u);
    expect_pieces_equal<Zam16s, ZamsRandGaussState_16s>(
        [](auto** p) { return zamsRandGaussInitAlloc_16s(p, 0, 1000, 5); }, zamsRandGauss_16s, zamsRandGaussFree_16s);
    expect_pieces_equal<Zam32f, ZamsRandGaussState_32f>(
        [](auto** p) { return zamsRandGaussInitAlloc_32f(p, 0, 1, 6); }, zamsRandGauss_32f, zamsRandGaussFree_32f);
}

TEST(Rand, GaussSpareOpensTheNextCall) {
    Model m(8);
    const auto want = m.gauss(4, -1.0, 3.0);
    int size = 0;
    ASSERT_EQ(zamsRandGaussGetSize_16s(&size), zamStatusOk);
    std::vector<double> mem((size + 7) / 8);
    auto* st = reinterpret_cast<ZamsRandGaussState_16s*>(mem.data());
    ASSERT_EQ(zamsRandGaussInit_16s(st, -1, 3, 8), zamStatusOk);
    ZamsRandGaussState_32f* sf = nullptr;
    ASSERT_EQ(zamsRandGaussInitAlloc_32f(&sf, -1.0f, 3.0f, 8), zamStatusOk);
    for (int call = 0; call < 2; ++call) {  // (v, u) of the first pair: u is left pending by the first call
        Zam32f f = 0;
        Zam16s s = 0;
        ASSERT_EQ(zamsRandGauss_32f(&f, 1, sf), zamStatusOk);
        ASSERT_EQ(zamsRandGauss_16s(&s, 1, st), zamStatusOk);
        EXPECT_NEAR(f, want[call], 1e-5);
        EXPECT_NEAR(s, want[call], 0.5 + 1e-9);
    }
    EXPECT_EQ(zamsRandGaussFree_32f(sf), zamStatusOk);
    EXPECT_EQ(zamsRandGaussFree_16s(st), zamStatusOk);
}

// Chi-square of counts against expected counts.
double chi2(const std::vector<double>& count, const std::vector<double>& expect) {
    double x = 0;
    for (size_t i = 0; i < count.size(); ++i) x += (count[i] - expect[i]) * (count[i] - expect[i]) / expect[i];
    return x;
}

TEST(Rand, MillionSampleDistributions) {
    constexpr int N = 1000000;
    {
        ZamsRandUniState_32f* st = nullptr;
        ASSERT_EQ(zamsRandUniformInitAlloc_32f(&st, 0.0f, 1.0f, 2024), zamStatusOk);
        std::vector<Zam32f> d(N);
        ASSERT_EQ(zamsRandUniform_32f(d.data(), N, st), zamStatusOk);
        double sum = 0, sq = 0;
        std::vector<double> count(100, 0), expect(100, N / 100.0);
        for (float v : d) sum += v, sq += double(v) * v, count[std::min(99, int(v * 100))] += 1;
        const double mean = sum / N, var = sq / N - mean * mean;
        EXPECT_NEAR(mean, 0.5, 5 * std::sqrt(1 / 12.0 / N));
        EXPECT_NEAR(var, 1 / 12.0, 5 * std::sqrt(1 / 180.0 / N));
        EXPECT_LT(chi2(count, expect), 99 + 5 * std::sqrt(2 * 99.0));
        zamsRandUniformFree_32f(st);
    }
    {
        ZamsRandGaussState_32f* st = nullptr;
        ASSERT_EQ(zamsRandGaussInitAlloc_32f(&st, 0.0f, 1.0f, 4242), zamStatusOk);
        std::vector<Zam32f> d(N);
        ASSERT_EQ(zamsRandGauss_32f(d.data(), N, st), zamStatusOk);
        double sum = 0, sq = 0;
        // 64 bins of width 1/8 over [-4, 4) and two tails.
        std::vector<double> count(66, 0), expect(66);
        auto cdf = [](double x) { return 0.5 * std::erfc(-x / std::sqrt(2.0)); };
        for (int b = 0; b < 66; ++b) {
            const double lo = b == 0 ? -INFINITY : -4 + (b - 1) / 8.0, hi = b == 65 ? INFINITY : -4 + b / 8.0;
            expect[b] = N * (cdf(hi) - cdf(lo));
        }
        for (float v : d) {
            sum += v, sq += double(v) * v;
            count[v < -4 ? 0 : v >= 4 ? 65 : 1 + int((v + 4) * 8)] += 1;
        }
        const double mean = sum / N, var = sq / N - mean * mean;
        EXPECT_NEAR(mean, 0, 5 / std::sqrt(double(N)));
        EXPECT_NEAR(var, 1, 5 * std::sqrt(2.0 / N));
        EXPECT_LT(chi2(count, expect), 65 + 5 * std::sqrt(2 * 65.0));
        zamsRandGaussFree_32f(st);
    }
}

ZAMS_DIGEST(rand) {
    unsigned cell = 17;
    std::vector<Zam64f> d64(777);
    d.status(zamsRandUniform_Direct_64f(d64.data(), 777, -5, 9, &cell));
    d.add(d64);
    d.status(zamsRandGauss_Direct_64f(d64.data(), 777, 1, 3, &cell));
    d.add(d64);
    std::vector<Zam32f> d32(777);
    d.status(zamsRandUniform_Direct_32f(d32.data(), 777, -5, 9, &cell));
    d.status(zamsRandGauss_Direct_32f(d32.data(), 777, 1, 3, &cell));
    d.add(d32);
    std::vector<Zam16s> d16(777);
    d.status(zamsRandUniform_Direct_16s(d16.data(), 777, -500, 900, &cell));
    d.add(d16);
    d.status(zamsRandGauss_Direct_16s(d16.data(), 777, 10, 3000, &cell));
    d.add(d16);
    d.add(&cell, 1);
    ZamsRandGaussState_8u* g8 = nullptr;
    std::vector<Zam8u> d8(777);
    d.status(zamsRandGaussInitAlloc_8u(&g8, 100, 50, 3));
    d.status(zamsRandGauss_8u(d8.data(), 777, g8));
    d.add(d8);
    zamsRandGaussFree_8u(g8);
    ZamsRandGaussState_32f* g32 = nullptr;
    d.status(zamsRandGaussInitAlloc_32f(&g32, -2, 0.5f, 3));
    d.status(zamsRandGauss_32f(d32.data(), 777, g32));
    d.add(d32);
    zamsRandGaussFree_32f(g32);
}

}  // namespace
