// The 32f filter: Init at every misalignment into a buffer of exactly the
// reported size at one and two threads, the direct kernels
// and the FFT path against a long double sum, block splits, in place,
// threads, the one-sample and Direct forms' exact arithmetic, the delay
// line and taps, and the routing of states by kind.
#include <algorithm>
#include <cmath>
#include <vector>

#include "digest.h"
#include "fir_model.h"

namespace {

using fm::LD;

using zt::Threads;

// A 32f state in caller memory, sized at the current thread count.
struct State {
    std::vector<uint8_t> mem;
    ZamsFIRState_32f* p = nullptr;
    State(const std::vector<float>& taps, const float* dly = nullptr) {
        int size = 0;
        EXPECT_EQ(zamsFIRGetStateSize_32f(int(taps.size()), &size), 0);
        mem.resize(size_t(size));
        EXPECT_EQ(zamsFIRInit_32f(&p, taps.data(), int(taps.size()), dly, mem.data()), 0);
    }
};

// Outputs within a bound that grows with the FFT's length, over the sum of
// each output's terms' magnitudes plus (for the FFT path, whose error is
// spread over a section) the largest such sum.
void expect_close(const std::vector<float>& y, const std::vector<fm::LC>& ref, const std::vector<LD>& mag, int L,
                  const char* what) {
    const LD eps = 6e-8L * (8 + 2 * std::log2(L + 2.0L) + std::sqrt(LD(L)));
    const LD top = L >= 64 ? *std::max_element(mag.begin(), mag.end()) : 0;
    for (size_t n = 0; n < y.size(); ++n) {
        ASSERT_LE(std::fabs(LD(y[n]) - ref[n].real()), eps * (mag[n] + top)) << what << " L=" << L << " n=" << n;
    }
}

TEST(Fir32f, InitIntoExactSizeAtEveryMisalignmentWritesNothingPast) {
    for (int T : {1, 2}) {
        Threads th(T);
        for (int L : {1, 7, 31, 32, 63, 64, 100, 300, 600}) {
            int size = 0;
            ASSERT_EQ(zamsFIRGetStateSize_32f(L, &size), 0);
            auto taps = fm::rand_f(L, 3 + L);
            auto x = fm::rand_f(4000, 5);
            std::vector<float> y(x.size());
            for (size_t off = 0; off < 16; ++off) {
                zt::Guarded<uint8_t> buf(size_t(size), off);
                ZamsFIRState_32f* p = nullptr;
                ASSERT_EQ(zamsFIRInit_32f(&p, taps.data(), L, nullptr, buf.data()), 0);
                ASSERT_EQ(reinterpret_cast<uintptr_t>(p) % 16, 0u);
                ASSERT_GE(reinterpret_cast<uint8_t*>(p), buf.data());
                ASSERT_EQ(zamsFIR_32f(x.data(), y.data(), 4000, p), 0);  // threads and FFT scratch included
                Zam32f one;
                ASSERT_EQ(zamsFIROne_32f(1.0f, &one, p), 0);
                ASSERT_TRUE(buf.guards_intact()) << "L=" << L << " off=" << off;
                ASSERT_EQ(zamsFIRFree_32f(p), 0);
            }
        }
    }
}

// Direct kernels (both layouts) and the FFT path against the long double sum,
// from a given delay line, at several input alignments.
TEST(Fir32f, MatchesTheExactSumOnEveryPath) {
    for (int L : {1, 2, 5, 12, 31, 32, 33, 63, 64, 100, 257}) {
        for (int len : {1, 7, 40, 511, 512, 1700}) {
            auto taps = fm::rand_f(L, uint32_t(L));
            auto dly = fm::rand_f(L, uint32_t(L + 1000));
            auto x = fm::rand_f(len, uint32_t(len + 7 * L));
            std::vector<LD> mag;
            auto ref = fm::fir(taps, dly, x, &mag);
            for (size_t off : {0, 4, 12, 2}) {
                State st(taps, dly.data());
                zt::Guarded<float> src(size_t(len), off), dst(size_t(len), (off * 3) % 32);
                src.copy_from(x.data());
                ASSERT_EQ(zamsFIR_32f(src.data(), dst.data(), len, st.p), 0);
                ASSERT_TRUE(dst.guards_intact());
                expect_close(dst.to_vector(), ref, mag, L, "out of place");
            }
            State st(taps, dly.data());
            std::vector<float> io = x;
            ASSERT_EQ(zamsFIR_32f_I(io.data(), len, st.p), 0);
            expect_close(io, ref, mag, L, "in place");
        }
    }
}

// Blocks of random sizes give the outputs of one call; GetDlyLine after
// each call returns the last tapsLen inputs, newest first.
TEST(Fir32f, BlocksOfRandomSizesEqualOneCall) {
    std::mt19937 g(11);
    for (int L : {3, 13, 16, 31, 40, 64, 130, 700}) {
        auto taps = fm::rand_f(L, uint32_t(L * 3));
        auto x = fm::rand_f(9000, uint32_t(L));
        std::vector<LD> mag;
        auto ref = fm::fir(taps, std::vector<float>{}, x, &mag);
        State st(taps);
        std::vector<float> y(x.size()), dl(static_cast<size_t>(L));
        size_t done = 0;
        while (done < x.size()) {
            size_t n = std::min<size_t>(x.size() - done, size_t(1 + g() % (g() % 2 ? 40 : 2200)));
            if (g() % 5 == 0) {
                for (size_t i = 0; i < n; ++i) ASSERT_EQ(zamsFIROne_32f(x[done + i], &y[done + i], st.p), 0);
            } else {
                ASSERT_EQ(zamsFIR_32f(x.data() + done, y.data() + done, int(n), st.p), 0);
            }
            done += n;
            ASSERT_EQ(zamsFIRGetDlyLine_32f(st.p, dl.data()), 0);
            for (int k = 0; k < L; ++k) ASSERT_EQ(dl[size_t(k)], long(done) - 1 - k >= 0 ? x[done - 1 - size_t(k)] : 0.0f);
        }
        expect_close(y, ref, mag, L, "blocks");
    }
}

TEST(Fir32f, TwoThreadsGiveTheBitsOfOne) {
    auto taps = fm::rand_f(1024, 9);
    auto x = fm::rand_f(50000, 10);
    std::vector<float> y1(x.size()), y2(x.size());
    {
        Threads th(1);
        State s(taps);
        ASSERT_EQ(zamsFIR_32f(x.data(), y1.data(), int(x.size()), s.p), 0);
    }
    {
        Threads th(2);
        State s(taps);
        ASSERT_EQ(zamsFIR_32f(x.data(), y2.data(), int(x.size()), s.p), 0);
    }
    ASSERT_EQ(0, std::memcmp(y1.data(), y2.data(), y1.size() * sizeof(float)));
}

// The one-sample form sums short filters in single precision in order.
TEST(Fir32f, OneSampleShortFiltersSumInOrder) {
    for (int L = 1; L < 12; ++L) {
        auto taps = fm::rand_f(L, uint32_t(L)), x = fm::rand_f(50, 77);
        State st(taps);
        std::vector<float> hist(size_t(L), 0.0f);  // oldest first
        for (float v : x) {
            hist.erase(hist.begin());
            hist.push_back(v);
            float want = 0.0f;
            for (int j = 0; j < L; ++j) want += taps[size_t(L - 1 - j)] * hist[size_t(j)];
            float got;
            ASSERT_EQ(zamsFIROne_32f(v, &got, st.p), 0);
            ASSERT_EQ(zt::bits(got), zt::bits(want)) << L;
        }
    }
}

// FIR_Direct_32f to the bit against its arithmetic, at every span phase,
// and split calls equal one.
TEST(Fir32f, DirectFormIsItsStatedArithmetic) {
    for (int L : {1, 15, 16, 17, 24, 40, 129}) {
        auto taps = fm::rand_f(L, uint32_t(L)), x = fm::rand_f(300, 5);
        for (size_t off : {0, 4, 8, 20, 1}) {
            zt::Guarded<float> dl(size_t(2 * L), off);
            std::fill(dl.data(), dl.data() + 2 * L, 0.0f);
            int idx = L / 2;
            std::vector<float> mdl(size_t(2 * L), 0.0f);
            int midx = idx;
            std::vector<float> y(300);
            ASSERT_EQ(zamsFIR_Direct_32f(x.data(), y.data(), 120, taps.data(), L, dl.data(), &idx), 0);
            ASSERT_EQ(zamsFIR_Direct_32f(x.data() + 120, y.data() + 120, 180, taps.data(), L, dl.data(), &idx), 0);
            ASSERT_TRUE(dl.guards_intact());
            for (size_t n = 0; n < 300; ++n) {
                // the model runs on a copy placed at the same phase
                zt::Guarded<float> m(size_t(2 * L), off);
                mdl[size_t(midx)] = mdl[size_t(midx + L)] = x[n];
                midx = midx + 1 == L ? 0 : midx + 1;
                m.copy_from(mdl.data());
                const float want = fm::direct_sum(taps.data(), m.data() + midx, L);
                ASSERT_EQ(zt::bits(y[n]), zt::bits(want)) << "L=" << L << " off=" << off << " n=" << n;
            }
            ASSERT_EQ(idx, midx);
            // in place, from the same line and index
            std::vector<float> io(x.begin(), x.begin() + 120);
            std::fill(dl.data(), dl.data() + 2 * L, 0.0f);
            int ii = L / 2;
            ASSERT_EQ(zamsFIR_Direct_32f_I(io.data(), 120, taps.data(), L, dl.data(), &ii), 0);
            ASSERT_TRUE(zt::same_bits(io, std::vector<float>(y.begin(), y.begin() + 120))) << "in place L=" << L;
            ASSERT_EQ(zamsFIR_Direct_32f(x.data() + 120, y.data() + 120, 180, taps.data(), L, dl.data(), &ii), 0);
            float v = x[0], w = x[0];
            int i2 = idx;
            ASSERT_EQ(zamsFIROne_Direct_32f(v, &w, taps.data(), L, dl.data(), &idx), 0);
            ASSERT_EQ(zamsFIROne_Direct_32f_I(&v, taps.data(), L, dl.data(), &i2), 0);
            ASSERT_EQ(idx, (midx + 1) % L);
        }
    }
}

TEST(Fir32f, TapsAndDelayLineRoundTrip) {
    for (int L : {1, 64, 300}) {
        auto taps = fm::rand_f(L, 1), dly = fm::rand_f(L, 2), t2 = fm::rand_f(L, 3);
        State st(taps, dly.data());
        std::vector<float> got(static_cast<size_t>(L));
        ASSERT_EQ(zamsFIRGetTaps_32f(st.p, got.data()), 0);
        ASSERT_EQ(got, taps);
        ASSERT_EQ(zamsFIRGetDlyLine_32f(st.p, got.data()), 0);
        ASSERT_EQ(got, dly);
        // New taps take effect on the next sample, the delay line stays.
        ASSERT_EQ(zamsFIRSetTaps_32f(t2.data(), st.p), 0);
        ASSERT_EQ(zamsFIRGetTaps_32f(st.p, got.data()), 0);
        ASSERT_EQ(got, t2);
        auto x = fm::rand_f(600, 4);
        std::vector<float> y(x.size());
        std::vector<LD> mag;
        auto ref = fm::fir(t2, dly, x, &mag);
        ASSERT_EQ(zamsFIR_32f(x.data(), y.data(), 600, st.p), 0);
        expect_close(y, ref, mag, L, "after SetTaps");
        ASSERT_EQ(zamsFIRSetDlyLine_32f(st.p, nullptr), 0);
        ASSERT_EQ(zamsFIRGetDlyLine_32f(st.p, got.data()), 0);
        ASSERT_EQ(got, std::vector<float>(size_t(L), 0.0f));
    }
}

TEST(Fir32f, AllocatedStatesFilterAsBuiltOnes) {
    for (int L : {10, 64, 1000}) {
        auto taps = fm::rand_f(L, 1), x = fm::rand_f(5000, 2);
        ZamsFIRState_32f* a = nullptr;
        ASSERT_EQ(zamsFIRInitAlloc_32f(&a, taps.data(), L, nullptr), 0);
        State b(taps);
        std::vector<float> ya(x.size()), yb(x.size());
        ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), 5000, a), 0);
        ASSERT_EQ(zamsFIR_32f(x.data(), yb.data(), 5000, b.p), 0);
        ASSERT_EQ(ya, yb);
        ASSERT_EQ(zamsFIRFree_32f(a), 0);
        ZamsFIRState_32f* s = nullptr;
        ASSERT_EQ(zamsFIRStreamInitAlloc_32f(&s, taps.data(), L, nullptr), 0);
        ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), 5000, s), 0);
        ASSERT_EQ(ya, yb);
        ASSERT_EQ(zamsFIRFree_32f(s), 0);
        // the stream state laid into caller memory at odd offsets
        int size = 0;
        ASSERT_EQ(zamsFIRStreamGetStateSize_32f(L, &size), 0);
        for (size_t off : {size_t(4), size_t(13)}) {
            zt::Guarded<uint8_t> mem(size_t(size), off);
            ASSERT_EQ(zamsFIRStreamInit_32f(&s, taps.data(), L, nullptr, mem.data()), 0);
            ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), 5000, s), 0);
            ASSERT_TRUE(mem.guards_intact()) << "L=" << L << " off=" << off;
            ASSERT_EQ(ya, yb);
        }
    }
}

// The checks whose order decides the status, and the operations the stream
// state takes.
TEST(Fir32f, CheckOrderAndStreamKind) {
    float t[4] = {1, 2, 3, 4}, x[8] = {}, y[8];
    State st(std::vector<float>(t, t + 4));
    ZamsFIRState_32f* p = nullptr;
    EXPECT_EQ(zamsFIRInit_32f(&p, t, 0, nullptr, nullptr), zamStatusNullPointer);  // memory before taps length
    EXPECT_EQ(zamsFIR_Direct_32f(x, y, 0, nullptr, 0, nullptr, nullptr), zamStatusBadLength);
    EXPECT_EQ(zamsFIR_Direct_32f(x, y, 1, nullptr, 0, nullptr, nullptr), zamStatusNullPointer);
    ZamsFIRState_32f* stream = nullptr;
    ASSERT_EQ(zamsFIRStreamInitAlloc_32f(&stream, t, 4, nullptr), 0);
    // The stream state filters and frees through the 32f entries, nothing else.
    EXPECT_EQ(zamsFIR_32f(x, y, 8, stream), 0);
    EXPECT_EQ(zamsFIROne_32f(1, y, stream), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRGetTaps_32f(stream, y), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRSetDlyLine_32f(stream, nullptr), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRFree_32f(stream), 0);
    // A state in caller memory: Free is a no-op, the state still works.
    EXPECT_EQ(zamsFIRFree_32f(st.p), 0);
    EXPECT_EQ(zamsFIR_32f(x, y, 8, st.p), 0);
}

ZAMS_DIGEST(fir_32f) {
    for (int L : {20, 40, 100}) {
        auto taps = fm::rand_f(L, 1), x = fm::rand_f(3000, 2);
        State st(taps);
        std::vector<float> y(x.size());
        d.status(zamsFIR_32f(x.data(), y.data(), 3000, st.p));
        d.add(y);
        // The Direct form's sums start on the delay line's 32-byte grid: place it there.
        alignas(32) float dl[200] = {};
        int idx = 0;
        d.status(zamsFIR_Direct_32f(x.data(), y.data(), 3000, taps.data(), L, dl, &idx));
        d.add(y);
        for (int i = 0; i < 50; ++i) d.status(zamsFIROne_32f(x[size_t(i)], &y[size_t(i)], st.p));
        d.add(y.data(), 50);
    }
}

}  // namespace
