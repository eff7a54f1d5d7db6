// And, Or, Xor, their constant and in-place forms, and Not.
#include <cstring>

#include "digest.h"
#include "scaled_model.h"

namespace {

template <class T> struct Fns {
    zamStatus (*op[3])(const T*, const T*, T*, int);
    zamStatus (*op_i[3])(const T*, T*, int);
    zamStatus (*opc[3])(const T*, T, T*, int);
    zamStatus (*opc_i[3])(T, T*, int);
    zamStatus (*not_)(const T*, T*, int);
    zamStatus (*not_i)(T*, int);
};
#define FNS(t)                                                                                                  \
    Fns<Zam##t> {                                                                                               \
        {zamsAnd_##t, zamsOr_##t, zamsXor_##t}, {zamsAnd_##t##_I, zamsOr_##t##_I, zamsXor_##t##_I},            \
            {zamsAndC_##t, zamsOrC_##t, zamsXorC_##t}, {zamsAndC_##t##_I, zamsOrC_##t##_I, zamsXorC_##t##_I},  \
            zamsNot_##t, zamsNot_##t##_I                                                                        \
    }
template <class T> Fns<T> fns();
template <> Fns<Zam8u> fns() { return FNS(8u); }
template <> Fns<Zam16u> fns() { return FNS(16u); }
template <> Fns<Zam32u> fns() { return FNS(32u); }

template <class T> T model(int op, T a, T b) { return T(op == 0 ? (a & b) : op == 1 ? (a | b) : (a ^ b)); }

template <class T> class Logic : public ::testing::Test {};
using Types = ::testing::Types<Zam8u, Zam16u, Zam32u>;
TYPED_TEST_SUITE(Logic, Types);

TYPED_TEST(Logic, EveryLengthAlignmentAndForm) {
    using T = TypeParam;
    auto f = fns<T>();
    auto a = zt::random_ints<T>(300, 1), b = zt::random_ints<T>(300, 2);
    zt::SweepOptions o{.len_step = 3}, oi{.in_place = false, .len_step = 3};
    const T c = T(0x5A3C96E1u);
    for (int op = 0; op < 3; ++op) {
        auto m = [&](T x, T y) { return model(op, x, y); };
        auto mc = [&](T x) { return model(op, x, c); };
        auto fc = f.opc[op];
        zt::sweep_binary<T, T, T>(f.op[op], m, a, b, o);
        zt::sweep_binary<T, T, T>(st::in_place(f.op_i[op]), m, a, b, oi);
        zt::sweep_unary<T, T>([&](const T* x, T* d, int n) { return fc(x, c, d, n); }, mc, a, o);
        zt::sweep_unary<T, T>(st::in_place(f.opc_i[op], c), mc, a, oi);
    }
    zt::sweep_unary<T, T>(f.not_, [](T x) { return T(~x); }, a, o);
    zt::sweep_unary<T, T>(st::in_place(f.not_i), [](T x) { return T(~x); }, a, oi);
}

// AndC with 0 zeroes, OrC and XorC with 0 copy or leave the vector alone,
// and the checks of the functions they hand off to apply.
TYPED_TEST(Logic, ZeroConstants) {
    using T = TypeParam;
    auto f = fns<T>();
    zt::Guarded<T> d(3);
    T x[3] = {1, 2, 3};
    for (int op = 0; op < 3; ++op) {
        EXPECT_EQ(f.opc[op](nullptr, 0, d.data(), 3), zamStatusNullPointer);
        EXPECT_EQ(f.opc[op](x, 0, nullptr, 3), zamStatusNullPointer);  // AndC 0: the zeroing function's -8
        EXPECT_EQ(f.opc[op](x, 0, d.data(), 0), zamStatusBadLength);
        EXPECT_EQ(f.opc_i[op](0, nullptr, 3), zamStatusNullPointer);
        EXPECT_EQ(f.opc_i[op](0, d.data(), 0), zamStatusBadLength);
    }
    EXPECT_TRUE(d.guards_intact());
    ASSERT_EQ(f.opc[0](x, 0, d.data(), 3), zamStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(d[i], 0);
    ASSERT_EQ(f.opc[2](x, 0, d.data(), 3), zamStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(d[i], x[i]);
    ASSERT_EQ(f.opc_i[1](0, d.data(), 3), zamStatusOk);
    ASSERT_EQ(f.opc_i[2](0, d.data(), 3), zamStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(d[i], x[i]);
    ASSERT_EQ(f.opc_i[0](0, d.data(), 3), zamStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(d[i], 0);
    EXPECT_TRUE(d.guards_intact());
}

ZAMS_DIGEST(logic) {
    auto run = [&](auto tag, uint32_t seed) {
        using T = decltype(tag);
        auto f = fns<T>();
        auto a = zt::random_ints<T>(131, seed), b = zt::random_ints<T>(131, seed + 1);
        std::vector<T> y(131);
        for (int op = 0; op < 3; ++op) {
            d.status(f.op[op](a.data(), b.data(), y.data(), 131)), d.add(y);
            d.status(f.opc[op](a.data(), T(0x0F0F0F0Fu), y.data(), 131)), d.add(y);
        }
        d.status(f.not_(a.data(), y.data(), 131)), d.add(y);
    };
    run(Zam8u{}, 1);
    run(Zam16u{}, 3);
    run(Zam32u{}, 5);
}

}  // namespace
