// The 32f filter's direct kernels make every output from its own samples
// alone: the bits do not depend on how a signal is split into calls nor on
// where the buffers lie, and a sample reaches no output before its own. The
// one-sample form at every taps length its straight-line forms cover.
#include <cmath>
#include <random>
#include <vector>

#include "fir_model.h"

namespace {

struct Alloc {
    ZamsFIRState_32f* p = nullptr;
    explicit Alloc(const std::vector<float>& taps, const float* dly = nullptr) {
        EXPECT_EQ(zamsFIRInitAlloc_32f(&p, taps.data(), int(taps.size()), dly), 0);
    }
    ~Alloc() { zamsFIRFree_32f(p); }
};

std::vector<float> one_call(const std::vector<float>& taps, const std::vector<float>& x) {
    Alloc st(taps);
    std::vector<float> y(x.size());
    EXPECT_EQ(zamsFIR_32f(x.data(), y.data(), int(x.size()), st.p), 0);
    return y;
}

void expect_bits(const std::vector<float>& a, const std::vector<float>& b, int L, const char* what) {
    ASSERT_EQ(a.size(), b.size());
    for (size_t n = 0; n < a.size(); ++n) ASSERT_EQ(zt::bits(a[n]), zt::bits(b[n])) << what << " L=" << L << " n=" << n;
}

// Both direct kernels (to 31 taps and from 32, with and without a part
// vector); 100 taps stays direct below 512 samples.
TEST(Fir32fBits, SplitsAndAddressesKeepTheBits) {
    std::mt19937 g(5);
    for (int L : {5, 31, 32, 33, 47, 63, 100}) {
        const int len = L == 100 ? 500 : 3000;
        auto taps = fm::rand_f(L, uint32_t(L)), x = fm::rand_f(len, uint32_t(L + 1));
        const auto ref = one_call(taps, x);
        {
            Alloc st(taps);
            std::vector<float> y(x.size());
            for (int done = 0; done < len;) {
                const int n = std::min(len - done, int(1 + g() % 70));
                ASSERT_EQ(zamsFIR_32f(x.data() + done, y.data() + done, n, st.p), 0);
                done += n;
            }
            expect_bits(y, ref, L, "split");
        }
        for (size_t off : {4, 12, 28}) {
            Alloc st(taps);
            zt::Guarded<float> src(x.size(), off), dst(x.size(), 32 - off);
            src.copy_from(x.data());
            ASSERT_EQ(zamsFIR_32f(src.data(), dst.data(), len, st.p), 0);
            expect_bits(dst.to_vector(), ref, L, "moved");
        }
        Alloc st(taps);
        zt::Guarded<float> io(x.size(), 20);
        io.copy_from(x.data());
        ASSERT_EQ(zamsFIR_32f_I(io.data(), len, st.p), 0);
        expect_bits(io.to_vector(), ref, L, "in place");
    }
}

// The kernels read whole vectors past an output's last sample; those lanes
// must not reach it (an infinity there would make it NaN).
TEST(Fir32fBits, ASampleReachesNoEarlierOutput) {
    for (int L : {3, 33, 45}) {
        auto taps = fm::rand_f(L, 7), x = fm::rand_f(700, 8);
        const auto clean = one_call(taps, x);
        x[300] = INFINITY;
        const auto y = one_call(taps, x);
        for (size_t n = 0; n < 300; ++n) ASSERT_EQ(zt::bits(y[n]), zt::bits(clean[n])) << "L=" << L << " n=" << n;
        for (size_t n = 300; n < size_t(300 + L); ++n) ASSERT_FALSE(std::isfinite(y[n])) << "L=" << L << " n=" << n;
        ASSERT_EQ(zt::bits(y[size_t(300 + L)]), zt::bits(clean[size_t(300 + L)])) << "L=" << L;
    }
}

// Every straight-line form (whole vectors and a part vector or not) and the
// loop, before and after a block call, against the long double sum.
TEST(Fir32fBits, OneSampleFormAtEveryTapsLength) {
    std::vector<int> lens;
    for (int L = 12; L <= 152; ++L) lens.push_back(L);
    for (int L : {200, 301}) lens.push_back(L);
    for (int L : lens) {
        auto taps = fm::rand_f(L, uint32_t(L)), dly = fm::rand_f(L, uint32_t(L + 1)), x = fm::rand_f(3 * L, 9);
        std::vector<fm::LD> mag;
        const auto ref = fm::fir(taps, dly, x, &mag);
        Alloc st(taps, dly.data());
        std::vector<float> y(x.size());
        const size_t a = size_t(L + 3), b = size_t(L + 10);  // one samples, a block, one samples
        for (size_t n = 0; n < a; ++n) ASSERT_EQ(zamsFIROne_32f(x[n], &y[n], st.p), 0);
        ASSERT_EQ(zamsFIR_32f(x.data() + a, y.data() + a, int(b - a), st.p), 0);
        for (size_t n = b; n < x.size(); ++n) ASSERT_EQ(zamsFIROne_32f(x[n], &y[n], st.p), 0);
        const fm::LD eps = 6e-8L * (8 + std::sqrt(fm::LD(L)));
        for (size_t n = 0; n < x.size(); ++n)
            ASSERT_LE(std::fabs(fm::LD(y[n]) - ref[n].real()), eps * mag[n]) << "L=" << L << " n=" << n;
    }
}

}  // namespace
