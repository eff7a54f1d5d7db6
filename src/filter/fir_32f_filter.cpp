// Single-precision FIR filtering on a state: the direct kernels, the FFT
// overlap-save path through the block convolution engine, the one-sample
// form; and the exact arithmetic of the 32f Direct forms.
#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "fir_32f.h"
#include "fir_direct32f.h"
#include "zamcore.h"

namespace zams::fir {
namespace {

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

// Long filters: every output is the dot product of the reversed taps with
// the samples from its own position, in eight lanes: lane l sums the
// products of taps positions l, l + 8, l + 16, ... in that order (a last
// part vector has its lanes past the taps cleared), and the lanes join as
// ((l0 + l1) + (l2 + l3)) + ((l4 + l5) + (l6 + l7)). An output's sum
// depends on its samples alone, never on its place in the call nor on an
// address, so any split of a signal into calls gives the bits of one call.
// Several outputs go side by side sharing each load of the taps.
alignas(32) constexpr int32_t kLead[16] = {-1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0};

struct Long {
    const float* rt;  // the reversed taps, zeros after them
    int Q;            // whole vectors of taps
    bool part;        // a last part vector (L not a multiple of 8)
    __m256 keep;      // its lanes within the taps
};

// The sums of B outputs from x, x + 1, .. x + B - 1; `last` (for a single
// output near the end of the samples) replaces the part vector's samples.
// The first products start the sums (L >= 32: Q >= 4).
template <int B> inline void sums(const Long& k, const float* x, __m256* s, const float* last = nullptr) {
    const __m256 t0 = _mm256_load_ps(k.rt);
    for (int c = 0; c < B; ++c) s[c] = _mm256_mul_ps(t0, _mm256_loadu_ps(x + c));
    for (int j = 1; j < k.Q; ++j) {
        const __m256 t = _mm256_load_ps(k.rt + 8 * j);
        for (int c = 0; c < B; ++c) s[c] = _mm256_add_ps(s[c], _mm256_mul_ps(t, _mm256_loadu_ps(x + c + 8 * j)));
    }
    if (k.part) {
        const __m256 t = _mm256_load_ps(k.rt + 8 * k.Q);
        for (int c = 0; c < B; ++c) {
            const __m256 v = _mm256_loadu_ps(last ? last : x + c + 8 * k.Q);
            s[c] = _mm256_add_ps(s[c], _mm256_and_ps(_mm256_mul_ps(t, v), k.keep));
        }
    }
}

// The lane joins, written out: four outputs from a 128-bit vector, two
// from the low half of one, eight from a 256-bit one.
inline void join4(const __m256* s, float* y) {
    const __m256 u = _mm256_hadd_ps(_mm256_hadd_ps(s[0], s[1]), _mm256_hadd_ps(s[2], s[3]));
    _mm_storeu_ps(y, _mm_add_ps(_mm256_castps256_ps128(u), _mm256_extractf128_ps(u, 1)));
}
#if defined(__x86_64__)
inline void join_side(const __m256* s, float* y) {
    const __m256 e = _mm256_hadd_ps(_mm256_hadd_ps(s[0], s[1]), _mm256_hadd_ps(s[2], s[3]));
    const __m256 f = _mm256_hadd_ps(_mm256_hadd_ps(s[4], s[5]), _mm256_hadd_ps(s[6], s[7]));
    _mm256_storeu_ps(y, _mm256_add_ps(_mm256_permute2f128_ps(e, f, 0x20), _mm256_permute2f128_ps(e, f, 0x31)));
}
constexpr int kSide = 8;  // sixteen registers: eight sums, the taps, a product
#else
inline void join_side(const __m256* s, float* y) {
    join4(s, y);
    const __m256 u = _mm256_hadd_ps(s[4], s[5]);
    const __m256 v = _mm256_hadd_ps(u, u);
    _mm_storel_pi(reinterpret_cast<__m64*>(y + 4), _mm_add_ps(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1)));
}
constexpr int kSide = 6;  // eight registers: six sums, the taps, a product
#endif

void kernel_long(const Hdr32* h, const float* a, float* y, int count) {
    const int L = h->tapsLen;
    const Long k{const_cast<Hdr32*>(h)->copies(), L >> 3, (L & 7) != 0,
                 _mm256_loadu_ps(reinterpret_cast<const float*>(kLead + 8 - (L & 7)))};
    const int64_t avail = int64_t(count) + L - 1;     // samples in a
    const int64_t reach = 8 * int64_t(k.Q + k.part);  // samples an output's vectors read
    __m256 s[kSide];
    int n = 0;
    for (; n + kSide <= count && n + kSide - 1 + reach <= avail; n += kSide) {
        sums<kSide>(k, a + n, s);
        join_side(s, y + n);
    }
    for (; n < count; ++n) {
        // Near the end the part vector's samples come from a copy with zeros
        // after the last sample, so that nothing past the samples is read.
        alignas(32) float last[8] = {};
        const float* p = a + n + 8 * k.Q;
        if (k.part && n + reach > avail) std::memcpy(last, p, size_t(a + avail - p) * sizeof(float));
        sums<1>(k, a + n, s, k.part && n + reach > avail ? last : nullptr);
        const __m256 u = _mm256_hadd_ps(s[0], s[0]);
        const __m256 v = _mm256_hadd_ps(u, u);
        y[n] = _mm_cvtss_f32(_mm_add_ss(_mm256_castps256_ps128(v), _mm256_extractf128_ps(v, 1)));
    }
}

void kernel(const Hdr32* h, const float* a, float* y, int count) {
    if (h->tapsLen <= 31) kernel_bcast(h, a, y, count);
    else kernel_long(h, a, y, count);
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

// The one-sample form. The sample goes to both halves of the doubled delay
// line so that the span of the last L samples never wraps.
namespace {

inline void push(Hdr32* h, float* d, int old, float x) {
    d[old] = x;
    d[old + h->tapsLen] = x;
    h->idx = old + 1 == h->tapsLen ? 0 : old + 1;
}

// Fewer than 12 taps: one single-precision sum, oldest sample first.
zamStatus one_short(Hdr32* h, float x, float* out) {
    const int L = h->tapsLen, old = h->idx;
    float* d = h->dly();
    const float* span = d + old + 1;
    const float* rt = h->copies();
    push(h, d, old, x);
    float y = 0.0f;
    for (int j = 0; j < L; ++j) y += rt[j] * span[j];
    *out = y;
    return zamStatusOk;
}

// From 12 taps: the span's n = L - 8 older samples as W = n / 8 whole
// vectors and, when n is not a multiple of 8 (P), a front part vector with
// its lanes from n mod 8 on cleared, into two sums; the eight newest as one
// vector. The newest ones were stored one by one by the last calls, and a
// vector load over recent single stores waits for them to leave the store
// buffer: the four oldest of them go in one load, the next three singly,
// the newest is the argument. W < 0: W from the taps length.
template <int W, bool P> zamStatus one_long(Hdr32* h, float x, float* out) {
    const int L = h->tapsLen, old = h->idx, n = L - 8, rem = P ? n & 7 : 0, w = W >= 0 ? W : n >> 3;
    float* d = h->dly();
    const float* span = d + old + 1;
    const float* rt = h->copies();  // the reversed taps
    const float* e = span + n;
    const __m256 newest =
        _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(e)), _mm_setr_ps(e[4], e[5], e[6], x), 1);
    __m256 s0 = _mm256_mul_ps(_mm256_loadu_ps(rt + n), newest), s1 = _mm256_setzero_ps();
    if (P) {
        const __m256 keep = _mm256_loadu_ps(reinterpret_cast<const float*>(kLead + 8 - rem));  // first rem lanes
        s1 = _mm256_and_ps(_mm256_mul_ps(_mm256_loadu_ps(rt), _mm256_loadu_ps(span)), keep);
    }
    const float* t = rt + rem;
    const float* v = span + rem;
    int i = 0;
    for (; i + 2 <= w; i += 2) {
        s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(t + 8 * i), _mm256_loadu_ps(v + 8 * i)));
        s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(t + 8 * i + 8), _mm256_loadu_ps(v + 8 * i + 8)));
    }
    if (i < w) s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(t + 8 * i), _mm256_loadu_ps(v + 8 * i)));
    const __m256 acc = _mm256_add_ps(s0, s1);
    __m128 q = _mm_add_ps(_mm256_castps256_ps128(acc), _mm256_extractf128_ps(acc, 1));
    q = _mm_add_ps(q, _mm_movehl_ps(q, q));
    q = _mm_add_ss(q, _mm_movehdup_ps(q));
    push(h, d, old, x);
    _mm_store_ss(out, q);
    return zamStatusOk;
}

// The forms: 0 short filters; 1 + 2 W + P a straight-line form for W < 17
// (L < 144); 35 + P the loop. The rest of the table repeats the short form,
// which is right for any taps length.
constexpr int kStraight = 17;
template <size_t... I> constexpr std::array<OneFn, kOneForms> one_table(std::index_sequence<I...>) {
    std::array<OneFn, kOneForms> t{};
    for (OneFn& f : t) f = one_short;
    const OneFn straight[] = {one_long<int(I / 2), I % 2 == 1>...};
    for (size_t i = 0; i < sizeof...(I); ++i) t[1 + i] = straight[i];
    t[1 + 2 * kStraight] = one_long<-1, false>;
    t[2 + 2 * kStraight] = one_long<-1, true>;
    return t;
}

}  // namespace

const std::array<OneFn, kOneForms> kOne = one_table(std::make_index_sequence<2 * kStraight>{});

int32_t one_form(int L) {
    if (L < 12) return 0;
    const int w = (L - 8) >> 3, p = (L & 7) != 0;
    return w < kStraight ? 1 + 2 * w + p : 1 + 2 * kStraight + p;
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
