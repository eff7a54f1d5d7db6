// The two-channel filter bank: forward (filter, keep every other output)
// and inverse (place every sample on an odd position, filter, add the two
// bands), states with taps and delay lines, the 16-bit-data forms.
//
// Both directions run as polyphase FIR sums over eight outputs a vector.
// The forward splits its input into even and odd samples (with the band's
// history ahead of them) so that each tap reads a contiguous run; the
// inverse reads each band directly and computes the even and the odd
// outputs as two sums, merged on the store. Every output is the sum over k
// from 0 of products in single precision, the same operations in the
// vector and the scalar steps, so results depend only on the data.
#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "../common/check.h"
#include "../common/spec.h"
#include "wt_simd.h"

namespace zams::wt {
namespace {

constexpr int kChunk = 256;  // outputs a band per pass over the scratch

struct Hdr {
    int32_t id;
    int32_t owned;
    int32_t len[2], offs[2];  // band 0 low, band 1 high
    int32_t dly[2];           // delay-line samples a band
    uint32_t offTaps[2], offHist[2], offScratch;
};
constexpr Shape kShape{32, offsetof(Hdr, owned), false};

template <class T> T* at(Hdr* h, uint32_t off) { return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(h) + off); }
template <class T> const T* at(const Hdr* h, uint32_t off) {
    return reinterpret_cast<const T*>(reinterpret_cast<const uint8_t*>(h) + off);
}

enum Dir { Fwd, Inv };

// A kind: direction and data type; its identifier word.
template <Dir D, class T> constexpr int32_t kId = D == Fwd ? (std::is_same_v<T, float> ? id::WtFwd32f : id::WtFwd32f16s)
                                                            : (std::is_same_v<T, float> ? id::WtInv32f : id::WtInv32f16s);

// The delay-line samples a band keeps: the forward sums reach back
// len + offs - 1 inputs, the inverse (len + offs) / 2 band samples.
constexpr int64_t dly_count(Dir d, int64_t len, int64_t offs) {
    return d == Fwd ? std::max<int64_t>(0, len + offs - 1) : (len + offs) / 2;
}

// One layout serves the size query and the build.
struct Layout {
    int64_t taps[2], hist[2], dly[2], scratch, end;
};
Layout layout(Dir d, const int len[2], const int offs[2]) {
    // in 64 bits on both targets: a size past the int limit is refused, never wrapped
    auto bytes32 = [](int64_t floats) { return (floats * 4 + 31) / 32 * 32; };
    Layout l{};
    int64_t at = bytes32((int64_t(sizeof(Hdr)) + 3) / 4);
    for (int b = 0; b < 2; ++b) {
        l.dly[b] = dly_count(d, len[b], offs[b]);
        l.taps[b] = at;
        at += bytes32(len[b]);
    }
    for (int b = 0; b < 2; ++b) {
        l.hist[b] = at;
        at += bytes32(l.dly[b]);
    }
    l.scratch = at;
    // forward: the even and the odd samples of one band's pass; inverse: a
    // pass of each band with its history ahead of it.
    const int64_t floats = d == Fwd ? 2 * (kChunk + (int64_t(std::max(len[0], len[1])) + 1) / 2)
                                    : 2 * kChunk + l.dly[0] + l.dly[1];
    l.end = at + floats * 4;
    return l;
}

// The argument checks of the size query and the builds, after the pointers.
zamStatus check_dims(Dir d, const int len[2], const int offs[2], int64_t& size) {
    if (len[0] < 1 || len[1] < 1) return zamStatusBadLength;
    if (offs[0] < -1 || offs[1] < -1) return zamStatusBadWaveletOffset;
    size = layout(d, len, offs).end + int64_t(kShape.align) - 1;
    return size >= INT32_MAX ? zamStatusNoMemory : zamStatusOk;
}

zamStatus get_size(Dir d, int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    const int len[2] = {lenLow, lenHigh}, offs[2] = {offsLow, offsHigh};
    int64_t size;
    if (zamStatus s = check_dims(d, len, offs, size)) return s;
    return report_size(size, pSize);
}

template <Dir D, class T>
zamStatus init(void** pp, const float* tLow, int lenLow, int offsLow, const float* tHigh, int lenHigh, int offsHigh,
               uint8_t* mem) {
    if (zamStatus s = check_ptr(pp, tLow, tHigh, mem)) return s;
    const int len[2] = {lenLow, lenHigh}, offs[2] = {offsLow, offsHigh};
    int64_t size;
    if (zamStatus s = check_dims(D, len, offs, size)) return s;
    return lay_into(pp, mem, kShape, [&](uint8_t* base, int32_t& idOut) {
        const Layout l = layout(D, len, offs);
        assert(l.end + int64_t(kShape.align) - 1 <= size);
        Hdr* h = reinterpret_cast<Hdr*>(base);
        std::memset(h, 0, sizeof(Hdr));
        const float* taps[2] = {tLow, tHigh};
        for (int b = 0; b < 2; ++b) {
            h->len[b] = len[b];
            h->offs[b] = offs[b];
            h->dly[b] = int32_t(l.dly[b]);
            h->offTaps[b] = uint32_t(l.taps[b]);
            h->offHist[b] = uint32_t(l.hist[b]);
            std::memcpy(at<float>(h, h->offTaps[b]), taps[b], size_t(len[b]) * sizeof(float));
            std::memset(at<float>(h, h->offHist[b]), 0, size_t(l.dly[b]) * sizeof(float));
        }
        h->offScratch = uint32_t(l.scratch);
        idOut = kId<D, T>;
        return zamStatusOk;
    });
}

template <Dir D, class T>
zamStatus init_alloc(void** pp, const float* tLow, int lenLow, int offsLow, const float* tHigh, int lenHigh,
                     int offsHigh) {
    if (zamStatus s = check_ptr(pp, tLow, tHigh)) return s;
    const int len[2] = {lenLow, lenHigh}, offs[2] = {offsLow, offsHigh};
    int64_t size;
    if (zamStatus s = check_dims(D, len, offs, size)) return s;
    return lay_alloc(pp, size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        return init<D, T>(out, tLow, lenLow, offsLow, tHigh, lenHigh, offsHigh, mem);
    });
}

template <Dir D, class T> zamStatus free_state(void* p) { return release(p, {kId<D, T>}, kShape); }

// Delay lines: the caller's newest first, the state's oldest first (the
// order the sums read them in). 16-bit lines hold exact integers.
template <Dir D, class T> zamStatus set_dly(void* p, const T* lineLow, const T* lineHigh) {
    if (zamStatus s = check_ptr(p, lineLow, lineHigh)) return s;
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {kId<D, T>}, s);
    if (!h) return s;
    const T* line[2] = {lineLow, lineHigh};
    for (int b = 0; b < 2; ++b) {
        float* hist = at<float>(h, h->offHist[b]);
        for (int i = 0; i < h->dly[b]; ++i) hist[h->dly[b] - 1 - i] = float(line[b][i]);
    }
    return zamStatusOk;
}

template <Dir D, class T> zamStatus get_dly(const void* p, T* lineLow, T* lineHigh) {
    if (zamStatus s = check_ptr(p, lineLow, lineHigh)) return s;
    zamStatus s;
    const Hdr* h = state_of<Hdr>(const_cast<void*>(p), {kId<D, T>}, s);
    if (!h) return s;
    T* line[2] = {lineLow, lineHigh};
    for (int b = 0; b < 2; ++b) {
        const float* hist = at<float>(h, h->offHist[b]);
        for (int i = 0; i < h->dly[b]; ++i) line[b][i] = T(hist[h->dly[b] - 1 - i]);
    }
    return zamStatusOk;
}

// After a call that consumed n samples x[0..n-1] of a band's stream: the
// history becomes the last d samples of (history, x).
void advance(float* hist, int d, const float* x, int64_t n) {
    if (d == 0) return;
    if (n >= d) {
        std::memcpy(hist, x + n - d, size_t(d) * sizeof(float));
    } else {
        std::memmove(hist, hist + n, size_t(d - n) * sizeof(float));
        std::memcpy(hist + d - n, x, size_t(n) * sizeof(float));
    }
}

// out[i] = sum over q < count of t[q stride] run(q)[i], i < c, where run(q)
// is the contiguous run tap q reads; the sum starts from 0 in the order of
// q, in the vector steps and the scalar ones alike.
template <class Run> void fir_runs(const float* t, int stride, int count, Run run, float* out, int c) {
    int i = 0;
    for (; i + 8 <= c; i += 8) {
        __m256 acc = _mm256_setzero_ps();
        for (int q = 0; q < count; ++q)
            acc = _mm256_add_ps(acc, _mm256_mul_ps(_mm256_set1_ps(t[q * stride]), _mm256_loadu_ps(run(q) + i)));
        _mm256_storeu_ps(out + i, acc);
    }
    for (; i < c; ++i) {
        float acc = 0.0f;
        for (int q = 0; q < count; ++q) acc = acc + t[q * stride] * run(q)[i];
        out[i] = acc;
    }
}

// Forward, one band, n outputs: out[j] = sum_k t[k] x[2j - offs - k].
// A pass of c outputs from j0 reads the stream from base = 2 j0 - (L + offs
// - 1) on: m = 2c + L - 2 samples, dealt to E (even m) and O (odd m); tap k
// reads E or O from (L - 1 - k) / 2 on.
void fwd_band(Hdr* h, int b, const float* x, float* out, int n) {
    const int L = h->len[b], offs = h->offs[b], d = h->dly[b];
    const float* t = at<float>(h, h->offTaps[b]);
    float* hist = at<float>(h, h->offHist[b]);
    float* E = at<float>(h, h->offScratch);
    float* O = E + kChunk + (std::max(h->len[0], h->len[1]) + 1) / 2;
    for (int j0 = 0; j0 < n; j0 += kChunk) {
        const int c = std::min(kChunk, n - j0);
        const int64_t base = 2 * int64_t(j0) - (int64_t(L) + offs - 1);
        const int m = 2 * c + L - 2;
        auto sample = [&](int64_t j) { return j < 0 ? hist[d + j] : x[j]; };
        int i = 0;
        for (; 2 * i + 1 < m && base + 2 * i < 0; ++i) {
            E[i] = sample(base + 2 * i);
            O[i] = sample(base + 2 * i + 1);
        }
        for (; 2 * i + 16 <= m; i += 8) {
            __m256 e, o;
            split(x + base + 2 * i, e, o);
            _mm256_storeu_ps(E + i, e);
            _mm256_storeu_ps(O + i, o);
        }
        for (; 2 * i < m; ++i) {
            E[i] = sample(base + 2 * i);
            if (2 * i + 1 < m) O[i] = sample(base + 2 * i + 1);
        }
        fir_runs(t, 1, L, [&](int k) { const int q = L - 1 - k; return ((q & 1) ? O : E) + (q >> 1); }, out + j0, c);
    }
    advance(hist, d, x, 2 * int64_t(n));
}

// Inverse, n samples a band, 2n outputs: y[2j + p] = sum over the band's
// taps k with k + offs + 1 - p even of t[k] band[j - (k + offs + 1 - p) / 2],
// the high band's sum added to the low band's.
void inv_bands(Hdr* h, const float* const src[2], float* y, int n) {
    float* scratch = at<float>(h, h->offScratch);
    for (int j0 = 0; j0 < n; j0 += kChunk) {
        const int c = std::min(kChunk, n - j0);
        // Each band from d samples before j0: from the scratch while that
        // reaches into the history, else in place.
        const float* run[2];
        float* buf = scratch;
        for (int b = 0; b < 2; ++b) {
            const int d = h->dly[b];
            if (j0 >= d) {
                run[b] = src[b] + j0 - d;
                continue;
            }
            const float* hist = at<float>(h, h->offHist[b]);
            for (int i = 0; i < c + d; ++i) buf[i] = j0 - d + i < 0 ? hist[j0 + i] : src[b][j0 - d + i];
            run[b] = buf;
            buf += c + d;
        }
        alignas(32) float part[2][2][kChunk];  // [phase][band]
        for (int p = 0; p < 2; ++p)
            for (int b = 0; b < 2; ++b) {
                const int L = h->len[b], offs = h->offs[b], d = h->dly[b];
                const int k0 = (p + offs + 1) & 1;
                const float* t = at<float>(h, h->offTaps[b]);
                // taps k0, k0 + 2, ...: tap k reads from d - (k + offs + 1 - p) / 2 on
                const int count = L > k0 ? (L - k0 + 1) / 2 : 0;
                const float* r = run[b] + d - (k0 + offs + 1 - p) / 2;
                fir_runs(t + k0, 2, count, [&](int q) { return r - q; }, part[p][b], c);
            }
        int i = 0;
        for (; i + 8 <= c; i += 8) {
            const __m256 e = _mm256_add_ps(_mm256_load_ps(part[0][0] + i), _mm256_load_ps(part[0][1] + i));
            const __m256 o = _mm256_add_ps(_mm256_load_ps(part[1][0] + i), _mm256_load_ps(part[1][1] + i));
            merge(y + 2 * (j0 + i), e, o);
        }
        for (; i < c; ++i) {
            y[2 * (j0 + i)] = part[0][0][i] + part[0][1][i];
            y[2 * (j0 + i) + 1] = part[1][0][i] + part[1][1][i];
        }
    }
    for (int b = 0; b < 2; ++b) advance(at<float>(h, h->offHist[b]), h->dly[b], src[b], n);
}

// The calls: pointers, length, identifier; the 16-bit forms convert their
// samples in passes, run the float code and convert out rounding to nearest.
template <Dir D, class T> Hdr* checked(void* p, int n, zamStatus& s, const void* a, const void* b, const void* c) {
    s = check_ptr(a, b, c, p);
    if (!s) s = check_len(n);
    return s ? nullptr : state_of<Hdr>(p, {kId<D, T>}, s);
}

template <class T> zamStatus fwd(const T* x, T* lo, T* hi, int n, void* p, int sf) {
    zamStatus s;
    Hdr* h = checked<Fwd, T>(p, n, s, x, lo, hi);
    if (!h) return s;
    if constexpr (std::is_same_v<T, float>) {
        fwd_band(h, 0, x, lo, n);
        fwd_band(h, 1, x, hi, n);
    } else {
        alignas(32) float in[2 * kChunk], out[2][kChunk];
        for (int j = 0; j < n; j += kChunk) {
            const int c = std::min(kChunk, n - j);
            g9_zamsConvert_16s32f(x + 2 * int64_t(j), in, 2 * c);
            fwd_band(h, 0, in, out[0], c);
            fwd_band(h, 1, in, out[1], c);
            g9_zamsConvert_32f16s_Sfs(out[0], lo + j, c, zamRoundNearestEven, sf);
            g9_zamsConvert_32f16s_Sfs(out[1], hi + j, c, zamRoundNearestEven, sf);
        }
    }
    return zamStatusOk;
}

template <class T> zamStatus inv(const T* lo, const T* hi, int n, T* y, void* p, int sf) {
    zamStatus s;
    Hdr* h = checked<Inv, T>(p, n, s, lo, hi, y);
    if (!h) return s;
    if constexpr (std::is_same_v<T, float>) {
        const float* src[2] = {lo, hi};
        inv_bands(h, src, y, n);
    } else {
        alignas(32) float in[2][kChunk], out[2 * kChunk];
        const float* src[2] = {in[0], in[1]};
        for (int j = 0; j < n; j += kChunk) {
            const int c = std::min(kChunk, n - j);
            g9_zamsConvert_16s32f(lo + j, in[0], c);
            g9_zamsConvert_16s32f(hi + j, in[1], c);
            inv_bands(h, src, out, c);
            g9_zamsConvert_32f16s_Sfs(out, y + 2 * int64_t(j), 2 * c, zamRoundNearestEven, sf);
        }
    }
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::wt

using namespace zams::wt;

#define ZAMS_WT_PP(pp) reinterpret_cast<void**>(pp)
// The life cycle of one kind: direction DIR (Fwd, Inv), name part SFX,
// state type STATE, delay-line sample type T.
#define ZAMS_WT_STATE_FNS(DIR, SFX, STATE, T)                                                                      \
    ZAMS_FN(zamStatus, zamsWT##DIR##GetSize##SFX)(int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize) { \
        return get_size(DIR, lenLow, offsLow, lenHigh, offsHigh, pSize);                                          \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsWT##DIR##Init##SFX)(STATE * *pp, const Zam32f* tLow, int lenLow, int offsLow,             \
                                               const Zam32f* tHigh, int lenHigh, int offsHigh, Zam8u* pMem) {       \
        return init<DIR, T>(ZAMS_WT_PP(pp), tLow, lenLow, offsLow, tHigh, lenHigh, offsHigh, pMem);               \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsWT##DIR##InitAlloc##SFX)(STATE * *pp, const Zam32f* tLow, int lenLow, int offsLow,        \
                                                    const Zam32f* tHigh, int lenHigh, int offsHigh) {              \
        return init_alloc<DIR, T>(ZAMS_WT_PP(pp), tLow, lenLow, offsLow, tHigh, lenHigh, offsHigh);               \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsWT##DIR##Free##SFX)(STATE * p) { return free_state<DIR, T>(p); }                        \
    ZAMS_FN(zamStatus, zamsWT##DIR##SetDlyLine##SFX)(STATE * p, const T* pLow, const T* pHigh) {                   \
        return set_dly<DIR, T>(p, pLow, pHigh);                                                                    \
    }                                                                                                              \
    ZAMS_FN(zamStatus, zamsWT##DIR##GetDlyLine##SFX)(const STATE* p, T* pLow, T* pHigh) {                          \
        return get_dly<DIR, T>(p, pLow, pHigh);                                                                    \
    }

ZAMS_WT_STATE_FNS(Fwd, _32f, ZamsWTFwdState_32f, Zam32f)
ZAMS_WT_STATE_FNS(Inv, _32f, ZamsWTInvState_32f, Zam32f)
ZAMS_WT_STATE_FNS(Fwd, 32f_16s, ZamsWTFwdState32f_16s, Zam16s)
ZAMS_WT_STATE_FNS(Inv, 32f_16s, ZamsWTInvState32f_16s, Zam16s)

ZAMS_FN(zamStatus, zamsWTFwd_32f)(const Zam32f* pSrc, Zam32f* pDstLow, Zam32f* pDstHigh, int dstLen,
                                  ZamsWTFwdState_32f* pState) {
    return fwd(pSrc, pDstLow, pDstHigh, dstLen, pState, 0);
}
ZAMS_FN(zamStatus, zamsWTInv_32f)(const Zam32f* pSrcLow, const Zam32f* pSrcHigh, int srcLen, Zam32f* pDst,
                                  ZamsWTInvState_32f* pState) {
    return inv(pSrcLow, pSrcHigh, srcLen, pDst, pState, 0);
}
ZAMS_FN(zamStatus, zamsWTFwd32f_16s_Sfs)(const Zam16s* pSrc, Zam16s* pDstLow, Zam16s* pDstHigh, int dstLen,
                                         int scaleFactor, ZamsWTFwdState32f_16s* pState) {
    return fwd(pSrc, pDstLow, pDstHigh, dstLen, pState, scaleFactor);
}
ZAMS_FN(zamStatus, zamsWTInv32f_16s_Sfs)(const Zam16s* pSrcLow, const Zam16s* pSrcHigh, int srcLen, Zam16s* pDst,
                                         int scaleFactor, ZamsWTInvState32f_16s* pState) {
    return inv(pSrcLow, pSrcHigh, srcLen, pDst, pState, scaleFactor);
}
