// Test-side view of the FFT kinds: one traits struct a kind, so a test runs
// the same checks over every kind, and the long double oracle.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstring>
#include <vector>

#include "harness.h"
#include "zams.h"

namespace ft {

using LD = long double;
using CL = std::complex<LD>;

// The DFT in long double, by radix-2 passes over exactly reduced angles;
// sign -1 forward, +1 inverse. The length is a power of two.
inline std::vector<CL> dft(std::vector<CL> x, int sign) {
    const size_t n = x.size();
    for (size_t i = 1, j = 0; i < n; ++i) {
        size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(x[i], x[j]);
    }
    const LD pi = 3.141592653589793238462643383279502884L;
    std::vector<CL> w(n / 2);
    for (size_t m = 0; m < n / 2; ++m) w[m] = CL(std::cos(2 * pi * LD(m) / LD(n)), sign * std::sin(2 * pi * LD(m) / LD(n)));
    for (size_t len = 2; len <= n; len <<= 1)
        for (size_t i = 0; i < n; i += len)
            for (size_t k = 0; k < len / 2; ++k) {
                const CL t = x[i + k + len / 2] * w[k * (n / len)];
                x[i + k + len / 2] = x[i + k] - t;
                x[i + k] += t;
            }
    return x;
}

// Relative RMS error of y (a vector or an array) against the reference,
// real or complex.
template <class Y, class R> double rel_rms(const Y& y, const std::vector<R>& ref) {
    LD e = 0, r = 0;
    for (size_t i = 0; i < ref.size(); ++i) {
        e += std::norm(CL(y[i]) - CL(ref[i]));
        r += std::norm(CL(ref[i]));
    }
    return r == 0 ? double(std::sqrt(e)) : double(std::sqrt(e / r));
}

template <class F> double bound(int order) { return (sizeof(F) == 4 ? 2e-7 : 4e-16) * (order < 1 ? 1 : order); }

// Scale of a direction under a flag, as the caller expects it.
inline LD flag_scale(int flag, int order, bool inverse) {
    LD n = LD(1ull << order);
    switch (flag) {
        case 1: return inverse ? 1 : 1 / n;
        case 2: return inverse ? 1 / n : 1;
        case 4: return 1 / std::sqrt(n);
        default: return 1;
    }
}

inline const int kFlags[] = {1, 2, 4, 8};

// Where a spec built in caller memory starts: the first 64-byte boundary.
inline uint8_t* fft_align(uint8_t* p) {
    return reinterpret_cast<uint8_t*>((reinterpret_cast<uintptr_t>(p) + 63) & ~uintptr_t(63));
}

// ------------------------------------------------------------- kinds --
// kMax: the largest order the size query takes; kTop: the largest it
// reports sizes for (the integer kinds' work buffer would reach 2^31 bytes
// at kMax).
#define FT_KIND(K, T, max, top, id)                                                                    \
    using F = T;                                                                                       \
    using Spec = ZamsFFTSpec_##K;                                                                      \
    static constexpr int kMax = max, kTop = top, kId = id;                                             \
    static constexpr const char* kName = #K;                                                           \
    static zamStatus get_size(int o, int f, int h, int* a, int* b, int* c) { return zamsFFTGetSize_##K(o, f, h, a, b, c); } \
    static zamStatus init(Spec** p, int o, int f, int h, Zam8u* m, Zam8u* b) { return zamsFFTInit_##K(p, o, f, h, m, b); } \
    static zamStatus init_alloc(Spec** p, int o, int f, int h) { return zamsFFTInitAlloc_##K(p, o, f, h); } \
    static zamStatus buf_size(const Spec* s, int* p) { return zamsFFTGetBufSize_##K(s, p); }           \
    static zamStatus free_spec(Spec* s) { return zamsFFTFree_##K(s); }
#define FT_INTERLEAVED(K, T)                                                                           \
    static zamStatus fwd(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_##K((const T*)s, (T*)d, p, b); } \
    static zamStatus inv(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_##K((const T*)s, (T*)d, p, b); } \
    static zamStatus fwd_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_##K##_I((T*)sd, p, b); } \
    static zamStatus inv_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_##K##_I((T*)sd, p, b); }

// Split kinds, seen through interleaved arrays: the adaptor splits the
// source, runs run(re, im, dst re, dst im) and joins the result (from the
// source arrays in place), so the same checks apply.
template <class F> zamStatus via_split(const F* s, F* d, size_t n, bool inplace, auto run) {
    std::vector<F> sr(n), si(n), dr(n), di(n);
    for (size_t i = 0; i < n; ++i) { sr[i] = s[2 * i]; si[i] = s[2 * i + 1]; dr[i] = d[2 * i]; di[i] = d[2 * i + 1]; }
    const zamStatus st = run(sr.data(), si.data(), dr.data(), di.data());
    for (size_t i = 0; i < n; ++i) { d[2 * i] = (inplace ? sr : dr)[i]; d[2 * i + 1] = (inplace ? si : di)[i]; }
    return st;
}
template <class F, class SpecT, auto Fwd, auto Inv, auto FwdI, auto InvI> struct SplitOps {
    static zamStatus call(bool inverse, bool inplace, const F* s, F* d, const SpecT* p, Zam8u* b, size_t n) {
        return via_split(s, d, n, inplace, [&](F* sr, F* si, F* dr, F* di) {
            if (inplace) return inverse ? InvI(sr, si, p, b) : FwdI(sr, si, p, b);
            return inverse ? Inv(sr, si, dr, di, p, b) : Fwd(sr, si, dr, di, p, b);
        });
    }
};
#define FT_SPLIT(K) using Ops = SplitOps<F, Spec, zamsFFTFwd_CToC_##K, zamsFFTInv_CToC_##K, zamsFFTFwd_CToC_##K##_I, zamsFFTInv_CToC_##K##_I>;

struct C32fc { FT_KIND(C_32fc, float, 28, 28, 4) FT_INTERLEAVED(32fc, Zam32fc) };
struct C64fc { FT_KIND(C_64fc, double, 27, 27, 7) FT_INTERLEAVED(64fc, Zam64fc) };
struct C32f { FT_KIND(C_32f, float, 28, 28, 5) FT_SPLIT(32f) };
struct C64f { FT_KIND(C_64f, double, 27, 27, 8) FT_SPLIT(64f) };
struct R32f { FT_KIND(R_32f, float, 29, 29, 6) };
struct R64f { FT_KIND(R_64f, double, 28, 28, 9) };
struct I16sc { FT_KIND(C_16sc, Zam16s, 28, 27, 1) };
struct I16s { FT_KIND(C_16s, Zam16s, 28, 27, 2) };
struct IR16s { FT_KIND(R_16s, Zam16s, 29, 28, 3) };
struct I32sc { FT_KIND(C_32sc, Zam32s, 27, 26, 0x434D414C) };
struct I32s { FT_KIND(C_32s, Zam32s, 27, 26, 0x434D414D) };
struct IR32s { FT_KIND(R_32s, Zam32s, 28, 27, 0x434D414E) };
struct IR16s32s { FT_KIND(R_16s32s, Zam16s, 28, 27, 0x434D414F) };

// Runs f.template operator()<K>() for each kind K.
template <class... K> struct Kinds {
    static void each(auto f) { (f.template operator()<K>(), ...); }
};
using AllKinds = Kinds<C32fc, C32f, C64fc, C64f, R32f, R64f, I16sc, I16s, IR16s, I32sc, I32s, IR32s, IR16s32s>;

// A spec built in caller memory of exactly the reported size, with a guard
// zone behind it that Init must leave alone.
template <class K> struct OwnedSpec {
    std::vector<uint8_t> mem, tmp;
    typename K::Spec* spec = nullptr;
    int specSize = 0, initSize = 0, workSize = 0;
    static constexpr size_t kGuard = 256;
    zamStatus build(int order, int flag, size_t misalign = 0, int hint = 0) {
        zamStatus s = K::get_size(order, flag, hint, &specSize, &initSize, &workSize);
        if (s) return s;
        mem.assign(size_t(specSize) + kGuard + misalign, 0xA5);
        tmp.assign(size_t(initSize) + 1, 0);
        return K::init(&spec, order, flag, hint, mem.data() + misalign, initSize ? tmp.data() : nullptr);
    }
    bool guard_intact(size_t misalign = 0) const {
        for (size_t i = size_t(specSize) + misalign; i < mem.size(); ++i)
            if (mem[i] != 0xA5) return false;
        return true;
    }
};

// Real spectra: Perm (R0, R(N/2), pairs), Pack (R0, pairs, R(N/2)) and
// CCS (N/2 + 1 pairs, imaginary parts of R0 and R(N/2) zero).
enum Fmt { kPerm, kPack, kCcs };
inline size_t packed_len(Fmt f, size_t n) { return f == kCcs ? 2 * (n / 2 + 1) : n; }

// The layout of a spectrum X (bins 0 to N/2 used) in a format; N may be odd.
inline std::vector<LD> pack_model(Fmt f, const std::vector<CL>& X, size_t n) {
    std::vector<LD> v{X[0].real()};
    if (f == kCcs) {
        v.push_back(0);
        for (size_t k = 1; k <= n / 2; ++k) { v.push_back(X[k].real()); v.push_back(2 * k == n ? 0 : X[k].imag()); }
        return v;
    }
    if (f == kPerm && n % 2 == 0) v.push_back(X[n / 2].real());
    for (size_t k = 1; k < (n + 1) / 2; ++k) { v.push_back(X[k].real()); v.push_back(X[k].imag()); }
    if (f == kPack && n % 2 == 0) v.push_back(X[n / 2].real());
    return v;
}

// The whole Hermitian spectrum a format holds.
template <class T> std::vector<CL> unpack_model(Fmt f, const T* v, size_t n) {
    std::vector<CL> X(n);
    for (size_t k = 0; k <= n / 2; ++k) {
        const bool edge = k == 0 || 2 * k == n;
        const size_t p = f == kCcs ? 2 * k : (f == kPerm ? 2 * k : 2 * k - 1);
        if (f == kCcs) X[k] = CL(v[p], edge ? 0 : v[p + 1]);
        else if (k == 0) X[k] = v[0];
        else if (edge) X[k] = v[f == kPerm ? 1 : n - 1];
        else X[k] = CL(v[p], v[p + 1]);
        if (k > 0) X[n - k] = std::conj(X[k]);
    }
    return X;
}

template <class F> std::vector<CL> to_cl(const F* p, size_t n) {
    std::vector<CL> v(n);
    for (size_t i = 0; i < n; ++i) v[i] = CL(p[2 * i], p[2 * i + 1]);
    return v;
}

}  // namespace ft
