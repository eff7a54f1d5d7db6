// DFT of any length: the DFT specification, the complex plan every kind runs
// on, and the spec structure's life cycle shared by the floating kinds.
//
// A complex plan of n points is one of five methods, chosen from n alone:
//
//   Pow2       n = 2^k: the power-of-two FFT, its spec built inside ours;
//   Split      n = M L, M = 2^k >= 1024 (at most 1024 up to 2^16 points),
//              L > 1 with every prime factor at most kMaxRadix, double
//              precision from 3072 points (where it was measured faster
//              than Mixed): the self-sorting passes of L on the M columns
//              x[n1 + M n2] (the last pass multiplies by W_n^(n1 k2) from a
//              table of n values), L power-of-two FFTs of M over the rows,
//              and one interleave X[L k1 + k2] = row k2 [k1]: most of the
//              work runs in the power-of-two FFT;
//   Mixed      every prime factor at most kMaxRadix: self-sorting passes of
//              radix 4, 2, 3, 5, 7, any other odd prime, and the composite
//              radices of two coprime factors (6, 10, 12, 14, 15, 20, 21,
//              28, 35: two stages in one pass, dft_passes.h); a short
//              plan's radices (ShortPlans) run in one call with every
//              count known at compile time;
//   Rader      n a prime with n - 1 a power of two (257, 65537): the
//              cyclic convolution of length n - 1 over the generator's
//              powers, through the block convolution engine;
//   Bluestein  any other n: the chirp z product, a cyclic convolution of
//              length M >= 2n - 1 with the chirp's spectrum, the chirp
//              product again. M >= 2n - 1 has no prime factor above 7 and
//              the least estimated cost (chirp_len): a power of two runs
//              the power-of-two FFT through the block convolution engine,
//              any other M a Mixed or Split plan of its own, unscaled and
//              nested in this one (the kernel's spectrum carries the 1/M).
//              4099: 8232 = 2^3 3 7^3 points instead of 16384.
//
// Everything a plan holds (twiddles, roots, chirp, permutations, the
// kernel's spectrum, the inner FFT spec) lies inside the DFT spec at byte
// offsets from the DFT spec's start, so a DFT spec is one block, read-only while
// transforms run, and the same layout on both targets.
#pragma once

#include <cstddef>
#include <cstdint>

#include "../common/ids.h"
#include "../common/spec.h"
#include "zams.h"
#include "zams_impl.h"

namespace zams::dft {

// Lengths from 1 to kMaxLen points (complex and real kinds alike).
inline constexpr int kMaxLen = 1 << 23;
inline constexpr int kMaxStages = 32;

enum Method : int32_t { kPow2 = 1, kMixed = 2, kRader = 3, kBluestein = 4, kSplit = 5 };

struct Stage {
    int32_t radix;
    int32_t lanes;   // 1: the pass runs along j (first pass, s = 1)
    uint32_t tw;     // twiddles, 0 for the last pass
    uint32_t roots;  // roots of unity of an odd radix, 0 for 2 and 4
};

// The complex plan. Scale factors are applied by the plan's last step
// (the power-of-two FFT applies its own from its flag).
template <class F> struct CPlan {
    F fwdScale, invScale;
    int32_t fwdOn, invOn;
    int32_t n, method, nst, order;  // order: of the inner FFT
    uint32_t fft;                   // inner FFT spec (Pow2, Rader, Bluestein)
    uint32_t tab;                   // Bluestein chirp, Split twiddles (n values)
    uint32_t ker;                   // kernel spectrum (2^order values)
    uint32_t perm;                  // Rader: generator powers g^q, then g^-q (int32)
    int32_t bufBytes;               // the plan's part of the work buffer
    int32_t fftWork;                // the inner FFT's work buffer, its slack included
    Stage st[kMaxStages];
    uint32_t sub;                   // Bluestein on a smooth length: its unscaled plan, else 0
    int32_t shortPlan;              // Mixed: its index + 1 in ShortPlans (dft_passes.h), else 0
};
static_assert(sizeof(CPlan<float>) == 576 && sizeof(CPlan<double>) == 584);

// Header of every floating DFT spec. Real kinds: an even length runs a
// complex plan of len/2 and a recombination with W_len^k (table at
// recomb), an odd one a complex plan of len on real input; their plans are
// unscaled and the real layer applies the normalisation.
template <class F> struct Hdr {
    int32_t id, len, flag, hint;
    int32_t work;   // bytes of the work buffer a call needs, without the slack
    int32_t owned;
    uint32_t recomb;
    int32_t real;
    CPlan<F> plan;
};
static_assert(sizeof(Hdr<float>) == 608 && sizeof(Hdr<double>) == 616);
static_assert(offsetof(Hdr<double>, plan) % 8 == 0);

// Byte counts of a layout: the DFT spec (from its aligned start), the build
// block, the work buffer.
struct Need {
    int64_t spec = 0, init = 0, work = 0;
};

// One layout function for the size query and the build: with base null it
// only counts; otherwise it builds at the same offsets (tmp: the build
// block, need.init bytes). off is where the plan's tables may start.
template <class F>
zamStatus lay_cplan(int n, int flag, uint8_t* base, CPlan<F>* pl, int64_t off, uint8_t* tmp, Need& need);

// Runs a built plan: src and dst n complex values (in place allowed), work
// 64-aligned with plan.bufBytes + plan.fftWork bytes.
template <class F, bool Inv> zamStatus run_cplan(const uint8_t* base, const CPlan<F>& pl, const F* src, F* dst, uint8_t* work);

// The floating kinds' life cycle (dft_spec.cpp); real selects the real kind.
template <class F> zamStatus get_size(bool real, int len, int flag, int* pSpec, int* pInit, int* pWork);
template <class F>
zamStatus init(bool real, void** pp, int len, int flag, int hint, uint8_t* mem, uint8_t* tmp, int32_t id);
template <class F> zamStatus init_alloc(bool real, void** pp, int len, int flag, int hint, int32_t id);
template <class F> zamStatus buf_size(const void* spec, int32_t id, int* pSize);
template <class F> zamStatus free_spec(void* spec, int32_t id);

// The start of every transform (H: the kind's header, with its work size): the checks in the FFT's order
// (spec -8, identifier -17, vectors -8), then the work buffer (the
// caller's aligned, or the call's own: -9 when none can be had). Null with
// the status in s on a failure.
template <class H>
const H* begin_call(const void* spec, int32_t id, const void* src, const void* dst, uint8_t* caller, WorkBuf& wb,
                    zamStatus& s) {
    const H* h = spec_of<H>(spec, id, s);
    if (!h) return nullptr;
    s = !src || !dst ? zamStatusNullPointer : wb.get(h->work > 0 ? h->work + 64 : 0, caller);
    return s ? nullptr : h;
}

// Complex and real transforms on a checked spec (dft_complex.cpp,
// dft_real.cpp), for the other kinds and the Hilbert transform.
template <class F, bool Inv> zamStatus complex_run(const Hdr<F>* h, const F* src, F* dst, uint8_t* work);
enum class Fmt { Perm, Pack, Ccs };
template <class F> zamStatus real_fwd(const Hdr<F>* h, Fmt f, const F* src, F* dst, uint8_t* work);
template <class F> zamStatus real_inv(const Hdr<F>* h, Fmt f, const F* src, F* dst, uint8_t* work);

// Identifier words of the kinds.
enum : int32_t {
    kIdC32fc = id::DftC32fc, kIdC64fc = id::DftC64fc, kIdR32f = id::DftR32f, kIdR64f = id::DftR64f,
    kIdC16sc = id::DftC16sc, kIdR16s = id::DftR16s, kIdOutC32fc = id::DftOutOrdC32fc, kIdOutC64fc = id::DftOutOrdC64fc
};

}  // namespace zams::dft

// The life cycle of one kind as one-line bindings (the spec structure type SPEC_K).
#define ZAMS_DFT_LIFE(PRE, SPEC, K, F, REAL, ID)                                                               \
    ZAMS_FN(zamStatus, zams##PRE##GetSize_##K)(int len, int flag, int hint, int* a, int* b, int* c) {          \
        (void)hint;                                                                                            \
        return get_size<F>(REAL, len, flag, a, b, c);                                                          \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##Init_##K)(SPEC##_##K * *pp, int len, int flag, int hint, Zam8u* mem,        \
                                            Zam8u* buf) {                                                      \
        return init<F>(REAL, reinterpret_cast<void**>(pp), len, flag, hint, mem, buf, ID);                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##InitAlloc_##K)(SPEC##_##K * *pp, int len, int flag, int hint) {             \
        return init_alloc<F>(REAL, reinterpret_cast<void**>(pp), len, flag, hint, ID);                        \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zams##PRE##GetBufSize_##K)(const SPEC##_##K* s, int* p) { return buf_size<F>(s, ID, p); } \
    ZAMS_FN(zamStatus, zams##PRE##Free_##K)(SPEC##_##K * s) { return free_spec<F>(s, ID); }

