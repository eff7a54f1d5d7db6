// Complex FFT, interleaved and split, 32-bit and 64-bit floats.
#include "fft_core.h"

namespace zams::fft {
namespace {

template <class F, bool Inv> zamStatus cfft_c(const F* src, F* dst, const void* spec, uint8_t* buf, int32_t id) {
    zamStatus s;
    const Hdr<F>* h = spec_of<Hdr<F>>(spec, id, s);
    if (!h) return s;
    if (!src || !dst) return zamStatusNullPointer;
    const int M = h->order;
    const size_t N = size_t(1) << M;
    const bool scaled = Inv ? h->invOn : h->fwdOn;
    if (M <= kSmallMaxOrder && M >= kSmallMinOrder) {
        small_fft<F, Inv>(src, dst, M);
    } else if (M <= 6) {
        alignas(32) F tmp[128];
        cfft_inter<F, Inv>(plan_of(h, M), src, dst, tmp);
    } else {
        const Plan<F> pl = plan_of(h, M);
        WorkBuf wb;
        if (zamStatus e = wb.get(h->work, buf)) return e;
        cfft_inter<F, Inv>(pl, src, dst, reinterpret_cast<F*>(wb.p));
    }
    if (scaled) scale_n(dst, 2 * N, h->scale);
    return zamStatusOk;
}

// Interleaved n points of t to split arrays, times s when scaled.
template <class F> void deinterleave(const F* t, F* re, F* im, size_t n, bool scaled, F s) {
    if (scaled) {
        for (size_t i = 0; i < n; ++i) { re[i] = t[2 * i] * s; im[i] = t[2 * i + 1] * s; }
    } else {
        for (size_t i = 0; i < n; ++i) { re[i] = t[2 * i]; im[i] = t[2 * i + 1]; }
    }
}

template <class F, bool Inv>
zamStatus cfft_split(const F* sre, const F* sim, F* dre, F* dim, const void* spec, uint8_t* buf, int32_t id) {
    zamStatus s;
    const Hdr<F>* h = spec_of<Hdr<F>>(spec, id, s);
    if (!h) return s;
    if (!sre || !sim || !dre || !dim) return zamStatusNullPointer;
    const int M = h->order;
    const size_t N = size_t(1) << M;
    const bool scaled = Inv ? h->invOn : h->fwdOn;
    const Plan<F> pl = plan_of(h, M);
    if (M <= 6) {
        alignas(32) F tmp[128];
        run<F, Inv, false>(Split<F>{sre, sim}, tmp, pl);
        deinterleave(tmp, dre, dim, N, scaled, h->scale);
        return zamStatusOk;
    }
    // The interleaved result goes to the work buffer; the large orders'
    // buffer is smaller than the data, so they take a block of their own.
    WorkBuf wb;
    if (pl.top == nullptr) {
        if (zamStatus e = wb.get(h->work, buf)) return e;
    } else {
        const size_t bytes = (size_t(2) << M) * sizeof(F);
        if (bytes > size_t(INT32_MAX)) return zamStatusNoMemory;
        if (zamStatus e = wb.get(int(bytes), nullptr)) return e;
    }
    F* t = reinterpret_cast<F*>(wb.p);
    run<F, Inv, false>(Split<F>{sre, sim}, t, pl);
    deinterleave(t, dre, dim, N, scaled, h->scale);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::fft

using namespace zams::fft;

#define ZAMS_FFT_CTOC(T, F, SPEC, ID)                                                                        \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_##SPEC* p, Zam8u* b) { \
        return cfft_c<F, false>(reinterpret_cast<const F*>(s), reinterpret_cast<F*>(d), p, b, ID);         \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_##SPEC* p, Zam8u* b) { \
        return cfft_c<F, true>(reinterpret_cast<const F*>(s), reinterpret_cast<F*>(d), p, b, ID);          \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_I)(Zam##T * sd, const ZamsFFTSpec_##SPEC* p, Zam8u* b) {         \
        return cfft_c<F, false>(reinterpret_cast<const F*>(sd), reinterpret_cast<F*>(sd), p, b, ID);       \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_I)(Zam##T * sd, const ZamsFFTSpec_##SPEC* p, Zam8u* b) {         \
        return cfft_c<F, true>(reinterpret_cast<const F*>(sd), reinterpret_cast<F*>(sd), p, b, ID);        \
    }

ZAMS_FFT_CTOC(32fc, float, C_32fc, kIdC32fc)
ZAMS_FFT_CTOC(64fc, double, C_64fc, kIdC64fc)

#define ZAMS_FFT_CTOC_SPLIT(T, SPEC, ID)                                                                     \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T)(const Zam##T* sr, const Zam##T* si, Zam##T* dr, Zam##T* di,     \
                                            const ZamsFFTSpec_##SPEC* p, Zam8u* b) {                         \
        return cfft_split<Zam##T, false>(sr, si, dr, di, p, b, ID);                                          \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T)(const Zam##T* sr, const Zam##T* si, Zam##T* dr, Zam##T* di,     \
                                            const ZamsFFTSpec_##SPEC* p, Zam8u* b) {                         \
        return cfft_split<Zam##T, true>(sr, si, dr, di, p, b, ID);                                           \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_I)(Zam##T * r, Zam##T * i, const ZamsFFTSpec_##SPEC* p, Zam8u* b) { \
        return cfft_split<Zam##T, false>(r, i, r, i, p, b, ID);                                              \
    }                                                                                                        \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_I)(Zam##T * r, Zam##T * i, const ZamsFFTSpec_##SPEC* p, Zam8u* b) { \
        return cfft_split<Zam##T, true>(r, i, r, i, p, b, ID);                                               \
    }

ZAMS_FFT_CTOC_SPLIT(32f, C_32f, kIdC32f)
ZAMS_FFT_CTOC_SPLIT(64f, C_64f, kIdC64f)
