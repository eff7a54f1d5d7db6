// The block filters of 32f data (see iir_block.h).
#include "iir_block.h"

#include <immintrin.h>

#include <cmath>
#include <cstring>
#include <utility>

namespace zams::iir {
namespace {

// The columns of a direct-form filter of order N (b[0..N], a[1..N]) over
// one block, in double: H (8 zeros, then h[0..7]), X_1..X_N, Y_1..Y_N.
// False when a value is not finite.
bool fill_tables(const double* b, const double* a, int N, float* tab) {
    double x[kMaxBlockOrder + 8], y[kMaxBlockOrder + 8];
    auto response = [&](int xAt, int yAt, float* out) {  // a unit at x[xAt] or y[yAt] (index N: sample 0)
        for (int i = 0; i < N + 8; ++i) x[i] = i == xAt ? 1 : 0, y[i] = i == yAt ? 1 : 0;
        bool ok = true;
        for (int j = N; j < N + 8; ++j) {
            double s = 0;
            for (int k = 0; k <= N; ++k) s += b[k] * x[j - k];
            for (int k = 1; k <= N; ++k) s -= a[k] * y[j - k];
            y[j] = s;
            out[j - N] = float(s);
            ok = ok && std::isfinite(out[j - N]);
        }
        return ok;
    };
    bool ok = response(N, -1, tab + 8);
    for (int i = 0; i < 8; ++i) tab[i] = 0;
    for (int k = 1; k <= N; ++k) {
        ok = response(N - k, -1, tab + 16 + 8 * (k - 1)) && ok;
        ok = response(-1, N - k, tab + 16 + 8 * (N + k - 1)) && ok;
    }
    return ok;
}

inline __m256 bcast(const float* p) { return _mm256_broadcast_ss(p); }
inline __m256 mul(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
inline __m256 add(__m256 a, __m256 b) { return _mm256_add_ps(a, b); }

// sum_i x[i] H_i, in two accumulators (even and odd i).
inline void input_part(const float* x, const float* tab, __m256& a0, __m256& a1) {
    a0 = mul(bcast(x), _mm256_loadu_ps(tab + 8));
    a1 = mul(bcast(x + 1), _mm256_loadu_ps(tab + 7));
    for (int i = 2; i < 8; i += 2) {
        a0 = add(a0, mul(bcast(x + i), _mm256_loadu_ps(tab + 8 - i)));
        a1 = add(a1, mul(bcast(x + i + 1), _mm256_loadu_ps(tab + 7 - i)));
    }
}

// Blocks of a section: nb blocks of inputs x (the two before at x[-2],
// x[-1]) into outputs y (likewise). The recursion carries only the last
// two outputs, broadcast: each is computed on its own as its lane of the
// block's sum (the same operations in the same order, so the same bits),
// from the inputs' part (a shuffle of it) and the broadcast table values,
// which keeps the shuffles and the store off the recursion's path: one
// multiply and two adds a block. The block is written out instruction by
// instruction so that the compiler does not hold table rows or input
// broadcasts across blocks: with eight vector registers (i386) it spilled
// them, and the recursion with them.
//   y = s + (y1 Y1 + y2 Y2),  s = ((x0 H0 + x2 H2 + x4 H4 + x6 H6) + x-1 X1)
//                                + ((x1 H1 + x3 H3 + x5 H5 + x7 H7) + x-2 X2)
//   y1' = bcast(s[7]) + (y1 Y1[7] + y2 Y2[7]),  y2' likewise with lane 6.
void section_blocks(const float* tab, const float* x, float* y, int nb) {
    __m256 y1 = bcast(y - 1), y2 = bcast(y - 2);
    for (int b = 0; b < nb; ++b, x += 8, y += 8)
        asm volatile(
            "vbroadcastss (%[x]), %%ymm0\n\t"
            "vmulps 32(%[t]), %%ymm0, %%ymm0\n\t"
            "vbroadcastss 4(%[x]), %%ymm1\n\t"
            "vmulps 28(%[t]), %%ymm1, %%ymm1\n\t"
            "vbroadcastss 8(%[x]), %%ymm2\n\t"
            "vmulps 24(%[t]), %%ymm2, %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm0, %%ymm0\n\t"
            "vbroadcastss 12(%[x]), %%ymm3\n\t"
            "vmulps 20(%[t]), %%ymm3, %%ymm3\n\t"
            "vaddps %%ymm3, %%ymm1, %%ymm1\n\t"
            "vbroadcastss 16(%[x]), %%ymm2\n\t"
            "vmulps 16(%[t]), %%ymm2, %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm0, %%ymm0\n\t"
            "vbroadcastss 20(%[x]), %%ymm3\n\t"
            "vmulps 12(%[t]), %%ymm3, %%ymm3\n\t"
            "vaddps %%ymm3, %%ymm1, %%ymm1\n\t"
            "vbroadcastss 24(%[x]), %%ymm2\n\t"
            "vmulps 8(%[t]), %%ymm2, %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm0, %%ymm0\n\t"
            "vbroadcastss 28(%[x]), %%ymm3\n\t"
            "vmulps 4(%[t]), %%ymm3, %%ymm3\n\t"
            "vaddps %%ymm3, %%ymm1, %%ymm1\n\t"
            "vbroadcastss -4(%[x]), %%ymm2\n\t"
            "vmulps 64(%[t]), %%ymm2, %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm0, %%ymm0\n\t"
            "vbroadcastss -8(%[x]), %%ymm3\n\t"
            "vmulps 96(%[t]), %%ymm3, %%ymm3\n\t"
            "vaddps %%ymm3, %%ymm1, %%ymm1\n\t"
            "vaddps %%ymm1, %%ymm0, %%ymm0\n\t"  // s
            "vmulps 128(%[t]), %[y1], %%ymm1\n\t"
            "vmulps 160(%[t]), %[y2], %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm1, %%ymm1\n\t"
            "vaddps %%ymm1, %%ymm0, %%ymm1\n\t"
            "vmovups %%ymm1, (%[y])\n\t"
            "vbroadcastss 156(%[t]), %%ymm1\n\t"  // Y1[7]
            "vmulps %[y1], %%ymm1, %%ymm1\n\t"
            "vbroadcastss 188(%[t]), %%ymm2\n\t"  // Y2[7]
            "vmulps %[y2], %%ymm2, %%ymm2\n\t"
            "vaddps %%ymm2, %%ymm1, %%ymm1\n\t"
            "vbroadcastss 152(%[t]), %%ymm3\n\t"  // Y1[6]
            "vmulps %[y1], %%ymm3, %%ymm3\n\t"
            "vbroadcastss 184(%[t]), %%ymm4\n\t"  // Y2[6]
            "vmulps %[y2], %%ymm4, %%ymm4\n\t"
            "vaddps %%ymm4, %%ymm3, %%ymm3\n\t"
            "vperm2f128 $0x11, %%ymm0, %%ymm0, %%ymm0\n\t"
            "vpermilps $0xFF, %%ymm0, %%ymm4\n\t"
            "vaddps %%ymm1, %%ymm4, %[y1]\n\t"
            "vpermilps $0xAA, %%ymm0, %%ymm5\n\t"
            "vaddps %%ymm3, %%ymm5, %[y2]\n\t"
            : [y1] "+x"(y1), [y2] "+x"(y2)
            : [x] "r"(x), [t] "r"(tab), [y] "r"(y)
            : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "memory");
}

// The products of the newest outputs (k = 1..m, m <= 8) summed as a tree.
inline __m256 recent_part(const float* y, const float* Y, int m) {
    __m256 p[8];
    for (int k = 0; k < m; ++k) p[k] = mul(bcast(y - 1 - k), _mm256_loadu_ps(Y + 8 * k));
    for (int w = 1; w < m; w *= 2)
        for (int k = 0; k + w < m; k += 2 * w) p[k] = add(p[k], p[k + w]);
    return p[0];
}

// Blocks of an AR filter of order N, as section_blocks.
void ar_blocks(const float* tab, int N, const float* x, float* y, int nb) {
    const int m = N < 8 ? N : 8;
    const float *X = tab + 16, *Y = tab + 16 + 8 * N;
    for (int b = 0; b < nb; ++b, x += 8, y += 8) {
        __m256 a0, a1;
        input_part(x, tab, a0, a1);
        for (int k = 1; k <= N; ++k) {
            const __m256 p = mul(bcast(x - k), _mm256_loadu_ps(X + 8 * (k - 1)));
            (k & 1 ? a0 : a1) = add(k & 1 ? a0 : a1, p);
        }
        for (int k = N; k > 8; --k) {  // outputs of earlier blocks
            const __m256 p = mul(bcast(y - k), _mm256_loadu_ps(Y + 8 * (k - 1)));
            (k & 1 ? a0 : a1) = add(k & 1 ? a0 : a1, p);
        }
        _mm256_storeu_ps(y, add(add(a0, a1), recent_part(y, Y, m)));
    }
}

// Where a state's rows and buffers lie in its work area (floats values
// from base, which is 32-byte aligned): two buffers of W + cap + 8 values
// (cap inputs a pass, a multiple of 8) placed so that the blocks start on
// 32 bytes (whole-vector stores, no split lines), then rows of W + 8
// values (unit u's inputs are row u, its outputs row u + 1).
struct Rows {
    int W, U, cap, lead, stride;
    float* base;
    float* buf(int k) const { return base + lead + k * stride; }
    float* row(int u) const { return buf(2) + u * (W + 8); }
};
Rows rows_of(const Hdr* h) {
    float* base = const_cast<float*>(at<float>(h, h->offScratch));
    const bool ar = h->form == Ar;
    const int W = ar ? h->n : 2, U = ar ? 1 : h->n;
    const int floats = ar ? int(kScratchBytes / 4) : 10 * (U + 1) + 2 * (kBqChunk + 10);
    const int lead = (8 - W % 8) % 8, stride = (floats - lead - (U + 1) * (W + 8)) / 2 / 8 * 8;
    return {W, U, (stride - W - 8) / 8 * 8, lead, stride, base};
}

// The one-sample step of every unit, the rows keeping its input and outputs.
float warm_step(Hdr* h, const Rows& r, float x) {
    const float* t = at<float>(h, h->offTaps);
    float* d = at<float>(h, h->offDly);
    const int c = h->fill;
    r.row(0)[c] = x;
    if (h->form == Ar) {
        x = step_ar(t, d, h->n, x);
        r.row(1)[c] = x;
    } else {
        for (int s = 0; s < h->n; ++s) r.row(s + 1)[c] = x = step_bq(t + 5 * s, d + 2 * s, x);
    }
    h->fill = c + 1;
    return x;
}

}  // namespace

void block_run(const float* pSrc, float* pDst, int len, Hdr* h) {
    const Rows r = rows_of(h);
    const int W = r.W;
    const float* tab = at<float>(h, h->offTable);
    int j = 0;
    for (; j < len && h->fill < W; ++j) pDst[j] = warm_step(h, r, pSrc[j]);
    while (j < len) {
        const int have = h->fill - W;  // inputs of the current block so far
        const int m = len - j < r.cap - have ? len - j : r.cap - have;
        const int total = have + m, nb = (total + 7) / 8, done = total / 8 * 8, rest = total - done;
        float *in = r.buf(0), *out = r.buf(1);
        std::memcpy(in, r.row(0), size_t(W + have) * 4);
        std::memcpy(in + W + have, pSrc + j, size_t(m) * 4);
        for (int u = 0; u < r.U; ++u) {
            std::memset(in + W + total, 0, size_t(8 * nb - total) * 4);  // a block's missing inputs
            std::memcpy(out, r.row(u + 1), size_t(W) * 4);
            if (h->form == Ar) ar_blocks(tab, W, in + W, out + W, nb);
            else {
                alignas(64) float sec[48];  // the section's table on whole lines: no split loads
                std::memcpy(sec, tab + 48 * u, sizeof sec);
                section_blocks(sec, in + W, out + W, nb);
            }
            std::memcpy(r.row(u), in + done, size_t(W + rest) * 4);
            std::swap(in, out);
        }
        std::memcpy(r.row(r.U), in + done, size_t(W + rest) * 4);
        std::memcpy(pDst + j, in + W + have, size_t(m) * 4);
        j += m;
        h->fill = W + rest;
    }
}

bool line_from_rows(const Hdr* h, float* d) {
    if (!h->tableOk || h->fill < (h->form == Ar ? h->n : 2)) return false;
    const Rows r = rows_of(h);
    const float* t = at<float>(h, h->offTaps);
    const int p = h->fill;  // the next sample's place in the rows
    if (h->form == Ar) {
        // d[k] = sum over i = k+1..N of b'[i] x[p+k-i] - a'[i] y[p+k-i].
        const int N = h->n;
        const float *x = r.row(0), *y = r.row(1);
        for (int k = 0; k < N; ++k) {
            float acc = 0;
            for (int i = N; i > k; --i) acc = (t[i] * x[p + k - i] - t[N + i] * y[p + k - i]) + acc;
            d[k] = acc;
        }
        return true;
    }
    for (int s = 0; s < h->n; ++s) {
        const float *c = t + 5 * s, *x = r.row(s), *y = r.row(s + 1);
        d[2 * s] = (c[1] * x[p - 1] - c[3] * y[p - 1]) + (c[2] * x[p - 2] - c[4] * y[p - 2]);
        d[2 * s + 1] = c[2] * x[p - 1] - c[4] * y[p - 1];
    }
    return true;
}

void settle_line(Hdr* h) {
    line_from_rows(h, at<float>(h, h->offDly));
    h->fill = 0;
}

void build_tables(Hdr* h) {
    h->tableOk = 0;
    if (!h->offTable) return;
    const float* t = at<float>(h, h->offTaps);
    float* tab = at<float>(h, h->offTable);
    double b[kMaxBlockOrder + 1], a[kMaxBlockOrder + 1];
    bool ok = true;
    if (h->form == Ar) {
        const int N = h->n;
        for (int k = 0; k <= N; ++k) b[k] = t[k];
        for (int k = 1; k <= N; ++k) a[k] = t[N + k];
        ok = fill_tables(b, a, N, tab);
    } else {
        for (int s = 0; s < h->n; ++s) {
            const float* c = t + 5 * s;
            b[0] = c[0], b[1] = c[1], b[2] = c[2], a[1] = c[3], a[2] = c[4];
            ok = fill_tables(b, a, 2, tab + 48 * s) && ok;
        }
    }
    h->tableOk = ok;
}

}  // namespace zams::iir
