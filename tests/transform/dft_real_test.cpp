// DFT of any length, real kinds: every length 1..1000 in every packed
// format against a long double DFT, forward then inverse, longer lengths
// against the complex transform, in place, and the flag check.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "digest.h"
#include "dft_model.h"
#include "harness.h"

namespace {

using namespace dftt;

template <class F> class DftReal : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(DftReal, Precisions);

// The half spectrum X[0..len/2] read back from a packed vector; implied
// zeros must be zero where the format stores them (CCS).
template <class F> std::vector<LC> unpack(const std::vector<F>& p, Fmt f, size_t len) {
    std::vector<LC> h(len / 2 + 1);
    for (size_t k = 0; k <= len / 2; ++k) {
        const auto [re, im] = packed_pos(f, len, k);
        h[k] = LC(p[size_t(re)], im < 0 ? 0 : p[size_t(im)]);
    }
    return h;
}
template <class F> long double half_err(const std::vector<LC>& y, const std::vector<LC>& full) {
    long double num = 0, den = 0;
    for (size_t k = 0; k < y.size(); ++k) {
        num += std::norm(y[k] - full[k]);
        den += std::norm(full[k]);
    }
    return den > 0 ? std::sqrt(num / den) : std::sqrt(num);
}

TYPED_TEST(DftReal, EveryLengthTo1000InEveryFormat) {
    using F = TypeParam;
    using K = RKind<F>;
    for (int n = 1; n <= 1000; ++n) {
        const size_t len = size_t(n);
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleInverse), zamStatusOk) << n;
        const auto x = random_r<F>(len, uint32_t(n));
        std::vector<LC> xw(len);
        for (size_t i = 0; i < len; ++i) xw[i] = x[i];
        const auto ref = naive(xw, false);
        for (Fmt f : {kPerm, kPack, kCcs}) {
            std::vector<F> y(packed_len(f, len) + 1, F(7)), z(len + 1, F(7));
            ASSERT_EQ(K::fwd[f](x.data(), y.data(), s.spec, nullptr), zamStatusOk);
            ASSERT_EQ(K::inv[f](y.data(), z.data(), s.spec, nullptr), zamStatusOk);
            EXPECT_EQ(y.back(), F(7)) << "wrote past the packed length " << n;
            EXPECT_EQ(z.back(), F(7)) << n;
            EXPECT_LE(half_err<F>(unpack(y, f, len), ref), bound<F>(len)) << "len " << n << " fmt " << f;
            if (f == kCcs) {
                EXPECT_EQ(y[1], F(0));
                if (n % 2 == 0) {
                    EXPECT_EQ(y[len + 1], F(0));
                }
            }
            long double num = 0, den = 0;
            for (size_t i = 0; i < len; ++i) {
                num += (long double)(z[i] - x[i]) * (z[i] - x[i]);
                den += (long double)x[i] * x[i];
            }
            EXPECT_LE(std::sqrt(num / den), 2 * bound<F>(len)) << "round trip len " << n << " fmt " << f;
        }
    }
}

// Long lengths of every method underneath (even ones run len/2 points),
// against the complex transform of the same samples.
TYPED_TEST(DftReal, LongLengthsMatchTheComplexTransform) {
    using F = TypeParam;
    using K = RKind<F>;
    using C = typename CKind<F>::C;
    for (int n : {3000, 4093, 8198, 44100, 48000, 65537, 131074}) {
        const size_t len = size_t(n);
        Owned<K> s;
        Owned<CKind<F>> c;
        ASSERT_EQ(s.build(n, zamFftScaleNone), zamStatusOk);
        ASSERT_EQ(c.build(n, zamFftScaleNone), zamStatusOk);
        const auto x = random_r<F>(len, 2);
        std::vector<C> xc(len), yc(len);
        for (size_t i = 0; i < len; ++i) xc[i] = {x[i], 0};
        ASSERT_EQ(CKind<F>::fwd(xc.data(), yc.data(), c.spec, nullptr), zamStatusOk);
        std::vector<LC> ref(len);
        for (size_t i = 0; i < len; ++i) ref[i] = LC(yc[i].re, yc[i].im);
        std::vector<F> y(len + 2);
        ASSERT_EQ(K::fwd[kCcs](x.data(), y.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_LE(half_err<F>(unpack(y, kCcs, len), ref), 2 * bound<F>(len)) << n;
    }
}

TYPED_TEST(DftReal, InPlaceAndConstantSignal) {
    using F = TypeParam;
    using K = RKind<F>;
    for (int n : {1, 2, 9, 10, 97, 194, 256}) {
        const size_t len = size_t(n);
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleNone), zamStatusOk);
        const auto x = random_r<F>(len, 4);
        for (Fmt f : {kPerm, kPack, kCcs}) {
            std::vector<F> y(len + 2), a(len + 2);
            std::copy(x.begin(), x.end(), a.begin());
            ASSERT_EQ(K::fwd[f](x.data(), y.data(), s.spec, nullptr), zamStatusOk);
            ASSERT_EQ(K::fwdI[f](a.data(), s.spec, nullptr), zamStatusOk);
            EXPECT_EQ(0, std::memcmp(y.data(), a.data(), packed_len(f, len) * sizeof(F))) << n << " " << f;
            std::vector<F> z(len + 2);
            ASSERT_EQ(K::inv[f](y.data(), z.data(), s.spec, nullptr), zamStatusOk);
            ASSERT_EQ(K::invI[f](a.data(), s.spec, nullptr), zamStatusOk);
            EXPECT_EQ(0, std::memcmp(z.data(), a.data(), len * sizeof(F))) << n << " " << f;
        }
        // a constant v gives (N v, 0, 0, ...)
        std::vector<F> c(len, F(0.5)), y(len + 2);
        ASSERT_EQ(K::fwd[kCcs](c.data(), y.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_NEAR(double(y[0]), 0.5 * n, 1e-5 * n);
        for (size_t i = 1; i < packed_len(kCcs, len); ++i) EXPECT_NEAR(double(y[i]), 0, 1e-5 * n) << n << " at " << i;
    }
}

// Flags other than the four scalings are refused.
TYPED_TEST(DftReal, BadFlag) {
    int a, b, c;
    for (int flag : {0, 3, 5, 16}) EXPECT_EQ(RKind<TypeParam>::getSize(5, flag, 0, &a, &b, &c), zamStatusBadFftFlag);
}

ZAMS_DIGEST(dft_real) {
    for (int n : {1, 2, 7, 12, 64, 97, 250, 257, 1001}) {
        const int flag = 1 << (n % 4);
        Owned<RKind<float>> f;
        Owned<RKind<double>> g;
        d.status(f.build(n, flag));
        d.status(g.build(n, flag));
        const auto xf = random_r<float>(size_t(n), uint32_t(n));
        const auto xd = random_r<double>(size_t(n), uint32_t(n));
        for (Fmt fm : {kPerm, kPack, kCcs}) {
            std::vector<float> yf(size_t(n) + 2), zf(static_cast<size_t>(n));
            std::vector<double> yd(size_t(n) + 2), zd(static_cast<size_t>(n));
            d.status(RKind<float>::fwd[fm](xf.data(), yf.data(), f.spec, nullptr));
            d.status(RKind<float>::inv[fm](yf.data(), zf.data(), f.spec, nullptr));
            d.status(RKind<double>::fwd[fm](xd.data(), yd.data(), g.spec, nullptr));
            d.status(RKind<double>::inv[fm](yd.data(), zd.data(), g.spec, nullptr));
            d.add(yf);
            d.add(zf);
            d.add(yd);
            d.add(zd);
        }
    }
}

}  // namespace
