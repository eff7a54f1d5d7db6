// DFT of any length, 16-bit kinds: the float transform of the converted
// samples, times 2^-scaleFactor, rounded to nearest even and saturated;
// in place; the life cycle.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "digest.h"
#include "dft_model.h"
#include "harness.h"
#include "life_cycle.h"

namespace {

using namespace dftt;

Zam16s want(float v, int sf) {
    const double s = std::nearbyint(std::ldexp(double(v), -sf));
    return Zam16s(s > 32767 ? 32767 : (s < -32768 ? -32768 : s));
}

TEST(Dft16, ComplexIsTheFloatTransformScaled) {
    for (int n : {1, 6, 64, 97, 300}) {
        std::vector<Zam16sc> x(static_cast<size_t>(n)), y(static_cast<size_t>(n)), z(static_cast<size_t>(n));
        std::vector<Zam32fc> xf(static_cast<size_t>(n)), yf(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            x[size_t(i)] = {Zam16s(i * 263 % 4001 - 2000), Zam16s(i * 71 % 3001 - 1500)};
            xf[size_t(i)] = {float(x[size_t(i)].re), float(x[size_t(i)].im)};
        }
        ZamsDFTSpec_C_16sc* s = nullptr;
        Owned<CKind<float>> f;
        ASSERT_EQ(zamsDFTInitAlloc_C_16sc(&s, n, zamFftScaleNone, 0), zamStatusOk);
        ASSERT_EQ(f.build(n, zamFftScaleNone), zamStatusOk);
        ASSERT_EQ(zamsDFTFwd_CToC_32fc(xf.data(), yf.data(), f.spec, nullptr), zamStatusOk);
        for (int sf : {-2, 0, 3, 8}) {
            ASSERT_EQ(zamsDFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, sf, nullptr), zamStatusOk);
            for (int i = 0; i < n; ++i) {
                ASSERT_EQ(y[size_t(i)].re, want(yf[size_t(i)].re, sf)) << n << " sf " << sf;
                ASSERT_EQ(y[size_t(i)].im, want(yf[size_t(i)].im, sf)) << n << " sf " << sf;
            }
        }
        z = x;
        ASSERT_EQ(zamsDFTFwd_CToC_16sc_ISfs(z.data(), s, 3, nullptr), zamStatusOk);
        ASSERT_EQ(zamsDFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 3, nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(y.data(), z.data(), y.size() * sizeof(Zam16sc)));
        // the inverse with the factor N taken out returns the input
        ASSERT_EQ(zamsDFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 0, nullptr), zamStatusOk);
        if (n <= 6) {
            ASSERT_EQ(zamsDFTInv_CToC_16sc_Sfs(y.data(), z.data(), s, 0, nullptr), zamStatusOk);
            for (int i = 0; i < n; ++i) EXPECT_NEAR(z[size_t(i)].re, x[size_t(i)].re * n, n) << n;
        }
        EXPECT_EQ(zamsDFTFree_C_16sc(s), zamStatusOk);
    }
}

TEST(Dft16, RealFormatsAreTheFloatTransformScaled) {
    for (int n : {1, 2, 9, 64, 100}) {
        const size_t len = size_t(n);
        std::vector<Zam16s> x(len);
        std::vector<float> xf(len);
        for (size_t i = 0; i < len; ++i) xf[i] = x[i] = Zam16s(int(i * 389 % 6001) - 3000);
        ZamsDFTSpec_R_16s* s = nullptr;
        Owned<RKind<float>> f;
        ASSERT_EQ(zamsDFTInitAlloc_R_16s(&s, n, zamFftScaleForward, 0), zamStatusOk);
        ASSERT_EQ(f.build(n, zamFftScaleForward), zamStatusOk);
        zamStatus (*const fw[3])(const Zam16s*, Zam16s*, const ZamsDFTSpec_R_16s*, int, Zam8u*) = {
            zamsDFTFwd_RToPerm_16s_Sfs, zamsDFTFwd_RToPack_16s_Sfs, zamsDFTFwd_RToCCS_16s_Sfs};
        zamStatus (*const iv[3])(const Zam16s*, Zam16s*, const ZamsDFTSpec_R_16s*, int, Zam8u*) = {
            zamsDFTInv_PermToR_16s_Sfs, zamsDFTInv_PackToR_16s_Sfs, zamsDFTInv_CCSToR_16s_Sfs};
        for (Fmt fm : {kPerm, kPack, kCcs}) {
            const size_t pl = packed_len(fm, len);
            std::vector<float> yf(pl);
            std::vector<Zam16s> y(pl + 1, 77), z(len + 1, 77);
            ASSERT_EQ(RKind<float>::fwd[fm](xf.data(), yf.data(), f.spec, nullptr), zamStatusOk);
            ASSERT_EQ(fw[fm](x.data(), y.data(), s, -1, nullptr), zamStatusOk);
            for (size_t i = 0; i < pl; ++i) ASSERT_EQ(y[i], want(yf[i], -1)) << n << " fmt " << fm << " at " << i;
            EXPECT_EQ(y[pl], 77);
            // the spectrum at scale 0, back: the input (flag 1 scaled the forward),
            // within the rounding of the spectrum to integers summed over len terms
            ASSERT_EQ(fw[fm](x.data(), y.data(), s, 0, nullptr), zamStatusOk);
            ASSERT_EQ(iv[fm](y.data(), z.data(), s, 0, nullptr), zamStatusOk);
            for (size_t i = 0; i < len; ++i) EXPECT_NEAR(z[i], x[i], 2 + 2 * std::sqrt(double(n))) << n << " fmt " << fm;
            EXPECT_EQ(z[len], 77);
        }
        EXPECT_EQ(zamsDFTFree_R_16s(s), zamStatusOk);
    }
}

// A build in caller memory equals InitAlloc's, with the query's work size.
TEST(Dft16, LifeCycle) {
    int a, b, c;
    ASSERT_EQ(zamsDFTGetSize_C_16sc(4099, 2, 0, &a, &b, &c), zamStatusOk);
    const auto v = zt::random_ints<Zam16s>(2 * 4099, 3);
    std::vector<Zam16sc> x(4099);
    std::memcpy(x.data(), v.data(), v.size() * sizeof(Zam16s));
    zt::caller_memory_equals_alloc(
        a, b, [](auto** s, Zam8u* m, Zam8u* t) { return zamsDFTInit_C_16sc(s, 4099, 2, 0, m, t); },
        [](auto** s) { return zamsDFTInitAlloc_C_16sc(s, 4099, 2, 0); }, zamsDFTFree_C_16sc, [&](const auto* s) {
            int bs = -1;
            EXPECT_EQ(zamsDFTGetBufSize_C_16sc(s, &bs), zamStatusOk);
            EXPECT_EQ(bs, c);
            std::vector<Zam8u> buf(static_cast<size_t>(bs));
            std::vector<Zam16sc> y(x.size());
            EXPECT_EQ(zamsDFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 0, buf.data()), zamStatusOk);
            return zt::bytes_of(y);
        });
}

ZAMS_DIGEST(dft_int) {
    for (int n : {3, 60, 97}) {
        std::vector<Zam16sc> x(static_cast<size_t>(n)), y(static_cast<size_t>(n));
        std::vector<Zam16s> r(static_cast<size_t>(n)), q(static_cast<size_t>(n) + 2);
        for (int i = 0; i < n; ++i) {
            x[size_t(i)] = {Zam16s(i * 911 % 30001 - 15000), Zam16s(i * 7)};
            r[size_t(i)] = Zam16s(i * 523 % 20001 - 10000);
        }
        ZamsDFTSpec_C_16sc* s = nullptr;
        ZamsDFTSpec_R_16s* t = nullptr;
        d.status(zamsDFTInitAlloc_C_16sc(&s, n, 4, 0));
        d.status(zamsDFTInitAlloc_R_16s(&t, n, 1, 0));
        d.status(zamsDFTFwd_CToC_16sc_Sfs(x.data(), y.data(), s, 2, nullptr));
        d.status(zamsDFTFwd_RToCCS_16s_Sfs(r.data(), q.data(), t, 0, nullptr));
        d.add(y);
        d.add(q);
        zamsDFTFree_C_16sc(s);
        zamsDFTFree_R_16s(t);
    }
}

}  // namespace
