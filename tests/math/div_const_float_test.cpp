// Floating division by a constant, through multiplication by the reciprocal.
#include <cstring>

#include "math_util.h"
#include "sweep.h"

namespace {

template <class T> T cmul(T a, T b) { return T{a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }

TEST(DivCFloat, ChecksComeBeforeTheZeroConstant) {
    Zam32f x[4] = {1, 2, 3, 4}, y[4] = {9, 9, 9, 9};
    EXPECT_EQ(zamsDivC_32f(nullptr, 0.f, y, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsDivC_32f(x, 0.f, y, 0), zamStatusBadLength);
    EXPECT_EQ(zamsDivC_32f(x, 0.f, y, 4), zamStatusDivideByZero);
    EXPECT_EQ(zamsDivC_32f(x, -0.f, y, 4), zamStatusDivideByZero);
    EXPECT_EQ(zamsDivC_32f_I(0.f, y, 4), zamStatusDivideByZero);
    for (float v : y) EXPECT_EQ(v, 9.f);
    Zam64fc c[2] = {{1, 2}, {3, 4}}, d[2] = {{7, 7}, {7, 7}};
    EXPECT_EQ(zamsDivC_64fc(c, Zam64fc{0, 0}, d, 2), zamStatusDivideByZero);
    EXPECT_EQ(zamsDivC_64fc_I(Zam64fc{0, 0}, nullptr, 2), zamStatusNullPointer);
    EXPECT_EQ(d[1].re, 7.0);
    // A constant with only one zero part divides.
    EXPECT_EQ(zamsDivC_64fc(c, Zam64fc{0, 2}, d, 2), zamStatusOk);
    EXPECT_EQ(mt::first(d, 1), (std::vector<Zam64f>{1.0, -0.5}));
}

TEST(DivCFloat, RealIsMultiplicationByTheRoundedReciprocal) {
    auto pool = zt::random_reals<Zam32f>(300, 21);
    for (Zam32f val : {3.0f, -7.5f, 1e-30f, 0.1f}) {
        const Zam32f r = 1.0f / val;
        zt::sweep_unary<Zam32f, Zam32f>([val](const Zam32f* s, Zam32f* d, int n) { return zamsDivC_32f(s, val, d, n); },
                                        [r](Zam32f x) { return x * r; }, pool, {.len_step = 13});
    }
    auto pool64 = zt::random_reals<Zam64f>(300, 22);
    const Zam64f val = 3.0, r = 1.0 / val;
    zt::sweep_unary<Zam64f, Zam64f>([val](const Zam64f* s, Zam64f* d, int n) { return zamsDivC_64f(s, val, d, n); },
                                    [r](Zam64f x) { return x * r; }, pool64, {.len_step = 11});
    std::vector<Zam64f> io(pool64.begin(), pool64.begin() + 37);
    ASSERT_EQ(zamsDivC_64f_I(val, io.data(), 37), zamStatusOk);
    for (int i = 0; i < 37; ++i) EXPECT_EQ(io[i], pool64[i] * r);
}

TEST(DivCFloat, ComplexIsMultiplicationByTheComplexReciprocal) {
    auto pool = mt::as_complex<Zam32fc>(zt::random_reals<Zam32f>(600, 23));
    const Zam32fc val{3.0f, -4.0f};
    const Zam32fc r{3.0f / 25.0f, 4.0f / 25.0f};
    zt::sweep_unary<Zam32fc, Zam32fc>([val](const Zam32fc* s, Zam32fc* d, int n) { return zamsDivC_32fc(s, val, d, n); },
                                      [r](Zam32fc x) { return cmul(x, r); }, pool, {.len_step = 17});
    // Close to the true quotient.
    Zam32fc q;
    const Zam32fc x{10.0f, 5.0f};
    ASSERT_EQ(zamsDivC_32fc(&x, val, &q, 1), zamStatusOk);
    EXPECT_NEAR(q.re, 0.4f, 1e-6f);  // (10 + 5i) / (3 - 4i) = 0.4 + 2.2i
    EXPECT_NEAR(q.im, 2.2f, 1e-6f);
    std::vector<Zam32fc> io(pool.begin(), pool.begin() + 21);
    ASSERT_EQ(zamsDivC_32fc_I(val, io.data(), 21), zamStatusOk);
    for (int i = 0; i < 21; ++i) EXPECT_TRUE(mt::same(io[i], cmul(pool[i], r))) << i;
}

ZAMS_DIGEST(divc_float) {
    auto x = zt::random_reals<Zam64f>(258, 24);
    std::vector<Zam64f> y(258);
    mt::rec(d, zamsDivC_64f(x.data(), 7.0, y.data(), 258), y);
    std::vector<Zam64fc> c(129);
    mt::rec(d, zamsDivC_64fc(reinterpret_cast<const Zam64fc*>(x.data()), Zam64fc{0.5, 3.0}, c.data(), 129), c);
    std::vector<Zam32f> xf(x.begin(), x.end()), yf(258);
    mt::rec(d, zamsDivC_32f(xf.data(), -3.0f, yf.data(), 258), yf);
}

}  // namespace
