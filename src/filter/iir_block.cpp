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
// x[-1]) into outputs y (likewise); the history kept in registers.
void section_blocks(const float* tab, const float* x, float* y, int nb) {
    __m256 xm1 = bcast(x - 1), xm2 = bcast(x - 2), ym1 = bcast(y - 1), ym2 = bcast(y - 2);
    for (int b = 0; b < nb; ++b, x += 8, y += 8) {
        __m256 a0, a1;
        input_part(x, tab, a0, a1);
        a0 = add(a0, mul(xm1, _mm256_loadu_ps(tab + 16)));
        a1 = add(a1, mul(xm2, _mm256_loadu_ps(tab + 24)));
        xm1 = bcast(x + 7), xm2 = bcast(x + 6);
        const __m256 r = add(mul(ym1, _mm256_loadu_ps(tab + 32)), mul(ym2, _mm256_loadu_ps(tab + 40)));
        const __m256 v = add(add(a0, a1), r);
        _mm256_storeu_ps(y, v);
        const __m256 hi = _mm256_permute2f128_ps(v, v, 0x11);
        ym1 = _mm256_permute_ps(hi, 0xFF), ym2 = _mm256_permute_ps(hi, 0xAA);
    }
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

// Where a state's rows and buffers lie in its work area: rows of W + 8
// values (unit u's inputs are row u, its outputs row u + 1), then two
// buffers of W + cap + 8 values (cap inputs a pass, a multiple of 8).
struct Rows {
    int W, U, cap;
    float* base;
    float* row(int u) const { return base + u * (W + 8); }
    float* buf(int k) const { return base + (U + 1) * (W + 8) + k * (W + cap + 8); }
};
Rows rows_of(const Hdr* h) {
    float* base = const_cast<float*>(at<float>(h, h->offScratch));
    if (h->form == Ar) return {h->n, 1, (int(kScratchBytes / 4) - 4 * h->n - 32) / 2 / 8 * 8, base};
    return {2, h->n, kBqChunk, base};
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
            else section_blocks(tab + 48 * u, in + W, out + W, nb);
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
