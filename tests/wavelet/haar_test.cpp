// Haar transform: every length against the pair formula (floats) and an
// exact integer model (8s, 16s with scale factors), the unpaired last
// sample, and nothing written past the bands.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "digest.h"
#include "harness.h"
#include "zams.h"

namespace {

template <class T> struct HK;
template <> struct HK<Zam32f> {
    static zamStatus fwd(const Zam32f* x, int n, Zam32f* l, Zam32f* h, int) { return zamsWTHaarFwd_32f(x, n, l, h); }
    static zamStatus inv(const Zam32f* l, const Zam32f* h, Zam32f* y, int n, int) { return zamsWTHaarInv_32f(l, h, y, n); }
};
template <> struct HK<Zam64f> {
    static zamStatus fwd(const Zam64f* x, int n, Zam64f* l, Zam64f* h, int) { return zamsWTHaarFwd_64f(x, n, l, h); }
    static zamStatus inv(const Zam64f* l, const Zam64f* h, Zam64f* y, int n, int) { return zamsWTHaarInv_64f(l, h, y, n); }
};
template <> struct HK<Zam8s> {
    static zamStatus fwd(const Zam8s* x, int n, Zam8s* l, Zam8s* h, int) { return zamsWTHaarFwd_8s(x, n, l, h); }
    static zamStatus inv(const Zam8s* l, const Zam8s* h, Zam8s* y, int n, int) { return zamsWTHaarInv_8s(l, h, y, n); }
};
template <> struct HK<Zam16s> {
    static zamStatus fwd(const Zam16s* x, int n, Zam16s* l, Zam16s* h, int sf) {
        return zamsWTHaarFwd_16s_Sfs(x, n, l, h, sf);
    }
    static zamStatus inv(const Zam16s* l, const Zam16s* h, Zam16s* y, int n, int sf) {
        return zamsWTHaarInv_16s_Sfs(l, h, y, n, sf);
    }
};

// The integer rule by other means: r 2^-sf in long double, nearest with
// ties to even (the default rounding direction), clamped.
template <class T> T int_model(long r, int sf) {
    const long double v = std::nearbyint(std::ldexp((long double)r, -sf));
    const long double lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    return T(v < lo ? lo : v > hi ? hi : v);
}

// Expected forward bands: the pair formula in T for floats, the model for
// integers; an odd length's last low sample is the sample itself (scaled).
template <class T> void expect_fwd(const std::vector<T>& x, int sf, std::vector<T>& lo, std::vector<T>& hi) {
    const size_t n = x.size();
    lo.assign((n + 1) / 2, T(0));
    hi.assign(n / 2, T(0));
    for (size_t k = 0; k < n / 2; ++k) {
        const T a = x[2 * k], b = x[2 * k + 1];
        if constexpr (std::is_floating_point_v<T>) {
            lo[k] = (a + b) * T(0.5);
            hi[k] = (a - b) * T(0.5);
        } else {
            lo[k] = int_model<T>(long(a) + b, sf + 1);
            hi[k] = int_model<T>(long(a) - b, sf + 1);
        }
    }
    if (n & 1) lo[n / 2] = std::is_floating_point_v<T> ? x[n - 1] : int_model<T>(x[n - 1], sf);
}

template <class T> class Haar : public ::testing::Test {};
using Types = ::testing::Types<Zam8s, Zam16s, Zam32f, Zam64f>;
TYPED_TEST_SUITE(Haar, Types);

// Every length to 80 and a long one, at two misalignments, several scale
// factors for 16s: forward bands and the inverse against the models, guard
// bytes intact (the odd length's missing high sample is not written).
TYPED_TEST(Haar, MatchesModelEveryLength) {
    using T = TypeParam;
    using K = HK<T>;
    const std::vector<int> sfs = std::is_same_v<T, Zam16s> ? std::vector<int>{-3, 0, 1, 4, 17} : std::vector<int>{0};
    std::vector<int> lens;
    for (int n = 1; n <= 80; ++n) lens.push_back(n);
    lens.push_back(4099);
    for (int sf : sfs)
        for (int n : lens)
            for (size_t off : {size_t(0), size_t(sizeof(T) == 1 ? 3 : 4)}) {
                std::vector<T> x;
                if constexpr (std::is_floating_point_v<T>) x = zt::random_reals<T>(size_t(n), uint32_t(n));
                else x = zt::random_ints<T>(size_t(n), uint32_t(n));
                zt::Guarded<T> gx(size_t(n), off), glo(size_t(n + 1) / 2, off), ghi(size_t(n) / 2, off),
                    gy(size_t(n), off);
                gx.copy_from(x.data());
                std::vector<T> lo, hi;
                expect_fwd(x, sf, lo, hi);
                ASSERT_EQ(K::fwd(gx.data(), n, glo.data(), ghi.data(), sf), zamStatusOk);
                for (size_t k = 0; k < lo.size(); ++k) ASSERT_EQ(zt::bits(glo[k]), zt::bits(lo[k])) << n << " low " << k;
                for (size_t k = 0; k < hi.size(); ++k) ASSERT_EQ(zt::bits(ghi[k]), zt::bits(hi[k])) << n << " high " << k;
                ASSERT_TRUE(glo.guards_intact() && ghi.guards_intact()) << n;

                ASSERT_EQ(K::inv(glo.data(), ghi.data(), gy.data(), n, sf), zamStatusOk);
                ASSERT_TRUE(gy.guards_intact()) << n;
                for (size_t k = 0; k < size_t(n); ++k) {
                    const size_t p = k / 2;
                    T want;
                    if (p >= hi.size()) {
                        want = std::is_floating_point_v<T> ? lo[p] : int_model<T>(lo[p], sf);
                    } else if constexpr (std::is_floating_point_v<T>) {
                        want = k & 1 ? lo[p] - hi[p] : lo[p] + hi[p];
                    } else {
                        want = int_model<T>(k & 1 ? long(lo[p]) - hi[p] : long(lo[p]) + hi[p], sf);
                    }
                    ASSERT_EQ(zt::bits(gy[k]), zt::bits(want)) << n << " sample " << k;
                }
            }
}

ZAMS_DIGEST(haar) {
    const int n = 333;
    auto xf = zt::random_reals<Zam32f>(n, 3);
    auto xd = zt::random_reals<Zam64f>(n, 4);
    auto x8 = zt::random_ints<Zam8s>(n, 5);
    auto x16 = zt::random_ints<Zam16s>(n, 6);
    std::vector<Zam32f> lf(n / 2 + 1), hf(n / 2), yf(n);
    std::vector<Zam64f> ld(n / 2 + 1), hd(n / 2), yd(n);
    std::vector<Zam8s> l8(n / 2 + 1), h8(n / 2), y8(n);
    std::vector<Zam16s> l16(n / 2 + 1), h16(n / 2), y16(n);
    d.status(zamsWTHaarFwd_32f(xf.data(), n, lf.data(), hf.data()));
    d.status(zamsWTHaarInv_32f(lf.data(), hf.data(), yf.data(), n));
    d.status(zamsWTHaarFwd_64f(xd.data(), n, ld.data(), hd.data()));
    d.status(zamsWTHaarInv_64f(ld.data(), hd.data(), yd.data(), n));
    d.status(zamsWTHaarFwd_8s(x8.data(), n, l8.data(), h8.data()));
    d.status(zamsWTHaarInv_8s(l8.data(), h8.data(), y8.data(), n));
    d.add(lf); d.add(hf); d.add(yf); d.add(ld); d.add(hd); d.add(yd); d.add(l8); d.add(h8); d.add(y8);
    for (int sf : {-2, 0, 3}) {
        d.status(zamsWTHaarFwd_16s_Sfs(x16.data(), n, l16.data(), h16.data(), sf));
        d.status(zamsWTHaarInv_16s_Sfs(l16.data(), h16.data(), y16.data(), n, sf));
        d.add(l16); d.add(h16); d.add(y16);
    }
}

}  // namespace
