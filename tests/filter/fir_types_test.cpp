// Every taps/data pair: sizes and Init at every misalignment, filtering
// against a long double sum (floating data) or to the bit against a model
// of the sum and the conversion rules (integer data), blocks against one
// call, in place, one sample at a time, the Direct forms against the state
// forms and each other, taps and delay line round trips, and the float-taps
// integer states against their integer-taps siblings.
#include <algorithm>
#include <cmath>
#include <vector>

#include "digest.h"
#include "fir_model.h"

namespace {

using fm::LC;
using fm::LD;

using fm::is_int_v;
using zt::same_bits;
using fm::vec;

// One pair's exports behind one signature each (factor and scale factor
// passed where the pair takes them): the state forms and the Direct forms.
#define PAIR(...) PAIR_DEF(__VA_ARGS__)  // lets DIRECTS(...) expand to its four names first
#define PAIR_DEF(NAME, SUF, ST, TT, DT, RUN, RUN_I, ONE, F, FA, SV, DIR, DIR_I, DONE, DONE_I)                     \
    struct NAME {                                                                                               \
        using T = TT;                                                                                           \
        using D = DT;                                                                                           \
        using S = ST;                                                                                           \
        static constexpr const char* name = #SUF;                                                               \
        static constexpr bool factor = F;                                                                       \
        static zamStatus size(int n, int* s) { return zamsFIRGetStateSize##SUF(n, s); }                         \
        static zamStatus init(S** p, const T* t, int n, [[maybe_unused]] int f, const D* d, Zam8u* b) {         \
            return zamsFIRInit##SUF(p, t, n FA(), d, b);                                                          \
        }                                                                                                       \
        static zamStatus init_alloc(S** p, const T* t, int n, [[maybe_unused]] int f, const D* d) {             \
            return zamsFIRInitAlloc##SUF(p, t, n FA(), d);                                                        \
        }                                                                                                       \
        static zamStatus free(S* p) { return zamsFIRFree##SUF(p); }                                             \
        static zamStatus set_taps(const T* t, S* p, [[maybe_unused]] int f) {                                   \
            return zamsFIRSetTaps##SUF(t, p FA());                                                                \
        }                                                                                                       \
        static zamStatus get_taps(const S* p, T* t) { return zamsFIRGetTaps##SUF(p, t); }                       \
        static zamStatus set_dly(S* p, const D* d) { return zamsFIRSetDlyLine##SUF(p, d); }                     \
        static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine##SUF(p, d); }                     \
        static zamStatus run(const D* s, D* d, int n, S* p, [[maybe_unused]] int sf) { return RUN(s, d, n, p SV()); } \
        static zamStatus run_i(D* sd, int n, S* p, [[maybe_unused]] int sf) { return RUN_I(sd, n, p SV()); }      \
        static zamStatus one(D x, D* y, S* p, [[maybe_unused]] int sf) { return ONE(x, y, p SV()); }              \
        static zamStatus direct(const D* s, D* d, int n, const T* t, int L, [[maybe_unused]] int f, D* dl, int* ix, \
                                [[maybe_unused]] int sf) {                                                      \
            return DIR(s, d, n, t, L FA(), dl, ix SV());                                                            \
        }                                                                                                       \
        static zamStatus direct_i(D* sd, int n, const T* t, int L, [[maybe_unused]] int f, D* dl, int* ix,      \
                                  [[maybe_unused]] int sf) {                                                    \
            return DIR_I(sd, n, t, L FA(), dl, ix SV());                                                            \
        }                                                                                                       \
        static zamStatus one_direct(D s, D* d, const T* t, int L, [[maybe_unused]] int f, D* dl, int* ix,       \
                                    [[maybe_unused]] int sf) {                                                  \
            return DONE(s, d, t, L FA(), dl, ix SV());                                                              \
        }                                                                                                       \
        static zamStatus one_direct_i(D* sd, const T* t, int L, [[maybe_unused]] int f, D* dl, int* ix,         \
                                      [[maybe_unused]] int sf) {                                                \
            return DONE_I(sd, t, L FA(), dl, ix SV());                                                              \
        }                                                                                                       \
    };
// The factor and scale-factor arguments, as macros called in PAIR_DEF.
#define NOF()
#define WF() , f
#define NOS()
#define WS() , sf

// A one-sample form for pairs that have none: a one-sample block.
#define ONE_BY_BLOCK(RUN)                                                                                       \
    [](auto x, auto* y, auto* p, auto... sf) { return RUN(&x, y, 1, p, sf...); }

// The 32s taps with a factor go through the Direct forms with double taps.
std::vector<double> taps64(const Zam32s* t, int L, int f) {
    std::vector<double> td(t, t + L);
    for (auto& v : td) v = std::ldexp(v, -f);
    return td;
}
zamStatus d32s(const Zam32s* s, Zam32s* d, int n, const Zam32s* t, int L, int f, Zam32s* dl, int* ix, int sf) {
    return zamsFIR64f_Direct_32s_Sfs(s, d, n, taps64(t, L, f).data(), L, dl, ix, sf);
}
zamStatus d32s_i(Zam32s* sd, int n, const Zam32s* t, int L, int f, Zam32s* dl, int* ix, int sf) {
    return zamsFIR64f_Direct_32s_ISfs(sd, n, taps64(t, L, f).data(), L, dl, ix, sf);
}
zamStatus d32s_one(Zam32s s, Zam32s* d, const Zam32s* t, int L, int f, Zam32s* dl, int* ix, int sf) {
    return zamsFIROne64f_Direct_32s_Sfs(s, d, taps64(t, L, f).data(), L, dl, ix, sf);
}
zamStatus d32s_one_i(Zam32s* sd, const Zam32s* t, int L, int f, Zam32s* dl, int* ix, int sf) {
    return zamsFIROne64f_Direct_32s_ISfs(sd, taps64(t, L, f).data(), L, dl, ix, sf);
}

// The Direct forms of a pair named PFX_Direct_SUF: block, in place, one sample, one sample in place.
#define DIRECTS(PFX, SUF, OUT, IN)                                                                              \
    zamsFIR##PFX##_Direct_##SUF##OUT, zamsFIR##PFX##_Direct_##SUF##IN, zamsFIROne##PFX##_Direct_##SUF##OUT,     \
        zamsFIROne##PFX##_Direct_##SUF##IN

PAIR(P32fc, _32fc, ZamsFIRState_32fc, Zam32fc, Zam32fc, zamsFIR_32fc, zamsFIR_32fc_I, ONE_BY_BLOCK(zamsFIR_32fc), false, NOF, NOS, DIRECTS(, 32fc, , _I))
PAIR(P64f, _64f, ZamsFIRState_64f, Zam64f, Zam64f, zamsFIR_64f, zamsFIR_64f_I, zamsFIROne_64f, false, NOF, NOS, DIRECTS(, 64f, , _I))
PAIR(P64fc, _64fc, ZamsFIRState_64fc, Zam64fc, Zam64fc, zamsFIR_64fc, zamsFIR_64fc_I, ONE_BY_BLOCK(zamsFIR_64fc), false, NOF, NOS, DIRECTS(, 64fc, , _I))
PAIR(P32s, _32s, ZamsFIRState64f_32s, Zam32s, Zam32s, zamsFIR_32s_Sfs, zamsFIR_32s_ISfs, ONE_BY_BLOCK(zamsFIR_32s_Sfs), true, WF, WS, d32s, d32s_i, d32s_one, d32s_one_i)
PAIR(P32fc16sc, 32fc_16sc, ZamsFIRState32fc_16sc, Zam32fc, Zam16sc, zamsFIR32fc_16sc_Sfs, zamsFIR32fc_16sc_ISfs, zamsFIROne32fc_16sc_Sfs, false, NOF, WS, DIRECTS(32fc, 16sc, _Sfs, _ISfs))
PAIR(P32s16s, 32s_16s, ZamsFIRState32s_16s, Zam32s, Zam16s, zamsFIR32s_16s_Sfs, zamsFIR32s_16s_ISfs, zamsFIROne32s_16s_Sfs, true, WF, WS, DIRECTS(32s, 16s, _Sfs, _ISfs))
PAIR(P32sc16sc, 32sc_16sc, ZamsFIRState32sc_16sc, Zam32sc, Zam16sc, zamsFIR32sc_16sc_Sfs, zamsFIR32sc_16sc_ISfs, ONE_BY_BLOCK(zamsFIR32sc_16sc_Sfs), true, WF, WS, DIRECTS(32sc, 16sc, _Sfs, _ISfs))
PAIR(P64f16s, 64f_16s, ZamsFIRState64f_16s, Zam64f, Zam16s, zamsFIR64f_16s_Sfs, zamsFIR64f_16s_ISfs, zamsFIROne64f_16s_Sfs, false, NOF, WS, DIRECTS(64f, 16s, _Sfs, _ISfs))
PAIR(P64f32s, 64f_32s, ZamsFIRState64f_32s, Zam64f, Zam32s, zamsFIR64f_32s_Sfs, zamsFIR64f_32s_ISfs, ONE_BY_BLOCK(zamsFIR64f_32s_Sfs), false, NOF, WS, DIRECTS(64f, 32s, _Sfs, _ISfs))
PAIR(P64f32f, 64f_32f, ZamsFIRState64f_32f, Zam64f, Zam32f, zamsFIR64f_32f, zamsFIR64f_32f_I, ONE_BY_BLOCK(zamsFIR64f_32f), false, NOF, NOS, DIRECTS(64f, 32f, , _I))
PAIR(P64fc16sc, 64fc_16sc, ZamsFIRState64fc_16sc, Zam64fc, Zam16sc, zamsFIR64fc_16sc_Sfs, zamsFIR64fc_16sc_ISfs, zamsFIROne64fc_16sc_Sfs, false, NOF, WS, DIRECTS(64fc, 16sc, _Sfs, _ISfs))
PAIR(P64fc32sc, 64fc_32sc, ZamsFIRState64fc_32sc, Zam64fc, Zam32sc, zamsFIR64fc_32sc_Sfs, zamsFIR64fc_32sc_ISfs, ONE_BY_BLOCK(zamsFIR64fc_32sc_Sfs), false, NOF, WS, DIRECTS(64fc, 32sc, _Sfs, _ISfs))
PAIR(P64fc32fc, 64fc_32fc, ZamsFIRState64fc_32fc, Zam64fc, Zam32fc, zamsFIR64fc_32fc, zamsFIR64fc_32fc_I, ONE_BY_BLOCK(zamsFIR64fc_32fc), false, NOF, NOS, DIRECTS(64fc, 32fc, , _I))
PAIR(P16s, _16s, ZamsFIRState_16s, Zam16s, Zam16s, zamsFIR_16s_Sfs, zamsFIR_16s_ISfs, ONE_BY_BLOCK(zamsFIR_16s_Sfs), true, WF, WS, DIRECTS(, 16s, _Sfs, _ISfs))
PAIR(P32f16s, 32f_16s, ZamsFIRState32f_16s, Zam32f, Zam16s, zamsFIR32f_16s_Sfs, zamsFIR32f_16s_ISfs, zamsFIROne32f_16s_Sfs, false, NOF, WS, DIRECTS(32f, 16s, _Sfs, _ISfs))

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
                ASSERT_EQ(P::run_i(io.data(), int(n), st, sf), 0);
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
        EXPECT_TRUE(same_bits(tg, b)) << P::name << " L=" << L;
        EXPECT_TRUE(same_bits(dg, db)) << P::name << " L=" << L;
        ASSERT_EQ(P::run(x.data(), y1.data(), 300, set, sf), 0);
        ASSERT_EQ(P::run(x.data(), y2.data(), 300, fresh, sf), 0);
        EXPECT_TRUE(same_bits(y1, y2)) << P::name << " L=" << L;
        ASSERT_EQ(P::free(set), 0);
        ASSERT_EQ(P::free(fresh), 0);
    }
}

// A delay line of 2L samples with every sample at i and i + L.
template <class P> std::vector<typename P::D> line(int L, uint32_t seed) {
    auto h = vec<typename P::D>(size_t(L), seed, data_lim<P>());
    std::vector<typename P::D> dl(h);
    dl.insert(dl.end(), h.begin(), h.end());
    return dl;
}

// The Direct forms give the state forms' outputs (to the bit where they
// share the arithmetic; 16-bit taps' states keep their taps exactly here);
// from equal delay lines and indices, the in-place block (in uneven
// pieces), the one-sample form and the in-place one-sample form give the
// block form's outputs to the bit and leave the same delay line and index.
TYPED_TEST(FirTypes, DirectFormsEqualTheStateFormAndEachOther) {
    using P = TypeParam;
    using T = typename P::T;
    using D = typename P::D;
    for (int L : {1, 5, 16, 40}) {
        const int f = P::factor ? 1 : 0, sf = is_int_v<D> ? (L % 2 ? 14 : 1) : 0;  // 14 keeps the 16-bit-taps sums in range
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
        // the other forms against one block call from a random line
        const auto dl0 = line<P>(L, uint32_t(L + 1));
        const int ix0 = (3 * L) / 4;
        std::vector<D> want(x.size()), dlw(dl0), got(x), dl1(dl0), dl2(dl0), dl3(dl0);
        int ixw = ix0, ix1 = ix0, ix2 = ix0, ix3 = ix0;
        ASSERT_EQ(P::direct(x.data(), want.data(), int(x.size()), taps.data(), L, f, dlw.data(), &ixw, sf), 0);
        for (size_t done = 0, n = 1; done < x.size(); done += n) {
            n = std::min(x.size() - done, n * 3);
            ASSERT_EQ(P::direct_i(got.data() + done, int(n), taps.data(), L, f, dl1.data(), &ix1, sf), 0);
        }
        EXPECT_TRUE(same_bits(want, got)) << P::name << " in place L=" << L;
        for (size_t n = 0; n < x.size(); ++n) {
            D y{}, z = x[n];
            ASSERT_EQ(P::one_direct(x[n], &y, taps.data(), L, f, dl2.data(), &ix2, sf), 0);
            ASSERT_EQ(P::one_direct_i(&z, taps.data(), L, f, dl3.data(), &ix3, sf), 0);
            ASSERT_EQ(0, std::memcmp(&y, &want[n], sizeof(D))) << P::name << " one L=" << L << " n=" << n;
            ASSERT_EQ(0, std::memcmp(&z, &want[n], sizeof(D))) << P::name << " one_i L=" << L << " n=" << n;
        }
        EXPECT_TRUE(same_bits(dlw, dl1) && same_bits(dlw, dl2) && same_bits(dlw, dl3)) << P::name << " L=" << L;
        EXPECT_TRUE(ix1 == ixw && ix2 == ixw && ix3 == ixw) << P::name << " L=" << L;
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
    D v[4] = {}, dl[4] = {}, out[2] = {};
    for (int bad : {-1, 2, 1 << 30}) {
        int ix = bad;
        EXPECT_EQ(P::direct(v, out, 2, t2, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex);
        EXPECT_EQ(P::direct_i(v, 2, t2, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex);
        EXPECT_EQ(P::one_direct(v[0], out, t2, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex);
        EXPECT_EQ(P::one_direct_i(v, t2, 2, 0, dl, &ix, 0), zamStatusBadDelayIndex);
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

// ---- float taps over the integer states: the integer-taps sibling ----

// Float taps k 2^-e with the largest |k| in (16383, 32766] are kept exactly
// as the integer taps k with factor e: the two states filter to the bit alike.
// A float-taps integer state (SUF) and its integer-taps sibling (SIB).
#define LIFE(NAME, SUF, SIB, FT, IT, DT, ST)                                                                   \
    struct NAME {                                                                                               \
        using F = FT;                                                                                           \
        using I = IT;                                                                                           \
        using D = DT;                                                                                           \
        using S = ST;                                                                                           \
        static constexpr const char* name = #SUF;                                                               \
        static zamStatus size(int n, int* s) { return zamsFIRGetStateSize##SUF(n, s); }                         \
        static zamStatus init(S** p, const F* t, int n, const D* d, Zam8u* b) { return zamsFIRInit##SUF(p, t, n, d, b); } \
        static zamStatus alloc(S** p, const F* t, int n, const D* d) { return zamsFIRInitAlloc##SUF(p, t, n, d); } \
        static zamStatus free(S* p) { return zamsFIRFree##SUF(p); }                                             \
        static zamStatus set_taps(const F* t, S* p) { return zamsFIRSetTaps##SUF(t, p); }                       \
        static zamStatus get_taps(const S* p, F* t) { return zamsFIRGetTaps##SUF(p, t); }                       \
        static zamStatus set_dly(S* p, const D* d) { return zamsFIRSetDlyLine##SUF(p, d); }                     \
        static zamStatus get_dly(const S* p, D* d) { return zamsFIRGetDlyLine##SUF(p, d); }                     \
        static zamStatus sib_alloc(S** p, const I* t, int n, int f, const D* d) { return zamsFIRInitAlloc##SIB(p, t, n, f, d); } \
        static zamStatus sib_free(S* p) { return zamsFIRFree##SIB(p); }                                         \
        static zamStatus run(const D* s, D* d, int n, S* p, int sf) { return zamsFIR##SIB##_Sfs(s, d, n, p, sf); } \
    };
LIFE(Life32s, 32s_16s32f, 32s_16s, Zam32f, Zam32s, Zam16s, ZamsFIRState32s_16s)
LIFE(Life32sc, 32sc_16sc32fc, 32sc_16sc, Zam32fc, Zam32sc, Zam16sc, ZamsFIRState32sc_16sc)
Zam32f to_float(Zam32s k, int e) { return std::ldexp(float(k), -e); }
Zam32fc to_float(Zam32sc k, int e) { return {std::ldexp(float(k.re), -e), std::ldexp(float(k.im), -e)}; }

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
            for (auto k : ki) tf.push_back(to_float(k, e));
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
            EXPECT_TRUE(same_bits(want, ya)) << P::name << " Init L=" << L << " e=" << e;
            EXPECT_TRUE(same_bits(want, yb)) << P::name << " InitAlloc L=" << L << " e=" << e;
            // taps and delay line round trips
            std::vector<F> tg(static_cast<size_t>(L));
            ASSERT_EQ(P::get_taps(a, tg.data()), 0);
            EXPECT_TRUE(same_bits(tf, tg)) << P::name;
            std::vector<D> dg(static_cast<size_t>(L));
            ASSERT_EQ(P::get_dly(b, dg.data()), 0);
            std::vector<D> last(x.rbegin(), x.rbegin() + L);
            EXPECT_TRUE(same_bits(last, dg)) << P::name << " delay line after filtering";
            const auto dnew = vec<D>(size_t(L), uint32_t(L + 99), 30000);
            ASSERT_EQ(P::set_dly(b, dnew.data()), 0);
            ASSERT_EQ(P::get_dly(b, dg.data()), 0);
            EXPECT_TRUE(same_bits(dnew, dg)) << P::name;
            // new taps (reversed) and a zero delay line: a fresh sibling's outputs
            std::vector<F> tr(tf.rbegin(), tf.rend());
            std::vector<I> kr(ki.rbegin(), ki.rend());
            ASSERT_EQ(P::set_taps(tr.data(), a), 0);
            ASSERT_EQ(P::get_taps(a, tg.data()), 0);
            EXPECT_TRUE(same_bits(tr, tg)) << P::name;
            ASSERT_EQ(P::set_dly(a, nullptr), 0);
            ASSERT_EQ(P::get_dly(a, dg.data()), 0);
            EXPECT_TRUE(same_bits(std::vector<D>(size_t(L)), dg)) << P::name << " null delay line is zeros";
            typename P::S* sib2 = nullptr;
            ASSERT_EQ(P::sib_alloc(&sib2, kr.data(), L, e, nullptr), 0);
            ASSERT_EQ(P::run(x.data(), want.data(), int(x.size()), sib2, sf), 0);
            ASSERT_EQ(P::run(x.data(), ya.data(), int(x.size()), a, sf), 0);
            EXPECT_TRUE(same_bits(want, ya)) << P::name << " after SetTaps L=" << L << " e=" << e;
            ASSERT_TRUE(mem.guards_intact());
            // Free: allocated and in caller memory (a no-op) alike
            EXPECT_EQ(P::free(a), 0);
            EXPECT_EQ(P::free(b), 0);
            ASSERT_EQ(P::sib_free(sib), 0);
            ASSERT_EQ(P::sib_free(sib2), 0);
        }
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
