// DCT (type II forward, type III inverse, orthonormal): the float spec,
// the method by length, and the calls the 16-bit kinds make on an inner
// float spec.
//
// Methods, chosen from the length alone:
//
//   Dedicated  N = 1, 2, 4, 8: a fixed kernel of the length, no tables in
//              the DCT spec, no work buffer;
//   Fft        a power of two from 16: the samples reordered (x[2n] to
//              v[n], x[2n+1] to v[N-1-n]), one real FFT of N, and one
//              twiddle pass: y[k] = Re(w^k V[k]), y[N-k] = -Im(w^k V[k]),
//              w = exp(-i pi / 2N); the inverse runs the same steps
//              backwards through the inverse real FFT;
//   Direct     other lengths up to 35: the sums with a table of
//              cos(2 pi m / 4N), m < 4N;
//   Conv       other lengths from 36: the Fft method's steps around the
//              library's real DFT of N (whose own plan turns lengths with
//              large prime factors into a cyclic convolution).
//
// The DCT spec: a header at the caller's memory rounded up to 64, the method's
// tables from byte 128 (the twiddles w^k times the direction's factor,
// k <= N/2, then the inner FFT or DFT spec; or the cosine table). Tables
// are referred to by offsets from the header, one layout for both targets.
#pragma once

#include <cstddef>
#include <cstdint>

#include "../common/ids.h"
#include "../common/spec.h"
#include "zams.h"
#include "zams_impl.h"

namespace zams::dct {

enum Method : int32_t { kDedicated = 0, kFft = 1, kDirect = 2, kConv = 3 };

// Limits of the size query and of Init (deliberately wider for the
// convolution method at Init).
inline constexpr int64_t kPow2Max = (int64_t(1) << 28) - 1;
inline constexpr int64_t kOtherMaxSize = (int64_t(1) << 25) - 1;
inline constexpr int64_t kOtherMaxInit = (int64_t(1) << 26) - 1;
inline constexpr int kDirectMax = 35;

constexpr bool is_pow2(int64_t n) { return n > 0 && (n & (n - 1)) == 0; }
constexpr Method method_of(int n) {
    return (n == 1 || n == 2 || n == 4 || n == 8) ? kDedicated
           : is_pow2(n)                           ? kFft
           : n <= kDirectMax                      ? kDirect
                                                  : kConv;
}

template <class F> struct Hdr {
    int32_t id, len, hint;
    int32_t work;   // bytes of the work buffer, without the 64 of slack
    int32_t owned;
    F first;        // 1/sqrt(N)
    F other;        // sqrt(2)/sqrt(N)
    int32_t dedicated, fftOn, convOn;
    uint32_t cosTab;  // Direct: cos(2 pi m / 4N), m < 4N
    uint32_t tw;      // Fft, Conv: (re, im) of w^k (forward) or conj(w^k)/2 (inverse), times the factor, k <= N/2
    uint32_t inner;   // Fft: the real FFT spec; Conv: the real DFT spec
    int32_t order;    // Fft: log2 N
};
static_assert(sizeof(Hdr<float>) <= 128 && sizeof(Hdr<double>) <= 128);
inline constexpr int64_t kTables = 128;  // tables start here

// Bytes of the DCT spec block (the dedicated lengths' bare header) .
template <class F> constexpr int kDedicatedSpec = sizeof(F) == 4 ? 132 : 136;

// The float kinds' life cycle (dct_spec.cpp).
template <class F> zamStatus get_size(int len, int* pSpec, int* pInit, int* pWork);
template <class F> zamStatus init(void** pp, int len, int hint, uint8_t* mem, uint8_t* tmp, int32_t id);
template <class F> zamStatus init_alloc(void** pp, int len, int hint, int32_t id);
template <class F> zamStatus buf_size(const void* spec, int32_t id, int* pSize);
template <class F> zamStatus free_spec(void* spec, int32_t id);

// One transform on a checked spec (dct_run.cpp): src and dst len values
// (the same vector allowed), work 64-aligned with h->work bytes.
template <class F, bool Inv> zamStatus run(const Hdr<F>* h, const F* src, F* dst, uint8_t* work);

// The identifier words of the float kinds by direction.
template <class F, bool Inv> constexpr int32_t kId =
    sizeof(F) == 4 ? (Inv ? id::DctInv32f : id::DctFwd32f) : (Inv ? id::DctInv64f : id::DctFwd64f);

// The start of a call: pointers (-8), identifier (-17), work buffer (-9).
template <class H>
const H* begin_call(const void* spec, int32_t id, const void* src, const void* dst, uint8_t* caller, WorkBuf& wb,
                    zamStatus& s) {
    if (zamStatus e = check_ptr(spec, src, dst)) {
        s = e;
        return nullptr;
    }
    const H* h = spec_of<H>(spec, id, s);
    if (!h) return nullptr;
    s = wb.get(h->work > 0 ? int64_t(h->work) + 64 : 0, caller);
    return s ? nullptr : h;
}

}  // namespace zams::dct
