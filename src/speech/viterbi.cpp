// Viterbi decoding of the 16-state four-dimensional trellis code described in
// include/zams/speech.h: per-2D-subset slicing, the eight 4D subset metrics,
// one add-compare-select step a symbol and the traceback. The code's tables
// are data below; each is checked at compile time against the rule it comes
// from, so a wrong entry does not build.
#include <cstdint>

#include "../common/check.h"
#include "../common/scale.h"

namespace zams {
namespace {

constexpr int kStates = 16, kSubsets4 = 8;
constexpr int kGrid = 128;        // one grid unit in the 16-bit values
constexpr int kMetricShift = 10;  // a metric unit is 2^10 squared values: 1/16 squared grid unit

// ---- The code: parity-check polynomials (bit k the coefficient of D^k).
constexpr unsigned kH0 = 023, kH1 = 004, kH2 = 016;

// Next state by state r and input i = z1 + 2 z2. The state's low bit r1 is
// the redundant bit z0 of the symbol sent from it. Row r, column i holds the
// r' with r'_k = r_(k+1) ^ (h0[k] z0 ^ h1[k] z1 ^ h2[k] z2), k = 1..4, which
// makes every subset sequence satisfy the parity check (see
// next_by_parity).
constexpr uint8_t kNext[kStates][4] = {
    {0, 2, 7, 5},   {9, 11, 14, 12}, {1, 3, 6, 4},   {8, 10, 15, 13},  // r 0..3
    {2, 0, 5, 7},   {11, 9, 12, 14}, {3, 1, 4, 6},   {10, 8, 13, 15},  // r 4..7
    {4, 6, 3, 1},   {13, 15, 10, 8}, {5, 7, 2, 0},   {12, 14, 11, 9},  // r 8..11
    {6, 4, 1, 3},   {15, 13, 8, 10}, {7, 5, 0, 2},   {14, 12, 9, 11},  // r 12..15
};

constexpr unsigned bit(unsigned v, int k) { return (v >> k) & 1u; }

// The state update written from the parity check itself.
constexpr int next_by_parity(int r, int i) {
    const unsigned z0 = bit(unsigned(r), 0), z1 = bit(unsigned(i), 0), z2 = bit(unsigned(i), 1);
    unsigned next = 0;
    for (int k = 1; k <= 4; ++k) {
        const unsigned c = (bit(kH0, k) & z0) ^ (bit(kH1, k) & z1) ^ (bit(kH2, k) & z2);
        const unsigned above = k < 4 ? bit(unsigned(r), k) : 0u;  // r_(k+1)
        next |= (above ^ c) << (k - 1);
    }
    return int(next);
}

constexpr bool next_table_follows_parity() {
    for (int r = 0; r < kStates; ++r)
        for (int i = 0; i < 4; ++i)
            if (kNext[r][i] != next_by_parity(r, i)) return false;
    return true;
}
static_assert(next_table_follows_parity(), "kNext must be the parity check's state update");

constexpr int subset_of_branch(int r, int i) { return (r & 1) | (i << 1); }  // z0 = r1, then z1, z2

// ---- 4D subsets: the first pair (a, b) of 2D subsets of subset z; the
// second pair is (a ^ 2, b ^ 2). a = z2, b = (z2 ^ z0) + 2 z1: equal z0 keeps
// both 2D subsets in one half of the 2D partition (a, b of one parity), a
// different z0 mixes the halves.
constexpr uint8_t kPair[kSubsets4][2] = {{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 1}, {1, 0}, {1, 3}, {1, 2}};

constexpr bool pairs_follow_labels() {
    for (unsigned z = 0; z < kSubsets4; ++z) {
        const unsigned z0 = bit(z, 0), z1 = bit(z, 1), z2 = bit(z, 2);
        if (kPair[z][0] != z2 || kPair[z][1] != (z2 ^ z0) + 2 * z1) return false;
    }
    return true;
}
static_assert(pairs_follow_labels(), "kPair must follow the subset labels");

// ---- 2D subsets: the class mod 4 of each coordinate (1 or 3) in subset j.
constexpr int kXClass[4] = {1, 3, 3, 1};
constexpr int kYClass[4] = {1, 1, 3, 3};

// ---- Derived at compile time: the four branches into each state, by
// predecessor ascending (the order of the tie rule), and the subset of each
// (predecessor, state) pair, -1 where there is no branch.
struct Branch {
    uint8_t from, subset;
};
struct Trellis {
    Branch into[kStates][4]{};
    int8_t subset[kStates][kStates]{};  // [from][to]
    bool ok = true;
};

constexpr Trellis make_trellis() {
    Trellis t;
    for (auto& row : t.subset)
        for (auto& v : row) v = -1;
    int count[kStates]{};
    for (int r = 0; r < kStates; ++r)
        for (int i = 0; i < 4; ++i) {
            const int to = kNext[r][i];
            if (count[to] == 4 || t.subset[r][to] >= 0) t.ok = false;  // four predecessors, one branch a pair
            else {
                t.into[to][count[to]++] = {uint8_t(r), uint8_t(subset_of_branch(r, i))};
                t.subset[r][to] = int8_t(subset_of_branch(r, i));
            }
        }
    return t;
}
constexpr Trellis kTrellis = make_trellis();
static_assert(kTrellis.ok, "every state must have four predecessors, one branch each");

inline Zam16u add_sat(Zam16u a, Zam16u b) { return saturate<Zam16u>(int32_t(a) + b); }

// Nearest odd coordinate of class c (mod 4) within [-m, m] to the received
// value v, in grid units: the multiple-of-4 lattice shifted by c, a tie to the
// larger, then clamped to the allowed range.
constexpr int nearest_coord(int v, int c, int m) {
    const int k = (v - c * kGrid + 2 * kGrid) >> 9;  // floor((v / 128 - c + 2) / 4): kGrid * 4 = 2^9
    const int hi = m - ((m - c) & 3), lo = -m + ((c + m) & 3);
    const int x = 4 * k + c;
    return x > hi ? hi : x < lo ? lo : x;
}

zamStatus get_var_point(const Zam16sc* src, Zam16sc* pts, Zam16u* dist, int len, int maxCoord) {
    if (zamStatus s = check_ptr(src, pts, dist)) return s;
    if (zamStatus s = check_len(len)) return s;
    if (maxCoord < 1 || maxCoord > 255 || (maxCoord & 1) == 0) return zamStatusBadArgument;
    for (int k = 0; k < len; ++k) {
        const int vx = src[k].re, vy = src[k].im;
        int px[4], py[4];
        int64_t ex[4], ey[4];
        for (int c = 1; c <= 3; c += 2) {  // the two classes, squared errors once each
            px[c] = nearest_coord(vx, c, maxCoord) * kGrid;
            py[c] = nearest_coord(vy, c, maxCoord) * kGrid;
            ex[c] = int64_t(vx - px[c]) * (vx - px[c]);
            ey[c] = int64_t(vy - py[c]) * (vy - py[c]);
        }
        for (int j = 0; j < 4; ++j) {
            const int cx = kXClass[j], cy = kYClass[j];
            pts[4 * k + j] = {Zam16s(px[cx]), Zam16s(py[cy])};
            dist[4 * k + j] = scale_round_sat<Zam16u>(ex[cx] + ey[cy], kMetricShift);
        }
    }
    return zamStatusOk;
}

zamStatus build_table_4d(const Zam16sc* pts, const Zam16u* dist, Zam16sc* sym, Zam16u* metric, int len) {
    if (zamStatus s = check_ptr(pts, dist, sym, metric)) return s;
    if (zamStatus s = check_len(len)) return s;
    for (int k = 0; k < len; ++k) {
        const Zam16sc* p1 = pts + 8 * k;
        const Zam16sc* p2 = p1 + 4;
        const Zam16u* d1 = dist + 8 * k;
        const Zam16u* d2 = d1 + 4;
        for (int z = 0; z < kSubsets4; ++z) {
            int a = kPair[z][0], b = kPair[z][1];
            const Zam16u first = add_sat(d1[a], d2[b]), second = add_sat(d1[a ^ 2], d2[b ^ 2]);
            const bool other = second < first;
            if (other) a ^= 2, b ^= 2;
            metric[8 * k + z] = other ? second : first;
            sym[16 * k + 2 * z] = p1[a];
            sym[16 * k + 2 * z + 1] = p2[b];
        }
    }
    return zamStatusOk;
}

zamStatus update_path_metrics(const Zam16u* metric, Zam16u* path, Zam8u* survivor, int len) {
    if (zamStatus s = check_ptr(metric, path, survivor)) return s;
    if (zamStatus s = check_len(len)) return s;
    Zam16u pm[kStates];
    for (int s = 0; s < kStates; ++s) pm[s] = path[s];
    for (int k = 0; k < len; ++k) {
        const Zam16u* bm = metric + 8 * k;
        Zam16u next[kStates];
        Zam16u least = traits<Zam16u>::max;
        for (int s = 0; s < kStates; ++s) {
            const Branch* in = kTrellis.into[s];
            Zam16u best = add_sat(pm[in[0].from], bm[in[0].subset]);
            uint8_t from = in[0].from;
            for (int b = 1; b < 4; ++b) {
                const Zam16u m = add_sat(pm[in[b].from], bm[in[b].subset]);
                if (m < best) best = m, from = in[b].from;
            }
            next[s] = best;
            survivor[16 * k + s] = from;
            if (best < least) least = best;
        }
        // Renormalise: the best state at 0 keeps every metric within 0..65535.
        for (int s = 0; s < kStates; ++s) pm[s] = Zam16u(next[s] - least);
    }
    for (int s = 0; s < kStates; ++s) path[s] = pm[s];
    return zamStatusOk;
}

zamStatus calc_states(const Zam16u* path, const Zam8u* survivor, const Zam16sc* sym, Zam16sc* point, int* subset,
                      int* state, int len) {
    if (zamStatus s = check_ptr(path, survivor, sym, point, subset, state)) return s;
    if (zamStatus s = check_len(len)) return s;
    int s = 0;
    for (int j = 1; j < kStates; ++j)
        if (path[j] < path[s]) s = j;
    int z = 0;
    for (int k = len - 1; k >= 0; --k) {
        const int from = survivor[16 * k + s];
        if (from >= kStates || kTrellis.subset[from][s] < 0) return zamStatusBadArgument;
        z = kTrellis.subset[from][s];
        s = from;
    }
    point[0] = sym[2 * z];
    point[1] = sym[2 * z + 1];
    *subset = z;
    *state = s;
    return zamStatusOk;
}

}  // namespace
}  // namespace zams

using namespace zams;

ZAMS_FN(zamStatus, zamsGetVarPointDV_16sc)(const Zam16sc* s, Zam16sc* v, Zam16u* d, int len, int maxCoord) {
    return get_var_point(s, v, d, len, maxCoord);
}
ZAMS_FN(zamStatus, zamsBuildSymblTableDV4D_16sc)(const Zam16sc* v, const Zam16u* d, Zam16sc* t, Zam16u* m, int len) {
    return build_table_4d(v, d, t, m, len);
}
ZAMS_FN(zamStatus, zamsUpdatePathMetricsDV_16u)(const Zam16u* m, Zam16u* pm, Zam8u* sv, int len) {
    return update_path_metrics(m, pm, sv, len);
}
ZAMS_FN(zamStatus, zamsCalcStatesDV_16u)(const Zam16u* pm, const Zam8u* sv, const Zam16sc* t, Zam16sc* p, int* z,
                                         int* st, int len) {
    return calc_states(pm, sv, t, p, z, st, len);
}
