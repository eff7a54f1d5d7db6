// The block filters of 32f data (see iir_block.h).
#include "iir_block.h"

#include <immintrin.h>

#include <cmath>
#include <cstring>

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

// One section over len >= 10 samples, pSrc == pDst allowed.
void bq_section(const float* t, float* d, const float* tab, const float* pSrc, float* pDst, int len) {
    const float x0 = pSrc[0], x1 = pSrc[1];
    const float y0 = step_bq(t, d, x0);
    pDst[0] = y0;
    const float y1 = step_bq(t, d, x1);
    pDst[1] = y1;
    __m256 xm1 = _mm256_set1_ps(x1), xm2 = _mm256_set1_ps(x0), ym1 = _mm256_set1_ps(y1), ym2 = _mm256_set1_ps(y0);
    int j = 2;
    for (; j + 8 <= len; j += 8) {
        __m256 a0, a1;
        input_part(pSrc + j, tab, a0, a1);
        a0 = add(a0, mul(xm1, _mm256_loadu_ps(tab + 16)));
        a1 = add(a1, mul(xm2, _mm256_loadu_ps(tab + 24)));
        xm1 = bcast(pSrc + j + 7), xm2 = bcast(pSrc + j + 6);  // before the store: in place
        const __m256 r = add(mul(ym1, _mm256_loadu_ps(tab + 32)), mul(ym2, _mm256_loadu_ps(tab + 40)));
        const __m256 y = add(add(a0, a1), r);
        _mm256_storeu_ps(pDst + j, y);
        const __m256 hi = _mm256_permute2f128_ps(y, y, 0x11);
        ym1 = _mm256_permute_ps(hi, 0xFF), ym2 = _mm256_permute_ps(hi, 0xAA);
    }
    // The history as the transposed delay line after the last block.
    const float xa = _mm256_cvtss_f32(xm1), xb = _mm256_cvtss_f32(xm2);
    const float ya = _mm256_cvtss_f32(ym1), yb = _mm256_cvtss_f32(ym2);
    d[0] = (t[1] * xa - t[3] * ya) + (t[2] * xb - t[4] * yb);
    d[1] = t[2] * xa - t[4] * ya;
    for (; j < len; ++j) pDst[j] = step_bq(t, d, pSrc[j]);
}

// The products of the newest outputs (k = 1..m, m <= 8) summed as a tree.
inline __m256 recent_part(const float* y, const float* Y, int m) {
    __m256 p[8];
    for (int k = 0; k < m; ++k) p[k] = mul(bcast(y - 1 - k), _mm256_loadu_ps(Y + 8 * k));
    for (int w = 1; w < m; w *= 2)
        for (int k = 0; k + w < m; k += 2 * w) p[k] = add(p[k], p[k + w]);
    return p[0];
}

}  // namespace

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

void bq_blocks(const float* pSrc, float* pDst, int len, Hdr* h) {
    const float* t = at<float>(h, h->offTaps);
    float* d = at<float>(h, h->offDly);
    const float* tab = at<float>(h, h->offTable);
    for (int s = 0; s < h->n; ++s) bq_section(t + 5 * s, d + 2 * s, tab + 48 * s, s ? pDst : pSrc, pDst, len);
}

void ar_blocks(const float* pSrc, float* pDst, int len, Hdr* h) {
    const int N = h->n, m = N < 8 ? N : 8;
    const float* t = at<float>(h, h->offTaps);
    float* d = at<float>(h, h->offDly);
    const float* tab = at<float>(h, h->offTable);
    const float *X = tab + 16, *Y = tab + 16 + 8 * N;
    // xs: the inputs of the blocks, behind the N before them (the
    // destination may be the source, so the inputs are copied first).
    float* xs = at<float>(h, h->offScratch);
    const int chunkMax = (int(kScratchBytes / 4) - N) / 8 * 8;
    int j = 0;
    for (; j < N; ++j) {
        xs[j] = pSrc[j];
        pDst[j] = step_ar(t, d, N, pSrc[j]);
    }
    while (j + 8 <= len) {
        const int chunk = (len - j) / 8 * 8 < chunkMax ? (len - j) / 8 * 8 : chunkMax;
        std::memcpy(xs + N, pSrc + j, size_t(chunk) * 4);
        for (int b = 0; b < chunk; b += 8, j += 8) {
            const float* xp = xs + N + b;
            float* yp = pDst + j;
            __m256 a0, a1;
            input_part(xp, tab, a0, a1);
            for (int k = 1; k <= N; ++k) {
                const __m256 p = mul(bcast(xp - k), _mm256_loadu_ps(X + 8 * (k - 1)));
                (k & 1 ? a0 : a1) = add(k & 1 ? a0 : a1, p);
            }
            for (int k = N; k > 8; --k) {  // outputs of earlier blocks
                const __m256 p = mul(bcast(yp - k), _mm256_loadu_ps(Y + 8 * (k - 1)));
                (k & 1 ? a0 : a1) = add(k & 1 ? a0 : a1, p);
            }
            _mm256_storeu_ps(yp, add(add(a0, a1), recent_part(yp, Y, m)));
        }
        std::memmove(xs, xs + chunk, size_t(N) * 4);
    }
    // The history as the transposed delay line after sample j - 1:
    // d[k] = sum over i = k+1..N of b'[i] x[j-1+k+1-i] - a'[i] y[j-1+k+1-i].
    // Input j + k - i sits at xs[N + k - i].
    for (int k = 0; k < N; ++k) {
        float acc = 0;
        for (int i = N; i > k; --i) acc = (t[i] * xs[N + k - i] - t[N + i] * pDst[j + k - i]) + acc;
        d[k] = acc;
    }
    for (; j < len; ++j) pDst[j] = step_ar(t, d, N, pSrc[j]);
}

}  // namespace zams::iir
