// The 16-bit state filter's vector sums against the Direct form's plain
// 64-bit sums: taps whose magnitudes sum right at the point where a 32-bit
// lane would wrap, long and odd tap sets, full-scale samples, pairs of
// -32768 taps, blocks of any size at two source alignments; the scale of the
// sums over every range of factors.
#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <vector>

#include "fir_model.h"
#include "zams.h"

namespace {

// Filters x through a state in blocks of random sizes (from src + offset)
// and through the Direct form in one call; returns both outputs.
void both(const std::vector<Zam16s>& taps, const std::vector<Zam16s>& x, int sf, int offset,
          std::vector<Zam16s>& byState, std::vector<Zam16s>& byDirect, int factor = 0) {
    const int L = int(taps.size()), n = int(x.size());
    ZamsFIRState_16s* st = nullptr;
    ASSERT_EQ(zamsFIRInitAlloc_16s(&st, taps.data(), L, factor, nullptr), 0);
    std::vector<Zam16s> src(x.size() + size_t(offset));
    std::copy(x.begin(), x.end(), src.begin() + offset);
    byState.assign(x.size(), 0);
    std::mt19937 g(uint32_t(L + offset));
    for (int done = 0; done < n;) {
        const int m = std::min(n - done, 1 + int(g() % 300));
        ASSERT_EQ(zamsFIR_16s_Sfs(src.data() + offset + done, byState.data() + done, m, st, sf), 0);
        done += m;
    }
    ASSERT_EQ(zamsFIRFree_16s(st), 0);
    std::vector<Zam16s> dly(2 * size_t(L), 0);
    int idx = 0;
    byDirect.assign(x.size(), 0);
    ASSERT_EQ(zamsFIR_Direct_16s_Sfs(x.data(), byDirect.data(), n, taps.data(), L, factor, dly.data(), &idx, sf), 0);
}

// Negative taps against -32768 make every product positive: with magnitudes
// summing to 65535 the sum is 2^31 - 32768 and fits a 32-bit lane; with
// 65536 and more it does not, and one lane holding it would wrap negative.
TEST(Fir16Sums, TapMagnitudesAtTheLaneLimit) {
    for (int total : {65535, 65536, 65537, 98000}) {
        for (int L : {64, 65}) {
            std::vector<Zam16s> taps(size_t(L), Zam16s(-(total / L)));
            taps[size_t(L / 2)] = Zam16s(-(total - (total / L) * (L - 1)));
            std::vector<Zam16s> x(600, -32768);
            auto tail = fm::rand_16s(200, uint32_t(total));
            std::copy(tail.begin(), tail.end(), x.begin() + 400);
            std::vector<Zam16s> a, b;
            both(taps, x, 17, 0, a, b);
            ASSERT_EQ(a, b) << "total " << total << " L " << L;
            // 32768 total / 2^17, rounded to nearest even.
            const Zam16s want = Zam16s(std::min<int64_t>(32767, (int64_t(total) + 2) / 4));
            for (int n = L; n < 400; ++n) ASSERT_EQ(a[size_t(n)], want) << "total " << total << " n " << n;
        }
    }
}

// Full-scale taps and samples over the fewest taps, tap counts either side of a whole vector
// and past the piece of taps whose runs are found at once, with and without a pair
// of -32768 taps (which the lanes cannot hold), at two source alignments.
TEST(Fir16Sums, LongAndOddTapSetsAtAnyAlignment) {
    for (int L : {2, 3, 8, 9, 31, 1025, 2051}) {
        for (bool extreme : {false, true}) {
            auto taps = fm::rand_16s(L, uint32_t(L));
            if (extreme)
                for (int k = 0; k < std::min(L, 4); ++k) taps[size_t(L / 2 + k) % size_t(L)] = -32768;
            const auto x = fm::rand_16s(3000, uint32_t(L + 7));
            const int sf = 17 + int(std::bit_width(unsigned(L))) / 2;  // outputs of some thousands
            std::vector<Zam16s> a0, a1, b;
            both(taps, x, sf, 0, a0, b);
            ASSERT_EQ(a0, b) << "L " << L << " extreme " << extreme;
            both(taps, x, sf, 1, a1, b);
            ASSERT_EQ(a1, b) << "L " << L << " extreme " << extreme;
            int spread = 0;
            for (Zam16s v : b) spread = std::max(spread, int(v < 0 ? -v : v));
            EXPECT_GT(spread, 100) << "outputs too small to show a wrong sum";
            EXPECT_LT(spread, 32767) << "outputs saturated";
        }
    }
}

// The scale of the sums over the whole range of taps and scale factors:
// ties at 1 (odd sums), shifts past every sum's width, left shifts that
// saturate, factors far beyond both.
TEST(Fir16Sums, ScalesRoundAndSaturateOverTheRange) {
    const auto taps = fm::rand_16s(40, 3), x = fm::rand_16s(500, 4);
    for (int factor : {0, 5, -9}) {
        for (int sf : {-100000, -70, -17, -1, 0, 1, 2, 16, 21, 31, 52, 53, 54, 63, 64, 65, 1000, 100000}) {
            std::vector<Zam16s> a, b;
            both(taps, x, sf, 0, a, b, factor);
            ASSERT_EQ(a, b) << "factor " << factor << " sf " << sf;
        }
    }
}

}  // namespace
