// Single-precision FIR filtering on a state: the direct kernels, the FFT
// overlap-save path through the block convolution engine, the one-sample
// form; and the exact arithmetic of the 32f Direct forms.
#include <immintrin.h>

#include <algorithm>
#include <cstring>

#include "fir_32f.h"
#include "fir_direct32f.h"
#include "zamcore.h"

namespace zams::fir {
namespace {

// Sum of r[k] a[k], k < n: four vectors of eight lanes side by side (no
// chain of dependent additions longer than n / 32), then a scalar tail.
float dot8(const float* r, const float* a, int n) {
    __m256 s0 = _mm256_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
    int k = 0;
    for (; k + 32 <= n; k += 32) {
        s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(r + k), _mm256_loadu_ps(a + k)));
        s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(r + k + 8), _mm256_loadu_ps(a + k + 8)));
        s2 = _mm256_add_ps(s2, _mm256_mul_ps(_mm256_loadu_ps(r + k + 16), _mm256_loadu_ps(a + k + 16)));
        s3 = _mm256_add_ps(s3, _mm256_mul_ps(_mm256_loadu_ps(r + k + 24), _mm256_loadu_ps(a + k + 24)));
    }
    for (; k + 8 <= n; k += 8) s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(r + k), _mm256_loadu_ps(a + k)));
    const __m256 acc = _mm256_add_ps(_mm256_add_ps(s0, s1), _mm256_add_ps(s2, s3));
    __m128 q = _mm_add_ps(_mm256_castps256_ps128(acc), _mm256_extractf128_ps(acc, 1));
    q = _mm_hadd_ps(q, q);
    q = _mm_hadd_ps(q, q);
    float s = _mm_cvtss_f32(q);
    for (; k < n; ++k) s += r[k] * a[k];
    return s;
}

// y[n] = sum over k < L of rt[k] a[n + k], n < count: a holds count + L - 1
// samples (history then input), rt the reversed taps.

// Short filters: each tap broadcast against eight consecutive outputs, four
// vectors of outputs at a time; taps in natural order from the repeated
// layout (taps[j] meets a[n + L-1-j]).
void kernel_bcast(const Hdr32* h, const float* a, float* y, int count) {
    const int L = h->tapsLen, rep = h->rep;
    const float* t = const_cast<Hdr32*>(h)->rep_taps();
    const float* e = a + (L - 1);
    int n = 0;
    for (; n + 32 <= count; n += 32) {
        __m256 s0 = _mm256_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
        for (int j = 0; j < L; ++j) {
            const __m256 tj = _mm256_broadcast_ss(t + j * rep);
            const float* x = e + n - j;
            s0 = _mm256_add_ps(s0, _mm256_mul_ps(tj, _mm256_loadu_ps(x)));
            s1 = _mm256_add_ps(s1, _mm256_mul_ps(tj, _mm256_loadu_ps(x + 8)));
            s2 = _mm256_add_ps(s2, _mm256_mul_ps(tj, _mm256_loadu_ps(x + 16)));
            s3 = _mm256_add_ps(s3, _mm256_mul_ps(tj, _mm256_loadu_ps(x + 24)));
        }
        _mm256_storeu_ps(y + n, s0);
        _mm256_storeu_ps(y + n + 8, s1);
        _mm256_storeu_ps(y + n + 16, s2);
        _mm256_storeu_ps(y + n + 24, s3);
    }
    for (; n + 8 <= count; n += 8) {
        __m256 s0 = _mm256_setzero_ps();
        for (int j = 0; j < L; ++j)
            s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_broadcast_ss(t + j * rep), _mm256_loadu_ps(e + n - j)));
        _mm256_storeu_ps(y + n, s0);
    }
    for (; n < count; ++n) {
        float s = 0.0f;
        for (int j = 0; j < L; ++j) s += t[j * rep] * e[n - j];
        y[n] = s;
    }
}

// Four outputs b + c0 .. b + c0 + 3 from the shifted copies c0 .. c0 + 3
// against the samples from a + b, K of them; and the same for the group
// eight samples on (b + 8 + c0 ..) when `two`, sharing the loads of the
// taps. The sums of each output are the same in either form.
inline __m128 reduce4(__m256 s0, __m256 s1, __m256 s2, __m256 s3) {
    const __m256 u = _mm256_hadd_ps(_mm256_hadd_ps(s0, s1), _mm256_hadd_ps(s2, s3));
    return _mm_add_ps(_mm256_castps256_ps128(u), _mm256_extractf128_ps(u, 1));
}
inline __m128 four_outputs(const float* copies, int stride, int c0, const float* x, int K) {
    const float* c = copies + c0 * stride;
    __m256 s0 = _mm256_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
    for (int i = 0; i < K; i += 8) {
        const __m256 v = _mm256_loadu_ps(x + i);
        s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(c + i), v));
        s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(c + stride + i), v));
        s2 = _mm256_add_ps(s2, _mm256_mul_ps(_mm256_loadu_ps(c + 2 * stride + i), v));
        s3 = _mm256_add_ps(s3, _mm256_mul_ps(_mm256_loadu_ps(c + 3 * stride + i), v));
    }
    return reduce4(s0, s1, s2, s3);
}
#if defined(__x86_64__)
// Sixteen registers: two groups at once.
inline void four_outputs2(const float* copies, int stride, int c0, const float* x, int K, __m128& lo, __m128& hi) {
    const float* c = copies + c0 * stride;
    __m256 s0 = _mm256_setzero_ps(), s1 = s0, s2 = s0, s3 = s0, t0 = s0, t1 = s0, t2 = s0, t3 = s0;
    for (int i = 0; i < K; i += 8) {
        const __m256 v = _mm256_loadu_ps(x + i), w = _mm256_loadu_ps(x + 8 + i);
        __m256 k = _mm256_loadu_ps(c + i);
        s0 = _mm256_add_ps(s0, _mm256_mul_ps(k, v));
        t0 = _mm256_add_ps(t0, _mm256_mul_ps(k, w));
        k = _mm256_loadu_ps(c + stride + i);
        s1 = _mm256_add_ps(s1, _mm256_mul_ps(k, v));
        t1 = _mm256_add_ps(t1, _mm256_mul_ps(k, w));
        k = _mm256_loadu_ps(c + 2 * stride + i);
        s2 = _mm256_add_ps(s2, _mm256_mul_ps(k, v));
        t2 = _mm256_add_ps(t2, _mm256_mul_ps(k, w));
        k = _mm256_loadu_ps(c + 3 * stride + i);
        s3 = _mm256_add_ps(s3, _mm256_mul_ps(k, v));
        t3 = _mm256_add_ps(t3, _mm256_mul_ps(k, w));
    }
    lo = reduce4(s0, s1, s2, s3);
    hi = reduce4(t0, t1, t2, t3);
}
#endif

// Long filters: a vector of consecutive reversed taps against a vector of
// consecutive samples, eight outputs from one run of samples, each output
// from the copy that matches its phase. Groups start at the first output
// whatever the address of the samples, so that an output's sum depends on
// its place in the call and never on where the caller's buffers lie.
// Outputs whose run would read past the samples are single dot products.
void kernel_copies(const Hdr32* h, const float* a, float* y, int count) {
    const int L = h->tapsLen, stride = h->copyStride;
    const float* copies = const_cast<Hdr32*>(h)->copies();
    const int K = (L + 7 + 7) & ~7;  // samples a group reads
    const int64_t avail = int64_t(count) + L - 1;
    int b = 0;
#if defined(__x86_64__)
    for (; b + 16 <= count && b + 8 + int64_t(K) <= avail; b += 16) {
        __m128 lo, hi;
        four_outputs2(copies, stride, 0, a + b, K, lo, hi);
        _mm_storeu_ps(y + b, lo);
        _mm_storeu_ps(y + b + 8, hi);
        four_outputs2(copies, stride, 4, a + b, K, lo, hi);
        _mm_storeu_ps(y + b + 4, lo);
        _mm_storeu_ps(y + b + 12, hi);
    }
#endif
    for (; b + 8 <= count && b + int64_t(K) <= avail; b += 8) {
        _mm_storeu_ps(y + b, four_outputs(copies, stride, 0, a + b, K));
        _mm_storeu_ps(y + b + 4, four_outputs(copies, stride, 4, a + b, K));
    }
    for (int n = b; n < count; ++n) y[n] = dot8(copies, a + n, L);
}

void kernel(const Hdr32* h, const float* a, float* y, int count) {
    if (h->tapsLen <= 31) kernel_bcast(h, a, y, count);
    else kernel_copies(h, a, y, count);
}

// Outputs [first, last) straight from the input (first >= L - 1), right to
// left in pieces so that an in-place call reads no output; a piece goes
// through a local buffer when the call is in place.
void from_input(const Hdr32* h, const float* src, float* dst, int first, int last) {
    constexpr int kPiece = 512;
    alignas(32) float buf[kPiece];
    const int L = h->tapsLen;
    const bool inPlace = src == dst;
    for (int end = last; end > first;) {
        const int beg = std::max(first, end - kPiece);
        float* out = inPlace ? buf : dst + beg;
        kernel(h, src + beg - (L - 1), out, end - beg);
        if (inPlace) std::memcpy(dst + beg, buf, size_t(end - beg) * sizeof(float));
        end = beg;
    }
}

zamStatus direct_block(Hdr32* h, const float* src, float* dst, int len) {
    const int L = h->tapsLen;
    float* d = h->dly();
    if (h->idx) std::memmove(d, d + h->idx, size_t(L) * sizeof(float));
    h->idx = 0;
    // Joined: [L-1 history samples | the first n1 inputs] at d + 1.
    const int n1 = std::min(len, h->padLen);
    std::memcpy(d + L, src, size_t(n1) * sizeof(float));
    if (len > n1) from_input(h, src, dst, n1, len);
    kernel(h, d + 1, dst, n1);
    return zamStatusOk;
}

}  // namespace

zamStatus block32(Hdr32* h, const float* src, float* dst, int len) {
    const int L = h->tapsLen;
    float* d = h->dly();
    float* next = d + 2 * L + 8;  // the delay line after this call
    const float* span = d + h->idx;
    if (len >= L) {
        std::memcpy(next, src + (len - L), size_t(L) * sizeof(float));
    } else {
        std::memmove(next, span + len, size_t(L - len) * sizeof(float));
        std::memcpy(next + (L - len), src, size_t(len) * sizeof(float));
    }
    zamStatus st = zamStatusOk;
    if (h->fftLen > 0 && conv::use_fft(conv::kFir, len, L)) {
        int threads = 1;
        if (len >= conv::kFir.minParallel) threads = std::min(h->threads, ownGetNumThreads());
        const conv::Signal s{span + 1, L - 1, src, len, L - 1};
        st = conv::run(h->k, s, dst, len, h->scratch(), h->stride, std::max(1, threads));
        if (st < 0) return st;
    } else {
        st = direct_block(h, src, dst, len);
    }
    std::memmove(d, next, size_t(L) * sizeof(float));
    h->idx = 0;
    return st;
}

// The eight newest samples of the span, stored by the last calls, are read
// one by one (a vector load over recent single stores waits for them to
// leave the store buffer) and the newest comes from the argument; the
// older ones go in vectors, the last of which overlaps the one before with
// the repeated lanes masked off.
float one32(Hdr32* h, float x) {
    const int L = h->tapsLen;
    float* d = h->dly();
    const int old = h->idx;
    const float* span = d + old + 1;
    const float* rt = h->copies();  // copy 0: the reversed taps
    float y;
    if (L < 12) {
        d[old] = x;
        d[old + L] = x;
        y = 0.0f;
        for (int j = 0; j < L; ++j) y += rt[j] * span[j];
    } else {
        const int n = L - 8, whole = n & ~7, rem = n - whole;
        float y0 = 0.0f;  // the oldest few of a filter shorter than 16
        __m256 s0 = _mm256_setzero_ps(), s1 = s0;
        int k = 0;
        for (; k + 16 <= whole; k += 16) {
            s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(rt + k), _mm256_loadu_ps(span + k)));
            s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(rt + k + 8), _mm256_loadu_ps(span + k + 8)));
        }
        if (k < whole) s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(rt + k), _mm256_loadu_ps(span + k)));
        if (rem && n < 8) {
            for (int j = 0; j < n; ++j) y0 += rt[j] * span[j];
        } else if (rem) {
            alignas(32) static constexpr int32_t kMask[16] = {0, 0, 0, 0, 0, 0, 0, 0, -1, -1, -1, -1, -1, -1, -1, -1};
            const __m256 keep = _mm256_loadu_ps(reinterpret_cast<const float*>(kMask + rem));  // last rem lanes
            const __m256 p = _mm256_mul_ps(_mm256_loadu_ps(rt + n - 8), _mm256_loadu_ps(span + n - 8));
            s1 = _mm256_add_ps(s1, _mm256_and_ps(p, keep));
        }
        const float* e = span + n;
        const __m256 newest =
            _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(e)), _mm_setr_ps(e[4], e[5], e[6], x), 1);
        s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(rt + n), newest));
        const __m256 acc = _mm256_add_ps(s0, s1);
        __m128 q = _mm_add_ps(_mm256_castps256_ps128(acc), _mm256_extractf128_ps(acc, 1));
        q = _mm_add_ps(q, _mm_movehl_ps(q, q));
        q = _mm_add_ss(q, _mm_movehdup_ps(q));
        y = _mm_cvtss_f32(q) + y0;
        d[old] = x;
        d[old + L] = x;
    }
    h->idx = old + 1 == L ? 0 : old + 1;
    return y;
}

// The 32f Direct forms' sum of taps[L-1-j] span[j]: products in single
// precision, summed in double, rounded once. From 16 taps on, the span
// elements from the first one on a 32-byte boundary go in blocks of eight
// to eight partial sums (two vectors of four); the elements before it and
// after the last block go in order to one scalar sum. The result is
// ((p0 + p4) + (p1 + p5)) + ((p2 + p6) + (p3 + p7)) + the scalar sum. A span
// not on a 4-byte boundary is summed one element at a time.
float direct_sum32f(const float* taps, const float* span, int L) {
    const float* t = taps + (L - 1);  // t[-j] = taps[L-1-j]
    double r = 0.0;
    const uintptr_t u = reinterpret_cast<uintptr_t>(span);
    if (L < 16 || (u & 3)) {
        for (int j = 0; j < L; ++j) r += double(t[-j] * span[j]);
        return float(r);
    }
    const int head = std::min(L, int(((32 - (u & 31)) & 31) / 4));
    int j = 0;
    for (; j < head; ++j) r += double(t[-j] * span[j]);
    __m256d lo = _mm256_setzero_pd(), hi = lo;
    for (; j + 8 <= L; j += 8) {
        __m256 tv = _mm256_loadu_ps(t - j - 7);  // taps for j+7 .. j, reversed below
        tv = _mm256_permute_ps(_mm256_permute2f128_ps(tv, tv, 1), 0x1B);
        const __m256 p = _mm256_mul_ps(tv, _mm256_load_ps(span + j));
        lo = _mm256_add_pd(lo, _mm256_cvtps_pd(_mm256_castps256_ps128(p)));
        hi = _mm256_add_pd(hi, _mm256_cvtps_pd(_mm256_extractf128_ps(p, 1)));
    }
    for (; j < L; ++j) r += double(t[-j] * span[j]);
    alignas(32) double q[4];
    _mm256_store_pd(q, _mm256_add_pd(lo, hi));
    return float(((q[0] + q[1]) + (q[2] + q[3])) + r);
}

}  // namespace zams::fir
