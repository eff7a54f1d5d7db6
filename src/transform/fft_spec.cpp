// FFT specs of the floating kinds: sizes, building, query, release.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "fft_core.h"

namespace zams::fft {
namespace {

struct Sizes {
    int64_t spec, init, work;
};
struct Rule {
    int64_t spec, work;
};

// Outer order of one level of the large layout, and its work floor.
template <class F> int large_split(int M) { return sizeof(F) == 4 ? (M <= 22 ? 4 : 8) : (M <= 21 ? 4 : 8); }
template <class F> int64_t large_floor(int M) {
    return sizeof(F) == 4 ? (M <= 22 ? 8 << 10 : 8 << 14) : (M <= 21 ? 16 << 9 : 16 << 13);
}

// Spec part and work of the levels of the large layout of order M.
template <class F> Rule large_levels(int M) {
    const int64_t esz = 2 * sizeof(F);
    const int K = M - large_split<F>(M);
    Rule r = K < large_threshold<F>(false) ? Rule{(esz << K) + 64, esz << K} : large_levels<F>(K);
    r.spec += (esz / 2) << M;
    r.work = std::max(r.work, large_floor<F>(M));
    return r;
}
template <class F> Rule large_rule(int M) {
    Rule r = large_levels<F>(M);
    r.spec += sizeof(F) == 4 ? (int64_t(1) << (M - 10)) + 4160 : (int64_t(1) << (M - 8)) + 1088;
    r.work = std::max<int64_t>(r.work, sizeof(F) == 4 ? 65536 : 32768);
    return r;
}

template <class F> constexpr int max_order(bool real) { return (sizeof(F) == 4 ? 28 : 27) + (real ? 1 : 0); }
template <class F> constexpr int64_t small_spec() { return sizeof(F) == 4 ? 148 : 152; }

template <class F> Sizes complex_sizes(int M) {
    const int64_t N = int64_t(1) << M, esz = 2 * sizeof(F);
    if (M <= 6) return {small_spec<F>(), 0, 0};
    const int64_t init = M >= 11 ? N * int64_t(sizeof(F) / 4) + 128 : 0;
    if (M < large_threshold<F>(false)) return {(esz + 1) * N + 320, init, esz * N + 64};
    Rule r = large_rule<F>(M);
    return {r.spec + 192, init, r.work + 64};
}

template <class F> Sizes real_sizes(int R) {
    const int64_t N = int64_t(1) << R, esz = 2 * sizeof(F);
    if (R <= 4) return {small_spec<F>(), 0, 0};
    if (R <= 7) return {(esz / 2) * N + 192, 0, 0};
    const int64_t init = R >= 11 ? N * int64_t(sizeof(F) / 4) + 128 : 0;
    // (esz + 0.5) N + 320, as an integer: N is a multiple of 256 here
    if (R <= 17) return {esz * N + N / 2 + 320, init, (esz / 2) * N + 64};
    const int64_t coarse = sizeof(F) == 4 ? N / 256 : N / 64;
    if (R == kRealSplitOrder) return {(esz / 2) * N + N / 2 + coarse + 16704, init, (esz / 2) * N + 64};
    Rule r = large_rule<F>(R - 1);
    return {r.spec + coarse + 16384 + 192, init, r.work + 64};
}

template <class F, bool Real>
zamStatus get_size(int order, int flag, int hint, int* pSpecSize, int* pSpecBufferSize, int* pBufferSize) {
    (void)hint;
    if (static_cast<unsigned>(order) > 30u) return zamStatusBadFftOrder;
    if (!pSpecSize || !pSpecBufferSize || !pBufferSize) return zamStatusNullPointer;
    if (flag != 1 && flag != 2 && flag != 4 && flag != 8) return zamStatusBadFftFlag;
    if (order > max_order<F>(Real)) return zamStatusBadFftOrder;
    Sizes s = Real ? real_sizes<F>(order) : complex_sizes<F>(order);
    *pSpecSize = int(s.spec);
    *pSpecBufferSize = int(s.init);
    *pBufferSize = int(s.work);
    return zamStatusOk;
}

template <class F> F scale_for(int order, int flag) {
    const double n = double(int64_t(1) << order);
    if (flag == 4) {
        if constexpr (sizeof(F) == 4) return rsqrt_refined(n);
        else return 1.0 / std::sqrt(n);
    }
    return F(1.0) / F(n);
}

// Recombination factors W^k = exp(-2 pi i k / N) of a real spec, k <= N/4:
// one table up to order 17, coarse x fine from order 18. The even k are
// w_{N/2}^(k/2), copied from the complex tables when the FFT spec has them.
template <class F> uint32_t build_recomb(Hdr<F>* h, uint8_t* base, uint32_t off, int R) {
    const size_t N = size_t(1) << R;
    const F* half = R - 1 >= 7 ? quarter_of(h, R - 1) : nullptr;
    off = uint32_t(round64(off));
    h->offRecomb = h->offCcs = off;
    F* t = reinterpret_cast<F*>(base + off);
    if (R < kRealSplitOrder) {
        build_quarter(t, N, N / 4, half);
        return off + uint32_t(round64((N / 4 + 1) * 2 * sizeof(F)));
    }
    const size_t fine = size_t(1) << fine_bits<F>();
    build_quarter(t, N, fine - 1, half);
    off += uint32_t(fine * 2 * sizeof(F));
    h->offCoarse = off;
    t = reinterpret_cast<F*>(base + off);
    const size_t nc = (N / 4 >> fine_bits<F>()) + 1;
    put_turned_run(t, half, R - 3, fine / 2, nc);
    return off + uint32_t(round64(nc * 2 * sizeof(F)));
}

// Where the floating kinds' owned mark sits; Free invalidates a spec in
// caller memory too.
template <class F> constexpr Shape kShape{64, offsetof(Hdr<F>, owned), true};

template <class F, bool Real>
zamStatus init(Hdr<F>** pp, int order, int flag, int hint, uint8_t* mem, uint8_t* specBuf, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    if (order < 0 || order > max_order<F>(Real)) return zamStatusBadFftOrder;
    if (!mem) return zamStatusNullPointer;
    return lay_into(reinterpret_cast<void**>(pp), mem, kShape<F>, [&](uint8_t* base, int32_t& idOut) {
        Hdr<F>* h = reinterpret_cast<Hdr<F>*>(base);
        std::memset(h, 0, sizeof(Hdr<F>));
        h->order = order;
        h->hint = hint;
        switch (flag) {
            case 1: h->fwdOn = 1; break;
            case 2: h->invOn = 1; break;
            case 4: h->fwdOn = h->invOn = 1; break;
            case 8: break;
            default: return zamStatusBadFftFlag;
        }
        if (flag != 8) h->scale = scale_for<F>(order, flag);
        const int M = Real ? order - 1 : order;
        const int tabled = Real ? 5 : 7;  // first order with tables
        if (order >= tabled) {
            // Orders from 11 take the caller's build buffer.
            if (order >= 11 && !specBuf) return zamStatusNullPointer;
            uint32_t off = 128;
            if (M >= 7) {
                off = build_complex_tables(h, base, off, M, Real);
                const Sizes s = Real ? real_sizes<F>(order) : complex_sizes<F>(order);
                h->work = int32_t(s.work - 64);
            }
            if (Real) build_recomb(h, base, off, order);
        }
        idOut = id;
        return zamStatusOk;
    });
}

template <class F, bool Real>
zamStatus init_alloc(Hdr<F>** pp, int order, int flag, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    int specSize, bufSize, workSize;
    if (zamStatus s = get_size<F, Real>(order, flag, hint, &specSize, &bufSize, &workSize)) return s;
    return lay_alloc(reinterpret_cast<void**>(pp), specSize, bufSize, kShape<F>, [&](void** out, uint8_t* mem, uint8_t* tmp) {
        return init<F, Real>(reinterpret_cast<Hdr<F>**>(out), order, flag, hint, mem, tmp, id);
    });
}

template <class F> zamStatus get_buf_size(const void* spec, int32_t id, int* pSize) {
    return query_work<Hdr<F>>(spec, id, pSize, [](const Hdr<F>* h) { return h->work; });
}

template <class F> zamStatus free_spec(void* spec, int32_t id) { return release(spec, {id}, kShape<F>); }

}  // namespace
}  // namespace zams::fft

using namespace zams::fft;

#define ZAMS_FFT_SPEC_FNS(K, F, REAL, ID)                                                                      \
    ZAMS_FN(zamStatus, zamsFFTGetSize_##K)(int order, int flag, int hint, int* a, int* b, int* c) {           \
        return get_size<F, REAL>(order, flag, hint, a, b, c);                                                  \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInit_##K)(ZamsFFTSpec_##K * *pp, int order, int flag, int hint, Zam8u* mem,     \
                                        Zam8u* buf) {                                                          \
        return init<F, REAL>(reinterpret_cast<Hdr<F>**>(pp), order, flag, hint, mem, buf, ID);                \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInitAlloc_##K)(ZamsFFTSpec_##K * *pp, int order, int flag, int hint) {          \
        return init_alloc<F, REAL>(reinterpret_cast<Hdr<F>**>(pp), order, flag, hint, ID);                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTGetBufSize_##K)(const ZamsFFTSpec_##K* s, int* p) { return get_buf_size<F>(s, ID, p); } \
    ZAMS_FN(zamStatus, zamsFFTFree_##K)(ZamsFFTSpec_##K * s) { return free_spec<F>(s, ID); }

ZAMS_FFT_SPEC_FNS(C_32fc, float, false, kIdC32fc)
ZAMS_FFT_SPEC_FNS(C_64fc, double, false, kIdC64fc)
ZAMS_FFT_SPEC_FNS(R_32f, float, true, kIdR32f)
ZAMS_FFT_SPEC_FNS(R_64f, double, true, kIdR64f)

// The split kinds are the interleaved ones under another identifier word:
// their size query and builds hand the call to the interleaved kind's.
#define ZAMS_FFT_SPLIT_KIND(K, KC, F, ID)                                                                      \
    ZAMS_FN(zamStatus, zamsFFTGetSize_##K)(int order, int flag, int hint, int* a, int* b, int* c) {           \
        return zamsFFTGetSize_##KC(order, flag, hint, a, b, c);                                                \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInit_##K)(ZamsFFTSpec_##K * *pp, int order, int flag, int hint, Zam8u* mem,     \
                                        Zam8u* buf) {                                                          \
        zamStatus s = zamsFFTInit_##KC(reinterpret_cast<ZamsFFTSpec_##KC**>(pp), order, flag, hint, mem, buf); \
        if (s == zamStatusOk) reinterpret_cast<Hdr<F>*>(*pp)->id = ID;                                         \
        return s;                                                                                              \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInitAlloc_##K)(ZamsFFTSpec_##K * *pp, int order, int flag, int hint) {          \
        zamStatus s = zamsFFTInitAlloc_##KC(reinterpret_cast<ZamsFFTSpec_##KC**>(pp), order, flag, hint);     \
        if (s == zamStatusOk) reinterpret_cast<Hdr<F>*>(*pp)->id = ID;                                         \
        return s;                                                                                              \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTGetBufSize_##K)(const ZamsFFTSpec_##K* s, int* p) { return get_buf_size<F>(s, ID, p); } \
    ZAMS_FN(zamStatus, zamsFFTFree_##K)(ZamsFFTSpec_##K * s) { return free_spec<F>(s, ID); }

ZAMS_FFT_SPLIT_KIND(C_32f, C_32fc, float, kIdC32f)
ZAMS_FFT_SPLIT_KIND(C_64f, C_64fc, double, kIdC64f)
