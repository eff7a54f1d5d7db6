// The exported 32f filter, its stream form and the 16-bit-data filter with
// float taps.
//
// The 32f entry points accept several kinds of state (the single-rate and
// stream states here, multirate ones elsewhere); which operation each kind
// takes is one row of kRoutes, found by the identifier word. A kind without
// an operation, or without a row, is refused with -17.
#include <algorithm>
#include <cstring>

#include "fir_32f.h"
#include "firmr.h"

namespace zams::fir {
namespace {

struct Route {
    int32_t id;
    zamStatus (*filter)(void*, const float*, float*, int);
    zamStatus (*setTaps)(void*, const float*);
    zamStatus (*getTaps)(const void*, float*);
    zamStatus (*setDly)(void*, const float*);
    zamStatus (*getDly)(const void*, float*);
    zamStatus (*release)(void*);
};

Hdr32* h32(const void* p) { return static_cast<Hdr32*>(const_cast<void*>(p)); }
zamStatus sr_filter(void* p, const float* s, float* d, int n) { return block32(h32(p), s, d, n); }
zamStatus sr_set_taps(void* p, const float* t) {
    set_taps32(h32(p), t);
    return zamStatusOk;
}
zamStatus sr_get_taps(const void* p, float* t) {
    std::memcpy(t, h32(p)->taps(), size_t(h32(p)->tapsLen) * sizeof(float));
    return zamStatusOk;
}
zamStatus sr_set_dly(void* p, const float* d) {
    set_dly32(h32(p), d);
    return zamStatusOk;
}
zamStatus sr_get_dly(const void* p, float* d) {
    get_dly32(h32(p), d);
    return zamStatusOk;
}

zamStatus sr_free(void* p) { return free32(p, {word_at(p, 0)}); }

// The multirate kinds (src/filter/firmr.cpp).
zamStatus mr_filter(void* p, const float* s, float* d, int n) { return mr::k32f.filter(p, s, d, n, 0); }
zamStatus mr_stream_filter(void* p, const float* s, float* d, int n) { return mr::kStream32f.filter(p, s, d, n, 0); }
zamStatus mr_set_taps(void* p, const float* t) { return mr::k32f.setTaps(p, t, 0); }
zamStatus mr_get_taps(const void* p, float* t) { return mr::k32f.getTaps(p, t); }
zamStatus mr_set_dly(void* p, const float* d) { return mr::k32f.setDly(p, d); }
zamStatus mr_get_dly(const void* p, float* d) { return mr::k32f.getDly(p, d); }
zamStatus mr_free(void* p) { return mr::k32f.release(p); }
zamStatus mr_stream_free(void* p) { return mr::kStream32f.release(p); }

constexpr Route kRoutes[] = {
    {id::Fir32f, sr_filter, sr_set_taps, sr_get_taps, sr_set_dly, sr_get_dly, sr_free},
    {id::FirStream32f, sr_filter, nullptr, nullptr, nullptr, nullptr, sr_free},
    {id::FirMR32f, mr_filter, mr_set_taps, mr_get_taps, mr_set_dly, mr_get_dly, mr_free},
    {id::FirMRStream32f, mr_stream_filter, nullptr, nullptr, nullptr, nullptr, mr_stream_free},
};

// The route of a state, after the pointer checks: null when its kind takes
// no such operation.
template <class Op> const Route* route(const void* p, Op Route::* op) {
    const int32_t w = word_at(p, 0);
    for (const Route& r : kRoutes)
        if (r.id == w) return r.*op ? &r : nullptr;
    return nullptr;
}

zamStatus filter_32f(const float* s, float* d, int n, void* p) {
    if (zamStatus st = check_ptr(p, s, d)) return st;
    if (n < 1) return zamStatusBadLength;
    const Route* r = route(p, &Route::filter);
    return r ? r->filter(p, s, d, n) : zamStatusContextMismatch;
}
zamStatus free_32f(void* p) {
    if (!p) return zamStatusNullPointer;
    const Route* r = route(p, &Route::release);
    return r ? r->release(p) : zamStatusContextMismatch;
}
template <class Op, class... A> zamStatus call(void* p, Op Route::* op, A... a) {
    const Route* r = route(p, op);
    return r ? (r->*op)(p, a...) : zamStatusContextMismatch;
}

// The 16-bit data with float taps: samples converted in, filtered by the
// float code, converted out rounding to nearest, in pieces.
constexpr int kPiece = 8448;

zamStatus filter_32f16s(const Zam16s* s, Zam16s* d, int n, void* p, int sf) {
    if (zamStatus st = check_ptr(p, s, d)) return st;
    if (n < 1) return zamStatusBadLength;
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->filter(p, s, d, n, sf);
    zamStatus st;
    Hdr32* h = state_of<Hdr32>(p, {id::Fir32f16s}, st);
    if (!h) return st;
    alignas(32) float buf[kPiece];  // on the stack: filtering never allocates
    zamStatus worst = zamStatusOk;
    for (int i = 0; i < n; i += kPiece) {
        const int m = std::min(kPiece, n - i);
        g9_zamsConvert_16s32f(s + i, buf, m);
        st = block32(h, buf, buf, m);
        if (st < 0) return st;
        worst = std::min(worst, st);
        g9_zamsConvert_32f16s_Sfs(buf, d + i, m, zamRoundNearestEven, sf);
    }
    return worst;
}

zamStatus one_32f16s(Zam16s x, Zam16s* y, void* p, int sf) {
    if (zamStatus st = check_ptr(p, y)) return st;
    zamStatus st;
    Hdr32* h = state_of<Hdr32>(p, {id::Fir32f16s}, st);
    if (!h) return st;
    float v;
    one32(h, float(x), &v);
    return g9_zamsConvert_32f16s_Sfs(&v, y, 1, zamRoundNearestEven, sf);
}

Hdr32* state16(const void* p, zamStatus& s) { return state_of<Hdr32>(const_cast<void*>(p), {id::Fir32f16s}, s); }

}  // namespace
}  // namespace zams::fir

using namespace zams::fir;
using zams::check_ptr;

#define PP(p) reinterpret_cast<void**>(p)

ZAMS_FN(zamStatus, zamsFIRGetStateSize_32f)(int n, int* s) { return size32(n, s); }
ZAMS_FN(zamStatus, zamsFIRInit_32f)(ZamsFIRState_32f** pp, const Zam32f* t, int n, const Zam32f* d, Zam8u* b) {
    return init32(kFir32f, PP(pp), t, n, d, b);
}
ZAMS_FN(zamStatus, zamsFIRInitAlloc_32f)(ZamsFIRState_32f** pp, const Zam32f* t, int n, const Zam32f* d) {
    return init_alloc32(kFir32f, PP(pp), t, n, d);
}
ZAMS_FN(zamStatus, zamsFIRFree_32f)(ZamsFIRState_32f* p) { return free_32f(p); }
ZAMS_FN(zamStatus, zamsFIRSetTaps_32f)(const Zam32f* t, ZamsFIRState_32f* p) {
    if (zamStatus s = check_ptr(t, p)) return s;
    return call(p, &Route::setTaps, t);
}
ZAMS_FN(zamStatus, zamsFIRGetTaps_32f)(const ZamsFIRState_32f* p, Zam32f* t) {
    if (zamStatus s = check_ptr(p, t)) return s;
    return call(const_cast<ZamsFIRState_32f*>(p), &Route::getTaps, t);
}
ZAMS_FN(zamStatus, zamsFIRSetDlyLine_32f)(ZamsFIRState_32f* p, const Zam32f* d) {
    if (zamStatus s = check_ptr(p)) return s;
    return call(p, &Route::setDly, d);
}
ZAMS_FN(zamStatus, zamsFIRGetDlyLine_32f)(const ZamsFIRState_32f* p, Zam32f* d) {
    if (zamStatus s = check_ptr(p, d)) return s;
    return call(const_cast<ZamsFIRState_32f*>(p), &Route::getDly, d);
}
ZAMS_FN(zamStatus, zamsFIR_32f)(const Zam32f* s, Zam32f* d, int n, ZamsFIRState_32f* p) { return filter_32f(s, d, n, p); }
ZAMS_FN(zamStatus, zamsFIR_32f_I)(Zam32f* sd, int n, ZamsFIRState_32f* p) {
    if (zamStatus s = check_ptr(p, sd)) return s;
    return filter_32f(sd, sd, n, p);
}
ZAMS_FN(zamStatus, zamsFIROne_32f)(Zam32f x, Zam32f* y, ZamsFIRState_32f* p) {
    if (zamStatus s = check_ptr(p, y)) return s;
    zamStatus s;
    Hdr32* h = zams::state_of<Hdr32>(p, {zams::id::Fir32f}, s);
    return h ? one32(h, x, y) : s;
}

ZAMS_FN(zamStatus, zamsFIRStreamGetStateSize_32f)(int n, int* s) { return size32(n, s); }
ZAMS_FN(zamStatus, zamsFIRStreamInit_32f)(ZamsFIRState_32f** pp, const Zam32f* t, int n, const Zam32f* d, Zam8u* b) {
    return init32(kStream32f, PP(pp), t, n, d, b);
}
ZAMS_FN(zamStatus, zamsFIRStreamInitAlloc_32f)(ZamsFIRState_32f** pp, const Zam32f* t, int n, const Zam32f* d) {
    return init_alloc32(kStream32f, PP(pp), t, n, d);
}

// 32f_16s: the float state of its own kind; the delay line converted.
ZAMS_FN(zamStatus, zamsFIRGetStateSize32f_16s)(int n, int* s) { return size32(n, s); }
ZAMS_FN(zamStatus, zamsFIRInit32f_16s)(ZamsFIRState32f_16s** pp, const Zam32f* t, int n, const Zam16s* d, Zam8u* b) {
    if (zamStatus s = check_ptr(pp, t, b)) return s;
    if (n < 1) return zamStatusBadTapsLength;
    zamStatus s = init32(kFir32f16s, PP(pp), t, n, nullptr, b);
    if (s == zamStatusOk && d) g9_zamsFIRSetDlyLine32f_16s(*pp, d);
    return s;
}
ZAMS_FN(zamStatus, zamsFIRInitAlloc32f_16s)(ZamsFIRState32f_16s** pp, const Zam32f* t, int n, const Zam16s* d) {
    zamStatus s = init_alloc32(kFir32f16s, PP(pp), t, n, nullptr);
    if (s == zamStatusOk && d) g9_zamsFIRSetDlyLine32f_16s(*pp, d);
    return s;
}
ZAMS_FN(zamStatus, zamsFIRFree32f_16s)(ZamsFIRState32f_16s* p) {
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->release(p);
    return free32(p, {zams::id::Fir32f16s});
}
ZAMS_FN(zamStatus, zamsFIRSetTaps32f_16s)(const Zam32f* t, ZamsFIRState32f_16s* p) {
    if (zamStatus s = check_ptr(t, p)) return s;
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->setTaps(p, t, 0);
    zamStatus s;
    if (Hdr32* h = state16(p, s)) set_taps32(h, t);
    return s;
}
ZAMS_FN(zamStatus, zamsFIRGetTaps32f_16s)(const ZamsFIRState32f_16s* p, Zam32f* t) {
    if (zamStatus s = check_ptr(p, t)) return s;
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->getTaps(p, t);
    zamStatus s;
    if (Hdr32* h = state16(p, s)) std::memcpy(t, h->taps(), size_t(h->tapsLen) * sizeof(float));
    return s;
}
ZAMS_FN(zamStatus, zamsFIRSetDlyLine32f_16s)(ZamsFIRState32f_16s* p, const Zam16s* d) {
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->setDly(p, d);
    zamStatus s;
    Hdr32* h = state16(p, s);
    if (!h) return s;
    float* x = h->dly();
    for (int i = 0; i < h->tapsLen; ++i) x[i] = d ? float(d[h->tapsLen - 1 - i]) : 0.0f;
    h->idx = 0;
    return s;
}
ZAMS_FN(zamStatus, zamsFIRGetDlyLine32f_16s)(const ZamsFIRState32f_16s* p, Zam16s* d) {
    if (zamStatus s = check_ptr(p, d)) return s;
    if (auto* m = mr::match(&mr::k32f16s, p)) return m->getDly(p, d);
    zamStatus s;
    Hdr32* h = state16(p, s);
    if (!h) return s;
    const float* span = h->dly() + h->idx;
    for (int k = 0; k < h->tapsLen; ++k) d[k] = Zam16s(span[h->tapsLen - 1 - k]);  // integers, kept exactly
    return s;
}
ZAMS_FN(zamStatus, zamsFIR32f_16s_Sfs)(const Zam16s* s, Zam16s* d, int n, ZamsFIRState32f_16s* p, int sf) {
    return filter_32f16s(s, d, n, p, sf);
}
ZAMS_FN(zamStatus, zamsFIR32f_16s_ISfs)(Zam16s* sd, int n, ZamsFIRState32f_16s* p, int sf) {
    if (zamStatus s = check_ptr(p, sd)) return s;
    return filter_32f16s(sd, sd, n, p, sf);
}
ZAMS_FN(zamStatus, zamsFIROne32f_16s_Sfs)(Zam16s x, Zam16s* y, ZamsFIRState32f_16s* p, int sf) {
    return one_32f16s(x, y, p, sf);
}
