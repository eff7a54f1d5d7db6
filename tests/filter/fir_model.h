// Models the FIR tests compare against: the long double direct sum with a
// history, the Direct forms' single-precision-products-double-sum rule, and
// the float-to-16-bit conversion with rounding to nearest.
#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "harness.h"

namespace fm {

using LD = long double;
using LC = std::complex<long double>;

inline LC wide(float v) { return LC(v, 0); }
inline LC wide(double v) { return LC(v, 0); }
inline LC wide(Zam16s v) { return LC(v, 0); }
inline LC wide(Zam32s v) { return LC(v, 0); }
inline LC wide(Zam32fc v) { return LC(v.re, v.im); }
inline LC wide(Zam64fc v) { return LC(v.re, v.im); }
inline LC wide(Zam16sc v) { return LC(v.re, v.im); }
inline LC wide(Zam32sc v) { return LC(v.re, v.im); }

// y[n] = sum over k of taps[k] x[n-k], x[-1-k] = dly[k] (newest first),
// and the magnitude sum of each output's terms.
template <class T, class X>
std::vector<LC> fir(const std::vector<T>& taps, const std::vector<X>& dly, const std::vector<X>& x,
                    std::vector<LD>* mag = nullptr) {
    const int L = int(taps.size());
    std::vector<LC> y(x.size());
    if (mag) mag->assign(x.size(), 0);
    for (size_t n = 0; n < x.size(); ++n) {
        LC s = 0;
        for (int k = 0; k < L; ++k) {
            const long i = long(n) - k;
            const LC v = i >= 0 ? wide(x[size_t(i)]) : (dly.empty() ? LC(0) : wide(dly[size_t(-1 - i)]));
            s += wide(taps[size_t(k)]) * v;
            if (mag) (*mag)[n] += std::abs(wide(taps[size_t(k)])) * std::abs(v);
        }
        y[n] = s;
    }
    return y;
}

// The 32f Direct forms' sum of taps[L-1-j] span[j] (see the header).
inline float direct_sum(const float* taps, const float* span, int L) {
    double r = 0;
    const uintptr_t u = reinterpret_cast<uintptr_t>(span);
    if (L < 16 || (u & 3)) {
        for (int j = 0; j < L; ++j) r += double(taps[L - 1 - j] * span[j]);
        return float(r);
    }
    const int head = std::min(L, int(((32 - (u & 31)) & 31) / 4));
    double p[8] = {};
    int j = 0;
    for (; j < head; ++j) r += double(taps[L - 1 - j] * span[j]);
    for (; j + 8 <= L; j += 8)
        for (int k = 0; k < 8; ++k) p[k] += double(taps[L - 1 - j - k] * span[j + k]);
    for (; j < L; ++j) r += double(taps[L - 1 - j] * span[j]);
    return float((((p[0] + p[4]) + (p[1] + p[5])) + ((p[2] + p[6]) + (p[3] + p[7]))) + r);
}

// A float (or double) result written as 16 bits: times 2^-sf, nearest even,
// saturated (NaN to the top).
template <class F> Zam16s to16(F y, int sf) {
    F m = 1;
    for (int i = 0; i < sf; ++i) m /= 2;
    for (int i = 0; i < -sf; ++i) m *= 2;
    F v = sf ? y * m : y;
    if (!(v <= F(32767))) return 32767;
    if (v < F(-32768)) return -32768;
    return Zam16s(std::nearbyint(v));
}

// An exact integer sum times 2^-sf, nearest even, saturated to 16 bits.
inline Zam16s scale16(int64_t s, int sf) {
    long double v = std::ldexp((long double)s, -sf);
    v = std::nearbyint(v);
    if (v > 32767) return 32767;
    if (v < -32768) return -32768;
    return Zam16s(v);
}

inline std::vector<float> rand_f(int n, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<float> u(-1, 1);
    std::vector<float> v(size_t(std::max(n, 0)));
    for (auto& e : v) e = u(g);
    return v;
}
inline std::vector<Zam16s> rand_16s(int n, uint32_t seed, int lim = 32767) {
    std::mt19937 g(seed);
    std::uniform_int_distribution<int> u(-lim - 1, lim);
    std::vector<Zam16s> v(size_t(std::max(n, 0)));
    for (auto& e : v) e = Zam16s(u(g));
    return v;
}

// Seeded random elements of any sample type: floats in [-1, 1), integers
// (and integer parts) in [-lim, lim].
template <class T> T make(std::mt19937& g, int lim) {
    std::uniform_real_distribution<double> u(-1, 1);
    if constexpr (std::is_same_v<T, Zam16sc>) return {Zam16s(u(g) * lim), Zam16s(u(g) * lim)};
    else if constexpr (std::is_same_v<T, Zam32sc>) return {Zam32s(u(g) * lim), Zam32s(u(g) * lim)};
    else if constexpr (std::is_same_v<T, Zam32fc>) return {float(u(g)), float(u(g))};
    else if constexpr (std::is_same_v<T, Zam64fc>) return {u(g), u(g)};
    else if constexpr (std::is_integral_v<T>) return T(u(g) * lim);
    else return T(u(g));
}
template <class T> std::vector<T> vec(size_t n, uint32_t seed, int lim) {
    std::mt19937 g(seed);
    std::vector<T> v(n);
    for (auto& e : v) e = make<T>(g, lim);
    return v;
}
template <class T> constexpr bool is_int_v =
    std::is_integral_v<T> || std::is_same_v<T, Zam16sc> || std::is_same_v<T, Zam32sc>;

using zt::same_bits;

}  // namespace fm
