// Window functions against their closed formulas in long double.
#include <cmath>
#include <functional>

#include "digest.h"
#include "harness.h"

namespace {

using LD = long double;
const LD kPi = 3.141592653589793238462643383279502884L;

enum W { Bartlett, Hann, Hamming, Blackman, BlackmanStd, BlackmanOpt, Kaiser, Count };
const char* const kNames[] = {"Bartlett", "Hann", "Hamming", "Blackman", "BlackmanStd", "BlackmanOpt", "Kaiser"};

// I0 by its power series, summed until the terms vanish.
LD i0(LD x) {
    LD sum = 1, term = 1, q = x * x / 4;
    for (int k = 1; k < 2000 && term > sum * 1e-21L; ++k) sum += term *= q / (LD(k) * k);
    return sum;
}

LD model(W w, int n, int len, LD alpha) {
    LD M = len - 1, c = std::cos(2 * kPi * n / M), c2 = std::cos(4 * kPi * n / M);
    switch (w) {
        case Bartlett: return n <= M / 2 ? 2 * n / M : 2 - 2 * n / M;
        case Hann: return 0.5L - 0.5L * c;
        case Hamming: return 0.54L - 0.46L * c;
        case BlackmanStd: alpha = LD(-0.16f); [[fallthrough]];
        case Blackman: return (alpha + 1) / 2 - 0.5L * c - alpha / 2 * c2;
        case BlackmanOpt: alpha = LD(float(-0.5L / (1 + std::cos(2 * kPi / M))));  // alpha is a float argument
            return (alpha + 1) / 2 - 0.5L * c - alpha / 2 * c2;
        case Kaiser:  // the library forms alpha M in single precision
            return i0(alpha * std::sqrt((M / 2) * (M / 2) - (n - M / 2) * (n - M / 2))) /
                   i0(LD(float(float(alpha) * float(M))) / 2);
        default: return 0;
    }
}

// Calls window w of one type through its out-of-place and in-place exports.
template <class T> struct Fns {
    zamStatus (*oop[Count])(const T*, T*, int);
    zamStatus (*inp[Count])(T*, int);
    zamStatus (*blackman)(const T*, T*, int, Zam32f);
    zamStatus (*blackman_i)(T*, int, Zam32f);
    zamStatus (*kaiser)(const T*, T*, int, Zam32f);
    zamStatus (*kaiser_i)(T*, int, Zam32f);
    zamStatus call(W w, const T* s, T* d, int n, float a) const {
        if (w == Blackman) return blackman(s, d, n, a);
        if (w == Kaiser) return kaiser(s, d, n, a);
        return oop[w](s, d, n);
    }
    zamStatus call_i(W w, T* io, int n, float a) const {
        if (w == Blackman) return blackman_i(io, n, a);
        if (w == Kaiser) return kaiser_i(io, n, a);
        return inp[w](io, n);
    }
};

#define FNS(T)                                                                                                 \
    Fns<Zam##T> fns_##T() {                                                                                   \
        return {{zamsWinBartlett_##T, zamsWinHann_##T, zamsWinHamming_##T, nullptr, zamsWinBlackmanStd_##T,      \
                 zamsWinBlackmanOpt_##T, nullptr},                                                            \
                {zamsWinBartlett_##T##_I, zamsWinHann_##T##_I, zamsWinHamming_##T##_I, nullptr,                \
                 zamsWinBlackmanStd_##T##_I, zamsWinBlackmanOpt_##T##_I, nullptr},                             \
                zamsWinBlackman_##T, zamsWinBlackman_##T##_I, zamsWinKaiser_##T, zamsWinKaiser_##T##_I};       \
    }
FNS(16s)
FNS(16sc)
FNS(32f)
FNS(32fc)
FNS(64f)
FNS(64fc)

int min_len(W w) { return w == Kaiser ? 1 : (w == BlackmanOpt ? 4 : 3); }
// Kaiser alphas keep |alpha| M / 2 within the single-precision limit.
float alpha_for(W w, int len) { return w != Kaiser ? 0.3f : (len <= 20 ? 2.5f : float(50.0 / (len - 1))); }

// A window applied to ones is the window: within a few ulp of the formula
// (the Kaiser Bessel approximation is good to about 2e-7) and symmetric to
// the bit.
template <class T> void ones_match_formula(const Fns<T>& f, LD tol, int max_len) {
    for (int w = 0; w < Count; ++w) {
        LD tw = w == Kaiser ? std::max(tol, 1e-6L) : tol;
        for (int len = min_len(W(w)); len <= max_len; len += len < 80 ? 1 : 97) {
            zt::Guarded<T> y(len, (len * 4) % 64);
            std::vector<T> one(len, T(1));
            ASSERT_EQ(f.call(W(w), one.data(), y.data(), len, alpha_for(W(w), len)), zamStatusOk);
            ASSERT_TRUE(y.guards_intact());
            for (int n = 0; n < len; ++n) {
                LD want = len == 1 ? 1 : model(W(w), n, len, alpha_for(W(w), len));
                ASSERT_NEAR(LD(y[n]), want, tw) << kNames[w] << " len " << len << " n " << n;
                ASSERT_EQ(zt::bits(y[n]), zt::bits(y[len - 1 - n])) << kNames[w] << " len " << len;
            }
        }
    }
}

TEST(Window, OnesMatchFormulaAndAreSymmetric) {
    int big = sizeof(void*) == 8 ? 5000 : 600;
    ones_match_formula(fns_64f(), 2e-15L, big);
    ones_match_formula(fns_32f(), 2e-7L, big);
}

template <class C, class P> std::vector<C> complex_of(const std::vector<P>& v) {
    std::vector<C> c(v.size() / 2);
    for (size_t i = 0; i < c.size(); ++i) c[i] = {v[2 * i], v[2 * i + 1]};
    return c;
}

// Each part of a complex result equals the real member applied to that part.
template <class C, class P> void parts_agree(const Fns<C>& fc, const Fns<P>& fr, W w, const std::vector<C>& x, float a) {
    const int len = int(x.size());
    std::vector<P> re(len), im(len), r(len), i2(len);
    for (int n = 0; n < len; ++n) re[n] = x[n].re, im[n] = x[n].im;
    std::vector<C> z(len);
    ASSERT_EQ(fc.call(w, x.data(), z.data(), len, a), zamStatusOk);
    ASSERT_EQ(fr.call(w, re.data(), r.data(), len, a), zamStatusOk);
    ASSERT_EQ(fr.call(w, im.data(), i2.data(), len, a), zamStatusOk);
    for (int n = 0; n < len; ++n) ASSERT_TRUE(z[n].re == r[n] && z[n].im == i2[n]) << kNames[w] << " " << n;
}

// The integer and complex members use the same coefficients: 16-bit
// results are the nearest integers (ties to even) to x w, and complex
// results are the real member applied to each part.
TEST(Window, IntegerAndComplexAgreeWithRealMembers) {
    const int len = 157;
    auto ints = zt::random_ints<Zam16s>(len, 3);
    auto ci = complex_of<Zam16sc>(zt::random_ints<Zam16s>(2 * len, 13));
    auto cf = complex_of<Zam32fc>(zt::random_reals<Zam32f>(2 * len, 4));
    auto cd = complex_of<Zam64fc>(zt::random_reals<Zam64f>(2 * len, 5));
    auto f16 = fns_16s();
    auto f64 = fns_64f();
    std::vector<Zam64f> one(len, 1.0), win(len);
    for (int w = 0; w < Count; ++w) {
        float a = alpha_for(W(w), len);
        ASSERT_EQ(f64.call(W(w), one.data(), win.data(), len, a), zamStatusOk);
        std::vector<Zam16s> y(len);
        ASSERT_EQ(f16.call(W(w), ints.data(), y.data(), len, a), zamStatusOk);
        for (int n = 0; n < len; ++n)  // Blackman with alpha 0.3 peaks slightly above 1: saturation
            ASSERT_LE(std::abs(y[n] - std::clamp(std::nearbyint(ints[n] * win[n]), -32768.0, 32767.0)), 1) << kNames[w];
        parts_agree(fns_16sc(), f16, W(w), ci, a);
        parts_agree(fns_32fc(), fns_32f(), W(w), cf, a);
        parts_agree(fns_64fc(), f64, W(w), cd, a);
    }
    // Ties go to even: Hann of length 5 is {0, 0.5, 1, 0.5, 0}.
    Zam16s t[5] = {9, 3, 7, 5, 9};
    ASSERT_EQ(zamsWinHann_16s_I(t, 5), zamStatusOk);
    const Zam16s want[5] = {0, 2, 7, 2, 0};
    for (int n = 0; n < 5; ++n) EXPECT_EQ(t[n], want[n]);
}

// In place, out of place with pSrc == pDst, and out of place agree, for
// every window and type, at several alignments.
template <class T> void in_place_agrees(const Fns<T>& f, const std::vector<T>& x) {
    int len = int(x.size());
    for (int w = 0; w < Count; ++w)
        for (size_t off : {size_t(0), size_t(4), size_t(sizeof(T) * 3), size_t(52)}) {
            zt::Guarded<T> a(len, off), b(len, off), c(len, off);
            std::vector<T> out(len);
            a.copy_from(x.data());
            b.copy_from(x.data());
            float al = alpha_for(W(w), len);
            ASSERT_EQ(f.call(W(w), x.data(), out.data(), len, al), zamStatusOk);
            ASSERT_EQ(f.call_i(W(w), a.data(), len, al), zamStatusOk);
            ASSERT_EQ(f.call(W(w), b.data(), b.data(), len, al), zamStatusOk);
            ASSERT_EQ(std::memcmp(a.data(), out.data(), len * sizeof(T)), 0) << kNames[w];
            ASSERT_EQ(std::memcmp(b.data(), out.data(), len * sizeof(T)), 0) << kNames[w];
            ASSERT_TRUE(a.guards_intact() && b.guards_intact());
        }
}

TEST(Window, InPlaceFormsAgree) {
    in_place_agrees(fns_16s(), zt::random_ints<Zam16s>(101, 7));
    in_place_agrees(fns_32f(), zt::random_reals<Zam32f>(101, 8));
    in_place_agrees(fns_64f(), zt::random_reals<Zam64f>(101, 9));
    in_place_agrees(fns_16sc(), complex_of<Zam16sc>(zt::random_ints<Zam16s>(202, 10)));
    in_place_agrees(fns_32fc(), complex_of<Zam32fc>(zt::random_reals<Zam32f>(202, 11)));
    in_place_agrees(fns_64fc(), complex_of<Zam64fc>(zt::random_reals<Zam64f>(202, 12)));
}

TEST(Window, DocumentedValuesAndShortPaths) {
    // Three-point Hann and Blackman write 0, the middle element and 0,
    // whatever the ends hold.
    Zam32f odd[3] = {INFINITY, 5, NAN}, y[3];
    ASSERT_EQ(zamsWinBlackman_32f(odd, y, 3, -3.0f), zamStatusOk);
    EXPECT_TRUE(y[0] == 0 && y[1] == 5 && y[2] == 0);
    Zam16sc c[3] = {{1, 2}, {3, 4}, {5, 6}};
    ASSERT_EQ(zamsWinHann_16sc_I(c, 3), zamStatusOk);
    EXPECT_TRUE(c[0].re == 0 && c[0].im == 0 && c[1].re == 3 && c[1].im == 4 && c[2].im == 0);
    // Kaiser of one element copies it, also with alpha 0.
    Zam64f k = -2.5, ko = 0;
    ASSERT_EQ(zamsWinKaiser_64f(&k, &ko, 1, 0.0f), zamStatusOk);
    EXPECT_EQ(ko, -2.5);
    // A negative alpha gives the same window: I0 is even.
    Zam64f a[9], b[9], one9[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    ASSERT_EQ(zamsWinKaiser_64f(one9, a, 9, 3.0f), zamStatusOk);
    ASSERT_EQ(zamsWinKaiser_64f(one9, b, 9, -3.0f), zamStatusOk);
    EXPECT_EQ(std::memcmp(a, b, sizeof a), 0);
    // Large Kaiser arguments take the asymptotic branch of I0.
    ASSERT_EQ(zamsWinKaiser_64f(one9, a, 9, 70.0f), zamStatusOk);
    EXPECT_NEAR(a[1] / double(i0(70 * std::sqrt(7.0L)) / i0(280)), 1.0, 1e-6);
}

TEST(Window, CheckOrder) {
    Zam32f x[12] = {}, y[12];
    std::fill(y, y + 12, 7.0f);
    EXPECT_EQ(zamsWinHann_32f(x, y, 2), zamStatusBadLength);
    EXPECT_EQ(zamsWinBlackmanOpt_32f(nullptr, nullptr, 3), zamStatusBadLength);
    EXPECT_EQ(zamsWinBlackmanOpt_32f_I(nullptr, 3), zamStatusBadLength);
    EXPECT_EQ(zamsWinKaiser_32f(x, y, 11, 7.7f), zamStatusWindowOverflow);
    EXPECT_EQ(zamsWinKaiser_32f(x, y, 11, -7.7f), zamStatusWindowOverflow);
    Zam32f one = 3, out = 0;
    EXPECT_EQ(zamsWinKaiser_32f(&one, &out, 1, 1e30f), zamStatusOk);  // M = 0: nothing to overflow
    EXPECT_EQ(out, 3.0f);
    Zam64f d[11] = {};
    EXPECT_EQ(zamsWinKaiser_64f(d, d, 11, 7.7f), zamStatusOk);
    EXPECT_EQ(zamsWinKaiser_64f(d, d, 11, 61.7f), zamStatusWindowOverflow);
    Zam16s s[11] = {};
    EXPECT_EQ(zamsWinKaiserQ15_16s_I(s, 11, 61 * 32768 + 22938), zamStatusWindowOverflow);  // 61.7 * 5 > 308
    EXPECT_EQ(zamsWinKaiserQ15_16s_I(s, 11, 61 * 32768), zamStatusOk);
    for (float v : y) EXPECT_EQ(v, 7.0f);
}

// Q15 members, in place and not, equal the float-alpha members at
// alpha = q / 32768.
template <class T> void q15_agrees(zamStatus (*q)(const T*, T*, int, int), zamStatus (*qi)(T*, int, int),
                                   zamStatus (*f)(const T*, T*, int, float), const std::vector<T>& x) {
    const int len = int(x.size());
    for (int k : {-5243, 0, 9830, 40000}) {
        std::vector<T> a(len), b(len), io = x;
        ASSERT_EQ(q(x.data(), a.data(), len, k), zamStatusOk);
        ASSERT_EQ(qi(io.data(), len, k), zamStatusOk);
        ASSERT_EQ(f(x.data(), b.data(), len, float(k) / 32768.0f), zamStatusOk);
        EXPECT_EQ(std::memcmp(a.data(), b.data(), len * sizeof(T)), 0) << k;
        EXPECT_EQ(std::memcmp(io.data(), b.data(), len * sizeof(T)), 0) << k;
    }
}

// The scaled form rounds x w 2^-sf once and saturates.
TEST(Window, Q15Forms) {
    const int len = 64;
    auto x = zt::random_ints<Zam16s>(len, 21);
    auto xc = complex_of<Zam16sc>(zt::random_ints<Zam16s>(2 * len, 22));
    q15_agrees(zamsWinBlackmanQ15_16s, zamsWinBlackmanQ15_16s_I, zamsWinBlackman_16s, x);
    q15_agrees(zamsWinBlackmanQ15_16sc, zamsWinBlackmanQ15_16sc_I, zamsWinBlackman_16sc, xc);
    q15_agrees(zamsWinKaiserQ15_16s, zamsWinKaiserQ15_16s_I, zamsWinKaiser_16s, x);
    q15_agrees(zamsWinKaiserQ15_16sc, zamsWinKaiserQ15_16sc_I, zamsWinKaiser_16sc, xc);
    for (int q : {-5243, 0, 9830, 40000})
        for (int sf : {-3, 0, 2, 40}) {
            auto io = x;
            ASSERT_EQ(zamsWinBlackmanQ15_16s_ISfs(io.data(), len, q, sf), zamStatusOk);
            std::vector<Zam64f> ones(len, 1.0), w(len);
            ASSERT_EQ(zamsWinBlackman_64f(ones.data(), w.data(), len, float(q) / 32768.0f), zamStatusOk);
            for (int n = 0; n < len; ++n) {
                LD v = std::nearbyint(LD(x[n]) * w[n] * std::ldexp(1.0L, -sf));
                ASSERT_LE(std::fabs(io[n] - std::clamp(v, -32768.0L, 32767.0L)), 1) << q << " " << sf << " " << n;
            }
        }
    EXPECT_EQ(zamsWinBlackmanQ15_16s_ISfs(x.data(), 2, 0, 0), zamStatusBadLength);
}

template <class T> void digest_type(zt::Digest& d, const Fns<T>& f, const std::vector<T>& x) {
    for (int w = 0; w < Count; ++w)
        for (int len : {4, 37, int(x.size())}) {
            std::vector<T> y(len);
            d.status(f.call(W(w), x.data(), y.data(), len, alpha_for(W(w), len)));
            d.add(y);
        }
}

ZAMS_DIGEST(windows) {
    digest_type(d, fns_16s(), zt::random_ints<Zam16s>(300, 31));
    digest_type(d, fns_32f(), zt::random_reals<Zam32f>(300, 32));
    digest_type(d, fns_64f(), zt::random_reals<Zam64f>(300, 33));
    digest_type(d, fns_16sc(), complex_of<Zam16sc>(zt::random_ints<Zam16s>(600, 34)));
    digest_type(d, fns_32fc(), complex_of<Zam32fc>(zt::random_reals<Zam32f>(600, 35)));
    digest_type(d, fns_64fc(), complex_of<Zam64fc>(zt::random_reals<Zam64f>(600, 36)));
    auto x = zt::random_ints<Zam16s>(300, 37);
    std::vector<Zam16s> y(300);
    for (int q : {-5243, 30000}) {
        d.status(zamsWinBlackmanQ15_16s(x.data(), y.data(), 300, q)); d.add(y);
        d.status(zamsWinKaiserQ15_16s(x.data(), y.data(), 300, q)); d.add(y);
        y = x;
        d.status(zamsWinBlackmanQ15_16s_ISfs(y.data(), 300, q, -2)); d.add(y);
    }
}

}  // namespace
