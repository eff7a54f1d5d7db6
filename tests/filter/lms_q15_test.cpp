// Q15 LMS: the Direct form and the multirate states against a long double
// model of the Q15 step (exact: every product and sum stays below 2^64),
// multirate use (outputs at half the input rate), saturation, statuses.
#include <cfenv>
#include <cmath>
#include <complex>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

#include "digest.h"
#include "harness.h"

namespace {

using LD = long double;
using LC = std::complex<LD>;

// x / 2^k rounded to nearest, ties to even (the default rounding direction).
LD rdiv(LD x, int k) { return std::nearbyint(std::ldexp(x, -k)); }
LD sat(LD v, LD lo, LD hi) { return v < lo ? lo : v > hi ? hi : v; }
constexpr LD k32lo = -2147483648.0L, k32hi = 2147483647.0L;

// The model keeps taps and history as long doubles (integers); span order.
struct Model {
    std::vector<LC> t, hist;  // hist: newest last
    int mu;
    Model(int n, int m) : t(size_t(n)), hist(size_t(n)), mu(m) {}
    void put(LC x) {
        hist.erase(hist.begin());
        hist.push_back(x);
    }
    LC sum() const {
        LC s = 0;
        for (size_t j = 0; j < t.size(); ++j) s += t[j] * hist[j];
        return s;
    }
    LC out(LD lo, LD hi) const {
        const LC s = sum();
        return {sat(rdiv(s.real(), 15), lo, hi), sat(rdiv(s.imag(), 15), lo, hi)};
    }
    void update(LC e) {
        for (size_t j = 0; j < t.size(); ++j) {
            const LC p = LD(mu) * e * std::conj(hist[j]);
            t[j] = {sat(t[j].real() + rdiv(p.real(), 29), k32lo, k32hi), sat(t[j].imag() + rdiv(p.imag(), 29), k32lo, k32hi)};
        }
    }
};

LC wide(Zam32s v) { return LC(v, 0); }
LC wide(Zam16s v) { return LC(v, 0); }
LC wide(Zam32sc v) { return LC(v.re, v.im); }
LC wide(Zam16sc v) { return LC(v.re, v.im); }

TEST(LmsDirectQ15, MatchesTheModel) {
    for (int L : {1, 4, 9, 33}) {
        for (int mu : {0, 1, 300, 32767}) {
            auto t = zt::random_ints<Zam16s>(size_t(L), uint32_t(L));  // Q15 taps in [-1, 1)
            std::vector<Zam32s> taps(t.begin(), t.end());
            auto x = zt::random_ints<Zam16s>(300, 2), r = zt::random_ints<Zam16s>(300, 3);
            Model m(L, mu);
            for (int j = 0; j < L; ++j) m.t[size_t(j)] = taps[size_t(j)];
            std::vector<Zam16s> line(size_t(2 * L), 0);
            int idx = 0;
            for (size_t i = 0; i < x.size(); ++i) {
                Zam16s y = 0;
                ASSERT_EQ(zamsFIRLMSOne_DirectQ15_16s(x[i], r[i], &y, taps.data(), L, mu, line.data(), &idx), 0);
                m.put(x[i]);
                const LC my = m.out(-32768, 32767);
                ASSERT_EQ(LD(y), my.real()) << L << " " << mu << " " << i;
                m.update(LC(LD(r[i]) - my.real()));
                for (int j = 0; j < L; ++j) ASSERT_EQ(LD(taps[size_t(j)]), m.t[size_t(j)].real()) << L << " " << mu << " " << i;
            }
        }
    }
}

// The multirate state, both kinds: outputs at every second input, the error
// fed back by UpdateTaps, all against the model; taps and lines read back.
template <class S, class T, class State, auto Alloc, auto Put, auto One, auto OneVal, auto Update, auto GetTaps, auto GetLine, auto GetVal, auto Free>
void multirate_against_model(std::vector<S> x, std::vector<T> h, std::vector<T> ref) {
    const int L = int(h.size()), mu = 2000;
    State* p = nullptr;
    ASSERT_EQ(Alloc(&p, h.data(), L, nullptr, 0, mu), 0);
    Model m(L, mu);
    for (int j = 0; j < L; ++j) m.t[size_t(j)] = wide(h[size_t(L - 1 - j)]);
    for (size_t i = 0; i + 1 < x.size(); i += 2) {
        T y{};
        ASSERT_EQ(Put(x[i], p), 0);
        m.put(wide(x[i]));
        if (i % 4 == 0) {
            ASSERT_EQ(OneVal(x[i + 1], &y, p), 0);
        } else {
            ASSERT_EQ(Put(x[i + 1], p), 0);
            ASSERT_EQ(One(&y, p), 0);
        }
        m.put(wide(x[i + 1]));
        const LC my = m.out(k32lo, k32hi);
        ASSERT_EQ(wide(y), my) << i;
        const LC e = wide(ref[i / 2]) - my;
        T err;
        if constexpr (std::is_same_v<T, Zam32s>) err = Zam32s(e.real());
        else err = T{Zam32s(e.real()), Zam32s(e.imag())};
        ASSERT_EQ(Update(err, p), 0);
        m.update(e);
    }
    std::vector<T> got(static_cast<size_t>(L));
    ASSERT_EQ(GetTaps(p, got.data()), 0);
    for (int k = 0; k < L; ++k) EXPECT_EQ(wide(got[size_t(k)]), m.t[size_t(L - 1 - k)]);
    std::vector<S> line(static_cast<size_t>(L));
    ASSERT_EQ(GetLine(p, line.data()), 0);
    for (int k = 0; k < L; ++k) EXPECT_EQ(wide(line[size_t(k)]), m.hist[size_t(k)]);
    S v{};
    ASSERT_EQ(GetVal(p, &v, 0), 0);
    EXPECT_EQ(wide(v), m.hist.back());
    ASSERT_EQ(GetVal(p, &v, L - 1), 0);
    EXPECT_EQ(wide(v), m.hist.front());
    EXPECT_EQ(GetVal(p, &v, L), -5);
    EXPECT_EQ(GetVal(p, &v, -1), -5);
    EXPECT_EQ(Free(p), 0);
}

TEST(LmsMR, RealAgainstModel) {
    for (int L : {1, 7, 24}) {
        auto x = zt::random_ints<Zam16s>(400, 5), r = zt::random_ints<Zam16s>(200, 6);
        auto h16 = zt::random_ints<Zam16s>(size_t(L), 7);
        std::vector<Zam32s> h(h16.begin(), h16.end()), ref(r.begin(), r.end());
        multirate_against_model<Zam16s, Zam32s, ZamsFIRLMSMRState32s_16s, zamsFIRLMSMRInitAlloc32s_16s,
                                zamsFIRLMSMRPutVal32s_16s, zamsFIRLMSMROne32s_16s, zamsFIRLMSMROneVal32s_16s,
                                zamsFIRLMSMRUpdateTaps32s_16s, zamsFIRLMSMRGetTaps32s_16s, zamsFIRLMSMRGetDlyLine32s_16s,
                                zamsFIRLMSMRGetDlyVal32s_16s, zamsFIRLMSMRFree32s_16s>(x, h, ref);
    }
}

template <class C, class P> std::vector<C> complex_of(const std::vector<P>& v) {
    std::vector<C> c(v.size() / 2);
    for (size_t i = 0; i < c.size(); ++i) c[i] = C{v[2 * i], v[2 * i + 1]};
    return c;
}

std::vector<Zam32s> ints32(size_t n, uint32_t seed) {
    auto v = zt::random_ints<Zam16s>(n, seed);
    return {v.begin(), v.end()};
}

TEST(LmsMR, ComplexAgainstModel) {
    for (int L : {1, 5, 16}) {
        auto x = complex_of<Zam16sc>(zt::random_ints<Zam16s>(800, 8));
        auto h = complex_of<Zam32sc>(ints32(size_t(2 * L), 9));
        auto r = complex_of<Zam32sc>(ints32(400, 10));
        multirate_against_model<Zam16sc, Zam32sc, ZamsFIRLMSMRState32sc_16sc, zamsFIRLMSMRInitAlloc32sc_16sc,
                                zamsFIRLMSMRPutVal32sc_16sc, zamsFIRLMSMROne32sc_16sc, zamsFIRLMSMROneVal32sc_16sc,
                                zamsFIRLMSMRUpdateTaps32sc_16sc, zamsFIRLMSMRGetTaps32sc_16sc,
                                zamsFIRLMSMRGetDlyLine32sc_16sc, zamsFIRLMSMRGetDlyVal32sc_16sc,
                                zamsFIRLMSMRFree32sc_16sc>(x, h, r);
    }
}

// Extremes saturate instead of wrapping: full-scale data and taps, large errors.
TEST(LmsMR, SaturatesAtTheExtremes) {
    const int L = 4;
    std::vector<Zam32s> h(L, INT32_MAX);
    ZamsFIRLMSMRState32s_16s* p = nullptr;
    ASSERT_EQ(zamsFIRLMSMRInitAlloc32s_16s(&p, h.data(), L, nullptr, 0, 32767), 0);
    Zam32s y = 0;
    for (int i = 0; i < L; ++i) ASSERT_EQ(zamsFIRLMSMROneVal32s_16s(32767, &y, p), 0);
    EXPECT_EQ(y, INT32_MAX);  // 4 x (2^31 - 1) x 32767 / 2^15 leaves the 32-bit range
    ASSERT_EQ(zamsFIRLMSMRUpdateTaps32s_16s(INT32_MAX, p), 0);
    ASSERT_EQ(zamsFIRLMSMRGetTaps32s_16s(p, h.data()), 0);
    for (Zam32s t : h) EXPECT_EQ(t, INT32_MAX);
    ASSERT_EQ(zamsFIRLMSMRUpdateTaps32s_16s(INT32_MIN, p), 0);
    ASSERT_EQ(zamsFIRLMSMRUpdateTaps32s_16s(INT32_MIN, p), 0);
    ASSERT_EQ(zamsFIRLMSMRGetTaps32s_16s(p, h.data()), 0);
    for (Zam32s t : h) EXPECT_EQ(t, INT32_MIN);  // 2^31 - 1 - 2 x 4 x 32767^2, saturated
    Zam16s yd = 0, line[8] = {};
    Zam32s taps[L] = {INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX};
    int idx = 0;
    for (int i = 0; i < L; ++i) ASSERT_EQ(zamsFIRLMSOne_DirectQ15_16s(-32768, 0, &yd, taps, L, 0, line, &idx), 0);
    EXPECT_EQ(yd, -32768);
    EXPECT_EQ(zamsFIRLMSMRFree32s_16s(p), 0);
}

TEST(LmsMR, StatusesAndSetters) {
    ZamsFIRLMSMRState32s_16s* p = nullptr;
    ZamsFIRLMSMRState32sc_16sc* c = nullptr;
    EXPECT_EQ(zamsFIRLMSMRInitAlloc32s_16s(&p, nullptr, 3, nullptr, 0, -1), -5);
    EXPECT_EQ(zamsFIRLMSMRInitAlloc32s_16s(&p, nullptr, 3, nullptr, 0, 32768), -5);
    EXPECT_EQ(zamsFIRLMSMRInitAlloc32sc_16sc(&c, nullptr, 1 << 29, nullptr, 0, 5), -9);
    EXPECT_EQ(p, nullptr);
    const Zam32s h[3] = {1, 2, 3};
    const Zam16s d[3] = {10, 20, 30};
    ASSERT_EQ(zamsFIRLMSMRInitAlloc32s_16s(&p, h, 3, d, 4, 5), 0);  // index 4 is 1 modulo 3
    Zam16s line[3], v = 0;
    ASSERT_EQ(zamsFIRLMSMRGetDlyLine32s_16s(p, line), 0);
    EXPECT_EQ(line[0], 20);
    EXPECT_EQ(line[2], 10);
    ASSERT_EQ(zamsFIRLMSMRSetDlyLine32s_16s(p, d), 0);
    ASSERT_EQ(zamsFIRLMSMRGetDlyVal32s_16s(p, &v, 0), 0);
    EXPECT_EQ(v, 30);
    Zam32s t[3] = {7, 8, 9};
    ASSERT_EQ(zamsFIRLMSMRSetTaps32s_16s(p, t), 0);
    ASSERT_EQ(zamsFIRLMSMRGetTaps32s_16s(p, t + 0), 0);
    EXPECT_EQ(t[2], 9);
    Zam32s* tp = nullptr;
    ASSERT_EQ(zamsFIRLMSMRGetTapsPointer32s_16s(p, &tp), 0);
    EXPECT_EQ(tp[0], 9);  // kept in span order
    ASSERT_EQ(zamsFIRLMSMRSetMu32s_16s(p, 0), 0);
    EXPECT_EQ(zamsFIRLMSMRSetMu32s_16s(p, 40000), -5);
    ASSERT_EQ(zamsFIRLMSMRUpdateTaps32s_16s(1000, p), 0);  // mu 0: no change
    ASSERT_EQ(zamsFIRLMSMRGetTaps32s_16s(p, t), 0);
    EXPECT_EQ(t[0], 7);
    EXPECT_EQ(zamsFIRLMSMRFree32s_16s(nullptr), 0);
    EXPECT_EQ(zamsFIRLMSMRFree32s_16s(p), 0);
    // The Direct form's mu.
    Zam32s tq[2] = {};
    Zam16s l2[4] = {}, yq = 5;
    int idx = 0;
    EXPECT_EQ(zamsFIRLMSOne_DirectQ15_16s(1, 1, &yq, tq, 2, -1, l2, &idx), -5);
    EXPECT_EQ(yq, 5);
    EXPECT_EQ(l2[0], 0);
}

// The taps pointer is the state's own (span order): a write through it is
// the filter's; the complex setters round-trip.
TEST(LmsMR, TapsPointerAndComplexSetters) {
    const Zam32sc h[2] = {{1, 2}, {3, 4}};
    ZamsFIRLMSMRState32sc_16sc* c = nullptr;
    ASSERT_EQ(zamsFIRLMSMRInitAlloc32sc_16sc(&c, h, 2, nullptr, 0, 10), 0);
    Zam32sc t[2], *tp = nullptr, y{};
    ASSERT_EQ(zamsFIRLMSMRGetTapsPointer32sc_16sc(c, &tp), 0);
    EXPECT_EQ(tp[0].re, 3);
    tp[1] = Zam32sc{0, 32768};  // j on the newest sample
    tp[0] = Zam32sc{0, 0};
    ASSERT_EQ(zamsFIRLMSMROneVal32sc_16sc(Zam16sc{100, -7}, &y, c), 0);
    EXPECT_EQ(y.re, 7);
    EXPECT_EQ(y.im, 100);
    const Zam32sc h2[2] = {{-1, -2}, {-3, -4}};
    ASSERT_EQ(zamsFIRLMSMRSetTaps32sc_16sc(c, h2), 0);
    ASSERT_EQ(zamsFIRLMSMRGetTaps32sc_16sc(c, t), 0);
    EXPECT_EQ(t[1].im, -4);
    ASSERT_EQ(zamsFIRLMSMRSetMu32sc_16sc(c, 0), 0);
    const Zam16sc d2[2] = {{1, 1}, {2, 2}};
    Zam16sc line[2];
    ASSERT_EQ(zamsFIRLMSMRSetDlyLine32sc_16sc(c, d2), 0);
    ASSERT_EQ(zamsFIRLMSMRGetDlyLine32sc_16sc(c, line), 0);
    EXPECT_EQ(line[1].re, 2);
    EXPECT_EQ(zamsFIRLMSMRFree32sc_16sc(c), 0);
}

ZAMS_DIGEST(lms_q15) {
    auto x = zt::random_ints<Zam16s>(600, 51), r = zt::random_ints<Zam16s>(600, 52);
    auto t16 = zt::random_ints<Zam16s>(20, 53);
    std::vector<Zam32s> t(t16.begin(), t16.end());
    std::vector<Zam16s> line(40, 0), y(x.size());
    int idx = 0;
    for (size_t i = 0; i < x.size(); ++i)
        d.status(zamsFIRLMSOne_DirectQ15_16s(x[i], r[i], &y[i], t.data(), 20, 700, line.data(), &idx));
    d.add(y);
    d.add(t);
    ZamsFIRLMSMRState32sc_16sc* c = nullptr;
    d.status(zamsFIRLMSMRInitAlloc32sc_16sc(&c, nullptr, 10, nullptr, 0, 900));
    std::vector<Zam32sc> out(300);
    for (size_t i = 0; i < out.size(); ++i) {
        d.status(zamsFIRLMSMROneVal32sc_16sc(Zam16sc{x[2 * i], x[2 * i + 1]}, &out[i], c));
        d.status(zamsFIRLMSMRUpdateTaps32sc_16sc(Zam32sc{r[2 * i] - out[i].re, r[2 * i + 1] - out[i].im}, c));
    }
    d.add(out);
    d.status(zamsFIRLMSMRFree32sc_16sc(c));
}

}  // namespace
