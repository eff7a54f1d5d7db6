// The IIR kinds as tables of entry points, a long double model of the
// filters, and random stable filters, for the IIR tests.
#pragma once

#include <complex>
#include <cstdint>
#include <random>
#include <vector>

#include "harness.h"

namespace iirt {

// Entry points of one taps/data kind; the filters are null for the kinds
// that have none, the cascade entries for the kind without a cascade.
template <class S, class T, class D> struct Api {
    using State = S;
    using Taps = T;
    using Data = D;
    const char* name;
    zamStatus (*size)(int, int*);
    zamStatus (*sizeBq)(int, int*);
    zamStatus (*init)(S**, const T*, int, const T*, Zam8u*);
    zamStatus (*initBq)(S**, const T*, int, const T*, Zam8u*);
    zamStatus (*alloc)(S**, const T*, int, const T*);
    zamStatus (*allocBq)(S**, const T*, int, const T*);
    zamStatus (*free)(S*);
    zamStatus (*setTaps)(const T*, S*);
    zamStatus (*getDly)(T*, const S*);
    zamStatus (*setDly)(const T*, S*);
    zamStatus (*filt)(const D*, D*, int, S*) = nullptr;
    zamStatus (*filtI)(D*, int, S*) = nullptr;
    zamStatus (*one)(D, D*, S*) = nullptr;
};

#define IIRT_STATE(SFX, BQ, S, T, D)                                                                          \
    Api<S, T, D> {                                                                                            \
        #SFX, zamsIIRGetStateSize##SFX, zamsIIRGetStateSize##BQ, zamsIIRInit##SFX, zamsIIRInit##BQ,           \
            zamsIIRInitAlloc##SFX, zamsIIRInitAlloc##BQ, zamsIIRFree##SFX, zamsIIRSetTaps##SFX,                \
            zamsIIRGetDlyLine##SFX, zamsIIRSetDlyLine##SFX
#define IIRT_KIND(SFX, BQ, S, T, D) IIRT_STATE(SFX, BQ, S, T, D), nullptr, nullptr, nullptr }
#define IIRT_FILTER_KIND(SFX, BQ, S, T, D) \
    IIRT_STATE(SFX, BQ, S, T, D), zamsIIR##SFX, zamsIIR##SFX##_I, zamsIIROne##SFX }

inline const auto k32f = IIRT_FILTER_KIND(_32f, _BiQuad_32f, ZamsIIRState_32f, Zam32f, Zam32f);
inline const auto k64f = IIRT_FILTER_KIND(_64f, _BiQuad_64f, ZamsIIRState_64f, Zam64f, Zam64f);
inline const auto k64fc = IIRT_FILTER_KIND(_64fc, _BiQuad_64fc, ZamsIIRState_64fc, Zam64fc, Zam64fc);
inline const auto k64f32f = IIRT_FILTER_KIND(64f_32f, 64f_BiQuad_32f, ZamsIIRState64f_32f, Zam64f, Zam32f);
inline const auto k64fc32fc =
    IIRT_FILTER_KIND(64fc_32fc, 64fc_BiQuad_32fc, ZamsIIRState64fc_32fc, Zam64fc, Zam32fc);
inline const auto k32f16s = IIRT_KIND(32f_16s, 32f_BiQuad_16s, ZamsIIRState32f_16s, Zam32f, Zam16s);
inline const auto k32fc16sc = IIRT_KIND(32fc_16sc, 32fc_BiQuad_16sc, ZamsIIRState32fc_16sc, Zam32fc, Zam16sc);
inline const auto k64fc32sc = IIRT_KIND(64fc_32sc, 64fc_BiQuad_32sc, ZamsIIRState64fc_32sc, Zam64fc, Zam32sc);
inline const auto k64f16s = IIRT_KIND(64f_16s, 64f_BiQuad_16s, ZamsIIRState64f_16s, Zam64f, Zam16s);
inline const auto k64fc16sc = IIRT_KIND(64fc_16sc, 64fc_BiQuad_16sc, ZamsIIRState64fc_16sc, Zam64fc, Zam16sc);
// 64f_32s has no cascade: its cascade slots repeat the AR entries.
inline const auto k64f32s = IIRT_KIND(64f_32s, 64f_32s, ZamsIIRState64f_32s, Zam64f, Zam32s);

// ---- values as complex long doubles

using LC = std::complex<long double>;
inline LC lc(float v) { return LC(v, 0); }
inline LC lc(double v) { return LC(v, 0); }
inline LC lc(Zam32fc v) { return LC(v.re, v.im); }
inline LC lc(Zam64fc v) { return LC(v.re, v.im); }
template <class T> T from_lc(LC v) {
    if constexpr (std::is_same_v<T, Zam32fc>) return {float(v.real()), float(v.imag())};
    else if constexpr (std::is_same_v<T, Zam64fc>) return {double(v.real()), double(v.imag())};
    else return T(v.real());
}
template <class T> constexpr bool is_cx = std::is_same_v<T, Zam32fc> || std::is_same_v<T, Zam64fc>;

enum Form { Ar, Bq, Df1 };

// The filter of a kind's state in long double: the caller's taps divided
// by a0 and the same realisation as the library's (transposed direct form
// II, or direct form I).
struct Model {
    Form form;
    int n;
    std::vector<LC> t;    // normalised: AR b[0..N] a[1..N]; sections b0 b1 b2 a1 a2
    std::vector<LC> dly;  // as the caller's delay line

    template <class T> Model(Form f, int order, const std::vector<T>& taps, const std::vector<T>& d) : form(f), n(order) {
        if (f == Ar) {
            const LC a0 = lc(taps[order + 1]);
            for (int k = 0; k <= order; ++k) t.push_back(lc(taps[k]) / a0);
            for (int k = 1; k <= order; ++k) t.push_back(lc(taps[order + 1 + k]) / a0);
        } else {
            for (int s = 0; s < order; ++s) {
                const LC a0 = lc(taps[6 * s + 3]);
                for (int i : {0, 1, 2, 4, 5}) t.push_back(lc(taps[6 * s + i]) / a0);
            }
        }
        for (const T& v : d) dly.push_back(lc(v));
        dly.resize(f == Ar ? n + 1 : (f == Bq ? 2 * n : 4 * n), LC(0));
    }
    LC step(LC x) {
        if (form == Ar) {
            const LC y = t[0] * x + dly[0];
            for (int k = 0; k < n; ++k) dly[k] = t[k + 1] * x - t[n + k + 1] * y + dly[k + 1];
            return y;
        }
        for (int s = 0; s < n; ++s) {
            const LC* c = &t[5 * s];
            if (form == Bq) {
                LC* d = &dly[2 * s];
                const LC y = c[0] * x + d[0];
                d[0] = c[1] * x - c[3] * y + d[1];
                d[1] = c[2] * x - c[4] * y;
                x = y;
            } else {
                LC* d = &dly[4 * s];
                const LC y = c[0] * x + c[1] * d[0] + c[2] * d[1] - c[3] * d[2] - c[4] * d[3];
                d[1] = d[0], d[0] = x, d[3] = d[2], d[2] = y;
                x = y;
            }
        }
        return x;
    }
};

// A random stable filter: sections with poles of radius below 0.95 (a
// cascade), or the product of such sections (an AR filter), in the
// caller's layout with leading coefficients a0 != 1 so that normalising
// matters. Complex kinds get complex numerators.
template <class T> std::vector<T> random_taps(Form f, int n, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<double> u(-1, 1), r(0.2, 0.95), ph(0, 3.14159);
    auto val = [&](double re) { return is_cx<T> ? LC(re, u(g)) : LC(re, 0); };
    auto section = [&](std::vector<LC>& b, std::vector<LC>& a) {
        const double rad = r(g), th = ph(g);
        a = {1, -2 * rad * std::cos(th), rad * rad};
        b = {val(0.5 + 0.5 * u(g)), val(u(g)), val(u(g))};
    };
    std::vector<T> taps;
    if (f == Ar) {
        std::vector<LC> B{1}, Acc{1};
        for (int k = 0; k < n; k += 2) {
            std::vector<LC> b, a;
            section(b, a);
            const int m = k + 1 < n ? 3 : 2;  // an odd order ends with a first-order factor
            if (m == 2) a = {1, -r(g)}, b = {b[0], b[1]};
            std::vector<LC> nb(B.size() + m - 1), na(Acc.size() + m - 1);
            for (size_t i = 0; i < B.size(); ++i)
                for (int j = 0; j < m; ++j) nb[i + j] += B[i] * b[j], na[i + j] += Acc[i] * a[j];
            B = nb, Acc = na;
        }
        const double scale = 1.5 + u(g);
        for (int k = 0; k <= n; ++k) taps.push_back(from_lc<T>(B[k] * (long double)scale));
        for (int k = 0; k <= n; ++k) taps.push_back(from_lc<T>(Acc[k] * (long double)scale));
    } else {
        for (int s = 0; s < n; ++s) {
            std::vector<LC> b, a;
            section(b, a);
            const double scale = s % 3 == 2 ? 1.0 : 0.5 + r(g);  // some sections with a0 = 1
            for (auto v : b) taps.push_back(from_lc<T>(v * (long double)scale));
            for (auto v : a) taps.push_back(from_lc<T>(v * (long double)scale));
        }
    }
    return taps;
}

template <class T> std::vector<T> random_signal(size_t n, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<double> u(-1, 1);
    std::vector<T> v(n);
    for (auto& x : v) x = from_lc<T>(LC(u(g), u(g)));
    return v;
}

using zt::same_bits;

}  // namespace iirt
