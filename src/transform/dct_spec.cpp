// DCT specs of the float kinds: sizes, building, query, release. One layout
// function counts for the size query and builds for Init at the same
// offsets.
#include <cmath>

#include "../common/fft_plan.h"
#include "dct_core.h"
#include "dft_core.h"
#include "fft_core.h"

namespace zams::dct {
namespace {

// Free invalidates a spec in caller memory too.
template <class F> constexpr Shape kShape{64, offsetof(Hdr<F>, owned), true};

// A method's own byte counts: its tables (from byte kTables of the DCT spec),
// the build block of its inner spec, its work buffer.
struct Need {
    int64_t spec = 0, init = 0, work = 0;
};

int log2_of(int n) {
    int k = 0;
    while ((1 << k) < n) ++k;
    return k;
}

// The inner real transform of N (an FFT spec or a DFT spec), counted or
// built at base + at.
template <class F> zamStatus lay_inner(Method m, int len, uint8_t* base, int64_t at, uint8_t* tmp, Need& need) {
    int spec = 0, init = 0, work = 0;
    zamStatus s;
    if (m == kFft) {
        fftp::Sizes z;
        s = fftp::Real<F>::sizes(log2_of(len), zamFftScaleNone, z);
        spec = z.spec, init = z.init, work = z.work;
    } else {
        s = dft::get_size<F>(true, len, zamFftScaleNone, &spec, &init, &work);
    }
    if (s) return s;
    need.spec += spec;
    need.init = init;
    need.work += work;
    if (!base) return zamStatusOk;
    Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
    void* inner = nullptr;
    if (m == kFft) {
        fftp::Real<F> p;
        s = fftp::Real<F>::build(log2_of(len), zamFftScaleNone, base + at, tmp, p);
        inner = const_cast<void*>(static_cast<const void*>(p.spec));
        h->order = log2_of(len);
    } else {
        s = dft::init<F>(true, &inner, len, zamFftScaleNone, 0, base + at, tmp,
                         sizeof(F) == 4 ? dft::kIdR32f : dft::kIdR64f);
    }
    if (s) return s;
    h->inner = uint32_t(static_cast<uint8_t*>(inner) - base);
    return zamStatusOk;
}

// The method's tables and buffers; with base null it only counts.
template <class F> zamStatus lay(bool inv, int len, uint8_t* base, uint8_t* tmp, Need& need) {
    Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
    const Method m = method_of(len);
    const int64_t esz = sizeof(F);
    if (m == kDirect) {
        need.spec = 4 * len * esz;
        need.work = len * esz;
        if (base) {
            h->cosTab = uint32_t(kTables);
            F* c = reinterpret_cast<F*>(base + kTables);
            for (int q = 0; q < 4 * len; ++q) {
                double sn, cs;
                sincospi_ratio(q, 2 * int64_t(len), &sn, &cs);
                c[q] = F(cs);
            }
        }
        return zamStatusOk;
    }
    // Fft, Conv: twiddles for k <= N/2, then the inner spec; the work
    // buffer holds the reordered samples and their spectrum (the inner
    // transform runs out of place), then the inner work buffer.
    const int64_t twBytes = int64_t(round64(size_t(len / 2 + 1) * 2 * sizeof(F)));
    need.spec = twBytes;
    need.work = 2 * int64_t(round64(size_t(len) * sizeof(F)));
    if (base) {
        h->tw = uint32_t(kTables);
        F* t = reinterpret_cast<F*>(base + kTables);
        const double f = inv ? double(h->other) / 2 : double(h->other);
        const int h = len / 2 + 1;  // real parts, then imaginary parts
        for (int k = 0; k < h; ++k) {
            double sn, cs;
            sincospi_ratio(k, 2 * int64_t(len), &sn, &cs);
            t[k] = F(f * cs);
            t[h + k] = F(inv ? f * sn : -f * sn);
        }
    }
    return lay_inner<F>(m, len, base, kTables + twBytes, tmp, need);
}

// The three reported sizes from a method's counts: 192 more for the
// header and the alignment, 64 more for each buffer's alignment.
zamStatus report(const Need& n, int* pSpec, int* pInit, int* pWork) {
    const int64_t spec = n.spec + 192, init = n.init > 0 ? n.init + 64 : 0, work = n.work + 64;
    if (spec >= INT32_MAX || init >= INT32_MAX || work >= INT32_MAX) return zamStatusBadLength;
    *pSpec = int(spec);
    *pInit = int(init);
    *pWork = int(work);
    return zamStatusOk;
}

template <class F> void factors(Hdr<F>* h, int len) {
    const double r = std::sqrt(double(len));
    if constexpr (sizeof(F) == 4) h->first = fft::rsqrt_refined(double(len));
    else h->first = 1.0 / r;
    h->other = F(1.4142135623730951 / r);
}

}  // namespace

template <class F> zamStatus get_size(int len, int* pSpec, int* pInit, int* pWork) {
    if (len < 1) return zamStatusBadLength;
    if (!pSpec || !pInit || !pWork) return zamStatusNullPointer;
    const Method m = method_of(len);
    if (m == kDedicated) {
        *pSpec = kDedicatedSpec<F>;
        *pInit = *pWork = 0;
        return zamStatusOk;
    }
    if (len > (m == kFft ? kPow2Max : kOtherMaxSize)) return zamStatusBadLength;
    Need need;
    if (zamStatus s = lay<F>(false, len, nullptr, nullptr, need)) return s;
    return report(need, pSpec, pInit, pWork);
}

template <class F> zamStatus init(void** pp, int len, int hint, uint8_t* mem, uint8_t* tmp, int32_t id) {
    if (len < 1) return zamStatusBadLength;
    if (!pp || !mem) return zamStatusNullPointer;
    const Method m = method_of(len);
    if ((m == kFft && len > kPow2Max) || (m == kConv && len > kOtherMaxInit)) return zamStatusBadLength;
    const bool inv = id == kId<F, true>;
    return lay_into(pp, mem, kShape<F>, [&](uint8_t* base, int32_t& idOut) -> zamStatus {
        Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
        std::memset(h, 0, sizeof(Hdr<F>));
        h->len = len;
        h->hint = hint;
        if (m == kDedicated) {
            h->dedicated = 1;
        } else {
            factors(h, len);
            Need need;
            if (zamStatus s = lay<F>(inv, len, base, tmp, need)) return s;
            h->work = int32_t(need.work);
            h->fftOn = m == kFft;
            h->convOn = m == kConv;
        }
        idOut = id;
        return zamStatusOk;
    });
}

template <class F> zamStatus init_alloc(void** pp, int len, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    int spec, tmp, work;
    if (zamStatus s = get_size<F>(len, &spec, &tmp, &work)) return s;
    return lay_alloc(pp, spec, tmp, kShape<F>, [&](void** out, uint8_t* mem, uint8_t* t) -> zamStatus {
        return init<F>(out, len, hint, mem, t, id);
    });
}

template <class F> zamStatus buf_size(const void* spec, int32_t id, int* pSize) {
    return query_work<Hdr<F>>(spec, id, pSize, [](const Hdr<F>* h) { return h->work; });
}

template <class F> zamStatus free_spec(void* spec, int32_t id) { return release(spec, {id}, kShape<F>); }

#define ZAMS_DCT_SPEC(F)                                                                                   \
    template zamStatus get_size<F>(int, int*, int*, int*);                                                \
    template zamStatus init<F>(void**, int, int, uint8_t*, uint8_t*, int32_t);                            \
    template zamStatus init_alloc<F>(void**, int, int, int32_t);                                          \
    template zamStatus buf_size<F>(const void*, int32_t, int*);                                           \
    template zamStatus free_spec<F>(void*, int32_t);
ZAMS_DCT_SPEC(float)
ZAMS_DCT_SPEC(double)

}  // namespace zams::dct

using namespace zams::dct;

// The life cycle of the float kinds as one-line bindings.
#define ZAMS_DCT_LIFE(DIR, K, F, INV)                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##GetSize_##K)(int len, int hint, int* a, int* b, int* c) {                 \
        (void)hint;                                                                                            \
        return get_size<F>(len, a, b, c);                                                                      \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##Init_##K)(ZamsDCT##DIR##Spec_##K * *pp, int len, int hint, Zam8u* mem,   \
                                               Zam8u* buf) {                                                   \
        return init<F>(reinterpret_cast<void**>(pp), len, hint, mem, buf, kId<F, INV>);                       \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##InitAlloc_##K)(ZamsDCT##DIR##Spec_##K * *pp, int len, int hint) {        \
        return init_alloc<F>(reinterpret_cast<void**>(pp), len, hint, kId<F, INV>);                           \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##GetBufSize_##K)(const ZamsDCT##DIR##Spec_##K* s, int* p) {               \
        return buf_size<F>(s, kId<F, INV>, p);                                                                 \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##Free_##K)(ZamsDCT##DIR##Spec_##K * s) { return free_spec<F>(s, kId<F, INV>); }

ZAMS_DCT_LIFE(Fwd, 32f, float, false)
ZAMS_DCT_LIFE(Inv, 32f, float, true)
ZAMS_DCT_LIFE(Fwd, 64f, double, false)
ZAMS_DCT_LIFE(Inv, 64f, double, true)
