// The median filter against a sort of each window with the edges repeated.
#include <algorithm>
#include <cmath>

#include "digest.h"
#include "sweep.h"

namespace {

// The documented order of floats: -NaN < -inf < ... < -0 < +0 < ... < +inf < +NaN.
bool before(float a, float b) {
    auto rank = [](float v) {
        const bool neg = std::signbit(v);
        const int cls = std::isnan(v) ? (neg ? 0 : 4) : (v == 0 ? (neg ? 2 : 3) : (v < 0 ? 1 : 3));
        return cls;
    };
    if (rank(a) != rank(b)) return rank(a) < rank(b);
    if (std::isnan(a)) return false;
    return a < b;
}
bool before(Zam16s a, Zam16s b) { return a < b; }

template <class T> std::vector<T> median_model(const std::vector<T>& x, int m) {
    const int n = int(x.size()), h = m / 2;
    std::vector<T> y(n), w(m);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < m; ++j) w[j] = x[std::clamp(i - h + j, 0, n - 1)];
        std::sort(w.begin(), w.end(), [](T a, T b) { return before(a, b); });
        y[i] = w[h];
    }
    return y;
}

template <class T> std::vector<T> pool(uint32_t seed) {
    std::vector<T> v;
    if constexpr (std::is_floating_point_v<T>) {
        v = zt::random_reals<T>(400, seed, -10.0f, 10.0f);
        for (size_t i = 0; i < v.size(); i += 3) v[i] = std::round(v[i]);  // many equal values
        const float special[] = {NAN, -NAN, INFINITY, -INFINITY, 0.0f, -0.0f, -0.0f, 0.0f};
        for (size_t i = 0; i < std::size(special); ++i) v[20 + 37 * i] = special[i];
    } else {
        v = zt::random_ints<T>(400, seed);
        for (size_t i = 0; i < v.size(); i += 4) v[i] = T(i % 5);
    }
    return v;
}

template <class T>
void check_median(zamStatus (*fn)(const T*, T*, int, int), zamStatus (*ip)(T*, int, int), uint32_t seed) {
    const auto x = pool<T>(seed);
    for (int m : {1, 3, 5, 7, 31, 63, 301}) {
        for (int len = 1; len <= 400; len += len < 70 ? 1 : 41) {
            const std::vector<T> xs(x.begin(), x.begin() + len);
            const auto want = median_model(xs, m);
            for (size_t off : {size_t(0), size_t(2), size_t(6), size_t(34)}) {
                zt::Guarded<T> s(len, off), d(len, 64 - off);
                s.copy_from(xs.data());
                ASSERT_EQ(fn(s.data(), d.data(), len, m), zamStatusOk);
                for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(d[i]), zt::bits(want[i])) << "mask " << m << " len " << len << " at " << i;
                ASSERT_EQ(ip(s.data(), len, m), zamStatusOk);
                for (int i = 0; i < len; ++i) ASSERT_EQ(zt::bits(s[i]), zt::bits(want[i])) << "in place, mask " << m;
                ASSERT_TRUE(s.guards_intact() && d.guards_intact());
            }
        }
    }
    T a[4] = {T(1), T(2), T(3), T(4)}, b[4] = {T(5), T(5), T(5), T(5)};
    EXPECT_EQ(fn(a, b, 4, 2), zamStatusBadArgument);
    EXPECT_EQ(fn(a, b, 4, 0), zamStatusBadLength);
    EXPECT_EQ(ip(a, 4, -3), zamStatusBadLength);
    EXPECT_EQ(ip(a, 4, 4), zamStatusBadArgument);
    EXPECT_TRUE(a[0] == T(1) && a[3] == T(4) && b[0] == T(5) && b[3] == T(5));
}

TEST(FilterMedian, AgainstSortedWindows) {
    check_median<Zam32f>(zamsFilterMedian_32f, zamsFilterMedian_32f_I, 7);
    check_median<Zam16s>(zamsFilterMedian_16s, zamsFilterMedian_16s_I, 8);
}

ZAMS_DIGEST(median) {
    const auto x = pool<Zam32f>(9);
    std::vector<Zam32f> y(400);
    for (int m : {3, 31}) d.status(zamsFilterMedian_32f(x.data(), y.data(), 400, m)), d.add(y);
    const auto s = pool<Zam16s>(10);
    std::vector<Zam16s> z(400);
    d.status(zamsFilterMedian_16s(s.data(), z.data(), 400, 9)), d.add(z);
}

}  // namespace
