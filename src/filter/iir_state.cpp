// IIR states: sizes, building, taps, delay line, release.
#include <cassert>
#include <cstring>

#include "iir_block.h"
#include "iir_kinds.h"

namespace zams::iir {
namespace {

// Normalises the caller's taps into the state. AR: one reciprocal of a0,
// then products; a zero a0 refuses the taps and leaves the state's as they
// were. Cascades: section by section, a zero b0 or a0 refuses the call
// with the sections before it already stored; a section with a0 = 1 is
// stored as given.
template <class K> zamStatus put_taps(Hdr* h, Form f, const typename K::taps* pTaps) {
    using A = typename K::A;
    const A* src = reinterpret_cast<const A*>(pTaps);
    A* t = at<A>(h, h->offTaps);
    const int n = h->n;
    if (f == Ar) {
        const A a0 = src[n + 1];
        if (is_zero(a0)) return zamStatusDivideByZero;
        const A r = recip(a0);
        for (int k = 0; k <= n; ++k) t[k] = r * src[k];
        for (int k = 1; k <= n; ++k) t[n + k] = r * src[n + 1 + k];
        return zamStatusOk;
    }
    for (int s = 0; s < n; ++s, src += 6, t += 5) {
        if (is_zero(src[0]) || is_zero(src[3])) return zamStatusDivideByZero;
        const A v[5] = {src[0], src[1], src[2], src[4], src[5]};
        if (is_one(src[3])) {
            for (int i = 0; i < 5; ++i) t[i] = v[i];
        } else {
            const A r = recip(src[3]);
            for (int i = 0; i < 5; ++i) t[i] = r * v[i];
        }
    }
    return zamStatusOk;
}

// The caller's delay line, in its own order, or zeros; the AR line's extra
// value stays 0.
template <class K> void put_dly(Hdr* h, const typename K::taps* p) {
    using T = typename K::taps;
    T* d = at<T>(h, h->offDly);
    if (p) std::memcpy(d, p, size_t(h->dlyLen) * sizeof(T));
    else std::memset(static_cast<void*>(d), 0, size_t(h->dlyLen) * sizeof(T));
    std::memset(static_cast<void*>(d + h->dlyLen), 0, sizeof(T));
}

template <class K> zamStatus get_size(Form f, int n, int* pSize) {
    if (!pSize) return zamStatusNullPointer;
    if (n < 1) return zamStatusBadFilterOrder;
    return report_size(state_size<K>(f, n), pSize);
}

template <class K>
zamStatus init(void** pp, const typename K::taps* pTaps, int n, const typename K::taps* pDly, Zam8u* pBuffer, Form f) {
    if (zamStatus s = check_ptr(pTaps, pp, pBuffer)) return s;
    if (n < 1) return zamStatusBadFilterOrder;
    return lay_into(pp, pBuffer, kShape, [&](uint8_t* base, int32_t& id) -> zamStatus {
        const Layout l = layout<K>(f, n);
        assert(l.end + 31 <= state_size<K>(f, n));
        Hdr* h = reinterpret_cast<Hdr*>(base);
        std::memset(h, 0, sizeof(Hdr));
        h->form = f;
        h->n = n;
        h->dlyLen = int32_t(dly_count(f, n));
        h->offTaps = uint32_t(l.taps);
        h->offDly = uint32_t(l.dly);
        if (l.scratch > l.table) h->offTable = uint32_t(l.table);
        h->offScratch = uint32_t(l.scratch);
        if (zamStatus s = put_taps<K>(h, f, pTaps)) return s;
        if constexpr (K::block) build_tables(h);
        put_dly<K>(h, pDly);
        id = K::ids[f];
        return zamStatusOk;
    });
}

template <class K>
zamStatus init_alloc(void** pp, const typename K::taps* pTaps, int n, const typename K::taps* pDly, Form f) {
    if (zamStatus s = check_ptr(pp, pTaps)) return s;
    if (n < 1) return zamStatusBadFilterOrder;
    return lay_alloc(pp, state_size<K>(f, n), 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) -> zamStatus {
        return init<K>(out, pTaps, n, pDly, mem, f);
    });
}

template <class K> zamStatus free_state(void* p) { return release(p, {K::ids[0], K::ids[1], K::ids[2]}, kShape); }

template <class K> zamStatus set_taps(const typename K::taps* pTaps, void* p) {
    if (zamStatus s = check_ptr(pTaps, p)) return s;
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {K::ids[0], K::ids[1], K::ids[2]}, s);
    if (s) return s;
    if constexpr (K::block) settle_line(h);  // the line the old taps left
    s = put_taps<K>(h, form_of<K>(h), pTaps);
    if constexpr (K::block) build_tables(h);  // from what is stored, a refused call too
    return s;
}

template <class K> zamStatus get_dly(typename K::taps* pDly, const void* p) {
    if (zamStatus s = check_ptr(pDly, p)) return s;
    zamStatus s;
    const Hdr* h = state_of<Hdr>(const_cast<void*>(p), {K::ids[0], K::ids[1], K::ids[2]}, s);
    if (s) return s;
    if constexpr (K::block)
        if (line_from_rows(h, pDly)) return zamStatusOk;
    std::memcpy(pDly, at<typename K::taps>(h, h->offDly), size_t(h->dlyLen) * sizeof(typename K::taps));
    return zamStatusOk;
}

template <class K> zamStatus set_dly(const typename K::taps* pDly, void* p) {
    zamStatus s;
    Hdr* h = state_of<Hdr>(p, {K::ids[0], K::ids[1], K::ids[2]}, s);
    if (s) return s;
    if constexpr (K::block) h->fill = 0;
    put_dly<K>(h, pDly);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::iir

using namespace zams::iir;

#define ZAMS_IIR_PP(pp) reinterpret_cast<void**>(pp)
// The operations every kind has, bound to the kind K.
#define ZAMS_IIR_STATE_FNS(SFX, STATE, T, K)                                                                  \
    ZAMS_FN(zamStatus, zamsIIRGetStateSize##SFX)(int order, int* pSize) { return get_size<K>(Ar, order, pSize); } \
    ZAMS_FN(zamStatus, zamsIIRInit##SFX)(STATE * *pp, const T* pTaps, int order, const T* pDly, Zam8u* pBuf) {    \
        return init<K>(ZAMS_IIR_PP(pp), pTaps, order, pDly, pBuf, Ar);                                         \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsIIRInitAlloc##SFX)(STATE * *pp, const T* pTaps, int order, const T* pDly) {         \
        return init_alloc<K>(ZAMS_IIR_PP(pp), pTaps, order, pDly, Ar);                                         \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsIIRFree##SFX)(STATE * p) { return free_state<K>(p); }                               \
    ZAMS_FN(zamStatus, zamsIIRSetTaps##SFX)(const T* pTaps, STATE* p) { return set_taps<K>(pTaps, p); }        \
    ZAMS_FN(zamStatus, zamsIIRGetDlyLine##SFX)(T * pDly, const STATE* p) { return get_dly<K>(pDly, p); }       \
    ZAMS_FN(zamStatus, zamsIIRSetDlyLine##SFX)(const T* pDly, STATE* p) { return set_dly<K>(pDly, p); }
// The cascade's size query and builds, for the kinds that have one (FORM
// Bq, or Df1 for the direct-form-I cascade).
#define ZAMS_IIR_BQ_FNS(NAME, STATE, T, K, FORM)                                                              \
    ZAMS_FN(zamStatus, zamsIIRGetStateSize##NAME)(int numBq, int* pSize) { return get_size<K>(FORM, numBq, pSize); } \
    ZAMS_FN(zamStatus, zamsIIRInit##NAME)(STATE * *pp, const T* pTaps, int numBq, const T* pDly, Zam8u* pBuf) {  \
        return init<K>(ZAMS_IIR_PP(pp), pTaps, numBq, pDly, pBuf, FORM);                                       \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsIIRInitAlloc##NAME)(STATE * *pp, const T* pTaps, int numBq, const T* pDly) {        \
        return init_alloc<K>(ZAMS_IIR_PP(pp), pTaps, numBq, pDly, FORM);                                       \
    }

ZAMS_IIR_STATE_FNS(_32f, ZamsIIRState_32f, Zam32f, K32f)
ZAMS_IIR_STATE_FNS(32f_16s, ZamsIIRState32f_16s, Zam32f, K32f16s)
ZAMS_IIR_STATE_FNS(32fc_16sc, ZamsIIRState32fc_16sc, Zam32fc, K32fc16sc)
ZAMS_IIR_STATE_FNS(_64f, ZamsIIRState_64f, Zam64f, K64f)
ZAMS_IIR_STATE_FNS(_64fc, ZamsIIRState_64fc, Zam64fc, K64fc)
ZAMS_IIR_STATE_FNS(64f_32f, ZamsIIRState64f_32f, Zam64f, K64f32f)
ZAMS_IIR_STATE_FNS(64fc_32fc, ZamsIIRState64fc_32fc, Zam64fc, K64fc32fc)
ZAMS_IIR_STATE_FNS(64f_32s, ZamsIIRState64f_32s, Zam64f, K64f32s)
ZAMS_IIR_STATE_FNS(64fc_32sc, ZamsIIRState64fc_32sc, Zam64fc, K64fc32sc)
ZAMS_IIR_STATE_FNS(64f_16s, ZamsIIRState64f_16s, Zam64f, K64f16s)
ZAMS_IIR_STATE_FNS(64fc_16sc, ZamsIIRState64fc_16sc, Zam64fc, K64fc16sc)

ZAMS_IIR_BQ_FNS(_BiQuad_32f, ZamsIIRState_32f, Zam32f, K32f, Bq)
ZAMS_IIR_BQ_FNS(_BiQuad_DF1_32f, ZamsIIRState_32f, Zam32f, K32f, Df1)
ZAMS_IIR_BQ_FNS(32f_BiQuad_16s, ZamsIIRState32f_16s, Zam32f, K32f16s, Bq)
ZAMS_IIR_BQ_FNS(32fc_BiQuad_16sc, ZamsIIRState32fc_16sc, Zam32fc, K32fc16sc, Bq)
ZAMS_IIR_BQ_FNS(_BiQuad_64f, ZamsIIRState_64f, Zam64f, K64f, Bq)
ZAMS_IIR_BQ_FNS(_BiQuad_64fc, ZamsIIRState_64fc, Zam64fc, K64fc, Bq)
ZAMS_IIR_BQ_FNS(64f_BiQuad_32f, ZamsIIRState64f_32f, Zam64f, K64f32f, Bq)
ZAMS_IIR_BQ_FNS(64fc_BiQuad_32fc, ZamsIIRState64fc_32fc, Zam64fc, K64fc32fc, Bq)
ZAMS_IIR_BQ_FNS(64fc_BiQuad_32sc, ZamsIIRState64fc_32sc, Zam64fc, K64fc32sc, Bq)
ZAMS_IIR_BQ_FNS(64f_BiQuad_16s, ZamsIIRState64f_16s, Zam64f, K64f16s, Bq)
ZAMS_IIR_BQ_FNS(64fc_BiQuad_16sc, ZamsIIRState64fc_16sc, Zam64fc, K64fc16sc, Bq)
