// Scaled Mul, MulC, the mixed-width products and AddProduct against the
// long double model.
#include <random>

#include "digest.h"
#include "scaled_model.h"

namespace {

using st::ld;
using st::scale;

template <class A, class B, class D = B> auto mul_m() {
    return [](A a, B b, int sf) { return scale<D>(ld(a) * b, sf); };
}
// (ac - bd) + (ad + bc)i, each part exact in long double (below 2^64).
template <class C> auto cmul_m() {
    return [](C a, C b, int sf) {
        using P = typename st::part<C>::type;
        return C{scale<P>(ld(a.re) * b.re - ld(a.im) * b.im, sf), scale<P>(ld(a.re) * b.im + ld(a.im) * b.re, sf)};
    };
}

#define TWO(op, t) zams##op##_##t##_Sfs, zams##op##_##t##_ISfs

TEST(ScaledMul, EveryFactorLengthAndAlignment) {
    st::two_sources<Zam8u, Zam8u, Zam8u>(TWO(Mul, 8u), mul_m<Zam8u, Zam8u>(), {0, 1, 6, -3});
    st::two_sources<Zam16s, Zam16s, Zam16s>(TWO(Mul, 16s), mul_m<Zam16s, Zam16s>(), {0, 1, 15, 30, -2});
    st::two_sources<Zam32s, Zam32s, Zam32s>(TWO(Mul, 32s), mul_m<Zam32s, Zam32s>(), {31, -3}, 7);
    st::two_sources<Zam16sc, Zam16sc, Zam16sc>(TWO(Mul, 16sc), cmul_m<Zam16sc>(), {15}, 5);
    st::two_sources<Zam32sc, Zam32sc, Zam32sc>(TWO(Mul, 32sc), cmul_m<Zam32sc>(), {33, -2}, 11);
}

TEST(ScaledMul, MixedWidths) {
    st::two_sources<Zam16u, Zam16s, Zam16s>(zamsMul_16u16s_Sfs, nullptr, mul_m<Zam16u, Zam16s>(), {0, 16, 31, -7}, 2);
    st::two_sources<Zam16s, Zam16s, Zam32s>(zamsMul_16s32s_Sfs, nullptr, mul_m<Zam16s, Zam16s, Zam32s>(), {0, 12, -30, -31}, 7);
    st::two_sources<Zam32s, Zam32s, Zam32s>(zamsMul_Low_32s_Sfs, nullptr, mul_m<Zam32s, Zam32s>(), {0}, 13);
    st::two_sources<Zam32s, Zam32sc, Zam32sc>(
        zamsMul_32s32sc_Sfs, nullptr,
        [](Zam32s a, Zam32sc b, int sf) { return Zam32sc{scale<Zam32s>(ld(a) * b.re, sf), scale<Zam32s>(ld(a) * b.im, sf)}; },
        {20}, 11);
}

TEST(ScaledMulC, EveryFactorAndConstant) {
    st::constant<Zam8u, Zam8u>(TWO(MulC, 8u), mul_m<Zam8u, Zam8u>(), {0, 255, 3}, {0, 2});
    st::constant<Zam16s, Zam16s>(TWO(MulC, 16s), mul_m<Zam16s, Zam16s>(), {0, -32768, 32767, -3}, {0, 14});
    st::constant<Zam32s, Zam32s>(TWO(MulC, 32s), mul_m<Zam32s, Zam32s>(), {0, INT32_MIN, 99}, {31});
    // The constants whose product sums leave 32 bits.
    st::constant<Zam16sc, Zam16sc>(TWO(MulC, 16sc), cmul_m<Zam16sc>(),
                                   {{-32768, -32768}, {32767, -32768}, {0, 1}, {3, -2}}, {0, 16});
    st::constant<Zam32sc, Zam32sc>(TWO(MulC, 32sc), cmul_m<Zam32sc>(), {{INT32_MIN, INT32_MIN}, {-5, 7}}, {40});
}

// 32-bit products at exact ties and one step either side, at every factor
// the 64-bit lane kernels serve: a = +-2^e and b = q 2^t + 2^(t-1) + delta
// put the tie at factor e + t. Complex: (a, 0) times (b, b') gives two
// products of the same form.
TEST(ScaledMul, ProductsOf32BitPartsAtTies) {
    std::mt19937_64 g(11);
    const int n = 37;
    for (int sf = 1; sf <= 62; ++sf) {
        const int e = sf - 1 < 30 ? sf - 1 : 30, t = sf - e;
        std::vector<Zam32s> a(n), b(n), d(n);
        std::vector<Zam32sc> ca(n), cb(n), cd(n);
        auto tie = [&] {
            const int64_t q = int64_t(g() % 64) - 32, delta = int64_t(g() % 3) - 1;
            const int64_t v = (q << t) + (int64_t(1) << (t - 1)) + delta;
            return Zam32s(v < INT32_MIN ? INT32_MIN : (v > INT32_MAX ? INT32_MAX : v));
        };
        for (int i = 0; i < n; ++i) {
            a[i] = Zam32s(g() & 1 ? -(int64_t(1) << e) : (int64_t(1) << e));
            b[i] = tie();
            ca[i] = {a[i], 0};
            cb[i] = {tie(), tie()};
        }
        ASSERT_EQ(zamsMul_32s_Sfs(a.data(), b.data(), d.data(), n, sf), zamStatusOk);
        ASSERT_EQ(zamsMul_32sc_Sfs(ca.data(), cb.data(), cd.data(), n, sf), zamStatusOk);
        for (int i = 0; i < n; ++i) {
            ASSERT_EQ(d[i], scale<Zam32s>(ld(a[i]) * b[i], sf)) << "sf " << sf << " " << a[i] << " * " << b[i];
            ASSERT_TRUE(st::same(cd[i], cmul_m<Zam32sc>()(ca[i], cb[i], sf))) << "sf " << sf << " i " << i;
        }
    }
}

// (-2^31 - 2^31 i)^2 = 2^63 i leaves 64 bits: inside vectors, at every factor.
TEST(ScaledMul, ComplexSumBeyond64BitsInsideVectors) {
    const int n = 13;
    std::vector<Zam32sc> a(n, Zam32sc{INT32_MIN, INT32_MIN}), d(n);
    a[3] = {INT32_MIN, INT32_MAX};
    a[8] = {5, -7};
    for (int sf = -40; sf <= 70; ++sf) {
        ASSERT_EQ(zamsMul_32sc_Sfs(a.data(), a.data(), d.data(), n, sf), zamStatusOk);
        for (int i = 0; i < n; ++i) ASSERT_TRUE(st::same(d[i], cmul_m<Zam32sc>()(a[i], a[i], sf))) << sf << " " << i;
    }
}

// pSrcDst starts as c: c + a * b, scaled.
template <class A, class C, class Fn> void add_product(Fn f, std::vector<int> sweep_sfs) {
    auto pa = st::pool<A>(300, 41), pb = st::pool<A>(300, 42);
    auto pc = st::pool<C>(300, 43);
    auto model = [](A a, A b, C c, int sf) { return scale<C>(ld(c) + ld(a) * b, sf); };
    auto run = [&](int len, int sf, size_t off) {
        zt::Guarded<A> a(len, (off * 3 + 2) % 64), b(len, (off * 5) % 64);
        zt::Guarded<C> c(len, off);
        a.copy_from(pa.data());
        b.copy_from(pb.data());
        c.copy_from(pc.data());
        ASSERT_EQ(f(a.data(), b.data(), c.data(), len, sf), zamStatusOk);
        for (int i = 0; i < len; ++i) ASSERT_EQ(c[i], model(pa[i], pb[i], pc[i], sf)) << "sf " << sf << " i " << i;
        ASSERT_TRUE(c.guards_intact());
    };
    for (int sf = -40; sf <= 70; ++sf)
        for (int len : {1, 9, 33}) run(len, sf, 6);
    for (int sf : sweep_sfs)
        for (int len = 1; len <= 300; len += 3)
            for (size_t off : zt::offsets_for(len)) run(len, sf, off);
    A a[1] = {};
    zt::Guarded<C> c(1);
    EXPECT_EQ(f(a, a, nullptr, 1, 40), zamStatusNullPointer);
    EXPECT_EQ(f(a, a, c.data(), 0, 63), zamStatusBadLength);
    EXPECT_TRUE(c.guards_intact());
}

TEST(ScaledAddProduct, EveryFactorLengthAndAlignment) {
    add_product<Zam16s, Zam16s>(zamsAddProduct_16s_Sfs, {0, 5, 31, -4});
    add_product<Zam16s, Zam32s>(zamsAddProduct_16s32s_Sfs, {3});
    add_product<Zam32s, Zam32s>(zamsAddProduct_32s_Sfs, {-1});
}

// ad + bc = 2^31 (every part -32768) leaves 32 bits: among other products,
// through the vector body, at every factor, in both forms.
TEST(ScaledMul, ComplexSumOf2To31) {
    const int n = 45;
    std::vector<Zam16sc> a(n, Zam16sc{-32768, -32768}), b(n, Zam16sc{-32768, -32768});
    for (int i = 0; i < n; i += 3) a[i] = {Zam16s(i * 731 - 16000), Zam16s(32767 - i)};
    const Zam16sc c{-32768, -32768};
    auto m = cmul_m<Zam16sc>();
    for (int sf = -20; sf <= 33; ++sf) {
        std::vector<Zam16sc> d(n), e(n);
        ASSERT_EQ(zamsMul_16sc_Sfs(a.data(), b.data(), d.data(), n, sf), zamStatusOk);
        ASSERT_EQ(zamsMulC_16sc_Sfs(a.data(), c, e.data(), n, sf), zamStatusOk);
        for (int i = 0; i < n; ++i) {
            ASSERT_TRUE(st::same(d[i], m(a[i], b[i], sf))) << "sf " << sf << " i " << i;
            ASSERT_TRUE(st::same(e[i], m(a[i], c, sf))) << "C sf " << sf << " i " << i;
        }
    }
}

// The extreme factors of families without a zeroing limit.
TEST(ScaledMul, ExtremeFactors) {
    Zam32sc p[1] = {{INT32_MIN, INT32_MIN}}, q[1];
    ASSERT_EQ(zamsMul_32sc_Sfs(p, p, q, 1, INT32_MAX), zamStatusOk);
    EXPECT_TRUE(q[0].re == 0 && q[0].im == 0);
    ASSERT_EQ(zamsMul_32sc_Sfs(p, p, q, 1, INT32_MIN), zamStatusOk);
    EXPECT_TRUE(q[0].re == 0 && q[0].im == INT32_MAX);
    Zam16u u[1] = {1}, w[1];
    ASSERT_EQ(zamsAdd_16u_Sfs(u, u, w, 1, INT32_MIN), zamStatusOk);
    EXPECT_EQ(w[0], 65535);
}

ZAMS_DIGEST(mul_scaled) {
    const int n = 203;
    st::AllIo v(n);
    for (int sf : {-70, -9, -1, 0, 1, 2, 5, 9, 17, 31, 33, 62, 64}) {
#define MIX(op, a, b, t) d.status(zams##op##_Sfs(v.a.data(), v.b.data(), v.v##t.d.data(), n, sf)), d.add(v.v##t.d)
        D2(Mul, 8u); D2(Mul, 16s); D2(Mul, 32s); D2(Mul, 16sc); D2(Mul, 32sc);
        DC(MulC, 8u, Zam8u(200)); DC(MulC, 16s, Zam16s(-300)); DC(MulC, 32s, -5);
        DC(MulC, 16sc, (Zam16sc{-32768, 7})); DC(MulC, 32sc, (Zam32sc{INT32_MIN, 1}));
        MIX(Mul_16u16s, v16u.a, v16s.b, 16s);
        MIX(Mul_16s32s, v16s.a, v16s.b, 32s);
        MIX(Mul_Low_32s, v32s.a, v32s.b, 32s);
        MIX(Mul_32s32sc, v32s.a, v32sc.b, 32sc);
        MIX(AddProduct_16s, v16s.a, v16s.b, 16s);  // the accumulators carry over from the calls before
        MIX(AddProduct_16s32s, v16s.a, v16s.b, 32s);
        MIX(AddProduct_32s, v32s.a, v32s.b, 32s);
#undef MIX
    }
}

}  // namespace
