// The block convolution engine: overlap-save over a kernel transformed
// once, shared by FIR filtering, correlation, convolution, the DFT of any
// length and resampling.
//
// A kernel h of `taps` values is transformed once at order m (N = 2^m,
// N >= taps); each section of N signal values is transformed, multiplied by
// the kernel's spectrum, transformed back, and its last N - taps + 1 values
// are outputs. The signal is up to two pieces, head then body (a filter's
// history and its new block), zero outside them:
//
//     y[n] = sum over k < taps of h[k] * s[n + shift - k],  n = 0 .. outLen-1,
//     s = head[0 .. headLen) followed by body[0 .. bodyLen).
//
// A filter with history passes shift = headLen = taps - 1; a full linear
// convolution passes no head and shift 0; a correlation reverses its kernel
// and passes its lag as shift.
//
// Domains: fftp::Real<F> (real data, Perm spectra) and fftp::Complex<F>
// (interleaved complex data). The inverse transform carries the 1/N, so
// kernels are built with flag 2 (zamFftScaleInverse).
//
// Sections are shared out over threads, each with its own scratch block;
// the calls' statuses are combined by minimum. The output may be the body
// itself (an in-place filter, y == body with shift == headLen): sections
// then run last to first on one thread, so that none reads what another
// has written.
#pragma once

#include <cstdint>

#include "fft_plan.h"

namespace zams::conv {

// When a family leaves its direct sums for this engine: the crossovers as
// data, one row a family.
struct Crossover {
    int minOutputs;   // outputs of the call at or above which the FFT path may run
    int minTaps;      // and kernel length at or above which
    int minParallel;  // outputs at or above which sections go to several threads
};
inline constexpr Crossover kFir{512, 64, 1601};
inline constexpr Crossover kConv{512, 64, 1601};
inline constexpr bool use_fft(const Crossover& c, int64_t outputs, int64_t taps) {
    return outputs >= c.minOutputs && taps >= c.minTaps;
}

// The least order m >= 1 with 2^m >= n.
inline int order_at_least(int64_t n) {
    int m = 1;
    while ((int64_t(1) << m) < n) ++m;
    return m;
}

// The section order of one call (run_once) for a kernel of `taps` values
// and `outputs` outputs: the order whose cost, the transforms of the
// sections and the kernel plus the FFT specification's build, is least among
// the orders that hold the kernel at least twice, and not longer than the
// call needs.
int section_order(int64_t taps, int64_t outputs);

template <class D> struct Kernel {
    using E = typename D::Elem;
    D fft;             // built at `order` with flag 2
    int order = 0;
    int taps = 0;
    const E* spectrum = nullptr;  // N values, the kernel zero-padded and transformed
};

// Bytes of one thread's scratch block for a kernel of order m: the FFT's
// work buffer (its slack included), N values of the section, 16 bytes.
template <class D> int64_t scratch_bytes(const D& fft, int order);

// Transforms h (taps values) into spectrum (N values) with a built plan;
// scratch is one scratch block.
template <class D>
zamStatus make_kernel(const D& fft, int order, const typename D::Elem* h, int taps, typename D::Elem* spectrum,
                      uint8_t* scratch, Kernel<D>& out);

struct Signal {
    const void* head;  // headLen values, or null when headLen is 0
    int64_t headLen;
    const void* body;  // bodyLen values
    int64_t bodyLen;
    int64_t shift;
};

// Runs the convolution over threads (at most `threads`, each with its
// scratch block at scratch + t * stride). Returns the most negative status
// of the transforms, or 0.
template <class D>
zamStatus run(const Kernel<D>& k, const Signal& s, typename D::Elem* y, int64_t outLen, uint8_t* scratch,
              int64_t stride, int threads);

// Cyclic convolution of N = 2^k.order values in place, buf = h (*) buf with
// the kernel k made from N taps (a kernel of fewer taps is zero-padded to
// N): the section is the whole period, no overlap. For transforms built on
// a convolution of fixed length (Bluestein's and Rader's DFTs). work is the
// plan's work buffer (fft.work_bytes() bytes, or null when that is 0).
template <class D> zamStatus cyclic(const Kernel<D>& k, typename D::Elem* buf, uint8_t* work);

// One call's worth: the kernel's spectrum and the scratch (and, where the
// sections do not run two at a time on one complex transform, the FFT
// specification) in one block from zamsMalloc_8u, run, released on every
// path: nothing outlives the call. For the stateless families
// (convolution, correlation). -9 when memory cannot be had.
template <class D>
zamStatus run_once(const typename D::Elem* h, int taps, const Signal& s, typename D::Elem* y, int64_t outLen,
                   int order, int threads);

}  // namespace zams::conv
