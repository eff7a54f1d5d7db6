// The adaptive LMS filters' arithmetic and state layout, written once for
// the Direct forms, the float states and the multirate Q15 states.
//
// Float step: y = taps . span in single precision (below 8 taps in order of
// j; from 8 taps eight partial sums by j mod 8 joined as
// ((s0+s4)+(s2+s6))+((s1+s5)+(s3+s7)), the rest added in order), then
// taps[j] += span[j] x g with g = (ref - y) x (mu + mu). The order depends
// on positions in the span only, never on addresses.
//
// Q15 step: y = exact sum / 2^15 rounded to nearest even; taps[j] +=
// round_even(mu x e x w / 2^29), saturated to 32 bits (complex: e x conj(w)).
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "../common/scale.h"
#include "../common/spec.h"
#include "../common/types.h"

namespace zams::lms {

// ---- float kernels over a span of float or 16-bit samples

inline __m256 load8(const float* w) { return _mm256_loadu_ps(w); }
inline __m256 load8(const Zam16s* w) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(w));
    const __m128i lo = _mm_cvtepi16_epi32(v), hi = _mm_cvtepi16_epi32(_mm_unpackhi_epi64(v, v));
    return _mm256_cvtepi32_ps(_mm256_insertf128_si256(_mm256_castsi128_si256(lo), hi, 1));
}

template <class W> inline float dot(const float* t, const W* w, int n) {
    if (n < 8) {
        float s = t[0] * float(w[0]);
        for (int j = 1; j < n; ++j) s = s + t[j] * float(w[j]);
        return s;
    }
    const int n8 = n & ~7;
    __m256 acc = _mm256_mul_ps(_mm256_loadu_ps(t), load8(w));
    for (int j = 8; j < n8; j += 8) acc = _mm256_add_ps(acc, _mm256_mul_ps(_mm256_loadu_ps(t + j), load8(w + j)));
    __m128 h = _mm_add_ps(_mm256_castps256_ps128(acc), _mm256_extractf128_ps(acc, 1));  // s[l] + s[l+4]
    h = _mm_add_ps(h, _mm_movehl_ps(h, h));                                               // (0+2), (1+3)
    float s = _mm_cvtss_f32(_mm_add_ss(h, _mm_movehdup_ps(h)));
    for (int j = n8; j < n; ++j) s = s + t[j] * float(w[j]);
    return s;
}

template <class W> inline void update(float* t, const W* w, int n, float g) {
    const __m256 vg = _mm256_set1_ps(g);
    int j = 0;
    for (; j + 8 <= n; j += 8)
        _mm256_storeu_ps(t + j, _mm256_add_ps(_mm256_loadu_ps(t + j), _mm256_mul_ps(load8(w + j), vg)));
    for (; j < n; ++j) t[j] = t[j] + float(w[j]) * g;
}

// One float step over a span; returns y.
template <class W> inline float step(float* t, const W* w, int n, float ref, float mu2) {
    const float y = dot(t, w, n);
    update(t, w, n, (ref - y) * mu2);
    return y;
}

// The block step for tapsLen = 8 NB (NB <= 4): the taps stay in registers
// from sample to sample and y is summed into every lane by the same joins as
// dot (addition commutes exactly), so the step needs no broadcast; the bits
// are dot's and update's. Spans are w(i) = src + i - 8 NB + 1, i in [from, to).
template <int NB, class W, class R, class Put>
inline void run_in_registers(float* taps, const W* src, const R* ref, int from, int to, float mu2, Put&& put) {
    __m256 t[NB];
    for (int k = 0; k < NB; ++k) t[k] = _mm256_loadu_ps(taps + 8 * k);
    const __m256 m2 = _mm256_set1_ps(mu2);
    for (int i = from; i < to; ++i) {
        const W* w = src + i - 8 * NB + 1;
        __m256 wv[NB];
        for (int k = 0; k < NB; ++k) wv[k] = load8(w + 8 * k);
        __m256 acc = _mm256_mul_ps(t[0], wv[0]);
        for (int k = 1; k < NB; ++k) acc = _mm256_add_ps(acc, _mm256_mul_ps(t[k], wv[k]));
        __m256 v = _mm256_add_ps(acc, _mm256_permute2f128_ps(acc, acc, 1));  // s[l] + s[l+4]
        v = _mm256_add_ps(v, _mm256_permute_ps(v, 0x4E));                     // (0+2), (1+3)
        v = _mm256_add_ps(v, _mm256_permute_ps(v, 0xB1));                     // y in every lane
        put(i, _mm_cvtss_f32(_mm256_castps256_ps128(v)));
        const __m256 g = _mm256_mul_ps(_mm256_sub_ps(_mm256_set1_ps(float(ref[i])), v), m2);
        for (int k = 0; k < NB; ++k) t[k] = _mm256_add_ps(t[k], _mm256_mul_ps(wv[k], g));
    }
    for (int k = 0; k < NB; ++k) _mm256_storeu_ps(taps + 8 * k, t[k]);
}

// The block steps over spans read from src: in registers where tapsLen
// allows, else one step at a time.
template <class W, class R, class Put>
inline void run_from_source(float* t, int n, const W* src, const R* ref, int from, int to, float mu2, Put&& put) {
    switch (n) {
    case 8: return run_in_registers<1>(t, src, ref, from, to, mu2, put);
    case 16: return run_in_registers<2>(t, src, ref, from, to, mu2, put);
    case 24: return run_in_registers<3>(t, src, ref, from, to, mu2, put);
    case 32: return run_in_registers<4>(t, src, ref, from, to, mu2, put);
    default:
        for (int i = from; i < to; ++i) put(i, step(t, src + i - n + 1, n, float(ref[i]), mu2));
    }
}

// ---- the delay-line scheme shared by every form: each sample at i and i + n

template <class S> inline void push(S* line, int& index, int n, S v) {
    line[index] = v;
    line[index + n] = v;
    index = index + 1 == n ? 0 : index + 1;
}
inline int wrap(int index, int n) {
    const int r = index % n;
    return r < 0 ? r + n : r;
}

// ---- state header: offsets from the start of the block, so one layout
// serves both targets. Fields in order: identifier, taps, delay line, index,
// tapsLen, stride between delay-line replicas (float states) or mu (Q15).
struct Hdr {
    int32_t id;
    int32_t tapsOff;
    int32_t dlyOff;
    int32_t index;
    int32_t tapsLen;
    int32_t strideOrMu;
    int32_t owned;
    int32_t pad;
};
static_assert(sizeof(Hdr) == 32);
inline constexpr Shape kShape{64, offsetof(Hdr, owned), true};

template <class T> inline T* at(Hdr* h, int32_t off) { return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(h) + off); }
template <class T> inline const T* at(const Hdr* h, int32_t off) {
    return reinterpret_cast<const T*>(reinterpret_cast<const uint8_t*>(h) + off);
}

// Every call on a state: the pointers (the state's and the others'), then
// the identifier; fn(h) does the work and gives the status.
template <class F, class... P> inline zamStatus on_state(const void* p, int32_t id, F&& fn, const P*... more) {
    if (zamStatus s = check_ptr(p, more...)) return s;
    zamStatus s;
    Hdr* h = state_of<Hdr>(const_cast<void*>(p), {id}, s);
    return h ? fn(h) : s;
}

// ---- Q15 arithmetic, real and complex

inline int32_t q15_tap(int32_t t, int64_t prod) {
    return saturate<Zam32s>(int64_t(t) + shr_round_even(prod, 29));
}

// Exact sum of products; wraps in 64 bits only past 2^17 full-scale taps.
inline int64_t q15_dot(const Zam32s* t, const Zam16s* w, int n) {
    uint64_t s = 0;
    for (int j = 0; j < n; ++j) s += uint64_t(int64_t(t[j]) * w[j]);
    return int64_t(s);
}
struct Wide2 {
    int64_t re, im;
};
inline Wide2 q15_dot(const Zam32sc* t, const Zam16sc* w, int n) {
    uint64_t re = 0, im = 0;
    for (int j = 0; j < n; ++j) {
        re += uint64_t(int64_t(t[j].re) * w[j].re - int64_t(t[j].im) * w[j].im);
        im += uint64_t(int64_t(t[j].re) * w[j].im + int64_t(t[j].im) * w[j].re);
    }
    return {int64_t(re), int64_t(im)};
}

template <class Out> inline Out q15_out(int64_t s) { return saturate<Out>(shr_round_even(s, 15)); }
template <class Out> inline Out q15_out(Wide2 s) {
    using P = part_t<Out>;
    return Out{q15_out<P>(s.re), q15_out<P>(s.im)};
}

// taps[j] += mu e w[j] / 2^29 (mu in [0, 32767], |e| < 2^31: products below 2^62).
inline void q15_update(Zam32s* t, const Zam16s* w, int n, int mu, int32_t e) {
    const int64_t me = int64_t(mu) * e;
    for (int j = 0; j < n; ++j) t[j] = q15_tap(t[j], me * w[j]);
}
inline void q15_update(Zam32sc* t, const Zam16sc* w, int n, int mu, Zam32sc e) {
    const int64_t mr = int64_t(mu) * e.re, mi = int64_t(mu) * e.im;
    for (int j = 0; j < n; ++j) {
        t[j].re = q15_tap(t[j].re, mr * w[j].re + mi * w[j].im);
        t[j].im = q15_tap(t[j].im, mi * w[j].re - mr * w[j].im);
    }
}

inline zamStatus check_mu(int mu) { return mu >= 0 && mu <= 32767 ? zamStatusOk : zamStatusBadArgument; }

}  // namespace zams::lms
