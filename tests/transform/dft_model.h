// Oracles and kind tables of the DFT tests: a long double DFT of any
// length, the relative RMS error and its bound, and the exported functions
// of each floating kind in one table.
#pragma once

#include <cmath>
#include <complex>
#include <random>
#include <vector>

#include "zams.h"

namespace dftt {

using LC = std::complex<long double>;

// X[k] = sum x[n] exp(-/+ 2 pi i n k / N) in long double, the roots taken
// from one table by n k mod N.
inline std::vector<LC> naive(const std::vector<LC>& x, bool inv) {
    const size_t n = x.size();
    std::vector<LC> w(n), y(n);
    const long double pi = 3.141592653589793238462643383279502884L;
    for (size_t k = 0; k < n; ++k) {
        const long double a = 2 * pi * (long double)k / (long double)n;
        w[k] = LC(std::cos(a), inv ? std::sin(a) : -std::sin(a));
    }
    for (size_t k = 0; k < n; ++k) {
        LC acc = 0;
        size_t idx = 0;
        for (size_t j = 0; j < n; ++j) {
            acc += x[j] * w[idx];
            idx += k;
            if (idx >= n) idx -= n;
        }
        y[k] = acc;
    }
    return y;
}

// sqrt(sum |y - r|^2 / sum |r|^2).
template <class Y> long double rel_rms(const Y& y, const std::vector<LC>& r, long double scale = 1) {
    long double num = 0, den = 0;
    for (size_t k = 0; k < r.size(); ++k) {
        num += std::norm(LC(y[k].re, y[k].im) - r[k] * scale);
        den += std::norm(r[k] * scale);
    }
    return den > 0 ? std::sqrt(num / den) : std::sqrt(num);
}

// The accuracy goal: 5e-7 log2 N single, 1e-15 log2 N double.
template <class F> long double bound(size_t n) {
    const long double lg = std::max<long double>(1, std::log2((long double)n));
    return (sizeof(F) == 4 ? 5e-7L : 1e-15L) * lg;
}

// The complex kinds: the plain DFT (CKind) and the OutOrd one (OKind), one
// table of entry points each.
#define DFTT_COMPLEX_KIND(Kind, Pre, F, Sfx)                      \
    template <> struct Kind<F> {                                  \
        using C = Zam##Sfx;                                       \
        using S = Zams##Pre##Spec_C_##Sfx;                        \
        static constexpr auto getSize = zams##Pre##GetSize_C_##Sfx; \
        static constexpr auto init = zams##Pre##Init_C_##Sfx;     \
        static constexpr auto alloc = zams##Pre##InitAlloc_C_##Sfx; \
        static constexpr auto bufSize = zams##Pre##GetBufSize_C_##Sfx; \
        static constexpr auto free = zams##Pre##Free_C_##Sfx;     \
        static constexpr auto fwd = zams##Pre##Fwd_CToC_##Sfx;    \
        static constexpr auto inv = zams##Pre##Inv_CToC_##Sfx;    \
        static constexpr auto fwdI = zams##Pre##Fwd_CToC_##Sfx##_I; \
        static constexpr auto invI = zams##Pre##Inv_CToC_##Sfx##_I; \
    };
template <class F> struct CKind;
template <class F> struct OKind;
DFTT_COMPLEX_KIND(CKind, DFT, float, 32fc)
DFTT_COMPLEX_KIND(CKind, DFT, double, 64fc)
DFTT_COMPLEX_KIND(OKind, DFTOutOrd, float, 32fc)
DFTT_COMPLEX_KIND(OKind, DFTOutOrd, double, 64fc)
#undef DFTT_COMPLEX_KIND

// Real samples, and complex ones with parts, uniform in [-1, 1).
template <class F> std::vector<F> random_r(size_t n, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<double> u(-1, 1);
    std::vector<F> v(n);
    for (auto& e : v) e = F(u(g));
    return v;
}
template <class C> std::vector<C> random_c(size_t n, uint32_t seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<double> u(-1, 1);
    std::vector<C> v(n);
    for (auto& e : v) e = {decltype(e.re)(u(g)), decltype(e.im)(u(g))};
    return v;
}

enum Fmt { kPerm, kPack, kCcs };
// The real kinds; the transforms in each format, indexed by Fmt.
#define DFTT_REAL_KIND(F, Sfx)                                                                                   \
    template <> struct RKind<F> {                                                                               \
        using S = ZamsDFTSpec_R_##Sfx;                                                                          \
        static constexpr auto getSize = zamsDFTGetSize_R_##Sfx;                                                 \
        static constexpr auto init = zamsDFTInit_R_##Sfx;                                                       \
        static constexpr auto alloc = zamsDFTInitAlloc_R_##Sfx;                                                 \
        static constexpr auto bufSize = zamsDFTGetBufSize_R_##Sfx;                                              \
        static constexpr auto free = zamsDFTFree_R_##Sfx;                                                       \
        static constexpr zamStatus (*fwd[3])(const F*, F*, const S*, Zam8u*) = {                                \
            zamsDFTFwd_RToPerm_##Sfx, zamsDFTFwd_RToPack_##Sfx, zamsDFTFwd_RToCCS_##Sfx};                       \
        static constexpr zamStatus (*inv[3])(const F*, F*, const S*, Zam8u*) = {                                \
            zamsDFTInv_PermToR_##Sfx, zamsDFTInv_PackToR_##Sfx, zamsDFTInv_CCSToR_##Sfx};                       \
        static constexpr zamStatus (*fwdI[3])(F*, const S*, Zam8u*) = {                                         \
            zamsDFTFwd_RToPerm_##Sfx##_I, zamsDFTFwd_RToPack_##Sfx##_I, zamsDFTFwd_RToCCS_##Sfx##_I};           \
        static constexpr zamStatus (*invI[3])(F*, const S*, Zam8u*) = {                                         \
            zamsDFTInv_PermToR_##Sfx##_I, zamsDFTInv_PackToR_##Sfx##_I, zamsDFTInv_CCSToR_##Sfx##_I};           \
    };
template <class F> struct RKind;
DFTT_REAL_KIND(float, 32f)
DFTT_REAL_KIND(double, 64f)
#undef DFTT_REAL_KIND

// A spec made by InitAlloc, freed on scope exit.
template <class K> struct Owned {
    typename K::S* spec = nullptr;
    zamStatus build(int len, int flag) { return K::alloc(&spec, len, flag, 0); }
    ~Owned() {
        if (spec) K::free(spec);
    }
};

// Packed length of a real spectrum of len values in a format.
inline size_t packed_len(Fmt f, size_t len) { return f == kCcs ? (len % 2 ? len + 1 : len + 2) : len; }

// X[k] (k <= len/2) at its place in a packed spectrum: positions of the
// real and imaginary parts, -1 for an implied zero.
inline std::pair<long, long> packed_pos(Fmt f, size_t len, size_t k) {
    const bool even = len % 2 == 0;
    if (k == 0) return {0, f == kCcs ? 1 : -1};
    if (even && k == len / 2) {
        if (f == kCcs) return {long(len), long(len) + 1};
        return {f == kPerm ? 1 : long(len) - 1, -1};
    }
    const long at = (f == kPack || (f == kPerm && !even)) ? long(2 * k) - 1 : long(2 * k);
    return {at, at + 1};
}

}  // namespace dftt
