// Cube root of double-precision vectors.
#include <cmath>
#include <random>

#include "digest.h"
#include "math_util.h"
#include "mpfr_ulps.h"

namespace {

// Random bit patterns (every binade, subnormals included), a dense walk of
// one period of the exponent reduction, and exact cubes.
std::vector<Zam64f> samples(size_t n, uint32_t seed) {
    std::mt19937_64 g(seed);
    std::vector<Zam64f> v;
    while (v.size() < n) {
        uint64_t b = g();
        if (v.size() % 4 == 1) b &= 0x800fffffffffffffull;  // subnormal
        double x;
        std::memcpy(&x, &b, 8);
        if (std::isfinite(x)) v.push_back(x);
    }
    std::uniform_real_distribution<double> u(1.0, 8.0);
    for (size_t i = 0; i < n / 2; ++i) v.push_back(u(g));
    for (int k = -1000; k <= 1000; k += 7) v.push_back(double(k) * k * k);
    return v;
}

double ulps(Zam64f x, Zam64f got) {
#ifdef ZAMS_TEST_MPFR
    return mpfr_ulps(mpfr_cbrt, x, got);
#else
    return mt::ulp_diff(got, std::cbrt((long double)x));  // x87 long double: 11 bits to spare
#endif
}

TEST(Cubrt64, WithinOneUlp) {
    auto x = samples(sizeof(void*) == 8 ? 40000 : 8000, 1);
    std::vector<Zam64f> y(x.size());
    ASSERT_EQ(zamsCubrt_64f(x.data(), y.data(), int(x.size())), zamStatusOk);
    auto [w, at] = mt::worst(x.size(), [&](size_t i) { return ulps(x[i], y[i]); });
    EXPECT_LE(w, 1.0) << x[at];
    EXPECT_GT(w, 0.4);  // rounding alone reaches this: the measurement saw something
    for (int k = -1000; k <= 1000; ++k) {  // exact cubes have exact roots
        Zam64f c = double(k) * k * k * 0x1p-300, r;
        ASSERT_EQ(zamsCubrt_64f(&c, &r, 1), zamStatusOk);
        ASSERT_EQ(r, double(k) * 0x1p-100) << k;
    }
}

TEST(Cubrt64, SpecialValuesInPlaceAndArguments) {
    Zam64f s[7] = {0.0, -0.0, INFINITY, -INFINITY, -27.0, 5e-324, NAN};
    const Zam64f want[7] = {0.0, -0.0, INFINITY, -INFINITY, -3.0, s[5], NAN};
    ASSERT_EQ(zamsCubrt_64f_I(s, 7), zamStatusOk);
    for (int i = 0; i < 7; ++i) EXPECT_TRUE(i == 5 || mt::same(s[i], want[i])) << i;
    EXPECT_LE(ulps(5e-324, s[5]), 1.0);

    auto x = samples(200, 2);
    std::vector<Zam64f> ref(x.size());
    ASSERT_EQ(zamsCubrt_64f(x.data(), ref.data(), int(x.size())), zamStatusOk);
    for (size_t off : {0, 1, 3, 8}) {
        zt::Guarded<Zam64f> y(x.size(), off);
        y.copy_from(x.data());
        ASSERT_EQ(zamsCubrt_64f_I(y.data(), int(x.size())), zamStatusOk);
        for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(zt::bits(y[i]), zt::bits(ref[i]));
        ASSERT_TRUE(y.guards_intact());
    }
    Zam64f v[1] = {8.0};
    EXPECT_EQ(zamsCubrt_64f(nullptr, v, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsCubrt_64f(v, nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsCubrt_64f_I(nullptr, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsCubrt_64f(v, v, 0), zamStatusBadLength);
    EXPECT_EQ(zamsCubrt_64f_I(v, -3), zamStatusBadLength);
    EXPECT_EQ(v[0], 8.0);
}

// Four-lane groups of normal numbers, element steps and groups holding a
// zero, subnormal, infinity or NaN agree with the one-element call.
TEST(Cubrt64, VectorAndElementStepsAgree) {
    std::vector<Zam64f> x;
    for (double v : mt::random_bits<Zam64f>(1000, 4))
        if (std::isnormal(v) && x.size() < 500) x.push_back(v);
    const double odd[] = {0.0, -0.0, 5e-324, -1e-310, INFINITY, -INFINITY, NAN, 0x1p-1022, -0x1.fffffffffffffp1023};
    for (size_t i = 3; i < x.size(); i += 31) x[i] = odd[(i / 31) % 9];
    mt::steps_agree<Zam64f>(zamsCubrt_64f, x, 5, "cubrt64");
}

ZAMS_DIGEST(cubrt64) {
    auto x = samples(3000, 3);
    std::vector<Zam64f> y(x.size());
    mt::rec(d, zamsCubrt_64f(x.data(), y.data(), int(x.size())), y);
    d.status(zamsCubrt_64f_I(x.data(), 0));
}

}  // namespace
