// Cube root of single- and double-precision vectors.
#include <bit>
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

template <class F> double ulps(F x, F got) {
#ifdef ZAMS_TEST_MPFR
    if constexpr (sizeof(F) == 8) return mpfr_ulps(mpfr_cbrt, x, got);
#endif
    return mt::ulp_diff(got, std::cbrt((long double)x));  // x87 long double: 11 bits to spare for doubles
}

// Within an ulp of the exact root over x; exact cubes have exact roots;
// special values; the in-place form at several alignments; vector groups,
// element steps and groups holding a zero, subnormal, infinity or NaN agree
// with the one-element call.
template <class F> void cube_roots(zamStatus (*fn)(const F*, F*, int), zamStatus (*fn_i)(F*, int), const std::vector<F>& x) {
    using L = std::numeric_limits<F>;
    std::vector<F> y(x.size());
    ASSERT_EQ(fn(x.data(), y.data(), int(x.size())), zamStatusOk);
    auto [w, at] = mt::worst(x.size(), [&](size_t i) { return ulps(x[i], y[i]); });
    EXPECT_LE(w, 1.0) << x[at];
    EXPECT_GT(w, 0.4);  // rounding alone reaches this: the measurement saw something
    const int e = L::digits / 3, top = sizeof(F) == 8 ? 1000 : 255;
    for (int k = -top; k <= top; ++k) {
        F c = std::ldexp(F(k * k * k), -3 * e), r;
        ASSERT_EQ(fn(&c, &r, 1), zamStatusOk);
        ASSERT_EQ(r, std::ldexp(F(k), -e)) << k;
    }

    F s[7] = {0, -F(0), L::infinity(), -L::infinity(), -27, L::denorm_min(), L::quiet_NaN()};
    const F want[7] = {0, -F(0), L::infinity(), -L::infinity(), -3, 0, L::quiet_NaN()};
    ASSERT_EQ(fn_i(s, 7), zamStatusOk);
    for (int i = 0; i < 7; ++i) EXPECT_TRUE(i == 5 || mt::same(s[i], want[i])) << i;
    EXPECT_LE(ulps(L::denorm_min(), s[5]), 1.0);
    for (size_t off : {0, 1, 3, 8}) {
        zt::Guarded<F> io(200, off);
        io.copy_from(x.data());
        ASSERT_EQ(fn_i(io.data(), 200), zamStatusOk);
        for (size_t i = 0; i < 200; ++i) ASSERT_EQ(zt::bits(io[i]), zt::bits(y[i]));
        ASSERT_TRUE(io.guards_intact());
    }

    std::vector<F> v;
    for (F r : mt::random_bits<F>(1000, 4))
        if (std::isnormal(r) && v.size() < 500) v.push_back(r);
    const F odd[] = {0, -F(0), L::denorm_min(), -L::min() / 4, L::infinity(), -L::infinity(), L::quiet_NaN(), L::min(), -L::max()};
    for (size_t i = 3; i < v.size(); i += 31) v[i] = odd[(i / 31) % 9];
    mt::steps_agree<F>(fn, v, 5, "cubrt");
}

TEST(Cubrt, BothPrecisions) {
    cube_roots<Zam64f>(zamsCubrt_64f, zamsCubrt_64f_I, samples(sizeof(void*) == 8 ? 40000 : 8000, 1));
    // single precision: random bit patterns and a dense walk of three binades (one period of the reduction)
    auto x = mt::random_bits<Zam32f>(20000, 3);
    for (uint32_t b = 0x3f800000u; b < 0x41000000u; b += sizeof(void*) == 8 ? 13 : 997) x.push_back(std::bit_cast<Zam32f>(b));
    cube_roots<Zam32f>(zamsCubrt_32f, zamsCubrt_32f_I, x);
}

ZAMS_DIGEST(cubrt64) {
    auto x = samples(3000, 3);
    std::vector<Zam64f> y(x.size());
    mt::rec(d, zamsCubrt_64f(x.data(), y.data(), int(x.size())), y);
    d.status(zamsCubrt_64f_I(x.data(), 0));
}

}  // namespace
