// Goertzel: single-frequency spectral values by the second-order
// recursion s(n) = x(n) + 2 cos(w) s(n-1) - s(n-2), value e^(iw) s(len-1)
// - s(len-2) = e^(iw len) sum x(n) e^(-iwn), w = 2 pi rFreq.
//
// Every form runs the recursion in AVX vectors, the samples dealt to
// independent lanes that run it at a multiple of w (value_lanes below), and
// combines the lanes in double: the 32-bit forms in float lanes, the 64-bit
// and 16-bit forms in double lanes (16-bit samples widened exactly). Lengths
// below one step of the lanes run the plain recursion. The 16-bit forms
// round the value times 2^-scaleFactor to nearest even, saturated.
#include <algorithm>
#include <cmath>

#include "../common/round.h"
#include "../common/simd.h"
#include "../common/trig.h"
#include "../common/types.h"
#include "dft_core.h"

namespace zams::dft {
namespace {

struct Cd {
    double re, im;
};
inline Cd operator*(Cd a, Cd b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline Cd operator+(Cd a, Cd b) { return {a.re + b.re, a.im + b.im}; }
// The plain recursion over len values of C components (1 real, 2 complex)
// in precision T; returns the value e^(iw) s1 - s2 (not yet rotated).
template <class T, int C, class X> Cd plain(const X* x, size_t len, double cw, double sw) {
    const T c2 = T(2 * cw);
    T s1[2] = {0, 0}, s2[2] = {0, 0};
    for (size_t n = 0; n < len; ++n)
        for (int k = 0; k < C; ++k) {
            const T s = T(x[C * n + k]) + c2 * s1[k] - s2[k];
            s2[k] = s1[k];
            s1[k] = s;
        }
    const T c = T(cw), sn = T(sw);
    const T re = s1[0] * c - s2[0] - (C == 2 ? s1[1] * sn : T(0));
    const T im = (C == 2 ? s1[1] * c - s2[1] : T(0)) + s1[0] * sn;
    return {double(re), double(im)};
}

// The value for frequency f of len samples of C components.
template <class T, int C, class X> Cd value(const X* x, size_t len, double f) {
    double sw, cw;
    sincospi(2 * f, &sw, &cw);
    return plain<T, C>(x, len, cw, sw);
}

// e^k for k = 0 .. 8 by products of two earlier powers (depth 3).
inline void powers(Cd e, Cd (&out)[9]) {
    out[0] = {1, 0};
    out[1] = e;
    for (int k = 2; k <= 8; ++k) out[k] = out[k / 2] * out[k - k / 2];
}

// Lanes of the source as F vectors: float, double, or 16-bit samples
// widened to double.
template <class F> inline typename Avx<F>::V lanes(const F* p) { return Avx<F>::load(p); }
inline __m256d lanes(const int16_t* p) {
    return _mm256_cvtepi32_pd(_mm_cvtepi16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
}
// Four lanes of a state as doubles.
inline __m256d wide4(const float* p) { return _mm256_cvtps_pd(_mm_loadu_ps(p)); }
inline __m256d wide4(const double* p) { return _mm256_loadu_pd(p); }

// The value for frequency f of len samples of C components, in vectors of
// F: NV vectors of L samples each make a step of S = NV L samples; lane q
// of vector v takes the samples n = mS + vL + q (m = 0, 1, ...) and runs
// the recursion at S w. A last partial step reads the remaining samples
// followed by zeros (p of them). With A and B the sums over the lanes of
// e^(-iwk) s(M-1) and e^(-iwk) s(M-2), k the lane's first sample,
//
//     e^(iw len) sum x(n) e^(-iwn) = e^(-iwp) (e^(iSw) A - B),
//
// and A, B are formed in double: e^(-iwLv) summed over v, then e^(-iwq)
// over q. The NV chains are independent, so the recursion runs at the
// vector units' throughput rather than at the latency of one chain.
template <class F, int C, class X> Cd value_lanes(const X* x, size_t len, double f) {
    using A = Avx<F>;
    constexpr int NV = 8, L = A::L / C, H = A::L / 4;
    constexpr size_t S = size_t(NV) * L;
    if (len < S) return value<F, C>(x, len, f);
    const size_t full = len / S, rest = len - full * S;
    double st, ct, sw, cw;
    sincospi(2 * f * double(S), &st, &ct);
    sincospi(2 * f, &sw, &cw);
    const typename A::V c2 = A::set1(F(2 * ct));
    typename A::V s1[NV], s2[NV];
    for (int v = 0; v < NV; ++v) s1[v] = s2[v] = A::set1(0);
    // o <- x - o + 2 cos(Sw) i: the states alternate roles, two steps a turn
    auto step = [&](const X* p, typename A::V(&o)[NV], const typename A::V(&i)[NV]) {
#pragma GCC unroll 8
        for (int v = 0; v < NV; ++v) o[v] = A::add(A::sub(lanes(p + v * A::L), o[v]), A::mul(c2, i[v]));
    };
    auto last = [&](const X* p) {
        step(p, s2, s1);
        for (int v = 0; v < NV; ++v) std::swap(s1[v], s2[v]);
    };
    // Blocks of T steps, G chains at a time: the group's states stay in
    // registers through the block and the groups of a block overlap in the
    // core. i386 has eight vector registers, room for two chains; x86-64
    // runs four (measured best on each). The grouping changes no operation
    // of any chain, so both give the same bits.
#if defined(__x86_64__)
    constexpr int G = 4;
#else
    constexpr int G = 2;
#endif
    constexpr size_t T = 8;
    size_t m = 0;
    for (; m + T <= full; m += T)
        for (int v0 = 0; v0 < NV; v0 += G) {
            typename A::V a[G], b[G];
            for (int g = 0; g < G; ++g) {
                a[g] = s1[v0 + g];
                b[g] = s2[v0 + g];
            }
            const X* p = x + (m * S + size_t(v0) * L) * C;
            for (size_t t = 0; t < T; t += 2) {
                for (int g = 0; g < G; ++g) b[g] = A::add(A::sub(lanes(p + (t * S + g * L) * C), b[g]), A::mul(c2, a[g]));
                for (int g = 0; g < G; ++g) a[g] = A::add(A::sub(lanes(p + ((t + 1) * S + g * L) * C), a[g]), A::mul(c2, b[g]));
            }
            for (int g = 0; g < G; ++g) {
                s1[v0 + g] = a[g];
                s2[v0 + g] = b[g];
            }
        }
    for (; m < full; ++m) last(x + m * S * C);
    if (rest) {
        X pad[S * C] = {};
        std::copy(x + full * S * C, x + len * C, pad);
        last(pad);
    }
    alignas(32) F a1[NV * A::L], a2[NV * A::L];
    for (int v = 0; v < NV; ++v) {
        A::store(a1 + v * A::L, s1[v]);
        A::store(a2 + v * A::L, s2[v]);
    }
    Cd P[9], Q[9];
    powers({cw, -sw}, P);
    powers(P[L], Q);
    // e^(-iwk) of each element of a vector: (1 or i) e^(-iwq), q its sample
    alignas(32) double pr[A::L], pi[A::L];
    for (int e = 0; e < A::L; ++e) {
        const Cd w = P[e / C];
        const bool imag = C == 2 && (e & 1);
        pr[e] = imag ? -w.im : w.re;
        pi[e] = imag ? w.re : w.im;
    }
    __m256d ar[H], ai[H], br[H], bi[H];
    for (int h = 0; h < H; ++h) ar[h] = ai[h] = br[h] = bi[h] = _mm256_setzero_pd();
    for (int v = 0; v < NV; ++v) {
        const __m256d qr = _mm256_set1_pd(Q[v].re), qi = _mm256_set1_pd(Q[v].im);
        for (int h = 0; h < H; ++h) {
            const __m256d u = wide4(a1 + v * A::L + 4 * h), w = wide4(a2 + v * A::L + 4 * h);
            ar[h] = _mm256_add_pd(ar[h], _mm256_mul_pd(qr, u));
            ai[h] = _mm256_add_pd(ai[h], _mm256_mul_pd(qi, u));
            br[h] = _mm256_add_pd(br[h], _mm256_mul_pd(qr, w));
            bi[h] = _mm256_add_pd(bi[h], _mm256_mul_pd(qi, w));
        }
    }
    // sum over the elements of (pr + i pi)(r + i m), in a fixed order
    auto dot = [&](const __m256d(&r)[H], const __m256d(&im)[H]) {
        __m256d tr = _mm256_setzero_pd(), ti = tr;
        for (int h = 0; h < H; ++h) {
            const __m256d wr = _mm256_load_pd(pr + 4 * h), wi = _mm256_load_pd(pi + 4 * h);
            tr = _mm256_add_pd(tr, _mm256_sub_pd(_mm256_mul_pd(wr, r[h]), _mm256_mul_pd(wi, im[h])));
            ti = _mm256_add_pd(ti, _mm256_add_pd(_mm256_mul_pd(wr, im[h]), _mm256_mul_pd(wi, r[h])));
        }
        alignas(32) double a[4], b[4];
        _mm256_store_pd(a, tr);
        _mm256_store_pd(b, ti);
        return Cd{(a[0] + a[1]) + (a[2] + a[3]), (b[0] + b[1]) + (b[2] + b[3])};
    };
    const Cd sa = dot(ar, ai), sb = dot(br, bi);
    const Cd g = Cd{ct, st} * sa + Cd{-sb.re, -sb.im};
    const size_t p = rest ? S - rest : 0;
    return (Q[p / L] * P[p % L]) * g;
}

template <class F> bool bad_freq(F f) { return !(f >= F(0) && f < F(1)); }

template <class T> T to_int(double v, int sf) {
    const double x = v * pow2(-(sf / 2)) * pow2(-(sf - sf / 2));
    return saturate<T>(int64_t(std::clamp(round_even(x), -4e18, 4e18)));
}

// Checks: pointers, length, then each frequency in order.
template <class P, class V, class Fr> zamStatus check(const P* src, int len, const V* val, const Fr* f, int nf) {
    if (!src || !val) return zamStatusNullPointer;
    if (nf == 2 && !f) return zamStatusNullPointer;
    if (len < 1) return zamStatusBadLength;
    for (int i = 0; i < nf; ++i)
        if (bad_freq(f[i])) return zamStatusBadRelativeFreq;
    return zamStatusOk;
}

inline void put(Zam32fc* d, Cd v) { *d = {float(v.re), float(v.im)}; }
inline void put(Zam64fc* d, Cd v) { *d = {v.re, v.im}; }

// Floating forms, nf frequencies.
template <class F, int C, class Src, class Out>
zamStatus goertz(const Src* src, int len, Out* val, const F* f, int nf) {
    if (zamStatus s = check(src, len, val, f, nf)) return s;
    const F* x = reinterpret_cast<const F*>(src);
    for (int i = 0; i < nf; ++i) {
        put(val + i, value_lanes<F, C>(x, size_t(len), double(f[i])));
    }
    return zamStatusOk;
}

// 16-bit forms, nf frequencies.
template <int C, class Src> zamStatus goertz16(const Src* src, int len, Zam16sc* val, const float* f, int nf, int sf) {
    if (zamStatus s = check(src, len, val, f, nf)) return s;
    const int16_t* x = reinterpret_cast<const int16_t*>(src);
    for (int i = 0; i < nf; ++i) {
        const Cd v = value_lanes<double, C>(x, size_t(len), double(f[i]));
        val[i] = {to_int<int16_t>(v.re, sf), to_int<int16_t>(v.im, sf)};
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::dft

using namespace zams::dft;

ZAMS_FN(zamStatus, zamsGoertz_32f)(const Zam32f* s, int len, Zam32fc* v, Zam32f f) { return goertz<float, 1>(s, len, v, &f, 1); }
ZAMS_FN(zamStatus, zamsGoertz_32fc)(const Zam32fc* s, int len, Zam32fc* v, Zam32f f) { return goertz<float, 2>(s, len, v, &f, 1); }
ZAMS_FN(zamStatus, zamsGoertz_64f)(const Zam64f* s, int len, Zam64fc* v, Zam64f f) { return goertz<double, 1>(s, len, v, &f, 1); }
ZAMS_FN(zamStatus, zamsGoertz_64fc)(const Zam64fc* s, int len, Zam64fc* v, Zam64f f) { return goertz<double, 2>(s, len, v, &f, 1); }
ZAMS_FN(zamStatus, zamsGoertzTwo_32f)(const Zam32f* s, int len, Zam32fc* v, const Zam32f* f) { return goertz<float, 1>(s, len, v, f, 2); }
ZAMS_FN(zamStatus, zamsGoertzTwo_32fc)(const Zam32fc* s, int len, Zam32fc* v, const Zam32f* f) { return goertz<float, 2>(s, len, v, f, 2); }
ZAMS_FN(zamStatus, zamsGoertzTwo_64f)(const Zam64f* s, int len, Zam64fc* v, const Zam64f* f) { return goertz<double, 1>(s, len, v, f, 2); }
ZAMS_FN(zamStatus, zamsGoertzTwo_64fc)(const Zam64fc* s, int len, Zam64fc* v, const Zam64f* f) { return goertz<double, 2>(s, len, v, f, 2); }
ZAMS_FN(zamStatus, zamsGoertz_16s_Sfs)(const Zam16s* s, int len, Zam16sc* v, Zam32f f, int sf) { return goertz16<1>(s, len, v, &f, 1, sf); }
ZAMS_FN(zamStatus, zamsGoertz_16sc_Sfs)(const Zam16sc* s, int len, Zam16sc* v, Zam32f f, int sf) { return goertz16<2>(s, len, v, &f, 1, sf); }
ZAMS_FN(zamStatus, zamsGoertzTwo_16sc_Sfs)(const Zam16sc* s, int len, Zam16sc* v, const Zam32f* f, int sf) {
    return goertz16<2>(s, len, v, f, 2, sf);
}

// Q15 frequencies: negative ones refused here, the rest handed to the
// float-frequency form, whose checks then apply.
ZAMS_FN(zamStatus, zamsGoertzQ15_16sc_Sfs)(const Zam16sc* s, int len, Zam16sc* v, Zam16s q, int sf) {
    if (q < 0) return zamStatusBadRelativeFreq;
    return zamsGoertz_16sc_Sfs(s, len, v, float(double(q) * 3.0517578125e-5), sf);
}
ZAMS_FN(zamStatus, zamsGoertzTwoQ15_16sc_Sfs)(const Zam16sc* s, int len, Zam16sc* v, const Zam16s* q, int sf) {
    if (!q) return zamStatusNullPointer;
    if (q[0] < 0 || q[1] < 0) return zamStatusBadRelativeFreq;
    const float f[2] = {float(double(q[0]) * 3.0517578125e-5), float(double(q[1]) * 3.0517578125e-5)};
    return zamsGoertzTwo_16sc_Sfs(s, len, v, f, sf);
}
