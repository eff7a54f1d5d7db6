// Two-channel filter bank: forward and inverse against a long double model
// of the sums (delay lines, streams split into calls), the same bits for any
// split and any buffer address, reconstruction with Haar and Daubechies-4
// pairs at the documented delay, the 16-bit forms against the float ones,
// the life cycle and the statuses.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "digest.h"
#include "harness.h"
#include "life_cycle.h"
#include "zams.h"

namespace {

using LD = long double;

struct Band {
    std::vector<Zam32f> taps;
    int offs;
};
struct Bank {
    Band b[2];  // low, high
};

std::vector<Zam32f> taps_of(int len, uint32_t seed) { return zt::random_reals<Zam32f>(size_t(len), seed, -1.f, 1.f); }

// Delay-line lengths as documented.
int fwd_dly(const Band& b) { return std::max(0, int(b.taps.size()) + b.offs - 1); }
int inv_dly(const Band& b) { return (int(b.taps.size()) + b.offs) / 2; }

// A stream with its past: s[j] for j >= -past.
struct Stream {
    std::vector<Zam32f> v;
    int past;
    Zam32f at(long j) const { return j < -past ? 0.f : v[size_t(j + past)]; }
};

// out[n] = sum_k t[k] x[2n - offs - k]; err: the bound on single rounding.
void fwd_model(const Band& b, const Stream& x, int n, std::vector<LD>& out, std::vector<LD>& err) {
    out.assign(size_t(n), 0);
    err.assign(size_t(n), 0);
    const int L = int(b.taps.size());
    for (int j = 0; j < n; ++j)
        for (int k = 0; k < L; ++k) {
            const LD p = LD(b.taps[size_t(k)]) * x.at(2L * j - b.offs - k);
            out[size_t(j)] += p;
            err[size_t(j)] += std::fabs(p) * L * 1.2e-7L;
        }
}

// y[m] = sum over bands and k of t[k] u[m - offs - k], u[2n + 1] = band[n].
void inv_model(const Bank& bk, const Stream s[2], int n, std::vector<LD>& out, std::vector<LD>& err) {
    out.assign(size_t(2 * n), 0);
    err.assign(size_t(2 * n), 0);
    for (int m = 0; m < 2 * n; ++m)
        for (int b = 0; b < 2; ++b) {
            const Band& d = bk.b[b];
            const int L = int(d.taps.size());
            for (int k = 0; k < L; ++k) {
                const long u = long(m) - d.offs - k;
                if (!(u & 1)) continue;
                const LD p = LD(d.taps[size_t(k)]) * s[b].at((u - 1) / 2);
                out[size_t(m)] += p;
                err[size_t(m)] += std::fabs(p) * (L + 1) * 1.2e-7L;
            }
        }
}

// A state of the bank's taps and offsets, released at the end of the scope.
template <class S, zamStatus (*Alloc)(S**, const Zam32f*, int, int, const Zam32f*, int, int), zamStatus (*Free)(S*)>
struct State {
    S* s = nullptr;
    explicit State(const Bank& b) {
        EXPECT_EQ(Alloc(&s, b.b[0].taps.data(), int(b.b[0].taps.size()), b.b[0].offs, b.b[1].taps.data(),
                        int(b.b[1].taps.size()), b.b[1].offs),
                  zamStatusOk);
    }
    ~State() { EXPECT_EQ(Free(s), zamStatusOk); }
};
using Fwd = State<ZamsWTFwdState_32f, zamsWTFwdInitAlloc_32f, zamsWTFwdFree_32f>;
using Inv = State<ZamsWTInvState_32f, zamsWTInvInitAlloc_32f, zamsWTInvFree_32f>;

// Taps lengths and offsets: one tap, both bands alike, unequal bands, long
// taps, offsets up to past the taps' length.
std::vector<Bank> banks() {
    const int cfg[][4] = {{1, -1, 1, 0}, {2, -1, 2, -1}, {4, -1, 4, 0}, {1, -1, 7, 3}, {12, -1, 5, 0},
                          {20, 5, 2, -1}, {3, 2, 1, 9}, {33, 0, 16, 1}};
    std::vector<Bank> v;
    uint32_t seed = 100;
    for (const auto& c : cfg) v.push_back(Bank{{{taps_of(c[0], seed++), c[1]}, {taps_of(c[2], seed++), c[3]}}});
    return v;
}
const int kSplit[] = {1, 3, 8, 17, 300, 2, 9, 259, 5};  // calls of a stream, in outputs a band

TEST(WTFwd, MatchesModelAcrossCalls) {
    for (const Bank& bk : banks()) {
        int total = 0;
        for (int c : kSplit) total += c;
        const int past = std::max(fwd_dly(bk.b[0]), fwd_dly(bk.b[1]));
        Stream x{zt::random_reals<Zam32f>(size_t(past + 2 * total), 11), past};
        Fwd f(bk);
        // the past, newest first, in each band's line
        std::vector<Zam32f> line[2], back[2];
        for (int b = 0; b < 2; ++b) {
            for (int i = 0; i < fwd_dly(bk.b[b]); ++i) line[b].push_back(x.at(-1 - i));
            line[b].push_back(0.f);  // a valid pointer for a line of no samples
            back[b].assign(line[b].size(), -7.f);
        }
        ASSERT_EQ(zamsWTFwdSetDlyLine_32f(f.s, line[0].data(), line[1].data()), zamStatusOk);
        ASSERT_EQ(zamsWTFwdGetDlyLine_32f(f.s, back[0].data(), back[1].data()), zamStatusOk);
        for (int b = 0; b < 2; ++b)
            for (int i = 0; i < fwd_dly(bk.b[b]); ++i) ASSERT_EQ(back[b][size_t(i)], line[b][size_t(i)]);
        std::vector<Zam32f> out[2];
        out[0].resize(size_t(total));
        out[1].resize(size_t(total));
        int done = 0;
        for (int c : kSplit) {
            ASSERT_EQ(zamsWTFwd_32f(&x.v[size_t(past + 2 * done)], &out[0][size_t(done)], &out[1][size_t(done)], c, f.s),
                      zamStatusOk);
            done += c;
        }
        for (int b = 0; b < 2; ++b) {
            std::vector<LD> m, e;
            fwd_model(bk.b[b], x, total, m, e);
            for (int j = 0; j < total; ++j)
                ASSERT_NEAR(out[b][size_t(j)], m[size_t(j)], e[size_t(j)] + 1e-30L)
                    << "taps " << bk.b[b].taps.size() << " offs " << bk.b[b].offs << " band " << b << " out " << j;
        }
        // the line now holds the stream's last samples
        ASSERT_EQ(zamsWTFwdGetDlyLine_32f(f.s, back[0].data(), back[1].data()), zamStatusOk);
        for (int b = 0; b < 2; ++b)
            for (int i = 0; i < fwd_dly(bk.b[b]); ++i) ASSERT_EQ(back[b][size_t(i)], x.at(2L * total - 1 - i));

        // one call, at two buffer misalignments: the same bits as the split calls
        for (size_t off : {size_t(0), size_t(4)}) {
            Fwd g(bk);
            ASSERT_EQ(zamsWTFwdSetDlyLine_32f(g.s, line[0].data(), line[1].data()), zamStatusOk);
            zt::Guarded<Zam32f> gx(size_t(2 * total), off), g0(size_t(total), off), g1(size_t(total), 12 - off);
            gx.copy_from(&x.v[size_t(past)]);
            ASSERT_EQ(zamsWTFwd_32f(gx.data(), g0.data(), g1.data(), total, g.s), zamStatusOk);
            ASSERT_TRUE(g0.guards_intact() && g1.guards_intact());
            for (int j = 0; j < total; ++j) {
                ASSERT_EQ(zt::bits(g0[size_t(j)]), zt::bits(out[0][size_t(j)])) << j;
                ASSERT_EQ(zt::bits(g1[size_t(j)]), zt::bits(out[1][size_t(j)])) << j;
            }
        }
    }
}

TEST(WTInv, MatchesModelAcrossCalls) {
    for (const Bank& bk : banks()) {
        int total = 0;
        for (int c : kSplit) total += c;
        Stream s[2];
        std::vector<Zam32f> line[2];
        for (int b = 0; b < 2; ++b) {
            const int d = inv_dly(bk.b[b]);
            s[b] = Stream{zt::random_reals<Zam32f>(size_t(d + total), 20 + uint32_t(b)), d};
            for (int i = 0; i < d; ++i) line[b].push_back(s[b].at(-1 - i));
            line[b].push_back(0.f);
        }
        Inv v(bk);
        ASSERT_EQ(zamsWTInvSetDlyLine_32f(v.s, line[0].data(), line[1].data()), zamStatusOk);
        std::vector<Zam32f> y(size_t(2 * total));
        int done = 0;
        for (int c : kSplit) {
            ASSERT_EQ(zamsWTInv_32f(&s[0].v[size_t(s[0].past + done)], &s[1].v[size_t(s[1].past + done)], c,
                                    &y[size_t(2 * done)], v.s),
                      zamStatusOk);
            done += c;
        }
        std::vector<LD> m, e;
        inv_model(bk, s, total, m, e);
        for (int j = 0; j < 2 * total; ++j)
            ASSERT_NEAR(y[size_t(j)], m[size_t(j)], e[size_t(j)] + 1e-30L)
                << "taps " << bk.b[0].taps.size() << "/" << bk.b[1].taps.size() << " out " << j;
        std::vector<Zam32f> back[2] = {line[0], line[1]};
        ASSERT_EQ(zamsWTInvGetDlyLine_32f(v.s, back[0].data(), back[1].data()), zamStatusOk);
        for (int b = 0; b < 2; ++b)
            for (int i = 0; i < inv_dly(bk.b[b]); ++i) ASSERT_EQ(back[b][size_t(i)], s[b].at(long(total) - 1 - i));

        for (size_t off : {size_t(0), size_t(4)}) {
            Inv w(bk);
            ASSERT_EQ(zamsWTInvSetDlyLine_32f(w.s, line[0].data(), line[1].data()), zamStatusOk);
            zt::Guarded<Zam32f> g0(size_t(total), off), g1(size_t(total), 8 - off), gy(size_t(2 * total), off);
            g0.copy_from(&s[0].v[size_t(s[0].past)]);
            g1.copy_from(&s[1].v[size_t(s[1].past)]);
            ASSERT_EQ(zamsWTInv_32f(g0.data(), g1.data(), total, gy.data(), w.s), zamStatusOk);
            ASSERT_TRUE(gy.guards_intact());
            for (int j = 0; j < 2 * total; ++j) ASSERT_EQ(zt::bits(gy[size_t(j)]), zt::bits(y[size_t(j)])) << j;
        }
    }
}

// An orthogonal pair: analysis h and h1[k] = (-1)^k h[L-1-k], synthesis the
// same taps reversed.
struct Pair {
    Bank analysis, synthesis;
};
Pair orthogonal(const std::vector<double>& h, int oF, int oI) {
    const size_t L = h.size();
    Pair p;
    std::vector<Zam32f> lo(L), hi(L);
    for (size_t k = 0; k < L; ++k) {
        lo[k] = Zam32f(h[k]);
        hi[k] = Zam32f((k & 1 ? -1 : 1) * h[L - 1 - k]);
    }
    p.analysis = Bank{{{lo, oF}, {hi, oF}}};
    p.synthesis = Bank{{{std::vector<Zam32f>(lo.rbegin(), lo.rend()), oI}, {std::vector<Zam32f>(hi.rbegin(), hi.rend()), oI}}};
    return p;
}
std::vector<double> haar() { return {std::sqrt(0.5), std::sqrt(0.5)}; }
std::vector<double> daub4() {
    const double r3 = std::sqrt(3.0), d = 4 * std::sqrt(2.0);
    return {(1 + r3) / d, (3 + r3) / d, (3 - r3) / d, (1 - r3) / d};
}

// Forward then inverse returns x[m - (L + oF + oI)], in pieces of any size.
TEST(WTBank, PerfectReconstruction) {
    const int n = 1500;  // outputs a band
    const auto x = zt::random_reals<Zam32f>(size_t(2 * n), 5, -1.f, 1.f);
    for (const auto& h : {haar(), daub4()})
        for (const auto& o : {std::pair{-1, -1}, std::pair{0, -1}, std::pair{-1, 0}, std::pair{2, 3}}) {
            const Pair p = orthogonal(h, o.first, o.second);
            Fwd f(p.analysis);
            Inv v(p.synthesis);
            std::vector<Zam32f> lo(n), hi(n), y(2 * n);
            for (int j = 0, c = 1; j < n; j += c, c = c * 3 % 301 + 1) {
                c = std::min(c, n - j);
                ASSERT_EQ(zamsWTFwd_32f(&x[size_t(2 * j)], &lo[size_t(j)], &hi[size_t(j)], c, f.s), zamStatusOk);
                ASSERT_EQ(zamsWTInv_32f(&lo[size_t(j)], &hi[size_t(j)], c, &y[size_t(2 * j)], v.s), zamStatusOk);
            }
            const int delay = int(h.size()) + o.first + o.second;
            for (int m = 0; m < 2 * n; ++m)
                ASSERT_NEAR(y[size_t(m)], m >= delay ? x[size_t(m - delay)] : 0.f, 2e-6f)
                    << "taps " << h.size() << " offsets " << o.first << "," << o.second << " sample " << m;
        }
}

// The 16-bit forms: the float arithmetic on the converted samples, each
// output times 2^-sf rounded to nearest even and saturated; lines of
// 16-bit samples; reconstruction within one step of the rounding.
TEST(WTBank, SixteenBitFormsFollowTheFloatOnes) {
    const Pair p = orthogonal(daub4(), 0, -1);
    const Bank& a = p.analysis;
    const Bank& s = p.synthesis;
    const int n = 700;
    auto x = zt::random_ints<Zam16s>(size_t(2 * n), 9);
    for (auto& v : x) v = Zam16s(v / 16);  // room for a gain of 4 in the bands
    for (int sf : {-2, 0, 3}) {
        ZamsWTFwdState32f_16s* f16 = nullptr;
        ZamsWTInvState32f_16s* i16 = nullptr;
        ASSERT_EQ(zamsWTFwdInitAlloc32f_16s(&f16, a.b[0].taps.data(), 4, 0, a.b[1].taps.data(), 4, 0), zamStatusOk);
        ASSERT_EQ(zamsWTInvInitAlloc32f_16s(&i16, s.b[0].taps.data(), 4, -1, s.b[1].taps.data(), 4, -1), zamStatusOk);
        Fwd f(a);
        Inv v(s);
        const Zam16s l16[2][3] = {{100, -200, 300}, {-4, 5, -6}};
        const Zam32f l32[2][3] = {{100, -200, 300}, {-4, 5, -6}};
        ASSERT_EQ(zamsWTFwdSetDlyLine32f_16s(f16, l16[0], l16[1]), zamStatusOk);
        ASSERT_EQ(zamsWTFwdSetDlyLine_32f(f.s, l32[0], l32[1]), zamStatusOk);
        ASSERT_EQ(zamsWTInvSetDlyLine32f_16s(i16, l16[0] + 1, l16[1] + 1), zamStatusOk);  // one sample a band
        ASSERT_EQ(zamsWTInvSetDlyLine_32f(v.s, l32[0] + 1, l32[1] + 1), zamStatusOk);
        std::vector<Zam16s> lo(n), hi(n), y(2 * n);
        std::vector<Zam32f> xf(x.begin(), x.end()), lof(n), hif(n), yf(2 * n);
        ASSERT_EQ(zamsWTFwd32f_16s_Sfs(x.data(), lo.data(), hi.data(), 300, sf, f16), zamStatusOk);
        ASSERT_EQ(zamsWTFwd32f_16s_Sfs(&x[600], &lo[300], &hi[300], n - 300, sf, f16), zamStatusOk);
        ASSERT_EQ(zamsWTFwd_32f(xf.data(), lof.data(), hif.data(), n, f.s), zamStatusOk);
        auto conv = [sf](Zam32f v) {
            const LD r = std::nearbyint(std::ldexp(LD(v), -sf));
            return Zam16s(r > 32767 ? 32767 : r < -32768 ? -32768 : r);
        };
        for (int j = 0; j < n; ++j) {
            ASSERT_EQ(lo[size_t(j)], conv(lof[size_t(j)])) << sf << " " << j;
            ASSERT_EQ(hi[size_t(j)], conv(hif[size_t(j)])) << sf << " " << j;
        }
        Zam16s back[2][3] = {};
        ASSERT_EQ(zamsWTFwdGetDlyLine32f_16s(f16, back[0], back[1]), zamStatusOk);
        for (int i = 0; i < 3; ++i) ASSERT_EQ(back[0][i], x[size_t(2 * n - 1 - i)]);

        // inverse on the 16-bit bands against the float inverse on the same values
        std::vector<Zam32f> l2(lo.begin(), lo.end()), h2(hi.begin(), hi.end());
        ASSERT_EQ(zamsWTInv32f_16s_Sfs(lo.data(), hi.data(), n, y.data(), -sf, i16), zamStatusOk);
        ASSERT_EQ(zamsWTInv_32f(l2.data(), h2.data(), n, yf.data(), v.s), zamStatusOk);
        for (int m = 0; m < 2 * n; ++m) {
            const LD r = std::nearbyint(std::ldexp(LD(yf[size_t(m)]), sf));
            ASSERT_EQ(y[size_t(m)], Zam16s(r > 32767 ? 32767 : r < -32768 ? -32768 : r)) << m;
        }
        // a gain of 4 before rounding keeps the reconstruction within one
        // step (from the sixth output on: the bands' lines before it differ)
        if (sf == -2) {
            for (int m = 6; m < 2 * n; ++m) ASSERT_NEAR(y[size_t(m)], x[size_t(m - 3)], 1) << m;
        }
        ASSERT_EQ(zamsWTInvGetDlyLine32f_16s(i16, back[0], back[1]), zamStatusOk);
        ASSERT_EQ(back[0][0], lo[size_t(n - 1)]);
        ASSERT_EQ(back[1][0], hi[size_t(n - 1)]);
        ASSERT_EQ(zamsWTFwdFree32f_16s(f16), zamStatusOk);
        ASSERT_EQ(zamsWTInvFree32f_16s(i16), zamStatusOk);
    }
}

// The statuses in their order; each kind built in caller memory of the
// reported size at an odd address filters as the allocated state (Free
// leaves a state in caller memory usable).
TEST(WTBank, LifeCycleAndStatuses) {
    const Zam32f t[3] = {0.5f, 0.25f, -0.125f};
    int size = 0;
    EXPECT_EQ(zamsWTFwdGetSize_32f(0, 0, 2, -1, &size), zamStatusBadLength);
    EXPECT_EQ(zamsWTInvGetSize_32f(3, -2, 2, -1, &size), zamStatusBadWaveletOffset);
    EXPECT_EQ(zamsWTInvGetSize32f_16s(3, 0, 2, INT32_MAX, &size), zamStatusNoMemory);
    EXPECT_EQ(zamsWTFwdGetSize32f_16s(1, -2, 0, -1, &size), zamStatusBadLength);  // lengths before offsets
    ZamsWTFwdState_32f* f = nullptr;
    EXPECT_EQ(zamsWTFwdInitAlloc_32f(&f, t, 3, -2, t, 2, 0), zamStatusBadWaveletOffset);
    EXPECT_EQ(f, nullptr);

    const auto x = zt::random_reals<Zam32f>(40, 1);
    const auto x16 = zt::random_ints<Zam16s>(40, 2);
#define WT_LIFE(DIR, SUF, ...)                                                                                 \
    {                                                                                                          \
        ASSERT_EQ(zamsWT##DIR##GetSize##SUF(3, 1, 2, -1, &size), zamStatusOk);                                 \
        zt::caller_memory_equals_alloc(                                                                        \
            size, 0, [&](auto** p, Zam8u* m, Zam8u*) { return zamsWT##DIR##Init##SUF(p, t, 3, 1, t, 2, -1, m); }, \
            [&](auto** p) { return zamsWT##DIR##InitAlloc##SUF(p, t, 3, 1, t, 2, -1); }, zamsWT##DIR##Free##SUF, __VA_ARGS__, false); \
    }
    WT_LIFE(Fwd, _32f, [&](auto* s) {
        std::vector<Zam32f> lo(20), hi(20);
        EXPECT_EQ(zamsWTFwd_32f(x.data(), lo.data(), hi.data(), 20, s), zamStatusOk);
        return zt::bytes_of(lo, hi);
    })
    WT_LIFE(Inv, _32f, [&](auto* s) {
        std::vector<Zam32f> y(40);
        EXPECT_EQ(zamsWTInv_32f(x.data(), x.data() + 20, 20, y.data(), s), zamStatusOk);
        return zt::bytes_of(y);
    })
    WT_LIFE(Fwd, 32f_16s, [&](auto* s) {
        std::vector<Zam16s> lo(20), hi(20);
        EXPECT_EQ(zamsWTFwd32f_16s_Sfs(x16.data(), lo.data(), hi.data(), 20, -3, s), zamStatusOk);
        return zt::bytes_of(lo, hi);
    })
    WT_LIFE(Inv, 32f_16s, [&](auto* s) {
        std::vector<Zam16s> y(40);
        EXPECT_EQ(zamsWTInv32f_16s_Sfs(x16.data(), x16.data() + 20, 20, y.data(), 3, s), zamStatusOk);
        return zt::bytes_of(y);
    })
#undef WT_LIFE
}

ZAMS_DIGEST(filter_bank) {
    const Pair p = orthogonal(daub4(), 1, 0);
    const int n = 555;
    const auto x = zt::random_reals<Zam32f>(size_t(2 * n), 77);
    const auto x16 = zt::random_ints<Zam16s>(size_t(2 * n), 78);
    for (const Bank& bk : {p.analysis, banks()[5], banks()[7]}) {
        Fwd f(bk);
        std::vector<Zam32f> lo(n), hi(n), y(2 * n);
        d.status(zamsWTFwd_32f(x.data(), lo.data(), hi.data(), n, f.s));
        d.add(lo);
        d.add(hi);
        Inv v(bk);
        d.status(zamsWTInv_32f(lo.data(), hi.data(), n, y.data(), v.s));
        d.add(y);
        ZamsWTFwdState32f_16s* f16 = nullptr;
        ZamsWTInvState32f_16s* i16 = nullptr;
        d.status(zamsWTFwdInitAlloc32f_16s(&f16, bk.b[0].taps.data(), int(bk.b[0].taps.size()), bk.b[0].offs,
                                           bk.b[1].taps.data(), int(bk.b[1].taps.size()), bk.b[1].offs));
        d.status(zamsWTInvInitAlloc32f_16s(&i16, bk.b[0].taps.data(), int(bk.b[0].taps.size()), bk.b[0].offs,
                                           bk.b[1].taps.data(), int(bk.b[1].taps.size()), bk.b[1].offs));
        std::vector<Zam16s> l16(n), h16(n), y16(2 * n);
        d.status(zamsWTFwd32f_16s_Sfs(x16.data(), l16.data(), h16.data(), n, 1, f16));
        d.status(zamsWTInv32f_16s_Sfs(l16.data(), h16.data(), n, y16.data(), -1, i16));
        d.add(l16);
        d.add(h16);
        d.add(y16);
        zamsWTFwdFree32f_16s(f16);
        zamsWTInvFree32f_16s(i16);
    }
}

}  // namespace
