// Absolute value.
#include <cmath>

#include "digest.h"
#include "sweep.h"

namespace {

Zam16s abs_model(Zam16s x) { return Zam16s(x == -32768 ? 32767 : (x < 0 ? -x : x)); }

TEST(Abs16s, DocumentedValues) {
    const Zam16s x[] = {-32768, -32767, -1, 0, 32767};
    const Zam16s want[] = {32767, 32767, 1, 0, 32767};
    Zam16s y[5];
    ASSERT_EQ(zamsAbs_16s(x, y, 5), zamStatusOk);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(y[i], want[i]);
}

TEST(Abs16s, PointersBeforeLength) {
    Zam16s x[1] = {1}, y[1] = {7};
    EXPECT_EQ(zamsAbs_16s(nullptr, y, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsAbs_16s(x, nullptr, 5), zamStatusNullPointer);
    EXPECT_EQ(zamsAbs_16s(x, y, 0), zamStatusBadLength);
    EXPECT_EQ(zamsAbs_16s(x, y, -3), zamStatusBadLength);
    EXPECT_EQ(y[0], 7);
}

TEST(Abs16s, EveryLengthAlignmentAndInPlace) {
    zt::sweep_unary<Zam16s, Zam16s>(zamsAbs_16s, abs_model, zt::random_ints<Zam16s>(300, 11));
}

TEST(Abs, WiderAndFloatingForms) {
    zt::sweep_unary<Zam32s, Zam32s>(zamsAbs_32s, [](Zam32s x) { return x == INT32_MIN ? INT32_MAX : (x < 0 ? -x : x); },
                                    zt::random_ints<Zam32s>(300, 12));
    auto f = zt::random_reals<Zam32f>(300, 13);
    f[3] = -0.0f;
    zt::sweep_unary<Zam32f, Zam32f>(zamsAbs_32f, [](Zam32f x) { return std::fabs(x); }, f);
    zt::sweep_unary<Zam64f, Zam64f>(zamsAbs_64f, [](Zam64f x) { return std::fabs(x); }, zt::random_reals<Zam64f>(300, 14));
    Zam32f n[2] = {-NAN, -INFINITY};
    ASSERT_EQ(zamsAbs_32f_I(n, 2), zamStatusOk);
    EXPECT_TRUE(std::isnan(n[0]) && !std::signbit(n[0]));
    EXPECT_EQ(n[1], INFINITY);
    Zam16s s[2] = {-32768, -5};
    ASSERT_EQ(zamsAbs_16s_I(s, 2), zamStatusOk);
    EXPECT_EQ(s[0], 32767);
    EXPECT_EQ(s[1], 5);
    Zam32s w[1] = {INT32_MIN};
    ASSERT_EQ(zamsAbs_32s_I(w, 1), zamStatusOk);
    EXPECT_EQ(w[0], INT32_MAX);
    Zam64f d[1] = {-0.0};
    ASSERT_EQ(zamsAbs_64f_I(d, 1), zamStatusOk);
    EXPECT_EQ(zt::bits(d[0]), zt::bits(0.0));
    EXPECT_EQ(zamsAbs_64f_I(nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsAbs_32s(w, w, 0), zamStatusBadLength);
}

ZAMS_DIGEST(abs_16s) {
    auto x = zt::random_ints<Zam16s>(1000, 5);
    std::vector<Zam16s> y(x.size());
    d.status(zamsAbs_16s(x.data(), y.data(), int(x.size())));
    d.add(y);
}

}  // namespace
