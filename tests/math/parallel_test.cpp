// The parallel frame: slices, team size, warning combination, thresholds.
#include <algorithm>
#include <mutex>
#include <utility>

#include "core/parallel.h"
#include "math_util.h"

namespace {

using Slices = std::vector<std::pair<int, int>>;

Slices slices_of(int len, zams::Team team, int warn_from = -1, int* result = nullptr) {
    Slices s;
    std::mutex m;
    int r = zams::run_sliced(len, team, [&](int off, int cnt) {
        std::lock_guard<std::mutex> lock(m);
        s.emplace_back(off, cnt);
        return warn_from >= 0 && off + cnt > warn_from && off <= warn_from;
    });
    if (result) *result = r;
    std::sort(s.begin(), s.end());
    return s;
}

TEST(ParallelFrame, TwoThreadsSplitWithTheRemainderLast) {
    mt::Threads t(2);
    EXPECT_EQ(slices_of(4097, zams::Team::AtMostTwo), (Slices{{0, 2048}, {2048, 2049}}));
    EXPECT_EQ(slices_of(2, zams::Team::AtMostTwo), (Slices{{0, 1}, {1, 1}}));
    EXPECT_EQ(slices_of(1, zams::Team::AtMostTwo), (Slices{{0, 1}}));  // shorter than the team
}

TEST(ParallelFrame, OneThreadRunsTheWholeVectorOnTheCaller) {
    mt::Threads t(1);
    EXPECT_EQ(slices_of(4097, zams::Team::All), (Slices{{0, 4097}}));
}

TEST(ParallelFrame, TeamIsCappedAtTwoExceptForAll) {
    mt::Threads t(3);
    EXPECT_EQ(slices_of(10, zams::Team::AtMostTwo), (Slices{{0, 5}, {5, 5}}));
    // the runtime may give fewer threads than asked; the slices always tile the vector
    Slices all = slices_of(10, zams::Team::All);
    ASSERT_FALSE(all.empty());
    EXPECT_LE(all.size(), 3u);
    int next = 0;
    for (auto [off, cnt] : all) {
        EXPECT_EQ(off, next);
        next += cnt;
    }
    EXPECT_EQ(next, 10);
    if (all.size() == 3) {
        EXPECT_EQ(all.back(), (std::pair<int, int>{6, 4}));
    }
}

TEST(ParallelFrame, AWarningInAnySliceIsReported) {
    mt::Threads t(2);
    int r = -1;
    slices_of(1000, zams::Team::AtMostTwo, 999, &r);
    EXPECT_NE(r, 0);
    slices_of(1000, zams::Team::AtMostTwo, 0, &r);
    EXPECT_NE(r, 0);
    slices_of(1000, zams::Team::AtMostTwo, -1, &r);
    EXPECT_EQ(r, 0);
}

TEST(ParallelFrame, BelowTheThresholdOneCall) {
    mt::Threads t(2);
    int calls = 0;
    zams::run_threshold(4095, zams::threshold::Sqrt_32f, zams::Team::AtMostTwo, [&](int off, int cnt) {
        ++calls;
        EXPECT_EQ(off, 0);
        EXPECT_EQ(cnt, 4095);
        return false;
    });
    EXPECT_EQ(calls, 1);
    std::mutex m;
    zams::run_threshold(4096, zams::threshold::Sqrt_32f, zams::Team::AtMostTwo, [&](int, int) {
        std::lock_guard<std::mutex> lock(m);
        ++calls;
        return false;
    });
    EXPECT_EQ(calls, 3);
}

}  // namespace
