// Q15 integer LMS: the Direct form (16s) and the multirate states (32s_16s,
// 32sc_16sc). A multirate state is the header, the taps (32-bit, kept
// reversed: span order) rounded up to 32 bytes, and one delay line of
// 2 x tapsLen samples in the Direct form's scheme; mu sits in the header.
#include "lms_core.h"

namespace zams::lms {
namespace {

// The kinds: taps, samples, the identifier word.
template <class S> struct Mr;
template <> struct Mr<Zam16s> {
    using Tap = Zam32s;
    static constexpr int32_t id = id::LmsMR32s16s;
};
template <> struct Mr<Zam16sc> {
    using Tap = Zam32sc;
    static constexpr int32_t id = id::LmsMR32sc16sc;
};
template <class S> using TapOf = typename Mr<S>::Tap;

template <class S> struct View {
    Hdr* h;
    TapOf<S>* taps() const { return at<TapOf<S>>(h, h->tapsOff); }
    S* line() const { return at<S>(h, h->dlyOff); }
    const S* span() const { return line() + h->index; }
};

// A call on a multirate state: pointers, identifier, then fn(view).
template <class S, class F, class... P> zamStatus on(const void* p, F&& fn, const P*... more) {
    return on_state(p, Mr<S>::id, [&](Hdr* h) { return fn(View<S>{h}); }, more...);
}

template <class S>
zamStatus init_alloc(void** pp, const TapOf<S>* pTaps, int n, const S* pDly, int index, int mu) {
    using T = TapOf<S>;
    if (!pp) return zamStatusNullPointer;
    if (zamStatus s = check_len(n)) return s;
    if (zamStatus s = check_mu(mu)) return s;
    const int64_t tapBytes = round_up(size_t(n) * sizeof(T), 32);
    const int64_t size = 32 + tapBytes + 2 * int64_t(n) * int64_t(sizeof(S));
    if (size >= INT32_MAX) return zamStatusNoMemory;
    return lay_alloc(pp, size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        std::memset(mem, 0, size_t(size));
        return lay_into(out, mem, kShape, [&](uint8_t* base, int32_t& idOut) {
            Hdr* h = reinterpret_cast<Hdr*>(base);
            h->tapsOff = 32;
            h->dlyOff = int32_t(32 + tapBytes);
            h->index = wrap(index, n);
            h->tapsLen = n;
            h->strideOrMu = mu;
            View<S> v{h};
            if (pTaps)
                for (int j = 0; j < n; ++j) v.taps()[j] = pTaps[n - 1 - j];
            if (pDly)
                for (int k = 0; k < n; ++k) v.line()[k] = v.line()[k + n] = pDly[k];
            idOut = Mr<S>::id;
            return zamStatusOk;
        });
    });
}

template <class S> zamStatus put_val(S x, void* p) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        push(v.line(), v.h->index, v.h->tapsLen, x);
        return zamStatusOk;
    });
}

template <class S> zamStatus one(TapOf<S>* pOut, void* p) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        *pOut = q15_out<TapOf<S>>(q15_dot(v.taps(), v.span(), v.h->tapsLen));
        return zamStatusOk;
    }, pOut);
}

template <class S> zamStatus one_val(S x, TapOf<S>* pOut, void* p) {
    if (zamStatus s = check_ptr(pOut, p)) return s;
    if (zamStatus s = put_val(x, p)) return s;
    return one<S>(pOut, p);
}

template <class S> zamStatus update_taps(TapOf<S> e, void* p) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        q15_update(v.taps(), v.span(), v.h->tapsLen, v.h->strideOrMu, e);
        return zamStatusOk;
    });
}

template <class S> zamStatus set_mu(void* p, int mu) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        if (zamStatus e = check_mu(mu)) return e;
        v.h->strideOrMu = mu;
        return zamStatusOk;
    });
}

// Taps and delay lines to and from the caller: taps in the fixed FIR order
// (reversed here), lines as the span, oldest first.
template <class S, bool Get, class X> zamStatus copy_taps(const void* p, X* x) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        const int n = v.h->tapsLen;
        for (int k = 0; k < n; ++k) {
            if constexpr (Get) x[k] = v.taps()[n - 1 - k];
            else v.taps()[n - 1 - k] = x[k];
        }
        return zamStatusOk;
    }, x);
}
template <class S, bool Get, class X> zamStatus copy_line(const void* p, X* x) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        const int n = v.h->tapsLen;
        if constexpr (Get) {
            for (int k = 0; k < n; ++k) x[k] = v.span()[k];
        } else {
            for (int k = 0; k < n; ++k) v.line()[k] = v.line()[k + n] = x[k];
            v.h->index = 0;
        }
        return zamStatusOk;
    }, x);
}

template <class S> zamStatus taps_pointer(void* p, TapOf<S>** pp) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        *pp = v.taps();
        return zamStatusOk;
    }, pp);
}

template <class S> zamStatus dly_val(const void* p, S* pOut, int index) {
    return on<S>(p, [&](View<S> v) -> zamStatus {
        if (index < 0 || index >= v.h->tapsLen) return zamStatusBadArgument;
        *pOut = v.span()[v.h->tapsLen - 1 - index];
        return zamStatusOk;
    }, pOut);
}

template <class S> zamStatus free_state(void* p) { return p ? release(p, {Mr<S>::id}, kShape) : zamStatusOk; }

// The Direct Q15 form: one step on the caller's taps and line; the error is
// the reference less the 16-bit output.
zamStatus one_direct_q15(Zam16s src, Zam16s ref, Zam16s* pDst, Zam32s* pTaps, int n, int mu, Zam16s* line, int* pIdx) {
    if (zamStatus s = check_ptr(pTaps, line, pIdx, pDst)) return s;
    if (zamStatus s = check_len(n)) return s;
    int idx = *pIdx;
    if (idx < 0 || idx >= n) return zamStatusBadDelayIndex;
    if (zamStatus s = check_mu(mu)) return s;
    push(line, idx, n, src);
    *pIdx = idx;
    const Zam16s y = q15_out<Zam16s>(q15_dot(pTaps, line + idx, n));
    *pDst = y;
    q15_update(pTaps, line + idx, n, mu, int32_t(ref) - y);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::lms

using namespace zams::lms;

ZAMS_FN(zamStatus, zamsFIRLMSOne_DirectQ15_16s)(Zam16s src, Zam16s refVal, Zam16s* pDstVal, Zam32s* pTapsQ15, int tapsLen, int muQ15, Zam16s* pDlyLine, int* pDlyLineIndex) { return one_direct_q15(src, refVal, pDstVal, pTapsQ15, tapsLen, muQ15, pDlyLine, pDlyLineIndex); }

#define ZAMS_LMS_MR(SFX, S)                                                                                                                                                                                        \
    ZAMS_FN(zamStatus, zamsFIRLMSMRInitAlloc##SFX)(ZamsFIRLMSMRState##SFX** pp, const TapOf<S>* pTaps, int tapsLen, const S* pDlyLine, int dlyLineIndex, int mu) { return init_alloc<S>(reinterpret_cast<void**>(pp), pTaps, tapsLen, pDlyLine, dlyLineIndex, mu); } \
    ZAMS_FN(zamStatus, zamsFIRLMSMRFree##SFX)(ZamsFIRLMSMRState##SFX* p) { return free_state<S>(p); }                                                                                                             \
    ZAMS_FN(zamStatus, zamsFIRLMSMRPutVal##SFX)(S inpVal, ZamsFIRLMSMRState##SFX* p) { return put_val<S>(inpVal, p); }                                                                                         \
    ZAMS_FN(zamStatus, zamsFIRLMSMROne##SFX)(TapOf<S>* pOutVal, ZamsFIRLMSMRState##SFX* p) { return one<S>(pOutVal, p); }                                                                                       \
    ZAMS_FN(zamStatus, zamsFIRLMSMROneVal##SFX)(S inpVal, TapOf<S>* pOutVal, ZamsFIRLMSMRState##SFX* p) { return one_val<S>(inpVal, pOutVal, p); }                                                              \
    ZAMS_FN(zamStatus, zamsFIRLMSMRUpdateTaps##SFX)(TapOf<S> errVal, ZamsFIRLMSMRState##SFX* p) { return update_taps<S>(errVal, p); }                                                                          \
    ZAMS_FN(zamStatus, zamsFIRLMSMRSetMu##SFX)(ZamsFIRLMSMRState##SFX* p, int mu) { return set_mu<S>(p, mu); }                                                                                                  \
    ZAMS_FN(zamStatus, zamsFIRLMSMRGetTaps##SFX)(const ZamsFIRLMSMRState##SFX* p, TapOf<S>* pOutTaps) { return copy_taps<S, true>(p, pOutTaps); }                                                               \
    ZAMS_FN(zamStatus, zamsFIRLMSMRSetTaps##SFX)(ZamsFIRLMSMRState##SFX* p, const TapOf<S>* pInTaps) { return copy_taps<S, false>(p, pInTaps); }                                                                \
    ZAMS_FN(zamStatus, zamsFIRLMSMRGetTapsPointer##SFX)(ZamsFIRLMSMRState##SFX* p, TapOf<S>** ppTaps) { return taps_pointer<S>(p, ppTaps); }                                                                    \
    ZAMS_FN(zamStatus, zamsFIRLMSMRGetDlyLine##SFX)(const ZamsFIRLMSMRState##SFX* p, S* pDlyLine) { return copy_line<S, true>(p, pDlyLine); }                                                                   \
    ZAMS_FN(zamStatus, zamsFIRLMSMRSetDlyLine##SFX)(ZamsFIRLMSMRState##SFX* p, const S* pDlyLine) { return copy_line<S, false>(p, pDlyLine); }                                                                  \
    ZAMS_FN(zamStatus, zamsFIRLMSMRGetDlyVal##SFX)(const ZamsFIRLMSMRState##SFX* p, S* pOutVal, int index) { return dly_val<S>(p, pOutVal, index); }

ZAMS_LMS_MR(32s_16s, Zam16s)
ZAMS_LMS_MR(32sc_16sc, Zam16sc)
