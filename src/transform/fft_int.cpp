// FFT of the integer kinds. The 16-bit kinds transform orders 1 to 3 (hint
// 0 or 1) directly and everything else through an inner 32-bit float spec;
// the 32-bit kinds through an inner 64-bit float spec. Results are scaled
// by 2^-scaleFactor, rounded to nearest even and saturated.
#include <cmath>
#include <cstddef>

#include "../common/fft_plan.h"
#include "../common/fpenv.h"
#include "../common/scale.h"
#include "fft_core.h"

namespace zams::fft {
namespace {

enum : int32_t {
    kIdC16sc = id::FftC16sc, kIdC16s = id::FftC16s, kIdR16s = id::FftR16s,
    kIdC32s = id::FftC32s, kIdC32sc = id::FftC32sc, kIdR32s = id::FftR32s, kIdR16s32s = id::FftR16s32s
};

// 16-bit spec header, 52 bytes; table positions are offsets from its start.
struct Hdr16 {
    int32_t id, order, fwdShift, invShift, halfStep, hint, work, innerFloat, owned;
    uint32_t offRev, offTw, offInner, reserved;
};
static_assert(sizeof(Hdr16) == 52);

// 32-bit integer spec header, 24 bytes.
struct Hdr32 {
    int32_t id, order, hint, work, owned;
    uint32_t offInner;
};
static_assert(sizeof(Hdr32) == 24);

enum class Kind { C16sc, C16s, R16s, C32s, C32sc, R32s, R16s32s };

constexpr bool is16(Kind k) { return k == Kind::C16sc || k == Kind::C16s || k == Kind::R16s; }
constexpr bool is_real(Kind k) { return k == Kind::R16s || k == Kind::R32s || k == Kind::R16s32s; }

// Both headers: 64-byte aligned, Free invalidates a spec in caller memory.
constexpr Shape kShape16{64, offsetof(Hdr16, owned), true};
constexpr Shape kShape32{64, offsetof(Hdr32, owned), true};
constexpr const Shape& shape_of(Kind k) { return is16(k) ? kShape16 : kShape32; }

// ------------------------------------------------------ the floating kinds --
// The floating kind an integer kind is built on: its size query, its build
// (hint 0) and its work size, through the kind's own implementation.
template <class S> zamStatus init_as(zamStatus (*fn)(S**, int, int, int, Zam8u*, Zam8u*), void** out, int order,
                                     int flag, uint8_t* mem, uint8_t* tmp) {
    S* p = nullptr;
    zamStatus s = fn(&p, order, flag, 0, mem, tmp);
    *out = p;
    return s;
}
template <class S> int work_as(zamStatus (*fn)(const S*, int*), const void* spec) {
    int w = 0;
    fn(static_cast<const S*>(spec), &w);
    return w;
}
#define ZAMS_INNER(KIND, SUF)                                                                                      \
    case Kind::KIND:                                                                                               \
        switch (op) {                                                                                              \
            case Op::Size: return g9_zamsFFTGetSize_##SUF(order, flag, 0, &sz->spec, &sz->init, &sz->work);      \
            case Op::Init: return init_as(g9_zamsFFTInit_##SUF, out, order, flag, mem, tmp);                      \
            default: *work = work_as(g9_zamsFFTGetBufSize_##SUF, *out); return zamStatusOk;                       \
        }
enum class Op { Size, Init, Work };
zamStatus inner(Kind k, Op op, int order, int flag, fftp::Sizes* sz, void** out, uint8_t* mem, uint8_t* tmp,
                int* work) {
    switch (k) {
        ZAMS_INNER(C16sc, C_32fc)
        ZAMS_INNER(C16s, C_32f)
        ZAMS_INNER(R16s, R_32f)
        ZAMS_INNER(C32s, C_64f)
        ZAMS_INNER(C32sc, C_64fc)
        default: ZAMS_INNER(R32s, R_64f)
    }
}
#undef ZAMS_INNER

// Bytes of the conversion area in front of the inner transform's buffer.
int64_t conv_bytes(Kind k, int64_t n) {
    if (is16(k)) return is_real(k) ? 4 * n + 8 : 8 * n;
    return is_real(k) ? 8 * n + 16 : 16 * n;
}

bool small_path(Kind k, int order, int hint) { return is16(k) && order >= 1 && order <= 3 && (hint == 0 || hint == 1); }

// Work bytes of the 16-bit small path (without the 64 of slack).
int64_t small_work(Kind k, int64_t n) { return k == Kind::R16s ? 4 * n + 8 : (k == Kind::C16s ? 12 : 8) * n; }

// ----------------------------------------------------------------- sizes --
zamStatus get_size(Kind k, int order, int flag, int hint, int* ps, int* pb, int* pw) {
    if (static_cast<unsigned>(order) > 30u) return zamStatusBadFftOrder;
    if (!ps || !pb || !pw) return zamStatusNullPointer;
    if (flag != 1 && flag != 2 && flag != 4 && flag != 8) return zamStatusBadFftFlag;
    const int64_t n = int64_t(1) << order;
    if (is16(k) && order == 0) {
        *ps = 116; *pb = 0; *pw = 0;
        return zamStatusOk;
    }
    if (small_path(k, order, hint)) {
        *ps = k == Kind::R16s ? 320 : 256;
        *pb = 128;
        *pw = int(small_work(k, n) + 64);
        return zamStatusOk;
    }
    fftp::Sizes in;
    if (zamStatus e = inner(k, Op::Size, order, flag, &in, nullptr, nullptr, nullptr, nullptr)) return e;
    const int64_t spec = int64_t(in.spec) + 128;
    const int64_t buf = is16(k) ? int64_t(in.init) + 64 : (in.init ? int64_t(in.init) + 64 : 0);
    const int64_t work = int64_t(in.work) + conv_bytes(k, n) + 64;
    if (spec >= INT32_MAX || buf >= INT32_MAX || work >= INT32_MAX) return zamStatusNoMemory;
    *ps = int(spec); *pb = int(buf); *pw = int(work);
    return zamStatusOk;
}

// -------------------------------------------------------------- building --
// The inner floating spec behind the header (flag as given, hint 0) and the
// work size: the inner transform's buffer behind the conversion area.
zamStatus build_inner(Kind k, uint8_t* base, int order, int flag, uint8_t* specBuf, uint32_t& offInner, int32_t& work) {
    void* in = nullptr;
    if (zamStatus e = inner(k, Op::Init, order, flag, nullptr, &in, base + 64, specBuf, nullptr)) return e;
    offInner = uint32_t(static_cast<uint8_t*>(in) - base);
    int w = 0;
    inner(k, Op::Work, order, flag, nullptr, &in, nullptr, nullptr, &w);
    work = int32_t(w + conv_bytes(k, int64_t(1) << order));
    return zamStatusOk;
}

zamStatus init(Kind k, void** pp, int order, int flag, int hint, uint8_t* mem, uint8_t* specBuf, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    if (static_cast<unsigned>(order) > 30u) return zamStatusBadFftOrder;
    if (!mem) return zamStatusNullPointer;
    return lay_into(pp, mem, shape_of(k), [&](uint8_t* base, int32_t& idOut) -> zamStatus {
        if (is16(k)) {
            Hdr16* h = reinterpret_cast<Hdr16*>(base);
            std::memset(h, 0, sizeof *h);
            h->order = order;
            h->hint = hint;
            switch (flag) {
                case 8: break;
                case 4: h->fwdShift = h->invShift = order / 2; h->halfStep = order % 2; break;
                case 1: h->fwdShift = order; break;
                case 2: h->invShift = order; break;
                default: return zamStatusBadFftFlag;
            }
            if (order > 0) {
                if (!specBuf) return zamStatusNullPointer;
                if (small_path(k, order, hint)) {
                    // Direct evaluation: no tables are needed.
                    h->work = int32_t(small_work(k, int64_t(1) << order));
                } else {
                    h->innerFloat = 1;
                    if (zamStatus e = build_inner(k, base, order, flag, specBuf, h->offInner, h->work)) return e;
                }
            }
        } else {
            Hdr32* h = reinterpret_cast<Hdr32*>(base);
            std::memset(h, 0, sizeof *h);
            h->order = order;
            h->hint = hint;
            if (zamStatus e = build_inner(k, base, order, flag, specBuf, h->offInner, h->work)) return e;
        }
        idOut = id;
        return zamStatusOk;
    });
}

int32_t work_of(Kind k, const void* spec) {
    return is16(k) ? static_cast<const Hdr16*>(spec)->work : static_cast<const Hdr32*>(spec)->work;
}

zamStatus init_alloc(Kind k, void** pp, int order, int flag, int hint, int32_t id) {
    if (!pp) return zamStatusNullPointer;
    int specSize, bufSize, workSize;
    if (zamStatus s = get_size(k, order, flag, hint, &specSize, &bufSize, &workSize)) return s;
    return lay_alloc(pp, specSize, bufSize, shape_of(k), [&](void** out, uint8_t* mem, uint8_t* tmp) {
        return init(k, out, order, flag, hint, mem, tmp, id);
    });
}

zamStatus buf_size(const void* spec, int32_t id, Kind k, int* p) {
    return query_work<void>(spec, id, p, [k](const void* h) { return work_of(k, h); });
}

zamStatus free_spec(void* spec, int32_t id, Kind k) { return release(spec, {id}, shape_of(k)); }

// ----------------------------------------------------------- conversion --
// v * 2^-sf rounded to nearest even (the call runs in that rounding
// direction) and saturated to T.
template <class T> struct ToInt {
    double f1 = 1, f2 = 1;
    explicit ToInt(int sf) {
        // two factors, each a normal double, cover every scale factor
        int e = sf > 2000 ? 2000 : (sf < -2000 ? -2000 : sf);
        int e1 = -e / 2, e2 = -e - e1;
        f1 = std::ldexp(1.0, e1);
        f2 = std::ldexp(1.0, e2);
    }
    T operator()(double v) const {
        double x = (v * f1) * f2;
        if (x >= double(traits<T>::max)) return traits<T>::max;
        if (x <= double(traits<T>::min)) return traits<T>::min;
        return T(_mm_cvtsd_si32(_mm_set_sd(x)));
    }
};

template <class T> T scaled_int(int64_t v, int sf) { return scale_round_sat<T>(v, sf); }

// ------------------------------------------------------------ transforms --
// Direct transform of the 16-bit small path (2, 4 or 8 points) in double:
// sums of 16-bit values are exact, the twiddles of 8 points are the only
// rounding, then the direction's shift, the half step and the scale factor.
void small_dft(const Hdr16* h, bool inv, const double* xr, const double* xi, double* yr, double* yi) {
    const int n = 1 << h->order;
    static const double kC8[8] = {1, 0.70710678118654752440, 0, -0.70710678118654752440, -1, -0.70710678118654752440, 0,
                                  0.70710678118654752440};
    for (int k = 0; k < n; ++k) {
        double sr = 0, si = 0;
        for (int j = 0; j < n; ++j) {
            const int m = (j * k * (8 / n)) & 7;  // angle 2 pi m / 8
            const double c = kC8[m], s = inv ? kC8[(m + 6) & 7] : -kC8[(m + 6) & 7];
            sr += xr[j] * c - xi[j] * s;
            si += xr[j] * s + xi[j] * c;
        }
        const int shift = inv ? h->invShift : h->fwdShift;
        double f = 1.0;
        for (int i = 0; i < shift; ++i) f *= 0.5;
        if (h->halfStep) f *= 0.70710678118654752440;
        yr[k] = sr * f;
        yi[k] = si * f;
    }
}

// Complex integer transform: src/dst interleaved (split when re/im given
// separately). P is the integer part type, F the inner float type.
template <class P, class F, Kind K> struct Complex {
    static zamStatus run(bool inv, const P* sr, const P* si, P* dr, P* di, size_t stride, const void* spec, int sf,
                         uint8_t* buf, int32_t id) {
        zamStatus s;
        if (!spec_of<void>(spec, id, s)) return s;
        if (!sr || !si || !dr || !di) return zamStatusNullPointer;
        RoundingScope rs(Rounding::Nearest);
        const int order = *(static_cast<const int32_t*>(spec) + 1);
        const size_t n = size_t(1) << order;
        if (order == 0) {
            const P r = scaled_int<P>(int64_t(sr[0]), sf), i = scaled_int<P>(int64_t(si[0]), sf);
            dr[0] = r;
            di[0] = i;
            return zamStatusOk;
        }
        const int32_t work = work_of(K, spec);
        WorkBuf wb;
        if (zamStatus e = wb.get(work, buf)) return e;
        ToInt<P> cv(sf);
        if constexpr (is16(K)) {
            const Hdr16* h = static_cast<const Hdr16*>(spec);
            if (!h->innerFloat) {
                double xr[8], xi[8], yr[8], yi[8];
                for (size_t j = 0; j < n; ++j) { xr[j] = sr[j * stride]; xi[j] = si[j * stride]; }
                small_dft(h, inv, xr, xi, yr, yi);
                for (size_t j = 0; j < n; ++j) { dr[j * stride] = cv(yr[j]); di[j * stride] = cv(yi[j]); }
                return zamStatusOk;
            }
        }
        const uint32_t offInner = is16(K) ? static_cast<const Hdr16*>(spec)->offInner : static_cast<const Hdr32*>(spec)->offInner;
        const void* inner = static_cast<const uint8_t*>(spec) + offInner;
        F* t = reinterpret_cast<F*>(wb.p);
        uint8_t* iw = wb.p + conv_bytes(K, int64_t(n));
        zamStatus e;
        if (K == Kind::C16s || K == Kind::C32s) {
            // split: the inner split kind on two arrays of n
            for (size_t j = 0; j < n; ++j) { t[j] = F(sr[j * stride]); t[n + j] = F(si[j * stride]); }
            if constexpr (sizeof(F) == 4) {
                auto* p = static_cast<const ZamsFFTSpec_C_32f*>(inner);
                e = inv ? g9_zamsFFTInv_CToC_32f_I(t, t + n, p, iw) : g9_zamsFFTFwd_CToC_32f_I(t, t + n, p, iw);
            } else {
                auto* p = static_cast<const ZamsFFTSpec_C_64f*>(inner);
                e = inv ? g9_zamsFFTInv_CToC_64f_I(t, t + n, p, iw) : g9_zamsFFTFwd_CToC_64f_I(t, t + n, p, iw);
            }
            if (e) return e;
            for (size_t j = 0; j < n; ++j) { dr[j * stride] = cv(t[j]); di[j * stride] = cv(t[n + j]); }
        } else {
            for (size_t j = 0; j < n; ++j) { t[2 * j] = F(sr[j * stride]); t[2 * j + 1] = F(si[j * stride]); }
            if constexpr (sizeof(F) == 4) {
                auto* p = static_cast<const ZamsFFTSpec_C_32fc*>(inner);
                auto* c = reinterpret_cast<Zam32fc*>(t);
                e = inv ? g9_zamsFFTInv_CToC_32fc_I(c, p, iw) : g9_zamsFFTFwd_CToC_32fc_I(c, p, iw);
            } else {
                auto* p = static_cast<const ZamsFFTSpec_C_64fc*>(inner);
                auto* c = reinterpret_cast<Zam64fc*>(t);
                e = inv ? g9_zamsFFTInv_CToC_64fc_I(c, p, iw) : g9_zamsFFTFwd_CToC_64fc_I(c, p, iw);
            }
            if (e) return e;
            for (size_t j = 0; j < n; ++j) { dr[j * stride] = cv(t[2 * j]); di[j * stride] = cv(t[2 * j + 1]); }
        }
        return zamStatusOk;
    }
};

enum class Fmt { Perm, Pack, Ccs };
inline size_t packed_len(Fmt f, size_t n) { return f == Fmt::Ccs ? (n == 1 ? 2 : n + 2) : n; }

// The inner real transform of one format, in place on t.
template <class F> zamStatus real_inner(bool inv, Fmt f, F* t, const void* inner, uint8_t* iw) {
    if constexpr (sizeof(F) == 4) {
        auto* p = static_cast<const ZamsFFTSpec_R_32f*>(inner);
        if (!inv) return f == Fmt::Perm ? g9_zamsFFTFwd_RToPerm_32f_I(t, p, iw) : f == Fmt::Pack ? g9_zamsFFTFwd_RToPack_32f_I(t, p, iw) : g9_zamsFFTFwd_RToCCS_32f_I(t, p, iw);
        return f == Fmt::Perm ? g9_zamsFFTInv_PermToR_32f_I(t, p, iw) : f == Fmt::Pack ? g9_zamsFFTInv_PackToR_32f_I(t, p, iw) : g9_zamsFFTInv_CCSToR_32f_I(t, p, iw);
    } else {
        auto* p = static_cast<const ZamsFFTSpec_R_64f*>(inner);
        if (!inv) return f == Fmt::Perm ? g9_zamsFFTFwd_RToPerm_64f_I(t, p, iw) : f == Fmt::Pack ? g9_zamsFFTFwd_RToPack_64f_I(t, p, iw) : g9_zamsFFTFwd_RToCCS_64f_I(t, p, iw);
        return f == Fmt::Perm ? g9_zamsFFTInv_PermToR_64f_I(t, p, iw) : f == Fmt::Pack ? g9_zamsFFTInv_PackToR_64f_I(t, p, iw) : g9_zamsFFTInv_CCSToR_64f_I(t, p, iw);
    }
}

// Real integer transforms: S source type, D destination type.
template <class S, class D, class F, Kind K>
zamStatus real_run(bool inv, Fmt f, const S* src, D* dst, const void* spec, int sf, uint8_t* buf, int32_t id) {
    zamStatus s;
    if (!spec_of<void>(spec, id, s)) return s;
    if (!src || !dst) return zamStatusNullPointer;
    RoundingScope rs(Rounding::Nearest);
    const int order = *(static_cast<const int32_t*>(spec) + 1);
    const size_t n = size_t(1) << order;
    const size_t in_len = inv ? packed_len(f, n) : n, out_len = inv ? n : packed_len(f, n);
    if (order == 0) {
        const D v = scaled_int<D>(int64_t(src[0]), sf);
        dst[0] = v;
        if (!inv && f == Fmt::Ccs) dst[1] = 0;
        return zamStatusOk;
    }
    WorkBuf wb;
    if (zamStatus e = wb.get(work_of(K, spec), buf)) return e;
    ToInt<D> cv(sf);
    double y[10];
    if constexpr (is16(K)) {
        const Hdr16* h = static_cast<const Hdr16*>(spec);
        if (!h->innerFloat) {
            // small path: the complex evaluation of the real signal or spectrum
            double xr[8] = {}, xi[8] = {}, yr[8], yi[8];
            if (!inv) {
                for (size_t j = 0; j < n; ++j) xr[j] = src[j];
            } else {
                // expand the packed spectrum to all n bins
                double br[5] = {}, bi[5] = {};
                br[0] = src[0];
                if (f == Fmt::Ccs) {
                    for (size_t k = 1; k <= n / 2; ++k) { br[k] = src[2 * k]; bi[k] = src[2 * k + 1]; }
                } else {
                    const size_t p0 = f == Fmt::Perm ? 2 : 1;
                    for (size_t k = 1; k < n / 2; ++k) { br[k] = src[p0 + 2 * (k - 1)]; bi[k] = src[p0 + 2 * (k - 1) + 1]; }
                    br[n / 2] = src[f == Fmt::Perm ? 1 : n - 1];
                }
                bi[n / 2] = 0;
                for (size_t k = 0; k < n; ++k) {
                    xr[k] = k <= n / 2 ? br[k] : br[n - k];
                    xi[k] = k <= n / 2 ? bi[k] : -bi[n - k];
                }
            }
            small_dft(h, inv, xr, xi, yr, yi);
            if (inv) {
                for (size_t j = 0; j < n; ++j) dst[j] = cv(yr[j]);
                return zamStatusOk;
            }
            // pack the half spectrum
            size_t o = 0;
            y[o++] = yr[0];
            if (f == Fmt::Ccs) y[o++] = 0;
            if (f == Fmt::Perm) y[o++] = yr[n / 2];
            for (size_t k = 1; k < n / 2; ++k) { y[o++] = yr[k]; y[o++] = yi[k]; }
            if (f != Fmt::Perm) y[o++] = yr[n / 2];
            if (f == Fmt::Ccs) y[o++] = 0;
            for (size_t j = 0; j < o; ++j) dst[j] = cv(y[j]);
            return zamStatusOk;
        }
    }
    const uint32_t offInner = is16(K) ? static_cast<const Hdr16*>(spec)->offInner : static_cast<const Hdr32*>(spec)->offInner;
    const void* inner = static_cast<const uint8_t*>(spec) + offInner;
    F* t = reinterpret_cast<F*>(wb.p);
    for (size_t j = 0; j < in_len; ++j) t[j] = F(src[j]);
    if (zamStatus e = real_inner<F>(inv, f, t, inner, wb.p + conv_bytes(K, int64_t(n)))) return e;
    for (size_t j = 0; j < out_len; ++j) dst[j] = cv(t[j]);
    return zamStatusOk;
}

}  // namespace
}  // namespace zams::fft

using namespace zams::fft;

#define ZAMS_FFT_INT_SPEC(K, KIND, ID)                                                                         \
    ZAMS_FN(zamStatus, zamsFFTGetSize_##K)(int o, int f, int h, int* a, int* b, int* c) {                     \
        return get_size(KIND, o, f, h, a, b, c);                                                               \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInit_##K)(ZamsFFTSpec_##K * *pp, int o, int f, int h, Zam8u* m, Zam8u* b) {     \
        return init(KIND, reinterpret_cast<void**>(pp), o, f, h, m, b, ID);                                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTInitAlloc_##K)(ZamsFFTSpec_##K * *pp, int o, int f, int h) {                    \
        return init_alloc(KIND, reinterpret_cast<void**>(pp), o, f, h, ID);                                    \
    }                                                                                                          \
    ZAMS_FN(zamStatus, zamsFFTGetBufSize_##K)(const ZamsFFTSpec_##K* s, int* p) { return buf_size(s, ID, KIND, p); } \
    ZAMS_FN(zamStatus, zamsFFTFree_##K)(ZamsFFTSpec_##K * s) { return free_spec(s, ID, KIND); }

ZAMS_FFT_INT_SPEC(C_16sc, Kind::C16sc, kIdC16sc)
ZAMS_FFT_INT_SPEC(C_16s, Kind::C16s, kIdC16s)
ZAMS_FFT_INT_SPEC(R_16s, Kind::R16s, kIdR16s)
ZAMS_FFT_INT_SPEC(C_32s, Kind::C32s, kIdC32s)
ZAMS_FFT_INT_SPEC(C_32sc, Kind::C32sc, kIdC32sc)
ZAMS_FFT_INT_SPEC(R_32s, Kind::R32s, kIdR32s)
ZAMS_FFT_INT_SPEC(R_16s32s, Kind::R16s32s, kIdR16s32s)

// Complex, interleaved (16sc, 32sc) and split (16s, 32s).
#define ZAMS_FFT_INT_CPLX(T, P, F, KIND, ID)                                                                    \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_Sfs)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_C_##T* p, int sf, \
                                                  Zam8u* b) {                                                   \
        const P* sp = s ? &s->re : nullptr;                                                                     \
        P* dp = d ? &d->re : nullptr;                                                                           \
        return Complex<P, F, KIND>::run(false, sp, sp ? sp + 1 : nullptr, dp, dp ? dp + 1 : nullptr, 2, p, sf, b, ID); \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_Sfs)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_C_##T* p, int sf, \
                                                  Zam8u* b) {                                                   \
        const P* sp = s ? &s->re : nullptr;                                                                     \
        P* dp = d ? &d->re : nullptr;                                                                           \
        return Complex<P, F, KIND>::run(true, sp, sp ? sp + 1 : nullptr, dp, dp ? dp + 1 : nullptr, 2, p, sf, b, ID); \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_ISfs)(Zam##T * sd, const ZamsFFTSpec_C_##T* p, int sf, Zam8u* b) { \
        return zamsFFTFwd_CToC_##T##_Sfs(sd, sd, p, sf, b);                                                     \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_ISfs)(Zam##T * sd, const ZamsFFTSpec_C_##T* p, int sf, Zam8u* b) { \
        return zamsFFTInv_CToC_##T##_Sfs(sd, sd, p, sf, b);                                                     \
    }
ZAMS_FFT_INT_CPLX(16sc, Zam16s, float, Kind::C16sc, kIdC16sc)
ZAMS_FFT_INT_CPLX(32sc, Zam32s, double, Kind::C32sc, kIdC32sc)

#define ZAMS_FFT_INT_SPLIT(T, F, KIND, ID)                                                                      \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_Sfs)(const Zam##T* sr, const Zam##T* si, Zam##T* dr, Zam##T* di,   \
                                                  const ZamsFFTSpec_C_##T* p, int sf, Zam8u* b) {               \
        return Complex<Zam##T, F, KIND>::run(false, sr, si, dr, di, 1, p, sf, b, ID);                           \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_Sfs)(const Zam##T* sr, const Zam##T* si, Zam##T* dr, Zam##T* di,   \
                                                  const ZamsFFTSpec_C_##T* p, int sf, Zam8u* b) {               \
        return Complex<Zam##T, F, KIND>::run(true, sr, si, dr, di, 1, p, sf, b, ID);                            \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTFwd_CToC_##T##_ISfs)(Zam##T * r, Zam##T * i, const ZamsFFTSpec_C_##T* p, int sf,  \
                                                   Zam8u* b) {                                                  \
        return Complex<Zam##T, F, KIND>::run(false, r, i, r, i, 1, p, sf, b, ID);                               \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_CToC_##T##_ISfs)(Zam##T * r, Zam##T * i, const ZamsFFTSpec_C_##T* p, int sf,  \
                                                   Zam8u* b) {                                                  \
        return Complex<Zam##T, F, KIND>::run(true, r, i, r, i, 1, p, sf, b, ID);                                \
    }
ZAMS_FFT_INT_SPLIT(16s, float, Kind::C16s, kIdC16s)
ZAMS_FFT_INT_SPLIT(32s, double, Kind::C32s, kIdC32s)

#define ZAMS_FFT_INT_REAL(T, F, KIND, ID, FMT, FNAME)                                                           \
    ZAMS_FN(zamStatus, zamsFFTFwd_RTo##FNAME##_##T##_Sfs)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_R_##T* p, \
                                                          int sf, Zam8u* b) {                                   \
        return real_run<Zam##T, Zam##T, F, KIND>(false, FMT, s, d, p, sf, b, ID);                               \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTFwd_RTo##FNAME##_##T##_ISfs)(Zam##T * sd, const ZamsFFTSpec_R_##T* p, int sf,     \
                                                           Zam8u* b) {                                          \
        return real_run<Zam##T, Zam##T, F, KIND>(false, FMT, sd, sd, p, sf, b, ID);                             \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_##FNAME##ToR_##T##_Sfs)(const Zam##T* s, Zam##T* d, const ZamsFFTSpec_R_##T* p, \
                                                          int sf, Zam8u* b) {                                   \
        return real_run<Zam##T, Zam##T, F, KIND>(true, FMT, s, d, p, sf, b, ID);                                \
    }                                                                                                           \
    ZAMS_FN(zamStatus, zamsFFTInv_##FNAME##ToR_##T##_ISfs)(Zam##T * sd, const ZamsFFTSpec_R_##T* p, int sf,     \
                                                           Zam8u* b) {                                          \
        return real_run<Zam##T, Zam##T, F, KIND>(true, FMT, sd, sd, p, sf, b, ID);                              \
    }
ZAMS_FFT_INT_REAL(16s, float, Kind::R16s, kIdR16s, Fmt::Perm, Perm)
ZAMS_FFT_INT_REAL(16s, float, Kind::R16s, kIdR16s, Fmt::Pack, Pack)
ZAMS_FFT_INT_REAL(16s, float, Kind::R16s, kIdR16s, Fmt::Ccs, CCS)
ZAMS_FFT_INT_REAL(32s, double, Kind::R32s, kIdR32s, Fmt::Perm, Perm)
ZAMS_FFT_INT_REAL(32s, double, Kind::R32s, kIdR32s, Fmt::Pack, Pack)
ZAMS_FFT_INT_REAL(32s, double, Kind::R32s, kIdR32s, Fmt::Ccs, CCS)

ZAMS_FN(zamStatus, zamsFFTFwd_RToCCS_16s32s_Sfs)(const Zam16s* s, Zam32s* d, const ZamsFFTSpec_R_16s32s* p, int sf,
                                                 Zam8u* b) {
    return real_run<Zam16s, Zam32s, double, Kind::R16s32s>(false, Fmt::Ccs, s, d, p, sf, b, kIdR16s32s);
}
ZAMS_FN(zamStatus, zamsFFTInv_CCSToR_32s16s_Sfs)(const Zam32s* s, Zam16s* d, const ZamsFFTSpec_R_16s32s* p, int sf,
                                                 Zam8u* b) {
    return real_run<Zam32s, Zam16s, double, Kind::R16s32s>(true, Fmt::Ccs, s, d, p, sf, b, kIdR16s32s);
}
