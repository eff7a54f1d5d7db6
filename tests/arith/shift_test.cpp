// LShiftC and RShiftC: every count around the width, lengths and alignments,
// the hand-offs and the negative count.
#include <cstring>

#include "digest.h"
#include "sweep.h"

namespace {

// x shifted by k as an integer model: high bits dropped on the left; on the
// right logical for unsigned, floor division (sign fill) for signed.
template <class T> T model(bool left, T x, int k) {
    constexpr int W = 8 * sizeof(T);
    if (left) return k >= W ? T(0) : T(uint64_t(int64_t(x)) * (uint64_t(1) << k));
    if (k >= W) return std::is_signed_v<T> && x < 0 ? T(-1) : T(0);
    int64_t v = x, p = int64_t(1) << k;
    return T(v >= 0 ? v / p : -((-v + p - 1) / p));
}

template <class T> struct Fns {
    zamStatus (*f)(const T*, int, T*, int);
    zamStatus (*fi)(int, T*, int);
    bool left;
};
template <class T> std::vector<Fns<T>> fns();
#define FNS(t) {zamsLShiftC_##t, zamsLShiftC_##t##_I, true}, {zamsRShiftC_##t, zamsRShiftC_##t##_I, false}
template <> std::vector<Fns<Zam8u>> fns() { return {FNS(8u)}; }
template <> std::vector<Fns<Zam16s>> fns() { return {FNS(16s)}; }
template <> std::vector<Fns<Zam16u>> fns() { return {FNS(16u)}; }
template <> std::vector<Fns<Zam32s>> fns() { return {FNS(32s)}; }

template <class T> class Shift : public ::testing::Test {};
using Types = ::testing::Types<Zam8u, Zam16s, Zam16u, Zam32s>;
TYPED_TEST_SUITE(Shift, Types);

TYPED_TEST(Shift, EveryCountLengthAndAlignment) {
    using T = TypeParam;
    constexpr int W = 8 * sizeof(T);
    auto a = zt::random_ints<T>(300, 9);
    std::vector<int> counts{W + 24, 99, INT32_MAX};
    for (int k = 0; k <= W + 9; ++k) counts.push_back(k);
    for (auto s : fns<T>()) {
        for (int k : counts) {
            for (int len : {1, 17, 70}) {
                zt::Guarded<T> x(len, 2), d(len, 4 + 2 * sizeof(T)), io(len, 8);
                x.copy_from(a.data());
                io.copy_from(a.data());
                ASSERT_EQ(s.f(x.data(), k, d.data(), len), zamStatusOk);
                ASSERT_EQ(s.fi(k, io.data(), len), zamStatusOk);
                for (int i = 0; i < len; ++i) {
                    ASSERT_EQ(d[i], model(s.left, a[i], k)) << "k " << k << " i " << i;
                    ASSERT_EQ(io[i], model(s.left, a[i], k)) << "in place k " << k << " i " << i;
                }
                ASSERT_TRUE(d.guards_intact() && io.guards_intact());
            }
        }
        zt::SweepOptions o;
        o.len_step = 5;
        for (int k : {1, W - 1})
            zt::sweep_unary<T, T>([&](const T* x, T* d, int n) { return s.f(x, k, d, n); },
                                  [&](T x) { return model(s.left, x, k); }, a, o);
    }
}

// Pointers, then the length, then a negative count; the shortcuts hand the
// call to the copy and zeroing functions, whose checks then apply.
TYPED_TEST(Shift, ChecksAndShortcuts) {
    using T = TypeParam;
    constexpr int W = 8 * sizeof(T);
    T x[2] = {1, 2};
    zt::Guarded<T> d(2);
    for (auto s : fns<T>()) {
        for (int k : {-1, 0, 3, W, W + 40}) {
            EXPECT_EQ(s.f(nullptr, k, d.data(), 0), zamStatusNullPointer) << k;
            EXPECT_EQ(s.f(x, k, nullptr, 2), zamStatusNullPointer) << k;
            EXPECT_EQ(s.f(x, k, d.data(), 0), zamStatusBadLength) << k;
            EXPECT_EQ(s.fi(k, nullptr, 2), zamStatusNullPointer) << k;
            EXPECT_EQ(s.fi(k, d.data(), -2), zamStatusBadLength) << k;
        }
        EXPECT_EQ(s.f(x, -1, d.data(), 2), zamStatusBadShift);
        EXPECT_EQ(s.fi(INT32_MIN, d.data(), 2), zamStatusBadShift);
    }
    EXPECT_TRUE(d.guards_intact());
}

ZAMS_DIGEST(shift) {
    auto run = [&](auto tag, uint32_t seed) {
        using T = decltype(tag);
        auto a = zt::random_ints<T>(77, seed);
        std::vector<T> y(77);
        for (auto s : fns<T>())
            for (int k : {-1, 0, 1, 5, 7, 8, 15, 16, 31, 32, 99}) d.status(s.f(a.data(), k, y.data(), 77)), d.add(y);
    };
    run(Zam8u{}, 1);
    run(Zam16s{}, 2);
    run(Zam16u{}, 3);
    run(Zam32s{}, 4);
}

}  // namespace
