// Pre- and de-emphasis against models: single-precision steps for floats,
// exact rationals rounded half to even for the Q15 forms. Pieces of a signal
// fed through *pMem give the one-call result.
#include <cmath>

#include "digest.h"
#include "sweep.h"

namespace {

using LD = long double;

// Exact v 2^-(15 + sf), ties to even, saturated (|v| < 2^31, so long double is exact).
Zam16s q15(int64_t v, int sf) {
    LD r = std::ldexp(LD(v), -(15 + sf));
    r = std::nearbyint(r);
    return Zam16s(r > 32767 ? 32767 : r < -32768 ? -32768 : r);
}

std::vector<float> pre_model(const std::vector<float>& x, float k, float mem) {
    std::vector<float> y(x.size());
    for (size_t n = 0; n < x.size(); ++n) {
        const float p = k * (n ? x[n - 1] : mem);
        y[n] = x[n] - p;
    }
    return y;
}
std::vector<float> de_model(const std::vector<float>& x, float k, float mem) {
    std::vector<float> y(x.size());
    for (size_t n = 0; n < x.size(); ++n) {
        const float p = k * (n ? y[n - 1] : mem);
        y[n] = x[n] + p;
    }
    return y;
}

TEST(Emphasis, FloatAnyLengthAlignmentAndInPlace) {
    const auto x = zt::random_reals<float>(300, 3, -2.0f, 2.0f);
    const float k = 0.9375f, mem = 0.75f;
    for (int len = 1; len <= 300; len += len < 40 ? 1 : 13) {
        std::vector<float> xs(x.begin(), x.begin() + len);
        const auto pre = pre_model(xs, k, mem), de = de_model(xs, k, mem);
        for (size_t off : {0, 4, 12, 28}) {
            zt::Guarded<float> s(len, off), d(len, 32 - off);
            s.copy_from(xs.data());
            float m = mem;
            ASSERT_EQ(zamsPreemphasize_32f(s.data(), d.data(), len, k, &m), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(d[i]), zt::bits(pre[i])) << len << " " << i;
            EXPECT_EQ(m, xs.back());
            m = mem;
            ASSERT_EQ(zamsPreemphasize_32f_I(s.data(), len, k, &m), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(s[i]), zt::bits(pre[i])) << "in place " << len;
            s.copy_from(xs.data());
            m = mem;
            ASSERT_EQ(zamsDeemphasize_32f(s.data(), d.data(), len, k, &m), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(d[i]), zt::bits(de[i])) << len << " " << i;
            EXPECT_EQ(m, de.back());
            m = mem;
            ASSERT_EQ(zamsDeemphasize_32f_I(s.data(), len, k, &m), zamStatusOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(s[i]), zt::bits(de[i]));
            ASSERT_TRUE(s.guards_intact() && d.guards_intact());
        }
    }
}

TEST(Emphasis, Q15ExactRoundingScaleAndPieces) {
    const auto x = zt::random_ints<Zam16s>(257, 5);
    for (Zam16s k : {Zam16s(31130), Zam16s(-32768), Zam16s(32767), Zam16s(0), Zam16s(-1)}) {
        for (int sf : {0, 1, 3, -2, 40, -40}) {
            const Zam16s mem0 = -1234;
            std::vector<Zam16s> pre(x.size()), de(x.size());
            Zam16s prev = mem0;
            for (size_t n = 0; n < x.size(); ++n) pre[n] = q15(int64_t(x[n]) * 32768 - int64_t(k) * (n ? x[n - 1] : mem0), sf);
            for (size_t n = 0; n < x.size(); ++n) prev = de[n] = q15(int64_t(x[n]) * 32768 + int64_t(k) * prev, sf);
            // in three pieces, out of place and in place
            std::vector<Zam16s> got(x.size()), io(x);
            Zam16s m1 = mem0, m2 = mem0;
            for (auto [a, b] : {std::pair{0, 100}, {100, 101}, {101, 257}}) {
                ASSERT_EQ(zamsPreemphasize_16s_Sfs(x.data() + a, got.data() + a, b - a, k, &m1, sf), zamStatusOk);
                ASSERT_EQ(zamsPreemphasize_16s_ISfs(io.data() + a, b - a, k, &m2, sf), zamStatusOk);
            }
            EXPECT_EQ(got, pre) << k << " " << sf;
            EXPECT_EQ(io, pre);
            EXPECT_EQ(m1, x.back());
            io = x;
            m1 = m2 = mem0;
            for (auto [a, b] : {std::pair{0, 7}, {7, 257}}) {
                ASSERT_EQ(zamsDeemphasize_16s_Sfs(x.data() + a, got.data() + a, b - a, k, &m1, sf), zamStatusOk);
                ASSERT_EQ(zamsDeemphasize_16s_ISfs(io.data() + a, b - a, k, &m2, sf), zamStatusOk);
            }
            EXPECT_EQ(got, de) << k << " " << sf;
            EXPECT_EQ(io, de);
            EXPECT_EQ(m1, de.back());
        }
    }
}

ZAMS_DIGEST(emphasis) {
    const auto x = zt::random_reals<float>(500, 6, -1.0f, 1.0f);
    std::vector<float> y(500);
    float m = 0.1f;
    d.status(zamsPreemphasize_32f(x.data(), y.data(), 500, 0.97f, &m)), d.add(y), d.add(&m, 1);
    d.status(zamsDeemphasize_32f(x.data(), y.data(), 500, 0.97f, &m)), d.add(y), d.add(&m, 1);
    const auto s = zt::random_ints<Zam16s>(500, 7);
    std::vector<Zam16s> z(500);
    Zam16s ms = 99;
    d.status(zamsPreemphasize_16s_Sfs(s.data(), z.data(), 500, 30000, &ms, 1)), d.add(z);
    d.status(zamsDeemphasize_16s_Sfs(s.data(), z.data(), 500, 30000, &ms, 2)), d.add(z);
}

}  // namespace
