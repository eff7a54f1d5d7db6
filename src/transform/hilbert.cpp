// Hilbert transform: the analytic signal through a forward real DFT into
// CCS, the one-sided spectrum, and an inverse complex DFT normalised by
// 1/len. The Hilbert spec holds two DFT specs of the length (complex and real,
// both with the inverse scaled) and the larger of their work sizes.
#include <algorithm>

#include "dft_core.h"

namespace zams::dft {
namespace {

struct HilbertSpec {
    int32_t id, len, work, hint;
    void* cplx;  // DFT spec C_32fc, flag 2
    void* real;  // DFT spec R_32f, flag 2
    int32_t owned;
};
constexpr Shape kShapeH{16, offsetof(HilbertSpec, owned), false};

zamStatus free_children(void* p) {
    HilbertSpec* h = static_cast<HilbertSpec*>(p);
    zamStatus a = h->cplx ? free_spec<float>(h->cplx, kIdC32fc) : zamStatusOk;
    zamStatus b = h->real ? free_spec<float>(h->real, kIdR32f) : zamStatusOk;
    return a ? a : b;
}

zamStatus init_alloc_h(void** pp, int len, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    if (len < 1) return zamStatusBadLength;
    return lay_alloc(pp, sizeof(HilbertSpec), 0, kShapeH, [&](void** out, uint8_t* mem, uint8_t*) -> zamStatus {
        HilbertSpec* h = reinterpret_cast<HilbertSpec*>(mem);
        std::memset(h, 0, sizeof *h);
        h->len = len;
        h->hint = hint;
        zamStatus s = init_alloc<float>(false, &h->cplx, len, zamFftScaleInverse, hint, kIdC32fc);
        if (!s) s = init_alloc<float>(true, &h->real, len, zamFftScaleInverse, hint, kIdR32f);
        int wc = 0, wr = 0;
        if (!s) s = buf_size<float>(h->cplx, kIdC32fc, &wc);
        if (!s) s = buf_size<float>(h->real, kIdR32f, &wr);
        if (s) {
            free_children(h);
            return s;
        }
        h->work = std::max(wc, wr);
        h->id = id;
        *out = h;
        return zamStatusOk;
    });
}

zamStatus free_h(void* p, int32_t id) { return release(p, {id}, kShapeH, free_children); }

// The analytic signal of the len floats at x into d (len complex); work
// holds the larger DFT work size.
zamStatus analytic(const HilbertSpec* h, const float* x, float* d, uint8_t* work) {
    const int n = h->len;
    if (n <= 2) {
        for (int i = 0; i < n; ++i) { d[2 * i] = x[i]; d[2 * i + 1] = 0; }
        return zamStatusOk;
    }
    const Hdr<float>* r = static_cast<const Hdr<float>*>(h->real);
    const Hdr<float>* c = static_cast<const Hdr<float>*>(h->cplx);
    if (zamStatus s = real_fwd<float>(r, Fmt::Ccs, x, d, work)) return s;
    const int half = (n + 1) / 2 - 1;
    for (int k = 1; k <= half; ++k) { d[2 * k] += d[2 * k]; d[2 * k + 1] += d[2 * k + 1]; }
    std::memset(d + 2 * (n / 2 + 1), 0, size_t(half) * 2 * sizeof(float));
    return complex_run<float, true>(c, d, d, work);
}

// Checks: the three pointers, then the identifier.
const HilbertSpec* checked(const void* src, const void* dst, const void* spec, int32_t id, zamStatus& s) {
    if (!src || !dst || !spec) {
        s = zamStatusNullPointer;
        return nullptr;
    }
    return spec_of<HilbertSpec>(spec, id, s);
}

zamStatus hilbert_32f(const Zam32f* src, Zam32fc* dst, const void* spec) {
    zamStatus s;
    const HilbertSpec* h = checked(src, dst, spec, id::Hilbert32f32fc, s);
    if (!h) return s;
    WorkBuf wb;
    if (zamStatus e = wb.get(h->len > 2 ? h->work : 0, nullptr)) return e;
    return analytic(h, src, reinterpret_cast<float*>(dst), wb.p);
}

// 16-bit sources: converted to float in a block that also holds the DFTs'
// work buffer (and, for the 16-bit result, the complex float result).
template <bool Out16> zamStatus hilbert_16s(const Zam16s* src, void* dst, const void* spec, int sf, int32_t id) {
    zamStatus s;
    const HilbertSpec* h = checked(src, dst, spec, id, s);
    if (!h) return s;
    const int n = h->len;
    const int64_t bytes = int64_t(h->work) + (Out16 ? 12 * int64_t(n) + 30 : 4 * int64_t(n) + 15);
    WorkBuf wb;
    if (zamStatus e = wb.get(bytes + 64, nullptr)) return e;
    uint8_t* work = wb.p;
    float* x = reinterpret_cast<float*>(align_up(work + h->work, 16));
    float* y = Out16 ? reinterpret_cast<float*>(align_up(x + n, 16)) : static_cast<float*>(dst);
    g9_zamsConvert_16s32f(src, x, n);
    zamStatus e = analytic(h, x, y, work);
    if (e || !Out16) return e;
    return g9_zamsConvert_32f16s_Sfs(y, static_cast<Zam16s*>(dst), 2 * n, zamRoundNearestEven, sf);
}

}  // namespace
}  // namespace zams::dft

using namespace zams;
using namespace zams::dft;

ZAMS_FN(zamStatus, zamsHilbertInitAlloc_32f32fc)(ZamsHilbertSpec_32f32fc** pp, int len, int hint) {
    return init_alloc_h(reinterpret_cast<void**>(pp), len, hint, id::Hilbert32f32fc);
}
ZAMS_FN(zamStatus, zamsHilbertInitAlloc_16s32fc)(ZamsHilbertSpec_16s32fc** pp, int len, int hint) {
    return init_alloc_h(reinterpret_cast<void**>(pp), len, hint, id::Hilbert16s32fc);
}
ZAMS_FN(zamStatus, zamsHilbertInitAlloc_16s16sc)(ZamsHilbertSpec_16s16sc** pp, int len, int hint) {
    return init_alloc_h(reinterpret_cast<void**>(pp), len, hint, id::Hilbert16s16sc);
}
ZAMS_FN(zamStatus, zamsHilbertFree_32f32fc)(ZamsHilbertSpec_32f32fc* p) { return free_h(p, id::Hilbert32f32fc); }
ZAMS_FN(zamStatus, zamsHilbertFree_16s32fc)(ZamsHilbertSpec_16s32fc* p) { return free_h(p, id::Hilbert16s32fc); }
ZAMS_FN(zamStatus, zamsHilbertFree_16s16sc)(ZamsHilbertSpec_16s16sc* p) { return free_h(p, id::Hilbert16s16sc); }
ZAMS_FN(zamStatus, zamsHilbert_32f32fc)(const Zam32f* s, Zam32fc* d, const ZamsHilbertSpec_32f32fc* p) {
    return hilbert_32f(s, d, p);
}
ZAMS_FN(zamStatus, zamsHilbert_16s32fc)(const Zam16s* s, Zam32fc* d, const ZamsHilbertSpec_16s32fc* p) {
    return hilbert_16s<false>(s, d, p, 0, id::Hilbert16s32fc);
}
ZAMS_FN(zamStatus, zamsHilbert_16s16sc_Sfs)(const Zam16s* s, Zam16sc* d, const ZamsHilbertSpec_16s16sc* p, int sf) {
    return hilbert_16s<true>(s, d, p, sf, id::Hilbert16s16sc);
}
