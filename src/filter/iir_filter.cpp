// IIR filtering: the block filter, its in-place and multi-channel forms,
// and the one-sample filter; for integer data the same with a scale factor.
#include "fir_generic.h"  // emit_parts: the conversions' scale, rounding and saturation
#include "iir_block.h"
#include "iir_kinds.h"

namespace zams::iir {
namespace {

// A cascade of n sections sample by sample: each section's taps are 5
// values, its delay line W.
template <int W, class A, class S, class O, class Step>
void cascade(const S* pSrc, O* pDst, int len, const A* t, A* d, int n, Step step) {
    for (int i = 0; i < len; ++i) {
        A x = load<A>(pSrc[i]);
        for (int s = 0; s < n; ++s) x = step(t + 5 * s, d + W * s, x);
        pDst[i] = store<O>(x);
    }
}

// Filters len samples through the state (already checked): the 32f AR
// and cascade states through their tables (calls of any length), every
// other case by the one-sample step sample by sample. Sources are
// the data type, destinations the data type or (integer data) the taps type.
template <class K, class O> void run(const typename K::data* pSrc, O* pDst, int len, Hdr* h) {
    using A = typename K::A;
    const A* t = at<A>(h, h->offTaps);
    A* d = at<A>(h, h->offDly);
    const int n = h->n;
    if constexpr (K::block) {
        if (h->tableOk) return block_run(pSrc, pDst, len, h);
    }
    switch (form_of<K>(h)) {
        case Ar:
            for (int i = 0; i < len; ++i) pDst[i] = store<O>(step_ar(t, d, n, load<A>(pSrc[i])));
            return;
        case Bq: return cascade<2>(pSrc, pDst, len, t, d, n, step_bq<A>);
        case Df1: return cascade<4>(pSrc, pDst, len, t, d, n, step_df1<A>);
    }
}

// Integer data: each sample converted exactly to the taps type and
// filtered in it (the delay line keeps the unrounded values), the outputs
// scaled by 2^-sf, rounded to nearest (ties to even) and saturated by the
// library's conversions, in pieces; pSrc may equal pDst.
template <class K> void run_sfs(const typename K::data* pSrc, typename K::data* pDst, int len, Hdr* h, int sf) {
    using T = typename K::taps;
    using Part = std::conditional_t<is_complex_v<T>, part_t<T>, T>;
    constexpr int kPiece = 256, kParts = is_complex_v<T> ? 2 : 1;
    T buf[kPiece];
    for (int i = 0; i < len; i += kPiece) {
        const int m = len - i < kPiece ? len - i : kPiece;
        run<K>(pSrc + i, buf, m, h);
        fir::emit_parts(reinterpret_cast<const Part*>(buf), pDst + i, m * kParts, sf);
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

template <class K>
zamStatus filter_sfs(const typename K::data* pSrc, typename K::data* pDst, int len, void* p, int sf) {
    if (zamStatus s = check_args(len, p, pSrc, pDst)) return s;
    zamStatus s;
    Hdr* h = filter_state<K>(p, s);
    if (s) return s;
    run_sfs<K>(pSrc, pDst, len, h, sf);
    return zamStatusOk;
}

// The one-sample filter takes the AR and cascade states, not the
// direct-form-I one (the integer-data kinds have none).
template <class K> Hdr* one_state(void* p, zamStatus& s) { return state_of<Hdr>(p, {K::ids[0], K::ids[1]}, s); }

template <class K> zamStatus filter_one(typename K::data src, typename K::data* pDstVal, void* p) {
    if (zamStatus s = check_ptr(p, pDstVal)) return s;
    zamStatus s;
    Hdr* h = one_state<K>(p, s);
    if (s) return s;
    run<K>(&src, pDstVal, 1, h);
    return zamStatusOk;
}

template <class K> zamStatus filter_one_sfs(typename K::data src, typename K::data* pDstVal, void* p, int sf) {
    if (zamStatus s = check_ptr(p, pDstVal)) return s;
    zamStatus s;
    Hdr* h = one_state<K>(p, s);
    if (s) return s;
    run_sfs<K>(&src, pDstVal, 1, h, sf);
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

#define ZAMS_IIR_SFS_FNS(SFX, STATE, D, K)                                                                    \
    ZAMS_FN(zamStatus, zamsIIR##SFX##_Sfs)(const D* pSrc, D* pDst, int len, STATE* p, int sf) {               \
        return filter_sfs<K>(pSrc, pDst, len, p, sf);                                                          \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsIIR##SFX##_ISfs)(D * pSrcDst, int len, STATE* p, int sf) {                         \
        return filter_sfs<K>(pSrcDst, pSrcDst, len, p, sf);                                                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsIIROne##SFX##_Sfs)(D src, D * pDstVal, STATE * p, int sf) {                        \
        return filter_one_sfs<K>(src, pDstVal, p, sf);                                                         \
    }

ZAMS_IIR_SFS_FNS(32f_16s, ZamsIIRState32f_16s, Zam16s, K32f16s)
ZAMS_IIR_SFS_FNS(64f_16s, ZamsIIRState64f_16s, Zam16s, K64f16s)
ZAMS_IIR_SFS_FNS(64f_32s, ZamsIIRState64f_32s, Zam32s, K64f32s)
ZAMS_IIR_SFS_FNS(32fc_16sc, ZamsIIRState32fc_16sc, Zam16sc, K32fc16sc)
ZAMS_IIR_SFS_FNS(64fc_16sc, ZamsIIRState64fc_16sc, Zam16sc, K64fc16sc)
ZAMS_IIR_SFS_FNS(64fc_32sc, ZamsIIRState64fc_32sc, Zam32sc, K64fc32sc)
