// Real FFT in the Perm, Pack and CCS formats: accuracy against the long
// double DFT and FFTW, formats, round trips.
#include "digest.h"
#include "fft_kinds.h"

#ifdef ZAMS_TEST_FFTW
#include <fftw3.h>
#endif

namespace {

using namespace ft;

// The twelve transforms of a real kind, indexed by format.
#define FT_REAL_FNS(T)                                                                                              \
    using Fn = zamStatus (*)(const Zam##T*, Zam##T*, const ZamsFFTSpec_R_##T*, Zam8u*);                               \
    using FnI = zamStatus (*)(Zam##T*, const ZamsFFTSpec_R_##T*, Zam8u*);                                             \
    static constexpr Fn fwd[3] = {zamsFFTFwd_RToPerm_##T, zamsFFTFwd_RToPack_##T, zamsFFTFwd_RToCCS_##T};             \
    static constexpr Fn inv[3] = {zamsFFTInv_PermToR_##T, zamsFFTInv_PackToR_##T, zamsFFTInv_CCSToR_##T};             \
    static constexpr FnI fwd_i[3] = {zamsFFTFwd_RToPerm_##T##_I, zamsFFTFwd_RToPack_##T##_I, zamsFFTFwd_RToCCS_##T##_I}; \
    static constexpr FnI inv_i[3] = {zamsFFTInv_PermToR_##T##_I, zamsFFTInv_PackToR_##T##_I, zamsFFTInv_CCSToR_##T##_I};

template <class K> struct RealFns;
template <> struct RealFns<R32f> { FT_REAL_FNS(32f) };
template <> struct RealFns<R64f> { FT_REAL_FNS(64f) };

// Forward into each format and back out of it, every flag, in place and
// not, unaligned destinations, against the long double DFT; the work
// buffer of exactly the reported size.
template <class K> void check_real(int order, size_t offset) {
    using F = typename K::F;
    using R = RealFns<K>;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(n, 300 + order, F(-1), F(1));
    std::vector<CL> xl(n);
    for (size_t i = 0; i < n; ++i) xl[i] = x[i];
    const auto X = dft(xl, -1);
    for (int flag : kFlags) {
        OwnedSpec<K> os;
        ASSERT_EQ(os.build(order, flag), zamStatusOk);
        std::vector<uint8_t> buf(size_t(os.workSize));
        Zam8u* work = os.workSize ? buf.data() : nullptr;
        const LD fs = flag_scale(flag, order, false), is = flag_scale(flag, order, true);
        for (Fmt f : {kPerm, kPack, kCcs}) {
            const size_t len = packed_len(f, n);
            auto want = pack_model(f, X, n);
            for (auto& v : want) v *= fs;
            for (int inplace = 0; inplace < 2; ++inplace) {
                zt::Guarded<F> y(len, offset);
                if (inplace) std::memcpy(y.data(), x.data(), n * sizeof(F));
                ASSERT_EQ(inplace ? R::fwd_i[f](y.data(), os.spec, work) : R::fwd[f](x.data(), y.data(), os.spec, nullptr), zamStatusOk);
                EXPECT_LE(rel_rms(y.data(), want), bound<F>(order))
                    << K::kName << " order " << order << " flag " << flag << " fmt " << f << " inplace " << inplace;
                EXPECT_TRUE(y.guards_intact()) << K::kName << " order " << order << " fmt " << f;
                EXPECT_TRUE(f != kCcs || (y[1] == 0 && y[len - 1] == 0)) << K::kName << " order " << order;  // exact zeros
                // and back: the inverse of this spectrum is x times both scales times N
                zt::Guarded<F> z(inplace ? len : n, offset);
                if (inplace) std::memcpy(z.data(), y.data(), len * sizeof(F));
                ASSERT_EQ(inplace ? R::inv_i[f](z.data(), os.spec, nullptr) : R::inv[f](y.data(), z.data(), os.spec, work), zamStatusOk);
                std::vector<LD> back(n);
                for (size_t i = 0; i < n; ++i) back[i] = LD(x[i]) * fs * is * LD(n);
                EXPECT_LE(rel_rms(z.data(), back), 2 * bound<F>(order))
                    << K::kName << " inverse order " << order << " flag " << flag << " fmt " << f;
                EXPECT_TRUE(z.guards_intact()) << K::kName << " inverse order " << order << " fmt " << f;
            }
        }
    }
}

// Orders 12 on include the real kinds' long layouts.
TEST(FftReal, AccuracyUpToOrder16) {
    for (int order = 0; order <= 16; ++order) {
        if (sizeof(void*) == 4 && order > 11 && order != 13 && order != 16) continue;  // i386 runs under emulation
        check_real<R32f>(order, order % 2 ? 4 : 0);
        check_real<R64f>(order, order % 2 ? 8 : 0);
    }
}

#ifdef ZAMS_TEST_FFTW
// Coarse x fine factors from order 18 and the large layouts: the forward
// CCS spectrum against FFTW, and the round trip.
template <class K> void check_long(int order, int flag) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(n, 700 + order, F(-1), F(1));
    std::vector<double> in(x.begin(), x.end());
    std::vector<fftw_complex> out(n / 2 + 1);
    fftw_plan p = fftw_plan_dft_r2c_1d(int(n), in.data(), out.data(), FFTW_ESTIMATE);
    fftw_execute(p);
    fftw_destroy_plan(p);
    const LD fs = flag_scale(flag, order, false);
    std::vector<LD> ref(n + 2);
    for (size_t k = 0; k <= n / 2; ++k) { ref[2 * k] = out[k][0] * fs; ref[2 * k + 1] = out[k][1] * fs; }
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(order, flag), zamStatusOk);
    std::vector<F> y(n + 2);
    ASSERT_EQ(RealFns<K>::fwd[kCcs](x.data(), y.data(), os.spec, nullptr), zamStatusOk);
    EXPECT_LE(rel_rms(y.data(), ref), bound<F>(order)) << K::kName << " order " << order;
    ASSERT_EQ(RealFns<K>::inv_i[kCcs](y.data(), os.spec, nullptr), zamStatusOk);
    std::vector<LD> back(n);
    for (size_t i = 0; i < n; ++i) back[i] = LD(x[i]) * fs * flag_scale(flag, order, true) * LD(n);
    EXPECT_LE(rel_rms(y.data(), back), 2 * bound<F>(order)) << K::kName << " order " << order;
}

TEST(FftReal, LargeOrdersAgainstFftw) {
    for (int order : {18, 19, 20, 22}) {
        check_long<R32f>(order, kFlags[order % 4]);
        check_long<R64f>(order, kFlags[(order + 1) % 4]);
    }
}
#endif

ZAMS_DIGEST(fft_real) {
    for (int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 14}) {
        const size_t n = size_t(1) << order;
        const int flag = kFlags[order % 4];
        auto xf = zt::random_reals<float>(n, 40 + order);
        auto xd = zt::random_reals<double>(n, 40 + order);
        OwnedSpec<R32f> of;
        OwnedSpec<R64f> od;
        d.status(of.build(order, flag));
        d.status(od.build(order, flag));
        for (Fmt f : {kPerm, kPack, kCcs}) {
            std::vector<float> yf(n + 2), zf(n + 2);
            std::vector<double> yd(n + 2), zd(n + 2);
            d.status(RealFns<R32f>::fwd[f](xf.data(), yf.data(), of.spec, nullptr));
            d.status(RealFns<R32f>::inv[f](yf.data(), zf.data(), of.spec, nullptr));
            d.status(RealFns<R64f>::fwd[f](xd.data(), yd.data(), od.spec, nullptr));
            d.status(RealFns<R64f>::inv[f](yd.data(), zd.data(), od.spec, nullptr));
            d.add(yf); d.add(zf); d.add(yd); d.add(zd);
        }
    }
}

// One forward and inverse CCS transform of 2^order points into the digest.
template <class K> void digest_ccs(zt::Digest& d, int order, int flag) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(n, 90 + order);
    OwnedSpec<K> os;
    d.status(os.build(order, flag));
    std::vector<F> y(n + 2);
    d.status(RealFns<K>::fwd[kCcs](x.data(), y.data(), os.spec, nullptr));
    d.add(y);
    d.status(RealFns<K>::inv_i[kCcs](y.data(), os.spec, nullptr));
    d.add(y);
}

ZAMS_DIGEST(fft_real_large) {
    // coarse x fine factors from order 18; the 32-bit large layout at 19
    digest_ccs<R32f>(d, 18, 4);
    digest_ccs<R32f>(d, 19, 4);
    digest_ccs<R64f>(d, 18, 1);
}

}  // namespace
