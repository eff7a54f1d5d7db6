// Absolute value.
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

ZAMS_DIGEST(abs_16s) {
    auto x = zt::random_ints<Zam16s>(1000, 5);
    std::vector<Zam16s> y(x.size());
    d.status(zamsAbs_16s(x.data(), y.data(), int(x.size())));
    d.add(y);
}

}  // namespace
