// IIR states: sizes, building into caller memory, taps and delay lines,
// and every status path of the life cycle.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "filter/iir_kinds.h"
#include "iir_api.h"

using namespace iirt;

namespace {

// Calls f(api) for every kind.
template <class F> void each_kind(F&& f) {
    f(k32f), f(k64f), f(k64fc), f(k64f32f), f(k64fc32fc), f(k32f16s), f(k32fc16sc), f(k64fc32sc), f(k64f16s),
        f(k64fc16sc), f(k64f32s);
}

template <class Api> zamStatus size_of(const Api& api, Form f, int n, int* p) {
    return f == Ar ? api.size(n, p) : api.sizeBq(n, p);
}
template <class Api>
zamStatus init_of(const Api& api, Form f, typename Api::State** pp, const typename Api::Taps* t, int n,
                  const typename Api::Taps* d, Zam8u* buf) {
    return f == Ar ? api.init(pp, t, n, d, buf) : api.initBq(pp, t, n, d, buf);
}
template <class Api> std::vector<Form> forms(const Api& api) {
    if (api.init == api.initBq) return {Ar};
    return {Ar, Bq};
}
template <class Api> int dly_len(Form f, int n) { return f == Ar ? n : 2 * n; }

}  // namespace

TEST(IirState, SizesOfTheFloatTapsLayout) {
    int s = 0;
    // AR: ru16(8N+4) + ru16(4N+4) + 4 (R + 4N + 4 + 1024) + 120, R = 16N + 16
    EXPECT_EQ(zamsIIRGetStateSize_32f(1, &s), zamStatusOk);
    EXPECT_EQ(s, 16 + 16 + 4 * (32 + 8 + 1024) + 120);
    EXPECT_EQ(zamsIIRGetStateSize_32f(8, &s), zamStatusOk);
    EXPECT_EQ(s, 80 + 48 + 4 * (144 + 36 + 1024) + 120);
    // other AR forms of this layout: R = 4N + 12 and 2048
    EXPECT_EQ(zamsIIRGetStateSize32f_16s(1, &s), zamStatusOk);
    EXPECT_EQ(s, 16 + 16 + 4 * (16 + 8 + 2048) + 120);
    // cascade: ru16(20 nb) + ru16(8 nb) + ru16(160 nb + 4151) + 128 nb + 16 + 80
    EXPECT_EQ(zamsIIRGetStateSize_BiQuad_32f(1, &s), zamStatusOk);
    EXPECT_EQ(s, 32 + 16 + 4320 + 128 + 96);
    EXPECT_EQ(zamsIIRGetStateSize_BiQuad_32f(3, &s), zamStatusOk);
    EXPECT_EQ(s, 64 + 32 + 4640 + 384 + 96);
    EXPECT_EQ(zamsIIRGetStateSize32f_BiQuad_16s(1, &s), zamStatusOk);
    EXPECT_EQ(s, 32 + 16 + 160 + 8232 + 96);
    // direct form I: ru16(20 nb) + 16 nb + 128 nb + 80
    EXPECT_EQ(zamsIIRGetStateSize_BiQuad_DF1_32f(2, &s), zamStatusOk);
    EXPECT_EQ(s, 48 + 32 + 256 + 80);
}

TEST(IirState, SizeQueryStatuses) {
    each_kind([](const auto& api) {
        int s = -1;
        for (Form f : forms(api)) {
            SCOPED_TRACE(api.name);
            EXPECT_EQ(size_of(api, f, 0, nullptr), zamStatusNullPointer);  // the pointer before the order
            EXPECT_EQ(size_of(api, f, 0, &s), zamStatusBadFilterOrder);
            EXPECT_EQ(size_of(api, f, -3, &s), zamStatusBadFilterOrder);
            EXPECT_EQ(size_of(api, f, 1 << 28, &s), zamStatusNoMemory);
            EXPECT_EQ(s, -1);
        }
    });
    int s;
    EXPECT_EQ(zamsIIRGetStateSize_BiQuad_DF1_32f(0, &s), zamStatusBadFilterOrder);
}

// What a state lays out fits in the reported size after the caller's
// buffer is rounded up to 32 bytes.
TEST(IirState, LayoutFitsTheReportedSize) {
    using namespace zams::iir;
    auto fits = [](auto kind) {
        using K = decltype(kind);
        for (int n = 1; n <= 300; ++n)
            for (zams::iir::Form f : {zams::iir::Ar, zams::iir::Bq, zams::iir::Df1})
                ASSERT_LE(layout<K>(f, n).end + 31, state_size<K>(f, n)) << n << " " << int(f);
    };
    fits(K32f{}), fits(K32f16s{}), fits(K32fc16sc{}), fits(K64f{}), fits(K64fc{}), fits(K64f32f{}),
        fits(K64fc32fc{}), fits(K64f32s{}), fits(K64fc32sc{}), fits(K64f16s{}), fits(K64fc16sc{});
}

// Init lays the state at the next 32-byte boundary of the caller's buffer
// and writes nothing outside the reported size; GetDlyLine returns the
// delay line given to Init; Free of such a state leaves it alone.
TEST(IirState, InitInCallerMemoryAtEveryOffset) {
    each_kind([](const auto& api) {
        using T = typename std::decay_t<decltype(api)>::Taps;
        using S = typename std::decay_t<decltype(api)>::State;
        SCOPED_TRACE(api.name);
        for (Form f : forms(api))
            for (int n : {1, 3, 9}) {
                const auto taps = random_taps<T>(f, n, 7 * n + f);
                const auto dly = random_signal<T>(dly_len<T>(f, n), n);
                int size = 0;
                ASSERT_EQ(size_of(api, f, n, &size), zamStatusOk);
                for (size_t off = 0; off < 32; off += 5) {
                    zt::Guarded<Zam8u> buf(size, off);
                    S* st = nullptr;
                    ASSERT_EQ(init_of(api, f, &st, taps.data(), n, dly.data(), buf.data()), zamStatusOk);
                    const auto addr = reinterpret_cast<uintptr_t>(st);
                    EXPECT_EQ(addr % 32, 0u);
                    EXPECT_LT(addr - reinterpret_cast<uintptr_t>(buf.data()), 32u);
                    std::vector<T> got(dly.size() + 1, from_lc<T>(LC(77, 77)));
                    EXPECT_EQ(api.getDly(got.data(), st), zamStatusOk);
                    EXPECT_EQ(std::memcmp(got.data(), dly.data(), dly.size() * sizeof(T)), 0);
                    EXPECT_EQ(lc(got.back()), LC(77, is_cx<T> ? 77 : 0));  // exactly the line's length
                    EXPECT_EQ(api.free(st), zamStatusOk);
                    EXPECT_EQ(api.getDly(got.data(), st), zamStatusOk);  // still a state
                    EXPECT_TRUE(buf.guards_intact());
                }
            }
    });
}

// Delay lines: null clears; SetDlyLine copies in the caller's order;
// SetTaps keeps the line; InitAlloc and Free.
TEST(IirState, DelayLineTransfersAndSetTaps) {
    each_kind([](const auto& api) {
        using T = typename std::decay_t<decltype(api)>::Taps;
        using S = typename std::decay_t<decltype(api)>::State;
        SCOPED_TRACE(api.name);
        for (Form f : forms(api)) {
            const int n = 4;
            const auto taps = random_taps<T>(f, n, 3);
            const auto dly = random_signal<T>(dly_len<T>(f, n), 5);
            S* st = nullptr;
            ASSERT_EQ(f == Ar ? api.alloc(&st, taps.data(), n, nullptr) : api.allocBq(&st, taps.data(), n, nullptr),
                      zamStatusOk);
            std::vector<T> got(dly.size(), from_lc<T>(LC(9, 9)));
            EXPECT_EQ(api.getDly(got.data(), st), zamStatusOk);
            for (const T& v : got) EXPECT_EQ(lc(v), LC(0));
            EXPECT_EQ(api.setDly(dly.data(), st), zamStatusOk);
            EXPECT_EQ(api.setTaps(random_taps<T>(f, n, 4).data(), st), zamStatusOk);
            EXPECT_EQ(api.getDly(got.data(), st), zamStatusOk);
            EXPECT_TRUE(same_bits(got, dly));
            EXPECT_EQ(api.setDly(nullptr, st), zamStatusOk);
            EXPECT_EQ(api.getDly(got.data(), st), zamStatusOk);
            for (const T& v : got) EXPECT_EQ(lc(v), LC(0));
            EXPECT_EQ(api.free(st), zamStatusOk);
        }
    });
}

// Zero leading coefficients: -10 from Init, InitAlloc and SetTaps; an AR
// SetTaps refused leaves the state as it was; a complex a0 counts as zero
// only when both parts are.
TEST(IirState, ZeroLeadingCoefficients) {
    each_kind([](const auto& api) {
        using T = typename std::decay_t<decltype(api)>::Taps;
        using S = typename std::decay_t<decltype(api)>::State;
        SCOPED_TRACE(api.name);
        for (Form f : forms(api)) {
            const int n = 2;
            auto good = random_taps<T>(f, n, 11);
            int size = 0;
            ASSERT_EQ(size_of(api, f, n, &size), zamStatusOk);
            std::vector<Zam8u> buf(size);
            for (int which : {0, 3}) {  // a0 (AR: a[0]); cascades also b0, of the second section
                if (f == Ar && which == 0) continue;
                auto bad = good;
                bad[f == Ar ? n + 1 : 6 + which] = from_lc<T>(LC(0));
                S* st = nullptr;
                EXPECT_EQ(init_of(api, f, &st, bad.data(), n, nullptr, buf.data()), zamStatusDivideByZero);
                EXPECT_EQ(st, nullptr);
                EXPECT_EQ(api.free(reinterpret_cast<S*>(buf.data())), zamStatusContextMismatch);  // not a state
                EXPECT_EQ(f == Ar ? api.alloc(&st, bad.data(), n, nullptr) : api.allocBq(&st, bad.data(), n, nullptr),
                          zamStatusDivideByZero);
                EXPECT_EQ(st, nullptr);
                ASSERT_EQ(init_of(api, f, &st, good.data(), n, nullptr, buf.data()), zamStatusOk);
                EXPECT_EQ(api.setTaps(bad.data(), st), zamStatusDivideByZero);
                if constexpr (is_cx<T>) {
                    bad[f == Ar ? n + 1 : 6 + which] = from_lc<T>(LC(0, 1));
                    EXPECT_EQ(api.setTaps(bad.data(), st), zamStatusOk);
                }
            }
        }
    });
}

// The order of the checks: pointers before the order, the order before
// the memory; nothing built on an error. (Each null pointer alone and
// foreign states are the hostile sweep's.)
TEST(IirState, ChecksInOrder) {
    each_kind([](const auto& api) {
        using T = typename std::decay_t<decltype(api)>::Taps;
        using S = typename std::decay_t<decltype(api)>::State;
        SCOPED_TRACE(api.name);
        const auto taps = random_taps<T>(Ar, 2, 1);
        int size = 0;
        ASSERT_EQ(api.size(2, &size), zamStatusOk);
        std::vector<Zam8u> buf(size);
        S* st = nullptr;
        EXPECT_EQ(api.init(nullptr, taps.data(), 0, nullptr, buf.data()), zamStatusNullPointer);
        EXPECT_EQ(api.init(&st, taps.data(), 0, nullptr, buf.data()), zamStatusBadFilterOrder);
        EXPECT_EQ(api.alloc(&st, taps.data(), -1, nullptr), zamStatusBadFilterOrder);
        EXPECT_EQ(api.alloc(&st, taps.data(), 1 << 28, nullptr), zamStatusNoMemory);  // taps never read
        EXPECT_EQ(api.initBq(&st, taps.data(), 0, nullptr, buf.data()), zamStatusBadFilterOrder);
        EXPECT_EQ(st, nullptr);
    });
}
