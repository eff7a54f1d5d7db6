// Viterbi decoding of the 16-state 4D trellis code: slicing against a scan of
// the whole constellation, the 4D table against all sixteen pairs of 2D
// subsets, one add-compare-select step against a forward model, and a whole
// noisy coded sequence decoded by the four routines against a full trellis
// search in double over the whole sequence.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>

#include "digest.h"
#include "sweep.h"

namespace {

constexpr int kGrid = 128;

// ---- The code from the header's description: the parity check and its
// state update, the 2D subsets of a point, the 4D subset of a pair.
constexpr unsigned kH[3] = {023, 004, 016};  // h0, h1, h2

struct Step {
    int next, subset;
};
Step encode(int r, int z1, int z2) {
    const int z[3] = {r & 1, z1, z2};
    int next = 0;
    for (int k = 1; k <= 4; ++k) {
        int c = 0;
        for (int j = 0; j < 3; ++j) c ^= int(kH[j] >> k & 1) & z[j];
        next |= ((k < 4 ? r >> k & 1 : 0) ^ c) << (k - 1);
    }
    return {next, z[0] | z1 << 1 | z2 << 2};
}

int subset2d(int x, int y) {  // odd grid coordinates
    const int u = ((x - 1) / 2) & 1, v = ((y - 1) / 2) & 1;
    return u == v ? 2 * u : u ? 1 : 3;
}
int subset4d(int a, int b) {  // from the header's table of pairs
    static const int pairs[8][2] = {{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 1}, {1, 0}, {1, 3}, {1, 2}};
    for (int z = 0; z < 8; ++z) {
        const int pa = pairs[z][0], pb = pairs[z][1];
        if ((a == pa && b == pb) || (a == (pa ^ 2) && b == (pb ^ 2))) return z;
    }
    return -1;
}

std::vector<int> coords(int m) {
    std::vector<int> c;
    for (int x = -m; x <= m; x += 2) c.push_back(x);
    return c;
}

// ---- Slicing: every received point against every constellation point.
TEST(ViterbiDV, SlicingAgainstAScanOfTheConstellation) {
    auto raw = zt::random_ints<Zam16s>(2 * 600, 7);
    for (int i = 0; i < 64; ++i) raw[i] = Zam16s(256 * (i - 32));  // ties between two coordinates
    for (int m : {1, 3, 7, 61, 255}) {
        const int n = int(raw.size() / 2);
        zt::Guarded<Zam16sc> pts(4 * n, 4);
        zt::Guarded<Zam16u> dist(4 * n, 2);
        const auto* src = reinterpret_cast<const Zam16sc*>(raw.data());
        ASSERT_EQ(zamsGetVarPointDV_16sc(src, pts.data(), dist.data(), n, m), zamStatusOk);
        for (int k = 0; k < n; ++k) {
            int64_t best[4] = {-1, -1, -1, -1};
            int bx[4] = {}, by[4] = {};
            for (int x : coords(m))
                for (int y : coords(m)) {
                    const int j = subset2d(x, y);
                    const int64_t dx = src[k].re - x * kGrid, dy = src[k].im - y * kGrid, d = dx * dx + dy * dy;
                    if (best[j] < 0 || d < best[j] || (d == best[j] && (x > bx[j] || (x == bx[j] && y > by[j]))))
                        best[j] = d, bx[j] = x, by[j] = y;
                }
            for (int j = 0; j < 4; ++j) {
                const int64_t q = best[j] >> 10, rem = best[j] & 1023;
                const int64_t want = std::min<int64_t>(65535, q + (rem > 512 || (rem == 512 && (q & 1))));
                ASSERT_EQ(pts[4 * k + j].re, bx[j] * kGrid) << "m " << m << " k " << k << " subset " << j;
                ASSERT_EQ(pts[4 * k + j].im, by[j] * kGrid) << "m " << m << " k " << k << " subset " << j;
                ASSERT_EQ(dist[4 * k + j], want) << "m " << m << " k " << k;
            }
        }
        ASSERT_TRUE(pts.guards_intact() && dist.guards_intact());
    }
}

// ---- The 4D table: the least of all pairs in each subset, saturated sums,
// the first pair on a tie.
TEST(ViterbiDV, SubsetTableIsTheLeastPairOfEachSubset) {
    const int n = 300;
    auto d = zt::random_ints<Zam16u>(8 * n, 11);
    for (int i = 0; i < 8 * 40; ++i) d[i] = Zam16u(d[i] % 4);  // many ties
    std::vector<Zam16sc> v(8 * n);
    for (int i = 0; i < 8 * n; ++i) v[i] = {Zam16s(i), Zam16s(-i)};  // each entry tells where it came from
    zt::Guarded<Zam16sc> sym(16 * n, 4);
    zt::Guarded<Zam16u> metric(8 * n, 2);
    ASSERT_EQ(zamsBuildSymblTableDV4D_16sc(v.data(), d.data(), sym.data(), metric.data(), n), zamStatusOk);
    for (int k = 0; k < n; ++k) {
        int want[8], wa[8] = {}, wb[8] = {};
        std::fill(want, want + 8, -1);
        for (int a = 0; a < 4; ++a)  // a ascending: the pair with a < 2 comes first
            for (int b = 0; b < 4; ++b) {
                const int z = subset4d(a, b), m = std::min(65535, d[8 * k + a] + d[8 * k + 4 + b]);
                ASSERT_GE(z, 0);
                if (want[z] < 0 || m < want[z]) want[z] = m, wa[z] = a, wb[z] = b;
            }
        for (int z = 0; z < 8; ++z) {
            ASSERT_EQ(metric[8 * k + z], want[z]) << "symbol " << k << " subset " << z;
            ASSERT_EQ(sym[16 * k + 2 * z].re, 8 * k + wa[z]);
            ASSERT_EQ(sym[16 * k + 2 * z + 1].re, 8 * k + 4 + wb[z]);
        }
    }
    ASSERT_TRUE(sym.guards_intact() && metric.guards_intact());
}

// ---- One step: the model walks forward from each state over each input.
void acs_model(const Zam16u* bm, Zam16u* pm, Zam8u* surv) {
    int next[16];
    std::fill(next, next + 16, -1);
    for (int p = 0; p < 16; ++p)
        for (int i = 0; i < 4; ++i) {
            const Step st = encode(p, i & 1, i >> 1);
            const int m = std::min(65535, pm[p] + bm[st.subset]);
            if (next[st.next] < 0 || m < next[st.next]) next[st.next] = m, surv[st.next] = Zam8u(p);
        }
    const int least = *std::min_element(next, next + 16);
    for (int s = 0; s < 16; ++s) pm[s] = Zam16u(next[s] - least);
}

TEST(ViterbiDV, AddCompareSelectAgainstAForwardModelAndInBlocks) {
    const int n = 200;
    auto bm = zt::random_ints<Zam16u>(8 * n, 21);
    for (int i = 0; i < 8 * 50; ++i) bm[i] = Zam16u(bm[i] % 3);  // ties
    Zam16u start[16];
    for (int s = 0; s < 16; ++s) start[s] = s % 5 == 0 ? 65535 : Zam16u(s * 1000);
    Zam16u want_pm[16];
    std::copy(start, start + 16, want_pm);
    std::vector<Zam8u> want_surv(16 * n);
    for (int k = 0; k < n; ++k) acs_model(&bm[8 * k], want_pm, &want_surv[16 * k]);
    for (int block : {1, 7, n}) {
        Zam16u pm[16];
        std::copy(start, start + 16, pm);
        zt::Guarded<Zam8u> surv(16 * n, 3);
        for (int k = 0; k < n; k += block)
            ASSERT_EQ(zamsUpdatePathMetricsDV_16u(&bm[8 * k], pm, surv.data() + 16 * k, std::min(block, n - k)),
                      zamStatusOk);
        ASSERT_TRUE(std::equal(pm, pm + 16, want_pm)) << "block " << block;
        ASSERT_EQ(surv.to_vector(), want_surv) << "block " << block;
        ASSERT_TRUE(surv.guards_intact());
    }
}

// ---- A whole decode. Sent: random inputs z1, z2, the pair of the 4D subset
// and each point inside its 2D subset; received: the points plus Gaussian
// noise of sigma grid units, rounded to 16 bits (for the digest, integer
// noise uniform in +-sigma grid units, the same on every target).
struct Sent {
    std::vector<int> subset, state;
    std::vector<Zam16sc> points, received;
};

Sent transmit(int n, int m, double sigma, uint32_t seed, bool gaussian = true) {
    std::mt19937 g(seed);
    std::normal_distribution<double> noise(0.0, sigma * kGrid);
    std::vector<std::vector<int>> by2d[4];  // per 2D subset, its points
    for (int x : coords(m))
        for (int y : coords(m)) by2d[subset2d(x, y)].push_back({x, y});
    Sent s;
    int r = 0;
    for (int k = 0; k < n; ++k) {
        const Step st = encode(r, int(g() & 1), int(g() & 1));
        s.state.push_back(r), s.subset.push_back(st.subset);
        r = st.next;
        std::vector<std::pair<int, int>> pairs;
        for (int a = 0; a < 4; ++a)
            for (int b = 0; b < 4; ++b)
                if (subset4d(a, b) == st.subset) pairs.push_back({a, b});
        const auto [a, b] = pairs[g() % 2];
        for (int j : {a, b}) {
            const auto& p = by2d[j][g() % by2d[j].size()];
            s.points.push_back({Zam16s(p[0] * kGrid), Zam16s(p[1] * kGrid)});
            const int spread = int(sigma * kGrid);
            auto rx = [&](int c) {
                const long e = gaussian ? std::lround(noise(g)) : long(g() % (2 * spread + 1)) - spread;
                return Zam16s(std::clamp(c + e, -32768L, 32767L));
            };
            s.received.push_back({rx(p[0] * kGrid), rx(p[1] * kGrid)});
        }
    }
    // The sequence satisfies the parity check in its direct form.
    for (int k = 4; k < n; ++k) {
        int sum = 0;
        for (int d = 0; d <= 4; ++d)
            for (int j = 0; j < 3; ++j) sum ^= int(kH[j] >> d & 1) & (s.subset[k - d] >> j & 1);
        EXPECT_EQ(sum, 0) << "symbol " << k;
    }
    return s;
}

struct Decided {
    std::vector<int> subset, state;
    std::vector<Zam16sc> points;
};

// The reference: exact squared distances in double to the nearest point of
// each 4D subset by a scan, a trellis search from state 0 over the whole
// sequence, the path of least total distance and its points.
Decided reference_decode(const std::vector<Zam16sc>& rx, int m) {
    const int n = int(rx.size() / 2);
    std::vector<std::array<double, 8>> bm(n);
    std::vector<std::array<Zam16sc, 16>> best(n);  // per 4D subset, its two points
    for (int k = 0; k < n; ++k) {
        double d2[2][4];
        Zam16sc p2[2][4];
        for (int h = 0; h < 2; ++h) {
            std::fill(d2[h], d2[h] + 4, INFINITY);
            for (int x : coords(m))
                for (int y : coords(m)) {
                    const double dx = rx[2 * k + h].re / double(kGrid) - x, dy = rx[2 * k + h].im / double(kGrid) - y;
                    const int j = subset2d(x, y);
                    if (dx * dx + dy * dy < d2[h][j])
                        d2[h][j] = dx * dx + dy * dy, p2[h][j] = {Zam16s(x * kGrid), Zam16s(y * kGrid)};
                }
        }
        bm[k].fill(INFINITY);
        for (int a = 0; a < 4; ++a)
            for (int b = 0; b < 4; ++b) {
                const int z = subset4d(a, b) & 7;  // every pair has its subset (checked above)
                if (d2[0][a] + d2[1][b] < bm[k][z])
                    bm[k][z] = d2[0][a] + d2[1][b], best[k][2 * z] = p2[0][a], best[k][2 * z + 1] = p2[1][b];
            }
    }
    std::vector<double> pm(16, INFINITY);
    pm[0] = 0;
    std::vector<std::array<int, 16>> from(n), via(n);
    for (int k = 0; k < n; ++k) {
        std::vector<double> next(16, INFINITY);
        for (int p = 0; p < 16; ++p)
            for (int i = 0; i < 4; ++i) {
                const Step st = encode(p, i & 1, i >> 1);
                if (pm[p] + bm[k][st.subset] < next[st.next])
                    next[st.next] = pm[p] + bm[k][st.subset], from[k][st.next] = p, via[k][st.next] = st.subset;
            }
        pm = next;
    }
    Decided out{std::vector<int>(n), std::vector<int>(n), std::vector<Zam16sc>(2 * n)};
    int s = int(std::min_element(pm.begin(), pm.end()) - pm.begin());
    for (int k = n - 1; k >= 0; --k) {
        const int z = via[k][s];
        s = from[k][s];
        out.subset[k] = z, out.state[k] = s;
        out.points[2 * k] = best[k][2 * z], out.points[2 * k + 1] = best[k][2 * z + 1];
    }
    return out;
}

// The four routines as a streaming decoder with a traceback of `depth`
// symbols, the last ones decided on the shorter tails.
Decided decode(const std::vector<Zam16sc>& rx, int m, int depth) {
    const int n = int(rx.size() / 2);
    std::vector<Zam16sc> vp(8 * n), sym(16 * n);
    std::vector<Zam16u> dist(8 * n), bm(8 * n);
    std::vector<Zam8u> surv(16 * n);
    EXPECT_EQ(zamsGetVarPointDV_16sc(rx.data(), vp.data(), dist.data(), 2 * n, m), zamStatusOk);
    EXPECT_EQ(zamsBuildSymblTableDV4D_16sc(vp.data(), dist.data(), sym.data(), bm.data(), n), zamStatusOk);
    Zam16u pm[16];
    std::fill(pm, pm + 16, 65535);
    pm[0] = 0;
    Decided out;
    auto decide = [&](int k, int len) {
        Zam16sc pt[2];
        int z = -1, st = -1;
        EXPECT_EQ(zamsCalcStatesDV_16u(pm, &surv[16 * k], &sym[16 * k], pt, &z, &st, len), zamStatusOk);
        out.subset.push_back(z), out.state.push_back(st), out.points.push_back(pt[0]), out.points.push_back(pt[1]);
    };
    for (int k = 0; k < n; ++k) {
        EXPECT_EQ(zamsUpdatePathMetricsDV_16u(&bm[8 * k], pm, &surv[16 * k], 1), zamStatusOk);
        if (k + 1 >= depth) decide(k + 1 - depth, depth);
    }
    for (int k = std::max(0, n + 1 - depth); k < n; ++k) decide(k, n - k);
    return out;
}

bool same_symbol(const Decided& x, const Decided& y, int k) {
    return x.subset[k] == y.subset[k] && zt::bits(x.points[2 * k]) == zt::bits(y.points[2 * k]) &&
           zt::bits(x.points[2 * k + 1]) == zt::bits(y.points[2 * k + 1]);
}

TEST(ViterbiDV, NoisySequenceAgainstAFullTrellisSearch) {
    const int n = 3000, m = 7, depth = 24;
    // sigma in grid units (points 2 apart): 0.3 makes no errors; 0.5 makes a
    // few, well inside the range where the code works (the sum of the error
    // events' probabilities converges there).
    for (double sigma : {0.3, 0.5}) {
        const Sent s = transmit(n, m, sigma, 31);
        const Decided sent{s.subset, s.state, s.points};
        const Decided got = decode(s.received, m, depth);
        const Decided ref = reference_decode(s.received, m);
        ASSERT_EQ(int(got.subset.size()), n);
        int differ = 0, ref_errors = 0, errors = 0;
        for (int k = 0; k < n; ++k) {
            differ += !same_symbol(got, ref, k);
            ref_errors += !same_symbol(ref, sent, k);
            errors += !same_symbol(got, sent, k);
        }
        std::printf("sigma %.2f: %d of %d symbols wrong after the search, %d after the routines, %d apart\n", sigma,
                    ref_errors, n, errors, differ);
        if (sigma < 0.4) {
            EXPECT_EQ(got.subset, s.subset);
            EXPECT_EQ(got.state, s.state);
            EXPECT_EQ(errors, 0);
            EXPECT_EQ(differ, 0);
        } else {
            EXPECT_GT(ref_errors, 0) << "the noise must make the search err";
            // Metrics rounded to 1/16 squared grid unit may settle near-ties the
            // other way; a wrong table or rule moves far more decisions.
            EXPECT_LE(differ, n / 200) << "decisions apart from the full search";
            EXPECT_LE(errors, n / 50) << "the code must correct most of what the noise does";
        }
    }
}

// ---- The value checks (length before the bad value); nothing written on an error.
TEST(ViterbiDV, Statuses) {
    Zam16sc src[2] = {{100, -100}, {0, 0}}, pts[16], sym[32], pt[2];
    Zam16u dist[16] = {}, metric[16] = {}, pm[16] = {};
    Zam8u surv[32] = {};
    int z = -7, st = -7;
    for (int i = 0; i < 16; ++i) pts[i] = {1, 1}, dist[i] = 5, metric[i] = 5;
    for (auto& p : sym) p = {2, 2};
    pt[0] = pt[1] = {9, 9};
    // valid survivors: state 0 is its own predecessor (input 0)
    const std::vector<std::pair<std::function<zamStatus()>, zamStatus>> cases = {
        {[&] { return zamsGetVarPointDV_16sc(nullptr, pts, dist, -1, 8); }, zamStatusNullPointer},
        {[&] { return zamsGetVarPointDV_16sc(src, pts, dist, -1, 8); }, zamStatusBadLength},
        {[&] { return zamsGetVarPointDV_16sc(src, pts, dist, 2, 8); }, zamStatusBadArgument},
        {[&] { return zamsGetVarPointDV_16sc(src, pts, dist, 2, 257); }, zamStatusBadArgument},
        {[&] { return zamsGetVarPointDV_16sc(src, pts, dist, 2, -1); }, zamStatusBadArgument},
        {[&] { surv[0] = 16; return zamsCalcStatesDV_16u(pm, surv, sym, pt, &z, &st, 2); }, zamStatusBadArgument},
        {[&] { surv[0] = 1; return zamsCalcStatesDV_16u(pm, surv, sym, pt, &z, &st, 2); }, zamStatusBadArgument},
        {[&] { surv[0] = 0; surv[16] = 3; return zamsCalcStatesDV_16u(pm, surv, sym, pt, &z, &st, 2); },
         zamStatusBadArgument},
    };
    for (size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(cases[i].first(), cases[i].second) << "case " << i;
    for (int i = 0; i < 16; ++i) ASSERT_TRUE(pts[i].re == 1 && dist[i] == 5 && metric[i] == 5 && pm[i] == 0);
    for (int i = 0; i < 32; ++i) ASSERT_TRUE(sym[i].re == 2 && (i == 0 || i == 16 || surv[i] == 0));
    ASSERT_TRUE(pt[0].re == 9 && pt[1].im == 9 && z == -7 && st == -7);
    surv[16] = 0;  // state 0 from state 0 twice: subset 0
    ASSERT_EQ(zamsCalcStatesDV_16u(pm, surv, sym, pt, &z, &st, 2), zamStatusOk);
    EXPECT_TRUE(z == 0 && st == 0 && pt[0].re == 2);
}

ZAMS_DIGEST(viterbi_dv) {
    const Sent s = transmit(200, 15, 1.2, 5, false);
    const Decided got = decode(s.received, 15, 16);
    d.add(got.subset), d.add(got.state), d.add(got.points);
    auto raw = zt::random_ints<Zam16s>(2 * 100, 6);
    std::vector<Zam16sc> pts(4 * 100);
    std::vector<Zam16u> dist(4 * 100);
    d.status(zamsGetVarPointDV_16sc(reinterpret_cast<const Zam16sc*>(raw.data()), pts.data(), dist.data(), 100, 255));
    d.add(pts), d.add(dist);
}

}  // namespace
