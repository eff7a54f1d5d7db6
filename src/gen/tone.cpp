// Tones: magn cos(2 pi (c0 + f n)) and its complex form, the Direct
// members, the Q15 Direct member and the Q15 state.
//
// The angle of every kBlock-th sample (counting n from the tone's start)
// is reduced exactly, f n in cycles without rounding (frac_product), and
// turned into sine and cosine from plain arithmetic (sincospi); rotations
// by 8 samples, in two chains of four lanes, carry it to the rest of the
// block. So the error does not grow with n, and a sample depends only on
// its own n: a tone drawn in pieces is the tone drawn at once.
#include <immintrin.h>

#include <algorithm>
#include <cstring>

#include "../common/trig.h"
#include "gen_common.h"

namespace zams::gen {
namespace {

// Samples between exact anchors: each rotation step (8 samples) adds about
// an ulp of the double value.
template <class T> constexpr int kBlock = std::is_same_v<T, Zam64f> || std::is_same_v<T, Zam64fc> ? 32 : 256;

struct Rot {
    double c, s;
};
inline Rot unit(double cycles) {
    Rot r;
    sincospi(2 * cycles, &r.s, &r.c);
    return r;
}
inline Rot mul(Rot a, Rot b) { return {a.c * b.c - a.s * b.s, a.c * b.s + a.s * b.c}; }

template <class T> inline void put(T* d, double c, double s) {
    if constexpr (is_complex_v<T>) *d = {round_to<part_t<T>>(c), round_to<part_t<T>>(s)};
    else *d = round_to<T>(c);
}

// Rotates the four lanes (c, s) by (rc, rs).
inline void rotate(__m256d& c, __m256d& s, __m256d rc, __m256d rs) {
    const __m256d nc = _mm256_sub_pd(_mm256_mul_pd(c, rc), _mm256_mul_pd(s, rs));
    s = _mm256_add_pd(_mm256_mul_pd(c, rs), _mm256_mul_pd(s, rc));
    c = nc;
}

// len samples of magn exp(2 pi i (c0 + f n)), n from n0 on; 0 <= c0 < 1.
template <class T> void fill(T* d, int len, double magn, double f, double c0, int64_t n0) {
    constexpr int B = kBlock<T>;
    alignas(32) double re[B], im[B];
    const Rot w = unit(f), w8 = unit(frac_product(f, 8));
    const __m256d w8c = _mm256_set1_pd(w8.c), w8s = _mm256_set1_pd(w8.s);
    int64_t nb = n0 - n0 % B;
    for (int i = 0; i < len; nb += B) {
        // the anchor and the next seven samples, then two independent
        // chains of four lanes, each rotated by 8 samples a step
        Rot z[8];
        z[0] = unit(c0 + frac_product(f, nb));
        z[0] = {magn * z[0].c, magn * z[0].s};
        for (int j = 1; j < 8; ++j) z[j] = mul(z[j - 1], w);
        __m256d ac = _mm256_setr_pd(z[0].c, z[1].c, z[2].c, z[3].c);
        __m256d as = _mm256_setr_pd(z[0].s, z[1].s, z[2].s, z[3].s);
        __m256d bc = _mm256_setr_pd(z[4].c, z[5].c, z[6].c, z[7].c);
        __m256d bs = _mm256_setr_pd(z[4].s, z[5].s, z[6].s, z[7].s);
        for (int k = 0; k < B; k += 8) {
            _mm256_store_pd(re + k, ac);
            _mm256_store_pd(re + k + 4, bc);
            _mm256_store_pd(im + k, as);
            _mm256_store_pd(im + k + 4, bs);
            rotate(ac, as, w8c, w8s);
            rotate(bc, bs, w8c, w8s);
        }
        const int from = int(std::max<int64_t>(n0 + i - nb, 0)), to = int(std::min<int64_t>(B, n0 + len - nb));
        for (int k = from; k < to; ++k, ++i) put(d + i, re[k], im[k]);
    }
}

inline double cycles_of(double phase) {
    const double c = phase * kInvTwoPi;
    return c < 1 ? c : 0;
}

template <class T, class M, class P> zamStatus direct(T* d, int len, M magn, P rFreq, P* pPhase) {
    if (!pPhase) return zamStatusNullPointer;
    if (!(magn > 0)) return zamStatusBadToneMagnitude;
    if (!(double(rFreq) >= 0 && double(rFreq) < 0.5)) return zamStatusBadToneFrequency;
    const double phase = *pPhase;
    if (!(phase >= 0 && phase < kTwoPi)) return zamStatusBadTonePhase;
    if (zamStatus s = check_args(len, d)) return s;
    const double c0 = cycles_of(phase);
    fill(d, len, double(magn), double(rFreq), c0, 0);
    const double next = c0 + frac_product(double(rFreq), len);
    *pPhase = phase_out<P>(kTwoPi * (next - std::floor(next)));
    return zamStatusOk;
}

inline zamStatus check_q15(int magn, int rFreq, int32_t phase) {
    if (magn < 1) return zamStatusBadToneMagnitude;
    if (rFreq < 0 || rFreq > 16383) return zamStatusBadToneFrequency;
    if (uint32_t(phase) > 205886u) return zamStatusBadTonePhase;
    return zamStatusOk;
}

zamStatus q15_direct(Zam16s* d, int len, Zam16s magn, Zam16s rFreq, int32_t phase) {
    if (zamStatus s = check_args(len, d)) return s;
    if (zamStatus s = check_q15(magn, rFreq, phase)) return s;
    constexpr float q = float(kQ15);
    float ph = float(phase) * q;
    (void)direct<Zam16s, Zam16s, float>(d, len, magn, float(rFreq) * q, &ph);
    return zamStatusOk;
}

// The Q15 state: the parameters, and the count of samples drawn so far
// (modulo 2^15, the period of f n in cycles for f = q / 2^15).
struct ToneHdr {
    int32_t id;
    int32_t owned;
    double magn, rFreq, cycles;
    int64_t n;
};
constexpr int kToneStateSize = 64;
static_assert(sizeof(ToneHdr) <= kToneStateSize && 32768 % kBlock<Zam16s> == 0);

zamStatus q15_init(void* p, Zam16s magn, Zam16s rFreq, int32_t phase) {
    if (!p) return zamStatusNullPointer;
    if (zamStatus s = check_q15(magn, rFreq, phase)) return s;
    return build_state<ToneHdr>(p, id::ToneQ15, [&](ToneHdr& h) {
        h.magn = magn;
        h.rFreq = rFreq * kQ15;
        h.cycles = cycles_of(phase * kQ15);
    });
}

zamStatus q15_fill(Zam16s* d, int len, void* p) {
    return with_state<ToneHdr>(d, len, p, id::ToneQ15, [&](ToneHdr& h) {
        fill(d, len, h.magn, h.rFreq, h.cycles, h.n);
        h.n = (h.n + len) % 32768;
    });
}

}  // namespace
}  // namespace zams::gen

using namespace zams::gen;

#define ZAMS_TONE_DIRECT(T, M, P)                                                                             \
    ZAMS_FN(zamStatus, zamsTone_Direct_##T)(Zam##T * d, int len, M m, P f, P * ph) { return direct(d, len, m, f, ph); }
ZAMS_TONE_DIRECT(32f, Zam32f, Zam32f)
ZAMS_TONE_DIRECT(64f, Zam64f, Zam64f)
ZAMS_TONE_DIRECT(16s, Zam16s, Zam32f)
ZAMS_TONE_DIRECT(32fc, Zam32f, Zam32f)
ZAMS_TONE_DIRECT(64fc, Zam64f, Zam64f)
ZAMS_TONE_DIRECT(16sc, Zam16s, Zam32f)

ZAMS_FN(zamStatus, zamsToneQ15_Direct_16s)(Zam16s* d, int len, Zam16s m, Zam16s f, Zam32s ph) {
    return q15_direct(d, len, m, f, ph);
}
ZAMS_FN(zamStatus, zamsToneGetStateSizeQ15_16s)(int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    *pSize = kToneStateSize;
    return zamStatusOk;
}
ZAMS_FN(zamStatus, zamsToneInitQ15_16s)(ZamsToneState_16s* p, Zam16s m, Zam16s f, Zam32s ph) {
    return q15_init(p, m, f, ph);
}
ZAMS_FN(zamStatus, zamsToneInitAllocQ15_16s)(ZamsToneState_16s** pp, Zam16s m, Zam16s f, Zam32s ph) {
    return alloc_state<ToneHdr>(reinterpret_cast<void**>(pp), [&](uint8_t* mem) { return q15_init(mem, m, f, ph); });
}
ZAMS_FN(zamStatus, zamsToneQ15_16s)(Zam16s* d, int len, ZamsToneState_16s* p) { return q15_fill(d, len, p); }
ZAMS_FN(zamStatus, zamsToneFree)(ZamsToneState_16s* p) { return free_state<ToneHdr>(p, zams::id::ToneQ15); }
