// Complex FFT: accuracy against a long double DFT, scaling, in place,
// unaligned data, work buffers, threads, statuses.
#include <thread>

#include "digest.h"
#include "fft_kinds.h"

#ifdef ZAMS_TEST_FFTW
#include <fftw3.h>
#endif

namespace {

using namespace ft;

// Runs one transform of a kind on interleaved data.
template <class K> zamStatus call(bool inverse, bool inplace, const typename K::F* s, typename K::F* d,
                                  const typename K::Spec* p, Zam8u* b, size_t n) {
    if constexpr (requires { typename K::Ops; }) {
        return K::Ops::call(inverse, inplace, s, d, p, b, n);
    } else {
        if (inplace) {
            std::memcpy(d, s, 2 * n * sizeof(typename K::F));
            return inverse ? K::inv_i(d, p, b) : K::fwd_i(d, p, b);
        }
        return inverse ? K::inv(s, d, p, b) : K::fwd(s, d, p, b);
    }
}

// Every flag, both directions, in place and not, at a data offset that
// breaks the vector alignment, against the long double DFT.
template <class K> void check_accuracy(int order, size_t offset, uint32_t seed) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, seed, F(-1), F(1));
    const auto xl = to_cl(x.data(), n);
    const std::vector<CL> ref[2] = {dft(xl, -1), dft(xl, +1)};
    for (int flag : kFlags) {
        OwnedSpec<K> os;
        ASSERT_EQ(os.build(order, flag), zamStatusOk);
        std::vector<uint8_t> buf(size_t(os.workSize) + 1);
        for (int inverse = 0; inverse < 2; ++inverse)
            for (int inplace = 0; inplace < 2; ++inplace) {
                zt::Guarded<F> dst(2 * n, offset);
                ASSERT_EQ(call<K>(inverse, inplace, x.data(), dst.data(), os.spec, os.workSize ? buf.data() : nullptr, n),
                          zamStatusOk);
                std::vector<CL> want = ref[inverse];
                const LD sc = flag_scale(flag, order, inverse);
                for (auto& v : want) v *= sc;
                EXPECT_LE(rel_rms(to_cl(dst.data(), n), want), bound<F>(order))
                    << K::kName << " order " << order << " flag " << flag << " inverse " << inverse << " inplace "
                    << inplace;
                EXPECT_TRUE(dst.guards_intact());
            }
    }
}

template <class K> void check_kind_small_orders() {
    for (int order = 0; order <= 10; ++order) check_accuracy<K>(order, order % 3 == 1 ? 4 : 0, 100 + order);
}

TEST(FftComplex, AccuracySmallOrders32fc) { check_kind_small_orders<C32fc>(); }
TEST(FftComplex, AccuracySmallOrders64fc) { check_kind_small_orders<C64fc>(); }
TEST(FftComplex, AccuracySmallOrders32f) { check_kind_small_orders<C32f>(); }
TEST(FftComplex, AccuracySmallOrders64f) { check_kind_small_orders<C64f>(); }

// Forward then inverse returns the input: within rounding for the scaled
// flags, N times it for flag 8.
template <class K> void check_roundtrip(int order, int flag) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 7 + order, F(-1), F(1));
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(order, flag), zamStatusOk);
    std::vector<F> y(2 * n), z(2 * n);
    ASSERT_EQ(call<K>(false, false, x.data(), y.data(), os.spec, nullptr, n), zamStatusOk);
    ASSERT_EQ(call<K>(true, true, y.data(), z.data(), os.spec, nullptr, n), zamStatusOk);
    std::vector<CL> want = to_cl(x.data(), n);
    if (flag == 8)
        for (auto& v : want) v *= LD(n);
    EXPECT_LE(rel_rms(to_cl(z.data(), n), want), 2 * bound<F>(order)) << K::kName << " order " << order;
}

// Spot checks of single bins against the long double DFT, for orders
// too long for the whole naive DFT.
template <class K> void check_bins(int order) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 900 + order, F(-1), F(1));
    const auto xl = to_cl(x.data(), n);
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(order, 8), zamStatusOk);
    std::vector<F> y(2 * n);
    ASSERT_EQ(call<K>(false, false, x.data(), y.data(), os.spec, nullptr, n), zamStatusOk);
    auto g = zt::rng(order);
    LD e = 0, r = 0;
    for (int t = 0; t < 6; ++t) {
        size_t k = t == 0 ? 0 : (t == 1 ? n - 1 : g() % n);
        CL want = dft_bin(xl, k, -1);
        e += std::norm(CL(y[2 * k], y[2 * k + 1]) - want);
        r += std::norm(want);
    }
    EXPECT_LE(double(std::sqrt(e / r)), 3 * bound<F>(order)) << K::kName << " order " << order;
}

TEST(FftComplex, RoundTripAndBinsUpToOrder16) {
    // every order on x86-64; a lean set under emulation on i386
    const std::vector<int> orders = sizeof(void*) == 8 ? std::vector<int>{11, 12, 13, 14, 15, 16} : std::vector<int>{11, 12, 13, 16};
    for (int order : orders) {
        for (int flag : kFlags) check_roundtrip<C32fc>(order, flag);
        check_roundtrip<C64fc>(order, 2);
        check_roundtrip<C32f>(order, 1);
        check_roundtrip<C64f>(order, 4);
    }
    // order 11 is the longest two-level transform
    check_bins<C32fc>(11);
    check_bins<C64fc>(11);
    // float orders 12 to 16 put a radix-4 or radix-8 pass in front of shorter transforms
    for (int order : {12, 13, 14, 15}) check_bins<C32fc>(order);
    if (sizeof(void*) == 8) check_bins<C32fc>(16);
    check_bins<C64f>(sizeof(void*) == 8 ? 15 : 12);
}

// The large layouts start at order 18 (64-bit) and 19 (32-bit).
TEST(FftComplex, LargeOrders) {
    if (sizeof(void*) != 8) GTEST_SKIP() << "large orders run on x86-64 only";
    for (int order : {18, 19, 20}) {
        check_roundtrip<C64fc>(order, 1);
        check_roundtrip<C32fc>(order, 2);
    }
    check_roundtrip<C32f>(19, 4);
    check_roundtrip<C64f>(18, 8);
}

#ifdef ZAMS_TEST_FFTW
// Whole transforms against FFTW's double transform, whose error is far
// below the bounds; compared in double to keep the largest orders quick.
template <class K> double vs_fftw(int order, bool inverse, bool inplace) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 31 + order, F(-1), F(1));
    std::vector<fftw_complex> in(n), out(n);
    for (size_t i = 0; i < n; ++i) { in[i][0] = x[2 * i]; in[i][1] = x[2 * i + 1]; }
    fftw_plan p = fftw_plan_dft_1d(int(n), in.data(), out.data(), inverse ? FFTW_BACKWARD : FFTW_FORWARD, FFTW_ESTIMATE);
    fftw_execute(p);
    fftw_destroy_plan(p);
    OwnedSpec<K> os;
    EXPECT_EQ(os.build(order, 8), zamStatusOk);
    std::vector<F> y(2 * n);
    EXPECT_EQ(call<K>(inverse, inplace, x.data(), y.data(), os.spec, nullptr, n), zamStatusOk);
    double e = 0, r = 0;
    for (size_t i = 0; i < n; ++i) {
        const double dr = double(y[2 * i]) - out[i][0], di = double(y[2 * i + 1]) - out[i][1];
        e += dr * dr + di * di;
        r += out[i][0] * out[i][0] + out[i][1] * out[i][1];
    }
    return std::sqrt(e / r);
}

TEST(FftComplex, AgainstFftwUpTo2p22) {
    for (int order : {12, 17, 18, 19, 22}) {
        EXPECT_LE(vs_fftw<C32fc>(order, false, order & 1), bound<float>(order)) << order;
        EXPECT_LE(vs_fftw<C32fc>(order, true, !(order & 1)), bound<float>(order)) << order;
    }
    for (int order : {13, 17, 18, 20}) EXPECT_LE(vs_fftw<C64fc>(order, order & 1, !(order & 1)), bound<double>(order)) << order;
    EXPECT_LE(vs_fftw<C32f>(20, true, true), bound<float>(20));
    EXPECT_LE(vs_fftw<C64f>(19, false, false), bound<double>(19));
}
#endif

// Work buffer: caller's at any offset, or none (the call allocates), give
// the same bits.
TEST(FftComplex, WorkBufferChoicesGiveSameBits) {
    for (int order : {7, 12}) {
        const size_t n = size_t(1) << order;
        OwnedSpec<C32fc> os;
        ASSERT_EQ(os.build(order, 2), zamStatusOk);
        auto x = zt::random_reals<float>(2 * n, 5, -1.f, 1.f);
        std::vector<float> a = x, b = x;
        ASSERT_EQ(zamsFFTFwd_CToC_32fc_I((Zam32fc*)a.data(), os.spec, nullptr), zamStatusOk);
        std::vector<uint8_t> buf(size_t(os.workSize) + 3);
        ASSERT_EQ(zamsFFTFwd_CToC_32fc_I((Zam32fc*)b.data(), os.spec, buf.data() + 3), zamStatusOk);
        EXPECT_EQ(0, std::memcmp(a.data(), b.data(), a.size() * sizeof(float)));
    }
}

// The long float orders read the whole source before they write the
// destination: in place gives the bits of out of place, both directions.
TEST(FftComplex, LongOrdersInPlaceSameBits) {
    for (int order = 11; order <= 16; ++order) {
        const size_t n = size_t(1) << order;
        OwnedSpec<C32fc> os;
        ASSERT_EQ(os.build(order, 2), zamStatusOk);
        const auto x = zt::random_reals<float>(2 * n, 40 + order, -1.f, 1.f);
        for (int inverse = 0; inverse < 2; ++inverse) {
            std::vector<float> out(2 * n), in(2 * n);
            ASSERT_EQ(call<C32fc>(inverse, false, x.data(), out.data(), os.spec, nullptr, n), zamStatusOk);
            ASSERT_EQ(call<C32fc>(inverse, true, x.data(), in.data(), os.spec, nullptr, n), zamStatusOk);
            EXPECT_EQ(0, std::memcmp(out.data(), in.data(), out.size() * sizeof(float))) << order << " " << inverse;
        }
    }
}

// One spec, two threads, each with its own buffer: the results equal a
// single-threaded run.
TEST(FftComplex, SharedSpecFromTwoThreads) {
    const int order = 12;
    const size_t n = size_t(1) << order;
    ZamsFFTSpec_C_64fc* spec = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_C_64fc(&spec, order, 4, 0), zamStatusOk);
    std::vector<double> x[2] = {zt::random_reals<double>(2 * n, 1), zt::random_reals<double>(2 * n, 2)};
    std::vector<double> want[2], got[2];
    for (int t = 0; t < 2; ++t) {
        want[t].resize(2 * n);
        got[t].resize(2 * n);
        ASSERT_EQ(zamsFFTFwd_CToC_64fc((Zam64fc*)x[t].data(), (Zam64fc*)want[t].data(), spec, nullptr), zamStatusOk);
    }
    zamStatus st[2] = {-1, -1};
    auto work = [&](int t) {
        int bs = 0;
        zamsFFTGetBufSize_C_64fc(spec, &bs);
        std::vector<uint8_t> buf(static_cast<size_t>(bs));
        for (int rep = 0; rep < 20; ++rep)
            st[t] = zamsFFTFwd_CToC_64fc((Zam64fc*)x[t].data(), (Zam64fc*)got[t].data(), spec, buf.data());
    };
    std::thread a(work, 0), b(work, 1);
    a.join();
    b.join();
    for (int t = 0; t < 2; ++t) {
        EXPECT_EQ(st[t], zamStatusOk);
        EXPECT_EQ(0, std::memcmp(want[t].data(), got[t].data(), 2 * n * sizeof(double)));
    }
    EXPECT_EQ(zamsFFTFree_C_64fc(spec), zamStatusOk);
}

// Order 0 copies (times the scale); flag 8 gives N x for a round trip.
TEST(FftComplex, OrderZeroAndFlagValues) {
    ZamsFFTSpec_C_32fc* spec = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_C_32fc(&spec, 0, 8, 0), zamStatusOk);
    Zam32fc x = {3.5f, -2.0f}, y = {0, 0};
    ASSERT_EQ(zamsFFTFwd_CToC_32fc(&x, &y, spec, nullptr), zamStatusOk);
    EXPECT_EQ(y.re, 3.5f);
    EXPECT_EQ(y.im, -2.0f);
    zamsFFTFree_C_32fc(spec);
    // An impulse under flag 4 gives 1/sqrt(N) in every bin.
    for (int order : {1, 3, 4, 9}) {
        ASSERT_EQ(zamsFFTInitAlloc_C_32fc(&spec, order, 4, 0), zamStatusOk);
        const size_t n = size_t(1) << order;
        std::vector<Zam32fc> d(n, Zam32fc{0, 0}), o(n);
        d[0].re = 1;
        ASSERT_EQ(zamsFFTFwd_CToC_32fc(d.data(), o.data(), spec, nullptr), zamStatusOk);
        for (size_t k = 0; k < n; ++k) {
            EXPECT_NEAR(o[k].re, 1 / std::sqrt(double(n)), 2e-7) << order;
            EXPECT_EQ(o[k].im, 0.0f);
        }
        zamsFFTFree_C_32fc(spec);
    }
}

template <class K> void check_statuses() {
    using F = typename K::F;
    OwnedSpec<K> os;
    ASSERT_EQ(os.build(8, 1), zamStatusOk);
    OwnedSpec<C32fc> other;
    ASSERT_EQ(other.build(8, 1), zamStatusOk);
    const size_t n = 256;
    std::vector<F> x(2 * n, F(1)), y(2 * n, F(9));
    auto* wrong = reinterpret_cast<const typename K::Spec*>(K::kId == 4 ? (void*)os.spec : (void*)other.spec);
    if (K::kId == 4) {
        // a C_32f spec refused by the C_32fc functions
        OwnedSpec<C32f> split;
        ASSERT_EQ(split.build(8, 1), zamStatusOk);
        EXPECT_EQ(zamsFFTFwd_CToC_32fc((Zam32fc*)x.data(), (Zam32fc*)y.data(), (const ZamsFFTSpec_C_32fc*)split.spec, nullptr),
                  zamStatusContextMismatch);
    } else {
        EXPECT_EQ(call<K>(false, false, x.data(), y.data(), wrong, nullptr, n), zamStatusContextMismatch);
    }
    EXPECT_EQ(call<K>(true, false, x.data(), y.data(), nullptr, nullptr, n), zamStatusNullPointer);
    for (size_t i = 0; i < y.size(); ++i) ASSERT_EQ(y[i], F(9));
}

TEST(FftComplex, StatusesLeaveDestinationAlone) {
    check_statuses<C32fc>();
    check_statuses<C64fc>();
    check_statuses<C32f>();
    check_statuses<C64f>();
    // Null data pointers after the spec structure checks; a null spec structure before them.
    OwnedSpec<C64f> os;
    ASSERT_EQ(os.build(3, 8), zamStatusOk);
    double a[8] = {0}, b[8] = {0};
    EXPECT_EQ(zamsFFTFwd_CToC_64f(a, nullptr, b, b, os.spec, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTInv_CToC_64f_I(a, nullptr, os.spec, nullptr), zamStatusNullPointer);
    EXPECT_EQ(zamsFFTFwd_CToC_64f(nullptr, a, b, b, (const ZamsFFTSpec_C_64f*)a, nullptr), zamStatusContextMismatch);
    EXPECT_EQ(zamsFFTFwd_CToC_64fc_I(nullptr, nullptr, nullptr), zamStatusNullPointer);
    // A freed spec in caller memory is refused.
    Zam32fc v[16] = {};
    OwnedSpec<C32fc> freed;
    ASSERT_EQ(freed.build(4, 8), zamStatusOk);
    ASSERT_EQ(zamsFFTFree_C_32fc(freed.spec), zamStatusOk);
    EXPECT_EQ(zamsFFTFwd_CToC_32fc(v, v, freed.spec, nullptr), zamStatusContextMismatch);
}

// ------------------------------------------------------------ digests --
template <class K> void digest_kind(zt::Digest& d, int order, int flag) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 77 + order, F(-100), F(100));
    OwnedSpec<K> os;
    d.status(os.build(order, flag));
    std::vector<F> y(2 * n), z(2 * n);
    d.status(call<K>(false, false, x.data(), y.data(), os.spec, nullptr, n));
    d.status(call<K>(true, true, y.data(), z.data(), os.spec, nullptr, n));
    d.add(y);
    d.add(z);
}

ZAMS_DIGEST(fft_complex_small) {
    for (int order = 0; order <= 7; ++order) {
        digest_kind<C32fc>(d, order, kFlags[order % 4]);
        digest_kind<C64fc>(d, order, kFlags[(order + 1) % 4]);
        digest_kind<C32f>(d, order, kFlags[(order + 2) % 4]);
        digest_kind<C64f>(d, order, kFlags[(order + 3) % 4]);
    }
}

ZAMS_DIGEST(fft_complex_medium) {
    for (int order : {10, 13}) {
        digest_kind<C32fc>(d, order, 4);
        digest_kind<C64fc>(d, order, 1);
        digest_kind<C32f>(d, order, 8);
        digest_kind<C64f>(d, order, 2);
    }
}

ZAMS_DIGEST(fft_complex_large) {
    // the 64-bit large layout (the 32-bit one is in the real digest)
    digest_kind<C64fc>(d, 18, 1);
}

}  // namespace
