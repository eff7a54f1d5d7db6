// Scaled Add, Sub, AddC, SubC, SubCRev against the long double model.
#include "digest.h"
#include "scaled_model.h"
#include "../../src/arith/stream_store.h"

#include <immintrin.h>

#include <random>

namespace {

using st::ld;
using st::scale;

template <class T> auto add_m() {
    return [](T a, T b, int sf) {
        if constexpr (st::cplx<T>) {
            using P = typename st::part<T>::type;
            return T{scale<P>(ld(a.re) + b.re, sf), scale<P>(ld(a.im) + b.im, sf)};
        } else {
            return scale<T>(ld(a) + b, sf);
        }
    };
}
// The second source less the first.
template <class T> auto sub_m() {
    return [](T a, T b, int sf) {
        if constexpr (st::cplx<T>) {
            using P = typename st::part<T>::type;
            return T{scale<P>(ld(b.re) - a.re, sf), scale<P>(ld(b.im) - a.im, sf)};
        } else {
            return scale<T>(ld(b) - a, sf);
        }
    };
}

#define TWO(op, t) zams##op##_##t##_Sfs, zams##op##_##t##_ISfs

TEST(ScaledAdd, EveryFactorLengthAndAlignment) {
    st::two_sources<Zam8u, Zam8u, Zam8u>(TWO(Add, 8u), add_m<Zam8u>(), {0, 1, 4, -3});
    st::two_sources<Zam16s, Zam16s, Zam16s>(TWO(Add, 16s), add_m<Zam16s>(), {0, 1, 5, -4});
    st::two_sources<Zam16u, Zam16u, Zam16u>(TWO(Add, 16u), add_m<Zam16u>(), {0, 2, -20}, 3);
    st::two_sources<Zam32s, Zam32s, Zam32s>(TWO(Add, 32s), add_m<Zam32s>(), {0, 7, -4}, 7);
    st::two_sources<Zam16sc, Zam16sc, Zam16sc>(TWO(Add, 16sc), add_m<Zam16sc>(), {3}, 5);
    st::two_sources<Zam32sc, Zam32sc, Zam32sc>(TWO(Add, 32sc), add_m<Zam32sc>(), {-2}, 11);
    st::two_sources<Zam64s, Zam64s, Zam64s>(zamsAdd_64s_Sfs, nullptr, add_m<Zam64s>(), {1}, 11);
}

TEST(ScaledSub, EveryFactorLengthAndAlignment) {
    st::two_sources<Zam8u, Zam8u, Zam8u>(TWO(Sub, 8u), sub_m<Zam8u>(), {0, 1, -2}, 2);
    st::two_sources<Zam16s, Zam16s, Zam16s>(TWO(Sub, 16s), sub_m<Zam16s>(), {0, 3, -1}, 2);
    st::two_sources<Zam16u, Zam16u, Zam16u>(TWO(Sub, 16u), sub_m<Zam16u>(), {1, -5}, 3);
    st::two_sources<Zam32s, Zam32s, Zam32s>(TWO(Sub, 32s), sub_m<Zam32s>(), {2, -31}, 7);
    st::two_sources<Zam16sc, Zam16sc, Zam16sc>(TWO(Sub, 16sc), sub_m<Zam16sc>(), {0}, 5);
    st::two_sources<Zam32sc, Zam32sc, Zam32sc>(TWO(Sub, 32sc), sub_m<Zam32sc>(), {5}, 11);
}

// Sums and differences at, and one off, every half of 2^sf for each factor
// the kernels in element-width lanes compute (ties go to the even neighbour),
// over the full range of the sources.
template <class T> void near_ties(zamStatus (*add)(const T*, const T*, T*, int, int),
                                  zamStatus (*sub)(const T*, const T*, T*, int, int), int max_sf) {
    using L = std::numeric_limits<T>;
    const int n = 1000;
    std::mt19937_64 g(7);
    for (int sf = 0; sf <= max_sf; ++sf) {
        for (int op = 0; op < 2; ++op) {
            std::vector<T> a(n), b(n), d(n);
            const int64_t lo = int64_t(L::min()), hi = int64_t(L::max());
            const int64_t step = int64_t(1) << (sf > 0 ? sf - 1 : 0);
            const int64_t mlo = 2 * lo / step - 1, mhi = 2 * hi / step + 1;
            for (int i = 0; i < n; ++i) {
                a[i] = T(lo + int64_t(g() % uint64_t(hi - lo + 1)));
                const int64_t t = (mlo + int64_t(g() % uint64_t(mhi - mlo + 1))) * step + int64_t(g() % 3) - 1;
                const int64_t want_b = op == 0 ? t - a[i] : t + a[i];
                b[i] = T(want_b < lo ? lo : (want_b > hi ? hi : want_b));
            }
            ASSERT_EQ((op == 0 ? add : sub)(a.data(), b.data(), d.data(), n, sf), zamStatusOk);
            for (int i = 0; i < n; ++i) {
                const T want = op == 0 ? scale<T>(ld(a[i]) + b[i], sf) : scale<T>(ld(b[i]) - a[i], sf);
                ASSERT_EQ(d[i], want) << "op " << op << " sf " << sf << " " << +a[i] << ", " << +b[i];
            }
        }
    }
}

TEST(ScaledAddSub, LaneKernelsAtTies) {
    near_ties<Zam8u>(zamsAdd_8u_Sfs, zamsSub_8u_Sfs, 8);
    near_ties<Zam16s>(zamsAdd_16s_Sfs, zamsSub_16s_Sfs, 16);
    near_ties<Zam16u>(zamsAdd_16u_Sfs, zamsSub_16u_Sfs, 16);
    near_ties<Zam32s>(zamsAdd_32s_Sfs, zamsSub_32s_Sfs, 32);
}

// 32s rounds in double lanes under the nearest direction, whatever the
// caller's, and gives the caller's back.
TEST(ScaledAddSub, CallersRoundingDirection) {
    const unsigned saved = _mm_getcsr();
    for (unsigned mode : {1u, 2u, 3u}) {
        const unsigned csr = (saved & ~0x6000u) | (mode << 13);
        _mm_setcsr(csr);
        near_ties<Zam32s>(zamsAdd_32s_Sfs, zamsSub_32s_Sfs, 32);
        const unsigned after = _mm_getcsr();
        _mm_setcsr(saved);
        EXPECT_EQ(after, csr) << "mode " << mode;
    }
}

// Destinations long enough for non-temporal stores (x86-64 only: the i386
// run is emulated), aligned and off the vector boundary; in place they
// never stream.
template <class T> void long_vectors(zamStatus (*add)(const T*, const T*, T*, int, int),
                                     zamStatus (*addc)(const T*, T, T*, int, int), std::vector<int> sfs) {
    const int n = int(zams::kStreamMinBytes / sizeof(T)) + 11, period = 997;  // data repeat with the period
    auto pa = st::pool<T>(period, 51), pb = st::pool<T>(period, 52);
    std::vector<T> a(n), b(n);
    for (int i = 0; i < n; ++i) a[i] = pa[i % period], b[i] = pb[i % period];
    const T v = 3;
    auto expect = [&](const T* d, auto model, const char* what, int sf) {
        std::vector<T> want(period);
        for (int i = 0; i < period; ++i) want[i] = model(i);
        int bad = 0;
        for (int i = 0; i < n; ++i) bad += d[i] != want[i % period];
        EXPECT_EQ(bad, 0) << what << " sf " << sf;
    };
    for (int sf : sfs) {
        for (size_t off : {size_t(0), sizeof(T)}) {
            zt::Guarded<T> d(size_t(n), off);
            ASSERT_EQ(add(a.data(), b.data(), d.data(), n, sf), zamStatusOk);
            expect(d.data(), [&](int i) { return scale<T>(ld(pa[i]) + pb[i], sf); }, "add", sf);
            ASSERT_EQ(addc(a.data(), v, d.data(), n, sf), zamStatusOk);
            expect(d.data(), [&](int i) { return scale<T>(ld(pa[i]) + v, sf); }, "addc", sf);
            ASSERT_TRUE(d.guards_intact());
        }
        std::vector<T> io = b;
        ASSERT_EQ(add(a.data(), io.data(), io.data(), n, sf), zamStatusOk);
        expect(io.data(), [&](int i) { return scale<T>(ld(pa[i]) + pb[i], sf); }, "in place", sf);
    }
}

TEST(ScaledAdd, LongVectorsStreamTheDestination) {
    if (sizeof(void*) != 8) GTEST_SKIP() << "long vectors on x86-64 only";
    long_vectors<Zam8u>(zamsAdd_8u_Sfs, zamsAddC_8u_Sfs, {0, 2});
    long_vectors<Zam16s>(zamsAdd_16s_Sfs, zamsAddC_16s_Sfs, {0, 1, 3});
    long_vectors<Zam16u>(zamsAdd_16u_Sfs, zamsAddC_16u_Sfs, {0, 5});
    long_vectors<Zam32s>(zamsAdd_32s_Sfs, zamsAddC_32s_Sfs, {0, 9});
}

template <class T> auto addc_m() { return [](T x, T v, int sf) { return add_m<T>()(x, v, sf); }; }
template <class T> auto subc_m() { return [](T x, T v, int sf) { return sub_m<T>()(v, x, sf); }; }
template <class T> auto subcrev_m() { return [](T x, T v, int sf) { return sub_m<T>()(x, v, sf); }; }

// Constants: 0 and the ends of the range take the copy, fill and zeroing
// hand-offs; the last one of each list is nonzero.
TEST(ScaledAddSubC, EveryFactorAndConstant) {
    const std::vector<Zam8u> c8{0, 255, 1, 77};
    const std::vector<Zam16s> c16{0, -32768, 32767, -1, 1234};
    const std::vector<Zam16u> c16u{0, 65535, 1, 40000};
    const std::vector<Zam32s> c32{0, INT32_MIN, INT32_MAX, -7};
    const std::vector<Zam32sc> c32c{{0, 0}, {INT32_MIN, INT32_MAX}, {5, -1}};
#define CON(op, t, m, c, ...) \
    st::constant<Zam##t, Zam##t>(zams##op##_##t##_Sfs, zams##op##_##t##_ISfs, m<Zam##t>(), c, {__VA_ARGS__})
    CON(AddC, 8u, addc_m, c8, 0, 2);
    CON(SubC, 8u, subc_m, c8, 1);
    CON(SubCRev, 8u, subcrev_m, c8, -1);
    CON(AddC, 16s, addc_m, c16, 0, 1);
    CON(SubC, 16s, subc_m, c16, 4);
    CON(SubCRev, 16s, subcrev_m, c16, -3);
    CON(AddC, 16u, addc_m, c16u, 0, 17);
    CON(SubC, 16u, subc_m, c16u, 2);
    CON(SubCRev, 16u, subcrev_m, c16u, -2);
    CON(AddC, 32s, addc_m, c32, 3);
    CON(SubC, 32s, subc_m, c32, 0);
    CON(SubCRev, 32s, subcrev_m, c32, -1);
    CON(AddC, 32sc, addc_m, c32c, 1);
    CON(SubC, 32sc, subc_m, c32c, 0);
    CON(SubCRev, 32sc, subcrev_m, c32c, 2);
#undef CON
}

// Halves round to even, the ends saturate, and a negative factor scales
// by the sign: any nonzero result saturates.
TEST(ScaledAdd, DocumentedValues) {
    struct Case { Zam16s a, b; int sf; Zam16s want; };
    for (auto c : {Case{1, 0, 1, 0}, {3, 0, 1, 2}, {-3, 0, 1, -2}, {6, 0, 2, 2}, {10, 0, 2, 2}, {32767, 1, 0, 32767},
                   {5, 0, -16, 32767}, {-5, 0, -16, -32768}, {0, 0, -16, 0}}) {
        Zam16s a[3] = {c.a, c.a, c.a}, b[3] = {c.b, c.b, c.b}, d[3];
        ASSERT_EQ(zamsAdd_16s_Sfs(a, b, d, 3, c.sf), zamStatusOk);
        EXPECT_TRUE(d[0] == c.want && d[2] == c.want) << c.a << " + " << c.b << " sf " << c.sf;
    }
    Zam8u u1[1] = {3}, u2[1] = {10}, u3[1];
    ASSERT_EQ(zamsSub_8u_Sfs(u2, u1, u3, 1, 0), zamStatusOk);  // 3 - 10 saturates at 0
    EXPECT_EQ(u3[0], 0);
}

// With a zero constant and factor 0 the 16s in-place forms return at once,
// before any check; the other forms copy through the movement function,
// whose checks then apply.
TEST(ScaledAddSubC, TrivialConstants) {
    EXPECT_EQ(zamsAddC_16s_ISfs(0, nullptr, 0, 0), zamStatusOk);
    EXPECT_EQ(zamsSubC_16s_ISfs(0, nullptr, -1, 0), zamStatusOk);
    EXPECT_EQ(zamsAddC_16s_ISfs(0, nullptr, 1, 1), zamStatusNullPointer);
    EXPECT_EQ(zamsAddC_8u_ISfs(0, nullptr, 1, 0), zamStatusNullPointer);
    Zam16s x[3] = {1, -2, 3}, y[3] = {};
    EXPECT_EQ(zamsAddC_16s_Sfs(x, 0, nullptr, 3, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsAddC_16s_Sfs(x, 0, y, 0, 0), zamStatusBadLength);
}

ZAMS_DIGEST(add_sub_scaled) {
    const int n = 203;
    st::AllIo v(n);
    for (int sf : {-70, -9, -1, 0, 1, 2, 5, 9, 17, 33, 64}) {
        D2(Add, 8u); D2(Add, 16s); D2(Add, 16u); D2(Add, 32s); D2(Add, 64s); D2(Add, 16sc); D2(Add, 32sc);
        D2(Sub, 8u); D2(Sub, 16s); D2(Sub, 16u); D2(Sub, 32s); D2(Sub, 16sc); D2(Sub, 32sc);
        DC(AddC, 8u, Zam8u(200)); DC(SubC, 8u, Zam8u(3)); DC(SubCRev, 8u, Zam8u(99));
        DC(AddC, 16s, Zam16s(-300)); DC(SubC, 16s, Zam16s(7)); DC(SubCRev, 16s, Zam16s(-32768));
        DC(AddC, 16u, Zam16u(9)); DC(SubC, 16u, Zam16u(60000)); DC(SubCRev, 16u, Zam16u(1));
        DC(AddC, 32s, -5); DC(SubC, 32s, INT32_MAX); DC(SubCRev, 32s, 77);
        DC(AddC, 32sc, (Zam32sc{3, -4})); DC(SubC, 32sc, (Zam32sc{INT32_MIN, 1})); DC(SubCRev, 32sc, (Zam32sc{0, 9}));
    }
}

}  // namespace
