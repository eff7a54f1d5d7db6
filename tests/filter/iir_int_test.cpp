// The integer-data IIR filters against a model in the taps' own precision:
// taps normalised by one reciprocal of a0 and products, the transposed
// direct form II step in the same order of operations, and each output
// scaled by 2^-sf, rounded half to even and saturated in long double.
#include <zams.h>

#include <gtest/gtest.h>

#include <math.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "digest.h"
#include "iir_api.h"

namespace {

using iirt::Ar;
using iirt::Bq;
using iirt::Form;

// Taps-precision arithmetic: F, or a complex pair of F in plain operations.
template <class F> struct Cm {
    F re, im;
};
template <class F> Cm<F> operator+(Cm<F> a, Cm<F> b) { return {a.re + b.re, a.im + b.im}; }
template <class F> Cm<F> operator-(Cm<F> a, Cm<F> b) { return {a.re - b.re, a.im - b.im}; }
template <class F> Cm<F> operator*(Cm<F> a, Cm<F> b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
template <class F> F inv(F a) { return F(1) / a; }
template <class F> Cm<F> inv(Cm<F> a) {
    const F d = a.re * a.re + a.im * a.im;
    return {a.re / d, -a.im / d};
}

// x 2^-sf to nearest, ties to even, saturated to I.
template <class I> I rounded(long double v, int sf) {
    const long double r = nearbyintl(ldexpl(v, -sf));
    const long double lo = std::numeric_limits<I>::min(), hi = std::numeric_limits<I>::max();
    return I(r < lo ? lo : (r > hi ? hi : r));
}

template <class D> struct part_of { using type = D; };
template <> struct part_of<Zam16sc> { using type = Zam16s; };
template <> struct part_of<Zam32sc> { using type = Zam32s; };

// One taps/data kind: its entries, and its types as the model sees them.
template <class S, class T, class D, class A> struct Kind {
    const char* name;
    zamStatus (*alloc)(S**, const T*, int, const T*);
    zamStatus (*allocBq)(S**, const T*, int, const T*);
    zamStatus (*free)(S*);
    zamStatus (*getDly)(T*, const S*);
    zamStatus (*filt)(const D*, D*, int, S*, int);
    zamStatus (*filtI)(D*, int, S*, int);
    zamStatus (*one)(D, D*, S*, int);
    bool hasBq;

    static constexpr bool cx = iirt::is_cx<T>;
    static A a_of(T v) {
        if constexpr (cx) return {v.re, v.im};
        else return v;
    }
    static A a_of_data(D v) {
        if constexpr (cx) return {decltype(A::re)(v.re), decltype(A::re)(v.im)};
        else return A(v);
    }
    static D out(A v, int sf) {
        using P = typename part_of<D>::type;
        if constexpr (cx) return {rounded<P>(v.re, sf), rounded<P>(v.im, sf)};
        else return rounded<P>(v, sf);
    }
};

#define KIND(SFX, BQ, S, T, D, A, HAS_BQ)                                                                         \
    Kind<S, T, D, A> {                                                                                            \
        #SFX, zamsIIRInitAlloc##SFX, zamsIIRInitAlloc##BQ, zamsIIRFree##SFX, zamsIIRGetDlyLine##SFX,               \
            zamsIIR##SFX##_Sfs, zamsIIR##SFX##_ISfs, zamsIIROne##SFX##_Sfs, HAS_BQ                                 \
    }

const auto k32f16s = KIND(32f_16s, 32f_BiQuad_16s, ZamsIIRState32f_16s, Zam32f, Zam16s, float, true);
const auto k64f16s = KIND(64f_16s, 64f_BiQuad_16s, ZamsIIRState64f_16s, Zam64f, Zam16s, double, true);
const auto k64f32s = KIND(64f_32s, 64f_32s, ZamsIIRState64f_32s, Zam64f, Zam32s, double, false);
const auto k32fc16sc = KIND(32fc_16sc, 32fc_BiQuad_16sc, ZamsIIRState32fc_16sc, Zam32fc, Zam16sc, Cm<float>, true);
const auto k64fc16sc = KIND(64fc_16sc, 64fc_BiQuad_16sc, ZamsIIRState64fc_16sc, Zam64fc, Zam16sc, Cm<double>, true);
const auto k64fc32sc = KIND(64fc_32sc, 64fc_BiQuad_32sc, ZamsIIRState64fc_32sc, Zam64fc, Zam32sc, Cm<double>, true);

// The model's filter: normalised taps and the transposed delay line.
template <class K, class A> struct Model {
    Form form;
    int n;
    std::vector<A> t, d;
    template <class T> Model(Form f, int order, const std::vector<T>& taps) : form(f), n(order) {
        if (f == Ar) {
            const A r = inv(K::a_of(taps[n + 1]));
            for (int k = 0; k <= n; ++k) t.push_back(r * K::a_of(taps[k]));
            for (int k = 1; k <= n; ++k) t.push_back(r * K::a_of(taps[n + 1 + k]));
            d.assign(n + 1, A{});
        } else {
            for (int s = 0; s < n; ++s) {
                const A r = inv(K::a_of(taps[6 * s + 3]));
                for (int i : {0, 1, 2, 4, 5}) t.push_back(r * K::a_of(taps[6 * s + i]));
            }
            d.assign(2 * n, A{});
        }
    }
    A step(A x) {
        if (form == Ar) {
            const A y = t[0] * x + d[0];
            for (int k = 0; k < n; ++k) d[k] = (t[k + 1] * x - t[n + k + 1] * y) + d[k + 1];
            return y;
        }
        for (int s = 0; s < n; ++s) {
            const A* c = &t[5 * s];
            A* w = &d[2 * s];
            const A y = c[0] * x + w[0];
            w[0] = (c[1] * x - c[3] * y) + w[1];
            w[1] = c[2] * x - c[4] * y;
            x = y;
        }
        return x;
    }
};

// Random samples: full range for 16-bit data, up to 2^30 for 32-bit.
template <class D> std::vector<D> samples(int len, uint32_t seed) {
    std::mt19937 g(seed);
    constexpr bool wide = std::is_same_v<D, Zam32s> || std::is_same_v<D, Zam32sc>;
    std::uniform_int_distribution<int> u(wide ? -(1 << 30) : -32768, wide ? (1 << 30) : 32767);
    std::vector<D> out(len);
    for (auto& x : out) {
        if constexpr (std::is_same_v<D, Zam16sc>) x = {Zam16s(u(g)), Zam16s(u(g))};
        else if constexpr (std::is_same_v<D, Zam32sc>) x = {u(g), u(g)};
        else x = D(u(g));
    }
    return out;
}

template <class D> bool equal(const std::vector<D>& a, const std::vector<D>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(D)) == 0;
}
template <class P> bool bound(P v) { return v == std::numeric_limits<P>::max() || v == std::numeric_limits<P>::min(); }
template <class D> bool at_bound(D v) {
    if constexpr (std::is_same_v<D, Zam16sc> || std::is_same_v<D, Zam32sc>) return bound(v.re) || bound(v.im);
    else return bound(v);
}

// One kind, one form: for every scale factor from -3 to 20 the one-call
// filter, random-sized in-place calls and the one-sample filter against
// the model, to the bit; the delay line after them holds the model's
// unrounded values. Returns the number of saturated outputs.
template <class S, class T, class D, class A>
int check_kind(const Kind<S, T, D, A>& k, Form form, int order, uint32_t seed) {
    using KK = Kind<S, T, D, A>;
    constexpr int kLen = 300;
    const auto taps = iirt::random_taps<T>(form, order, seed);
    const auto x = samples<D>(kLen, seed + 1);
    std::mt19937 g(seed + 2);
    int saturated = 0;
    for (int sf = -3; sf <= 20; ++sf) {
        Model<KK, A> m(form, order, taps);
        std::vector<D> want(kLen);
        for (int i = 0; i < kLen; ++i) want[i] = KK::out(m.step(KK::a_of_data(x[i])), sf);
        for (const D& v : want) saturated += at_bound(v);

        S* st[3] = {};
        for (auto*& p : st) EXPECT_EQ((form == Ar ? k.alloc : k.allocBq)(&p, taps.data(), order, nullptr), zamStatusOk);
        if (!st[0] || !st[1] || !st[2]) return saturated;
        std::vector<D> whole(kLen), pieces = x, ones(kLen);
        EXPECT_EQ(k.filt(x.data(), whole.data(), kLen, st[0], sf), zamStatusOk);
        for (int i = 0; i < kLen;) {
            const int n = std::min(kLen - i, std::uniform_int_distribution<int>(1, 40)(g));
            EXPECT_EQ(k.filtI(pieces.data() + i, n, st[1], sf), zamStatusOk);
            i += n;
        }
        for (int i = 0; i < kLen; ++i) EXPECT_EQ(k.one(x[i], &ones[i], st[2], sf), zamStatusOk);
        EXPECT_TRUE(equal(whole, want)) << k.name << " form " << form << " sf " << sf << ": one call";
        EXPECT_TRUE(equal(pieces, want)) << k.name << " form " << form << " sf " << sf << ": pieces in place";
        EXPECT_TRUE(equal(ones, want)) << k.name << " form " << form << " sf " << sf << ": one sample";

        std::vector<T> dly(m.d.size());
        EXPECT_EQ(k.getDly(dly.data(), st[2]), zamStatusOk);
        for (size_t i = 0; i + (form == Ar) < m.d.size(); ++i)
            EXPECT_EQ(std::memcmp(&dly[i], &m.d[i], sizeof(T)), 0) << k.name << " delay line value " << i;
        for (S* p : st) k.free(p);
    }
    return saturated;
}

template <class K> void check_all(const K& k, uint32_t seed) {
    int sat = 0;
    for (int order : {1, 2, 5, 9}) sat += check_kind(k, Ar, order, seed + order);
    if (k.hasBq)
        for (int n : {1, 3}) sat += check_kind(k, Bq, n, seed + 100 + n);
    EXPECT_GT(sat, 0) << k.name << ": no case reached saturation";
}

TEST(IirIntegerData, BitExactAgainstTheModel) {
    check_all(k32f16s, 10);
    check_all(k64f16s, 20);
    check_all(k64f32s, 30);
    check_all(k32fc16sc, 40);
    check_all(k64fc16sc, 50);
    check_all(k64fc32sc, 60);
}

// A null pointer before the length, the length before the state; a call
// refused leaves the state as it was.
TEST(IirIntegerData, Statuses) {
    const std::vector<Zam32f> taps = {1, 0.5f, 2, -0.5f};
    ZamsIIRState32f_16s* p = nullptr;
    ASSERT_EQ(zamsIIRInitAlloc32f_16s(&p, taps.data(), 1, nullptr), zamStatusOk);
    Zam16s src[4] = {1, 2, 3, 4}, dst[4] = {9, 9, 9, 9};
    EXPECT_EQ(zamsIIR32f_16s_Sfs(nullptr, dst, 0, p, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsIIR32f_16s_Sfs(src, dst, 0, nullptr, 0), zamStatusNullPointer);
    EXPECT_EQ(zamsIIR32f_16s_Sfs(src, dst, -1, reinterpret_cast<ZamsIIRState32f_16s*>(src), 0), zamStatusBadLength);
    EXPECT_EQ(zamsIIROne32f_16s_Sfs(1, nullptr, p, 0), zamStatusNullPointer);
    for (Zam16s v : dst) EXPECT_EQ(v, 9);
    // y = 0.5 (x + x[n-1]) + 0.25 y[n-1] after normalising by a0 = 2
    Zam16s y = 0;
    EXPECT_EQ(zamsIIROne32f_16s_Sfs(1000, &y, p, 0), zamStatusOk);
    EXPECT_EQ(y, 500);
    zamsIIRFree32f_16s(p);
}

// Pieces of a call land where they belong whatever the buffers' addresses.
TEST(IirIntegerData, BitsDoNotDependOnAddress) {
    const auto taps = iirt::random_taps<Zam64fc>(Bq, 2, 7);
    const auto x = samples<Zam16sc>(600, 8);
    std::vector<Zam16sc> out[2];
    for (int k = 0; k < 2; ++k) {
        std::vector<Zam16sc> src(x.size() + 3), dst(x.size() + 3);
        std::copy(x.begin(), x.end(), src.begin() + k);
        ZamsIIRState64fc_16sc* p = nullptr;
        ASSERT_EQ(zamsIIRInitAlloc64fc_BiQuad_16sc(&p, taps.data(), 2, nullptr), zamStatusOk);
        ASSERT_EQ(zamsIIR64fc_16sc_Sfs(src.data() + k, dst.data() + 1 + 2 * k, int(x.size()), p, 2), zamStatusOk);
        out[k].assign(dst.begin() + 1 + 2 * k, dst.begin() + 1 + 2 * k + x.size());
        zamsIIRFree64fc_16sc(p);
    }
    EXPECT_TRUE(equal(out[0], out[1]));
}

template <class S, class T, class D, class A> void digest_kind(zt::Digest& d, const Kind<S, T, D, A>& k) {
    for (Form form : {Ar, Bq}) {
        if (form == Bq && !k.hasBq) continue;
        const auto taps = iirt::random_taps<T>(form, 4, 77);
        const auto x = samples<D>(500, 78);
        for (int sf : {-2, 0, 3, 15}) {
            S* p = nullptr;
            (form == Ar ? k.alloc : k.allocBq)(&p, taps.data(), 4, nullptr);
            std::vector<D> y(x.size());
            d.status(k.filt(x.data(), y.data(), int(x.size()), p, sf));
            d.add(y);
            k.free(p);
        }
    }
}

ZAMS_DIGEST(iir_integer_data) {
    digest_kind(d, k32f16s);
    digest_kind(d, k64f16s);
    digest_kind(d, k64f32s);
    digest_kind(d, k32fc16sc);
    digest_kind(d, k64fc16sc);
    digest_kind(d, k64fc32sc);
}

}  // namespace
