// Float taps kept in 16 bits: a non-finite tap must not disturb the scaling of
// the others, an infinite one saturates and a NaN one drops out, in the
// single-rate and the multirate states alike.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "zams.h"

namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

// Taps {1, inf, NaN, -inf}: the finite largest is 1, so taps are scaled by
// 2^14; inf and -inf become +-32766 and NaN 0. An impulse of 100 then gives
// 100, 100 x 32766 / 16384 = 199.98 -> 200, 0, -200.
const std::vector<Zam16s> kWant = {100, 200, 0, -200, 0};
const Zam32f kTaps[4] = {1.0f, kInf, kNaN, -kInf};

TEST(FirTapsFit, NonFiniteFloatTapsSaturate) {
    for (bool multirate : {false, true}) {
        ZamsFIRState32s_16s* st = nullptr;
        ASSERT_EQ(multirate ? zamsFIRMRInitAlloc32s_16s32f(&st, kTaps, 4, 1, 0, 1, 0, nullptr)
                            : zamsFIRInitAlloc32s_16s32f(&st, kTaps, 4, nullptr),
                  0);
        const Zam16s src[5] = {100, 0, 0, 0, 0};
        std::vector<Zam16s> dst(5, 7);
        EXPECT_EQ(zamsFIR32s_16s_Sfs(src, dst.data(), 5, st, 0), 0);
        EXPECT_EQ(dst, kWant) << "multirate " << multirate;
        zamsFIRFree32s_16s(st);
    }
}

}  // namespace
