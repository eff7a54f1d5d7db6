// The multirate FIR: up-sample by U (input i at i U + upPhase, zeros
// between), filter with L taps, keep every D-th sample from downPhase.
//
// Polyphase: output j of a block (j < U) lies at t = j D + downPhase -
// upPhase on the input grid times U; only the taps k = t mod U + r U meet
// inputs, so it is the sum over r of taps[t mod U + r U] x[floor(t / U) - r]:
// sub-filter p = t mod U (ceil(L / U) taps) against the inputs ending at
// q = floor(t / U). Block b adds b D to q. The state keeps the U
// sub-filters reversed and padded at their old end to M taps (M a multiple
// of the kernel's vector width), and a (p, q) pair for each j.
//
// Areas after the header, each on a 32-byte boundary:
//   keep   the taps as given (GetTaps);
//   sub    U x M coefficients;
//   phase  (p, q) for j = 0 .. U-1;
//   stage  M samples of history (oldest first), then room for the inputs of
//          `chunk` blocks: a call stages its inputs chunk by chunk behind the
//          history, so every window is contiguous and the kernels never
//          depend on the caller's addresses;
//   next, old  M samples each: the delay line a backward call leaves and the
//          one it found;
//   sets, split  (16-bit kinds, when chunks have enough blocks) each sub-filter
//          split by tap position mod D into D sets of W = ceil(M / D) taps,
//          and room for the stage split by sample position mod D into D
//          streams of Wy samples. Output j of every block is then D
//          single-rate filters (a set against a stream), summed exactly
//          sixteen blocks a step by the single-rate 16-bit kernel.
// A call runs forwards, except in place with U > D, where the outputs
// outrun the inputs: it then saves the new delay line, and stages and
// filters the chunks from the last one back (every chunk's outputs lie at
// or after its inputs).
#include <immintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "../common/spec.h"
#include "fir_generic.h"
#include "firmr.h"

namespace zams::fir {
namespace {

enum class Rule {
    Plain,  // as given
    Shift,  // 32-bit integers shifted into 16 bits, exact sums
    Fit,    // floats scaled into 16 bits, exact sums
};

// A kind: taps as given, data, the stage's samples, the coefficients, the
// accumulator, the precision a floating sum is rounded to, the kept taps.
template <class TapsT, class DataT, class WorkT, class CoefT, class AccT, class PartT, class KeepT, Rule R,
          int32_t Id, int Pad>
struct Kind {
    using Taps = TapsT;
    using Data = DataT;
    using Work = WorkT;
    using Coef = CoefT;
    using Acc = AccT;
    using Part = PartT;
    using Keep = KeepT;
    static constexpr Rule rule = R;
    static constexpr int32_t id = Id;
    static constexpr int pad = Pad;
};

struct Hdr {
    int32_t id, owned, tapsLen, up, upPhase, down, downPhase, M, dlyLen, chunk, factor, total;
    int32_t offKeep, offSub, offPhase, offStage, offNext, offOld;
    int32_t offSets, offSplit, W, Wy;  // W 0: the 16-bit sets are not laid out
};
inline constexpr Shape kShape{32, offsetof(Hdr, owned), false};

template <class T> T* at(const Hdr* h, int32_t off) {
    return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(const_cast<Hdr*>(h)) + off);
}
constexpr int64_t ru32(int64_t n) { return (n + 31) & ~int64_t(31); }

// The one layout: the size query reports `size`, the build lays these out.
struct Lay {
    int64_t M, dlyLen, chunk, keep, sub, phase, stage, next, old, sets, split, W, Wy, size;
};
template <class K> Lay layout(int L, int U, int D) {
    Lay l;
    l.dlyLen = (int64_t(L) + U - 1) / U;
    l.M = (l.dlyLen + K::pad - 1) / K::pad * K::pad;
    l.chunk = std::max<int64_t>(1, 1024 / D);
    l.keep = ru32(sizeof(Hdr));
    l.sub = l.keep + ru32(int64_t(L) * int64_t(sizeof(typename K::Keep)));
    l.phase = l.sub + ru32(int64_t(U) * l.M * int64_t(sizeof(typename K::Coef)));
    l.stage = l.phase + ru32(8 * int64_t(U));
    const int64_t w = sizeof(typename K::Work);
    l.next = l.stage + ru32((l.M + l.chunk * D) * w);
    l.old = l.next + ru32(l.M * w);
    l.sets = l.old + ru32(l.M * w);
    // The split needs whole steps of blocks and at least two taps a set.
    const bool split = std::is_same_v<typename K::Coef, Zam16s> && l.chunk >= kSums16Step && l.M >= 2 * int64_t(D) &&
                       l.M / D < (1 << 22);
    l.W = split ? (l.M + D - 1) / D : 0;
    l.Wy = split ? (l.M + l.chunk * D + D - 1) / D : 0;
    l.split = l.sets + ru32(int64_t(U) * D * l.W * int64_t(sizeof(typename K::Coef)));
    l.size = l.split + ru32(int64_t(D) * l.Wy * w) + 31;  // the caller's buffer is rounded up to 32
    return l;
}

zamStatus check_rates(int L, int U, int up, int D, int dp) {
    if (L < 1) return zamStatusBadTapsLength;
    if (U < 1) return zamStatusBadMultirateFactor;
    if (up < 0 || up >= U) return zamStatusBadMultiratePhase;
    if (D < 1) return zamStatusBadMultirateFactor;
    if (dp < 0 || dp >= D) return zamStatusBadMultiratePhase;
    return zamStatusOk;
}

template <class K> zamStatus get_size(int L, int U, int D, int* pSize) {
    if (zamStatus s = check_ptr(pSize)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    if (U < 1 || D < 1) return zamStatusBadMultirateFactor;
    return report_size(layout<K>(L, U, D).size, pSize);
}

// Keeps the taps and rewrites the sub-filters from them.
template <class K> void set_taps(Hdr* h, const typename K::Taps* taps, int factor) {
    using Coef = typename K::Coef;
    const int L = h->tapsLen, U = h->up;
    const int64_t M = h->M;
    auto* keep = at<typename K::Keep>(h, h->offKeep);
    for (int i = 0; i < L; ++i) keep[i] = typename K::Keep(taps[i]);
    h->factor = factor;
    h->total = 0;
    int shift = 0, fit = 0;
    if constexpr (K::rule == Rule::Shift) {
        int64_t m = 0;
        for (int i = 0; i < L; ++i) m = std::max<int64_t>(m, taps[i] < 0 ? -int64_t(taps[i]) : int64_t(taps[i]));
        shift = taps_shift(m);
        h->total = add_scale(shift, factor);
    } else if constexpr (K::rule == Rule::Fit) {
        double m = 0;
        for (int i = 0; i < L; ++i) m = std::max(m, fit_magnitude(double(taps[i])));
        fit = taps_fit(m);
        h->total = fit;
    }
    Coef* sub = at<Coef>(h, h->offSub);
    std::memset(static_cast<void*>(sub), 0, size_t(int64_t(U) * M) * sizeof(Coef));
    for (int k = 0; k < L; ++k) {
        Coef c;
        if constexpr (K::rule == Rule::Shift) c = Coef(int64_t(taps[k]) >> shift);
        else if constexpr (K::rule == Rule::Fit) c = Coef(fit_tap(double(taps[k]), fit));
        else c = taps[k];
        sub[int64_t(k % U) * M + (M - 1 - k / U)] = c;
    }
    const int64_t D = h->down, W = h->W;
    Coef* sets = at<Coef>(h, h->offSets);
    for (int64_t p = 0; p < U; ++p)
        for (int64_t s = 0; s < D; ++s)
            for (int64_t m = 0; m < W; ++m)
                sets[(p * D + s) * W + m] = s + m * D < M ? sub[p * M + s + m * D] : Coef{};
}

// Delay line: the newest dlyLen samples of the stage's history, the older
// part of it zeros.
template <class K> void set_dly(Hdr* h, const typename K::Data* dly) {
    using Work = typename K::Work;
    Work* s = at<Work>(h, h->offStage);
    const int M = h->M, n = h->dlyLen;
    for (int i = 0; i < M; ++i) s[i] = Work{};
    if (dly)
        for (int i = 0; i < n; ++i) s[M - 1 - i] = Work(dly[i]);
}

template <class K>
zamStatus build(uint8_t* base, const typename K::Taps* taps, int L, int factor, int U, int up, int D, int dp,
                const typename K::Data* dly, int32_t& id) {
    const Lay l = layout<K>(L, U, D);
    if (l.size >= INT32_MAX) return zamStatusNoMemory;
    Hdr* h = reinterpret_cast<Hdr*>(base);
    *h = Hdr{0,      0,        L,         U,         up,         D,        dp,      int32_t(l.M), int32_t(l.dlyLen),
             int32_t(l.chunk), factor, 0, int32_t(l.keep), int32_t(l.sub), int32_t(l.phase), int32_t(l.stage),
             int32_t(l.next), int32_t(l.old), int32_t(l.sets), int32_t(l.split), int32_t(l.W), int32_t(l.Wy)};
    int32_t* ph = at<int32_t>(h, h->offPhase);
    for (int j = 0; j < U; ++j) {
        const int64_t t = int64_t(j) * D + dp - up;
        const int64_t q = t >= 0 ? t / U : -((-t + U - 1) / U);  // floor
        ph[2 * j] = int32_t(t - q * U);
        ph[2 * j + 1] = int32_t(q);
    }
    set_taps<K>(h, taps, factor);
    set_dly<K>(h, dly);
    id = K::id;
    return zamStatusOk;
}

template <class K>
zamStatus init(void** pp, const typename K::Taps* taps, int L, int factor, int U, int up, int D, int dp,
               const typename K::Data* dly, uint8_t* buf) {
    if (zamStatus s = check_ptr(pp, taps, buf)) return s;
    if (zamStatus s = check_rates(L, U, up, D, dp)) return s;
    if (layout<K>(L, U, D).size >= INT32_MAX) return zamStatusNoMemory;
    return lay_into(pp, buf, kShape,
                    [&](uint8_t* b, int32_t& id) { return build<K>(b, taps, L, factor, U, up, D, dp, dly, id); });
}

template <class K>
zamStatus init_alloc(void** pp, const typename K::Taps* taps, int L, int factor, int U, int up, int D, int dp,
                     const typename K::Data* dly) {
    if (zamStatus s = check_ptr(pp, taps)) return s;
    if (zamStatus s = check_rates(L, U, up, D, dp)) return s;
    return lay_alloc(pp, layout<K>(L, U, D).size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        return lay_into(out, mem, kShape,
                        [&](uint8_t* b, int32_t& id) { return build<K>(b, taps, L, factor, U, up, D, dp, dly, id); });
    });
}

// ---- kernels: n sums, output i from sub-filter c[i] against window x[i]

// Four single-precision dot products of M (a multiple of 8) terms at a
// time, eight lanes each, the lanes added in one fixed order.
inline void dots_f32(const float* const* c, const float* const* x, int n, int M, float* out) {
    int i = 0;
    for (; i < n; i += 4) {
        const int a = i, b1 = std::min(i + 1, n - 1), b2 = std::min(i + 2, n - 1), b3 = std::min(i + 3, n - 1);
        __m256 s0 = _mm256_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
        for (int k = 0; k < M; k += 8) {
            s0 = _mm256_add_ps(s0, _mm256_mul_ps(_mm256_loadu_ps(x[a] + k), _mm256_load_ps(c[a] + k)));
            s1 = _mm256_add_ps(s1, _mm256_mul_ps(_mm256_loadu_ps(x[b1] + k), _mm256_load_ps(c[b1] + k)));
            s2 = _mm256_add_ps(s2, _mm256_mul_ps(_mm256_loadu_ps(x[b2] + k), _mm256_load_ps(c[b2] + k)));
            s3 = _mm256_add_ps(s3, _mm256_mul_ps(_mm256_loadu_ps(x[b3] + k), _mm256_load_ps(c[b3] + k)));
        }
        const __m256 h = _mm256_hadd_ps(_mm256_hadd_ps(s0, s1), _mm256_hadd_ps(s2, s3));
        alignas(16) float r[4];
        _mm_store_ps(r, _mm_add_ps(_mm256_castps256_ps128(h), _mm256_extractf128_ps(h, 1)));
        for (int k = 0; k < 4 && i + k < n; ++k) out[i + k] = r[k];
    }
}

template <class K> void dots(const typename K::Coef* const* c, const typename K::Work* const* x, int n, int M,
                             typename K::Acc* out) {
    if constexpr (std::is_same_v<typename K::Coef, float> && std::is_same_v<typename K::Work, float>) {
        dots_f32(c, x, n, M, out);
    } else if constexpr (std::is_same_v<typename K::Coef, Zam16s>) {
        for (int i = 0; i < n; ++i) out[i] = dot16(c[i], x[i], M);
    } else {
        for (int i = 0; i < n; ++i) {
            typename K::Acc a{};
            for (int k = 0; k < M; ++k) mac(a, c[i][k], x[i][k]);
            out[i] = a;
        }
    }
}

template <class K> void to_work(const typename K::Data* s, typename K::Work* w, int64_t n) {
    if constexpr (std::is_same_v<typename K::Data, typename K::Work>)
        std::memmove(static_cast<void*>(w), s, size_t(n) * sizeof(*s));
    else
        for (int64_t i = 0; i < n; ++i) w[i] = typename K::Work(s[i]);
}

// Sample i of the n of s to ys[(i % D) Wy + i / D]: eight samples of each
// stream a step for D = 2 and 4, one at a time otherwise.
inline void split16(const Zam16s* s, int n, int D, Zam16s* ys, int64_t Wy) {
    auto ld = [&](int i) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i)); };
    auto st = [&](int r, int m, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(ys + r * Wy + m), v); };
    int i = 0;
    if (D == 2) {
        const __m128i m = _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, 2, 3, 6, 7, 10, 11, 14, 15);
        for (; i + 16 <= n; i += 16) {
            const __m128i a = _mm_shuffle_epi8(ld(i), m), b = _mm_shuffle_epi8(ld(i + 8), m);
            st(0, i / 2, _mm_unpacklo_epi64(a, b));
            st(1, i / 2, _mm_unpackhi_epi64(a, b));
        }
    } else if (D == 4) {
        const __m128i m = _mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
        for (; i + 32 <= n; i += 32) {
            const __m128i a0 = _mm_shuffle_epi8(ld(i), m), a1 = _mm_shuffle_epi8(ld(i + 8), m);
            const __m128i a2 = _mm_shuffle_epi8(ld(i + 16), m), a3 = _mm_shuffle_epi8(ld(i + 24), m);
            const __m128i t0 = _mm_unpacklo_epi32(a0, a1), t1 = _mm_unpacklo_epi32(a2, a3);
            const __m128i t2 = _mm_unpackhi_epi32(a0, a1), t3 = _mm_unpackhi_epi32(a2, a3);
            st(0, i / 4, _mm_unpacklo_epi64(t0, t1));
            st(1, i / 4, _mm_unpackhi_epi64(t0, t1));
            st(2, i / 4, _mm_unpacklo_epi64(t2, t3));
            st(3, i / 4, _mm_unpackhi_epi64(t2, t3));
        }
    }
    for (; i < n; ++i) ys[(i % D) * Wy + i / D] = s[i];
}

// run_chunk for 16-bit kinds with the sets laid out: for each output j of a
// block, the sum over s < D of set (p_j, s) against the stream of the
// stage's samples e_j + s + n D (n = 0, 1, ...), e_j the stage offset of
// block 0's window; written to every U-th output.
template <class K> void run_chunk16(const Hdr* h, int64_t b0, int64_t b1, Zam16s* dst, int scale) {
    const int U = h->up, D = h->down, M = h->M, W = h->W, Wy = h->Wy;
    const int nb = int(b1 - b0), nStage = M + nb * D;
    const Zam16s* sets = at<Zam16s>(h, h->offSets);
    const int32_t* ph = at<int32_t>(h, h->offPhase);
    const Zam16s* st = at<Zam16s>(h, h->offStage);
    const Zam16s* y = st;
    if (D > 1) {
        Zam16s* split = at<Zam16s>(h, h->offSplit);
        split16(st, nStage, D, split, Wy);
        y = split;
    }
    double sum[1024];  // nb <= chunk <= 1024
    Zam16s out[1024];
    for (int j = 0; j < U; ++j) {
        const int p = ph[2 * j], e = ph[2 * j + 1] + 1;
        for (int b = 0; b < nb; ++b) sum[b] = 0;
        for (int s = 0; s < D; ++s) {
            const int t = e + s;
            sums16_add(sets + (int64_t(p) * D + s) * W, y + int64_t(t % D) * Wy + t / D, (M - s + D - 1) / D, nb, sum);
        }
        emit16_exact(sum, out, nb, scale);
        for (int b = 0; b < nb; ++b) dst[(b0 + b) * U + j] = out[b];
    }
}

// The outputs of blocks [b0, b1) from the stage, which holds the inputs
// [b0 D - M, b1 D): pieces of at most 64 sums, each written as Data.
template <class K> void run_chunk(const Hdr* h, int64_t b0, int64_t b1, typename K::Data* dst, int scale) {
    if constexpr (std::is_same_v<typename K::Coef, Zam16s>) {
        if (h->W && b1 - b0 >= kSums16Step) return run_chunk16<K>(h, b0, b1, dst, scale);
    }
    constexpr int kPiece = 64;
    const int U = h->up, M = h->M;
    const int64_t D = h->down;
    const auto* sub = at<typename K::Coef>(h, h->offSub);
    const int32_t* ph = at<int32_t>(h, h->offPhase);
    const auto* st = at<typename K::Work>(h, h->offStage);
    const typename K::Coef* c[kPiece];
    const typename K::Work* x[kPiece];
    typename K::Acc acc[kPiece];
    const int64_t end = b1 * U;
    int64_t at = 0;  // the stage offset of block b's windows
    int j = 0;       // the output's place in its block
    for (int64_t o = b0 * U; o < end; o += kPiece) {
        const int n = int(std::min<int64_t>(kPiece, end - o));
        for (int i = 0; i < n; ++i) {
            c[i] = sub + int64_t(ph[2 * j]) * M;
            x[i] = st + (at + ph[2 * j + 1] + 1);
            if (++j == U) {
                j = 0;
                at += D;
            }
        }
        dots<K>(c, x, n, M, acc);
        emit<typename K::Part>(acc, dst + o, n, scale);
    }
}

template <class K>
zamStatus filter(void* p, const typename K::Data* src, typename K::Data* dst, int N, int sf) {
    using Work = typename K::Work;
    Hdr* h = static_cast<Hdr*>(p);
    const int64_t U = h->up, D = h->down, M = h->M, chunk = h->chunk;
    if (int64_t(N) * std::max(U, D) > INT32_MAX) return zamStatusBadLength;
    const bool exact = std::is_integral_v<typename K::Coef>;
    const int scale = exact ? add_scale(h->total, sf) : sf;
    Work* st = at<Work>(h, h->offStage);
    const int64_t nIn = int64_t(N) * D;
    if (static_cast<const void*>(src) == static_cast<const void*>(dst) && U > D) {
        Work* next = at<Work>(h, h->offNext);
        Work* old = at<Work>(h, h->offOld);
        std::memcpy(static_cast<void*>(old), st, size_t(M) * sizeof(Work));
        const int64_t fromOld = std::max<int64_t>(0, M - nIn);
        std::memcpy(static_cast<void*>(next), old + (M - fromOld), size_t(fromOld) * sizeof(Work));
        to_work<K>(src + (nIn - (M - fromOld)), next + fromOld, M - fromOld);
        for (int64_t b1 = N; b1 > 0;) {
            const int64_t b0 = std::max<int64_t>(0, b1 - chunk), i0 = b0 * D - M;
            const int64_t nOld = std::min<int64_t>(M, std::max<int64_t>(0, -i0));
            std::memcpy(static_cast<void*>(st), old + (M - nOld), size_t(nOld) * sizeof(Work));
            to_work<K>(src + (i0 + nOld), st + nOld, b1 * D - (i0 + nOld));
            run_chunk<K>(h, b0, b1, dst, scale);
            b1 = b0;
        }
        std::memcpy(static_cast<void*>(st), next, size_t(M) * sizeof(Work));
        return zamStatusOk;
    }
    for (int64_t b0 = 0; b0 < N;) {
        const int64_t b1 = std::min<int64_t>(N, b0 + chunk);
        to_work<K>(src + b0 * D, st + M, (b1 - b0) * D);
        run_chunk<K>(h, b0, b1, dst, scale);
        std::memmove(static_cast<void*>(st), st + (b1 - b0) * D, size_t(M) * sizeof(Work));
        b0 = b1;
    }
    return zamStatusOk;
}

// ---- the operations the single-rate entry points hand a multirate state

template <class K> zamStatus filter_op(void* p, const typename K::Data* s, typename K::Data* d, int n, int sf) {
    return filter<K>(p, s, d, n, sf);
}
template <class K> zamStatus set_taps_op(void* p, const typename K::Taps* t, int factor) {
    set_taps<K>(static_cast<Hdr*>(p), t, factor);
    return zamStatusOk;
}
template <class K> zamStatus get_taps_op(const void* p, typename K::Taps* t) {
    const Hdr* h = static_cast<const Hdr*>(p);
    const auto* keep = at<typename K::Keep>(h, h->offKeep);
    for (int i = 0; i < h->tapsLen; ++i) t[i] = typename K::Taps(keep[i]);
    return zamStatusOk;
}
template <class K> zamStatus set_dly_op(void* p, const typename K::Data* d) {
    set_dly<K>(static_cast<Hdr*>(p), d);
    return zamStatusOk;
}
template <class K> zamStatus get_dly_op(const void* p, typename K::Data* d) {
    const Hdr* h = static_cast<const Hdr*>(p);
    const auto* s = at<typename K::Work>(h, h->offStage);
    for (int i = 0; i < h->dlyLen; ++i) d[i] = typename K::Data(s[h->M - 1 - i]);  // integers kept exactly
    return zamStatusOk;
}
template <class K> zamStatus release_op(void* p) { return release(p, {K::id}, kShape); }

template <class K> constexpr mr::Ops<typename K::Taps, typename K::Data> ops_of() {
    return {K::id, filter_op<K>, set_taps_op<K>, get_taps_op<K>, set_dly_op<K>, get_dly_op<K>, release_op<K>};
}

// The kinds.
template <int32_t Id> using K32fOf = Kind<float, float, float, float, float, float, float, Rule::Plain, Id, 8>;
using K32f = K32fOf<id::FirMR32f>;
using KStream32f = K32fOf<id::FirMRStream32f>;
using K32fc = Kind<Zam32fc, Zam32fc, Zam32fc, Zam32fc, CD, float, Zam32fc, Rule::Plain, id::FirMR32fc, 1>;
using K64f = Kind<Zam64f, Zam64f, Zam64f, Zam64f, double, double, Zam64f, Rule::Plain, id::FirMR64f, 1>;
using K64fc = Kind<Zam64fc, Zam64fc, Zam64fc, Zam64fc, CD, double, Zam64fc, Rule::Plain, id::FirMR64fc, 1>;
using K32f16s = Kind<float, Zam16s, float, float, float, float, float, Rule::Plain, id::FirMR32f16s, 8>;
using K32s16s = Kind<Zam32s, Zam16s, Zam16s, Zam16s, int64_t, double, double, Rule::Shift, id::FirMR32s16s, 1>;
using K32s16s32f = Kind<float, Zam16s, Zam16s, Zam16s, int64_t, double, double, Rule::Fit, id::FirMR32s16s, 1>;

}  // namespace

namespace mr {
const Ops<float, float> k32f = ops_of<K32f>(), kStream32f = ops_of<KStream32f>();
const Ops<Zam32fc, Zam32fc> k32fc = ops_of<K32fc>();
const Ops<Zam64f, Zam64f> k64f = ops_of<K64f>();
const Ops<Zam64fc, Zam64fc> k64fc = ops_of<K64fc>();
const Ops<float, Zam16s> k32f16s = ops_of<K32f16s>();
const Ops<Zam32s, Zam16s> k32s16s = ops_of<K32s16s>();
const Ops<float, Zam16s> k32s16s32f = ops_of<K32s16s32f>();
}  // namespace mr

}  // namespace zams::fir

using namespace zams::fir;

#define PP(p) reinterpret_cast<void**>(p)

// Size, Init and InitAlloc of a kind: suffix, state type, kind, and the taps
// factor's parameter and value (none: empty and 0).
#define FIRMR_LIFE(PRE, SUF, ST, K, FA, FV)                                                                          \
    ZAMS_FN(zamStatus, zamsFIR##PRE##GetStateSize##SUF)(int n, int u, int d, int* s) { return get_size<K>(n, u, d, s); } \
    ZAMS_FN(zamStatus, zamsFIR##PRE##Init##SUF)(ST * *pp, const K::Taps* t, int n FA, int u, int up, int d, int dp,  \
                                                 const K::Data* dl, Zam8u* b) {                                      \
        return init<K>(PP(pp), t, n, FV, u, up, d, dp, dl, b);                                                      \
    }                                                                                                                \
    ZAMS_FN(zamStatus, zamsFIR##PRE##InitAlloc##SUF)(ST * *pp, const K::Taps* t, int n FA, int u, int up, int d,     \
                                                      int dp, const K::Data* dl) {                                   \
        return init_alloc<K>(PP(pp), t, n, FV, u, up, d, dp, dl);                                                   \
    }
#define FACTOR , int f

FIRMR_LIFE(MR, _32f, ZamsFIRState_32f, K32f, , 0)
FIRMR_LIFE(MRStream, _32f, ZamsFIRState_32f, KStream32f, , 0)
FIRMR_LIFE(MR, _32fc, ZamsFIRState_32fc, K32fc, , 0)
FIRMR_LIFE(MR, _64f, ZamsFIRState_64f, K64f, , 0)
FIRMR_LIFE(MR, _64fc, ZamsFIRState_64fc, K64fc, , 0)
FIRMR_LIFE(MR, 32f_16s, ZamsFIRState32f_16s, K32f16s, , 0)
FIRMR_LIFE(MR, 32s_16s, ZamsFIRState32s_16s, K32s16s, FACTOR, f)
FIRMR_LIFE(MR, 32s_16s32f, ZamsFIRState32s_16s, K32s16s32f, , 0)
