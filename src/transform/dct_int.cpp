// DCT, 16-bit kinds: a 24-byte header and an inner 32f DCT spec of the
// same direction and length built behind it (hint 1). A call converts the
// source to float at the start of its work buffer, runs the float
// transform there in place with the rest of the buffer as its work
// buffer, and converts back times 2^-scaleFactor, rounded to nearest even
// and saturated (the library's float-to-16-bit conversion). N = 1 needs no
// inner spec: the transform is the identity.
#include "dct_core.h"

namespace zams::dct {
namespace {

struct Hdr16 {
    int32_t id, len, hint;
    int32_t work;  // bytes, without the slack
    int32_t owned;
    uint32_t inner;  // offset of the inner float spec, 0 for N = 1
};
static_assert(sizeof(Hdr16) == 24);
constexpr Shape kShape16{64, offsetof(Hdr16, owned), true};
constexpr int kHead16 = 88;  // the header and the alignment of the block and of the inner spec

template <bool Inv> constexpr int32_t kId16 = Inv ? id::DctInv16s : id::DctFwd16s;
template <bool Inv> constexpr int32_t kIdInner = kId<float, Inv>;

zamStatus get_size16(int len, int* a, int* b, int* c) {
    if (len < 1) return zamStatusBadLength;
    if (!a || !b || !c) return zamStatusNullPointer;
    if (len == 1) {
        *a = kHead16;
        *b = *c = 0;
        return zamStatusOk;
    }
    int spec, init, work;
    if (zamStatus s = get_size<float>(len, &spec, &init, &work)) return s;
    const int64_t sa = int64_t(spec) + kHead16, sc = int64_t(work) + 4 * int64_t(len) + 64;
    if (sa >= INT32_MAX || sc >= INT32_MAX) return zamStatusBadLength;
    *a = int(sa);
    *b = init;
    *c = int(sc);
    return zamStatusOk;
}

template <bool Inv> zamStatus init16(void** pp, int len, int hint, uint8_t* mem, uint8_t* tmp) {
    if (!pp) return zamStatusNullPointer;
    if (len < 1) return zamStatusBadLength;
    if (!mem) return zamStatusNullPointer;
    return lay_into(pp, mem, kShape16, [&](uint8_t* base, int32_t& idOut) -> zamStatus {
        Hdr16* h = reinterpret_cast<Hdr16*>(base);
        std::memset(h, 0, sizeof(Hdr16));
        h->len = len;
        h->hint = hint;
        if (len > 1) {
            void* inner = nullptr;
            if (zamStatus s = init<float>(&inner, len, 1, base + sizeof(Hdr16), tmp, kIdInner<Inv>)) return s;
            int w = 0;
            buf_size<float>(inner, kIdInner<Inv>, &w);
            h->inner = uint32_t(static_cast<uint8_t*>(inner) - base);
            h->work = w + 4 * len;
        }
        idOut = kId16<Inv>;
        return zamStatusOk;
    });
}

template <bool Inv> zamStatus init_alloc16(void** pp, int len, int hint) {
    if (!pp) return zamStatusNullPointer;
    int spec, tmp, work;
    if (zamStatus s = get_size16(len, &spec, &tmp, &work)) return s;
    return lay_alloc(pp, spec, tmp, kShape16, [&](void** out, uint8_t* mem, uint8_t* t) -> zamStatus {
        return init16<Inv>(out, len, hint, mem, t);
    });
}

template <bool Inv> zamStatus buf_size16(const void* spec, int* p) {
    return query_work<Hdr16>(spec, kId16<Inv>, p, [](const Hdr16* h) { return h->work; });
}

template <bool Inv> zamStatus free16(void* spec) { return release(spec, {kId16<Inv>}, kShape16); }

template <bool Inv> zamStatus transform16(const void* spec, const Zam16s* src, Zam16s* dst, int sf, uint8_t* buf) {
    zamStatus s;
    WorkBuf wb;
    const Hdr16* h = begin_call<Hdr16>(spec, kId16<Inv>, src, dst, buf, wb, s);
    if (!h) return s;
    const int n = h->len;
    float one;
    float* t = n == 1 ? &one : reinterpret_cast<float*>(wb.p);
    g9_zamsConvert_16s32f(src, t, n);
    if (n > 1) {
        const auto* in = reinterpret_cast<const Hdr<float>*>(reinterpret_cast<const uint8_t*>(h) + h->inner);
        if (zamStatus e = run<float, Inv>(in, t, t, align64(wb.p + 4 * int64_t(n)))) return e;
    }
    return g9_zamsConvert_32f16s_Sfs(t, dst, n, zamRoundNearestEven, sf);
}

}  // namespace
}  // namespace zams::dct

using namespace zams::dct;

#define ZAMS_DCT16(DIR, INV)                                                                                   \
    ZAMS_FN(zamStatus, zamsDCT##DIR##GetSize_16s)(int len, int hint, int* a, int* b, int* c) {                 \
        (void)hint;                                                                                            \
        return get_size16(len, a, b, c);                                                                       \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##Init_16s)(ZamsDCT##DIR##Spec_16s * *pp, int len, int hint, Zam8u* mem,   \
                                               Zam8u* buf) {                                                   \
        return init16<INV>(reinterpret_cast<void**>(pp), len, hint, mem, buf);                                \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##InitAlloc_16s)(ZamsDCT##DIR##Spec_16s * *pp, int len, int hint) {        \
        return init_alloc16<INV>(reinterpret_cast<void**>(pp), len, hint);                                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##GetBufSize_16s)(const ZamsDCT##DIR##Spec_16s* s, int* p) {               \
        return buf_size16<INV>(s, p);                                                                          \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##Free_16s)(ZamsDCT##DIR##Spec_16s * s) { return free16<INV>(s); }         \
    ZAMS_FN(zamStatus, zamsDCT##DIR##_16s_Sfs)(const Zam16s* s, Zam16s* d, const ZamsDCT##DIR##Spec_16s* p,    \
                                              int sf, Zam8u* b) {                                              \
        return transform16<INV>(p, s, d, sf, b);                                                               \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDCT##DIR##_16s_ISfs)(Zam16s * sd, const ZamsDCT##DIR##Spec_16s* p, int sf,         \
                                               Zam8u* b) {                                                     \
        return transform16<INV>(p, sd, sd, sf, b);                                                             \
    }

ZAMS_DCT16(Fwd, false)
ZAMS_DCT16(Inv, true)
