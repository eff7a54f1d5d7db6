// Complex FFT: accuracy against the long double DFT and FFTW, scaling, in
// place, unaligned data, work buffers, threads.
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
// breaks the vector alignment (16 bytes), with a work buffer of exactly the
// reported size, against whole spectra of the long double DFT.
template <class K> void check_accuracy(int order, size_t offset) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 100 + order, F(-1), F(1));
    const auto xl = to_cl(x.data(), n);
    const std::vector<CL> ref[2] = {dft(xl, -1), dft(xl, +1)};
    for (int flag : kFlags) {
        OwnedSpec<K> os;
        ASSERT_EQ(os.build(order, flag), zamStatusOk);
        std::vector<uint8_t> buf(size_t(os.workSize));
        for (int inverse = 0; inverse < 2; ++inverse)
            for (int inplace = 0; inplace < 2; ++inplace) {
                zt::Guarded<F> dst(2 * n, offset);
                ASSERT_EQ(call<K>(inverse, inplace, x.data(), dst.data(), os.spec, os.workSize ? buf.data() : nullptr, n),
                          zamStatusOk);
                std::vector<CL> want = ref[inverse];
                const LD sc = flag_scale(flag, order, inverse);
                for (auto& v : want) v *= sc;
                const auto got = to_cl(dst.data(), n);
                EXPECT_LE(rel_rms(got, want), bound<F>(order))
                    << K::kName << " order " << order << " flag " << flag << " inverse " << inverse << " inplace " << inplace;
                // the largest single error too: a wrong bin hides in the mean
                LD worst = 0, top = 0;
                for (size_t k = 0; k < n; ++k) {
                    worst = std::max(worst, std::abs(got[k] - want[k]));
                    top = std::max(top, std::abs(want[k]));
                }
                EXPECT_LE(double(worst / top), 8 * bound<F>(order)) << K::kName << " order " << order;
                EXPECT_TRUE(dst.guards_intact());
            }
    }
}

// Orders 2 to 6 are the straight-line transforms, 7 to 16 (double 14) the
// self-sorting passes of every radix list, double 15 and 16 and the split
// kinds the radix-4 network.
TEST(FftComplex, AccuracyUpToOrder16) {
    const bool x64 = sizeof(void*) == 8;  // i386 runs under emulation: fewer orders
    Kinds<C32fc, C64fc, C32f, C64f>::each([&]<class K>() {
        const size_t off = 16 / sizeof(typename K::F);
        for (int order = 0; order <= (x64 || K::kId == 4 ? 16 : 13); ++order) check_accuracy<K>(order, order % 3 == 1 ? off : 0);
    });
}

#ifdef ZAMS_TEST_FFTW
// Large orders against FFTW's double transform, whose error is far below the
// bounds; the large layouts start at order 18 (64-bit) and 19 (32-bit).
template <class K> double vs_fftw(int order, int flag, bool inverse, bool inplace) {
    using F = typename K::F;
    const size_t n = size_t(1) << order;
    auto x = zt::random_reals<F>(2 * n, 31 + order, F(-1), F(1));
    std::vector<fftw_complex> in(n), out(n);
    for (size_t i = 0; i < n; ++i) { in[i][0] = x[2 * i]; in[i][1] = x[2 * i + 1]; }
    fftw_plan p = fftw_plan_dft_1d(int(n), in.data(), out.data(), inverse ? FFTW_BACKWARD : FFTW_FORWARD, FFTW_ESTIMATE);
    fftw_execute(p);
    fftw_destroy_plan(p);
    OwnedSpec<K> os;
    EXPECT_EQ(os.build(order, flag), zamStatusOk);
    std::vector<F> y(2 * n);
    EXPECT_EQ(call<K>(inverse, inplace, x.data(), y.data(), os.spec, nullptr, n), zamStatusOk);
    const double sc = double(flag_scale(flag, order, inverse));
    double e = 0, r = 0;
    for (size_t i = 0; i < n; ++i) {
        const double dr = double(y[2 * i]) - sc * out[i][0], di = double(y[2 * i + 1]) - sc * out[i][1];
        e += dr * dr + di * di;
        r += sc * sc * (out[i][0] * out[i][0] + out[i][1] * out[i][1]);
    }
    return std::sqrt(e / r);
}

TEST(FftComplex, LargeOrdersAgainstFftw) {
    for (int order : {17, 18, 19, 20, 22}) {
        EXPECT_LE(vs_fftw<C32fc>(order, kFlags[order % 4], false, order & 1), bound<float>(order)) << order;
        EXPECT_LE(vs_fftw<C32fc>(order, kFlags[(order + 1) % 4], true, !(order & 1)), bound<float>(order)) << order;
        if (order < 22) {
            EXPECT_LE(vs_fftw<C64fc>(order, kFlags[order % 4], order & 1, !(order & 1)), bound<double>(order)) << order;
        }
    }
    EXPECT_LE(vs_fftw<C64fc>(18, 2, true, true), bound<double>(18));
    EXPECT_LE(vs_fftw<C32f>(19, 4, false, false), bound<float>(19));
    EXPECT_LE(vs_fftw<C32f>(20, 8, true, true), bound<float>(20));
    EXPECT_LE(vs_fftw<C64f>(18, 8, true, true), bound<double>(18));
    EXPECT_LE(vs_fftw<C64f>(19, 1, false, false), bound<double>(19));
}
#endif

// In place gives the bits of out of place, and the caller's work buffer at
// the byte offset `off` the bits of none (the call allocates).
template <class K> void same_bits_in_place(std::initializer_list<int> orders, int flag, uint32_t seed, size_t off) {
    using F = typename K::F;
    for (int order : orders) {
        const size_t n = size_t(1) << order;
        OwnedSpec<K> os;
        ASSERT_EQ(os.build(order, flag), zamStatusOk);
        const auto x = zt::random_reals<F>(2 * n, seed + uint32_t(order), F(-1), F(1));
        std::vector<uint8_t> buf(size_t(os.workSize) + off);
        for (int inverse = 0; inverse < 2; ++inverse) {
            std::vector<F> out(2 * n), in(2 * n), own(2 * n);
            ASSERT_EQ(call<K>(inverse, false, x.data(), out.data(), os.spec, nullptr, n), zamStatusOk);
            ASSERT_EQ(call<K>(inverse, true, x.data(), in.data(), os.spec, nullptr, n), zamStatusOk);
            ASSERT_EQ(call<K>(inverse, true, x.data(), own.data(), os.spec, buf.data() + off, n), zamStatusOk);
            EXPECT_EQ(0, std::memcmp(out.data(), in.data(), out.size() * sizeof(F))) << order << " " << inverse;
            EXPECT_EQ(0, std::memcmp(own.data(), in.data(), in.size() * sizeof(F))) << order << " " << inverse;
        }
    }
}

// The long float orders read the whole source before they write.
TEST(FftComplex, InPlaceAndWorkBufferGiveSameBits) { same_bits_in_place<C32fc>({7, 11, 12, 13, 14, 15, 16}, 2, 40, 3); }

// Double order 15 lays its first pass's blocks out one way in place and
// another way out of place; orders 9 to 11 run their first pass into the
// work buffer in place and into the destination out of place.
TEST(FftComplex, DoubleInPlaceAndWorkBufferGiveSameBits) { same_bits_in_place<C64fc>({9, 10, 11, 14, 15, 16}, 8, 80, 8); }

// The bits do not depend on where the data lie: source and destination one
// and two values off their aligned places give the aligned run's results,
// both directions, every order of the pass kernels and the straight-line
// transforms.
TEST(FftComplex, BitsIndependentOfAddresses) {
    Kinds<C32fc, C64fc>::each([&]<class K>() {
        using F = typename K::F;
        for (int order = 2; order <= 16; ++order) {
            const size_t n = size_t(1) << order;
            OwnedSpec<K> os;
            ASSERT_EQ(os.build(order, 8), zamStatusOk);
            const auto x = zt::random_reals<F>(2 * n, 60 + order, F(-1), F(1));
            std::vector<uint8_t> buf(size_t(os.workSize));
            Zam8u* b = os.workSize ? buf.data() : nullptr;
            for (int inverse = 0; inverse < 2; ++inverse) {
                std::vector<F> want(2 * n), src(2 * n + 2), got(2 * n + 2);
                ASSERT_EQ(call<K>(inverse, false, x.data(), want.data(), os.spec, b, n), zamStatusOk);
                for (size_t off : {1, 2}) {
                    std::memcpy(src.data() + off, x.data(), 2 * n * sizeof(F));
                    ASSERT_EQ(call<K>(inverse, false, src.data() + off, got.data() + 2 - off, os.spec, b, n), zamStatusOk);
                    EXPECT_EQ(0, std::memcmp(want.data(), got.data() + 2 - off, 2 * n * sizeof(F)))
                        << K::kName << " order " << order << " inverse " << inverse << " offset " << off;
                }
            }
        }
    });
}

// One spec, two threads, each with its own buffer: the results equal a
// single-threaded run.
TEST(FftComplex, SharedSpecFromTwoThreads) {
    const int order = 12;
    const size_t n = size_t(1) << order;
    ZamsFFTSpec_C_64fc* spec = nullptr;
    ASSERT_EQ(zamsFFTInitAlloc_C_64fc(&spec, order, 4, 0), zamStatusOk);
    std::vector<double> x[2] = {zt::random_reals<double>(2 * n, 1), zt::random_reals<double>(2 * n, 2)};
    std::vector<double> want[2] = {x[0], x[1]}, got[2] = {x[0], x[1]};
    for (int t = 0; t < 2; ++t)
        ASSERT_EQ(zamsFFTFwd_CToC_64fc((Zam64fc*)x[t].data(), (Zam64fc*)want[t].data(), spec, nullptr), zamStatusOk);
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
    // the pass lists of orders 8 to 13
    for (int order : {8, 9, 10, 11, 12, 13}) {
        digest_kind<C32fc>(d, order, 4);
        digest_kind<C64fc>(d, order, 1);
        digest_kind<C32f>(d, order, 8);
        digest_kind<C64f>(d, order, 2);
    }
}

ZAMS_DIGEST(fft_complex_long) {
    // the radix-16 and radix-32 pass lists (float 14 to 16, double 14) and
    // the network below the large layout (double 15, 16)
    for (int order : {14, 15, 16}) {
        digest_kind<C32fc>(d, order, 2);
        digest_kind<C64fc>(d, order, 4);
    }
}

ZAMS_DIGEST(fft_complex_large) {
    // the 64-bit large layout (the 32-bit one is in the real digest)
    digest_kind<C64fc>(d, 18, 1);
}

}  // namespace
