// The single-precision FIR state shared by the 32f filter, its stream form
// and the 16-bit-data filter with float taps (which converts its samples
// and runs the same code on them).
//
// Areas, in order after the header, each on a 32-byte boundary:
//   copies    the taps reversed (element i = taps[L-1-i]), then zeros to
//             copyStride floats, read in whole vectors by the long-filter
//             kernel and the one-sample form; the area is the nine rows of
//             copyStride floats the size formula counts, of which the
//             kernels read the first;
//   dly       8 (L + 1) floats: the span [idx, idx + L) holds the last L
//             samples oldest first; a one-sample call writes each sample
//             at i and i + L so the span never wraps; a block call joins
//             history and input at dly + 1 and parks the next delay line
//             at dly + 2L + 8;
//   rep       taps[j] repeated `rep` times for j = 0 .. L-1 (the
//             broadcast kernel of short filters);
//   taps      the taps as given (GetTaps);
//   table     one word a thread;
//   spectrum  the taps' spectrum (N floats), FFT path only;
//   scratch   one block a thread: the FFT's work buffer, N floats, 16 bytes;
//   spec      the real FFT specification (unless InitAlloc made it apart),
//             then its build buffer.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "../common/blockconv.h"
#include "../common/spec.h"

namespace zams::fir {

using RealF = fftp::Real<float>;

struct Hdr32 {
    int32_t id, tapsLen, padLen, fftLen, idx, scratchWord, dlyLen, rep, threads, owned, externalFft;
    int32_t offCopies, offDly, offRep, offTaps, offTable, offSpectrum, offScratch, copyStride, stride;
    int32_t one;  // the one-sample form: its row of kOne
    conv::Kernel<RealF> k;

    float* copies() { return reinterpret_cast<float*>(reinterpret_cast<uint8_t*>(this) + offCopies); }
    float* dly() { return reinterpret_cast<float*>(reinterpret_cast<uint8_t*>(this) + offDly); }
    float* rep_taps() { return reinterpret_cast<float*>(reinterpret_cast<uint8_t*>(this) + offRep); }
    float* taps() { return reinterpret_cast<float*>(reinterpret_cast<uint8_t*>(this) + offTaps); }
    uint8_t* scratch() { return reinterpret_cast<uint8_t*>(this) + offScratch; }
};

// Kinds laid out by this code: identifier, taps repeat count, padding step.
struct Kind32 {
    int32_t id;
    int rep;
};
inline constexpr Kind32 kFir32f{id::Fir32f, 8}, kStream32f{id::FirStream32f, 4}, kFir32f16s{id::Fir32f16s, 4};

inline constexpr Shape kShape32{16, offsetof(Hdr32, owned), false};

// Sizes, build and the operations on the taps and the delay line.
zamStatus size32(int tapsLen, int* pSize);
zamStatus init32(const Kind32& kind, void** pp, const float* taps, int tapsLen, const float* dly, uint8_t* buf);
zamStatus init_alloc32(const Kind32& kind, void** pp, const float* taps, int tapsLen, const float* dly);
zamStatus free32(void* h, std::initializer_list<int32_t> ids);
void set_taps32(Hdr32* h, const float* taps);
void set_dly32(Hdr32* h, const float* dly);  // null: zeros
void get_dly32(const Hdr32* h, float* out);

// Filtering on a checked state: a block (pSrc may equal pDst) and one
// sample, by the form kOne[one_form(tapsLen)] that the build records (read
// back masked to the table; the call reaches a form straight from the
// exported entry).
zamStatus block32(Hdr32* h, const float* src, float* dst, int len);
using OneFn = zamStatus (*)(Hdr32*, float, float*);
inline constexpr int kOneForms = 64;  // a power of two: the row is read back masked
extern const std::array<OneFn, kOneForms> kOne;
int32_t one_form(int tapsLen);
inline zamStatus one32(Hdr32* h, float x, float* y) {
    return kOne[uint32_t(h->one) & (kOneForms - 1)](h, x, y);
}

}  // namespace zams::fir
