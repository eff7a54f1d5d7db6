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

// Naive DFT in long double; sign -1 forward, +1 inverse. Angles reduced
// exactly in integers.
inline std::vector<CL> dft(const std::vector<CL>& x, int sign) {
    const size_t n = x.size();
    std::vector<CL> y(n);
    const LD pi = 3.141592653589793238462643383279502884L;
    std::vector<CL> w(n);
    for (size_t m = 0; m < n; ++m) w[m] = CL(std::cos(2 * pi * LD(m) / LD(n)), sign * std::sin(2 * pi * LD(m) / LD(n)));
    for (size_t k = 0; k < n; ++k) {
        CL s = 0;
        for (size_t j = 0; j < n; ++j) s += x[j] * w[(j * k) % n];
        y[k] = s;
    }
    return y;
}

// One bin of the DFT, for spot checks of long transforms.
inline CL dft_bin(const std::vector<CL>& x, size_t k, int sign) {
    const size_t n = x.size();
    const LD pi = 3.141592653589793238462643383279502884L;
    CL s = 0;
    for (size_t j = 0; j < n; ++j) {
        size_t m = (j * k) % n;
        s += x[j] * CL(std::cos(2 * pi * LD(m) / LD(n)), sign * std::sin(2 * pi * LD(m) / LD(n)));
    }
    return s;
}

// Relative RMS error of y against the reference.
inline double rel_rms(const std::vector<CL>& y, const std::vector<CL>& ref) {
    LD e = 0, r = 0;
    for (size_t i = 0; i < y.size(); ++i) {
        e += std::norm(y[i] - ref[i]);
        r += std::norm(ref[i]);
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
#define FT_SPEC_FNS(K)                                                                  \
    using Spec = ZamsFFTSpec_##K;                                                       \
    static zamStatus get_size(int o, int f, int h, int* a, int* b, int* c) { return zamsFFTGetSize_##K(o, f, h, a, b, c); } \
    static zamStatus init(Spec** p, int o, int f, int h, Zam8u* m, Zam8u* b) { return zamsFFTInit_##K(p, o, f, h, m, b); } \
    static zamStatus init_alloc(Spec** p, int o, int f, int h) { return zamsFFTInitAlloc_##K(p, o, f, h); } \
    static zamStatus buf_size(const Spec* s, int* p) { return zamsFFTGetBufSize_##K(s, p); } \
    static zamStatus free_spec(Spec* s) { return zamsFFTFree_##K(s); }

struct C32fc {
    using F = float;
    static constexpr int kMax = 28, kId = 4;
    static constexpr const char* kName = "C_32fc";
    FT_SPEC_FNS(C_32fc)
    static zamStatus fwd(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_32fc((const Zam32fc*)s, (Zam32fc*)d, p, b); }
    static zamStatus inv(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_32fc((const Zam32fc*)s, (Zam32fc*)d, p, b); }
    static zamStatus fwd_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_32fc_I((Zam32fc*)sd, p, b); }
    static zamStatus inv_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_32fc_I((Zam32fc*)sd, p, b); }
};
struct C64fc {
    using F = double;
    static constexpr int kMax = 27, kId = 7;
    static constexpr const char* kName = "C_64fc";
    FT_SPEC_FNS(C_64fc)
    static zamStatus fwd(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_64fc((const Zam64fc*)s, (Zam64fc*)d, p, b); }
    static zamStatus inv(const F* s, F* d, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_64fc((const Zam64fc*)s, (Zam64fc*)d, p, b); }
    static zamStatus fwd_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTFwd_CToC_64fc_I((Zam64fc*)sd, p, b); }
    static zamStatus inv_i(F* sd, const Spec* p, Zam8u* b) { return zamsFFTInv_CToC_64fc_I((Zam64fc*)sd, p, b); }
};
// Split kinds, seen through interleaved arrays: the adaptor splits and
// joins around the call, so the same checks apply.
template <class F, class SpecT, auto Fwd, auto Inv, auto FwdI, auto InvI> struct SplitOps {
    static zamStatus call(bool inverse, bool inplace, const F* s, F* d, const SpecT* p, Zam8u* b, size_t n) {
        std::vector<F> sr(n), si(n), dr(n), di(n);
        for (size_t i = 0; i < n; ++i) { sr[i] = s[2 * i]; si[i] = s[2 * i + 1]; dr[i] = d[2 * i]; di[i] = d[2 * i + 1]; }
        zamStatus st;
        if (inplace) {
            st = inverse ? InvI(sr.data(), si.data(), p, b) : FwdI(sr.data(), si.data(), p, b);
            dr = sr; di = si;
        } else {
            st = inverse ? Inv(sr.data(), si.data(), dr.data(), di.data(), p, b)
                         : Fwd(sr.data(), si.data(), dr.data(), di.data(), p, b);
        }
        for (size_t i = 0; i < n; ++i) { d[2 * i] = dr[i]; d[2 * i + 1] = di[i]; }
        return st;
    }
};
struct C32f {
    using F = float;
    static constexpr int kMax = 28, kId = 5;
    static constexpr const char* kName = "C_32f";
    FT_SPEC_FNS(C_32f)
    using Ops = SplitOps<F, Spec, zamsFFTFwd_CToC_32f, zamsFFTInv_CToC_32f, zamsFFTFwd_CToC_32f_I, zamsFFTInv_CToC_32f_I>;
};
struct C64f {
    using F = double;
    static constexpr int kMax = 27, kId = 8;
    static constexpr const char* kName = "C_64f";
    FT_SPEC_FNS(C_64f)
    using Ops = SplitOps<F, Spec, zamsFFTFwd_CToC_64f, zamsFFTInv_CToC_64f, zamsFFTFwd_CToC_64f_I, zamsFFTInv_CToC_64f_I>;
};
struct R32f {
    using F = float;
    static constexpr int kMax = 29, kId = 6;
    static constexpr const char* kName = "R_32f";
    FT_SPEC_FNS(R_32f)
};
struct R64f {
    using F = double;
    static constexpr int kMax = 28, kId = 9;
    static constexpr const char* kName = "R_64f";
    FT_SPEC_FNS(R_64f)
};

// A spec built in caller memory of exactly the reported size, with a guard
// zone behind it that Init must leave alone.
template <class K> struct OwnedSpec {
    std::vector<uint8_t> mem, tmp;
    typename K::Spec* spec = nullptr;
    int specSize = 0, initSize = 0, workSize = 0;
    static constexpr size_t kGuard = 256;
    zamStatus build(int order, int flag, size_t misalign = 0) {
        zamStatus s = K::get_size(order, flag, 0, &specSize, &initSize, &workSize);
        if (s) return s;
        mem.assign(size_t(specSize) + kGuard + misalign, 0xA5);
        tmp.assign(size_t(initSize) + 1, 0);
        return K::init(&spec, order, flag, 0, mem.data() + misalign, initSize ? tmp.data() : nullptr);
    }
    bool guard_intact(size_t misalign = 0) const {
        for (size_t i = size_t(specSize) + misalign; i < mem.size(); ++i)
            if (mem[i] != 0xA5) return false;
        return true;
    }
};

template <class F> std::vector<CL> to_cl(const F* p, size_t n) {
    std::vector<CL> v(n);
    for (size_t i = 0; i < n; ++i) v[i] = CL(p[2 * i], p[2 * i + 1]);
    return v;
}

}  // namespace ft
