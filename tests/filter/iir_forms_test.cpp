// IIR states built in caller memory against their InitAlloc twins: the
// direct-form-I cascade.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "iir_api.h"
#include "life_cycle.h"

using namespace iirt;

namespace {

// The direct-form-I cascade laid into caller memory of exactly the reported
// size (at an odd offset: the state is rounded up to 32 bytes) filters with
// the bits of the InitAlloc-built twin over several blocks, the in-place
// block included, keeps the same delay line, and starts from the given
// delay line or a cleared one. (Its filtering against the model: iir_filter_test.)
TEST(IirForms, DirectFormOneInCallerMemoryEqualsInitAlloc) {
    for (int nb : {1, 2, 5})
        for (bool withDly : {false, true}) {
            SCOPED_TRACE(testing::Message() << nb << " sections, dly " << withDly);
            const auto taps = random_taps<Zam32f>(Df1, nb, uint32_t(17 * nb));
            const auto dly = random_signal<Zam32f>(static_cast<size_t>(4 * nb), uint32_t(nb));
            const Zam32f* d = withDly ? dly.data() : nullptr;
            const auto x = random_signal<Zam32f>(300, uint32_t(nb + 3));
            int size = 0;
            ASSERT_EQ(zamsIIRGetStateSize_BiQuad_DF1_32f(nb, &size), zamStatusOk);
            zt::caller_memory_equals_alloc(
                size, 0, [&](ZamsIIRState_32f** p, Zam8u* m, Zam8u*) { return zamsIIRInit_BiQuad_DF1_32f(p, taps.data(), nb, d, m); },
                [&](ZamsIIRState_32f** p) { return zamsIIRInitAlloc_BiQuad_DF1_32f(p, taps.data(), nb, d); }, zamsIIRFree_32f,
                [&](ZamsIIRState_32f* st) {
                    std::vector<Zam32f> line(static_cast<size_t>(4 * nb) + 1, 77), y(x.size());
                    EXPECT_EQ(zamsIIRGetDlyLine_32f(line.data(), st), zamStatusOk);
                    EXPECT_TRUE(std::equal(line.begin(), line.end() - 1, withDly ? dly.begin() : std::vector<Zam32f>(dly.size()).begin()));
                    size_t at = 0;
                    for (int len : {1, 7, 64, 3, 200}) {
                        if (len == 64) {  // the in-place block
                            std::copy(x.begin() + long(at), x.begin() + long(at) + len, y.begin() + long(at));
                            EXPECT_EQ(zamsIIR_32f_I(y.data() + at, len, st), zamStatusOk);
                        } else {
                            EXPECT_EQ(zamsIIR_32f(x.data() + at, y.data() + at, len, st), zamStatusOk);
                        }
                        at += static_cast<size_t>(len);
                    }
                    EXPECT_EQ(zamsIIRGetDlyLine_32f(line.data(), st), zamStatusOk);
                    EXPECT_EQ(line.back(), 77.0f);  // exactly the line's length
                    return zt::bytes_of(y, line);
                },
                false);
        }
}

TEST(IirForms, DirectFormOneInitStatuses) {
    const Zam32f taps[] = {1, 0.5f, 0.25f, 2, -0.5f, 0.2f};
    const Zam32f zeroA0[] = {1, 0.5f, 0.25f, 0, -0.5f, 0.2f};
    const Zam32f zeroB0[] = {0, 0.5f, 0.25f, 1, -0.5f, 0.2f};
    int size = 0;
    ASSERT_EQ(zamsIIRGetStateSize_BiQuad_DF1_32f(1, &size), zamStatusOk);
    std::vector<Zam8u> buf(static_cast<size_t>(size));
    ZamsIIRState_32f* st = nullptr;
    EXPECT_EQ(zamsIIRInit_BiQuad_DF1_32f(&st, taps, 0, nullptr, buf.data()), zamStatusBadFilterOrder);
    EXPECT_EQ(zamsIIRInit_BiQuad_DF1_32f(&st, zeroA0, 1, nullptr, buf.data()), zamStatusDivideByZero);
    EXPECT_EQ(zamsIIRInit_BiQuad_DF1_32f(&st, zeroB0, 1, nullptr, buf.data()), zamStatusDivideByZero);
    ASSERT_EQ(zamsIIRInit_BiQuad_DF1_32f(&st, taps, 1, nullptr, buf.data()), zamStatusOk);
    // a direct-form-I state refuses the one-sample filter, as its twin does
    Zam32f v = 9;
    EXPECT_EQ(zamsIIROne_32f(1, &v, st), zamStatusContextMismatch);
    EXPECT_EQ(v, 9.0f);
}

}  // namespace
