// The single-precision FIR state: its size, build, release, taps and delay
// line, for the 32f filter, its stream form and the 16-bit-data filter with
// float taps.
#include <algorithm>
#include <cstring>

#include "fir_32f.h"
#include "zamcore.h"

namespace zams::fir {
namespace {

constexpr int64_t ru16(int64_t n) { return (n + 15) & ~int64_t(15); }
constexpr int64_t ru32(int64_t n) { return (n + 31) & ~int64_t(31); }

// The FFT order of a filter of L >= 64 taps: one more than the least k >= 2
// with 2^k > L (64 taps: 256 points).
int fft_order(int L) {
    int k = 2;
    while ((int64_t(1) << k) <= L) ++k;
    return k + 1;
}

// The byte counts the size of a state is made of, for L taps and T threads.
struct Lay {
    int L, T, order = 0;
    int64_t S = 0, B = 0, W = 0, F = 0;
    int64_t copyStride;  // floats a shifted copy
    int64_t size;        // what the size query reports
};

Lay layout(int L, int T) {
    Lay l{L, T};
    l.copyStride = (int64_t(L) + 16) & ~int64_t(7);
    if (L >= 64) {
        fftp::Sizes s;
        const int m = fft_order(L);
        if (RealF::sizes(m, zamFftScaleInverse, s) == zamStatusOk) {
            l.order = m;
            l.S = s.spec;
            l.B = s.init;
            l.W = s.work;
            l.F = ru16(int64_t(4) << m);
        }
    }
    l.size = int64_t(T) * (l.W + l.F + 16) + l.S + l.B + ru32(4 * int64_t(T)) + ru16(4 * int64_t(L)) +
             (32 * int64_t(L) + 32) + ru32(36 * l.copyStride) + 32 * int64_t(L) + l.F + 17024;
    return l;
}

// The allocated block holds everything but the FFT specification and its
// build buffer, with a fixed allowance 32 bytes smaller.
int64_t alloc_size(const Lay& l) { return l.size - l.S - l.B - 32; }

int threads_now() { return std::max(1, ownGetNumThreads()); }

// Lays the state out at base (16-byte aligned) within `room` bytes. fft:
// an FFT made apart (InitAlloc), or none to build one inside the block.
zamStatus build(const Kind32& kind, uint8_t* base, int64_t room, const Lay& l, const float* taps, const float* dlyIn,
                const RealF* apart, int32_t& idOut) {
    const int L = l.L;
    Hdr32* h = reinterpret_cast<Hdr32*>(base);
    std::memset(static_cast<void*>(h), 0, sizeof(Hdr32));
    h->tapsLen = L;
    h->dlyLen = L;
    h->rep = kind.rep;
    h->padLen = kind.rep == 8 ? ((L + 7) & ~7) + 1 : ((L + 3) & ~3) + 1;
    h->threads = l.T;
    h->fftLen = -1;
    h->copyStride = int32_t(l.copyStride);
    h->one = one_form(L);
    uint8_t* p = align_up(base + sizeof(Hdr32), 32);
    auto take = [&](int64_t bytes) {
        const int32_t off = int32_t(p - base);
        p += ru32(bytes);
        return off;
    };
    h->offCopies = take(36 * l.copyStride);
    h->offDly = take(32 * int64_t(L) + 32);
    h->offRep = take(4 * int64_t(L) * kind.rep);
    h->offTaps = take(4 * int64_t(L));
    h->offTable = take(4 * int64_t(l.T));
    h->offSpectrum = take(l.F);
    h->stride = int32_t(l.W + l.F + 16);
    h->offScratch = int32_t(p - base);
    p += int64_t(l.T) * h->stride;
    std::memset(base + h->offTable, 0, size_t(4 * l.T));
    set_taps32(h, taps);  // no FFT yet: the direct layouts only
    set_dly32(h, dlyIn);
    if (l.order > 0) {
        RealF fft;
        zamStatus s = zamStatusOk;
        if (apart) {
            fft = *apart;
            h->externalFft = 1;
        } else {
            uint8_t* mem = align64(p);
            uint8_t* tmp = mem + l.S;
            if (tmp + l.B > base + room) return zamStatusNoMemory;  // the size formula holds it all
            s = RealF::build(l.order, zamFftScaleInverse, mem, l.B > 0 ? tmp : nullptr, fft);
        }
        if (s == zamStatusOk) {
            h->k.fft = fft;
            h->k.order = l.order;
            float* spectrum = reinterpret_cast<float*>(base + h->offSpectrum);
            if (conv::make_kernel(fft, l.order, taps, L, spectrum, h->scratch(), h->k) >= 0) h->fftLen = 1 << l.order;
        }
    } else if (p > base + room) {
        return zamStatusNoMemory;
    }
    idOut = kind.id;
    return zamStatusOk;
}

}  // namespace

zamStatus size32(int tapsLen, int* pSize) {
    if (zamStatus s = check_ptr(pSize)) return s;
    if (tapsLen < 1) return zamStatusBadTapsLength;
    return report_size(layout(tapsLen, threads_now()).size, pSize);
}

zamStatus init32(const Kind32& kind, void** pp, const float* taps, int tapsLen, const float* dly, uint8_t* buf) {
    if (zamStatus s = check_ptr(pp, taps, buf)) return s;
    if (tapsLen < 1) return zamStatusBadTapsLength;
    const Lay l = layout(tapsLen, threads_now());
    const int64_t room = l.size - int64_t(align_up(buf, 16) - buf);
    return lay_into(pp, buf, kShape32,
                    [&](uint8_t* base, int32_t& id) { return build(kind, base, room, l, taps, dly, nullptr, id); });
}

zamStatus init_alloc32(const Kind32& kind, void** pp, const float* taps, int tapsLen, const float* dly) {
    if (zamStatus s = check_ptr(pp, taps)) return s;
    if (tapsLen < 1) return zamStatusBadTapsLength;
    Lay l = layout(tapsLen, threads_now());
    RealF fft;
    if (l.order > 0 && RealF::alloc(l.order, zamFftScaleInverse, fft) != zamStatusOk) l.order = 0;  // runs directly
    const int64_t size = alloc_size(l);
    zamStatus s = lay_alloc(pp, size, 0, kShape32, [&](void** out, uint8_t* mem, uint8_t*) {
        return lay_into(out, mem, kShape32, [&](uint8_t* base, int32_t& id) {
            return build(kind, base, size, l, taps, dly, l.order > 0 ? &fft : nullptr, id);
        });
    });
    if (s != zamStatusOk) fft.release();
    return s;
}

zamStatus free32(void* h, std::initializer_list<int32_t> ids) {
    return release(h, ids, kShape32, [](void* p) {
        Hdr32* s = static_cast<Hdr32*>(p);
        return s->externalFft ? s->k.fft.release() : zamStatusOk;
    });
}

void set_taps32(Hdr32* h, const float* taps) {
    const int L = h->tapsLen;
    float* c = h->copies();
    std::memset(c, 0, size_t(h->copyStride) * sizeof(float));
    for (int i = 0; i < L; ++i) c[i] = taps[L - 1 - i];
    float* r = h->rep_taps();
    for (int j = 0; j < L; ++j) std::fill(r + j * h->rep, r + (j + 1) * h->rep, taps[j]);
    std::memmove(h->taps(), taps, size_t(L) * sizeof(float));
    if (h->fftLen > 0 && conv::make_kernel(h->k.fft, h->k.order, h->taps(), L, const_cast<float*>(h->k.spectrum),
                                           h->scratch(), h->k) < 0)
        h->fftLen = -1;
}

void set_dly32(Hdr32* h, const float* dly) {
    const int L = h->tapsLen;
    float* d = h->dly();
    for (int i = 0; i < L; ++i) d[i] = dly ? dly[L - 1 - i] : 0.0f;
    h->idx = 0;
}

void get_dly32(const Hdr32* h, float* out) {
    const float* span = const_cast<Hdr32*>(h)->dly() + h->idx;
    for (int k = 0; k < h->tapsLen; ++k) out[k] = span[h->tapsLen - 1 - k];
}

}  // namespace zams::fir
