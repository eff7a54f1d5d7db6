// Goertzel: single-frequency spectral values by the second-order
// recursion s(n) = x(n) + 2 cos(w) s(n-1) - s(n-2), value e^(iw) s(len-1)
// - s(len-2) = e^(iw len) sum x(n) e^(-iwn), w = 2 pi rFreq.
//
// The 64-bit forms run the recursion as written. The 32-bit forms run it
// in vectors: the samples are dealt to K lanes (lane i takes x(mK + i)),
// each lane runs the recursion at frequency K w over its M = len / K
// samples, and the lanes' values are combined in double,
//
//     sum x(n) e^(-iwn) = sum_i e^(-iwi) e^(-iKwM) v_i + e^(-iwKM) e^(-iw r) t,
//
// v_i the value of lane i, t the value of the r = len - KM remaining
// samples by the plain recursion. The 16-bit forms run the 64-bit
// recursion on the samples and round the value times 2^-scaleFactor to
// nearest even, saturated.
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
// e^(-i 2 pi f k) with the phase reduced exactly (f k taken mod 1 in double).
inline Cd unit(double f, double k) {
    double ph = f * k;
    ph -= std::floor(ph);
    double s, c;
    sincospi(2 * ph, &s, &c);
    return {c, -s};
}

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

// 32-bit forms: K = 32 lanes of complex or real samples, four AVX vectors.
template <int C> Cd value_vec(const float* x, size_t len, double f) {
    using A = Avx<float>;
    constexpr size_t K = 32 / C;             // samples a step
    constexpr int NV = int(K) * C / A::L;    // vectors a step
    const size_t M = len / K;
    if (M < 2) return value<float, C>(x, len, f);
    double sk, ck;
    sincospi(2 * (f * double(K) - std::floor(f * double(K))), &sk, &ck);
    const A::V c2 = A::set1(float(2 * ck));
    // Four lanes-vectors in named registers, two samples a step so that
    // the states alternate roles instead of moving: x - s(n-2) off the
    // dependency chain, then one product and one sum on it.
    static_assert(NV == 4);
    A::V s1a = A::set1(0), s1b = s1a, s1c = s1a, s1d = s1a, s2a = s1a, s2b = s1a, s2c = s1a, s2d = s1a;
    auto step = [&](const float* p, A::V& o1, A::V& o2, A::V& o3, A::V& o4, const A::V& i1, const A::V& i2,
                    const A::V& i3, const A::V& i4) {
        o1 = A::add(A::sub(A::load(p), o1), A::mul(c2, i1));
        o2 = A::add(A::sub(A::load(p + A::L), o2), A::mul(c2, i2));
        o3 = A::add(A::sub(A::load(p + 2 * A::L), o3), A::mul(c2, i3));
        o4 = A::add(A::sub(A::load(p + 3 * A::L), o4), A::mul(c2, i4));
    };
    size_t m = 0;
    for (; m + 2 <= M; m += 2) {
        step(x + m * K * C, s2a, s2b, s2c, s2d, s1a, s1b, s1c, s1d);        // s2 <- s(m)
        step(x + (m + 1) * K * C, s1a, s1b, s1c, s1d, s2a, s2b, s2c, s2d);  // s1 <- s(m+1)
    }
    if (m < M) {
        step(x + m * K * C, s2a, s2b, s2c, s2d, s1a, s1b, s1c, s1d);
        std::swap(s1a, s2a);
        std::swap(s1b, s2b);
        std::swap(s1c, s2c);
        std::swap(s1d, s2d);
    }
    const A::V s1[NV] = {s1a, s1b, s1c, s1d}, s2[NV] = {s2a, s2b, s2c, s2d};
    alignas(32) float a1[K * C], a2[K * C];
    for (int v = 0; v < NV; ++v) {
        A::store(a1 + v * A::L, s1[v]);
        A::store(a2 + v * A::L, s2[v]);
    }
    // lane i: v_i = e^(iKw) s1 - s2; sum e^(-iwi) e^(-iKwM) v_i
    // e^(-iwi) by products of e^(-iw): K steps in double stay far below float precision
    const Cd eK{ck, sk}, turn = unit(f, 1);
    Cd acc{0, 0}, rot{1, 0};
    for (size_t i = 0; i < K; ++i) {
        const Cd p1{a1[C * i], C == 2 ? a1[C * i + 1] : 0.0}, p2{a2[C * i], C == 2 ? a2[C * i + 1] : 0.0};
        const Cd vi = eK * p1 + Cd{-p2.re, -p2.im};
        acc = acc + rot * vi;
        rot = rot * turn;
    }
    acc = unit(f, double(K * M)) * acc;
    const size_t r = len - K * M;
    if (r) {
        const Cd t = value<float, C>(x + K * M * C, r, f);
        acc = acc + unit(f, double(K * M + r)) * t;
    }
    // back to the recursion's form: e^(iw len) times the sum
    const Cd e = unit(f, -double(len));
    return e * acc;
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
        Cd v;
        if constexpr (sizeof(F) == 4) v = value_vec<C>(x, size_t(len), double(f[i]));
        else v = value<double, C>(x, size_t(len), double(f[i]));
        put(val + i, v);
    }
    return zamStatusOk;
}

// 16-bit forms, nf frequencies.
template <int C, class Src> zamStatus goertz16(const Src* src, int len, Zam16sc* val, const float* f, int nf, int sf) {
    if (zamStatus s = check(src, len, val, f, nf)) return s;
    const int16_t* x = reinterpret_cast<const int16_t*>(src);
    for (int i = 0; i < nf; ++i) {
        const Cd v = value<double, C>(x, size_t(len), double(f[i]));
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
