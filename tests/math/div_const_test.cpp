// Integer division by a constant (DivC) and of a constant (DivCRev_16u).
#include "digest.h"
#include "math_util.h"

namespace {

using mt::Wide;

template <class T> T ref_quot(Wide n, Wide d, int sf, int lo) {
    using L = std::numeric_limits<T>;
    if (sf < lo) return n == 0 ? T(0) : ((n < 0) != (d < 0) ? L::min() : L::max());
    Wide N = n, D = d;
    for (int k = sf; k < 0; ++k) N *= 2;
    for (int k = 0; k < sf; ++k) D *= 2;
    if (D < 0) N = -N, D = -D;
    return mt::clamp_to<T>(mt::round_div(N, D, 1));
}

TEST(DivC, ZeroConstantIsAnErrorAfterPointersAndLength) {
    Zam16s x[2] = {5, 6}, y[2] = {7, 7};
    EXPECT_EQ(zamsDivC_16s_Sfs(nullptr, 0, y, 0, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsDivC_16s_Sfs(x, 0, y, 0, 0), zamStatusBadLength);
    EXPECT_EQ(zamsDivC_16s_Sfs(x, 0, y, 2, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsDivC_16s_ISfs(0, y, 2, 99), zamStatusDivideByZero);
    Zam8u b[2] = {1, 2};
    EXPECT_EQ(zamsDivC_8u_ISfs(0, b, 2, 0), zamStatusDivideByZero);
    Zam16sc c[1] = {{1, 2}};
    EXPECT_EQ(zamsDivC_16sc_ISfs({0, 0}, c, 1, 0), zamStatusDivideByZero);
    Zam64s w[1] = {9};
    EXPECT_EQ(zamsDivC_64s_ISfs(0, w, 1, 0), zamStatusDivideByZero);
    EXPECT_EQ(zamsDivC_64s_ISfs(3, w, 0, 0), zamStatusBadLength);
    EXPECT_TRUE(y[0] == 7 && b[0] == 1 && c[0].re == 1 && w[0] == 9);  // nothing written
}

TEST(DivC, EveryConstantClassEveryScale) {
    auto x16 = zt::random_ints<Zam16s>(333, 1);
    auto x8 = zt::random_ints<Zam8u>(333, 2);
    std::vector<Zam16s> y16(333);
    std::vector<Zam8u> y8(333);
    for (Zam16s val : {Zam16s(1), Zam16s(-1), Zam16s(3), Zam16s(-7), Zam16s(32767), Zam16s(-32768), Zam16s(2)}) {
        for (int sf = -32; sf <= 17; ++sf) {
            ASSERT_EQ(zamsDivC_16s_Sfs(x16.data() + 1, val, y16.data() + 1, 332, sf), zamStatusOk);
            for (int i = 1; i < 333; ++i)
                ASSERT_EQ(y16[i], sf > 15 ? 0 : ref_quot<Zam16s>(x16[i], val, sf, -30))
                    << x16[i] << " / " << val << " sf " << sf;
            Zam8u v8 = Zam8u(val);
            if (v8 == 0) continue;
            ASSERT_EQ(zamsDivC_8u_Sfs(x8.data(), v8, y8.data() + 3, 330, sf), zamStatusOk);
            for (int i = 0; i < 330; ++i)
                ASSERT_EQ(y8[i + 3], sf > 8 ? 0 : ref_quot<Zam8u>(x8[i], v8, sf, -15))
                    << int(x8[i]) << " / " << int(v8) << " sf " << sf;
        }
    }
    auto p = zt::random_ints<Zam16s>(600, 3);
    std::vector<Zam16sc> xc(300), yc(300);
    std::memcpy(xc.data(), p.data(), sizeof(Zam16sc) * 300);
    for (Zam16sc val : {Zam16sc{3, -4}, Zam16sc{0, 1}, Zam16sc{-32768, -32768}, Zam16sc{1, 0}}) {
        for (int sf = -18; sf <= 17; ++sf) {
            ASSERT_EQ(zamsDivC_16sc_Sfs(xc.data(), val, yc.data(), 300, sf), zamStatusOk);
            Wide c = val.re, d = val.im, norm = c * c + d * d;
            for (int i = 0; i < 300; ++i) {
                Wide a = xc[i].re, b = xc[i].im;
                Zam16s re = sf > 15 ? 0 : ref_quot<Zam16s>(a * c + b * d, norm, sf, -16);
                Zam16s im = sf > 15 ? 0 : ref_quot<Zam16s>(b * c - a * d, norm, sf, -16);
                ASSERT_EQ(yc[i].re, re) << i << " sf " << sf;
                ASSERT_EQ(yc[i].im, im) << i << " sf " << sf;
            }
        }
    }
}

TEST(DivC, Signed64WholeRange) {
    auto x = zt::random_ints<Zam64s>(400, 4);
    for (int i = 0; i < 400; i += 3) x[i] >>= (i % 50);
    for (Zam64s val : {Zam64s(1), Zam64s(-1), Zam64s(7), INT64_MIN, INT64_MAX, Zam64s(-1000003)}) {
        for (int sf : {-63, -40, -5, -1, 0, 1, 2, 30, 62, 63, 64, 70}) {
            std::vector<Zam64s> io = x;
            ASSERT_EQ(zamsDivC_64s_ISfs(val, io.data(), 400, sf), zamStatusOk);
            // |x| 2^63 fits in 128 bits; above 63 every quotient is below one half
            for (int i = 0; i < 400 && sizeof(Wide) > 8; ++i)
                ASSERT_EQ(io[i], sf > 63 ? 0 : ref_quot<Zam64s>(x[i], val, sf, INT32_MIN)) << x[i] << " / " << val << " sf " << sf;
        }
    }
    std::vector<Zam64s> t = {5, -5, 6, INT64_MIN};  // 2.5 -> 2
    ASSERT_EQ(zamsDivC_64s_ISfs(2, t.data(), 4, 0), zamStatusOk);
    EXPECT_EQ(t, (std::vector<Zam64s>{2, -2, 3, INT64_MIN / 2}));
}

TEST(DivCRev16u, QuotientsZerosAndZeroConstant) {
    auto x = zt::random_ints<Zam16u>(500, 5);
    for (int i = 0; i < 500; i += 4) x[i] = Zam16u(x[i] % 13);
    for (Zam16u val : {Zam16u(1), Zam16u(7), Zam16u(65535), Zam16u(1000)}) {
        std::vector<Zam16u> y(500);
        bool any_zero = false;
        for (auto v : x) any_zero |= v == 0;
        ASSERT_TRUE(any_zero);
        ASSERT_EQ(zamsDivCRev_16u(x.data(), val, y.data(), 500), zamStatusWarnDivByZero);
        for (int i = 0; i < 500; ++i) {
            Zam16u want = x[i] == 0 ? 65535 : Zam16u(mt::round_div(val, x[i], 1));
            ASSERT_EQ(y[i], want) << val << " / " << x[i];
        }
    }
    std::vector<Zam16u> io = x;
    EXPECT_EQ(zamsDivCRev_16u_I(0, io.data(), 500), zamStatusWarnDivByZero);
    for (auto v : io) ASSERT_EQ(v, 0);
    Zam16u nz[3] = {1, 2, 3};
    EXPECT_EQ(zamsDivCRev_16u_I(0, nz, 3), zamStatusOk);
    EXPECT_EQ(nz[1], 0);
    std::vector<Zam16u> q = {2, 4, 6};  // 2.5 -> 2
    EXPECT_EQ(zamsDivCRev_16u_I(5, q.data(), 3), zamStatusOk);
    EXPECT_EQ(q, (std::vector<Zam16u>{2, 1, 1}));
}

ZAMS_DIGEST(div_const) {
    auto x = zt::random_ints<Zam16s>(1000, 51);
    auto w = zt::random_ints<Zam64s>(500, 52);
    std::vector<Zam16s> y(1000);
    std::vector<Zam8u> b(1000);
    std::vector<Zam16u> u(1000);
    for (int sf : {-40, -5, 0, 3, 20}) {
        mt::rec(d, zamsDivC_16s_Sfs(x.data(), -77, y.data(), 1000, sf), y);
        mt::rec(d, zamsDivC_8u_Sfs(reinterpret_cast<Zam8u*>(x.data()), 13, b.data(), 1000, sf), b);
        mt::rec(d, zamsDivC_16sc_Sfs(reinterpret_cast<Zam16sc*>(x.data()), {-9, 4}, reinterpret_cast<Zam16sc*>(y.data()), 500, sf), y);
        std::vector<Zam64s> io = w;
        mt::rec(d, zamsDivC_64s_ISfs(-12345, io.data(), 500, sf), io);
    }
    mt::rec(d, zamsDivCRev_16u(reinterpret_cast<Zam16u*>(x.data()), 999, u.data(), 1000), u);
}

}  // namespace
