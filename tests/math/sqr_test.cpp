// Square (the cube root of single precision is with the double one).
#include <cmath>

#include "digest.h"
#include "math_util.h"
#include "sweep.h"

namespace {

TEST(Sqr, FloatAndComplex) {
    auto x = zt::random_reals<Zam32f>(300, 1);
    zt::sweep_unary<Zam32f, Zam32f>(zamsSqr_32f, [](Zam32f v) { return v * v; }, x);
    auto y = zt::random_reals<Zam64f>(300, 2);
    zt::sweep_unary<Zam64f, Zam64f>(zamsSqr_64f, [](Zam64f v) { return v * v; }, y);
    auto xi = x;
    auto yi = y;
    ASSERT_EQ(zamsSqr_32f_I(xi.data() + 1, 299), zamStatusOk);
    ASSERT_EQ(zamsSqr_64f_I(yi.data() + 1, 299), zamStatusOk);
    EXPECT_EQ(xi[0], x[0]);
    EXPECT_EQ(yi[0], y[0]);
    for (int i = 1; i < 300; ++i) {
        ASSERT_EQ(zt::bits(xi[i]), zt::bits(x[i] * x[i])) << i;
        ASSERT_EQ(zt::bits(yi[i]), zt::bits(y[i] * y[i])) << i;
    }
    Zam32fc c[3] = {{3, 4}, {1e20f, 1e20f}, {-2, 0.5f}};
    ASSERT_EQ(zamsSqr_32fc_I(c, 3), zamStatusOk);
    // formed in double: no inf - inf
    EXPECT_EQ(mt::first(c, 3), (std::vector<Zam32f>{-7.0f, 24.0f, 0.0f, INFINITY, 3.75f, -2.0f}));
    Zam64fc d[1] = {{-1, 2}}, e[1];
    ASSERT_EQ(zamsSqr_64fc(d, e, 1), zamStatusOk);
    EXPECT_EQ(mt::first(e, 1), (std::vector<Zam64f>{-3.0, -4.0}));
    ASSERT_EQ(zamsSqr_64fc_I(d, 1), zamStatusOk);
    EXPECT_EQ(mt::first(d, 1), (std::vector<Zam64f>{-3.0, -4.0}));
}

TEST(Sqr, IntegerEverySourceEveryScale) {
    std::vector<Zam16s> s(65536), ys(65536);
    std::vector<Zam16u> yu(65536);
    std::vector<Zam8u> b8(256), y8(256);
    for (int i = 0; i < 65536; ++i) s[i] = Zam16s(i);
    for (int i = 0; i < 256; ++i) b8[i] = Zam8u(i);
    auto* u = reinterpret_cast<const Zam16u*>(s.data());
    for (int sf = -3; sf <= 34; ++sf) {
        ASSERT_EQ(zamsSqr_16s_Sfs(s.data(), ys.data(), 65536, sf), zamStatusOk);
        ASSERT_EQ(zamsSqr_16u_Sfs(u, yu.data(), 65536, sf), zamStatusOk);
        ASSERT_EQ(zamsSqr_8u_Sfs(b8.data(), y8.data(), 256, sf), zamStatusOk);
        auto model = [sf](mt::Wide x) {
            return sf >= 0 ? mt::round_div(x * x, mt::Wide(1) << sf, 1) : x * x * (mt::Wide(1) << -sf);
        };
        for (int i = 0; i < 256; ++i) ASSERT_EQ(y8[i], mt::clamp_to<Zam8u>(model(i))) << i << " sf " << sf;
        // the in-place forms give the same values
        std::vector<Zam16u> iu(u, u + 65536);
        std::vector<Zam8u> ib = b8;
        ASSERT_EQ(zamsSqr_16u_ISfs(iu.data(), 65536, sf), zamStatusOk);
        ASSERT_EQ(zamsSqr_8u_ISfs(ib.data(), 256, sf), zamStatusOk);
        ASSERT_EQ(iu, yu) << "sf " << sf;
        ASSERT_EQ(ib, y8) << "sf " << sf;
        for (int i = 0; i < 65536; i += 3) {
            ASSERT_EQ(ys[i], mt::clamp_to<Zam16s>(model(s[i]))) << s[i] << " sf " << sf;
            ASSERT_EQ(yu[i], mt::clamp_to<Zam16u>(model(u[i]))) << u[i] << " sf " << sf;
        }
    }
    Zam8u b[4] = {3, 5, 16, 255};  // 9 / 4 = 2.25, 25 / 4 = 6.25, 256 / 4 = 64, saturates
    ASSERT_EQ(zamsSqr_8u_ISfs(b, 4, 2), zamStatusOk);
    EXPECT_EQ(mt::first(b, 4), (std::vector<Zam8u>{2, 6, 64, 255}));
    Zam16sc c[2] = {{3, 4}, {-32768, -32768}};  // (-7, 24); (0, 2^31) saturates
    ASSERT_EQ(zamsSqr_16sc_ISfs(c, 2, 1), zamStatusOk);
    EXPECT_EQ(mt::first(c, 2), (std::vector<Zam16s>{-4, 12, 0, 32767}));  // -3.5 -> -4
    Zam16s t[2] = {3, 5};  // 9 / 2 = 4.5 -> 4, 25 / 2 = 12.5 -> 12
    ASSERT_EQ(zamsSqr_16s_ISfs(t, 2, 1), zamStatusOk);
    EXPECT_EQ(mt::first(t, 2), (std::vector<Zam16s>{4, 12}));
}

ZAMS_DIGEST(sqr_cubrt) {
    auto f = zt::random_reals<Zam32f>(2000, 91, -1e4f, 1e4f);
    auto s = zt::random_ints<Zam16s>(2000, 92);
    std::vector<Zam32f> yf(2000);
    std::vector<Zam16s> ys(2000);
    mt::rec(d, zamsSqr_32f(f.data(), yf.data(), 2000), yf);
    mt::rec(d, zamsSqr_32fc(reinterpret_cast<Zam32fc*>(f.data()), reinterpret_cast<Zam32fc*>(yf.data()), 1000), yf);
    mt::rec(d, zamsCubrt_32f(f.data(), yf.data(), 2000), yf);
    for (int sf : {-2, 0, 5}) {
        mt::rec(d, zamsSqr_16s_Sfs(s.data(), ys.data(), 2000, sf), ys);
        mt::rec(d, zamsSqr_16sc_Sfs(reinterpret_cast<Zam16sc*>(s.data()), reinterpret_cast<Zam16sc*>(ys.data()), 1000, sf), ys);
    }
}

}  // namespace
