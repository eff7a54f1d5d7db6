// Real FFT in the Perm, Pack and CCS formats: accuracy against a long
// double DFT, formats, round trips, statuses.
#include "digest.h"
#include "fft_kinds.h"

#ifdef ZAMS_TEST_FFTW
#include <fftw3.h>
#endif

namespace {

using namespace ft;

enum Fmt { kPerm, kPack, kCcs };

template <class K> struct RealFns;
template <> struct RealFns<R32f> {
    using F = float;
    using S = ZamsFFTSpec_R_32f;
    static zamStatus fwd(Fmt f, const F* s, F* d, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTFwd_RToPerm_32f(s, d, p, b) : f == kPack ? zamsFFTFwd_RToPack_32f(s, d, p, b) : zamsFFTFwd_RToCCS_32f(s, d, p, b);
    }
    static zamStatus fwd_i(Fmt f, F* sd, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTFwd_RToPerm_32f_I(sd, p, b) : f == kPack ? zamsFFTFwd_RToPack_32f_I(sd, p, b) : zamsFFTFwd_RToCCS_32f_I(sd, p, b);
    }
    static zamStatus inv(Fmt f, const F* s, F* d, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTInv_PermToR_32f(s, d, p, b) : f == kPack ? zamsFFTInv_PackToR_32f(s, d, p, b) : zamsFFTInv_CCSToR_32f(s, d, p, b);
    }
    static zamStatus inv_i(Fmt f, F* sd, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTInv_PermToR_32f_I(sd, p, b) : f == kPack ? zamsFFTInv_PackToR_32f_I(sd, p, b) : zamsFFTInv_CCSToR_32f_I(sd, p, b);
    }
};
template <> struct RealFns<R64f> {
    using F = double;
    using S = ZamsFFTSpec_R_64f;
    static zamStatus fwd(Fmt f, const F* s, F* d, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTFwd_RToPerm_64f(s, d, p, b) : f == kPack ? zamsFFTFwd_RToPack_64f(s, d, p, b) : zamsFFTFwd_RToCCS_64f(s, d, p, b);
    }
    static zamStatus fwd_i(Fmt f, F* sd, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTFwd_RToPerm_64f_I(sd, p, b) : f == kPack ? zamsFFTFwd_RToPack_64f_I(sd, p, b) : zamsFFTFwd_RToCCS_64f_I(sd, p, b);
    }
    static zamStatus inv(Fmt f, const F* s, F* d, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTInv_PermToR_64f(s, d, p, b) : f == kPack ? zamsFFTInv_PackToR_64f(s, d, p, b) : zamsFFTInv_CCSToR_64f(s, d, p, b);
    }
    static zamStatus inv_i(Fmt f, F* sd, const S* p, Zam8u* b) {
        return f == kPerm ? zamsFFTInv_PermToR_64f_I(sd, p, b) : f == kPack ? zamsFFTInv_PackToR_64f_I(sd, p, b) : zamsFFTInv_CCSToR_64f_I(sd, p, b);
    }
};

size_t packed_len(Fmt f, size_t n) { return f == kCcs ? n + 2 : n; }

// The packed layout of a full spectrum X (N/2 + 1 bins used), written
// from the format's definition.
template <class F> std::vector<LD> pack_model(Fmt f, const std::vector<CL>& X, size_t n) {
    std::vector<LD> v;
    if (n == 1) {
        v = {X[0].real()};
        if (f == kCcs) v.push_back(0);
        return v;
    }
    if (f == kCcs) {
        for (size_t k = 0; k <= n / 2; ++k) { v.push_back(X[k].real()); v.push_back(X[k].imag()); }
        v[1] = 0;
        v[n + 1] = 0;
        return v;
    }
    v.push_back(X[0].real());
    if (f == kPerm) v.push_back(X[n / 2].real());
    for (size_t k = 1; k < n / 2; ++k) { v.push_back(X[k].real()); v.push_back(X[k].imag()); }
    if (f == kPack) v.push_back(X[n / 2].real());
    return v;
}

template <class F> double rel_rms_real(const F* y, const std::vector<LD>& ref) {
    LD e = 0, r = 0;
    for (size_t i = 0; i < ref.size(); ++i) {
        e += (LD(y[i]) - ref[i]) * (LD(y[i]) - ref[i]);
        r += ref[i] * ref[i];
    }
    return r == 0 ? double(std::sqrt(e)) : double(std::sqrt(e / r));
}

// Forward into each format and back out of it, every flag, in place and
// not, unaligned destinations, against the long double DFT.
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
        ASSERT_TRUE(os.guard_intact());
        std::vector<uint8_t> buf(size_t(os.workSize) + 1);
        const LD fs = flag_scale(flag, order, false), is = flag_scale(flag, order, true);
        for (Fmt f : {kPerm, kPack, kCcs}) {
            const size_t len = packed_len(f, n);
            auto want = pack_model<F>(f, X, n);
            for (auto& v : want) v *= fs;
            for (int inplace = 0; inplace < 2; ++inplace) {
                zt::Guarded<F> y(len, offset);
                zamStatus st;
                if (inplace) {
                    std::memcpy(y.data(), x.data(), n * sizeof(F));
                    st = R::fwd_i(f, y.data(), os.spec, os.workSize ? buf.data() : nullptr);
                } else {
                    st = R::fwd(f, x.data(), y.data(), os.spec, nullptr);
                }
                ASSERT_EQ(st, zamStatusOk);
                EXPECT_LE(rel_rms_real(y.data(), want), bound<F>(order))
                    << K::kName << " order " << order << " flag " << flag << " fmt " << f << " inplace " << inplace;
                EXPECT_TRUE(y.guards_intact());
                // and back: the inverse of this spectrum is x times both scales times N
                zt::Guarded<F> z(len, offset);
                if (inplace) {
                    std::memcpy(z.data(), y.data(), len * sizeof(F));
                    st = R::inv_i(f, z.data(), os.spec, nullptr);
                } else {
                    st = R::inv(f, y.data(), z.data(), os.spec, os.workSize ? buf.data() : nullptr);
                }
                ASSERT_EQ(st, zamStatusOk);
                std::vector<LD> back(n);
                for (size_t i = 0; i < n; ++i) back[i] = LD(x[i]) * fs * is * LD(n);
                EXPECT_LE(rel_rms_real(z.data(), back), 2 * bound<F>(order))
                    << K::kName << " inverse order " << order << " flag " << flag << " fmt " << f;
                EXPECT_TRUE(z.guards_intact());
            }
        }
    }
}

TEST(FftReal, AccuracySmallOrders32f) {
    for (int order = 0; order <= 11; ++order) check_real<R32f>(order, order % 2 ? 4 : 0);
}
TEST(FftReal, AccuracySmallOrders64f) {
    for (int order = 0; order <= 11; ++order) check_real<R64f>(order, order % 2 ? 8 : 0);
}

// Inverse accuracy on its own: a spectrum of a known signal, back to it.
template <class K> void check_inverse_vs_dft(int order) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    // a Hermitian spectrum from random bins
    auto r = zt::random_reals<F>(n + 2, 500 + order, F(-1), F(1));
    std::vector<CL> X(n);
    for (size_t k = 0; k <= n / 2; ++k) X[k] = CL(r[2 * k], (k == 0 || k == n / 2) ? 0 : r[2 * k + 1]);
    for (size_t k = n / 2 + 1; k < n; ++k) X[k] = std::conj(X[n - k]);
    const auto x = dft(X, +1);
    std::vector<F> ccs(n + 2), out(n);
    for (size_t k = 0; k <= n / 2; ++k) { ccs[2 * k] = F(X[k].real()); ccs[2 * k + 1] = F(X[k].imag()); }
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(order, 8), zamStatusOk);
    ASSERT_EQ(RealFns<K>::inv(kCcs, ccs.data(), out.data(), os.spec, nullptr), zamStatusOk);
    std::vector<LD> want(n);
    for (size_t i = 0; i < n; ++i) want[i] = x[i].real();
    EXPECT_LE(rel_rms_real(out.data(), want), bound<F>(order)) << K::kName << " order " << order;
}

TEST(FftReal, InverseAgainstDft) {
    for (int order : {1, 2, 5, 8, 10}) {
        check_inverse_vs_dft<R32f>(order);
        check_inverse_vs_dft<R64f>(order);
    }
}

// A constant signal v of length N under flag 8 gives (N v, 0, 0, ...) in CCS.
TEST(FftReal, ConstantSignalCcs) {
    for (int order : {0, 1, 3, 6, 9}) {
        const size_t n = size_t(1) << order;
        OwnedSpec<R64f> os;
        ASSERT_EQ(os.build(order, 8), zamStatusOk);
        std::vector<double> x(n, 0.75), y(n + 2, 5.0);
        ASSERT_EQ(zamsFFTFwd_RToCCS_64f(x.data(), y.data(), os.spec, nullptr), zamStatusOk);
        EXPECT_EQ(y[0], 0.75 * double(n));
        const size_t len = n == 1 ? 2 : n + 2;  // one point: R0 and a zero
        for (size_t i = 1; i < len; ++i) EXPECT_NEAR(y[i], 0.0, 1e-13) << order << " " << i;
        if (n == 1) {
            EXPECT_EQ(y[2], 5.0);
        }
    }
}

// Round trips and bin spot checks at longer orders, including the real
// kinds' coarse x fine factors (order 18 on) and large layouts.
template <class K> void check_long(int order, int flag) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(n, 600 + order, F(-1), F(1));
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(order, flag), zamStatusOk);
    std::vector<F> y(n + 2), z(n + 2);
    ASSERT_EQ(RealFns<K>::fwd(kCcs, x.data(), y.data(), os.spec, nullptr), zamStatusOk);
    // spot bins against the long double DFT (FFTW covers the largest orders)
    const LD fs = flag_scale(flag, order, false);
    LD e = 0, r = 0;
    auto g = zt::rng(order);
    for (int t = 0; t < (order <= 16 ? (sizeof(void*) == 8 ? 5 : 2) : 0); ++t) {
        size_t k = t == 0 ? n / 2 : g() % (n / 2);
        CL want = 0;
        const LD pi = 3.141592653589793238462643383279502884L;
        for (size_t j = 0; j < n; ++j) {
            size_t m = (j * k) % n;
            want += LD(x[j]) * CL(std::cos(2 * pi * LD(m) / LD(n)), -std::sin(2 * pi * LD(m) / LD(n)));
        }
        want *= fs;
        e += std::norm(CL(y[2 * k], y[2 * k + 1]) - want);
        r += std::norm(want);
    }
    if (r > 0) {
        EXPECT_LE(double(std::sqrt(e / r)), 3 * bound<F>(order)) << K::kName << " order " << order;
    }
    ASSERT_EQ(RealFns<K>::inv_i(kCcs, y.data(), os.spec, nullptr), zamStatusOk);
    std::vector<LD> back(n);
    for (size_t i = 0; i < n; ++i) back[i] = LD(x[i]) * fs * flag_scale(flag, order, true) * LD(n);
    EXPECT_LE(rel_rms_real(y.data(), back), 2 * bound<F>(order)) << K::kName << " order " << order;
}

TEST(FftReal, LongOrders) {
    if (sizeof(void*) != 8) {  // under emulation on i386: two orders
        check_long<R32f>(16, 2);
        check_long<R64f>(13, 4);
        return;
    }
    for (int order : {12, 14, 16}) {
        check_long<R32f>(order, 2);
        check_long<R64f>(order, 4);
    }
    for (int order : {18, 19, 20, 22}) {
        check_long<R32f>(order, 1);
        check_long<R64f>(order, 2);
    }
}

#ifdef ZAMS_TEST_FFTW
TEST(FftReal, AgainstFftw) {
    for (int order : {13, 18, 20}) {
        const size_t n = size_t(1) << order;
        auto x = zt::random_reals<double>(n, 700 + order, -1.0, 1.0);
        std::vector<double> in(x);
        std::vector<fftw_complex> out(n / 2 + 1);
        fftw_plan p = fftw_plan_dft_r2c_1d(int(n), in.data(), out.data(), FFTW_ESTIMATE);
        fftw_execute(p);
        fftw_destroy_plan(p);
        std::vector<LD> ref(n + 2);
        for (size_t k = 0; k <= n / 2; ++k) { ref[2 * k] = out[k][0]; ref[2 * k + 1] = out[k][1]; }
        OwnedSpec<R64f> od;
        ASSERT_EQ(od.build(order, 8), zamStatusOk);
        std::vector<double> y(n + 2);
        ASSERT_EQ(zamsFFTFwd_RToCCS_64f(x.data(), y.data(), od.spec, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms_real(y.data(), ref), bound<double>(order)) << order;
        OwnedSpec<R32f> of;
        ASSERT_EQ(of.build(order, 8), zamStatusOk);
        std::vector<float> xf(x.begin(), x.end()), yf(n + 2);
        ASSERT_EQ(zamsFFTFwd_RToCCS_32f(xf.data(), yf.data(), of.spec, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms_real(yf.data(), ref), bound<float>(order) + 1e-7) << order;
    }
}
#endif

TEST(FftReal, Statuses) {
    OwnedSpec<R32f> os;
    ASSERT_EQ(os.build(6, 1), zamStatusOk);
    OwnedSpec<C32f> cs;
    ASSERT_EQ(cs.build(6, 1), zamStatusOk);
    std::vector<float> x(66, 1.f), y(66, 9.f);
    EXPECT_EQ(zamsFFTFwd_RToPerm_32f(x.data(), y.data(), nullptr, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTFwd_RToCCS_32f(nullptr, y.data(), (const ZamsFFTSpec_R_32f*)cs.spec, nullptr), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTInv_PackToR_32f(x.data(), nullptr, os.spec, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTInv_CCSToR_32f_I(nullptr, os.spec, nullptr), zamStatusNullPointer);
    for (float v : y) ASSERT_EQ(v, 9.f);
    OwnedSpec<R64f> od;
    ASSERT_EQ(od.build(9, 1), zamStatusOk);
    ASSERT_EQ(zamsFFTFree_R_64f(od.spec), zamStatusOk);
    std::vector<double> a(512), b(512, 3.0);
    EXPECT_EQ(zamsFFTFwd_RToPack_64f(a.data(), b.data(), od.spec, nullptr), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTInv_PermToR_64f(a.data(), b.data(), od.spec, nullptr), zamStatusContextMismatch);
    for (double v : b) ASSERT_EQ(v, 3.0);
}

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
            d.status(RealFns<R32f>::fwd(f, xf.data(), yf.data(), of.spec, nullptr));
            d.status(RealFns<R32f>::inv(f, yf.data(), zf.data(), of.spec, nullptr));
            d.status(RealFns<R64f>::fwd(f, xd.data(), yd.data(), od.spec, nullptr));
            d.status(RealFns<R64f>::inv(f, yd.data(), zd.data(), od.spec, nullptr));
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
    d.status(RealFns<K>::fwd(kCcs, x.data(), y.data(), os.spec, nullptr));
    d.add(y);
    d.status(RealFns<K>::inv_i(kCcs, y.data(), os.spec, nullptr));
    d.add(y);
}

ZAMS_DIGEST(fft_real_large) {
    // coarse x fine factors from order 18; the 32-bit large layout at 19
    digest_ccs<R32f>(d, 18, 4);
    digest_ccs<R32f>(d, 19, 4);
    digest_ccs<R64f>(d, 18, 1);
}

}  // namespace
