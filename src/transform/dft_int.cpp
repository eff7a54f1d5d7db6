// DFT of any length, 16-bit kinds (C_16sc, R_16s): an inner 32-bit float
// spec of the same length and flag built behind the header; a call
// converts the source to float in its work buffer, transforms there in
// place and converts back, times 2^-scaleFactor, rounded to nearest even
// and saturated (the library's float-to-16-bit conversion).
#include "dft_core.h"

namespace zams::dft {
namespace {

struct Hdr16 {
    int32_t id, len, flag, hint;
    int32_t work;  // bytes, without the slack
    int32_t owned;
    uint32_t inner;  // offset of the float spec
    int32_t real;
};
constexpr Shape kShape16{64, offsetof(Hdr16, owned), true};
constexpr int64_t kHead = 64;  // the header, rounded to 64

// Floats of the conversion area: 2 len (complex), len + 2 (real).
int64_t conv_floats(bool real, int len) { return real ? int64_t(len) + 2 : 2 * int64_t(len); }

struct Sizes16 {
    int spec, init, work, innerWork;
};
zamStatus sizes16(bool real, int len, int flag, Sizes16& z) {
    int spec, init, work;
    if (zamStatus s = get_size<float>(real, len, flag, &spec, &init, &work)) return s;
    z.innerWork = work;
    z.spec = int(kHead + spec + 64);
    z.init = init;
    z.work = int(round64(size_t(conv_floats(real, len)) * 4) + work);
    return zamStatusOk;
}

zamStatus get_size16(bool real, int len, int flag, int* a, int* b, int* c) {
    if (len < 1 || len > kMaxLen) return zamStatusBadLength;
    if (!a || !b || !c) return zamStatusNullPointer;
    Sizes16 z;
    if (zamStatus s = sizes16(real, len, flag, z)) return s;
    *a = z.spec;
    *b = z.init;
    *c = z.work + 64;
    return zamStatusOk;
}

zamStatus init16(bool real, void** pp, int len, int flag, int hint, uint8_t* mem, uint8_t* tmp, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    if (len < 1 || len > kMaxLen) return zamStatusBadLength;
    if (!mem) return zamStatusNullPointer;
    return lay_into(pp, mem, kShape16, [&](uint8_t* base, int32_t& idOut) -> zamStatus {
        Sizes16 z;
        if (zamStatus s = sizes16(real, len, flag, z)) return s;
        Hdr16* h = reinterpret_cast<Hdr16*>(base);
        std::memset(h, 0, sizeof(Hdr16));
        h->len = len;
        h->flag = flag;
        h->hint = hint;
        h->real = real;
        void* inner = nullptr;
        if (zamStatus s = init<float>(real, &inner, len, flag, 0, base + kHead, tmp, real ? kIdR32f : kIdC32fc))
            return s;
        h->inner = uint32_t(static_cast<uint8_t*>(inner) - base);
        h->work = z.work;
        idOut = id;
        return zamStatusOk;
    });
}

zamStatus init_alloc16(bool real, void** pp, int len, int flag, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    int spec, tmp, work;
    if (zamStatus s = get_size16(real, len, flag, &spec, &tmp, &work)) return s;
    return lay_alloc(pp, spec, tmp, kShape16, [&](void** out, uint8_t* mem, uint8_t* t) -> zamStatus {
        return init16(real, out, len, flag, hint, mem, t, id);
    });
}

zamStatus buf_size16(const void* spec, int32_t id, int* p) {
    if (!spec || !p) return zamStatusNullPointer;
    zamStatus s;
    const Hdr16* h = spec_of<Hdr16>(spec, id, s);
    if (!h) return s;
    *p = h->work + 64;
    return zamStatusOk;
}

zamStatus free16(void* spec, int32_t id) { return release(spec, {id}, kShape16); }

// Packed length of a real spectrum in a format.
int packed_len(Fmt f, int len) { return f == Fmt::Ccs ? (len % 2 ? len + 1 : len + 2) : len; }

// One call: checks, work buffer, conversion in, the float transform in
// place, conversion out.
template <class Body>
zamStatus run16(const void* spec, int32_t id, const void* src, void* dst, uint8_t* buf, Body&& body) {
    zamStatus s;
    WorkBuf wb;
    const Hdr16* h = begin_call<Hdr16>(spec, id, src, dst, buf, wb, s);
    if (!h) return s;
    float* t = reinterpret_cast<float*>(wb.p);
    uint8_t* iw = wb.p + round64(size_t(conv_floats(h->real, h->len)) * 4);
    const Hdr<float>* inner = reinterpret_cast<const Hdr<float>*>(reinterpret_cast<const uint8_t*>(h) + h->inner);
    return body(h, inner, t, align64(iw));
}

template <bool Inv> zamStatus complex16(const void* spec, const Zam16sc* src, Zam16sc* dst, int sf, uint8_t* buf) {
    return run16(spec, kIdC16sc, src, dst, buf, [&](const Hdr16* h, const Hdr<float>* in, float* t, uint8_t* w) -> zamStatus {
        const int n = 2 * h->len;
        g9_zamsConvert_16s32f(reinterpret_cast<const Zam16s*>(src), t, n);
        if (zamStatus e = complex_run<float, Inv>(in, t, t, w)) return e;
        return g9_zamsConvert_32f16s_Sfs(t, reinterpret_cast<Zam16s*>(dst), n, zamRoundNearestEven, sf);
    });
}

template <bool Inv> zamStatus real16(const void* spec, Fmt f, const Zam16s* src, Zam16s* dst, int sf, uint8_t* buf) {
    return run16(spec, kIdR16s, src, dst, buf, [&](const Hdr16* h, const Hdr<float>* in, float* t, uint8_t* w) -> zamStatus {
        const int plen = packed_len(f, h->len);
        g9_zamsConvert_16s32f(src, t, Inv ? plen : h->len);
        zamStatus e = Inv ? real_inv<float>(in, f, t, t, w) : real_fwd<float>(in, f, t, t, w);
        if (e) return e;
        return g9_zamsConvert_32f16s_Sfs(t, dst, Inv ? h->len : plen, zamRoundNearestEven, sf);
    });
}

}  // namespace
}  // namespace zams::dft

using namespace zams::dft;

#define ZAMS_DFT16_LIFE(K, REAL, ID)                                                                           \
    ZAMS_FN(zamStatus, zamsDFTGetSize_##K)(int len, int flag, int hint, int* a, int* b, int* c) {              \
        (void)hint;                                                                                            \
        return get_size16(REAL, len, flag, a, b, c);                                                           \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTInit_##K)(ZamsDFTSpec_##K * *pp, int len, int flag, int hint, Zam8u* mem,        \
                                        Zam8u* buf) {                                                          \
        return init16(REAL, reinterpret_cast<void**>(pp), len, flag, hint, mem, buf, ID);                     \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTInitAlloc_##K)(ZamsDFTSpec_##K * *pp, int len, int flag, int hint) {             \
        return init_alloc16(REAL, reinterpret_cast<void**>(pp), len, flag, hint, ID);                         \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTGetBufSize_##K)(const ZamsDFTSpec_##K* s, int* p) { return buf_size16(s, ID, p); } \
    ZAMS_FN(zamStatus, zamsDFTFree_##K)(ZamsDFTSpec_##K * s) { return free16(s, ID); }

ZAMS_DFT16_LIFE(C_16sc, false, kIdC16sc)
ZAMS_DFT16_LIFE(R_16s, true, kIdR16s)

ZAMS_FN(zamStatus, zamsDFTFwd_CToC_16sc_Sfs)(const Zam16sc* s, Zam16sc* d, const ZamsDFTSpec_C_16sc* p, int sf, Zam8u* b) {
    return complex16<false>(p, s, d, sf, b);
}
ZAMS_FN(zamStatus, zamsDFTInv_CToC_16sc_Sfs)(const Zam16sc* s, Zam16sc* d, const ZamsDFTSpec_C_16sc* p, int sf, Zam8u* b) {
    return complex16<true>(p, s, d, sf, b);
}
ZAMS_FN(zamStatus, zamsDFTFwd_CToC_16sc_ISfs)(Zam16sc* sd, const ZamsDFTSpec_C_16sc* p, int sf, Zam8u* b) {
    return complex16<false>(p, sd, sd, sf, b);
}
ZAMS_FN(zamStatus, zamsDFTInv_CToC_16sc_ISfs)(Zam16sc* sd, const ZamsDFTSpec_C_16sc* p, int sf, Zam8u* b) {
    return complex16<true>(p, sd, sd, sf, b);
}

#define ZAMS_DFT16_REAL(FMT, NAME)                                                                             \
    ZAMS_FN(zamStatus, zamsDFTFwd_RTo##NAME##_16s_Sfs)(const Zam16s* s, Zam16s* d, const ZamsDFTSpec_R_16s* p, \
                                                       int sf, Zam8u* b) {                                     \
        return real16<false>(p, FMT, s, d, sf, b);                                                            \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsDFTInv_##NAME##ToR_16s_Sfs)(const Zam16s* s, Zam16s* d, const ZamsDFTSpec_R_16s* p, \
                                                       int sf, Zam8u* b) {                                     \
        return real16<true>(p, FMT, s, d, sf, b);                                                             \
    }
ZAMS_DFT16_REAL(Fmt::Perm, Perm)
ZAMS_DFT16_REAL(Fmt::Pack, Pack)
ZAMS_DFT16_REAL(Fmt::Ccs, CCS)
