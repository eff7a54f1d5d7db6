// IIR states built in caller memory against their InitAlloc twins: the
// direct-form-I cascade.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "iir_api.h"

using namespace iirt;

namespace {

// The direct-form-I cascade laid into caller memory of exactly the reported
// size (at offsets that need the rounding up to 32 bytes) filters with the
// bits of the InitAlloc-built twin over several blocks, the in-place block
// included, and both keep the same delay line; it starts from the given
// delay line or a cleared one; nothing outside the buffer is written.
TEST(IirForms, DirectFormOneInCallerMemoryEqualsInitAlloc) {
    for (int nb : {1, 2, 5})
        for (bool withDly : {false, true})
            for (size_t off : {static_cast<size_t>(0), static_cast<size_t>(1), static_cast<size_t>(13), static_cast<size_t>(31)}) {
                SCOPED_TRACE(testing::Message() << nb << " sections, dly " << withDly << ", offset " << off);
                const auto taps = random_taps<Zam32f>(Df1, nb, uint32_t(17 * nb + off));
                const auto dly = random_signal<Zam32f>(static_cast<size_t>(4 * nb), uint32_t(nb));
                const Zam32f* d = withDly ? dly.data() : nullptr;
                int size = 0;
                ASSERT_EQ(zamsIIRGetStateSize_BiQuad_DF1_32f(nb, &size), zamStatusOk);
                zt::Guarded<Zam8u> buf(static_cast<size_t>(size), off);
                ZamsIIRState_32f *st = nullptr, *twin = nullptr;
                ASSERT_EQ(zamsIIRInit_BiQuad_DF1_32f(&st, taps.data(), nb, d, buf.data()), zamStatusOk);
                ASSERT_EQ(zamsIIRInitAlloc_BiQuad_DF1_32f(&twin, taps.data(), nb, d), zamStatusOk);
                std::vector<Zam32f> line(static_cast<size_t>(4 * nb) + 1, 77), twinLine(static_cast<size_t>(4 * nb) + 1, 77);
                ASSERT_EQ(zamsIIRGetDlyLine_32f(line.data(), st), zamStatusOk);
                if (withDly) EXPECT_EQ(std::memcmp(line.data(), dly.data(), dly.size() * sizeof(Zam32f)), 0);
                else
                    for (size_t i = 0; i < dly.size(); ++i) EXPECT_EQ(line[i], 0.0f) << i;
                EXPECT_EQ(line.back(), 77.0f);
                const auto x = random_signal<Zam32f>(300, uint32_t(nb + 3));
                size_t at = 0;
                for (int len : {1, 7, 64, 3, 200}) {
                    std::vector<Zam32f> y(static_cast<size_t>(len)), yt(static_cast<size_t>(len));
                    if (len == 64) {  // the in-place block on one of the two
                        y.assign(x.begin() + long(at), x.begin() + long(at) + len);
                        ASSERT_EQ(zamsIIR_32f_I(y.data(), len, st), zamStatusOk);
                    } else {
                        ASSERT_EQ(zamsIIR_32f(x.data() + at, y.data(), len, st), zamStatusOk);
                    }
                    ASSERT_EQ(zamsIIR_32f(x.data() + at, yt.data(), len, twin), zamStatusOk);
                    EXPECT_TRUE(same_bits(y, yt)) << "block of " << len << " at " << at;
                    ASSERT_EQ(zamsIIRGetDlyLine_32f(line.data(), st), zamStatusOk);
                    ASSERT_EQ(zamsIIRGetDlyLine_32f(twinLine.data(), twin), zamStatusOk);
                    EXPECT_TRUE(same_bits(line, twinLine)) << "after the block of " << len;
                    at += static_cast<size_t>(len);
                }
                // and both follow the long double model of the same realisation
                Model m(Df1, nb, taps, withDly ? dly : std::vector<Zam32f>());
                std::vector<Zam32f> y(x.size());
                ZamsIIRState_32f* fresh = nullptr;
                ASSERT_EQ(zamsIIRInit_BiQuad_DF1_32f(&fresh, taps.data(), nb, d, buf.data()), zamStatusOk);
                ASSERT_EQ(zamsIIR_32f(x.data(), y.data(), int(x.size()), fresh), zamStatusOk);
                long double peak = 0, err = 0;
                for (size_t i = 0; i < x.size(); ++i) {
                    const LC want = m.step(lc(x[i]));
                    peak = std::max(peak, std::abs(want));
                    err = std::max(err, std::abs(lc(y[i]) - want));
                }
                EXPECT_LE(double(err / std::max(peak, 1.0L)), 2e-4);
                EXPECT_TRUE(buf.guards_intact());
                EXPECT_EQ(zamsIIRFree_32f(twin), zamStatusOk);
                EXPECT_EQ(zamsIIRFree_32f(fresh), zamStatusOk);  // caller memory: left alone
                EXPECT_TRUE(buf.guards_intact());
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
