// DFT of any length, complex kinds: every length 1..1000 against a long
// double DFT, longer lengths of every method against FFTW (x86-64) or the
// double transform (i386), the flags, in place and work buffers, the DFT spec
// life cycle and the order of the argument checks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "digest.h"
#include "dft_model.h"
#include "harness.h"
#include "life_cycle.h"
#ifdef ZAMS_TEST_FFTW
#include <fftw3.h>
#endif

namespace {

using namespace dftt;

template <class F> class DftComplex : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(DftComplex, Precisions);

template <class C> std::vector<LC> wide(const std::vector<C>& v) {
    std::vector<LC> w(v.size());
    for (size_t i = 0; i < v.size(); ++i) w[i] = LC(v[i].re, v[i].im);
    return w;
}

// Forward against the model, and forward then inverse (flag 2) back to the input.
TYPED_TEST(DftComplex, EveryLengthTo1000MatchesTheLongDoubleDft) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n = 1; n <= 1000; ++n) {
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleInverse), zamStatusOk) << n;
        const auto x = random_c<typename K::C>(size_t(n), uint32_t(n));
        std::vector<typename K::C> y(static_cast<size_t>(n)), z(static_cast<size_t>(n));
        ASSERT_EQ(K::fwd(x.data(), y.data(), s.spec, nullptr), zamStatusOk);
        ASSERT_EQ(K::inv(y.data(), z.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms(y, naive(wide(x), false)), bound<F>(static_cast<size_t>(n))) << "len " << n;
        EXPECT_LE(rel_rms(z, wide(x)), 2 * bound<F>(static_cast<size_t>(n))) << "len " << n;
    }
}

// The inverse against the model for a length of each method.
TYPED_TEST(DftComplex, InverseMatchesTheModel) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n : {64, 360, 97, 257, 2 * 101}) {
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleNone), zamStatusOk);
        const auto x = random_c<typename K::C>(size_t(n), 3);
        std::vector<typename K::C> y(static_cast<size_t>(n));
        ASSERT_EQ(K::inv(x.data(), y.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms(y, naive(wide(x), true)), bound<F>(static_cast<size_t>(n))) << n;
    }
}

// Longer lengths: powers of primes, smooth mixed lengths (composite radices
// of every pairing; in double rows of 1024 behind one or two passes, and
// whole powers of two above 2^16), primes near 2^12 and 2^16 (Rader at
// 65537), products of two large primes.
const int kLong[] = {1536, 2187, 3000, 3200, 3520, 5760, 4093, 4099, 12288, 15625, 21600, 24576, 44100, 48000,
                     65521, 65537, 3 << 17, 4099 * 17, 257 * 263};

TYPED_TEST(DftComplex, LongLengthsMatchAReference) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n : kLong) {
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleInverse), zamStatusOk) << n;
        const auto x = random_c<typename K::C>(size_t(n), uint32_t(n));
        std::vector<typename K::C> y(static_cast<size_t>(n)), z(static_cast<size_t>(n));
        ASSERT_EQ(K::fwd(x.data(), y.data(), s.spec, nullptr), zamStatusOk);
        ASSERT_EQ(K::inv(y.data(), z.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_LE(rel_rms(z, wide(x)), 2 * bound<F>(static_cast<size_t>(n))) << n;
        std::vector<LC> ref(static_cast<size_t>(n));
#ifdef ZAMS_TEST_FFTW
        std::vector<fftw_complex> a(static_cast<size_t>(n)), b(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) { a[size_t(i)][0] = x[size_t(i)].re; a[size_t(i)][1] = x[size_t(i)].im; }
        fftw_plan p = fftw_plan_dft_1d(n, a.data(), b.data(), FFTW_FORWARD, FFTW_ESTIMATE);
        fftw_execute(p);
        fftw_destroy_plan(p);
        for (int i = 0; i < n; ++i) ref[size_t(i)] = LC(b[size_t(i)][0], b[size_t(i)][1]);
        const long double tol = sizeof(F) == 4 ? bound<F>(static_cast<size_t>(n)) : 2 * bound<F>(static_cast<size_t>(n));  // FFTW's own error
#else
        // i386: the double transform (checked against FFTW on x86-64) for float
        if constexpr (sizeof(F) == 8) continue;
        Owned<CKind<double>> d;
        ASSERT_EQ(d.build(n, zamFftScaleInverse), zamStatusOk);
        std::vector<Zam64fc> xd(static_cast<size_t>(n)), yd(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) xd[size_t(i)] = {x[size_t(i)].re, x[size_t(i)].im};
        ASSERT_EQ(CKind<double>::fwd(xd.data(), yd.data(), d.spec, nullptr), zamStatusOk);
        ref = wide(yd);
        const long double tol = bound<F>(static_cast<size_t>(n));
#endif
        EXPECT_LE(rel_rms(y, ref), tol) << n;
    }
}

// Flags: forward then inverse gives x (flags 1, 2, 4) or N x (flag 8);
// the scaled forward is the unscaled one times 1/N or 1/sqrt N.
TYPED_TEST(DftComplex, FlagsScaleTheRightDirection) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n : {1, 16, 12, 97, 100, 257}) {  // 100: a short plan scales in its last pass
        const auto x = random_c<typename K::C>(size_t(n), 9);
        Owned<K> none;
        ASSERT_EQ(none.build(n, zamFftScaleNone), zamStatusOk);
        std::vector<typename K::C> y0(static_cast<size_t>(n));
        ASSERT_EQ(K::fwd(x.data(), y0.data(), none.spec, nullptr), zamStatusOk);
        const auto ref = wide(y0);
        for (int flag : {1, 2, 4, 8}) {
            Owned<K> s;
            ASSERT_EQ(s.build(n, flag), zamStatusOk);
            std::vector<typename K::C> y(static_cast<size_t>(n)), z(static_cast<size_t>(n));
            ASSERT_EQ(K::fwd(x.data(), y.data(), s.spec, nullptr), zamStatusOk);
            ASSERT_EQ(K::inv(y.data(), z.data(), s.spec, nullptr), zamStatusOk);
            const long double fs = flag == 1 ? 1.0L / n : flag == 4 ? 1 / std::sqrt((long double)n) : 1;
            EXPECT_LE(rel_rms(y, ref, fs), bound<F>(static_cast<size_t>(n))) << n << " flag " << flag;
            EXPECT_LE(rel_rms(z, wide(x), flag == 8 ? n : 1), 2 * bound<F>(static_cast<size_t>(n))) << n << " flag " << flag;
        }
    }
}

// In place, the _I forms, a caller's (unaligned) work buffer and none,
// vectors off their alignment: the same bits.
TYPED_TEST(DftComplex, InPlaceAndWorkBuffersGiveTheSameBits) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n : {5, 7, 48, 60, 64, 100, 120, 240, 243, 97, 257, 1000, 3072, 3200, 5760, 24576}) {  // odd and even pass counts, every method, short plans
        Owned<K> s;
        ASSERT_EQ(s.build(n, zamFftScaleSqrtBoth), zamStatusOk);
        int bs = -1;
        ASSERT_EQ(K::bufSize(s.spec, &bs), zamStatusOk);
        std::vector<Zam8u> buf(size_t(bs) + 1);
        const auto x = random_c<typename K::C>(size_t(n), 5);
        std::vector<typename K::C> y(static_cast<size_t>(n)), a = x, b = x, c = x;
        ASSERT_EQ(K::fwd(x.data(), y.data(), s.spec, nullptr), zamStatusOk);
        ASSERT_EQ(K::fwd(a.data(), a.data(), s.spec, bs ? buf.data() + 1 : nullptr), zamStatusOk);
        ASSERT_EQ(K::fwdI(b.data(), s.spec, nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(y.data(), a.data(), y.size() * sizeof(y[0]))) << n;
        EXPECT_EQ(0, std::memcmp(y.data(), b.data(), y.size() * sizeof(y[0]))) << n;
        // Vectors one element off their alignment: the same bits.
        std::vector<typename K::C> xs(size_t(n) + 1), ys(size_t(n) + 1);
        std::copy(x.begin(), x.end(), xs.begin() + 1);
        ASSERT_EQ(K::fwd(xs.data() + 1, ys.data() + 1, s.spec, nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(y.data(), ys.data() + 1, y.size() * sizeof(y[0]))) << n;
        ASSERT_EQ(K::inv(y.data(), a.data(), s.spec, nullptr), zamStatusOk);
        ASSERT_EQ(K::invI(y.data(), s.spec, bs ? buf.data() : nullptr), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(y.data(), a.data(), y.size() * sizeof(y[0]))) << n;
    }
}

// Init in caller memory of exactly the reported sizes equals InitAlloc's
// build, and reports the query's work size.
TYPED_TEST(DftComplex, InitInCallerMemoryOfTheReportedSize) {
    using F = TypeParam;
    using K = CKind<F>;
    for (int n : {1, 8, 30, 4096, 97, 257, 4099}) {
        SCOPED_TRACE(n);
        int ss = 0, is = 0, ws = 0;
        ASSERT_EQ(K::getSize(n, zamFftScaleForward, 7, &ss, &is, &ws), zamStatusOk);
        const auto x = random_c<typename K::C>(size_t(n), 1);
        zt::caller_memory_equals_alloc(
            ss, is, [&](auto** s, Zam8u* m, Zam8u* t) { return K::init(s, n, zamFftScaleForward, 7, m, t); },
            [&](auto** s) { return K::alloc(s, n, zamFftScaleForward, 0); }, K::free, [&](const auto* s) {
                int bs = -1;
                EXPECT_EQ(K::bufSize(s, &bs), zamStatusOk);
                EXPECT_EQ(bs, ws);
                std::vector<typename K::C> y(x.size());
                EXPECT_EQ(K::fwd(x.data(), y.data(), s, nullptr), zamStatusOk);
                return zt::bytes_of(y);
            });
    }
}

TYPED_TEST(DftComplex, ArgumentChecksInOrder) {
    using F = TypeParam;
    using K = CKind<F>;
    int a, b, c;
    EXPECT_EQ(K::getSize(0, 9, 0, nullptr, &b, &c), zamStatusBadLength);  // length first
    EXPECT_EQ(K::getSize((1 << 23) + 1, 1, 0, &a, &b, &c), zamStatusBadLength);
    EXPECT_EQ(K::getSize(10, 9, 0, nullptr, &b, &c), zamStatusNullPointer);  // then pointers
    EXPECT_EQ(K::getSize(10, 3, 0, &a, &b, &c), zamStatusBadFftFlag);
    typename K::S* spec = nullptr;
    std::vector<Zam8u> mem(4096, 0xA5);
    EXPECT_EQ(K::init(&spec, 10, 16, 0, mem.data(), nullptr), zamStatusBadFftFlag);
    EXPECT_EQ(K::fwd(nullptr, nullptr, reinterpret_cast<typename K::S*>(mem.data() + 64 - (uintptr_t(mem.data()) & 63)), nullptr),
              zamStatusContextMismatch);  // the failed build left no identifier
    ASSERT_EQ(K::getSize(4099, 1, 0, &a, &b, &c), zamStatusOk);
    ASSERT_GT(b, 0);  // the convolution kernel needs a build block
    std::vector<Zam8u> big(static_cast<size_t>(a));
    EXPECT_EQ(K::init(&spec, 4099, 1, 0, big.data(), nullptr), zamStatusNullPointer);
}

ZAMS_DIGEST(dft_complex) {
    for (int n : {1, 3, 12, 60, 64, 97, 243, 257, 1000, 4099, 3200, 3520, 6144, 44100}) {
        const int flag = 1 << (n % 4);
        const auto xf = random_c<Zam32fc>(size_t(n), uint32_t(n));
        const auto xd = random_c<Zam64fc>(size_t(n), uint32_t(n));
        Owned<CKind<float>> f;
        Owned<CKind<double>> g;
        d.status(f.build(n, flag));
        d.status(g.build(n, flag));
        std::vector<Zam32fc> yf(static_cast<size_t>(n)), zf(static_cast<size_t>(n));
        std::vector<Zam64fc> yd(static_cast<size_t>(n)), zd(static_cast<size_t>(n));
        d.status(zamsDFTFwd_CToC_32fc(xf.data(), yf.data(), f.spec, nullptr));
        d.status(zamsDFTInv_CToC_32fc(yf.data(), zf.data(), f.spec, nullptr));
        d.status(zamsDFTFwd_CToC_64fc(xd.data(), yd.data(), g.spec, nullptr));
        d.status(zamsDFTInv_CToC_64fc(yd.data(), zd.data(), g.spec, nullptr));
        d.add(yf);
        d.add(zf);
        d.add(yd);
        d.add(zd);
        int a, b, c;
        d.status(zamsDFTGetSize_C_32fc(n, flag, 0, &a, &b, &c));
        d.add(&a, 1);
        d.add(&b, 1);
        d.add(&c, 1);
    }
}

}  // namespace
