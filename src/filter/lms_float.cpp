// Float-taps LMS filters: the Direct forms (32f, 32f_16s) and the states
// (32f, 32f_16s). Both states share one layout: the header, the taps
// reversed (ru32(4 tapsLen) bytes), then four replicas of the delay line,
// each 2 x tapsLen floats, replica r at r x stride bytes with
// stride = ((8 tapsLen + 59) rounded down to 32) + 4; the block is
// ru32(4 tapsLen) + 4 x ((8 tapsLen + 59) rounded down to 32) + 32 bytes.
// The 16-bit state keeps its samples as floats (exact).
#include <algorithm>

#include "lms_core.h"

namespace zams::lms {
namespace {

constexpr int64_t ru32(int64_t n) { return (n + 31) & ~int64_t(31); }
constexpr int64_t stride_of(int64_t n) { return ((8 * n + 59) & ~int64_t(31)) + 4; }
constexpr int64_t block_size(int64_t n) { return ru32(4 * n) + 4 * (stride_of(n) - 4) + 32; }
constexpr int kReplicas = 4;

// The caller's data type and the state kind it goes with.
template <class D> constexpr int32_t kId = id::Lms32f;
template <> constexpr int32_t kId<Zam16s> = id::Lms32f16s;

float* replica(Hdr* h, int r) { return reinterpret_cast<float*>(at<uint8_t>(h, h->dlyOff) + r * h->strideOrMu); }
const float* replica(const Hdr* h, int r) {
    return reinterpret_cast<const float*>(at<uint8_t>(h, h->dlyOff) + r * h->strideOrMu);
}
void put_all(Hdr* h, int pos, float v) {
    for (int r = 0; r < kReplicas; ++r) {
        float* line = replica(h, r);
        line[pos] = v;
        line[pos + h->tapsLen] = v;
    }
}

template <class D>
zamStatus init_alloc(void** pp, const float* pTaps, int n, const D* pDly, int index) {
    if (!pp) return zamStatusNullPointer;
    if (zamStatus s = check_len(n)) return s;
    const int64_t size = block_size(n);
    return lay_alloc(pp, size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        std::memset(mem, 0, size_t(size));
        return lay_into(out, mem, kShape, [&](uint8_t* base, int32_t& idOut) {
            Hdr* h = reinterpret_cast<Hdr*>(base);
            h->tapsOff = 32;
            h->dlyOff = int32_t(32 + ru32(4 * int64_t(n)));
            h->index = wrap(index, n);
            h->tapsLen = n;
            h->strideOrMu = int32_t(stride_of(n));
            float* t = at<float>(h, h->tapsOff);
            if (pTaps)
                for (int j = 0; j < n; ++j) t[j] = pTaps[n - 1 - j];
            if (pDly)
                for (int k = 0; k < n; ++k) put_all(h, k, float(pDly[k]));
            idOut = kId<D>;
            return zamStatusOk;
        });
    });
}

// Writes a chunk of float outputs to the caller's type.
struct Out32f {
    float* d;
    void put(int, float y) { *d++ = y; }
    void flush() {}
};
struct Out16s {
    Zam16s* d;
    float buf[256];
    int n = 0;
    void put(int, float y) {
        buf[n++] = y;
        if (n == 256) flush();
    }
    void flush() {
        if (n) g9_zamsConvert_32f16s_Sfs(buf, d, n, zamRoundNearestEven, 0);
        d += n;
        n = 0;
    }
};
template <class D> using OutOf = std::conditional_t<std::is_same_v<D, float>, Out32f, Out16s>;

bool overlap(const void* a, size_t na, const void* b, size_t nb) {
    const uintptr_t x = reinterpret_cast<uintptr_t>(a), y = reinterpret_cast<uintptr_t>(b);
    return x < y + nb && y < x + na;
}

// The block form: the first min(len, tapsLen) steps read the delay line
// joined with the head of the input, the later ones the input itself (all
// of them the line when the output overlaps the input); afterwards the line
// holds the last tapsLen inputs, its index advanced by len.
template <class D> zamStatus filter(const D* src, const D* ref, D* dst, int len, float mu, void* p) {
    if (zamStatus s = check_ptr(p, src, ref, dst)) return s;
    if (zamStatus s = check_len(len)) return s;
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {kId<D>}, s);
    if (!h) return s;
    const int n = h->tapsLen;
    const int index0 = h->index;
    float* t = at<float>(h, h->tapsOff);
    const float mu2 = mu + mu;
    const size_t bytes = size_t(len) * sizeof(D);
    const int head = overlap(src, bytes, dst, bytes) ? len : std::min(len, n);
    OutOf<D> out{dst};
    int idx = index0;
    for (int i = 0; i < head; ++i) {
        put_all(h, idx, float(src[i]));
        idx = idx + 1 == n ? 0 : idx + 1;
        const float* w = replica(h, (-idx) & 3) + idx;  // the replica 16-byte aligned at this index
        out.put(i, step(t, w, n, float(ref[i]), mu2));
    }
    run_from_source(t, n, src, ref, head, len, mu2, [&](int i, float y) { out.put(i, y); });
    out.flush();
    if (head < len) {
        idx = int((int64_t(index0) + len) % n);
        for (int k = 0; k < n; ++k) put_all(h, (idx + k) % n, float(src[len - n + k]));
    }
    h->index = idx;
    return zamStatusOk;
}

template <class D> zamStatus get_taps(const void* p, float* out) {
    return on_state(p, kId<D>, [&](const Hdr* h) {
        const float* t = at<float>(h, h->tapsOff);
        for (int k = 0; k < h->tapsLen; ++k) out[k] = t[h->tapsLen - 1 - k];
        return zamStatusOk;
    }, out);
}

template <class D> zamStatus get_dly(const void* p, D* out) {
    return on_state(p, kId<D>, [&](const Hdr* h) {
        const float* line = replica(h, 0) + h->index;
        for (int k = 0; k < h->tapsLen; ++k) out[k] = D(line[k]);
        return zamStatusOk;
    }, out);
}

template <class D> zamStatus set_dly(void* p, const D* in) {
    return on_state(p, kId<D>, [&](Hdr* h) {
        for (int k = 0; k < h->tapsLen; ++k) put_all(h, k, float(in[k]));
        h->index = 0;
        return zamStatusOk;
    }, in);
}

template <class D> zamStatus free_state(void* p) { return p ? release(p, {kId<D>}, kShape) : zamStatusOk; }

// The Direct forms: one step on the caller's taps and line.
template <class D, class Put>
zamStatus one_direct(D src, D ref, D* pDst, float* pTaps, int n, float mu, D* line, int* pIdx, Put put) {
    if (zamStatus s = check_ptr(pTaps, line, pIdx, pDst)) return s;
    if (zamStatus s = check_len(n)) return s;
    int idx = *pIdx;
    if (idx < 0 || idx >= n) return zamStatusBadDelayIndex;
    push(line, idx, n, src);
    *pIdx = idx;
    const D* w = line + idx;
    const float y = dot(pTaps, w, n);
    put(y, pDst);  // before the taps change
    update(pTaps, w, n, (float(ref) - y) * (mu + mu));
    return zamStatusOk;
}
void put_32f(float y, float* d) { *d = y; }
void put_16s(float y, Zam16s* d) { g9_zamsConvert_32f16s_Sfs(&y, d, 1, zamRoundNearestEven, 0); }

}  // namespace
}  // namespace zams::lms

using namespace zams::lms;

ZAMS_FN(zamStatus, zamsFIRLMSOne_Direct_32f)(Zam32f src, Zam32f refVal, Zam32f* pDstVal, Zam32f* pTaps, int tapsLen, float mu, Zam32f* pDlyLine, int* pDlyLineIndex) { return one_direct(src, refVal, pDstVal, pTaps, tapsLen, mu, pDlyLine, pDlyLineIndex, put_32f); }
ZAMS_FN(zamStatus, zamsFIRLMSOne_Direct32f_16s)(Zam16s src, Zam16s refVal, Zam16s* pDstVal, Zam32f* pTaps, int tapsLen, float mu, Zam16s* pDlyLine, int* pDlyLineIndex) { return one_direct(src, refVal, pDstVal, pTaps, tapsLen, mu, pDlyLine, pDlyLineIndex, put_16s); }

ZAMS_FN(zamStatus, zamsFIRLMSInitAlloc_32f)(ZamsFIRLMSState_32f** pp, const Zam32f* pTaps, int tapsLen, const Zam32f* pDlyLine, int dlyLineIndex) { return init_alloc(reinterpret_cast<void**>(pp), pTaps, tapsLen, pDlyLine, dlyLineIndex); }
ZAMS_FN(zamStatus, zamsFIRLMS_32f)(const Zam32f* pSrc, const Zam32f* pRef, Zam32f* pDst, int len, float mu, ZamsFIRLMSState_32f* pState) { return filter(pSrc, pRef, pDst, len, mu, pState); }
ZAMS_FN(zamStatus, zamsFIRLMSGetTaps_32f)(const ZamsFIRLMSState_32f* pState, Zam32f* pOutTaps) { return get_taps<float>(pState, pOutTaps); }
ZAMS_FN(zamStatus, zamsFIRLMSGetDlyLine_32f)(const ZamsFIRLMSState_32f* pState, Zam32f* pDlyLine) { return get_dly(pState, pDlyLine); }
ZAMS_FN(zamStatus, zamsFIRLMSFree_32f)(ZamsFIRLMSState_32f* pState) { return free_state<float>(pState); }

ZAMS_FN(zamStatus, zamsFIRLMSInitAlloc32f_16s)(ZamsFIRLMSState32f_16s** pp, const Zam32f* pTaps, int tapsLen, const Zam16s* pDlyLine, int dlyLineIndex) { return init_alloc(reinterpret_cast<void**>(pp), pTaps, tapsLen, pDlyLine, dlyLineIndex); }
ZAMS_FN(zamStatus, zamsFIRLMS32f_16s)(const Zam16s* pSrc, const Zam16s* pRef, Zam16s* pDst, int len, float mu, ZamsFIRLMSState32f_16s* pState) { return filter(pSrc, pRef, pDst, len, mu, pState); }
ZAMS_FN(zamStatus, zamsFIRLMSGetTaps32f_16s)(const ZamsFIRLMSState32f_16s* pState, Zam32f* pOutTaps) { return get_taps<Zam16s>(pState, pOutTaps); }
ZAMS_FN(zamStatus, zamsFIRLMSGetDlyLine32f_16s)(const ZamsFIRLMSState32f_16s* pState, Zam16s* pDlyLine) { return get_dly(pState, pDlyLine); }
ZAMS_FN(zamStatus, zamsFIRLMSSetDlyLine32f_16s)(ZamsFIRLMSState32f_16s* pState, const Zam16s* pDlyLine) { return set_dly(pState, pDlyLine); }
ZAMS_FN(zamStatus, zamsFIRLMSFree32f_16s)(ZamsFIRLMSState32f_16s* pState) { return free_state<Zam16s>(pState); }
