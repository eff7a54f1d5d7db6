// The multirate FIR against a model that up-samples with zeros, filters
// with the whole taps in long double and keeps every D-th sample: every
// data type over a set of factors, phases and taps lengths; pieces of whole
// blocks and in place against one call; the delay line and taps; the
// 16-bit kinds bit-exact against the float kind and the integer rule, in
// pieces, in place and at any address;
// caller memory at every misalignment; the factor and phase checks.
#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "digest.h"
#include "fir_model.h"

namespace {

using fm::LC;
using fm::LD;

struct Rate {
    int L, U, up, D, dp;
};
// Up and down, either larger, equal, one of them 1, taps shorter than U.
const Rate kRates[] = {{96, 3, 0, 2, 0}, {31, 3, 2, 2, 1}, {17, 2, 1, 3, 2},  {50, 1, 0, 4, 3},
                       {7, 5, 3, 1, 0},  {33, 4, 1, 4, 2}, {1, 7, 6, 3, 0},   {100, 2, 0, 5, 4},
                       {300, 13, 5, 11, 7}, {5, 1, 0, 1, 0}, {64, 8, 7, 1, 0}, {40, 1, 0, 9, 8}};

int dly_len(const Rate& r) { return (r.L + r.U - 1) / r.U; }

// x extended by the delay line (newest first) and stuffed with zeros,
// filtered with every tap, every D-th sample kept from the phase; and each
// output's sum of term magnitudes.
template <class T, class X>
std::vector<LC> model(const std::vector<T>& taps, const Rate& r, const std::vector<X>& dly, const std::vector<X>& x,
                      std::vector<LD>* mag = nullptr) {
    const size_t H = size_t(dly_len(r)), U = size_t(r.U);
    std::vector<LC> u((H + x.size()) * U, 0);
    for (size_t i = 0; i < H; ++i) u[i * U + size_t(r.up)] = dly.empty() ? 0 : fm::wide(dly[H - 1 - i]);
    for (size_t i = 0; i < x.size(); ++i) u[(H + i) * U + size_t(r.up)] = fm::wide(x[i]);
    const size_t n = x.size() / size_t(r.D) * U;
    std::vector<LC> y(n);
    if (mag) mag->assign(n, 0);
    for (size_t j = 0; j < n; ++j) {
        const size_t at = H * U + j * size_t(r.D) + size_t(r.dp);
        for (size_t k = 0; k < taps.size() && k <= at; ++k) {
            y[j] += fm::wide(taps[k]) * u[at - k];
            if (mag) (*mag)[j] += std::abs(fm::wide(taps[k])) * std::abs(u[at - k]);
        }
    }
    return y;
}

template <class T> std::vector<T> rnd(int n, uint32_t seed) {
    auto v = fm::rand_f(2 * n, seed);
    std::vector<T> out(static_cast<size_t>(std::max(n, 0)));
    for (size_t i = 0; i < out.size(); ++i) {
        if constexpr (std::is_same_v<T, Zam32fc> || std::is_same_v<T, Zam64fc>) out[i] = {v[2 * i], v[2 * i + 1]};
        else out[i] = T(v[2 * i]);
    }
    return out;
}

// The entry points of a floating type, its multirate build and the
// single-rate operations that take the state.
template <class T, class S> struct Api {
    zamStatus (*size)(int, int, int, int*);
    zamStatus (*init)(S**, const T*, int, int, int, int, int, const T*, Zam8u*);
    zamStatus (*alloc)(S**, const T*, int, int, int, int, int, const T*);
    zamStatus (*filter)(const T*, T*, int, S*);
    zamStatus (*filterI)(T*, int, S*);
    zamStatus (*getDly)(const S*, T*);
    zamStatus (*setDly)(S*, const T*);
    zamStatus (*getTaps)(const S*, T*);
    zamStatus (*setTaps)(const T*, S*);
    zamStatus (*release)(S*);
    LD eps;  // of the precision the sums are rounded to
};
const Api<Zam32f, ZamsFIRState_32f> k32f{zamsFIRMRGetStateSize_32f, zamsFIRMRInit_32f, zamsFIRMRInitAlloc_32f,
                                         zamsFIR_32f, zamsFIR_32f_I, zamsFIRGetDlyLine_32f, zamsFIRSetDlyLine_32f,
                                         zamsFIRGetTaps_32f, zamsFIRSetTaps_32f, zamsFIRFree_32f, 6e-8L};
const Api<Zam32fc, ZamsFIRState_32fc> k32fc{
    zamsFIRMRGetStateSize_32fc, zamsFIRMRInit_32fc, zamsFIRMRInitAlloc_32fc, zamsFIR_32fc, zamsFIR_32fc_I,
    zamsFIRGetDlyLine_32fc, zamsFIRSetDlyLine_32fc, zamsFIRGetTaps_32fc, zamsFIRSetTaps_32fc, zamsFIRFree_32fc, 6e-8L};
const Api<Zam64f, ZamsFIRState_64f> k64f{zamsFIRMRGetStateSize_64f, zamsFIRMRInit_64f, zamsFIRMRInitAlloc_64f,
                                         zamsFIR_64f, zamsFIR_64f_I, zamsFIRGetDlyLine_64f, zamsFIRSetDlyLine_64f,
                                         zamsFIRGetTaps_64f, zamsFIRSetTaps_64f, zamsFIRFree_64f, 1.2e-16L};
const Api<Zam64fc, ZamsFIRState_64fc> k64fc{
    zamsFIRMRGetStateSize_64fc, zamsFIRMRInit_64fc, zamsFIRMRInitAlloc_64fc, zamsFIR_64fc, zamsFIR_64fc_I,
    zamsFIRGetDlyLine_64fc, zamsFIRSetDlyLine_64fc, zamsFIRGetTaps_64fc, zamsFIRSetTaps_64fc, zamsFIRFree_64fc,
    1.2e-16L};

// A state in caller memory of exactly the reported size.
template <class T, class S> struct State {
    std::vector<uint8_t> mem;
    S* p = nullptr;
    State(const Api<T, S>& a, const std::vector<T>& taps, const Rate& r, const T* dly) {
        int size = 0;
        EXPECT_EQ(a.size(r.L, r.U, r.D, &size), 0);
        mem.resize(static_cast<size_t>(size));
        EXPECT_EQ(a.init(&p, taps.data(), r.L, r.U, r.up, r.D, r.dp, dly, mem.data()), 0);
    }
};

template <class T, class S> void check_model(const Api<T, S>& a, const char* what) {
    uint32_t seed = 1;
    for (const Rate& r : kRates) {
        const int N = 37, H = dly_len(r);
        auto taps = rnd<T>(r.L, seed++), dly = rnd<T>(H, seed++), x = rnd<T>(N * r.D, seed++);
        State<T, S> st(a, taps, r, dly.data());
        std::vector<T> y(static_cast<size_t>(N * r.U));
        ASSERT_EQ(a.filter(x.data(), y.data(), N, st.p), 0);
        std::vector<LD> mag;
        const auto ref = model(taps, r, dly, x, &mag);
        const LD tol = a.eps * (H + 16);
        for (size_t j = 0; j < y.size(); ++j) {
            const LC d = fm::wide(y[j]) - ref[j];
            ASSERT_LE(std::abs(d), tol * mag[j] + a.eps * std::abs(ref[j])) << what << " L=" << r.L << " U=" << r.U
                                                                               << " D=" << r.D << " j=" << j;
        }
        // The delay line is the last inputs, newest first; the taps come back as given.
        std::vector<T> d(static_cast<size_t>(H)), t(static_cast<size_t>(r.L));
        ASSERT_EQ(a.getDly(st.p, d.data()), 0);
        ASSERT_TRUE(zt::same_bits(d, std::vector<T>(x.rbegin(), x.rbegin() + H))) << what;
        ASSERT_EQ(a.getTaps(st.p, t.data()), 0);
        ASSERT_TRUE(zt::same_bits(t, taps)) << what;
    }
}

TEST(FirMR, EveryFloatTypeMatchesTheZeroStuffingModel) {
    check_model(k32f, "32f");
    check_model(k32fc, "32fc");
    check_model(k64f, "64f");
    check_model(k64fc, "64fc");
}

// Whole blocks in pieces of random counts, and in place (in a vector of
// the longer length), give the bits of one call; so does an allocated state.
template <class T, class S> void check_pieces(const Api<T, S>& a, const char* what) {
    std::mt19937 g(7);
    uint32_t seed = 100;
    for (const Rate& r : kRates) {
        const int N = 300;
        auto taps = rnd<T>(r.L, seed++), x = rnd<T>(N * r.D, seed++);
        State<T, S> one(a, taps, r, nullptr), parts(a, taps, r, nullptr), inpl(a, taps, r, nullptr);
        std::vector<T> y(static_cast<size_t>(N * r.U)), yp(y.size());
        ASSERT_EQ(a.filter(x.data(), y.data(), N, one.p), 0);
        std::vector<T> buf(static_cast<size_t>(N * std::max(r.U, r.D)));
        for (int b = 0; b < N;) {
            const int n = std::min(N - b, 1 + int(g() % 40));
            ASSERT_EQ(a.filter(x.data() + b * r.D, yp.data() + b * r.U, n, parts.p), 0);
            std::copy(x.begin() + b * r.D, x.begin() + (b + n) * r.D, buf.begin());
            ASSERT_EQ(a.filterI(buf.data(), n, inpl.p), 0);
            ASSERT_TRUE(zt::same_bits(std::vector<T>(buf.begin(), buf.begin() + n * r.U),
                                  std::vector<T>(y.begin() + b * r.U, y.begin() + (b + n) * r.U)))
                << what << " in place U=" << r.U << " D=" << r.D << " b=" << b;
            b += n;
        }
        ASSERT_TRUE(zt::same_bits(y, yp)) << what << " U=" << r.U << " D=" << r.D;
        S* al = nullptr;
        ASSERT_EQ(a.alloc(&al, taps.data(), r.L, r.U, r.up, r.D, r.dp, nullptr), 0);
        ASSERT_EQ(a.filter(x.data(), yp.data(), N, al), 0);
        ASSERT_TRUE(zt::same_bits(y, yp)) << what;
        ASSERT_EQ(a.release(al), 0);
        ASSERT_EQ(a.release(one.p), 0);  // caller memory: nothing to release, the state stays usable
        ASSERT_EQ(a.filter(x.data(), yp.data(), 1, one.p), 0);
    }
}

TEST(FirMR, PiecesOfWholeBlocksAndInPlaceEqualOneCall) {
    check_pieces(k32f, "32f");
    check_pieces(k32fc, "32fc");
    check_pieces(k64f, "64f");
    check_pieces(k64fc, "64fc");
}

// SetTaps and SetDlyLine act like a fresh state built with them; a null
// delay line is zeros; the 32f stream state filters the same.
TEST(FirMR, SetTapsAndDelayLineActLikeAFreshState) {
    const Rate r{45, 4, 3, 3, 1};
    const int N = 50, H = dly_len(r);
    auto t1 = rnd<float>(r.L, 1), t2 = rnd<float>(r.L, 2), d2 = rnd<float>(H, 3), x = rnd<float>(N * r.D, 4);
    State<float, ZamsFIRState_32f> a(k32f, t1, r, d2.data()), b(k32f, t2, r, d2.data());
    std::vector<float> ya(static_cast<size_t>(N * r.U)), yb(ya.size()), d(static_cast<size_t>(H));
    ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), N, a.p), 0);
    ASSERT_EQ(zamsFIRSetTaps_32f(t2.data(), a.p), 0);
    ASSERT_EQ(zamsFIRSetDlyLine_32f(a.p, d2.data()), 0);
    ASSERT_EQ(zamsFIRGetDlyLine_32f(a.p, d.data()), 0);
    ASSERT_EQ(d, d2);
    ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), N, a.p), 0);
    ASSERT_EQ(zamsFIR_32f(x.data(), yb.data(), N, b.p), 0);
    ASSERT_TRUE(zt::same_bits(ya, yb));
    ASSERT_EQ(zamsFIRSetDlyLine_32f(a.p, nullptr), 0);
    ASSERT_EQ(zamsFIRGetDlyLine_32f(a.p, d.data()), 0);
    ASSERT_EQ(d, std::vector<float>(static_cast<size_t>(H), 0.0f));

    ZamsFIRState_32f* s = nullptr;
    int size = 0;
    ASSERT_EQ(zamsFIRMRStreamGetStateSize_32f(r.L, r.U, r.D, &size), 0);
    std::vector<uint8_t> mem(static_cast<size_t>(size));
    ASSERT_EQ(zamsFIRMRStreamInit_32f(&s, t2.data(), r.L, r.U, r.up, r.D, r.dp, d2.data(), mem.data()), 0);
    ASSERT_EQ(zamsFIRSetDlyLine_32f(b.p, d2.data()), 0);
    ASSERT_EQ(zamsFIR_32f(x.data(), ya.data(), N, s), 0);
    ASSERT_EQ(zamsFIR_32f(x.data(), yb.data(), N, b.p), 0);
    ASSERT_TRUE(zt::same_bits(ya, yb));
    ASSERT_EQ(zamsFIRMRStreamInitAlloc_32f(&s, t2.data(), r.L, r.U, r.up, r.D, r.dp, nullptr), 0);
    ASSERT_EQ(zamsFIRFree_32f(s), 0);
}

// Init into exactly the reported size at every misalignment writes nothing
// past it, and the outputs' bits depend on no address.
TEST(FirMR, CallerMemoryAtEveryMisalignment) {
    for (const Rate& r : {Rate{96, 3, 0, 2, 0}, Rate{33, 4, 1, 4, 2}, Rate{40, 1, 0, 9, 8}}) {
        const int N = 40;
        auto taps = rnd<float>(r.L, 5), x = rnd<float>(N * r.D, 6);
        std::vector<float> ref;
        int size = 0;
        ASSERT_EQ(zamsFIRMRGetStateSize_32f(r.L, r.U, r.D, &size), 0);
        for (size_t off = 0; off < 16; ++off) {
            zt::Guarded<uint8_t> buf(static_cast<size_t>(size), off);
            zt::Guarded<float> src(x.size(), (off * 4) % 32), dst(static_cast<size_t>(N * r.U), (off * 12) % 32);
            src.copy_from(x.data());
            ZamsFIRState_32f* p = nullptr;
            ASSERT_EQ(zamsFIRMRInit_32f(&p, taps.data(), r.L, r.U, r.up, r.D, r.dp, nullptr, buf.data()), 0);
            ASSERT_EQ(zamsFIR_32f(src.data(), dst.data(), N, p), 0);
            ASSERT_TRUE(buf.guards_intact() && src.guards_intact() && dst.guards_intact()) << "off=" << off;
            if (off == 0) ref = dst.to_vector();
            ASSERT_TRUE(zt::same_bits(dst.to_vector(), ref)) << "off=" << off;
        }
    }
}

// 32f taps over 16-bit data: the float filter on the converted samples,
// written rounding to nearest with the scale factor (saturating).
TEST(FirMR, FloatTapsOver16BitsAreTheFloatFilterConverted) {
    const Rate r{96, 3, 1, 2, 1};
    const int N = 400, H = dly_len(r);
    auto taps = rnd<float>(r.L, 8);
    for (float& t : taps) t *= 0.2f;
    auto x = fm::rand_16s(N * r.D, 9);
    auto d16 = fm::rand_16s(H, 10);
    std::vector<float> xf(x.begin(), x.end()), df(d16.begin(), d16.end());
    for (int sf : {-2, 0, 3}) {
        ZamsFIRState32f_16s* p = nullptr;
        int size = 0;
        ASSERT_EQ(zamsFIRMRGetStateSize32f_16s(r.L, r.U, r.D, &size), 0);
        std::vector<uint8_t> mem(static_cast<size_t>(size));
        if (sf == 0)
            ASSERT_EQ(zamsFIRMRInit32f_16s(&p, taps.data(), r.L, r.U, r.up, r.D, r.dp, d16.data(), mem.data()), 0);
        else
            ASSERT_EQ(zamsFIRMRInitAlloc32f_16s(&p, taps.data(), r.L, r.U, r.up, r.D, r.dp, d16.data()), 0);
        State<float, ZamsFIRState_32f> f(k32f, taps, r, df.data());
        std::vector<Zam16s> y(static_cast<size_t>(N * r.U)), want(y.size());
        std::vector<float> yf(y.size());
        // The first half out of place, the second in place where its outputs go.
        const int h = N / 2;
        ASSERT_EQ(zamsFIR32f_16s_Sfs(x.data(), y.data(), h, p, sf), 0);
        Zam16s* io = y.data() + h * r.U;
        std::copy(x.begin() + h * r.D, x.end(), io);
        ASSERT_EQ(zamsFIR32f_16s_ISfs(io, N - h, p, sf), 0);
        ASSERT_EQ(zamsFIR_32f(xf.data(), yf.data(), N, f.p), 0);
        for (size_t j = 0; j < y.size(); ++j) want[j] = fm::to16(yf[j], sf);
        ASSERT_EQ(y, want) << "sf=" << sf;
        std::vector<Zam16s> d(static_cast<size_t>(H));
        std::vector<float> t(static_cast<size_t>(r.L));
        ASSERT_EQ(zamsFIRGetDlyLine32f_16s(p, d.data()), 0);
        ASSERT_EQ(d, std::vector<Zam16s>(x.rbegin(), x.rbegin() + H));
        ASSERT_EQ(zamsFIRSetTaps32f_16s(taps.data(), p), 0);
        ASSERT_EQ(zamsFIRGetTaps32f_16s(p, t.data()), 0);
        ASSERT_EQ(t, taps);
        ASSERT_EQ(zamsFIRSetDlyLine32f_16s(p, nullptr), 0);
        ASSERT_EQ(zamsFIRFree32f_16s(p), 0);
    }
}

// Integer taps over 16-bit data: the taps shifted right until the largest
// is at most 32766 (or float taps scaled by a power of two to that bound),
// the exact sum scaled by the total and the scale factor.
TEST(FirMR, IntegerTapsOver16BitsAreExact) {
    const Rate r{70, 3, 2, 4, 1};
    const int N = 120, H = dly_len(r);
    auto x = fm::rand_16s(N * r.D, 11);
    auto dly = fm::rand_16s(H, 12);
    std::mt19937 g(13);
    for (int big : {20000, 70000, 1 << 30}) {
        std::vector<Zam32s> taps(static_cast<size_t>(r.L));
        for (auto& t : taps) t = Zam32s(int64_t(g() % (2u * uint32_t(big))) - big);
        int64_t m = 0;
        for (auto t : taps) m = std::max<int64_t>(m, std::abs(int64_t(t)));
        int s = 0;
        while ((m >> s) > 32766) ++s;
        std::vector<Zam16s> kept(taps.size());
        for (size_t k = 0; k < taps.size(); ++k) kept[k] = Zam16s(taps[k] >> s);
        const auto ref = model(kept, r, dly, x);
        for (int sf : {-1, 4}) {
            ZamsFIRState32s_16s* p = nullptr;
            ASSERT_EQ(zamsFIRMRInitAlloc32s_16s(&p, taps.data(), r.L, 2, r.U, r.up, r.D, r.dp, dly.data()), 0);
            std::vector<Zam16s> y(static_cast<size_t>(N * r.U));
            ASSERT_EQ(zamsFIR32s_16s_Sfs(x.data(), y.data(), N, p, sf), 0);
            for (size_t j = 0; j < y.size(); ++j)
                ASSERT_EQ(y[j], fm::scale16(int64_t(ref[j].real()), s + 2 + sf)) << "big=" << big << " j=" << j;
            std::vector<Zam32s> t(taps.size());
            ASSERT_EQ(zamsFIRGetTaps32s_16s(p, t.data()), 0);
            ASSERT_EQ(t, taps);
            ASSERT_EQ(zamsFIRFree32s_16s(p), 0);
        }
    }
    // Float taps: scaled by the largest power of two that keeps them within 32766.
    auto tf = rnd<float>(r.L, 14);
    float m = 0;
    for (float t : tf) m = std::max(m, std::fabs(t));
    int f = 0;
    while (std::ldexp(LD(m), f + 1) <= 32766) ++f;
    std::vector<Zam16s> kept(tf.size());
    for (size_t k = 0; k < tf.size(); ++k) kept[k] = Zam16s(std::nearbyint(std::ldexp(double(tf[k]), f)));
    const auto ref = model(kept, r, dly, x);
    ZamsFIRState32s_16s* p = nullptr;
    int size = 0;
    ASSERT_EQ(zamsFIRMRGetStateSize32s_16s32f(r.L, r.U, r.D, &size), 0);
    std::vector<uint8_t> mem(static_cast<size_t>(size));
    ASSERT_EQ(zamsFIRMRInit32s_16s32f(&p, tf.data(), r.L, r.U, r.up, r.D, r.dp, dly.data(), mem.data()), 0);
    std::vector<Zam16s> io(x);  // in place: D > U, the inputs are the longer
    ASSERT_EQ(zamsFIR32s_16s_ISfs(io.data(), N, p, 0), 0);
    for (size_t j = 0; j < size_t(N * r.U); ++j) ASSERT_EQ(io[j], fm::scale16(int64_t(ref[j].real()), f)) << j;
    std::vector<float> t(tf.size());
    ASSERT_EQ(zamsFIRGetTaps32s_16s32f(p, t.data()), 0);
    ASSERT_EQ(t, tf);
    ASSERT_EQ(zamsFIRMRGetStateSize32s_16s(r.L, r.U, r.D, &size), 0);
    std::vector<uint8_t> mem2(static_cast<size_t>(size));
    ASSERT_EQ(zamsFIRMRInit32s_16s(&p, std::vector<Zam32s>(static_cast<size_t>(r.L), 1).data(), r.L, 0, r.U, r.up, r.D, r.dp,
                                   nullptr, mem2.data()),
              0);
    ASSERT_EQ(zamsFIRFree32s_16s32f(p), 0);
}

// 16-bit taps over 16-bit data summed exactly whatever the rates, the split
// of the signal into calls (runs of blocks below and above the kernel's
// step), in place (forwards and, with U > D, backwards) and the addresses of
// the state and the vectors. Two regimes: sparse small samples at scale 0,
// where most outputs are exact unsaturated sums, and the extremes (taps
// +-32766, samples -32768 and 32767) at scale 20, where any sum that left
// the 32-bit lanes would be far off.
TEST(FirMR, SixteenBitSumsAreExactInPiecesInPlaceAndAtAnyAddress) {
    std::mt19937 g(31);
    for (int regime = 0; regime < 2; ++regime) {
        const int sf = regime ? 20 : 0;
        for (const Rate& r : kRates) {
            const int N = 300, H = dly_len(r);
            std::vector<Zam32s> taps(static_cast<size_t>(r.L));
            for (auto& t : taps) t = regime ? (g() & 1 ? 32766 : -32766) : Zam32s(int(g() % 65533) - 32766);
            taps[0] = 32766;  // no shift
            std::vector<Zam16s> kept(taps.begin(), taps.end()), x(static_cast<size_t>(N * r.D)), dly(size_t(H), 0);
            for (auto& v : x) v = regime ? (g() & 1 ? 32767 : -32768) : g() % 8 ? 0 : Zam16s(int(g() % 5) - 2);
            const auto ref = model(kept, r, dly, x);
            std::vector<Zam16s> want(ref.size());
            for (size_t j = 0; j < want.size(); ++j) want[j] = fm::scale16(int64_t(ref[j].real()), sf);
            int size = 0;
            ASSERT_EQ(zamsFIRMRGetStateSize32s_16s(r.L, r.U, r.D, &size), 0);
            for (size_t off : {0, 6}) {
                zt::Guarded<uint8_t> mem(static_cast<size_t>(size), off), mem2(static_cast<size_t>(size), off);
                zt::Guarded<Zam16s> src(x.size(), off), dst(want.size(), 2 * off + 2);
                src.copy_from(x.data());
                ZamsFIRState32s_16s *p = nullptr, *q = nullptr;
                ASSERT_EQ(zamsFIRMRInit32s_16s(&p, taps.data(), r.L, 0, r.U, r.up, r.D, r.dp, nullptr, mem.data()), 0);
                ASSERT_EQ(zamsFIRMRInit32s_16s(&q, taps.data(), r.L, 0, r.U, r.up, r.D, r.dp, nullptr, mem2.data()), 0);
                std::vector<Zam16s> io(static_cast<size_t>(N * std::max(r.U, r.D)));
                for (int b = 0; b < N;) {
                    const int n = std::min(N - b, 1 + int(g() % 60));
                    ASSERT_EQ(zamsFIR32s_16s_Sfs(src.data() + b * r.D, dst.data() + b * r.U, n, p, sf), 0);
                    std::copy(x.begin() + b * r.D, x.begin() + (b + n) * r.D, io.begin());
                    ASSERT_EQ(zamsFIR32s_16s_ISfs(io.data(), n, q, sf), 0);
                    ASSERT_TRUE(std::equal(io.begin(), io.begin() + n * r.U, want.begin() + b * r.U))
                        << "in place U=" << r.U << " D=" << r.D << " b=" << b;
                    b += n;
                }
                ASSERT_TRUE(mem.guards_intact() && src.guards_intact() && dst.guards_intact());
                ASSERT_EQ(dst.to_vector(), want) << "regime " << regime << " U=" << r.U << " D=" << r.D;
            }
        }
    }
}

// The factor, phase and size checks in order, and the kinds each entry
// point takes.
TEST(FirMR, StatusesAndKinds) {
    float t[4] = {1, 2, 3, 4}, x[64] = {}, y[64];
    int size = 0;
    std::vector<uint8_t> mem(1 << 16);
    ZamsFIRState_32f* p = nullptr;
    EXPECT_EQ(zamsFIRMRGetStateSize_32f(4, 0, 3, &size), zamStatusBadMultirateFactor);
    EXPECT_EQ(zamsFIRMRGetStateSize_32f(4, 2, -1, &size), zamStatusBadMultirateFactor);
    EXPECT_EQ(zamsFIRMRGetStateSize_32f(1000, 1 << 30, 1, &size), zamStatusNoMemory);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 0, 0, 0, 3, 0, nullptr, nullptr), zamStatusNullPointer);  // memory first
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 0, 5, 0, 9, nullptr, mem.data()), zamStatusBadMultirateFactor);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 2, 2, 0, 9, nullptr, mem.data()), zamStatusBadMultiratePhase);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 2, -1, 3, 0, nullptr, mem.data()), zamStatusBadMultiratePhase);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 2, 1, 0, 9, nullptr, mem.data()), zamStatusBadMultirateFactor);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 2, 1, 3, 3, nullptr, mem.data()), zamStatusBadMultiratePhase);
    EXPECT_EQ(zamsFIRMRInitAlloc_32f(&p, t, 4, 2, 1, 3, -1, nullptr), zamStatusBadMultiratePhase);
    EXPECT_EQ(zamsFIRMRInit_32f(&p, t, 4, 1 << 30, 0, 1, 0, nullptr, mem.data()), zamStatusNoMemory);
    EXPECT_EQ(p, nullptr);  // nothing built on an error

    ASSERT_EQ(zamsFIRMRInit_32f(&p, t, 4, 2, 1, 3, 2, nullptr, mem.data()), 0);
    EXPECT_EQ(zamsFIR_32f(x, y, INT32_MAX / 2, p), zamStatusBadLength);  // INT_MAX / 2 x 3 inputs
    EXPECT_EQ(zamsFIROne_32f(1, y, p), zamStatusContextMismatch);
    ZamsFIRState_32f* stream = nullptr;
    ASSERT_EQ(zamsFIRMRStreamInitAlloc_32f(&stream, t, 4, 2, 1, 3, 2, nullptr), 0);
    EXPECT_EQ(zamsFIR_32f(x, y, 8, stream), 0);
    EXPECT_EQ(zamsFIRGetTaps_32f(stream, y), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRSetTaps_32f(t, stream), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRGetDlyLine_32f(stream, y), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRSetDlyLine_32f(stream, y), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRFree_32f(stream), 0);

    // No multirate state takes the one-sample filter.
    double td[4] = {1, 2, 3, 4};
    Zam16s y16[1];
    ZamsFIRState_64f* d64 = nullptr;
    ZamsFIRState32f_16s* f16 = nullptr;
    ZamsFIRState32s_16s* i16 = nullptr;
    ASSERT_EQ(zamsFIRMRInitAlloc_64f(&d64, td, 4, 2, 1, 3, 2, nullptr), 0);
    ASSERT_EQ(zamsFIRMRInitAlloc32f_16s(&f16, t, 4, 2, 1, 3, 2, nullptr), 0);
    ASSERT_EQ(zamsFIRMRInitAlloc32s_16s32f(&i16, t, 4, 2, 1, 3, 2, nullptr), 0);
    EXPECT_EQ(zamsFIROne_64f(1, td, d64), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIROne32f_16s_Sfs(1, y16, f16, 0), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIROne32s_16s_Sfs(1, y16, i16, 0), zamStatusContextMismatch);
    EXPECT_EQ(zamsFIRFree_64f(d64), 0);
    EXPECT_EQ(zamsFIRFree32f_16s(f16), 0);
    EXPECT_EQ(zamsFIRFree32s_16s(i16), 0);
}

template <class T, class S> void digest_kind(zt::Digest& d, const Api<T, S>& a, const Rate& r, uint32_t seed) {
    const int N = 20;
    auto taps = rnd<T>(r.L, seed), x = rnd<T>(N * r.D, seed + 1);
    std::vector<T> y(static_cast<size_t>(N * r.U));
    S* p = nullptr;
    d.status(a.alloc(&p, taps.data(), r.L, r.U, r.up, r.D, r.dp, nullptr));
    d.status(a.filter(x.data(), y.data(), N, p));
    d.add(y);
    a.release(p);
}

ZAMS_DIGEST(firmr) {
    for (const Rate& r : kRates) {
        const int N = 20;
        digest_kind(d, k32f, r, 20);
        digest_kind(d, k32fc, r, 22);
        digest_kind(d, k64f, r, 24);
        digest_kind(d, k64fc, r, 26);
        auto taps = rnd<float>(r.L, 20);
        std::vector<Zam16s> y16(static_cast<size_t>(N * r.U));
        auto x16 = fm::rand_16s(N * r.D, 28);
        ZamsFIRState32f_16s* f = nullptr;
        d.status(zamsFIRMRInitAlloc32f_16s(&f, taps.data(), r.L, r.U, r.up, r.D, r.dp, nullptr));
        d.status(zamsFIR32f_16s_Sfs(x16.data(), y16.data(), N, f, 1));
        d.add(y16);
        zamsFIRFree32f_16s(f);
        std::vector<Zam32s> ti(taps.size());
        for (size_t k = 0; k < ti.size(); ++k) ti[k] = Zam32s(taps[k] * 100000);
        ZamsFIRState32s_16s* q = nullptr;
        d.status(zamsFIRMRInitAlloc32s_16s(&q, ti.data(), r.L, 1, r.U, r.up, r.D, r.dp, nullptr));
        d.status(zamsFIR32s_16s_Sfs(x16.data(), y16.data(), N, q, 2));
        d.add(y16);
        zamsFIRFree32s_16s(q);
    }
}

}  // namespace
