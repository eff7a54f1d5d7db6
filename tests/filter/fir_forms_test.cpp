// The FIR forms that restate another: in-place state and Direct forms against
// the out-of-place ones on the same input and an equal state, one-sample
// Direct forms against the block Direct form sample by sample, the float-taps
// life cycle of the integer states against the integer-taps sibling, and the
// stream state in caller memory against the allocated one.
#include <algorithm>
#include <cstring>
#include <random>
#include <type_traits>
#include <vector>

#include "fir_model.h"

namespace {

using fm::is_int_v;
using fm::same;
using fm::vec;
template <class D> int data_lim() {
    return std::is_same_v<D, Zam32s> || std::is_same_v<D, Zam32sc> ? 2000000000 : 32767;
}
template <class T> int taps_lim() { return std::is_same_v<T, Zam16s> ? 30000 : is_int_v<T> ? 60000 : 1; }

#define NOF
#define WF , f
#define NOS
#define WS , sf

// ---- state forms: in place against out of place ----

#define STATE(NAME, SUF, ST, TT, DT, FA, SA, RUN, RUN_I)                                         \
    struct NAME {                                                                                 \
        using T = TT;                                                                             \
        using D = DT;                                                                             \
        using S = ST;                                                                             \
        static constexpr const char* name = #RUN_I;                                               \
        static zamStatus alloc(S** p, const T* t, int n, int f, const D* d) {                     \
            (void)f;                                                                              \
            return zamsFIRInitAlloc##SUF(p, t, n FA, d);                                          \
        }                                                                                         \
        static zamStatus free(S* p) { return zamsFIRFree##SUF(p); }                               \
        static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine##SUF(p, d); }       \
        static zamStatus run(const D* s, D* d, int n, S* p, int sf) {                             \
            (void)sf;                                                                             \
            return RUN(s, d, n, p SA);                                                            \
        }                                                                                         \
        static zamStatus run_i(D* sd, int n, S* p, int sf) {                                      \
            (void)sf;                                                                             \
            return RUN_I(sd, n, p SA);                                                            \
        }                                                                                         \
    };

STATE(S32fc, _32fc, ZamsFIRState_32fc, Zam32fc, Zam32fc, NOF, NOS, zamsFIR_32fc, zamsFIR_32fc_I)
STATE(S64f, _64f, ZamsFIRState_64f, Zam64f, Zam64f, NOF, NOS, zamsFIR_64f, zamsFIR_64f_I)
STATE(S64fc, _64fc, ZamsFIRState_64fc, Zam64fc, Zam64fc, NOF, NOS, zamsFIR_64fc, zamsFIR_64fc_I)
STATE(S32s, _32s, ZamsFIRState64f_32s, Zam32s, Zam32s, WF, WS, zamsFIR_32s_Sfs, zamsFIR_32s_ISfs)
STATE(S16s, _16s, ZamsFIRState_16s, Zam16s, Zam16s, WF, WS, zamsFIR_16s_Sfs, zamsFIR_16s_ISfs)
STATE(S32f16s, 32f_16s, ZamsFIRState32f_16s, Zam32f, Zam16s, NOF, WS, zamsFIR32f_16s_Sfs, zamsFIR32f_16s_ISfs)
STATE(S32fc16sc, 32fc_16sc, ZamsFIRState32fc_16sc, Zam32fc, Zam16sc, NOF, WS, zamsFIR32fc_16sc_Sfs, zamsFIR32fc_16sc_ISfs)
STATE(S32s16s, 32s_16s, ZamsFIRState32s_16s, Zam32s, Zam16s, WF, WS, zamsFIR32s_16s_Sfs, zamsFIR32s_16s_ISfs)
STATE(S32sc16sc, 32sc_16sc, ZamsFIRState32sc_16sc, Zam32sc, Zam16sc, WF, WS, zamsFIR32sc_16sc_Sfs, zamsFIR32sc_16sc_ISfs)
STATE(S64f16s, 64f_16s, ZamsFIRState64f_16s, Zam64f, Zam16s, NOF, WS, zamsFIR64f_16s_Sfs, zamsFIR64f_16s_ISfs)
STATE(S64f32s, 64f_32s, ZamsFIRState64f_32s, Zam64f, Zam32s, NOF, WS, zamsFIR64f_32s_Sfs, zamsFIR64f_32s_ISfs)
STATE(S64f32f, 64f_32f, ZamsFIRState64f_32f, Zam64f, Zam32f, NOF, NOS, zamsFIR64f_32f, zamsFIR64f_32f_I)
STATE(S64fc16sc, 64fc_16sc, ZamsFIRState64fc_16sc, Zam64fc, Zam16sc, NOF, WS, zamsFIR64fc_16sc_Sfs, zamsFIR64fc_16sc_ISfs)
STATE(S64fc32sc, 64fc_32sc, ZamsFIRState64fc_32sc, Zam64fc, Zam32sc, NOF, WS, zamsFIR64fc_32sc_Sfs, zamsFIR64fc_32sc_ISfs)
STATE(S64fc32fc, 64fc_32fc, ZamsFIRState64fc_32fc, Zam64fc, Zam32fc, NOF, NOS, zamsFIR64fc_32fc, zamsFIR64fc_32fc_I)

template <class P> class FirInPlaceState : public ::testing::Test {};
using StatePairs = ::testing::Types<S32fc, S64f, S64fc, S32s, S16s, S32f16s, S32fc16sc, S32s16s, S32sc16sc, S64f16s,
                                    S64f32s, S64f32f, S64fc16sc, S64fc32sc, S64fc32fc>;
TYPED_TEST_SUITE(FirInPlaceState, StatePairs);

// Two equal states (taps, factor, delay line) fed the same blocks: the
// in-place form gives the out-of-place outputs and leaves the same delay line.
TYPED_TEST(FirInPlaceState, EqualsOutOfPlaceBlockByBlock) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    std::mt19937 g(11);
    for (int L : {1, 4, 21, 80}) {
        for (int sf : {0, 3, -2}) {
            if (!is_int_v<D> && sf) continue;
            const int f = 2;
            const auto taps = vec<T>(size_t(L), uint32_t(L), taps_lim<T>());
            const auto dly = vec<D>(size_t(L), uint32_t(L + 7), data_lim<D>() / 8);
            const auto x = vec<D>(1500, uint32_t(L + 9), data_lim<D>() / 8);
            typename P::S *a = nullptr, *b = nullptr;
            ASSERT_EQ(P::alloc(&a, taps.data(), L, f, dly.data()), 0);
            ASSERT_EQ(P::alloc(&b, taps.data(), L, f, dly.data()), 0);
            std::vector<D> want(x.size()), got(x);
            size_t done = 0;
            while (done < x.size()) {
                const size_t n = std::min<size_t>(x.size() - done, 1 + g() % 600);
                ASSERT_EQ(P::run(x.data() + done, want.data() + done, int(n), a, sf), 0);
                ASSERT_EQ(P::run_i(got.data() + done, int(n), b, sf), 0);
                done += n;
            }
            EXPECT_TRUE(same(want, got)) << P::name << " L=" << L << " sf=" << sf;
            // The outputs are not the inputs: the in-place call filtered.
            EXPECT_FALSE(same(x, got)) << P::name << " L=" << L;
            std::vector<D> da(static_cast<size_t>(L)), db(static_cast<size_t>(L));
            ASSERT_EQ(P::get_dly(a, da.data()), 0);
            ASSERT_EQ(P::get_dly(b, db.data()), 0);
            EXPECT_TRUE(same(da, db)) << P::name << " L=" << L;
            ASSERT_EQ(P::free(a), 0);
            ASSERT_EQ(P::free(b), 0);
        }
    }
}

// ---- Direct forms: in place and one sample against the block form ----

#define DIRECT(NAME, PFX, SUF, TT, DT, FA, SA, OUT, IN)                                                    \
    struct NAME {                                                                                           \
        using T = TT;                                                                                       \
        using D = DT;                                                                                       \
        static constexpr const char* name = #PFX "_Direct_" #SUF;                                          \
        static zamStatus block(const D* s, D* d, int n, const T* t, int L, int f, D* dl, int* ix, int sf) { \
            (void)f;                                                                                        \
            (void)sf;                                                                                       \
            return zamsFIR##PFX##_Direct_##SUF##OUT(s, d, n, t, L FA, dl, ix SA);                           \
        }                                                                                                   \
        static zamStatus block_i(D* sd, int n, const T* t, int L, int f, D* dl, int* ix, int sf) {          \
            (void)f;                                                                                        \
            (void)sf;                                                                                       \
            return zamsFIR##PFX##_Direct_##SUF##IN(sd, n, t, L FA, dl, ix SA);                              \
        }                                                                                                   \
        static zamStatus one(D s, D* d, const T* t, int L, int f, D* dl, int* ix, int sf) {                 \
            (void)f;                                                                                        \
            (void)sf;                                                                                       \
            return zamsFIROne##PFX##_Direct_##SUF##OUT(s, d, t, L FA, dl, ix SA);                           \
        }                                                                                                   \
        static zamStatus one_i(D* sd, const T* t, int L, int f, D* dl, int* ix, int sf) {                   \
            (void)f;                                                                                        \
            (void)sf;                                                                                       \
            return zamsFIROne##PFX##_Direct_##SUF##IN(sd, t, L FA, dl, ix SA);                              \
        }                                                                                                   \
    };

DIRECT(D32f, , 32f, Zam32f, Zam32f, NOF, NOS, , _I)
DIRECT(D32fc, , 32fc, Zam32fc, Zam32fc, NOF, NOS, , _I)
DIRECT(D64f, , 64f, Zam64f, Zam64f, NOF, NOS, , _I)
DIRECT(D64fc, , 64fc, Zam64fc, Zam64fc, NOF, NOS, , _I)
DIRECT(D16s, , 16s, Zam16s, Zam16s, WF, WS, _Sfs, _ISfs)
DIRECT(D32f16s, 32f, 16s, Zam32f, Zam16s, NOF, WS, _Sfs, _ISfs)
DIRECT(D32fc16sc, 32fc, 16sc, Zam32fc, Zam16sc, NOF, WS, _Sfs, _ISfs)
DIRECT(D32s16s, 32s, 16s, Zam32s, Zam16s, WF, WS, _Sfs, _ISfs)
DIRECT(D32sc16sc, 32sc, 16sc, Zam32sc, Zam16sc, WF, WS, _Sfs, _ISfs)
DIRECT(D64f16s, 64f, 16s, Zam64f, Zam16s, NOF, WS, _Sfs, _ISfs)
DIRECT(D64f32f, 64f, 32f, Zam64f, Zam32f, NOF, NOS, , _I)
DIRECT(D64f32s, 64f, 32s, Zam64f, Zam32s, NOF, WS, _Sfs, _ISfs)
DIRECT(D64fc16sc, 64fc, 16sc, Zam64fc, Zam16sc, NOF, WS, _Sfs, _ISfs)
DIRECT(D64fc32fc, 64fc, 32fc, Zam64fc, Zam32fc, NOF, NOS, , _I)
DIRECT(D64fc32sc, 64fc, 32sc, Zam64fc, Zam32sc, NOF, WS, _Sfs, _ISfs)

template <class P> class FirDirectForms : public ::testing::Test {};
using DirectPairs = ::testing::Types<D32f, D32fc, D64f, D64fc, D16s, D32f16s, D32fc16sc, D32s16s, D32sc16sc, D64f16s,
                                     D64f32f, D64f32s, D64fc16sc, D64fc32fc, D64fc32sc>;
TYPED_TEST_SUITE(FirDirectForms, DirectPairs);

// A delay line of 2L samples with every sample at i and i + L.
template <class D> std::vector<D> line(int L, uint32_t seed) {
    auto h = vec<D>(size_t(L), seed, data_lim<D>() / 8);
    std::vector<D> dl(h);
    dl.insert(dl.end(), h.begin(), h.end());
    return dl;
}

// From equal delay lines and indices: the in-place block, the one-sample
// form and the in-place one-sample form give the block form's outputs to
// the bit, and leave the same delay line and index.
TYPED_TEST(FirDirectForms, InPlaceAndOneSampleEqualTheBlock) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    for (int L : {1, 5, 16, 37}) {
        for (int sf : {0, 2, -1}) {
            if (!is_int_v<D> && sf) continue;
            const int f = 1;
            const auto taps = vec<T>(size_t(L), uint32_t(3 * L), taps_lim<T>());
            const auto x = vec<D>(400, uint32_t(L + sf + 50), data_lim<D>() / 8);
            const auto dl0 = line<D>(L, uint32_t(L + 1));
            const int ix0 = (3 * L) / 4;
            // the reference: one block call
            std::vector<D> want(x.size()), dlw(dl0);
            int ixw = ix0;
            ASSERT_EQ(P::block(x.data(), want.data(), int(x.size()), taps.data(), L, f, dlw.data(), &ixw, sf), 0);
            ASSERT_FALSE(same(want, x)) << P::name;
            // in place, in uneven blocks
            {
                std::vector<D> got(x), dl(dl0);
                int ix = ix0;
                size_t done = 0, n = 1;
                while (done < x.size()) {
                    n = std::min(x.size() - done, n * 3);
                    ASSERT_EQ(P::block_i(got.data() + done, int(n), taps.data(), L, f, dl.data(), &ix, sf), 0);
                    done += n;
                }
                EXPECT_TRUE(same(want, got)) << P::name << " in place L=" << L << " sf=" << sf;
                EXPECT_TRUE(same(dlw, dl)) << P::name << " in place L=" << L;
                EXPECT_EQ(ix, ixw) << P::name;
            }
            // one sample at a time, out of place and in place
            {
                std::vector<D> dl1(dl0), dl2(dl0);
                int ix1 = ix0, ix2 = ix0;
                for (size_t n = 0; n < x.size(); ++n) {
                    D y{}, z = x[n];
                    ASSERT_EQ(P::one(x[n], &y, taps.data(), L, f, dl1.data(), &ix1, sf), 0);
                    ASSERT_EQ(P::one_i(&z, taps.data(), L, f, dl2.data(), &ix2, sf), 0);
                    ASSERT_EQ(0, std::memcmp(&y, &want[n], sizeof(D))) << P::name << " one L=" << L << " n=" << n;
                    ASSERT_EQ(0, std::memcmp(&z, &want[n], sizeof(D))) << P::name << " one_i L=" << L << " n=" << n;
                }
                EXPECT_TRUE(same(dlw, dl1)) << P::name;
                EXPECT_TRUE(same(dlw, dl2)) << P::name;
                EXPECT_EQ(ix1, ixw);
                EXPECT_EQ(ix2, ixw);
            }
        }
    }
}

// An index outside [0, tapsLen) is refused and left as it was; the 32f
// forms take the index as given.
TYPED_TEST(FirDirectForms, BadIndexRefused) {
    using P = TypeParam;
    if constexpr (std::is_same_v<P, D32f>) GTEST_SKIP() << "the 32f forms take the index as given";
    typename P::T t[2] = {};
    typename P::D dl[4] = {}, v[2] = {};
    for (int bad : {-1, 2}) {
        int ix = bad;
        EXPECT_EQ(P::one_i(v, t, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex) << P::name;
        EXPECT_EQ(P::one(v[0], v + 1, t, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex) << P::name;
        EXPECT_EQ(P::block_i(v, 2, t, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex) << P::name;
        EXPECT_EQ(ix, bad);
    }
}

// ---- float taps over the integer states: the integer-taps sibling ----

// Float taps k 2^-e with the largest |k| in (16383, 32766] are kept exactly
// as the integer taps k with factor e: the two states filter to the bit alike.
struct Life32s {
    using F = Zam32f;
    using I = Zam32s;
    using D = Zam16s;
    using S = ZamsFIRState32s_16s;
    static constexpr const char* name = "32s_16s32f";
    static zamStatus size(int n, int* s) { return zamsFIRGetStateSize32s_16s32f(n, s); }
    static zamStatus init(S** p, const F* t, int n, const D* d, Zam8u* b) { return zamsFIRInit32s_16s32f(p, t, n, d, b); }
    static zamStatus alloc(S** p, const F* t, int n, const D* d) { return zamsFIRInitAlloc32s_16s32f(p, t, n, d); }
    static zamStatus free(S* p) { return zamsFIRFree32s_16s32f(p); }
    static zamStatus set_taps(const F* t, S* p) { return zamsFIRSetTaps32s_16s32f(t, p); }
    static zamStatus get_taps(const S* p, F* t) { return zamsFIRGetTaps32s_16s32f(p, t); }
    static zamStatus set_dly(S* p, const D* d) { return zamsFIRSetDlyLine32s_16s32f(p, d); }
    static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine32s_16s32f(p, d); }
    static zamStatus sib_alloc(S** p, const I* t, int n, int f, const D* d) { return zamsFIRInitAlloc32s_16s(p, t, n, f, d); }
    static zamStatus sib_free(S* p) { return zamsFIRFree32s_16s(p); }
    static zamStatus run(const D* s, D* d, int n, S* p, int sf) { return zamsFIR32s_16s_Sfs(s, d, n, p, sf); }
    static F to_float(I k, int e) { return std::ldexp(float(k), -e); }
};
struct Life32sc {
    using F = Zam32fc;
    using I = Zam32sc;
    using D = Zam16sc;
    using S = ZamsFIRState32sc_16sc;
    static constexpr const char* name = "32sc_16sc32fc";
    static zamStatus size(int n, int* s) { return zamsFIRGetStateSize32sc_16sc32fc(n, s); }
    static zamStatus init(S** p, const F* t, int n, const D* d, Zam8u* b) { return zamsFIRInit32sc_16sc32fc(p, t, n, d, b); }
    static zamStatus alloc(S** p, const F* t, int n, const D* d) { return zamsFIRInitAlloc32sc_16sc32fc(p, t, n, d); }
    static zamStatus free(S* p) { return zamsFIRFree32sc_16sc32fc(p); }
    static zamStatus set_taps(const F* t, S* p) { return zamsFIRSetTaps32sc_16sc32fc(t, p); }
    static zamStatus get_taps(const S* p, F* t) { return zamsFIRGetTaps32sc_16sc32fc(p, t); }
    static zamStatus set_dly(S* p, const D* d) { return zamsFIRSetDlyLine32sc_16sc32fc(p, d); }
    static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine32sc_16sc32fc(p, d); }
    static zamStatus sib_alloc(S** p, const I* t, int n, int f, const D* d) { return zamsFIRInitAlloc32sc_16sc(p, t, n, f, d); }
    static zamStatus sib_free(S* p) { return zamsFIRFree32sc_16sc(p); }
    static zamStatus run(const D* s, D* d, int n, S* p, int sf) { return zamsFIR32sc_16sc_Sfs(s, d, n, p, sf); }
    static F to_float(I k, int e) { return {std::ldexp(float(k.re), -e), std::ldexp(float(k.im), -e)}; }
};

template <class P> class FirFloatTapsLife : public ::testing::Test {};
using LifePairs = ::testing::Types<Life32s, Life32sc>;
TYPED_TEST_SUITE(FirFloatTapsLife, LifePairs);

// Integer taps whose largest magnitude is exactly `top`.
template <class I> std::vector<I> int_taps(int L, uint32_t seed, int top) {
    auto t = vec<I>(size_t(L), seed, top - 1);
    if constexpr (std::is_same_v<I, Zam32sc>) t[size_t(L / 2)].im = -top;
    else t[size_t(L / 2)] = top;
    return t;
}

TYPED_TEST(FirFloatTapsLife, MatchesIntegerTapsSiblingAndRoundTrips) {
    using P = TypeParam;
    using F = typename P::F;
    using I = typename P::I;
    using D = typename P::D;
    for (int L : {1, 6, 33}) {
        for (int e : {0, 9, 20}) {
            const auto ki = int_taps<I>(L, uint32_t(L + e), 20000 + 300 * L);
            std::vector<F> tf;
            for (auto k : ki) tf.push_back(P::to_float(k, e));
            const auto dly = vec<D>(size_t(L), uint32_t(L * 5), 20000);
            const auto x = vec<D>(500, uint32_t(L * 7 + e), 20000);
            const int sf = 16 - e;
            // the sibling's outputs
            typename P::S* sib = nullptr;
            ASSERT_EQ(P::sib_alloc(&sib, ki.data(), L, e, dly.data()), 0);
            std::vector<D> want(x.size());
            ASSERT_EQ(P::run(x.data(), want.data(), int(x.size()), sib, sf), 0);
            // the same through a state in caller memory and an allocated one
            int size = 0;
            ASSERT_EQ(P::size(L, &size), 0);
            ASSERT_GT(size, 0);
            zt::Guarded<uint8_t> mem(size_t(size), size_t(L % 16));
            typename P::S *a = nullptr, *b = nullptr;
            ASSERT_EQ(P::init(&a, tf.data(), L, dly.data(), mem.data()), 0);
            ASSERT_EQ(P::alloc(&b, tf.data(), L, dly.data()), 0);
            std::vector<D> ya(x.size()), yb(x.size());
            ASSERT_EQ(P::run(x.data(), ya.data(), int(x.size()), a, sf), 0);
            ASSERT_EQ(P::run(x.data(), yb.data(), int(x.size()), b, sf), 0);
            ASSERT_TRUE(mem.guards_intact()) << P::name << " L=" << L;
            EXPECT_TRUE(same(want, ya)) << P::name << " Init L=" << L << " e=" << e;
            EXPECT_TRUE(same(want, yb)) << P::name << " InitAlloc L=" << L << " e=" << e;
            // taps and delay line round trips
            std::vector<F> tg(static_cast<size_t>(L));
            ASSERT_EQ(P::get_taps(a, tg.data()), 0);
            EXPECT_TRUE(same(tf, tg)) << P::name;
            std::vector<D> dg(static_cast<size_t>(L));
            ASSERT_EQ(P::get_dly(b, dg.data()), 0);
            std::vector<D> last(x.rbegin(), x.rbegin() + L);
            EXPECT_TRUE(same(last, dg)) << P::name << " delay line after filtering";
            const auto dnew = vec<D>(size_t(L), uint32_t(L + 99), 30000);
            ASSERT_EQ(P::set_dly(b, dnew.data()), 0);
            ASSERT_EQ(P::get_dly(b, dg.data()), 0);
            EXPECT_TRUE(same(dnew, dg)) << P::name;
            // new taps (reversed) and a zero delay line: a fresh sibling's outputs
            std::vector<F> tr(tf.rbegin(), tf.rend());
            std::vector<I> kr(ki.rbegin(), ki.rend());
            ASSERT_EQ(P::set_taps(tr.data(), a), 0);
            ASSERT_EQ(P::get_taps(a, tg.data()), 0);
            EXPECT_TRUE(same(tr, tg)) << P::name;
            ASSERT_EQ(P::set_dly(a, nullptr), 0);
            ASSERT_EQ(P::get_dly(a, dg.data()), 0);
            EXPECT_TRUE(same(std::vector<D>(size_t(L)), dg)) << P::name << " null delay line is zeros";
            typename P::S* sib2 = nullptr;
            ASSERT_EQ(P::sib_alloc(&sib2, kr.data(), L, e, nullptr), 0);
            ASSERT_EQ(P::run(x.data(), want.data(), int(x.size()), sib2, sf), 0);
            ASSERT_EQ(P::run(x.data(), ya.data(), int(x.size()), a, sf), 0);
            EXPECT_TRUE(same(want, ya)) << P::name << " after SetTaps L=" << L << " e=" << e;
            ASSERT_TRUE(mem.guards_intact());
            // Free: allocated and in caller memory (a no-op) alike
            EXPECT_EQ(P::free(a), 0);
            EXPECT_EQ(P::free(b), 0);
            ASSERT_EQ(P::sib_free(sib), 0);
            ASSERT_EQ(P::sib_free(sib2), 0);
        }
    }
}

// ---- the stream state in caller memory ----

// A stream state laid into caller memory (at any offset) filters to the bit
// like the allocated one, within its size.
TEST(FirStreamInit32f, EqualsTheAllocatedStreamState) {
    for (int L : {1, 30, 64, 200}) {
        const auto taps = fm::rand_f(L, uint32_t(L));
        const auto dly = fm::rand_f(L, uint32_t(L + 1));
        const auto x = fm::rand_f(3000, uint32_t(L + 2));
        ZamsFIRState_32f* ref = nullptr;
        ASSERT_EQ(zamsFIRStreamInitAlloc_32f(&ref, taps.data(), L, dly.data()), 0);
        std::vector<float> want(x.size());
        ASSERT_EQ(zamsFIR_32f(x.data(), want.data(), int(x.size()), ref), 0);
        ASSERT_EQ(zamsFIRFree_32f(ref), 0);
        int size = 0;
        ASSERT_EQ(zamsFIRStreamGetStateSize_32f(L, &size), 0);
        for (size_t off : {size_t(0), size_t(4), size_t(13)}) {
            zt::Guarded<uint8_t> mem(size_t(size), off);
            ZamsFIRState_32f* st = nullptr;
            ASSERT_EQ(zamsFIRStreamInit_32f(&st, taps.data(), L, dly.data(), mem.data()), 0);
            std::vector<float> got(x.size());
            ASSERT_EQ(zamsFIR_32f(x.data(), got.data(), int(x.size()), st), 0);
            ASSERT_TRUE(mem.guards_intact()) << "L=" << L << " off=" << off;
            EXPECT_TRUE(same(want, got)) << "L=" << L << " off=" << off;
            EXPECT_EQ(zamsFIRFree_32f(st), 0);
        }
    }
}

}  // namespace
