// Every taps/data pair: sizes and Init at every misalignment, filtering
// against a long double sum (floating data) or to the bit against a model
// of the sum and the conversion rules (integer data), blocks against one
// call, in place, one sample at a time, the Direct forms against the state
// forms, taps and delay line round trips, and foreign states.
#include <algorithm>
#include <cmath>
#include <vector>

#include "digest.h"
#include "fir_model.h"

namespace {

using fm::LC;
using fm::LD;

using fm::is_int_v;
using fm::same;
using fm::vec;

// One pair's exports behind one signature each (factor and scale factor
// passed where the pair takes them).
#define PAIR(NAME, SUF, ST, TT, DT, RUN, ONE, F, FA, FV, SA, SV, DIRECT)                                          \
    struct NAME {                                                                                               \
        using T = TT;                                                                                           \
        using D = DT;                                                                                           \
        using S = ST;                                                                                           \
        static constexpr const char* name = #SUF;                                                               \
        static constexpr bool factor = F;                                                                       \
        static zamStatus size(int n, int* s) { return zamsFIRGetStateSize##SUF(n, s); }                         \
        static zamStatus init(S** p, const T* t, int n, int f, const D* d, Zam8u* b) {                          \
            (void)f;                                                                                            \
            return zamsFIRInit##SUF(p, t, n FA, d, b);                                                          \
        }                                                                                                       \
        static zamStatus init_alloc(S** p, const T* t, int n, int f, const D* d) {                              \
            (void)f;                                                                                            \
            return zamsFIRInitAlloc##SUF(p, t, n FA, d);                                                        \
        }                                                                                                       \
        static zamStatus free(S* p) { return zamsFIRFree##SUF(p); }                                             \
        static zamStatus set_taps(const T* t, S* p, int f) {                                                    \
            (void)f;                                                                                            \
            return zamsFIRSetTaps##SUF(t, p FA);                                                                \
        }                                                                                                       \
        static zamStatus get_taps(const S* p, T* t) { return zamsFIRGetTaps##SUF(p, t); }                       \
        static zamStatus set_dly(S* p, const D* d) { return zamsFIRSetDlyLine##SUF(p, d); }                     \
        static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine##SUF(p, d); }                     \
        static zamStatus run(const D* s, D* d, int n, S* p, int sf) {                                           \
            (void)sf;                                                                                           \
            return RUN(s, d, n, p SV);                                                                          \
        }                                                                                                       \
        static zamStatus one(D x, D* y, S* p, int sf) {                                                         \
            (void)sf;                                                                                           \
            return ONE(x, y, p SV);                                                                             \
        }                                                                                                       \
        static zamStatus direct(const D* s, D* d, int n, const T* t, int L, int f, D* dl, int* ix, int sf) {    \
            (void)f;                                                                                            \
            (void)sf;                                                                                           \
            return DIRECT(s, d, n, t, L FA, dl, ix SV);                                                         \
        }                                                                                                       \
    };
#define NOF
#define WF , f
#define NOS
#define WS , sf

// A one-sample form for pairs that have none: a one-sample block.
#define ONE_BY_BLOCK(RUN)                                                                                       \
    [](auto x, auto* y, auto* p, auto... sf) { return RUN(&x, y, 1, p, sf...); }

// The 32s taps with a factor through the Direct form with double taps.
zamStatus direct_32s(const Zam32s* s, Zam32s* d, int n, const Zam32s* t, int L, int f, Zam32s* dl, int* ix, int sf) {
    std::vector<double> td(t, t + L);
    for (auto& v : td) v = std::ldexp(v, -f);
    return zamsFIR64f_Direct_32s_Sfs(s, d, n, td.data(), L, dl, ix, sf);
}

PAIR(P32fc, _32fc, ZamsFIRState_32fc, Zam32fc, Zam32fc, zamsFIR_32fc, ONE_BY_BLOCK(zamsFIR_32fc), false, NOF, 0, , NOS, zamsFIR_Direct_32fc)
PAIR(P64f, _64f, ZamsFIRState_64f, Zam64f, Zam64f, zamsFIR_64f, zamsFIROne_64f, false, NOF, 0, , NOS, zamsFIR_Direct_64f)
PAIR(P64fc, _64fc, ZamsFIRState_64fc, Zam64fc, Zam64fc, zamsFIR_64fc, ONE_BY_BLOCK(zamsFIR_64fc), false, NOF, 0, , NOS, zamsFIR_Direct_64fc)
PAIR(P32s, _32s, ZamsFIRState64f_32s, Zam32s, Zam32s, zamsFIR_32s_Sfs, ONE_BY_BLOCK(zamsFIR_32s_Sfs), true, WF, f, , WS, direct_32s)
PAIR(P32fc16sc, 32fc_16sc, ZamsFIRState32fc_16sc, Zam32fc, Zam16sc, zamsFIR32fc_16sc_Sfs, zamsFIROne32fc_16sc_Sfs, false, NOF, 0, , WS, zamsFIR32fc_Direct_16sc_Sfs)
PAIR(P32s16s, 32s_16s, ZamsFIRState32s_16s, Zam32s, Zam16s, zamsFIR32s_16s_Sfs, zamsFIROne32s_16s_Sfs, true, WF, f, , WS, zamsFIR32s_Direct_16s_Sfs)
PAIR(P32sc16sc, 32sc_16sc, ZamsFIRState32sc_16sc, Zam32sc, Zam16sc, zamsFIR32sc_16sc_Sfs, ONE_BY_BLOCK(zamsFIR32sc_16sc_Sfs), true, WF, f, , WS, zamsFIR32sc_Direct_16sc_Sfs)
PAIR(P64f16s, 64f_16s, ZamsFIRState64f_16s, Zam64f, Zam16s, zamsFIR64f_16s_Sfs, zamsFIROne64f_16s_Sfs, false, NOF, 0, , WS, zamsFIR64f_Direct_16s_Sfs)
PAIR(P64f32s, 64f_32s, ZamsFIRState64f_32s, Zam64f, Zam32s, zamsFIR64f_32s_Sfs, ONE_BY_BLOCK(zamsFIR64f_32s_Sfs), false, NOF, 0, , WS, zamsFIR64f_Direct_32s_Sfs)
PAIR(P64f32f, 64f_32f, ZamsFIRState64f_32f, Zam64f, Zam32f, zamsFIR64f_32f, ONE_BY_BLOCK(zamsFIR64f_32f), false, NOF, 0, , NOS, zamsFIR64f_Direct_32f)
PAIR(P64fc16sc, 64fc_16sc, ZamsFIRState64fc_16sc, Zam64fc, Zam16sc, zamsFIR64fc_16sc_Sfs, zamsFIROne64fc_16sc_Sfs, false, NOF, 0, , WS, zamsFIR64fc_Direct_16sc_Sfs)
PAIR(P64fc32sc, 64fc_32sc, ZamsFIRState64fc_32sc, Zam64fc, Zam32sc, zamsFIR64fc_32sc_Sfs, ONE_BY_BLOCK(zamsFIR64fc_32sc_Sfs), false, NOF, 0, , WS, zamsFIR64fc_Direct_32sc_Sfs)
PAIR(P64fc32fc, 64fc_32fc, ZamsFIRState64fc_32fc, Zam64fc, Zam32fc, zamsFIR64fc_32fc, ONE_BY_BLOCK(zamsFIR64fc_32fc), false, NOF, 0, , NOS, zamsFIR64fc_Direct_32fc)
PAIR(P16s, _16s, ZamsFIRState_16s, Zam16s, Zam16s, zamsFIR_16s_Sfs, ONE_BY_BLOCK(zamsFIR_16s_Sfs), true, WF, f, , WS, zamsFIR_Direct_16s_Sfs)
PAIR(P32f16s, 32f_16s, ZamsFIRState32f_16s, Zam32f, Zam16s, zamsFIR32f_16s_Sfs, zamsFIROne32f_16s_Sfs, false, NOF, 0, , WS, zamsFIR32f_Direct_16s_Sfs)

// The model of a pair's output n: the sum of reversed taps against the span
// oldest first, in the accumulator of the pair, written by the rule of its
// data type. Floating data: compared with the long double sum.
template <class P> struct Model {
    using T = typename P::T;
    using D = typename P::D;
    // The taps as the filter keeps them, and the total scale.
    static std::vector<LC> kept(const std::vector<T>& t, int f, int& scale) {
        std::vector<LC> k(t.size());
        scale = 0;
        if constexpr (std::is_same_v<P, P32s16s> || std::is_same_v<P, P32sc16sc>) {
            int64_t m = 0;
            for (auto& v : t) {
                LC w = fm::wide(v);
                m = std::max<int64_t>({m, std::llabs(int64_t(w.real())), std::llabs(int64_t(w.imag()))});
            }
            int s = 0;
            while (m > 32766) m >>= 1, ++s;
            for (size_t i = 0; i < t.size(); ++i) {
                LC w = fm::wide(t[i]);
                k[i] = LC(LD(int64_t(w.real()) >> s), LD(int64_t(w.imag()) >> s));
            }
            scale = s + f;
        } else if constexpr (std::is_same_v<P, P16s>) {
            for (size_t i = 0; i < t.size(); ++i) k[i] = fm::wide(t[i]);
            scale = f;
        } else if constexpr (std::is_same_v<P, P32s>) {
            for (size_t i = 0; i < t.size(); ++i) k[i] = fm::wide(t[i]) * LD(std::ldexp(1.0, -f));
        } else {
            for (size_t i = 0; i < t.size(); ++i) k[i] = fm::wide(t[i]);
        }
        return k;
    }
};

template <class D> LC widen(const D& v) { return fm::wide(v); }

// An exact or rounded sum written as D.
template <class P> typename P::D write(LC s, int scale, int sf) {
    using D = typename P::D;
    auto part = [&](LD v) -> LD {
        if constexpr (is_int_v<typename P::T> && !std::is_same_v<P, P32s>) return fm::scale16(int64_t(v), scale + sf);
        else if constexpr (std::is_same_v<D, Zam16s> || std::is_same_v<D, Zam16sc>) {
            if constexpr (std::is_same_v<typename P::T, Zam32f> || std::is_same_v<typename P::T, Zam32fc>)
                return fm::to16(float(double(v)), sf);
            else return fm::to16(double(v), sf);
        } else {
            double x = std::ldexp(double(v), -sf);
            x = std::nearbyint(x);
            return std::clamp(x, -2147483648.0, 2147483647.0);
        }
    };
    if constexpr (std::is_same_v<D, Zam16sc>) return D{Zam16s(part(s.real())), Zam16s(part(s.imag()))};
    else if constexpr (std::is_same_v<D, Zam32sc>) return D{Zam32s(part(s.real())), Zam32s(part(s.imag()))};
    else return D(part(s.real()));
}

// The sum the pair's arithmetic forms, in double (exact for integers).
template <class P>
LC pair_sum(const std::vector<LC>& kept, const std::vector<typename P::D>& hist, size_t end) {
    const size_t L = kept.size();
    double re = 0, im = 0;
    for (size_t k = 0; k < L; ++k) {
        const LC c = kept[L - 1 - k], x = widen(hist[end - L + k]);
        re += double(c.real()) * double(x.real()) - double(c.imag()) * double(x.imag());
        im += double(c.real()) * double(x.imag()) + double(c.imag()) * double(x.real());
    }
    return LC(re, im);
}

template <class P> class FirTypes : public ::testing::Test {};
using Pairs = ::testing::Types<P32fc, P64f, P64fc, P32s, P32fc16sc, P32s16s, P32sc16sc, P64f16s, P64f32s, P64f32f,
                               P64fc16sc, P64fc32sc, P64fc32fc, P16s, P32f16s>;
TYPED_TEST_SUITE(FirTypes, Pairs);

template <class P> int taps_lim() {
    return std::is_same_v<typename P::T, Zam16s> ? 30000 : is_int_v<typename P::T> ? 40000 : 1;
}
template <class P> int data_lim() { return std::is_same_v<typename P::D, Zam32s> || std::is_same_v<typename P::D, Zam32sc> ? 100000 : 3000; }

TYPED_TEST(FirTypes, FiltersByItsRulesInAnyBlocks) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    std::mt19937 g(5);
    for (int L : {1, 3, 17, 70}) {
        const int f = P::factor ? 3 : 0, sf = is_int_v<D> ? 2 : 0;
        auto taps = vec<T>(L, uint32_t(L), taps_lim<P>());
        auto dly = vec<D>(L, uint32_t(L + 1), data_lim<P>());
        auto x = vec<D>(700, uint32_t(L + 2), data_lim<P>());
        int size = 0;
        ASSERT_EQ(P::size(L, &size), 0);
        zt::Guarded<uint8_t> mem(size_t(size), size_t(L % 16));
        typename P::S* st = nullptr;
        ASSERT_EQ(P::init(&st, taps.data(), L, f, dly.data(), mem.data()), 0);
        // Model: the history oldest first, then the input.
        std::vector<D> hist(dly.rbegin(), dly.rend());
        hist.insert(hist.end(), x.begin(), x.end());
        int scale = 0;
        auto kept = Model<P>::kept(taps, f, scale);
        std::vector<D> y(x.size());
        size_t done = 0;
        while (done < x.size()) {
            const size_t n = std::min<size_t>(x.size() - done, 1 + g() % 150);
            if (n < 4) {
                for (size_t i = 0; i < n; ++i) ASSERT_EQ(P::one(x[done + i], &y[done + i], st, sf), 0);
            } else if (n % 2) {
                std::vector<D> io(x.begin() + long(done), x.begin() + long(done + n));
                ASSERT_EQ(P::run(io.data(), io.data(), int(n), st, sf), 0);
                std::copy(io.begin(), io.end(), y.begin() + long(done));
            } else {
                ASSERT_EQ(P::run(x.data() + done, y.data() + done, int(n), st, sf), 0);
            }
            done += n;
        }
        ASSERT_TRUE(mem.guards_intact());
        for (size_t n = 0; n < x.size(); ++n) {
            const size_t end = size_t(L) + n + 1;
            if constexpr (is_int_v<D>) {
                if constexpr (std::is_same_v<P, P32f16s>) continue;  // single-precision kernels: see below
                const D want = write<P>(pair_sum<P>(kept, hist, end), scale, sf);
                ASSERT_EQ(0, std::memcmp(&want, &y[n], sizeof(D))) << P::name << " L=" << L << " n=" << n;
            } else {
                LC s = 0;
                LD mag = 0;
                for (int k = 0; k < L; ++k) {
                    const LC v = widen(hist[end - 1 - size_t(k)]);
                    s += kept[size_t(k)] * v;
                    mag += std::abs(kept[size_t(k)]) * std::abs(v);
                }
                const LD eps = std::is_same_v<D, float> || std::is_same_v<D, Zam32fc> ? 1.2e-7L : 4e-16L;
                ASSERT_LE(std::abs(widen(y[n]) - s), eps * (mag + 1e-300L)) << P::name << " L=" << L << " n=" << n;
            }
        }
        std::vector<D> got(static_cast<size_t>(L));
        ASSERT_EQ(P::get_dly(st, got.data()), 0);
        for (int k = 0; k < L; ++k) ASSERT_EQ(0, std::memcmp(&got[size_t(k)], &x[x.size() - 1 - size_t(k)], sizeof(D)));
        std::vector<T> tg(static_cast<size_t>(L));
        ASSERT_EQ(P::get_taps(st, tg.data()), 0);
        ASSERT_EQ(0, std::memcmp(tg.data(), taps.data(), tg.size() * sizeof(T)));
        ASSERT_EQ(P::free(st), 0);
    }
}

// SetTaps and SetDlyLine make a state filter as one built with those taps
// and that line, and read back as given.
TYPED_TEST(FirTypes, SetTapsAndLineEqualAFreshState) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    for (int L : {1, 17, 70}) {
        const int f = P::factor ? 3 : 0, sf = is_int_v<D> ? 2 : 0;
        const auto a = vec<T>(L, 1, taps_lim<P>()), b = vec<T>(L, 2, taps_lim<P>());
        const auto da = vec<D>(L, 3, data_lim<P>()), db = vec<D>(L, 4, data_lim<P>());
        const auto x = vec<D>(300, 5, data_lim<P>());
        typename P::S *set = nullptr, *fresh = nullptr;
        ASSERT_EQ(P::init_alloc(&set, a.data(), L, f, da.data()), 0);
        ASSERT_EQ(P::init_alloc(&fresh, b.data(), L, f, db.data()), 0);
        ASSERT_EQ(P::set_taps(b.data(), set, f), 0);
        ASSERT_EQ(P::set_dly(set, db.data()), 0);
        std::vector<T> tg(b.size());
        std::vector<D> dg(db.size()), y1(x.size()), y2(x.size());
        ASSERT_EQ(P::get_taps(set, tg.data()), 0);
        ASSERT_EQ(P::get_dly(set, dg.data()), 0);
        EXPECT_TRUE(same(tg, b)) << P::name << " L=" << L;
        EXPECT_TRUE(same(dg, db)) << P::name << " L=" << L;
        ASSERT_EQ(P::run(x.data(), y1.data(), 300, set, sf), 0);
        ASSERT_EQ(P::run(x.data(), y2.data(), 300, fresh, sf), 0);
        EXPECT_TRUE(same(y1, y2)) << P::name << " L=" << L;
        ASSERT_EQ(P::free(set), 0);
        ASSERT_EQ(P::free(fresh), 0);
    }
}

// The Direct forms give the state forms' outputs (to the bit where they
// share the arithmetic; 16-bit taps' states keep their taps exactly here).
TYPED_TEST(FirTypes, DirectFormEqualsStateForm) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    for (int L : {1, 9, 40}) {
        const int f = P::factor ? 1 : 0, sf = is_int_v<D> ? 1 : 0;
        auto taps = vec<T>(L, uint32_t(L), is_int_v<T> ? 30000 : 1);
        auto x = vec<D>(300, 9, data_lim<P>());
        typename P::S* st = nullptr;
        ASSERT_EQ(P::init_alloc(&st, taps.data(), L, f, nullptr), 0);
        std::vector<D> a(x.size()), b(x.size()), dl(size_t(2 * L));
        int idx = L - 1;
        ASSERT_EQ(P::run(x.data(), a.data(), 300, st, sf), 0);
        ASSERT_EQ(P::direct(x.data(), b.data(), 300, taps.data(), L, f, dl.data(), &idx, sf), 0);
        for (size_t n = 0; n < x.size(); ++n) {
            const LC d = widen(a[n]) - widen(b[n]);
            const LD tol = is_int_v<D> ? (std::is_same_v<P, P32f16s> ? 1 : 0) : 1e-5L * (1 + std::abs(widen(a[n])));
            ASSERT_LE(std::abs(d), tol) << P::name << " L=" << L << " n=" << n;
        }
        ASSERT_EQ(P::free(st), 0);
    }
}

TYPED_TEST(FirTypes, InitAtEveryMisalignmentAndBadIndex) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    for (int L : {1, 50, 300}) {
        int size = 0;
        ASSERT_EQ(P::size(L, &size), 0);
        auto taps = vec<T>(L, 1, 100);
        auto x = vec<D>(600, 2, 100);
        std::vector<D> y(x.size());
        for (size_t off = 0; off < 16; ++off) {
            zt::Guarded<uint8_t> mem(size_t(size), off);
            typename P::S* st = nullptr;
            ASSERT_EQ(P::init(&st, taps.data(), L, 0, nullptr, mem.data()), 0);
            ASSERT_EQ(P::run(x.data(), y.data(), 600, st, 0), 0);
            ASSERT_TRUE(mem.guards_intact()) << P::name << " L=" << L << " off=" << off;
        }
    }
    // Direct forms: an index outside [0, tapsLen) is refused before anything is written.
    T t2[2] = {};
    D v[4] = {}, line[4] = {}, out[2] = {};
    for (int bad : {-1, 2, 1 << 30}) {
        int ix = bad;
        EXPECT_EQ(P::direct(v, out, 2, t2, 2, 0, line, &ix, 0), zamStatusBadDelayIndex);
        EXPECT_EQ(ix, bad);
    }
    std::vector<uint8_t> zero(8192, 0);  // the length is checked before the identifier
    EXPECT_EQ(P::run(v, v, 0, reinterpret_cast<typename P::S*>(zero.data()), 0), zamStatusBadLength);
}

// The 16-bit-data filter with float taps is the float filter on the
// converted samples, its results converted to nearest.
TEST(FirTypes32f16s, IsTheFloatFilterConverted) {
    for (int L : {5, 64, 300}) {
        auto taps = fm::rand_f(L, 1);
        auto x = fm::rand_16s(20000, 2);
        ZamsFIRState32f_16s* a = nullptr;
        ZamsFIRState_32f* b = nullptr;
        ASSERT_EQ(zamsFIRInitAlloc32f_16s(&a, taps.data(), L, nullptr), 0);
        ASSERT_EQ(zamsFIRInitAlloc_32f(&b, taps.data(), L, nullptr), 0);
        std::vector<Zam16s> y(x.size());
        ASSERT_EQ(zamsFIR32f_16s_Sfs(x.data(), y.data(), int(x.size()), a, 1), 0);
        // the same pieces through the float filter
        std::vector<float> xf(x.begin(), x.end()), yf(x.size());
        for (size_t i = 0; i < x.size(); i += 8448)
            ASSERT_EQ(zamsFIR_32f(xf.data() + i, yf.data() + i, int(std::min<size_t>(8448, x.size() - i)), b), 0);
        for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(y[i], fm::to16(yf[i], 1)) << "L=" << L << " i=" << i;
        ASSERT_EQ(zamsFIRFree32f_16s(a), 0);
        ASSERT_EQ(zamsFIRFree_32f(b), 0);
    }
}

// Integer taps above 32766 are shifted and the shift joins the scale.
TEST(FirTypes32s16s, ShiftRuleAt32766) {
    const Zam32s taps[2] = {32767, -4};
    const Zam16s x[3] = {1000, -3, 7};
    std::vector<uint8_t> mem(100000);
    ZamsFIRState32s_16s* st = nullptr;
    ASSERT_EQ(zamsFIRInit32s_16s(&st, taps, 2, 0, nullptr, mem.data()), 0);
    Zam16s y[3];
    ASSERT_EQ(zamsFIR32s_16s_Sfs(x, y, 3, st, 0), 0);
    // taps become {16383, -2} with a scale of 1
    EXPECT_EQ(y[0], fm::scale16(16383 * 1000, 1));
    EXPECT_EQ(y[1], fm::scale16(16383 * -3 - 2 * 1000, 1));
    EXPECT_EQ(y[2], fm::scale16(16383 * 7 - 2 * -3, 1));
    const Zam32s small[2] = {32766, -4};
    ASSERT_EQ(zamsFIRSetTaps32s_16s(small, st, 0), 0);
    ASSERT_EQ(zamsFIR32s_16s_Sfs(x, y, 1, st, 0), 0);
    EXPECT_EQ(y[0], fm::scale16(32766 * 1000 - 4 * 7, 0));
    int size = 0;
    for (int L = 1; L <= 300; ++L) {
        ASSERT_EQ(zamsFIRGetStateSize32s_16s(L, &size), 0);
        const int P = (L + 11) & ~7;
        ASSERT_EQ(size, ((4 * L + 15) & ~15) + ((2 * (P + 2 * L) + 8 + 15) & ~15) + 8 * P + 16992);
    }
}

// 16-bit taps at -32768 against samples at -32768: every pair of products
// still summed exactly.
TEST(FirTypes16s, ExtremeTapsAndSamplesSumExactly) {
    for (Zam16s top : {Zam16s(-32768), Zam16s(-32767)}) {
        std::vector<Zam16s> taps(40, top), x(200, -32768);
        ZamsFIRState_16s* st = nullptr;
        ASSERT_EQ(zamsFIRInitAlloc_16s(&st, taps.data(), 40, -5, nullptr), 0);
        std::vector<Zam16s> y(x.size());
        ASSERT_EQ(zamsFIR_16s_Sfs(x.data(), y.data(), 200, st, 20), 0);
        for (int n = 0; n < 200; ++n) ASSERT_EQ(y[size_t(n)], fm::scale16(int64_t(std::min(n + 1, 40)) * top * -32768, 15)) << n;
        ASSERT_EQ(zamsFIRFree_16s(st), 0);
    }
}

ZAMS_DIGEST(fir_types) {
    auto x = fm::rand_16s(1000, 3);
    auto t = fm::rand_f(33, 4);
    std::vector<double> td(t.begin(), t.end());
    std::vector<Zam16s> y(x.size());
    ZamsFIRState32f_16s* a = nullptr;
    d.status(zamsFIRInitAlloc32f_16s(&a, t.data(), 33, nullptr));
    d.status(zamsFIR32f_16s_Sfs(x.data(), y.data(), 1000, a, -2));
    d.add(y);
    zamsFIRFree32f_16s(a);
    ZamsFIRState64f_16s* b = nullptr;
    d.status(zamsFIRInitAlloc64f_16s(&b, td.data(), 33, nullptr));
    d.status(zamsFIR64f_16s_Sfs(x.data(), y.data(), 1000, b, 1));
    d.add(y);
    zamsFIRFree64f_16s(b);
}

}  // namespace
