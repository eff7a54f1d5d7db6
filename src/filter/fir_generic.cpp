// The state of every taps/data pair without kernels of its own: life cycle,
// taps, delay line, block and one-sample filtering, all one template.
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "../common/spec.h"
#include "fir_generic.h"
#include "firmr.h"

namespace zams::fir {
namespace {

// How the given taps become the kept ones.
enum class Rule {
    Plain,  // as given
    Scale,  // 32-bit integers times 2^-tapsFactor, as doubles
    Shift,  // 32-bit integers shifted right until the largest is at most 32766
    Fit,    // floats scaled by the power of two that brings the largest to at most 32766
    Int16,  // 16-bit integers as given, the taps factor as their scale
};

template <class TapsT, class DataT, class CoefT, class PartT, class KeepT, Rule R, int32_t Id> struct Pair {
    using Taps = TapsT;
    using Data = DataT;
    using Coef = CoefT;
    using Part = PartT;
    using Keep = KeepT;
    using Acc = typename AccOf<Coef, Data>::type;
    static constexpr Rule rule = R;
    static constexpr int32_t id = Id;
};

struct Hdr {
    int32_t id, tapsLen, idx, owned, factor, total, offCoef, offKeep, offDly;
};
inline constexpr Shape kShape{16, offsetof(Hdr, owned), false};

template <class T> T* at(Hdr* h, int32_t off) { return reinterpret_cast<T*>(reinterpret_cast<uint8_t*>(h) + off); }

constexpr int64_t ru16(int64_t n) { return (n + 15) & ~int64_t(15); }

template <class P> struct Lay {
    int64_t coef, keep, dly, size;
};
template <class P> Lay<P> layout(int L) {
    Lay<P> l;
    l.coef = ru16(sizeof(Hdr));
    l.keep = l.coef + ru16(int64_t(L) * sizeof(typename P::Coef));
    l.dly = l.keep + ru16(int64_t(L) * sizeof(typename P::Keep));
    const int64_t end = l.dly + ru16(3 * int64_t(L) * sizeof(typename P::Data));
    l.size = end + 15;  // the caller's buffer is rounded up to 16
    if (P::id == id::Fir32s16s) {
        // The 16-bit-data state with 16-bit-kept taps has a size of its own.
        const int64_t p = (int64_t(L) + 11) & ~int64_t(7);
        const int64_t fixed = ru16(4 * int64_t(L)) + ru16(2 * (p + 2 * int64_t(L)) + 8) + 8 * p + 16992;
        l.size = std::max(l.size, fixed);
    }
    return l;
}

// The parts of a tap, real or complex, as doubles and back.
template <class T> int parts_of(const T& v, double* out) {
    out[0] = re_of(v);
    if constexpr (is_complex_v<T>) out[1] = im_of(v);
    return is_complex_v<T> ? 2 : 1;
}
template <class T> T from_parts(const double* p) {
    if constexpr (is_complex_v<T>) return T{part_t<T>(p[0]), part_t<T>(p[1])};
    else return T(p[0]);
}

// Keeps the taps and derives the reversed ones the sums use.
template <class P> void set_taps(Hdr* h, const typename P::Taps* taps, int factor) {
    using Coef = typename P::Coef;
    const int L = h->tapsLen;
    auto* keep = at<typename P::Keep>(h, h->offKeep);
    auto* coef = at<Coef>(h, h->offCoef);
    for (int i = 0; i < L; ++i) {
        double p[2];
        parts_of(taps[i], p);
        keep[i] = from_parts<typename P::Keep>(p);
    }
    h->factor = factor;
    h->total = 0;
    if constexpr (P::rule == Rule::Shift) {
        int64_t m = 0;
        for (int i = 0; i < L; ++i) {
            double p[2];
            for (int k = 0, n = parts_of(taps[i], p); k < n; ++k) m = std::max<int64_t>(m, p[k] < 0 ? -int64_t(p[k]) : int64_t(p[k]));
        }
        const int s = taps_shift(m);
        h->total = add_scale(s, factor);
        for (int i = 0; i < L; ++i) {
            double p[2];
            const int n = parts_of(taps[L - 1 - i], p);
            for (int k = 0; k < n; ++k) p[k] = double(int64_t(p[k]) >> s);
            coef[i] = from_parts<Coef>(p);
        }
    } else if constexpr (P::rule == Rule::Fit) {
        double m = 0;
        for (int i = 0; i < L; ++i) {
            double p[2];
            for (int k = 0, n = parts_of(taps[i], p); k < n; ++k) m = std::max(m, fit_magnitude(p[k]));
        }
        const int f = taps_fit(m);
        h->total = f;
        for (int i = 0; i < L; ++i) {
            double p[2];
            const int n = parts_of(taps[L - 1 - i], p);
            for (int k = 0; k < n; ++k) p[k] = fit_tap(p[k], f);
            coef[i] = from_parts<Coef>(p);
        }
    } else {
        const double scale = P::rule == Rule::Scale ? pow2(-add_scale(factor, 0)) : 1.0;
        if (P::rule == Rule::Int16) h->total = factor;
        for (int i = 0; i < L; ++i) {
            double p[2];
            const int n = parts_of(taps[L - 1 - i], p);
            for (int k = 0; k < n; ++k) p[k] *= scale;
            coef[i] = from_parts<Coef>(p);
        }
    }
}

template <class P> void set_dly(Hdr* h, const typename P::Data* dly) {
    const int L = h->tapsLen;
    auto* d = at<typename P::Data>(h, h->offDly);
    for (int i = 0; i < L; ++i) d[i] = dly ? dly[L - 1 - i] : typename P::Data{};
    h->idx = 0;
}

template <class P> Hdr* state(void* p, zamStatus& s) { return state_of<Hdr>(p, {P::id}, s); }

// The multirate kind a pair's entry points also take (firmr.h), by pair;
// null for the pairs without one. mr_of gives its operations when p is one.
template <class P> inline const mr::Ops<typename P::Taps, typename P::Data>* const kMr = nullptr;
template <class P> auto mr_of(const void* p) { return mr::match(kMr<P>, p); }

template <class P> zamStatus get_size(int L, int* pSize) {
    if (zamStatus s = check_ptr(pSize)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    return report_size(layout<P>(L).size, pSize);
}

template <class P>
zamStatus build(uint8_t* base, const typename P::Taps* taps, int L, int factor, const typename P::Data* dly, int32_t& id) {
    const Lay<P> l = layout<P>(L);
    Hdr* h = reinterpret_cast<Hdr*>(base);
    *h = Hdr{0, L, 0, 0, factor, 0, int32_t(l.coef), int32_t(l.keep), int32_t(l.dly)};
    set_taps<P>(h, taps, factor);
    set_dly<P>(h, dly);
    id = P::id;
    return zamStatusOk;
}

template <class P>
zamStatus init(void** pp, const typename P::Taps* taps, int L, int factor, const typename P::Data* dly, uint8_t* buf) {
    if (zamStatus s = check_ptr(pp, taps, buf)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    return lay_into(pp, buf, kShape, [&](uint8_t* base, int32_t& id) { return build<P>(base, taps, L, factor, dly, id); });
}

template <class P>
zamStatus init_alloc(void** pp, const typename P::Taps* taps, int L, int factor, const typename P::Data* dly) {
    if (zamStatus s = check_ptr(pp, taps)) return s;
    if (L < 1) return zamStatusBadTapsLength;
    return lay_alloc(pp, layout<P>(L).size, 0, kShape, [&](void** out, uint8_t* mem, uint8_t*) {
        return lay_into(out, mem, kShape, [&](uint8_t* base, int32_t& id) { return build<P>(base, taps, L, factor, dly, id); });
    });
}

template <class P> zamStatus free_state(void* p) {
    if (auto* m = mr_of<P>(p)) return m->release(p);
    return release(p, {P::id}, kShape);
}

template <class P> zamStatus set_taps_api(const typename P::Taps* taps, void* p, int factor = 0) {
    if (zamStatus s = check_ptr(taps, p)) return s;
    if (auto* m = mr_of<P>(p)) return m->setTaps(p, taps, factor);
    zamStatus s;
    Hdr* h = state<P>(p, s);
    if (h) set_taps<P>(h, taps, factor);
    return s;
}

template <class P> zamStatus get_taps_api(const void* p, typename P::Taps* out) {
    if (zamStatus s = check_ptr(p, out)) return s;
    if (auto* m = mr_of<P>(p)) return m->getTaps(p, out);
    zamStatus s;
    Hdr* h = state<P>(const_cast<void*>(p), s);
    if (!h) return s;
    const auto* keep = at<typename P::Keep>(h, h->offKeep);
    for (int i = 0; i < h->tapsLen; ++i) {
        double q[2];
        parts_of(keep[i], q);
        out[i] = from_parts<typename P::Taps>(q);
    }
    return zamStatusOk;
}

template <class P> zamStatus set_dly_api(void* p, const typename P::Data* dly) {
    if (auto* m = mr_of<P>(p)) return m->setDly(p, dly);
    zamStatus s;
    Hdr* h = state<P>(p, s);
    if (h) set_dly<P>(h, dly);
    return s;
}

template <class P> zamStatus get_dly_api(const void* p, typename P::Data* out) {
    if (zamStatus s = check_ptr(p, out)) return s;
    if (auto* m = mr_of<P>(p)) return m->getDly(p, out);
    zamStatus s;
    Hdr* h = state<P>(const_cast<void*>(p), s);
    if (!h) return s;
    const auto* span = at<typename P::Data>(h, h->offDly) + h->idx;
    for (int k = 0; k < h->tapsLen; ++k) out[k] = span[h->tapsLen - 1 - k];
    return zamStatusOk;
}

// Block filtering: outputs right to left in pieces (an in-place call reads
// no output), each output from the history and the input joined; then the
// last L samples become the delay line.
template <class P> zamStatus filter(const typename P::Data* src, typename P::Data* dst, int len, void* p, int sf) {
    using Data = typename P::Data;
    using Acc = typename P::Acc;
    using Coef = typename P::Coef;
    if (zamStatus s = check_ptr(p, src, dst)) return s;
    if (len < 1) return zamStatusBadLength;
    if (auto* m = mr_of<P>(p)) return m->filter(p, src, dst, len, sf);
    zamStatus s;
    Hdr* h = state<P>(p, s);
    if (!h) return s;
    const int L = h->tapsLen;
    Data* d = at<Data>(h, h->offDly);
    const Data* hist = d + h->idx + 1;  // L - 1 samples
    Data* next = d + 2 * L;
    if (len >= L) {
        std::memcpy(static_cast<void*>(next), src + (len - L), size_t(L) * sizeof(Data));
    } else {
        std::memmove(static_cast<void*>(next), d + h->idx + len, size_t(L - len) * sizeof(Data));
        std::memcpy(static_cast<void*>(next + (L - len)), src, size_t(len) * sizeof(Data));
    }
    const Coef* c = at<Coef>(h, h->offCoef);
    const int scale = std::is_integral_v<Coef> || std::is_same_v<Acc, CI> ? add_scale(h->total, sf) : sf;
    constexpr bool k16 = std::is_same_v<Coef, Zam16s> && std::is_same_v<Data, Zam16s>;
    bool fast = false;
    if constexpr (k16) fast = sums16_fits(c, L);
    constexpr int kPiece = 128;
    Acc acc[kPiece];
    [[maybe_unused]] double exact[kPiece];  // the fast 16-bit sums
    for (int end = len; end > 0;) {
        const int beg = std::max(0, end - kPiece);
        const int lim = fast ? std::clamp(L - 1, beg, end) : end;  // outputs from lim on have all their samples in src
        for (int n = beg; n < lim; ++n) {
            Acc a{};
            const int k0 = std::max(0, L - 1 - n);  // terms before k0 come from the history
            for (int k = 0; k < k0; ++k) mac(a, c[k], hist[n + k]);
            const Data* x = src + (n - (L - 1));
            for (int k = k0; k < L; ++k) mac(a, c[k], x[k]);
            acc[n - beg] = a;
        }
        if constexpr (k16) {
            if (fast) {
                for (int n = beg; n < lim; ++n) exact[n - beg] = double(acc[n - beg]);
                if (lim < end) sums16(c, src + (lim - (L - 1)), L, end - lim, exact + (lim - beg));
                emit16_exact(exact, dst + beg, end - beg, scale);
                end = beg;
                continue;
            }
        }
        emit<typename P::Part>(acc, dst + beg, end - beg, scale);
        end = beg;
    }
    std::memmove(static_cast<void*>(d), next, size_t(L) * sizeof(Data));
    h->idx = 0;
    return zamStatusOk;
}

template <class P> zamStatus filter_i(typename P::Data* sd, int len, void* p, int sf) {
    if (zamStatus s = check_ptr(p, sd)) return s;
    return filter<P>(sd, sd, len, p, sf);
}

// One sample: written twice into the doubled delay line, the index moved on,
// the span summed.
template <class P> zamStatus one(typename P::Data x, typename P::Data* out, void* p, int sf) {
    using Data = typename P::Data;
    if (zamStatus s = check_ptr(p, out)) return s;
    zamStatus s;
    Hdr* h = state<P>(p, s);
    if (!h) return s;
    const int L = h->tapsLen;
    Data* d = at<Data>(h, h->offDly);
    d[h->idx] = x;
    d[h->idx + L] = x;
    h->idx = h->idx + 1 == L ? 0 : h->idx + 1;
    const auto* c = at<typename P::Coef>(h, h->offCoef);
    typename P::Acc a{};
    for (int k = 0; k < L; ++k) mac(a, c[k], d[h->idx + k]);
    const bool exact = std::is_integral_v<typename P::Coef> || std::is_same_v<typename P::Acc, CI>;
    emit<typename P::Part>(&a, out, 1, exact ? add_scale(h->total, sf) : sf);
    return zamStatusOk;
}

// The pairs: given taps, data, kept taps, result precision, kept given taps.
using P32fc = Pair<Zam32fc, Zam32fc, Zam32fc, float, Zam32fc, Rule::Plain, id::Fir32fc>;
using P64f = Pair<Zam64f, Zam64f, Zam64f, double, Zam64f, Rule::Plain, id::Fir64f>;
using P64fc = Pair<Zam64fc, Zam64fc, Zam64fc, double, Zam64fc, Rule::Plain, id::Fir64fc>;
using P32s = Pair<Zam32s, Zam32s, Zam64f, double, Zam64f, Rule::Scale, id::Fir64f32s>;
using P32fc16sc = Pair<Zam32fc, Zam16sc, Zam32fc, float, Zam32fc, Rule::Plain, id::Fir32fc16sc>;
using P32s16s = Pair<Zam32s, Zam16s, Zam16s, double, double, Rule::Shift, id::Fir32s16s>;
using P32s16s32f = Pair<Zam32f, Zam16s, Zam16s, double, double, Rule::Fit, id::Fir32s16s>;
using P32sc16sc = Pair<Zam32sc, Zam16sc, Zam16sc, double, Zam64fc, Rule::Shift, id::Fir32sc16sc>;
using P32sc16sc32fc = Pair<Zam32fc, Zam16sc, Zam16sc, double, Zam64fc, Rule::Fit, id::Fir32sc16sc>;
using P64f16s = Pair<Zam64f, Zam16s, Zam64f, double, Zam64f, Rule::Plain, id::Fir64f16s>;
using P64f32s = Pair<Zam64f, Zam32s, Zam64f, double, Zam64f, Rule::Plain, id::Fir64f32s>;
using P64f32f = Pair<Zam64f, Zam32f, Zam64f, double, Zam64f, Rule::Plain, id::Fir64f32f>;
using P64fc16sc = Pair<Zam64fc, Zam16sc, Zam64fc, double, Zam64fc, Rule::Plain, id::Fir64fc16sc>;
using P64fc32sc = Pair<Zam64fc, Zam32sc, Zam64fc, double, Zam64fc, Rule::Plain, id::Fir64fc32sc>;
using P64fc32fc = Pair<Zam64fc, Zam32fc, Zam64fc, double, Zam64fc, Rule::Plain, id::Fir64fc32fc>;
using P16s = Pair<Zam16s, Zam16s, Zam16s, double, Zam16s, Rule::Int16, id::Fir16s>;

template <> inline const mr::Ops<Zam32fc, Zam32fc>* const kMr<P32fc> = &mr::k32fc;
template <> inline const mr::Ops<Zam64f, Zam64f>* const kMr<P64f> = &mr::k64f;
template <> inline const mr::Ops<Zam64fc, Zam64fc>* const kMr<P64fc> = &mr::k64fc;
template <> inline const mr::Ops<Zam32s, Zam16s>* const kMr<P32s16s> = &mr::k32s16s;
template <> inline const mr::Ops<float, Zam16s>* const kMr<P32s16s32f> = &mr::k32s16s32f;

}  // namespace
}  // namespace zams::fir

using namespace zams::fir;

#define PP(p) reinterpret_cast<void**>(p)

// The eight life-cycle functions of a pair: suffix, state type, pair, and
// the taps factor's parameter and value (none: empty and 0).
#define FIR_LIFE(SUF, ST, P, FA, FV)                                                                                 \
    ZAMS_FN(zamStatus, zamsFIRGetStateSize##SUF)(int n, int* s) { return get_size<P>(n, s); }                        \
    ZAMS_FN(zamStatus, zamsFIRInit##SUF)(ST * *pp, const P::Taps* t, int n FA, const P::Data* d, Zam8u* b) {        \
        return init<P>(PP(pp), t, n, FV, d, b);                                                                     \
    }                                                                                                                \
    ZAMS_FN(zamStatus, zamsFIRInitAlloc##SUF)(ST * *pp, const P::Taps* t, int n FA, const P::Data* d) {            \
        return init_alloc<P>(PP(pp), t, n, FV, d);                                                                  \
    }                                                                                                                \
    ZAMS_FN(zamStatus, zamsFIRFree##SUF)(ST * p) { return free_state<P>(p); }                                       \
    ZAMS_FN(zamStatus, zamsFIRSetTaps##SUF)(const P::Taps* t, ST* p FA) { return set_taps_api<P>(t, p, FV); }       \
    ZAMS_FN(zamStatus, zamsFIRGetTaps##SUF)(const ST* p, P::Taps* t) { return get_taps_api<P>(p, t); }              \
    ZAMS_FN(zamStatus, zamsFIRSetDlyLine##SUF)(ST * p, const P::Data* d) { return set_dly_api<P>(p, d); }           \
    ZAMS_FN(zamStatus, zamsFIRGetDlyLine##SUF)(const ST* p, P::Data* d) { return get_dly_api<P>(p, d); }
#define FACTOR , int f

FIR_LIFE(_32fc, ZamsFIRState_32fc, P32fc, , 0)
FIR_LIFE(_64f, ZamsFIRState_64f, P64f, , 0)
FIR_LIFE(_64fc, ZamsFIRState_64fc, P64fc, , 0)
FIR_LIFE(_32s, ZamsFIRState64f_32s, P32s, FACTOR, f)
FIR_LIFE(32fc_16sc, ZamsFIRState32fc_16sc, P32fc16sc, , 0)
FIR_LIFE(32s_16s, ZamsFIRState32s_16s, P32s16s, FACTOR, f)
FIR_LIFE(32s_16s32f, ZamsFIRState32s_16s, P32s16s32f, , 0)
FIR_LIFE(32sc_16sc, ZamsFIRState32sc_16sc, P32sc16sc, FACTOR, f)
FIR_LIFE(32sc_16sc32fc, ZamsFIRState32sc_16sc, P32sc16sc32fc, , 0)
FIR_LIFE(64f_16s, ZamsFIRState64f_16s, P64f16s, , 0)
FIR_LIFE(64f_32s, ZamsFIRState64f_32s, P64f32s, , 0)
FIR_LIFE(64f_32f, ZamsFIRState64f_32f, P64f32f, , 0)
FIR_LIFE(64fc_16sc, ZamsFIRState64fc_16sc, P64fc16sc, , 0)
FIR_LIFE(64fc_32sc, ZamsFIRState64fc_32sc, P64fc32sc, , 0)
FIR_LIFE(64fc_32fc, ZamsFIRState64fc_32fc, P64fc32fc, , 0)
FIR_LIFE(_16s, ZamsFIRState_16s, P16s, FACTOR, f)

// Block filtering and its in-place form, floating data and integer data.
#define FIR_RUN(NAME, ST, P)                                                                                         \
    ZAMS_FN(zamStatus, zamsFIR##NAME)(const P::Data* s, P::Data* d, int n, ST* p) { return filter<P>(s, d, n, p, 0); } \
    ZAMS_FN(zamStatus, zamsFIR##NAME##_I)(P::Data * sd, int n, ST* p) { return filter_i<P>(sd, n, p, 0); }
#define FIR_RUN_SFS(NAME, ST, P)                                                                                     \
    ZAMS_FN(zamStatus, zamsFIR##NAME##_Sfs)(const P::Data* s, P::Data* d, int n, ST* p, int sf) {                   \
        return filter<P>(s, d, n, p, sf);                                                                            \
    }                                                                                                                \
    ZAMS_FN(zamStatus, zamsFIR##NAME##_ISfs)(P::Data * sd, int n, ST* p, int sf) { return filter_i<P>(sd, n, p, sf); }

FIR_RUN(_32fc, ZamsFIRState_32fc, P32fc)
FIR_RUN(_64f, ZamsFIRState_64f, P64f)
FIR_RUN(_64fc, ZamsFIRState_64fc, P64fc)
FIR_RUN_SFS(_32s, ZamsFIRState64f_32s, P32s)
FIR_RUN_SFS(_16s, ZamsFIRState_16s, P16s)
FIR_RUN_SFS(32fc_16sc, ZamsFIRState32fc_16sc, P32fc16sc)
FIR_RUN_SFS(32s_16s, ZamsFIRState32s_16s, P32s16s)
FIR_RUN_SFS(32sc_16sc, ZamsFIRState32sc_16sc, P32sc16sc)
FIR_RUN_SFS(64f_16s, ZamsFIRState64f_16s, P64f16s)
FIR_RUN(64f_32f, ZamsFIRState64f_32f, P64f32f)
FIR_RUN_SFS(64f_32s, ZamsFIRState64f_32s, P64f32s)
FIR_RUN_SFS(64fc_16sc, ZamsFIRState64fc_16sc, P64fc16sc)
FIR_RUN(64fc_32fc, ZamsFIRState64fc_32fc, P64fc32fc)
FIR_RUN_SFS(64fc_32sc, ZamsFIRState64fc_32sc, P64fc32sc)

ZAMS_FN(zamStatus, zamsFIROne_64f)(Zam64f x, Zam64f* y, ZamsFIRState_64f* p) { return one<P64f>(x, y, p, 0); }
#define FIR_ONE_SFS(NAME, ST, P)                                                                                     \
    ZAMS_FN(zamStatus, zamsFIROne##NAME##_Sfs)(P::Data x, P::Data * y, ST * p, int sf) { return one<P>(x, y, p, sf); }
FIR_ONE_SFS(32fc_16sc, ZamsFIRState32fc_16sc, P32fc16sc)
FIR_ONE_SFS(32s_16s, ZamsFIRState32s_16s, P32s16s)
FIR_ONE_SFS(64f_16s, ZamsFIRState64f_16s, P64f16s)
FIR_ONE_SFS(64fc_16sc, ZamsFIRState64fc_16sc, P64fc16sc)
