// IIR filtering: the block filter, its in-place and multi-channel forms,
// and the one-sample filter.
#include "iir_block.h"
#include "iir_kinds.h"

namespace zams::iir {
namespace {

// A cascade of n sections sample by sample: each section's taps are 5
// values, its delay line W.
template <int W, class A, class D, class Step>
void cascade(const D* pSrc, D* pDst, int len, const A* t, A* d, int n, Step step) {
    for (int i = 0; i < len; ++i) {
        A x = load<A>(pSrc[i]);
        for (int s = 0; s < n; ++s) x = step(t + 5 * s, d + W * s, x);
        pDst[i] = store<D>(x);
    }
}

// Filters len samples through the state (already checked): the 32f AR
// and cascade states through their tables when the block is long enough,
// every other case by the one-sample step sample by sample.
template <class K> void run(const typename K::data* pSrc, typename K::data* pDst, int len, Hdr* h) {
    using A = typename K::A;
    using D = typename K::data;
    const A* t = at<A>(h, h->offTaps);
    A* d = at<A>(h, h->offDly);
    const int n = h->n;
    if constexpr (K::block) {
        if (h->tableOk && len >= block_min_len(h))
            return form_of<K>(h) == Ar ? ar_blocks(pSrc, pDst, len, h) : bq_blocks(pSrc, pDst, len, h);
    }
    switch (form_of<K>(h)) {
        case Ar:
            for (int i = 0; i < len; ++i) pDst[i] = store<D>(step_ar(t, d, n, load<A>(pSrc[i])));
            return;
        case Bq: return cascade<2>(pSrc, pDst, len, t, d, n, step_bq<A>);
        case Df1: return cascade<4>(pSrc, pDst, len, t, d, n, step_df1<A>);
    }
}

template <class K> Hdr* filter_state(void* p, zamStatus& s) {
    return state_of<Hdr>(p, {K::ids[0], K::ids[1], K::ids[2]}, s);
}

template <class K> zamStatus filter(const typename K::data* pSrc, typename K::data* pDst, int len, void* p) {
    if (zamStatus s = check_args(len, p, pSrc, pDst)) return s;
    zamStatus s;
    Hdr* h = filter_state<K>(p, s);
    if (s) return s;
    run<K>(pSrc, pDst, len, h);
    return zamStatusOk;
}

// The one-sample filter takes the AR and cascade states, not the
// direct-form-I one.
template <class K> zamStatus filter_one(typename K::data src, typename K::data* pDstVal, void* p) {
    if (zamStatus s = check_ptr(p, pDstVal)) return s;
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {K::ids[0], K::ids[1]}, s);
    if (s) return s;
    run<K>(&src, pDstVal, 1, h);
    return zamStatusOk;
}

// Every channel's pointers and state are checked before any is filtered.
template <class K>
zamStatus filter_channels(const typename K::data* const* ppSrc, typename K::data* const* ppDst, int len, int nCh,
                          void* const* ppState) {
    if (zamStatus s = check_args(len, ppSrc, ppDst, ppState)) return s;
    if (nCh < 1) return zamStatusBadChannelCount;
    for (int c = 0; c < nCh; ++c) {
        if (zamStatus s = check_ptr(ppState[c], ppSrc[c], ppDst[c])) return s;
        zamStatus s;
        filter_state<K>(ppState[c], s);
        if (s) return s;
    }
    for (int c = 0; c < nCh; ++c) run<K>(ppSrc[c], ppDst[c], len, static_cast<Hdr*>(ppState[c]));
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::iir

using namespace zams::iir;

#define ZAMS_IIR_FILTER_FNS(SFX, STATE, D, K)                                                                 \
    ZAMS_FN(zamStatus, zamsIIR##SFX)(const D* pSrc, D* pDst, int len, STATE* p) { return filter<K>(pSrc, pDst, len, p); } \
    ZAMS_FN(zamStatus, zamsIIR##SFX##_I)(D * pSrcDst, int len, STATE* p) { return filter<K>(pSrcDst, pSrcDst, len, p); } \
    ZAMS_FN(zamStatus, zamsIIROne##SFX)(D src, D * pDstVal, STATE * p) { return filter_one<K>(src, pDstVal, p); }

ZAMS_IIR_FILTER_FNS(_32f, ZamsIIRState_32f, Zam32f, K32f)
ZAMS_IIR_FILTER_FNS(_64f, ZamsIIRState_64f, Zam64f, K64f)
ZAMS_IIR_FILTER_FNS(_64fc, ZamsIIRState_64fc, Zam64fc, K64fc)
ZAMS_IIR_FILTER_FNS(64f_32f, ZamsIIRState64f_32f, Zam32f, K64f32f)
ZAMS_IIR_FILTER_FNS(64fc_32fc, ZamsIIRState64fc_32fc, Zam32fc, K64fc32fc)

ZAMS_FN(zamStatus, zamsIIR_32f_P)(const Zam32f* const* ppSrc, Zam32f* const* ppDst, int len, int nChannels,
                                  ZamsIIRState_32f* const* ppState) {
    return filter_channels<K32f>(ppSrc, ppDst, len, nChannels, reinterpret_cast<void* const*>(ppState));
}
