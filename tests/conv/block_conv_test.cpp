// The block convolution engine on its own: overlap-save against a direct
// sum in long double, for real and complex data in both precisions, with
// history, shifts into the zeros on either side, several threads and in
// place.
#include <complex>
#include <random>
#include <vector>

#include "common/blockconv.h"
#include "common/spec.h"
#include "harness.h"

namespace {

using namespace zams;

template <class D> struct Dom;
template <class F> struct Dom<fftp::Real<F>> {
    using E = F;
    using L = long double;
    static E make(std::mt19937& g) { return E(std::uniform_real_distribution<double>(-1, 1)(g)); }
    static L wide(E v) { return L(v); }
    static long double mag(L v) { return v < 0 ? -v : v; }
    static long double diff(E a, L b) { return mag(L(a) - b); }
};
template <class F> struct Dom<fftp::Complex<F>> {
    using E = typename fftp::Fns<F>::Cplx;
    using L = std::complex<long double>;
    static E make(std::mt19937& g) {
        std::uniform_real_distribution<double> u(-1, 1);
        return E{F(u(g)), F(u(g))};
    }
    static L wide(E v) { return L(v.re, v.im); }
    static long double mag(L v) { return std::abs(v); }
    static long double diff(E a, L b) { return std::abs(wide(a) - b); }
};

template <class D> using Elem = typename Dom<D>::E;

// y[n] = sum h[k] s[n + shift - k] in long double, s = head ++ body.
template <class D>
std::vector<typename Dom<D>::L> model(const std::vector<Elem<D>>& h, const std::vector<Elem<D>>& head,
                                      const std::vector<Elem<D>>& body, int64_t shift, int64_t outLen,
                                      long double& scale) {
    using X = Dom<D>;
    const int64_t hl = int64_t(head.size()), total = hl + int64_t(body.size());
    std::vector<typename X::L> y(static_cast<size_t>(outLen));
    scale = 0;
    for (int64_t n = 0; n < outLen; ++n) {
        typename X::L acc{};
        long double m = 0;
        for (int64_t k = 0; k < int64_t(h.size()); ++k) {
            const int64_t i = n + shift - k;
            if (i < 0 || i >= total) continue;
            const auto v = X::wide(i < hl ? head[size_t(i)] : body[size_t(i - hl)]);
            acc += X::wide(h[size_t(k)]) * v;
            m += X::mag(X::wide(h[size_t(k)])) * X::mag(v);
        }
        y[size_t(n)] = acc;
        scale = std::max(scale, m);
    }
    return y;
}

template <class D> std::vector<Elem<D>> random_vec(size_t n, std::mt19937& g) {
    std::vector<Elem<D>> v(n);
    for (auto& e : v) e = Dom<D>::make(g);
    return v;
}


template <class D> class BlockConv : public ::testing::Test {};
using Domains = ::testing::Types<fftp::Real<float>, fftp::Real<double>, fftp::Complex<float>, fftp::Complex<double>>;
TYPED_TEST_SUITE(BlockConv, Domains);

// Precision of one element type: float data has a float epsilon.
template <class D> constexpr long double unit() {
    return std::is_same_v<D, fftp::Real<float>> || std::is_same_v<D, fftp::Complex<float>> ? 6e-8L : 1.2e-16L;
}

struct Case {
    int taps, head, body, outLen;
    int64_t shift;
};

TYPED_TEST(BlockConv, MatchesDirectSumWithHistoryAndShifts) {
    using D = TypeParam;
    using E = Elem<D>;
    // A filter with history (shift = head = taps - 1), full linear
    // convolutions (shift 0, zeros before and after), and lags that reach
    // past either end of the signal.
    const Case cases[] = {{1, 0, 37, 37, 0},        {3, 2, 100, 100, 2},      {64, 63, 1000, 1000, 63},
                          {100, 99, 5000, 5000, 99}, {65, 0, 300, 364, 0},     {257, 0, 2000, 2256, 0},
                          {40, 0, 500, 700, -150},   {33, 10, 200, 180, 120},  {128, 127, 129, 129, 127},
                          {64, 0, 450, 513, 0}};  // three sections: a pair and one alone
    std::mt19937 g(7);
    for (const Case& c : cases) {
        const auto h = random_vec<D>(size_t(c.taps), g), head = random_vec<D>(size_t(c.head), g),
                   body = random_vec<D>(size_t(c.body), g);
        long double scale;
        const auto want = model<D>(h, head, body, c.shift, c.outLen, scale);
        const conv::Signal s{head.data(), c.head, body.data(), c.body, c.shift};
        const int order = conv::section_order(c.taps, c.outLen);
        ASSERT_GT((int64_t(1) << order), c.taps);
        std::vector<E> y(size_t(c.outLen));
        ASSERT_EQ(conv::run_once<D>(h.data(), c.taps, s, y.data(), c.outLen, order, 1), zamStatusOk);
        long double worst = 0;
        for (int n = 0; n < c.outLen; ++n) worst = std::max(worst, Dom<D>::diff(y[size_t(n)], want[size_t(n)]));
        // Overlap-save rounding grows with log N and with the sum of |h||s|.
        EXPECT_LE(worst, 8 * unit<D>() * (order + 1) * std::max(scale, 1.0L))
            << "taps " << c.taps << " out " << c.outLen << " shift " << c.shift;
    }
}

TYPED_TEST(BlockConv, ThreadsAndInPlaceGiveTheSameBits) {
    using D = TypeParam;
    using E = Elem<D>;
    std::mt19937 g(11);
    const int taps = 80, len = 5900;  // 31 sections: pairs split over threads, the last one alone
    const auto h = random_vec<D>(taps, g), head = random_vec<D>(taps - 1, g), body = random_vec<D>(len, g);
    const conv::Signal s{head.data(), taps - 1, body.data(), len, taps - 1};
    const int order = 8;  // many short sections
    std::vector<E> one(len), two(len);
    ASSERT_EQ(conv::run_once<D>(h.data(), taps, s, one.data(), len, order, 1), zamStatusOk);
    ASSERT_EQ(conv::run_once<D>(h.data(), taps, s, two.data(), len, order, 2), zamStatusOk);
    EXPECT_EQ(0, std::memcmp(one.data(), two.data(), len * sizeof(E)));
    // In place: the output overwrites the body it reads.
    std::vector<E> inplace = body;
    const conv::Signal si{head.data(), taps - 1, inplace.data(), len, taps - 1};
    ASSERT_EQ(conv::run_once<D>(h.data(), taps, si, inplace.data(), len, order, 2), zamStatusOk);
    EXPECT_EQ(0, std::memcmp(one.data(), inplace.data(), len * sizeof(E)));
}

TYPED_TEST(BlockConv, CyclicConvolutionOfOnePeriod) {
    using D = TypeParam;
    using E = Elem<D>;
    std::mt19937 g(5);
    for (int order : {1, 4, 9}) {
        const int n = 1 << order;
        const int taps = n - n / 4;  // zero-padded to the period
        const auto h = random_vec<D>(size_t(taps), g), x = random_vec<D>(size_t(n), g);
        D fft;
        ASSERT_EQ(D::alloc(order, zamFftScaleInverse, fft), zamStatusOk);
        std::vector<uint8_t> scratch(size_t(conv::scratch_bytes(fft, order)) + 64);
        std::vector<E> spectrum(static_cast<size_t>(n)), y = x;
        conv::Kernel<D> k;
        ASSERT_EQ(conv::make_kernel(fft, order, h.data(), taps, spectrum.data(), scratch.data(), k), zamStatusOk);
        ASSERT_EQ(conv::cyclic(k, y.data(), scratch.data()), zamStatusOk);
        long double worst = 0, scale = 0;
        for (int i = 0; i < n; ++i) {
            typename Dom<D>::L acc{};
            long double m = 0;
            for (int j = 0; j < taps; ++j) {
                acc += Dom<D>::wide(h[size_t(j)]) * Dom<D>::wide(x[size_t((i - j + n) % n)]);
                m += Dom<D>::mag(Dom<D>::wide(h[size_t(j)])) * Dom<D>::mag(Dom<D>::wide(x[size_t((i - j + n) % n)]));
            }
            worst = std::max(worst, Dom<D>::diff(y[size_t(i)], acc));
            scale = std::max(scale, m);
        }
        EXPECT_LE(worst, 8 * unit<D>() * (order + 1) * scale) << "order " << order;
        EXPECT_EQ(fft.release(), zamStatusOk);
    }
}

// A section in one pass over the spectrum, on the FFT spec structure that holds
// only the recombination factors, against the three steps on the ordinary
// specification: the same bits at every order, out of place and in place.
template <class F> void section_matches_three_steps(int maxOrder) {
    using R = fftp::Real<F>;
    std::mt19937 g(3);
    for (int order = 1; order <= maxOrder; ++order) {
        const size_t n = size_t(1) << order;
        R full, lean;
        ASSERT_EQ(R::alloc(order, zamFftScaleInverse, full), zamStatusOk);
        fftp::Sizes z;
        ASSERT_EQ(fftp::conv_sizes<F>(order, z), zamStatusOk);
        std::vector<uint8_t> mem(size_t(z.spec) + 64), tmp(size_t(z.init) + 64);
        ASSERT_EQ(fftp::conv_build<F>(order, align_up(mem.data(), 64), z.init ? tmp.data() : nullptr, lean),
                  zamStatusOk);
        std::vector<uint8_t> work(size_t(std::max(full.work_bytes(), lean.work_bytes())) + 64);
        const auto h = random_vec<R>(n / 2, g);
        std::vector<F> k(n), x = random_vec<R>(n, g), want(n), got(n);
        std::copy(h.begin(), h.end(), k.begin());
        ASSERT_EQ(full.fwd_perm(k.data(), k.data(), work.data()), zamStatusOk);
        ASSERT_EQ(full.fwd_perm(x.data(), want.data(), work.data()), zamStatusOk);
        R::mul_perm(k.data(), want.data(), int(n));
        ASSERT_EQ(full.inv_perm(want.data(), want.data(), work.data()), zamStatusOk);
        // The whole result in place, then a window of it out of place.
        got = x;
        ASSERT_EQ(fftp::conv_section(lean, got.data(), got.data(), k.data(), work.data(), got.data(), 0, int64_t(n)),
                  zamStatusOk);
        EXPECT_EQ(0, std::memcmp(want.data(), got.data(), n * sizeof(F))) << "order " << order << " in place";
        const int64_t from = int64_t(n / 4), count = int64_t(n - n / 4);
        std::vector<F> buf(n), out(n + 1, F(7));
        ASSERT_EQ(fftp::conv_section(lean, x.data(), buf.data(), k.data(), work.data(), out.data(), from, count),
                  zamStatusOk);
        EXPECT_EQ(0, std::memcmp(want.data() + from, out.data(), size_t(count) * sizeof(F))) << "order " << order;
        EXPECT_EQ(out[size_t(count)], F(7)) << "order " << order;  // nothing past the window
        EXPECT_EQ(full.release(), zamStatusOk);
    }
}

TEST(BlockConvSection, OnePassEqualsThreeSteps) {
    section_matches_three_steps<float>(18);
    section_matches_three_steps<double>(16);
}

TEST(BlockConvOrder, SectionsHoldTheKernelAndNoMoreThanTheCallNeeds) {
    for (int64_t taps : {1, 2, 63, 64, 100, 1000, 4096}) {
        for (int64_t out : {1, 100, 1000, 100000}) {
            const int m = conv::section_order(taps, out);
            const int64_t N = int64_t(1) << m;
            EXPECT_GE(N, 2 * taps) << taps << " " << out;
            // Never past the power of two above what one section of all outputs needs.
            EXPECT_LE(N, 2 * std::max<int64_t>(2 * taps, out + taps - 1)) << taps << " " << out;
        }
    }
    // Long signals with short kernels take sections of several times the kernel.
    EXPECT_GE(int64_t(1) << conv::section_order(64, 1000000), 256);
}

TEST(BlockConvCrossover, RowsAreData) {
    EXPECT_FALSE(conv::use_fft(conv::kFir, 511, 100));
    EXPECT_TRUE(conv::use_fft(conv::kFir, 512, 64));
    EXPECT_FALSE(conv::use_fft(conv::kConv, 100000, 63));
}

}  // namespace
